#include "ipmi/transport.h"
#include "tests/unit/platform_stub.h"

#include <cstring>
#include <gtest/gtest.h>
#include <numeric>

class transport : public testing::Test
{
protected:
    void SetUp() override { reset_stub(); }
    ipmi_rsp response{};
};

static uint8_t sum(const byte_text &bytes, size_t first, size_t end)
{
    return uint8_t(std::accumulate(bytes.begin() + long(first), bytes.begin() + long(end), 0));
}

TEST_F(transport, null_request_is_refused_and_says_nothing)
{
    g_error_code = 7;
    EXPECT_EQ(printed([&] { EXPECT_EQ(ipmi_send_recv(nullptr, &response, 6), 0); }), "");
    EXPECT_EQ(g_error_code, 7U);
    EXPECT_TRUE(stub.sent.empty());
}

TEST_F(transport, frame_is_completed_on_a_copy)
{
    stub.answer_all = {0x00};
    ipmi_msg request{};
    request.byte[0] = 0xAA;
    request.byte[1] = 0xC3;  // LUN bits set by the caller
    request.byte[3] = 0x11;
    request.byte[5] = 0x91;
    request.byte[6] = 0xD9;
    const ipmi_msg before = request;
    EXPECT_EQ(ipmi_send_recv(&request, &response, 7), 1);
    EXPECT_EQ(memcmp(&before, &request, sizeof request), 0);
    const byte_text &frame = stub.sent.at(0);
    ASSERT_EQ(frame.size(), 8U);
    EXPECT_EQ(frame[0], 0x00);
    EXPECT_EQ(frame[1], 0xC0);
    EXPECT_EQ(frame[2], 0x40);
    EXPECT_EQ(frame[3], 0x63);
    EXPECT_EQ(frame[4] & 3, 0);
    EXPECT_EQ(sum(frame, 0, 3), 0);
    EXPECT_EQ(sum(frame, 3, 8), 0);
}

[[gnu::noinline]] static void dirty_stack()
{
    uint8_t old[8192];
    memset(old, 0xEE, sizeof old);
    asm volatile("" ::"r"(old) : "memory");
}

TEST_F(transport, an_exchange_begins_with_a_cleared_record)
{
    for (auto *send : {exchange, exchange_patient}) {
        dirty_stack();
        printed([&] { EXPECT_FALSE(send(ipmi_request(0x06, 0x01)).ok()); });
    }
    EXPECT_EQ(stub.receives, 30U);
    EXPECT_TRUE(stub.records_cleared);
}

TEST_F(transport, sequence_numbers_count_all_calls_modulo_64)
{
    stub.answer_all = {0x00};
    const ipmi_request request(0x06, 0x01);
    ASSERT_EQ(ipmi_send_recv(&request.record, &response, 6), 1);
    const unsigned first = stub.sent.at(0)[4] >> 2;
    for (unsigned call = 1; call < 300; ++call) {
        auto *variant = call % 3 == 0 ? ipmi_send_recv_patient : ipmi_send_recv;
        ASSERT_EQ(variant(&request.record, &response, 6), 1);
        ASSERT_EQ(stub.sent.at(call)[4] >> 2, (first + call) % 64);
    }
}

TEST_F(transport, retries_send_the_same_frame)
{
    const ipmi_request request(0x06, 0x01);
    printed([&] { EXPECT_EQ(ipmi_send_recv(&request.record, &response, 6), 0); });
    ASSERT_EQ(stub.sent.size(), 5U);
    for (const byte_text &frame : stub.sent)
        EXPECT_EQ(frame, stub.sent[0]);
}

TEST_F(transport, absent_service_five_sends_four_pauses)
{
    stub.send_results = {-1, 1, -1, 2, -1};
    const ipmi_request request(0x06, 0x01);
    EXPECT_EQ(printed([&] { EXPECT_EQ(ipmi_send_recv(&request.record, &response, 6), 0); }), "");
    EXPECT_EQ(stub.sent.size(), 5U);
    EXPECT_EQ(stub.slept_us, (std::vector<unsigned>{50000, 50000, 50000, 50000}));
    EXPECT_EQ(g_error_code, 0x40000000U);
}

TEST_F(transport, silent_service_five_waits_no_pause)
{
    const ipmi_request request(0x06, 0x01);
    EXPECT_EQ(printed([&] { EXPECT_EQ(ipmi_send_recv(&request.record, &response, 6), 0); }), "Select OutTime \r\n");
    EXPECT_EQ(stub.receives, 5U);
    EXPECT_TRUE(stub.slept_us.empty());
    EXPECT_EQ(g_error_code, 0x40000001U);
}

TEST_F(transport, patient_variant_waits_five_times_after_each_send)
{
    const ipmi_request request(0x06, 0x45);
    EXPECT_EQ(printed([&] { EXPECT_EQ(ipmi_send_recv_patient(&request.record, &response, 6), 0); }),
              "Select OutTime \r\n");
    EXPECT_EQ(stub.sent.size(), 5U);
    EXPECT_EQ(stub.receives, 25U);
    EXPECT_EQ(g_error_code, 0x40000001U);
}

TEST_F(transport, patient_variant_stops_at_the_first_message)
{
    stub.receptions = {{false, {}}, {false, {}}, {false, {}}, {false, {}}};
    stub.answer_all = {0x00};
    const ipmi_request request(0x06, 0x45);
    EXPECT_EQ(ipmi_send_recv_patient(&request.record, &response, 6), 1);
    EXPECT_EQ(stub.sent.size(), 1U);
    EXPECT_EQ(stub.receives, 5U);
}

TEST_F(transport, patient_exchange_ends_as_any_other)
{
    stub.receptions = {{false, {}}};
    stub.answer_all = {0xCC};
    const ipmi_answer got = exchange_patient(ipmi_request(0x06, 0x45));
    EXPECT_TRUE(got.refused_with(0xCC));
    EXPECT_EQ(stub.sent.size(), 1U);
    EXPECT_EQ(stub.receives, 2U);
}

TEST_F(transport, lengths_up_to_253_have_room_for_the_checksum)
{
    stub.answer_all = {0x00};
    const ipmi_msg request{};
    EXPECT_EQ(ipmi_send_recv(&request, &response, 253), 1);
    EXPECT_EQ(stub.sent.at(0).size(), 254U);
    for (const uint8_t length : {uint8_t(254), uint8_t(255)}) {
        g_error_code = 0;
        EXPECT_EQ(ipmi_send_recv(&request, &response, length), 0);
        EXPECT_EQ(g_error_code, 0x40000000U);
    }
    EXPECT_EQ(stub.sent.size(), 1U);
}

TEST_F(transport, request_that_does_not_fit_is_never_sent)
{
    ipmi_request request(0x30, 0x93);
    for (unsigned n = 0; n < ipmi_request::max_data; ++n)
        request.u8(1);
    EXPECT_TRUE(request.fits());
    EXPECT_EQ(request.length, 253);
    EXPECT_FALSE(request.u8(1).fits());
    EXPECT_EQ(exchange(request).how, ipmi_answer::end::no_answer);
    EXPECT_EQ(g_error_code, 0x40000000U);
    EXPECT_TRUE(stub.sent.empty());
}

TEST_F(transport, outcome_of_an_answer)
{
    stub.answer_all = {0x00, 0x11, 0x22};
    const ipmi_answer got = exchange(ipmi_request(0x30, 0x91));
    EXPECT_TRUE(got.ok());
    EXPECT_FALSE(got.refused_with(0x00));
    ASSERT_EQ(got.data.size(), 2U);
    EXPECT_EQ(got.data[0], 0x11);
}

TEST_F(transport, outcome_of_a_refusal)
{
    stub.answer_all = {0xC1, 0x55};
    const ipmi_answer got = exchange(ipmi_request(0x30, 0x91));
    EXPECT_EQ(got.how, ipmi_answer::end::refused);
    EXPECT_TRUE(got.refused_with(0xC1));
    EXPECT_FALSE(got.refused_with(0xC2));
    EXPECT_EQ(got.error_code(), 0x309100C1U);
    EXPECT_EQ(got.error_code(0x0D), 0x30910DC1U);
    EXPECT_EQ(g_error_code, 0U);  // left to the caller
}

TEST_F(transport, outcome_without_an_answer)
{
    stub.send_results = {-1, -1, -1, -1, -1};
    const ipmi_answer got = exchange(ipmi_request(0x30, 0x93));
    EXPECT_EQ(got.how, ipmi_answer::end::no_answer);
    EXPECT_EQ(got.error_code(0x0D), 0x40000000U);
    EXPECT_EQ(got.composite_code(), 0x30930000U);
}

TEST_F(transport, what_lay_beyond_an_answer_is_not_read)
{
    dirty_stack();
    stub.answer_all = {0x00};
    const ipmi_answer got = exchange(ipmi_request(0x30, 0x91));
    EXPECT_TRUE(got.ok());
    EXPECT_EQ(ipmi_reader(got.data).u32le(), 0U);
}

TEST(request, bytes_in_wire_order)
{
    const uint8_t two[] = {9, 8};
    const ipmi_request request =
        ipmi_request(0x2C, 0x15).u8(1).u16le(0x0203).u32le(0x04050607).u32be(0x0A0B0C0D).bytes(two).padded("ab", 4);
    const byte_text expected{0x00, 0xB0, 0, 0, 0, 0x15, 1, 3, 2, 7, 6, 5, 4, 0xA, 0xB, 0xC, 0xD, 9, 8, 'a', 'b', 0, 0};
    EXPECT_EQ(byte_text(request.record.byte, request.record.byte + request.length), expected);
}

TEST(request, enterprise_number_low_byte_first)
{
    const ipmi_request request = ipmi_request(0x30, 0x91).oem();
    EXPECT_EQ(byte_text(request.record.byte + 6, request.record.byte + request.length), (byte_text{0xD9, 0x7E, 0x00}));
}

TEST(reader, never_leaves_the_data)
{
    const uint8_t data[] = {1, 2, 3};
    ipmi_reader reader{data};
    EXPECT_EQ(reader.u16le(), 0x0201);
    EXPECT_EQ(reader.u16le(), 0x0003);
    EXPECT_EQ(reader.u8(), 0);
    EXPECT_EQ(ipmi_reader(data).skip(2).u8(), 3);
    EXPECT_EQ(ipmi_reader(data).skip(9).u8(), 0);
}

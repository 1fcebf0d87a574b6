/// Datagrams of every kind.
#include "ipmcd/service.h"
#include "tests/ipmcd/board.h"

#include <random>

namespace ipmcd
{

struct bare_service : board_test {
    fault_list faults;
    trace quiet;
    service ipmi{board, faults, quiet};
};

TEST_F(bare_service, a_request_is_carried_out_and_answered_at_once)
{
    // Get User Access, channel 1, user 3: 00+18 = 18, so E8; 63+00+44+01+03 = AB, so 55.
    const auto answer = take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x44, 0x01, 0x03, 0x55});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->delay.count(), 0);
    // 63+1C = 7F, so 81; 00+00+44+00+11+44+01+13 = AD, so 53.
    EXPECT_EQ(answer->datagram, (bytes{0x63, 0x1C, 0x81, 0x00, 0x00, 0x44, 0x00, 0x11, 0x44, 0x01, 0x13, 0x53}));
}

TEST_F(bare_service, a_refusal_carries_no_data)
{
    // 63+00+99 = FC, so 04; 00+00+99+C1 = 15A, so A6.
    const auto answer = take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x99, 0x04});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->datagram, (bytes{0x63, 0x1C, 0x81, 0x00, 0x00, 0x99, 0xC1, 0xA6}));
}

TEST_F(bare_service, what_is_no_request_is_counted_and_ignored)
{
    EXPECT_FALSE(take_now(ipmi, bytes{}));
    EXPECT_FALSE(take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x01}));
    EXPECT_FALSE(take_now(ipmi, bytes{0x00, 0x18, 0xE9, 0x63, 0x00, 0x01, 0x9C}));
    EXPECT_FALSE(take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x01, 0x9D}));
    EXPECT_FALSE(take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x02, 0x9C}));
    EXPECT_FALSE(take_now(ipmi, bytes{0x00, 0x1C, 0xE4, 0x63, 0x00, 0x01, 0x9C}));
    EXPECT_TRUE(take_now(ipmi, bytes{0x00, 0x18, 0xE8, 0x63, 0x00, 0x01, 0x9C}));
    ipmi.note_undelivered();
    EXPECT_EQ(ipmi.counters().dump(), R"({"requests":1,"answers":1,"undelivered":1,"dropped":0,"renewals":0,)"
                                      R"("ignored":{"too_short":2,"bad_checksum":3,"not_a_request":1}})");
}

static bytes framed(uint8_t netfn, uint8_t command, const bytes &data)
{
    bytes frame = {0x00, uint8_t(netfn << 2)};
    frame.push_back(uint8_t(-frame[1]));
    frame.insert(frame.end(), {0x63, 0x00, command});
    frame.insert(frame.end(), data.begin(), data.end());
    uint8_t sum = 0;
    for (size_t i = 3; i < frame.size(); i++)
        sum = uint8_t(sum + frame[i]);
    frame.push_back(uint8_t(-sum));
    return frame;
}

/// Every command with data of every length and random content: each is answered, and the state stays one that loads.
TEST_F(bare_service, random_data_never_lead_to_a_bad_state)
{
    std::mt19937 random(20240117);
    const auto any_byte = [&] { return uint8_t(random()); };
    controller spare(clock);  // families that live only to show their rows do not join the board's
    for (const auto &make : all_families()) {
        for (const command &row : make(spare)->commands()) {
            const std::span<const uint8_t> lead = row.lead;
            for (size_t i = 0; i < 4096; i++) {
                bytes data(lead.begin(), lead.end());
                data.resize(i % 248);
                for (size_t at = lead.size(); at < data.size(); at++)
                    data[at] = i % 3 == 0 ? any_byte() & 0x0F : any_byte();
                ASSERT_TRUE(take_now(ipmi, framed(row.netfn, row.number, data))) << row.name << " " << hex(data);
            }
        }
    }
    const json state = board.to_json();
    EXPECT_NO_THROW(board.from_json(state));
    EXPECT_EQ(board.to_json(), state);
    EXPECT_NO_THROW(static_cast<void>(state.dump()));
}

TEST_F(bare_service, random_datagrams_do_no_harm)
{
    std::mt19937 random(1);
    for (size_t i = 0; i < 20000; i++) {
        bytes datagram(random() % 300);
        for (uint8_t &byte : datagram)
            byte = uint8_t(random());
        take_now(ipmi, datagram);
    }
    const json counted = ipmi.counters();
    EXPECT_EQ(counted["requests"].get<int>() + counted["ignored"]["too_short"].get<int>() +
                  counted["ignored"]["bad_checksum"].get<int>() + counted["ignored"]["not_a_request"].get<int>(),
              20000);
}

}  // namespace ipmcd

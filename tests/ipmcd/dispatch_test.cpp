/// From a request to its row, with a family made for the purpose.
#include "tests/ipmcd/board.h"

namespace ipmcd
{

class odd_family final : public family
{
public:
    const char *name() const override { return "odd"; }
    std::span<const command> commands() const override;
    void reset() override {}
    json to_json() const override { return json::object(); }
    void from_json(const json &) override {}

    completion number(byte_reader &, byte_writer &answer) { return answer.u8(1), completion::ok; }
    completion longer(byte_reader &request, byte_writer &answer)
    {
        answer.u8(2);
        while (request.left() > 0)
            answer.u8(request.u8());
        return completion::ok;
    }
    completion fill(byte_reader &request, byte_writer &answer)
    {
        for (uint16_t count = request.u16le(); count > 0; count--)
            answer.u8(0xAA);
        return completion::ok;
    }
    completion stumble(byte_reader &, byte_writer &answer)
    {
        answer.u8(1);
        throw std::runtime_error("stumbled");
    }
    completion take_time(byte_reader &request, uint32_t account, slow_answer &slow)
    {
        const uint8_t what = request.u8();
        if (what == 0)
            return completion(0x81);
        slow.work = [what] {
            if (what == 1)
                throw std::runtime_error("stumbled at work");
        };
        slow.finish = [what, account](byte_writer &answer) {
            answer.u8(uint8_t(account));
            if (what == 2)
                throw std::runtime_error("stumbled at the end");
            return completion::ok;
        };
        if (what == 3)
            throw std::runtime_error("stumbled at the beginning");
        return completion::ok;
    }
    completion refuse(byte_reader &, byte_writer &answer) { return answer.u8(1), completion(0x81); }
};

static const command odd_rows[] = {
    {.netfn = 0x30, .number = 1, .lead = oem(0x06), .name = "Short", .run = call<&odd_family::number>},
    {.netfn = 0x30,
     .number = 1,
     .lead = oem(0x06, 0xAA),
     .name = "Long",
     .length = {1, 3},
     .run = call<&odd_family::longer>},
    {.netfn = 0x30, .number = 2, .name = "Fill", .length = {2, 2}, .run = call<&odd_family::fill>},
    {.netfn = 0x30, .number = 3, .name = "Stumble", .run = call<&odd_family::stumble>},
    {.netfn = 0x30, .number = 4, .name = "Refuse", .run = call<&odd_family::refuse>},
    {.netfn = 0x30,
     .number = 6,
     .name = "Take Time",
     .length = {1, 1},
     .run_slowly = call_slowly<&odd_family::take_time>},
};
std::span<const command> odd_family::commands() const { return odd_rows; }

static constexpr family_maker only_odd[] = {
    [](controller &) -> std::unique_ptr<family> { return std::make_unique<odd_family>(); }};

struct dispatch : board_test {
    dispatch() : board_test(only_odd) {}
};

TEST_F(dispatch, a_sub_function_is_part_of_the_row)
{
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x06}), (reply{0x00, {1}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 7, 8, 9}), (reply{0x00, {2, 7, 8, 9}}));
}

TEST_F(dispatch, lengths_count_from_behind_the_leading_bytes)
{
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x06, 0xAA}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 7, 8, 9, 10}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x06, 0xAB}), (reply{0xC7, {}}));  // "Short" with a byte too many
}

TEST_F(dispatch, a_request_that_ends_inside_the_leading_bytes_is_too_short)
{
    EXPECT_EQ(ask(0x30, 1, {}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00}), (reply{0xC7, {}}));
}

TEST_F(dispatch, another_enterprise_or_sub_function_is_an_invalid_field)
{
    EXPECT_EQ(ask(0x30, 1, {0xD8, 0x7E, 0x00, 0x06}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 1, {0xD9, 0x7E, 0x00, 0x07}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 1, {0x00}), (reply{0xCC, {}}));
}

TEST_F(dispatch, unknown_numbers_are_invalid_commands)
{
    EXPECT_EQ(ask(0x30, 5, {}), (reply{0xC1, {}}));
    EXPECT_EQ(ask(0x32, 1, {}), (reply{0xC1, {}}));
    EXPECT_EQ(ask(0x30, 5, {}, 1), (reply{0xC1, {}}));  // whatever the LUN
}

TEST_F(dispatch, only_lun_0_has_commands)
{
    for (const uint8_t lun : bytes{1, 2, 3})
        EXPECT_EQ(ask(0x30, 2, {1, 0}, lun), (reply{0xC2, {}}));
}

TEST_F(dispatch, an_answer_that_does_not_fit_is_no_answer)
{
    EXPECT_EQ(ask(0x30, 2, {0xF8, 0x03}).data.size(), 1016U);  // 0x3F8: with header and checksum 1024 bytes
    EXPECT_EQ(ask(0x30, 2, {0xF9, 0x03}), (reply{0xCE, {}}));
}

TEST_F(dispatch, an_exception_is_an_unspecified_error) { EXPECT_EQ(ask(0x30, 3, {}), (reply{0xFF, {}})); }

TEST_F(dispatch, a_request_may_take_time)
{
    account = 7;
    EXPECT_EQ(ask(0x30, 6, {0}), (reply{0x81, {}}));
    for (const uint8_t stumbling : bytes{1, 2, 3})
        EXPECT_EQ(ask(0x30, 6, {stumbling}), (reply{0xFF, {}}));
    EXPECT_EQ(ask(0x30, 6, {4}), (reply{0x00, {7}}));
    EXPECT_EQ(ask(0x30, 6, {}), (reply{0xC7, {}}));
}

TEST_F(dispatch, a_code_of_its_own_is_passed_on) { EXPECT_EQ(ask(0x30, 4, {}), (reply{0x81, {}})); }

TEST(bytes_at_hand, a_reader_reads_low_byte_first_and_zeros_beyond_the_end)
{
    const bytes data = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
    byte_reader reader(data);
    EXPECT_EQ(reader.u8(), 0x01);
    EXPECT_EQ(reader.u16le(), 0x0302);
    EXPECT_EQ(reader.u32le(), 0x07060504U);
    EXPECT_EQ(reader.left(), 1U);
    EXPECT_EQ(reader.u16le(), 0x0008);
    EXPECT_EQ(reader.u32le(), 0U);
    EXPECT_TRUE(reader.bytes(3).empty());
}

TEST(bytes_at_hand, a_writer_writes_low_byte_first)
{
    byte_writer writer;
    writer.u8(0x01).u16le(0x0203).u32le(0x04050607).bytes(bytes{0x08, 0x09});
    EXPECT_EQ(hex(writer.written()), "01 03 02 07 06 05 04 08 09");
    EXPECT_FALSE(writer.overflown());
}

}  // namespace ipmcd

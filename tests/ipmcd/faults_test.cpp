/// What may be ordered to fail, and what a client then gets.
#include "ipmcd/faults.h"
#include "tests/ipmcd/board.h"

#include <sstream>

namespace ipmcd
{

static fault parse(const std::string &line)
{
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return parse_fault(words);
}

static std::string refusal(const std::string &line)
{
    try {
        parse(line);
        return "accepted";
    } catch (const std::invalid_argument &problem) {
        return problem.what();
    }
}

TEST(fault_order, all_its_parts_are_read)
{
    const fault read = parse("30 0x91 sub=0x06AA late=250 count=3");
    EXPECT_EQ(read.netfn, 0x30);
    EXPECT_EQ(read.command, 0x91);
    EXPECT_EQ(read.sub, (bytes{0x06, 0xAA}));
    EXPECT_EQ(read.kind, fault_kind::late);
    EXPECT_EQ(read.value, 250U);
    EXPECT_EQ(read.left, 3U);
}

TEST(fault_order, any_and_once_are_what_is_not_said)
{
    const fault read = parse("any any silence");
    EXPECT_FALSE(read.netfn);
    EXPECT_FALSE(read.command);
    EXPECT_TRUE(read.sub.empty());
    EXPECT_EQ(read.left, 1U);
}

TEST(fault_order, each_kind_has_its_word)
{
    const std::pair<const char *, fault_kind> kinds[] = {
        {"code=0xC3", fault_kind::code},
        {"silence", fault_kind::silence},
        {"cancel", fault_kind::cancel},
        {"late=0", fault_kind::late},
        {"wrong-sequence", fault_kind::wrong_sequence},
        {"wrong-netfn", fault_kind::wrong_netfn},
        {"wrong-command", fault_kind::wrong_command},
        {"wrong-address", fault_kind::wrong_address},
        {"bad-length", fault_kind::bad_length},
        {"length=1025", fault_kind::length},
    };
    for (const auto &[word, kind] : kinds) {
        const fault read = parse(std::string("6 1 ") + word);
        EXPECT_EQ(read.kind, kind) << word;
        EXPECT_EQ(fault_words(read), word);
    }
}

TEST(fault_order, a_wrong_one_is_refused_with_a_reason)
{
    const std::pair<const char *, const char *> wrong[] = {
        {"", "fail NETFN CMD [sub=HEX] KIND [count=N], or fail clear"},
        {"30 91", "fail NETFN CMD [sub=HEX] KIND [count=N], or fail clear"},
        {"40 91 silence", "40: a netFn is \"any\" or a hexadecimal number up to 3F"},
        {"fan 91 silence", "fan: a netFn is \"any\" or a hexadecimal number up to 3F"},
        {"30 100 silence", "100: a command is \"any\" or a hexadecimal number up to FF"},
        {"30 0x silence", "0x: a command is \"any\" or a hexadecimal number up to FF"},
        {"30 -1 silence", "-1: a command is \"any\" or a hexadecimal number up to FF"},
        {"30 91 code", "code: a value is needed, as in code=16"},
        {"30 91 code=", "code=: a number from 0 to 255 is needed"},
        {"30 91 code=256", "code=256: a number from 0 to 255 is needed"},
        {"30 91 code=C3", "code=C3: a number from 0 to 255 is needed"},
        {"30 91 silence=1", "silence: takes no value"},
        {"30 91 late=600001", "late=600001: a number from 0 to 600000 is needed"},
        {"30 91 length=4097", "length=4097: a number from 0 to 4096 is needed"},
        {"30 91 silence count=0", "count=0: a number from 1 to 1000000 is needed"},
        {"30 91 silence count=99999999999", "count=99999999999: a number from 1 to 1000000 is needed"},
        {"30 91 silence late=1", "late=1: one kind of fault at a time"},
        {"30 91 sub= silence", "sub=: pairs of hexadecimal digits are needed, as in sub=0x0611"},
        {"30 91 sub=061 silence", "sub=061: pairs of hexadecimal digits are needed, as in sub=0x0611"},
        {"30 91 sub=0g silence", "sub=0g: pairs of hexadecimal digits are needed, as in sub=0x0611"},
        {"30 91 count=2",
         "which kind of fault? Known are code=N, silence, cancel, late=N, wrong-sequence, wrong-netfn, "
         "wrong-command, wrong-address, bad-length, length=N"},
        {"30 91 noise",
         "noise: unknown kind of fault, known are code=N, silence, cancel, late=N, wrong-sequence, wrong-netfn, "
         "wrong-command, wrong-address, bad-length, length=N"},
    };
    for (const auto &[line, reason] : wrong)
        EXPECT_EQ(refusal(line), reason);
}

// Get Fan Mode: 00+C0 = C0, so 40; 63+14+91+D9+7E+00+02 = 261, so 9F.
static const bytes get_fan_mode = {0x00, 0xC0, 0x40, 0x63, 0x14, 0x91, 0xD9, 0x7E, 0x00, 0x02, 0x9F};

struct faulty_service : board_test {
    void fail(const std::string &line) { faults.add(parse(line)); }
    bytes answer_to(const bytes &datagram)
    {
        const auto answer = take_now(ipmi, datagram);
        return answer ? answer->datagram : bytes{0xEE};  // no frame is that short
    }
    bool is_manual() const { return state_of("fans")["mode"] == "manual"; }

    fault_list faults;
    trace quiet;
    service ipmi{board, faults, quiet};
};

static const bytes silence = {0xEE};

TEST_F(faulty_service, a_code_refuses_without_carrying_out)
{
    fail("2C 15 code=0xC3");
    // 00+14+15+C3 = EC, so 14.
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xB4, 0xE9, 0x00, 0x14, 0x15, 0xC3, 0x14}));
    EXPECT_FALSE(is_manual());
    EXPECT_EQ(answer_to(set_fan_level_60), level_set);
    EXPECT_TRUE(is_manual());
}

TEST_F(faulty_service, silence_swallows_the_request)
{
    fail("2C 15 silence");
    EXPECT_EQ(answer_to(set_fan_level_60), silence);
    EXPECT_FALSE(is_manual());
    EXPECT_EQ(answer_to(set_fan_level_60), level_set);
}

TEST_F(faulty_service, a_reservation_is_cancelled_before_the_request_is_carried_out)
{
    ask(0x0A, 0x22, {});
    // Get SDR, one byte of the first record under reservation 1: 28 and D8; 63+14+23+01+01 = 9C, so 64.
    const bytes get_sdr = {0x00, 0x28, 0xD8, 0x63, 0x14, 0x23, 0x01, 0x00, 0x00, 0x00, 0x00, 0x01, 0x64};
    // 63+2C = 8F, so 71; 14+23+C5 = FC, so 04.
    const bytes cancelled = {0x63, 0x2C, 0x71, 0x00, 0x14, 0x23, 0xC5, 0x04};
    EXPECT_NE(answer_to(get_sdr), cancelled);
    fail("0A 23 cancel");
    EXPECT_EQ(answer_to(get_sdr), cancelled);
    EXPECT_EQ(answer_to(get_sdr), cancelled);  // it takes a new reservation
    EXPECT_EQ(faults.to_json().size(), 0U);
    fail("2C 15 cancel");
    EXPECT_EQ(answer_to(set_fan_level_60), level_set);  // nothing to do with reservations
}

TEST_F(faulty_service, a_late_answer_is_whole)
{
    fail("2C 15 late=250");
    const auto answer = take_now(ipmi, set_fan_level_60);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->delay.count(), 250);
    EXPECT_EQ(answer->datagram, level_set);
    EXPECT_TRUE(is_manual());
}

TEST_F(faulty_service, a_spoiled_answer_is_wrong_in_one_field_and_has_right_checksums)
{
    fail("2C 15 wrong-sequence");
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xB4, 0xE9, 0x00, 0x18, 0x15, 0x00, 0x00, 0xD3}));
    fail("2C 15 wrong-netfn");  // 63+BC = 11F, so E1
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xBC, 0xE1, 0x00, 0x14, 0x15, 0x00, 0x00, 0xD7}));
    fail("2C 15 wrong-command");
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xB4, 0xE9, 0x00, 0x14, 0x14, 0x00, 0x00, 0xD8}));
    fail("2C 15 wrong-address");
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xB4, 0xE9, 0x20, 0x14, 0x15, 0x00, 0x00, 0xB7}));
    EXPECT_TRUE(is_manual());
}

TEST_F(faulty_service, the_sequence_after_63_is_0)
{
    fail("any any wrong-sequence");
    // Sequence 63 is FC: 63+FC+15+3C = 1B0, so 50.
    EXPECT_EQ(answer_to({0x00, 0xB0, 0x50, 0x63, 0xFC, 0x15, 0x00, 0x00, 0x3C, 0x50})[4], 0x00);
}

TEST_F(faulty_service, bad_length_is_an_empty_datagram)
{
    fail("2C 15 bad-length");
    EXPECT_EQ(answer_to(set_fan_level_60), bytes{});
    EXPECT_TRUE(is_manual());
}

TEST_F(faulty_service, length_cuts_or_fills)
{
    fail("2C 15 length=6");
    EXPECT_EQ(answer_to(set_fan_level_60), (bytes{0x63, 0xB4, 0xE9, 0x00, 0x14, 0x15}));
    fail("2C 15 length=1025");
    bytes filled = level_set;
    filled.resize(1025);
    EXPECT_EQ(answer_to(set_fan_level_60), filled);
}

TEST_F(faulty_service, other_requests_are_left_alone)
{
    fail("2C 16 silence");
    fail("2E any silence");
    fail("2C any sub=0001 silence");
    EXPECT_EQ(answer_to(set_fan_level_60), level_set);
    EXPECT_EQ(faults.to_json().size(), 3U);
}

TEST_F(faulty_service, a_sub_function_stands_behind_the_enterprise_number)
{
    fail("30 91 sub=01 silence");
    fail("30 91 sub=02 code=0xD5");
    EXPECT_EQ(answer_to(get_fan_mode)[6], 0xD5);
    EXPECT_EQ(faults.to_json().size(), 1U);
}

TEST_F(faulty_service, of_other_requests_sub_is_the_data)
{
    fail("2C 15 sub=00003C silence");
    EXPECT_EQ(answer_to(set_fan_level_60), silence);
}

TEST_F(faulty_service, a_fault_is_for_so_many_requests)
{
    fail("any any silence count=2");
    fail("any any code=0xC0");
    EXPECT_EQ(answer_to(set_fan_level_60), silence);
    EXPECT_EQ(faults.to_json().dump(), R"([{"netfn":"any","command":"any","sub":"","kind":"silence","left":1},)"
                                       R"({"netfn":"any","command":"any","sub":"","kind":"code=0xC0","left":1}])");
    EXPECT_EQ(answer_to(set_fan_level_60), silence);
    EXPECT_EQ(answer_to(set_fan_level_60)[6], 0xC0);
    EXPECT_EQ(answer_to(set_fan_level_60), level_set);
    EXPECT_EQ(faults.to_json().dump(), "[]");
}

TEST_F(faulty_service, a_datagram_that_is_no_request_spends_nothing)
{
    fail("any any silence");
    answer_to({1, 2, 3});
    EXPECT_EQ(faults.to_json().size(), 1U);
}

}  // namespace ipmcd

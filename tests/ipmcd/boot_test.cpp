#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct boot : traced {
    reply set(const bytes &parameter_and_value) { return ask(0x00, 0x08, parameter_and_value); }
    reply get(uint8_t parameter) { return ask(0x00, 0x09, {parameter, 0x00, 0x00}); }
    void boot_host() { ASSERT_EQ(ask(0x00, 0x02, {3}), done); }  // hard reset
    json count_of_cmos_clears() { return state_of("boot")["cmos_clears"]; }
    const reply done{0x00, {}}, out_of_range{0xC9, {}}, invalid{0xCC, {}}, wrong_length{0xC7, {}};
};

// Answers: version of the parameters, number of the parameter, its value.
TEST_F(boot, leaves_the_factory_without_overrides)
{
    EXPECT_EQ(get(0x00), (reply{0x00, {0x01, 0x00, 0x00}}));
    EXPECT_EQ(get(0x05), (reply{0x00, {0x01, 0x05, 0x00, 0x00, 0x00, 0x00, 0x00}}));
    EXPECT_EQ(get(0x62), (reply{0x00, {0x01, 0x62, 0x58, 0x02}}));  // 600 tenths of a second
    EXPECT_EQ(get(0x63), (reply{0x00, {0x01, 0x63, 0x00}}));
}

TEST_F(boot, a_set_is_in_progress_once)
{
    EXPECT_EQ(set({0x00, 0x01}), done);
    EXPECT_EQ(get(0x00).data[2], 1);
    EXPECT_EQ(set({0x00, 0x01}), (reply{0x81, {}}));
    EXPECT_EQ(set({0x00, 0x00}), done);
    EXPECT_EQ(set({0x00, 0x00}), done);
    EXPECT_EQ(set({0x00, 0x01}), done);
}

TEST_F(boot, a_roll_back_is_not_supported)
{
    EXPECT_EQ(set({0x00, 0x02}), invalid);  // commit write
    EXPECT_EQ(set({0x00, 0x03}), invalid);
    EXPECT_EQ(get(0x00).data[2], 0);
}

TEST_F(boot, a_write_outside_a_set_in_progress_holds)
{
    EXPECT_EQ(set({0x63, 0x01}), done);
    EXPECT_EQ(get(0x63).data[2], 1);
}

TEST_F(boot, other_parameters_are_unknown)
{
    for (const uint8_t parameter : bytes{1, 2, 3, 4, 6, 7, 0x61, 0x64, 0x7F, 0x80, 0x85, 0xE2}) {
        EXPECT_EQ(set({parameter, 0x00}), (reply{0x80, {}})) << int(parameter);
        EXPECT_EQ(get(parameter), (reply{0x80, {}})) << int(parameter);
    }
}

TEST_F(boot, each_parameter_has_its_length)
{
    EXPECT_EQ(set({}), wrong_length);
    const std::pair<uint8_t, size_t> lengths[] = {{0x00, 1}, {0x05, 5}, {0x62, 2}, {0x63, 1}};
    for (const auto &[parameter, length] : lengths)
        for (size_t given = 0; given < 8; given++) {
            bytes data(1 + given, 0);
            data[0] = parameter;
            EXPECT_EQ(set(data), given == length ? done : wrong_length) << int(parameter) << " " << given;
        }
    EXPECT_EQ(ask(0x00, 0x09, {0x05}), wrong_length);
    EXPECT_EQ(ask(0x00, 0x09, {0x05, 0, 0, 0}), wrong_length);
}

TEST_F(boot, parameters_have_one_set_and_one_block)
{
    EXPECT_EQ(ask(0x00, 0x09, {0x05, 1, 0}), out_of_range);
    EXPECT_EQ(ask(0x00, 0x09, {0x05, 0, 1}), out_of_range);
}

TEST_F(boot, flags_are_kept_until_the_next_boot)
{
    EXPECT_EQ(set({0x05, 0x80, 0x04, 0x12, 0x0F, 0x1F}), done);  // valid, PXE
    EXPECT_EQ(get(0x05), (reply{0x00, {0x01, 0x05, 0x80, 0x04, 0x12, 0x0F, 0x1F}}));
    boot_host();
    EXPECT_EQ(get(0x05), (reply{0x00, {0x01, 0x05, 0x00, 0x04, 0x12, 0x0F, 0x1F}}));  // used: no longer valid
}

TEST_F(boot, persistent_flags_outlive_boots)
{
    set({0x05, 0xE0, 0x3C, 0, 0, 0});
    boot_host();
    EXPECT_EQ(get(0x05).data, (bytes{0x01, 0x05, 0xE0, 0x3C, 0, 0, 0}));
}

TEST_F(boot, every_device_is_known_or_reserved)
{
    for (unsigned device = 0; device < 16; device++) {
        const bool reserved = device == 0xA || (device >= 0xC && device <= 0xE);
        EXPECT_EQ(set({0x05, 0x80, uint8_t(device << 2), 0, 0, 0}), reserved ? invalid : done) << device;
    }
}

TEST_F(boot, reserved_bits_of_the_flags_stay_clear)
{
    EXPECT_EQ(set({0x05, 0x90, 0, 0, 0, 0}), invalid);
    EXPECT_EQ(set({0x05, 0x81, 0, 0, 0, 0}), invalid);
    EXPECT_EQ(set({0x05, 0x80, 0, 0, 0x10, 0}), invalid);
    EXPECT_EQ(set({0x05, 0x80, 0, 0, 0, 0x20}), invalid);
    EXPECT_EQ(set({0x05, 0xE0, 0xC3, 0xFF, 0x0F, 0x1F}), done);
}

TEST_F(boot, a_cmos_clear_is_a_pulse)
{
    set({0x05, 0x00, 0x80, 0, 0, 0});
    EXPECT_EQ(count_of_cmos_clears(), 1);
    set({0x05, 0x80, 0x84, 0, 0, 0});  // still up
    EXPECT_EQ(count_of_cmos_clears(), 1);
    set({0x05, 0x80, 0x04, 0, 0, 0});
    EXPECT_EQ(count_of_cmos_clears(), 1);
    set({0x05, 0x80, 0x84, 0, 0, 0});
    EXPECT_EQ(count_of_cmos_clears(), 2);
}

TEST_F(boot, the_shutdown_time_out_is_0_or_10_to_6540_seconds)
{
    const std::pair<uint16_t, bool> cases[] = {{0, true},   {1, false},    {99, false},
                                               {100, true}, {65400, true}, {65401, false}};
    for (const auto &[tenths, good] : cases)
        EXPECT_EQ(set({0x62, uint8_t(tenths), uint8_t(tenths >> 8)}), good ? done : out_of_range) << tenths;
    EXPECT_EQ(get(0x62), (reply{0x00, {0x01, 0x62, 0x78, 0xFF}}));  // 65400 = 0xFF78
}

TEST_F(boot, write_protection_is_on_or_off)
{
    EXPECT_EQ(set({0x63, 0x01}), done);
    EXPECT_EQ(set({0x63, 0x02}), invalid);
    EXPECT_EQ(get(0x63), (reply{0x00, {0x01, 0x63, 0x01}}));
}

TEST_F(boot, a_cold_reset_ends_a_set_in_progress_and_keeps_what_was_set)
{
    set({0x00, 0x01});
    set({0x05, 0x80, 0x08, 0, 0, 0});
    set({0x62, 0x64, 0x00});
    set({0x63, 0x01});
    EXPECT_EQ(ask(0x06, 0x02, {}), done);
    clock.advance(0ms);
    EXPECT_EQ(state_of("boot").dump(), R"({"set_in_progress":false,"flags":"80 08 00 00 00",)"
                                       R"("shutdown_timeout_100ms":100,"bios_write_protect":true,"cmos_clears":0})");
}

TEST_F(boot, takes_its_state_from_json)
{
    board.from_json({{"boot",
                      {{"set_in_progress", true},
                       {"flags", "c0 14 00 00 00"},
                       {"shutdown_timeout_100ms", 0},
                       {"bios_write_protect", true},
                       {"cmos_clears", 3}}}});
    EXPECT_EQ(get(0x00).data[2], 1);
    EXPECT_EQ(get(0x05).data, (bytes{0x01, 0x05, 0xC0, 0x14, 0, 0, 0}));
    EXPECT_EQ(get(0x62).data, (bytes{0x01, 0x62, 0, 0}));
    EXPECT_EQ(get(0x63).data[2], 1);
    board.reset();
    EXPECT_EQ(get(0x05).data, (bytes{0x01, 0x05, 0, 0, 0, 0, 0}));
}

TEST_F(boot, refuses_a_state_that_does_not_fit)
{
    const std::pair<json, const char *> wrong[] = {
        {{{"flags", "80 08 00 00"}}, "/boot/flags: 5 bytes are needed here, as in \"00 00 00 00 00\""},
        {{{"flags", "80 08 00 00 0"}}, "/boot/flags: 5 bytes are needed here, as in \"00 00 00 00 00\""},
        {{{"flags", "80 08 00 00 00 "}}, "/boot/flags: 5 bytes are needed here, as in \"00 00 00 00 00\""},
        {{{"flags", "8008000000"}}, "/boot/flags: 5 bytes are needed here, as in \"00 00 00 00 00\""},
        {{{"flags", 5}}, "/boot/flags: 5 bytes are needed here, as in \"00 00 00 00 00\""},
        {{{"flags", "81 08 00 00 00"}}, "/boot/flags: boot flags are needed here, with their reserved bits clear"},
        {{{"shutdown_timeout_100ms", 99}},
         "/boot/shutdown_timeout_100ms: 0 or a number from 100 to 65400 is needed here"},
        {{{"set_in_progress", 1}}, "/boot/set_in_progress: true or false is needed here"},
    };
    for (const auto &[state, why] : wrong) {
        try {
            board.from_json({{"boot", state}});
            ADD_FAILURE() << state;
        } catch (const bad_state &refusal) {
            EXPECT_STREQ(refusal.what(), why);
        }
    }
}

TEST_F(boot, speaks_in_the_trace)
{
    EXPECT_EQ(
        lines(0x00, 0x08, {0, 1}),
        (expected{"request 00/08 Set System Boot Options: 00 01 (set in progress: in progress)", "answer  00 done"}));
    EXPECT_EQ(lines(0x00, 0x08, {0, 1})[1], "answer  81 code of this command");
    EXPECT_EQ(lines(0x00, 0x08, {5, 0x80, 0x84, 0, 0, 0})[0],
              "request 00/08 Set System Boot Options: 05 80 84 00 00 00 (boot flags: next boot, PXE, CMOS clear)");
    EXPECT_EQ(lines(0x00, 0x08, {5, 0xE0, 0x28, 0, 0, 0})[0],
              "request 00/08 Set System Boot Options: 05 E0 28 00 00 00 (boot flags: every boot, UEFI, device 10)");
    EXPECT_EQ(lines(0x00, 0x08, {5, 0x80})[0], "request 00/08 Set System Boot Options: 05 80 (boot flags)");
    EXPECT_EQ(lines(0x00, 0x08, {0x62, 0x6D, 0x00})[0],
              "request 00/08 Set System Boot Options: 62 6D 00 (shutdown time-out: 10.9 s)");
    EXPECT_EQ(lines(0x00, 0x08, {0x62, 0, 0})[0],
              "request 00/08 Set System Boot Options: 62 00 00 (shutdown time-out: none)");
    EXPECT_EQ(lines(0x00, 0x08, {0x63, 1})[0],
              "request 00/08 Set System Boot Options: 63 01 (BIOS write protection: on)");
    EXPECT_EQ(lines(0x00, 0x08, {0x07, 1})[0], "request 00/08 Set System Boot Options: 07 01 (parameter 0x07)");
    EXPECT_EQ(lines(0x00, 0x09, {5, 0, 0}),
              (expected{"request 00/09 Get System Boot Options: 05 00 00 (boot flags)",
                        "answer  00 done: 01 05 80 84 00 00 00 (boot flags: next boot, PXE, CMOS clear)"}));
}

}  // namespace ipmcd

#include "platform/platform.h"
#include "tests/platform/test_folder.h"

#include <array>
#include <set>
#include <sys/stat.h>

namespace
{

using sel_record = std::array<unsigned char, 16>;

/// A system event record, IPMI 2.0, SEL Event Records.
sel_record event(unsigned char sensor_type, unsigned char event_type, unsigned char offset, bool deasserted = false)
{
    sel_record record{1, 0, 0x02, 0, 0, 0, 0x60, 0x20, 0, 0x04};
    record[10] = sensor_type;
    record[11] = 0x33;
    record[12] = static_cast<unsigned char>(event_type | (deasserted ? 0x80 : 0));
    record[13] = static_cast<unsigned char>(0x50 | offset);  // the upper half says what the other data bytes are
    return record;
}

class events : public test_folder
{
protected:
    int load(const std::string &text) const { return event_parse_init(write("table", text).c_str()); }

    /// "severity description code"; in brackets when the table has no entry.
    static std::string parse(const sel_record &record)
    {
        unsigned severity = 99;
        const char *description = "unset";
        const int entry = event_parse(record.data(), &severity, &description);
        char code[16];
        snprintf(code, sizeof code, "%08lX", event_get_code(record.data()));
        const std::string text = std::to_string(severity) + " " + description + " " + code;
        return entry != 0 ? text : "[" + text + "]";
    }
};

TEST_F(events, are_found_by_type_offset_and_direction)
{
    ASSERT_NE(load("# a comment\n"
                   "\n"
                   "0x01 0x01 0x09 assert   2 0x10000001 Upper critical, going high\n"
                   "  1    1    9  deassert 0 10000000   Upper critical, back \t\r\n"
                   "0x04 0x6F 0 * 255 0xdeadBEEF\n"),
              0);
    EXPECT_EQ(parse(event(0x01, 0x01, 9)), "2 Upper critical, going high 10000001");
    EXPECT_EQ(parse(event(0x01, 0x01, 9, true)), "0 Upper critical, back 10000000");
    EXPECT_EQ(parse(event(0x04, 0x6F, 0)), "255  DEADBEEF");
    EXPECT_EQ(parse(event(0x04, 0x6F, 0, true)), "255  DEADBEEF");
}

TEST_F(events, the_rule_that_asks_for_most_counts)
{
    ASSERT_NE(load("* * * *          0 00000001 anything\n"
                   "* * * deassert   0 00000002 any deassertion\n"
                   "* * 3 *          0 00000003 any offset 3\n"
                   "* 0x6F * *       0 00000004 any sensor-specific\n"
                   "7 * * *          0 00000005 any processor\n"
                   "7 0x6F * *       0 00000006 processor, sensor-specific\n"
                   "7 0x6F 3 *       0 00000007 processor, sensor-specific, 3\n"
                   "7 0x6F 3 assert  0 00000008 all of it"),
              0);
    EXPECT_EQ(parse(event(7, 0x6F, 3)), "0 all of it 00000008");
    EXPECT_EQ(parse(event(7, 0x6F, 3, true)), "0 processor, sensor-specific, 3 00000007");
    EXPECT_EQ(parse(event(7, 0x6F, 4)), "0 processor, sensor-specific 00000006");
    EXPECT_EQ(parse(event(7, 0x01, 3, true)), "0 any processor 00000005") << "the sensor type counts most";
    EXPECT_EQ(parse(event(8, 0x6F, 3, true)), "0 any sensor-specific 00000004");
    EXPECT_EQ(parse(event(8, 0x01, 3, true)), "0 any offset 3 00000003");
    EXPECT_EQ(parse(event(8, 0x01, 4, true)), "0 any deassertion 00000002");
    EXPECT_EQ(parse(event(8, 0x01, 4)), "0 anything 00000001");
}

TEST_F(events, without_an_entry_have_severity_0_no_description_and_a_composed_code)
{
    ASSERT_NE(load("1 1 9 assert 2 10000001 known\n"), 0);
    EXPECT_EQ(parse(event(0x01, 0x01, 7)), "[0  01330157]");
    EXPECT_EQ(parse(event(0x01, 0x01, 7, true)), "[0  01338157]");
}

TEST_F(events, of_oem_records_are_never_matched)
{
    ASSERT_NE(load("* * * * 3 11111111 anything\n"), 0);
    sel_record record = event(1, 1, 9);
    record[2] = 0xBF;
    EXPECT_EQ(parse(record), "3 anything 11111111");
    record[2] = 0xC0;
    record[7] = 0xD9, record[8] = 0x7E, record[9] = 0x00;
    EXPECT_EQ(parse(record), "[0  C0007ED9]");
    record[2] = 0xE0;
    record[3] = 0x0A, record[4] = 0x0B, record[5] = 0x0C;
    EXPECT_EQ(parse(record), "[0  E00A0B0C]");
}

TEST_F(events, of_a_large_table_are_all_found)
{
    std::string text;
    for (int sensor = 255; sensor >= 0; --sensor)
        for (int offset = 0; offset < 16; ++offset) {
            char line[64];
            snprintf(line, sizeof line, "%d 0x6F %d * 1 %08X s%d\n", sensor, offset, sensor * 256 + offset, sensor);
            text += line;
        }
    ASSERT_NE(load(text), 0);
    for (int sensor = 0; sensor < 256; ++sensor)
        for (int offset = 0; offset < 16; ++offset) {
            const auto record = event(static_cast<unsigned char>(sensor), 0x6F, static_cast<unsigned char>(offset));
            ASSERT_EQ(event_get_code(record.data()), static_cast<unsigned long>(sensor * 256 + offset));
        }
}

TEST_F(events, tables_with_a_wrong_line_are_refused_whole)
{
    const std::string good = "1 1 1 assert 1 00000001 x\n";
    for (const std::string wrong : {"1 1 1 assert 1",
                                    "1 1 1 assert 1 0000000 x",
                                    "1 1 1 assert 1 000000001 x",
                                    "1 1 1 assert 1 0000000G x",
                                    "1 1 1 assert 1 -0000001 x",
                                    "1 1 1 assert 1 0x x",
                                    "1 1 1 assert 256 00000001 x",
                                    "1 1 1 assert * 00000001 x",
                                    "1 1 1 up 1 00000001 x",
                                    "1 1 16 assert 1 00000001 x",
                                    "1 0x80 1 assert 1 00000001 x",
                                    "256 1 1 assert 1 00000001 x",
                                    "-1 1 1 assert 1 00000001 x",
                                    "0x 1 1 assert 1 00000001 x",
                                    "1x 1 1 assert 1 00000001 x",
                                    "99999999999999999999 1 1 assert 1 00000001 x",
                                    "x",
                                    "[section]",
                                    "1 1 1 assert 1 00000001 a\tb",
                                    "1 1 1 assert 1 00000001 \x1B",
                                    "1 1 1 assert 1 00000001 x",
                                    "1 1 1 ASSERT 1 00000002 x"})
        EXPECT_EQ(load(good + wrong), 0) << wrong;
    EXPECT_EQ(load(good + "2 1 1 assert 1 00000001 " + std::string(256, 'x')), 0);
    EXPECT_NE(load(good + "2 1 1 assert 1 00000001 " + std::string(255, 'x')), 0);
    EXPECT_EQ(load(good + std::string(1, '\0')), 0);
    EXPECT_EQ(load(""), 0) << "a table without a rule";
    EXPECT_EQ(load("# nothing\n"), 0);
    EXPECT_EQ(parse(event(1, 1, 1)), "[0  01330151]") << "nothing of it is kept";
}

TEST_F(events, tables_that_are_no_files_or_too_long_are_refused)
{
    mkfifo(path("fifo").c_str(), 0600);
    for (const std::string &wrong : {path("absent"), folder, path("fifo"), std::string("/dev/zero"), std::string()})
        EXPECT_EQ(event_parse_init(wrong.c_str()), 0) << wrong;
    EXPECT_EQ(event_parse_init(nullptr), 0);
    const std::string rule = "1 1 1 assert 1 00000001 x\n";
    EXPECT_NE(load(rule + "#" + std::string((1 << 20) - rule.size() - 1, '#')), 0);
    EXPECT_EQ(load(rule + "#" + std::string((1 << 20) - rule.size(), '#')), 0);
}

TEST_F(events, tables_replace_one_another)
{
    ASSERT_NE(load("1 1 1 assert 1 00000001 first\n"), 0);
    ASSERT_NE(load("2 1 1 assert 1 00000002 second\n"), 0);
    EXPECT_EQ(parse(event(1, 1, 1)), "[0  01330151]");
    EXPECT_EQ(parse(event(2, 1, 1)), "1 second 00000002");
}

TEST_F(events, missing_arguments_are_borne)
{
    unsigned severity = 99;
    const char *description = nullptr;
    EXPECT_EQ(event_parse(nullptr, &severity, &description), 0);
    EXPECT_EQ(severity, 0U);
    EXPECT_STREQ(description, "");
    EXPECT_EQ(event_parse(event(1, 1, 1).data(), nullptr, nullptr), 0);
    EXPECT_EQ(event_get_code(nullptr), 0U);
}

TEST(sensor_types, have_names)  // IPMI 2.0, Sensor Type Codes
{
    const struct {
        unsigned char type;
        const char *name;
    } known[] = {{0x00, "Reserved"},
                 {0x01, "Temperature"},
                 {0x04, "Fan"},
                 {0x07, "Processor"},
                 {0x0C, "Memory"},
                 {0x10, "Event Logging Disabled"},
                 {0x14, "Button / Switch"},
                 {0x1D, "System Boot Initiated"},
                 {0x23, "Watchdog 2"},
                 {0x28, "Management Subsystem Health"},
                 {0x2C, "FRU State"},
                 {0x2D, "Reserved"},
                 {0xBF, "Reserved"},
                 {0xC0, "OEM"},
                 {0xFF, "OEM"}};
    for (const auto &each : known)
        EXPECT_STREQ(get_sensor_type_name(each.type), each.name) << int(each.type);
    std::set<std::string> names;
    for (unsigned type = 0; type <= 0x2C; ++type)
        names.insert(get_sensor_type_name(static_cast<unsigned char>(type)));
    EXPECT_EQ(names.size(), 0x2DU) << "no two alike, and none missing";
}

}  // namespace

/// Boards: their files, the records made of them, and the conversion of readings.
#include "ipmcd/sensors/board_file.h"
#include "tests/ipmcd/board.h"
#include "tests/ipmcd/small_board.h"

#include <fstream>

namespace ipmcd
{

// Records ------------------------------------------------------------------------------------------------------------

struct board_records : testing::Test {
    std::string record(size_t index) const { return hex(board.records.at(index)); }
    const board_description board = read_board(small_board_file);
};

TEST_F(board_records, a_full_one_tells_thresholds_and_factors)
{
    // Body of 33h bytes. Owner 20h, LUN 0, number 11h, processor (3) 1. Initialization 40h scanning, 20h events, 10h
    // thresholds, 08h hysteresis, 04h type, 03h both at power-up. Capabilities 40h re-arms itself, 20h hysteresis and
    // 08h thresholds settable, 02h events. Lower critical (bit 1), upper non-critical (3), upper critical (4): events
    // low 2, high 7, high 9 = 284h, comparisons 2 in bits 14-12 of the first mask and 3 of the second; all three
    // readable (1Ah), the upper two settable (18h).
    EXPECT_EQ(record(0), "01 00 51 01 33 20 00 11 03 01 7F 6A 01 01 84 22 84 32 1A 18 "
                         "00 01 00 00 01 00 00 00 00 00 "        // unsigned, degrees C, linear, M = 1, B = 0
                         "00 00 00 00 FF 00 00 5A 50 00 05 00 "  // range 0 to FFh; 90, 80, lower critical 5
                         "03 01 00 00 00 C8 43 50 55 20 54 65 6D 70");
}

TEST_F(board_records, negative_factors_are_twos_complement)
{
    // One's complement (40h), volts (4). M = -6 = 3FAh, B = 40 = 028h, exponents R = -1 (Fh), B = -1 (Fh). Upper
    // critical, not readable: access "fixed" (0Ch). Range 7Fh to 80h. 60 V = (-6 * n + 4) * 0.1: n = -99.33, rounded
    // -99, whose one's complement is 9Ch.
    EXPECT_EQ(record(1), "02 00 51 01 30 20 00 12 00 01 67 4E 02 01 00 02 00 22 00 00 "
                         "40 04 00 00 FA C0 28 00 00 FF "
                         "00 00 00 00 7F 80 00 9C 00 00 00 00 "
                         "00 00 00 00 00 C5 53 6C 6F 70 65");
}

TEST_F(board_records, a_full_one_may_be_discrete)
{
    // Reading type 3, states 0 and 1, no analog reading (C0h).
    EXPECT_EQ(record(2), "03 00 51 01 2F 20 00 13 00 01 67 42 C3 03 03 00 03 00 03 00 "
                         "C0 00 00 00 01 00 00 00 00 00 "
                         "00 00 00 00 FF 00 00 00 00 00 00 00 "
                         "00 00 00 00 00 C4 4C 61 6D 70");
}

TEST_F(board_records, a_compact_one_tells_states)
{
    // Power supply (0Ah) 2, type 8, sensor-specific (6Fh); asserts state 0, deasserts and can be in 400Fh.
    EXPECT_EQ(record(3), "04 00 51 02 1E 20 00 21 0A 02 67 42 08 6F 01 00 0F 40 0F 40 "
                         "C0 00 00 01 00 00 00 00 00 00 00 C3 50 53 55");
}

TEST_F(board_records, an_event_only_one_is_short)
{
    EXPECT_EQ(record(4), "05 00 51 03 12 20 00 31 0C 01 14 6F 01 00 00 00 C6 42 75 74 74 6F 6E");
}

TEST_F(board_records, locators_say_where_things_are)
{
    EXPECT_EQ(record(5), "06 00 51 10 0F 20 98 00 00 00 20 00 00 01 00 C4 43 68 69 70");
    EXPECT_EQ(record(6), "07 00 51 11 10 20 03 80 00 00 10 00 07 01 00 C5 42 6F 61 72 64");
    EXPECT_EQ(record(7), "08 00 51 12 0E 20 00 00 87 00 00 00 06 01 00 C3 42 4D 43");
}

TEST_F(board_records, an_association_lists_up_to_four)
{
    EXPECT_EQ(record(8), "09 00 51 08 0B 13 01 00 0A 01 0A 02 00 00 00 00");
}

TEST_F(board_records, others_are_given_byte_by_byte)
{
    EXPECT_EQ(record(9), "0A 00 51 C0 04 D9 7E 00 41");
    const json empty = json::parse(R"({"board": "b", "records": [{"record": "other", "type": 9, "body": ""}]})");
    EXPECT_EQ(hex(read_board(empty).records[0]), "01 00 51 09 00");
}

// Files --------------------------------------------------------------------------------------------------------------

TEST(board_file, says_what_a_board_is)
{
    const board_description board = read_board(small_board_file);
    EXPECT_EQ(board.name, "small");
    EXPECT_EQ(board.source, sdr_source::repository);
    EXPECT_EQ(board.largest_read, 255);
    EXPECT_EQ(board.records.size(), 10U);
    EXPECT_EQ(board.sensors.size(), 5U);
    EXPECT_EQ(board.sensors[0].record_id, 1);
    EXPECT_EQ(board.sensors[0].reading, 42);
    EXPECT_EQ(board.sensors[3].reading, 0x4001);
    EXPECT_FALSE(board.sensors[4].reading);
}

TEST(board_file, the_boards_that_are_built_in_can_be_read)
{
    const board_description usual = load_board("default");
    EXPECT_EQ(usual.source, sdr_source::repository);
    EXPECT_GE(usual.sensors.size(), 40U);
    std::set<unsigned> types;
    for (const sdr_record &one : usual.records)
        types.insert(one[3]);
    EXPECT_EQ(types, (std::set<unsigned>{0x01, 0x02, 0x03, 0x08, 0x10, 0x11, 0x12, 0xC0}));
    const board_description device = load_board("device-sdrs"), slow = load_board("short-reads");
    EXPECT_EQ(device.source, sdr_source::device);
    EXPECT_EQ(device.records, usual.records);
    EXPECT_EQ(slow.source, sdr_source::repository);
    EXPECT_EQ(slow.largest_read, 24);
    EXPECT_EQ(slow.records, usual.records);
}

TEST(board_file, every_reading_of_the_default_board_is_what_its_file_says)
{
    const json file = json::parse(built_in_boards()[0].file);
    for (const sensor &one : default_board().sensors) {
        const json &given = file["records"][one.record_id - 1U];
        ASSERT_EQ(given["name"], one.name);
        if (one.has_thresholds()) {
            const double value = one.factors.value(uint8_t(one.reading.value()));
            EXPECT_DOUBLE_EQ(value, given["reading"].get<double>()) << one.name;
        }
        EXPECT_EQ(default_board().records[one.record_id - 1U][0], one.record_id) << one.name;
    }
}

struct board_refusals : testing::Test {
    /// Why a board is refused whose record 0 has these fields besides, or in place of, those of a good one.
    static std::string refusal_of(const std::string &changes)
    {
        json record = small_board_file["records"][0];
        record.update(json::parse(changes));
        return refusal_of_board({{"board", "b"}, {"records", {record, small_board_file["records"][4]}}});
    }
    static std::string refusal_of_board(const json &file)
    {
        try {
            read_board(file);
            return "accepted";
        } catch (const bad_state &problem) {
            return problem.what();
        }
    }
};

TEST_F(board_refusals, a_wrong_field_of_a_record_is_named)
{
    const std::pair<const char *, const char *> wrong[] = {
        {R"({"record": "half"})",
         R"(/records/0/record: one of "full", "compact", "event only", "association", "generic locator", )"
         R"("FRU locator", "controller locator", "other" is needed here)"},
        {R"({"colour": 1})", "/records/0/colour: unknown field"},
        {R"({"name": ""})", "/records/0/name: each record has a name"},
        {R"({"name": "0123456789ABCDEFG"})",
         "/records/0/name: printable ASCII of at most 16 characters is needed here"},
        {R"({"name": "Button"})", "/records/1/name: another sensor has this name"},
        {R"({"number": "0x31"})", R"(/records/1/number: sensor "CPU Temp" has this number)"},
        {R"({"number": 255})", R"(/records/0/number: a number from 0 to 254, or one like "0xFE", is needed here)"},
        {R"({"number": "17"})", R"(/records/0/number: a number from 0 to 254, or one like "0xFE", is needed here)"},
        {R"({"number": "0x"})", R"(/records/0/number: a number from 0 to 254, or one like "0xFE", is needed here)"},
        {R"({"number": "0x1g"})", R"(/records/0/number: a number from 0 to 254, or one like "0xFE", is needed here)"},
        {R"({"number": -1})", R"(/records/0/number: a number from 0 to 254, or one like "0xFE", is needed here)"},
        {R"({"M": 0})", "/records/0/M: 0 would make all readings the same"},
        {R"({"M": 512})", "/records/0/M: a number from -512 to 511 is needed here"},
        {R"({"B": -513})", "/records/0/B: a number from -512 to 511 is needed here"},
        {R"({"B_exponent": 8})", "/records/0/B_exponent: a number from -8 to 7 is needed here"},
        {R"({"result_exponent": -9})", "/records/0/result_exponent: a number from -8 to 7 is needed here"},
        {R"({"format": "none"})", "/records/0/format: a sensor with thresholds has a reading"},
        {R"({"reading": 255.6})", "/records/0/reading: a number from 0 to 255 is needed here"},
        {R"({"reading": "42"})", "/records/0/reading: a number from 0 to 255 is needed here"},
        {R"({"thresholds": {"upper_critical": -1}})",
         "/records/0/thresholds/upper_critical: a number from 0 to 255 is needed here"},
        {R"({"thresholds": {"highest": 1}})", "/records/0/thresholds/highest: unknown field"},
        {R"({"thresholds": []})", "/records/0/thresholds: an object is needed here"},
        {R"({"settable": ["lower_non_critical"]})",
         "/records/0/settable: a list of thresholds that can be read is needed here"},
        {R"({"readable": "upper_critical"})",
         "/records/0/readable: a list of thresholds that the sensor has is needed here"},
        {R"({"readable": []})", "/records/0/settable: a list of thresholds that can be read is needed here"},
        {R"({"hysteresis": {"positive": 256}})",
         "/records/0/hysteresis/positive: a number from 0 to 255 is needed here"},
        {R"({"hysteresis": {"access": "all"}})",
         R"(/records/0/hysteresis/access: one of "none", "readable", "settable", "fixed" is needed here)"},
        {R"({"assertions": 4096})",
         R"(/records/0/assertions: a number from 0 to 4095, or one like "0xFFF", is needed here)"},
    };
    for (const auto &[changes, why] : wrong)
        EXPECT_EQ(refusal_of(changes), why);
    EXPECT_EQ(refusal_of("{}"), "accepted");
}

TEST_F(board_refusals, words_that_nobody_knows_are_answered_with_those_that_are_known)
{
    EXPECT_TRUE(refusal_of(R"({"type": "heat"})").starts_with("/records/0/type: one of the words temperature, "));
    EXPECT_TRUE(refusal_of(R"({"unit": 256})").ends_with("percent, or a number from 0 to 255, is needed here"));
    for (const char *const at : {R"({"at": "processor"})", R"({"at": "processor 128"})", R"({"at": "cpu 1"})",
                                 R"({"at": "processor 1x"})", R"({"at": 3})"})
        EXPECT_TRUE(refusal_of(at).starts_with(
            R"(/records/0/at: an entity and its number are needed here, as in "processor 1"; entities are )"))
            << at;
}

TEST_F(board_refusals, records_are_complete)
{
    const std::pair<const char *, const char *> wrong[] = {
        {R"({"record": "full", "name": "A", "type": "fan"})", "/records/0/number: is missing"},
        {R"({"record": "compact", "name": "A", "number": 1})", "/records/0/type: is missing"},
        {R"({"record": "event only", "number": 1, "type": "fan"})", "/records/0/name: each record has a name"},
        {R"({"record": "compact", "name": "A", "number": 1, "type": "fan", "reading_type": 1})",
         "/records/0/reading_type: thresholds need a full record"},
        {R"({"record": "compact", "name": "A", "number": 1, "type": "fan", "states": 3, "reading": 4})",
         "/records/0/reading: the sensor cannot be in these states"},
        {R"({"record": "compact", "name": "A", "number": 1, "type": "fan", "unit": "volts"})",
         "/records/0/unit: unknown field"},
        {R"({"record": "generic locator", "name": "A"})", "/records/0/address: is missing"},
        {R"({"record": "FRU locator", "name": "A"})", "/records/0/fru: is missing"},
        {R"({"record": "association"})", "/records/0/contains: a list of 1 to 4 entities is needed here"},
        {R"({"record": "association", "contains": []})",
         "/records/0/contains: a list of 1 to 4 entities is needed here"},
        {R"({"record": "association", "contains": [1, 2, 3, 4, 5]})",
         "/records/0/contains: a list of 1 to 4 entities is needed here"},
        {R"({"record": "other", "body": "00"})", "/records/0/type: is missing"},
        {R"({"record": "other", "type": 9})",
         R"(/records/0/body: at most 255 bytes as in "D9 7E 00 01" are needed here)"},
        {R"({"record": "other", "type": 9, "body": "0"})",
         R"(/records/0/body: at most 255 bytes as in "D9 7E 00 01" are needed here)"},
        {R"([])", "/records/0: an object is needed here"},
    };
    for (const auto &[record, why] : wrong)
        EXPECT_EQ(refusal_of_board({{"board", "b"}, {"records", json::array({json::parse(record)})}}), why);
}

TEST_F(board_refusals, a_board_is_complete)
{
    const std::pair<const char *, const char *> wrong[] = {
        {R"([])", ": an object is needed here"},
        {R"({"records": []})", "/board: each board has a name"},
        {R"({"board": "b"})", R"(/records: a board has either "records" or "records_of")"},
        {R"({"board": "b", "records": []})", "/records: a list of 1 to 65534 records is needed here"},
        {R"({"board": "b", "records": {}})", "/records: a list of 1 to 65534 records is needed here"},
        {R"({"board": "b", "records": [], "records_of": "default"})",
         R"(/records: a board has either "records" or "records_of")"},
        {R"({"board": "b", "records_of": "other"})", "/records_of: the name of another built-in board is needed here"},
        {R"({"board": "default", "records_of": "default"})",
         "/records_of: the name of another built-in board is needed here"},
        {R"({"board": "b", "records_of": "default", "sdrs": "none"})",
         R"(/sdrs: one of "repository", "device", "both" is needed here)"},
        {R"({"board": "b", "records_of": "default", "largest_read": 256})",
         "/largest_read: a number from 0 to 255 is needed here"},
        {R"({"board": "b", "records_of": "default", "maker": 1})", "/maker: unknown field"},
    };
    for (const auto &[file, why] : wrong)
        EXPECT_EQ(refusal_of_board(json::parse(file)), why);
}

TEST_F(board_refusals, device_sdrs_are_255_at_most)
{
    json file{{"board", "b"}, {"sdrs", "device"}, {"records", json::array()}};
    for (int i = 0; i < 255; i++)
        file["records"].push_back({{"record", "other"}, {"type", 9}, {"body", "00"}});
    EXPECT_EQ(refusal_of_board(file), "accepted");
    file["records"].push_back({{"record", "other"}, {"type", 9}, {"body", "00"}});
    EXPECT_EQ(refusal_of_board(file), "/records: at most 255 can be Device SDRs");
    file["sdrs"] = "repository";
    EXPECT_EQ(refusal_of_board(file), "accepted");
}

struct board_files : testing::Test {
    std::string refusal(const std::string &name_or_path)
    {
        try {
            load_board(name_or_path);
            return "accepted";
        } catch (const std::runtime_error &problem) {
            return problem.what();
        }
    }

    scratch_folder folder;
    const std::string path = folder / "board.json";
};

TEST_F(board_files, are_read_from_a_path)
{
    std::ofstream(path) << small_board_file;
    EXPECT_EQ(load_board(path).records, read_board(small_board_file).records);
}

TEST_F(board_files, that_cannot_be_read_are_named)
{
    EXPECT_EQ(refusal("none"), "board none: no board of that name is built in, there are: default device-sdrs "
                               "short-reads; a file has a path with a dot or a slash");
    EXPECT_EQ(refusal(path), "board " + path + ": No such file or directory");
    std::ofstream(path) << "{";
    EXPECT_TRUE(refusal(path).starts_with("board " + path + ": not readable as JSON: "));
    std::ofstream(path) << R"({"board": "b", "records": 1})";
    EXPECT_EQ(refusal(path), "board " + path + ": /records: a list of 1 to 65534 records is needed here");
}

// Conversion ---------------------------------------------------------------------------------------------------------

TEST(sensor_conversion, the_bytes_stand_for_numbers)
{
    const conversion plain{}, ones{.format = data_format::ones_complement},
        twos{.format = data_format::twos_complement};
    const struct {
        uint8_t raw;
        int as_unsigned, as_ones, as_twos;
    } facts[] = {{0x00, 0, 0, 0},         {0x01, 1, 1, 1},     {0x7F, 127, 127, 127},
                 {0x80, 128, -127, -128}, {0xFE, 254, -1, -2}, {0xFF, 255, 0, -1}};
    for (const auto &fact : facts) {
        EXPECT_EQ(plain.number(fact.raw), fact.as_unsigned);
        EXPECT_EQ(ones.number(fact.raw), fact.as_ones);
        EXPECT_EQ(twos.number(fact.raw), fact.as_twos);
    }
}

TEST(sensor_conversion, values_follow_the_factors)
{
    const conversion volts{.m = 6, .result_exponent = -2};
    EXPECT_DOUBLE_EQ(volts.value(201), 12.06);
    const conversion outlet{.m = 5, .b = -40, .b_exponent = 1, .result_exponent = -1};
    EXPECT_DOUBLE_EQ(outlet.value(157), 38.5);  // (785 - 400) / 10
    const conversion big{.m = 2, .b = 5, .b_exponent = -1, .result_exponent = 2};
    EXPECT_DOUBLE_EQ(big.value(10), 2050);  // (20 + 0.5) * 100
    const conversion falling{.format = data_format::twos_complement, .m = -3};
    EXPECT_DOUBLE_EQ(falling.value(0xFE), 6);
}

TEST(sensor_conversion, every_reading_can_be_said_as_a_value)
{
    for (const data_format format :
         {data_format::is_unsigned, data_format::ones_complement, data_format::twos_complement})
        for (const int m : {-512, -7, 1, 6, 511})
            for (const int exponent : {-8, -2, 0, 7}) {
                const conversion factors{format, int16_t(m), 511, 2, int8_t(exponent)};
                for (unsigned raw = 0; raw < 256; raw++) {
                    const auto back = factors.raw(factors.value(uint8_t(raw)));
                    ASSERT_TRUE(back);
                    EXPECT_EQ(factors.number(*back), factors.number(uint8_t(raw)));  // there are two zeros
                }
            }
}

TEST(sensor_conversion, the_nearest_reading_is_taken_and_none_beyond_the_ends)
{
    const conversion plain{}, twos{.format = data_format::twos_complement};
    EXPECT_EQ(plain.raw(85.4), 85);
    EXPECT_EQ(plain.raw(85.5), 86);
    EXPECT_EQ(plain.raw(255.4), 255);
    EXPECT_EQ(plain.raw(255.6), std::nullopt);
    EXPECT_EQ(plain.raw(-0.4), 0);
    EXPECT_EQ(plain.raw(-0.6), std::nullopt);
    EXPECT_EQ(twos.raw(-128), 0x80);
    EXPECT_EQ(twos.raw(-3.7), 0xFC);
    EXPECT_EQ(twos.raw(128), std::nullopt);
    EXPECT_EQ(plain.raw(1e300), std::nullopt);
}

}  // namespace ipmcd

/// Sensor data records, from the repository and as Device SDRs.
#include "tests/ipmcd/small_board.h"
#include "tests/ipmcd/traced.h"

namespace ipmcd
{

/// Boards that differ in who tells the records.
static board_description small_board(sdr_source source)
{
    board_description made = read_board(small_board_file);
    made.source = source;
    return made;
}

struct any_sdr : traced {
    any_sdr(sdr_source source, uint8_t netfn, uint8_t read_command)
        : traced(all_families(), small_board(source)), where(netfn), reading(read_command)
    {
    }
    reply reserve() { return ask(where, 0x22, {}); }
    reply read(uint16_t record, uint8_t offset = 0, uint8_t count = 0xFF, uint16_t reservation = 0)
    {
        return ask(
            where, reading,
            {uint8_t(reservation), uint8_t(reservation >> 8), uint8_t(record), uint8_t(record >> 8), offset, count});
    }

    const uint8_t where, reading;
    const reply cancelled{0xC5, {}}, too_much{0xCA, {}}, beyond{0xC9, {}}, not_there{0xCB, {}};
    const bytes button = {0x05, 0x00, 0x51, 0x03, 0x12, 0x20, 0x00, 0x31, 0x0C, 0x01, 0x14, 0x6F,
                          0x01, 0x00, 0x00, 0x00, 0xC6, 'B',  'u',  't',  't',  'o',  'n'};
    bytes button_and_next(size_t from, size_t to) const
    {
        bytes data = {0x06, 0x00};
        data.insert(data.end(), button.begin() + ptrdiff_t(from), button.begin() + ptrdiff_t(to));
        return data;
    }
};

struct sdr_repository : any_sdr {
    sdr_repository() : any_sdr(sdr_source::repository, 0x0A, 0x23) {}
};
struct device_sdrs : any_sdr {
    device_sdrs() : any_sdr(sdr_source::device, 0x04, 0x21) {}
};
struct sdrs_of_both : any_sdr {
    sdrs_of_both() : any_sdr(sdr_source::both, 0x04, 0x21) {}
};

TEST_F(sdr_repository, says_how_many_records_it_has)
{
    // Version 1.5, 10 records, no free space, times unspecified, can be reserved.
    EXPECT_EQ(ask(0x0A, 0x20, {}),
              (reply{0x00, {0x51, 10, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x02}}));
}

TEST_F(sdr_repository, is_walked_from_the_first_record_to_the_last)
{
    uint16_t id = 0x0000;
    std::vector<unsigned> types;
    do {
        const reply header = read(id, 0, 5);
        ASSERT_EQ(header.code, 0x00);
        ASSERT_EQ(header.data.size(), 7U);
        types.push_back(header.data[5]);
        EXPECT_EQ(header.data[2], types.size());                          // the record's own id
        EXPECT_EQ(read(id).data.size(), 2U + 5U + header.data[6]) << id;  // next id, header, body
        id = uint16_t(header.data[0] | header.data[1] << 8);
    } while (id != 0xFFFF && types.size() < 100);
    EXPECT_EQ(types, (std::vector<unsigned>{0x01, 0x01, 0x01, 0x02, 0x03, 0x10, 0x11, 0x12, 0x08, 0xC0}));
}

TEST_F(sdr_repository, first_and_last_have_numbers_of_their_own)
{
    EXPECT_EQ(read(0x0000), read(1));
    EXPECT_EQ(read(0xFFFF), read(10));
    EXPECT_EQ(read(10), (reply{0x00, {0xFF, 0xFF, 0x0A, 0x00, 0x51, 0xC0, 0x04, 0xD9, 0x7E, 0x00, 0x41}}));
    EXPECT_EQ(read(11), not_there);
    EXPECT_EQ(read(0xFFFE), not_there);
}

TEST_F(sdr_repository, a_record_is_read_whole_or_in_pieces)
{
    EXPECT_EQ(read(5), (reply{0x00, button_and_next(0, 23)}));
    EXPECT_EQ(read(5, 0, 23), read(5));
    EXPECT_EQ(read(5, 0, 5), (reply{0x00, button_and_next(0, 5)}));
    EXPECT_EQ(reserve(), (reply{0x00, {0x01, 0x00}}));
    EXPECT_EQ(read(5, 5, 18, 1), (reply{0x00, button_and_next(5, 23)}));
    EXPECT_EQ(read(5, 16, 3, 1), (reply{0x00, button_and_next(16, 19)}));
    EXPECT_EQ(read(5, 16, 0xFF, 1), (reply{0x00, button_and_next(16, 23)}));
}

TEST_F(sdr_repository, pieces_end_where_the_record_ends)
{
    reserve();
    EXPECT_EQ(read(5, 0, 24), too_much);
    EXPECT_EQ(read(5, 22, 2, 1), too_much);
    EXPECT_EQ(read(5, 22, 1, 1).code, 0x00);
    EXPECT_EQ(read(5, 23, 1, 1), beyond);
    EXPECT_EQ(read(5, 23, 0xFF, 1), beyond);
}

TEST_F(sdr_repository, pieces_need_a_reservation_and_a_given_one_has_to_be_good)
{
    EXPECT_EQ(read(5, 5, 1), cancelled);
    EXPECT_EQ(read(5, 0, 5, 1), cancelled);  // none was taken yet
    EXPECT_EQ(reserve().data, (bytes{1, 0}));
    EXPECT_EQ(read(5, 0, 5, 1).code, 0x00);
    EXPECT_EQ(read(5, 5, 1), cancelled);
    EXPECT_EQ(reserve().data, (bytes{2, 0}));
    EXPECT_EQ(read(5, 0, 5, 1), cancelled);
    EXPECT_EQ(read(5, 5, 1, 1), cancelled);
    EXPECT_EQ(read(5, 5, 1, 2).code, 0x00);
}

TEST_F(sdr_repository, a_reservation_ends_on_order_and_with_a_cold_reset)
{
    reserve();
    board.cancel_reservations();
    EXPECT_EQ(read(5, 5, 1, 1), cancelled);
    EXPECT_EQ(read(5, 0, 5).code, 0x00);
    EXPECT_EQ(reserve().data, (bytes{2, 0}));
    ask(0x06, 0x02, {});
    clock.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(read(5, 5, 1, 2), cancelled);
    EXPECT_EQ(reserve().data, (bytes{3, 0}));
    board.reset();
    EXPECT_EQ(read(5, 5, 1, 3), cancelled);
}

TEST_F(sdr_repository, changes_to_a_sensor_keep_the_reservation)
{
    reserve();
    EXPECT_EQ(ask(0x04, 0x26, {0x11, 0x10, 0, 0, 0, 0, 95, 0}).code, 0x00);
    EXPECT_EQ(read(1, 37, 1, 1), (reply{0x00, {2, 0, 90}}));  // its record goes on telling the one of the factory
}

TEST_F(sdr_repository, long_reads_can_be_too_long_for_an_answer)
{
    board.from_json({{"sdr", {{"largest_read", 16}}}});
    EXPECT_EQ(read(5), too_much);
    EXPECT_EQ(read(5, 0, 17), too_much);
    EXPECT_EQ(read(5, 0, 16).code, 0x00);
    reserve();
    EXPECT_EQ(read(5, 7, 0xFF, 1).code, 0x00);  // the last 16
    EXPECT_EQ(read(5, 6, 0xFF, 1), too_much);
    EXPECT_EQ(state_of("sdr").dump(), R"({"largest_read":16})");
    board.reset();
    EXPECT_EQ(read(5).code, 0x00);
}

TEST_F(sdr_repository, requests_have_their_lengths)
{
    EXPECT_EQ(ask(0x0A, 0x20, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x22, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x23, {0, 0, 0, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x23, {0, 0, 0, 0, 0, 5, 0}), (reply{0xC7, {}}));
}

TEST_F(sdr_repository, has_no_device_sdrs_beside_it)
{
    for (const uint8_t command : bytes{0x20, 0x21, 0x22})
        EXPECT_EQ(ask(0x04, command, {}), (reply{0xC1, {}})) << int(command);
}

TEST_F(sdr_repository, shows_what_there_is)
{
    EXPECT_EQ(board.shown()["sdr"].dump(),
              R"({"board":"small","source":"repository","records":10,"sensors":5,"largest_read":255})");
}

TEST_F(sdr_repository, refuses_a_state_that_does_not_fit)
{
    for (const json &wrong : {json{{"largest_read", 256}}, json{{"largest_read", -1}}, json{{"records", 10}}, json(1)})
        EXPECT_THROW(board.from_json({{"sdr", wrong}}), bad_state) << wrong;
}

TEST_F(sdr_repository, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x0A, 0x20, {})[1], "answer  00 done: 51 0A 00 00 00 FF FF FF FF FF FF FF FF 02 (10 records)");
    EXPECT_EQ(lines(0x0A, 0x22, {}),
              (expected{"request 0A/22 Reserve SDR Repository", "answer  00 done: 01 00 (reservation 1)"}));
    EXPECT_EQ(lines(0x0A, 0x23, {1, 0, 0, 0, 0, 5}),
              (expected{"request 0A/23 Get SDR: 01 00 00 00 00 05 (first record, 5 bytes from 0, reservation 1)",
                        "answer  00 done: 02 00 01 00 51 01 33 (next record 2)"}));
    EXPECT_EQ(lines(0x0A, 0x23, {0, 0, 0xFF, 0xFF, 0, 0xFF}),
              (expected{"request 0A/23 Get SDR: 00 00 FF FF 00 FF (last record)",
                        "answer  00 done: FF FF 0A 00 51 C0 04 D9 7E 00 41 (no next record)"}));
    EXPECT_EQ(lines(0x0A, 0x23, {1, 0, 5, 0, 16, 0xFF})[0],
              "request 0A/23 Get SDR: 01 00 05 00 10 FF (record 5 from byte 16, reservation 1)");
}

TEST_F(device_sdrs, say_how_many_records_and_sensors_there_are)
{
    EXPECT_EQ(ask(0x04, 0x20, {0x01}), (reply{0x00, {10, 0x01}}));  // records; static, on LUN 0
    EXPECT_EQ(ask(0x04, 0x20, {0x00}), (reply{0x00, {5, 0x01}}));   // sensors
    EXPECT_EQ(ask(0x04, 0x20, {}), (reply{0x00, {5, 0x01}}));
    EXPECT_EQ(ask(0x04, 0x20, {0x02}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x04, 0x20, {0x01, 0x00}), (reply{0xC7, {}}));
}

TEST_F(device_sdrs, are_read_like_those_of_a_repository)
{
    EXPECT_EQ(read(5), (reply{0x00, button_and_next(0, 23)}));
    EXPECT_EQ(read(5, 5, 3), cancelled);
    EXPECT_EQ(reserve(), (reply{0x00, {0x01, 0x00}}));
    EXPECT_EQ(read(5, 5, 3, 1), (reply{0x00, button_and_next(5, 8)}));
    EXPECT_EQ(read(11, 0, 5, 1), not_there);
    board.cancel_reservations();
    EXPECT_EQ(read(5, 5, 3, 1), cancelled);
}

TEST_F(device_sdrs, have_no_repository_beside_them)
{
    for (const uint8_t command : bytes{0x20, 0x22, 0x23})
        EXPECT_EQ(ask(0x0A, command, {}), (reply{0xC1, {}})) << int(command);
    EXPECT_EQ(ask(0x0A, 0x42, {}).code, 0x00);  // the event log is a thing of its own
}

TEST_F(device_sdrs, speak_in_the_trace)
{
    EXPECT_EQ(lines(0x04, 0x20, {1}),
              (expected{"request 04/20 Get Device SDR Info: 01 (records)", "answer  00 done: 0A 01 (10)"}));
    EXPECT_EQ(lines(0x04, 0x20, {0})[0], "request 04/20 Get Device SDR Info: 00 (sensors)");
    EXPECT_EQ(lines(0x04, 0x22, {})[0], "request 04/22 Reserve Device SDR Repository");
    EXPECT_EQ(lines(0x04, 0x21, {0, 0, 5, 0, 0, 2}),
              (expected{"request 04/21 Get Device SDR: 00 00 05 00 00 02 (record 5, 2 bytes from 0)",
                        "answer  00 done: 06 00 05 00 (next record 6)"}));
}

TEST_F(sdrs_of_both, have_a_reservation_each)
{
    EXPECT_EQ(ask(0x0A, 0x22, {}).data, (bytes{1, 0}));
    EXPECT_EQ(ask(0x0A, 0x22, {}).data, (bytes{2, 0}));
    EXPECT_EQ(read(5, 5, 3, 2), cancelled);
    EXPECT_EQ(reserve().data, (bytes{1, 0}));
    EXPECT_EQ(read(5, 5, 3, 1).code, 0x00);
    EXPECT_EQ(ask(0x0A, 0x23, {2, 0, 5, 0, 5, 3}).code, 0x00);
    // Get Device ID: Device SDRs (80h of the revision) beside a repository (02h).
    EXPECT_EQ(ask(0x06, 0x01, {}).data[1], 0x81);
    EXPECT_EQ(ask(0x06, 0x01, {}).data[5], 0x87);
}

}  // namespace ipmcd

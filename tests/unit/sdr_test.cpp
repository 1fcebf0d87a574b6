/// What the reader of sensor data records says when it is told to, and what it need not ask twice.
#include "ipmi/sdr.h"

#include "sensor/sensor.h"
#include "tests/unit/conversation.h"
#include "tests/unit/failing_call.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

static const std::string temp = "20 00 11 03 01 14 6F 01 00 00 00 C4 54 65 6D 70";  // event-only, number 11h
static const std::string door = "20 00 12 03 01 14 6F 01 00 00 00 C4 44 6F 6F 72";

class sdr_reader : public conversation
{
protected:
    /// The reader keeps what it read as long as the process lives, so each claim is made in a process of its own.
    template <typename claim>
    void alone(claim &&check)
    {
        EXPECT_EXIT(
            {
                check();
                everything_was_sent();
                fflush(nullptr);
                exit(HasFailure() ? 1 : 0);
            },
            testing::ExitedWithCode(0), "");
    }
    void everything_was_sent() { TearDown(); }

    void open()
    {
        wire("06 01", "00 20 01 01 00 02 02 57 01 00 00 00");
        wire("0A 20", "00 51 02 00 00 10");
        wire("0A 22", "00 34 12");
    }
    void record(const std::string &id, const std::string &next, const std::string &body)
    {
        wire("0A 23  34 12 " + id + " 00 05", "00 " + next + " " + id + " 51 03 10");
        wire("0A 23  34 12 " + id + " 05 10", "00 " + next + " " + body);
    }
};

/// What is printed while a sensor is looked for, at one level of verbosity.
static std::string told(int verbosity, const char *name)
{
    sdr_verbosity = verbosity;
    return printed([&] { sdr_find_by_name(name); });
}

TEST_F(sdr_reader, asks_for_no_record_twice)
{
    alone([this] {
        open();
        record("00 00", "01 00", temp);
        record("01 00", "FF FF", door);
        const sdr_record *first = sdr_find_by_name("Temp");
        ASSERT_NE(first, nullptr);
        EXPECT_EQ(stub.sent.size(), 5U);  // three to open and two for the record
        EXPECT_EQ(sdr_find_by_name("Temp"), first);
        EXPECT_EQ(stub.sent.size(), 5U);
        const sdr_record *second = sdr_find_by_name("Door");
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(second->sensor_number(), 0x12);
        EXPECT_EQ(stub.sent.size(), 7U);
        EXPECT_EQ(sdr_find_by_name("Temp"), first);
        EXPECT_EQ(sdr_find_by_number(0x12, 0x14), second);
        EXPECT_EQ(stub.sent.size(), 7U);
        EXPECT_EQ(g_error_code, 0U);
        EXPECT_EQ(sdr_find_by_name("Fan"), nullptr);
        EXPECT_EQ(g_error_code, 0U);  // no record was read in this search
        EXPECT_EQ(stub.sent.size(), 7U);
    });
}

static constexpr char steps_of_opening[] = "SDR free space: 4096\r\n"
                                           "SDR records   : 2\r\n"
                                           "SDR reservation ID 1234\r\n";
static constexpr char steps_of_a_record[] = "SDR record ID   : 0x0000\r\n"
                                            "SDR record type : 0x03\r\n"
                                            "SDR record next : 0xffff\r\n"
                                            "SDR record bytes: 16\r\n"
                                            "Getting 16 bytes from SDR at offset 5\r\n";
static constexpr char body_of_a_record[] = "SDR data (len = 16):\r\n"
                                           "20 00 11 03 01 14 6F 01 00 00 00 C4 54 65 6D 70 \r\n";

TEST_F(sdr_reader, tells_steps_and_bodies_by_its_verbosity)
{
    const std::pair<int, std::string> levels[] = {
        {0, ""},
        {1, std::string(steps_of_opening) + steps_of_a_record + body_of_a_record},
        {2, ""},
        {3, std::string(steps_of_opening) + steps_of_a_record},
        {4, body_of_a_record},
        {5, ""},
    };
    for (const auto &[verbosity, expected] : levels)
        alone([&, verbosity = verbosity, expected = expected] {
            open();
            record("00 00", "FF FF", temp);
            EXPECT_EQ(told(verbosity, "Temp"), expected) << verbosity;
        });
}

TEST_F(sdr_reader, tells_a_body_in_lines_of_twenty_bytes)
{
    alone([this] {
        open();
        wire("0A 23  34 12 00 00 00 05", "00 FF FF 00 00 51 03 14");
        wire("0A 23  34 12 00 00 05 14", "00 FF FF 00 01 02 03 04 05 06 07 08 09 0A 00 0C 0D 0E 0F 10 11 12 13");
        EXPECT_EQ(told(4, "Temp"), "SDR data (len = 20):\r\n"
                                   "00 01 02 03 04 05 06 07 08 09 0A 00 0C 0D 0E 0F 10 11 12 13 \r\n"
                                   "\r\n");
    });
}

TEST_F(sdr_reader, tells_what_is_odd_about_the_store)
{
    alone([this] {
        wire("06 01", "00 20 80 01 00 02 02 57 01 00 00 00");
        wire("0A 20", "00 50 02 00 00 10");
        wire("0A 22", "00 0A 00");
        wire("0A 23  0A 00 00 00 00 05", "C3");
        wire("0A 23  0A 00 00 00 00 05", "C5");
        wire("0A 22", "00 0B 00");
        wire("0A 23  0B 00 00 00 00 05", "00 FF FF 07 00 51 03 10");
        wire("0A 23  0B 00 00 00 05 10", "C5");
        wire("0A 22", "C1");
        EXPECT_EQ(told(3, "Temp"), "Using SDR from Repository \r\n"
                                   "WARNING: Unknown SDR repository version 0x50\r\n"
                                   "SDR free space: 4096\r\n"
                                   "SDR records   : 2\r\n"
                                   "SDR reservation ID 000a\r\n"
                                   "Get SDR 0000 command failed: Timeout\r\n"
                                   "SDR reservation 000a cancelled. Sleeping a bit and retrying...\r\n"
                                   "SDR reservation ID 000b\r\n"
                                   "SDR record id mismatch: 0x0007\r\n"
                                   "SDR record ID   : 0x0000\r\n"
                                   "SDR record type : 0x03\r\n"
                                   "SDR record next : 0xffff\r\n"
                                   "SDR record bytes: 16\r\n"
                                   "Getting 16 bytes from SDR at offset 5\r\n"
                                   "SDR reservation cancelled. Sleeping a bit and retrying...\r\n");
    });
}

TEST_F(sdr_reader, tells_that_a_reservation_is_not_renewed)
{
    alone([this] {
        open();
        wire("0A 23  34 12 00 00 00 05", "C5");
        wire("0A 22", "C1");
        EXPECT_EQ(told(1, "Temp"), std::string(steps_of_opening) +
                                       "SDR reservation 1234 cancelled. Sleeping a bit and retrying...\r\n"
                                       "Unable to renew SDR reservation\r\n");
        EXPECT_EQ(g_error_code, 0x0A2200C1U);
    });
}

TEST_F(sdr_reader, tells_of_device_sdrs)
{
    alone([this] {
        wire("06 01", "00 20 81 01 00 02 01 57 01 00 00 00");
        wire("04 20  01", "00 07 01");
        wire("04 22", "C1");
        EXPECT_EQ(told(1, "Temp"), "Using Device SDRs\r\n"
                                   "SDR records   : 7\r\n"
                                   "Unable to obtain SDR reservation\r\n"
                                   "Unable to open SDR for reading\r\n");
    });
    alone([this] {
        wire("06 01", "00 20 81 01 00 02 00 57 01 00 00 00");
        EXPECT_EQ(told(1, "Temp"), "Error obtaining SDR info\r\n"
                                   "Unable to open SDR for reading\r\n");
    });
}

TEST_F(sdr_reader, knows_three_versions_of_the_repository)
{
    for (const char *version : {"51", "01", "02"})
        alone([this, version] {
            wire("06 01", "00 20 01 01 00 02 02 57 01 00 00 00");
            wire("0A 20", std::string("00 ") + version + " 02 00 00 10");
            wire("0A 22", "00 34 12");
            record("00 00", "FF FF", temp);
            EXPECT_EQ(told(3, "Temp"), std::string(steps_of_opening) + steps_of_a_record) << version;
        });
}

TEST_F(sdr_reader, without_memory_does_not_open)
{
    alone([] {
        const failing_call no_memory("calloc", ENOMEM);
        EXPECT_EQ(told(1, "Temp"), "IPMC: malloc failure\r\nUnable to open SDR for reading\r\n");
    });
}

TEST_F(sdr_reader, without_memory_for_a_record_ends_the_search)
{
    alone([this] {
        open();
        wire("0A 23  34 12 00 00 00 05", "00 01 00 00 00 51 03 10");
        const failing_call no_memory("calloc", ENOMEM, 1);
        EXPECT_EQ(told(0, "Temp"), "ipmi_sdr_find_sdr_byid: malloc failure\r\n");
        EXPECT_EQ(g_error_code, 0U);  // no body was read
    });
}

TEST_F(sdr_reader, without_memory_for_a_body_goes_on_with_the_next)
{
    alone([this] {
        open();
        wire("0A 23  34 12 00 00 00 05", "00 01 00 00 00 51 03 10");
        record("01 00", "FF FF", door);
        const failing_call no_memory("calloc", ENOMEM, 2);
        EXPECT_NE(sdr_find_by_name("Door"), nullptr);
        EXPECT_EQ(g_error_code, 0x50000000U);
    });
}

TEST(sdr, a_record_of_a_kind_without_names_has_none)
{
    uint8_t body[16];
    memset(body, 'x', sizeof body);
    const sdr_record entity_association{1, 0x08, sizeof body, nullptr, body};
    EXPECT_EQ(entity_association.id_string(), "");
}

TEST_F(sdr_reader, finds_nothing_without_a_name)
{
    alone([] { EXPECT_EQ(told(0, nullptr), "Get sdr fail.\r\n"); });
}

TEST_F(sdr_reader, takes_a_store_that_does_not_open_for_empty)
{
    alone([this] {
        wire("06 01", "C1");
        EXPECT_EQ(printed([] {
                      EXPECT_EQ(sdr_find_by_number(0x12, 0x14), nullptr);
                      EXPECT_EQ(sdr_find_by_number(0x13, 0x14), nullptr);  // and is not asked again
                  }),
                  "");
    });
}

TEST_F(sdr_reader, tells_what_a_command_is_about)
{
    alone([this] {
        open();
        record("00 00", "FF FF", temp);
        sdr_verbosity = 3;
        EXPECT_EQ(run(sensor_dataitems, "positivehysteresis", {"-v", "Temp", "7"}, 0),
                  std::string("type = 1, name = Temp, value = 7.\r\n") + steps_of_opening + steps_of_a_record +
                      "Set sensor positive hysteresis failed, error code: 0x40000008\r\n");
    });
    alone([this] {
        const std::string full = "20 00 11 03 01 7F 68 01 01 00 00 00 00 3F 3F 00 01 00 00 01 00 00 00 00 00 00 00 00 "
                                 "00 FF 00 00 00 00 00 00 00 00 00 00 00 00 C4 54 65 6D 70";
        open();
        wire("0A 23  34 12 00 00 00 05", "00 FF FF 00 00 51 01 2F");
        wire("0A 23  34 12 00 00 05 2F", "00 FF FF " + full);
        wire("04 26  11 02 00 05 00 00 00 00", "00");
        sdr_verbosity = 3;
        const std::string shown = run(sensor_dataitems, "lowercritical", {"-v", "Temp", "5"}, 1);
        EXPECT_NE(shown.find("Setting sensor \"Temp\" Lower Critical threshold to 5.000\r\n"), std::string::npos);
    });
}

TEST_F(sdr_reader, goes_on_where_the_last_search_stopped)
{
    alone([this] {
        open();
        for (int attempt = 0; attempt < 5; ++attempt)
            wire("0A 23  34 12 00 00 00 05", "C0");
        EXPECT_EQ(sdr_find_by_name("Temp"), nullptr);
        EXPECT_EQ(g_error_code, 0x0A2300C0U);
        record("00 00", "FF FF", temp);  // the same record is asked for again
        EXPECT_NE(sdr_find_by_name("Temp"), nullptr);
    });
}

TEST_F(sdr_reader, is_not_asked_for_sensor_after_sensor_once_one_was_not_found)
{
    alone([this] {
        open();
        record("00 00", "01 00", temp);
        wire("0A 23  34 12 01 00 00 05", "silent");
        EXPECT_EQ(printed([] {
                      EXPECT_NE(sdr_find_by_number(0x11, 0x14), nullptr);
                      EXPECT_EQ(sdr_find_by_number(0x12, 0x14), nullptr);
                      EXPECT_EQ(sdr_find_by_number(0x13, 0x14), nullptr);
                      EXPECT_NE(sdr_find_by_number(0x11, 0x14), nullptr);
                  }),
                  "Select OutTime \r\n");
    });
}

// All records, one after the other ----------------------------------------------------------------------------------

/// What sdr_next() said, one word for each step: the sensor's number, "lost", "end" or "failed".
static std::string steps(unsigned count)
{
    std::string all;
    for (; count > 0; --count) {
        const sdr_step step = sdr_next();
        all += step.is == sdr_step::kind::record ? std::to_string(step.record->sensor_number())
               : step.is == sdr_step::kind::lost ? "lost"
               : step.is == sdr_step::kind::end  ? "end"
                                                 : "failed";
        all += ' ';
    }
    return all;
}

class all_records : public sdr_reader
{
protected:
    const std::array<uint8_t, 11> with_repository = {0x20, 0x01, 0x01, 0x00, 0x02, 0x02, 0x57, 0x01, 0x00, 0x00, 0x00};
    const std::array<uint8_t, 11> with_device_sdrs = {0x20, 0x81, 0x01, 0x00, 0x02, 0x01, 0x57, 0x01, 0x00, 0x00, 0x00};
    const std::array<uint8_t, 11> with_none = {0x20, 0x81, 0x01, 0x00, 0x02, 0x04, 0x57, 0x01, 0x00, 0x00, 0x00};

    void open_repository() { ASSERT_TRUE(sdr_open_for_all(with_repository)); }
    /// One request for the whole record, without a reservation.
    void whole(const std::string &id, const std::string &ending) { wire("0A 23  00 00 " + id + " 00 FF", ending); }
    void whole_record(const std::string &id, const std::string &next, const std::string &body)
    {
        whole(id, "00 " + next + " " + id + " 51 03 10 " + body);
    }
};

TEST_F(all_records, take_one_request_each_and_no_reservation)
{
    alone([this] {
        open_repository();
        whole_record("00 00", "02 00", temp);
        whole_record("02 00", "FF FF", door);
        EXPECT_EQ(steps(3), "17 18 end ");
        EXPECT_EQ(steps(1), "end ");
    });
}

TEST_F(all_records, that_describe_no_sensor_are_passed_over)
{
    alone([this] {
        open_repository();
        whole("00 00", "00 02 00 01 00 51 12 01 20");  // a locator
        whole("02 00", "00 03 00 02 00 51 C0 01 20");  // the maker's
        whole_record("03 00", "FF FF", door);
        EXPECT_EQ(steps(2), "18 end ");
    });
}

TEST_F(all_records, of_the_device_itself)
{
    alone([this] {
        ASSERT_TRUE(sdr_open_for_all(with_device_sdrs));
        wire("04 21  00 00 00 00 00 FF", "00 FF FF 01 00 51 03 10 " + temp);
        EXPECT_EQ(steps(2), "17 end ");
    });
}

TEST_F(all_records, are_none_without_a_store)
{
    alone([this] { EXPECT_FALSE(sdr_open_for_all(with_none)); });
}

TEST_F(all_records, come_in_pieces_where_one_piece_is_refused)
{
    alone([this] {
        open_repository();
        whole_record("00 00", "02 00", temp);
        whole("02 00", "CA");
        wire("0A 22", "00 34 12");
        record("02 00", "03 00", door);
        wire("0A 23  34 12 03 00 00 05", "00 04 00 03 00 51 12 10");  // of a locator the header is enough
        record("04 00", "FF FF", temp);
        EXPECT_EQ(steps(4), "17 18 17 end ");
    });
}

TEST_F(all_records, reserve_anew_when_a_command_took_the_reservation)
{
    alone([this] {
        open_repository();
        whole("00 00", "CA");
        wire("0A 22", "00 01 00");
        wire("0A 23  01 00 00 00 00 05", "C5");
        wire("0A 22", "00 02 00");
        wire("0A 23  02 00 00 00 00 05", "00 FF FF 01 00 51 03 10");
        wire("0A 23  02 00 00 00 05 10", "C5");
        wire("0A 22", "00 03 00");
        wire("0A 23  03 00 00 00 05 10", "00 FF FF " + temp);
        EXPECT_EQ(steps(2), "17 end ");
    });
}

TEST_F(all_records, do_not_reserve_for_ever)
{
    alone([this] {
        open_repository();
        whole("00 00", "CA");
        wire("0A 22", "00 01 00");
        wire("0A 23  01 00 00 00 00 05", "00 02 00 01 00 51 03 10");
        for (int time = 0; time < 4; ++time) {
            wire("0A 23  01 00 00 00 05 10", "C5");
            wire("0A 22", "00 01 00");
        }
        wire("0A 23  01 00 00 00 05 10", "C5");
        wire("0A 23  01 00 02 00 00 05", "00 FF FF 02 00 51 03 10");
        wire("0A 23  01 00 02 00 05 10", "00 FF FF " + door);
        EXPECT_EQ(steps(1), "lost ");
        EXPECT_EQ(g_error_code, 0x0A2300C5U);
        EXPECT_EQ(steps(2), "18 end ");
    });
}

TEST_F(all_records, end_where_the_way_on_is_lost)
{
    for (const char *ending : {"silent", "00", "00 02"})
        alone([this, ending] {
            open_repository();
            whole("00 00", ending);
            EXPECT_EQ(steps(1), "failed ");
            EXPECT_EQ(g_error_code, 0x40000001U);
        });
    alone([this] {
        open_repository();
        whole("00 00", "C1");
        wire("0A 22", "C1");
        EXPECT_EQ(steps(1), "failed ");
        EXPECT_EQ(g_error_code, 0x0A2200C1U);
    });
    alone([this] {
        open_repository();
        whole("00 00", "CA");
        wire("0A 22", "00 34 12");
        wire("0A 23  34 12 00 00 00 05", "silent");
        EXPECT_EQ(steps(1), "failed ");
        EXPECT_EQ(g_error_code, 0x40000001U);
    });
}

TEST_F(all_records, one_that_is_too_short_is_lost_and_the_next_is_read)
{
    alone([this] {
        open_repository();
        whole("00 00", "00 02 00 01 00 51 03 10 20 00 11");
        whole_record("02 00", "FF FF", door);
        EXPECT_EQ(steps(1), "lost ");
        EXPECT_EQ(g_error_code, 0x40000001U);
        EXPECT_EQ(steps(2), "18 end ");
    });
    alone([this] {
        open_repository();
        whole("00 00", "CA");
        wire("0A 22", "00 34 12");
        wire("0A 23  34 12 00 00 00 05", "00 02 00 01 00 51 03 10");
        wire("0A 23  34 12 00 00 05 10", "00 02 00 20 00 11");
        record("02 00", "FF FF", door);
        EXPECT_EQ(steps(1), "lost ");
        EXPECT_EQ(g_error_code, 0x40000001U);
        EXPECT_EQ(steps(2), "18 end ");
    });
}

TEST_F(all_records, that_lead_back_end_there)
{
    alone([this] {
        open_repository();
        whole_record("00 00", "02 00", temp);
        whole_record("02 00", "02 00", door);
        EXPECT_EQ(steps(3), "17 18 end ");
    });
}

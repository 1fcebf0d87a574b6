/// The table of a log: where writing it is interrupted or fails, texts of any length, and times in many zones.
#include "sel/csv.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <sstream>
#include <string>
#include <vector>

class log_table : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.answer_all = {0x00, 0x00, 0x00};  // the time's offset
        write("sel.bin", std::string("\x01\x00\xE0", 3) + std::string(13, '\0'));
        stub.file_length = 16;
    }
    void TearDown() override { reset_stub(); }

    std::string convert(int result) const
    {
        return printed([&] { EXPECT_EQ(sel_bin2txt(path("sel.bin").c_str(), path("sel.csv").c_str()), result); });
    }
};

TEST_F(log_table, is_written_on_behind_a_signal)
{
    const failing_call interrupted("write", EINTR);
    EXPECT_EQ(convert(1), "");
    EXPECT_EQ(contents(path("sel.csv")),
              "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,"
              "Event Code,Status\r\n"
              "1,Ok,,,,,00000000,Asserted\r\n");
}

TEST_F(log_table, that_cannot_be_written_is_told)
{
    for (const int error : {ENOSPC, 0}) {
        const failing_call full("write", error);
        EXPECT_EQ(convert(0), "sel_bin2txt: fwrite " + path("sel.csv") + " failed\r\n");
    }
}

TEST_F(log_table, shows_a_sensor_type_of_any_length)
{
    write("sel.bin", std::string("\0\0\x02", 3) + std::string(13, '\0'));
    stub.sensor_type_name = std::string(100'000, 'T');  // more than is written at a time
    EXPECT_EQ(convert(1), "");
    EXPECT_NE(contents(path("sel.csv"))
                  .find("1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp," + stub.sensor_type_name + ",,00000000,"),
              std::string::npos);
}

// Times -------------------------------------------------------------------------------------------------------------

static std::string by_localtime(int64_t seconds)
{
    const auto time = time_t(seconds);
    tm broken_down{};
    localtime_r(&time, &broken_down);
    char text[32];
    strftime(text, sizeof text, "%F  %H:%M:%S", &broken_down);
    return text;
}

static std::vector<std::string> columns_of(const std::string &line)
{
    std::vector<std::string> columns;
    std::istringstream text(line);
    for (std::string column; std::getline(text, column, ',');)
        columns.push_back(column);
    return columns;
}

class log_times : public log_table
{
protected:
    static constexpr int offset_min = 37;

    void TearDown() override
    {
        unsetenv("TZ");
        tzset();
        log_table::TearDown();
    }
    static void move_to(const char *zone)
    {
        setenv("TZ", zone, 1);
        tzset();
    }
    /// The lines of the table of a log with records of these seconds, in their order.
    std::vector<std::string> table_of(const std::vector<uint32_t> &stamps)
    {
        std::string log;
        for (auto stamp = stamps.rbegin(); stamp != stamps.rend(); ++stamp) {
            log += std::string("\0\0\xC0", 3);
            for (unsigned shift = 0; shift < 32; shift += 8)
                log += char(*stamp >> shift);
            log += std::string(9, '\0');
        }
        write("sel.bin", log);
        stub.file_length = long(log.size());
        stub.answer_all = {0x00, offset_min, 0x00};
        EXPECT_EQ(convert(1), "");

        std::vector<std::string> lines;
        std::istringstream table(contents(path("sel.csv")));
        for (std::string line; std::getline(table, line);)
            lines.push_back(line);
        lines.erase(lines.begin());
        return lines;
    }
    void expect_localtime(const std::vector<uint32_t> &stamps)
    {
        const std::vector<std::string> lines = table_of(stamps);
        ASSERT_EQ(lines.size(), stamps.size());
        for (size_t n = 0; n < stamps.size(); ++n) {
            const std::vector<std::string> columns = columns_of(lines[n]);
            ASSERT_EQ(columns[2], by_localtime(stamps[n])) << stamps[n];
            ASSERT_EQ(columns[3], by_localtime(stamps[n] + offset_min * 60)) << stamps[n];
        }
    }
};

struct moment {
    const char *zone;
    uint32_t second;
    const char *shown;
};
static const moment odd_moments[] = {
    {"UTC", 1709251200, "2024-03-01  00:00:00"},
    {"XST3:30", 1735702200, "2025-01-01  00:00:00"},
    {"Asia/Kathmandu", 1714932900, "2024-05-06  00:00:00"},
    // Leap seconds
    {"right/UTC", 1483228826, "2016-12-31  23:59:60"},
    {"right/Asia/Tokyo", 1483228826, "2017-01-01  08:59:60"},
    {"right/Asia/Tokyo", 1483228827, "2017-01-01  09:00:00"},
    // Changes on the hour of UTC, within it, by half an hour, by a day, and beyond the last one in the zone's file
    {"Europe/Berlin", 1711846800, "2024-03-31  03:00:00"},
    {"America/St_Johns", 1710048600, "2024-03-10  03:00:00"},
    {"Australia/Lord_Howe", 1712415600, "2024-04-07  01:30:00"},
    {"Pacific/Apia", 1325239200, "2011-12-31  00:00:00"},
    {"Europe/Berlin", 2531955600, "2050-03-27  03:00:00"},
    // Forth and back on one day: for nine hours, for a second
    {"AAA0BBB,J100/2,J100/12", 1712714400, "2024-04-10  03:00:00"},
    {"AAA0BBB,J100/2,J100/12", 1712746800, "2024-04-10  11:00:00"},
    {"AAA0BBB,J100/2:30,J100/3:30:01", 1712716200, "2024-04-10  03:30:00"},
    {"AAA0BBB,J100/2:30,J100/3:30:01", 1712716201, "2024-04-10  02:30:01"},
};

TEST_F(log_times, match_localtime_second_by_second_around_odd_moments)
{
    static constexpr int32_t around_s = 2000;  // more than half an hour
    for (const moment &one : odd_moments) {
        SCOPED_TRACE(one.zone);
        move_to(one.zone);
        std::vector<uint32_t> stamps;
        for (int32_t after = around_s; after >= -around_s; after -= std::abs(after) <= 100 ? 1 : 7)
            stamps.push_back(one.second + uint32_t(after));
        EXPECT_EQ(columns_of(table_of({one.second}).front())[2], one.shown);
        expect_localtime(stamps);
    }
}

TEST_F(log_times, match_localtime_where_a_file_changes_the_clock_for_ten_minutes)
{
    write("rules", "Rule ten 2024 only - Apr 10 2:10 1:00 D\n"
                   "Rule ten 2024 only - Apr 10 3:20 0 S\n"
                   "Zone minutes 0 ten %s\n");
    ASSERT_EQ(system(("/usr/sbin/zic -d " + folder + " " + path("rules")).c_str()), 0);
    for (const std::string &zone : {path("minutes"), ":" + path("minutes")}) {
        SCOPED_TRACE(zone);
        move_to(zone.c_str());
        std::vector<uint32_t> stamps;
        for (uint32_t stamp = 1712717400; stamp > 1712714400; stamp -= 7)  // from 02:50 back to 02:00
            stamps.push_back(stamp);
        EXPECT_EQ(columns_of(table_of({1712715300}).front())[2], "2024-04-10  03:15:00");
        EXPECT_EQ(columns_of(table_of({1712715601}).front())[2], "2024-04-10  02:20:01");
        expect_localtime(stamps);
    }
}

TEST_F(log_times, match_localtime_throughout_a_year)
{
    static constexpr uint32_t year_2016 = 1451606400, year_2017 = 1483228800, step_s = 7109;  // no divisor of a day
    for (const char *zone : {"UTC", "right/UTC", "right/Europe/London", "America/Caracas", "Asia/Kolkata",
                             "Africa/Casablanca", "Pacific/Chatham", "Antarctica/Troll", "CET-1CEST", "UTC-23:59:59",
                             "AAA0BBB,J100/2,J100/12", "AAA0BBB-24,J1/0,J365/25"}) {
        SCOPED_TRACE(zone);
        move_to(zone);
        std::vector<uint32_t> stamps;
        for (uint32_t stamp = year_2016; stamp < year_2017; stamp += step_s)
            stamps.push_back(stamp);
        expect_localtime(stamps);
    }
}

#include "chassis/clock.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

static ipmi_request set_sel_time(uint32_t seconds) { return ipmi_request(netfn_storage, 0x49).u32le(seconds); }

static ipmi_request set_sel_time_utc_offset(uint16_t offset) { return ipmi_request(netfn_storage, 0x5D).u16le(offset); }

/// Writes the offset from UTC as it is given. 1 = written; 0 = not, and g_error_code says why: after a refusal it is
/// the bare completion code.
static int set_utc_offset(int offset)
{
    const ipmi_answer got = exchange(set_sel_time_utc_offset(uint16_t(offset)));
    if (got.refused())
        g_error_code = got.completion;
    return got.ok();
}

/// The base that a number is written in. The C library is not asked: since C23 it knows binary numbers too.
static int written_base(const char *text)
{
    text = skip_blanks(text);
    if (*text == '-' || *text == '+')
        ++text;
    if (*text != '0')
        return 10;
    return text[1] == 'x' || text[1] == 'X' ? 16 : 8;
}

/// A whole number in [first, last].
static bool read_whole(const char *text, int base, int first, int last, int &value)
{
    char *end;
    const long long number = strtoll(text, &end, base);
    value = int(number);
    return *end == '\0' && number >= first && number <= last;
}

// Date and time -----------------------------------------------------------------------------------------------------

/// Days of a month of 1 to 12.
static int month_length(int year, int month)
{
    static constexpr int8_t lengths[] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
    if (month == 2)
        return leap ? 28 : 29;  // Kept: this way round
    return lengths[month - 1];
}

static int ipmctime_usage()
{
    return usage_error("Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]");
}

static bool is_outside(int value, int first, int last) { return value < first || value > last; }

static constexpr char separators[] = "-:";
static constexpr char time_failure[] = "Set ipmc time failed, error code: 0x%X";

/// The year that the text begins with. Negative = told why there is none.
static int take_year(char *text)
{
    const char *token = strtok(text, separators);
    if (token == nullptr)
        return ipmctime_usage() - 1;
    const int year = parse_number(token);
    if (year < 0)
        return refuse("Parameter invalid") - 1;
    if (is_outside(year, 1970, 2070))
        return refuse("Year out of range.") - 1;
    return year;
}

/// Stores one number of the date and time behind the year, the month being the second. Null = stored, else why it
/// cannot be. Kept: what follows the seconds is not looked at.
static const char *store_field(int position, int value, tm &calendar)
{
    switch (position) {
    case 2:
        if (is_outside(value, 1, 12))
            return "\nMonth out of range.";  // Kept: a line feed in front
        calendar.tm_mon = value - 1;
        return nullptr;
    case 3:
        if (is_outside(value, 1, month_length(calendar.tm_year + 1900, calendar.tm_mon + 1)))
            return "Day out of range.";
        calendar.tm_mday = value;
        return nullptr;
    case 4:
        if (is_outside(value, 0, 23))
            return "Hour out of range.";
        calendar.tm_hour = value;
        return nullptr;
    case 5:
        if (is_outside(value, 0, 59))
            return "Minute out of range.";
        calendar.tm_min = value;
        return nullptr;
    case 6:
        if (is_outside(value, 0, 59))
            return "Second out of range.";
        calendar.tm_sec = value;
        return nullptr;
    default:
        return nullptr;
    }
}

/// Goes on behind the year. False = told why it is no date and time.
static bool take_other_fields(tm &calendar)
{
    int position = 1;
    while (const char *token = strtok(nullptr, separators)) {
        const int32_t value = parse_number(token);
        if (value < 0)
            return refuse("Parameter invalid.") != 0;
        if (const char *reason = store_field(++position, value, calendar))
            return refuse("%s", reason) != 0;
    }
    return position == 6 || ipmctime_usage() != 0;
}

/// Sets offset and time. The offset stays as it is set when the time cannot be.
static int set_clock(int zone, tm &calendar)
{
    if (!take_other_fields(calendar))
        return 0;
    calendar.tm_isdst = -1;
    const time_t converted = mktime(&calendar);
    if (converted == -1)
        return refuse("Parameter invalid..");
    if (!set_utc_offset(zone))  // Kept: in hours, where the controller keeps minutes
        return fail("Set system time failed, error code: 0x%X", g_error_code);
    const ipmi_answer got = exchange(set_sel_time(uint32_t(converted - time_t(zone) * 3600)));
    if (!got.ok())
        return fail(time_failure, got.error_code());
    done("Set ipmc time successfully.");
    return 1;
}

int ipmctime(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const bool zone_given = typed.has_values(3);
    if (!zone_given && !typed.has_values(2))
        return ipmctime_usage();
    int zone = 0;
    if (zone_given && !read_whole(typed.value(2), written_base(typed.value(2)), -12, 13, zone))
        return ipmctime_usage();
    const char *date = typed.value(0), *time_of_day = typed.value(1);
    if (strlen(date) < 8 || strlen(date) > 10 || strlen(time_of_day) > 8)
        return ipmctime_usage();

    char text[32];
    snprintf(text, sizeof text, "%s-%s", date, time_of_day);
    const int year = take_year(text);
    if (year < 0)
        return 0;
    auto *calendar = static_cast<tm *>(calloc(1, sizeof(tm)));
    if (calendar == nullptr) {
        g_error_code = error_memory;
        return fail(time_failure, g_error_code);
    }
    calendar->tm_year = year - 1900;
    const int result = set_clock(zone, *calendar);
    free(calendar);
    return result;
}

// Time zone ---------------------------------------------------------------------------------------------------------

/// Minutes from UTC of "[+|-]H:MM". False = it is no time zone.
static bool read_time_zone(const char *text, int &offset)
{
    static constexpr size_t looked_at = 10, longest_hours = 3, longest_minutes = 2;
    char part[looked_at + 1];
    snprintf(part, sizeof part, "%s", text);
    char *colon = strchr(part, ':');
    if (colon == nullptr || strchr(colon + 1, ':') != nullptr)
        return false;
    *colon = '\0';
    const char *hours_text = part, *minutes_text = colon + 1;
    if (*hours_text == '\0' || strlen(hours_text) > longest_hours)
        return false;
    if (*minutes_text == '\0' || strlen(minutes_text) > longest_minutes)
        return false;
    int hours, minutes;
    if (!read_whole(hours_text, 10, -12, 13, hours) || !read_whole(minutes_text, 10, 0, 60, minutes))  // Kept: 60
        return false;
    if ((hours == -12 || hours == 13) && minutes != 0)
        return false;
    offset = hours * 60 + (text[0] == '-' ? -minutes : minutes);
    return true;
}

int timezone_command(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    int offset;
    if (!typed.has_values(1) || !read_time_zone(typed.value(0), offset))
        return usage_error("Usage: cfgtool -d timezone -v <timezone>   -12:00<=timezone<=+13:00   e.g. +8:00,-4:30");
    if (!set_utc_offset(offset))
        return fail_because(g_error_code, "Set time zone failed.");
    done("Set time zone successfully.");
    log_change("Time", "Set Zentro time zone(%s) success,EvtCode:0x20C00460", typed.value(0));
    return 1;
}

/// What the controller is, its clock and its event log (IPMI 2.0).
#include "ipmi/get_requests.h"
#include "state/areas.h"

#include <cstdio>

const reply &device_id()
{
    static const reply got = ask(get_device_id(), {0, 11}, "device");
    return got;
}

bool read_device(report &to, node &area)
{
    for (const char *what : {"device.remote_manage_id", "device.serial_direction", "device.web_host"})
        to.cannot_read(what);
    const reply &got = device_id();
    if (!got.ok())
        return false;
    ipmi_reader about = got.read();
    area.put("id", about.u8());
    area.put("revision", about.u8() & 0x0F);
    char version[8];
    const unsigned major = about.u8() & 0x7FU, minor_bcd = about.u8();
    snprintf(version, sizeof version, "%u.%02X", major, minor_bcd);
    area.put("firmware", version);
    const unsigned ipmi_bcd = about.u8();  // low digit first
    snprintf(version, sizeof version, "%X.%X", ipmi_bcd & 0x0F, ipmi_bcd >> 4);
    area.put("ipmi", version);
    const uint32_t manufacturer = about.skip(1).u16le();
    area.put("manufacturer", manufacturer | uint32_t(about.u8() & 0x0F) << 16);
    area.put("product", about.u16le());
    return false;
}

// Clock -------------------------------------------------------------------------------------------------------------

/// A date of the calendar that is in use since 1582, from the days since 1970-01-01.
static void civil_date(uint32_t days, unsigned &year, unsigned &month, unsigned &day)
{
    // Counted from 1 March 1600, so that a leap day ends a year, four years, a century but one in four.
    static constexpr unsigned to_1970 = 135080, in_400_years = 146097;
    const unsigned since = days + to_1970;
    const unsigned of_400 = since % in_400_years;
    const unsigned years = (of_400 - of_400 / 1460 + of_400 / 36524 - of_400 / 146096) / 365;
    const unsigned of_year = of_400 - (365 * years + years / 4 - years / 100);
    const unsigned months = (5 * of_year + 2) / 153;
    day = of_year - (153 * months + 2) / 5 + 1;
    month = months < 10 ? months + 3 : months - 9;
    year = 1600 + since / in_400_years * 400 + years + (month <= 2);
}

static void put_time(node &area, uint32_t seconds)
{
    static constexpr uint32_t in_a_day = 86400;
    unsigned year, month, day;
    civil_date(seconds / in_a_day, year, month, day);
    const unsigned of_day = seconds % in_a_day;
    char text[64];
    snprintf(text, sizeof text, "%04u-%02u-%02uT%02u:%02u:%02u", year, month, day, of_day / 3600, of_day / 60 % 60,
             of_day % 60);
    area.put("time", text);
}

bool read_clock(report &, node &area)
{
    static constexpr uint32_t no_time = UINT32_MAX;
    static constexpr int16_t no_offset = 0x7FF;
    if (const reply got = ask(get_sel_time(), {0, 4}, "clock.time"); got.ok()) {
        const uint32_t seconds = got.read().u32le();
        if (seconds == no_time)
            area.put_null("time");
        else
            put_time(area, seconds);
    }
    if (const reply got = ask(get_sel_utc_offset(), {0, 2}, "clock.utc_offset_minutes"); got.ok()) {
        const auto minutes = int16_t(got.read().u16le());
        if (minutes == no_offset)
            area.put_null("utc_offset_minutes");
        else
            area.put("utc_offset_minutes", minutes);
    }
    return false;
}

// Event log ---------------------------------------------------------------------------------------------------------

bool read_event_log(report &, node &area)
{
    const reply got = ask(get_sel_info(), {1, 4}, "event_log");  // the version comes first
    if (!got.ok())
        return false;
    ipmi_reader info = got.read();
    area.put("entries", info.u16le());
    area.put("free_bytes", info.u16le());
    return false;
}

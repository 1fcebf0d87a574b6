#include "sel/csv.h"

#include "ipmi/code_text.h"
#include "ipmi/get_requests.h"
#include "ipmi/sdr.h"
#include "ipmi/transport.h"
#include "platform/platform.h"
#include "system/files.h"
#include "ui/console.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

static constexpr size_t record_size = 16, block_records = 4096;

// A record ----------------------------------------------------------------------------------------------------------

struct sel_record {
    const uint8_t *byte;

    static constexpr uint8_t first_oem_type = 0xC0, first_untimed_type = 0xE0;

    uint8_t type() const { return byte[2]; }
    uint32_t time_stamp() const
    {
        return uint32_t(byte[3]) | uint32_t(byte[4]) << 8 | uint32_t(byte[5]) << 16 | uint32_t(byte[6]) << 24;
    }
    uint8_t sensor_type() const { return byte[10]; }
    uint8_t sensor_number() const { return byte[11]; }
    bool deasserted() const { return (byte[12] & 0x80) != 0; }
};

// The table ---------------------------------------------------------------------------------------------------------

/// Collects what is written and hands it on in large pieces.
class csv_file
{
public:
    explicit csv_file(const char *path)
        : file(open_file(path, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666))
    {
    }
    ~csv_file()
    {
        if (file >= 0)
            close(file);
    }
    csv_file(const csv_file &) = delete;
    csv_file &operator=(const csv_file &) = delete;

    bool opened() const { return file >= 0; }
    /// False once something could not be written.
    bool good() const { return !failed; }

    /// Space for `count` characters, of which end() says how many were written.
    char *space_for(size_t count)
    {
        if (count > sizeof buffer - used)
            flush();
        return buffer + used;
    }
    void end(const char *written) { used = size_t(written - buffer); }

    void put(char c)
    {
        *space_for(1) = c;
        ++used;
    }
    void put(std::string_view text)
    {
        while (!text.empty()) {
            const size_t part = std::min(text.size(), sizeof buffer);
            memcpy(space_for(part), text.data(), part);
            used += part;
            text.remove_prefix(part);
        }
    }

    void flush()
    {
        for (size_t done = 0; done < used && !failed;) {
            const ssize_t written = write(file, buffer + done, used - done);
            if (written > 0)
                done += size_t(written);
            else if (written == 0 || errno != EINTR)
                failed = true;
        }
        used = 0;
    }

private:
    static char buffer[65536];  // one table is written at a time
    const int file;
    size_t used = 0;
    bool failed = false;
};
char csv_file::buffer[65536];

// Columns -----------------------------------------------------------------------------------------------------------

// The write routines put text of limited length where it belongs and return its end.

static char *write_number(char *to, unsigned long number)
{
    char digits[20], *first = digits + sizeof digits;
    do
        *--first = char('0' + number % 10);
    while ((number /= 10) != 0);
    return std::copy(first, digits + sizeof digits, to);
}

static void set_two_digits(char *place, unsigned value)
{
    place[0] = char('0' + value / 10);
    place[1] = char('0' + value % 10);
}

static char *write_hex(char *to, unsigned long value, unsigned digits, const char *alphabet)
{
    while (digits-- > 0)
        *to++ = alphabet[value >> 4 * digits & 0x0F];
    return to;
}

static const char *severity_text(unsigned severity)
{
    static constexpr value_text severities[] = {{0, "Ok"}, {1, "Minor"}, {2, "Major"}, {3, "Critical"}, {}};
    return severity < 255 ? val_to_str(severity, severities) : "unknown";
}

static tm local_time(int64_t seconds)
{
    const auto time = time_t(seconds);
    tm broken_down{};
    localtime_r(&time, &broken_down);
    return broken_down;
}

static int second_of_day(const tm &time) { return time.tm_hour * 3600 + time.tm_min * 60 + time.tm_sec; }

/// Zones of the time zone database leave the clock alone for days after they changed it. A rule in TZ, as in
/// "CET-1CEST,M3.5.0,M10.5.0/3", or a file that TZ names by its path may change it back a second later.
static bool clock_may_change_twice_an_hour()
{
    const char *zone = getenv("TZ");
    return zone != nullptr && (strchr(zone, ',') != nullptr || *zone == '/' || *zone == ':');
}

/// The seconds of an hour in which the clock runs evenly, or one second alone.
struct clock_span {
    static constexpr int64_t hour_s = 3600;

    const bool whole_hours = !clock_may_change_twice_an_hour();
    int64_t first = 0, end = 0;  // none yet
    int64_t midnight = 0;
    char text[sizeof "YYYY-MM-DD  HH:MM:SS" - 1];  // of the first second

    bool holds(int64_t seconds) const { return first <= seconds && seconds < end; }
    bool is_hour() const { return end - first == hour_s; }
};

static void set_time(char *text, unsigned hour, unsigned minute, unsigned second)
{
    char *const time = text + sizeof "YYYY-MM-DD  " - 1;
    set_two_digits(time, hour);
    set_two_digits(time + 3, minute);
    set_two_digits(time + 6, second);
}

static void set_date_and_time(char *text, const tm &time)
{
    const auto year = unsigned(time.tm_year + 1900);
    memcpy(text, "YYYY-MM-DD  HH:MM:SS", sizeof clock_span::text);
    set_two_digits(text, year / 100);
    set_two_digits(text + 2, year % 100);
    set_two_digits(text + 5, unsigned(time.tm_mon + 1));
    set_two_digits(text + 8, unsigned(time.tm_mday));
    set_time(text, unsigned(time.tm_hour), unsigned(time.tm_min), unsigned(time.tm_sec));
}

/// A conversion is expensive, and most records share their hour with the one before. So an hour is converted once,
/// unless the clock changes, counts a leap second or begins a day in it.
static void look_up(int64_t seconds, clock_span &span)
{
    const int64_t hour = seconds / span.hour_s * span.hour_s;
    const tm begin = local_time(hour), end = local_time(hour + span.hour_s - 1);
    const bool even = span.whole_hours && second_of_day(end) - second_of_day(begin) == span.hour_s - 1;
    span.first = even ? hour : seconds;
    span.end = span.first + (even ? span.hour_s : 1);
    span.midnight = hour - second_of_day(begin);
    set_date_and_time(span.text, even ? begin : local_time(seconds));
}

/// Date and time, two blanks between them; nothing for a record that has no time stamp.
static char *write_time(char *to, const sel_record &record, int32_t offset_s, clock_span &span)
{
    static constexpr uint32_t last_before_init = 0x1FFFFFFF;
    if (record.type() >= sel_record::first_untimed_type)
        return to;
    if (record.time_stamp() <= last_before_init)
        return stpcpy(to, "Pre-Init Time-stamp");
    const int64_t seconds = int64_t(record.time_stamp()) + offset_s;
    if (!span.holds(seconds))
        look_up(seconds, span);
    memcpy(to, span.text, sizeof span.text);
    if (span.is_hour()) {
        const auto of_day = unsigned(seconds - span.midnight);
        set_time(to, of_day / 3600, of_day / 60 % 60, of_day % 60);
    }
    return to + sizeof span.text;
}

/// The data record of a sensor, or null; looked for once for each sensor that occurs.
static const sdr_record *data_record_of(uint8_t number, uint8_t type)
{
    struct finding {
        bool known;
        uint8_t type;
        const sdr_record *record;
    };
    static finding findings[256];  // by sensor number
    finding &kept = findings[number];
    if (!kept.known || kept.type != type)
        kept = {true, type, sdr_find_by_number(number, type)};
    return kept.record;
}

static void put_hex(csv_file &csv, const uint8_t *bytes, unsigned count)
{
    char *to = csv.space_for(2UL * count);
    for (unsigned n = 0; n < count; ++n)
        to = write_hex(to, bytes[n], 2, "0123456789abcdef");
    csv.end(to);
}

static void put_sensor(csv_file &csv, const sel_record &record)
{
    if (record.type() >= sel_record::first_untimed_type)
        return;
    if (record.type() >= sel_record::first_oem_type) {
        put_hex(csv, record.byte + 7, 3);  // the manufacturer
        return;
    }
    const sdr_record *found = data_record_of(record.sensor_number(), record.sensor_type());
    if (found == nullptr) {
        csv.put(get_sensor_type_name(record.sensor_type()));
        return;
    }
    const std::string_view name = found->id_string();
    if (name == "Mngmnt Health" || name == "OEM_MngHealth") {
        csv.put(name);
        csv.put(" #");
        put_hex(csv, record.byte + 11, 1);
    } else {
        csv.put(get_sensor_type_name(record.sensor_type()));
        csv.put(" (");
        csv.put(name);
        csv.put(')');
    }
}

/// A comma would begin the next column.
static void put_description(csv_file &csv, const char *description)
{
    if (description == nullptr)
        return;
    for (;; ++description) {
        const size_t part = strcspn(description, ",");
        csv.put({description, part});
        description += part;
        if (*description == '\0')
            return;
        csv.put('.');
    }
}

/// What lasts from one line to the next.
struct conversion {
    int32_t offset_s;  // of the controller's time from UTC
    clock_span utc, local;
};

static void put_line(csv_file &csv, unsigned long id, const sel_record &record, conversion &state)
{
    static constexpr size_t longest_head = sizeof "18446744073709551615,Unknown (0xfe),"
                                                  "YYYY-MM-DD  HH:MM:SS,YYYY-MM-DD  HH:MM:SS,";
    static constexpr size_t longest_tail = sizeof ",12345678,Deasserted\r\n";
    unsigned severity = 0;
    const char *description = nullptr;
    event_parse(record.byte, &severity, &description);

    char *to = csv.space_for(longest_head);
    to = write_number(to, id);
    *to++ = ',';
    to = stpcpy(to, severity_text(severity));
    *to++ = ',';
    to = write_time(to, record, 0, state.utc);
    *to++ = ',';
    to = write_time(to, record, state.offset_s, state.local);
    *to++ = ',';
    csv.end(to);
    put_sensor(csv, record);
    csv.put(',');
    put_description(csv, description);

    to = csv.space_for(longest_tail);
    *to++ = ',';
    to = write_hex(to, event_get_code(record.byte), 8, "0123456789ABCDEF");
    to = stpcpy(to, record.deasserted() ? ",Deasserted\r\n" : ",Asserted\r\n");
    csv.end(to);
}

// The file ----------------------------------------------------------------------------------------------------------

/// The controller's time offset from UTC; 0 when it does not tell.
static int32_t sel_time_offset_s()
{
    const ipmi_answer got = exchange(get_sel_utc_offset());
    return got.ok() ? int16_t(ipmi_reader(got.data).u16le()) * 60 : 0;
}

/// The records of a SEL file from the last to the first, read many at a time.
class sel_file
{
public:
    explicit sel_file(const char *sel_path)
        : path(sel_path), left(get_file_length(sel_path) / long(record_size)), file(open_regular(sel_path))
    {
    }
    ~sel_file()
    {
        if (file >= 0)
            close(file);
    }
    sel_file(const sel_file &) = delete;
    sel_file &operator=(const sel_file &) = delete;

    bool opened() const { return file >= 0; }
    long count() const { return left; }

    /// False at the end, or told why it cannot be read.
    bool previous(sel_record &record, const char *csv_path)
    {
        if (left == 0 || (in_block == 0 && !fill(csv_path)))
            return false;
        --in_block;
        --left;
        record.byte = block + in_block * record_size;
        return true;
    }

private:
    /// Where a block cannot be read, the records of it that can still be are read one by one.
    bool fill(const char *csv_path)
    {
        for (;; most_at_once = 1) {
            in_block = std::min(size_t(left), most_at_once);
            if (lseek(file, off_t(left - long(in_block)) * off_t(record_size), SEEK_SET) < 0) {
                fail("%s: fseek %s failed", "sel_bin2txt", csv_path);
                return false;
            }
            const size_t got = read_up_to(file, block, in_block * record_size);
            if (got == in_block * record_size)
                return true;
            if (in_block == 1) {
                fail("%s: fread %s failed, len=%d ", "sel_bin2txt", path, int(got));
                return false;
            }
        }
    }

    static uint8_t block[block_records * record_size];  // one file is read at a time
    const char *const path;
    long left;
    const int file;
    size_t in_block = 0, most_at_once = block_records;
};
uint8_t sel_file::block[block_records * record_size];

int sel_bin2txt(const char *sel_path, const char *csv_path)
{
    static constexpr char open_failure[] = "%s: fopen %s failed";
    static constexpr unsigned long lines_per_pause = 100;
    sel_file sel(sel_path);
    if (!sel.opened())
        return fail(open_failure, "sel_bin2txt", sel_path);
    csv_file csv(csv_path);
    if (!csv.opened())
        return fail(open_failure, "sel_bin2txt", csv_path);

    conversion state{sel_time_offset_s(), {}, {}};
    csv.put("ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n");
    unsigned long lines = 0;
    sel_record record;
    for (auto id = static_cast<unsigned long>(sel.count()); sel.previous(record, csv_path) && csv.good(); --id) {
        put_line(csv, id, record, state);
        if (++lines % lines_per_pause == 0)
            vos_task_delay(20);
    }
    csv.flush();
    if (!csv.good())  // A table cut short, as by a full disk, must not pass for a whole one.
        return fail("%s: fwrite %s failed", "sel_bin2txt", csv_path);
    return 1;
}

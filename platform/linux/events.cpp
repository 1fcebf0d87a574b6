/// The event table (docs/event-table.md): what a SEL record says, in words. A table is read whole and strictly, and
/// then looked up by binary search.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

static constexpr size_t longest_file = 1 << 20, most_rules = 16384, longest_description = 255;

// IPMI 2.0, SEL Event Records
static constexpr int record_type = 2, sensor_type = 10, sensor_number = 11, direction_and_type = 12, event_data = 13;
static constexpr unsigned char oem_records = 0xC0, oem_records_without_time = 0xE0;

/// What a rule asks for, most significant first; a field that may be anything is 0 and has a 0 bit in `given`.
struct rule {
    uint8_t given;  // 8 sensor type, 4 event type, 2 offset, 1 direction
    uint8_t severity;
    uint32_t what;  // sensor type, event type, offset, direction, a byte each
    uint32_t code;
    const char *description;
};

static constexpr unsigned combinations = 16;

static struct {
    char *text;  // the file; the descriptions point into it
    rule *rules;
    unsigned starts[combinations + 1];  // of the rules that share `given`
} table;

static constexpr uint32_t fields_of(unsigned given)
{
    return (given & 8 ? 0xFF000000U : 0) | (given & 4 ? 0x00FF0000U : 0) | (given & 2 ? 0x0000FF00U : 0) |
           (given & 1 ? 0x000000FFU : 0);
}

// Reading -----------------------------------------------------------------------------------------------------------

/// Takes words off a line.
class line_reader
{
public:
    line_reader(char *begin, char *end_) : next(begin), end(end_) { skip_blanks(); }

    bool at_end() const { return next == end; }
    char first() const { return *next; }

    /// The next word, terminated; empty when there is none.
    const char *word()
    {
        char *const begin = next;
        while (next < end && !is_blank(*next))
            ++next;
        char *const stop = next;
        skip_blanks();
        *stop = '\0';  // a blank, or the line's end
        return begin;
    }
    /// All that is left, terminated, without blanks at its end.
    const char *rest()
    {
        char *stop = end;
        while (stop > next && is_blank(stop[-1]))
            --stop;
        *stop = '\0';
        return next;
    }

private:
    static bool is_blank(char byte) { return byte == ' ' || byte == '\t' || byte == '\r'; }
    void skip_blanks()
    {
        while (next < end && is_blank(*next))
            ++next;
    }

    char *next, *end;
};

static bool is_digit(char byte, int base)
{
    return (byte >= '0' && byte <= '9') ||
           (base == 16 && ((byte >= 'A' && byte <= 'F') || (byte >= 'a' && byte <= 'f')));
}

/// Decimal, or hexadecimal behind "0x".
static bool parse_unsigned(const char *word, uint32_t highest, uint32_t *value)
{
    const int base = word[0] == '0' && (word[1] == 'x' || word[1] == 'X') ? 16 : 10;
    const char *digits = base == 16 ? word + 2 : word;
    if (*digits == '\0' || strlen(digits) > 10)
        return false;
    for (const char *at = digits; *at != '\0'; ++at)
        if (!is_digit(*at, base))
            return false;
    const unsigned long long read = strtoull(digits, nullptr, base);
    *value = uint32_t(read);
    return read <= highest;
}

/// Eight hexadecimal digits, with or without "0x" in front.
static bool parse_code(const char *word, uint32_t *code)
{
    if (word[0] == '0' && (word[1] == 'x' || word[1] == 'X'))
        word += 2;
    if (strlen(word) != 8)
        return false;
    for (const char *at = word; *at != '\0'; ++at)
        if (!is_digit(*at, 16))
            return false;
    *code = uint32_t(strtoul(word, nullptr, 16));
    return true;
}

static bool parse_direction(const char *word, uint32_t *value)
{
    if (strcmp(word, "assert") != 0 && strcmp(word, "deassert") != 0)
        return false;
    *value = *word == 'd' ? 1 : 0;
    return true;
}

/// The fields that a record is matched by, in the order of a line; the last is the direction.
struct matched_field {
    uint8_t bit, highest;
};
static constexpr matched_field matched_fields[] = {{8, 0xFF}, {4, 0x7F}, {2, 0x0F}, {1, 1}};

/// "*" = anything.
static bool parse_field(const char *word, matched_field field, rule *into)
{
    into->what <<= 8;
    if (strcmp(word, "*") == 0)
        return true;
    uint32_t value = 0;
    const bool good = field.highest > 1 ? parse_unsigned(word, field.highest, &value) : parse_direction(word, &value);
    into->given |= field.bit;
    into->what |= value;
    return good;
}

static bool is_plain_text(const char *text)
{
    if (strlen(text) > longest_description)
        return false;
    for (; *text != '\0'; ++text)
        if (static_cast<unsigned char>(*text) < 0x20 || *text == 0x7F)
            return false;
    return true;
}

static bool parse_rule(line_reader &line, rule *into)
{
    *into = {};
    for (const matched_field field : matched_fields)
        if (!parse_field(line.word(), field, into))
            return false;
    uint32_t severity = 0;
    if (!parse_unsigned(line.word(), 0xFF, &severity) || !parse_code(line.word(), &into->code))
        return false;
    into->severity = uint8_t(severity);
    into->description = line.rest();
    return is_plain_text(into->description);
}

/// Number of rules, -1 = a line is no rule, or there are too many.
static long parse_text(char *text, size_t length, rule *rules)
{
    if (memchr(text, '\0', length) != nullptr)
        return -1;
    long count = 0;
    char *const end = text + length;
    for (char *next = text; next < end;) {
        auto *stop = static_cast<char *>(memchr(next, '\n', size_t(end - next)));
        if (stop == nullptr)
            stop = end;
        line_reader line(next, stop);
        next = stop < end ? stop + 1 : end;
        if (line.at_end() || line.first() == '#')
            continue;
        if (size_t(count) == most_rules || !parse_rule(line, &rules[count]))
            return -1;
        ++count;
    }
    return count;
}

static int by_fields(const void *left, const void *right)
{
    const auto &a = *static_cast<const rule *>(left);
    const auto &b = *static_cast<const rule *>(right);
    if (a.given != b.given)
        return a.given < b.given ? -1 : 1;
    return a.what != b.what ? (a.what < b.what ? -1 : 1) : 0;
}

static bool has_twins(const rule *rules, long count)
{
    for (long n = 1; n < count; ++n)
        if (by_fields(&rules[n - 1], &rules[n]) == 0)
            return true;
    return false;
}

static void note_starts(const rule *rules, long count)
{
    long next = 0;
    for (unsigned given = 0; given <= combinations; ++given) {
        while (next < count && rules[next].given < given)
            ++next;
        table.starts[given] = unsigned(next);
    }
}

static void unload()
{
    free(table.text);
    free(table.rules);
    table = {};
}

static long count_lines(const char *text, size_t length)
{
    long lines = 1;
    for (size_t n = 0; n < length; ++n)
        lines += text[n] == '\n' ? 1 : 0;
    return lines;
}

int event_parse_init(const char *path)
{
    unload();
    size_t length = 0;
    table.text = read_whole(disk_path(path).text(), longest_file, &length);
    if (table.text == nullptr)
        return 0;
    size_t room = size_t(count_lines(table.text, length));
    room = room < most_rules ? room : most_rules;
    table.rules = static_cast<rule *>(calloc(room, sizeof(rule)));
    const long count = table.rules != nullptr ? parse_text(table.text, length, table.rules) : -1;
    if (count > 0)
        qsort(table.rules, size_t(count), sizeof(rule), by_fields);
    if (count <= 0 || has_twins(table.rules, count)) {
        unload();
        return 0;
    }
    note_starts(table.rules, count);
    return 1;
}

// Looking up --------------------------------------------------------------------------------------------------------

static const rule *find_among(unsigned first, unsigned last, uint32_t what)
{
    while (first < last) {
        const unsigned middle = first + (last - first) / 2;
        if (table.rules[middle].what == what)
            return &table.rules[middle];
        if (table.rules[middle].what < what)
            first = middle + 1;
        else
            last = middle;
    }
    return nullptr;
}

static uint32_t what_happened(const unsigned char *record)
{
    return uint32_t(record[sensor_type]) << 24 | uint32_t(record[direction_and_type] & 0x7F) << 16 |
           uint32_t(record[event_data] & 0x0F) << 8 | uint32_t(record[direction_and_type] >> 7);
}

/// The rule that asks for most: a given sensor type counts more than all the rest, then the event type, then the
/// offset.
static const rule *find_rule(const unsigned char *record)
{
    if (record[record_type] >= oem_records)  // these bytes mean something else there
        return nullptr;
    const uint32_t what = what_happened(record);
    for (unsigned given = combinations; given-- > 0;)
        if (table.starts[given] < table.starts[given + 1])
            if (const rule *found = find_among(table.starts[given], table.starts[given + 1], what & fields_of(given)))
                return found;
    return nullptr;
}

int event_parse(const unsigned char record[16], unsigned *severity, const char **description)
{
    const rule *found = record != nullptr ? find_rule(record) : nullptr;
    if (severity != nullptr)
        *severity = found != nullptr ? found->severity : 0;
    if (description != nullptr)
        *description = found != nullptr ? found->description : "";
    return found != nullptr ? 1 : 0;
}

static uint32_t composed(unsigned first, unsigned second, unsigned third, unsigned fourth)
{
    return first << 24 | second << 16 | third << 8 | fourth;
}

unsigned long event_get_code(const unsigned char record[16])
{
    if (record == nullptr)
        return 0;
    if (const rule *found = find_rule(record))
        return found->code;
    if (record[record_type] >= oem_records_without_time)
        return composed(record[record_type], record[3], record[4], record[5]);
    if (record[record_type] >= oem_records)  // the manufacturer, high byte first
        return composed(record[record_type], record[9], record[8], record[7]);
    return composed(record[sensor_type], record[sensor_number], record[direction_and_type], record[event_data]);
}

const char *get_sensor_type_name(unsigned char type)
{
    // IPMI 2.0, Sensor Type Codes
    static constexpr char names[][32] = {
        "Reserved",
        "Temperature",
        "Voltage",
        "Current",
        "Fan",
        "Physical Security",
        "Platform Security",
        "Processor",
        "Power Supply",
        "Power Unit",
        "Cooling Device",
        "Other Units-based Sensor",
        "Memory",
        "Drive Slot",
        "POST Memory Resize",
        "System Firmware Progress",
        "Event Logging Disabled",
        "Watchdog 1",
        "System Event",
        "Critical Interrupt",
        "Button / Switch",
        "Module / Board",
        "Microcontroller / Coprocessor",
        "Add-in Card",
        "Chassis",
        "Chip Set",
        "Other FRU",
        "Cable / Interconnect",
        "Terminator",
        "System Boot Initiated",
        "Boot Error",
        "Base OS Boot / Installation",
        "OS Stop / Shutdown",
        "Slot / Connector",
        "System ACPI Power State",
        "Watchdog 2",
        "Platform Alert",
        "Entity Presence",
        "Monitor ASIC / IC",
        "LAN",
        "Management Subsystem Health",
        "Battery",
        "Session Audit",
        "Version Change",
        "FRU State",
    };
    if (type < sizeof names / sizeof *names)
        return names[type];
    return type >= 0xC0 ? "OEM" : "Reserved";
}

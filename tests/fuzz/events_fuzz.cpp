/// Event tables, and records looked up in them beside a search rule by rule. An input is four records and the table.
#include "platform/platform.h"
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <cstdlib>
#include <cstring>
#include <sstream>

static constexpr size_t record_size = 16;

/// How much a word of a rule says about a value: 0 anything, 1 exactly this; -1 another one.
static int fit(const std::string &word, unsigned value)
{
    if (word == "*")
        return 0;
    if (word == "assert" || word == "deassert")
        return (word == "deassert") == (value == 1) ? 1 : -1;
    const int base = word.starts_with("0x") || word.starts_with("0X") ? 16 : 10;
    return strtoul(word.c_str(), nullptr, base) == value ? 1 : -1;
}

/// How good a rule, which is one, is for a record: -1 not at all, else more the better.
static int fit(std::istringstream &words, const unsigned char *record)
{
    const unsigned values[] = {record[10], record[12] & 0x7FU, record[13] & 0x0FU, unsigned(record[12] >> 7)};
    int all = 0;
    for (const unsigned value : values) {
        std::string word;
        words >> word;
        const int one = fit(word, value);
        if (one < 0)
            return -1;
        all = all * 2 + one;
    }
    return all;
}

struct rule {
    int fit = -1;
    unsigned severity = 0;
    unsigned long code = 0;
};

static rule best_rule(const std::string &table, const unsigned char *record)
{
    rule best;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        const size_t first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#')
            continue;
        std::istringstream words(line);
        std::string severity, code;
        const int good = fit(words, record);
        if (good <= best.fit)
            continue;
        words >> severity >> code;
        const int base = severity.starts_with("0x") || severity.starts_with("0X") ? 16 : 10;
        best = {good, unsigned(strtoul(severity.c_str(), nullptr, base)), strtoul(code.c_str(), nullptr, 16)};
    }
    return best;
}

static void check_description(const char *description)
{
    check(strlen(description) <= 255);
    for (; *description != '\0'; ++description)
        check(static_cast<unsigned char>(*description) >= 0x20 && *description != 0x7F);
}

static void check_record(const std::string &table, bool loaded, const unsigned char *record)
{
    unsigned severity = 99;
    const char *description = nullptr;
    const int found = event_parse(record, &severity, &description);
    const rule wanted = loaded && record[2] < 0xC0 ? best_rule(table, record) : rule{};
    check(found == (wanted.fit >= 0 ? 1 : 0) && severity == wanted.severity);
    check_description(description);
    check(found == 0 ? *description == '\0' : event_get_code(record) == wanted.code);
    check(event_get_code(record) <= UINT32_MAX && *get_sensor_type_name(record[10]) != '\0');
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    std::string records = input.bytes(4 * record_size);
    records.resize(4 * record_size);
    surroundings found;
    found.files = {{"/data/sectbl.cfg", input.bytes(size)}};
    play(found, [&] {
        const bool loaded = event_parse_init("/data/sectbl.cfg") != 0;
        for (size_t n = 0; n < records.size(); n += record_size)
            check_record(found.files[0].content, loaded, reinterpret_cast<const unsigned char *>(&records[n]));
    });
    return 0;
}

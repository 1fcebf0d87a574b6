/// Files of the configuration parser, beside a search line by line. An input is a key, a separator, and the file.
#include "platform/platform.h"
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <algorithm>
#include <cstring>
#include <optional>

struct finding {
    long position;
    std::string value;
};

static std::string trimmed(const std::string &text)
{
    static constexpr char blanks[] = " \t\r";
    const size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The value when the line is that key.
static std::optional<std::string> value_in(const std::string &line, const std::string &key,
                                           const std::string &separator)
{
    if (!line.starts_with(key) || line[0] == '#' || line[0] == ';')
        return std::nullopt;
    const std::string rest = trimmed(line.substr(key.size()));
    if (rest.empty() || (separator.empty() && line.find_first_of(" \t\r", key.size()) == key.size()))
        return rest;
    if (separator.empty() || !rest.starts_with(separator))
        return std::nullopt;
    return trimmed(rest.substr(separator.size()));
}

static bool is_section_named(const std::string &line, const std::string &key)
{
    const size_t bracket = line.find(']');
    return line.substr(0, bracket == std::string::npos ? bracket : bracket + 1) == key;
}

/// From the first line on, so `start` is 0.
static std::optional<finding> expected(const std::string &file, const std::string &key, const std::string &separator)
{
    for (size_t at = 0, next = 0; at < file.size(); at = next) {
        next = std::min(file.find('\n', at), file.size() - 1) + 1;
        const std::string whole = file.substr(at, next - at - (file[next - 1] == '\n' ? 1 : 0));
        const std::string line = trimmed(whole);
        const long position = long(at + whole.find(line)) + 1;
        if (line.empty() || key.empty())
            continue;
        if (key[0] == '[' && line[0] == '[' && is_section_named(line, key))
            return finding{position, ""};
        if (key[0] != '[' && line[0] == '[')
            return std::nullopt;
        if (key[0] != '[')
            if (const auto value = value_in(line, key, separator))
                return finding{position, *value};
    }
    return std::nullopt;
}

static void check_search(const std::string &text, const std::string &key, const std::string &separator)
{
    void *const file = CfgFileOpenReadOnly("/data/cli.conf");
    check(file != nullptr);
    char *value = nullptr;
    int found = -1;
    const long position = KeySearch(file, 0, key.c_str(), separator.c_str(), &value, &found);
    const auto wanted = expected(text, key, separator);
    check(found == (wanted ? 1 : 0) && position == (wanted ? wanted->position : 0));
    check(strcmp(value, wanted ? wanted->value.c_str() : "") == 0);
    for (long start = -1; start <= long(text.size()) + 1 && start < 300; ++start) {
        const long behind = KeySearch(file, start, key.c_str(), separator.c_str(), &value, &found);
        check(behind == 0 ? found == 0 && *value == '\0' : found == 1 && behind >= start);
        check(behind == 0 || text.compare(size_t(behind) - 1, key.size(), key) == 0);
    }
    CfgFileClose(file);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const std::string key = input.line().c_str(), separator = input.line().c_str();
    surroundings found;
    found.files = {{"/data/cli.conf", input.bytes(size)}};
    play(found, [&] { check_search(found.files[0].content, key, separator); });
    return 0;
}

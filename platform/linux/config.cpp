/// The configuration parser. A file is lines, ended by a line feed or the end of the file:
///
///     [SECTION]            a section line: its first text is "[" up to "]"; what follows on the line is not looked at
///     key = value          blanks round the key, the separator and the value do not count
///     key                  a key without a value
///     # text  ; text       comments, when these characters come first on a line
///
/// Blanks are spaces, tabs and carriage returns. A comment sign inside a value is part of it. The first of several
/// equal keys counts. Letters match as they are. Any other line, and any byte that is no text, is passed over. A file
/// longer than 1 MiB, or one that is no regular file, is not opened.
///
/// A position is the number of bytes up to and including the first of the section or key: 1 is the file's first byte.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <cstdlib>
#include <cstring>

static constexpr size_t longest_file = 1 << 20;

struct config_file {
    char *text;  // `length` bytes and a 0
    char
        *values;  // as long: a value found is copied to where it stands in `text`, so all stay as long as the file does
    size_t length;
};

struct span {
    const char *begin, *end;

    bool empty() const { return begin == end; }
    size_t length() const { return size_t(end - begin); }
    bool starts_with(const char *prefix, size_t count) const
    {
        return length() >= count && memcmp(begin, prefix, count) == 0;
    }
};

static bool is_blank(char byte) { return byte == ' ' || byte == '\t' || byte == '\r'; }

static span trimmed(span text)
{
    while (!text.empty() && is_blank(*text.begin))
        ++text.begin;
    while (!text.empty() && is_blank(text.end[-1]))
        --text.end;
    return text;
}

void *CfgFileOpenReadOnly(const char *path)
{
    size_t length = 0;
    char *text = read_whole(disk_path(path).text(), longest_file, &length);
    auto *file = static_cast<config_file *>(malloc(sizeof(config_file)));
    auto *values = static_cast<char *>(malloc(length + 1));
    if (text == nullptr || file == nullptr || values == nullptr) {
        free(text);
        free(file);
        free(values);
        return nullptr;
    }
    *file = {text, values, length};
    return file;
}

void CfgFileClose(void *file)
{
    auto *opened = static_cast<config_file *>(file);
    if (opened == nullptr)
        return;
    free(opened->text);
    free(opened->values);
    free(opened);
}

static bool is_section(span line) { return !line.empty() && *line.begin == '['; }

/// The name with its brackets is the key, all of it.
static bool is_section_named(span line, const char *key, size_t key_length)
{
    if (!is_section(line) || !line.starts_with(key, key_length))
        return false;
    const auto *bracket = static_cast<const char *>(memchr(line.begin, ']', line.length()));
    return key_length == (bracket != nullptr ? size_t(bracket - line.begin) + 1 : line.length());
}

/// Whether the line is the key with a value or without; `*value` is what stands behind the separator.
static bool is_key(span line, const char *key, size_t key_length, const char *separator, span *value)
{
    if (!line.starts_with(key, key_length) || *line.begin == '#' || *line.begin == ';')
        return false;
    const span rest = trimmed({line.begin + key_length, line.end});
    const size_t separator_length = separator != nullptr ? strlen(separator) : 0;
    *value = rest;
    if (rest.empty())
        return true;
    if (separator_length == 0)  // then the key ends at a blank
        return rest.begin != line.begin + key_length;
    *value = trimmed({rest.begin + (rest.starts_with(separator, separator_length) ? separator_length : 0), rest.end});
    return rest.starts_with(separator, separator_length);
}

static char *keep(config_file &file, span value)
{
    char *kept = file.values + (value.begin - file.text);
    memcpy(kept, value.begin, value.length());
    kept[value.length()] = '\0';
    return kept;
}

/// The beginning of the line that `offset` is in: a position found stands behind the blanks of its line.
static const char *line_of(const config_file &file, size_t offset)
{
    const char *at = file.text + offset;
    while (at > file.text && at[-1] != '\n')
        --at;
    return at;
}

/// Position of the line looked for, 0 = there is none.
static long search(const config_file &file, long start, const char *key, const char *separator, span *value)
{
    const size_t key_length = strlen(key);
    if (key_length == 0 || (start > 0 && size_t(start) > file.length))
        return 0;
    const char *const end = file.text + file.length;
    for (const char *next = line_of(file, start > 0 ? size_t(start) - 1 : 0); next < end;) {
        const auto *feed = static_cast<const char *>(memchr(next, '\n', size_t(end - next)));
        const span line = trimmed({next, feed != nullptr ? feed : end});
        const long position = line.begin - file.text + 1;
        next = feed != nullptr ? feed + 1 : end;

        if (line.empty() || position < start)
            continue;
        if (*key == '[') {
            *value = {line.begin, line.begin};
            if (is_section_named(line, key, key_length))
                return position;
        } else if (is_section(line)) {
            if (position != start)
                return 0;
        } else if (is_key(line, key, key_length, separator, value)) {
            return position;
        }
    }
    return 0;
}

long KeySearch(void *file, long start, const char *key, const char *separator, char **value, int *found)
{
    static char nothing[1];
    if (value != nullptr)
        *value = nothing;
    if (found != nullptr)
        *found = 0;
    if (file == nullptr || key == nullptr)
        return 0;

    auto &opened = *static_cast<config_file *>(file);
    span text{};
    const long position = search(opened, start, key, separator, &text);
    if (position == 0)
        return 0;
    if (value != nullptr)
        *value = keep(opened, text);
    if (found != nullptr)
        *found = 1;
    return position;
}

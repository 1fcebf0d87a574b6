#include "verdict/table.h"

#include <cstring>

#include "words/table.h"

std::span<const line_pattern> all_line_patterns() { return line_patterns; }

/// What -t and -d name. Null = the option is not there.
struct typed_names {
    const char *target, *dataitem;
};

static typed_names names_in(char *const *words)
{
    typed_names names{};
    while (words[0] != nullptr && words[1] != nullptr && names.dataitem == nullptr) {
        if (strcmp(words[0], "-t") == 0)
            names.target = words[1];
        else if (strcmp(words[0], "-d") == 0)
            names.dataitem = words[1];
        else
            return {};
        words += 2;
    }
    return names;
}

static bool begins_with(const char *name, const char *typed) { return strncmp(name, typed, strlen(typed)) == 0; }

/// The whole name of the one target that is meant; null when there is none or more than one. No word, no target.
static const char *find_target(const char *typed)
{
    if (typed == nullptr)
        return "";
    const char *found = nullptr;
    for (const command &row : commands) {
        if (row.target[0] == '\0' || !begins_with(row.target, typed))
            continue;
        if (strcmp(row.target, typed) == 0)
            return row.target;
        if (found != nullptr && strcmp(found, row.target) != 0)
            return nullptr;
        found = row.target;
    }
    return found;
}

const command *find_command(char *const *words)
{
    const typed_names typed = names_in(words);
    const char *target = find_target(typed.target);
    if (target == nullptr || typed.dataitem == nullptr)
        return nullptr;
    const command *found = nullptr;
    bool is_only_one = true;
    for (const command &row : commands) {
        if (strcmp(row.target, target) != 0 || !begins_with(row.dataitem, typed.dataitem))
            continue;
        if (strcmp(row.dataitem, typed.dataitem) == 0)
            return &row;
        is_only_one = found == nullptr;
        found = &row;
    }
    return is_only_one ? found : nullptr;
}

#include "verdict/reading.h"

#include "verdict/matching.h"
#include "verdict/table.h"

#include <algorithm>
#include <cstring>

static constexpr size_t npos = std::string_view::npos;

// Lines -------------------------------------------------------------------------------------------------------------

void reading::take(std::string_view text)
{
    for (const char c : text) {
        if (c == '\n')
            end_line(true);
        else if (length < sizeof line)
            line[length++] = c;
        else
            is_too_long = true;
    }
}

void reading::end_line(bool is_ended)
{
    if (is_ended && length > 0 && line[length - 1] == '\r' && !is_too_long)
        --length;
    keep_line();
    if (is_too_long)
        is_strange = true;
    else
        judge({line, length}, is_ended);
    length = 0;
    is_too_long = false;
}

/// The first lines only, so that none is missing between them.
void reading::keep_line()
{
    if (left_out > 0 || length + 1 > sizeof kept - kept_length) {
        ++left_out;
        return;
    }
    memcpy(kept + kept_length, line, length);
    kept_length += length;
    kept[kept_length++] = '\n';
}

// Meanings ----------------------------------------------------------------------------------------------------------

/// Of the patterns of a form that fit, the one whose meaning weighs most; null when none does.
static const line_pattern *find(std::string_view text, shape form)
{
    const line_pattern *found = nullptr;
    for (const line_pattern &pattern : all_line_patterns())
        if (pattern.form == form && (found == nullptr || pattern.means < found->means) && match(pattern, text) != npos)
            found = &pattern;
    return found;
}

/// Prompts and progress stand in front of what is printed next, without an end of their own.
void reading::judge(std::string_view text, bool is_ended)
{
    while (!text.empty()) {
        if (const line_pattern *whole = is_ended ? find(text, shape::line) : nullptr) {
            note(*whole, text);
            return;
        }
        const line_pattern *beginning = find(text, shape::beginning);
        if (beginning == nullptr) {
            is_strange = true;
            return;
        }
        const size_t taken = match(*beginning, text);
        note(*beginning, {text.data(), taken});
        text.remove_prefix(taken);
    }
}

/// The first sentence of the meaning that weighs most decides, but for one with an error code.
void reading::note(const line_pattern &pattern, std::string_view text)
{
    seen[size_t(pattern.means)] = true;
    const bool decides = pattern.means <= meaning::usage || pattern.means == meaning::done;
    const bool is_first = deciding_length == 0 || pattern.means < deciding_meaning;
    const bool adds_code = pattern.means == deciding_meaning && deciding_code == code_shape::none;
    if (!decides || !(is_first || (adds_code && pattern.code != code_shape::none)))
        return;
    std::copy(text.begin(), text.end(), deciding);
    deciding_length = text.size();
    deciding_meaning = pattern.means;
    deciding_code = pattern.code;
}

// -------------------------------------------------------------------------------------------------------------------

verdict reading::finish(bool ran, const command *which)
{
    if (length > 0 || is_too_long)
        end_line(false);
    if (!ran)
        return verdict::unknown;
    if (has(meaning::failed))
        return verdict::failed;
    if (has(meaning::refused) || has(meaning::usage))
        return verdict::refused;
    if (is_strange && (which == nullptr || !which->others))
        return verdict::unknown;
    if (has(meaning::done))
        return verdict::done;
    if (which == nullptr)
        return verdict::unknown;
    return has(meaning::confirm) ? which->declined : which->silent;
}

const char *name_of(verdict result)
{
    static constexpr const char *names[] = {"done", "failed", "refused", "unknown"};
    return names[size_t(result)];
}

/// Reads what the tool prints, as it comes, and keeps of it what tells how the run ended. Takes the same memory
/// whatever comes.
#pragma once

#include "verdict/verdict.h"

#include <string_view>

class reading
{
public:
    void take(std::string_view text);

    /// Once, when nothing more comes.
    ///   ran     the tool came to its end by itself, with exit status 0
    ///   which   the command, null when it is not known
    verdict finish(bool ran, const command *which);

    /// The sentence that decided, empty when none did; where an error code stands in it, and how.
    std::string_view sentence() const { return {deciding, deciding_length}; }
    code_shape code() const { return deciding_code; }

    /// The first lines of all that came, each ended by a line feed, and how many more there were.
    std::string_view kept_lines() const { return {kept, kept_length}; }
    unsigned long lines_left_out() const { return left_out; }

private:
    void end_line(bool is_ended);
    void keep_line();
    void judge(std::string_view text, bool is_ended);
    void note(const line_pattern &pattern, std::string_view text);
    bool has(meaning what) const { return seen[size_t(what)]; }

    static constexpr size_t longest_line = 16384, room = 65536;
    char line[longest_line];  // what of the line has come, without its end
    size_t length = 0;
    bool is_too_long = false;

    bool seen[meanings]{};
    bool is_strange = false;  // a text that is none of the tool's
    char deciding[longest_line];
    size_t deciding_length = 0;
    meaning deciding_meaning = meaning::information;
    code_shape deciding_code = code_shape::none;

    char kept[room];
    size_t kept_length = 0;
    unsigned long left_out = 0;
};

/// What a run of the tool came to, and what its words mean.
#pragma once

#include <cstddef>
#include <cstdint>

/// The numbers are exit statuses.
enum class verdict : uint8_t { done, failed, refused, unknown };
/// "done", "failed", ...
const char *name_of(verdict result);

/// What a sentence says of the run, the one that weighs most first: words/verdicts tells of each.
enum class meaning : uint8_t { failed, refused, usage, confirm, question, progress, information, done };
inline constexpr size_t meanings = 8;

enum class shape : uint8_t { line, beginning };  // a whole line, or what more is printed behind

/// How an error code stands in a line.
enum class code_shape : uint8_t {
    none,
    whole,       // 0x and all that is known: netfn, command, selector, completion code, or a reason of the tool's own
    decimal,     // the same, as a signed decimal number
    completion,  // 0x and a completion code
};

/// A line that the tool may print. In the text \001 stands for any characters, \002 for a decimal and \003 for a
/// hexadecimal number.
struct line_pattern {
    const char *text;
    shape form;
    meaning means;
    code_shape code;
};

/// What is to be known of a command beside its sentences.
struct command {
    const char *target, *dataitem;  // no target: an empty text
    verdict silent;                 // when no sentence tells how it ended
    verdict declined;               // when nothing follows a question for confirmation
    bool others;                    // other programs print on its screen
    // The event codes of what it may have recorded, parted by blanks: when it is done, when it is refused, and when it
    // failed, perhaps half-way, or nobody knows.
    const char *done_events, *refused_events, *all_events;
};

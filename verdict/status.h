/// Reads the lines of the tool's status descriptor (docs/status.md) and keeps what decides how the run ended. Takes the
/// same memory whatever comes.
#pragma once

#include "verdict/verdict.h"

#include <cstddef>
#include <string_view>

/// What the tool waits for, of the line just read.
enum class request : uint8_t { none, answer, hidden_word };

class status_reader
{
public:
    /// One line, without its line feed.
    request take_line(std::string_view line);
    /// A line above the length that the format allows: nothing can be concluded from such a run.
    void take_overlong_line() { is_broken = true; }

    /// Once, when nothing more comes.
    ///   ran  the tool came to its end by itself, with exit status 0
    verdict finish(bool ran);

    /// The sentence that decided, its first line, without line end; empty when none did or it has no text.
    std::string_view sentence() const { return {deciding, deciding_length}; }
    /// Its error code. False = it has none.
    bool error_code(uint32_t &code) const;

    /// The whole names of the command; both empty when none was run.
    std::string_view target() const { return command_target; }
    std::string_view dataitem() const { return command_dataitem; }

    /// The event codes of the records, in their order, each as 0x and eight digits followed by a line feed.
    std::string_view event_codes() const { return {events, events_length}; }
    /// The first lines of the text, each followed by a line feed, and how many more there were.
    std::string_view lines() const { return {kept, kept_length}; }
    unsigned long lines_left_out() const { return left_out; }

private:
    /// What a sentence says about the run, the one that weighs most last.
    enum class weight : uint8_t { none, done, refused, failed };

    void take_sentence(weight of_sentence, std::string_view code, std::string_view text);
    void take_text(std::string_view text);
    void end_text_line();
    void take_record(std::string_view text);

    bool has_version = false, has_end = false, is_broken = false;

    weight decided = weight::none;
    bool has_code = false;
    uint32_t deciding_code = 0;
    char deciding[4096];
    size_t deciding_length = 0;

    char names[256];
    std::string_view command_target, command_dataitem;

    char events[1024];
    size_t events_length = 0;

    char kept[65536];
    size_t kept_length = 0, line_begin = 0;
    bool line_is_cut = false, line_is_open = false;
    unsigned long left_out = 0;
};

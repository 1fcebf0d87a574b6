#include "verdict/status.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

static constexpr std::string_view supported_version = "1";

/// Takes the next field off a line.
static std::string_view take_field(std::string_view &line)
{
    const size_t tab = std::min(line.find('\t'), line.size());
    const std::string_view field = line.substr(0, tab);
    line.remove_prefix(std::min(tab + 1, line.size()));
    return field;
}

static int hexadecimal_digit(char c)
{
    static constexpr std::string_view digits = "0123456789ABCDEF";
    const size_t at = digits.find(c);
    return at == std::string_view::npos ? -1 : int(at);
}

/// Takes the next byte off an escaped text that is not empty. An escape that the format does not know is itself.
static char take_byte(std::string_view &text)
{
    const char first = text[0];
    const bool is_last = text.size() == 1;
    text.remove_prefix(1);
    if (first != '\\' || is_last)
        return first;
    const char escaped = text[0];
    if (escaped == 'x' && text.size() >= 3) {
        const int high = hexadecimal_digit(text[1]), low = hexadecimal_digit(text[2]);
        if (high < 0 || low < 0)
            return first;
        text.remove_prefix(3);
        return char(high << 4 | low);
    }
    static constexpr std::string_view letters = "\\trn", meant = "\\\t\r\n";
    const size_t at = letters.find(escaped);
    if (at == std::string_view::npos)
        return first;
    text.remove_prefix(1);
    return meant[at];
}

request status_reader::take_line(std::string_view line)
{
    const std::string_view kind = take_field(line);
    if (kind == "version") {
        has_version = true;
        is_broken |= take_field(line) != supported_version;
    } else if (kind == "command") {
        const size_t length = std::min(line.size(), sizeof names);
        memcpy(names, line.data(), length);
        std::string_view rest{names, length};
        command_target = take_field(rest);
        command_dataitem = take_field(rest);
    } else if (kind == "record") {
        take_field(line);
        take_field(line);
        take_record(take_field(line));
    } else if (kind == "more") {
        take_text(take_field(line));
    } else if (kind == "lost") {
        is_broken = true;
    } else if (kind == "end") {
        has_end = true;
    } else {
        static constexpr struct {
            std::string_view meaning;
            weight of_sentence;
            request wanted;
        } meanings[] = {
            {"done", weight::done, request::none},          {"failed", weight::failed, request::none},
            {"refused", weight::refused, request::none},    {"usage", weight::refused, request::none},
            {"information", weight::none, request::none},   {"confirm", weight::none, request::answer},
            {"hidden", weight::none, request::hidden_word},
        };
        for (const auto &row : meanings)
            if (kind == row.meaning) {
                const std::string_view code = take_field(line);
                take_sentence(row.of_sentence, code, take_field(line));
                return row.wanted;
            }
    }
    return request::none;
}

/// The first sentence of the greatest weight decides, but one with an error code goes before one without.
void status_reader::take_sentence(weight of_sentence, std::string_view code, std::string_view text)
{
    take_text(text);
    const bool is_first = of_sentence > decided;
    const bool adds_code = of_sentence == decided && !has_code && !code.empty();
    if (of_sentence == weight::none || !(is_first || adds_code))
        return;
    decided = of_sentence;
    has_code = !code.empty();
    char digits[16]{};
    memcpy(digits, code.data(), std::min(code.size(), sizeof digits - 1));
    deciding_code = uint32_t(strtoull(digits, nullptr, 16));
    deciding_length = 0;
    while (!text.empty() && deciding_length < sizeof deciding) {
        const char c = take_byte(text);
        if (c != '\r' && c != '\n')
            deciding[deciding_length++] = c;
        else if (deciding_length > 0)
            break;
    }
}

bool status_reader::error_code(uint32_t &code) const
{
    code = deciding_code;
    return has_code;
}

// Text --------------------------------------------------------------------------------------------------------------

/// Keeps the first lines only, so that none is missing between them.
void status_reader::take_text(std::string_view text)
{
    while (!text.empty()) {
        const char c = take_byte(text);
        line_is_open = c != '\n';
        if (c == '\n')
            end_text_line();
        else if (kept_length + 1 < sizeof kept)  // one byte for the line feed
            kept[kept_length++] = c;
        else
            line_is_cut = true;
    }
}

void status_reader::end_text_line()
{
    if (line_is_cut || left_out > 0 || kept_length == sizeof kept) {
        kept_length = line_begin;
        ++left_out;
    } else {
        if (kept_length > line_begin && kept[kept_length - 1] == '\r')
            --kept_length;
        kept[kept_length++] = '\n';
        line_begin = kept_length;
    }
    line_is_cut = false;
}

/// The code is the last of its kind in the text: what was typed may contain another.
void status_reader::take_record(std::string_view text)
{
    static constexpr std::string_view mark = "EvtCode:";
    static constexpr size_t code_length = 10;  // 0x and eight digits
    const size_t at = text.rfind(mark);
    if (at == std::string_view::npos || text.size() - at - mark.size() < code_length ||
        events_length + code_length + 1 > sizeof events)
        return;
    memcpy(events + events_length, text.data() + at + mark.size(), code_length);
    events_length += code_length;
    events[events_length++] = '\n';
}

// -------------------------------------------------------------------------------------------------------------------

verdict status_reader::finish(bool ran)
{
    if (line_is_open)
        end_text_line();
    if (!ran || !has_version || !has_end || is_broken || decided == weight::none)
        return verdict::unknown;
    if (decided == weight::done)
        return verdict::done;
    static constexpr uint32_t not_sent = 0x40000000, only_others = 0x40000002;
    if (has_code && deciding_code >= not_sent && deciding_code <= only_others)
        return verdict::no_answer;
    return decided == weight::failed ? verdict::failed : verdict::refused;
}

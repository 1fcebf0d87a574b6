#include "ipmcd/faults.h"

#include "ipmcd/family.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace ipmcd
{

namespace
{

struct kind_words {
    fault_kind kind;
    const char *word;
    bool takes_value;
    unsigned largest;
};

constexpr unsigned longest_delay_ms = 600'000;
constexpr unsigned longest_answer = 4096;  // well above the 1024 bytes a client takes
constexpr unsigned largest_count = 1'000'000;

constexpr kind_words kinds[] = {
    {fault_kind::code, "code", true, 0xFF},
    {fault_kind::silence, "silence", false, 0},
    {fault_kind::cancel, "cancel", false, 0},
    {fault_kind::late, "late", true, longest_delay_ms},
    {fault_kind::wrong_sequence, "wrong-sequence", false, 0},
    {fault_kind::wrong_netfn, "wrong-netfn", false, 0},
    {fault_kind::wrong_command, "wrong-command", false, 0},
    {fault_kind::wrong_address, "wrong-address", false, 0},
    {fault_kind::bad_length, "bad-length", false, 0},
    {fault_kind::length, "length", true, longest_answer},
};

const kind_words &words_of(fault_kind kind)
{
    return *std::find_if(std::begin(kinds), std::end(kinds), [&](const auto &row) { return row.kind == kind; });
}

[[noreturn]] void refuse(const std::string &why) { throw std::invalid_argument(why); }

bool has_hex_sign(const std::string &word) { return word.starts_with("0x") || word.starts_with("0X"); }

/// All of `digits` as a number, none when there is anything else in it.
std::optional<unsigned> parse_digits(std::string_view digits, int base)
{
    unsigned value = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

/// Decimal, or hexadecimal after 0x.
unsigned parse_number(const std::string &name, const std::string &word, unsigned smallest, unsigned largest)
{
    const auto value = has_hex_sign(word) ? parse_digits(std::string_view(word).substr(2), 16) : parse_digits(word, 10);
    if (!value || *value < smallest || *value > largest)
        refuse(text("%s=%s: a number from %u to %u is needed", name.c_str(), word.c_str(), smallest, largest));
    return *value;
}

/// netFn and command are always hexadecimal, with or without 0x.
std::optional<uint8_t> parse_selector(const std::string &word, const char *what, unsigned largest)
{
    if (word == "any")
        return std::nullopt;
    const auto value = parse_digits(std::string_view(word).substr(has_hex_sign(word) ? 2 : 0), 16);
    if (!value || *value > largest)
        refuse(text("%s: %s is \"any\" or a hexadecimal number up to %X", word.c_str(), what, largest));
    return uint8_t(*value);
}

std::vector<uint8_t> parse_sub(const std::string &word)
{
    const std::string_view digits = std::string_view(word).substr(has_hex_sign(word) ? 2 : 0);
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < digits.size(); i += 2) {
        const auto byte = parse_digits(digits.substr(i, 2), 16);
        if (!byte || digits.size() % 2 != 0)
            refuse("sub=" + word + ": pairs of hexadecimal digits are needed, as in sub=0x0611");
        bytes.push_back(uint8_t(*byte));
    }
    if (bytes.empty())
        refuse("sub=: pairs of hexadecimal digits are needed, as in sub=0x0611");
    return bytes;
}

std::string all_kinds()
{
    std::string all;
    for (const auto &row : kinds)
        all += std::string(all.empty() ? "" : ", ") + row.word + (row.takes_value ? "=N" : "");
    return all;
}

void parse_kind(const std::string &name, const std::optional<std::string> &value, fault &ordered)
{
    const auto found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const auto &row) { return name == row.word; });
    if (found == std::end(kinds))
        refuse(name + ": unknown kind of fault, known are " + all_kinds());
    if (found->takes_value != value.has_value())
        refuse(name + (value ? ": takes no value" : ": a value is needed, as in " + name + "=16"));
    ordered.kind = found->kind;
    if (value)
        ordered.value = parse_number(name, *value, 0, found->largest);
}

std::span<const uint8_t> without_enterprise(std::span<const uint8_t> data)
{
    const bool has_one = data.size() >= oem_iana.size() && std::equal(oem_iana.begin(), oem_iana.end(), data.begin());
    return has_one ? data.subspan(oem_iana.size()) : data;
}

bool is_for(const fault &ordered, const request_frame &request)
{
    if (ordered.netfn.value_or(request.netfn) != request.netfn ||
        ordered.command.value_or(request.command) != request.command)
        return false;
    const auto data = without_enterprise(request.data);
    return data.size() >= ordered.sub.size() && std::equal(ordered.sub.begin(), ordered.sub.end(), data.begin());
}

std::string selector_words(std::optional<uint8_t> selector) { return selector ? text("0x%02X", *selector) : "any"; }

}  // namespace

fault parse_fault(std::span<const std::string> words)
{
    if (words.size() < 3)
        refuse("fail NETFN CMD [sub=HEX] KIND [count=N], or fail clear");
    fault ordered;
    ordered.netfn = parse_selector(words[0], "a netFn", 0x3F);
    ordered.command = parse_selector(words[1], "a command", 0xFF);
    bool has_kind = false;
    for (const std::string &word : words.subspan(2)) {
        const size_t sign = word.find('=');
        const std::string name = word.substr(0, sign);
        const auto value = sign == std::string::npos ? std::nullopt : std::optional(word.substr(sign + 1));
        if (name == "sub" && value)
            ordered.sub = parse_sub(*value);
        else if (name == "count" && value)
            ordered.left = parse_number(name, *value, 1, largest_count);
        else if (has_kind)
            refuse(word + ": one kind of fault at a time");
        else {
            parse_kind(name, value, ordered);
            has_kind = true;
        }
    }
    if (!has_kind)
        refuse("which kind of fault? Known are " + all_kinds());
    return ordered;
}

std::string fault_words(const fault &ordered)
{
    const kind_words &row = words_of(ordered.kind);
    if (!row.takes_value)
        return row.word;
    return ordered.kind == fault_kind::code ? text("%s=0x%02X", row.word, ordered.value)
                                            : text("%s=%u", row.word, ordered.value);
}

std::optional<fault> fault_list::take(const request_frame &request)
{
    const auto found = std::find_if(ordered_faults.begin(), ordered_faults.end(),
                                    [&](const fault &ordered) { return is_for(ordered, request); });
    if (found == ordered_faults.end())
        return std::nullopt;
    found->left--;
    const fault taken = *found;
    if (found->left == 0)
        ordered_faults.erase(found);
    return taken;
}

json fault_list::to_json() const
{
    json all = json::array();
    for (const fault &ordered : ordered_faults)
        all.push_back({{"netfn", selector_words(ordered.netfn)},
                       {"command", selector_words(ordered.command)},
                       {"sub", hex(ordered.sub)},
                       {"kind", fault_words(ordered)},
                       {"left", ordered.left}});
    return all;
}

void spoil(answer_frame &answer, fault_kind kind)
{
    switch (kind) {
    case fault_kind::wrong_sequence:
        answer.sequence = (answer.sequence + 1) & 0x3F;
        break;
    case fault_kind::wrong_netfn:
        answer.netfn = (answer.netfn + 2) & 0x3F;
        break;
    case fault_kind::wrong_command:
        answer.command ^= 0x01;
        break;
    case fault_kind::wrong_address:
        answer.responder ^= 0x20;
        break;
    default:
        break;
    }
}

}  // namespace ipmcd

#include "ipmcd/json_fields.h"

#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

static bool is_printable(char c) { return c >= 0x20 && c <= 0x7E; }

json_fields::json_fields(const json &object_, std::string where_) : object(object_), where(std::move(where_))
{
    if (!object.is_object())
        throw bad_state(where + ": an object is needed here");
}

void json_fields::boolean(const char *key, bool &value)
{
    const json *found = find(key);
    if (!found)
        return;
    if (!found->is_boolean())
        refuse(key, "true or false is needed here");
    value = found->get<bool>();
}

void json_fields::text(const char *key, std::string &value, size_t longest)
{
    const json *found = find(key);
    if (!found)
        return;
    if (!found->is_string())
        refuse(key, "a text is needed here");
    const auto &given = found->get_ref<const std::string &>();
    if (given.size() > longest || !std::all_of(given.begin(), given.end(), is_printable))
        refuse(key, "printable ASCII of at most " + std::to_string(longest) + " characters is needed here");
    value = given;
}

void json_fields::bytes(const char *key, std::span<uint8_t> value)
{
    const json *found = find(key);
    if (!found)
        return;
    std::vector<uint8_t> given =
        found->is_string() ? parse_hex(found->get_ref<const std::string &>()) : std::vector<uint8_t>();
    if (given.size() != value.size())
        refuse(key, ipmcd::text("%zu bytes are needed here, as in \"%s\"", value.size(), hex(value).c_str()));
    std::copy(given.begin(), given.end(), value.begin());
}

const json *json_fields::find(const char *key)
{
    seen.insert(key);
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

void json_fields::done(const std::string &why_not_known) const
{
    for (const auto &[key, value] : object.items())
        if (!seen.contains(key))
            refuse(key.c_str(), why_not_known);
}

void json_fields::refuse(const char *key, const std::string &why) const
{
    throw bad_state(where + "/" + key + ": " + why);
}

int64_t json_fields::in_range(const json &value, const char *key, int64_t smallest, int64_t largest) const
{
    // A number is kept as unsigned or as signed, by where it came from.
    const bool too_large = value.is_number_unsigned() && value.get<uint64_t>() > INT64_MAX;
    const bool readable = value.is_number_integer() && !too_large;
    const int64_t number = readable ? value.get<int64_t>() : 0;
    if (!readable || number < smallest || number > largest)
        refuse(key, "a number from " + std::to_string(smallest) + " to " + std::to_string(largest) + " is needed here");
    return number;
}

size_t json_fields::index_of(const json &value, const char *key, std::span<const char *const> words) const
{
    std::string known;
    for (size_t i = 0; i < words.size(); i++) {
        if (value == words[i])
            return i;
        known += std::string(i == 0 ? "" : ", ") + '"' + words[i] + '"';
    }
    refuse(key, "one of " + known + " is needed here");
}

}  // namespace ipmcd

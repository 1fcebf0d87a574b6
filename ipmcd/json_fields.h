/// Reading a family's state out of JSON that may come from anybody: each value is checked, each key has to be known.
#pragma once

#include <concepts>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace ipmcd
{

/// Keeps the order in which a family writes its fields.
using json = nlohmann::ordered_json;

/// The JSON is no state of this controller; what() names the place and what is wrong there.
class bad_state : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The fields of one object. A field that is missing leaves its value as it is, so that a state saved by an older
/// ipmcd still loads; a wrong one throws bad_state. `done` comes last and throws when a key was left over.
class json_fields
{
public:
    /// `where` is the JSON pointer of the object, for messages.
    json_fields(const json &object, std::string where);

    template <std::integral number_type>
    void number(const char *key, number_type &value, int64_t smallest, int64_t largest)
    {
        if (const json *found = find(key))
            value = number_type(in_range(*found, key, smallest, largest));
    }
    void boolean(const char *key, bool &value);
    /// Printable ASCII of at most `longest` characters.
    void text(const char *key, std::string &value, size_t longest);
    /// Exactly as many bytes as `value` has, in a text of hexadecimal pairs with a blank between: "80 08 00".
    void bytes(const char *key, std::span<uint8_t> value);
    /// One of `words`; the value is its index.
    template <typename index_type>
    void choice(const char *key, index_type &value, std::span<const char *const> words)
    {
        if (const json *found = find(key))
            value = index_type(index_of(*found, key, words));
    }
    /// The value as it is, or null.
    const json *find(const char *key);
    void done(const std::string &why_not_known = "unknown field") const;

    [[noreturn]] void refuse(const char *key, const std::string &why) const;

private:
    int64_t in_range(const json &value, const char *key, int64_t smallest, int64_t largest) const;
    size_t index_of(const json &value, const char *key, std::span<const char *const> words) const;

    const json &object;
    std::string where;
    std::set<std::string> seen;
};

}  // namespace ipmcd

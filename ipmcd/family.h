/// What a family of commands is made of. A family is one file in families/ that holds a class derived from `family`,
/// its handlers and its table of commands; families.cpp lists them all.
#pragma once

#include "ipmcd/bytes.h"
#include "ipmcd/completion.h"
#include "ipmcd/json_fields.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace ipmcd
{

class family;

namespace netfn
{
constexpr uint8_t chassis = 0x00;
constexpr uint8_t sensor_event = 0x04;
constexpr uint8_t app = 0x06;
constexpr uint8_t storage = 0x0A;
constexpr uint8_t transport = 0x0C;
constexpr uint8_t picmg = 0x2C;
constexpr uint8_t oem = 0x30;
}  // namespace netfn

/// The maker's IANA enterprise number as it stands in requests and answers, low byte first.
constexpr std::array<uint8_t, 3> oem_iana{OEM_IANA & 0xFF, OEM_IANA >> 8 & 0xFF, OEM_IANA >> 16 & 0xFF};

/// The bytes that the data of a request begin with, fixed for a row of the table. They say whose command it is and
/// which of its sub-functions: a request with the same netFn and command but other leading bytes is another row's.
class leading_bytes
{
public:
    constexpr leading_bytes() = default;
    template <typename... value>
    explicit constexpr leading_bytes(value... values) : bytes{uint8_t(values)...}, count(sizeof...(values))
    {
    }
    constexpr operator std::span<const uint8_t>() const { return {bytes.data(), count}; }
    constexpr size_t size() const { return count; }

private:
    std::array<uint8_t, 12> bytes{};
    size_t count = 0;
};

/// OEM requests begin with the enterprise number, then the bytes of the sub-function.
template <typename... value>
constexpr leading_bytes oem(value... sub_function)
{
    return leading_bytes(oem_iana[0], oem_iana[1], oem_iana[2], sub_function...);
}

/// PICMG requests begin with the PICMG identifier.
constexpr leading_bytes picmg() { return leading_bytes(0x00); }

/// How many bytes may follow the leading ones.
struct length_range {
    size_t smallest = 0;
    size_t largest = 0;
};

/// Carries a request out. The reader stands behind the leading bytes. What is written is sent only with completion::ok.
using handler = completion (*)(family &self, byte_reader &request, byte_writer &answer);
/// What is left to do of a request that takes long, as the hash of a password does. `work` runs beside the event loop
/// and touches nothing but what it captured; `finish` runs in the event loop when that is done, and answers. The state
/// may be another by then.
struct slow_answer {
    std::function<void()> work;
    std::function<completion(byte_writer &answer)> finish;
};
/// The same for a request that may take long: it either answers with a completion code, or fills in `slow`. `account`
/// is the account of the machine that asks.
using slow_handler = completion (*)(family &self, byte_reader &request, uint32_t account, slow_answer &slow);
/// Data in words, for the trace: of a request behind its leading bytes, of an answer behind its completion code.
using data_words = std::string (*)(byte_reader &data);
/// How many bytes of a request, behind its leading ones, are nobody's secret. The trace masks what follows them.
using open_bytes = size_t (*)(std::span<const uint8_t> data);

/// For rows whose secret always begins at the same place: open_first<2>.
template <size_t count>
size_t open_first(std::span<const uint8_t>)
{
    return count;
}

struct command {
    uint8_t netfn = 0;
    uint8_t number = 0;
    leading_bytes lead{};
    const char *name = nullptr;
    length_range length{};
    handler run = nullptr;
    slow_handler run_slowly = nullptr;  // in place of `run`
    data_words request_words = nullptr;
    data_words answer_words = nullptr;
    open_bytes open = nullptr;  // none: all of it
};

class family
{
public:
    virtual ~family() = default;

    /// The word behind `show`, and the family's key in the state.
    virtual const char *name() const = 0;
    virtual std::span<const command> commands() const = 0;
    /// Back to the state the board leaves the factory with.
    virtual void reset() = 0;
    /// The controller starts again. Settings stay; what it remembers only while it runs is forgotten.
    virtual void restart() {}
    /// Reservations are void from now on, as if another client had reserved.
    virtual void cancel_reservations() {}
    virtual json to_json() const = 0;
    /// What `show` shows: the state without its secrets.
    virtual json shown() const { return to_json(); }
    /// What `show KIND NAME` shows, as "sensor" and the name of one. None: the family has no things of this kind.
    /// Throws std::out_of_range when none of them has this name.
    virtual std::optional<json> details(std::string_view, std::string_view) const { return std::nullopt; }
    /// Takes over a state. Throws bad_state and keeps the present one when something in it is wrong.
    virtual void from_json(const json &state) = 0;
};

template <typename method>
struct method_owner;
template <typename owner, typename... argument>
struct method_owner<completion (owner::*)(argument...)> {
    using type = owner;
};

/// Makes a handler for the table out of a member function of a family: call<&fans::set_level>.
template <auto method>
completion call(family &self, byte_reader &request, byte_writer &answer)
{
    return (static_cast<typename method_owner<decltype(method)>::type &>(self).*method)(request, answer);
}
template <auto method>
completion call_slowly(family &self, byte_reader &request, uint32_t account, slow_answer &slow)
{
    return (static_cast<typename method_owner<decltype(method)>::type &>(self).*method)(request, account, slow);
}

}  // namespace ipmcd

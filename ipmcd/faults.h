/// Faults to order: what is to go wrong with the next requests of a kind.
#pragma once

#include "ipmcd/frame.h"
#include "ipmcd/json_fields.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace ipmcd
{

enum class fault_kind {
    code,            // refused with a completion code, not carried out
    silence,         // swallowed: not carried out, no answer
    cancel,          // carried out after all reservations were cancelled
    late,            // carried out, answered some milliseconds later
    wrong_sequence,  // from here on: carried out, and the answer spoiled
    wrong_netfn,
    wrong_command,
    wrong_address,
    bad_length,  // an empty datagram
    length,      // cut or filled with zeros to so many bytes
};

struct fault {
    std::optional<uint8_t> netfn;  // none = any
    std::optional<uint8_t> command;
    std::vector<uint8_t> sub;  // what the data have to begin with, an enterprise number in front not counted
    fault_kind kind = fault_kind::code;
    unsigned value = 0;  // of kinds that take one: the code, the milliseconds, the bytes
    unsigned left = 1;   // how many requests it is still for
};

/// "NETFN CMD [sub=HEX] KIND [count=N]", already cut into words. Throws std::invalid_argument with a text for the user.
fault parse_fault(std::span<const std::string> words);

/// The kind as it is ordered: "late=200".
std::string fault_words(const fault &ordered);

class fault_list
{
public:
    void add(fault ordered) { ordered_faults.push_back(std::move(ordered)); }
    void clear() { ordered_faults.clear(); }
    /// The first fault that is for this request, with one use of it spent.
    std::optional<fault> take(const request_frame &request);
    json to_json() const;

private:
    std::vector<fault> ordered_faults;
};

/// Spoils an answer as kinds from wrong_sequence to wrong_address want it; leaves it alone for other kinds.
void spoil(answer_frame &answer, fault_kind kind);

}  // namespace ipmcd

#include "ipmcd/completion.h"

namespace ipmcd
{

namespace
{
struct code_words {
    completion code;
    const char *words;
};

constexpr code_words table[] = {
    {completion::ok, "done"},
    {completion::node_busy, "node busy"},
    {completion::invalid_command, "invalid command"},
    {completion::invalid_for_lun, "command invalid for this LUN"},
    {completion::timeout, "timeout while processing"},
    {completion::out_of_space, "out of space"},
    {completion::reservation_cancelled, "reservation cancelled or invalid"},
    {completion::data_truncated, "request data truncated"},
    {completion::length_invalid, "request data length invalid"},
    {completion::field_length_exceeded, "request data field length limit exceeded"},
    {completion::out_of_range, "parameter out of range"},
    {completion::cannot_return_bytes, "cannot return that many data bytes"},
    {completion::not_present, "sensor, data or record not present"},
    {completion::invalid_field, "invalid data field in request"},
    {completion::illegal_for_record, "command illegal for this sensor or record type"},
    {completion::no_response_possible, "response could not be provided"},
    {completion::duplicated_request, "cannot execute a duplicated request"},
    {completion::sdr_in_update, "SDR repository in update mode"},
    {completion::firmware_in_update, "device firmware in update mode"},
    {completion::initializing, "initialization in progress"},
    {completion::destination_unavailable, "destination unavailable"},
    {completion::insufficient_privilege, "insufficient privilege"},
    {completion::not_in_this_state, "not supported in the present state"},
    {completion::sub_function_disabled, "sub-function disabled or unavailable"},
    {completion::is_trap_user, "traps go out in this user's name"},
    {completion::unspecified, "unspecified error"},
};
}  // namespace

std::string completion_words(completion code)
{
    for (const auto &row : table)
        if (row.code == code)
            return row.words;
    const auto number = uint8_t(code);
    return number >= 0x80 && number <= 0xBE ? "code of this command" : "unknown code";
}

}  // namespace ipmcd

#include "tests/faults/telling.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

// Commands that tell of a fault otherwise ----------------------------------------------------------------------------

enum class on : uint8_t { any_fault, no_answer, refusal, plain_refusal, in_progress };  // by any code but D5, by 81
enum class says : uint8_t {
    this_text,  // and no success
    nothing,    // of its own: the command ends, or had shown its success before
    success,    // it carries on, or ends as if all were well
};

struct deviation {
    const char *dataitems;  // words, or nothing for all
    const char *request;    // its first bytes: network function, command, data; ".." stands for any byte
    on when;
    says how;
    const char *text, *why;
};

static constexpr deviation deviations[] = {
    // Brackets
    {"", "0C 01 01 00 00", on::any_fault, says::success, "", "what a closing request is answered changes nothing"},
    {"", "00 08 00 00", on::any_fault, says::success, "", "what a closing request is answered changes nothing"},

    {"", "00 08 00 01", on::in_progress, says::success, "", "boot options that are being set already count as opened"},

    // Accounts
    {"adduser password deluser unlock privilege", "06 44", on::any_fault, says::nothing, "",
     "the users are read again for the password check, and by deluser and unlock, which say nothing of it"},
    {"adduser password deluser unlock privilege", "06 46", on::any_fault, says::nothing, "", "as above"},

    // Host
    {"bioswriteprotect", "00 08 63", on::refusal, says::this_text, "write protection failed, error code: 0x",
     "the last error's code is shown, not the refusal's"},
    {"bootdevice", "00 09", on::any_fault, says::success, "", "flags that cannot be read only change the start values"},
    {"clearcmos", "00 09", on::any_fault, says::nothing, "", "the second reading, once the success has been shown"},
    {"clearcmos", "00 08 05", on::any_fault, says::nothing, "",
     "the bit is taken back once the success has been shown"},
    {"powerstate", "00 02", on::plain_refusal, says::nothing, "", "only D5 has a text"},
    {"frucontrol", "2C 04", on::plain_refusal, says::nothing, "", "only D5 has a text"},
    {"shutdowntimeout", "00 08 62", on::no_answer, says::nothing, "", "an answer that does not come is not told"},
    {"sel", "0A 47 .. .. 43 4C 52 00", on::any_fault, says::this_text, "completed.",
     "an error while the erasure is waited for ends the waiting"},
    {"printscreen", "30 93 .. .. .. 03", on::no_answer, says::nothing, "", "an answer that does not come is not told"},

    // What is shown behind the success
    {"fanlevel fanmode", "30 91 .. .. .. 02", on::any_fault, says::nothing, "", "a line less behind the success"},
    {"fanlevel fanmode", "2C 16", on::any_fault, says::nothing, "", "a line less behind the success"},

    // Texts of their own
    {"download", "30 93 .. .. .. 10 0C", on::any_fault, says::this_text, "Black Box function is diabled!", "the text"},
    {"download", "30 93 .. .. .. 1F 01 02", on::any_fault, says::this_text, "There is no Black Box data!", "the text"},
    {"download", "30 93 .. .. .. 1F", on::no_answer, says::this_text, "recv ipmi msg  fail, g_error_code=107374182",
     "the code is decimal"},
    {"download", "30 93 .. .. .. 1F", on::refusal, says::this_text, "Get download status failed!", "no code"},
    {"upgrade", "30 91 .. .. .. 06 55", on::no_answer, says::this_text, "finish upgrade failed!", "no code"},
    {"upgrade", "30 91 .. .. .. 06", on::no_answer, says::this_text, "Update fail.", "the code is decimal, or none"},
    {"upgrade", "30 91 .. .. .. 06", on::refusal, says::this_text, "Update fail.", "codes have texts"},
    {"ipmctime", "0A 5D", on::refusal, says::this_text, "Set system time failed, error code: 0x", "the bare code"},
    {"timezone", "0A 5D", on::any_fault, says::this_text, "Set time zone failed.", "no code"},
    {"ipaddr6", "0C 01 01 CD", on::no_answer, says::this_text, "Set IP address, error code: 0x",
     "the code is made of the completion code before"},
    {"ipaddr ipaddr6", "0C 01 01", on::any_fault, says::this_text, "0xC0100",
     "the bracket is closed first, and what the closing is refused with is told instead"},
    {"mode sideband", "30 16", on::any_fault, says::this_text, "The NIC is not installed in the host!", "the text"},
    {"sideband", "30 93 .. .. .. 05 0D", on::no_answer, says::this_text, "failed, error code: 0x30930000",
     "a completion code of 0 is shown"},
    {"vlan", "0C 01 01 14", on::refusal, says::this_text, "Set eth0 vlan failed, error code: 0x",
     "the last error's code is shown, not the refusal's"},
    {"state", "30 93 .. .. .. 0F 09 01", on::no_answer, says::success, "", "an answer that does not come is a success"},
    {"port", "30 93 .. .. .. 0F 09 02", on::no_answer, says::success, "", "an answer that does not come is a success"},

    // Sensors: a record that cannot be read is passed over, a header is asked for up to five times, and what is not
    // found then has a code of its own
    {"", "0A 22", on::any_fault, says::success, "", "a record whose reservation cannot be renewed is passed over"},
    {"", "04 22", on::any_fault, says::success, "", "a record whose reservation cannot be renewed is passed over"},
    {"", "0A 23", on::any_fault, says::success, "", "the record is passed over, or asked for again"},
    {"", "04 21", on::any_fault, says::success, "", "the record is passed over, or asked for again"},
    {"", "04 20", on::refusal, says::this_text, "Err in cmd get sensor sdr info", "no code of its own"},
    {"zntool", "06 01", on::any_fault, says::success, "", "a sensor without a record has its type for a name"},
    {"zntool", "0A 20", on::any_fault, says::success, "", "a sensor without a record has its type for a name"},
    {"zntool", "04 20", on::any_fault, says::success, "", "a sensor without a record has its type for a name"},
    {"zntool", "0A 5C", on::any_fault, says::success, "", "without an offset times are UTC"},
};

// -------------------------------------------------------------------------------------------------------------------

static std::string_view dataitem_of(const conversation &said)
{
    for (size_t n = 0; n + 1 < said.words.size(); ++n)
        if (said.words[n] == "-d")
            return said.words[n + 1];
    return {};
}

/// Whether a text of words holds this one.
static bool holds_word(std::string_view words, std::string_view word)
{
    for (size_t at = words.find(word); at != words.npos; at = words.find(word, at + 1)) {
        const size_t end = at + word.size();
        if ((at == 0 || words[at - 1] == ' ') && (end == words.size() || words[end] == ' '))
            return true;
    }
    return words.empty();
}

/// Byte n of what a request is told by: network function, command, data.
static uint8_t byte_of(std::string_view frame, size_t n)
{
    return n == 0 ? uint8_t(uint8_t(frame[1]) >> 2) : uint8_t(frame[4 + n]);
}

static bool begins_with(std::string_view frame, const char *bytes)
{
    static constexpr size_t header = 6;
    for (size_t n = 0; *bytes != '\0'; ++n, bytes += bytes[2] == '\0' ? 2 : 3)
        if (n + header > frame.size() || (bytes[0] != '.' && byte_of(frame, n) != strtoul(bytes, nullptr, 16)))
            return false;
    return true;
}

static bool is_refusal(fault kind) { return kind == fault::completion; }

/// The error code that the faults of the transport have.
static uint32_t code_of(fault kind)
{
    constexpr uint32_t not_sent = 0x40000000, no_answer = 0x40000001, not_matched = 0x40000002;
    if (kind == fault::unsent)
        return not_sent;
    return kind >= fault::of_other_netfn && kind <= fault::of_other_sequence ? not_matched : no_answer;
}

/// Whether a code is the fault's: network function, command, a byte that the command chooses, completion code.
static bool is_code_of(uint32_t code, const judged &one, std::string_view frame)
{
    if (!is_refusal(one.at.kind))
        return code == code_of(one.at.kind);
    constexpr uint32_t all_but_the_choice = 0xFFFF00FF;
    return (code & all_but_the_choice) ==
           (uint32_t(byte_of(frame, 0)) << 24 | uint32_t(byte_of(frame, 1)) << 16 | one.at.value);
}

static bool shows_code(const std::string &shown, const judged &one, std::string_view frame)
{
    for (size_t at = shown.find("0x"); at != std::string::npos; at = shown.find("0x", at + 1))
        if (is_code_of(uint32_t(strtoul(shown.c_str() + at, nullptr, 16)), one, frame))
            return true;
    return false;
}

static bool shows_success(const std::string &shown) { return shown.find("success") != std::string::npos; }

static bool is_meant(on when, const fault_at &at)
{
    static constexpr unsigned not_in_this_state = 0xD5, set_already = 0x81;
    switch (when) {
    case on::any_fault:
        return true;
    case on::no_answer:
        return !is_refusal(at.kind);
    case on::refusal:
        return is_refusal(at.kind);
    case on::plain_refusal:
        return is_refusal(at.kind) && at.value != not_in_this_state;
    case on::in_progress:
        return is_refusal(at.kind) && at.value == set_already;
    }
    return false;
}

static bool deviates_as_listed(const std::string &shown, const judged &one, std::string_view frame)
{
    const std::string_view dataitem = dataitem_of(one.said);
    for (const deviation &row : deviations) {
        if (is_meant(row.when, one.at) && holds_word(row.dataitems, dataitem) && begins_with(frame, row.request) &&
            (row.how == says::success || !shows_success(shown)) && shown.find(row.text) != std::string::npos)
            return true;
    }
    return false;
}

/// The caller's privilege is asked for first, of every caller but root.
static bool gate_refuses(const std::string &shown, const judged &one)
{
    static constexpr char unanswered[] = "send 'Get User Access Command' failed!",
                          refused[] = "Get User Access Command failed!";
    const char *const text = is_refusal(one.at.kind) ? refused : unanswered;
    return one.at.place == 1 && one.said.user != 0 && !shows_success(shown) && shown.find(text) != std::string::npos;
}

/// A code that says what the controller means by it has a sentence instead, and is not shown.
static bool shows_meaning(const std::string &shown, const judged &one)
{
    return is_refusal(one.at.kind) && one.at.value >= 0x80 && !shown.empty() && !shows_success(shown) &&
           shown.find("code: 0x") == std::string::npos;
}

bool tells(const judged &one)
{
    const bool is_judged = !is_outlived(one.at.kind) && one.at.kind != fault::cut && one.at.kind != fault::none;
    const bool is_seen = one.said.screen != "full" && one.said.screen != "gone";
    if (!is_judged || !is_seen)
        return true;
    const std::string shown = shown_from(one.run, one.run.fault_step);
    size_t place = one.run.fault_step;
    const std::string_view frame = one.run.next(place).text;
    if (shows_code(shown, one, frame) && !shows_success(shown))
        return true;
    if (one.said.shown.find("success") == std::string::npos && !shows_success(shown))
        return true;  // it fails without the fault as well, and the last failure may be the one that is told
    return gate_refuses(shown, one) || shows_meaning(shown, one) || deviates_as_listed(shown, one, frame);
}

// Calls that fail, and the command succeeds all the same ------------------------------------------------------------

struct needless_call {
    const char *dataitems;  // words, or nothing for all
    const char *call, *why;
};
static constexpr needless_call needless_calls[] = {
    // The frame of every run
    {"", "cpld_init", "what is wrong shows where it is needed"},
    {"", "fpga_Init", "as above"},
    {"", "ipc_no_listen_init", "it is told, and requests fail if they do"},
    {"", "CfgFileOpenReadOnly", "the profile has values of its own"},
    {"", "KeySearch", "as above"},
    {"", "get_mac_num", "as above"},
    {"", "vos_get_file_length", "a blacklist that cannot be read disables nothing"},
    {"", "open", "as above"},
    {"", "fstat", "as above"},
    {"", "read", "as above"},
    {"", "close", "what was read is read"},
    {"", "screen", "what cannot be shown is done all the same"},
    {"", "vos_zentro_log", "so is what cannot be recorded"},

    // Requests
    {"", "ipc_msg_send", "the next attempt succeeds, or a sweep of the requests has it"},
    {"", "ipc_msg_recv", "as above"},

    // Keys
    {"", "isatty", "the rest of the line is left to the shell"},
    {"", "poll", "as above"},
    {"", "key of the rest", "as above"},
    {"", "tcsetattr back", "the word has been read"},

    // Commands
    {"readeeprom", "i2c_write_read", "it tells which block failed, and then of a success"},
    {"readeeprom", "mkostemp", "it tells of the file, and then of a success"},
    {"readeeprom", "rename", "as above"},
    {"readeeprom", "unlink", "as above"},
    {"readeeprom", "write", "Kept: a success whatever came of it"},
    {"readeeprom", "fchmod", "as above"},
    {"webrestart upgradebios", "vos_system", "nobody asks what came of the programs"},
    {"upgrade", "vos_get_file_name", "the record lacks the name"},
    {"", "calloc", "a sensor data record there is no memory for is passed over"},
    {"adduser", "vos_system", "a lock's file that stays is taken over by the next one"},
    {"zntool", "", "a log that cannot be had keeps neither the others nor the other information out"},
};

static bool records_success(const record &run, size_t place)
{
    while (place < run.used)
        if (const step one = run.next(place); one.kind == 'L' && one.text.find("success") != one.text.npos)
            return true;
    return false;
}

bool tells_success(const judged &one, std::string_view failed_call)
{
    const std::string_view dataitem = dataitem_of(one.said);
    const bool is_needless =
        std::any_of(std::begin(needless_calls), std::end(needless_calls), [&](const needless_call &row) {
            return (*row.call == '\0' || row.call == failed_call) && holds_word(row.dataitems, dataitem);
        });
    return !is_needless &&
           (shows_success(shown_from(one.run, one.run.fault_step)) || records_success(one.run, one.run.fault_step));
}

#include "tests/faults/rules.h"

#include "tests/faults/telling.h"

#include <algorithm>
#include <csignal>
#include <unistd.h>

std::string shown_from(const record &run, size_t place)
{
    std::string shown;
    while (place < run.used)
        if (const step one = run.next(place); one.kind == 'T')
            shown += one.text;
    return shown;
}

// Every run ---------------------------------------------------------------------------------------------------------

static bool ended(const judged &one) { return one.run.ended; }

/// However long a command waits for the controller: here the controller comes to an end.
static bool ended_in_time(const judged &one) { return !one.run.out_of_steps; }

static bool status_is_0(const judged &one) { return one.run.status == 0; }

static constexpr const char *start_up[] = {"cpld_init", "fpga_Init", "ipc_no_listen_init", "CfgFileOpenReadOnly"};
static constexpr const char *tear_down[] = {"ipc_exit", "cpld_clean", "fpga_clean"};

/// The run's calls begin with the start-up, end with the tear-down, and none of those stands elsewhere.
static bool start_up_and_tear_down(const judged &one)
{
    size_t started = 0, torn_down = 0;
    bool in_order = true;
    for (size_t place = 0; place < one.run.used;) {
        const step now = one.run.next(place);
        if (now.kind != 'S' && now.kind != 'C' && now.kind != 'L')
            continue;
        if (started < std::size(start_up))
            in_order = in_order && now.text == start_up[started++];
        else if (now.kind == 'C' && torn_down < std::size(tear_down) && now.text == tear_down[torn_down])
            ++torn_down;
        else
            in_order = in_order && torn_down == 0;
    }
    return in_order && torn_down == std::size(tear_down);
}

/// The call that failed.
static std::string_view failed_call(const judged &one)
{
    size_t place = one.run.fault_step;
    return is_failure(one.at.kind) ? one.run.next(place).text : "";
}

/// A file that is not locked may stay, and that of another run while a signal ends the wait for it, one that could not
/// be removed, and a stranger's (0x50000002).
static bool lock_file_is_gone(const judged &one)
{
    bool was_locked = false, is_waited_for = false;
    for (size_t place = 0; place < one.run.used;) {
        const bool is_faulted = place == one.run.fault_step;
        const bool is_lock = one.run.next(place).text == "lock";
        was_locked = was_locked || is_lock;
        is_waited_for = is_waited_for || (is_lock && is_faulted && one.at.kind == fault::signal_comes);
    }
    const bool is_a_strangers = shown_from(one.run, one.run.fault_step).find("0x50000002") != std::string::npos;
    return !was_locked || is_waited_for || is_a_strangers || failed_call(one) == "vos_system" ||
           access((one.root + "/ipmc/usr/adduser_mutex").c_str(), F_OK) != 0;
}

/// Then one more call changes which of them fail.
static bool terminal_fails_anyway(const judged &one)
{
    return is_of_call(one.at.kind) && (one.said.has_results_of("tcgetattr") || one.said.has_results_of("tcsetattr"));
}

static bool terminal_is_as_before(const judged &one)
{
    return terminal_fails_anyway(one) || !(one.run.terminal_changed || one.run.changed_while_stopped) ||
           failed_call(one) == "tcsetattr back";
}
static bool nobody_could_look(const judged &one) { return !one.run.typed_while_dumpable; }
static bool secrets_are_gone(const judged &one) { return !one.run.held_secret; }

/// What is left of a process that a signal ends, nobody may look into either.
static bool nobody_can_look(const judged &one) { return !one.run.typed_secret || !one.run.is_dumpable; }
static bool descriptors_are_closed(const judged &one) { return one.run.descriptors_left == 0; }

/// The sensor data records that were read, two blocks each, stay for the run, and so does what reads them.
static bool memory_is_given_back(const judged &one)
{
    int reads = 0;
    for (size_t place = 0; place < one.run.used;) {
        const step now = one.run.next(place);
        const int netfn = now.kind == 'S' ? uint8_t(now.text[1]) >> 2 : 0,
                  command = now.kind == 'S' ? uint8_t(now.text[5]) : 0;
        reads += (netfn == 0x0A && command == 0x23) || (netfn == 0x04 && command == 0x21) ? 1 : 0;
    }
    // Of a record the header is one request, the body at least one more; their reader takes a block as well.
    return one.run.blocks_left <= (reads > 0 ? reads + 1 : 0);
}

// The fault --------------------------------------------------------------------------------------------------------

static bool is_reached(const judged &one)
{
    return (is_of_call(one.at.kind) ? one.run.points : one.run.exchanges) >= one.at.place;
}

/// What came before the fault is what comes without it.
static bool begins_as_usual(const judged &one)
{
    const size_t same = one.run.fault_step;
    return !is_reached(one) ||
           (same <= one.usual.used && std::equal(one.run.steps, one.run.steps + same, one.usual.steps));
}

/// Whether the exchange takes several attempts without the fault.
static bool is_retried(const judged &one) { return one.said.exchanges[one.at.place - 1].attempts.size() > 1; }

/// Nothing was sent more than five times; what could not be sent or got no right answer was sent five times.
static bool is_sent_as_often(const judged &one)
{
    static constexpr unsigned most_attempts = 5, header = 6;
    if (one.at.kind == fault::cut && is_retried(one))
        return true;  // what is cut there may be another's answer
    const bool is_lost = one.at.kind == fault::unsent || one.at.kind == fault::silent ||
                         one.at.kind == fault::after_the_end ||
                         (one.at.kind >= fault::of_other_netfn && one.at.kind <= fault::of_other_sequence) ||
                         (one.at.kind == fault::cut && one.at.value < header);
    const bool is_settled = one.at.kind == fault::completion || one.at.kind == fault::bad_length ||
                            (one.at.kind == fault::cut && one.at.value >= header);
    return one.run.fault_sends <= most_attempts && (!is_lost || one.run.fault_sends == most_attempts) &&
           (!is_settled || one.run.fault_sends == 1);
}

/// The next step that an operator or the controller could tell from others: not how often something was sent, nor how
/// long that took.
static step next_telling(const record &run, size_t &place, std::string_view &request)
{
    static constexpr std::string_view passed_over = "PRZ";
    while (place < run.used) {
        const step now = run.next(place);
        if (now.kind == 'S' && now.text == request)
            continue;
        if (now.kind == 'S')
            request = now.text;
        if (passed_over.find(now.kind) == passed_over.npos)
            return now;
    }
    return {'\0', {}};
}

/// As far as the run goes, nothing that could be told from the usual one.
static bool goes_on_as_usual(const judged &one)
{
    size_t usual = 0, run = 0;
    std::string_view usual_request, request;
    for (;;) {
        const step expected = next_telling(one.usual, usual, usual_request), now = next_telling(one.run, run, request);
        if (now.kind == '\0')
            return expected.kind == '\0' || !one.run.ended;
        if (expected.kind != now.kind || expected.text != now.text)
            return false;
    }
}

/// An exchange that succeeds at a later attempt changes nothing else.
static bool is_outlived_unnoticed(const judged &one)
{
    return !is_outlived(one.at.kind) || is_retried(one) || goes_on_as_usual(one);
}

static bool is_as_usual_but_for_signal(const judged &one)
{
    return terminal_fails_anyway(one) || goes_on_as_usual(one);
}
static bool is_tried_again(const judged &one) { return one.at.kind != fault::interrupted || goes_on_as_usual(one); }

// Brackets ----------------------------------------------------------------------------------------------------------

/// A request that opens a bracket carries 1, one that closes it 0, behind what names it.
struct bracket {
    uint8_t netfn, command, name;
    size_t name_place, step_place;  // in the frame
};
static constexpr bracket brackets[] = {
    {0x00, 0x08, 0x00, 6, 7},   // boot options
    {0x0C, 0x01, 0x00, 7, 8},   // LAN parameters
    {0x30, 0x90, 0x20, 6, 10},  // SMBIOS data
};

/// 1 = opens, 0 = closes, -1 = something else.
static int bracket_step(std::string_view frame)
{
    const auto at = [&](size_t place) { return place + 1 < frame.size() ? int(uint8_t(frame[place])) : -1; };
    for (const bracket &one : brackets)
        if (at(1) >> 2 == one.netfn && at(5) == one.command && at(one.name_place) == one.name)
            return at(one.step_place);
    return -1;
}

/// Whether a payload is the answer to this frame, and says that it was done. One too short to say so counts as done.
static bool is_done(std::string_view frame, std::string_view payload)
{
    static constexpr size_t header = 6;
    return payload.size() >= header && uint8_t(payload[1]) >> 2 == (uint8_t(frame[1]) >> 2) + 1 &&
           payload[3] == frame[0] && payload[4] == frame[4] && payload[5] == frame[5] &&
           (payload.size() == header || payload[header] == 0);
}

/// A community that the controller's own rules refuse: those are shown, and the bracket stays open, as it always did.
static bool stays_open(std::string_view frame, std::string_view payload)
{
    static constexpr uint8_t transport = 0x0C, community = 0x10, against_the_rules = 0x84;
    return uint8_t(frame[1]) >> 2 == transport && frame.size() > 8 && frame[7] == community && payload.size() > 6 &&
           uint8_t(payload[6]) == against_the_rules;
}

static bool brackets_are_closed(const judged &one)
{
    bool is_open = false;
    std::string_view frame;
    for (size_t place = 0; place < one.run.used;) {
        const step now = one.run.next(place);
        if (now.kind == 'S')
            frame = now.text;
        if (now.kind == 'S' && bracket_step(frame) == 0)
            is_open = false;
        if (now.kind == 'R' && bracket_step(frame) == 1 && is_done(frame, now.text))
            is_open = true;
        if (now.kind == 'R' && stays_open(frame, now.text))
            is_open = false;
    }
    return !is_open;
}

// -------------------------------------------------------------------------------------------------------------------

// Signals -----------------------------------------------------------------------------------------------------------

/// While it upgrades the firmware, which it says first, the tool is not to be stopped from the terminal. Whether it has
/// said so by the first call behind the signal.
static bool is_upgrading(const judged &one)
{
    for (size_t place = 0; place < one.run.used;) {
        const size_t start = place;
        const step now = one.run.next(place);
        if (now.kind == 'T' && now.text.find("the Zentro is working while upgrading!") != now.text.npos)
            return true;
        if (now.kind == 'P' && start > one.run.fault_step)
            return false;
    }
    return false;
}

static bool signal_has_its_effect(const judged &one)
{
    const int number = int(one.at.value);
    const bool from_terminal = number == SIGINT || number == SIGTSTP;
    if (number == SIGPIPE || number == SIGXFSZ)
        return one.run.ended;
    if (number == SIGTSTP)
        return one.run.ended && one.run.stops == (is_upgrading(one) ? 0U : 1U);
    return one.run.ended_by == number || (one.run.ended && from_terminal && is_upgrading(one));
}

// -------------------------------------------------------------------------------------------------------------------

static bool fault_is_told(const judged &one) { return !is_reached(one) || tells(one); }
static bool no_success_is_told(const judged &one)
{
    return !is_failure(one.at.kind) || !tells_success(one, failed_call(one));
}

/// What a rule is for.
enum : unsigned { no_fault = 1, exchanges = 2, failures = 4, signals = 8, kills = 16 };
static constexpr unsigned ending = no_fault | exchanges | failures, all = ending | signals | kills;

static unsigned sort_of(fault kind)
{
    if (kind == fault::none)
        return no_fault;
    if (!is_of_call(kind))
        return exchanges;
    return kind == fault::signal_comes ? signals : kind == fault::is_killed ? kills : failures;
}

struct rule {
    unsigned of;
    const char *words;
    bool (*holds)(const judged &);
};
static constexpr rule rules[] = {
    {ending, "the tool comes to its end, by exit()", ended},
    {all, "it does so within a bounded number of platform calls", ended_in_time},
    {ending, "its exit status is 0", status_is_0},
    {ending, "start-up and tear-down are complete and in order", start_up_and_tear_down},
    {signals, "a signal ends or stops the tool, or is ignored, as it should", signal_has_its_effect},
    {ending | signals, "the add-user lock's file is gone", lock_file_is_gone},
    {ending | signals, "the terminal is in the mode it was in", terminal_is_as_before},
    {all, "no key of a hidden word is read while others may look into the process", nobody_could_look},
    {signals, "nobody may look into a process that has read one", nobody_can_look},
    {ending, "no trace of a secret is in memory", secrets_are_gone},
    {ending, "what was opened is closed", descriptors_are_closed},
    {ending, "what was allocated is given back", memory_is_given_back},
    {all, "before the fault all is as without it", begins_as_usual},
    {all, "the fault is reached", is_reached},
    {exchanges, "a request is sent as often as its answers demand", is_sent_as_often},
    {exchanges, "a fault that the next attempt outlives changes nothing else", is_outlived_unnoticed},
    {failures, "an interrupted call is made again", is_tried_again},
    {signals, "a signal changes nothing else", is_as_usual_but_for_signal},
    {ending | signals, "a bracket that was opened is closed", brackets_are_closed},
    {exchanges, "the fault is told, and no success with it", fault_is_told},
    {failures, "no success is told after a failed call that it needs", no_success_is_told},
};

const char *broken_rule(const judged &one)
{
    const unsigned sort = sort_of(one.at.kind);
    const auto broken = std::find_if_not(std::begin(rules), std::end(rules),
                                         [&](const rule &each) { return (each.of & sort) == 0 || each.holds(one); });
    return broken != std::end(rules) ? broken->words : nullptr;
}

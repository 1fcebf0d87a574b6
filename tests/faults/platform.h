/// The platform of the tool within this process: it plays a conversation, with one fault in it, and writes down what
/// happened.
#pragma once

#include "tests/faults/conversation.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>

/// What goes wrong at one exchange. In those that the transport outlives, things go on as if nothing had been.
enum class fault : uint8_t {
    none,
    unsent,          // five times
    silent,          // five times
    of_other_netfn,  // five answers that differ in this field
    of_other_command,
    of_other_address,
    of_other_sequence,
    bad_length,        // `value` in the length field
    unsent_once,       // outlived
    late,              // outlived: the answer comes when nobody waits for it any more, and is there at the next attempt
    other_netfn_once,  // outlived, as are those that follow
    other_command_once,
    other_address_once,
    other_sequence_once,
    stale_before,   // outlived: an answer to an earlier request lies there first
    after_the_end,  // silence, and the answer comes first at the next exchange
    completion,     // `value` is the completion code, and nothing follows it
    cut,            // the payload ends after `value` bytes
    // At one call of the tool, whichever it is, instead of an exchange
    fails_once,
    fails_from_here,  // it, and each later call of this name
    interrupted,      // it fails with EINTR
    signal_comes,     // `value` is its number
    is_killed,
};

struct fault_at {
    fault kind = fault::none;
    unsigned place = 0;  // of the exchange, or of the call, counted from 1
    unsigned value = 0;
};
inline bool is_of_call(fault kind) { return kind >= fault::fails_once; }
inline bool is_failure(fault kind) { return kind == fault::fails_once || kind == fault::fails_from_here; }

/// The steps of a run, one after the other, each a head and its text: 'S' a frame sent, 'R' a payload received or
/// nothing, 'Z' a sleep, 'T' a text on the screen, 'L' a log record, 'C' any other platform call and 'c' its words.
/// Before all that stands 'P', with the name of the call.
struct step {
    char kind;
    std::string_view text;
};

/// What became of a run.
struct outcome {
    bool ended = false, held_secret = false, terminal_changed = false, out_of_steps = false, files_touched = false;
    bool typed_secret = false, is_dumpable = true, typed_while_dumpable = false;
    bool changed_while_stopped = false;  // the terminal
    int status = -1, ended_by = 0;       // a signal
    unsigned stops = 0;
    unsigned calls = 0, points = 0, exchanges = 0, fault_sends = 0;  // points: calls of libc are counted too
    int blocks_left = 0, descriptors_left = 0;                       // taken and not given back
    size_t fault_step = 0;                                           // where in `steps` the faulted place begins
    size_t used = 0;
};

/// What happened in a run, in memory that is shared with the process which judges it.
struct record : outcome {
    char steps[size_t(1) << 22];

    /// The step at `place`, which moves on behind it.
    step next(size_t &place) const;
};

/// Whether the tool gets an answer all the same.
inline bool is_outlived(fault kind) { return kind >= fault::unsent_once && kind <= fault::stale_before; }

/// Plays the tool in this process, which ends with it.
[[noreturn]] void play(const conversation &with, const fault_at &at, const std::string &root, unsigned most_calls,
                       record &into);

// For the tool's calls of libc (libc.cpp) ----------------------------------------------------------------------------

/// What is played; null: the calls are this program's own.
extern const conversation *played;
extern record *written;

/// Where a path of the controller lies.
std::string found_at(const char *path);
/// Each call of the tool begins with it. True: it has to fail, and errno says why.
bool fails(const char *name);
/// What a call that fails returns, where a number can say so.
long failure_of(std::string_view name);
bool can_fail(std::string_view name);
bool can_be_interrupted(std::string_view name);
/// A platform call: notes it and gives its result: of a failure, or what the conversation has for it.
long called(const char *name, const std::string &words = "", long otherwise = 0);
long result_of(const char *name, long otherwise = 0);
/// Whether the conversation has this call of this file fail; errno is set then.
bool is_to_fail(const char *call, const std::string &path);
/// A file may be another than before.
inline void touch_files() { written->files_touched = true; }
/// What the tool has taken from libc and is to give back.
int descriptors_open();
extern int blocks_taken;

// For the calls (calls.cpp) -----------------------------------------------------------------------------------------

extern fault_at faulted;
void note(char kind, std::string_view text);
/// The exchange that carried a secret has come to its end: nothing of it may be found.
void look_for_sent_secrets();
extern bool is_granted;  // by what was received last

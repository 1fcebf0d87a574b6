/// The platform of the unit tests: messages and the board's file are the test's, everything else is written down.
#pragma once

#include "ipmi/transport.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

using byte_text = std::vector<uint8_t>;

struct log_entry {
    unsigned log_class;
    std::string user, origin, module, record;
};

struct platform_stub {
    /// What the next receives find, payload by payload; none left = what `answer_all` says.
    struct reception {
        bool found;
        byte_text payload;
    };
    std::deque<reception> receptions;
    /// The completion code and data of answers made up for whatever was sent; empty = nothing is received.
    byte_text answer_all;
    std::deque<int> send_results;  // 0 when there are none left

    /// The lines of a configuration file, each at its position (> 0): a key, or a section, and its value.
    struct config_line {
        long position;
        std::string key, value;
        bool has_text = true;  // or the parser gives none
    };
    std::vector<config_line> config;
    int mac_num = 0;
    unsigned account = 0;   // that the tool seems to run under
    long file_length = -1;  // of any file
    std::string sensor_type_name;
    std::string lock_folder;  // the folder in place of /ipmc/usr/, in which /bin/rm works
    std::string tmp;          // the folder in place of /tmp/
    bool has_disk = true;     // false: /data and /tmp appear to be empty

    std::vector<byte_text> sent;
    unsigned receives = 0;
    bool records_cleared = true;  // those to receive into, each time
    std::vector<unsigned> slept_us;
    bool sleeps = false;  // a little, in truth
    std::vector<log_entry> logged;
    int log_result = 42;
};
extern platform_stub stub;

/// Where a path of the controller lies. The last two answers hold.
const char *on_disk(const char *path);

/// A fresh stub, and a tool as at its start but for the sequence counter.
void reset_stub();

/// The payload that answers a frame: completion code and data, addresses, sequence number and command as they must be.
byte_text answer_to(const byte_text &frame, const byte_text &data);

/// What a piece of code prints.
std::string printed(const std::function<void()> &run);

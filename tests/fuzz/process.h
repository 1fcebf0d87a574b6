/// A process of the tool, played within this one: over and over, and each time as if it had just been started.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What a process finds when it starts.
struct surroundings {
    unsigned user = 0;
    std::vector<std::string> environment;  // NAME=VALUE
    std::string keys;                      // typed at its terminal; without any it has none
    struct file {
        const char *path;  // of the controller, in a folder that there is
        std::string content;
    };
    std::vector<file> files;
};

/// Calls `routine` as a process: the controller's folders are a folder of its own, which is empty but for `files`;
/// exit() comes back here. Afterwards the tool's variables are as they were before, its memory is given back, and what
/// it has to give back itself is checked: descriptors, the terminal's mode, the lock file.
void play(const surroundings &found, const std::function<void()> &routine);

/// A whole run: main() with these words behind the tool's name.
void run_tool(const surroundings &found, std::vector<std::string> words);

/// What is in a file of the controller, empty where there is none. For a routine that is being played.
std::string content_of(const char *path);

/// The command line of ipmcd.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ipmcd
{

struct options {
    std::filesystem::path ipc_dir;  // $ZENTRO_IPC_DIR, or /run/zentro
    std::filesystem::path control;  // <ipc_dir>/control
    std::string board = "default";  // a built-in one, or the path of a file
    std::optional<std::filesystem::path> state;
    std::optional<std::filesystem::path> disk;
    bool trace = false;
    std::optional<std::filesystem::path> trace_file;  // none = stderr
    std::optional<int> ready_fd;
    std::optional<std::string> question;
    bool help = false;
    bool version = false;
};

extern const char usage[];

/// Throws std::invalid_argument with a text for the user.
options parse_options(int argc, char **argv);

}  // namespace ipmcd

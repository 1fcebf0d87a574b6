#include "ipmcd/options.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <getopt.h>
#include <stdexcept>

namespace ipmcd
{

const char usage[] =
    "Usage: ipmcd [--ipc-dir DIR] [--control PATH] [--board BOARD] [--state FILE] [--disk DIR]\n"
    "             [--trace[=FILE]] [--ready-fd N]\n"
    "       ipmcd --ask COMMAND [--ipc-dir DIR] [--control PATH]\n"
    "  --ipc-dir DIR     folder of the IPMI socket, DIR/2001 (default $ZENTRO_IPC_DIR, else /run/zentro)\n"
    "  --control PATH    control socket (default: \"control\" in that folder)\n"
    "  --board BOARD     which sensors there are: default, device-sdrs or short-reads, or the path of a board file\n"
    "  --state FILE      load the state from FILE when it is there, save it there after each change\n"
    "  --disk DIR        where files of the controller's disk lie, /tmp/x as DIR/tmp/x; without it none are written\n"
    "  --trace[=FILE]    show the traffic in words on stderr, or append it to FILE\n"
    "  --ready-fd N      write \"ready\" to descriptor N, not to stdout, once requests are taken\n"
    "  --ask COMMAND     send COMMAND to a running ipmcd: show [NAME], set POINTER VALUE, fail ..., cancel, save,\n"
    "                    reset (exit status 0 done, 1 refused, 2 no answer)\n"
    "  --help, --version print this text, or the version, and end\n";

static int parse_descriptor(const std::string &word)
{
    int value = -1;
    const char *const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, value);
    if (error != std::errc{} || stop != end || value < 0)
        throw std::invalid_argument(std::string("--ready-fd ") + word + ": the number of a descriptor is needed");
    return value;
}

static std::filesystem::path default_ipc_dir()
{
    const char *const named = getenv("ZENTRO_IPC_DIR");
    return named && *named ? named : "/run/zentro";
}

options parse_options(int argc, char **argv)
{
    enum choice { ipc_dir = 1, control, board, state, disk, trace, ready_fd, ask, help, version };
    static constexpr option known[] = {{"ipc-dir", required_argument, nullptr, ipc_dir},
                                       {"control", required_argument, nullptr, control},
                                       {"board", required_argument, nullptr, board},
                                       {"state", required_argument, nullptr, state},
                                       {"disk", required_argument, nullptr, disk},
                                       {"trace", optional_argument, nullptr, trace},
                                       {"ready-fd", required_argument, nullptr, ready_fd},
                                       {"ask", required_argument, nullptr, ask},
                                       {"help", no_argument, nullptr, help},
                                       {"version", no_argument, nullptr, version},
                                       {nullptr, 0, nullptr, 0}};
    options read;
    read.ipc_dir = default_ipc_dir();
    optind = 0;  // start over: the vector may not be the first one
    opterr = 0;
    for (int found; (found = getopt_long(argc, argv, ":", known, nullptr)) != -1;) {
        switch (found) {
        case ipc_dir:
            read.ipc_dir = optarg;
            break;
        case control:
            read.control = optarg;
            break;
        case board:
            read.board = optarg;
            break;
        case state:
            read.state = optarg;
            break;
        case disk:
            read.disk = optarg;
            break;
        case trace:
            read.trace = true;
            if (optarg)
                read.trace_file = optarg;
            break;
        case ready_fd:
            read.ready_fd = parse_descriptor(optarg != nullptr ? optarg : "");
            break;
        case ask:
            read.question = optarg;
            break;
        case help:
            read.help = true;
            break;
        case version:
            read.version = true;
            break;
        default:
            throw std::invalid_argument(std::string(argv[optind - 1]) +
                                        (found == ':' ? ": needs a value" : ": unknown option"));
        }
    }
    if (optind < argc)
        throw std::invalid_argument(std::string(argv[optind]) + ": unexpected word");
    if (read.control.empty())
        read.control = read.ipc_dir / "control";
    return read;
}

}  // namespace ipmcd

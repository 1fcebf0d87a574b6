/// ipmcd: a management controller's IPMI service, simulated.
#include "ipmcd/ask.h"
#include "ipmcd/bound_socket.h"
#include "ipmcd/control.h"
#include "ipmcd/controller.h"
#include "ipmcd/options.h"
#include "ipmcd/server.h"
#include "ipmcd/service.h"
#include "ipmcd/state_file.h"
#include "ipmcd/state_keeper.h"
#include "ipmcd/text.h"
#include "ipmcd/trace.h"
#include "ipmcd/wiping.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ipmcd;

using stream = std::unique_ptr<FILE, int (*)(FILE *)>;

/// A file is its owner's to read: it shows who did what. A terminal or a pipe keeps its mode.
static stream open_trace(const options &chosen)
{
    if (!chosen.trace_file)
        return {stderr, [](FILE *) { return 0; }};
    const mode_t before = umask(077);
    stream opened(fopen(chosen.trace_file->c_str(), "ae"), fclose);
    umask(before);
    struct stat about {
    };
    const bool is_private = opened && fstat(fileno(opened.get()), &about) == 0 &&
                            (!S_ISREG(about.st_mode) || fchmod(fileno(opened.get()), 0600) == 0);
    if (!is_private)
        throw std::runtime_error(chosen.trace_file->string() + ": " + strerror(errno));
    return opened;
}

static void write_trace_line(FILE *to, const std::string &line)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    fprintf(to, "%02d:%02d:%02d.%03ld %s\n", local.tm_hour, local.tm_min, local.tm_sec, now.tv_nsec / 1'000'000,
            line.c_str());
    fflush(to);
}

static void say_ready(const options &chosen)
{
    static constexpr char word[] = "ready\n";
    const int to = chosen.ready_fd.value_or(STDOUT_FILENO);
    if (write(to, word, strlen(word)) < 0)
        throw std::runtime_error(std::string("cannot say \"ready\": ") + strerror(errno));
    if (chosen.ready_fd)
        close(to);
}

static void serve(const options &chosen)
{
    event_loop loop;
    controller board(loop, all_families(), load_board(chosen.board));
    if (chosen.disk)
        board.use_disk(*chosen.disk);
    if (chosen.state)
        load_state(*chosen.state, board);
    const stream trace_stream = open_trace(chosen);
    trace shown(chosen.trace ? [&](const std::string &line) { write_trace_line(trace_stream.get(), line); }
                             : trace::sink());

    fault_list faults;
    service ipmi(board, faults, shown);
    std::optional<state_keeper> keeper;
    if (chosen.state)
        keeper.emplace(*chosen.state, board, loop);
    control commands(board, faults, ipmi, keeper ? [&] { keeper->save(); } : std::function<void()>());

    make_socket_folder(chosen.ipc_dir);
    bound_socket ipmi_socket(chosen.ipc_dir / "2001", SOCK_DGRAM, 0666);   // any account's requests
    const bound_socket control_socket(chosen.control, SOCK_STREAM, 0600);  // its owner's orders
    ipmi_port requests(loop, ipmi_socket, ipmi);
    control_port orders(loop, control_socket, commands);
    say_ready(chosen);
    loop.run();
    if (keeper)
        keeper->save();
}

int main(int argc, char **argv)
{
    prctl(PR_SET_DUMPABLE, 0);  // no core file with passwords, no debugger of the same user
    wipe_heap_of_events();
    try {
        const options chosen = parse_options(argc, argv);
        if (chosen.help) {
            fputs(usage, stdout);
            return 0;
        }
        if (chosen.version) {
            puts("ipmcd " IPMCD_VERSION);
            return 0;
        }
        if (chosen.question)
            return ask(chosen.control, *chosen.question);
        serve(chosen);
        return 0;
    } catch (const std::invalid_argument &problem) {
        report(problem.what());
        fputs(usage, stderr);
    } catch (const std::exception &problem) {
        report(problem.what());
    }
    return 1;
}

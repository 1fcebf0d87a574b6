#include "verdict/running.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// Signals -----------------------------------------------------------------------------------------------------------

static volatile pid_t tool;  // 0 = it does not run

static void hand_on(int number)
{
    const int error = errno;
    if (tool > 0)
        kill(tool, number);
    errno = error;
}

static void set_handler(int number, void (*handler)(int))
{
    struct sigaction action {
    };
    action.sa_handler = handler;
    sigaction(number, &action, nullptr);
}

static bool is_ignored(int number)
{
    struct sigaction present;
    return sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

/// Ours while the tool runs. What was ignored before stays so, for the tool as well.
class run_signals
{
public:
    sigset_t for_tool;  // what the tool is to find in its default state
    sigset_t before;    // the mask it is to find

    run_signals()
    {
        sigemptyset(&for_tool);
        take(SIGINT, SIG_IGN);
        take(SIGQUIT, SIG_IGN);
        take(SIGPIPE, SIG_IGN);
        take(SIGTERM, hand_on);
        take(SIGHUP, hand_on);
        set_handler(SIGCHLD, [](int) {});
        sigset_t held;
        sigemptyset(&held);
        for (const int number : {SIGCHLD, SIGTERM, SIGHUP})
            sigaddset(&held, number);
        sigprocmask(SIG_BLOCK, &held, &before);
        sigdelset(&before, SIGCHLD);
    }

    /// What is sent to the tool can reach it now. Its end is still met while we wait for text only, not just before.
    void release() const
    {
        sigset_t child;
        sigemptyset(&child);
        sigaddset(&child, SIGCHLD);
        sigprocmask(SIG_SETMASK, &before, nullptr);
        sigprocmask(SIG_BLOCK, &child, nullptr);
    }

private:
    void take(int number, void (*handler)(int))
    {
        if (is_ignored(number))
            return;
        sigaddset(&for_tool, number);
        set_handler(number, handler);
    }
};

// Text --------------------------------------------------------------------------------------------------------------

static void write_whole(int to, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t put = write(to, text.data(), text.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return;
        text.remove_prefix(size_t(put));
    }
}

/// Hands on what has come. False = nothing comes any more, or nothing is there.
static bool pass_on(int from, int copy_to, reading &said)
{
    char text[4096];
    ssize_t got;
    do {
        got = read(from, text, sizeof text);
    } while (got < 0 && errno == EINTR);
    if (got <= 0)
        return false;
    write_whole(copy_to, {text, size_t(got)});
    said.take({text, size_t(got)});
    return true;
}

/// What the tool had printed when it ended. Not to the end of the text: a server that it has started may hold that open
/// for ever.
static void pass_on_rest(int from, int copy_to, reading &said)
{
    fcntl(from, F_SETFL, O_NONBLOCK);
    for (int pieces = 0; pieces < 256 && pass_on(from, copy_to, said);)
        ++pieces;
}

static int wait_for_end(pid_t child, int from, int copy_to, reading &said, const sigset_t &mask)
{
    int status = 0;
    bool is_open = true;
    while (waitpid(child, &status, WNOHANG) == 0) {
        pollfd input{from, POLLIN, 0};
        if (ppoll(&input, is_open ? 1 : 0, nullptr, &mask) > 0)
            is_open = pass_on(from, copy_to, said);
    }
    tool = 0;
    if (is_open)
        pass_on_rest(from, copy_to, said);
    return status;
}

// -------------------------------------------------------------------------------------------------------------------

static int start(const char *program, char *const *words, int output, const run_signals &signals, pid_t &child)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&files) != 0 || posix_spawnattr_init(&attributes) != 0)
        return ENOMEM;
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawnattr_setsigdefault(&attributes, &signals.for_tool);
    posix_spawnattr_setsigmask(&attributes, &signals.before);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    const int error = posix_spawnp(&child, program, &files, &attributes, words, environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

ending run_tool(const char *program, char *const *words, int copy_to, reading &said)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return {errno, 0};
    const run_signals signals;
    pid_t child;
    const int error = start(program, words, ends[1], signals, child);
    close(ends[1]);
    if (error != 0) {
        close(ends[0]);
        return {error, 0};
    }
    tool = child;
    signals.release();
    const int status = wait_for_end(child, ends[0], copy_to, said, signals.before);
    close(ends[0]);
    return {0, status};
}

#include "verdict/run.h"

#include "verdict/secrets.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

static void close_if_open(int &descriptor)
{
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

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

    /// What is sent to the tool can reach it now. Its end is noticed while we wait, not before.
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

// The tool's input --------------------------------------------------------------------------------------------------

/// What the tool reads from: our own standard input, a pipe, or, for hidden words, a terminal.
class tool_input
{
public:
    int for_tool = -1;  // to be its standard input; -1 = ours stays

    ~tool_input()
    {
        close_if_open(for_tool);
        close_if_open(ours);
    }
    /// 0, or why not, as errno has it.
    int open_for(const orders &given)
    {
        const bool attended = isatty(STDIN_FILENO) == 1 && !given.answers_yes && given.secrets < 0;
        if (attended)
            return 0;
        return given.secrets >= 0 ? open_terminal() : open_pipe();
    }
    bool is_ours() const { return ours >= 0; }
    /// Bytes that nobody reads are lost with the tool.
    void type(const char *keys, size_t count) const { (void)!write(ours, keys, count); }
    void end() { close_if_open(ours); }

private:
    int ours = -1;  // the end that we write to

    int open_pipe()
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
            return errno;
        fcntl(ends[0], F_SETFL, 0);
        for_tool = ends[0], ours = ends[1];
        return 0;
    }
    /// In raw mode from the beginning, so that no byte of a word means anything to the terminal.
    int open_terminal()
    {
        ours = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
        char name[64];
        termios mode;
        if (ours < 0 || grantpt(ours) != 0 || unlockpt(ours) != 0 || ptsname_r(ours, name, sizeof name) != 0 ||
            (for_tool = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC)) < 0 || tcgetattr(for_tool, &mode) != 0)
            return errno;
        cfmakeraw(&mode);
        return tcsetattr(for_tool, TCSANOW, &mode) == 0 ? 0 : errno;
    }
};

// Time --------------------------------------------------------------------------------------------------------------

static int64_t now_ms()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

/// Whether the tool keeps a signal waiting, as it does where it must not be interrupted.
static bool holds_back(pid_t process, int number)
{
    char path[40], line[256];
    snprintf(path, sizeof path, "/proc/%d/status", int(process));
    FILE *const file = fopen(path, "re");
    unsigned long long blocked = ~0ULL;  // what cannot be known is not killed
    while (file != nullptr && fgets(line, sizeof line, file) != nullptr)
        if (strncmp(line, "SigBlk:", 7) == 0)
            blocked = strtoull(line + 7, nullptr, 16);
    if (file != nullptr)
        fclose(file);
    return (blocked >> (number - 1) & 1) != 0;
}

/// Ends a tool that takes too long: SIGTERM first, SIGKILL only when that has no effect and is not held back.
class time_limit
{
public:
    explicit time_limit(unsigned seconds) : next_ms(seconds > 0 ? now_ms() + int64_t(seconds) * 1000 : -1) {}

    /// How long to wait at most, null = for ever.
    const timespec *left()
    {
        if (next_ms < 0)
            return nullptr;
        const int64_t ms = next_ms > now_ms() ? next_ms - now_ms() : 0;
        wait = {time_t(ms / 1000), long(ms % 1000) * 1000000};
        return &wait;
    }
    void look(pid_t process)
    {
        if (next_ms < 0 || now_ms() < next_ms)
            return;
        if (!passed)
            kill(process, SIGTERM);
        else if (!holds_back(process, SIGTERM))
            kill(process, SIGKILL);
        next_ms = now_ms() + (passed ? retry_ms : grace_ms);
        passed = true;
    }
    bool has_passed() const { return passed; }

private:
    static constexpr int64_t grace_ms = 3000, retry_ms = 500;
    int64_t next_ms;
    bool passed = false;
    timespec wait{};
};

// The conversation --------------------------------------------------------------------------------------------------

class conversation
{
public:
    conversation(const orders &given_orders, tool_input &tool_reads, int status_descriptor, status_reader &reader)
        : given(given_orders), input(tool_reads), status(status_descriptor), said(reader), secrets(given.secrets)
    {
    }

    int wait_for_end(pid_t child, const sigset_t &mask, time_limit &limit)
    {
        int result = 0;
        while (waitpid(child, &result, WNOHANG) == 0) {
            pollfd waited[] = {{status, POLLIN, 0}, {wants_word ? given.secrets : -1, POLLIN, 0}};
            if (ppoll(waited, 2, limit.left(), &mask) > 0) {
                if (waited[0].revents != 0 && !take_lines())
                    status = -1;  // the tool has closed it
                if (waited[1].revents != 0) {
                    secrets.read_more();
                    hand_over_word();
                }
            }
            limit.look(child);
        }
        tool = 0;
        while (status >= 0 && take_lines())
            ;
        return result;
    }
    const char *complaint() const { return secrets.complaint(); }

private:
    /// What has come. False = nothing, or nothing any more.
    bool take_lines()
    {
        ssize_t got;
        do {
            got = read(status, line + length, sizeof line - length);
        } while (got < 0 && errno == EINTR);
        if (got <= 0)
            return false;
        length += size_t(got);
        size_t begin = 0;
        while (const char *const end = static_cast<const char *>(memchr(line + begin, '\n', length - begin))) {
            answer(said.take_line({line + begin, size_t(end - line) - begin}));
            begin = size_t(end - line) + 1;
        }
        if (begin == 0 && length == sizeof line) {
            said.take_overlong_line();
            begin = length;
        }
        memmove(line, line + begin, length - begin);
        length -= begin;
        return true;
    }

    void answer(request wanted)
    {
        if (!input.is_ours() || wanted == request::none)
            return;
        if (wanted == request::answer)
            input.type(given.answers_yes ? "y" : "n", 1);
        else if (given.secrets >= 0)
            hand_over_word();
        else
            input.end();
    }

    void hand_over_word()
    {
        const secret_words::state next = secrets.next();
        wants_word = next == secret_words::state::incomplete;
        if (next == secret_words::state::word) {
            input.type(secrets.word(), secrets.length());
            input.type("\r", 1);
            secrets.wipe_word();
        } else if (next == secret_words::state::none) {
            input.end();
        }
    }

    const orders &given;
    tool_input &input;
    int status;
    status_reader &said;
    secret_words secrets;
    bool wants_word = false;
    char line[8192]{};
    size_t length = 0;
};

// -------------------------------------------------------------------------------------------------------------------

/// Our environment with CFGTOOL_STATUS_FD set; null when there is no memory.
static char **environment_for(int status_descriptor)
{
    static char variable[40];
    snprintf(variable, sizeof variable, "CFGTOOL_STATUS_FD=%d", status_descriptor);
    const size_t name_length = size_t(strchr(variable, '=') - variable) + 1;
    size_t count = 0;
    while (environ[count] != nullptr)
        ++count;
    auto **const made = static_cast<char **>(calloc(count + 2, sizeof(char *)));
    if (made == nullptr)
        return nullptr;
    size_t filled = 0;
    for (size_t n = 0; n < count; ++n)
        if (strncmp(environ[n], variable, name_length) != 0)
            made[filled++] = environ[n];
    made[filled] = variable;
    return made;
}

static int start(const orders &given, int input, int status_descriptor, const run_signals &signals, pid_t &child)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&files) != 0 || posix_spawnattr_init(&attributes) != 0)
        return ENOMEM;
    char **const environment = environment_for(status_descriptor);
    if (environment == nullptr)
        return ENOMEM;
    if (input >= 0)
        posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, given.screen, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, status_descriptor, status_descriptor);  // not closed on exec
    posix_spawnattr_setsigdefault(&attributes, &signals.for_tool);
    posix_spawnattr_setsigmask(&attributes, &signals.before);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    const int error = posix_spawnp(&child, given.program, &files, &attributes, given.words, environment);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    free(environment);
    return error;
}

ending run_tool(const orders &given, status_reader &said)
{
    static constexpr int pipe_size = 1 << 20;  // so much can wait while we are not scheduled
    tool_input input;
    int ends[2];
    if (const int error = input.open_for(given); error != 0)
        return {error, 0, false, nullptr};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return {errno, 0, false, nullptr};
    fcntl(ends[1], F_SETPIPE_SZ, pipe_size);
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    const run_signals signals;
    pid_t child;
    const int error = start(given, input.for_tool, ends[1], signals, child);
    close(ends[1]);
    close_if_open(input.for_tool);
    if (error != 0) {
        close(ends[0]);
        return {error, 0, false, nullptr};
    }
    tool = child;
    signals.release();
    time_limit limit(given.timeout_s);
    conversation talk(given, input, ends[0], said);
    const int status = talk.wait_for_end(child, signals.before, limit);
    close(ends[0]);
    return {0, status, limit.has_passed() && WIFSIGNALED(status), talk.complaint()};
}

#include "ui/status.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

int status_descriptor;
static bool is_socket;

// The descriptor ----------------------------------------------------------------------------------------------------

static constexpr char variable[] = "CFGTOOL_STATUS_FD";

/// A decimal number and nothing else; 0 = it is not one.
static int number_of(const char *text)
{
    static constexpr int largest = INT_MAX / 10 - 1;  // before another digit
    int number = 0;
    for (; *text >= '0' && *text <= '9' && number <= largest; ++text)
        number = number * 10 + (*text - '0');
    return *text == '\0' ? number : 0;
}

static bool is_for_writing(int descriptor)
{
    const int flags = fcntl(descriptor, F_GETFL);
    return flags != -1 && (flags & O_ACCMODE) != O_RDONLY;
}

/// A pipe under a descriptor of our own that never waits. The mode of the given one is shared with whoever else has it,
/// so the pipe is opened once more. Where that is not possible, poll() has to do.
static int open_again(int pipe)
{
    char path[sizeof "/proc/self/fd/" + 10];
    snprintf(path, sizeof path, "/proc/self/fd/%d", pipe);
    const int own = open(path, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return own >= 0 ? own : pipe;
}

void open_status()
{
    const char *text = getenv(variable);
    if (text == nullptr)
        return;
    const int given = number_of(text);
    unsetenv(variable);  // to a program that the tool runs the number would mean another descriptor
    struct stat about;
    if (given <= STDERR_FILENO || !is_for_writing(given) || fstat(given, &about) != 0)
        return;
    is_socket = S_ISSOCK(about.st_mode);
    if (!is_socket && !S_ISFIFO(about.st_mode))
        return;
    (void)fcntl(given, F_SETFD, FD_CLOEXEC);
    status_descriptor = is_socket ? given : open_again(given);
    write_status({"version", "1"});
}

// Lines -------------------------------------------------------------------------------------------------------------

static constexpr size_t longest_line = 4096;  // PIPE_BUF: a pipe takes such a line whole or not at all
static char line[longest_line];
static size_t length;
static bool is_lost, is_cut;  // what became of the last line

static void put(char c) { line[length++] = c; }

static void put(const char *text)
{
    while (*text != '\0')
        put(*text++);
}

/// What does not fit the line is left out; there is room for the ends of some more fields.
static void put_escaped(const char *text)
{
    static constexpr size_t ends = 8;
    static constexpr char special[] = "\\\t\r\n", letters[] = "\\trn", digits[] = "0123456789ABCDEF";
    for (; *text != '\0' && length < sizeof line - ends; ++text) {
        const auto c = static_cast<unsigned char>(*text);
        if (const char *found = strchr(special, c); found != nullptr) {
            put('\\');
            put(letters[found - special]);
        } else if (c < 0x20 || c == 0x7F) {
            put("\\x");
            put(digits[c >> 4]);
            put(digits[c & 15]);
        } else {
            put(char(c));
        }
    }
}

static void begin_line()
{
    length = 0;
    if (is_cut)
        put('\n');
    if (is_lost)
        put("lost\n");
}

static bool has_room()
{
    pollfd pipe{status_descriptor, POLLOUT, 0};
    return poll(&pipe, 1, 0) == 1;
}

/// The line goes out now or never.
static void end_line()
{
    line[length++] = '\n';
    ssize_t taken = -1;
    if (is_socket)
        taken = send(status_descriptor, line, length, MSG_DONTWAIT | MSG_NOSIGNAL);
    else if (has_room())
        taken = write(status_descriptor, line, length);
    is_lost = taken != ssize_t(length);
    if (taken > 0)
        is_cut = is_lost;  // a stream may take the beginning of a line
}

void write_status(std::initializer_list<const char *> fields)
{
    if (!has_status())
        return;
    begin_line();
    for (const char *field : fields) {
        if (field != *fields.begin())
            put('\t');
        put_escaped(field);
    }
    end_line();
}

void write_status(meaning what, uint32_t code, const char *text, const char *ending)
{
    static constexpr const char *names[] = {"information", "done", "failed", "refused", "usage", "confirm", "hidden"};
    if (!has_status())
        return;
    char head[40];
    snprintf(head, sizeof head, code != 0 ? "%s\t0x%08X\t" : "%s\t\t", names[size_t(what)], code);
    begin_line();
    put(head);
    put_escaped(text);
    put_escaped(ending);
    end_line();
}

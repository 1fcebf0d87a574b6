/// The scripted platform: every call of platform.h, played from a script and written down in a trace. It is put in
/// front of the real binary with LD_PRELOAD, together with the few libc calls that tell the tool where it runs.
///
/// SCRIPTED_PLATFORM holds "SCRIPT,TRACE", two open descriptors. A script is made of lines
///   uid N              what geteuid() answers, and getuid()
///   real N             what getuid() alone answers
///   root DIR           where /data, /ipmc, /web, /ko and /tmp are found
///   send RESULT        the next send's result
///   recv none          the next receive finds nothing
///   recv LENGTH HEX    the next receive finds this payload, under this length field
///   result CALL VALUE  the next result of any other call; 0 when nothing is said
///   signal recv NUMBER the tool is sent this signal while the receive above waits
///   signal CALL NUMBER the same during the next call of this name
///   screen file        what is said shows when it is flushed, and not at the end of each line
///   secret HEX         a text that the tool is to forget: every platform call looks for it in the tool's memory
///   modes shown        the modes that the terminal is put in stand in the trace
///   events shown       so do the calls that look up what an event-log record says
///   event SEVERITY CODE [s:HEX]  what the next record says; 0, 0 and an empty text when nothing is said
///   owner UID PATH     whose lstat() says this path is, until fchown(); the tool's own user's otherwise
///   fails CALL PATH    open(), lseek(), write() or vos_rm_filepath() of this path fails, every time
///   damaged FROM TO PATH  from byte FROM of this file on, up to TO, nothing can be read
/// and the trace of what happened, in the order in which an operator at a terminal sees it
///   send FLAGS PORT HEX | recv | sleep MICROSECONDS | screen HEX | log CLASS HEX HEX HEX HEX | call NAME ARGUMENT...
///   packed HEX MODE HEX  a file of an archive: name, mode, content
///   held HEX PLACE     a secret, or some bytes of it in a row, was found when the next call was made
///   dumpable           a secret's key is about to be read, and others may look into the process
///   mode raw | mode hidden | mode shown
/// with texts in hexadecimal behind "s:".
#include "platform/platform.h"
#include "tests/scripted/parts.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace
{

struct answer {
    bool none;
    unsigned length;
    std::vector<unsigned char> payload;
    int signal = 0;
};
struct call_value {
    std::string call;
    long value;
};

/// Kept inverted, so that memory holds it only where the tool put it.
struct secret {
    std::string hex;
    std::vector<unsigned char> inverted;
    bool may_start_trace[256] = {};  // by the character that a trace begins with
};
constexpr size_t trace_length = 6;  // so many bytes of a secret in a row are a trace of it

/// What an event-log record says.
struct event {
    unsigned severity = 0;
    unsigned long code = 0;
    bool is_described = true;
    std::string description;
};

/// What of a file cannot be read.
struct damage {
    std::string path;
    long from, to;
};

struct script {
    uid_t uid = 0, real_uid = 0;
    std::string root;
    std::vector<int> sends;
    std::vector<answer> answers;
    std::vector<call_value> results, signals;
    std::vector<secret> secrets;
    std::vector<event> events;
    std::vector<std::pair<std::string, uid_t>> owners;
    std::vector<std::pair<std::string, std::string>> failures;  // call and path
    std::vector<damage> damages;
    bool screen_is_file = false, modes_shown = false, events_shown = false;
    size_t next_send = 0, next_answer = 0, next_event = 0;
};
script *played;
int trace_fd = -1;

std::string hex(const void *bytes, size_t count)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (size_t n = 0; n < count; ++n) {
        const auto byte = static_cast<const unsigned char *>(bytes)[n];
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::string quoted(const char *text) { return text == nullptr ? "null" : "s:" + hex(text, strlen(text)); }

std::vector<unsigned char> unhex(const char *text, unsigned mask = 0)
{
    std::vector<unsigned char> bytes;
    for (text += strspn(text, " "); isxdigit(text[0]) && isxdigit(text[1]); text += 2)
        bytes.push_back(static_cast<unsigned char>(std::stoul(std::string(text, 2), nullptr, 16) ^ mask));
    return bytes;
}

void trace(const std::string &line)
{
    const std::string whole = line + "\n";
    if (trace_fd >= 0 && write(trace_fd, whole.data(), whole.size()) < 0)
        abort();
}

// The script --------------------------------------------------------------------------------------------------------

std::string read_all(int fd)
{
    std::string text;
    char part[65536];
    for (ssize_t got = 0; (got = read(fd, part, sizeof part)) > 0;)
        text.append(part, static_cast<size_t>(got));
    close(fd);
    return text;
}

secret make_secret(const std::string &hex)
{
    secret made{hex, unhex(hex.c_str(), 0xFF), {}};
    for (size_t n = 0; n == 0 || n + trace_length <= made.inverted.size(); ++n)
        made.may_start_trace[made.inverted.at(n) ^ 0xFF] = true;
    return made;
}

event make_event(const char *words)
{
    event made;
    sscanf(words, "%u %lx", &made.severity, &made.code);
    const char *text = strstr(words, "s:");
    made.is_described = text != nullptr;
    for (const unsigned char byte : unhex(made.is_described ? text + 2 : ""))
        made.description += static_cast<char>(byte);
    return made;
}

void take(script &to, const std::string &line)
{
    const size_t blank = line.find(' ');
    const std::string verb = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (verb == "uid") {
        to.uid = to.real_uid = static_cast<uid_t>(strtoul(rest.c_str(), nullptr, 10));
    } else if (verb == "real") {
        to.real_uid = static_cast<uid_t>(strtoul(rest.c_str(), nullptr, 10));
    } else if (verb == "root") {
        to.root = rest;
    } else if (verb == "send") {
        to.sends.push_back(atoi(rest.c_str()));
    } else if (verb == "recv" && rest == "none") {
        to.answers.push_back({true, 0, {}, 0});
    } else if (verb == "recv") {
        char *end = nullptr;
        const auto length = static_cast<unsigned>(strtoul(rest.c_str(), &end, 10));
        to.answers.push_back({false, length, unhex(end), 0});
    } else if (verb == "signal" && rest.substr(0, rest.find(' ')) == "recv" && !to.answers.empty()) {
        to.answers.back().signal = atoi(rest.c_str() + strlen("recv"));
    } else if (verb == "signal") {
        const size_t at = rest.find(' ');
        to.signals.push_back({rest.substr(0, at), atol(rest.c_str() + at)});
    } else if (verb == "screen" && rest == "file") {
        to.screen_is_file = true;
    } else if (verb == "secret") {
        to.secrets.push_back(make_secret(rest));
    } else if (verb == "modes" && rest == "shown") {
        to.modes_shown = true;
    } else if (verb == "events" && rest == "shown") {
        to.events_shown = true;
    } else if (verb == "event") {
        to.events.push_back(make_event(rest.c_str()));
    } else if (verb == "owner") {
        to.owners.emplace_back(rest.substr(rest.find(' ') + 1), static_cast<uid_t>(atoi(rest.c_str())));
    } else if (verb == "fails") {
        const size_t at = rest.find(' ');
        to.failures.emplace_back(rest.substr(0, at), rest.substr(at + 1));
    } else if (verb == "damaged") {
        damage made{};
        int path = 0;
        sscanf(rest.c_str(), "%ld %ld %n", &made.from, &made.to, &path);
        made.path = rest.substr(static_cast<size_t>(path));
        to.damages.push_back(made);
    } else if (verb == "result") {
        const size_t at = rest.find(' ');
        to.results.push_back({rest.substr(0, at), atol(rest.c_str() + at)});
    } else {
        fprintf(stderr, "scripted platform: what is \"%s\"?\n", line.c_str());
        abort();
    }
}

script *load(int fd)
{
    auto *loaded = new script;
    const std::string text = read_all(fd);
    for (size_t start = 0; start < text.size();) {
        const size_t end = text.find('\n', start);
        take(*loaded, text.substr(start, end - start));
        start = end + 1;
    }
    return loaded;
}

// Secrets -----------------------------------------------------------------------------------------------------------

constexpr size_t largest_mapping = 64 << 20;  // a sanitizer's own books are larger

// These read whatever is there, whatever a sanitizer thinks of it.
#define UNCHECKED __attribute__((no_sanitize("address", "undefined")))

UNCHECKED bool stands_at(const unsigned char *place, const unsigned char *inverted, size_t length)
{
    for (size_t n = 0; n < length; ++n)
        if (place[n] != static_cast<unsigned char>(~inverted[n]))
            return false;
    return true;
}

/// The first byte from here on that is not 0, as far as whole words tell.
UNCHECKED const unsigned char *past_zeros(const unsigned char *place, const unsigned char *end)
{
    for (uint64_t word = 0; place + sizeof word <= end; place += sizeof word) {
        __builtin_memcpy(&word, place, sizeof word);
        if (word != 0)
            break;
    }
    return place;
}

UNCHECKED void look_for(const secret &wanted, const unsigned char *start, const unsigned char *end, const char *name)
{
    const size_t size = wanted.inverted.size(), length = std::min(trace_length, size);
    const unsigned char *const inverted = wanted.inverted.data();
    for (const unsigned char *place = start; place + length <= end; ++place) {
        if (*place == 0)
            place = past_zeros(place, end - length);
        if (!wanted.may_start_trace[*place])
            continue;
        size_t n = 0;
        while (n + length <= size && !stands_at(place, inverted + n, length))
            ++n;
        if (n + length > size)
            continue;
        trace("held s:" + wanted.hex + " " + name + "+" + std::to_string(place - start));
        place += size - n - 1;  // behind this copy
    }
}

/// Looks through those pages of a mapping that were ever written: of what a sanitizer has mapped, few were.
void look_through(const unsigned char *start, const unsigned char *end, const char *name)
{
    static constexpr size_t smallest_page = 4096;
    static unsigned char is_there[largest_mapping / smallest_page];
    const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    if (mincore(const_cast<unsigned char *>(start), static_cast<size_t>(end - start), is_there) != 0)
        abort();
    const auto pages = static_cast<size_t>(end - start) / page;
    for (size_t first = 0, past = 0; first < pages; first = past + 1) {
        for (past = first; past < pages && (is_there[past] & 1) != 0;)
            ++past;
        if (past > first)
            for (const secret &wanted : played->secrets)
                look_for(wanted, start + first * page, start + past * page, name);
    }
}

/// Looks through all memory that can be written, what was given back included. Every platform call begins with it, and
/// it leaves the stack below alone until it has looked there.
void look_for_secrets()
{
    static char mappings[1 << 16];
    if (played == nullptr || played->secrets.empty())
        return;
    const int file = openat(AT_FDCWD, "/proc/self/maps", O_RDONLY | O_CLOEXEC);
    size_t size = 0;
    for (ssize_t got = 0; (got = read(file, mappings + size, sizeof mappings - 1 - size)) > 0;)
        size += static_cast<size_t>(got);
    close(file);
    if (size == 0 || size == sizeof mappings - 1)
        abort();
    mappings[size] = '\0';
    for (char *line = mappings; *line != '\0';) {  // START-END rwxp OFFSET DEVICE INODE NAME
        char *const line_end = strchr(line, '\n');
        *line_end = '\0';
        char *rest = nullptr;
        const auto start = strtoul(line, &rest, 16), end = strtoul(rest + 1, &rest, 16);
        if (strncmp(rest, " rw", 3) == 0 && end - start <= largest_mapping)
            look_through(reinterpret_cast<const unsigned char *>(start), reinterpret_cast<const unsigned char *>(end),
                         strrchr(line, ' ') + 1);
        line = line_end + 1;
    }
}

// Calls -------------------------------------------------------------------------------------------------------------

long next_of(std::vector<call_value> &rows, const char *call, long otherwise)
{
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        if (row->call == call) {
            const long value = row->value;
            rows.erase(row);
            return value;
        }
    }
    return otherwise;
}

long result_of(const char *call, long otherwise = 0) { return next_of(played->results, call, otherwise); }

void slept(unsigned long long microseconds)
{
    look_for_secrets();
    trace("sleep " + std::to_string(microseconds));
}

long called(const char *name, const std::string &arguments = "", long otherwise = 0)
{
    look_for_secrets();
    trace(std::string("call ") + name + (arguments.empty() ? "" : " " + arguments));
    if (const long signal_number = next_of(played->signals, name, 0); signal_number != 0)
        raise(static_cast<int>(signal_number));
    return result_of(name, otherwise);
}

std::string found_at(const char *path) { return played != nullptr ? found_in(played->root, path) : path; }

// The screen --------------------------------------------------------------------------------------------------------

ssize_t show(void *, const char *text, size_t size)
{
    size_t done = 0;
    for (ssize_t put = 0; done < size && (put = write(STDOUT_FILENO, text + done, size - done)) > 0;)
        done += static_cast<size_t>(put);
    if (done > 0)
        trace("screen " + hex(text, done));
    return static_cast<ssize_t>(done);
}

/// Standard output becomes a terminal's: line by line, what is flushed in between at once, all of it traced in order.
/// A file's shows when it is flushed.
[[gnu::constructor]] void start()
{
    const char *descriptors = getenv("SCRIPTED_PLATFORM");
    int script_fd = -1;
    if (descriptors == nullptr || sscanf(descriptors, "%d,%d", &script_fd, &trace_fd) != 2)
        return;
    fcntl(trace_fd, F_SETFD, FD_CLOEXEC);
    unsetenv("SCRIPTED_PLATFORM");
    unsetenv("LD_PRELOAD");
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // a tool that would run on for ever ends with its runner
    played = load(script_fd);
    cookie_io_functions_t screen{};
    screen.write = show;
    stdout = fopencookie(nullptr, "w", screen);
    setvbuf(stdout, nullptr, played->screen_is_file ? _IOFBF : _IOLBF, BUFSIZ);
}

}  // namespace

// libc: who runs the tool, and where the controller's folders are ---------------------------------------------------

ABI uid_t geteuid() noexcept { return played != nullptr ? played->uid : 0; }
ABI uid_t getuid() noexcept { return played != nullptr ? played->real_uid : 0; }

/// What the linker knows a call by. Where times are wider than words, headers put other routines in place of some.
static const char *linked_name(const char *name)
{
    static constexpr const char *wide[][2] = {
        {"fcntl", "__fcntl_time64"}, {"lseek", "lseek64"}, {"lstat", "__lstat64_time64"},
        {"mkostemp", "mkostemp64"},  {"open", "open64"},   {"readdir", "readdir64"},
        {"stat", "__stat64_time64"},
    };
    if (sizeof(time_t) > sizeof(long))
        for (const auto &[plain, linked] : wide)
            if (strcmp(name, plain) == 0)
                return linked;
    return name;
}

template <typename routine>
static routine real(const char *name)
{
    return reinterpret_cast<routine>(dlsym(RTLD_NEXT, linked_name(name)));
}

/// The controller's path of an open file.
static std::string path_of(int file)
{
    char link[32], path[PATH_MAX];
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path);
    const std::string place(path, length > 0 ? static_cast<size_t>(length) : 0);
    return place.rfind(played->root, 0) == 0 ? place.substr(played->root.size()) : place;
}

static bool fails(const char *call, const std::string &path)
{
    const auto &rows = played->failures;
    const bool found =
        std::find(rows.begin(), rows.end(), std::pair<std::string, std::string>(call, path)) != rows.end();
    errno = found ? EIO : errno;
    return found;
}

static bool fails(const char *call, int file)
{
    return played != nullptr && !played->failures.empty() && fails(call, path_of(file));
}

/// The file opened last of those that may have to be made, and the mode they would be made in.
static struct {
    int file = -1;
    std::string path;
    mode_t mode = 0;
} made;

ABI int open(const char *path, int flags, ...)
{
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    if (played != nullptr && fails("open", std::string(path)))
        return -1;
    const int file = real<int (*)(const char *, int, ...)>("open")(found_at(path).c_str(), flags, mode);
    if (played != nullptr && (flags & O_CREAT) != 0)
        made = {file, path, mode};
    return file;
}

ABI int mkostemp(char *path, int flags)
{
    std::string place = found_at(path);
    const int file = real<int (*)(char *, int)>("mkostemp")(place.data(), flags);
    memcpy(path, place.c_str() + place.size() - strlen(path), strlen(path));
    return file;
}

ABI int rename(const char *from, const char *to) noexcept
{
    return real<int (*)(const char *, const char *)>("rename")(found_at(from).c_str(), found_at(to).c_str());
}

ABI int unlink(const char *path) noexcept { return real<int (*)(const char *)>("unlink")(found_at(path).c_str()); }

/// What is there belongs to the tool's user, unless the script says otherwise.
ABI int lstat(const char *path, struct stat *about) noexcept
{
    const int result = real<int (*)(const char *, struct stat *)>("lstat")(found_at(path).c_str(), about);
    if (result != 0 || played == nullptr)
        return result;
    about->st_uid = played->uid;
    for (const auto &[owned, owner] : played->owners)
        if (owned == path)
            about->st_uid = owner;
    return 0;
}

ABI int fchown(int file, uid_t owner, gid_t group) noexcept
{
    if (played == nullptr)
        return real<int (*)(int, uid_t, gid_t)>("fchown")(file, owner, group);
    const std::string path = path_of(file);
    if (result_of("fchown") != 0) {
        errno = EPERM;
        return -1;
    }
    auto &owners = played->owners;
    owners.erase(std::remove_if(owners.begin(), owners.end(), [&](const auto &row) { return row.first == path; }),
                 owners.end());
    if (owner != played->uid)
        owners.emplace_back(path, owner);
    return 0;
}

ABI int stat(const char *path, struct stat *about) noexcept
{
    return real<int (*)(const char *, struct stat *)>("stat")(found_at(path).c_str(), about);
}

/// Reads up to the damage, and fails there.
ABI ssize_t read(int file, void *to, size_t size)
{
    static const auto read_on = real<ssize_t (*)(int, void *, size_t)>("read");
    if (played == nullptr || played->damages.empty())
        return read_on(file, to, size);
    const off_t at = real<off_t (*)(int, off_t, int)>("lseek")(file, 0, SEEK_CUR);
    const std::string path = path_of(file);
    for (const damage &found : played->damages) {
        if (found.path != path || at + static_cast<off_t>(size) <= found.from || at >= found.to)
            continue;
        if (at >= found.from) {
            errno = EIO;
            return -1;
        }
        size = static_cast<size_t>(found.from - at);
    }
    return read_on(file, to, size);
}

/// Traced with the mode that the folder got.
ABI int mkdir(const char *path, mode_t mode) noexcept
{
    const std::string place = found_at(path);
    if (result_of("mkdir") != 0 || real<int (*)(const char *, mode_t)>("mkdir")(place.c_str(), mode) != 0) {
        trace("call mkdir " + quoted(path) + " failed");
        return -1;
    }
    struct stat about {
    };
    char got[16] = "";
    if (stat(place.c_str(), &about) == 0)
        snprintf(got, sizeof got, " %o", about.st_mode & 07777);
    trace("call mkdir " + quoted(path) + got);
    return 0;
}

/// The folder opened last: it is listed from the last name in the alphabet to the first, whatever the disk's order.
static struct {
    DIR *folder = nullptr;
    std::vector<dirent> entries;
} listed;

ABI DIR *opendir(const char *path)
{
    DIR *folder = real<DIR *(*)(const char *)>("opendir")(found_at(path).c_str());
    listed = {folder, sorted_entries(folder, real<dirent *(*)(DIR *)>("readdir"))};
    return folder;
}

/// The entry before is overwritten, as a real one may be.
ABI dirent *readdir(DIR *folder)
{
    static dirent entry;
    if (folder != listed.folder)
        return real<dirent *(*)(DIR *)>("readdir")(folder);
    if (listed.entries.empty())
        return nullptr;
    entry = listed.entries.back();
    listed.entries.pop_back();
    return &entry;
}

ABI int closedir(DIR *folder)
{
    if (folder == listed.folder)
        listed = {};
    return real<int (*)(DIR *)>("closedir")(folder);
}

ABI off_t lseek(int file, off_t offset, int from) noexcept
{
    return fails("lseek", file) ? -1 : real<off_t (*)(int, off_t, int)>("lseek")(file, offset, from);
}

ABI ssize_t write(int file, const void *from, size_t size)
{
    return fails("write", file) ? -1 : real<ssize_t (*)(int, const void *, size_t)>("write")(file, from, size);
}

// libc: the add-user lock -------------------------------------------------------------------------------------------

static int locked_file = -1;

/// The result: a negative one is the error that the lock is refused with; 1 grants it once its holder has removed the
/// file, 2 once another run has made a new one besides.
static int lock(int file, const struct flock *range)
{
    const bool is_whole = file == made.file && range->l_whence == SEEK_SET && (fcntl(file, F_GETFL) & O_RDWR) != 0;
    const char *kind = !is_whole ? "otherwise" : range->l_type == F_WRLCK ? "write" : "read";
    char mode[16];
    snprintf(mode, sizeof mode, " %o ", made.mode);
    const long result = called("lock", quoted(made.path.c_str()) + mode + kind + " " + std::to_string(range->l_start) +
                                           " " + std::to_string(range->l_len));
    locked_file = file;
    if (result > 0)
        unlink(made.path.c_str());
    if (result > 1)
        std::ofstream(found_at(made.path.c_str()));
    errno = result < 0 ? static_cast<int>(-result) : errno;
    return result < 0 ? -1 : 0;
}

ABI int fcntl(int file, int command, ...)
{
    va_list values;
    va_start(values, command);
    void *const value = va_arg(values, void *);
    va_end(values);
    if (played != nullptr && command == F_SETLKW)
        return lock(file, static_cast<struct flock *>(value));
    if (played != nullptr && command == F_GETLK) {
        if (const long held = result_of("lock_held"); held != 0) {
            static_cast<struct flock *>(value)->l_type = held == 1 ? F_RDLCK : F_WRLCK;
            return 0;
        }
    }
    return real<int (*)(int, int, ...)>("fcntl")(file, command, value);
}

ABI int close(int file)
{
    if (file >= 0 && file == locked_file) {
        called("unlock");
        locked_file = -1;
    }
    return real<int (*)(int)>("close")(file);
}

// libc: the terminal ------------------------------------------------------------------------------------------------

/// Says so in a way that a signal's handler may.
static void note(const char *line)
{
    if (write(trace_fd, line, strlen(line)) < 0)
        abort();
}

ABI int tcgetattr(int file, termios *mode) noexcept
{
    static const auto get = real<int (*)(int, termios *)>("tcgetattr");
    return played != nullptr && result_of("tcgetattr") != 0 ? -1 : get(file, mode);
}

ABI int tcsetattr(int file, int when, const termios *mode) noexcept
{
    static const auto set = real<int (*)(int, int, const termios *)>("tcsetattr");
    const bool is_raw = (mode->c_lflag & ICANON) == 0, is_hidden = (mode->c_lflag & ECHO) == 0;
    if (played == nullptr)
        return set(file, when, mode);
    if (is_raw && !played->secrets.empty() && prctl(PR_GET_DUMPABLE) != 0)
        note("dumpable\n");
    if (result_of("tcsetattr") != 0)
        return -1;
    const int result = set(file, when, mode);
    if (played->modes_shown)
        note(is_raw ? "mode raw\n" : is_hidden ? "mode hidden\n" : "mode shown\n");
    return result;
}

// Message library ---------------------------------------------------------------------------------------------------

ABI int ipc_no_listen_init(int port)
{
    const int socket = dup(trace_fd);  // where a library's own socket would lie: never in a standard descriptor's place
    if (socket <= STDERR_FILENO)
        trace("call socket " + std::to_string(socket));
    close(socket);
    return static_cast<int>(called("ipc_no_listen_init", std::to_string(port)));
}
ABI void ipc_exit() { called("ipc_exit"); }

ABI int ipc_msg_send(const void *message, unsigned int length, unsigned int flags, unsigned int port)
{
    look_for_secrets();
    trace("send " + std::to_string(flags) + " " + std::to_string(port) + " " + hex(message, length));
    return played->next_send < played->sends.size() ? played->sends[played->next_send++] : -1;
}

ABI int ipc_msg_recv(void *message)
{
    look_for_secrets();
    trace("recv");
    if (played->next_answer >= played->answers.size())
        return -1;
    const answer &next = played->answers[played->next_answer++];
    if (next.signal != 0)
        raise(next.signal);
    if (next.none)
        return -1;
    auto *record = static_cast<unsigned char *>(message);
    memset(record, 0xEE, 32);  // a header full of what the tool must not look at
    record[8] = static_cast<unsigned char>(next.length);
    record[9] = static_cast<unsigned char>(next.length >> 8);
    memcpy(record + 32, next.payload.data(), std::min<size_t>(next.payload.size(), 1024));
    return 7;  // anything but -1
}

// OS abstraction ----------------------------------------------------------------------------------------------------

ABI void vos_task_delay(unsigned int milliseconds) { slept(1000ULL * milliseconds); }
ABI void vos_task_delay_us(unsigned int microseconds) { slept(microseconds); }

/// A result that no script gives: the call does what it is asked for.
static constexpr long unasked = LONG_MIN;

static bool is_unpacker(const char *path) { return strcmp(path, "/bin/tar") == 0; }

static int run(const char *name, const char *path, char *const argv[])
{
    std::string words = quoted(path);
    for (int n = 0; argv[n] != nullptr; ++n)
        words += " " + quoted(argv[n]);
    const long result = called(name, words, is_unpacker(path) ? unasked : 0);
    return result == unasked ? unpack(played->root, argv) : static_cast<int>(result);
}
ABI int vos_system(const char *path, char *const argv[]) { return run("vos_system", path, argv); }
ABI int vos_environ_system(const char *path, char *const argv[]) { return run("vos_environ_system", path, argv); }

ABI long vos_get_file_length(const char *path)
{
    struct stat about {
    };
    const bool exists = stat(found_at(path).c_str(), &about) == 0;
    return called("vos_get_file_length", quoted(path), exists ? static_cast<long>(about.st_size) : -1);
}

ABI int vos_get_file_name(const char *path, char *name, size_t name_size)
{
    const char *slash = strrchr(path, '/');
    return vos_strncpy(name, name_size, slash != nullptr ? slash + 1 : path, name_size);
}

// These two follow links wherever one can, as nothing keeps a board's from doing.

ABI int vos_file_copy(const char *to, const char *from)
{
    const long result = called("vos_file_copy", quoted(to) + " " + quoted(from), unasked);
    std::error_code failure;
    if (result == unasked)
        std::filesystem::copy_file(found_at(from), found_at(to), std::filesystem::copy_options::overwrite_existing,
                                   failure);
    return result == unasked ? (failure ? -1 : 0) : static_cast<int>(result);
}

ABI int vos_rm_filepath(const char *path)
{
    long result = called("vos_rm_filepath", quoted(path), unasked);
    if (fails("vos_rm_filepath", std::string(path)))
        result = -1;
    std::error_code failure;
    if (result == unasked)
        std::filesystem::remove_all(found_at(path), failure);
    return result == unasked ? (failure ? -1 : 0) : static_cast<int>(result);
}

ABI int vos_check_username(const char *name) { return static_cast<int>(called("vos_check_username", quoted(name))); }
ABI int vos_check_incorrect_char(const char *text, const char *characters)
{
    return static_cast<int>(called("vos_check_incorrect_char", quoted(text) + " " + quoted(characters)));
}
ABI unsigned int vos_rand() { return static_cast<unsigned>(called("vos_rand")); }

ABI int vos_zentro_log(unsigned int log_class, const char *user, const char *origin, const char *module,
                       const char *record)
{
    look_for_secrets();
    trace("log " + std::to_string(log_class) + " " + quoted(user) + " " + quoted(origin) + " " + quoted(module) + " " +
          quoted(record));
    return static_cast<int>(result_of("vos_zentro_log"));
}

// Configuration parser ----------------------------------------------------------------------------------------------

ABI void *CfgFileOpenReadOnly(const char *path)
{
    called("CfgFileOpenReadOnly", quoted(path));
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    return file < 0 ? nullptr : new cfg_file{read_all(file), ""};
}

ABI long KeySearch(void *file, long start, const char *key, const char *separator, char **value, int *found)
{
    called("KeySearch", std::to_string(start) + " " + quoted(key));
    return static_cast<cfg_file *>(file)->find(start, key, separator, value, found);
}

ABI void CfgFileClose(void *file)
{
    called("CfgFileClose");
    delete static_cast<cfg_file *>(file);
}

// Events, archive ---------------------------------------------------------------------------------------------------

/// The look-ups of a long log would be in the way.
static int looked_up(const char *call, const std::string &arguments)
{
    return static_cast<int>(played->events_shown ? called(call, arguments) : result_of(call));
}

static event parsed;  // the last one

ABI int event_parse_init(const char *path) { return static_cast<int>(called("event_parse_init", quoted(path), 1)); }

ABI int event_parse(const unsigned char record[16], unsigned int *severity, const char **description)
{
    parsed = played->next_event < played->events.size() ? played->events[played->next_event++] : event{};
    *severity = parsed.severity;
    *description = parsed.is_described ? parsed.description.c_str() : nullptr;
    return looked_up("event_parse", hex(record, played->events_shown ? 16 : 0));
}

ABI unsigned long event_get_code(const unsigned char record[16])
{
    looked_up("event_get_code", hex(record, played->events_shown ? 16 : 0));
    return parsed.code;
}

ABI const char *get_sensor_type_name(unsigned char sensor_type)
{
    looked_up("get_sensor_type_name", std::to_string(sensor_type));
    return type_name(sensor_type);
}

/// The files are traced, and no archive is made.
ABI int tar_gzip_pack(const char *directory, const char *pattern, const char *archive)
{
    const long result = called("tar_gzip_pack", quoted(directory) + " " + quoted(pattern) + " " + quoted(archive));
    std::vector<std::filesystem::directory_entry> files;
    std::error_code failure;
    for (const auto &file : std::filesystem::directory_iterator(found_at(directory), failure))
        files.push_back(file);
    std::sort(files.begin(), files.end());
    for (const auto &file : files) {
        const std::string content = read_all(open(file.path().c_str(), O_RDONLY | O_CLOEXEC));
        char mode[16];
        snprintf(mode, sizeof mode, "%o", static_cast<unsigned>(file.status().permissions()));
        trace("packed " + quoted(file.path().filename().c_str()) + " " + mode +
              " s:" + hex(content.data(), content.size()));
    }
    return static_cast<int>(result);
}

// Board access ------------------------------------------------------------------------------------------------------

ABI int cpld_init() { return static_cast<int>(called("cpld_init")); }
ABI int fpga_Init() { return static_cast<int>(called("fpga_Init")); }
ABI void cpld_clean() { called("cpld_clean"); }

/// The tool's last call. What a build that counts its lines writes down at the end is no part of the play.
ABI void fpga_clean()
{
    called("fpga_clean");
    delete played;
    played = nullptr;
}

ABI int get_mac_num() { return static_cast<int>(called("get_mac_num")); }

/// What is read is all "E"; nothing is when the call fails.
ABI int i2c_write_read(int bus, int address, const unsigned char *write, int write_length, unsigned char *read,
                       int read_length, int flags)
{
    const int result =
        static_cast<int>(called("i2c_write_read", std::to_string(bus) + " " + std::to_string(address) + " " +
                                                      hex(write, static_cast<size_t>(write_length)) + " " +
                                                      std::to_string(read_length) + " " + std::to_string(flags)));
    if (result >= 0)
        memset(read, 'E', static_cast<size_t>(read_length));
    return result;
}

ABI int get_bios(const char *path, unsigned int length)
{
    return static_cast<int>(called("get_bios", quoted(path) + " " + std::to_string(length)));
}
ABI int set_bios_owner(int owner) { return static_cast<int>(called("set_bios_owner", std::to_string(owner))); }

ABI int spi_flash_copy(const char *device, unsigned int device_offset, const char *file, unsigned int file_offset,
                       unsigned int length, int flag1, int flag2)
{
    return static_cast<int>(called("spi_flash_copy", quoted(device) + " " + std::to_string(device_offset) + " " +
                                                         quoted(file) + " " + std::to_string(file_offset) + " " +
                                                         std::to_string(length) + " " + std::to_string(flag1) + " " +
                                                         std::to_string(flag2)));
}
ABI int set_bios_print_flag(int on) { return static_cast<int>(called("set_bios_print_flag", std::to_string(on))); }

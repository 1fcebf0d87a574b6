#include "tests/fuzz/process.h"

#include "tests/fuzz/platform.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csetjmp>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

static const surroundings *played;  // null: what is called below is meant for this process
static jmp_buf at_exit;
static termios mode;
static std::vector<void *> heap;  // what the tool has taken and not given back

// The tool's variables ----------------------------------------------------------------------------------------------

/// What the address sanitizer is told of each variable of a file (sanitizer interface 8, compiler-rt).
struct variable {
    char *begin;
    size_t size, size_with_redzone;
    const char *name, *file;
    size_t has_dynamic_init;
    const void *location;
    size_t odr_indicator;
};
struct variables_of_file {
    const variable *first;
    size_t count;
};
static variables_of_file files[256];
static size_t file_count;

extern "C" {
void __real___asan_register_globals(const variable *first, size_t count);
void __wrap___asan_register_globals(const variable *first, size_t count)
{
    if (file_count < std::size(files))
        files[file_count++] = {first, count};
    __real___asan_register_globals(first, count);
}
}

struct saved_variable {
    char *place;
    std::string content;
};

static bool is_of_the_fuzzer(const char *file) { return strstr(file, "/tests/fuzz/") != nullptr; }

/// The sanitizer forbids to look at what it was told.
[[gnu::no_sanitize_address]] static std::vector<saved_variable> save_variables()
{
    check(file_count < std::size(files));
    std::vector<saved_variable> saved;
    for (size_t n = 0; n < file_count; ++n) {
        for (size_t v = 0; v < files[n].count; ++v) {
            const variable &one = files[n].first[v];
            if (!is_of_the_fuzzer(one.file))
                saved.push_back({one.begin, std::string(one.begin, one.size)});
        }
    }
    return saved;
}

/// Constants lie among them, and are not written.
static void restore(const std::vector<saved_variable> &variables)
{
    for (const auto &[place, content] : variables)
        if (memcmp(place, content.data(), content.size()) != 0)
            memcpy(place, content.data(), content.size());
}

// Folders -----------------------------------------------------------------------------------------------------------

static constexpr const char *folders[] = {"/data/share/sel", "/ipmc/usr", "/tmp", "/ko", "/web"};

/// Where the controller's files lie: in memory where it can be, and only while the fuzzer runs.
static const std::string &root()
{
    static const struct folder {
        std::string path = access("/dev/shm", W_OK) == 0 ? "/dev/shm/fuzz.XXXXXX" : "/tmp/fuzz.XXXXXX";
        folder() { check(mkdtemp(path.data()) != nullptr); }
        ~folder()
        {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
    } own;
    return own.path;
}

static std::string found_at(const char *path)
{
    return played == nullptr || strncmp(path, root().c_str(), root().size()) == 0 ? path : root() + "/" + path;
}

static bool in_use = true;  // since the folders were made something may have been put into them

static void set_up(const std::vector<surroundings::file> &contents)
{
    if (in_use) {
        for (const auto &entry : std::filesystem::directory_iterator(root()))
            std::filesystem::remove_all(entry);
        for (const char *folder : folders)
            std::filesystem::create_directories(root() + folder);
    }
    in_use = !contents.empty();
    for (const auto &[path, content] : contents)
        check(bool(std::ofstream(root() + path).write(content.data(), std::streamsize(content.size()))));
}

std::string content_of(const char *path)
{
    std::ifstream file(root() + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// libc, while the tool is played ------------------------------------------------------------------------------------

#define WRAPPED(result, name, ...)                                                                                     \
    result __real_##name(__VA_ARGS__);                                                                                 \
    result __wrap_##name(__VA_ARGS__)

extern "C" {
int __real_open(const char *path, int flags, ...);
int __wrap_open(const char *path, int flags, mode_t mode_of_new)
{
    in_use = in_use || (flags & O_CREAT) != 0;
    return __real_open(found_at(path).c_str(), flags, mode_of_new);
}
int __real_openat(int folder, const char *path, int flags, ...);
int __wrap_openat(int folder, const char *path, int flags, mode_t mode_of_new)
{
    return __real_openat(folder, folder == AT_FDCWD ? found_at(path).c_str() : path, flags, mode_of_new);
}
WRAPPED(int, mkostemp, char *path, int flags)
{
    in_use = true;
    std::string own = found_at(path);
    const int file = __real_mkostemp(own.data(), flags);
    std::copy_n(own.end() - 6, 6, path + strlen(path) - 6);
    return file;
}
WRAPPED(int, stat, const char *path, struct stat *about) { return __real_stat(found_at(path).c_str(), about); }
WRAPPED(int, lstat, const char *path, struct stat *about) { return __real_lstat(found_at(path).c_str(), about); }
WRAPPED(int, mkdir, const char *path, mode_t rights)
{
    in_use = true;
    return __real_mkdir(found_at(path).c_str(), rights);
}
WRAPPED(int, unlink, const char *path) { return __real_unlink(found_at(path).c_str()); }
WRAPPED(int, unlinkat, int folder, const char *path, int flags)
{
    return __real_unlinkat(folder, folder == AT_FDCWD ? found_at(path).c_str() : path, flags);
}
WRAPPED(int, rename, const char *from, const char *to)
{
    return __real_rename(found_at(from).c_str(), found_at(to).c_str());
}
WRAPPED(DIR *, opendir, const char *path) { return __real_opendir(found_at(path).c_str()); }

WRAPPED(uid_t, geteuid) { return played != nullptr ? played->user : __real_geteuid(); }
WRAPPED(uid_t, getuid) { return played != nullptr ? played->user : __real_getuid(); }
WRAPPED(char *, getenv, const char *name)
{
    if (played == nullptr)
        return __real_getenv(name);
    const std::string start = std::string(name) + "=";
    for (const std::string &entry : played->environment)
        if (entry.starts_with(start))
            return const_cast<char *>(entry.c_str()) + start.size();
    return nullptr;
}

static bool has_terminal() { return played != nullptr && !played->keys.empty(); }

WRAPPED(int, isatty, int file) { return file == STDIN_FILENO && has_terminal() ? 1 : __real_isatty(file); }
WRAPPED(int, tcgetattr, int file, termios *now)
{
    if (!has_terminal())
        return __real_tcgetattr(file, now);
    *now = mode;
    return 0;
}
WRAPPED(int, tcsetattr, int file, int when, const termios *wanted)
{
    if (!has_terminal())
        return __real_tcsetattr(file, when, wanted);
    mode = *wanted;
    return 0;
}

// Signals stay the fuzzer's.
WRAPPED(sighandler_t, signal, int number, sighandler_t handler)
{
    return played != nullptr ? SIG_DFL : __real_signal(number, handler);
}
WRAPPED(int, sigaction, int number, const struct sigaction *wanted, struct sigaction *before)
{
    if (played == nullptr)
        return __real_sigaction(number, wanted, before);
    if (before != nullptr)
        *before = {};
    return 0;
}
WRAPPED(int, sigprocmask, int how, const sigset_t *set, sigset_t *before)
{
    if (played == nullptr)
        return __real_sigprocmask(how, set, before);
    return before != nullptr ? sigemptyset(before) : 0;
}
int __wrap_prctl(int, ...) { return 0; }
mode_t __wrap_umask(mode_t) { return 022; }

void __real_exit(int status);
void __wrap_exit(int status)
{
    if (played != nullptr)
        longjmp(at_exit, 1);
    __real_exit(status);
}

static void *taken(void *memory)
{
    if (played != nullptr && memory != nullptr)
        heap.push_back(memory);
    return memory;
}
WRAPPED(void *, malloc, size_t size) { return taken(__real_malloc(size)); }
WRAPPED(void *, calloc, size_t count, size_t size) { return taken(__real_calloc(count, size)); }
WRAPPED(void, free, void *memory)
{
    if (const auto place = std::find(heap.rbegin(), heap.rend(), memory); place != heap.rend())
        heap.erase(std::next(place).base());
    __real_free(memory);
}
}

// A process ---------------------------------------------------------------------------------------------------------

/// Standard input becomes a file that holds the keys.
static void type(const std::string &keys)
{
    static const int typed = memfd_create("keys", 0);
    check(ftruncate(typed, 0) == 0 && pwrite(typed, keys.data(), keys.size(), 0) == ssize_t(keys.size()));
    check(dup2(typed, STDIN_FILENO) == STDIN_FILENO && lseek(STDIN_FILENO, 0, SEEK_SET) == 0);
    clearerr(stdin);
}

static int lowest_free_descriptor()
{
    const int lowest = dup(STDERR_FILENO);
    close(lowest);
    return lowest;
}

static termios usual_mode()
{
    termios usual{};
    usual.c_lflag = ICANON | ECHO | ECHONL | ISIG;
    return usual;
}

static void give_back_memory()
{
    while (!heap.empty())
        free(heap.back());
}

void play(const surroundings &found, const std::function<void()> &routine)
{
    static const std::vector<saved_variable> variables = save_variables();
    const termios mode_before = mode = usual_mode();
    set_up(found.files);
    type(found.keys);
    const int free_before = lowest_free_descriptor();
    optind = 0;  // getopt starts anew
    opterr = 0;
    errno = 0;
    played = &found;
    if (setjmp(at_exit) == 0)
        routine();
    played = nullptr;
    check(lowest_free_descriptor() == free_before);
    check(memcmp(&mode, &mode_before, sizeof mode) == 0);
    check(access((root() + "/ipmc/usr/adduser_mutex").c_str(), F_OK) != 0);
    give_back_memory();
    restore(variables);
}

// The tool itself: its main() under another name.
#define main main_of_the_tool
#include "cli/main.cpp"
#undef main

void run_tool(const surroundings &found, std::vector<std::string> words)
{
    words.insert(words.begin(), "cfgtool");
    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    play(found, [&] { main_of_the_tool(int(words.size()), argv.data()); });
}

#include "verdict/document.h"
#include "verdict/run.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static constexpr int status_no_work = 4, status_of_signal = 128;

static constexpr char version[] = "cfgtool-verdict " CFGTOOL_VERSION "\n";
static constexpr char help[] =
    "Usage: cfgtool-verdict [OPTION ...] [--] [-t target] -d dataitem [-v value ...]\n"
    "Runs cfgtool with these arguments and reports how that ended, as one JSON document and as its exit status.\n"
    "  --json FILE   write the document to FILE, and the text of cfgtool to standard output;\n"
    "                otherwise the document goes to standard output and the text to standard error\n"
    "  --yes         answer every question with y; without it and without a terminal the answer is n\n"
    "  --secrets FD  read hidden words from this descriptor, one a line; not from a terminal\n"
    "  --timeout S   end cfgtool after S seconds\n"
    "  --tool PATH   run this program; otherwise cfgtool beside cfgtool-verdict, or from the PATH\n"
    "  --version     show the version\n"
    "Exit status:\n"
    "  0            done\n"
    "  1            failed: something was tried and did not succeed, or only in part\n"
    "  2            refused: nothing was tried, and cfgtool said why\n"
    "  3            unknown: cfgtool did not say how it ended\n"
    "  4            cfgtool could not be run, the document not be written, or an option is wrong\n"
    "  5            no answer from the controller\n"
    "  6            timed out\n"
    "  128 + N      signal N ended cfgtool\n";

/// Control characters, which a file name may have, show escaped; those of the second kind, U+0080 to U+009F, are C2 80
/// to C2 9F in UTF-8.
static void print_name(FILE *out, const char *name)
{
    for (bool is_second = false; *name != '\0'; ++name) {
        const auto byte = static_cast<unsigned char>(*name);
        const auto next = static_cast<unsigned char>(name[1]);
        const bool is_first = byte == 0xC2 && next >= 0x80 && next <= 0x9F;
        fprintf(out, byte < 0x20 || byte == 0x7F || is_first || is_second ? "\\x%02X" : "%c", byte);
        is_second = is_first;
    }
}

static int fail(const char *what, const char *why)
{
    fputs("cfgtool-verdict: ", stderr);
    print_name(stderr, what);
    fprintf(stderr, ": %s\n", why);
    return status_no_work;
}

// Options -----------------------------------------------------------------------------------------------------------

struct options {
    const char *json = nullptr, *tool = nullptr;
    bool help = false, version = false, answers_yes = false;
    int secrets = -1;
    unsigned timeout_s = 0;
    char **words;  // the tool's own, which follow the options
};

/// -1 = not a decimal number from 0 to `most`.
static long number_of(const char *text, long most)
{
    char *end;
    if (*text < '0' || *text > '9')
        return -1;
    const long number = strtol(text, &end, 10);
    return *end == '\0' && number <= most ? number : -1;
}

/// Null, or why hidden words cannot be read from there.
static const char *take_secrets(const char *text, int &descriptor)
{
    descriptor = int(number_of(text, INT_MAX));
    const int mode = descriptor >= 0 ? fcntl(descriptor, F_GETFL) : -1;
    if (mode == -1 || (mode & O_ACCMODE) == O_WRONLY)
        return "not a descriptor that can be read";
    if (isatty(descriptor) == 1)
        return "hidden words are not read from a terminal: leave this option out and type them";
    return nullptr;
}

/// Null, or what is wrong with the value of an option that has one.
static const char *take_value(std::string_view name, const char *value, options &taken)
{
    static constexpr long longest_timeout_s = 10'000'000;
    if (name == "--json") {
        taken.json = value;
    } else if (name == "--tool") {
        taken.tool = value;
    } else if (name == "--secrets") {
        return take_secrets(value, taken.secrets);
    } else {
        const long seconds = number_of(value, longest_timeout_s);
        if (seconds < 1)
            return "a number of seconds is needed";
        taken.timeout_s = unsigned(seconds);
    }
    return nullptr;
}

/// False = said why not.
static bool take_options(char **words, options &taken)
{
    static constexpr std::string_view with_value[] = {"--json", "--tool", "--secrets", "--timeout"};
    for (; words[0] != nullptr && strncmp(words[0], "--", 2) == 0; ++words) {
        const std::string_view name = words[0];
        if (name == "--") {
            ++words;
            break;
        }
        taken.help |= name == "--help";
        taken.version |= name == "--version";
        taken.answers_yes |= name == "--yes";
        if (name == "--help" || name == "--version")
            return true;
        if (name == "--yes")
            continue;
        const char *complaint = "unknown option; see cfgtool-verdict --help";
        if (std::find(std::begin(with_value), std::end(with_value), name) != std::end(with_value)) {
            ++words;
            complaint = words[0] != nullptr ? take_value(name, words[0], taken) : "a value is missing";
        }
        if (complaint != nullptr) {
            fail(name.data(), complaint);
            return false;
        }
    }
    taken.words = words;
    return true;
}

// The tool ----------------------------------------------------------------------------------------------------------

/// The one beside us, else its bare name, to be looked for where programs are.
static const char *find_tool()
{
    static constexpr char name[] = "cfgtool";
    static char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - sizeof name);
    if (length <= 0)
        return name;
    path[length] = '\0';
    char *const own_name = strrchr(path, '/');
    if (own_name == nullptr)
        return name;
    memcpy(own_name + 1, name, sizeof name);
    return access(path, X_OK) == 0 ? path : name;
}

static int exit_status(const ending &end, verdict result)
{
    return WIFSIGNALED(end.status) && !end.timed_out ? status_of_signal + WTERMSIG(end.status) : int(result);
}

static int run(const options &taken, FILE *document)
{
    static status_reader said;
    static char tool_name[] = "cfgtool";
    char **const words = taken.words - 1;  // ours or an option's, in whose place the tool's own name goes
    words[0] = tool_name;
    const orders given{.program = taken.tool != nullptr ? taken.tool : find_tool(),
                       .words = words,
                       .screen = taken.json != nullptr ? STDOUT_FILENO : STDERR_FILENO,
                       .answers_yes = taken.answers_yes,
                       .secrets = taken.secrets,
                       .timeout_s = taken.timeout_s};
    if (given.secrets >= 0) {
        prctl(PR_SET_DUMPABLE, 0);
        fcntl(given.secrets, F_SETFD, FD_CLOEXEC);
    }
    const ending end = run_tool(given, said);
    if (end.error != 0)
        return fail(given.program, strerror(end.error));
    if (end.why != nullptr)
        fail("--secrets", end.why);

    const bool ran = WIFEXITED(end.status) && WEXITSTATUS(end.status) == 0;
    const verdict found = said.finish(ran);
    const verdict result = end.timed_out ? verdict::timed_out : found;
    if (taken.json != nullptr)
        (void)!ftruncate(fileno(document), 0);
    print_document(document, {taken.words, result, WIFSIGNALED(end.status) ? WTERMSIG(end.status) : 0}, said);
    return exit_status(end, result);
}

// -------------------------------------------------------------------------------------------------------------------

/// A closed standard descriptor would be taken by the next file or pipe.
static void fill_standard_descriptors()
{
    for (int descriptor = 0; descriptor <= 2; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1)
            (void)open("/dev/null", O_RDWR);
}

/// Opened before anything is done; what it held stays until the new document is written. A link could lead to any file,
/// and a FIFO would wait for a reader: both may be somebody else's. Null = said why not.
static FILE *open_document(const char *path)
{
    struct stat about;
    if (lstat(path, &about) == 0 && (S_ISLNK(about.st_mode) || S_ISFIFO(about.st_mode))) {
        fail(path, "a link or a FIFO is not written to");
        return nullptr;
    }
    const int file = open(path, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0666);
    FILE *const document = file >= 0 ? fdopen(file, "w") : nullptr;
    if (document == nullptr)
        fail(path, strerror(errno));
    return document;
}

int main(int, char **argv)
{
    fill_standard_descriptors();
    options taken{};
    if (!take_options(argv + 1, taken))
        return status_no_work;
    if (taken.help || taken.version)
        return fputs(taken.help ? help : version, stdout) >= 0 && fflush(stdout) == 0 ? 0 : status_no_work;
    FILE *const document = taken.json != nullptr ? open_document(taken.json) : stdout;
    if (document == nullptr)
        return status_no_work;

    const int status = run(taken, document);
    if (status == status_no_work)
        return status;
    if (fflush(document) != 0)
        return fail("the document", strerror(errno));
    return status;
}

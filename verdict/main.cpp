#include "verdict/document.h"
#include "verdict/running.h"
#include "verdict/table.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static constexpr int status_no_work = 4, status_of_signal = 128;

static constexpr char help[] =
    "Usage: cfgtool-verdict [--json FILE] [--tool PATH] [--] [-t target] -d dataitem [-v value ...]\n"
    "Runs cfgtool with these words and tells how that ended, as one JSON document and as its exit status.\n"
    "  --json FILE  write the document to FILE, and the text of cfgtool to standard output;\n"
    "               otherwise the document goes to standard output and the text to standard error\n"
    "  --tool PATH  run this program; otherwise cfgtool beside cfgtool-verdict, or where programs are looked for\n"
    "Exit status:\n"
    "  0            done\n"
    "  1            failed: something was tried and did not succeed, or not wholly\n"
    "  2            refused: nothing was tried, and cfgtool said why\n"
    "  3            unknown: cfgtool said nothing that tells\n"
    "  4            cfgtool could not be run, the document not be written, or an option is unknown\n"
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
    bool help = false;
    char **words;  // the tool's, behind our own
};

/// False = told why not.
static bool take_options(char **words, options &taken)
{
    for (; words[0] != nullptr && strncmp(words[0], "--", 2) == 0; words += 2) {
        if (words[0][2] == '\0') {
            ++words;
            break;
        }
        const char **const value = strcmp(words[0], "--json") == 0   ? &taken.json
                                   : strcmp(words[0], "--tool") == 0 ? &taken.tool
                                                                     : nullptr;
        taken.help = strcmp(words[0], "--help") == 0;
        if (taken.help)
            return true;
        if (value == nullptr || words[1] == nullptr) {
            fail(words[0],
                 value == nullptr ? "unknown option; see cfgtool-verdict --help" : "a word is missing behind it");
            return false;
        }
        *value = words[1];
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
    return WIFSIGNALED(end.status) ? status_of_signal + WTERMSIG(end.status) : int(result);
}

static int run(const options &taken, FILE *document)
{
    static reading said;
    static char tool_name[] = "cfgtool";
    char **const words = taken.words - 1;  // ours or an option's, in whose place the tool's own name goes
    words[0] = tool_name;
    const char *const program = taken.tool != nullptr ? taken.tool : find_tool();
    const ending end = run_tool(program, words, taken.json != nullptr ? STDOUT_FILENO : STDERR_FILENO, said);
    if (end.error != 0)
        return fail(program, strerror(end.error));

    const command *const which = find_command(taken.words);
    const bool ran = WIFEXITED(end.status) && WEXITSTATUS(end.status) == 0;
    const verdict result = said.finish(ran, which);
    if (taken.json != nullptr)
        (void)!ftruncate(fileno(document), 0);  // what can be longer than what comes can be cut
    print_document(document, {taken.words, which, result, WIFSIGNALED(end.status) ? WTERMSIG(end.status) : 0}, said);
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

/// Opened before anything is done; what it held is there until the new document is. A link could lead to any file, and
/// a FIFO would wait for a reader: both may be somebody else's. Null = said why not.
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
    if (taken.help)
        return fputs(help, stdout) >= 0 && fflush(stdout) == 0 ? 0 : status_no_work;
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

/// Every command, every request, every way for it to go wrong: what must hold then is in rules.cpp.
///
///     fault-grid CONVERSATIONS [--full | --every N] [--jobs N] [--only WORDS] [--show]
///
/// Without --full a fixed part of the runs: four faults at every request, or at every N-th, others at each next one.
///   --only  transcripts whose place holds the words
///   --show  every step of what went wrong
#include "tests/faults/conversation.h"
#include "tests/faults/platform.h"
#include "tests/faults/rules.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

struct options {
    std::string conversations, only;
    bool full = false, show = false;
    int jobs = 1;
    unsigned every = 1;
};

/// Of all jobs together.
struct totals {
    std::atomic<unsigned> transcripts, requests, runs, findings;
};

template <typename type>
static type *shared()
{
    void *const place = mmap(nullptr, sizeof(type), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (place == MAP_FAILED) {
        perror("mmap");
        exit(1);
    }
    return static_cast<type *>(place);
}

// The controller's folders ------------------------------------------------------------------------------------------

static void put_file(const std::string &root, const file_found &file)
{
    const std::filesystem::path place = root + file.path;
    std::filesystem::create_directories(place.parent_path());
    const size_t blank = file.kind.find(' ');
    const std::string word = file.kind.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : file.kind.substr(blank + 1);
    if (word == "folder")
        std::filesystem::create_directories(place);
    else if (word == "fifo")
        mkfifo(place.c_str(), 0666);
    else if (word == "link")
        std::filesystem::create_symlink(rest, place);
    else if (word != "cut")
        std::ofstream(place, std::ios::binary).write(file.content.data(), std::streamsize(file.content.size()));
    if (word == "folder" && !rest.empty())
        chmod(place.c_str(), mode_t(std::stoul(rest, nullptr, 8)));
    if (word == "zeros" || word == "cut")
        std::filesystem::resize_file(place, std::stoul(rest));
}

static void put_files(const std::string &root, const conversation &said)
{
    for (const auto &entry : std::filesystem::directory_iterator(root))
        std::filesystem::remove_all(entry);
    for (const file_found &file : said.files)
        put_file(root, file);
}

// Faults ------------------------------------------------------------------------------------------------------------

struct named_fault {
    const char *name;
    fault kind;
    unsigned value;
};
static constexpr named_fault ends[] = {
    {"unsent", fault::unsent, 0},
    {"silent", fault::silent, 0},
    {"answers of another netfn", fault::of_other_netfn, 0},
    {"answers to another command", fault::of_other_command, 0},
    {"answers from another address", fault::of_other_address, 0},
    {"answers of another sequence", fault::of_other_sequence, 0},
    {"length 0", fault::bad_length, 0},
    {"length 1025", fault::bad_length, 1025},
    {"length 65535", fault::bad_length, 65535},
    {"unsent once", fault::unsent_once, 0},
    {"late", fault::late, 0},
    {"another netfn once", fault::other_netfn_once, 0},
    {"another command once", fault::other_command_once, 0},
    {"another address once", fault::other_address_once, 0},
    {"another sequence once", fault::other_sequence_once, 0},
    {"an older answer first", fault::stale_before, 0},
    {"an answer after the end", fault::after_the_end, 0},
};
static constexpr unsigned last_code = 0xFF;

/// How many bytes an answer has when all is well.
static unsigned full_length(const exchange &one)
{
    const std::vector<answer> &answers = one.attempts.back().answers;
    return answers.empty() ? 0 : unsigned(answers.back().payload.size());
}

static std::vector<fault_at> all_faults(const exchange &one, unsigned number)
{
    std::vector<fault_at> all;
    for (const named_fault &end : ends)
        all.push_back({end.kind, number, end.value});
    for (unsigned code = 1; code <= last_code; ++code)
        all.push_back({fault::completion, number, code});
    for (unsigned length = 0; length < full_length(one); ++length)
        all.push_back({fault::cut, number, length});
    return all;
}

/// Two ends, a completion code and a length; by and by, all of them.
static std::vector<fault_at> some_faults(const exchange &one, unsigned number)
{
    static unsigned turn;
    static constexpr unsigned steps = 37;  // no divisor of the counts: neighbours get far-off values
    constexpr unsigned half = std::size(ends) / 2;
    const named_fault &end = ends[turn % std::size(ends)], &other = ends[(turn + half) % std::size(ends)];
    std::vector<fault_at> some = {{end.kind, number, end.value},
                                  {other.kind, number, other.value},
                                  {fault::completion, number, 1 + turn * steps % last_code}};
    if (full_length(one) > 0)
        some.push_back({fault::cut, number, turn * steps % full_length(one)});
    ++turn;
    return some;
}

static std::string name_of(const fault_at &at)
{
    std::string name;
    for (const named_fault &end : ends)
        if (end.kind == at.kind && end.value == at.value)
            name = end.name;
    if (at.kind == fault::completion || at.kind == fault::cut) {
        char text[64];
        snprintf(text, sizeof text, at.kind == fault::cut ? "cut to %u bytes" : "completion code %02X", at.value);
        name = text;
    }
    return "request " + std::to_string(at.exchange) + ", " + name;
}

// Runs --------------------------------------------------------------------------------------------------------------

/// One that would run on for ever without a platform call is ended.
static void limit_time()
{
    const rlimit seconds{10, 12}, core{0, 0};
    setrlimit(RLIMIT_CPU, &seconds);
    setrlimit(RLIMIT_CORE, &core);
}

/// In a process of its own.
static void run(const conversation &said, const fault_at &at, const std::string &root, unsigned most_calls,
                record &into)
{
    into.ended = into.held_secret = into.typed_while_dumpable = into.terminal_changed = into.out_of_steps = false;
    into.files_touched = false;
    into.status = -1;
    into.calls = into.exchanges = into.fault_sends = 0;
    into.blocks_left = into.descriptors_left = 0;
    into.fault_step = into.used = 0;
    const pid_t child = fork();
    if (child == 0) {
        limit_time();
        play(said, at, root, most_calls, into);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        perror("fork");
        exit(1);
    }
    if (status != 0)
        into.ended = false;
}

static void show(const record &run)
{
    for (size_t place = 0; place < run.used;) {
        const step one = run.next(place);
        printf("    %c ", one.kind);
        for (const char character : one.text)
            if (one.kind == 'S' || one.kind == 'R')
                printf("%02X ", uint8_t(character));
            else if (character >= ' ')
                putchar(character);
            else
                printf("\\x%02X", uint8_t(character));
        putchar('\n');
    }
}

/// A line for what went wrong, and behind it what was to be seen.
static void report(const conversation &said, const char *words, const fault_at *at, const record &run, bool with_steps)
{
    printf("%s:", said.where.c_str());
    for (const std::string &word : said.words)
        printf(" %s", word.c_str());
    printf(": %s: %s\n", at != nullptr ? name_of(*at).c_str() : "no fault", words);
    if (at != nullptr)
        printf("    shown: %s\n", shown_from(run, run.fault_step).c_str());
    if (with_steps)
        show(run);
    fflush(stdout);
}

/// What the transcript says is what happens, or the faults would be tried on something else.
static bool is_as_written(const conversation &said, const record &run)
{
    unsigned logged = 0;
    for (size_t place = 0; place < run.used;) {
        const step one = run.next(place);
        if (one.kind == 'L' && (logged >= said.logged.size() || one.text != said.logged[logged++]))
            return false;
    }
    return run.ended && run.exchanges == said.exchanges.size() && logged == said.logged.size() &&
           shown_from(run, 0) == said.shown;
}

static void try_faults(const conversation &said, const options &chosen, const std::string &root, totals &counted)
{
    static record &usual = *shared<record>(), &faulty = *shared<record>();
    static constexpr unsigned calls_without_fault = 100000, more_calls = 3000;
    put_files(root, said);
    run(said, {}, root, calls_without_fault, usual);
    ++counted.transcripts;
    if (!is_as_written(said, usual)) {
        ++counted.findings;
        return report(said, "not as the transcript says", nullptr, usual, true);
    }
    if (const char *broken = broken_rule({said, {}, usual, usual, root}); broken != nullptr) {
        ++counted.findings;
        report(said, broken, nullptr, usual, chosen.show);
    }
    bool files_touched = usual.files_touched;
    for (unsigned number = 1; number <= said.exchanges.size(); ++number) {
        static unsigned passed;
        if (++passed % chosen.every != 0)
            continue;
        const exchange &one = said.exchanges[number - 1];
        ++counted.requests;
        for (const fault_at &at : chosen.full ? all_faults(one, number) : some_faults(one, number)) {
            if (files_touched)
                put_files(root, said);
            run(said, at, root, 3 * usual.calls + more_calls, faulty);
            files_touched = faulty.files_touched;
            ++counted.runs;
            if (const char *broken = broken_rule({said, at, usual, faulty, root}); broken != nullptr) {
                ++counted.findings;
                report(said, broken, &at, faulty, chosen.show);
            }
        }
    }
}

/// Every jobs-th conversation, from this one on.
static void work(const options &chosen, int job, totals &counted)
{
    std::string root = access("/dev/shm", W_OK) == 0 ? "/dev/shm/faults.XXXXXX" : "/tmp/faults.XXXXXX";
    if (mkdtemp(root.data()) == nullptr) {
        perror(root.c_str());
        _exit(1);
    }
    std::ifstream from(chosen.conversations);
    conversation said;
    for (int number = 0; read_conversation(from, said); ++number)
        if (number % chosen.jobs == job && said.where.find(chosen.only) != std::string::npos)
            try_faults(said, chosen, root, counted);
    std::filesystem::remove_all(root);
}

static options options_of(int argc, char **argv)
{
    options chosen;
    for (int n = 1; n < argc; ++n) {
        const std::string word = argv[n];
        if (word == "--full")
            chosen.full = true;
        else if (word == "--show")
            chosen.show = true;
        else if (word == "--jobs" && n + 1 < argc)
            chosen.jobs = std::max(1, atoi(argv[++n]));
        else if (word == "--every" && n + 1 < argc)
            chosen.every = unsigned(std::max(1, atoi(argv[++n])));
        else if (word == "--only" && n + 1 < argc)
            chosen.only = argv[++n];
        else
            chosen.conversations = word;
    }
    return chosen;
}

int main(int argc, char **argv)
{
    const options chosen = options_of(argc, argv);
    totals &counted = *shared<totals>();
    bool all_worked = true;
    for (int job = 0; job < chosen.jobs; ++job) {
        if (fork() == 0) {
            work(chosen, job, counted);
            fflush(stdout);
            _exit(0);
        }
    }
    for (int status; wait(&status) > 0;)
        all_worked = all_worked && status == 0;
    if (!all_worked)
        puts("The driver itself has failed.");
    printf("%u runs with a fault at %u requests of %u transcripts, %u not as the rules say\n", counted.runs.load(),
           counted.requests.load(), counted.transcripts.load(), counted.findings.load());
    return all_worked && counted.findings == 0 && counted.transcripts > 0 ? 0 : 1;
}

/// Every command with a fault in it: what must hold then is in rules.cpp.
///
///     fault-grid CONVERSATIONS [--sweep NAME] [--full | --every N] [--transcripts N] [--jobs N] [--only WORDS]
///     [--show]
///
/// The sweeps: `requests`, every way for each of them to go wrong; `calls`, each call of the tool that can fail does,
/// once and from there on, or is interrupted; `signals`, one comes at each call; `kills`, the tool is killed there. All
/// of them without --sweep. Behind a signal or a kill the next commands find what is left. Without --full a fixed part
/// of the runs: of requests four faults at each, or at every N-th, and others at each next one; of the other sweeps
/// every N-th run.
///   --transcripts  every N-th of them
///   --only         transcripts whose place holds the words
///   --show         every step of what went wrong
#include "tests/faults/conversation.h"
#include "tests/faults/platform.h"
#include "tests/faults/rules.h"

#include <algorithm>
#include <atomic>
#include <csignal>
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
    std::string conversations, only, sweep;
    bool full = false, show = false;
    int jobs = 1;
    unsigned every = 1;
    int transcripts = 1;
};

/// Of all jobs together. Places are requests or calls.
struct totals {
    std::atomic<unsigned> transcripts, places, runs, next_runs, findings;
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

static bool is_folder(const std::filesystem::path &place)
{
    return std::filesystem::is_directory(std::filesystem::symlink_status(place));
}

/// What is no folder gives way to one, and the other way round.
static void make_room(const std::string &root, const file_found &file)
{
    std::filesystem::path place = root;
    for (const auto &name : std::filesystem::path(file.path).relative_path()) {
        place /= name;
        if (!is_folder(place))
            std::filesystem::remove(place);
    }
    if (!file.kind.starts_with("folder"))
        std::filesystem::remove_all(place);
}

/// On top of what is there.
static void put_more_files(const std::string &root, const conversation &said)
{
    for (const file_found &file : said.files) {
        if (!file.kind.starts_with("cut"))
            make_room(root, file);
        put_file(root, file);
    }
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

static std::vector<fault_at> all_of_request(const exchange &one, unsigned number)
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
static std::vector<fault_at> some_of_request(const exchange &one, unsigned number)
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

/// The names of the calls of a run.
static std::vector<std::string_view> calls_of(const record &run)
{
    std::vector<std::string_view> names;
    for (size_t place = 0; place < run.used;)
        if (const step one = run.next(place); one.kind == 'P')
            names.push_back(one.text);
    return names;
}

static void add_failures(std::vector<fault_at> &to, std::string_view call, unsigned number)
{
    if (can_fail(call))
        to.insert(to.end(), {{fault::fails_once, number, 0}, {fault::fails_from_here, number, 0}});
    if (can_be_interrupted(call))
        to.push_back({fault::interrupted, number, 0});
}

static constexpr int signals_tried[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ, SIGTSTP};

static void add_signals(std::vector<fault_at> &to, std::string_view, unsigned number)
{
    for (const int each : signals_tried)
        to.push_back({fault::signal_comes, number, unsigned(each)});
}

static void add_kill(std::vector<fault_at> &to, std::string_view, unsigned number)
{
    to.push_back({fault::is_killed, number, 0});
}

static std::string name_of_end(const fault_at &at)
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
    return "request " + std::to_string(at.place) + ", " + name;
}

static std::string name_of(const fault_at &at, const record &run)
{
    if (!is_of_call(at.kind))
        return name_of_end(at);
    size_t place = run.fault_step;
    const std::string call = "call " + std::to_string(at.place) + ", " + std::string(run.next(place).text);
    switch (at.kind) {
    case fault::fails_once:
        return call + " fails";
    case fault::fails_from_here:
        return call + " fails from here on";
    case fault::interrupted:
        return call + " is interrupted";
    case fault::signal_comes:
        return call + ", SIG" + sigabbrev_np(int(at.value));
    default:
        return call + ", killed";
    }
}

// Runs --------------------------------------------------------------------------------------------------------------

/// One that would run on or wait for ever without a platform call is ended.
static void limit_time()
{
    const rlimit seconds{10, 12}, core{0, 0};
    alarm(60);
    setrlimit(RLIMIT_CPU, &seconds);
    setrlimit(RLIMIT_CORE, &core);
}

/// A shell has what it starts in the background ignore some.
static void reset_signals()
{
    for (const int each : signals_tried)
        signal(each, SIG_DFL);
}

/// In a process of its own.
static void run(const conversation &said, const fault_at &at, const std::string &root, unsigned most_calls,
                record &into)
{
    static_cast<outcome &>(into) = {};
    const pid_t child = fork();
    if (child == 0) {
        setpgid(0, 0);  // no orphans: those do not stop
        limit_time();
        reset_signals();
        play(said, at, root, most_calls, into);
    }
    int status = 0;
    while (child > 0 && waitpid(child, &status, WUNTRACED) == child && WIFSTOPPED(status)) {
        ++into.stops;
        into.changed_while_stopped |= into.terminal_changed;
        kill(child, SIGCONT);
    }
    if (child < 0) {
        perror("fork");
        exit(1);
    }
    kill(-child, SIGKILL);  // what it has started and not waited for
    into.ended_by = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
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
    printf(": %s: %s\n", at != nullptr ? name_of(*at, run).c_str() : "no fault", words);
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

static constexpr unsigned calls_without_fault = 100000, more_calls = 3000;

/// What an operator sees of a run, and the operation log.
static std::string told_by(const record &run)
{
    std::string told;
    for (size_t place = 0; place < run.used;)
        if (const step one = run.next(place); one.kind == 'T' || one.kind == 'L')
            told += one.text;
    return told;
}

/// A transcript, played without a fault, and what is needed to play it with one.
struct trial {
    const conversation &said;
    const options &chosen;
    const std::string &root;
    totals &counted;
    record &usual;
    bool files_touched;

    // Another command, that of the transcript before which changed files, and what it tells where this one's files lie
    const conversation &other;
    std::string told_by_other;
};

/// What a run that was broken off leaves behind is in nobody's way.
static void try_next(const trial &one, const conversation &said, const std::string &expected, const fault_at &at,
                     const record &broken_off)
{
    static record &next = *shared<record>();
    run(said, {}, one.root, calls_without_fault, next);
    ++one.counted.next_runs;
    const char *broken = broken_rule({said, {}, next, next, one.root});
    if (broken == nullptr && told_by(next) != expected && !said.has_results_of("fchown"))
        broken = "it goes on as if nothing had been";
    if (broken == nullptr)
        return;
    ++one.counted.findings;
    report(one.said, "what is left is in the way of the next run", &at, broken_off, false);
    report(said, broken, nullptr, next, one.chosen.show);
}

static void try_fault(trial &one, const fault_at &at)
{
    static record &faulty = *shared<record>();
    if (one.files_touched)
        put_files(one.root, one.said);
    run(one.said, at, one.root, 3 * one.usual.calls + more_calls, faulty);
    one.files_touched = faulty.files_touched;
    ++one.counted.runs;
    if (const char *broken = broken_rule({one.said, at, one.usual, faulty, one.root}); broken != nullptr) {
        ++one.counted.findings;
        report(one.said, broken, &at, faulty, one.chosen.show);
    }
    if (faulty.files_touched && (at.kind == fault::is_killed || faulty.ended_by != 0)) {
        try_next(one, one.said, told_by(one.usual), at, faulty);
        put_files(one.root, one.said);
        run(one.said, at, one.root, 3 * one.usual.calls + more_calls, faulty);
        put_more_files(one.root, one.other);
        try_next(one, one.other, one.told_by_other, at, faulty);
    }
}

static void sweep_requests(trial &one)
{
    for (unsigned number = 1; number <= one.said.exchanges.size(); ++number) {
        static unsigned passed;
        if (++passed % one.chosen.every != 0)
            continue;
        const exchange &request = one.said.exchanges[number - 1];
        ++one.counted.places;
        for (const fault_at &at : one.chosen.full ? all_of_request(request, number) : some_of_request(request, number))
            try_fault(one, at);
    }
}

static void sweep_calls(trial &one, void (*add)(std::vector<fault_at> &, std::string_view call, unsigned number))
{
    static unsigned passed;
    const std::vector<std::string_view> calls = calls_of(one.usual);
    for (unsigned number = 1; number <= calls.size(); ++number) {
        std::vector<fault_at> faults;
        add(faults, calls[number - 1], number);
        std::erase_if(faults, [&](const fault_at &) { return !one.chosen.full && ++passed % one.chosen.every != 0; });
        one.counted.places += faults.empty() ? 0 : 1;
        for (const fault_at &at : faults)
            try_fault(one, at);
    }
}

struct sweep {
    const char *name;
    void (*over)(trial &);
};
static constexpr sweep sweeps[] = {
    {"requests", sweep_requests},
    {"calls", [](trial &one) { sweep_calls(one, add_failures); }},
    {"signals", [](trial &one) { sweep_calls(one, add_signals); }},
    {"kills",
     [](trial &one) {
         if (one.usual.files_touched)  // nothing else is left
             sweep_calls(one, add_kill);
     }},
};

static void try_faults(const conversation &said, const sweep &chosen_sweep, const options &chosen,
                       const std::string &root, totals &counted)
{
    static record &usual = *shared<record>();
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
    static conversation other;
    trial one{said, chosen, root, counted, usual, usual.files_touched, other, ""};
    if (usual.files_touched) {
        if (other.where.empty())
            other = said;
        static record &of_other = *shared<record>();
        put_files(root, said);
        put_more_files(root, other);
        run(other, {}, root, calls_without_fault, of_other);
        one.told_by_other = told_by(of_other);
    }
    chosen_sweep.over(one);
    if (usual.files_touched)
        other = said;
}

/// Every jobs-th conversation, from this one on.
static void work(const options &chosen, const sweep &chosen_sweep, int job, totals &counted)
{
    std::string root = access("/dev/shm", W_OK) == 0 ? "/dev/shm/faults.XXXXXX" : "/tmp/faults.XXXXXX";
    if (mkdtemp(root.data()) == nullptr) {
        perror(root.c_str());
        _exit(1);
    }
    std::ifstream from(chosen.conversations);
    conversation said;
    for (int number = 0; read_conversation(from, said); ++number)
        if (number % chosen.transcripts == 0 && number / chosen.transcripts % chosen.jobs == job &&
            said.where.find(chosen.only) != std::string::npos)
            try_faults(said, chosen_sweep, chosen, root, counted);
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
        else if (word == "--transcripts" && n + 1 < argc)
            chosen.transcripts = std::max(1, atoi(argv[++n]));
        else if (word == "--every" && n + 1 < argc)
            chosen.every = unsigned(std::max(1, atoi(argv[++n])));
        else if (word == "--only" && n + 1 < argc)
            chosen.only = argv[++n];
        else if (word == "--sweep" && n + 1 < argc)
            chosen.sweep = argv[++n];
        else
            chosen.conversations = word;
    }
    return chosen;
}

/// Whether all was as the rules say.
static bool make_sweep(const sweep &one, const options &chosen)
{
    totals &counted = *shared<totals>();
    bool all_worked = true;
    for (int job = 0; job < chosen.jobs; ++job) {
        if (fork() == 0) {
            work(chosen, one, job, counted);
            fflush(stdout);
            _exit(0);
        }
    }
    for (int status; wait(&status) > 0;)
        all_worked = all_worked && status == 0;
    if (!all_worked)
        puts("The driver itself has failed.");
    printf("%s: %u runs with a fault at %u places of %u transcripts, %u next runs, %u not as the rules say\n", one.name,
           counted.runs.load(), counted.places.load(), counted.transcripts.load(), counted.next_runs.load(),
           counted.findings.load());
    fflush(stdout);
    return all_worked && counted.findings == 0 && counted.transcripts > 0;
}

int main(int argc, char **argv)
{
    const options chosen = options_of(argc, argv);
    bool all_good = true, any = false;
    for (const sweep &one : sweeps) {
        if (!chosen.sweep.empty() && chosen.sweep != one.name)
            continue;
        any = true;
        all_good = make_sweep(one, chosen) && all_good;
    }
    return any && all_good ? 0 : 1;
}

/// A whole run of cfgtool-state against the simulated controller, in this process. Then every request of it goes wrong
/// in every way: what was not answered is missing, all else is shown as before, and nothing is sent that is not on the
/// list.
#define main state_main
#include "state/main.cpp"
#undef main

#include "tests/ipmcd/board.h"
#include "tests/ipmcd/small_board.h"
#include "tests/state/allowed.h"

#include <map>
#include <sys/mman.h>
#include <sys/wait.h>

namespace
{

using ipmcd::json;

/// What becomes of one request.
struct fault {
    enum class kind : uint8_t { none, refused, cut, silent, unsent, other_sequence, no_length } is = kind::none;
    unsigned request = 0;  // the first has number 0
    unsigned value = 0;    // refused: the completion code; cut: the bytes of data that are left
};

constexpr unsigned most_requests = 1000, most_data = 32;

/// What a run sent, in memory that parent and child share.
struct history {
    unsigned count;
    struct {
        uint8_t length, bytes[2 + most_data];
        uint8_t completion;
        uint16_t answer_length;  // of the data that the controller had to say
    } requests[most_requests];
};
history &sent =
    *static_cast<history *>(mmap(nullptr, sizeof(history), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

// The platform, as the child has it ----------------------------------------------------------------------------------

ipmcd::controller *asked;
fault wrong;
std::vector<uint8_t> answer;  // the frame that is to be received; empty = nothing
int last_sequence = -1;

bool is_wrong() { return wrong.is != fault::kind::none && sent.count - 1 == wrong.request; }

void note_request(const uint8_t *frame, unsigned length)
{
    auto &entry = sent.requests[sent.count++];
    if (sent.count == most_requests || length - 5 > sizeof entry.bytes)
        abort();
    entry.length = uint8_t(length - 5);  // without addresses and checksums
    entry.bytes[0] = frame[1] >> 2;
    std::copy(frame + 5, frame + length - 1, entry.bytes + 1);
}

std::vector<uint8_t> answer_to(const uint8_t *frame)
{
    auto &entry = sent.requests[sent.count - 1];
    auto [code, data] =
        ask_board(*asked, frame[1] >> 2, frame[5], {entry.bytes + 2, entry.bytes + 2 + (entry.length - 2U)});
    entry.answer_length = uint16_t(data.size());
    if (is_wrong() && wrong.is == fault::kind::refused) {
        code = uint8_t(wrong.value);
        data.clear();
    }
    entry.completion = code;
    if (is_wrong() && wrong.is == fault::kind::cut)
        data.resize(wrong.value);
    std::vector<uint8_t> made = {0x63, uint8_t(frame[1] + 4), 0x00, 0x00, frame[4], frame[5], code};
    if (is_wrong() && wrong.is == fault::kind::other_sequence)
        made[4] = uint8_t(made[4] ^ 0x80);
    made.insert(made.end(), data.begin(), data.end());
    if (!is_wrong() || wrong.is != fault::kind::cut)
        made.push_back(0x5A);  // a data checksum may follow
    return made;
}

}  // namespace

extern "C" {
uid_t geteuid() noexcept { return 0; }
int ipc_no_listen_init(int) { return 0; }
void ipc_exit() {}
int ipc_msg_send(const void *message, unsigned int length, unsigned int, unsigned int)
{
    const auto *frame = static_cast<const uint8_t *>(message);
    if (frame[4] != last_sequence)  // not the same once more
        note_request(frame, length);
    last_sequence = frame[4];
    answer.clear();
    if (is_wrong() && wrong.is == fault::kind::unsent)
        return -1;
    if (!is_wrong() || wrong.is != fault::kind::silent)
        answer = answer_to(frame);
    return 0;
}
int ipc_msg_recv(void *message)
{
    if (answer.empty())
        return -1;
    auto *record = static_cast<uint8_t *>(message);
    const size_t length = is_wrong() && wrong.is == fault::kind::no_length ? 0 : answer.size();
    record[8] = uint8_t(length);
    record[9] = uint8_t(length >> 8);
    std::copy(answer.begin(), answer.end(), record + 32);
    return 0;
}
int vos_memset(void *to, size_t, int value, size_t count) { return memset(to, value, count) == nullptr; }
int vos_memcpy(void *to, size_t, const void *from, size_t count) { return memcpy(to, from, count) == nullptr; }
int vos_strncat(char *, size_t, const char *, size_t) { return 0; }
void vos_task_delay(unsigned int) {}
void vos_task_delay_us(unsigned int) {}
unsigned int vos_rand() { return 3; }
}

namespace
{

// Runs ---------------------------------------------------------------------------------------------------------------

struct outcome {
    int status = -1;  // of the process: exit status, or 128 and the signal
    std::string shown, complaints;
    std::vector<allowed::bytes> requests;
    std::vector<uint16_t> answer_lengths;
};

std::string content_of(int file)
{
    std::string text(size_t(lseek(file, 0, SEEK_END)), '\0');
    EXPECT_EQ(pread(file, text.data(), text.size(), 0), ssize_t(text.size()));
    close(file);
    return text;
}

[[noreturn]] void be_the_program(const std::vector<const char *> &words, int out, int err)
{
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    std::vector<char *> argv;
    for (const char *const word : words)
        argv.push_back(const_cast<char *>(word));
    argv.push_back(nullptr);
    const int status = state_main(int(words.size()), argv.data());
    fflush(nullptr);
    _exit(status);
}

/// Runs the program in a process of its own, whose controller is a copy of this one.
outcome run(ipmcd::controller &board, const std::vector<const char *> &words, const fault &ordered = {})
{
    const int out = memfd_create("out", 0), err = memfd_create("err", 0);
    sent.count = 0;
    fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        asked = &board;
        wrong = ordered;
        be_the_program(words, out, err);
    }
    int status = 0;
    waitpid(child, &status, 0);
    outcome made{.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
                 .shown = content_of(out),
                 .complaints = content_of(err),
                 .requests = {},
                 .answer_lengths = {}};
    allowed::watch watch;
    for (unsigned n = 0; n < sent.count; ++n) {
        const auto &entry = sent.requests[n];
        made.requests.emplace_back(entry.bytes, entry.bytes + entry.length);
        made.answer_lengths.push_back(entry.answer_length);
        EXPECT_TRUE(watch.permits(made.requests.back())) << ipmcd::hex(made.requests.back());
        watch.answered(entry.completion);
    }
    return made;
}

/// A controller on which nothing is as it left the factory.
struct set_up_board {
    explicit set_up_board(const ipmcd::board_description &described) : board(clock, ipmcd::all_families(), described)
    {
        board.from_json(json::parse(R"({
            "boot": {"flags": "C0 98 00 00 00", "shutdown_timeout_100ms": 105, "bios_write_protect": true},
            "identify": {"light": "on"},
            "fans": {"mode": "manual", "timeout_s": 300, "level": 60},
            "leds": {"led1": {"overridden": true, "function": 10, "on_duration_10ms": 20, "colour": "amber"},
                     "oem1": {"lamp_test": true, "lamp_test_100ms": 100}},
            "clock": {"utc_offset_min": -270},
            "lan": {"1": {"ipv6_address": "fe80::2", "ipv6_gateway": "fe80::1", "vlan_enabled": true, "vlan_id": 100}},
            "nic": {"card_ports": 0},
            "users": {"6": {"name": "carol", "privilege": 4, "enabled": true}},
            "traps": {"enabled": true, "version": "V3", "severity": "major",
                      "destinations": {"1": {"enabled": true, "address": "192.0.2.9"},
                                       "2": {"address": "fe80::9", "port": 1162}}}
        })"));
    }
    ipmcd::still_clock clock;
    ipmcd::controller board;
};

// The clock stands still.
const std::vector<const char *> whole_run = {"cfgtool-state", "--json"};

// What may differ ----------------------------------------------------------------------------------------------------

/// How a document differs from what it should be: by values that are missing, and by nulls.
struct difference {
    unsigned missing = 0, nulls = 0;
    std::string wrong;  // what else, and where
};

/// What elements of a list are known by; none for texts.
const char *identity_in(const json &list)
{
    if (list.empty() || !list[0].is_object())
        return nullptr;
    return list[0].contains("number") ? "number" : list[0].contains("id") ? "id" : nullptr;
}

const json *find_alike(const json &list, const json &wanted)
{
    const char *const identity = identity_in(list);
    for (const json &one : list)
        if (identity != nullptr ? one[identity] == wanted[identity]
                                : one == wanted || (one.is_object() && wanted.is_object()))
            return &one;
    return nullptr;
}

void compare(const json &found, const json &expected, const std::string &path, difference &all);

void compare_lists(const json &found, const json &expected, const std::string &path, difference &all)
{
    for (const json &one : expected)
        if (const json *const alike = find_alike(found, one))
            compare(*alike, one, path + "[]", all);
        else
            all.missing++;
    for (const json &one : found) {
        const bool has_only_its_id = one.is_object() && one.size() == 1;  // it was not answered who that is
        const bool is_unreadable = one.is_string();
        if (find_alike(expected, one) == nullptr && (has_only_its_id || is_unreadable))
            all.missing++;
        else if (find_alike(expected, one) == nullptr)
            all.wrong += path + " has " + one.dump() + "; ";
    }
}

void compare(const json &found, const json &expected, const std::string &path, difference &all)
{
    if (found.is_null() && !expected.is_null()) {
        all.nulls++;
    } else if (expected.is_object() && found.is_object()) {
        for (const auto &[key, value] : expected.items())
            if (found.contains(key))
                compare(found[key], value, path + "." + key, all);
            else
                all.missing++;
        for (const auto &[key, value] : found.items())
            if (!expected.contains(key))
                all.wrong += path + " has " + key + "; ";
    } else if (expected.is_array() && found.is_array()) {
        if (found.empty() && !expected.empty())
            all.nulls++;
        else
            compare_lists(found, expected, path, all);
    } else if (found != expected) {
        all.wrong += path + " is " + found.dump() + "; ";
    }
}

bool is_read_of_record(const allowed::bytes &request) { return request.size() == 8; }

/// What must hold whatever goes wrong.
void judge(const outcome &made, const json &expected, const fault &ordered, const allowed::bytes &request)
{
    static constexpr uint8_t not_supported = 0x80;
    ASSERT_TRUE(json::accept(made.shown)) << made.shown;
    difference differs;
    compare(json::parse(made.shown), expected, "", differs);
    EXPECT_EQ(differs.wrong, "");
    const bool is_null_for_that = ordered.is == fault::kind::refused && ordered.value == not_supported;
    EXPECT_TRUE(differs.nulls == 0 || is_null_for_that);
    const bool is_whole = differs.missing == 0;
    EXPECT_EQ(made.status == 0, made.complaints.empty());
    EXPECT_TRUE(made.status == 0 || made.status == 1);
    // Of a record that was lost nobody knows whether it was a sensor's.
    const bool may_have_lost_nothing = is_read_of_record(request);
    EXPECT_TRUE(is_whole == (made.status == 0) || (is_whole && may_have_lost_nothing)) << made.status;
    // No answer, or a refusal, is never passed over; but a record that is refused is read in another way.
    const bool was_lost = ordered.is != fault::kind::cut && ordered.is != fault::kind::none;
    EXPECT_TRUE(!was_lost || may_have_lost_nothing || is_null_for_that || differs.missing + differs.nulls > 0);
    EXPECT_EQ(made.complaints.find('\033'), std::string::npos);
}

std::string words_for(const fault &ordered)
{
    static constexpr const char *kinds[] = {"none",   "refused",        "cut",      "silent",
                                            "unsent", "other sequence", "no length"};
    return ipmcd::text("request %u: %s %u", ordered.request, kinds[int(ordered.is)], ordered.value);
}

std::vector<fault> faults_of(unsigned request, unsigned answer_length)
{
    using kind = fault::kind;
    std::vector<fault> all = {
        {kind::silent, request}, {kind::unsent, request}, {kind::other_sequence, request}, {kind::no_length, request}};
    for (const unsigned code : {0x80U, 0x81U, 0xC1U, 0xC5U, 0xCAU, 0xCBU, 0xD4U, 0xFFU})
        all.push_back({kind::refused, request, code});
    for (unsigned left = 0; left < answer_length; ++left)
        all.push_back({kind::cut, request, left});
    return all;
}

ipmcd::board_description small_board(ipmcd::sdr_source source)
{
    auto made = ipmcd::read_board(ipmcd::small_board_file);
    made.source = source;
    return made;
}

// A process under a sanitizer takes ten times as long to fork, so that of its faults each fifth has to do.
#if defined(__has_feature)
constexpr unsigned stride = __has_feature(address_sanitizer) ? 5 : 1;
#else
constexpr unsigned stride = 1;
#endif

/// How many faults there were.
unsigned sweep(ipmcd::sdr_source source, bool (*is_swept)(const allowed::bytes &request))
{
    set_up_board set_up(small_board(source));
    const outcome good = run(set_up.board, whole_run);
    EXPECT_EQ(good.status, 0) << good.complaints;
    const json expected = json::parse(good.shown);
    unsigned count = 0;
    for (unsigned n = 0; n < good.requests.size(); ++n) {
        if (!is_swept(good.requests[n]))
            continue;
        for (const fault &ordered : faults_of(n, good.answer_lengths[n])) {
            if (count++ % stride != 0)
                continue;
            SCOPED_TRACE(words_for(ordered) + ", " + ipmcd::hex(good.requests[n]));
            judge(run(set_up.board, whole_run, ordered), expected, ordered, good.requests[n]);
            if (testing::Test::HasFailure())
                return count;
        }
    }
    return count;
}

}  // namespace

TEST(sweep, every_request_in_every_way)
{
    EXPECT_GT(sweep(ipmcd::sdr_source::repository, [](const allowed::bytes &) { return true; }), 1500U);
}

TEST(sweep, records_of_the_device_itself) { EXPECT_GT(sweep(ipmcd::sdr_source::device, is_read_of_record), 300U); }

// Whole runs ---------------------------------------------------------------------------------------------------------

TEST(whole_run, asks_for_nothing_twice)
{
    set_up_board set_up(ipmcd::load_board("default"));
    const outcome made = run(set_up.board, whole_run);
    EXPECT_EQ(made.status, 0) << made.complaints;
    const std::set<allowed::bytes> different(made.requests.begin(), made.requests.end());
    EXPECT_EQ(different.size(), made.requests.size());
    const json document = json::parse(made.shown);
    EXPECT_EQ(document["sensors"].size(), 61U);
    std::map<unsigned, unsigned> by_command;
    for (const allowed::bytes &request : made.requests)
        by_command[unsigned(request[0] << 8 | request[1])]++;
    EXPECT_EQ(by_command[0x0A23], 68U);  // the records of the default board, one request each
    EXPECT_EQ(by_command[0x042D], 57U);  // its sensors but for four that tell events only
    EXPECT_EQ(by_command[0x0601], 1U);
}

/// The same whoever tells the records, and in whatever pieces.
TEST(whole_run, shows_the_same_on_every_board)
{
    set_up_board repository(ipmcd::load_board("default")), device(ipmcd::load_board("device-sdrs")),
        short_reads(ipmcd::load_board("short-reads"));
    const std::vector<const char *> words = {"cfgtool-state", "--json", "sensors"};
    const outcome expected = run(repository.board, words), made = run(device.board, words);
    EXPECT_EQ(expected.status, 0);
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.shown, expected.shown);
    EXPECT_EQ(made.requests.size(), expected.requests.size());
    const outcome pieces = run(short_reads.board, words);
    EXPECT_EQ(pieces.status, 0);
    EXPECT_EQ(pieces.shown, expected.shown);
    EXPECT_GT(pieces.requests.size(), expected.requests.size());
}

TEST(whole_run, never_holds_the_community)
{
    set_up_board set_up(ipmcd::load_board("default"));
    const std::string community = set_up.board.to_json()["traps"]["community"];
    ASSERT_EQ(community, "Zentro-trap1");
    for (const auto &words : {std::vector<const char *>{"cfgtool-state"}, whole_run}) {
        const outcome made = run(set_up.board, words);
        EXPECT_EQ(made.status, 0);
        EXPECT_EQ(made.shown.find(community), std::string::npos);
        EXPECT_NE(made.shown.find("traps.community"), std::string::npos);
        for (const allowed::bytes &request : made.requests)
            EXPECT_FALSE(request[0] == 0x0C && request[3] == 0x10);
    }
}

/// That the list is no open door.
TEST(allowed_requests, no_request_that_changes_something)
{
    using allowed::bytes;
    EXPECT_GT(allowed::list().size(), 40U);
    for (const bytes &request :
         {bytes{0x0A, 0x47, 1, 0, 'C', 'L', 'R', 0x00}, bytes{0x0A, 0x42}, bytes{0x0A, 0x22}, bytes{0x04, 0x22},
          bytes{0x0C, 0x02, 1, 0x10, 0, 0}, bytes{0x0C, 0x01, 1, 0x04, 1}, bytes{0x2C, 0x15, 0, 0, 60},
          bytes{0x30, 0x91, 0xD9, 0x7E, 0x00, 0x01, 0x00}, bytes{0x06, 0x02}, bytes{0x0A, 0x23, 1, 0, 0, 0, 0, 5}}) {
        allowed::watch watch;
        EXPECT_FALSE(watch.permits(request)) << ipmcd::hex(request);
    }
    allowed::watch watch;
    EXPECT_TRUE(watch.permits({0x0A, 0x23, 0, 0, 0, 0, 0, 0xFF}));
    watch.answered(0x00);
    EXPECT_FALSE(watch.permits({0x0A, 0x22}));
    EXPECT_TRUE(watch.permits({0x0A, 0x23, 0, 0, 1, 0, 0, 0xFF}));
    watch.answered(0xCA);
    EXPECT_TRUE(watch.permits({0x0A, 0x22}));
    EXPECT_TRUE(watch.permits({0x0A, 0x23, 1, 0, 0, 0, 0, 5}));
}

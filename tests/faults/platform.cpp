#include "tests/faults/platform.h"

#include "platform/platform.h"
#include "tests/scripted/parts.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

const conversation *played;
record *written;

static std::string root;
fault_at faulted;
static unsigned most_calls;
static int descriptors_before;

extern "C" [[noreturn]] void __wrap_exit(int status);
int tool_main(int argc, char **argv);

// What happened -----------------------------------------------------------------------------------------------------

/// A step lies in the record as its kind, the length of its text, and the text.
static constexpr size_t head_length = 1 + sizeof(uint32_t);

step record::next(size_t &place) const
{
    uint32_t length;
    memcpy(&length, steps + place + 1, sizeof length);
    const step found{steps[place], {steps + place + head_length, length}};
    place += head_length + length;
    return found;
}

[[noreturn]] static void give_up()
{
    written->out_of_steps = true;
    _exit(0);
}

void note(char kind, std::string_view text)
{
    record &into = *written;
    const auto length = uint32_t(text.size());
    if (into.used + head_length + length > sizeof into.steps)
        give_up();
    into.steps[into.used] = kind;
    memcpy(into.steps + into.used + 1, &length, sizeof length);
    copy_bytes(into.steps + into.used + head_length, text.data(), length);
    into.used += head_length + length;
}

static void count_call()
{
    if (++written->calls > most_calls)
        give_up();
}

long result_of(const char *name, long otherwise)
{
    static std::vector<bool> given(played->results.size());
    for (size_t n = 0; n < given.size(); ++n) {
        if (!given[n] && played->results[n].first == name) {
            given[n] = true;
            return played->results[n].second;
        }
    }
    return otherwise;
}

static bool count_and_try(const char *name)
{
    count_call();
    return fails(name);
}

/// Texts may be secret: they go into the record without a stop on the way.
static long called_with(const char *name, const char *text, long otherwise = 0)
{
    const bool failed = count_and_try(name);
    if (failed && faulted.kind == fault::interrupted)
        return failure_of(name);
    note('C', name);
    note('c', text);
    return failed ? failure_of(name) : result_of(name, otherwise);
}

long called(const char *name, const std::string &words, long otherwise)
{
    return called_with(name, words.c_str(), otherwise);
}

std::string found_at(const char *path) { return found_in(root, path); }

// Secrets -----------------------------------------------------------------------------------------------------------

#ifdef UNDER_SANITIZER
static constexpr bool has_sanitizer = true;
#else
static constexpr bool has_sanitizer = false;
#endif
#define UNCHECKED __attribute__((no_sanitize("address", "undefined")))

UNCHECKED static bool stands_at(const uint8_t *place, const concealed &wanted, size_t from, size_t length)
{
    for (size_t n = 0; n < length; ++n)
        if (place[n] != wanted.at(from + n))
            return false;
    return true;
}

static constexpr size_t trace_length = 6;  // so many bytes of a secret in a row are a trace of it

/// What is looked for, and the bytes that a trace of it could begin with.
static std::vector<const concealed *> wanted_secrets;
static bool may_start[256];

static void want(std::vector<const concealed *> secrets)
{
    wanted_secrets = std::move(secrets);
    std::fill(std::begin(may_start), std::end(may_start), false);
    for (const concealed *secret : wanted_secrets)
        for (size_t from = 0; from == 0 || from + trace_length <= secret->size(); ++from)
            may_start[secret->at(from)] = true;
}

/// Whether a trace of this secret begins here.
UNCHECKED static bool is_traced(const uint8_t *place, const concealed &secret)
{
    const size_t length = std::min(trace_length, secret.size());
    for (size_t from = 0; from + length <= secret.size(); ++from)
        if (place[0] == secret.at(from) && stands_at(place, secret, from, length))
            return true;
    return false;
}

/// Looks at the places where a trace of any secret could begin: most of memory is zeros, and is passed over word by
/// word.
UNCHECKED static bool is_held(const uint8_t *place, const uint8_t *end)
{
    for (uint64_t word = 0; place + sizeof word <= end; place += sizeof word) {
        __builtin_memcpy(&word, place, sizeof word);
        for (const uint8_t *byte = place; word != 0 && byte < place + sizeof word; ++byte)
            if (may_start[*byte] && byte + trace_length <= end)
                for (const concealed *secret : wanted_secrets)
                    if (is_traced(byte, *secret))
                        return true;
    }
    return false;
}

/// Looks only into pages that were written since the run began: this process has them for itself. All have been when
/// nobody can tell.
UNCHECKED static bool is_held_in_mapping(uintptr_t start, uintptr_t end, int pagemap)
{
    static constexpr size_t most_pages = 4096;
    static constexpr uint64_t exclusive = uint64_t(1) << 56;
    static uint64_t about[most_pages];
    static const auto size = uintptr_t(sysconf(_SC_PAGESIZE));
    const size_t pages = std::min(size_t(end - start) / size, most_pages);
    const size_t bytes = pages * sizeof *about;
    if (pread(pagemap, about, bytes, off_t(start / size * sizeof *about)) != ssize_t(bytes))
        std::fill_n(about, pages, exclusive);
    for (size_t first = 0, past = 0; first < pages; first = past + 1) {
        for (past = first; past < pages && (about[past] & exclusive) != 0;)
            ++past;
        if (is_held(reinterpret_cast<uint8_t *>(start + first * size),
                    reinterpret_cast<uint8_t *>(start + past * size)))
            return true;
    }
    return false;
}

/// Looks through all memory that can be written but what is shared, memory given back included; first of all through
/// the stack that was given back last, which the rest of the search would write over.
UNCHECKED static void look_for_secrets()
{
    static constexpr size_t below = 32768;
    if (has_sanitizer || wanted_secrets.empty())  // a sanitizer's own books are large, and not to be read
        return;
    const auto *const here = static_cast<const uint8_t *>(__builtin_frame_address(0));
    written->held_secret |= is_held(here - below, here);
    FILE *const maps = fopen("/proc/self/maps", "r"), *const pagemap = fopen("/proc/self/pagemap", "r");
    if (maps == nullptr)
        abort();
    char line[512];
    while (fgets(line, sizeof line, maps) != nullptr) {
        unsigned long start = 0, end = 0;
        char rights[5] = "";
        if (sscanf(line, "%lx-%lx %4s", &start, &end, rights) == 3 && strcmp(rights, "rw-p") == 0)
            written->held_secret |= is_held_in_mapping(start, end, pagemap != nullptr ? fileno(pagemap) : -1);
    }
    fclose(maps);
    if (pagemap != nullptr)
        fclose(pagemap);
}

static void look_for_all_secrets()
{
    std::vector<const concealed *> all;
    for (const concealed &secret : played->secrets)
        all.push_back(&secret);
    want(std::move(all));
    look_for_secrets();
}

static bool holds_trace(const void *bytes, size_t length, const concealed &secret)
{
    const auto *place = static_cast<const uint8_t *>(bytes), *const end = place + length;
    while (place + trace_length <= end && !is_traced(place, secret))
        ++place;
    return place + trace_length <= end;
}

/// From the next call behind this exchange on, what it carries is to be forgotten.
static void want_what_is_sent(const void *bytes, size_t length)
{
    std::vector<const concealed *> sent;
    for (const concealed &secret : played->secrets)
        if (holds_trace(bytes, length, secret))
            sent.push_back(&secret);
    want(std::move(sent));
}

void look_for_sent_secrets()
{
    look_for_secrets();
    wanted_secrets.clear();
}

// The wire ----------------------------------------------------------------------------------------------------------

static constexpr size_t data_start = 6;  // of a frame
static constexpr size_t longest_frame = 256, most_payload = 1024;

/// The frame sent last, every bit the other way round.
static uint8_t current[longest_frame];
static size_t current_length;
static uint8_t frame(size_t place) { return uint8_t(~current[place]); }

static const exchange *answering;  // null: what is asked is not foreseen
static size_t attempt_number;      // of this exchange, counted from 0
static size_t answer_number;       // of this attempt
static unsigned receives;          // of this exchange
static size_t next_foreseen;       // of the conversation's exchanges
static std::vector<answer> stale;  // what the next receives find
bool is_granted;

static bool is_faulted()
{
    return faulted.kind != fault::none && !is_of_call(faulted.kind) && written->exchanges == faulted.place;
}

/// How much a foreseen request is like the one in hand: 0 = another command, the most = each byte of its data.
static size_t likeness(const concealed &foreseen)
{
    static constexpr size_t netfn = 1, command = 5;
    if (foreseen.at(netfn) != frame(netfn) || foreseen.at(command) != frame(command))
        return 0;
    const size_t data_end = std::min(foreseen.size(), current_length) - 1;
    size_t alike = 1 + (foreseen.size() == current_length ? 1 : 0);
    for (size_t n = data_start; n < data_end; ++n)
        alike += foreseen.at(n) == frame(n) ? 1 : 0;
    return alike;
}

/// The exchange with the request that is most like the one in hand: the next one of those, else the last one before, so
/// that who asks again and again finds what was said at the end.
static const exchange *most_alike()
{
    const std::vector<exchange> &all = played->exchanges;
    size_t most = 0, found = 0;
    for (size_t n = 0; n < all.size(); ++n) {
        const size_t alike = likeness(all[n].request);
        if (alike > most || (alike > 0 && alike == most && found < next_foreseen)) {
            most = alike;
            found = n;
        }
    }
    if (most == 0)
        return nullptr;
    next_foreseen = std::max(next_foreseen, found + 1);
    return &all[found];
}

static bool is_sent_again(const uint8_t *bytes, size_t length)
{
    if (length != current_length)
        return false;
    for (size_t n = 0; n < length; ++n)
        if (bytes[n] != frame(n))
            return false;
    return true;
}

static uint8_t sum(const std::vector<uint8_t> &bytes, size_t from)
{
    unsigned total = 0;
    for (size_t n = from; n < bytes.size(); ++n)
        total += bytes[n];
    return uint8_t(-total);
}

/// An answer to the request in hand.
static answer plain_answer(uint8_t completion)
{
    std::vector<uint8_t> payload = {0x63, uint8_t(frame(1) + 4)};
    payload.push_back(sum(payload, 0));
    payload.insert(payload.end(), {frame(0), frame(4), frame(5), completion});
    payload.push_back(sum(payload, 3));
    return {false, unsigned(payload.size()), payload};
}

/// As it was written down, but with the sequence number of today's request where it had the one of the request then.
static answer renumbered(answer given, const exchange &of)
{
    static constexpr size_t sequence = 4;
    if (given.none || given.payload.size() <= sequence)
        return given;
    const uint8_t before = given.payload[sequence];
    given.payload[sequence] = uint8_t(before ^ of.request.at(sequence) ^ frame(sequence));
    if (given.payload.size() > data_start)
        given.payload.back() = uint8_t(given.payload.back() + before - given.payload[sequence]);
    return given;
}

/// What the conversation has at this place of the exchange.
static answer answer_as_written()
{
    if (answering == nullptr)
        return plain_answer(0x00);
    const attempt &one = answering->attempts[std::min(attempt_number, answering->attempts.size() - 1)];
    return answer_number < one.answers.size() ? renumbered(one.answers[answer_number++], *answering) : answer{};
}

/// The answer that ends the exchange when nothing is wrong, whatever came first.
static answer last_answer()
{
    if (answering == nullptr)
        return plain_answer(0x00);
    const attempt &last = answering->attempts.back();
    return last.answers.empty() ? answer{} : renumbered(last.answers.back(), *answering);
}

static answer with_other_field(answer given)
{
    struct other {
        fault kind, once;
        size_t place;
        uint8_t bits;
    };
    static constexpr other fields[] = {
        {fault::of_other_netfn, fault::other_netfn_once, 1, 0x08},
        {fault::of_other_command, fault::other_command_once, 5, 0x01},
        {fault::of_other_address, fault::other_address_once, 3, 0x20},
        {fault::of_other_sequence, fault::other_sequence_once, 4, 0x80},
    };
    for (const other &field : fields)
        if (faulted.kind == field.kind || faulted.kind == field.once)
            given.payload[field.place] ^= field.bits;
    return given;
}

static answer cut_answer()
{
    answer given = last_answer();
    given.payload.resize(std::min<size_t>(given.payload.size(), faulted.value));
    given.length = unsigned(given.payload.size());
    return given;
}

static answer bad_length()
{
    answer given = plain_answer(0x00);
    given.length = faulted.value;
    return given;
}

static answer answer_with_fault()
{
    const bool is_first = receives == 1;
    switch (faulted.kind) {
    case fault::silent:
        return {};
    case fault::after_the_end:
        stale.clear();
        stale.push_back(plain_answer(0x00));
        return {};
    case fault::late:
        return is_first ? answer{} : answer_as_written();
    case fault::of_other_netfn:
    case fault::of_other_command:
    case fault::of_other_address:
    case fault::of_other_sequence:
        return with_other_field(plain_answer(0x00));
    case fault::other_netfn_once:
    case fault::other_command_once:
    case fault::other_address_once:
    case fault::other_sequence_once:
        return is_first ? with_other_field(plain_answer(0x00)) : answer_as_written();
    case fault::stale_before: {
        answer older = plain_answer(0x00);
        older.payload[4] = uint8_t(older.payload[4] - 4);
        return is_first ? older : answer_as_written();
    }
    case fault::bad_length:
        return bad_length();
    case fault::completion:
        return plain_answer(uint8_t(faulted.value));
    case fault::cut:
        return cut_answer();
    default:
        break;
    }
    return answer_as_written();
}

/// The conversation's attempts begin behind one that is lost by the fault.
static bool first_attempt_is_lost() { return is_outlived(faulted.kind); }

static void begin_exchange(const uint8_t *bytes, size_t length)
{
    look_for_sent_secrets();
    want_what_is_sent(bytes, length);
    current_length = std::min(length, longest_frame);
    for (size_t n = 0; n < current_length; ++n)
        current[n] = uint8_t(~bytes[n]);
    ++written->exchanges;
    if (is_faulted())
        written->fault_step = written->used;
    answering = most_alike();
    attempt_number = 0;
    receives = 0;
    is_granted = false;
}

int ipc_no_listen_init(int port) { return int(called("ipc_no_listen_init", std::to_string(port))); }

/// The handler has returned: what it knew is to be forgotten, what it took to be given back.
void ipc_exit()
{
    look_for_all_secrets();
    written->blocks_left = blocks_taken;
    written->descriptors_left = descriptors_open() - descriptors_before;
    called("ipc_exit");
}

int ipc_msg_send(const void *message, unsigned int length, unsigned int flags, unsigned int port)
{
    const bool failed = count_and_try("ipc_msg_send");
    const auto *bytes = static_cast<const uint8_t *>(message);
    const bool is_again = is_sent_again(bytes, length);
    if (is_again)
        ++attempt_number;
    else
        begin_exchange(bytes, length);
    answer_number = 0;
    note('S', {static_cast<const char *>(message), length});
    if (flags != 0 || port != 2001)
        note('C', "flags or port");
    if (failed)
        return int(failure_of("ipc_msg_send"));
    const bool with_fault = is_faulted();
    if (with_fault) {
        ++written->fault_sends;
        if (first_attempt_is_lost() && is_again)
            --attempt_number;
        if (faulted.kind == fault::unsent || (faulted.kind == fault::unsent_once && !is_again))
            return -1;
        if (!first_attempt_is_lost() || !is_again)
            return 0;
    }
    if (answering == nullptr)
        return 0;
    return answering->attempts[std::min(attempt_number, answering->attempts.size() - 1)].result;
}

/// What the tool may read of an answer: nothing where its length is none.
static std::string_view payload_of(const answer &given)
{
    const bool is_good = !given.none && given.length >= 1 && given.length <= most_payload;
    return {reinterpret_cast<const char *>(given.payload.data()),
            is_good ? std::min<size_t>(given.payload.size(), given.length) : 0};
}

/// Whether it is the answer to the request in hand, and says that it was done.
static bool grants(std::string_view payload)
{
    return payload.size() > data_start && uint8_t(payload[1]) >> 2 == (frame(1) >> 2) + 1 &&
           uint8_t(payload[3]) == frame(0) && uint8_t(payload[4]) == frame(4) && uint8_t(payload[5]) == frame(5) &&
           payload[data_start] == 0;
}

int ipc_msg_recv(void *message)
{
    const bool failed = count_and_try("ipc_msg_recv");
    ++receives;
    is_granted = false;
    answer given;
    if (failed) {
        note('R', "");
        return int(failure_of("ipc_msg_recv"));
    }
    if (!is_faulted() && !stale.empty()) {
        given = stale.back();
        stale.pop_back();
    } else {
        given = is_faulted() ? answer_with_fault() : answer_as_written();
    }
    note('R', payload_of(given));
    is_granted = grants(payload_of(given));
    if (given.none)
        return -1;
    auto *into = static_cast<uint8_t *>(message);
    static constexpr size_t header = 32;
    memset(into, 0xEE, header);
    into[8] = uint8_t(given.length);
    into[9] = uint8_t(given.length >> 8);
    memcpy(into + header, given.payload.data(), std::min(given.payload.size(), most_payload));
    return 7;
}

// OS abstraction ----------------------------------------------------------------------------------------------------

static void slept(uint64_t microseconds)
{
    count_and_try("sleep");
    note('Z', std::to_string(microseconds));
}
void vos_task_delay(unsigned int milliseconds) { slept(1000ULL * milliseconds); }
void vos_task_delay_us(unsigned int microseconds) { slept(microseconds); }

/// A result that no conversation has: the call does what it is asked for.
static constexpr long unasked = LONG_MIN;

static void remove_all(const char *path)
{
    touch_files();
    std::error_code failure;
    std::filesystem::remove_all(found_at(path), failure);
}

static std::string command_of(const char *path, char *const argv[])
{
    std::string words = path;
    for (int n = 0; argv[n] != nullptr; ++n)
        words += std::string(" ") + argv[n];
    return words;
}

/// Only the archiver and "rm -fr PATH" do their work.
int vos_system(const char *path, char *const argv[])
{
    const long result = called("vos_system", command_of(path, argv), unasked);
    if (result != unasked)
        return int(result);
    touch_files();
    if (strcmp(path, "/bin/rm") == 0)
        remove_all(argv[2]);
    return strcmp(path, "/bin/tar") == 0 ? unpack(root, argv) : 0;
}
int vos_environ_system(const char *path, char *const argv[])
{
    return int(called("vos_environ_system", command_of(path, argv)));
}

long vos_get_file_length(const char *path)
{
    std::error_code failure;
    const auto length = std::filesystem::file_size(found_at(path), failure);
    return called("vos_get_file_length", path, failure ? -1 : long(length));
}

int vos_get_file_name(const char *path, char *name, size_t name_size)
{
    const char *slash = strrchr(path, '/');
    return fails("vos_get_file_name") ? -1
                                      : vos_strncpy(name, name_size, slash != nullptr ? slash + 1 : path, name_size);
}

int vos_file_copy(const char *to, const char *from)
{
    const long result = called("vos_file_copy", std::string(to) + " " + from, unasked);
    std::error_code failure;
    if (result == unasked) {
        touch_files();
        std::filesystem::copy_file(found_at(from), found_at(to), std::filesystem::copy_options::overwrite_existing,
                                   failure);
    }
    return result == unasked ? (failure ? -1 : 0) : int(result);
}

int vos_rm_filepath(const char *path)
{
    const long result = called("vos_rm_filepath", path, is_to_fail("vos_rm_filepath", path) ? -1 : unasked);
    if (result == unasked)
        remove_all(path);
    return result == unasked ? 0 : int(result);
}

int vos_check_username(const char *name) { return int(called_with("vos_check_username", name)); }
int vos_check_incorrect_char(const char *text, const char *)
{
    return int(called_with("vos_check_incorrect_char", text));
}
unsigned int vos_rand() { return unsigned(called("vos_rand")); }

int vos_zentro_log(unsigned int log_class, const char *user, const char *origin, const char *module, const char *text)
{
    const bool failed = count_and_try("vos_zentro_log");
    note('L', std::to_string(log_class) + "\n" + user + "\n" + origin + "\n" + module + "\n" + text);
    return int(failed ? failure_of("vos_zentro_log") : result_of("vos_zentro_log"));
}

// Configuration parser ----------------------------------------------------------------------------------------------

void *CfgFileOpenReadOnly(const char *path)
{
    if (called("CfgFileOpenReadOnly", path, 1) == failure_of("CfgFileOpenReadOnly"))
        return nullptr;
    for (const file_found &file : played->files)
        if (file.path == path && file.kind == "file")
            return new cfg_file{file.content, ""};
    return nullptr;
}

long KeySearch(void *file, long start, const char *key, const char *separator, char **value, int *found)
{
    *value = nullptr;
    *found = 0;
    if (called("KeySearch", key, 1) == failure_of("KeySearch"))
        return 0;
    return static_cast<cfg_file *>(file)->find(start, key, separator, value, found);
}

void CfgFileClose(void *file)
{
    called("CfgFileClose");
    delete static_cast<cfg_file *>(file);
}

// Events, archive ---------------------------------------------------------------------------------------------------

static event parsed;  // the last one

int event_parse_init(const char *path) { return int(called("event_parse_init", path, 1)); }

int event_parse(const unsigned char[16], unsigned int *severity, const char **description)
{
    static size_t next;
    parsed = next < played->events.size() ? played->events[next++] : event{};
    *severity = parsed.severity;
    *description = parsed.is_described ? parsed.description.c_str() : nullptr;
    return int(fails("event_parse") ? failure_of("event_parse") : result_of("event_parse"));
}

unsigned long event_get_code(const unsigned char[16]) { return parsed.code; }

const char *get_sensor_type_name(unsigned char sensor_type) { return type_name(sensor_type); }

int tar_gzip_pack(const char *, const char *, const char *archive) { return int(called("tar_gzip_pack", archive)); }

// Board access ------------------------------------------------------------------------------------------------------

int cpld_init() { return int(called("cpld_init")); }
int fpga_Init() { return int(called("fpga_Init")); }
void cpld_clean() { called("cpld_clean"); }
void fpga_clean() { called("fpga_clean"); }
int get_mac_num() { return int(called("get_mac_num")); }

/// What is read is all "E"; nothing is when the call fails.
int i2c_write_read(int, int, const unsigned char *, int, unsigned char *read, int read_length, int)
{
    const int result = int(called("i2c_write_read"));
    if (result >= 0)
        memset(read, 'E', size_t(read_length));
    return result;
}

int get_bios(const char *path, unsigned int) { return int(called("get_bios", path)); }
int set_bios_owner(int owner) { return int(called("set_bios_owner", std::to_string(owner))); }
int spi_flash_copy(const char *device, unsigned int, const char *, unsigned int, unsigned int, int, int)
{
    return int(called("spi_flash_copy", device));
}
int set_bios_print_flag(int on) { return int(called("set_bios_print_flag", std::to_string(on))); }

// A run -------------------------------------------------------------------------------------------------------------

/// A full device, or a pipe that nobody reads, takes nothing.
static ssize_t show(void *, const char *text, size_t size)
{
    if (fails("screen") || played->screen == "full" || played->screen == "gone")
        return failure_of("screen");
    note('T', {text, size});
    return ssize_t(size);
}

/// Standard output becomes a terminal's, shown line by line, or a file's.
static void open_screen()
{
    static char buffer[BUFSIZ];
    cookie_io_functions_t screen{};
    screen.write = show;
    stdout = fopencookie(nullptr, "w", screen);
    setvbuf(stdout, buffer, played->screen == "file" ? _IOFBF : _IOLBF, sizeof buffer);
}

void __wrap_exit(int status)
{
    fflush(stdout);
    look_for_all_secrets();
    written->status = status;
    written->ended = true;
    _exit(0);
}

void play(const conversation &with, const fault_at &at, const std::string &root_folder, unsigned calls, record &into)
{
    root = root_folder;
    faulted = at;
    most_calls = calls;
    clearenv();
    for (const std::string &entry : with.environment)
        putenv(const_cast<char *>(entry.c_str()));
    std::vector<char *> argv;
    for (const std::string &word : with.words)
        argv.push_back(const_cast<char *>(word.c_str()));
    argv.push_back(nullptr);
    for (const int number : with.closed)
        close(number);
    played = &with;
    written = &into;
    open_screen();
    blocks_taken = 0;
    descriptors_before = descriptors_open();
    tool_main(int(with.words.size()), argv.data());
    _exit(1);  // main() ends by exit()
}

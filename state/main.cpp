/// cfgtool-state: how the controller is set, read with requests that change nothing.
#include "ipmi/privilege.h"
#include "platform/platform.h"
#include "state/areas.h"
#include "state/complaints.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

static constexpr int status_read = 0, status_not_all_read = 1, status_not_done = 2;
static constexpr uint8_t administrator = 4;  // what every command of cfgtool requires
static constexpr int client_port = 0;

// Options -----------------------------------------------------------------------------------------------------------

static constexpr char help[] =
    "Usage: cfgtool-state [--json] [AREA...]\n"
    "Shows how the controller is set; it changes nothing. Without an AREA it shows all.\n"
    "Areas:\n"
    "  device     what the controller is          network    addresses of the management port\n"
    "  power      the host's power, identify LED  users      accounts and their privileges\n"
    "  boot       how the host boots              sensors    readings, thresholds and hysteresis\n"
    "  fans       mode and level                  traps      SNMP traps and where they go\n"
    "  leds       the LEDs of the panel           event-log  entries and free space\n"
    "  clock      time and its offset from UTC\n"
    "Options:\n"
    "  --json     one JSON document for programs\n"
    "  --help     this text\n"
    "  --version  the version\n"
    "Exit status: 0 all was read, 1 something was not answered (the rest is shown), 2 misused or not permitted\n";

/// In the order of the document.
struct area {
    const char *word, *key;
    area_reader *read;
    node::kind kind = node::kind::object;
};
static constexpr area areas[] = {
    {"device", "device", read_device},
    {"power", "power", read_power},
    {"boot", "boot", read_boot},
    {"fans", "fans", read_fans},
    {"leds", "leds", read_leds},
    {"clock", "clock", read_clock},
    {"network", "network", read_network},
    {"users", "users", read_users, node::kind::list},
    {"sensors", "sensors", read_sensors, node::kind::list},
    {"traps", "traps", read_traps},
    {"event-log", "event_log", read_event_log},
};

struct options {
    bool json = false, help = false, version = false;
    bool wanted[std::size(areas)] = {};
};

static bool *find_option(options &typed, const char *word)
{
    if (strcmp(word, "--json") == 0)
        return &typed.json;
    if (strcmp(word, "--help") == 0)
        return &typed.help;
    if (strcmp(word, "--version") == 0)
        return &typed.version;
    for (size_t n = 0; n < std::size(areas); ++n)
        if (strcmp(word, areas[n].word) == 0)
            return &typed.wanted[n];
    return nullptr;
}

/// False = there is an unknown word, and it has been named.
static bool take_options(char **words, options &typed)
{
    bool all = true;
    for (; *words != nullptr; ++words) {
        bool *const option = find_option(typed, *words);
        if (option == nullptr) {
            remark("%s: unknown %s; see cfgtool-state --help", *words, **words == '-' ? "option" : "area");
            return false;
        }
        *option = true;
        all = all && **words == '-';
    }
    for (bool &wanted : typed.wanted)
        wanted = wanted || all;
    return true;
}

// The run -----------------------------------------------------------------------------------------------------------

/// What was not answered at all is not there.
static void read_areas(report &to, const options &typed)
{
    to.all.put("format", 1);
    for (size_t n = 0; n < std::size(areas) && !controller_is_gone(); ++n) {
        node made(areas[n].kind);
        if (typed.wanted[n] && (areas[n].read(to, made) || made.holds_anything()))
            to.all.take_over(areas[n].key, made);
    }
    to.all.take_over("unreadable", to.unreadable);
}

static bool wants_colours()
{
    const char *const terminal = getenv("TERM"), *const no_colour = getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) == 1 && (no_colour == nullptr || *no_colour == '\0') &&
           (terminal == nullptr || strcmp(terminal, "dumb") != 0);
}

static int finish(int status)
{
    if (fflush(stdout) == 0 && ferror(stdout) == 0)
        return status;
    remark("standard output: %s", strerror(errno));
    return status_not_all_read;
}

static int show_state(const options &typed)
{
    if (const char *const refusal = privilege_refusal(administrator)) {
        remark("%s", refusal);
        return status_not_done;
    }
    report made;
    read_areas(made, typed);
    if (typed.json)
        print_json(stdout, made.all);
    else
        print_table(stdout, made.all, wants_colours());
    return finish(has_complained() ? status_not_all_read : status_read);
}

/// A closed standard descriptor would be taken by the next file or socket.
static void fill_standard_descriptors()
{
    for (int descriptor = 0; descriptor <= 2; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1)
            (void)open("/dev/null", O_RDWR);
}

int main(int, char **argv)
{
    fill_standard_descriptors();
    options typed;
    if (!take_options(argv + 1, typed))
        return status_not_done;
    if (typed.help || typed.version) {
        fputs(typed.help ? help : "cfgtool-state " CFGTOOL_VERSION "\n", stdout);
        return finish(status_read);
    }
    if (ipc_no_listen_init(client_port) != 0)
        complain("the message client cannot be started");
    const int status = show_state(typed);
    ipc_exit();
    return status;
}

/// platform-check: which promises of platform.h does a platform library keep? For whoever ports the tool to a board: it
/// needs nothing but libc and that header, and is linked with the board's own libraries, for example
///
///     g++ -std=c++17 -I . platform/linux/platform_check.cpp -L BOARD/lib -lBOARD -o platform-check
///
/// It works in a folder of its own and touches no device, so it may be run on a controller at work.
#include "platform/platform.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <getopt.h>
#include <sys/stat.h>
#include <unistd.h>

static const char usage[] =
    "Usage: platform-check [--service] [--log] [--event-table FILE]\n"
    "  --service           an IPMI service is running: not reaching it counts as broken\n"
    "  --log               write one record to the operation log\n"
    "  --event-table FILE  an event table in the library's own format\n"
    "One line for each promise: \"ok\", \"BROKEN\" or \"not tried\". The exit status is 0 when nothing is broken.\n";

static struct {
    bool service = false, log = false;
    const char *event_table = nullptr;
} wanted;

static struct {
    int kept = 0, broken = 0, not_tried = 0;
} counts;

static char folder[] = "/tmp/platform-check-XXXXXX";
static const char *running = "start";  // whose fault it is when nothing more comes

// Reports -----------------------------------------------------------------------------------------------------------

static void check(const char *call, bool holds, const char *promise)
{
    ++(holds ? counts.kept : counts.broken);
    printf("%s: %s: %s\n", holds ? "ok" : "BROKEN", call, promise);
}

static void not_tried(const char *call, const char *why)
{
    ++counts.not_tried;
    printf("not tried: %s: %s\n", call, why);
}

/// A call that crashes or does not come back ends the run. Only what a signal handler may call is called.
static void died(int signal)
{
    static const char late[] = ": did not return within a minute\n", crashed[] = ": crashed\n";
    const char *const what = signal == SIGALRM ? late : crashed;
    const char *const parts[] = {"BROKEN: ", running, what};
    for (const char *part : parts)
        if (write(STDOUT_FILENO, part, strlen(part)) < 0)
            break;
    _exit(1);
}

static void begin(const char *call)
{
    running = call;
    fflush(stdout);  // what was found so far is not lost with a crash
    alarm(60);
}

// Files of the run --------------------------------------------------------------------------------------------------

struct path_text {
    char text[256];
};

static path_text in_folder(const char *name)
{
    path_text path{};
    snprintf(path.text, sizeof path.text, "%s/%s", folder, name);
    return path;
}

static path_text make_file(const char *name, const char *contents)
{
    const path_text path = in_folder(name);
    FILE *file = fopen(path.text, "w");
    if (file == nullptr || fputs(contents, file) < 0 || fclose(file) != 0) {
        perror(path.text);
        exit(2);
    }
    return path;
}

static bool holds(const path_text &path, const char *contents)
{
    char read[256] = "";
    FILE *file = fopen(path.text, "r");
    if (file == nullptr)
        return false;
    const size_t length = fread(read, 1, sizeof read - 1, file);
    fclose(file);
    return length == strlen(contents) && memcmp(read, contents, length) == 0;
}

static bool exists(const path_text &path)
{
    struct stat about;
    return lstat(path.text, &about) == 0;
}

// Message library ---------------------------------------------------------------------------------------------------

/// Get Device ID, IPMI 2.0: it changes nothing.
static const unsigned char get_device_id[] = {0x00, 0x18, 0xE8, 0x63, 0x00, 0x01, 0x9C};

static void check_answer()
{
    static unsigned char record[1056 + 16];
    memset(record, 0xEE, sizeof record);
    begin("ipc_msg_recv");
    const bool received = ipc_msg_recv(record) != -1;
    check("ipc_msg_recv", received, "brings the answer of the service");
    if (!received)
        return;
    const unsigned length = record[8] + record[9] * 256U;
    check("ipc_msg_recv", length >= 8 && length <= 1024, "tells the payload's length at bytes 8-9");
    check("ipc_msg_recv", record[32 + 1] >> 2 == 0x07 && record[32 + 5] == 0x01, "puts the payload at byte 32");
    bool within = true;
    for (int n = 1056; n < 1056 + 16; ++n)
        within = within && record[n] == 0xEE;
    check("ipc_msg_recv", within, "fills 1056 bytes at the most");
}

static void check_messages()
{
    begin("ipc_no_listen_init");
    const bool started = ipc_no_listen_init(0) == 0;
    check("ipc_no_listen_init", started, "starts the client");
    begin("ipc_msg_send");
    if (started && ipc_msg_send(get_device_id, sizeof get_device_id, 0, 2001) == 0) {
        check("ipc_msg_send", true, "sends a request to port 2001");
        check_answer();
    } else if (wanted.service) {
        check("ipc_msg_send", false, "sends a request to port 2001");
        not_tried("ipc_msg_recv", "nothing could be sent");
    } else {
        not_tried("ipc_msg_send", "no IPMI service takes messages at port 2001");
        not_tried("ipc_msg_recv", "no IPMI service takes messages at port 2001");
    }
    begin("ipc_exit");
    ipc_exit();
    check("ipc_exit", true, "returns");
}

// OS abstraction ----------------------------------------------------------------------------------------------------

static void check_memory()
{
    begin("vos_memset");
    char text[8] = "abcdefg";
    check("vos_memset", vos_memset(text, sizeof text, 'x', 3) == 0 && strcmp(text, "xxxdefg") == 0, "fills");
    check("vos_memset", vos_memset(text, 2, 'y', 3) != 0 && strcmp(text, "xxxdefg") == 0,
          "refuses more than there is room for, and writes nothing");
    begin("vos_memcpy");
    check("vos_memcpy", vos_memcpy(text, sizeof text, "123", 3) == 0 && strcmp(text, "123defg") == 0, "copies");
    check("vos_memcpy", vos_memcpy(text, 2, "789", 3) != 0 && strcmp(text, "123defg") == 0,
          "refuses more than there is room for, and writes nothing");
}

static void check_texts()
{
    begin("vos_strncpy");
    char text[8] = "zzzzzzz";
    check("vos_strncpy", vos_strncpy(text, sizeof text, "abc", 7) == 0 && strcmp(text, "abc") == 0, "copies a text");
    check("vos_strncpy", vos_strncpy(text, sizeof text, "12345", 2) == 0 && strcmp(text, "12") == 0,
          "copies at most the count, and terminates");
    memcpy(text, "zzzzzzz", 8);
    vos_strncpy(text, 4, "123456", 6);
    check("vos_strncpy", memchr(text, '\0', 4) != nullptr && strcmp(text + 4, "zzz") == 0,
          "terminates within the room there is");

    begin("vos_strncat");
    memcpy(text, "ab\0zzzz", 8);
    check("vos_strncat", vos_strncat(text, sizeof text, "cd", 7) == 0 && strcmp(text, "abcd") == 0, "appends a text");
    check("vos_strncat", vos_strncat(text, sizeof text, "123", 1) == 0 && strcmp(text, "abcd1") == 0,
          "appends at most the count, and terminates");
    memcpy(text, "ab\0zzzz", 8);
    vos_strncat(text, 4, "123456", 6);
    check("vos_strncat", memchr(text, '\0', 4) != nullptr && strcmp(text + 4, "zzz") == 0,
          "terminates within the room there is");

    begin("vos_snprintf");
    char short_text[4];
    check("vos_snprintf",
          vos_snprintf(short_text, sizeof short_text, "%d-%s", 12, "x") == 4 && strcmp(short_text, "12-") == 0,
          "formats as snprintf does");

    begin("vos_check_incorrect_char");
    check("vos_check_incorrect_char", vos_check_incorrect_char("a;b", "|;") != 0, "finds one of the characters");
    check("vos_check_incorrect_char", vos_check_incorrect_char("ab", "|;") == 0, "finds none where there is none");

    begin("vos_check_username");
    check("vos_check_username", vos_check_username("operator1") == 0, "permits a user name of letters and digits");
}

static long milliseconds_of(void (*delay)(unsigned), unsigned duration)
{
    timespec start{}, end{};
    clock_gettime(CLOCK_MONOTONIC, &start);
    delay(duration);
    clock_gettime(CLOCK_MONOTONIC, &end);
    return long(end.tv_sec - start.tv_sec) * 1000 + (end.tv_nsec - start.tv_nsec) / 1000000;
}

static void check_delays_and_chance()
{
    begin("vos_task_delay");
    check("vos_task_delay", milliseconds_of(vos_task_delay, 50) >= 49, "sleeps in milliseconds");
    begin("vos_task_delay_us");
    check("vos_task_delay_us", milliseconds_of(vos_task_delay_us, 50000) >= 49, "sleeps in microseconds");

    begin("vos_rand");
    const unsigned first = vos_rand();
    bool differs = false;
    for (int n = 0; n < 32; ++n)
        differs = vos_rand() != first || differs;
    check("vos_rand", differs, "gives one number and another");
}

static int run(int (*call)(const char *, char *const[]), const char *path, const char *script)
{
    char shell[] = "/bin/sh", option[] = "-c", text[128];
    snprintf(text, sizeof text, "%s", script);
    char *const words[] = {shell, option, text, nullptr};
    return call(path, words);
}

static void check_programs()
{
    const path_text absent = in_folder("absent");
    setenv("PLATFORM_CHECK", "here", 1);
    begin("vos_system");
    check("vos_system", run(vos_system, "/bin/sh", "exit 0") == 0, "gives exit status 0");
    check("vos_system", run(vos_system, "/bin/sh", "exit 7") == 7, "gives another exit status");
    check("vos_system", run(vos_system, absent.text, "exit 0") == -1, "gives -1 for a program that is not there");
    begin("vos_environ_system");
    check("vos_environ_system", run(vos_environ_system, "/bin/sh", "exit 7") == 7, "gives the exit status");
    check("vos_environ_system", run(vos_environ_system, "/bin/sh", "test \"$PLATFORM_CHECK\" = here") == 0,
          "hands over the caller's environment");
    check("vos_environ_system", run(vos_environ_system, absent.text, "exit 0") == -1,
          "gives -1 for a program that is not there");
}

static void check_files()
{
    const path_text file = make_file("file", "12345"), copy = in_folder("copy"), absent = in_folder("absent");
    begin("vos_get_file_length");
    check("vos_get_file_length", vos_get_file_length(file.text) == 5, "gives the length");
    check("vos_get_file_length", vos_get_file_length(absent.text) == -1, "gives -1 for a file that is not there");

    begin("vos_get_file_name");
    char name[16] = "";
    check("vos_get_file_name",
          vos_get_file_name("/tmp/image.hpm", name, sizeof name) == 0 && strcmp(name, "image.hpm") == 0,
          "gives the last component of a path");
    check("vos_get_file_name", vos_get_file_name("image.hpm", name, sizeof name) == 0 && strcmp(name, "image.hpm") == 0,
          "gives a bare name");

    begin("vos_file_copy");
    check("vos_file_copy", vos_file_copy(copy.text, file.text) == 0 && holds(copy, "12345") && holds(file, "12345"),
          "copies, the destination first");
    check("vos_file_copy", vos_file_copy(copy.text, absent.text) != 0, "fails for a file that is not there");

    begin("vos_rm_filepath");
    check("vos_rm_filepath", vos_rm_filepath(copy.text) == 0 && !exists(copy), "removes a file");
    const path_text inner = in_folder("inner");
    mkdir(inner.text, 0700);
    make_file("inner/one", "1");
    mkdir(in_folder("inner/deeper").text, 0700);
    make_file("inner/deeper/two", "2");
    check("vos_rm_filepath",
          symlink(file.text, in_folder("inner/link").text) == 0 && vos_rm_filepath(inner.text) == 0 && !exists(inner) &&
              holds(file, "12345"),
          "removes a folder with all that is in it");
}

static void check_log()
{
    if (!wanted.log)
        return not_tried("vos_zentro_log", "it would write to the operation log (--log)");
    begin("vos_zentro_log");
    check("vos_zentro_log", vos_zentro_log(2, "platform-check", "console", "Zentro", "Platform check") == 0,
          "writes a record");
}

// Configuration parser ----------------------------------------------------------------------------------------------

struct found_key {
    long position;
    bool found;
    const char *value;

    bool is(const char *text) const { return position > 0 && found && value != nullptr && strcmp(value, text) == 0; }
    bool is_none() const { return position == 0 && !found; }
};

static found_key search(void *file, long start, const char *key)
{
    char *value = nullptr;
    int found = 7;
    const long position = KeySearch(file, start, key, "=", &value, &found);
    return {position, found == 1, value};
}

static void check_configuration()
{
    const path_text file = make_file("conf", "[FIRST]\none=1\nempty=\n[SECOND]\nname=eth0\n");
    begin("CfgFileOpenReadOnly");
    check("CfgFileOpenReadOnly", CfgFileOpenReadOnly(in_folder("absent").text) == nullptr,
          "gives null for a file that is not there");
    void *opened = CfgFileOpenReadOnly(file.text);
    check("CfgFileOpenReadOnly", opened != nullptr, "opens a file");
    if (opened == nullptr)
        return not_tried("KeySearch", "no file is open");

    begin("KeySearch");
    const found_key first = search(opened, 0, "[FIRST]"), second = search(opened, first.position, "[SECOND]");
    check("KeySearch", first.position > 0 && first.found, "finds a section, at a position above 0");
    check("KeySearch", second.position > first.position && second.found, "finds the section behind it");
    check("KeySearch", search(opened, 0, "[THIRD]").is_none(), "finds no section that is not there");
    check("KeySearch", search(opened, first.position, "one").is("1"), "finds a key and its value");
    check("KeySearch", search(opened, first.position, "empty").is(""), "gives an empty value where there is none");
    check("KeySearch", search(opened, first.position, "name").is_none(), "searches up to the next section line");
    check("KeySearch", search(opened, second.position, "name").is("eth0"), "finds a key of the second section");
    begin("CfgFileClose");
    CfgFileClose(opened);
    check("CfgFileClose", true, "returns");
}

// Events, archive ---------------------------------------------------------------------------------------------------

static void check_events()
{
    begin("get_sensor_type_name");
    bool always = true;
    for (unsigned type = 0; type < 256; ++type)
        always = always && get_sensor_type_name(static_cast<unsigned char>(type)) != nullptr;
    check("get_sensor_type_name", always, "is never null");

    begin("event_parse_init");
    check("event_parse_init", event_parse_init(in_folder("absent").text) == 0, "gives 0 for a table that is not there");
    if (wanted.event_table == nullptr) {
        not_tried("event_parse", "no event table is named (--event-table)");
        return not_tried("event_get_code", "no event table is named (--event-table)");
    }
    check("event_parse_init", event_parse_init(wanted.event_table) != 0, "loads the table");
    const unsigned char record[16] = {1, 0, 0x02, 0, 0, 0, 0x60, 0x20, 0, 0x04, 0x01, 0x30, 0x01, 0x59, 0, 0};
    unsigned severity = 0xDEAD;
    const char *const unset = "unset", *description = unset;
    begin("event_parse");
    event_parse(record, &severity, &description);
    check("event_parse", severity != 0xDEAD && description != unset, "sets severity and description");
    begin("event_get_code");
    check("event_get_code", (event_get_code(record) & ~0xFFFFFFFFUL) == 0, "gives a code of 32 bits");
}

static bool unpacks(const path_text &archive, const char *into)
{
    const path_text folder_ = in_folder(into);
    mkdir(folder_.text, 0700);
    char command[600];
    snprintf(command, sizeof command, "/bin/tar -xzf %s -C %s", archive.text, folder_.text);
    return system(command) == 0;
}

static void check_archive()
{
    const path_text source = in_folder("pack"), archive = in_folder("packed.tar");
    mkdir(source.text, 0700);
    make_file("pack/a.csv", "a");
    make_file("pack/b.bin", "b");
    begin("tar_gzip_pack");
    check("tar_gzip_pack",
          tar_gzip_pack(source.text, "*", archive.text) == 0 && unpacks(archive, "all") &&
              holds(in_folder("all/a.csv"), "a") && holds(in_folder("all/b.bin"), "b"),
          "packs the files of a folder");
    check("tar_gzip_pack",
          tar_gzip_pack(source.text, "*.csv", archive.text) == 0 && unpacks(archive, "some") &&
              holds(in_folder("some/a.csv"), "a") && !exists(in_folder("some/b.bin")),
          "packs those that match the pattern");
    check("tar_gzip_pack", tar_gzip_pack(in_folder("absent").text, "*", archive.text) != 0,
          "fails for a folder that is not there");
}

// Board access ------------------------------------------------------------------------------------------------------

static void check_board()
{
    begin("cpld_init");
    cpld_init();
    check("cpld_init", true, "returns");
    begin("fpga_Init");
    fpga_Init();
    check("fpga_Init", true, "returns");
    begin("get_mac_num");
    const int count = get_mac_num();
    char text[64];
    snprintf(text, sizeof text, "returns (%d%s)", count, count > 0 ? "" : ", unknown");
    check("get_mac_num", true, text);
    begin("cpld_clean");
    cpld_clean();
    check("cpld_clean", true, "returns");
    begin("fpga_clean");
    fpga_clean();
    check("fpga_clean", true, "returns");

    not_tried("i2c_write_read", "it would write to a device");
    not_tried("get_bios", "it may take the BIOS flash from the host");
    not_tried("set_bios_owner", "it would take the BIOS flash from the host");
    not_tried("spi_flash_copy", "it would write to the BIOS flash");
    not_tried("set_bios_print_flag", "it would change a setting of the host");
}

// -------------------------------------------------------------------------------------------------------------------

static bool parse_options(int argc, char **argv)
{
    static const option known[] = {{"service", no_argument, nullptr, 's'},
                                   {"log", no_argument, nullptr, 'l'},
                                   {"event-table", required_argument, nullptr, 'e'},
                                   {nullptr, 0, nullptr, 0}};
    opterr = 0;  // the usage says it all
    for (int choice; (choice = getopt_long(argc, argv, "", known, nullptr)) != -1;) {
        if (choice == 's')
            wanted.service = true;
        else if (choice == 'l')
            wanted.log = true;
        else if (choice == 'e')
            wanted.event_table = optarg;
        else
            return false;
    }
    return optind == argc;
}

int main(int argc, char **argv)
{
    if (!parse_options(argc, argv)) {
        fputs(usage, stderr);
        return 2;
    }
    if (mkdtemp(folder) == nullptr) {
        perror(folder);
        return 2;
    }
    static const int deaths[] = {SIGALRM, SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL};
    for (const int death : deaths)
        signal(death, died);

    check_messages();
    check_memory();
    check_texts();
    check_delays_and_chance();
    check_programs();
    check_files();
    check_log();
    check_configuration();
    check_events();
    check_archive();
    check_board();

    char command[64];
    snprintf(command, sizeof command, "/bin/rm -rf %s", folder);
    if (system(command) != 0)
        fprintf(stderr, "%s could not be removed\n", folder);
    printf("%d ok, %d broken, %d not tried\n", counts.kept, counts.broken, counts.not_tried);
    return counts.broken == 0 ? 0 : 1;
}

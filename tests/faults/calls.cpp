/// The calls of the tool that can fail, and the trouble that comes at one of them.
#include "tests/faults/platform.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <unistd.h>

struct failing_call {
    const char *name;
    long result;
    int error = 0;
    bool is_interruptible = false;
};
static constexpr failing_call failing_calls[] = {
    // libc
    {"malloc", 0, ENOMEM},
    {"calloc", 0, ENOMEM},
    {"realloc", 0, ENOMEM},
    {"open", -1, EMFILE, true},
    {"close", -1, EIO},
    {"mkostemp", -1, ENOSPC},
    {"read", -1, EIO, true},
    {"write", -1, ENOSPC, true},
    {"lseek", -1, EIO},
    {"lock", -1, ENOLCK, true},
    {"fchown", -1, EPERM},
    {"fchmod", -1, EPERM},
    {"mkdir", -1, ENOSPC},
    {"unlink", -1, EROFS},
    {"rename", -1, EROFS},
    {"stat", -1, EACCES},
    {"lstat", -1, EACCES},
    {"fstat", -1, EIO},
    {"opendir", 0, EMFILE},
    {"readdir", 0, EIO},
    {"fdopendir", 0, ENOMEM},
    {"openat", -1, EMFILE},
    {"statx", -1, EACCES},
    {"unlinkat", -1, EROFS},
    {"isatty", 0, ENOTTY},
    {"tcgetattr", -1, EIO},
    {"tcsetattr", -1, EIO},
    {"tcsetattr back", -1, EIO},
    {"poll", -1, ENOMEM, true},
    {"key", -1, EIO},
    {"key of the rest", -1, EIO},
    {"screen", 0, EIO},
    // The platform
    {"ipc_no_listen_init", -1},
    {"ipc_msg_send", -1},
    {"ipc_msg_recv", -1},
    {"vos_system", -1},
    {"vos_environ_system", -1},
    {"vos_get_file_length", -1},
    {"vos_get_file_name", -1},
    {"vos_file_copy", -1},
    {"vos_rm_filepath", -1},
    {"vos_check_username", -1},
    {"vos_check_incorrect_char", 1},
    {"vos_zentro_log", -1},
    {"CfgFileOpenReadOnly", 0},
    {"KeySearch", 0},
    {"event_parse_init", 0},
    {"event_parse", 0},
    {"tar_gzip_pack", -1},
    {"cpld_init", -1},
    {"fpga_Init", -1},
    {"get_mac_num", -1},
    {"i2c_write_read", -1},
    {"get_bios", -1},
    {"set_bios_owner", -1},
    {"spi_flash_copy", -1},
    {"set_bios_print_flag", -1},
};

static const failing_call *find(std::string_view name)
{
    const auto found = std::find_if(std::begin(failing_calls), std::end(failing_calls),
                                    [name](const failing_call &row) { return row.name == name; });
    return found != std::end(failing_calls) ? found : nullptr;
}

bool can_fail(std::string_view name) { return find(name) != nullptr; }
bool can_be_interrupted(std::string_view name) { return can_fail(name) && find(name)->is_interruptible; }
long failure_of(std::string_view name) { return find(name)->result; }

/// Calls of an exchange that goes on. Why it has failed may be told before what was sent is forgotten.
static bool is_of_exchange(std::string_view name)
{
    return name == "ipc_msg_send" || name == "ipc_msg_recv" || name == "sleep" || (name == "screen" && !is_granted);
}

bool fails(const char *name)
{
    static std::string_view failing;
    if (!is_of_exchange(name))
        look_for_sent_secrets();
    const bool is_here = ++written->points == faulted.place && is_of_call(faulted.kind);
    if (is_here)
        written->fault_step = written->used;
    note('P', name);
    if (is_here && faulted.kind == fault::signal_comes)
        raise(int(faulted.value));
    if (is_here && faulted.kind == fault::is_killed)
        raise(SIGKILL);
    if (is_here && (is_failure(faulted.kind) || faulted.kind == fault::interrupted))
        failing = name;
    if (failing != name || (!is_here && faulted.kind != fault::fails_from_here))
        return false;
    errno = faulted.kind == fault::interrupted ? EINTR : find(name)->error;
    return true;
}

#include "cli/blacklist.h"
#include "cli/options.h"
#include "platform/platform.h"
#include "system/board_profile.h"
#include "ui/console.h"
#include "ui/status.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>

static constexpr int CLI_MODULE_PORT = 0;

/// A closed standard descriptor would be taken by the next file or socket opened, and texts be printed into it.
static void fill_standard_descriptors()
{
    pollfd standard[] = {{.fd = 0, .events = 0, .revents = 0},
                         {.fd = 1, .events = 0, .revents = 0},
                         {.fd = 2, .events = 0, .revents = 0}};
    if (poll(standard, 3, 0) <= 0)
        return;
    for (const pollfd &descriptor : standard)
        if ((descriptor.revents & POLLNVAL) != 0)
            (void)open("/dev/null", O_RDWR);  // takes the lowest that is free: this one
}

/// A reader that goes away or a full disk shall not end the run half-way.
static void ignore_output_signals()
{
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

int main(int argc, char **argv)
{
    ignore_output_signals();
    fill_standard_descriptors();
    open_status();

    cpld_init();
    fpga_Init();
    if (ipc_no_listen_init(CLI_MODULE_PORT) != 0)
        say("ipmc_init: ipc_no_listen_init CLI_MODULE_PORT failed!");
    read_board_profile();
    read_blacklist();
    run_command_line(argc, argv);
    ipc_exit();
    cpld_clean();
    fpga_clean();
    write_status({"end"});
    exit(0);  // whatever happened: success and failure are reported by the printed text alone
}

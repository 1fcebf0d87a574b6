/// Stands in for the tool where the search for secrets is tested: makes a secret out of its second word and leaves it,
/// or some of it, where the first one says.
#include "platform/platform.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>

static char kept[64];

/// The word itself, which everybody can see, has one bit of each character the other way round.
static void make_secret(char *to, const char *from, size_t first = 0, size_t end = 64)
{
    for (size_t n = first; n < end && from[n] != '\0'; ++n)
        to[n - first] = static_cast<char>(from[n] ^ 1);
}

[[gnu::noinline]] static void leave_on_the_stack(const char *word)
{
    char passing[4096] = "";  // deep: what lies above it is overwritten by the next call
    make_secret(passing, word);
    asm volatile("" ::"r"(passing) : "memory");
}

[[gnu::noinline]] static void leave_on_the_heap(const char *word, bool given_back)
{
    auto *place = static_cast<char *>(calloc(1, 128));
    make_secret(place + 64, word);
    asm volatile("" ::"r"(place) : "memory");
    if (given_back)
        free(place);
}

static void read_key_of_a_dumpable()
{
    termios before;
    tcgetattr(STDIN_FILENO, &before);
    termios raw = before;
    cfmakeraw(&raw);
    tcsetattr(STDIN_FILENO, TCSANOW, &raw);
    getchar();
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
}

/// Leaves nothing, but waits until it has been typed, and shown.
static void read_line()
{
    char line[64];
    const ssize_t length = read(STDIN_FILENO, line, sizeof line);
    vos_memset(line, sizeof line, 0, size_t(length > 0 ? length : 0));
}

static void leave(std::string_view place, const char *word)
{
    if (place == "static" || place == "wiped")
        make_secret(kept, word);
    if (place == "wiped")
        vos_memset(kept, sizeof kept, 0, sizeof kept);
    if (place == "start")
        make_secret(kept, word, 0, 6);
    if (place == "middle")
        make_secret(kept, word, 1, 7);
    if (place == "little")
        make_secret(kept, word, 0, 5);
    if (place == "stack")
        leave_on_the_stack(word);
    if (place == "heap" || place == "freed")
        leave_on_the_heap(word, place == "freed");
    if (place == "shown")
        read_line();
    if (place == "dumpable")
        read_key_of_a_dumpable();
}

int main(int, char **argv)
{
    cpld_init();
    fpga_Init();
    ipc_no_listen_init(0);
    CfgFileClose(CfgFileOpenReadOnly("/data/cli.conf"));
    vos_get_file_length("/data/blacklist");
    leave(argv[1], argv[2]);
    vos_task_delay(1);
    vos_memset(kept, sizeof kept, 0, sizeof kept);
    ipc_exit();
    cpld_clean();
    fpga_clean();
    exit(0);
}

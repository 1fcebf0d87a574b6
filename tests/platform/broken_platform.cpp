/// Platform calls that break their promises, each in a way that a board's library might. platform-check has to tell.
#include "platform/platform.h"

#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <spawn.h>
#include <unistd.h>

int vos_memset(void *to, size_t, int value, size_t count)  // no bounds, but within the memory that the check gives it
{
    memset(to, value, count);
    return 0;
}

int vos_strncpy(char *to, size_t, const char *from, size_t count)  // does not terminate
{
    strncpy(to, from, count);
    return 0;
}

void vos_task_delay(unsigned) {}

unsigned vos_rand() { return 4; }

int vos_system(const char *, char *const *) { return 0; }

const char *get_sensor_type_name(unsigned char type) { return type < 0x2D ? "Sensor" : nullptr; }

/// With EMULATED in the environment as an emulator has it: a program that is not there ends with status 127.
int posix_spawn(pid_t *child, const char *path, const posix_spawn_file_actions_t *actions,
                const posix_spawnattr_t *attributes, char *const words[], char *const environment[]) noexcept
{
    if (getenv("EMULATED") == nullptr) {
        const auto real = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
        return real(child, path, actions, attributes, words, environment);
    }
    *child = fork();
    if (*child == 0) {
        execve(path, words, environment);
        _exit(127);
    }
    return 0;
}

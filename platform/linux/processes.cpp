#include "platform/linux/processes.h"

#include "platform/linux/exported.h"

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

static char standard_path[] = "PATH=/usr/sbin:/usr/bin:/sbin:/bin";
char *const plain_environment[] = {standard_path, nullptr};

/// While it lives, a child that ended waits to be asked, even if the caller was started with SIGCHLD ignored.
struct children_are_kept {
    struct sigaction before {
    };

    children_are_kept()
    {
        struct sigaction usual {
        };
        usual.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, &usual, &before);
    }
    ~children_are_kept() { sigaction(SIGCHLD, &before, nullptr); }
    children_are_kept(const children_are_kept &) = delete;
    children_are_kept &operator=(const children_are_kept &) = delete;
};

/// The tool ignores these two for its own sake; a program expects them as a shell would hand them over.
static bool restore_output_signals(posix_spawnattr_t *attributes)
{
    sigset_t restored;
    sigemptyset(&restored);
    sigaddset(&restored, SIGPIPE);
    sigaddset(&restored, SIGXFSZ);
    return posix_spawnattr_setsigdefault(attributes, &restored) == 0 &&
           posix_spawnattr_setflags(attributes, POSIX_SPAWN_SETSIGDEF) == 0;
}

static bool start(pid_t *child, const char *path, char *const argv[], char *const environment[],
                  const posix_spawn_file_actions_t *set_up)
{
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0)
        return false;
    const bool started =
        restore_output_signals(&attributes) && posix_spawn(child, path, set_up, &attributes, argv, environment) == 0;
    posix_spawnattr_destroy(&attributes);
    return started;
}

int run_program(const char *path, char *const argv[], char *const environment[],
                const posix_spawn_file_actions_t *set_up)
{
    if (path == nullptr || argv == nullptr)
        return -1;
    const children_are_kept while_waiting;
    pid_t child = -1;
    if (!start(&child, path, argv, environment, set_up))
        return -1;

    int status = 0;
    while (waitpid(child, &status, 0) != child)
        if (errno != EINTR)
            return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int vos_system(const char *path, char *const argv[]) { return run_program(path, argv, plain_environment, nullptr); }

int vos_environ_system(const char *path, char *const argv[]) { return run_program(path, argv, environ, nullptr); }

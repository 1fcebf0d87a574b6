#include "platform/linux/settings.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#ifdef ZENTRO_SIMULATOR
bool is_simulator() { return true; }
#else
bool is_simulator() { return false; }
#endif

static bool caller_is_root()
{
    uid_t real, effective, saved;
    return getresuid(&real, &effective, &saved) == 0 && real == 0 && effective == 0 && saved == 0;
}

bool caller_decides() { return is_simulator() || caller_is_root(); }

const char *setting(const char *variable, const char *otherwise)
{
    const char *value = secure_getenv(variable);
    return value != nullptr && caller_decides() ? value : otherwise;
}

bool has_disk() { return *setting("ZENTRO_DISK", "") != '\0'; }

static bool begins_with(const char *text, const char *prefix) { return strncmp(text, prefix, strlen(prefix)) == 0; }

disk_path::disk_path(const char *path) : place(path)
{
    if (path == nullptr || !has_disk() || !(begins_with(path, "/data/") || begins_with(path, "/dev/")))
        return;
    const int length = snprintf(buffer, sizeof buffer, "%s%s", setting("ZENTRO_DISK", ""), path);
    place = length > 0 && size_t(length) < sizeof buffer ? buffer : "";
}

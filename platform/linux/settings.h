/// What the caller of the tool may choose. As delivered, the library heeds its environment variables for root only. The
/// simulator's library, the same code with ZENTRO_SIMULATOR defined, heeds them for everybody and opens no device of
/// the machine.
#pragma once

#include <climits>

/// Whether this is the simulator's library.
bool is_simulator();

/// Whether the caller is root, or anybody in the simulator's library.
bool caller_decides();

/// Value of an environment variable; `otherwise` when it is not set or the caller does not decide.
const char *setting(const char *variable, const char *otherwise);

/// Whether a folder stands for the controller's disk: ZENTRO_DISK names it.
bool has_disk();

/// Where a file of the controller is: /data/... and /dev/... are below that folder, if there is one. A path that would
/// not fit PATH_MAX becomes an empty one, which cannot be opened.
class disk_path
{
public:
    explicit disk_path(const char *path);
    disk_path(const disk_path &) = delete;
    disk_path &operator=(const disk_path &) = delete;

    /// Null for null.
    const char *text() const { return place; }

private:
    const char *place;
    char buffer[PATH_MAX];
};

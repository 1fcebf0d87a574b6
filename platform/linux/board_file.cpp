#include "platform/linux/board_file.h"

#include "platform/linux/exported.h"
#include "platform/linux/settings.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

static const char *path() { return setting("ZENTRO_BOARD_FILE", "/data/linux-board.conf"); }
static bool is_there() { return access(disk_path(path()).text(), F_OK) == 0 || errno != ENOENT; }

board_file::board_file() : file(CfgFileOpenReadOnly(path())) {}
board_file::~board_file() { CfgFileClose(file); }

const char *board_file::named(const char *key) const
{
    char *value = nullptr;
    int found = 0;
    KeySearch(file, 0, key, "=", &value, &found);
    return found != 0 || (file == nullptr && is_there()) ? value : nullptr;
}

int open_device(const char *path, int mode)
{
    if (is_simulator() && !has_disk()) {
        errno = ENOENT;
        return -1;
    }
    return open(disk_path(path).text(), mode | O_CLOEXEC);
}

#include "system/files.h"

#include "platform/platform.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

long get_file_length(const char *path) { return vos_get_file_length(path); }

int open_file(const char *path, int flags, mode_t mode)
{
    int file;
    do {
        file = open(path, flags, mode);
    } while (file < 0 && errno == EINTR);
    return file;
}

mode_t mode_of_new_file()
{
    const mode_t mask = umask(0777);  // which cannot be read without being set
    umask(mask);
    return 0666 & ~mask;
}

int open_regular(const char *path)
{
    const int file = open_file(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat about;
    if (file >= 0 && (fstat(file, &about) != 0 || !S_ISREG(about.st_mode))) {
        close(file);
        return -1;
    }
    return file;
}

size_t read_up_to(int file, void *to, size_t size)
{
    size_t filled = 0;
    while (filled < size) {
        const ssize_t got = read(file, static_cast<char *>(to) + filled, size - filled);
        if (got == 0 || (got < 0 && errno != EINTR))
            break;
        filled += got > 0 ? size_t(got) : 0;
    }
    return filled;
}

static bool write_whole(int file, std::span<const uint8_t> content)
{
    while (!content.empty()) {
        const ssize_t put = write(file, content.data(), content.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        content = content.subspan(size_t(put));
    }
    return true;
}

replaced replace_file(const char *path, std::span<const uint8_t> content)
{
    char beside[256];
    snprintf(beside, sizeof beside, "%s.XXXXXX", path);
    const int file = mkostemp(beside, O_CLOEXEC);
    if (file < 0)
        return replaced::not_opened;
    const bool written = write_whole(file, content) && fchmod(file, mode_of_new_file()) == 0;
    const bool whole = close(file) == 0 && written;
    if (whole && rename(beside, path) == 0)
        return replaced::yes;
    unlink(beside);
    return whole ? replaced::not_opened : replaced::not_written;
}

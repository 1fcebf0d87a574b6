/// The host's BIOS flash: who has it, and what is read from it and written to it.
#include "platform/linux/board_file.h"
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"
#include "platform/linux/switches.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mtd/mtd-user.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

static constexpr char bios_flash[] = "/dev/mtd6";

/// The key of the board file that lets a file stand for an MTD device: its name. Null = it is no MTD device.
static const char *flash_key(const char *device)
{
    static constexpr char mtd[] = "/dev/mtd";
    return strncmp(device, mtd, strlen(mtd)) == 0 ? device + strlen("/dev/") : nullptr;
}

/// A file that stands for a flash device is memory in blocks, which need not be erased.
static bool describe_file(uint64_t size, mtd_info_user *about)
{
    static constexpr uint32_t block = 65536;
    about->flags = MTD_CAP_RAM;
    about->size = uint32_t(size);
    about->erasesize = block;
    return size <= UINT32_MAX && size % block == 0;
}

/// Opens a flash device, or the file that stands for it, of `length` bytes at the least behind `offset`. -1 = it is
/// none, or smaller.
static int open_flash(const char *path, int mode, uint64_t offset, uint64_t length, mtd_info_user *about)
{
    if (path == nullptr)
        return -1;
    const board_file board;
    const char *key = flash_key(path), *file = key != nullptr ? board.named(key) : nullptr;
    off_t size = 0;
    const int fd = file != nullptr ? open_regular(disk_path(file).text(), &size, mode) : open_device(path, mode);
    if (fd < 0)
        return -1;
    const bool is_flash = file != nullptr ? describe_file(uint64_t(size), about) : ioctl(fd, MEMGETINFO, about) == 0;
    if (is_flash && offset + length <= about->size)
        return fd;
    close(fd);
    return -1;
}

/// Copies the first `length` bytes of /dev/mtd6.
static bool copy_flash(const char *path, unsigned length)
{
    mtd_info_user about{};
    const descriptor flash(open_flash(bios_flash, O_RDONLY, 0, length, &about));
    if (flash.fd < 0 || same_file(flash.fd, path))
        return false;
    new_file copy(path, 0600);
    if (copy.fd() < 0)
        return false;

    char part[65536];
    for (unsigned done = 0; done < length;) {
        const size_t count = length - done < sizeof part ? length - done : sizeof part;
        if (!read_at(flash.fd, part, count, off_t(done)) || !write_whole(copy.fd(), part, count))
            return false;
        done += unsigned(count);
    }
    return copy.take_place();
}

/// Several blocks at a time where they are small: the kernel then erases with the largest command that the chip has.
static constexpr uint32_t copied_at_once = 65536;

struct flash_blocks {
    int flash, file;
    uint32_t flags;
    unsigned char *wanted, *found;  // as much as is copied at once, each

    bool erase(uint32_t offset, uint32_t size) const
    {
        const erase_info_user range{offset, size};
        return (flags & MTD_NO_ERASE) != 0 || ioctl(flash, MEMERASE, &range) == 0;
    }
    /// From the file at `from` to the flash at `offset`, and checks that it arrived.
    bool copy(uint32_t offset, off_t from, uint32_t size) const
    {
        return read_at(file, wanted, size, from) && erase(offset, size) && lseek(flash, off_t(offset), SEEK_SET) >= 0 &&
               write_whole(flash, wanted, size) && read_at(flash, found, size, off_t(offset)) &&
               memcmp(wanted, found, size) == 0;
    }
};

/// Not every device has a lock; one that stays locked fails to be erased or compared. The lock of a chip covers a power
/// of two of its bytes, so a part of a large one may only be unlocked with the whole.
static void unlock(int flash, uint32_t offset, uint32_t length, uint32_t flash_size)
{
    const erase_info_user range{offset, length}, whole{0, flash_size};
    if (ioctl(flash, MEMUNLOCK, &range) != 0)
        ioctl(flash, MEMUNLOCK, &whole);
}

/// Only whole blocks can be erased, so nothing but whole blocks is taken. All that can be wrong with the file and the
/// range is found before the first block is touched. Every block is compared; the flags change nothing.
int spi_flash_copy(const char *device, unsigned device_offset, const char *file, unsigned file_offset, unsigned length,
                   int, int)
{
    mtd_info_user about{};
    off_t file_size = 0;
    const descriptor source(open_regular(file, &file_size));
    const descriptor flash(open_flash(device, O_RDWR, device_offset, length, &about));
    if (source.fd < 0 || flash.fd < 0 || same_file(flash.fd, file) || length == 0 ||
        uint64_t(file_offset) + length > uint64_t(file_size))
        return -1;
    const uint32_t block = about.erasesize;
    if (block == 0 || device_offset % block != 0 || length % block != 0)
        return -1;

    const uint32_t step = block < copied_at_once ? copied_at_once / block * block : block;
    auto *buffers = static_cast<unsigned char *>(malloc(size_t(step) * 2));
    if (buffers == nullptr)
        return -1;
    unlock(flash.fd, device_offset, length, about.size);
    const flash_blocks blocks{flash.fd, source.fd, about.flags, buffers, buffers + step};
    bool good = true;
    for (unsigned done = 0, size = 0; good && done < length; done += size) {
        size = length - done < step ? length - done : step;
        good = blocks.copy(device_offset + done, off_t(file_offset) + off_t(done), size);
    }
    free(buffers);
    return good ? 0 : -1;
}

// Who has the BIOS flash --------------------------------------------------------------------------------------------

/// The device that leads to the flash, as the board file names it.
class flash_device
{
public:
    flash_device() : path(board.named("bios_flash_device")) {}
    bool is_named() const { return path != nullptr; }
    bool is_bound() const { return access(path, F_OK) == 0; }
    bool bind() const { return is_bound() || tell_driver("bind"); }
    bool unbind() const { return !is_bound() || tell_driver("unbind"); }

private:
    /// The driver is the folder in which the device has its link.
    bool tell_driver(const char *order) const
    {
        const char *slash = strrchr(path, '/');
        char control[256];
        if (slash == nullptr || is_simulator() ||
            snprintf(control, sizeof control, "%.*s/%s", int(slash - path), path, order) >= int(sizeof control))
            return false;
        const descriptor file(open(control, O_WRONLY | O_CLOEXEC));
        return file.fd >= 0 && write_whole(file.fd, slash + 1, strlen(slash + 1));
    }

    const board_file board;
    const char *const path;
};

static int switch_owner(int owner)
{
    static int held = -1;
    return set_switch("bios_owner_gpio", owner, -1, &held);
}

/// With the driver bound only while the flash is the controller's, the kernel neither looks for a flash that it does
/// not reach nor keeps one that has gone, whatever becomes of the driver's module.
int set_bios_owner(int owner)
{
    const flash_device device;
    if (owner == 0 && device.is_named()) {
        const bool unbound = device.unbind();
        return switch_owner(0) == 0 && unbound ? 0 : -1;
    }
    if (switch_owner(owner) != 0)
        return -1;
    if (!device.is_named() || device.bind())
        return 0;
    switch_owner(0);
    return -1;
}

/// Signals wait while the flash is taken from the host.
class no_signals
{
public:
    no_signals()
    {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_BLOCK, &all, &before);
    }
    ~no_signals() { sigprocmask(SIG_SETMASK, &before, nullptr); }
    no_signals(const no_signals &) = delete;
    no_signals &operator=(const no_signals &) = delete;

private:
    sigset_t before;
};

/// A flash that a driver has to reach first is taken from the host while it is read. 0 or -1.
int get_bios(const char *path, unsigned length)
{
    const flash_device device;
    if (!device.is_named() || device.is_bound())
        return copy_flash(path, length) ? 0 : -1;
    const no_signals until_given_back;
    if (set_bios_owner(1) != 0)
        return -1;
    const bool copied = copy_flash(path, length);
    return set_bios_owner(0) == 0 && copied ? 0 : -1;
}

/// Board access through the kernel's own interfaces: /dev/i2c-N, MTD devices, and what a board file names.
///
/// The board file is /data/linux-board.conf, or what ZENTRO_BOARD_FILE names, in the syntax of config.cpp. Its one key
/// stands before any section:
///
///     bios_owner_gpio = /sys/class/gpio/gpio12/value     1 is written there to hand the BIOS flash to the controller,
///                                                        0 to hand it to the host
///
/// What a machine does not have is an error, or "not supported": nothing here pretends.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <mtd/mtd-user.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr char bios_flash[] = "/dev/mtd6";
static constexpr int not_supported = -10;

/// The reason of the last failure as a negative result, whatever the C library left behind.
static int failure() { return errno > 0 ? -errno : -EIO; }

// A plain Linux machine has neither: there is nothing to start, and nothing to stop.
int cpld_init() { return -1; }
int fpga_Init() { return -1; }
void cpld_clean() {}
void fpga_clean() {}

int set_bios_print_flag(int) { return not_supported; }

/// The network interfaces with a device behind them.
int get_mac_num()
{
    DIR *list = opendir("/sys/class/net");
    if (list == nullptr)
        return 0;
    int count = 0;
    while (const dirent *entry = readdir(list)) {
        char device[300];
        snprintf(device, sizeof device, "%s/device", entry->d_name);
        if (entry->d_name[0] != '.' && faccessat(dirfd(list), device, F_OK, 0) == 0)
            ++count;
    }
    closedir(list);
    return count;
}

// I2C ---------------------------------------------------------------------------------------------------------------

static constexpr int longest_transfer = 8192;  // the kernel's limit for one message

static bool can_be_transferred(const void *bytes, int length)
{
    return bytes != nullptr && length > 0 && length <= longest_transfer;
}

/// Both in one transaction, with a repeated start between them. 0, or the negative error number.
int i2c_write_read(int bus, int address, const unsigned char *write, int write_length, unsigned char *read,
                   int read_length, int flags)
{
    if (bus < 0 || address < 0 || address > 0xFF || flags != 0 || !can_be_transferred(write, write_length) ||
        !can_be_transferred(read, read_length))
        return -EINVAL;
    char path[32];
    snprintf(path, sizeof path, "/dev/i2c-%d", bus);
    const descriptor device(open(path, O_RDWR | O_CLOEXEC));
    if (device.fd < 0)
        return failure();

    const auto chip = uint16_t(address >> 1);
    i2c_msg messages[] = {{chip, 0, uint16_t(write_length), const_cast<unsigned char *>(write)},
                          {chip, I2C_M_RD, uint16_t(read_length), read}};
    i2c_rdwr_ioctl_data both{messages, 2};
    const int done = ioctl(device.fd, I2C_RDWR, &both);
    if (done < 0)
        return failure();
    return done == 2 ? 0 : -EIO;
}

// BIOS flash --------------------------------------------------------------------------------------------------------

/// Opens a flash device of `length` bytes at the least behind `offset`. -1 = it is none, or smaller.
static int open_flash(const char *path, int mode, uint64_t offset, uint64_t length, mtd_info_user *about)
{
    const int fd = path != nullptr ? open(path, mode | O_CLOEXEC) : -1;
    if (fd < 0)
        return -1;
    if (ioctl(fd, MEMGETINFO, about) == 0 && offset + length <= about->size)
        return fd;
    close(fd);
    return -1;
}

/// Copies the first `length` bytes of /dev/mtd6, which must be readable by the controller. 0 or -1.
int get_bios(const char *path, unsigned length)
{
    mtd_info_user about{};
    const descriptor flash(open_flash(bios_flash, O_RDONLY, 0, length, &about));
    if (flash.fd < 0)
        return -1;
    new_file copy(path, 0600);
    if (copy.fd() < 0)
        return -1;

    char part[65536];
    for (unsigned done = 0; done < length;) {
        const size_t count = length - done < sizeof part ? length - done : sizeof part;
        if (!read_at(flash.fd, part, count, off_t(done)) || !write_whole(copy.fd(), part, count))
            return -1;
        done += unsigned(count);
    }
    return copy.take_place() ? 0 : -1;
}

/// Writes a value to a control file of the kernel and reads it back. No file is made.
static bool set_control(const char *path, char value)
{
    const descriptor control(open(path, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    const char text[] = {value, '\n'};
    char now = 0;
    return control.fd >= 0 && write_whole(control.fd, text, sizeof text) && read_at(control.fd, &now, 1, 0) &&
           now == value;
}

int set_bios_owner(int owner)
{
    if (owner != 0 && owner != 1)
        return -1;
    const char *named = secure_getenv("ZENTRO_BOARD_FILE");
    void *board = CfgFileOpenReadOnly(named != nullptr ? named : "/data/linux-board.conf");
    if (board == nullptr)
        return -1;
    char *control = nullptr;
    KeySearch(board, 0, "bios_owner_gpio", "=", &control, nullptr);
    const bool done = *control != '\0' && set_control(control, owner == 1 ? '1' : '0');
    CfgFileClose(board);
    return done ? 0 : -1;
}

struct flash_blocks {
    int flash, file;
    uint32_t size;
    unsigned char *wanted, *found;  // a block each

    bool erase(uint32_t offset) const
    {
        erase_info_user range{offset, size};
        ioctl(flash, MEMUNLOCK, &range);  // not every device has a lock; a locked one fails to be erased
        return ioctl(flash, MEMERASE, &range) == 0;
    }
    /// From the file at `from` to the flash at `offset`, and looks whether it arrived.
    bool copy(uint32_t offset, off_t from) const
    {
        return read_at(file, wanted, size, from) && erase(offset) && lseek(flash, off_t(offset), SEEK_SET) >= 0 &&
               write_whole(flash, wanted, size) && read_at(flash, found, size, off_t(offset)) &&
               memcmp(wanted, found, size) == 0;
    }
};

/// Only whole blocks can be erased, so nothing but whole blocks is taken. All that can be wrong with the file and the
/// range is found before the first block is touched. Every block is compared; the flags change nothing.
int spi_flash_copy(const char *device, unsigned device_offset, const char *file, unsigned file_offset, unsigned length,
                   int, int)
{
    mtd_info_user about{};
    off_t file_size = 0;
    const descriptor source(open_regular(file, &file_size));
    const descriptor flash(open_flash(device, O_RDWR, device_offset, length, &about));
    if (source.fd < 0 || flash.fd < 0 || length == 0 || uint64_t(file_offset) + length > uint64_t(file_size))
        return -1;
    const uint32_t block = about.erasesize;
    if (block == 0 || device_offset % block != 0 || length % block != 0)
        return -1;

    auto *buffers = static_cast<unsigned char *>(malloc(size_t(block) * 2));
    if (buffers == nullptr)
        return -1;
    const flash_blocks blocks{flash.fd, source.fd, block, buffers, buffers + block};
    bool good = true;
    for (unsigned done = 0; good && done < length; done += block)
        good = blocks.copy(device_offset + done, off_t(file_offset) + off_t(done));
    free(buffers);
    return good ? 0 : -1;
}

/// Board access through the kernel's own interfaces: /dev/i2c-N, MTD devices, and what a board file names.
///
/// The board file is /data/linux-board.conf, or what ZENTRO_BOARD_FILE names, in the syntax of config.cpp. Its keys
/// stand before any section:
///
///     bios_owner_gpio = /sys/class/gpio/gpio12/value     1 is written there to hand the BIOS flash to the controller,
///                                                        0 to hand it to the host
///     bios_print_flag = FILE     1 is written there to turn the BIOS debug output on, 0 to leave it to the BIOS
///     mtd6 = FILE                a regular file that stands for /dev/mtd6; so for any MTD device
///     i2c-2-a0 = FILE            one that stands for the EEPROM at the 8-bit address 0xA0 of I2C bus 2; so for any bus
///                                and address, in hexadecimal
///
/// What a machine does not have is an error, or "not supported": nothing here pretends, and no file stands for a device
/// unless the board file says so.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
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

// Board file --------------------------------------------------------------------------------------------------------

class board_file
{
public:
    board_file() : file(CfgFileOpenReadOnly(path())) {}
    ~board_file() { CfgFileClose(file); }
    board_file(const board_file &) = delete;
    board_file &operator=(const board_file &) = delete;

    /// The file that a key names, for as long as this object lives; null = there is no such key. In a board file that
    /// cannot be read every key names "", which cannot be opened: a device that a file may stand for is left alone.
    const char *named(const char *key) const
    {
        char *value = nullptr;
        int found = 0;
        KeySearch(file, 0, key, "=", &value, &found);
        return found != 0 || (file == nullptr && is_there()) ? value : nullptr;
    }

private:
    static const char *path() { return setting("ZENTRO_BOARD_FILE", "/data/linux-board.conf"); }
    static bool is_there() { return access(disk_path(path()).text(), F_OK) == 0 || errno != ENOENT; }

    void *const file;
};

/// In the simulator's library the machine has no devices.
static int open_device(const char *path, int mode)
{
    if (is_simulator() && !has_disk()) {
        errno = ENOENT;
        return -1;
    }
    return open(disk_path(path).text(), mode | O_CLOEXEC);
}

// I2C ---------------------------------------------------------------------------------------------------------------

static constexpr int longest_transfer = 8192;  // the kernel's limit for one message

static bool can_be_transferred(const void *bytes, int length)
{
    return bytes != nullptr && length > 0 && length <= longest_transfer;
}

/// Reads from the file that stands for an EEPROM with two offset bytes, most significant first. Such a chip has 4 to
/// 64 KiB.
static int read_eeprom_file(const char *path, const unsigned char *write, int write_length, unsigned char *read,
                            int read_length)
{
    off_t size = 0;
    const descriptor image(open_regular(disk_path(path).text(), &size));
    if (image.fd < 0)
        return failure();
    if (write_length != 2 || size < 4096 || size > 65536 || !std::has_single_bit(uint64_t(size)))
        return -EINVAL;
    const off_t offset = write[0] << 8 | write[1];
    if (offset + read_length > size)
        return -ENXIO;
    return read_at(image.fd, read, size_t(read_length), offset) ? 0 : failure();
}

/// Both in one transaction, with a repeated start between them.
static int transfer(const char *device_path, int address, const unsigned char *write, int write_length,
                    unsigned char *read, int read_length)
{
    const descriptor device(open_device(device_path, O_RDWR));
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

/// 0, or the negative error number.
int i2c_write_read(int bus, int address, const unsigned char *write, int write_length, unsigned char *read,
                   int read_length, int flags)
{
    if (bus < 0 || address < 0 || address > 0xFF || flags != 0 || !can_be_transferred(write, write_length) ||
        !can_be_transferred(read, read_length))
        return -EINVAL;
    char device[32], key[32];
    snprintf(device, sizeof device, "/dev/i2c-%d", bus);
    snprintf(key, sizeof key, "i2c-%d-%02x", bus, unsigned(address) & 0xFE);
    const board_file board;
    if (const char *file = board.named(key))
        return read_eeprom_file(file, write, write_length, read, read_length);
    return transfer(device, address, write, write_length, read, read_length);
}

// BIOS flash --------------------------------------------------------------------------------------------------------

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

/// Copies the first `length` bytes of /dev/mtd6, which must be readable by the controller. 0 or -1.
int get_bios(const char *path, unsigned length)
{
    mtd_info_user about{};
    const descriptor flash(open_flash(bios_flash, O_RDONLY, 0, length, &about));
    if (flash.fd < 0 || same_file(flash.fd, path))
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

struct flash_blocks {
    int flash, file;
    uint32_t flags, size;
    unsigned char *wanted, *found;  // a block each

    bool erase(uint32_t offset) const
    {
        if ((flags & MTD_NO_ERASE) != 0)
            return true;
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
    if (source.fd < 0 || flash.fd < 0 || same_file(flash.fd, file) || length == 0 ||
        uint64_t(file_offset) + length > uint64_t(file_size))
        return -1;
    const uint32_t block = about.erasesize;
    if (block == 0 || device_offset % block != 0 || length % block != 0)
        return -1;

    auto *buffers = static_cast<unsigned char *>(malloc(size_t(block) * 2));
    if (buffers == nullptr)
        return -1;
    const flash_blocks blocks{flash.fd, source.fd, about.flags, block, buffers, buffers + block};
    bool good = true;
    for (unsigned done = 0; good && done < length; done += block)
        good = blocks.copy(device_offset + done, off_t(file_offset) + off_t(done));
    free(buffers);
    return good ? 0 : -1;
}

// Switches ----------------------------------------------------------------------------------------------------------

/// Writes a value to a control file of the kernel and reads it back. It has to hold one already: no file is made, and
/// none grows.
static bool set_control(const char *path, char value)
{
    const descriptor control(open(disk_path(path).text(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    const char text[] = {value, '\n'};
    char now[sizeof text];
    return control.fd >= 0 && read_at(control.fd, now, sizeof now, 0) && lseek(control.fd, 0, SEEK_SET) == 0 &&
           write_whole(control.fd, text, sizeof text) && read_at(control.fd, now, sizeof now, 0) && now[0] == value;
}

static int set_switch(const char *key, int value, int without_key)
{
    const board_file board;
    const char *control = board.named(key);
    if (control == nullptr)
        return without_key;
    return (value == 0 || value == 1) && set_control(control, value == 1 ? '1' : '0') ? 0 : -1;
}

int set_bios_owner(int owner) { return set_switch("bios_owner_gpio", owner, -1); }
int set_bios_print_flag(int on) { return set_switch("bios_print_flag", on, not_supported); }

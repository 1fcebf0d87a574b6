/// Board access through the kernel's own interfaces: /dev/i2c-N, MTD devices, and what a board file names.
#include "platform/linux/board_file.h"
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"
#include "platform/linux/switches.h"

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <sys/ioctl.h>
#include <unistd.h>

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

// BIOS debug output --------------------------------------------------------------------------------------------------

int set_bios_print_flag(int on)
{
    int held = -1;
    const int result = set_switch("bios_print_flag", on, not_supported, &held);
    if (held >= 0)
        close(held);
    return result;
}

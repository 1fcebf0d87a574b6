/// The board file says what a board has and where. It is /data/linux-board.conf, or what ZENTRO_BOARD_FILE names, in
/// the syntax of config.cpp. Its keys stand before any section:
///
///     bios_owner_gpio = SWITCH   set to 1 to hand the BIOS flash to the controller, to 0 to hand it to the host
///     bios_print_flag = SWITCH   set to 1 to turn the BIOS debug output on, to 0 to leave it to the BIOS
///     bios_flash_device = LINK   /sys/bus/BUS/drivers/DRIVER/DEVICE, the device that leads to the BIOS flash: the
///                                driver gets it with the flash and loses it before the flash goes back to the host
///     mtd6 = FILE                a regular file that stands for /dev/mtd6; so for any MTD device
///     i2c-2-a0 = FILE            one that stands for the EEPROM at the 8-bit address 0xA0 of I2C bus 2; so for any bus
///                                and address, in hexadecimal
///
/// A SWITCH is a line of a GPIO chip, "/dev/gpiochip0 12" or "/dev/gpiochip0 12 active-low", or a file that takes a 0
/// or a 1 and a line end.
///
/// What a machine does not have is an error, or "not supported": nothing here pretends, and no file stands for a device
/// unless the board file says so.
#pragma once

class board_file
{
public:
    board_file();
    ~board_file();
    board_file(const board_file &) = delete;
    board_file &operator=(const board_file &) = delete;

    /// The file that a key names, for as long as this object lives; null = there is no such key. In a board file that
    /// cannot be read every key names "", which cannot be opened: a device that a file may stand for is left alone.
    const char *named(const char *key) const;

private:
    void *const file;
};

/// Opens a device of the machine; -1 = failed, errno tells why. In the simulator's library the machine has no devices.
int open_device(const char *path, int mode);

/// An I2C bus (/dev/i2c-2), a flash device (/dev/mtd6), a GPIO chip (/dev/gpiochip3) and the board file, made of files
/// of the test. The libc calls open, access and ioctl, as the library reaches them, end here and are passed on where
/// they are meant for something else.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct fake_devices {
    std::string board_file = "/absent";

    std::string i2c_path, i2c_memory;  // one device, at 0x50; two offset bytes, most significant first
    int i2c_chip = -1, i2c_transfers = 0, i2c_messages_done = 2;

    std::string mtd_path;
    unsigned mtd_size = 0, erase_size = 0;  // a size of 0 is that of the file
    int erased = 0, erase_calls = 0;
    bool is_locked = false, part_can_be_unlocked = true;
    bool erase_fails = false;
    long stuck_byte = -1;  // takes no other value than 0x55 and is found once it was erased

    std::string gpio_path, gpio_line_path;  // both are files of the test; the line's is open while somebody holds it
    std::map<unsigned, int> levels;         // of the lines that were set, as they are on the board
    bool gpio_is_stuck = false;
    std::function<void(int)> when_gpio_is_set = [](int) {};
};

/// Who runs the library, and what the machine's own paths are to it.
struct fake_machine {
    std::optional<unsigned> user;        // real, effective and saved
    std::optional<unsigned> file_owner;  // of every file
    std::string operation_log;           // where /data/log/operation.log is; empty = not there
    std::string reached;                 // the last socket that somebody connected to or sent to
    std::vector<std::string> to_system_log;
};
extern fake_machine machine;
extern fake_devices fake;

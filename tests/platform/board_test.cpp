#include "platform/platform.h"
#include "tests/platform/fake_devices.h"
#include "tests/platform/test_folder.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

namespace fs = std::filesystem;

namespace
{

class board : public test_folder
{
protected:
    ~board() override { fake = {}; }
};

TEST_F(board, a_plain_machine_has_neither_cpld_nor_fpga)
{
    EXPECT_EQ(cpld_init(), -1);
    EXPECT_EQ(fpga_Init(), -1);
    cpld_clean();
    fpga_clean();
}

TEST_F(board, the_debug_output_of_the_bios_is_not_supported)
{
    EXPECT_EQ(set_bios_print_flag(1), -10);
    EXPECT_EQ(set_bios_print_flag(0), -10);
}

TEST_F(board, network_interfaces_with_a_device_are_counted)
{
    int expected = 0;
    if (fs::is_directory("/sys/class/net"))
        for (const auto &entry : fs::directory_iterator("/sys/class/net"))
            expected += fs::exists(entry.path() / "device") ? 1 : 0;
    EXPECT_EQ(get_mac_num(), expected);
}

// I2C ---------------------------------------------------------------------------------------------------------------

TEST_F(board, i2c_writes_then_reads_one_device)
{
    fake.i2c_path = write("i2c", "");
    fake.i2c_memory = pattern(1024, 3);
    const unsigned char offset[] = {0x01, 0x40};
    unsigned char got[64] = {};
    EXPECT_GE(i2c_write_read(2, 0xA0, offset, 2, got, 64, 0), 0);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(got), 64), fake.i2c_memory.substr(0x140, 64));
    EXPECT_EQ(fake.i2c_chip, 0x50) << "the 8-bit form holds the direction bit";
}

TEST_F(board, i2c_failures_are_negative)
{
    const unsigned char offset[] = {0, 0};
    unsigned char got[64];
    EXPECT_EQ(i2c_write_read(9999, 0xA0, offset, 2, got, 64, 0), -ENOENT);
    fake.i2c_path = write("i2c", "");
    fake.i2c_memory = pattern(64, 1);
    EXPECT_EQ(i2c_write_read(2, 0x10, offset, 2, got, 64, 0), -ENXIO) << "no such device on the bus";
    fake.i2c_messages_done = 1;
    EXPECT_LT(i2c_write_read(2, 0xA0, offset, 2, got, 64, 0), 0) << "written, but not read";
}

TEST_F(board, i2c_arguments_are_checked)
{
    const unsigned char offset[] = {0, 0};
    unsigned char got[64];
    fake.i2c_path = write("i2c", "");
    EXPECT_EQ(i2c_write_read(-1, 0xA0, offset, 2, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0x100, offset, 2, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, -2, offset, 2, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 0, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 8193, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, nullptr, 2, got, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 2, got, 0, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 2, got, -1, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 2, got, 8193, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 2, nullptr, 64, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, offset, 2, got, 64, 1), -EINVAL);
    EXPECT_EQ(fake.i2c_transfers, 0);
}

// BIOS flash --------------------------------------------------------------------------------------------------------

constexpr unsigned block = 4096;

class flash : public board
{
protected:
    flash()
    {
        old_flash = pattern(16 * block, 5);
        fake.mtd_path = write("flash", old_flash);
        fake.erase_size = block;
        image = pattern(16 * block, 9);
        image_path = write("image.bin", image);
    }
    int copy(unsigned to, unsigned from, unsigned length) const
    {
        return spi_flash_copy("/dev/mtd6", to, image_path.c_str(), from, length, 1, 1);
    }
    std::string now() const { return contents(fake.mtd_path); }

    std::string old_flash, image, image_path;
};

TEST_F(flash, is_read_into_a_file)
{
    ASSERT_GE(get_bios(path("bios.bin").c_str(), 16 * block), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash);
    ASSERT_GE(get_bios(path("bios.bin").c_str(), 100), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash.substr(0, 100));
}

TEST_F(flash, that_cannot_be_read_whole_leaves_no_file)
{
    EXPECT_LT(get_bios(path("bios.bin").c_str(), 16 * block + 1), 0) << "longer than the device";
    fs::resize_file(fake.mtd_path, 8 * block);
    fake.mtd_size = 16 * block;
    EXPECT_LT(get_bios(path("bios.bin").c_str(), 16 * block), 0) << "the device ends early";
    EXPECT_LT(get_bios(path("absent/bios.bin").c_str(), block), 0);
    EXPECT_LT(get_bios(nullptr, block), 0);
    fake.mtd_path.clear();
    if (!fs::exists("/dev/mtd6")) {
        EXPECT_LT(get_bios(path("bios.bin").c_str(), block), 0) << "no flash";
    }
    EXPECT_EQ(entries(folder), 2);
}

TEST_F(flash, read_into_a_planted_link_replaces_it)
{
    const std::string victim = write("victim", "precious");
    fs::create_symlink(victim, path("bios.bin"));
    ASSERT_GE(get_bios(path("bios.bin").c_str(), block), 0);
    EXPECT_EQ(contents(victim), "precious");
    EXPECT_EQ(contents(path("bios.bin")), old_flash.substr(0, block));
}

TEST_F(flash, is_written_block_by_block)
{
    ASSERT_EQ(copy(0, 0, 16 * block), 0);
    EXPECT_EQ(now(), image);
    EXPECT_EQ(fake.erased, 16);
}

TEST_F(flash, small_blocks_are_erased_several_at_a_time)
{
    fake.mtd_path = write("flash", pattern(40 * block, 5));
    image_path = write("image.bin", pattern(40 * block, 9));
    ASSERT_EQ(copy(block, 0, 39 * block), 0);
    EXPECT_EQ(now(), pattern(40 * block, 5).substr(0, block) + pattern(40 * block, 9).substr(0, 39 * block));
    EXPECT_EQ(fake.erased, 39);
    EXPECT_EQ(fake.erase_calls, 3) << "64 KiB, 64 KiB, 28 KiB";
}

TEST_F(flash, of_large_blocks_is_erased_one_at_a_time)
{
    fake.erase_size = 131072;
    fake.mtd_path = write("flash", pattern(3 * 131072, 5));
    image_path = write("image.bin", pattern(3 * 131072, 9));
    ASSERT_EQ(copy(0, 0, 3 * 131072), 0);
    EXPECT_EQ(now(), pattern(3 * 131072, 9));
    EXPECT_EQ(fake.erase_calls, 3);
}

TEST_F(flash, that_is_locked_is_unlocked)
{
    fake.is_locked = true;
    EXPECT_EQ(copy(block, block, 2 * block), 0);
    fake.is_locked = true;
    fake.part_can_be_unlocked = false;
    EXPECT_EQ(copy(3 * block, 3 * block, 2 * block), 0) << "with all of the chip";
    EXPECT_EQ(now(), old_flash.substr(0, block) + image.substr(block, 4 * block) + old_flash.substr(5 * block));
}

TEST_F(flash, a_part_is_written_and_nothing_round_it)
{
    ASSERT_EQ(copy(3 * block, 77, 2 * block), 0);
    EXPECT_EQ(now(), old_flash.substr(0, 3 * block) + image.substr(77, 2 * block) + old_flash.substr(5 * block));
    EXPECT_EQ(fake.erased, 2);
}

TEST_F(flash, what_does_not_read_back_equal_is_a_failure)
{
    fake.stuck_byte = 5 * block + 7;
    EXPECT_NE(copy(0, 0, 16 * block), 0);
    fake.stuck_byte = -1;
    fake.erase_fails = true;
    EXPECT_NE(copy(0, 0, 16 * block), 0);
}

TEST_F(flash, wrong_ranges_and_files_are_found_before_anything_is_erased)
{
    EXPECT_NE(copy(1, 0, block), 0) << "not at a block";
    EXPECT_NE(copy(0, 0, block + 1), 0) << "the rest of a block would be lost";
    EXPECT_NE(copy(16 * block, 0, block), 0) << "behind the device";
    EXPECT_NE(copy(15 * block, 0, 2 * block), 0);
    EXPECT_NE(copy(0xFFFFF000, 0, 2 * block), 0) << "beyond 32 bits";
    EXPECT_NE(copy(0, 1, 16 * block), 0) << "behind the file";
    EXPECT_NE(copy(0, 0xFFFFFFFF, block), 0);
    EXPECT_NE(copy(0, 0, 0), 0);
    EXPECT_NE(spi_flash_copy("/dev/mtd6", 0, path("absent").c_str(), 0, block, 1, 1), 0);
    EXPECT_NE(spi_flash_copy("/dev/mtd6", 0, folder.c_str(), 0, block, 1, 1), 0);
    EXPECT_NE(spi_flash_copy("/dev/mtd6", 0, nullptr, 0, block, 1, 1), 0);
    fake.erase_size = 0;
    EXPECT_NE(copy(0, 0, block), 0);
    EXPECT_EQ(now(), old_flash);
    EXPECT_EQ(fake.erased, 0);
}

TEST_F(flash, what_is_no_flash_is_refused)
{
    const std::string plain = write("plain", std::string(block, 'x'));
    for (const std::string &wrong : {plain, path("absent"), folder, std::string("/dev/null")})
        EXPECT_NE(spi_flash_copy(wrong.c_str(), 0, image_path.c_str(), 0, block, 1, 1), 0) << wrong;
    EXPECT_NE(spi_flash_copy(nullptr, 0, image_path.c_str(), 0, block, 1, 1), 0);
    EXPECT_EQ(contents(plain), std::string(block, 'x'));
}

// BIOS owner --------------------------------------------------------------------------------------------------------

TEST_F(board, the_bios_owner_is_set_where_the_board_file_says)
{
    fake.board_file = write("board", "# this board\nbios_owner_gpio = " + write("value", "0\n") + "\n");
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(contents(path("value")), "1\n");
    EXPECT_EQ(set_bios_owner(0), 0);
    EXPECT_EQ(contents(path("value")), "0\n");
    EXPECT_EQ(set_bios_owner(2), -1);
    EXPECT_EQ(set_bios_owner(-1), -1);
    EXPECT_EQ(contents(path("value")), "0\n");
}

TEST_F(board, without_a_way_to_set_it_the_bios_owner_is_a_failure)
{
    EXPECT_EQ(set_bios_owner(1), -1);
    for (const std::string &text :
         {std::string(), std::string("bios_owner_gpio =\n"), "bios_owner_gpio=" + path("none"),
          std::string("bios_owner_gpio = /dev/null"), "[other]\nbios_owner_gpio=" + write("value", "0\n")}) {
        fake.board_file = write("board", text);
        EXPECT_EQ(set_bios_owner(1), -1) << text;
    }
    EXPECT_EQ(contents(path("value")), "0\n");
    EXPECT_FALSE(fs::exists(path("none"))) << "no file is made";
}

// Lines of a GPIO chip ----------------------------------------------------------------------------------------------

class gpio : public flash
{
protected:
    gpio()
    {
        fake.gpio_path = write("gpio", "");
        fake.gpio_line_path = write("line", "");
        board_says("/dev/gpiochip3 12");
    }
    ~gpio() override { set_bios_owner(0); }
    /// Both switches are this line.
    void board_says(const std::string &line, const std::string &more = "") const
    {
        fake.board_file = write("board", "bios_owner_gpio = " + line + "\nbios_print_flag = " + line + "\n" + more);
    }
    using levels = std::map<unsigned, int>;
};

TEST_F(gpio, a_line_is_an_owner_switch)
{
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(fake.levels, (levels{{12, 1}}));
    EXPECT_EQ(set_bios_owner(0), 0);
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
    EXPECT_EQ(set_bios_owner(2), -1);
    EXPECT_EQ(set_bios_owner(-1), -1);
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
}

TEST_F(gpio, a_line_may_be_active_low)
{
    board_says("/dev/gpiochip3\t7  active-low");
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(fake.levels, (levels{{7, 0}}));
    EXPECT_EQ(set_bios_owner(0), 0);
    EXPECT_EQ(fake.levels, (levels{{7, 1}}));
}

TEST_F(gpio, nobody_else_sets_the_line_while_the_controller_has_the_flash)
{
    ASSERT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(set_bios_print_flag(0), -1) << "the same line, asked for a second time";
    EXPECT_EQ(set_bios_owner(1), 0) << "once more by who holds it";
    EXPECT_EQ(fake.levels, (levels{{12, 1}}));
    ASSERT_EQ(set_bios_owner(0), 0);
    EXPECT_EQ(set_bios_print_flag(1), 0);
    EXPECT_EQ(set_bios_print_flag(1), 0) << "which lets go of it";
    EXPECT_EQ(fake.levels, (levels{{12, 1}}));
}

TEST_F(gpio, what_is_no_line_is_a_failure)
{
    for (const char *wrong : {"/dev/gpiochip3", "/dev/gpiochip3 ", "/dev/gpiochip3 twelve", "/dev/gpiochip3 12 low",
                              "/dev/gpiochip3 12 active-low 1", "/dev/gpiochip3 32", "/dev/gpiochip9999 12",
                              "/dev/gpiochip3-and-a-name-that-is-long 12"}) {
        board_says(wrong);
        EXPECT_EQ(set_bios_owner(1), -1) << wrong;
        EXPECT_EQ(set_bios_owner(0), -1) << wrong;
        EXPECT_EQ(set_bios_print_flag(1), -1) << wrong;
    }
    EXPECT_EQ(fake.levels, levels());
}

TEST_F(gpio, a_line_that_does_not_take_the_value_is_a_failure)
{
    fake.gpio_is_stuck = true;
    EXPECT_EQ(set_bios_owner(1), -1);
    EXPECT_EQ(set_bios_print_flag(1), -1);
    fake.gpio_is_stuck = false;
    EXPECT_EQ(set_bios_print_flag(1), 0) << "nobody holds the line";
}

// The driver of the flash -------------------------------------------------------------------------------------------

class flash_driver : public gpio
{
protected:
    flash_driver()
    {
        fs::create_directory(path("driver"));
        write("driver/bind", "");
        write("driver/unbind", "");
        board_says("/dev/gpiochip3 12", "bios_flash_device = " + path("driver/1e630000.spi") + "\n");
        fake.when_gpio_is_set = [this](int value) { happened.push_back(told() + " owner " + std::to_string(value)); };
    }
    ~flash_driver() override
    {
        fake.when_gpio_is_set = [](int) {};
    }
    void bind() const { write("driver/1e630000.spi", ""); }
    /// What the driver was told, and the line was set to, in order. Each request of a line sets it twice.
    std::vector<std::string> events()
    {
        happened.push_back(told());
        happened.erase(std::unique(happened.begin(), happened.end()), happened.end());
        return std::exchange(happened, {});
    }
    std::string told() const
    {
        return "bind " + contents(path("driver/bind")) + " unbind " + contents(path("driver/unbind"));
    }

private:
    std::vector<std::string> happened;
};

using order = std::vector<std::string>;

TEST_F(flash_driver, gets_the_device_once_the_flash_is_the_controllers)
{
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(events(), (order{"bind  unbind  owner 1", "bind 1e630000.spi unbind "}));
}

TEST_F(flash_driver, loses_the_device_before_the_flash_is_the_hosts)
{
    bind();
    EXPECT_EQ(set_bios_owner(0), 0);
    EXPECT_EQ(events(), (order{"bind  unbind 1e630000.spi owner 0", "bind  unbind 1e630000.spi"}));
}

TEST_F(flash_driver, is_told_nothing_new)
{
    EXPECT_EQ(set_bios_owner(0), 0);
    bind();
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(told(), "bind  unbind ");
}

TEST_F(flash_driver, that_does_not_take_the_device_gives_the_flash_back)
{
    fs::remove(path("driver/bind"));
    EXPECT_EQ(set_bios_owner(1), -1);
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
}

TEST_F(flash_driver, that_keeps_the_device_is_a_failure_and_the_flash_is_the_hosts)
{
    bind();
    ASSERT_EQ(set_bios_owner(1), 0);
    fs::remove(path("driver/unbind"));
    EXPECT_EQ(set_bios_owner(0), -1);
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
}

TEST_F(flash_driver, has_the_device_while_the_flash_is_read)
{
    bool signals_waited = false;
    fake.when_gpio_is_set = [&, before = fake.when_gpio_is_set](int value) {
        before(value);
        sigset_t blocked;
        sigprocmask(SIG_SETMASK, nullptr, &blocked);
        signals_waited = sigismember(&blocked, SIGINT) == 1 && sigismember(&blocked, SIGTERM) == 1;
        if (value == 1)
            bind();  // as the kernel does once it is told
    };
    ASSERT_GE(get_bios(path("bios.bin").c_str(), block), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash.substr(0, block));
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
    EXPECT_TRUE(signals_waited);
    sigset_t blocked;
    sigprocmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGINT), 0);
}

TEST_F(flash_driver, that_has_the_device_already_keeps_it_when_the_flash_is_read)
{
    bind();
    ASSERT_GE(get_bios(path("bios.bin").c_str(), block), 0);
    EXPECT_EQ(events(), (order{"bind  unbind "}));
    EXPECT_EQ(fake.levels, levels());
}

TEST_F(flash_driver, that_cannot_be_had_leaves_nothing_read)
{
    fs::remove(path("driver/bind"));
    EXPECT_LT(get_bios(path("bios.bin").c_str(), block), 0);
    EXPECT_FALSE(fs::exists(path("bios.bin")));
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
    board_says("/dev/gpiochip3 12", "bios_flash_device = 1e630000.spi\n");
    EXPECT_LT(get_bios(path("bios.bin").c_str(), block), 0) << "no driver named";
}

TEST_F(flash_driver, a_flash_that_cannot_be_read_is_given_back)
{
    fake.mtd_path = path("none");
    EXPECT_LT(get_bios(path("bios.bin").c_str(), block), 0);
    EXPECT_EQ(fake.levels, (levels{{12, 0}}));
}

}  // namespace

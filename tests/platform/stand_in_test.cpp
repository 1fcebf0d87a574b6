/// Files that stand for devices, as the board file names them. The devices are there as well, and must not be touched.
#include "platform/platform.h"
#include "tests/platform/fake_devices.h"
#include "tests/platform/test_folder.h"

#include <cerrno>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace
{

/// Permissions do not stop root, so root's tests step down for the length of this.
class ordinary_user
{
public:
    ordinary_user() { take(was_root ? 65534 : geteuid()); }
    ~ordinary_user() { take(was_root ? 0 : geteuid()); }
    ordinary_user(const ordinary_user &) = delete;
    ordinary_user &operator=(const ordinary_user &) = delete;

private:
    static void take(uid_t user)
    {
        if (seteuid(user) != 0)
            abort();
    }
    const bool was_root = geteuid() == 0;
};

class stand_in : public test_folder
{
protected:
    stand_in()
    {
        fs::permissions(folder, fs::perms(0755));  // for the ordinary user
        fake.board_file = path("board");
        fake.i2c_path = write("i2c-device", "");
        fake.i2c_memory = on_device;
        fake.mtd_path = write("mtd-device", on_device);
        fake.erase_size = 4096;
    }
    ~stand_in() override
    {
        EXPECT_EQ(fake.i2c_transfers, 0);
        EXPECT_EQ(contents(fake.mtd_path), on_device);
        fake = {};
    }
    void board_says(const std::string &text) const { write("board", text); }
    std::string permitted(const std::string &file, unsigned permissions) const
    {
        fs::permissions(file, fs::perms(permissions));
        return file;
    }
    /// Paths of what is no regular file.
    std::string fifo() const
    {
        mkfifo(path("fifo").c_str(), 0666);
        return path("fifo");
    }
    std::string dangling_link() const
    {
        fs::create_symlink(path("absent"), path("dangling"));
        return path("dangling");
    }
    std::string link_to(const std::string &file) const
    {
        fs::create_symlink(file, path("link"));
        return path("link");
    }

    const std::string on_device = std::string(65536, 'D');
};

// EEPROM ------------------------------------------------------------------------------------------------------------

constexpr size_t eeprom_size = 16384;

class eeprom_file : public stand_in
{
protected:
    eeprom_file() { board_says("i2c-2-a0 = " + write("eeprom", image) + "\n"); }

    static int read(int offset, int length, unsigned char *got, int address = 0xA0)
    {
        const unsigned char position[] = {uint8_t(offset >> 8), uint8_t(offset)};
        return i2c_write_read(2, address, position, 2, got, length, 0);
    }
    static int read(int offset)
    {
        unsigned char got[64];
        return read(offset, 64, got);
    }
    int read_from(const std::string &file) const
    {
        board_says("i2c-2-a0 = " + file + "\n");
        return read(0);
    }

    const std::string image = pattern(eeprom_size, 7);
};

TEST_F(eeprom_file, is_read_instead_of_the_device)
{
    std::string all;
    for (int offset = 0; offset < int(eeprom_size); offset += 64) {
        unsigned char got[64] = {};
        ASSERT_EQ(read(offset, 64, got), 0) << offset;
        all.append(reinterpret_cast<char *>(got), 64);
    }
    EXPECT_EQ(all, image);
    unsigned char last = 0;
    EXPECT_EQ(read(eeprom_size - 1, 1, &last, 0xA1), 0) << "bit 0 of the address is the direction";
    EXPECT_EQ(char(last), image.back());
}

TEST_F(eeprom_file, that_another_device_has_is_not_read)
{
    const std::string file = path("eeprom");
    for (const std::string &text :
         {std::string(), "i2c-2-a2=" + file, "i2c-1-a0=" + file, "i2c-2-a=" + file, "i2c-2-a00=" + file, "mtd6=" + file,
          "# i2c-2-a0=" + file, "[other]\ni2c-2-a0=" + file}) {
        board_says(text + "\n");
        unsigned char got[64] = {};
        EXPECT_EQ(read(0, 64, got), 0) << text;
        EXPECT_EQ(std::string(reinterpret_cast<char *>(got), 64), on_device.substr(0, 64)) << text;
        EXPECT_EQ(fake.i2c_transfers, 1) << text;
        fake.i2c_transfers = 0;
    }
}

TEST_F(eeprom_file, has_a_size_that_such_a_chip_can_have)
{
    for (const size_t size : {4096U, 8192U, 16384U, 32768U, 65536U})
        EXPECT_EQ(read_from(write("sized", std::string(size, 'x'))), 0) << size;
    for (const size_t size : {0U, 64U, 2048U, 4095U, 12288U, 16383U, 16385U, 65535U, 65537U, 131072U}) {
        EXPECT_EQ(read_from(write("sized", std::string(size, 'x'))), -EINVAL) << size;
        EXPECT_EQ(fs::file_size(path("sized")), size);
    }
}

TEST_F(eeprom_file, ends_where_it_ends)
{
    EXPECT_EQ(read(eeprom_size - 64), 0);
    EXPECT_EQ(read(eeprom_size - 63), -ENXIO);
    EXPECT_EQ(read(eeprom_size), -ENXIO);
    EXPECT_EQ(read(0xFFFF), -ENXIO);
}

TEST_F(eeprom_file, takes_two_offset_bytes_and_is_never_written)
{
    const unsigned char written[] = {0, 0, 'x'};
    unsigned char got[1];
    EXPECT_EQ(i2c_write_read(2, 0xA0, written, 1, got, 1, 0), -EINVAL);
    EXPECT_EQ(i2c_write_read(2, 0xA0, written, 3, got, 1, 0), -EINVAL);
    EXPECT_EQ(contents(path("eeprom")), image);
}

TEST_F(eeprom_file, that_is_not_there_is_not_made)
{
    EXPECT_EQ(read_from(path("absent")), -ENOENT);
    EXPECT_EQ(read_from(""), -ENOENT);
    EXPECT_EQ(read_from(dangling_link()), -ENOENT);
    EXPECT_FALSE(fs::exists(path("absent")));
}

TEST_F(eeprom_file, is_a_regular_file_or_a_link_to_one)
{
    EXPECT_EQ(read_from(folder), -EINVAL);
    EXPECT_EQ(read_from(fifo()), -EINVAL);
    EXPECT_EQ(read_from("/dev/zero"), -EINVAL);
    EXPECT_EQ(read_from(link_to(path("eeprom"))), 0);
}

TEST_F(eeprom_file, needs_to_be_readable_and_no_more)
{
    permitted(path("eeprom"), 0444);
    const ordinary_user permissions_count;
    EXPECT_EQ(read(0), 0);
}

TEST_F(eeprom_file, that_may_not_be_read_is_reported)
{
    permitted(path("eeprom"), 0222);
    const ordinary_user permissions_count;
    EXPECT_EQ(read(0), -EACCES);
}

// Flash -------------------------------------------------------------------------------------------------------------

constexpr unsigned block = 65536, blocks = 16;

class flash_file : public stand_in
{
protected:
    flash_file()
    {
        board_says("mtd6 = " + write("flash", old_flash) + "\n");
        write("image.bin", image);
    }
    int copy(unsigned to, unsigned from, unsigned length) const
    {
        return spi_flash_copy("/dev/mtd6", to, path("image.bin").c_str(), from, length, 1, 1);
    }
    int write_all() const { return copy(0, 0, blocks * block); }
    int read_into(const std::string &file) const { return get_bios(path(file).c_str(), blocks * block); }
    /// Neither written nor read, but left as it is.
    void expect_refused(const std::string &file) const
    {
        board_says("mtd6 = " + file + "\n");
        EXPECT_NE(write_all(), 0) << file;
        EXPECT_LT(read_into("bios.bin"), 0) << file;
        EXPECT_FALSE(fs::exists(path("bios.bin"))) << file;
    }
    std::string now() const { return contents(path("flash")); }

    const std::string old_flash = pattern(blocks * block, 5), image = pattern(blocks * block, 9);
};

TEST_F(flash_file, is_read_instead_of_the_device)
{
    ASSERT_EQ(read_into("bios.bin"), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash);
    ASSERT_EQ(get_bios(path("bios.bin").c_str(), 100), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash.substr(0, 100));
}

TEST_F(flash_file, is_written_instead_of_the_device)
{
    fs::create_hard_link(path("flash"), path("same-flash"));
    ASSERT_EQ(write_all(), 0);
    EXPECT_EQ(now(), image);
    EXPECT_EQ(contents(path("same-flash")), image) << "written where it is, not replaced";
    EXPECT_EQ(fake.erased, 0);
}

TEST_F(flash_file, is_written_in_whole_blocks_and_nothing_round_them)
{
    ASSERT_EQ(copy(3 * block, 77, 2 * block), 0);
    const std::string expected =
        old_flash.substr(0, 3 * block) + image.substr(77, 2 * block) + old_flash.substr(5 * block);
    EXPECT_EQ(now(), expected);
    EXPECT_NE(copy(1, 0, block), 0);
    EXPECT_NE(copy(0, 0, block - 1), 0);
    EXPECT_NE(copy(15 * block, 0, 2 * block), 0);
    EXPECT_NE(copy(0, 1, blocks * block), 0);
    EXPECT_EQ(now(), expected);
}

TEST_F(flash_file, is_read_back_and_compared)
{
    const std::string device = fake.mtd_path;
    fake.mtd_path = path("flash");
    fake.stuck_byte = 5 * block + 7;
    EXPECT_NE(write_all(), 0);
    EXPECT_NE(now(), image);
    fake.mtd_path = device;
}

TEST_F(flash_file, that_another_device_has_is_not_touched)
{
    const std::string file = path("flash");
    for (const std::string &text : {std::string(), "mtd=" + file, "mtd60=" + file, "mtd5=" + file, "i2c-2-a0=" + file,
                                    "; mtd6=" + file, "[other]\nmtd6=" + file}) {
        board_says(text + "\n");
        ASSERT_EQ(get_bios(path("bios.bin").c_str(), 4096), 0) << text;
        EXPECT_EQ(contents(path("bios.bin")), on_device.substr(0, 4096)) << text;
        EXPECT_EQ(spi_flash_copy("/dev/mtd6", 0, path("bios.bin").c_str(), 0, 4096, 1, 1), 0) << text;
        EXPECT_EQ(fake.erased, 1) << text;
        fake.erased = 0;
        EXPECT_EQ(now(), old_flash) << text;
    }
}

TEST_F(flash_file, stands_for_the_device_of_its_name)
{
    board_says("mtd12 = " + path("flash") + "\n");
    EXPECT_EQ(spi_flash_copy("/dev/mtd12", 0, path("image.bin").c_str(), 0, block, 1, 1), 0);
    EXPECT_EQ(now(), image.substr(0, block) + old_flash.substr(block));
}

TEST_F(flash_file, does_not_stand_for_what_is_no_flash)
{
    board_says("bios_owner_gpio = " + path("flash") + "\nmtd6 = " + path("flash") + "\n");
    for (const std::string &wrong :
         {std::string("/dev/bios_owner_gpio"), std::string("mtd6"), path("flash"), std::string()})
        EXPECT_NE(spi_flash_copy(wrong.c_str(), 0, path("image.bin").c_str(), 0, block, 1, 1), 0) << wrong;
    EXPECT_EQ(now(), old_flash);
}

TEST_F(flash_file, of_a_wrong_size_is_left_alone)
{
    for (const size_t size : {size_t(0), size_t(100), size_t(blocks * block - block), size_t(blocks * block - 1),
                              size_t(blocks * block + 1), size_t(blocks * block + 4096)}) {
        const std::string before = pattern(size, 3);
        expect_refused(write("sized", before));
        EXPECT_EQ(contents(path("sized")), before);
    }
    fs::resize_file(path("sized"), (uintmax_t(1) << 32) + blocks * block);  // more than 32 bits can count
    expect_refused(path("sized"));
}

TEST_F(flash_file, that_is_not_there_is_not_made)
{
    expect_refused(path("absent"));
    expect_refused("");
    expect_refused(dangling_link());
    EXPECT_FALSE(fs::exists(path("absent")));
}

TEST_F(flash_file, is_a_regular_file_or_a_link_to_one)
{
    expect_refused(folder);
    expect_refused(fifo());
    expect_refused("/dev/zero");
    board_says("mtd6 = " + link_to(path("flash")) + "\n");
    EXPECT_EQ(write_all(), 0);
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(now(), image);
}

TEST_F(flash_file, that_is_read_only_can_be_read)
{
    permitted(path("flash"), 0444);
    fs::permissions(folder, fs::perms(0777));
    const ordinary_user permissions_count;
    EXPECT_NE(write_all(), 0);
    EXPECT_EQ(read_into("bios.bin"), 0);
    EXPECT_EQ(contents(path("bios.bin")), old_flash);
}

TEST_F(flash_file, that_may_not_be_read_is_left_alone)
{
    permitted(path("flash"), 0222);
    {
        fs::permissions(folder, fs::perms(0777));
        const ordinary_user permissions_count;
        expect_refused(path("flash"));
    }
    permitted(path("flash"), 0600);
    EXPECT_EQ(now(), old_flash);
}

TEST_F(flash_file, that_the_disk_has_no_room_for_keeps_its_size)
{
    EXPECT_TRUE(holds_with_file_limit(4 * block + 100, [&] { return write_all() != 0; }));
    EXPECT_EQ(fs::file_size(path("flash")), blocks * block);
    EXPECT_EQ(now().substr(5 * block), old_flash.substr(5 * block)) << "it goes no further";
}

TEST_F(flash_file, read_onto_a_full_disk_leaves_what_was_there)
{
    write("bios.bin", "before");
    const auto before = entries(folder);
    EXPECT_TRUE(holds_with_file_limit(4 * block, [&] { return read_into("bios.bin") < 0; }));
    EXPECT_EQ(contents(path("bios.bin")), "before");
    EXPECT_EQ(entries(folder), before);
}

TEST_F(flash_file, is_never_copied_onto_itself)
{
    const std::string link = link_to(path("flash"));
    for (const std::string &same : {path("flash"), link}) {
        EXPECT_LT(get_bios(same.c_str(), block), 0);
        EXPECT_NE(spi_flash_copy("/dev/mtd6", 0, same.c_str(), block, block, 1, 1), 0);
    }
    EXPECT_EQ(now(), old_flash);
    EXPECT_TRUE(fs::is_symlink(link));
}

// Switches ----------------------------------------------------------------------------------------------------------

class switch_file : public stand_in
{
protected:
    /// Both calls fail, and the file stays as it is.
    void expect_refused(const std::string &file) const
    {
        board_says("bios_owner_gpio = " + file + "\nbios_print_flag = " + file + "\n");
        for (const int value : {0, 1}) {
            EXPECT_EQ(set_bios_owner(value), -1) << file;
            EXPECT_EQ(set_bios_print_flag(value), -1) << file;
        }
    }
};

TEST_F(switch_file, each_is_set_where_its_own_key_says)
{
    board_says("bios_owner_gpio = " + write("owner", "0\n") + "\nbios_print_flag = " + write("print", "0\n") + "\n");
    EXPECT_EQ(set_bios_print_flag(1), 0);
    EXPECT_EQ(contents(path("print")), "1\n");
    EXPECT_EQ(contents(path("owner")), "0\n");
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(set_bios_print_flag(0), 0);
    EXPECT_EQ(contents(path("print")), "0\n");
    EXPECT_EQ(contents(path("owner")), "1\n");
    EXPECT_EQ(set_bios_print_flag(2), -1);
    EXPECT_EQ(set_bios_print_flag(-1), -1);
    EXPECT_EQ(contents(path("print")), "0\n");
}

TEST_F(switch_file, without_its_key_the_debug_output_is_not_supported)
{
    board_says("bios_owner_gpio = " + write("owner", "0\n") + "\n");
    EXPECT_EQ(set_bios_print_flag(1), -10);
    EXPECT_EQ(set_bios_print_flag(0), -10);
    EXPECT_EQ(contents(path("owner")), "0\n");
}

TEST_F(switch_file, that_holds_no_value_does_not_grow)
{
    for (const std::string &text : {std::string(), std::string("0")}) {
        expect_refused(write("short", text));
        EXPECT_EQ(contents(path("short")), text);
    }
}

TEST_F(switch_file, that_does_not_take_the_value_is_a_failure)
{
    const std::string device = fake.mtd_path;
    fake.mtd_path = write("stuck", "0\n");
    fake.stuck_byte = 0;
    expect_refused(path("stuck"));
    fake.mtd_path = device;
}

TEST_F(switch_file, that_is_not_there_is_not_made)
{
    expect_refused(path("absent"));
    expect_refused("");
    expect_refused(dangling_link());
    EXPECT_FALSE(fs::exists(path("absent")));
    expect_refused(folder);
    expect_refused(fifo());
}

TEST_F(switch_file, that_may_not_be_written_or_read_is_a_failure)
{
    const std::string file = write("switch", "7\n");
    for (const unsigned permissions : {0444U, 0222U}) {
        permitted(file, permissions);
        board_says("");
        permitted(path("board"), 0666);
        const ordinary_user permissions_count;
        expect_refused(file);
    }
    permitted(file, 0600);
    EXPECT_EQ(contents(file), "7\n");
}

TEST_F(switch_file, may_be_a_link)
{
    board_says("bios_print_flag = " + link_to(write("print", "0\n")) + "\n");
    EXPECT_EQ(set_bios_print_flag(1), 0);
    EXPECT_EQ(contents(path("print")), "1\n");
    EXPECT_TRUE(fs::is_symlink(path("link")));
}

// Board file --------------------------------------------------------------------------------------------------------

/// It may say that a file stands for the device, so the device is not touched.
TEST_F(stand_in, of_a_board_file_that_cannot_be_read_is_not_guessed)
{
    const std::string image = write("image.bin", std::string(4096, 'x'));
    const std::string endless = write("long", std::string((1 << 20) + 1, '\n'));
    const std::string secret = permitted(write("secret", ""), 0);
    fs::permissions(folder, fs::perms(0777));
    const ordinary_user permissions_count;
    for (const std::string &unreadable : {folder, endless, secret, image + "/below-a-file"}) {
        fake.board_file = unreadable;
        const unsigned char position[] = {0, 0};
        unsigned char got[1];
        EXPECT_LT(i2c_write_read(2, 0xA0, position, 2, got, 1, 0), 0) << unreadable;
        EXPECT_LT(get_bios(path("bios.bin").c_str(), 4096), 0) << unreadable;
        EXPECT_NE(spi_flash_copy("/dev/mtd6", 0, image.c_str(), 0, 4096, 1, 1), 0) << unreadable;
        EXPECT_EQ(set_bios_owner(1), -1) << unreadable;
        EXPECT_EQ(set_bios_print_flag(1), -1) << unreadable;
    }
}

}  // namespace

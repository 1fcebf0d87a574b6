/// A controller's disk in a folder: ZENTRO_DISK.
#include "platform/platform.h"
#include "tests/platform/test_folder.h"

#include <cerrno>

namespace fs = std::filesystem;

namespace
{

class disk : public test_folder
{
protected:
    disk() { fs::create_directories(path("data/log")); }

    static int read_eeprom()
    {
        const unsigned char position[] = {0, 0};
        unsigned char got[4];
        return i2c_write_read(2, 0xA0, position, 2, got, 4, 0);
    }

    const variable where{"ZENTRO_DISK", folder}, no_system_log{"ZENTRO_SYSLOG", ""};
};

TEST_F(disk, holds_configuration_and_event_table)
{
    EXPECT_EQ(event_parse_init("/data/sectbl.cfg"), 0);
    write("data/cli.conf", "[FAN]\nlevel=20\n");
    write("data/sectbl.cfg", "1 1 9 assert 2 10000001 Upper critical, going high\n");
    void *const file = CfgFileOpenReadOnly("/data/cli.conf");
    ASSERT_NE(file, nullptr);
    CfgFileClose(file);
    EXPECT_NE(event_parse_init("/data/sectbl.cfg"), 0);
}

TEST_F(disk, holds_the_operation_log)
{
    EXPECT_EQ(vos_zentro_log(2, "root", "console", "Fan", "change"), 0);
    EXPECT_NE(contents(path("data/log/operation.log")).find("change"), std::string::npos);
}

TEST_F(disk, holds_what_the_board_file_names)
{
    write("data/linux-board.conf", "i2c-2-a0 = /data/eeprom\nmtd6 = /data/flash\nbios_owner_gpio = /data/owner\n");
    write("data/eeprom", std::string(16384, 'e'));
    write("data/flash", std::string(65536, 'f'));
    write("data/owner", "0\n");
    EXPECT_EQ(read_eeprom(), 0);
    EXPECT_EQ(get_bios(path("copy").c_str(), 65536), 0);
    EXPECT_EQ(contents(path("copy")), std::string(65536, 'f'));
    EXPECT_EQ(set_bios_owner(1), 0);
    EXPECT_EQ(contents(path("data/owner")), "1\n");
}

TEST_F(disk, other_paths_are_the_machines)
{
    EXPECT_EQ(vos_get_file_length(write("file", "12345").c_str()), 5);
    void *const file = CfgFileOpenReadOnly(write("own.conf", "[FAN]\n").c_str());
    EXPECT_NE(file, nullptr);
    CfgFileClose(file);
    setenv("ZENTRO_DISK", std::string(4096, 'x').c_str(), 1);
    EXPECT_EQ(CfgFileOpenReadOnly("/data/cli.conf"), nullptr) << "longer than a path can be";
}

/// /dev/zero is on every machine, and is read if it is opened there.
TEST_F(disk, the_machines_devices_are_not_opened)
{
    write("data/linux-board.conf", "");
    EXPECT_EQ(read_eeprom(), -ENOENT);
    EXPECT_EQ(get_bios(path("copy").c_str(), 1), -1);
    write("data/linux-board.conf", "bios_owner_gpio = /dev/zero\n");
    EXPECT_EQ(set_bios_owner(1), -1);
    EXPECT_EQ(errno, ENOENT);
    setenv("ZENTRO_DISK", "", 1);
    const variable board("ZENTRO_BOARD_FILE", path("no-board-file"));
    EXPECT_EQ(read_eeprom(), -ENOENT);
    EXPECT_NE(spi_flash_copy("/dev/zero", 0, path("data/linux-board.conf").c_str(), 0, 1, 0, 0), 0);
    EXPECT_EQ(errno, ENOENT) << "opened, it would not be a flash: ENOTTY";
}

}  // namespace

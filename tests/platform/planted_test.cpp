/// What somebody else has put where a file is to be written: it is neither opened nor removed, and the system's log
/// says so.
#include "platform/platform.h"
#include "tests/platform/system_log.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace
{

class planted : public test_folder
{
protected:
    planted()
    {
        fs::create_directory(path("data"));
        write("data/linux-board.conf", "mtd6 = /data/flash\n");
        write("data/flash", std::string(65536, 'f'));
        fs::create_directory(path("pack"));
    }
    /// As the tool makes /tmp/bios.bin.
    int download(const std::string &file) const { return get_bios(file.c_str(), 65536); }
    std::string in_the_way(const std::string &file, const std::string &kind) const
    {
        return "<84>zentro: " + file + ": not written: a " + kind + " of user " + std::to_string(geteuid()) +
               " is in the way";
    }

    const variable disk{"ZENTRO_DISK", folder};
    const system_log log{path("syslog")};
};

TEST_F(planted, a_fifo_is_named)
{
    const std::string bios = path("bios.bin");
    ASSERT_EQ(mkfifo(bios.c_str(), 0666), 0);
    EXPECT_EQ(download(bios), -1);
    EXPECT_EQ(log.next(), in_the_way(bios, "FIFO"));
    EXPECT_EQ(log.next(), "nothing");
    EXPECT_TRUE(fs::is_fifo(bios));
}

TEST_F(planted, a_folder_is_named)
{
    const std::string bios = path("bios.bin");
    fs::create_directory(bios);
    EXPECT_EQ(download(bios), -1);
    EXPECT_EQ(log.next(), in_the_way(bios, "folder"));
    EXPECT_TRUE(fs::is_directory(bios));
}

TEST_F(planted, every_file_that_the_library_writes_is_named)
{
    const std::string fifo = path("a\nfi\x1B[2Jfo"), shown = path("a\\x0Afi\\x1B[2Jfo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0666), 0);
    EXPECT_NE(vos_file_copy(fifo.c_str(), path("data/flash").c_str()), 0);
    EXPECT_EQ(log.next(), in_the_way(shown, "FIFO"));
    EXPECT_NE(tar_gzip_pack(path("pack").c_str(), "*", fifo.c_str()), 0);
    EXPECT_EQ(log.next(), in_the_way(shown, "FIFO"));
    EXPECT_EQ(log.next(), "nothing");
    EXPECT_NE(vos_file_copy(path("syslog").c_str(), path("data/flash").c_str()), 0);
    EXPECT_EQ(log.next(), in_the_way(path("syslog"), "socket"));
}

TEST_F(planted, what_cannot_be_written_is_named)
{
    const std::string nowhere = path("absent/bios.bin");
    EXPECT_EQ(download(nowhere), -1);
    EXPECT_EQ(log.next(), "<84>zentro: " + nowhere + ": not written: No such file or directory");
}

TEST_F(planted, what_is_written_is_not_mentioned)
{
    write("old", "old");
    fs::create_symlink(path("old"), path("bios.bin"));
    EXPECT_EQ(download(path("bios.bin")), 0);
    EXPECT_EQ(log.next(), "nothing");
}

}  // namespace

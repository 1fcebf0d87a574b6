#include "platform/platform.h"
#include "tests/platform/test_folder.h"

#include <algorithm>
#include <set>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

class archive : public test_folder
{
protected:
    archive()
    {
        fs::create_directory(path("in"));
        fs::create_directory(path("out"));
    }
    std::string packed() const { return path("out/sel.tar"); }
    int pack(const std::string &from, const char *pattern = "*") const
    {
        return tar_gzip_pack(from.c_str(), pattern, packed().c_str());
    }
    int pack() const { return pack(path("in")); }

    /// Unpacked by the system's tar: the names of what came out.
    std::set<std::string> unpacked() const
    {
        fs::remove_all(path("again"));
        fs::create_directory(path("again"));
        const std::string command = "/bin/tar -xzf '" + packed() + "' -C '" + path("again") + "'";
        EXPECT_EQ(system(command.c_str()), 0);
        std::set<std::string> found;
        for (const auto &entry : fs::recursive_directory_iterator(path("again")))
            found.insert(entry.path().lexically_relative(path("again")));
        return found;
    }
    using names = std::set<std::string>;
};

TEST_F(archive, holds_the_files_and_is_compressed)
{
    write("in/sel.csv", "one\r\n");
    write("in/b.csv", std::string(100000, 'b'));
    ASSERT_EQ(pack(path("in/")), 0);
    EXPECT_EQ(unpacked(), (names{"sel.csv", "b.csv"}));
    EXPECT_EQ(contents(path("again/sel.csv")), "one\r\n");
    EXPECT_EQ(contents(path("again/b.csv")), std::string(100000, 'b'));
    EXPECT_EQ(contents(packed()).substr(0, 2), "\x1F\x8B") << "gzip";
    EXPECT_EQ(entries(path("out")), 1);
}

TEST_F(archive, names_are_names_whatever_they_look_like)
{
    const names hostile{"-rf",       "--checkpoint-action=exec=touch pwned",
                        "a b",       "new\nline",
                        "quote'\"",  "$(touch x)",
                        "-C..",      "back\\slash\\n",
                        "m\xC3\xBC", "\xFF\xFE",
                        "*"};
    for (const std::string &name : hostile)
        write("in/" + name, name);
    ASSERT_EQ(pack(), 0);
    EXPECT_EQ(unpacked(), hostile);
    EXPECT_EQ(entries(path("in")), long(hostile.size())) << "nothing was run there";
}

TEST_F(archive, takes_what_matches_the_pattern)
{
    for (const char *name : {"a.csv", "b.csv", "a.bin", "[x]", ".hidden"})
        write(std::string("in/") + name, "x");
    ASSERT_EQ(pack(path("in"), "*.csv"), 0);
    EXPECT_EQ(unpacked(), (names{"a.csv", "b.csv"}));
    ASSERT_EQ(pack(path("in"), "[ab].?[is]?"), 0);
    EXPECT_EQ(unpacked(), (names{"a.csv", "b.csv", "a.bin"}));
    ASSERT_EQ(pack(path("in"), "*"), 0);
    EXPECT_EQ(unpacked(), (names{"a.csv", "b.csv", "a.bin", "[x]"})) << "as in a shell, not the hidden one";
    ASSERT_EQ(pack(path("in"), ".h*"), 0);
    EXPECT_EQ(unpacked(), (names{".hidden"}));
}

TEST_F(archive, is_empty_when_nothing_matches)
{
    ASSERT_EQ(pack(), 0);
    EXPECT_EQ(unpacked(), names{});
    write("in/a", "x");
    ASSERT_EQ(pack(path("in"), "*.csv"), 0);
    EXPECT_EQ(unpacked(), names{});
}

TEST_F(archive, takes_regular_files_only)
{
    write("in/file", "x");
    write("secret", "secret");
    fs::create_directory(path("in/folder"));
    write("in/folder/inner", "x");
    fs::create_symlink(path("secret"), path("in/link"));
    mkfifo(path("in/fifo").c_str(), 0600);
    ASSERT_EQ(pack(), 0);
    EXPECT_EQ(unpacked(), names{"file"});
}

TEST_F(archive, replaces_what_was_there_and_follows_no_link)
{
    write("in/a", "x");
    const std::string victim = write("victim", "precious");
    fs::create_symlink(victim, packed());
    ASSERT_EQ(pack(), 0);
    EXPECT_EQ(contents(victim), "precious");
    EXPECT_FALSE(fs::is_symlink(packed()));
    ASSERT_EQ(pack(), 0) << "and again over the file";
    EXPECT_EQ(unpacked(), names{"a"});

    fs::create_directory_symlink(path("in"), path("planted"));
    EXPECT_EQ(pack(path("planted/")), -1);
}

TEST_F(archive, that_cannot_be_made_leaves_what_was_there)
{
    write("in/a", "x");
    write("out/sel.tar", "before");
    for (const std::string &wrong : {path("absent"), path("in/a"), std::string(), std::string("/")})
        EXPECT_EQ(pack(wrong), -1) << wrong;
    EXPECT_EQ(contents(packed()), "before");
    EXPECT_EQ(entries(path("out")), 1);
    for (const std::string &wrong : {path("absent/sel.tar"), path("out"), std::string(), std::string("/dev/null")})
        EXPECT_EQ(tar_gzip_pack(path("in").c_str(), "*", wrong.c_str()), -1) << wrong;
    EXPECT_EQ(tar_gzip_pack(nullptr, "*", packed().c_str()), -1);
    EXPECT_EQ(tar_gzip_pack(path("in").c_str(), nullptr, packed().c_str()), -1);
    EXPECT_EQ(tar_gzip_pack(path("in").c_str(), "*", nullptr), -1);
}

TEST_F(archive, of_a_file_that_cannot_be_read_is_a_failure)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read anything";
    write("in/a", "x");
    fs::permissions(path("in/a"), fs::perms::none);
    EXPECT_EQ(pack(), -1);
    EXPECT_EQ(entries(path("out")), 0) << "no half archive";
}

TEST_F(archive, does_not_depend_on_the_environment)
{
    const variable options("TAR_OPTIONS", "--wrong-option"), gzip("GZIP", "--wrong");
    write("in/a", "x");
    ASSERT_EQ(pack(), 0);
    unsetenv("TAR_OPTIONS");
    unsetenv("GZIP");
    EXPECT_EQ(unpacked(), names{"a"});
}

}  // namespace

#include "platform/platform.h"
#include "tests/platform/test_folder.h"

#include <chrono>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

// Memory and texts --------------------------------------------------------------------------------------------------

TEST(memory, a_fill_stays_within_its_bounds)
{
    char text[8] = "abcdefg";
    EXPECT_EQ(vos_memset(text, sizeof text, 'x', 3), 0);
    EXPECT_STREQ(text, "xxxdefg");
    EXPECT_NE(vos_memset(text, 2, 'y', 3), 0);
    EXPECT_STREQ(text, "xxxdefg");
    EXPECT_EQ(vos_memset(text, 8, 'y', 0), 0);
    EXPECT_NE(vos_memset(nullptr, 8, 0, 8), 0);
}

TEST(memory, a_copy_stays_within_its_bounds)
{
    char text[8] = "abcdefg";
    EXPECT_EQ(vos_memcpy(text, sizeof text, "123", 3), 0);
    EXPECT_STREQ(text, "123defg");
    EXPECT_NE(vos_memcpy(text, 2, "xyz", 3), 0);
    EXPECT_STREQ(text, "123defg");
    EXPECT_NE(vos_memcpy(nullptr, 8, "x", 1), 0);
    EXPECT_NE(vos_memcpy(text, 8, nullptr, 1), 0);
}

struct text_case {
    const char *before, *from;
    size_t to_size, count;
    int result;
    const char *after;
};

TEST(texts, are_copied_and_always_terminated)
{
    for (const text_case &each : std::vector<text_case>{
             {"zzzzzzz", "abc", 8, 8, 0, "abc"},
             {"zzzzzzz", "abc", 8, 2, 0, "ab"},
             {"zzzzzzz", "abc", 4, 9, 0, "abc"},
             {"zzzzzzz", "abc", 3, 9, -1, "ab"},
             {"zzzzzzz", "abc", 1, 9, -1, ""},
             {"zzzzzzz", "abc", 0, 9, -1, "zzzzzzz"},
             {"zzzzzzz", "", 8, 9, 0, ""},
             {"zzzzzzz", nullptr, 8, 9, -1, ""},
         }) {
        char to[8];
        strcpy(to, each.before);
        EXPECT_EQ(vos_strncpy(to, each.to_size, each.from, each.count), each.result) << each.after;
        EXPECT_STREQ(to, each.after);
    }
    EXPECT_EQ(vos_strncpy(nullptr, 8, "x", 1), -1);
}

TEST(texts, are_appended_and_always_terminated)
{
    for (const text_case &each : std::vector<text_case>{
             {"ab", "cd", 8, 8, 0, "abcd"},
             {"ab", "cd", 8, 1, 0, "abc"},
             {"ab", "cd", 5, 8, 0, "abcd"},
             {"ab", "cd", 4, 8, -1, "abc"},
             {"ab", "cd", 3, 8, -1, "ab"},
             {"abc", "d", 2, 8, -1, "a"},
             {"ab", "cd", 0, 8, -1, "ab"},
             {"ab", nullptr, 8, 8, -1, "ab"},
         }) {
        char to[8];
        strcpy(to, each.before);
        EXPECT_EQ(vos_strncat(to, each.to_size, each.from, each.count), each.result) << each.after;
        EXPECT_STREQ(to, each.after);
    }
}

TEST(texts, are_formatted_as_the_c_library_does)
{
    char to[6];
    EXPECT_EQ(vos_snprintf(to, sizeof to, "%d-%s", 12, "abc"), 6);
    EXPECT_STREQ(to, "12-ab");
}

TEST(texts, are_searched_for_characters)
{
    EXPECT_NE(vos_check_incorrect_char("abc", "xc"), 0);
    EXPECT_EQ(vos_check_incorrect_char("abc", "xyz"), 0);
    EXPECT_EQ(vos_check_incorrect_char("", "xyz"), 0);
    EXPECT_EQ(vos_check_incorrect_char("abc", ""), 0);
    EXPECT_EQ(vos_check_incorrect_char(nullptr, "a"), 0);
    EXPECT_EQ(vos_check_incorrect_char("a", nullptr), 0);
}

TEST(user_names, may_hold_anything_but_colon_backslash_and_control_characters)
{
    for (const char *good : {"root", "a", "0", "user-1_x.y", "a b", "a#", "-a", ".a", "$%&/()=?*", "m\xC3\xBCller", "",
                             "12345678901234567890"})
        EXPECT_EQ(vos_check_username(good), 0) << good;
    for (const char *bad : {"a:b", "a\\b", ":", "\\", "#a", "#", " a", " ", "a\nb", "a\x7F", "\x1B[2J"})
        EXPECT_NE(vos_check_username(bad), 0) << bad;
    EXPECT_NE(vos_check_username(nullptr), 0);
}

TEST(random_numbers, differ)
{
    std::set<unsigned> seen;
    for (int n = 0; n < 64; ++n)
        seen.insert(vos_rand());
    EXPECT_GT(seen.size(), 60U);
}

TEST(delays, last_at_least_as_long_as_asked_in_spite_of_signals)
{
    struct sigaction caught {
    };
    caught.sa_handler = [](int) {};
    sigaction(SIGALRM, &caught, nullptr);
    const itimerval often{{0, 10000}, {0, 10000}};
    setitimer(ITIMER_REAL, &often, nullptr);
    const auto start = std::chrono::steady_clock::now();
    vos_task_delay(60);
    vos_task_delay_us(40000);
    const auto taken = std::chrono::steady_clock::now() - start;
    const itimerval never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_GE(taken, std::chrono::milliseconds(100));
    EXPECT_LT(taken, std::chrono::seconds(5));
}

// Programs ----------------------------------------------------------------------------------------------------------

class programs : public test_folder
{
protected:
    static int run(int (*call)(const char *, char *const[]), std::vector<std::string> words)
    {
        std::vector<char *> argv;
        for (std::string &word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        return call(words[0].c_str(), argv.data());
    }
    std::string script(const std::string &text) const
    {
        const std::string file = write("script", "#!/bin/sh\n" + text);
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }
};

TEST_F(programs, give_their_exit_status)
{
    EXPECT_EQ(run(vos_system, {"/bin/true"}), 0);
    EXPECT_EQ(run(vos_system, {"/bin/sh", "-c", "exit 42"}), 42);
    EXPECT_EQ(run(vos_environ_system, {"/bin/sh", "-c", "exit 127"}), 127);
    EXPECT_EQ(run(vos_system, {"/bin/sh", "-c", "kill -9 $$"}), 128 + SIGKILL);
}

TEST_F(programs, that_cannot_be_run_are_told_apart)
{
    EXPECT_EQ(run(vos_system, {path("absent")}), -1);
    EXPECT_EQ(run(vos_environ_system, {path("absent")}), -1);
    EXPECT_EQ(run(vos_system, {folder}), -1);
    EXPECT_EQ(run(vos_system, {write("plain", "exit 3\n")}), -1) << "no shell makes a program of it";
    const std::string headless = write("headless", "exit 3\n");
    fs::permissions(headless, fs::perms::owner_all);
    EXPECT_EQ(run(vos_system, {headless}), -1) << "no shell makes a program of it";
    EXPECT_EQ(vos_system(nullptr, nullptr), -1);
}

TEST_F(programs, get_their_words_as_they_are)
{
    const std::string file = script("printf '%s|' \"$@\" > " + path("words"));
    EXPECT_EQ(run(vos_system, {file, "a b", "$(touch x)", ";", "*", ""}), 0);
    EXPECT_EQ(contents(path("words")), "a b|$(touch x)|;|*||");
}

TEST_F(programs, get_the_callers_environment_only_when_asked_for)
{
    const variable mine("ZENTRO_TEST_VARIABLE", "here");
    const std::string file = script("env > " + path("environment"));
    ASSERT_EQ(run(vos_system, {file}), 0);
    EXPECT_EQ(contents(path("environment")).find("ZENTRO_TEST_VARIABLE"), std::string::npos);
    EXPECT_NE(contents(path("environment")).find("PATH=/usr/sbin:/usr/bin:/sbin:/bin\n"), std::string::npos);
    ASSERT_EQ(run(vos_environ_system, {file}), 0);
    EXPECT_NE(contents(path("environment")).find("ZENTRO_TEST_VARIABLE=here\n"), std::string::npos);
}

TEST_F(programs, are_waited_for_even_when_children_are_ignored)
{
    signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(run(vos_system, {"/bin/sh", "-c", "exit 5"}), 5);
    EXPECT_EQ(signal(SIGCHLD, SIG_DFL), SIG_IGN) << "left as it was";
}

TEST_F(programs, do_not_inherit_that_broken_pipes_are_ignored)
{
    signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(run(vos_system, {"/bin/sh", "-c", "kill -PIPE $$; exit 9"}), 128 + SIGPIPE);
    signal(SIGPIPE, SIG_DFL);
}

// Files -------------------------------------------------------------------------------------------------------------

class files : public test_folder
{
protected:
    std::string absent() const { return path("absent"); }
    std::string fifo() const
    {
        mkfifo(path("fifo").c_str(), 0600);
        return path("fifo");
    }
};

TEST_F(files, have_a_length_when_they_are_files)
{
    EXPECT_EQ(vos_get_file_length(write("f", "12345").c_str()), 5);
    EXPECT_EQ(vos_get_file_length(write("empty", "").c_str()), 0);
    fs::create_symlink(path("f"), path("link"));
    EXPECT_EQ(vos_get_file_length(path("link").c_str()), 5);
    for (const std::string &wrong : {absent(), folder, fifo(), std::string("/dev/null"), std::string()})
        EXPECT_EQ(vos_get_file_length(wrong.c_str()), -1) << wrong;
    EXPECT_EQ(vos_get_file_length(nullptr), -1);
}

TEST_F(files, have_a_name)
{
    const struct {
        const char *whole, *name;
    } cases[] = {{"/tmp/image.hpm", "image.hpm"}, {"image.hpm", "image.hpm"}, {"a/b/", "b"}, {"/a", "a"}, {"a//", "a"}};
    for (const auto &each : cases) {
        char name[16] = "";
        EXPECT_EQ(vos_get_file_name(each.whole, name, sizeof name), 0);
        EXPECT_STREQ(name, each.name);
    }
    char name[4];
    EXPECT_EQ(vos_get_file_name("/a/bcde", name, sizeof name), -1) << "no room";
    EXPECT_STREQ(name, "bcd");
    for (const char *wrong : {"", "/", "///"})
        EXPECT_EQ(vos_get_file_name(wrong, name, sizeof name), -1) << wrong;
    EXPECT_EQ(vos_get_file_name(nullptr, name, sizeof name), -1);
    EXPECT_EQ(vos_get_file_name("a", nullptr, 4), -1);
}

TEST_F(files, are_copied_whole)
{
    std::string text;
    for (int n = 0; n < 300000; ++n)
        text += char(n * 7);
    const std::string from = write("from", text);
    fs::permissions(from, fs::perms(0640));
    const mode_t before = umask(022);
    EXPECT_EQ(vos_file_copy(path("to").c_str(), from.c_str()), 0);
    umask(before);
    EXPECT_EQ(contents(path("to")), text);
    EXPECT_EQ(fs::status(path("to")).permissions(), fs::perms(0640));
    EXPECT_EQ(vos_file_copy(path("to").c_str(), write("short", "x").c_str()), 0);
    EXPECT_EQ(contents(path("to")), "x") << "what was there is replaced";
    EXPECT_EQ(vos_file_copy(path("none").c_str(), write("empty", "").c_str()), 0);
    EXPECT_EQ(fs::file_size(path("none")), 0U);
    EXPECT_EQ(entries(folder), 5) << "nothing else is left";
}

TEST_F(files, with_holes_are_copied)
{
    fs::resize_file(write("from", "begin"), 3 << 20);
    ASSERT_EQ(vos_file_copy(path("to").c_str(), path("from").c_str()), 0);
    EXPECT_EQ(contents(path("to")), "begin" + std::string((3 << 20) - 5, '\0'));
}

TEST_F(files, are_not_copied_onto_themselves)
{
    const std::string from = write("from", "precious");
    fs::create_hard_link(from, path("hard"));
    fs::create_symlink(from, path("soft"));
    for (const char *same : {"from", "hard", "soft", "./from"})
        EXPECT_EQ(vos_file_copy(path(same).c_str(), from.c_str()), -1) << same;
    EXPECT_EQ(contents(from), "precious");
}

TEST_F(files, that_cannot_be_copied_leave_the_target_as_it_was)
{
    const std::string to = write("to", "before");
    for (const std::string &wrong : {absent(), folder, fifo(), std::string("/dev/zero")})
        EXPECT_EQ(vos_file_copy(to.c_str(), wrong.c_str()), -1) << wrong;
    EXPECT_EQ(contents(to), "before");
    const std::string from = write("from", "x");
    for (const std::string &wrong : {folder, fifo(), absent() + "/to", std::string("/dev/null"), std::string()})
        EXPECT_EQ(vos_file_copy(wrong.c_str(), from.c_str()), -1) << wrong;
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(vos_file_copy(nullptr, from.c_str()), -1);
    EXPECT_EQ(vos_file_copy(to.c_str(), nullptr), -1);
    EXPECT_EQ(entries(folder), 3);
}

TEST_F(files, replace_a_planted_link_and_do_not_follow_it)
{
    const std::string victim = write("victim", "precious");
    fs::create_symlink(victim, path("to"));
    EXPECT_EQ(vos_file_copy(path("to").c_str(), write("from", "new").c_str()), 0);
    EXPECT_EQ(contents(victim), "precious");
    EXPECT_FALSE(fs::is_symlink(path("to")));
    EXPECT_EQ(contents(path("to")), "new");
}

TEST_F(files, that_do_not_fit_the_disk_are_not_copied_by_halves)
{
    const std::string from = write("from", std::string(200000, 'x')), to = write("to", "before");
    EXPECT_TRUE(holds_with_file_limit(100000, [&] { return vos_file_copy(to.c_str(), from.c_str()) == -1; }));
    EXPECT_EQ(contents(to), "before");
    EXPECT_EQ(entries(folder), 2);
}

// Removing ----------------------------------------------------------------------------------------------------------

TEST_F(files, are_removed)
{
    EXPECT_EQ(vos_rm_filepath(write("f", "x").c_str()), 0);
    EXPECT_EQ(vos_rm_filepath(fifo().c_str()), 0);
    EXPECT_EQ(vos_rm_filepath(absent().c_str()), -1);
    EXPECT_EQ(entries(folder), 0);
}

TEST_F(files, are_removed_with_all_that_is_in_the_folder)
{
    for (const char *name : {"d", "d/e", "d/e/f", "d/g"})
        fs::create_directory(path(name));
    for (const char *name : {"d/1", "d/-rf", "d/ blank", "d/new\nline", "d/e/.hidden", "d/e/f/deep"})
        write(name, "x");
    EXPECT_EQ(vos_rm_filepath(path("d/").c_str()), 0);
    EXPECT_EQ(entries(folder), 0);
}

TEST_F(files, behind_links_are_not_removed)
{
    fs::create_directory(path("kept"));
    write("kept/file", "precious");
    fs::create_directory(path("d"));
    fs::create_directory_symlink(path("kept"), path("d/link"));
    EXPECT_EQ(vos_rm_filepath(path("d").c_str()), 0);
    fs::create_directory_symlink(path("kept"), path("link"));
    EXPECT_EQ(vos_rm_filepath(path("link/").c_str()), 0) << "the link itself, whatever slash it is given";
    EXPECT_EQ(contents(path("kept/file")), "precious");
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(files, many_and_deep_are_removed)
{
    fs::create_directory(path("d"));
    for (int n = 0; n < 500; ++n)
        write("d/file" + std::to_string(n), "");
    const int start = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(chdir(path("d").c_str()), 0);
    for (int level = 0; level < 1500; ++level) {  // deeper than descriptors, and far longer than a path may be
        ASSERT_EQ(mkdir("deeper", 0700), 0);
        ASSERT_EQ(chdir("deeper"), 0);
    }
    ASSERT_EQ(fchdir(start), 0);
    close(start);
    EXPECT_EQ(vos_rm_filepath(path("d").c_str()), 0);
    EXPECT_EQ(entries(folder), 0);
}

TEST_F(files, of_folders_without_a_name_are_not_removed)
{
    fs::create_directory(path("d"));
    write("d/file", "precious");
    for (const std::string &wrong : {path("d/."), path("d/.."), path("d/./"), std::string("/"), std::string("//"),
                                     std::string(), std::string("."), std::string("..")})
        EXPECT_EQ(vos_rm_filepath(wrong.c_str()), -1) << wrong;
    EXPECT_EQ(vos_rm_filepath(nullptr), -1);
    EXPECT_EQ(vos_rm_filepath(std::string(PATH_MAX, 'x').c_str()), -1);
    EXPECT_EQ(contents(path("d/file")), "precious");
}

TEST_F(files, that_may_not_be_removed_are_reported)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may remove anything";
    fs::create_directory(path("d"));
    write("d/file", "x");
    fs::permissions(path("d"), fs::perms(0500));
    EXPECT_EQ(vos_rm_filepath(path("d").c_str()), -1);
    fs::permissions(path("d"), fs::perms(0700));
    EXPECT_EQ(contents(path("d/file")), "x");
}

}  // namespace

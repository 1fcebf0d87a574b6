#include "platform/platform.h"
#include "tests/platform/system_log.h"
#include "tests/platform/test_folder.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <ctime>
#include <map>
#include <sstream>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

class oplog : public test_folder
{
protected:
    oplog() : file("ZENTRO_OPLOG", path("log")), no_syslog("ZENTRO_SYSLOG", "") {}

    std::string log_path() const { return path("log"); }
    std::vector<std::string> lines() const
    {
        const std::string text = contents(log_path());
        EXPECT_TRUE(text.empty() || text.back() == '\n');
        std::istringstream all(text);
        std::vector<std::string> read;
        for (std::string line; std::getline(all, line);)
            read.push_back(line);
        return read;
    }
    static std::vector<std::string> fields(const std::string &line)
    {
        std::istringstream all(line);
        std::vector<std::string> read;
        for (std::string field; std::getline(all, field, '\t');)
            read.push_back(field);
        return read;
    }
    static int log_text(const std::string &record)
    {
        return vos_zentro_log(2, "root", "console", "Fan", record.c_str());
    }
    std::string logged(const std::string &record) const
    {
        EXPECT_EQ(log_text(record), 0);
        return fields(lines().back()).back();
    }

    variable file, no_syslog;
};

TEST_F(oplog, a_record_is_a_line_of_fields)
{
    const time_t before = time(nullptr);
    ASSERT_EQ(vos_zentro_log(4294967295U, "admin", "10.0.0.1", "User", "Add user(a|user3) success,EvtCode:0x11100560"),
              0);
    const auto read = fields(lines().at(0));
    ASSERT_EQ(read.size(), 6U);
    tm written{};
    ASSERT_NE(strptime(read[0].c_str(), "%Y-%m-%dT%H:%M:%SZ", &written), nullptr) << read[0];
    EXPECT_EQ(read[0].size(), 20U);
    EXPECT_GE(timegm(&written), before);
    EXPECT_LE(timegm(&written), time(nullptr));
    EXPECT_EQ(read[1], "4294967295");
    EXPECT_EQ(read[2], "admin");
    EXPECT_EQ(read[3], "10.0.0.1");
    EXPECT_EQ(read[4], "User");
    EXPECT_EQ(read[5], "Add user(a|user3) success,EvtCode:0x11100560");
    EXPECT_EQ(fs::status(log_path()).permissions() & ~fs::perms(0640), fs::perms::none);
}

TEST_F(oplog, records_follow_one_another)
{
    log_text("first");
    log_text("second");
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(fields(lines()[0])[5], "first");
    EXPECT_EQ(fields(lines()[1])[5], "second");
}

TEST_F(oplog, nothing_in_a_field_can_pass_for_a_separator_or_a_line)
{
    const struct {
        const char *text, *written;
    } cases[] = {
        {"plain ~ text", "plain ~ text"}, {"a\tb", "a\\x09b"},   {"a\nb\r", "a\\x0Ab\\x0D"},
        {"\x1B[2J", "\\x1B[2J"},          {"\x7F", "\\x7F"},     {"a\\x09b", "a\\x5Cx09b"},
        {"m\xC3\xBC", "m\\xC3\\xBC"},     {"\\...", "\\x5C..."},
    };
    for (const auto &each : cases)
        EXPECT_EQ(logged(each.text), each.written);
    ASSERT_EQ(vos_zentro_log(1, "u\n", "o\t", "m\\", ""), 0);
    const std::string last = lines().back();
    EXPECT_EQ(last.substr(20), "\t1\tu\\x0A\to\\x09\tm\\x5C\t");
}

TEST_F(oplog, fields_that_are_too_long_are_cut_with_a_mark)
{
    const std::string huge(100000, 'x'), escaped(100000, '\n');
    ASSERT_EQ(vos_zentro_log(2, huge.c_str(), escaped.c_str(), huge.c_str(), escaped.c_str()), 0);
    const auto read = fields(lines().at(0));
    ASSERT_EQ(read.size(), 6U);
    EXPECT_EQ(read[2], std::string(252, 'x') + "\\...");
    EXPECT_EQ(read[3].size(), 256U) << "63 escaped bytes and the mark";
    EXPECT_EQ(read[3].substr(244), "\\x0A\\x0A\\...");
    EXPECT_EQ(read[4], read[2]);
    EXPECT_EQ(read[5].size(), 2048U);
    EXPECT_EQ(read[5].substr(2040), "\\x0A\\...");
    EXPECT_EQ(logged(std::string(2044, 'y')), std::string(2044, 'y')) << "the longest that is whole";
    EXPECT_EQ(logged(std::string(2045, 'y')), std::string(2044, 'y') + "\\...");
}

TEST_F(oplog, lines_of_many_processes_stay_whole)
{
    constexpr int writers = 8, each = 200;
    for (int writer = 0; writer < writers; ++writer)
        if (fork() == 0) {
            int failed = 0;
            for (int n = 0; n < each; ++n)
                failed += log_text(std::string(size_t(50 + 100 * writer), char('a' + writer))) != 0;
            _exit(failed);
        }
    for (int writer = 0; writer < writers; ++writer) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    std::map<std::string, int> seen;
    for (const std::string &line : lines())
        ++seen[fields(line).at(5)];
    EXPECT_EQ(seen.size(), size_t(writers));
    for (const auto &[text, count] : seen) {
        EXPECT_EQ(count, each);
        EXPECT_EQ(text.size(), size_t(50 + 100 * (text[0] - 'a')));
    }
}

TEST_F(oplog, after_a_line_that_was_cut_off_the_next_is_a_line_of_its_own)
{
    write("log", "2026-01-01T00:00:00Z\t2\troot\tcons");
    ASSERT_EQ(log_text("whole"), 0);
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0], "2026-01-01T00:00:00Z\t2\troot\tcons\\...");
    EXPECT_EQ(fields(lines()[1]).at(5), "whole");
}

TEST_F(oplog, a_line_that_does_not_fit_the_disk_is_taken_back)
{
    log_text("before");
    const std::string before = contents(log_path());
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit both{before.size() + 10, before.size() + 10};
        setrlimit(RLIMIT_FSIZE, &both);
        _exit(log_text("too much") == -1 ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(contents(log_path()), before);
}

TEST_F(oplog, a_lock_that_is_never_released_stops_nobody)
{
    log_text("first");
    const int holder = open(log_path().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(holder, LOCK_EX), 0);
    EXPECT_EQ(log_text("second"), 0);
    close(holder);
    EXPECT_EQ(lines().size(), 2U);
}

TEST_F(oplog, links_folders_fifos_and_devices_are_refused)
{
    const std::string victim = write("victim", "precious\n");
    fs::create_symlink(victim, path("link"));
    mkfifo(path("fifo").c_str(), 0600);
    const int reader = open(path("fifo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    for (const std::string &wrong :
         {path("link"), path("fifo"), folder, std::string("/dev/null"), path("absent/log")}) {
        setenv("ZENTRO_OPLOG", wrong.c_str(), 1);
        EXPECT_EQ(log_text("x"), -1) << wrong;
    }
    close(reader);
    EXPECT_EQ(contents(victim), "precious\n");
    EXPECT_FALSE(fs::exists(path("absent"))) << "no folder is made";
}

TEST_F(oplog, records_with_a_missing_field_are_refused)
{
    EXPECT_EQ(vos_zentro_log(1, nullptr, "o", "m", "r"), -1);
    EXPECT_EQ(vos_zentro_log(1, "u", nullptr, "m", "r"), -1);
    EXPECT_EQ(vos_zentro_log(1, "u", "o", nullptr, "r"), -1);
    EXPECT_EQ(vos_zentro_log(1, "u", "o", "m", nullptr), -1);
    EXPECT_FALSE(fs::exists(log_path()));
}

TEST_F(oplog, the_systems_log_gets_the_same_fields)
{
    const system_log log(path("syslog"));
    ASSERT_EQ(log_text("text\n"), 0);
    EXPECT_EQ(log.next(), "<85>zentro: 2\troot\tconsole\tFan\ttext\\x0A");
    EXPECT_EQ(fields(lines().at(0)).at(5), "text\\x0A");
    EXPECT_EQ(log.next(), "nothing");
}

TEST_F(oplog, the_systems_log_is_enough)
{
    const system_log log(path("syslog"));
    const variable no_file("ZENTRO_OPLOG", path("absent/log"));
    EXPECT_EQ(log_text("kept there"), 0);
    EXPECT_EQ(log.next(), "<85>zentro: 2\troot\tconsole\tFan\tkept there");
    EXPECT_EQ(log.next(), "nothing") << "a board may do without the file";
}

TEST_F(oplog, the_systems_log_is_told_why_the_file_is_not_written)
{
    const system_log log(path("syslog"));
    fs::create_symlink(write("victim", ""), path("li\x1Bnk"));
    mkfifo(path("fifo").c_str(), 0600);
    const int reader = open(path("fifo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const struct {
        std::string file, warning;
    } cases[] = {
        {path("li\x1Bnk"), path("li\\x1Bnk") + ": not written: it is a link"},
        {path("fifo"), path("fifo") + ": not written: it is not a regular file"},
        {path("victim/log"), path("victim/log") + ": Not a directory"},
    };
    for (const auto &each : cases) {
        setenv("ZENTRO_OPLOG", each.file.c_str(), 1);
        EXPECT_EQ(log_text("x"), 0);
        EXPECT_EQ(log.next(), "<85>zentro: 2\troot\tconsole\tFan\tx");
        EXPECT_EQ(log.next(), "<84>zentro: " + each.warning);
    }
    close(reader);
}

TEST_F(oplog, a_full_system_log_is_given_a_while)
{
    const system_log log(path("syslog"));
    log.fill();
    std::thread reader([&] {
        usleep(150000);
        while (log.next() == "x") {
        }
    });
    const variable no_file("ZENTRO_OPLOG", path("absent/log"));
    EXPECT_EQ(log_text("late"), 0);
    reader.join();
}

TEST_F(oplog, a_system_log_that_nobody_reads_holds_nobody_up_for_long)
{
    const system_log log(path("syslog"));
    log.fill();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(log_text("in the file at least"), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(lines().size(), 1U);
    const variable no_file("ZENTRO_OPLOG", path("absent/log"));
    EXPECT_EQ(log_text("nowhere"), -1);
}

TEST_F(oplog, without_a_system_log_the_file_is_enough)
{
    for (const std::string &nowhere : {std::string(), path("absent"), write("no socket", ""), std::string(200, 'x')}) {
        const variable there("ZENTRO_SYSLOG", nowhere);
        EXPECT_EQ(log_text("text"), 0) << nowhere;
    }
    EXPECT_EQ(lines().size(), 4U);
}

}  // namespace

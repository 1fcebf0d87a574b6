/// The status descriptor: which one is taken, what a line looks like, and what becomes of one that does not fit.
#include "ui/status.h"

#include "chassis/maintenance.h"
#include "oplog/oplog.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"
#include "ui/console.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr char variable[] = "CFGTOOL_STATUS_FD";

/// A pipe, or a pair of sockets of this kind: what is written to one end can be read from the other.
static constexpr int a_pipe = 0;
class channel
{
public:
    explicit channel(int kind)
    {
        EXPECT_EQ(kind == a_pipe ? pipe(ends) : socketpair(AF_UNIX, kind, 0, ends), 0);
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
    }
    ~channel()
    {
        close(ends[0]);
        close(ends[1]);
    }
    channel(const channel &) = delete;
    channel &operator=(const channel &) = delete;

    int reader() const { return ends[0]; }
    int writer() const { return ends[1]; }
    std::string text() const
    {
        std::string all;
        char part[65536];
        for (ssize_t got = 0; (got = read(ends[0], part, sizeof part)) > 0;)
            all.append(part, size_t(got));
        return all;
    }

private:
    int ends[2] = {-1, -1};
};

class status : public testing::Test
{
protected:
    /// What a test before has lost is said here.
    void SetUp() override
    {
        reset_stub();
        const channel other(a_pipe);
        open_on(other);
        forget();
    }
    void TearDown() override { forget(); }

    static void open_with(const std::string &value)
    {
        setenv(variable, value.c_str(), 1);
        open_status();
        EXPECT_EQ(getenv(variable), nullptr);
    }
    void open_on(const channel &given)
    {
        open_with(std::to_string(given.writer()));
        ASSERT_TRUE(has_status());
        is_own = status_descriptor != given.writer();
    }
    /// As at the start of the tool.
    void forget()
    {
        if (has_status() && is_own)
            close(status_descriptor);
        status_descriptor = 0;
    }

private:
    bool is_own = false;
};

TEST_F(status, takes_what_is_open_for_writing_and_is_a_pipe_or_socket)
{
    for (const int kind : {a_pipe, int(SOCK_STREAM), int(SOCK_DGRAM), int(SOCK_SEQPACKET)}) {
        const channel each(kind);
        EXPECT_EQ(fcntl(each.writer(), F_GETFD), 0);
        open_on(each);
        EXPECT_EQ(fcntl(each.writer(), F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(fcntl(status_descriptor, F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(fcntl(each.writer(), F_GETFL) & O_NONBLOCK, 0);  // others may have it too
        EXPECT_EQ(each.text(), "version\t1\n");
        forget();
    }
}

TEST_F(status, takes_nothing_else)
{
    const channel both(a_pipe);
    const int file = open("/dev/null", O_WRONLY), temporary = fileno(tmpfile()), closed = dup(file);
    close(closed);
    const std::string number = std::to_string(both.writer());
    for (const std::string &value :
         {std::to_string(both.reader()), std::to_string(file), std::to_string(temporary), std::to_string(closed),
          "-" + number, "+" + number, " " + number, number + " ", number + "x", "0x" + number, std::string(),
          std::string("x"), std::string("0"), std::string("1"), std::string("2"),
          std::to_string(4294967296 + both.writer()), std::string(100, '9')}) {
        open_with(value);
        EXPECT_FALSE(has_status()) << value;
    }
    EXPECT_EQ(both.text(), "");
    EXPECT_EQ(fcntl(file, F_GETFD), 0);
    close(file);
    unsetenv(variable);
    open_status();
    EXPECT_FALSE(has_status());
}

TEST_F(status, says_what_each_sentence_means)
{
    const channel both(a_pipe);
    open_on(both);
    const std::string shown = printed([] {
        EXPECT_EQ(done("Set %s.", "it"), 1);
        EXPECT_EQ(fail("%s %d%% failed, error code: 0x%X", "It", 60, 0x2C1500C9), 0);
        EXPECT_EQ(fail("It failed, error code: 0x%X", 0), 0);
        EXPECT_EQ(fail_because(0x40000001, "No %s.", "luck"), 0);
        EXPECT_EQ(fail_raw(0xD5, "Not now\n"), 0);
        EXPECT_EQ(refuse("Not %d.", 7), 0);
        EXPECT_EQ(refuse_because(0x40000000, "Who?"), 0);
        EXPECT_EQ(usage_error("Usage: x\r\n       y"), 0);
        usage_text("       50%s\r\n");
        say("%-5s%02x %.3f", "a", 255, 0.5);
        say_raw("b");
        say_now("\r%2d%%", 5);
        EXPECT_EQ(done_silently(), 1);
        EXPECT_EQ(fail_silently(0x40000002), 0);
        EXPECT_EQ(fail_silently(), 0);
        EXPECT_EQ(refuse_silently(), 0);
        ask_question("Yes?");
        ask_hidden("Word:");
    });
    EXPECT_EQ(shown, "Set it.\r\nIt 60% failed, error code: 0x2C1500C9\r\nIt failed, error code: 0x0\r\nNo luck.\r\n"
                     "Not now\nNot 7.\r\nWho?\r\nUsage: x\r\n       y\r\n       50%s\r\na    ff 0.500\r\nb\r 5%"
                     "Yes?Word:");
    EXPECT_EQ(both.text(), "version\t1\n"
                           "done\t\tSet it.\\r\\n\n"
                           "failed\t0x2C1500C9\tIt 60% failed, error code: 0x2C1500C9\\r\\n\n"
                           "failed\t\tIt failed, error code: 0x0\\r\\n\n"
                           "failed\t0x40000001\tNo luck.\\r\\n\n"
                           "failed\t0x000000D5\tNot now\\n\n"
                           "refused\t\tNot 7.\\r\\n\n"
                           "refused\t0x40000000\tWho?\\r\\n\n"
                           "usage\t\tUsage: x\\r\\n       y\\r\\n\n"
                           "usage\t\t       50%s\\r\\n\n"
                           "information\t\ta    ff 0.500\\r\\n\n"
                           "information\t\tb\n"
                           "information\t\t\\r 5%\n"
                           "done\t\t\n"
                           "failed\t0x40000002\t\n"
                           "failed\t\t\n"
                           "refused\t\t\n"
                           "confirm\t\tYes?\n"
                           "hidden\t\tWord:\n");
}

TEST_F(status, a_line_stays_a_line)
{
    const channel both(a_pipe);
    open_on(both);
    printed([] { say("\\ \t\r\n\a\x1B\x7F \xC3\xA4 \xFF"); });
    EXPECT_EQ(both.text(), "version\t1\n"
                           "information\t\t\\\\ \\t\\r\\n\\x07\\x1B\\x7F \xC3\xA4 \xFF\\r\\n\n");
}

TEST_F(status, a_record_has_its_class_and_module_once_it_is_written)
{
    const channel both(a_pipe);
    open_on(both);
    stub.log_result = 0;
    log_change("Black box", "Set\tit(%d),EvtCode:0x20E004F0", 60);
    stub.log_result = -1;
    log_record(log_class_account, "User", "Not written");
    EXPECT_EQ(both.text(), "version\t1\nrecord\t2\tBlack box\tSet\\tit(60),EvtCode:0x20E004F0\n");
    EXPECT_EQ(stub.logged.size(), 2U);
}

TEST_F(status, a_long_text_is_cut_and_its_line_is_whole)
{
    const channel both(a_pipe);
    open_on(both);
    printed([] {
        fail("%s, error code: 0x%X", std::string(10000, 'x').c_str(), 7);
        say("%s", std::string(4000, '\a').c_str());
        say("end");
    });
    const std::string text = both.text();
    const size_t second = text.find("information\t\t\\x07"), third = text.find("information\t\tend");
    ASSERT_NE(third, text.npos);
    const std::string first_line = text.substr(strlen("version\t1\n"), second - strlen("version\t1\n"));
    const std::string second_line = text.substr(second, third - second);
    EXPECT_TRUE(first_line.starts_with("failed\t0x00000007\txxxxx"));
    EXPECT_TRUE(first_line.ends_with("xxxxx\n"));
    EXPECT_TRUE(second_line.ends_with("\\x07\\x07\n"));
    for (const std::string &line : {first_line, second_line}) {
        EXPECT_GT(line.size(), 4080U);
        EXPECT_LE(line.size(), 4096U);
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
    }
    EXPECT_EQ(text.substr(third), "information\t\tend\\r\\n\n");
}

TEST_F(status, what_does_not_fit_is_lost_and_that_is_said)
{
    for (const int kind : {a_pipe, int(SOCK_STREAM)}) {
        const channel each(kind);
        open_on(each);
        printed([] {
            for (int n = 0; n < 10000; ++n)
                say("%s", std::string(1000, 'x').c_str());
        });
        EXPECT_EQ(each.text().find("lost"), std::string::npos);
        printed([] { say("It fits again"); });
        printed([] { say("It fits"); });
        EXPECT_EQ(each.text(), "lost\ninformation\t\tIt fits again\\r\\n\ninformation\t\tIt fits\\r\\n\n");
        forget();
    }
}

TEST_F(status, a_reader_that_goes_away_changes_nothing)
{
    const auto before = signal(SIGPIPE, SIG_IGN);
    for (const int kind : {a_pipe, int(SOCK_STREAM), int(SOCK_DGRAM)}) {
        const channel each(kind);
        open_on(each);
        close(each.reader());
        EXPECT_EQ(printed([] { EXPECT_EQ(done("It is done."), 1); }), "It is done.\r\n");
        EXPECT_EQ(dup2(STDERR_FILENO, each.reader()), each.reader());
        forget();
    }
    signal(SIGPIPE, before);
}

TEST_F(status, a_stream_may_take_the_beginning_of_a_line_which_is_lost_then)
{
    const std::string whole = "information\t\t" + std::string(4000, 'x') + "\\r\\n", next = "information\t\tnext\\r\\n";
    bool was_cut = false;
    for (int short_lines = 0; short_lines < 20; ++short_lines) {  // as many as leave room for a part of a long one
        const channel each(SOCK_STREAM);
        const int smallest = 1;
        ASSERT_EQ(setsockopt(each.writer(), SOL_SOCKET, SO_SNDBUF, &smallest, sizeof smallest), 0);
        open_on(each);
        std::string text;
        printed([&] {
            for (int n = 0; n < short_lines; ++n)
                say("x");
            say("%s", std::string(4000, 'x').c_str());
            text = each.text();
            say("next");
        });
        text += each.text();
        const size_t end = text.find("\nlost\n" + next), start = text.find("information\t\txx");
        if (start == text.npos || end == text.npos)
            EXPECT_TRUE(text.ends_with(whole + "\n" + next + "\n") || text.ends_with("\n" + next + "\n")) << text;
        else if (end - start < whole.size())
            was_cut = whole.starts_with(text.substr(start, end - start));
        forget();
    }
    EXPECT_TRUE(was_cut);
}

TEST_F(status, a_fifo_that_cannot_be_opened_once_more_is_asked_for_room)
{
    const auto before = signal(SIGPIPE, SIG_IGN);
    const std::string path = testing::TempDir() + "status-fifo." + std::to_string(getpid());
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK), writer = open(path.c_str(), O_WRONLY);
    close(reader);  // without a reader it is not opened
    open_with(std::to_string(writer));
    EXPECT_EQ(status_descriptor, writer);
    EXPECT_EQ(printed([] { done("Nobody reads it."); }), "Nobody reads it.\r\n");
    const int next_reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    printed([] { done("It fits."); });
    char text[64];
    const ssize_t got = read(next_reader, text, sizeof text);
    EXPECT_EQ(std::string(text, size_t(std::max<ssize_t>(got, 0))), "lost\ndone\t\tIt fits.\\r\\n\n");
    status_descriptor = 0;
    close(writer);
    close(next_reader);
    unlink(path.c_str());
    signal(SIGPIPE, before);
}

TEST_F(status, an_image_that_cannot_be_written_is_a_failure_for_programs)
{
    const channel each(SOCK_DGRAM);
    open_on(each);
    const failing_call full("write", ENOSPC);
    printed([] {
        char *none[] = {nullptr};
        EXPECT_EQ(readeeprom({4, 0, none, nullptr}), 1);
    });
    const std::string text = each.text();
    EXPECT_NE(text.find("failed\t\t\ndone\t\t\\nRead eeprom"), text.npos) << text;
}

#include "ui/prompt.h"

#include "tests/unit/platform_stub.h"

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>

/// Standard input is something else as long as this lives.
class other_input
{
public:
    explicit other_input(int input)
    {
        dup2(input, STDIN_FILENO);
        close(input);
        clearerr(stdin);
    }
    ~other_input()
    {
        dup2(before, STDIN_FILENO);
        close(before);
    }
    other_input(const other_input &) = delete;
    other_input &operator=(const other_input &) = delete;

private:
    const int before = dup(STDIN_FILENO);
};

/// A pseudo-terminal that hands over what is typed as it is, so that keys can be typed before they are asked for.
class raw_terminal
{
public:
    raw_terminal() : input(open_pair()) {}
    ~raw_terminal() { hang_up(); }
    raw_terminal(const raw_terminal &) = delete;
    raw_terminal &operator=(const raw_terminal &) = delete;

    void type(const std::string &keys) const { EXPECT_EQ(write(main, keys.data(), keys.size()), ssize_t(keys.size())); }
    static void forget_keys() { tcflush(STDIN_FILENO, TCIFLUSH); }
    static int keys_left()
    {
        int count = -1;
        ioctl(STDIN_FILENO, FIONREAD, &count);
        return count;
    }
    void hang_up()
    {
        if (main >= 0)
            close(main);
        main = -1;
    }

private:
    int open_pair()
    {
        int child = -1;
        termios mode{};
        cfmakeraw(&mode);
        mode.c_cc[VMIN] = 1;
        EXPECT_EQ(openpty(&main, &child, nullptr, &mode, nullptr), 0);
        return child;
    }
    int main = -1;
    other_input input;
};

static std::string bells(size_t count) { return std::string(count, '\a'); }

// Keys --------------------------------------------------------------------------------------------------------------

TEST(prompt, a_key_is_its_code_and_the_end_is_none)
{
    raw_terminal terminal;
    for (int code = 0; code < 256; ++code) {
        terminal.type({char(code)});
        EXPECT_EQ(read_key(), code);
    }
    terminal.hang_up();
    EXPECT_EQ(read_key(), -1);
}

TEST(prompt, a_key_comes_from_a_terminal_only)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    const other_input input(ends[0]);
    EXPECT_EQ(read_key(), -1);
    char unread = 0;
    EXPECT_EQ(read(STDIN_FILENO, &unread, 1), 1);
    EXPECT_EQ(unread, 'x');
    close(ends[1]);
}

TEST(prompt, a_key_leaves_the_terminal_as_it_was)
{
    raw_terminal terminal;
    termios before{}, after{};
    tcgetattr(STDIN_FILENO, &before);
    before.c_lflag |= ECHO | ISIG;
    before.c_cc[VMIN] = 3;
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
    terminal.type("abc");
    EXPECT_EQ(read_key(), 'a');
    tcgetattr(STDIN_FILENO, &after);
    EXPECT_EQ(after.c_lflag, before.c_lflag);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_EQ(after.c_oflag, before.c_oflag);
    EXPECT_EQ(after.c_cc[VMIN], 3);
}

// Hidden words ------------------------------------------------------------------------------------------------------

struct hidden_reader {
    char *(*ask)(const char *prompt);
    size_t limit;
};
static constexpr hidden_reader readers[] = {{read_password, 20}, {read_community, 18}};

/// The word that comes of these keys, and what is shown meanwhile.
struct answer {
    bool there;
    std::string word, shown;
};
static answer ask(const hidden_reader &reader)
{
    char *word = nullptr;
    const std::string shown = printed([&] { word = reader.ask("Word:"); });
    return {word != nullptr, word != nullptr ? word : "", shown};
}

TEST(prompt, every_key_of_a_hidden_word)
{
    for (const hidden_reader &reader : readers) {
        raw_terminal terminal;
        for (int code = 0; code < 256; ++code) {
            SCOPED_TRACE(code);
            const bool erases = code == 8 || code == 127, is_taken = code >= 26 && code <= 126;
            terminal.type(std::string("a") + char(code) + "b\r");
            const answer got = ask(reader);
            EXPECT_TRUE(got.there);
            EXPECT_EQ(got.word, erases ? "b" : is_taken ? std::string("a") + char(code) + "b" : "a");
            EXPECT_EQ(got.shown, "Word:\n");
            EXPECT_EQ(raw_terminal::keys_left(), erases || is_taken ? 0 : 2);
            raw_terminal::forget_keys();
        }
    }
}

TEST(prompt, a_hidden_word_is_cut_at_its_limit_with_a_bell_for_each_key_more)
{
    static const std::string letters = "abcdefghijklmnopqrstuvwxyz";
    for (const hidden_reader &reader : readers) {
        raw_terminal terminal;
        for (size_t count = 0; count <= letters.size(); ++count) {
            terminal.type(letters.substr(0, count) + "\r");
            const answer got = ask(reader);
            const size_t kept = std::min(count, reader.limit);
            EXPECT_TRUE(got.there);
            EXPECT_EQ(got.word, letters.substr(0, kept));
            EXPECT_EQ(got.shown, "Word:" + bells(count - kept) + "\n");
        }
    }
}

struct erasing {
    const char *keys, *word;
    size_t bells;
};

TEST(prompt, erasing)
{
    static const erasing facts[] = {
        {"\b\r", "", 1},
        {"\x7F\r", "", 1},
        {"a\b\r", "", 0},
        {"a\x7F\r", "", 0},
        {"a\b\b\r", "", 1},
        {"ab\bc\r", "ac", 0},
        {"ab\b\x7F"
         "cd\r",
         "cd", 0},
        {"\b\b\bx\r", "x", 3},
        {"12345678901234567890\b\b\b\b\bx\r", "123456789012345x", 0},
        {"123456789012345678901\bx\r", "1234567890123456789x", 1},
    };
    raw_terminal terminal;
    for (const erasing &fact : facts) {
        SCOPED_TRACE(fact.keys);
        terminal.type(fact.keys);
        const answer got = ask(readers[0]);
        EXPECT_TRUE(got.there);
        EXPECT_EQ(got.word, fact.word);
        EXPECT_EQ(got.shown, "Word:" + bells(fact.bells) + "\n");
    }
}

TEST(prompt, the_prompt_is_a_text_and_no_format)
{
    raw_terminal terminal;
    terminal.type("\r");
    EXPECT_EQ(printed([] { read_password("100%s%n:"); }), "100%s%n:\n");
}

TEST(prompt, the_end_of_the_input_gives_no_word_and_leaves_nothing_of_the_last)
{
    for (const hidden_reader &reader : readers) {
        raw_terminal terminal;
        terminal.type("first word\r");
        const char *place = reader.ask("Word:");
        EXPECT_STREQ(place, "first word");
        terminal.hang_up();
        const answer got = ask(reader);
        EXPECT_FALSE(got.there);
        EXPECT_EQ(got.shown, "Word:");
        EXPECT_EQ(std::count(place, place + reader.limit + 1, '\0'), ptrdiff_t(reader.limit + 1));
    }
}

TEST(prompt, passwords_and_communities_have_places_of_their_own)
{
    raw_terminal terminal;
    terminal.type("password\rcommunity\r");
    const char *password = read_password("");
    const char *community = read_community("");
    EXPECT_STREQ(password, "password");
    EXPECT_STREQ(community, "community");
}

TEST(prompt, no_hidden_word_where_there_is_no_terminal)
{
    for (const hidden_reader &reader : readers) {
        const other_input input(open("/dev/null", O_RDONLY));
        const answer got = ask(reader);
        EXPECT_FALSE(got.there);
        EXPECT_EQ(got.shown, "Word:");
    }
}

TEST(prompt, nobody_looks_into_a_process_that_reads_a_hidden_word)
{
    for (const hidden_reader &reader : readers) {
        prctl(PR_SET_DUMPABLE, 1);
        raw_terminal terminal;
        terminal.type("\r");
        ask(reader);
        EXPECT_EQ(prctl(PR_GET_DUMPABLE), 0);
    }
}

TEST(prompt, a_typed_word_is_moved_and_then_wiped)
{
    raw_terminal terminal;
    terminal.type("\r");
    const char *place = read_password("");  // where the next one is typed
    typed_password word;
    terminal.type("first word\r");
    EXPECT_TRUE(word.read(""));
    EXPECT_STREQ(word.text, "first word");
    EXPECT_EQ(std::count(place, place + max_password + 1, '\0'), max_password + 1);
    word.wipe();
    EXPECT_EQ(std::count(word.text, word.text + sizeof word.text, '\0'), ptrdiff_t(sizeof word.text));
}

TEST(prompt, a_typed_word_that_cannot_be_read_again_is_gone)
{
    raw_terminal terminal;
    typed_community word;
    terminal.type("first word\r");
    EXPECT_TRUE(word.read(""));
    terminal.hang_up();
    EXPECT_FALSE(word.read(""));
    EXPECT_EQ(std::count(word.text, word.text + sizeof word.text, '\0'), ptrdiff_t(sizeof word.text));
}

// Confirmation ------------------------------------------------------------------------------------------------------

struct confirmation {
    const char *typed;
    bool yes;
    const char *shown, *unread;
};

TEST(prompt, confirmation)
{
    static const confirmation facts[] = {
        {"y\n", true, "Go on?", "\n"},
        {"Y\n", true, "Go on?", "\n"},
        {"yes\n", true, "Go on?", "es\n"},
        {"n\n", false, "Go on?", "\n"},
        {"N", false, "Go on?", ""},
        {"no\n", false, "Go on?", "o\n"},
        {"1\n", false, "Go on?Input character invalid.\r\n", "\n"},
        {" y\n", false, "Go on?Input character invalid.\r\n", "y\n"},
        {"\n", false, "Go on?Input character invalid.\r\n", ""},
        {"\xFFy\n", false, "Go on?Input character invalid.\r\n", "y\n"},
        {"", false, "Go on?Input character invalid.\r\n", ""},
    };
    for (const confirmation &fact : facts) {
        SCOPED_TRACE(fact.typed);
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const std::string typed = fact.typed;
        ASSERT_EQ(write(ends[1], typed.data(), typed.size()), ssize_t(typed.size()));
        close(ends[1]);
        const other_input input(ends[0]);
        bool yes = false;
        EXPECT_EQ(printed([&] { yes = ask_confirm("Go on?"); }), fact.shown);
        EXPECT_EQ(yes, fact.yes);
        char unread[16] = "";
        EXPECT_GE(read(STDIN_FILENO, unread, sizeof unread - 1), 0);
        EXPECT_STREQ(unread, fact.unread);
    }
}

TEST(prompt, confirmation_with_a_warning)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "y", 1), 1);
    close(ends[1]);
    const other_input input(ends[0]);
    EXPECT_EQ(printed([] { EXPECT_TRUE(ask_confirm_with_warning()); }),
              "WARNING: The operation may have many adverse effects\r\nDo you want to continue?[Y/N]:");
}

/// The system serial number: no command line reaches it, the registry's table does.
#include "user/settings.h"

#include "tests/unit/conversation.h"

class serial_number : public conversation
{
protected:
    void open(const std::string &ending = "00") { wire("30 90  20 D9 7E 00 01", ending); }
    void close(const std::string &ending = "00") { wire("30 90  20 D9 7E 00 00", ending); }
    std::string run(const std::vector<std::string> &words, int result)
    {
        return conversation::run(smbios_dataitems, "serialnumber", words, result);
    }
    void TearDown() override
    {
        EXPECT_EQ(logged(), std::vector<std::string>{});  // whatever happened
        conversation::TearDown();
    }
};

static const std::string usage = "Usage: cfgtool -t smbios -d serialnumber -v <serialnumber> \r\n"
                                 "the length of serialnumber is 0<length<23\r\n";
static const std::string success = "Set smbios serial number successfully.\r\n";
static const std::string failure = "Set smbios serial number failed, error code: ";

TEST_F(serial_number, one_character)
{
    open();
    wire("30 90  04 00 06 03 00 01 58", "00");
    close();
    EXPECT_EQ(run({"-v", "X"}, 1), success);
}

TEST_F(serial_number, eighteen_characters_are_one_piece)
{
    open();
    wire("30 90  04 00 06 03 00 12  61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72", "00");
    close();
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqr"}, 1), success);
}

TEST_F(serial_number, nineteen_are_two_and_the_first_says_that_more_follow)
{
    open();
    wire("30 90  04 00 06 03 80 12  61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72", "00");
    wire("30 90  04 00 06 03 12 01  73", "00");
    close();
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqrs"}, 1), success);
}

TEST_F(serial_number, twenty_two_are_the_most)
{
    open();
    wire("30 90  04 00 06 03 80 12  61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72", "00");
    wire("30 90  04 00 06 03 12 04  73 74 75 76", "00");
    close();
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqrstuv"}, 1), success);
}

TEST_F(serial_number, wrong_words)
{
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqrstuvw"}, 0), usage);
    EXPECT_EQ(run({"-v", ""}, 0), usage);
    EXPECT_EQ(run({}, 0), usage);
    EXPECT_EQ(run({"-v"}, 0), usage);
    EXPECT_EQ(run({"X"}, 0), usage);
    EXPECT_EQ(run({"-v", "X", "Y"}, 0), usage);
    EXPECT_EQ(run({"-x", "X"}, 0), usage);
    EXPECT_EQ(run({"X", "-v"}, 0), usage);
}

TEST_F(serial_number, an_opening_that_fails_is_not_closed)
{
    open("silent");
    EXPECT_EQ(run({"-v", "X"}, 0), "Select OutTime \r\n" + failure + "0x40000001\r\n");
    open("unsent");
    EXPECT_EQ(run({"-v", "X"}, 0), failure + "0x40000000\r\n");
    open("D5");
    EXPECT_EQ(run({"-v", "X"}, 0), failure + "0x309020D5\r\n");
}

TEST_F(serial_number, a_piece_that_fails_is_told_and_then_closed)
{
    open();
    wire("30 90  04 00 06 03 00 01 58", "C9");
    close("silent");
    EXPECT_EQ(run({"-v", "X"}, 0), failure + "0x309004C9\r\nSelect OutTime \r\n");
    open();
    wire("30 90  04 00 06 03 00 01 58", "silent");
    close("silent");
    EXPECT_EQ(run({"-v", "X"}, 0), "Select OutTime \r\n" + failure + "0x40000001\r\nSelect OutTime \r\n");
    open();
    wire("30 90  04 00 06 03 80 12  61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72", "00");
    wire("30 90  04 00 06 03 12 01  73", "unsent");
    close("C1");
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqrs"}, 0), failure + "0x40000000\r\n");
}

TEST_F(serial_number, the_first_piece_that_fails_is_the_last)
{
    open();
    wire("30 90  04 00 06 03 80 12  61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72", "D4");
    close();
    EXPECT_EQ(run({"-v", "abcdefghijklmnopqrs"}, 0), failure + "0x309004D4\r\n");
}

TEST_F(serial_number, a_success_is_told_before_the_closing_whatever_becomes_of_it)
{
    open();
    wire("30 90  04 00 06 03 00 01 58", "00");
    close("silent");
    EXPECT_EQ(run({"-v", "X"}, 1), success + "Select OutTime \r\n");
    open();
    wire("30 90  04 00 06 03 00 01 58", "00");
    close("D5");
    EXPECT_EQ(run({"-v", "X"}, 1), success);
}

TEST_F(serial_number, a_caller_who_is_refused_changes_nothing)
{
    stub.account = 499;
    EXPECT_EQ(run({"-v", "X"}, 0), "Insufficient privilege level\r\n");
}

/// What the handlers of host, boot and panel return, which no command line shows, and where memory runs out.
#include "tests/unit/conversation.h"
#include "tests/unit/failing_call.h"

#include <cerrno>
#include <cstdio>
#include <unistd.h>
#include <utility>

class chassis_result : public conversation
{
protected:
    using exchanges = std::vector<std::pair<const char *, const char *>>;

    /// Runs a top-level dataitem with its words, the letter typed if it asks, and what goes over the wire.
    void returns(int result, const char *dataitem, const std::vector<std::string> &words, char typed = 0,
                 const exchanges &on_the_wire = {})
    {
        SCOPED_TRACE(dataitem);
        for (const auto &[request, ending] : on_the_wire)
            wire(request, ending);
        if (typed != 0)
            type(typed);
        run(top_level_dataitems, dataitem, words, result);
    }

private:
    static void type(char letter)
    {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        ASSERT_EQ(write(ends[1], &letter, 1), 1);
        ASSERT_EQ(dup2(ends[0], STDIN_FILENO), STDIN_FILENO);
        close(ends[0]);
        close(ends[1]);
        clearerr(stdin);
    }
};

static constexpr char opened[] = "00 08  00 01", closed[] = "00 08  00 00";

TEST_F(chassis_result, powerstate)
{
    returns(1, "powerstate", {"-v", "1"}, 'y', {{"00 02  01", "00"}});
    returns(0, "powerstate", {"-v", "1"}, 'y', {{"00 02  01", "C1"}});
    returns(0, "powerstate", {"-v", "1"}, 'y', {{"00 02  01", "D5"}});
    returns(0, "powerstate", {"-v", "1"}, 'y', {{"00 02  01", "silent"}});
    returns(0, "powerstate", {"-v", "1"}, 'n');
    returns(0, "powerstate", {"-v", "1"}, '1');
    returns(0, "powerstate", {"-v", "3"});
}

TEST_F(chassis_result, frucontrol)
{
    returns(1, "frucontrol", {"-v", "2"}, 'Y', {{"2C 04  00 00 02", "00 00"}});
    returns(0, "frucontrol", {"-v", "2"}, 'Y', {{"2C 04  00 00 02", "C1"}});
    returns(0, "frucontrol", {"-v", "2"}, 'Y', {{"2C 04  00 00 02", "D5"}});
    returns(0, "frucontrol", {"-v", "2"}, 'Y', {{"2C 04  00 00 02", "unsent"}});
    returns(0, "frucontrol", {"-v", "2"}, 'N');
    returns(0, "frucontrol", {"-v", "2"}, '?');
    returns(0, "frucontrol", {"-v", "1"});
}

TEST_F(chassis_result, shutdowntimeout_is_decided_by_the_closing_unless_refused)
{
    static constexpr char ten_seconds[] = "00 08  62 64 00";
    returns(1, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "00"}, {ten_seconds, "00"}, {closed, "00"}});
    returns(1, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "00"}, {ten_seconds, "unsent"}, {closed, "81"}});
    returns(0, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "00"}, {ten_seconds, "00"}, {closed, "C1"}});
    returns(0, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "00"}, {ten_seconds, "unsent"}, {closed, "silent"}});
    returns(0, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "00"}, {ten_seconds, "C1"}, {closed, "00"}});
    returns(0, "shutdowntimeout", {"-v", "10"}, 0, {{opened, "C1"}});
    returns(0, "shutdowntimeout", {"-v", "9"});
}

TEST_F(chassis_result, reset)
{
    returns(1, "reset", {}, 'y', {{"06 02", "00"}});
    returns(0, "reset", {}, 'y', {{"06 02", "C1"}});
    returns(0, "reset", {}, 'y', {{"06 02", "silent"}});
    returns(0, "reset", {}, 'n');
    returns(0, "reset", {}, '\n');
    returns(0, "reset", {"-v"});
}

TEST_F(chassis_result, clearcmos_is_decided_by_the_closing_unless_refused)
{
    static constexpr char asked[] = "00 09  05 00 00", flags[] = "00 01 05 80 00 00 00 00";
    static constexpr char set[] = "00 08  05 80 80 00 00 00", taken_back[] = "00 08  05 80 00 00 00 00";
    returns(1, "clearcmos", {}, 'y',
            {{asked, flags}, {opened, "00"}, {set, "00"}, {asked, flags}, {taken_back, "00"}, {closed, "00"}});
    returns(1, "clearcmos", {}, 'y', {{asked, flags}, {opened, "00"}, {set, "unsent"}, {asked, "C1"}, {closed, "00"}});
    returns(0, "clearcmos", {}, 'y', {{asked, flags}, {opened, "00"}, {set, "00"}, {asked, "C1"}, {closed, "C1"}});
    returns(0, "clearcmos", {}, 'y', {{asked, flags}, {opened, "00"}, {set, "C1"}, {closed, "00"}});
    returns(0, "clearcmos", {}, 'y', {{asked, flags}, {opened, "C1"}});
    returns(0, "clearcmos", {}, 'y', {{asked, "C1"}});
    returns(0, "clearcmos", {}, 'n');
    returns(0, "clearcmos", {"-v"});
}

TEST_F(chassis_result, bootdevice_is_decided_by_the_closing_unless_refused)
{
    static constexpr char asked[] = "00 09  05 00 00", from_network[] = "00 08  05 80 04 00 00 00";
    returns(1, "bootdevice", {"-v", "1"}, 0, {{asked, "C1"}, {opened, "00"}, {from_network, "00"}, {closed, "00"}});
    returns(1, "bootdevice", {"-v", "1"}, 0, {{asked, "C1"}, {opened, "00"}, {from_network, "unsent"}, {closed, "00"}});
    returns(0, "bootdevice", {"-v", "1"}, 0, {{asked, "C1"}, {opened, "00"}, {from_network, "00"}, {closed, "C1"}});
    returns(0, "bootdevice", {"-v", "1"}, 0, {{asked, "C1"}, {opened, "00"}, {from_network, "C1"}, {closed, "00"}});
    returns(0, "bootdevice", {"-v", "1"}, 0, {{asked, "C1"}, {opened, "C1"}});
    returns(0, "bootdevice", {"-v", "3"});
}

TEST_F(chassis_result, sel_succeeds_whatever_ends_the_waiting)
{
    static constexpr char reserve[] = "0A 42", erase[] = "0A 47  34 12 43 4C 52 AA",
                          status[] = "0A 47  34 12 43 4C 52 00";
    returns(1, "sel", {"-v", "clear"}, 'y', {{reserve, "00 34 12"}, {erase, "00"}, {status, "00 01"}});
    returns(1, "sel", {"-v", "clear"}, 'y', {{reserve, "00 34 12"}, {erase, "00"}, {status, "C5"}});
    returns(1, "sel", {"-v", "clear"}, 'y', {{reserve, "00 34 12"}, {erase, "00"}, {status, "unsent"}});
    returns(0, "sel", {"-v", "clear"}, 'y', {{reserve, "00 34 12"}, {erase, "C5"}});
    returns(0, "sel", {"-v", "clear"}, 'y', {{reserve, "silent"}});
    returns(0, "sel", {"-v", "clear"}, 'N');
    returns(0, "sel", {"-v"});
}

TEST_F(chassis_result, identify)
{
    returns(1, "identify", {}, 0, {{"00 04", "00"}});
    returns(0, "identify", {}, 0, {{"00 04", "C1"}});
    returns(0, "identify", {}, 0, {{"00 04", "unsent"}});
    returns(0, "identify", {"-v"});
    returns(0, "identify", {"-x", "10"});
}

TEST_F(chassis_result, bioswriteprotect_is_decided_by_the_closing_unless_refused)
{
    static constexpr char enable[] = "00 08  63 01";
    returns(1, "bioswriteprotect", {"-v", "1"}, 0, {{opened, "00"}, {enable, "00"}, {closed, "00"}});
    returns(1, "bioswriteprotect", {"-v", "1"}, 0, {{opened, "00"}, {enable, "silent"}, {closed, "00"}});
    returns(0, "bioswriteprotect", {"-v", "1"}, 0, {{opened, "00"}, {enable, "00"}, {closed, "C1"}});
    returns(0, "bioswriteprotect", {"-v", "1"}, 0, {{opened, "00"}, {enable, "C1"}, {closed, "00"}});
    returns(0, "bioswriteprotect", {"-v", "1"}, 0, {{opened, "C1"}});
    returns(0, "bioswriteprotect", {"-v", "2"});
}

TEST_F(chassis_result, serialdir_fails_for_2_without_a_request)
{
    returns(1, "serialdir", {"-v", "1"}, 0, {{"30 91  D9 7E 00 17 01 04", "00"}});
    returns(0, "serialdir", {"-v", "1"}, 0, {{"30 91  D9 7E 00 17 01 04", "C1"}});
    returns(0, "serialdir", {"-v", "1"}, 0, {{"30 91  D9 7E 00 17 01 04", "unsent"}});
    returns(0, "serialdir", {"-v", "2"});
    returns(0, "serialdir", {"-v", "3"});
}

TEST_F(chassis_result, printscreen_succeeds_also_when_nobody_answers)
{
    returns(1, "printscreen", {}, 0, {{"30 93  D9 7E 00 03 00 00", "00"}});
    returns(1, "printscreen", {}, 0, {{"30 93  D9 7E 00 03 00 00", "silent"}});
    returns(0, "printscreen", {}, 0, {{"30 93  D9 7E 00 03 00 00", "C1"}});
    returns(0, "printscreen", {"-v"});
    returns(0, "printscreen", {"-v", "x"});
}

TEST_F(chassis_result, ipmctime_without_memory)
{
    const failing_call no_memory("calloc", ENOMEM);
    EXPECT_EQ(run(top_level_dataitems, "ipmctime", {"-v", "2020-01-01", "10:00:00"}, 0),
              "Set ipmc time failed, error code: 0x50000000\r\n");
    EXPECT_EQ(g_error_code, 0x50000000U);
}

TEST_F(chassis_result, readeeprom_without_memory_reads_nothing_and_succeeds_all_the_same)
{
    const failing_call no_memory("calloc", ENOMEM);
    EXPECT_EQ(run(maintenance_dataitems, "readeeprom", {}, 1),
              "malloc failed!\r\n\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n");
    EXPECT_EQ(logged(),
              std::vector<std::string>{"2 Zentro Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"});
}

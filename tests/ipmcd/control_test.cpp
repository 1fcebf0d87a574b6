/// The control commands.
#include "ipmcd/control.h"
#include "ipmcd/state_file.h"
#include "tests/ipmcd/board.h"

#include <fstream>

namespace ipmcd
{

struct control_commands : board_test {
    std::string answer(const std::string &line) { return commands.answer(line).dump(); }

    scratch_folder folder;
    fault_list faults;
    trace quiet;
    service ipmi{board, faults, quiet};
    control commands{board, faults, ipmi, [this] { write_state(folder / "state.json", state_text(board)); }};
};

static const char ok[] = R"({"ok":true})";

TEST_F(control_commands, show_shows_everything_or_one_part)
{
    const json all = commands.answer("show");
    for (const char *const part : {"device", "fans", "users", "faults", "traffic"})
        EXPECT_EQ(all[part], commands.answer(std::string("show ") + part)) << part;
    EXPECT_EQ(all.size(), all_families().size() + 2);
    EXPECT_EQ(answer("show fans"), R"({"mode":"auto","timeout_s":30,"level":50})");
    EXPECT_EQ(answer("  show\tfaults "), "[]");
}

TEST_F(control_commands, set_changes_one_value)
{
    EXPECT_EQ(answer("set /fans/level 254"), ok);
    EXPECT_EQ(answer("set /fans/mode \"manual\""), ok);
    EXPECT_EQ(answer("set /users/6/name \"two words\""), ok);
    EXPECT_EQ(answer("show fans"), R"({"mode":"manual","timeout_s":30,"level":254})");
    EXPECT_EQ(state_of("users")["6"]["name"], "two words");
}

TEST_F(control_commands, set_takes_a_whole_object)
{
    EXPECT_EQ(answer(R"(set /fans {"mode": "manual", "timeout_s": 0, "level": 33})"), ok);
    EXPECT_EQ(answer("show fans"), R"({"mode":"manual","timeout_s":0,"level":33})");
}

TEST_F(control_commands, show_shows_one_sensor)
{
    const json one = commands.answer("show sensor  CPU1   Temp");  // blanks count once
    EXPECT_EQ(one["number"], "0x03");
    EXPECT_EQ(one["reading"], 53.0);
    EXPECT_EQ(answer("show sensor CPU9 Temp"), R"({"error":"CPU9 Temp: this board has no sensor of that name"})");
}

TEST_F(control_commands, set_takes_a_place_with_blanks_in_quotes)
{
    EXPECT_EQ(answer(R"(set "/sensors/CPU1 Temp/reading" 54)"), ok);
    EXPECT_EQ(commands.answer("show sensors")["CPU1 Temp"]["reading"], 54.0);
    EXPECT_EQ(answer("set /sensors/CPU1 Temp/reading 54"),
              R"({"error":"Temp/reading 54: not JSON; a text needs double quotes"})");
}

TEST_F(control_commands, cancel_makes_reservations_void)
{
    EXPECT_EQ(ask(0x0A, 0x22, {}), (reply{0x00, {1, 0}}));  // Reserve SDR Repository
    EXPECT_EQ(ask(0x0A, 0x42, {}), (reply{0x00, {1, 0}}));  // Reserve SEL
    EXPECT_EQ(ask(0x0A, 0x23, {1, 0, 1, 0, 5, 1}).code, 0x00);
    EXPECT_EQ(answer("cancel"), ok);
    EXPECT_EQ(ask(0x0A, 0x23, {1, 0, 1, 0, 5, 1}).code, 0xC5);
    EXPECT_EQ(ask(0x0A, 0x47, {1, 0, 'C', 'L', 'R', 0}).code, 0xC5);
}

TEST_F(control_commands, set_refuses_what_the_state_cannot_be)
{
    EXPECT_EQ(answer("set /fans/level 200"),
              R"({"error":"/fans/level: a number from 0 to 100, or 254 for emergency shut-down, is needed here"})");
    EXPECT_EQ(answer("set /fans/speed 2"), R"({"error":"/fans/speed: there is nothing at that place of the state"})");
    EXPECT_EQ(answer("set /faults []"), R"({"error":"/faults: there is nothing at that place of the state"})");
    EXPECT_EQ(answer("set /fans"), R"({"error":"set POINTER VALUE, as in set /fans/level 80"})");
    EXPECT_EQ(answer("set /fans/mode manual"), R"({"error":"manual: not JSON; a text needs double quotes"})");
    EXPECT_TRUE(commands.answer("set fans 1").contains("error"));  // no pointer: they begin with a slash
    EXPECT_TRUE(commands.answer("set / 1").contains("error"));
    EXPECT_EQ(answer("show fans"), R"({"mode":"auto","timeout_s":30,"level":50})");
}

TEST_F(control_commands, fail_orders_faults_and_clears_them)
{
    EXPECT_EQ(answer("fail 2C 15 code=0xC3 count=2"), ok);
    EXPECT_EQ(answer("fail any any sub=0x0102 late=10"), ok);
    EXPECT_EQ(answer("show faults"), R"([{"netfn":"0x2C","command":"0x15","sub":"","kind":"code=0xC3","left":2},)"
                                     R"({"netfn":"any","command":"any","sub":"01 02","kind":"late=10","left":1}])");
    EXPECT_EQ(answer("fail 2C 15 noise=1").substr(0, 38), R"({"error":"noise: unknown kind of fault)");
    EXPECT_EQ(answer("fail clear"), ok);
    EXPECT_EQ(answer("show faults"), "[]");
}

TEST_F(control_commands, reset_is_for_the_state_not_the_faults)
{
    answer("set /fans/level 3");
    answer("fail any any silence");
    EXPECT_EQ(answer("reset"), ok);
    EXPECT_EQ(answer("show fans"), R"({"mode":"auto","timeout_s":30,"level":50})");
    EXPECT_EQ(faults.to_json().size(), 1U);
}

TEST_F(control_commands, save_writes_the_state_file)
{
    answer("set /fans/level 3");
    EXPECT_EQ(answer("save"), ok);
    EXPECT_EQ(json::parse(std::ifstream(folder / "state.json"))["fans"]["level"], 3);
}

TEST_F(control_commands, a_save_that_fails_says_so)
{
    std::filesystem::create_directory(folder / "state.json");
    EXPECT_TRUE(commands.answer("save")["error"].get<std::string>().ends_with("Is a directory"));
    control without(board, faults, ipmi, nullptr);
    EXPECT_EQ(without.answer("save").dump(),
              R"({"error":"there is no state file, ipmcd was started without --state"})");
}

TEST_F(control_commands, anything_else_is_refused)
{
    const std::string known = R"({"error":"unknown command, known are: show [NAME | sensor NAME]; set POINTER VALUE; )"
                              R"(fail NETFN CMD [sub=HEX] KIND [count=N] | fail clear; cancel; save; reset"})";
    EXPECT_EQ(answer(""), known);
    EXPECT_EQ(answer("shows"), known);
    const std::string unknown = answer("show fan");
    EXPECT_TRUE(unknown.starts_with(R"({"error":"fan: nothing of that name, there are: device )")) << unknown;
    EXPECT_TRUE(unknown.ends_with(R"( faults traffic"})")) << unknown;
    EXPECT_EQ(answer("show fans users"), R"({"error":"show takes one name, or \"sensor\" and the name of one"})");
    EXPECT_EQ(answer("cancel all"), R"({"error":"cancel takes no words: it makes all reservations void"})");
    EXPECT_EQ(answer("save it"), R"({"error":"save takes no words: it writes the file that --state named"})");
    EXPECT_EQ(answer("reset all"), R"({"error":"reset takes no words"})");
}

}  // namespace ipmcd

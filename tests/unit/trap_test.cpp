/// What no command line reaches of the trap commands: missing texts, destinations beyond the fourth, what the handlers
/// return.
#include "snmp/trap_destination.h"

#include "tests/unit/conversation.h"

#include <pty.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

using records = std::vector<std::string>;

static constexpr char lan_opened[] = "0C 01  01 00 01", lan_closed[] = "0C 01  01 00 00";

class trap : public conversation
{
protected:
    void write_in_bracket(const std::string &request, const std::string &ending = "00",
                          const std::string &closing = "00")
    {
        wire(lan_opened, "00");
        wire(request, ending);
        wire(lan_closed, closing);
    }
};

// Missing texts -----------------------------------------------------------------------------------------------------

TEST_F(trap, without_a_word_for_it_the_state_is_not_set)
{
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_state(1, nullptr), 0); }), "set_trap_state:str_buf is null ptr!\r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(trap, without_a_word_for_it_the_state_of_a_destination_is_not_set)
{
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_dest_state(1, 1, nullptr), 0); }),
              "set_trap_dest_state:str_buf is null ptr!\r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(trap, without_bytes_no_address_is_set_and_nothing_said)
{
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_dest_address(1, 0, nullptr, 4), 0); }), "");
    EXPECT_EQ(logged(), records{});
}

// Called from elsewhere ---------------------------------------------------------------------------------------------

TEST_F(trap, setting_an_address_is_told_and_not_recorded)
{
    static constexpr uint8_t address[] = {10, 0, 0, 1};
    write_in_bracket("0C 01  01 D1 D9 7E 00  02 00 0A 00 00 01");
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_dest_address(2, 0, address, sizeof address), 1); }),
              "Set trap dest2 address success.\r\n");
    write_in_bracket("0C 01  01 D1 D9 7E 00  02 00 0A 00 00 01", "C1");
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_dest_address(2, 0, address, sizeof address), 0); }),
              "Set trap dest2 address failed, error code: 0xC01D1C1\r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(trap, an_address_that_no_request_has_room_for_is_not_sent)
{
    static constexpr uint8_t endless[256] = {};
    wire(lan_opened, "00");
    wire(lan_closed, "00");
    EXPECT_EQ(printed([] { EXPECT_EQ(set_trap_dest_address(1, 1, endless, sizeof endless), 0); }),
              "Set trap dest1 address failed, error code: 0x40000000\r\n");
}

TEST_F(trap, a_destination_is_one_bit_of_sixteen)
{
    static constexpr std::pair<uint32_t, const char *> bits[] = {
        {1, "01 00 01 00"},  {4, "08 00 08 00"},  {8, "80 00 80 00"},  {9, "00 01 00 01"},  {16, "00 80 00 80"},
        {17, "00 00 00 00"}, {32, "00 00 00 00"}, {33, "00 00 00 00"}, {65, "00 00 00 00"}, {0, "00 00 00 00"},
    };
    for (const auto &[destination, sent] : bits) {
        begin();
        write_in_bracket("0C 01  01 C1 D9 7E 00 " + std::string(sent));
        printed([number = destination] { EXPECT_EQ(set_trap_dest_state(number, 1, "enabled"), 1); });
        const std::string name = std::to_string(destination);
        EXPECT_EQ(logged(), records{"2 Alert Enable trap destination" + name + " success,EvtCode:0x213007B0"});
    }
}

// What the handlers return ------------------------------------------------------------------------------------------

class trap_result : public trap
{
protected:
    using words = std::vector<std::string>;

    /// What is written between the brackets, and what each way to end gives.
    void returns_of_bracketed(const char *dataitem, const words &typed, const char *request)
    {
        SCOPED_TRACE(dataitem);
        write_in_bracket(request);
        run(trap_dataitems, dataitem, typed, 1);
        write_in_bracket(request, "C1");
        run(trap_dataitems, dataitem, typed, 0);
        write_in_bracket(request, "silent");
        run(trap_dataitems, dataitem, typed, 0);
        wire(lan_opened, "C1");
        run(trap_dataitems, dataitem, typed, 0);
        run(trap_dataitems, dataitem, {}, 0);
    }
    void returns_of_plain(const char *dataitem, const words &typed, const char *request)
    {
        SCOPED_TRACE(dataitem);
        wire(request, "00");
        run(trap_dataitems, dataitem, typed, 1);
        wire(request, "C1");
        run(trap_dataitems, dataitem, typed, 0);
        wire(request, "unsent");
        run(trap_dataitems, dataitem, typed, 0);
        run(trap_dataitems, dataitem, {}, 0);
    }
};

TEST_F(trap_result, in_a_bracket)
{
    returns_of_bracketed("address", {"-v", "1", "10.0.0.1"}, "0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01");
    returns_of_bracketed("port", {"-v", "1", "162"}, "0C 01  01 C0 D9 7E 00  01 A2 00");
    returns_of_bracketed("state", {"-v", "enabled"}, "0C 01  01 C2 D9 7E 00  01");
    returns_of_bracketed("state", {"-v", "1", "disabled"}, "0C 01  01 C1 D9 7E 00  01 00 00 00");
    returns_of_bracketed("version", {"-v", "V3"}, "0C 01  01 C3 D9 7E 00  03");
    returns_of_bracketed("severity", {"-v", "3"}, "0C 01  01 C4 D9 7E 00  00 03");
}

TEST_F(trap_result, without_a_bracket)
{
    returns_of_plain("user", {"-v", "eve"}, "30 93  D9 7E 00  2B 0A 00  03 65 76 65");
    returns_of_plain("auth_priv_protocol", {"-v", "4"}, "30 93  D9 7E 00  2B 09 00  04");
    returns_of_plain("mode", {"-v", "1"}, "30 93  D9 7E 00  15 01 11 00 00 01  01");
}

TEST_F(trap_result, only_the_port_is_decided_by_the_closing)
{
    write_in_bracket("0C 01  01 C0 D9 7E 00  01 A2 00", "00", "C1");
    run(trap_dataitems, "port", {"-v", "1", "162"}, 0);
    write_in_bracket("0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01", "00", "C1");
    run(trap_dataitems, "address", {"-v", "1", "10.0.0.1"}, 1);
    write_in_bracket("0C 01  01 C2 D9 7E 00  01", "00", "C1");
    run(trap_dataitems, "state", {"-v", "enabled"}, 1);
    write_in_bracket("0C 01  01 C1 D9 7E 00  01 00 01 00", "00", "C1");
    run(trap_dataitems, "state", {"-v", "1", "enabled"}, 1);
    write_in_bracket("0C 01  01 C3 D9 7E 00  03", "00", "C1");
    run(trap_dataitems, "version", {"-v", "V3"}, 1);
    write_in_bracket("0C 01  01 C4 D9 7E 00  00 03", "00", "C1");
    run(trap_dataitems, "severity", {"-v", "3"}, 1);
}

TEST_F(trap_result, refused_texts)
{
    run(trap_dataitems, "address", {"-v", "1", "10.0.0.256"}, 0);
    run(trap_dataitems, "address", {"-v", "1", "10.0.1"}, 0);
    run(trap_dataitems, "address", {"-v", "1", "fe80"}, 0);
}

/// Standard input is a terminal on which this has been typed.
class typed
{
public:
    explicit typed(const std::string &keys)
    {
        termios mode{};
        cfmakeraw(&mode);
        mode.c_cc[VMIN] = 1;
        EXPECT_EQ(openpty(&main, &child, nullptr, &mode, nullptr), 0);
        EXPECT_EQ(write(main, keys.data(), keys.size()), ssize_t(keys.size()));
        dup2(child, STDIN_FILENO);
    }
    ~typed()
    {
        dup2(before, STDIN_FILENO);
        for (const int open : {before, main, child})
            close(open);
    }
    typed(const typed &) = delete;
    typed &operator=(const typed &) = delete;

private:
    const int before = dup(STDIN_FILENO);
    int main = -1, child = -1;
};

TEST_F(trap_result, community)
{
    static constexpr char set[] = "0C 01  01 10 54 72 69 63 6F 72 6E 38 00 00 00 00 00 00 00 00 00 00";
    for (const auto &[ending, result] : {std::pair{"00", 1}, {"C1", 0}, {"silent", 0}}) {
        const typed keys("Tricorn8\rTricorn8\r");
        write_in_bracket(set, ending);
        run(trap_dataitems, "community", {}, result);
    }
}

TEST_F(trap_result, a_community_against_the_rules_leaves_the_bracket_open)
{
    const typed keys("tricorn\rtricorn\r");
    wire(lan_opened, "00");
    wire("0C 01  01 10 74 72 69 63 6F 72 6E 00 00 00 00 00 00 00 00 00 00 00", "84");
    run(trap_dataitems, "community", {}, 0);
}

TEST_F(trap_result, no_community)
{
    run(trap_dataitems, "community", {"-v"}, 0);
    const typed keys("\rTricorn8\rBicorn88\r");
    run(trap_dataitems, "community", {}, 0);  // empty
    run(trap_dataitems, "community", {}, 0);  // two that differ
}

#include "tests/ipmcd/traced.h"

namespace ipmcd
{

struct identity : traced {
    reply write_id(uint8_t more, uint8_t offset, const std::string &piece)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, more, offset, uint8_t(piece.size())};
        data.insert(data.end(), piece.begin(), piece.end());
        return ask(0x30, 0x94, data);
    }
    reply open(uint8_t begin) { return ask(0x30, 0x90, {0x20, 0xD9, 0x7E, 0x00, begin}); }
    reply write_serial(uint8_t offset, const std::string &piece)
    {
        bytes data = {0x04, 0x00, 0x06, 0x03, offset, uint8_t(piece.size())};
        data.insert(data.end(), piece.begin(), piece.end());
        return ask(0x30, 0x90, data);
    }
    reply write_web_host(uint8_t more, uint8_t offset, const std::string &piece)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x05, 0x18, more, offset, uint8_t(piece.size())};
        data.insert(data.end(), piece.begin(), piece.end());
        return ask(0x30, 0x93, data);
    }
    std::string web_host() const { return state_of("identity")["web_host"]; }
    std::string id() const { return state_of("identity")["remote_manage_id"]; }
    std::string serial() const { return state_of("identity")["serial_number"]; }
};

TEST_F(identity, of_the_factory)
{
    EXPECT_EQ(state_of("identity").dump(),
              R"({"remote_manage_id":"","web_host":"","serial_number":"SIM-0001","smbios_is_open":false})");
}

TEST_F(identity, an_id_of_one_piece)
{
    EXPECT_EQ(write_id(0, 0, "rack 7"), done_oem);
    EXPECT_EQ(id(), "rack 7");
    EXPECT_EQ(write_id(0, 0, ""), done_oem);  // an empty one clears it
    EXPECT_EQ(id(), "");
}

TEST_F(identity, an_id_takes_hold_with_its_last_piece)
{
    EXPECT_EQ(write_id(1, 0, "0123456789abcdef"), done_oem);
    EXPECT_EQ(id(), "");
    EXPECT_EQ(write_id(0, 16, "gh"), done_oem);
    EXPECT_EQ(id(), "0123456789abcdefgh");
}

TEST_F(identity, an_id_has_up_to_64_characters)
{
    for (const uint8_t offset : bytes{0, 16, 32, 48})
        EXPECT_EQ(write_id(1, offset, "0123456789abcdef"), done_oem);
    EXPECT_EQ(write_id(0, 64, "x"), (reply{0xC8, {}}));
    EXPECT_EQ(write_id(0, 64, ""), done_oem);  // a multiple of 16 ends with an empty piece
    EXPECT_EQ(id(), "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef");
}

TEST_F(identity, pieces_go_on_where_the_one_before_ended)
{
    EXPECT_EQ(write_id(0, 16, "x"), (reply{0xC9, {}}));
    write_id(1, 0, "0123456789abcdef");
    EXPECT_EQ(write_id(0, 15, "x"), (reply{0xC9, {}}));
    EXPECT_EQ(write_id(0, 32, "x"), (reply{0xC9, {}}));
    EXPECT_EQ(write_id(1, 0, "from the start "), done_oem);
    EXPECT_EQ(write_id(0, 15, "again"), done_oem);
    EXPECT_EQ(id(), "from the start again");
    EXPECT_EQ(write_id(0, 15, "twice"), (reply{0xC9, {}}));
}

TEST_F(identity, bad_pieces_change_nothing)
{
    write_id(0, 0, "kept");
    EXPECT_EQ(write_id(2, 0, "x"), (reply{0xCC, {}}));
    EXPECT_EQ(write_id(0, 0, "a\tb"), (reply{0xCC, {}}));
    EXPECT_EQ(write_id(0, 0, "\xC3\xA4"), (reply{0xCC, {}}));
    EXPECT_EQ(write_id(0, 0, "0123456789abcdefg"), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, 0, 0, 3, 'a', 'b'}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, 0, 0, 1, 'a', 'b'}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, 0, 0, 17, 'a'}), (reply{0xC8, {}}));
    EXPECT_EQ(ask(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0D, 0, 0, 0}), (reply{0xCC, {}}));
    EXPECT_EQ(id(), "kept");
}

TEST_F(identity, a_serial_number_in_two_pieces)
{
    EXPECT_EQ(open(1), done);
    EXPECT_EQ(state_of("identity")["smbios_is_open"], true);
    EXPECT_EQ(write_serial(0x80, "0123456789abcdefgh"), done);
    EXPECT_EQ(serial(), "SIM-0001");
    EXPECT_EQ(write_serial(18, "ijkl"), done);
    EXPECT_EQ(serial(), "0123456789abcdefghijkl");
    EXPECT_EQ(open(0), done);
    EXPECT_EQ(state_of("identity")["smbios_is_open"], false);
}

TEST_F(identity, a_serial_number_in_one_piece)
{
    open(1);
    EXPECT_EQ(write_serial(0, "0123456789abcdefgh"), done);
    EXPECT_EQ(serial(), "0123456789abcdefgh");
    EXPECT_EQ(write_serial(0, "x"), done);
    EXPECT_EQ(serial(), "x");
}

TEST_F(identity, a_serial_number_is_written_while_the_tables_are_open)
{
    EXPECT_EQ(write_serial(0, "x"), (reply{0xD5, {}}));
    open(1);
    open(0);
    EXPECT_EQ(write_serial(0, "x"), (reply{0xD5, {}}));
    EXPECT_EQ(open(0), done);
    EXPECT_EQ(open(2), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x90, {0x20, 0xD8, 0x7E, 0x00, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x90, {0x20, 0xD9, 0x7E, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(serial(), "SIM-0001");
}

TEST_F(identity, half_a_serial_number_is_forgotten)
{
    for (const bool by_restart : {false, true}) {
        open(1);
        write_serial(0x80, "0123456789abcdefgh");
        if (by_restart)
            board.restart();
        else
            open(0);
        EXPECT_EQ(state_of("identity")["smbios_is_open"], false);
        open(1);
        EXPECT_EQ(write_serial(18, "ijkl"), (reply{0xC9, {}}));
    }
    EXPECT_EQ(serial(), "SIM-0001");
}

TEST_F(identity, a_web_host_name_comes_in_pieces_of_18)
{
    const std::string name = "bmc." + std::string(251, 'x');  // 255 characters, the most there can be
    for (size_t offset = 0; offset < 252; offset += 18)
        EXPECT_EQ(write_web_host(1, uint8_t(offset), name.substr(offset, 18)), done_oem);
    EXPECT_EQ(web_host(), "");
    EXPECT_EQ(write_web_host(0, 252, "xxxx"), (reply{0xC8, {}}));
    EXPECT_EQ(write_web_host(0, 252, "xxx"), done_oem);
    EXPECT_EQ(web_host(), name);
    EXPECT_EQ(write_web_host(0, 0, "10.0.0.7"), done_oem);
    EXPECT_EQ(web_host(), "10.0.0.7");
}

TEST_F(identity, a_wrong_piece_of_a_web_host_name_changes_nothing)
{
    write_web_host(0, 0, "bmc");
    EXPECT_EQ(write_web_host(0, 0, ""), (reply{0xC7, {}}));
    EXPECT_EQ(write_web_host(0, 0, std::string(19, 'x')), (reply{0xC7, {}}));
    EXPECT_EQ(write_web_host(0, 18, "x"), (reply{0xC9, {}}));
    EXPECT_EQ(write_web_host(2, 0, "x"), (reply{0xCC, {}}));
    EXPECT_EQ(write_web_host(0, 0, "b	c"), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x05, 0x18, 0, 0, 2, 'x'}), (reply{0xC7, {}}));
    EXPECT_EQ(web_host(), "bmc");
}

TEST_F(identity, a_serial_number_has_1_to_22_characters)
{
    open(1);
    EXPECT_EQ(write_serial(0, ""), (reply{0xC7, {}}));
    EXPECT_EQ(write_serial(0x80, "0123456789abcdefgh"), done);
    EXPECT_EQ(write_serial(18, "ijklm"), (reply{0xC8, {}}));
    EXPECT_EQ(write_serial(0, "0123456789abcdefghi"), (reply{0xC7, {}}));
    EXPECT_EQ(serial(), "SIM-0001");
}

TEST_F(identity, is_kept_in_the_state)
{
    board.from_json(
        {{"identity",
          {{"remote_manage_id", "r"}, {"web_host", "w"}, {"serial_number", "s"}, {"smbios_is_open", true}}}});
    EXPECT_EQ(write_serial(0, "t"), done);
    EXPECT_EQ(state_of("identity").dump(),
              R"({"remote_manage_id":"r","web_host":"w","serial_number":"t","smbios_is_open":true})");
    for (const json &wrong :
         {json{{"remote_manage_id", std::string(65, 'x')}}, json{{"serial_number", std::string(23, 'x')}},
          json{{"web_host", std::string(256, 'x')}}, json{{"smbios_is_open", 1}}, json{{"name", "x"}}})
        EXPECT_THROW(board.from_json({{"identity", wrong}}), bad_state) << wrong;
}

TEST_F(identity, in_words)
{
    EXPECT_EQ(lines(0x30, 0x94, {0xD9, 0x7E, 0x00, 0x1F, 0x01, 0x0C, 1, 0, 2, 'a', 7}),
              (expected{"request 30/94 Write Remote Manage ID: D9 7E 00 1F 01 0C 01 00 02 61 07 "
                        "(offset 0, \"a\\x07\", more follow)",
                        "answer  CC invalid data field in request"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x05, 0x18, 0, 0, 2, 'a', 'b'})[0],
              "request 30/93 Write Web Host Name: D9 7E 00 05 18 00 00 02 61 62 (offset 0, \"ab\", last)");
    EXPECT_EQ(lines(0x30, 0x90, {0x20, 0xD9, 0x7E, 0x00, 1}),
              (expected{"request 30/90 Write SMBIOS: 20 D9 7E 00 01 (begin)", "answer  00 done"}));
    EXPECT_EQ(lines(0x30, 0x90, {0x04, 0x00, 0x06, 0x03, 0x80, 2, 'a', 'b'})[0],
              "request 30/90 Write SMBIOS Serial Number: 04 00 06 03 80 02 61 62 (offset 0, \"ab\", more follow)");
    EXPECT_EQ(lines(0x30, 0x90, {0x04, 0x00, 0x06, 0x03, 18, 1, 'c'})[0],
              "request 30/90 Write SMBIOS Serial Number: 04 00 06 03 12 01 63 (offset 18, \"c\", last)");
    EXPECT_EQ(lines(0x30, 0x90, {0x20, 0xD9, 0x7E, 0x00, 0})[0], "request 30/90 Write SMBIOS: 20 D9 7E 00 00 (end)");
}

}  // namespace ipmcd

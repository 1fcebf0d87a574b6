#include "tests/ipmcd/board.h"

namespace ipmcd
{

struct users : board_test {
    reply get_access(uint8_t user, uint8_t channel = 1) { return ask(0x06, 0x44, {channel, user}); }
    reply set_access(const bytes &data) { return ask(0x06, 0x43, data); }
    reply get_name(uint8_t user) { return ask(0x06, 0x46, {user}); }
    reply set_name(uint8_t user, const std::string &name)
    {
        bytes data = {user};
        data.insert(data.end(), name.begin(), name.end());
        data.resize(17);
        return ask(0x06, 0x45, data);
    }
};

static reply name_reply(const std::string &name)
{
    bytes data(name.begin(), name.end());
    data.resize(16);
    return {0x00, data};
}

TEST_F(users, have_four_accounts_from_the_factory)
{
    // 17 slots; enabled (0x40) and 4 of them enabled; 1 fixed name; messaging (0x10) and the limit.
    EXPECT_EQ(get_access(2), (reply{0x00, {17, 0x44, 1, 0x14}}));
    EXPECT_EQ(get_access(3), (reply{0x00, {17, 0x44, 1, 0x13}}));
    EXPECT_EQ(get_access(4), (reply{0x00, {17, 0x44, 1, 0x12}}));
    EXPECT_EQ(get_access(5), (reply{0x00, {17, 0x44, 1, 0x0F}}));
    EXPECT_EQ(get_name(2), name_reply("admin"));
    EXPECT_EQ(get_name(3), name_reply("operator"));
    EXPECT_EQ(get_name(4), name_reply("guest"));
    EXPECT_EQ(get_name(5), name_reply("locked"));
}

TEST_F(users, the_anonymous_user_and_free_slots_have_no_name_and_no_access)
{
    for (const uint8_t user : bytes{1, 6, 17}) {
        EXPECT_EQ(get_access(user), (reply{0x00, {17, 0x84, 1, 0x0F}})) << int(user);
        EXPECT_EQ(get_name(user), name_reply("")) << int(user);
    }
}

TEST_F(users, the_access_of_the_present_channel_is_that_of_the_lan)
{
    EXPECT_EQ(get_access(2, 0x0E), get_access(2, 0x01));
    for (const uint8_t other : bytes{0x00, 0x02, 0x0F, 0x11, 0x81})
        EXPECT_EQ(get_access(2, other), (reply{0xCC, {}})) << int(other);
}

TEST_F(users, numbers_run_from_1_to_17)
{
    for (const uint8_t wrong : bytes{0, 18, 63}) {
        EXPECT_EQ(get_access(wrong), (reply{0xC9, {}})) << int(wrong);
        EXPECT_EQ(set_access({1, wrong, 4}), (reply{0xC9, {}})) << int(wrong);
        EXPECT_EQ(get_name(wrong), (reply{0xC9, {}})) << int(wrong);
        EXPECT_EQ(set_name(wrong, "x"), (reply{0xC9, {}})) << int(wrong);
    }
    EXPECT_EQ(get_access(0x42), (reply{0xCC, {}}));  // the two high bits are reserved
}

TEST_F(users, requests_have_their_lengths)
{
    EXPECT_EQ(ask(0x06, 0x44, {1}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x44, {1, 2, 3}), (reply{0xC7, {}}));
    EXPECT_EQ(set_access({1, 2}), (reply{0xC7, {}}));
    EXPECT_EQ(set_access({1, 2, 4, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x46, {}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x46, {2, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x45, bytes(16, 2)), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x45, bytes(18, 2)), (reply{0xC7, {}}));
}

TEST_F(users, setting_the_privilege_leaves_the_other_bits_alone)
{
    EXPECT_EQ(set_access({0x01, 3, 4}), done);
    EXPECT_EQ(get_access(3).data[3], 0x14);
    EXPECT_EQ(set_access({0x71, 3, 15}), done);  // bits 6 to 4 without bit 7: no change of those
    EXPECT_EQ(get_access(3).data[3], 0x1F);
}

TEST_F(users, bit_7_changes_the_other_bits_too)
{
    EXPECT_EQ(set_access({0xF1, 3, 2}), done);
    EXPECT_EQ(get_access(3).data[3], 0x72);
    EXPECT_EQ(set_access({0xA1, 3, 2}), done);
    EXPECT_EQ(get_access(3).data[3], 0x22);
    EXPECT_EQ(set_access({0x81, 3, 2}), done);
    EXPECT_EQ(get_access(3).data[3], 0x02);
}

TEST_F(users, every_privilege_is_one_of_ipmi)
{
    for (unsigned limit = 0; limit < 256; limit++) {
        const bool good = (limit >= 1 && limit <= 5) || limit == 15;
        EXPECT_EQ(set_access({1, 3, uint8_t(limit)}).code, good ? 0x00 : 0xCC) << limit;
    }
}

TEST_F(users, the_session_limit_is_optional_and_has_four_bits)
{
    EXPECT_EQ(set_access({1, 3, 3, 9}), done);
    EXPECT_EQ(state_of("users")["3"]["session_limit"], 9);
    EXPECT_EQ(set_access({1, 3, 3}), done);
    EXPECT_EQ(state_of("users")["3"]["session_limit"], 9);
    EXPECT_EQ(set_access({1, 3, 2, 0x10}), (reply{0xCC, {}}));
    EXPECT_EQ(get_access(3).data[3], 0x13);
}

TEST_F(users, access_is_set_on_the_lan_channel_only) { EXPECT_EQ(set_access({0x02, 3, 4}), (reply{0xCC, {}})); }

TEST_F(users, names_have_up_to_16_characters)
{
    EXPECT_EQ(set_name(6, "a"), done);
    EXPECT_EQ(get_name(6), name_reply("a"));
    EXPECT_EQ(set_name(6, "sixteen letters!"), done);
    EXPECT_EQ(get_name(6), name_reply("sixteen letters!"));
}

TEST_F(users, what_follows_the_end_of_a_name_reads_back_as_zeros)
{
    EXPECT_EQ(set_name(6, std::string("ab\0cd", 5)), done);
    EXPECT_EQ(get_name(6), name_reply("ab"));
}

TEST_F(users, a_new_user_is_disabled_and_has_no_access)
{
    set_name(6, "new");
    EXPECT_EQ(get_access(6), (reply{0x00, {17, 0x84, 1, 0x0F}}));
}

TEST_F(users, an_empty_name_frees_the_slot_with_all_its_rights)
{
    EXPECT_EQ(set_name(3, ""), done);
    EXPECT_EQ(get_name(3), name_reply(""));
    EXPECT_EQ(get_access(3), (reply{0x00, {17, 0x83, 1, 0x0F}}));
}

TEST_F(users, a_name_belongs_to_one_user)
{
    EXPECT_EQ(set_name(6, "admin"), (reply{0xCC, {}}));
    EXPECT_EQ(get_name(6), name_reply(""));
    EXPECT_EQ(set_name(2, "admin"), done);  // its own
    EXPECT_EQ(set_name(6, "Admin"), done);  // case counts
}

TEST_F(users, user_1_keeps_its_empty_name)
{
    EXPECT_EQ(set_name(1, "root"), (reply{0xCC, {}}));
    EXPECT_EQ(set_name(1, ""), (reply{0xCC, {}}));
}

TEST_F(users, names_are_printable)
{
    EXPECT_EQ(set_name(6, "a\x1F"), (reply{0xCC, {}}));
    EXPECT_EQ(set_name(6, "a\x7F"), (reply{0xCC, {}}));
    EXPECT_EQ(set_name(6, "a\xE4"), (reply{0xCC, {}}));
    EXPECT_EQ(set_name(6, " ~"), done);
}

TEST_F(users, show_their_state_as_json)
{
    EXPECT_EQ(state_of("users").size(), 18U);  // one of them: whether the rules of passwords apply
    EXPECT_EQ(
        state_of("users")["6"].dump(),
        R"({"name":"","privilege":15,"enabled":false,"callback_only":false,"link_authentication":false,)"
        R"("messaging":false,"session_limit":0,"failed_checks":0,"locked":false,"senders":{},"short_password":false,)"
        R"("password_hash":""})");
}

TEST_F(users, a_state_may_name_some_of_them)
{
    board.from_json({{"users", {{"6", {{"name", "six"}, {"privilege", 4}, {"enabled", true}}}}}});
    EXPECT_EQ(get_access(6), (reply{0x00, {17, 0x45, 1, 0x04}}));
    EXPECT_EQ(get_name(6), name_reply("six"));
    EXPECT_EQ(get_name(2), name_reply("admin"));
    board.reset();
    EXPECT_EQ(get_name(6), name_reply(""));
}

TEST_F(users, refuse_a_state_that_does_not_fit)
{
    for (const json &wrong :
         {json{{"0", json::object()}}, json{{"18", json::object()}}, json{{"2", {{"privilege", 6}}}},
          json{{"2", {{"privilege", 16}}}}, json{{"2", {{"name", "seventeen letters"}}}}, json{{"2", {{"name", "\n"}}}},
          json{{"2", {{"enabled", "yes"}}}}, json{{"2", {{"session_limit", 16}}}}, json{{"2", {{"x", 1}}}},
          json{{"1", {{"name", "root"}}}}, json{{"2", 4}}, json("all")})
        EXPECT_THROW(board.from_json({{"users", wrong}}), bad_state) << wrong;
    EXPECT_EQ(get_access(2), (reply{0x00, {17, 0x44, 1, 0x14}}));
}

}  // namespace ipmcd

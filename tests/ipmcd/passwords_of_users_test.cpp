/// Passwords of users: setting, testing and checking them, the lock-out, and what shows of them.
#include "ipmcd/control.h"
#include "tests/ipmcd/traced.h"

namespace ipmcd
{

static void append(bytes &data, const std::string &text, size_t size)
{
    const size_t end = data.size() + size;
    data.insert(data.end(), text.begin(), text.end());
    data.resize(end);
}

struct passwords_of_users : traced {
    static bytes with_password(bytes data, const std::string &password, size_t size = 20)
    {
        append(data, password, size);
        return data;
    }
    static bytes name_and_password(uint8_t function, const std::string &name, const std::string &password)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x11, function};
        append(data, name, 16);
        append(data, password, 20);
        return data;
    }

    reply set(uint8_t user, const std::string &password)
    {
        return ask(0x06, 0x47, with_password({uint8_t(0x80 | user), 2}, password));
    }
    reply test(uint8_t user, const std::string &password)
    {
        return ask(0x06, 0x47, with_password({uint8_t(0x80 | user), 3}, password));
    }
    reply enable(uint8_t user) { return ask(0x06, 0x47, with_password({user, 1}, "", 16)); }
    reply disable(uint8_t user) { return ask(0x06, 0x47, with_password({user, 0}, "", 16)); }
    reply set_name(uint8_t user, const std::string &name) { return ask(0x06, 0x45, with_password({user}, name, 16)); }
    reply check(const std::string &name, const std::string &password)
    {
        return ask(0x30, 0x91, name_and_password(0x00, name, password));
    }
    reply unlock(const std::string &name) { return ask(0x30, 0x91, name_and_password(0x80, name, "")); }
    reply switch_rules(uint8_t on) { return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x22, on}); }
    void lock(const std::string &name)
    {
        for (int i = 0; i < 5; i++)
            EXPECT_EQ(check(name, "wrong").code, 0x82);
    }
};

TEST_F(passwords_of_users, of_the_factory_follow_the_rules)
{
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
    EXPECT_EQ(check("operator", "Zentro-operator1"), done_oem);
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
    EXPECT_EQ(check("locked", "Zentro-locked1"), done_oem);
    EXPECT_EQ(set(2, "Zentro-admin1"), done);
    EXPECT_EQ(set(3, "Zentro-operator1"), done);
    EXPECT_EQ(set(4, "Zentro-guest1"), done);
    EXPECT_EQ(set(5, "Zentro-locked1"), done);
}

TEST_F(passwords_of_users, a_new_user_gets_name_password_and_is_enabled)
{
    EXPECT_EQ(set_name(6, "tester"), done);
    EXPECT_EQ(enable(6), (reply{0x84, {}}));  // has no password yet
    EXPECT_EQ(check("tester", ""), (reply{0x82, {}}));
    EXPECT_EQ(set(6, "tester-Test9"), done);
    EXPECT_EQ(check("tester", "tester-Test9"), (reply{0x82, {}}));  // still disabled
    EXPECT_EQ(enable(6), done);
    EXPECT_EQ(check("tester", "tester-Test9"), done_oem);
    EXPECT_EQ(disable(6), done);
    EXPECT_EQ(check("tester", "tester-Test9"), (reply{0x82, {}}));
}

TEST_F(passwords_of_users, a_freed_slot_keeps_no_password)
{
    set_name(4, "");
    EXPECT_EQ(state_of("users")["4"]["password_hash"], "");
    set_name(4, "guest");
    EXPECT_EQ(enable(4), (reply{0x84, {}}));
    EXPECT_EQ(test(4, "Zentro-guest1"), (reply{0x80, {}}));
}

TEST_F(passwords_of_users, are_refused_when_they_break_the_rules)
{
    for (const char *const bad : {"", "short-1", "nothing1special", "only-small", "ADMIN-12345678901234", "admin"})
        EXPECT_EQ(set(2, bad).code, std::string(bad) == "ADMIN-12345678901234" ? 0x00 : 0x84) << bad;
    set_name(6, "to-fro-7");
    EXPECT_EQ(set(6, "to-fro-7"), (reply{0x84, {}}));
    EXPECT_EQ(set(6, "7-orf-ot"), (reply{0x84, {}}));
    EXPECT_EQ(set(6, "8-orf-ot"), done);
}

TEST_F(passwords_of_users, a_refused_one_leaves_the_old_one)
{
    EXPECT_EQ(set(2, "weak"), (reply{0x84, {}}));
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
}

TEST_F(passwords_of_users, the_rules_can_be_switched_off)
{
    EXPECT_EQ(switch_rules(0), done_oem);
    EXPECT_EQ(state_of("users")["password_rules"], false);
    EXPECT_EQ(set(2, "a"), done);
    EXPECT_EQ(check("admin", "a"), done_oem);
    EXPECT_EQ(set(2, ""), (reply{0x84, {}}));  // none at all is no password
    EXPECT_EQ(switch_rules(1), done_oem);
    EXPECT_EQ(set(2, "b"), (reply{0x84, {}}));
    EXPECT_EQ(check("admin", "a"), done_oem);
    EXPECT_EQ(switch_rules(2), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x22}), (reply{0xC7, {}}));
    EXPECT_EQ(state_of("users")["password_rules"], true);
}

TEST_F(passwords_of_users, have_up_to_20_characters)
{
    EXPECT_EQ(set(2, "abcdefghij-123456789"), done);
    EXPECT_EQ(check("admin", "abcdefghij-123456789"), done_oem);
    EXPECT_EQ(check("admin", "abcdefghij-12345678"), (reply{0x82, {}}));
}

TEST_F(passwords_of_users, come_in_16_or_20_bytes)
{
    // Bit 7 of the user says that 20 bytes follow.
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x82, 2}, "abcd-1234", 16)), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x02, 2}, "abcd-1234", 20)), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x47, {0x02, 2}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x47, {0x02}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x02, 2}, "abcd-1234", 16)), done);
    EXPECT_EQ(check("admin", "abcd-1234"), done_oem);
    EXPECT_EQ(state_of("users")["2"]["short_password"], true);
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x02, 3}, "abcd-1234", 16)), done);
    EXPECT_EQ(test(2, "abcd-1234"), (reply{0x81, {}}));
    EXPECT_EQ(set(2, "abcd-1234"), done);
    EXPECT_EQ(test(2, "abcd-1234"), done);
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x02, 3}, "abcd-1234", 16)), (reply{0x81, {}}));
}

TEST_F(passwords_of_users, are_tested)
{
    EXPECT_EQ(test(2, "Zentro-admin1"), done);
    EXPECT_EQ(test(2, "Zentro-admin2"), (reply{0x80, {}}));
    EXPECT_EQ(test(2, ""), (reply{0x80, {}}));
}

TEST_F(passwords_of_users, enabling_may_do_without_the_padding)
{
    EXPECT_EQ(ask(0x06, 0x47, {0x04, 0}), done);
    EXPECT_EQ(state_of("users")["4"]["enabled"], false);
    EXPECT_EQ(ask(0x06, 0x47, {0x04, 1}), done);
    EXPECT_EQ(state_of("users")["4"]["enabled"], true);
    EXPECT_EQ(ask(0x06, 0x47, {0x04, 1, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x84, 0}, "", 20)), done);
    EXPECT_EQ(state_of("users")["4"]["enabled"], false);
}

TEST_F(passwords_of_users, belong_to_users)
{
    EXPECT_EQ(set(1, "abcd-1234"), (reply{0xCB, {}}));
    EXPECT_EQ(enable(1), (reply{0xCB, {}}));
    EXPECT_EQ(set(6, "abcd-1234"), (reply{0xCB, {}}));  // a free slot
    EXPECT_EQ(set(0, "abcd-1234"), (reply{0xC9, {}}));
    EXPECT_EQ(set(18, "abcd-1234"), (reply{0xC9, {}}));
    EXPECT_EQ(set(0x42, "abcd-1234"), (reply{0xCC, {}}));                                  // reserved bit 6
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x82, 4}, "abcd-1234")), (reply{0xCC, {}}));  // no such operation
}

TEST_F(passwords_of_users, are_checked_by_name)
{
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
    EXPECT_EQ(check("admin", "zentro-admin1"), (reply{0x82, {}}));
    EXPECT_EQ(check("Admin", "Zentro-admin1"), (reply{0x82, {}}));
    EXPECT_EQ(check("nobody", "Zentro-admin1"), (reply{0x82, {}}));
    EXPECT_EQ(check("", ""), (reply{0x82, {}}));
    bytes data = name_and_password(0x00, "admin", "Zentro-admin1");
    data.pop_back();
    EXPECT_EQ(ask(0x30, 0x91, data), (reply{0xC7, {}}));
    data[4] = 0x01;
    EXPECT_EQ(ask(0x30, 0x91, data), (reply{0xCC, {}}));
}

TEST_F(passwords_of_users, five_failures_in_a_row_lock)
{
    for (int i = 0; i < 4; i++)
        EXPECT_EQ(check("guest", "wrong"), (reply{0x82, {}}));
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);  // counting starts anew
    lock("guest");
    EXPECT_EQ(check("guest", "Zentro-guest1"), (reply{0x83, {}}));
    EXPECT_EQ(check("guest", "wrong"), (reply{0x83, {}}));
    EXPECT_EQ(state_of("users")["4"]["locked"], true);
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);  // nobody else
}

TEST_F(passwords_of_users, unlocking_is_for_those_who_are_locked)
{
    EXPECT_EQ(unlock("guest"), (reply{0x85, {}}));
    EXPECT_EQ(unlock("nobody"), (reply{0x85, {}}));
    EXPECT_EQ(unlock(""), (reply{0x85, {}}));
    lock("guest");
    EXPECT_EQ(unlock("guest"), done_oem);
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
    EXPECT_EQ(unlock("guest"), (reply{0x85, {}}));
}

TEST_F(passwords_of_users, a_lock_opens_after_five_minutes)
{
    lock("guest");
    clock.advance(std::chrono::milliseconds(299'999));
    EXPECT_EQ(check("guest", "Zentro-guest1"), (reply{0x83, {}}));
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(check("guest", "wrong"), (reply{0x82, {}}));
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
}

TEST_F(passwords_of_users, a_restart_opens_locks)
{
    lock("guest");
    check("operator", "wrong");
    board.restart();
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
    EXPECT_EQ(state_of("users")["3"]["failed_checks"], 0);
}

TEST_F(passwords_of_users, a_lock_that_is_loaded_runs_for_five_minutes)
{
    board.from_json({{"users", {{"4", {{"locked", true}}}}}});
    EXPECT_EQ(check("guest", "Zentro-guest1"), (reply{0x83, {}}));
    clock.advance(std::chrono::minutes(4));
    board.from_json({{"users", {{"4", {{"locked", true}}}}}});  // is it already: the time goes on
    clock.advance(std::chrono::minutes(1));
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
    lock("guest");
    board.from_json({{"users", {{"4", {{"locked", false}}}}}});
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
}

TEST_F(passwords_of_users, are_tested_no_more_often_than_checked)
{
    for (int i = 0; i < 4; i++)
        EXPECT_EQ(test(4, "wrong"), (reply{0x80, {}}));
    EXPECT_EQ(test(4, "Zentro-guest1"), done);  // counting starts anew
    for (int i = 0; i < 3; i++)
        EXPECT_EQ(test(4, "wrong"), (reply{0x80, {}}));
    for (int i = 0; i < 2; i++)
        EXPECT_EQ(check("guest", "wrong"), (reply{0x82, {}}));
    EXPECT_EQ(test(4, "Zentro-guest1"), (reply{0x83, {}}));
    EXPECT_EQ(test(4, "wrong"), (reply{0x83, {}}));
    EXPECT_EQ(ask(0x06, 0x47, with_password({0x04, 3}, "wrong", 16)), (reply{0x83, {}}));
    EXPECT_EQ(check("guest", "Zentro-guest1"), (reply{0x83, {}}));
    EXPECT_EQ(test(2, "Zentro-admin1"), done);  // nobody else
    EXPECT_EQ(set(4, "Marmalade-7"), done);     // an administrator may set one all the same
    EXPECT_EQ(unlock("guest"), done_oem);
    EXPECT_EQ(test(4, "Marmalade-7"), done);
}

TEST_F(passwords_of_users, no_account_locks_a_user_for_another)
{
    account = 1000;
    lock("admin");
    EXPECT_EQ(check("admin", "Zentro-admin1"), (reply{0x83, {}}));
    EXPECT_EQ(test(2, "Zentro-admin1"), (reply{0x83, {}}));
    account = 0;
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
    EXPECT_EQ(test(2, "Zentro-admin1"), done);
    EXPECT_EQ(check("admin", "wrong"), (reply{0x82, {}}));
    EXPECT_EQ(state_of("users")["2"]["failed_checks"], 1);
    EXPECT_EQ(state_of("users")["2"]["locked"], true);
    EXPECT_EQ(state_of("users")["2"]["senders"].dump(),
              R"({"0":{"failed_checks":1,"locked":false},"1000":{"failed_checks":0,"locked":true}})");
    EXPECT_EQ(unlock("admin"), done_oem);  // for everyone
    EXPECT_EQ(state_of("users")["2"]["senders"].dump(), "{}");
    account = 1000;
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
}

TEST_F(passwords_of_users, spare_accounts_count_as_one)
{
    for (const uint32_t number : {65536U, 65537U, 100000U, 165535U, 4294967295U}) {
        account = number;
        EXPECT_EQ(check("admin", "wrong"), (reply{0x82, {}}));
    }
    account = 200000;
    EXPECT_EQ(check("admin", "Zentro-admin1"), (reply{0x83, {}}));
    account = 65535;
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
}

TEST_F(passwords_of_users, who_guesses_is_part_of_the_state)
{
    account = 1000;
    lock("admin");
    account = 1001;
    check("admin", "wrong");
    controller other(clock);
    other.from_json(json::parse(board.to_json().dump()));
    EXPECT_EQ(other.to_json(), board.to_json());
    const bytes right = name_and_password(0x00, "admin", "Zentro-admin1");
    EXPECT_EQ(ask_board(other, 0x30, 0x91, right, 0, 1000), (reply{0x83, {}}));
    EXPECT_EQ(ask_board(other, 0x30, 0x91, right, 0, 0), done_oem);
    other.from_json({{"users", {{"2", {{"locked", false}}}}}});
    EXPECT_EQ(ask_board(other, 0x30, 0x91, right, 0, 1000), done_oem);
}

TEST_F(passwords_of_users, what_a_tester_sets_is_for_every_account)
{
    check("admin", "wrong");
    board.from_json({{"users", {{"2", {{"failed_checks", 4}}}}}});
    for (const uint32_t number : {0U, 1000U}) {
        account = number;
        EXPECT_EQ(check("admin", "wrong"), (reply{0x82, {}}));
        EXPECT_EQ(check("admin", "Zentro-admin1"), (reply{0x83, {}}));
    }
    board.from_json({{"users", {{"2", {{"locked", false}, {"failed_checks", 0}}}}}});
    board.from_json({{"users", {{"3", {{"locked", true}}}}}});
    for (const uint32_t number : {0U, 1000U}) {
        account = number;
        EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
        EXPECT_EQ(check("operator", "Zentro-operator1"), (reply{0x83, {}}));
    }
}

/// Passwords are tried in another thread; what happens meanwhile.
struct passwords_meanwhile : passwords_of_users {
    passwords_meanwhile() { clock.hold_work = true; }
    void start(uint8_t netfn, uint8_t command, const bytes &data)
    {
        request_frame request;
        request.netfn = netfn;
        request.command = command;
        request.data = data;
        board.execute(request, account,
                      [this](completion code, std::span<const uint8_t>) { codes.push_back(uint8_t(code)); });
    }
    void start_check(const std::string &name, const std::string &password)
    {
        start(0x30, 0x91, name_and_password(0x00, name, password));
    }

    bytes codes;
};

TEST_F(passwords_meanwhile, others_are_served)
{
    start_check("admin", "Zentro-admin1");
    start(0x06, 0x47, with_password({0x82, 3}, "Zentro-admin1"));
    start(0x06, 0x47, with_password({0x83, 2}, "Marmalade-7"));
    EXPECT_EQ(codes, bytes{});
    EXPECT_EQ(ask(0x06, 0x44, {1, 3}).code, 0x00);
    clock.finish_work();
    EXPECT_EQ(codes, (bytes{0x00, 0x00, 0x00}));
    clock.hold_work = false;
    EXPECT_EQ(check("operator", "Marmalade-7"), done_oem);
}

TEST_F(passwords_meanwhile, many_guesses_at_a_time_are_worth_five)
{
    for (int i = 0; i < 7; i++)
        start_check("admin", "wrong");
    start_check("admin", "Zentro-admin1");
    clock.finish_work();
    EXPECT_EQ(codes, (bytes{0x82, 0x82, 0x82, 0x82, 0x82, 0x83, 0x83, 0x83}));
}

TEST_F(passwords_meanwhile, one_that_is_replaced_fits_no_more_and_counts_as_no_guess)
{
    start_check("admin", "Zentro-admin1");
    board.from_json({{"users", {{"2", {{"password_hash", ""}}}}}});
    clock.finish_work();
    EXPECT_EQ(codes, bytes{0x82});
    EXPECT_EQ(state_of("users")["2"]["failed_checks"], 0);
}

TEST_F(passwords_meanwhile, one_that_is_set_goes_to_nobody_else)
{
    start(0x06, 0x47, with_password({0x84, 2}, "Marmalade-7"));
    set_name(4, "");
    set_name(4, "other");
    clock.finish_work();
    EXPECT_EQ(codes, bytes{0xCB});
    EXPECT_EQ(state_of("users")["4"]["password_hash"], "");
}

TEST_F(passwords_meanwhile, the_trace_keeps_request_and_answer_together)
{
    const bytes get_name_of_2 = {0x00, 0x18, 0xE8, 0x63, 0x00, 0x46, 0x02, 0x55};
    const auto both = lines(0x30, 0x91, name_and_password(0x00, "admin", "Zentro-admin1"));
    EXPECT_EQ(both, expected{});
    ASSERT_TRUE(take_now(ipmi, get_name_of_2));
    EXPECT_EQ(shown.at(0), "request 06/46 Get User Name: 02 (user 2)");
    EXPECT_EQ(shown.size(), 2U);
    clock.finish_work();
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_TRUE(shown[2].starts_with("request 30/91 Check User Password: "));
    EXPECT_EQ(shown[3], "answer  00 done: D9 7E 00");
}

TEST_F(passwords_of_users, the_user_of_the_traps_keeps_his_name)
{
    const bytes to_guest = {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00, 5, 'g', 'u', 'e', 's', 't'};
    EXPECT_EQ(ask(0x30, 0x93, to_guest), done_oem);
    EXPECT_EQ(set_name(4, ""), (reply{0xD7, {}}));
    EXPECT_EQ(set_name(4, "host"), (reply{0xD7, {}}));
    EXPECT_EQ(set_name(4, "guest"), done);
    EXPECT_EQ(check("guest", "Zentro-guest1"), done_oem);
    EXPECT_EQ(set_name(3, ""), done);
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00, 0}), done_oem);
    EXPECT_EQ(set_name(4, ""), done);
}

TEST_F(passwords_of_users, are_in_the_state_as_hashes_only)
{
    set(2, "Marmalade-7");
    const std::string saved = board.to_json().dump();
    EXPECT_EQ(saved.find("Marmalade"), std::string::npos);
    controller other(clock);
    other.from_json(json::parse(saved));
    EXPECT_EQ(ask_board(other, 0x30, 0x91, name_and_password(0x00, "admin", "Marmalade-7")), done_oem);
}

TEST_F(passwords_of_users, never_show)
{
    control commands(board, faults, ipmi, nullptr);
    const std::string hash = state_of("users")["2"]["password_hash"];
    EXPECT_FALSE(hash.empty());
    for (const char *const question : {"show", "show users"}) {
        const std::string all = commands.answer(question).dump();
        EXPECT_NE(all.find("\"admin\""), std::string::npos);
        EXPECT_EQ(all.find(hash), std::string::npos);
        EXPECT_EQ(all.find("password_hash"), std::string::npos);
        EXPECT_EQ(all.find("$y$"), std::string::npos);
    }
    EXPECT_EQ(commands.answer("show users")["2"].dump(),
              R"({"name":"admin","privilege":4,"enabled":true,"callback_only":false,"link_authentication":false,)"
              R"("messaging":true,"session_limit":0,"failed_checks":0,"locked":false,"senders":{},)"
              R"("short_password":false,"has_password":true})");
    EXPECT_EQ(commands.answer("show users")["6"]["has_password"], false);
}

TEST_F(passwords_of_users, a_tester_may_set_one_in_plain_text)
{
    control commands(board, faults, ipmi, nullptr);
    EXPECT_EQ(commands.answer(R"(set /users/6 {"name": "six", "password": "x y", "enabled": true})").dump(),
              R"({"ok":true})");
    EXPECT_EQ(check("six", "x y"), done_oem);
    EXPECT_EQ(board.to_json().dump().find("x y"), std::string::npos);
    EXPECT_EQ(commands.answer(R"(set /users/6/name "seven")").dump(), R"({"ok":true})");
    EXPECT_EQ(check("seven", "x y"), done_oem);
}

TEST_F(passwords_of_users, refuse_a_state_that_does_not_fit)
{
    for (const json &wrong :
         {json{{"2", {{"password_hash", "plain"}}}}, json{{"2", {{"password_hash", "*0"}}}},
          json{{"2", {{"password_hash", std::string(384, 'a')}}}}, json{{"2", {{"password", "abcdefghij-1234567890"}}}},
          json{{"2", {{"password", "abcdefghij-123456"}, {"short_password", true}}}},
          json{{"2", {{"failed_checks", 5}}}}, json{{"2", {{"senders", 1}}}},
          json{{"2", {{"senders", {{"x", json::object()}}}}}}, json{{"2", {{"senders", {{"65537", json::object()}}}}}},
          json{{"2", {{"senders", {{"", json::object()}}}}}},
          json{{"2", {{"senders", {{"5", {{"failed_checks", 5}}}}}}}},
          json{{"2", {{"senders", {{"5", {{"tries", 5}}}}}}}}, json{{"2", {{"locked", 1}}}},
          json{{"password_rules", "on"}}})
        EXPECT_THROW(board.from_json({{"users", wrong}}), bad_state) << wrong;
    EXPECT_EQ(check("admin", "Zentro-admin1"), done_oem);
}

static std::string masked(size_t count)
{
    std::string made;
    for (size_t i = 0; i < count; i++)
        made += " **";
    return made;
}

TEST_F(passwords_of_users, are_masked_in_the_trace)
{
    EXPECT_EQ(lines(0x06, 0x47, with_password({0x82, 2}, "Marmalade-7")),
              (expected{"request 06/47 Set User Password: 82 02" + masked(20) + " (user 2, set)", "answer  00 done"}));
    EXPECT_EQ(
        lines(0x30, 0x91, name_and_password(0x00, "admin", "Marmalade-7")),
        (expected{"request 30/91 Check User Password: D9 7E 00 11 00 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 "
                  "00" +
                      masked(20) + " (\"admin\")",
                  "answer  00 done: D9 7E 00"}));
    // Of a request that is too long or too short no words, and no more of the secret.
    EXPECT_EQ(
        lines(0x06, 0x47, with_password({0x82, 2}, "Marmalade-7", 21)),
        (expected{"request 06/47 Set User Password: 82 02" + masked(21), "answer  C7 request data length invalid"}));
    EXPECT_EQ(lines(0x06, 0x47, {0x82})[0], "request 06/47 Set User Password: 82");
    EXPECT_EQ(lines(0x06, 0x47, {0x02, 1})[0], "request 06/47 Set User Password: 02 01 (user 2, enable)");
    EXPECT_EQ(lines(0x06, 0x47, {0x02, 9})[0], "request 06/47 Set User Password: 02 09 (user 2, operation 9)");
}

TEST_F(passwords_of_users, words_of_the_rest)
{
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x22, 0})[0],
              "request 30/93 Set Password Rules: D9 7E 00 22 00 (off)");
    const bytes to_admin = {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00, 5, 'a', 'd', 'm', 'i', 'n'};
    EXPECT_EQ(lines(0x30, 0x93, to_admin),
              (expected{"request 30/93 Set Trap User: D9 7E 00 2B 0A 00 05 61 64 6D 69 6E (\"admin\")",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x06, 0x45, with_password({2}, "", 16))[1], "answer  D7 traps go out in this user's name");
}

}  // namespace ipmcd

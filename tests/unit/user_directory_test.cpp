/// Who the controller's users are, and the requests that the account commands share.
#include "user/directory.h"

#include "tests/unit/conversation.h"
#include "user/account.h"

#include <cstring>

static const std::string nobody = " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
static const std::string admin = " 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00";
static const std::string sixteen = " 73 69 78 74 65 65 6E 2D 6C 65 74 74 65 72 73 21";

class user_directory : public conversation
{
protected:
    void SetUp() override
    {
        conversation::SetUp();
        memset(user_table, 0, sizeof user_table);
    }
    void user(unsigned id, const std::string &name, const std::string &access)
    {
        char number[3];
        snprintf(number, sizeof number, "%02X", id);
        wire(std::string("06 46 ") + number, "00" + name);
        wire(std::string("06 44  01 ") + number, "00 11 05 01 " + access);
    }
    void free_slots(unsigned first, unsigned last)
    {
        for (unsigned id = first; id <= last; ++id)
            user(id, nobody, "0F");
    }
};

TEST_F(user_directory, users_2_to_17_are_read_in_order)
{
    user(2, admin, "34");
    user(3, sixteen, "F2");
    free_slots(4, 16);
    user(17, admin, "11");
    EXPECT_EQ(refresh_user_table(), 1);
    EXPECT_EQ(g_error_code, 0U);

    EXPECT_STREQ(user_table[0].name, "");
    EXPECT_STREQ(user_table[1].name, "");
    EXPECT_EQ(user_table[1].privilege, 15);  // the anonymous user, who is not asked about
    EXPECT_STREQ(user_table[2].name, "admin");
    EXPECT_EQ(user_table[2].privilege, 4);  // the low four bits
    EXPECT_STREQ(user_table[3].name, "sixteen-letters!");
    EXPECT_EQ(user_table[3].privilege, 2);
    EXPECT_STREQ(user_table[16].name, "");
    EXPECT_EQ(user_table[16].privilege, 15);
    EXPECT_STREQ(user_table[17].name, "admin");
    EXPECT_EQ(user_table[17].privilege, 1);
}

TEST_F(user_directory, nothing_of_an_earlier_name_stays)
{
    user(2, sixteen, "34");
    free_slots(3, 17);
    EXPECT_EQ(refresh_user_table(), 1);
    user(2, " 62 6F 62", "04");  // an answer that ends early
    free_slots(3, 17);
    EXPECT_EQ(refresh_user_table(), 1);
    EXPECT_EQ(std::string(user_table[2].name, sizeof user_table[2].name), std::string("bob") + std::string(14, '\0'));
}

TEST_F(user_directory, a_failure_leaves_what_was_read_and_what_was_there)
{
    strcpy(user_table[3].name, "old");
    strcpy(user_table[4].name, "older");
    user_table[3].privilege = 3;
    user(2, admin, "04");
    wire("06 46  03", "00" + sixteen);
    wire("06 44  01 03", "D4");
    EXPECT_EQ(refresh_user_table(), 0);
    EXPECT_EQ(g_error_code, 0x064400D4U);
    EXPECT_STREQ(user_table[2].name, "admin");
    EXPECT_STREQ(user_table[3].name, "sixteen-letters!");
    EXPECT_EQ(user_table[3].privilege, 3);
    EXPECT_STREQ(user_table[4].name, "older");
    EXPECT_EQ(user_table[1].privilege, 15);
}

TEST_F(user_directory, failures_of_the_reading)
{
    wire("06 46  02", "CC");
    EXPECT_EQ(refresh_user_table(), 0);
    EXPECT_EQ(g_error_code, 0x064600CCU);
    wire("06 46  02", "unsent");
    EXPECT_EQ(refresh_user_table(), 0);
    EXPECT_EQ(g_error_code, 0x40000000U);
    wire("06 46  02", "00" + admin);
    wire("06 44  01 02", "silent");
    EXPECT_EQ(printed([] { EXPECT_EQ(refresh_user_table(), 0); }), "Select OutTime \r\n");
    EXPECT_EQ(g_error_code, 0x40000001U);
}

TEST_F(user_directory, users_are_found_by_their_whole_name_to_the_letter)
{
    strcpy(user_table[0].name, "zero");
    strcpy(user_table[1].name, "one");
    strcpy(user_table[2].name, "admin");
    strcpy(user_table[5].name, "sixteen-letters!");
    strcpy(user_table[9].name, "admin");
    strcpy(user_table[17].name, "last");
    const struct {
        const char *name;
        unsigned id;
    } facts[] = {
        {"admin", 2},
        {"sixteen-letters!", 5},
        {"last", 17},
        {"Admin", 18},
        {"admi", 18},
        {"admin ", 18},
        {"", 18},
        {"zero", 18},
        {"one", 18},
        {"las", 18},
        {"sixteen-letters", 18},
        {"sixteen-letters!!", 18},
    };
    for (const auto &[name, id] : facts)
        EXPECT_EQ(find_user(name), id) << name;
}

TEST_F(user_directory, a_name_is_set_patiently)
{
    wire("06 45  04" + sixteen, "00");
    EXPECT_EQ(set_user_name(4, "sixteen-letters!"), 1);
    EXPECT_EQ(g_error_code, 0U);
    wire("06 45  11" + nobody, "D7");
    EXPECT_EQ(set_user_name(17, ""), 0);
    EXPECT_EQ(g_error_code, 0x064500D7U);
    wire("06 45  04" + admin, "unsent");
    EXPECT_EQ(set_user_name(4, "admin"), 0);
    EXPECT_EQ(g_error_code, 0x40000000U);

    stub.receives = 0;
    wire("06 45  04" + admin, "silent");
    EXPECT_EQ(printed([] { EXPECT_EQ(set_user_name(4, "admin"), 0); }), "Select OutTime \r\n");
    EXPECT_EQ(g_error_code, 0x40000001U);
    EXPECT_EQ(stub.receives, 25U);  // five waits for each of five sends
}

TEST_F(user_directory, a_user_is_enabled_with_sixteen_bytes_for_no_password)
{
    wire("06 47  11 01" + nobody, "00");
    EXPECT_TRUE(exchange(enable_user_request(17)).ok());
}

TEST_F(user_directory, password_rules)
{
    EXPECT_EQ(printed(print_password_rules), "Invalid Password:\r\n"
                                             "1) Contains 8-20 characters.\r\n"
                                             "2) Contains at least one space or one of the following special "
                                             "characters:`~!@#$%^&*()-_=+\\|[{}];:'\",<.>/?\r\n"
                                             "3) Contains at least two types of the following characters:\r\n"
                                             "   - Letters:a to z;\r\n"
                                             "   - Letters:A to Z;\r\n"
                                             "   - Digits:0 to 9;\r\n"
                                             "4) Password can not be the reverse of the account or accounts.\r\n");
}

TEST(repeat_count, the_shortest_unit_that_makes_the_whole_text_is_counted)
{
    const struct {
        const char *text;
        unsigned count;
    } facts[] = {
        {"", 1},
        {"a", 1},
        {"aa", 2},
        {"ab", 1},
        {"aaa", 3},
        {"aba", 1},
        {"abab", 2},
        {"abba", 1},
        {"ababab", 3},
        {"abcabc", 2},
        {"abcabd", 1},
        {"abcab", 1},
        {"zzzzzzzz", 8},
        {"zzzzzzzy", 1},
        {"yzzzzzzz", 1},
        {"abcdabcd", 2},
        {"abcdabcx", 1},
        {"abababababab", 6},
        {"ababababa", 1},
        {"abaaba", 2},
        {"abcdabcdabc", 1},
        {"aaaaaaaaaaaaaaaaaaaa", 20},
        {"aaaaaaaaaaaaaaaaaaab", 1},
        {"abcdefghijabcdefghij", 2},
        {"aabaabaab", 3},
    };
    for (const auto &[text, count] : facts)
        EXPECT_EQ(repeat_count(text, strlen(text)), count) << text;
}

TEST(repeat_count, so_many_bytes_are_looked_at_whatever_they_are)
{
    EXPECT_EQ(repeat_count("ababX", 4), 2U);
    EXPECT_EQ(repeat_count("a\0a\0", 4), 2U);
    EXPECT_EQ(repeat_count("\0\0\0", 3), 3U);
    EXPECT_EQ(repeat_count(nullptr, 0), 1U);
    EXPECT_EQ(repeat_count(nullptr, 4), 1U);
}

/// Rules of passwords and of communities, and how passwords are kept.
#include "ipmcd/families/password.h"

#include <gtest/gtest.h>

namespace ipmcd
{

struct judged {
    const char *text;
    bool good;
    const char *why;
};

TEST(password_rules, say_what_a_password_is_made_of)
{
    const judged facts[] = {
        {"abcd-12", false, "seven characters"},
        {"abcd-123", true, "eight: small letters, digits, a special character"},
        {"ABCD 123", true, "a blank counts as special"},
        {"abcdEFGH,", true, "letters of both sizes"},
        {"abcdefg1", false, "nothing special"},
        {"abcdefg-", false, "small letters only"},
        {"ABCDEFG-", false, "large letters only"},
        {"1234567-", false, "digits only"},
        {"--------", false, "special characters only"},
        {"abcdefghij-123456789", true, "twenty characters"},
        {"abcdefghij-1234567890", false, "twenty-one"},
        {"op-erator1", false, "the name of the account"},
        {"1rotare-po", false, "the name backwards"},
        {"1rotare-pO", true, "case counts"},
        {"1rotare-po-", true, "more than the name backwards"},
        {"", false, "nothing"},
    };
    for (const judged &fact : facts)
        EXPECT_EQ(is_good_password(fact.text, "op-erator1"), fact.good) << fact.text << ": " << fact.why;
}

TEST(password_rules, count_each_of_the_special_characters)
{
    const std::string special = "`~!@#$%^&*()-_=+\\|[{}];:'\",<.>/? ";
    for (int c = 0x20; c <= 0x7E; c++) {
        if (isalnum(c))
            continue;
        EXPECT_NE(special.find(char(c)), std::string::npos) << char(c);  // no other printable ones are left
        EXPECT_TRUE(is_good_password(std::string("abcdef1") + char(c), "")) << char(c);
        EXPECT_EQ(is_good_community(std::string("abcdef1") + char(c)), c != ' ') << char(c);
    }
}

TEST(community_rules, say_what_a_community_is_made_of)
{
    const judged facts[] = {
        {"abcd-12", false, "seven characters"},   {"abcd-123", true, "eight"},
        {"abcdefgh-123456789", true, "eighteen"}, {"abcdefgh-1234567890", false, "nineteen"},
        {"ab cd-123", false, "a blank"},          {"abcdefg1", false, "nothing special"},
        {"abcdefg-", false, "one kind"},          {"ABCd-efg", true, "letters of both sizes"},
    };
    for (const judged &fact : facts)
        EXPECT_EQ(is_good_community(fact.text), fact.good) << fact.text << ": " << fact.why;
}

TEST(passwords, are_kept_as_hashes_with_a_salt_each)
{
    const std::string one = hash_password("abcd-123"), other = hash_password("abcd-123");
    EXPECT_NE(one, other);
    for (const std::string &hash : {one, other}) {
        EXPECT_EQ(hash.find("abcd-123"), std::string::npos);
        EXPECT_TRUE(is_password("abcd-123", hash));
        EXPECT_FALSE(is_password("abcd-124", hash));
        EXPECT_FALSE(is_password("", hash));
    }
}

TEST(passwords, a_hash_made_elsewhere_is_taken)
{
    // openssl passwd -5 -salt saltstring 'Hello world!'
    const std::string known = "$5$saltstring$5B8vYYiY.CVt1RlTTf8KbXBH3hsxY/GNooZaBBGWEc5";
    EXPECT_TRUE(is_password_hash(known));
    EXPECT_TRUE(is_password("Hello world!", known));
    EXPECT_FALSE(is_password("Hello world", known));
}

TEST(passwords, no_hash_fits_nothing)
{
    for (const char *const text : {"", "*", "*0", "!", "x", "plaintext", "no hash"}) {
        EXPECT_FALSE(is_password_hash(text)) << text;
        EXPECT_FALSE(is_password("", text)) << text;
        EXPECT_FALSE(is_password(text, text)) << text;
    }
}

}  // namespace ipmcd

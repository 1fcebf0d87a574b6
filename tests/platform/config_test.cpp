#include "platform/platform.h"
#include "tests/platform/test_folder.h"

#include <cstring>
#include <sys/stat.h>
#include <vector>

namespace
{

class config : public test_folder
{
protected:
    ~config() override { CfgFileClose(file); }

    void open_text(const std::string &text)
    {
        CfgFileClose(file);
        file = CfgFileOpenReadOnly(write("conf", text).c_str());
        ASSERT_NE(file, nullptr);
    }
    /// Position and value, "5:text"; "-" when it is not found.
    std::string search(long start, const char *key, const char *separator = "=") const
    {
        char *value = nullptr;
        int found = 7;
        const long position = KeySearch(file, start, key, separator, &value, &found);
        EXPECT_EQ(found, position != 0 ? 1 : 0);
        EXPECT_NE(value, nullptr);
        if (position == 0) {
            EXPECT_STREQ(value, "");
            return "-";
        }
        return std::to_string(position) + ":" + value;
    }
    std::string value_in(const std::string &text, const char *key)
    {
        open_text(text);
        return search(0, key);
    }

    void *file = nullptr;
};

TEST_F(config, a_board_profile_is_read)
{
    open_text("[FRU_PROPERTITY]\nFru_Num=3\n[FAN_PROPERTITY]\nFAN_MinLevel=20\n[MAC_PROPERTITY]\nMAC_Num=2\n"
              "MAC_Name=NIC\n");
    EXPECT_EQ(search(0, "[FRU_PROPERTITY]"), "1:");
    EXPECT_EQ(search(1, "Fru_Num"), "18:3");
    EXPECT_EQ(search(1, "[FAN_PROPERTITY]"), "28:");
    EXPECT_EQ(search(28, "FAN_MinLevel"), "45:20");
    EXPECT_EQ(search(28, "[MAC_PROPERTITY]"), "61:");
    EXPECT_EQ(search(61, "MAC_Num"), "78:2");
    EXPECT_EQ(search(61, "MAC_Name"), "88:NIC");
    EXPECT_EQ(search(61, "[FAN_PROPERTITY]"), "-") << "not backwards";
}

TEST_F(config, keys_end_at_the_next_section)
{
    open_text("top=1\n[A]\na=2\n[B]\nb=3\n");
    EXPECT_EQ(search(0, "top"), "1:1");
    EXPECT_EQ(search(0, "a"), "-");
    EXPECT_EQ(search(7, "a"), "11:2");
    EXPECT_EQ(search(7, "b"), "-");
    EXPECT_EQ(search(11, "a"), "11:2") << "at the start itself";
    EXPECT_EQ(search(12, "a"), "-") << "before the start";
    EXPECT_EQ(search(15, "b"), "19:3");
    EXPECT_EQ(search(14, "b"), "-") << "the section line lies behind the start";
}

TEST_F(config, a_section_is_found_at_its_start_again)
{
    open_text("  [A]\n\t[B] ; words\n[C]x=1\n");
    EXPECT_EQ(search(0, "[A]"), "3:");
    EXPECT_EQ(search(3, "[A]"), "3:");
    EXPECT_EQ(search(4, "[A]"), "-");
    EXPECT_EQ(search(0, "[B]"), "8:");
    EXPECT_EQ(search(0, "[C]"), "20:");
}

TEST_F(config, only_a_section_line_is_a_section)
{
    open_text("# [A]\n;[A]\nx=[A]\nx [A]\n[AA]\n[A\n[a]\n");
    EXPECT_EQ(search(0, "[A]"), "-");
    EXPECT_EQ(search(0, "[A"), "29:") << "a line without its bracket is the section it says";
    EXPECT_EQ(search(0, "[AA"), "-");
}

TEST_F(config, values_are_taken_between_blanks)
{
    EXPECT_EQ(value_in("k=v\n", "k"), "1:v");
    EXPECT_EQ(value_in("k = v w \n", "k"), "1:v w");
    EXPECT_EQ(value_in("\t k\t=\tv\t\n", "k"), "3:v");
    EXPECT_EQ(value_in("k=v\r\n", "k"), "1:v");
    EXPECT_EQ(value_in("k=v", "k"), "1:v");
    EXPECT_EQ(value_in("k=", "k"), "1:");
    EXPECT_EQ(value_in("k=\r\n", "k"), "1:");
    EXPECT_EQ(value_in("k", "k"), "1:");
    EXPECT_EQ(value_in("k  \r\n", "k"), "1:");
    EXPECT_EQ(value_in("k=a=b", "k"), "1:a=b");
    EXPECT_EQ(value_in("k==b", "k"), "1:=b");
    EXPECT_EQ(value_in("k=#1;2", "k"), "1:#1;2") << "no comment inside a line";
    EXPECT_EQ(value_in("k=1\nk=2\n", "k"), "1:1") << "the first counts";
    EXPECT_EQ(value_in("\n\r\n \nk=1", "k"), "6:1");
}

TEST_F(config, other_lines_are_no_keys)
{
    for (const char *text : {"", "\n", "#k=1", " ;k=1", "kk=1", "k1=1", "xk=1", "K=1", "k 1", "k 1=2", "=k", "k:1"})
        EXPECT_EQ(value_in(text, "k"), "-") << text;
    EXPECT_EQ(value_in("#k=1", "#k"), "-") << "a comment, whoever asks";
}

TEST_F(config, other_separators_serve_too)
{
    open_text("a: 1\nb := 2\nc 3\nd\n");
    EXPECT_EQ(search(0, "a", ":"), "1:1");
    EXPECT_EQ(search(0, "b", ":="), "6:2");
    EXPECT_EQ(search(0, "b", ""), "6::= 2");
    EXPECT_EQ(search(0, "c", nullptr), "13:3");
    EXPECT_EQ(search(0, "d", nullptr), "17:");
}

TEST_F(config, binary_bytes_do_no_harm)
{
    const std::string zero(1, '\0');
    EXPECT_EQ(value_in("\xFF\xFE" + zero + "=\n" + zero + zero + "\nk=1\n", "k"), "9:1");
    EXPECT_EQ(value_in("k=1" + zero + "2\n", "k"), "1:1");
    std::string all;
    for (int n = 0; n < 4096; ++n)
        all += char(n * 31 + n / 256);
    EXPECT_NE(value_in(all + "\nk=1\n", "k"), "");
}

TEST_F(config, starts_out_of_the_file_find_nothing)
{
    open_text("k=1\n");
    for (const long start : {5L, 6L, 1000L, 0x7FFFFFFFL, __LONG_MAX__})
        EXPECT_EQ(search(start, "k"), "-") << start;
    for (const long start : {0L, -1L, -__LONG_MAX__ - 1})
        EXPECT_EQ(search(start, "k"), "1:1") << start;
}

TEST_F(config, missing_arguments_are_borne)
{
    open_text("k=1\n[S]\n");
    char *value = nullptr;
    int found = 7;
    EXPECT_EQ(KeySearch(file, 0, "k", "=", nullptr, nullptr), 1);
    EXPECT_EQ(KeySearch(file, 0, nullptr, "=", &value, &found), 0);
    EXPECT_EQ(found, 0);
    EXPECT_STREQ(value, "");
    EXPECT_EQ(KeySearch(file, 0, "", "=", &value, &found), 0);
    EXPECT_EQ(KeySearch(nullptr, 0, "k", "=", &value, &found), 0);
    CfgFileClose(nullptr);
}

TEST_F(config, values_last_as_long_as_the_file)
{
    open_text("a=first\nb=second\nc=third");
    std::vector<char *> values;
    for (const char *key : {"a", "b", "c", "a"}) {
        values.push_back(nullptr);
        KeySearch(file, 0, key, "=", &values.back(), nullptr);
    }
    EXPECT_STREQ(values[0], "first");
    EXPECT_STREQ(values[1], "second");
    EXPECT_STREQ(values[2], "third");
    EXPECT_EQ(search(0, "b"), "9:second") << "the text is as it was";
}

TEST_F(config, only_regular_files_of_a_bounded_size_are_opened)
{
    mkfifo(path("fifo").c_str(), 0600);
    for (const std::string &wrong :
         {path("absent"), folder, path("fifo"), std::string("/dev/zero"), std::string("/dev/null"), std::string()})
        EXPECT_EQ(CfgFileOpenReadOnly(wrong.c_str()), nullptr) << wrong;
    EXPECT_EQ(CfgFileOpenReadOnly(nullptr), nullptr);

    open_text("k=1\n" + std::string((1 << 20) - 4, 'x'));
    EXPECT_EQ(search(0, "k"), "1:1");
    EXPECT_EQ(CfgFileOpenReadOnly(write("huge", std::string((1 << 20) + 1, 'x')).c_str()), nullptr);
}

}  // namespace

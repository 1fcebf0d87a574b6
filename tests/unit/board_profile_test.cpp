#include "system/board_profile.h"

#include "tests/unit/platform_stub.h"

#include <gtest/gtest.h>

class board_file : public testing::Test
{
protected:
    void SetUp() override
    {
        reset_stub();
        board = {};
    }
    void TearDown() override { board = {}; }
};

TEST_F(board_file, every_value)
{
    stub.config = {{1, "[FRU_PROPERTITY]", ""}, {2, "Fru_Num", "3"},         {3, "[FAN_PROPERTITY]", ""},
                   {4, "FAN_MinLevel", "25"},   {5, "[MAC_PROPERTITY]", ""}, {6, "MAC_Num", "2"},
                   {7, "MAC_Name", "eth"}};
    EXPECT_EQ(printed(read_board_profile), "");
    EXPECT_EQ(board.fru_count, 3);
    EXPECT_EQ(board.min_fan_level, 25);
    EXPECT_EQ(board.mac_count, 2);
    EXPECT_STREQ(board.mac_name, "eth");
}

TEST_F(board_file, missing_sections)
{
    EXPECT_EQ(printed(read_board_profile), "");
    EXPECT_EQ(board.fru_count, 1);
    EXPECT_EQ(board.min_fan_level, 0);
    EXPECT_EQ(board.mac_count, 0);
    EXPECT_STREQ(board.mac_name, "");
}

TEST_F(board_file, missing_keys)
{
    stub.config = {{1, "[FRU_PROPERTITY]", ""}, {2, "[FAN_PROPERTITY]", ""}, {3, "[MAC_PROPERTITY]", ""}};
    EXPECT_EQ(printed(read_board_profile), "\r\nGet MAC_Num fail \r\n\r\nGet MAC_Name fail 2\r\n");
    EXPECT_EQ(board.fru_count, 1);
    EXPECT_EQ(board.min_fan_level, 30);
    EXPECT_EQ(board.mac_count, 10);
    EXPECT_STREQ(board.mac_name, "NIC");
}

TEST_F(board_file, empty_values_are_missing_ones)
{
    stub.config = {{1, "[FRU_PROPERTITY]", ""}, {2, "Fru_Num", ""},          {3, "[FAN_PROPERTITY]", ""},
                   {4, "FAN_MinLevel", ""},     {5, "[MAC_PROPERTITY]", ""}, {6, "MAC_Num", ""},
                   {7, "MAC_Name", ""}};
    stub.mac_num = 4;
    EXPECT_EQ(printed(read_board_profile), "\r\nGet MAC_Num fail \r\n\r\nGet MAC_Name fail 2\r\n");
    EXPECT_EQ(board.fru_count, 1);
    EXPECT_EQ(board.min_fan_level, 30);
    EXPECT_EQ(board.mac_count, 4);  // the board knows better
    EXPECT_STREQ(board.mac_name, "NIC");
}

TEST_F(board_file, values_without_a_text_are_missing_ones_too)
{
    stub.config = {{1, "[FRU_PROPERTITY]", ""},
                   {2, "Fru_Num", "3", false},
                   {3, "[FAN_PROPERTITY]", ""},
                   {4, "FAN_MinLevel", "25", false}};
    EXPECT_EQ(printed(read_board_profile), "");
    EXPECT_EQ(board.fru_count, 1);
    EXPECT_EQ(board.min_fan_level, 30);
}

TEST_F(board_file, numbers_are_what_the_values_begin_with)
{
    struct {
        const char *value;
        int32_t number;
    } const facts[] = {
        {"7", 7},
        {" 7 ", 7},
        {"-7", -7},
        {"7x", 7},
        {"x", 0},
        {"0x7", 0},
        {" ", 0},
        {"2147483648", 2147483647},
        {"-99999999999999999999", -2147483647 - 1},
    };
    for (const auto &fact : facts) {
        stub.config = {{1, "[FRU_PROPERTITY]", ""}, {2, "Fru_Num", fact.value}};
        read_board_profile();
        EXPECT_EQ(board.fru_count, fact.number) << fact.value;
    }
}

TEST_F(board_file, interface_name_is_cut_to_127_characters)
{
    stub.config = {{1, "[MAC_PROPERTITY]", ""}, {2, "MAC_Num", "1"}, {3, "MAC_Name", std::string(100000, 'n')}};
    read_board_profile();
    EXPECT_EQ(board.mac_name, std::string(127, 'n'));
}

/// Sections are found from where the one before was found, so that only this order is understood.
TEST_F(board_file, order_of_sections)
{
    const platform_stub::config_line fru{0, "[FRU_PROPERTITY]", ""}, fan{0, "[FAN_PROPERTITY]", ""},
        mac{0, "[MAC_PROPERTITY]", ""};
    struct {
        std::vector<platform_stub::config_line> lines;
        int32_t min_fan_level, mac_count;  // 30 and 10 where the section is found
    } const facts[] = {
        {{fru, fan, mac}, 30, 10}, {{fru, mac, fan}, 30, 0}, {{fan, fru, mac}, 0, 10}, {{fan, mac, fru}, 0, 10},
        {{mac, fru, fan}, 30, 0},  {{mac, fan, fru}, 0, 10}, {{fan, mac}, 30, 10},     {{mac, fan}, 30, 0},
        {{mac, fru}, 0, 10},       {{fru, mac}, 0, 10},
    };
    for (const auto &fact : facts) {
        board = {};
        stub.config = fact.lines;
        std::string order;
        for (size_t n = 0; n < stub.config.size(); ++n) {
            stub.config[n].position = long(n) + 1;
            order += stub.config[n].key;
        }
        printed(read_board_profile);
        EXPECT_EQ(board.min_fan_level, fact.min_fan_level) << order;
        EXPECT_EQ(board.mac_count, fact.mac_count) << order;
    }
}

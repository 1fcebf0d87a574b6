/// docs/ipmcd.md leaves nothing out.
#include "ipmcd/options.h"
#include "tests/ipmcd/board.h"

#include <fstream>

namespace ipmcd
{

struct docs : board_test {
    const std::string page = [] {
        std::ifstream in(SOURCE_FOLDER "/docs/ipmcd.md");
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    bool say(const std::string &words) const { return page.find(words) != std::string::npos; }
};

TEST_F(docs, have_a_row_for_each_command_and_its_family)
{
    controller spare(clock, all_families(), [] {
        board_description both = load_board("default");
        both.source = sdr_source::both;
        return both;
    }());
    for (const auto &make : all_families()) {
        const auto family = make(spare);
        for (const command &row : family->commands()) {
            const std::string expected =
                text("| `%s` | %02X/%02X | %s |", family->name(), row.netfn, row.number, row.name);
            EXPECT_TRUE(say(expected)) << expected;
        }
    }
}

TEST_F(docs, name_each_option)
{
    const std::string all = usage;
    for (size_t at = all.find("--"); at != std::string::npos; at = all.find("--", at + 2)) {
        const std::string option = all.substr(at, all.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at) - at);
        EXPECT_TRUE(say("`" + option) || say("`ipmcd " + option)) << option;
    }
}

TEST_F(docs, show_a_board_that_can_be_read)
{
    const size_t start = page.find("    {\n        \"board\": \"mine\"");
    ASSERT_NE(start, std::string::npos);
    const std::string example = page.substr(start, page.find("\n    }\n", start) + 7 - start);
    const board_description board_in_docs = read_board(json::parse(example));
    EXPECT_EQ(board_in_docs.name, "mine");
    EXPECT_EQ(board_in_docs.source, sdr_source::device);
    EXPECT_EQ(board_in_docs.sensors[0].thresholds[4], 220);  // 13.2 V in steps of 0.06 V
}

}  // namespace ipmcd

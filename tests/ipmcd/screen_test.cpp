#include "tests/ipmcd/traced.h"

#include <fstream>

namespace ipmcd
{

struct screen : traced {
    reply snapshot(uint8_t wake_up = 0) { return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x03, 0x00, wake_up}); }
    std::string picture(const char *name) const
    {
        std::ifstream in(disk.path() / "tmp/screen" / name);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    scratch_folder disk;
    const reply done{0x00, {0xD9, 0x7E, 0x00}};
    // A portable pixmap: header, then three bytes for each of 32 x 18 points.
    const std::string grey = "P6 32 18 255\n" + std::string(1728, '\x60');
    const std::string black = "P6 32 18 255\n" + std::string(1728, '\0');
};

TEST_F(screen, snapshots_go_to_the_disk)
{
    board.use_disk(disk.path());
    EXPECT_EQ(snapshot(), done);
    EXPECT_EQ(snapshot(), done);
    EXPECT_EQ(names_in(disk.path() / "tmp/screen"), (std::set<std::string>{"snapshot1.ppm", "snapshot2.ppm"}));
    EXPECT_EQ(picture("snapshot1.ppm"), grey);
}

TEST_F(screen, a_screen_asleep_is_black_until_it_is_woken_up)
{
    board.use_disk(disk.path());
    board.from_json({{"screen", {{"asleep", true}}}});
    snapshot(0);
    snapshot(1);
    snapshot(0);
    EXPECT_EQ(picture("snapshot1.ppm"), black);
    EXPECT_EQ(picture("snapshot2.ppm"), grey);
    EXPECT_EQ(picture("snapshot3.ppm"), grey);
}

TEST_F(screen, without_a_disk_snapshots_are_only_counted)
{
    EXPECT_EQ(snapshot(), done);
    EXPECT_EQ(state_of("screen").dump(), R"({"asleep":false,"snapshots":1})");
}

TEST_F(screen, a_host_without_power_has_no_picture)
{
    ask(0x00, 0x02, {0});
    EXPECT_EQ(snapshot(), (reply{0xD5, {}}));
    EXPECT_EQ(state_of("screen")["snapshots"], 0);
}

TEST_F(screen, a_picture_that_cannot_be_written_is_an_error)
{
    board.use_disk(disk / "none");
    EXPECT_EQ(snapshot(), (reply{0xFF, {}}));
    EXPECT_EQ(state_of("screen")["snapshots"], 0);
}

TEST_F(screen, wake_up_is_0_or_1)
{
    EXPECT_EQ(snapshot(2), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x03, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x03, 0x00, 0x00, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(state_of("screen")["snapshots"], 0);
}

TEST_F(screen, has_its_state_in_json)
{
    board.from_json({{"screen", {{"asleep", true}, {"snapshots", 41}}}});
    snapshot();
    EXPECT_EQ(state_of("screen").dump(), R"({"asleep":true,"snapshots":42})");
    board.reset();
    EXPECT_EQ(state_of("screen").dump(), R"({"asleep":false,"snapshots":0})");
    EXPECT_THROW(board.from_json({{"screen", {{"asleep", 1}}}}), bad_state);
}

TEST_F(screen, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 3, 0, 1}),
              (expected{"request 30/93 Save Screen Snapshot: D9 7E 00 03 00 01 (woken up first)",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 3, 0, 0})[0],
              "request 30/93 Save Screen Snapshot: D9 7E 00 03 00 00 (as it is)");
}

}  // namespace ipmcd

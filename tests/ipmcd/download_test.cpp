#include "tests/ipmcd/traced.h"

#include <cstdio>
#include <fstream>

namespace ipmcd
{

using namespace std::chrono_literals;

struct download : traced {
    download() { board.use_disk(folder.path()); }

    static constexpr uint8_t console = 0, black_box = 1, video = 2, pictures = 3;

    reply collect(uint8_t what, uint8_t action) { return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x1F, what, action}); }
    reply start(uint8_t what) { return collect(what, 0); }
    reply progress(uint8_t what) { return collect(what, 1); }
    reply size(uint8_t what) { return collect(what, 2); }
    reply enabled() { return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x10, 0x0C, 0x01, 0x00, 0x00, 0x01}); }
    static reply status(uint8_t how, uint8_t percent) { return {0x00, {0xD9, 0x7E, 0x00, how, percent}}; }
    void change(const json &fields) { board.from_json({{"download", fields}}); }
    bool is_file(const char *name) const { return std::filesystem::is_regular_file(folder / name); }
    std::string content_of(const char *name) const
    {
        std::ifstream in(folder / name);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    scratch_folder folder;
    const reply started{0x00, {0xD9, 0x7E, 0x00}}, nothing{0xCB, {}}, busy{0xC0, {}}, invalid{0xCC, {}},
        not_now{0xD5, {}}, disabled{0xD6, {}};
};

TEST_F(download, of_the_console_takes_three_seconds)
{
    change({{"console", 40}});
    EXPECT_EQ(start(console), started);
    EXPECT_EQ(progress(console), status(1, 0));
    clock.advance(1500ms);
    EXPECT_EQ(progress(console), status(1, 50));
    clock.advance(1499ms);
    EXPECT_EQ(progress(console), status(1, 99));
    EXPECT_FALSE(is_file("tmp/sol.dat"));
    clock.advance(1ms);
    EXPECT_EQ(progress(console), status(0, 100));
    EXPECT_EQ(progress(console), status(0, 100));  // as often as anybody asks
    EXPECT_EQ(content_of("tmp/sol.dat"), "console, line 1\r\nconsole, line 2\r\nconsol");
}

TEST_F(download, of_the_black_box_is_an_archive)
{
    change({{"black_box", 1000}});
    EXPECT_EQ(start(black_box), started);
    clock.advance(3s);
    EXPECT_EQ(progress(black_box), status(0, 100));
    const std::string list = "tar -tvf " + (folder / "tmp/blackbox.tar").string();
    FILE *const listing = popen(list.c_str(), "r");
    ASSERT_NE(listing, nullptr);
    std::array<char, 128> line{};
    EXPECT_NE(fgets(line.data(), line.size(), listing), nullptr);
    EXPECT_EQ(pclose(listing), 0);
    const std::string listed = line.data();
    EXPECT_TRUE(listed.starts_with("-rw-r--r--") && listed.ends_with(" blackbox.txt\n")) << listed;
    EXPECT_NE(listed.find(" 1000 "), std::string::npos) << listed;
}

TEST_F(download, of_video_and_pictures_is_there_at_once)
{
    EXPECT_EQ(start(video), started);
    EXPECT_EQ(content_of("tmp/video/video.dat").size(), 20000U);
    EXPECT_EQ(progress(video), not_now);
    EXPECT_EQ(start(pictures), nothing);
    ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x03, 0x00, 0x00});  // Save Screen Snapshot
    EXPECT_EQ(start(pictures), started);
    EXPECT_TRUE(is_file("tmp/screen/snapshot1.ppm"));
}

TEST_F(download, one_at_a_time)
{
    start(console);
    for (const uint8_t what : {console, black_box, video})
        EXPECT_EQ(start(what), busy) << int(what);
    EXPECT_EQ(progress(black_box), not_now);
    clock.advance(3s);
    EXPECT_EQ(start(black_box), started);
    EXPECT_EQ(progress(console), not_now);
}

TEST_F(download, needs_data)
{
    change({{"console", 0}, {"black_box", 0}, {"video", 0}});
    for (const uint8_t what : {console, black_box, video, pictures})
        EXPECT_EQ(start(what), nothing) << int(what);
    EXPECT_EQ(progress(console), not_now);
}

TEST_F(download, the_black_box_can_be_disabled)
{
    EXPECT_EQ(enabled(), (reply{0x00, {0xD9, 0x7E, 0x00, 0x01, 0x01}}));
    EXPECT_EQ(size(black_box), (reply{0x00, {0xD9, 0x7E, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00}}));  // 65536
    change({{"black_box_enabled", false}});
    EXPECT_EQ(enabled(), (reply{0x00, {0xD9, 0x7E, 0x00, 0x01, 0x00}}));
    EXPECT_EQ(size(black_box), disabled);
    EXPECT_EQ(start(black_box), disabled);
    EXPECT_EQ(start(console), started);
}

TEST_F(download, a_new_collection_replaces_the_file_of_the_last_one)
{
    std::filesystem::create_directory(folder / "tmp");
    std::ofstream(folder / "elsewhere") << "precious";
    std::filesystem::create_symlink(folder / "elsewhere", folder / "tmp/sol.dat");
    for (int i = 0; i < 2; i++) {
        start(console);
        clock.advance(3s);
        EXPECT_EQ(progress(console), status(0, 100));
        EXPECT_EQ(content_of("tmp/sol.dat").size(), 6000U);
    }
    EXPECT_EQ(content_of("elsewhere"), "precious");
}

TEST_F(download, a_file_that_cannot_be_written_is_a_failure)
{
    std::filesystem::create_directories(folder / "tmp/sol.dat");
    start(console);
    clock.advance(3s);
    EXPECT_EQ(progress(console), status(2, 0));
    std::ofstream(folder / "tmp/video") << "in the way";
    EXPECT_EQ(start(video), (reply{0xFF, {}}));
    EXPECT_EQ(start(black_box), started);
}

TEST_F(download, a_cold_reset_ends_it)
{
    start(console);
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_EQ(progress(console), not_now);
    clock.advance(10s);
    EXPECT_FALSE(is_file("tmp/sol.dat"));
    EXPECT_EQ(start(console), started);
}

TEST_F(download, knows_four_kinds_and_three_actions)
{
    EXPECT_EQ(start(4), invalid);
    EXPECT_EQ(collect(console, 3), invalid);
    EXPECT_EQ(size(console), invalid);  // only the black box tells its size
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x1F, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x1F, 0, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x10, 0x0C, 0x01, 0x00, 0x00, 0x01, 0x00}), (reply{0xC7, {}}));
}

TEST_F(download, has_its_state_in_json)
{
    const json factory = state_of("download");
    EXPECT_EQ(factory.dump(), R"({"phase":"idle","what":"console","duration_ms":3000,"black_box_enabled":true,)"
                              R"("console":6000,"black_box":65536,"video":20000})");
    start(black_box);
    clock.advance(2s);
    const json saved = state_of("download");
    EXPECT_EQ(saved["phase"], "running");
    board.reset();
    EXPECT_EQ(state_of("download"), factory);
    change(saved);
    EXPECT_EQ(progress(black_box), status(1, 0));  // it starts anew
    clock.advance(3s);
    EXPECT_EQ(state_of("download")["phase"], "done");
    for (const json &wrong : {json{{"phase", "asleep"}}, json{{"what", "video"}}, json{{"duration_ms", -1}},
                              json{{"console", (16 << 20) + 1}}, json{{"black_box_enabled", 1}}, json{{"size", 1}}})
        EXPECT_THROW(change(wrong), bad_state) << wrong;
}

TEST_F(download, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x1F, 1, 0}),
              (expected{"request 30/93 Collect Data: D9 7E 00 1F 01 00 (black_box, start)",
                        "answer  00 done: D9 7E 00 (started)"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x1F, 1, 1}),
              (expected{"request 30/93 Collect Data: D9 7E 00 1F 01 01 (black_box, how far is it)",
                        "answer  00 done: D9 7E 00 01 00 (in progress, 0 %)"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x1F, 1, 2}),
              (expected{"request 30/93 Collect Data: D9 7E 00 1F 01 02 (black_box, size)",
                        "answer  00 done: D9 7E 00 00 00 00 01 00 (65536 bytes)"}));
    clock.advance(3s);
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x1F, 1, 1})[1], "answer  00 done: D9 7E 00 00 64 (done, 100 %)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x1F, 7, 9})[0],
              "request 30/93 Collect Data: D9 7E 00 1F 07 09 (data 7, action 9)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x10, 0x0C, 1, 0, 0, 1}),
              (expected{"request 30/93 Get Black Box State: D9 7E 00 10 0C 01 00 00 01",
                        "answer  00 done: D9 7E 00 01 01 (enabled)"}));
}

}  // namespace ipmcd

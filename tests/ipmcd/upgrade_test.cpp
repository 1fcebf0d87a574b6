#include "tests/ipmcd/traced.h"

#include <fstream>

namespace ipmcd
{

using namespace std::chrono_literals;

struct upgrade : traced {
    upgrade()
    {
        std::filesystem::create_directory(folder / "tmp");
        board.use_disk(folder.path());
    }

    /// 1000 zeros, whose checksum by cksum(1) is 2610763910.
    void write_image(const std::string &component = "1", const std::string &cksum = "2610763910 1000",
                     size_t length = 1000, const char *name = "tmp/image.hpm")
    {
        std::ofstream(folder / name) << "ipmcd image 1\ncomponent " << component << "\nversion 1.05\ncksum " << cksum
                                     << "\n\n" + std::string(length, '\0');
    }
    reply piece(uint8_t offset, const std::string &characters)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x06, 0xAA, 0x00, 0x00, offset, uint8_t(characters.size())};
        data.insert(data.end(), characters.begin(), characters.end());
        return ask(0x30, 0x91, data);
    }
    reply initiate() { return piece(0, "/tmp/image.hpm"); }
    reply query() { return ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0x00}); }
    reply finish() { return ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0x55}); }
    reply roll_back() { return ask(0x2C, 0x38, {0x00}); }
    std::string firmware()
    {
        const bytes id = ask(0x06, 0x01, {}).data;
        return text("%u.%02X", id[2], id[3]);
    }
    static reply status(uint8_t progress, uint8_t state, uint8_t component = 1)
    {
        return {0x00, {0xD9, 0x7E, 0x00, progress, state, component, 0x00}};
    }

    scratch_folder folder;
    const reply ok{0x00, {0xD9, 0x7E, 0x00}}, busy{0x80, {}}, no_file{0x82, {}}, invalid_file{0x83, {}},
        no_memory{0x84, {}}, host_is_on{0x88, {}}, invalid{0xCC, {}}, not_now{0xD5, {}};
};

TEST_F(upgrade, nothing_goes_on_at_first)
{
    EXPECT_EQ(query(), status(0, 0));
    EXPECT_EQ(finish(), not_now);
}

TEST_F(upgrade, reads_the_image_in_five_seconds)
{
    write_image();
    EXPECT_EQ(initiate(), ok);
    EXPECT_EQ(query(), status(0, 2));
    clock.advance(100ms);
    EXPECT_EQ(query(), status(2, 2));  // 1000 bytes * 100 / 5000, and one: 21 bytes
    for (int i = 0; i < 46; i++)
        clock.advance(100ms);
    EXPECT_EQ(query(), status(98, 2));  // 47 * 21 = 987
    clock.advance(100ms);
    EXPECT_EQ(query(), status(0x80 | 100, 3));
    EXPECT_EQ(firmware(), "1.00");
}

TEST_F(upgrade, the_new_firmware_runs_once_it_is_finished)
{
    write_image();
    board.from_json({{"upgrade", {{"duration_ms", 0}}}});
    initiate();
    clock.advance(100ms);
    EXPECT_EQ(query(), status(0x80 | 100, 3));
    EXPECT_EQ(finish(), ok);
    ask(0x00, 0x04, {0x00, 0x01});  // identify light on, until the controller restarts
    clock.advance(0ms);
    EXPECT_EQ(firmware(), "1.05");
    EXPECT_EQ(state_of("identify")["light"], "off");
    EXPECT_EQ(query(), status(0, 0));
    EXPECT_EQ(finish(), not_now);
    EXPECT_EQ(state_of("upgrade")["previous"], "1.00");
}

TEST_F(upgrade, waits_for_its_finish_across_a_cold_reset)
{
    write_image();
    initiate();
    for (int i = 0; i < 50; i++)
        clock.advance(100ms);
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_EQ(query(), status(0x80 | 100, 3));
    const json saved = board.to_json();
    board.reset();
    EXPECT_EQ(query(), status(0, 0));
    board.from_json(saved);
    EXPECT_EQ(finish(), ok);
    EXPECT_EQ(firmware(), "1.05");
}

TEST_F(upgrade, a_cold_reset_ends_one_under_way)
{
    write_image();
    initiate();
    ask(0x06, 0x02, {});
    clock.advance(100ms);
    clock.advance(10s);
    EXPECT_EQ(query(), status(0, 0));
}

TEST_F(upgrade, of_other_components_leaves_the_firmware_alone)
{
    board.from_json({{"upgrade", {{"duration_ms", 0}}}});
    for (const uint8_t id : bytes{5, 6}) {
        write_image(std::to_string(id));
        initiate();
        clock.advance(100ms);
        EXPECT_EQ(query(), status(0x80 | 100, 3, id));
        EXPECT_EQ(finish(), ok);
        clock.advance(0ms);
        EXPECT_EQ(firmware(), "1.00");
    }
}

TEST_F(upgrade, of_the_bios_needs_a_host_that_is_off)
{
    write_image("2");
    EXPECT_EQ(initiate(), ok);
    EXPECT_EQ(query(), host_is_on);
    ask(0x00, 0x02, {0x00});  // power down
    EXPECT_EQ(initiate(), ok);
    EXPECT_EQ(query(), status(0, 2, 2));
}

TEST_F(upgrade, one_at_a_time)
{
    write_image();
    initiate();
    EXPECT_EQ(initiate(), busy);
    EXPECT_EQ(piece(0x80, "/tmp/"), busy);
    EXPECT_EQ(finish(), not_now);
    EXPECT_EQ(roll_back(), not_now);
    for (int i = 0; i < 50; i++)
        clock.advance(100ms);
    EXPECT_EQ(initiate(), ok);  // in place of one that was never finished
    EXPECT_EQ(query(), status(0, 2));
}

TEST_F(upgrade, takes_a_path_in_pieces)
{
    const std::string sixty = "/tmp/" + std::string(55, 'x'), eighty = sixty + std::string(20, 'y');
    write_image("1", "2610763910 1000", 1000, (eighty.substr(1)).c_str());
    for (uint8_t offset = 0; offset < 64; offset += 16)
        EXPECT_EQ(piece(0x80 | offset, eighty.substr(offset, 16)), ok);
    EXPECT_EQ(piece(64, eighty.substr(64)), ok);
    EXPECT_EQ(query(), status(0, 2));
    EXPECT_EQ(state_of("upgrade")["path"], eighty);
}

TEST_F(upgrade, refuses_wrong_pieces)
{
    EXPECT_EQ(piece(0, "image.hpm"), invalid);  // no absolute path
    EXPECT_EQ(piece(0, ""), invalid);
    EXPECT_EQ(piece(16, "x"), (reply{0xC9, {}}));  // nothing came before
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 0x00, 0x01, 0x00, 0x01, '/'}), invalid);
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 0x00, 0x00, 0x00, 0x02, '/'}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 0x00, 0x00, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(piece(0, "/234567890123456x"), (reply{0xC7, {}}));
    for (uint8_t offset = 0; offset < 80; offset += 16)
        EXPECT_EQ(piece(0x80 | offset, "/234567890123456"), ok);
    EXPECT_EQ(piece(80, "x"), (reply{0xC8, {}}));  // 81 characters
    EXPECT_EQ(query(), status(0, 0));
}

TEST_F(upgrade, needs_an_image)
{
    initiate();
    EXPECT_EQ(query(), no_file);
    EXPECT_EQ(query(), no_file);  // until there is another
    std::filesystem::create_directory(folder / "tmp/image.hpm");
    initiate();
    EXPECT_EQ(query(), no_file);
    write_image("1", "2610763910 1000", 1000, "outside");
    piece(0, "/tmp/../outside");
    EXPECT_EQ(query(), no_file);
    std::filesystem::create_symlink(folder / "outside", folder / "tmp/link");
    piece(0, "/tmp/link");
    EXPECT_EQ(query(), no_file);
    piece(0, "/outside");
    EXPECT_EQ(query(), status(0, 2));
}

TEST_F(upgrade, needs_a_valid_header)
{
    const std::string rest(1000, '\0'), good_end = "\nversion 1.05\ncksum 2610763910 1000\n\n";
    for (const std::string &header :
         {std::string(), std::string("\n\n"), "ipmcd image 2\ncomponent 1" + good_end,
          "ipmcd image 1\ncomponent 3" + good_end, "ipmcd image 1\ncomponent 257" + good_end,
          std::string("ipmcd image 1\ncomponent 1\nversion 128.00\ncksum 2610763910 1000\n\n"),
          std::string("ipmcd image 1\ncomponent 1\nversion 1.005\ncksum 2610763910 1000\n\n"),
          std::string("ipmcd image 1\ncomponent 1\nversion 1.05\ncksum 2610763910\n\n"),
          std::string("ipmcd image 1\ncomponent 1\nversion 1.05\ncksum 2610763910 0\n\n"),
          "ipmcd image 1\ncomponent 1" + good_end.substr(0, good_end.size() - 1) + "maker me\n\n",
          std::string(300, 'x')}) {
        std::ofstream(folder / "tmp/image.hpm") << header + rest;
        EXPECT_EQ(initiate(), ok);
        EXPECT_EQ(query(), invalid_file) << header;
    }
    std::ofstream(folder / "tmp/image.hpm") << "ipmcd image 1\n";
    initiate();
    EXPECT_EQ(query(), invalid_file);
    std::ofstream(folder / "tmp/image.hpm") << "ipmcd image 1\ncomponent 1" + good_end + rest;
    initiate();
    EXPECT_EQ(query(), status(0, 2));
}

TEST_F(upgrade, an_image_that_is_not_what_its_header_says_fails_at_the_end)
{
    board.from_json({{"upgrade", {{"duration_ms", 100}}}});
    write_image("1", "2610763911 1000");
    initiate();
    EXPECT_EQ(query(), status(0, 2));
    clock.advance(100ms);
    EXPECT_EQ(query(), invalid_file);
    write_image("1", "2610763910 1001");
    initiate();
    clock.advance(100ms);
    EXPECT_EQ(query(), status(99, 2));  // 1000 of 1001
    clock.advance(100ms);
    EXPECT_EQ(query(), invalid_file);  // there is no more
    EXPECT_EQ(finish(), not_now);
    EXPECT_EQ(state_of("upgrade")["failure"], "invalid file");
}

TEST_F(upgrade, an_image_has_to_fit_the_memory)
{
    write_image();
    board.from_json({{"upgrade", {{"memory", 999}}}});
    initiate();
    EXPECT_EQ(query(), no_memory);
    board.from_json({{"upgrade", {{"memory", 1000}}}});
    initiate();
    EXPECT_EQ(query(), status(0, 2));
}

TEST_F(upgrade, a_roll_back_goes_to_the_firmware_before)
{
    EXPECT_EQ(roll_back(), (reply{0x00, {0x00}}));
    EXPECT_EQ(firmware(), "0.90");
    ask(0x00, 0x04, {0x00, 0x01});
    clock.advance(0ms);
    EXPECT_EQ(state_of("identify")["light"], "off");
    EXPECT_EQ(roll_back(), (reply{0x00, {0x00}}));
    EXPECT_EQ(firmware(), "1.00");
    EXPECT_EQ(ask(0x2C, 0x38, {0x01}), invalid);  // another PICMG identifier
    EXPECT_EQ(ask(0x2C, 0x38, {0x00, 0x00}), (reply{0xC7, {}}));
}

TEST_F(upgrade, has_its_state_in_json)
{
    const json factory = state_of("upgrade");
    EXPECT_EQ(factory.dump(), R"({"phase":"idle","failure":"none","path":"","component":1,"version":"1.00",)"
                              R"("previous":"0.90","duration_ms":5000,"memory":67108864})");
    write_image("5");
    initiate();
    clock.advance(100ms);
    const json saved = state_of("upgrade");
    EXPECT_EQ(saved.dump(), R"({"phase":"updating","failure":"none","path":"/tmp/image.hpm","component":5,)"
                            R"("version":"1.05","previous":"0.90","duration_ms":5000,"memory":67108864})");
    EXPECT_EQ(board.shown()["upgrade"]["percent"], 2);
    board.reset();
    EXPECT_EQ(state_of("upgrade"), factory);
    board.from_json({{"upgrade", saved}});
    EXPECT_EQ(query(), status(0, 2, 5));  // it starts anew
    EXPECT_EQ(state_of("upgrade"), saved);
}

TEST_F(upgrade, refuses_a_state_that_does_not_fit)
{
    for (const json &wrong :
         {json{{"phase", "asleep"}}, json{{"phase", "failed"}}, json{{"failure", "no file"}}, json{{"component", 3}},
          json{{"version", "1.5.0"}}, json{{"version", "128.00"}}, json{{"previous", "x"}}, json{{"previous", 1}},
          json{{"duration_ms", 3600001}}, json{{"memory", -1}}, json{{"path", std::string(81, '/')}}, json{{"who", 1}}})
        EXPECT_THROW(board.from_json({{"upgrade", wrong}}), bad_state) << wrong;
    EXPECT_NO_THROW(board.from_json({{"upgrade", {{"phase", "failed"}, {"failure", "no file"}}}}));
    EXPECT_EQ(query(), no_file);
}

TEST_F(upgrade, speaks_in_the_trace)
{
    write_image();
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x06, 0xAA, 0, 0, 0x80, 2, '/', 't'}),
              (expected{"request 30/91 Initiate Upgrade: D9 7E 00 06 AA 00 00 80 02 2F 74 "
                        "(offset 0, \"/t\", more follow)",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x06, 0x00}),
              (expected{"request 30/91 Query Upgrade Status: D9 7E 00 06 00",
                        "answer  00 done: D9 7E 00 00 00 01 00 (idle, 0 %, component 1)"}));
    initiate();
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x06, 0x00})[1],
              "answer  00 done: D9 7E 00 00 02 01 00 (updating, 0 %, component 1)");
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x06, 0x55})[0], "request 30/91 Finish Upgrade: D9 7E 00 06 55");
    EXPECT_EQ(lines(0x2C, 0x38, {0})[0], "request 2C/38 Initiate Manual Rollback: 00");
}

struct upgrade_without_a_disk : board_test {
};

TEST_F(upgrade_without_a_disk, finds_no_image)
{
    ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0xAA, 0x00, 0x00, 0x00, 0x02, '/', 'i'});
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x06, 0x00}), (reply{0x82, {}}));
}

}  // namespace ipmcd

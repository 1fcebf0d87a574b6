#include "tests/ipmcd/traced.h"

#include <fstream>
#include <stdio.h>
#include <unistd.h>

namespace ipmcd
{

using namespace std::chrono_literals;

struct sel : traced {
    reply info() { return ask(0x0A, 0x40, {}); }
    reply reserve() { return ask(0x0A, 0x42, {}); }
    reply entry(uint16_t id, uint8_t offset = 0, uint8_t count = 0xFF, uint16_t reservation = 0)
    {
        return ask(0x0A, 0x43,
                   {uint8_t(reservation), uint8_t(reservation >> 8), uint8_t(id), uint8_t(id >> 8), offset, count});
    }
    /// An event record with a number to know it by. Its id and time are the log's to fill in.
    reply add(uint8_t number, uint8_t type = 0x02) { return ask(0x0A, 0x44, record(number, type)); }
    static bytes record(uint8_t number, uint8_t type = 0x02)
    {
        return {0xEE, 0xEE, type, 0xDD, 0xDD, 0xDD, 0xDD, 0x20, 0x00, 0x04, 0x01, number, 0x01, 0x59, 0x40, 0x38};
    }
    reply clear(uint16_t reservation, uint8_t action)
    {
        return ask(0x0A, 0x47, {uint8_t(reservation), uint8_t(reservation >> 8), 'C', 'L', 'R', action});
    }

    static constexpr uint8_t erase = 0xAA, status = 0x00;
    const reply in_progress{0x00, {0x00}}, completed{0x00, {0x01}}, busy{0x81, {}}, cancelled{0xC5, {}},
        not_there{0xCB, {}};
};

TEST_F(sel, is_empty_from_the_factory)
{
    // Version 1.5, no records, 1024 * 16 bytes free, no addition, no erase; it can be reserved.
    EXPECT_EQ(info(), (reply{0x00, {0x51, 0, 0, 0x00, 0x40, 0, 0, 0, 0, 0, 0, 0, 0, 0x02}}));
    EXPECT_EQ(entry(0x0000), not_there);
    EXPECT_EQ(entry(0xFFFF), not_there);
    EXPECT_EQ(entry(1), not_there);
}

TEST_F(sel, gives_records_their_id_and_time)
{
    clock.advance(0x01020304s);
    EXPECT_EQ(add(0x30), (reply{0x00, {0x01, 0x00}}));
    EXPECT_EQ(add(0x31), (reply{0x00, {0x02, 0x00}}));
    EXPECT_EQ(entry(1), (reply{0x00,
                               {0x02, 0x00, 0x01, 0x00, 0x02, 0x04, 0x03, 0x02, 0x01, 0x20, 0x00, 0x04, 0x01, 0x30,
                                0x01, 0x59, 0x40, 0x38}}));
    EXPECT_EQ(info(), (reply{0x00, {0x51, 2, 0, 0xE0, 0x3F, 0x04, 0x03, 0x02, 0x01, 0, 0, 0, 0, 0x02}}));
}

TEST_F(sel, records_without_a_time_keep_their_bytes)
{
    clock.advance(5s);
    add(0x30, 0xDF);
    add(0x31, 0xE0);
    const bytes timed = entry(1).data, untimed = entry(2).data;
    EXPECT_EQ(bytes(timed.begin() + 5, timed.begin() + 9), (bytes{5, 0, 0, 0}));
    EXPECT_EQ(bytes(untimed.begin() + 5, untimed.begin() + 9), (bytes{0xDD, 0xDD, 0xDD, 0xDD}));
}

TEST_F(sel, unknown_types_of_records_are_not_taken)
{
    for (const uint8_t type : bytes{0x00, 0x01, 0x03, 0x7F, 0xBF})
        EXPECT_EQ(add(0x30, type), (reply{0x80, {}})) << int(type);
    for (const uint8_t type : bytes{0x02, 0xC0, 0xE0, 0xFF})
        EXPECT_EQ(add(0x30, type).code, 0x00) << int(type);
}

TEST_F(sel, is_walked_from_the_first_to_the_last)
{
    add(0x30);
    add(0x31);
    add(0x32);
    const reply first = entry(0x0000), second = entry(2), last = entry(0xFFFF);
    EXPECT_EQ(first.data[2], 1);
    EXPECT_EQ(first.data[0], 2);
    EXPECT_EQ(second.data[0], 3);
    EXPECT_EQ(last, entry(3));
    EXPECT_EQ(bytes(last.data.begin(), last.data.begin() + 2), (bytes{0xFF, 0xFF}));
    EXPECT_EQ(entry(4), not_there);
}

TEST_F(sel, pieces_of_a_record_need_a_reservation)
{
    add(0x30);
    EXPECT_EQ(entry(1, 0, 3), (reply{0x00, {0xFF, 0xFF, 0x01, 0x00, 0x02}}));  // its beginning does not
    EXPECT_EQ(entry(1, 7, 3), cancelled);
    EXPECT_EQ(reserve(), (reply{0x00, {0x01, 0x00}}));
    EXPECT_EQ(entry(1, 7, 3, 1), (reply{0x00, {0xFF, 0xFF, 0x20, 0x00, 0x04}}));
    EXPECT_EQ(entry(1, 15, 0xFF, 1), (reply{0x00, {0xFF, 0xFF, 0x38}}));
    EXPECT_EQ(entry(1, 7, 3, 2), cancelled);
}

TEST_F(sel, pieces_end_where_the_record_ends)
{
    add(0x30);
    reserve();
    EXPECT_EQ(entry(1, 0, 16).code, 0x00);
    EXPECT_EQ(entry(1, 0, 17), (reply{0xC9, {}}));
    EXPECT_EQ(entry(1, 15, 2, 1), (reply{0xC9, {}}));
    EXPECT_EQ(entry(1, 16, 0, 1), (reply{0xC9, {}}));
    EXPECT_EQ(entry(1, 16, 0xFF, 1), (reply{0xC9, {}}));
}

TEST_F(sel, a_new_reservation_cancels_the_old_one)
{
    EXPECT_EQ(reserve().data, (bytes{1, 0}));
    EXPECT_EQ(reserve().data, (bytes{2, 0}));
    EXPECT_EQ(clear(1, erase), cancelled);
    EXPECT_EQ(clear(2, erase), in_progress);
}

TEST_F(sel, reservations_are_never_0)
{
    EXPECT_EQ(clear(0, erase), cancelled);
    for (unsigned i = 0; i < 65535; i++)
        reserve();
    EXPECT_EQ(reserve().data, (bytes{1, 0}));
}

TEST_F(sel, an_added_record_keeps_the_reservation)
{
    reserve();
    add(0x30);
    EXPECT_EQ(clear(1, status), completed);
}

TEST_F(sel, a_cold_reset_cancels_the_reservation_and_keeps_the_records)
{
    add(0x30);
    reserve();
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_EQ(clear(1, erase), cancelled);
    EXPECT_EQ(entry(1).code, 0x00);
    EXPECT_EQ(reserve().data, (bytes{2, 0}));
}

TEST_F(sel, an_erase_takes_a_second)
{
    add(0x30);
    clock.advance(100s);
    reserve();
    EXPECT_EQ(clear(1, status), completed);  // none was ordered yet
    EXPECT_EQ(clear(1, erase), in_progress);
    clock.advance(999ms);
    EXPECT_EQ(clear(1, status), in_progress);
    clock.advance(1ms);
    EXPECT_EQ(clear(1, status), completed);
    EXPECT_EQ(entry(1), not_there);
    EXPECT_EQ(info(), (reply{0x00, {0x51, 0, 0, 0x00, 0x40, 0, 0, 0, 0, 101, 0, 0, 0, 0x02}}));
    EXPECT_EQ(add(0x31).data, (bytes{1, 0}));
}

TEST_F(sel, during_an_erase_it_has_nothing_else_to_say)
{
    add(0x30);
    reserve();
    clear(1, erase);
    EXPECT_EQ(info(), busy);
    EXPECT_EQ(reserve(), busy);
    EXPECT_EQ(entry(1), busy);
    EXPECT_EQ(add(0x31), busy);
    clock.advance(500ms);
    EXPECT_EQ(clear(1, erase), in_progress);  // no new start
    clock.advance(500ms);
    EXPECT_EQ(clear(1, status), completed);
}

TEST_F(sel, the_time_of_an_erase_can_be_chosen)
{
    board.from_json({{"sel", {{"erase_ms", 0}}}});
    add(0x30);
    reserve();
    EXPECT_EQ(clear(1, erase), completed);
    EXPECT_EQ(entry(1), not_there);
}

TEST_F(sel, a_clear_is_spelled_out)
{
    reserve();
    EXPECT_EQ(ask(0x0A, 0x47, {1, 0, 'C', 'L', 'S', 0xAA}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x0A, 0x47, {1, 0, 'c', 'l', 'r', 0xAA}), (reply{0xCC, {}}));
    EXPECT_EQ(clear(1, 0x55), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x0A, 0x47, {1, 0, 'C', 'L', 'R'}), (reply{0xC7, {}}));
    EXPECT_EQ(state_of("sel")["erasing"], false);
}

TEST_F(sel, is_full_with_1024_records)
{
    for (unsigned i = 0; i < 1024; i++)
        ASSERT_EQ(add(uint8_t(i)).code, 0x00) << i;
    EXPECT_EQ(info(), (reply{0x00, {0x51, 0x00, 0x04, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x02}}));
    EXPECT_EQ(add(0), (reply{0xC4, {}}));
    EXPECT_EQ(info().data[13], 0x82);  // an event was lost
    reserve();
    clear(1, erase);
    clock.advance(1s);
    EXPECT_EQ(info().data[13], 0x02);
}

TEST_F(sel, requests_have_their_lengths)
{
    EXPECT_EQ(ask(0x0A, 0x40, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x42, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x43, {0, 0, 0, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x44, bytes(15, 2)), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x44, bytes(17, 2)), (reply{0xC7, {}}));
}

TEST_F(sel, has_its_state_in_json)
{
    clock.advance(7s);
    add(0x30);
    const json saved = state_of("sel");
    EXPECT_EQ(saved.dump(), R"({"records":["01 00 02 07 00 00 00 20 00 04 01 30 01 59 40 38"],"last_addition":7,)"
                            R"("last_erase":0,"overflow":false,"erasing":false,"erase_ms":1000})");
    board.reset();
    EXPECT_EQ(entry(1), not_there);
    board.from_json({{"sel", saved}});
    EXPECT_EQ(state_of("sel"), saved);
    EXPECT_EQ(add(0x31).data, (bytes{2, 0}));
}

TEST_F(sel, an_erase_from_json_goes_on)
{
    add(0x30);
    board.from_json({{"sel", {{"erasing", true}, {"erase_ms", 50}}}});
    EXPECT_EQ(entry(1), busy);
    clock.advance(50ms);
    EXPECT_EQ(entry(1), not_there);
}

TEST_F(sel, refuses_a_state_that_does_not_fit)
{
    const std::string good = "01 00 02 07 00 00 00 20 00 04 01 30 01 59 40 38";
    const std::string other_id = "02" + good.substr(2), other_type = good.substr(0, 6) + "03" + good.substr(8);
    for (const json &records : {json("x"), json::array({1}), json::array({good.substr(3)}), json::array({other_id}),
                                json::array({good, good}), json::array({other_type}), json(std::vector(1025, good))})
        EXPECT_THROW(board.from_json({{"sel", {{"records", records}}}}), bad_state) << records.dump().substr(0, 99);
    EXPECT_THROW(board.from_json({{"sel", {{"erase_ms", 600001}}}}), bad_state);
    EXPECT_EQ(entry(1), not_there);
}

TEST_F(sel, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x0A, 0x44, record(0x30)),
              (expected{"request 0A/44 Add SEL Entry: EE EE 02 DD DD DD DD 20 00 04 01 30 01 59 40 38 (type 0x02)",
                        "answer  00 done: 01 00 (record 1)"}));
    EXPECT_EQ(lines(0x0A, 0x40, {})[1],
              "answer  00 done: 51 01 00 F0 3F 00 00 00 00 00 00 00 00 02 (1 records, 16368 bytes free)");
    EXPECT_EQ(lines(0x0A, 0x42, {}), (expected{"request 0A/42 Reserve SEL", "answer  00 done: 01 00 (reservation 1)"}));
    EXPECT_EQ(lines(0x0A, 0x43, {0, 0, 0, 0, 0, 3}),
              (expected{"request 0A/43 Get SEL Entry: 00 00 00 00 00 03 (first record, 3 bytes from 0)",
                        "answer  00 done: FF FF 01 00 02 (no next record)"}));
    EXPECT_EQ(lines(0x0A, 0x43, {0, 0, 0xFF, 0xFF, 0, 0xFF})[0],
              "request 0A/43 Get SEL Entry: 00 00 FF FF 00 FF (last record)");
    EXPECT_EQ(lines(0x0A, 0x43, {1, 0, 7, 0, 2, 0xFF})[0],
              "request 0A/43 Get SEL Entry: 01 00 07 00 02 FF (record 7 from byte 2)");
    EXPECT_EQ(lines(0x0A, 0x47, {1, 0, 'C', 'L', 'R', 0xAA}),
              (expected{"request 0A/47 Clear SEL: 01 00 43 4C 52 AA (reservation 1, erase)",
                        "answer  00 done: 00 (in progress)"}));
    clock.advance(1s);
    EXPECT_EQ(lines(0x0A, 0x47, {1, 0, 'C', 'L', 'R', 0}),
              (expected{"request 0A/47 Clear SEL: 01 00 43 4C 52 00 (reservation 1, how far is it)",
                        "answer  00 done: 01 (completed)"}));
    EXPECT_EQ(lines(0x0A, 0x47, {1, 0, 'C', 'L', 'R', 9})[0],
              "request 0A/47 Clear SEL: 01 00 43 4C 52 09 (reservation 1, action 0x09)");
}

// On the disk ---------------------------------------------------------------------------------------------------------

struct sel_on_disk : sel {
    sel_on_disk() { board.use_disk(folder.path()); }

    std::filesystem::path file(const char *name) const { return folder / "data/share/sel" / name; }
    bytes content_of(const std::filesystem::path &path) const
    {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    bytes live() const { return content_of(file("sel.bin")); }
    void put(const char *name, const bytes &content) const
    {
        std::filesystem::create_directories(folder / "data/share/sel");
        std::ofstream(file(name), std::ios::binary) << std::string(content.begin(), content.end());
    }
    std::set<std::string> names() const { return names_in(folder / "data/share/sel"); }
    /// The log that is packed in an archive.
    bytes packed(const char *name) const
    {
        const std::string command = "tar -xzOf " + file(name).string() + " dev/shm/save/reboot_file/sel_bak.bin";
        FILE *const tar = popen(command.c_str(), "r");
        bytes content;
        for (int c; (c = fgetc(tar)) != EOF;)
            content.push_back(uint8_t(c));
        EXPECT_EQ(pclose(tar), 0);
        return content;
    }

    /// A record as it is in the log.
    static bytes stored(uint16_t id, uint8_t number, uint8_t type = 0x02)
    {
        return {uint8_t(id), uint8_t(id >> 8), type, 0,    0,    0,   0, 0x20, 0x00, 0x04,
                0x01,        number,           0x01, 0x59, 0x40, 0x38};
    }
    static bytes log_of(unsigned count, uint8_t number)
    {
        bytes all;
        for (unsigned i = 0; i < count; i++) {
            const bytes one = stored(uint16_t(i + 1), number);
            all.insert(all.end(), one.begin(), one.end());
        }
        return all;
    }
    void fill(uint8_t number)
    {
        json records = json::array();
        for (unsigned i = 0; i < 1024; i++)
            records.push_back(hex(stored(uint16_t(i + 1), number)));
        board.from_json({{"sel", {{"records", records}}}});
    }

    scratch_folder folder;
};

static bytes operator+(bytes left, const bytes &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

TEST_F(sel_on_disk, each_record_is_there_at_once)
{
    add(0x30);
    EXPECT_EQ(live(), stored(1, 0x30));
    add(0x31, 0xC0);
    EXPECT_EQ(live(), stored(1, 0x30) + stored(2, 0x31, 0xC0));
    EXPECT_EQ(names(), (std::set<std::string>{"sel.bin"}));
}

TEST_F(sel_on_disk, an_erase_leaves_an_empty_file)
{
    add(0x30);
    reserve();
    clear(1, erase);
    clock.advance(999ms);
    EXPECT_EQ(live().size(), 16U);
    clock.advance(1ms);
    EXPECT_TRUE(std::filesystem::exists(file("sel.bin")));
    EXPECT_EQ(live(), bytes());
}

TEST_F(sel_on_disk, so_does_the_state_of_the_factory)
{
    put("sel.bin", log_of(3, 0x30));
    board.reset();
    EXPECT_EQ(live(), bytes());
    EXPECT_EQ(entry(1), not_there);
}

TEST_F(sel_on_disk, the_log_that_is_there_goes_on)
{
    put("sel.bin", stored(7, 0x30) + stored(9, 0x31));
    EXPECT_EQ(entry(0xFFFF).data, (bytes{0xFF, 0xFF} + stored(2, 0x31)));
    EXPECT_EQ(add(0x32).data, (bytes{3, 0}));
    EXPECT_EQ(live(), stored(7, 0x30) + stored(9, 0x31) + stored(3, 0x32));
}

TEST_F(sel_on_disk, the_log_that_is_there_shows)
{
    put("sel.bin", stored(1, 0x30));
    EXPECT_EQ(state_of("sel")["records"], json::array({hex(stored(1, 0x30))}));
}

TEST_F(sel_on_disk, a_state_that_is_loaded_is_older_than_the_log)
{
    bytes last = stored(2, 0x31);
    last[4] = 1;  // at 256 s
    put("sel.bin", stored(1, 0x31) + last);
    board.from_json({{"sel", {{"records", {hex(stored(1, 0x30))}}, {"last_addition", 5}, {"last_erase", 6}}}});
    EXPECT_EQ(entry(1).data, (bytes{2, 0} + stored(1, 0x31)));
    EXPECT_EQ(state_of("sel")["last_addition"], 256);
    EXPECT_EQ(state_of("sel")["last_erase"], 6);
    EXPECT_EQ(live(), stored(1, 0x31) + last);
}

TEST_F(sel_on_disk, a_disk_without_a_log_gets_that_of_the_state)
{
    board.from_json({{"sel", {{"records", {hex(stored(1, 0x30))}}}}});
    EXPECT_EQ(info().data[1], 1);
    EXPECT_EQ(live(), stored(1, 0x30));
}

TEST_F(sel_on_disk, a_state_that_is_set_is_written)
{
    add(0x30);
    json state = board.to_json()["sel"];
    state["records"] = {hex(stored(1, 0x40)), hex(stored(2, 0x41))};
    board.from_json({{"sel", state}});
    EXPECT_EQ(live(), stored(1, 0x40) + stored(2, 0x41));
}

TEST_F(sel_on_disk, a_piece_of_a_record_is_none)
{
    put("sel.bin", log_of(2, 0x30) + bytes(8, 0x77));
    EXPECT_EQ(add(0x31).data, (bytes{3, 0}));
    EXPECT_EQ(live(), log_of(2, 0x30) + stored(3, 0x31));
}

TEST_F(sel_on_disk, a_file_that_went_comes_back_whole)
{
    add(0x30);
    std::filesystem::remove_all(folder / "data");
    add(0x31);
    EXPECT_EQ(live(), stored(1, 0x30) + stored(2, 0x31));
}

TEST_F(sel_on_disk, a_full_log_becomes_an_archive)
{
    put("sel.bin", log_of(1023, 0x30));
    EXPECT_EQ(add(0x31), (reply{0x00, {0x00, 0x04}}));
    EXPECT_EQ(names(), (std::set<std::string>{"sel.bin"}));  // it is full now; nothing was lost
    reserve();
    clock.advance(9s);
    EXPECT_EQ(add(0x32), (reply{0x00, {0x01, 0x00}}));
    EXPECT_EQ(names(), (std::set<std::string>{"sel.bin", "sel_1.tar.gz"}));
    EXPECT_EQ(packed("sel_1.tar.gz"), log_of(1023, 0x30) + stored(1024, 0x31));
    bytes last = stored(1, 0x32);
    last[3] = 9;
    EXPECT_EQ(live(), last);
    // One record, added and taken out at 9 s; no event was lost.
    EXPECT_EQ(info().data, (bytes{0x51, 1, 0, 0xF0, 0x3F, 9, 0, 0, 0, 9, 0, 0, 0, 0x02}));
    EXPECT_EQ(clear(1, status), cancelled);  // its records are others now
}

TEST_F(sel_on_disk, there_are_five_archives_at_most)
{
    info();  // the disk is known
    for (uint8_t number = 1; number <= 6; number++) {
        fill(number);
        EXPECT_EQ(add(0).code, 0x00);
    }
    EXPECT_EQ(names(), (std::set<std::string>{"sel.bin", "sel_1.tar.gz", "sel_2.tar.gz", "sel_3.tar.gz", "sel_4.tar.gz",
                                              "sel_5.tar.gz"}));
    EXPECT_EQ(packed("sel_1.tar.gz"), log_of(1024, 6));
    EXPECT_EQ(packed("sel_5.tar.gz"), log_of(1024, 2));
}

TEST_F(sel_on_disk, a_log_that_cannot_be_archived_is_full)
{
    put("sel.bin", log_of(1024, 0x30));
    std::filesystem::create_directories(file("archive.new"));
    testing::internal::CaptureStderr();
    EXPECT_EQ(add(0x31), (reply{0xC4, {}}));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("archive.new: File exists"), std::string::npos);
    EXPECT_EQ(info().data[13], 0x82);
    EXPECT_EQ(live(), log_of(1024, 0x30));
    std::filesystem::remove(file("archive.new"));
    EXPECT_EQ(add(0x31).code, 0x00);
    EXPECT_EQ(packed("sel_1.tar.gz"), log_of(1024, 0x30));
    EXPECT_EQ(info().data[13], 0x02);
}

TEST_F(sel_on_disk, what_is_no_log_of_this_controller_becomes_an_archive)
{
    const bytes too_long = log_of(1025, 0x30), unknown_type = stored(1, 0x30) + stored(2, 0x30, 0x03);
    for (const bytes &content : {too_long, unknown_type}) {
        controller other(clock);
        put("sel.bin", content);
        other.use_disk(folder.path());
        EXPECT_EQ(other.to_json()["sel"]["records"], json::array());
        EXPECT_EQ(packed("sel_1.tar.gz"), content);
        EXPECT_EQ(live(), bytes());
    }
}

TEST_F(sel_on_disk, what_is_no_log_and_cannot_be_archived_stays)
{
    put("sel.bin", log_of(1025, 0x30));
    std::filesystem::create_directories(file("archive.new"));
    testing::internal::CaptureStderr();
    EXPECT_EQ(add(0x31).code, 0x00);
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(live(), log_of(1025, 0x30));
    EXPECT_EQ(state_of("sel")["records"].size(), 1U);
}

TEST_F(sel_on_disk, links_are_not_followed)
{
    const bytes precious = log_of(1, 0x77);
    put("precious", precious);
    std::filesystem::create_symlink("precious", file("sel.bin"));
    EXPECT_EQ(entry(1), not_there);
    add(0x30);
    EXPECT_EQ(live(), stored(1, 0x30));
    std::filesystem::remove(file("sel.bin"));
    std::filesystem::create_hard_link(file("precious"), file("sel.bin"));
    add(0x31);
    EXPECT_EQ(live(), stored(1, 0x30) + stored(2, 0x31));
    EXPECT_EQ(content_of(file("precious")), precious);
}

TEST_F(sel_on_disk, a_linked_folder_gets_nothing)
{
    std::filesystem::create_directories(folder / "elsewhere");
    std::filesystem::create_directories(folder / "data/share");
    std::filesystem::create_directory_symlink(folder / "elsewhere", folder / "data/share/sel");
    testing::internal::CaptureStderr();
    EXPECT_EQ(add(0x30).code, 0x00);  // the log goes on all the same
    EXPECT_NE(testing::internal::GetCapturedStderr().find("data/share/sel: Not a directory"), std::string::npos);
    EXPECT_TRUE(names_in(folder / "elsewhere").empty());
    std::filesystem::remove(folder / "data/share/sel");
    EXPECT_EQ(add(0x31).code, 0x00);
    EXPECT_EQ(live(), stored(1, 0x30) + stored(2, 0x31));
}

}  // namespace ipmcd

/// The state file.
#include "ipmcd/state_file.h"
#include "ipmcd/state_keeper.h"
#include "tests/ipmcd/board.h"

#include <fstream>
#include <sys/stat.h>

namespace ipmcd
{

struct state_file : board_test {
    void write(const std::string &content) const { std::ofstream(file) << content; }
    void save() const { write_state(file, state_text(board)); }
    std::string read(const char *name = "state.json") const
    {
        std::ifstream in(folder / name);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void set_level(uint8_t level) { EXPECT_EQ(ask(0x2C, 0x15, {0, 0, level}).code, 0); }
    unsigned level() const { return state_of("fans")["level"]; }
    /// Why the file is refused; it and the folder around it are as before.
    std::string refusal()
    {
        const std::string before = read();
        std::string why = "accepted";
        try {
            load_state(file, board);
        } catch (const std::runtime_error &problem) {
            why = problem.what();
        }
        EXPECT_EQ(read(), before);
        EXPECT_EQ(names_in(folder.path()).size(), 1U);
        const std::string start = "state file " + file.string() + ": ";
        return why.starts_with(start) ? why.substr(start.size()) : why;
    }

    scratch_folder folder;
    std::filesystem::path file = folder / "state.json";
};

TEST_F(state_file, what_was_saved_is_loaded)
{
    ask(0x2C, 0x15, {0, 0, 77});
    ask(0x06, 0x43, {1, 3, 4});
    save();
    const json saved = board.to_json();
    board.reset();
    ASSERT_NE(board.to_json(), saved);
    load_state(file, board);
    EXPECT_EQ(board.to_json(), saved);
}

TEST_F(state_file, is_json_with_a_mark_and_a_part_for_each_family)
{
    save();
    const json written = json::parse(read());
    EXPECT_EQ(written["ipmcd_state"], 1);
    EXPECT_EQ(written["fans"].dump(), R"({"mode":"auto","timeout_s":30,"level":50})");
    EXPECT_EQ(written["users"]["2"]["name"], "admin");
    EXPECT_EQ(written["device"]["device_id"], 0x20);
    EXPECT_EQ(written.size(), all_families().size() + 1);
}

TEST_F(state_file, belongs_to_its_owner_as_does_the_one_before_it)
{
    save();
    EXPECT_EQ(names_in(folder.path()), std::set<std::string>{"state.json"});
    const std::string first = read();
    set_level(60);
    save();
    EXPECT_EQ(names_in(folder.path()), (std::set<std::string>{"state.json", "state.json.previous"}));
    EXPECT_EQ(read("state.json.previous"), first);
    for (const char *const name : {"state.json", "state.json.previous"}) {
        struct stat seen {
        };
        ASSERT_EQ(stat((folder / name).c_str(), &seen), 0);
        EXPECT_EQ(seen.st_mode & 0777, 0600U) << name;
    }
    save();  // the same again: the other one stays
    EXPECT_EQ(read("state.json.previous"), first);
    const std::string second = read();
    set_level(70);
    save();
    EXPECT_EQ(read("state.json.previous"), second);
}

TEST_F(state_file, what_a_killed_one_was_writing_is_swept)
{
    std::ofstream(folder / "state.json.new") << "half a st";
    std::ofstream(folder / "state.json.newer") << "mine";
    load_state(file, board);
    EXPECT_EQ(names_in(folder.path()), std::set<std::string>{"state.json.newer"});
    std::ofstream(folder / "state.json.new") << "half a st";
    save();
    EXPECT_EQ(names_in(folder.path()), (std::set<std::string>{"state.json", "state.json.newer"}));
}

TEST_F(state_file, a_link_beside_it_is_not_followed)
{
    std::ofstream(folder / "precious") << "mine";
    std::filesystem::create_symlink("precious", folder / "state.json.new");
    save();
    EXPECT_EQ(read("precious"), "mine");
}

TEST_F(state_file, one_that_is_damaged_is_put_aside_for_the_one_before_it)
{
    for (const auto &damaged : {std::string(), std::string(4096, 0), state_text(board).substr(0, 200)}) {
        set_level(60);
        save();
        set_level(70);
        save();
        write(damaged);
        testing::internal::CaptureStderr();
        load_state(file, board);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(said.starts_with("ipmcd: state file " + file.string() + ": not readable as JSON: ")) << said;
        EXPECT_TRUE(
            said.ends_with("; it is " + file.string() + ".damaged now, and the state saved before it is taken\n"))
            << said;
        EXPECT_EQ(level(), 60U);
        EXPECT_EQ(read("state.json.damaged"), damaged);
        EXPECT_EQ(read(), state_text(board));
        EXPECT_EQ(names_in(folder.path()), (std::set<std::string>{"state.json", "state.json.damaged"}));
    }
}

TEST_F(state_file, one_that_is_wrong_is_not_taken_for_damaged)
{
    save();
    set_level(60);
    save();
    write(R"({"ipmcd_state": 1, "fans": {"level": 101}})");
    EXPECT_THROW(load_state(file, board), std::runtime_error);
    EXPECT_EQ(read(), R"({"ipmcd_state": 1, "fans": {"level": 101}})");
}

TEST_F(state_file, two_that_are_damaged_are_kept)
{
    std::ofstream(folder / "state.json.previous") << "{";
    write("[");
    EXPECT_THROW(load_state(file, board), std::runtime_error);
    EXPECT_EQ(read(), "[");
    EXPECT_EQ(read("state.json.previous"), "{");
}

TEST_F(state_file, a_folder_in_its_place_is_no_state)
{
    std::filesystem::create_directory(file);
    try {
        load_state(file, board);
        FAIL() << "accepted";
    } catch (const std::runtime_error &problem) {
        EXPECT_EQ(problem.what(), "state file " + file.string() + ": Is a directory");
    }
}

/// Saves by itself.
struct kept_state : state_file {
    state_keeper keeper{file, board, clock};
    bool is_saved(unsigned wanted) const
    {
        const json saved = json::parse(read(), nullptr, false);
        return !saved.is_discarded() && saved["fans"]["level"] == wanted;
    }
    void wait() { clock.advance(state_keeper::calm); }
};

TEST_F(kept_state, is_saved_soon_after_a_request)
{
    set_level(60);
    EXPECT_FALSE(std::filesystem::exists(file));
    clock.advance(state_keeper::calm - std::chrono::milliseconds(1));
    EXPECT_FALSE(std::filesystem::exists(file));
    set_level(61);  // does not put it off
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(is_saved(61));
}

TEST_F(kept_state, is_saved_soon_after_anything_else_that_changed_it)
{
    board.from_json({{"fans", {{"level", 42}}}});
    wait();
    EXPECT_TRUE(is_saved(42));
    set_level(60);
    clock.advance(std::chrono::seconds(29));  // a timer of a family goes off
    EXPECT_EQ(json::parse(read())["fans"]["mode"], "manual");
    clock.advance(std::chrono::seconds(1));
    wait();
    EXPECT_EQ(json::parse(read())["fans"]["mode"], "auto");
    board.reset();
    wait();
    EXPECT_TRUE(is_saved(50));
}

TEST_F(kept_state, is_not_written_when_it_is_as_before)
{
    set_level(60);
    wait();
    std::filesystem::remove(file);
    ask(0x2C, 0x16, {0, 0});
    wait();
    EXPECT_FALSE(std::filesystem::exists(file));
    keeper.save();
    EXPECT_TRUE(is_saved(60));
}

TEST_F(kept_state, an_older_one_never_replaces_a_younger)
{
    clock.hold_work = true;
    set_level(60);
    wait();
    set_level(61);
    keeper.save();
    EXPECT_TRUE(is_saved(61));
    clock.finish_work();
    EXPECT_TRUE(is_saved(61));
}

TEST_F(kept_state, is_tried_again_when_it_cannot_be_saved)
{
    std::filesystem::create_directory(file);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; i++) {
        set_level(uint8_t(60 + i));
        wait();
    }
    clock.advance(state_keeper::next_try);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "ipmcd: state file " + file.string() + ": cannot be written: Is a directory\n");
    EXPECT_THROW(keeper.save(), std::runtime_error);
    std::filesystem::remove(file);
    clock.advance(state_keeper::next_try);
    EXPECT_TRUE(is_saved(62));
}

TEST_F(state_file, a_missing_one_leaves_the_factory_state)
{
    const json factory = board.to_json();
    load_state(file, board);
    EXPECT_EQ(board.to_json(), factory);
}

TEST_F(state_file, a_part_that_is_missing_stays_as_it_is)
{
    write(R"({"ipmcd_state": 1, "fans": {"level": 12}})");
    load_state(file, board);
    EXPECT_EQ(state_of("fans").dump(), R"({"mode":"auto","timeout_s":30,"level":12})");
    EXPECT_EQ(state_of("users")["2"]["name"], "admin");
}

TEST_F(state_file, a_broken_or_foreign_one_is_refused)
{
    const std::pair<const char *, const char *> wrong[] = {
        {"{}", "this is no state of an ipmcd"},
        {"[1]", "this is no state of an ipmcd"},
        {R"({"fans": {"level": 12}})", "this is no state of an ipmcd"},
        {R"({"ipmcd_state": 2})", "written in another format than this ipmcd reads"},
        {R"({"ipmcd_state": "1"})", "written in another format than this ipmcd reads"},
        {R"({"ipmcd_state": 1, "wings": {}})", "/wings: unknown field"},
        {R"({"ipmcd_state": 1, "fans": []})", "/fans: an object is needed here"},
        {R"({"ipmcd_state": 1, "fans": {"level": 101}})",
         "/fans/level: a number from 0 to 100, or 254 for emergency shut-down, is needed here"},
        {R"({"ipmcd_state": 1, "fans": {"mode": "off"}})", "/fans/mode: one of \"auto\", \"manual\" is needed here"},
        {R"({"ipmcd_state": 1, "users": {"3": {"privilege": 9}}})",
         "/users/3/privilege: a number from 1 to 5, or 15 for no access, is needed here"},
        {R"({"ipmcd_state": 1, "users": {"3": {"name": "0123456789abcdefg"}}})",
         "/users/3/name: printable ASCII of at most 16 characters is needed here"},
        {R"({"ipmcd_state": 1, "users": {"3": {"name": 3}}})", "/users/3/name: a text is needed here"},
        {R"({"ipmcd_state": 1, "users": {"3": {"enabled": 0}}})", "/users/3/enabled: true or false is needed here"},
        {R"({"ipmcd_state": 1, "users": {"1": {"name": "x"}}})", "/users/1/name: user 1 has no name"},
    };
    for (const auto &[content, why] : wrong) {
        write(content);
        EXPECT_EQ(refusal(), why);
    }
}

TEST_F(state_file, one_that_is_no_json_is_refused)
{
    for (const char *const content : {"", "{", "\"ipmcd_state", "\xFF\xFE", "ipmcd_state=1"}) {
        write(content);
        EXPECT_TRUE(refusal().starts_with("not readable as JSON: ")) << content;
    }
}

TEST_F(state_file, deep_nesting_is_refused_like_anything_else)
{
    write(std::string(200000, '['));
    EXPECT_TRUE(refusal().starts_with("not readable as JSON: "));
}

TEST_F(state_file, a_folder_that_is_not_there_is_found_at_the_start)
{
    const auto nowhere = folder / "none" / "state.json";
    EXPECT_THROW(load_state(nowhere, board), std::runtime_error);
    EXPECT_THROW(write_state(nowhere, state_text(board)), std::runtime_error);
}

TEST_F(state_file, a_failed_save_leaves_what_was_there)
{
    std::filesystem::create_directory(file);
    EXPECT_THROW(save(), std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    EXPECT_EQ(names_in(folder.path()), std::set<std::string>{"state.json"});
}

}  // namespace ipmcd

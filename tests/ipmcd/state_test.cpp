/// The state file.
#include "ipmcd/state_file.h"
#include "tests/ipmcd/board.h"

#include <fstream>
#include <sys/stat.h>

namespace ipmcd
{

struct state_file : board_test {
    void write(const std::string &content) { std::ofstream(file) << content; }
    std::string read() const
    {
        std::ifstream in(file);
        return {std::istreambuf_iterator<char>(in), {}};
    }
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
    save_state(file, board);
    const json saved = board.to_json();
    board.reset();
    ASSERT_NE(board.to_json(), saved);
    load_state(file, board);
    EXPECT_EQ(board.to_json(), saved);
}

TEST_F(state_file, is_json_with_a_mark_and_a_part_for_each_family)
{
    save_state(file, board);
    const json written = json::parse(read());
    EXPECT_EQ(written["ipmcd_state"], 1);
    EXPECT_EQ(written["fans"].dump(), R"({"mode":"auto","timeout_s":30,"level":50})");
    EXPECT_EQ(written["users"]["2"]["name"], "admin");
    EXPECT_EQ(written["device"]["device_id"], 0x20);
    EXPECT_EQ(written.size(), all_families().size() + 1);
}

TEST_F(state_file, belongs_to_its_owner_and_leaves_nothing_beside_it)
{
    save_state(file, board);
    save_state(file, board);
    struct stat seen {
    };
    ASSERT_EQ(stat(file.c_str(), &seen), 0);
    EXPECT_EQ(seen.st_mode & 0777, 0600U);
    EXPECT_EQ(names_in(folder.path()), std::set<std::string>{"state.json"});
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
    EXPECT_THROW(save_state(nowhere, board), std::runtime_error);
}

TEST_F(state_file, a_failed_save_leaves_what_was_there)
{
    std::filesystem::create_directory(file);
    EXPECT_THROW(save_state(file, board), std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    EXPECT_EQ(names_in(folder.path()), std::set<std::string>{"state.json"});
}

}  // namespace ipmcd

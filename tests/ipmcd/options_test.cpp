#include "ipmcd/options.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <stdlib.h>
#include <vector>

namespace ipmcd
{

static options parse(std::vector<std::string> words)
{
    words.insert(words.begin(), "ipmcd");
    std::vector<char *> vector;
    for (std::string &word : words)
        vector.push_back(word.data());
    vector.push_back(nullptr);
    return parse_options(int(words.size()), vector.data());
}

static std::string refusal(const std::vector<std::string> &words)
{
    try {
        parse(words);
        return "accepted";
    } catch (const std::invalid_argument &problem) {
        return problem.what();
    }
}

TEST(command_line, has_defaults)
{
    unsetenv("ZENTRO_IPC_DIR");
    const options read = parse({});
    EXPECT_EQ(read.ipc_dir, "/run/zentro");
    EXPECT_EQ(read.control, "/run/zentro/control");
    EXPECT_EQ(read.board, "default");
    EXPECT_FALSE(read.state || read.disk || read.trace || read.trace_file || read.ready_fd || read.question ||
                 read.help || read.version);
}

TEST(command_line, the_environment_names_the_folder)
{
    setenv("ZENTRO_IPC_DIR", "/a", 1);
    EXPECT_EQ(parse({}).control, "/a/control");
    EXPECT_EQ(parse({"--ipc-dir", "/b"}).control, "/b/control");
    setenv("ZENTRO_IPC_DIR", "", 1);
    EXPECT_EQ(parse({}).ipc_dir, "/run/zentro");
    unsetenv("ZENTRO_IPC_DIR");
}

TEST(command_line, everything_can_be_said)
{
    const options read = parse({"--ipc-dir=/b", "--control", "/c", "--board", "device-sdrs", "--state", "s", "--disk",
                                "d", "--trace=t", "--ready-fd", "7", "--ask", "show fans", "--help", "--version"});
    EXPECT_EQ(read.ipc_dir, "/b");
    EXPECT_EQ(read.control, "/c");
    EXPECT_EQ(read.board, "device-sdrs");
    EXPECT_EQ(read.state, "s");
    EXPECT_EQ(read.disk, "d");
    EXPECT_TRUE(read.trace);
    EXPECT_EQ(read.trace_file, "t");
    EXPECT_EQ(read.ready_fd, 7);
    EXPECT_EQ(read.question, "show fans");
    EXPECT_TRUE(read.help);
    EXPECT_TRUE(read.version);
}

TEST(command_line, a_trace_without_a_file_goes_to_stderr)
{
    const options read = parse({"--trace"});
    EXPECT_TRUE(read.trace);
    EXPECT_FALSE(read.trace_file);
}

TEST(command_line, mistakes_are_named)
{
    EXPECT_EQ(refusal({"--loud"}), "--loud: unknown option");
    EXPECT_EQ(refusal({"--state"}), "--state: needs a value");
    EXPECT_EQ(refusal({"now"}), "now: unexpected word");
    EXPECT_EQ(refusal({"--ready-fd", "x"}), "--ready-fd x: the number of a descriptor is needed");
    EXPECT_EQ(refusal({"--ready-fd", "-1"}), "--ready-fd -1: the number of a descriptor is needed");
}

}  // namespace ipmcd

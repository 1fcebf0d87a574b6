/// The whole tool: command line, environment, its files, what is typed, and the answers of the controller. An input is
/// lines, each a word for what it is and the thing itself; behind the line "answers" all is the controller's.
///
///   cfgtool WORDS     the command line, parted at every blank; this line comes first
///   user NUMBER       who calls
///   env NAME=VALUE    in the environment
///   board TEXT        a line of the board's file; so are "blacklist" and "event", of theirs
///   keys TEXT         typed, and Enter behind it
///   results TEXT      of calls of the platform: see call_results
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <cstdlib>

static std::vector<std::string> parted(const std::string &text)
{
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ')
            words.emplace_back();
        else
            words.back() += c;
    }
    return words;
}

/// The line as C knows texts, without the word that it begins with and the blank behind that.
static std::string thing(const std::string &line)
{
    const size_t blank = line.find(' ');
    return blank == std::string::npos ? "" : line.substr(blank + 1).c_str();
}

static void take(const std::string &line, surroundings &found)
{
    enum { board, blacklist, events };
    if (line.starts_with("user "))
        found.user = unsigned(atoi(thing(line).c_str()));
    else if (line.starts_with("env "))
        found.environment.push_back(thing(line));
    else if (line.starts_with("keys "))
        found.keys += line.substr(5) + "\r";
    else if (line.starts_with("results "))
        call_results = line.substr(8);
    else if (line.starts_with("board "))
        found.files[board].content += line.substr(6) + "\n";
    else if (line.starts_with("blacklist "))
        found.files[blacklist].content += line.substr(10) + "\n";
    else if (line.starts_with("event "))
        found.files[events].content += line.substr(6) + "\n";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    surroundings found;
    found.files = {{"/data/cli.conf", ""}, {"/data/blacklist", ""}, {"/data/sectbl.cfg", ""}};
    const std::string command_line = thing(input.line());
    for (std::string line; input.left > 0 && (line = input.line()) != "answers";)
        take(line, found);
    std::erase_if(found.files, [](const surroundings::file &file) { return file.content.empty(); });
    run_tool(found, command_line.empty() ? std::vector<std::string>{} : parted(command_line));
    return 0;
}

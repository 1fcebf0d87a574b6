#include "ipmcd/state_file.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace ipmcd
{

static constexpr char format_key[] = "ipmcd_state";  // its value is the version of the format
static constexpr unsigned format_version = 1;

[[noreturn]] static void refuse(const std::filesystem::path &file, const std::string &why)
{
    throw std::runtime_error("state file " + file.string() + ": " + why);
}

static void take_over(const std::filesystem::path &file, json state, controller &board)
{
    if (!state.is_object() || !state.contains(format_key))
        refuse(file, "this is no state of an ipmcd");
    if (state[format_key] != format_version)
        refuse(file, "written in another format than this ipmcd reads");
    state.erase(format_key);
    board.from_json(state);
}

void load_state(const std::filesystem::path &file, controller &board)
{
    const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    if (access(folder.c_str(), W_OK | X_OK) != 0)
        refuse(file, "nothing can be saved in " + folder.string() + ": " + strerror(errno));
    std::ifstream in(file);
    if (!in) {
        if (errno == ENOENT)
            return;
        refuse(file, strerror(errno));
    }
    try {
        take_over(file, json::parse(in), board);
    } catch (const json::exception &problem) {
        refuse(file, std::string("not readable as JSON: ") + problem.what());
    } catch (const bad_state &problem) {
        refuse(file, problem.what());
    }
}

/// Writes all of `content` to a new file and onto the disk; an errno when that fails, else 0.
static int write_whole(int descriptor, const std::string &content)
{
    size_t written = 0;
    while (written < content.size()) {
        const ssize_t now = write(descriptor, content.data() + written, content.size() - written);
        if (now < 0)
            return errno;
        written += size_t(now);
    }
    return fsync(descriptor) == 0 ? 0 : errno;
}

void save_state(const std::filesystem::path &file, const controller &board)
{
    json state{{format_key, format_version}};
    state.update(board.to_json());
    std::string scratch = file.string() + ".XXXXXX";
    const int descriptor = mkostemp(scratch.data(), O_CLOEXEC);  // mode 0600
    if (descriptor < 0)
        refuse(file, std::string("cannot be written: ") + strerror(errno));
    int error = write_whole(descriptor, state.dump(2) + "\n");
    if (close(descriptor) != 0 && error == 0)
        error = errno;
    if (error == 0 && rename(scratch.c_str(), file.c_str()) != 0)
        error = errno;
    if (error != 0) {
        unlink(scratch.c_str());
        refuse(file, std::string("cannot be written: ") + strerror(error));
    }
}

}  // namespace ipmcd

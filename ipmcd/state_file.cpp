#include "ipmcd/state_file.h"

#include "ipmcd/bound_socket.h"
#include "ipmcd/text.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
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

static std::filesystem::path beside(const std::filesystem::path &file, const char *ending)
{
    return file.native() + ending;
}

static std::filesystem::path folder_of(const std::filesystem::path &file)
{
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

/// None, and errno says why: it cannot be read.
static std::optional<std::string> content_of(const std::filesystem::path &file)
{
    const descriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (opened.get() < 0)
        return std::nullopt;
    std::string content;
    std::array<char, 65536> part{};
    for (;;) {
        const ssize_t got = read(opened.get(), part.data(), part.size());
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            return content;
        content.append(part.data(), size_t(got));
    }
}

/// Puts a damaged file aside, and the one before it in its place. Gives the state there; none: nothing has changed,
/// since there is no such state.
static std::optional<json> restore_previous(const std::filesystem::path &file, const std::string &why)
{
    const auto previous = beside(file, ".previous"), damaged = beside(file, ".damaged");
    json state = json::parse(content_of(previous).value_or(""), nullptr, false);
    if (state.is_discarded())
        return std::nullopt;
    unlink(damaged.c_str());
    if (link(file.c_str(), damaged.c_str()) != 0 || rename(previous.c_str(), file.c_str()) != 0)
        return std::nullopt;
    report("state file " + file.string() + ": " + why + "; it is " + damaged.string() +
           " now, and the state saved before it is taken");
    return state;
}

void load_state(const std::filesystem::path &file, controller &board)
{
    if (access(folder_of(file).c_str(), W_OK | X_OK) != 0)
        refuse(file, "nothing can be saved in " + folder_of(file).string() + ": " + strerror(errno));
    unlink(beside(file, ".new").c_str());  // of an ipmcd that was killed while it saved
    const auto content = content_of(file);
    if (!content && errno == ENOENT)
        return;
    if (!content)
        refuse(file, strerror(errno));
    std::optional<json> state;
    try {
        state = json::parse(*content);
    } catch (const json::exception &problem) {
        const std::string why = std::string("not readable as JSON: ") + problem.what();
        state = restore_previous(file, why);
        if (!state)
            refuse(file, why);
    }
    try {
        take_over(file, *state, board);
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

static void keep_previous(const std::filesystem::path &file)
{
    const auto previous = beside(file, ".previous");
    unlink(previous.c_str());
    // Without the file, and on a file system without hard links, nothing is kept.
    [[maybe_unused]] const int linked = link(file.c_str(), previous.c_str());
}

static int sync_folder(const std::filesystem::path &folder)
{
    const descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.get() >= 0 && fsync(opened.get()) == 0 ? 0 : errno;
}

std::string state_text(const controller &board)
{
    json state{{format_key, format_version}};
    state.update(board.to_json());
    return state.dump(2) + "\n";
}

void write_state(const std::filesystem::path &file, const std::string &content)
{
    if (content_of(file) == content)
        return;
    const auto scratch = beside(file, ".new");
    unlink(scratch.c_str());
    int error = 0;
    {
        const descriptor made(open(scratch.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        error = made.get() < 0 ? errno : write_whole(made.get(), content);
    }
    if (error == 0) {
        keep_previous(file);
        error = rename(scratch.c_str(), file.c_str()) == 0 ? sync_folder(folder_of(file)) : errno;
    }
    if (error != 0) {
        unlink(scratch.c_str());
        refuse(file, std::string("cannot be written: ") + strerror(error));
    }
}

}  // namespace ipmcd

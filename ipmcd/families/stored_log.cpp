#include "ipmcd/families/stored_log.h"

#include "ipmcd/disk.h"
#include "ipmcd/text.h"

#include <cerrno>
#include <cstring>
#include <spawn.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ipmcd
{

static constexpr char log_folder[] = "data/share/sel", live_log[] = "sel.bin";
static constexpr unsigned most_archives = 5;
// While it is written. What exports the logs takes names with "sel" in them.
static constexpr char new_archive[] = "archive.new";

static std::string_view bytes_of(std::span<const sel_record> records)
{
    return {reinterpret_cast<const char *>(records.data()), records.size_bytes()};
}

static std::string archive_name(unsigned age) { return text("sel_%u.tar.gz", age); }

static std::string read_whole(const descriptor &file)
{
    std::string all;
    char part[65536];
    for (;;) {
        const ssize_t got = read(file.get(), part, sizeof part);
        if (got < 0)
            throw std::runtime_error(std::string(live_log) + ": " + strerror(errno));
        if (got == 0)
            return all;
        all.append(part, size_t(got));
    }
}

// The live log -------------------------------------------------------------------------------------------------------

std::optional<std::vector<sel_record>> read_log(const std::filesystem::path &disk)
{
    const descriptor file = open_file(disk, std::filesystem::path(log_folder) / live_log);
    if (file.get() < 0)
        return std::nullopt;
    const std::string content = read_whole(file);
    std::vector<sel_record> records(content.size() / sizeof(sel_record));
    memcpy(records.data(), content.data(), records.size() * sizeof(sel_record));
    return records;
}

void write_log(const std::filesystem::path &disk, std::span<const sel_record> records)
{
    replace_file(disk, log_folder, live_log, bytes_of(records));
}

void append_to_log(const std::filesystem::path &disk, std::span<const sel_record> records)
{
    const auto before = records.first(records.size() - 1);
    if (!append_to_file(disk, log_folder, live_log, before.size_bytes(), bytes_of(records.last(1))))
        write_log(disk, records);
}

// Archives -----------------------------------------------------------------------------------------------------------

/// A file without a name, for tar to read from or write to.
static descriptor unnamed_file(std::string_view content)
{
    descriptor file(memfd_create("sel", MFD_CLOEXEC));
    if (file.get() < 0 || write(file.get(), content.data(), content.size()) != ssize_t(content.size()))
        throw std::runtime_error(std::string("no memory for an archive: ") + strerror(errno));
    return file;
}

/// Whether a child could be started and ended well.
static bool run(const char *const words[], const posix_spawn_file_actions_t &set_up)
{
    static const char *const environment[] = {"PATH=/usr/bin:/bin", nullptr};  // tar runs gzip
    pid_t child = -1;
    if (posix_spawn(&child, words[0], &set_up, nullptr, const_cast<char *const *>(words),
                    const_cast<char *const *>(environment)) != 0)
        return false;
    int status = -1;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// An archive of one file, made by the system's tar, which finds the content on its standard input.
static std::string pack(std::string_view content)
{
    static const char *const words[] = {"/bin/tar",
                                        "--create",
                                        "--gzip",
                                        "--dereference",
                                        "--absolute-names",
                                        "--owner=root:0",
                                        "--group=root:0",
                                        "--mode=0644",
                                        "--transform=s,.*,dev/shm/save/reboot_file/sel_bak.bin,",
                                        "/proc/self/fd/0",
                                        nullptr};
    const descriptor unpacked = unnamed_file(content), packed = unnamed_file({});
    posix_spawn_file_actions_t set_up;
    posix_spawn_file_actions_init(&set_up);
    posix_spawn_file_actions_adddup2(&set_up, unpacked.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&set_up, packed.get(), STDOUT_FILENO);
    const bool good = run(words, set_up);
    posix_spawn_file_actions_destroy(&set_up);
    if (!good || lseek(packed.get(), 0, SEEK_SET) != 0)
        throw std::runtime_error("tar makes no archive of the event log");
    return read_whole(packed);
}

/// The new archive is whole before any other is touched.
void archive_log(const std::filesystem::path &disk, std::span<const sel_record> records)
{
    replace_file(disk, log_folder, new_archive, pack(bytes_of(records)));
    for (unsigned age = most_archives - 1; age > 0; age--)
        rename_file(disk, log_folder, archive_name(age).c_str(), archive_name(age + 1).c_str());
    if (!rename_file(disk, log_folder, new_archive, archive_name(1).c_str()))
        throw std::runtime_error(std::string(new_archive) + ": somebody took it away");
    write_log(disk, {});
}

}  // namespace ipmcd

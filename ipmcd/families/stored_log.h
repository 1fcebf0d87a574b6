/// The event log on the controller's disk, where the controller's other programs read it: /data/share/sel/sel.bin, the
/// records one behind the other, the oldest first; beside it sel_1.tar.gz (the youngest) to sel_5.tar.gz, logs that
/// were full. All of these throw std::runtime_error with a path or a reason in its text, and no record is lost then.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace ipmcd
{

using sel_record = std::array<uint8_t, 16>;

/// What sel.bin holds; a partial last record is left out. None: there is no such file.
std::optional<std::vector<sel_record>> read_log(const std::filesystem::path &disk);

/// Writes sel.bin anew.
void write_log(const std::filesystem::path &disk, std::span<const sel_record> records);

/// Adds the last of `records` to sel.bin. A file that is not as long as the others are together is written anew.
void append_to_log(const std::filesystem::path &disk, std::span<const sel_record> records);

/// Packs the records into sel_1.tar.gz, in which they are dev/shm/save/reboot_file/sel_bak.bin, and empties sel.bin.
/// The archives that are there become one older each, and the oldest of five is removed.
void archive_log(const std::filesystem::path &disk, std::span<const sel_record> records);

}  // namespace ipmcd

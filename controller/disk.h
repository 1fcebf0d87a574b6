/// Files of the controller's disk, as far as requests leave any.
#pragma once

#include <filesystem>
#include <string_view>

namespace ipmcd
{

/// Writes a new file below `disk`, the folder that holds the controller's disk: "tmp/screen", "1.ppm". Missing folders
/// are made. On the way from `disk` on no link is followed, since any account of the controller may have put one there.
/// Throws std::runtime_error with the path in its text, also when there is something of that name.
void write_new_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                    std::string_view content);

}  // namespace ipmcd

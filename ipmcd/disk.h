/// Files of the controller's disk, as far as requests read or leave any. On the way from the folder that holds the disk
/// no link is followed, since any account of the controller may have put one there.
#pragma once

#include "ipmcd/bound_socket.h"

#include <filesystem>
#include <string_view>

namespace ipmcd
{

/// Writes a new file below `disk`: "tmp/screen", "1.ppm". Missing folders are made. Throws std::runtime_error with the
/// path in its text, also when there is something of that name.
void write_new_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                    std::string_view content);

/// The same in place of a file that is there.
void replace_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                  std::string_view content);

/// Adds to the end of a file that is `length` bytes long. False, and nothing is written: it is not a regular file of
/// that length and of this name alone. Throws as above; the file is then as it was, or gone.
bool append_to_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                    size_t length, std::string_view content);

/// Gives a file of a folder another name there, in place of the file that has it. False: there is none to rename.
/// Throws as above.
bool rename_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *from,
                 const char *to);

/// Opens a file for reading, by its path on the controller: "/tmp/image.hpm". The descriptor is -1 when there is no
/// regular file of that name.
descriptor open_file(const std::filesystem::path &disk, const std::filesystem::path &path);

}  // namespace ipmcd

/// The state of a controller as a JSON file.
#pragma once

#include "ipmcd/controller.h"

#include <filesystem>

namespace ipmcd
{

/// Loads the file into the controller; a file that does not exist is no error and leaves the factory state. Throws
/// std::runtime_error, with the path in its text, for one that cannot be read or is no state of an ipmcd, and for a
/// folder in which nothing could be saved later.
void load_state(const std::filesystem::path &file, controller &board);

/// Replaces the file at once: a reader, or a crash, finds the old state or the new one. Readable by its owner only.
/// Throws std::runtime_error with the path in its text; the old file is then as it was.
void save_state(const std::filesystem::path &file, const controller &board);

}  // namespace ipmcd

/// The state of a controller as a JSON file.
#pragma once

#include "ipmcd/controller.h"

#include <filesystem>
#include <string>

namespace ipmcd
{

/// Loads the file into the controller; a file that does not exist is no error and leaves the factory state. One that is
/// not even JSON, as a power failure may leave it, is put aside as "<file>.damaged", and "<file>.previous" taken in its
/// place, with a message on stderr. Throws std::runtime_error, with the path in its text, when there is none of that,
/// for a file that is no state of an ipmcd, and for a folder in which nothing could be saved later.
void load_state(const std::filesystem::path &file, controller &board);

/// The content of the file.
std::string state_text(const controller &board);

/// Replaces the file at once: a reader, or a crash, finds the old state or the new one. The old one stays beside it as
/// "<file>.previous". Both are on the disk when this returns, and readable by their owner only. Throws
/// std::runtime_error with the path in its text; the old file is then as it was.
void write_state(const std::filesystem::path &file, const std::string &content);

}  // namespace ipmcd

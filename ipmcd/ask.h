/// The client of the control socket.
#pragma once

#include <filesystem>
#include <string>

namespace ipmcd
{

/// Sends one control command and prints its answer. 0 = done, 1 = the answer is an error, 2 = nobody answers.
int ask(const std::filesystem::path &control, const std::string &question);

}  // namespace ipmcd

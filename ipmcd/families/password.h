/// Passwords of users and the community of SNMP traps: what they have to be made of, and how passwords are kept.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ipmcd
{

/// 8 to 20 characters, one of them a blank or another special character, and letters of both sizes or letters and
/// digits; neither the name of the account nor that name read backwards.
bool is_good_password(std::string_view password, std::string_view name);

/// 8 to 18 characters without a blank, one of them a special character, and letters of both sizes or letters and
/// digits.
bool is_good_community(std::string_view community);

constexpr size_t longest_password_hash = 383;

/// The password as crypt(3) keeps it, under a new salt. Throws std::runtime_error when it cannot be made.
std::string hash_password(const std::string &password);
bool is_password(const std::string &password, const std::string &hash);
/// Whether a text is a hash of a kind that this system's crypt(3) knows. The oldest kind, which has no "$" in front,
/// cannot be told from a word and counts as none.
bool is_password_hash(const std::string &text);

}  // namespace ipmcd

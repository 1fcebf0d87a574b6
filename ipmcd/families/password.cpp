#include "ipmcd/families/password.h"

#include <algorithm>
#include <array>
#include <crypt.h>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace ipmcd
{

static_assert(longest_password_hash == CRYPT_OUTPUT_SIZE - 1);

static constexpr std::string_view special_characters = "`~!@#$%^&*()-_=+\\|[{}];:'\",<.>/?";
static constexpr std::string_view small_letters = "abcdefghijklmnopqrstuvwxyz";
static constexpr std::string_view large_letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
static constexpr std::string_view digits = "0123456789";

static bool has_one_of(std::string_view text, std::string_view characters)
{
    return text.find_first_of(characters) != std::string_view::npos;
}

static bool is_long_enough(std::string_view text, size_t longest) { return text.size() >= 8 && text.size() <= longest; }

static bool has_two_kinds(std::string_view text)
{
    return has_one_of(text, small_letters) + has_one_of(text, large_letters) + has_one_of(text, digits) >= 2;
}

static bool is_reverse(std::string_view text, std::string_view of)
{
    return std::equal(text.begin(), text.end(), of.rbegin(), of.rend());
}

bool is_good_password(std::string_view password, std::string_view name)
{
    const bool has_special = has_one_of(password, special_characters) || has_one_of(password, " ");
    return is_long_enough(password, 20) && has_special && has_two_kinds(password) && password != name &&
           !is_reverse(password, name);
}

bool is_good_community(std::string_view community)
{
    return is_long_enough(community, 18) && has_one_of(community, special_characters) && has_two_kinds(community) &&
           !has_one_of(community, " ");
}

/// "*0" and the like when the library cannot; those are no hashes.
static std::string crypted(const std::string &password, const char *setting)
{
    const auto place = std::make_unique<crypt_data>();
    const char *const made = crypt_rn(password.c_str(), setting, place.get(), int(sizeof *place));
    std::string hash = made ? made : "";
    explicit_bzero(place.get(), sizeof *place);
    return hash;
}

std::string hash_password(const std::string &password)
{
    std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> setting{};
    const char *const best_method = nullptr;
    if (!crypt_gensalt_rn(best_method, 0, nullptr, 0, setting.data(), int(setting.size())))
        throw std::runtime_error("no salt for a password");
    std::string hash = crypted(password, setting.data());
    if (!is_password_hash(hash))
        throw std::runtime_error("a password could not be hashed");
    return hash;
}

bool is_password(const std::string &password, const std::string &hash)
{
    return is_password_hash(hash) && crypted(password, hash.c_str()) == hash;
}

bool is_password_hash(const std::string &text)
{
    const int kind = crypt_checksalt(text.c_str());
    return text.starts_with('$') && kind != CRYPT_SALT_INVALID && kind != CRYPT_SALT_METHOD_DISABLED;
}

}  // namespace ipmcd

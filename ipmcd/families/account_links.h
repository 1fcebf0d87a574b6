/// What user accounts and the SNMP traps that are sent in a user's name know of each other:
/// controller::shared<account_links>().
#pragma once

#include <functional>
#include <string>

namespace ipmcd
{

struct account_links {
    /// Whether a user of that name exists.
    std::function<bool(const std::string &name)> is_user = [](const std::string &) { return false; };
    /// In whose name version 3 traps are sent; empty: in nobody's.
    std::string trap_user;
};

}  // namespace ipmcd

/// The families of commands this controller has.
#pragma once

#include "ipmcd/family.h"

#include <memory>
#include <span>

namespace ipmcd
{

class controller;

using family_maker = std::unique_ptr<family> (*)(controller &owner);

/// All families, in the order in which `show` lists them and a state is taken over: boot ahead of power, whose
/// shutdowns need its time-out, and upgrade behind power, which knows whether the host is on.
std::span<const family_maker> all_families();

}  // namespace ipmcd

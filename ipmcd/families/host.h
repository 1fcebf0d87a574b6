/// The managed host, as far as several families have to do with it: controller::shared<host>().
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace ipmcd
{

struct host {
    bool is_on = true;
    /// How long a soft shutdown may take before the power is cut; 0 = as long as it likes.
    std::chrono::milliseconds shutdown_timeout{0};
    /// Whoever has something to do when the host boots.
    std::function<void()> on_boot = [] {};
};

/// The identify light, as Get Chassis Status tells it.
enum class identify_state : uint8_t { off, temporary, on };

}  // namespace ipmcd

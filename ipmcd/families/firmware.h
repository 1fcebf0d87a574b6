/// The firmware that the controller runs: controller::shared<running_firmware>().
#pragma once

#include <cstdint>

namespace ipmcd
{

constexpr uint8_t largest_firmware_major = 127, largest_firmware_minor = 99;

struct firmware_version {
    uint8_t major = 1;
    uint8_t minor = 0;
};

struct running_firmware {
    firmware_version version;
};

}  // namespace ipmcd

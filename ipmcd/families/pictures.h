/// The pictures of the host's screen in the controller's /tmp/screen: controller::shared<screen_pictures>().
#pragma once

#include <cstdint>

namespace ipmcd
{

struct screen_pictures {
    uint32_t taken = 0;  // so far; the last one's picture has this number
};

}  // namespace ipmcd

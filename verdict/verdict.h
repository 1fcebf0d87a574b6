/// How a run of the tool ended.
#pragma once

#include <cstdint>

/// The numbers are exit statuses; 4 is that of cfgtool-verdict itself when it cannot do its work.
enum class verdict : uint8_t {
    done = 0,
    failed = 1,
    refused = 2,
    unknown = 3,
    no_answer = 5,  // the controller did not answer the request that decided
    timed_out = 6,
};

/// A controller with its trace in hand.
#pragma once

#include "ipmcd/service.h"
#include "tests/ipmcd/board.h"

namespace ipmcd
{

struct traced : board_test {
    using board_test::board_test;

    /// What one request and its answer look like.
    std::vector<std::string> lines(uint8_t netfn, uint8_t command, const bytes &data)
    {
        bytes frame = {0x00, uint8_t(netfn << 2), uint8_t(-(netfn << 2)), 0x63, 0x00, command};
        frame.insert(frame.end(), data.begin(), data.end());
        uint8_t sum = 0;
        for (size_t i = 3; i < frame.size(); i++)
            sum = uint8_t(sum + frame[i]);
        frame.push_back(uint8_t(-sum));
        shown.clear();
        take_now(ipmi, frame);
        return shown;
    }

    using expected = std::vector<std::string>;
    std::vector<std::string> shown;
    fault_list faults;
    trace log{[this](const std::string &line) { shown.push_back(line); }};
    service ipmi{board, faults, log};
};

}  // namespace ipmcd

/// The control commands: one line in, one JSON document out.
#pragma once

#include "ipmcd/controller.h"
#include "ipmcd/faults.h"
#include "ipmcd/service.h"

#include <functional>
#include <string>

namespace ipmcd
{

class control
{
public:
    /// `save_state` is what `save` does; null when there is no state file.
    control(controller &behind, fault_list &ordered, const service &traffic, std::function<void()> save_state);

    /// What `show` shows, {"ok": true}, or {"error": "why"}.
    json answer(const std::string &line);

private:
    using words = std::span<const std::string>;
    struct verb {
        const char *word;
        const char *usage;
        json (control::*run)(words arguments);
    };
    static const verb verbs[];

    json show(words arguments);
    json show_one(const std::string &kind, const std::string &name);
    json set(words arguments);
    json fail(words arguments);
    json cancel(words arguments);
    json save(words arguments);
    json reset(words arguments);

    controller &board;
    fault_list &faults;
    const service &ipmi;
    std::function<void()> save_state;
};

}  // namespace ipmcd

#include "ipmcd/control.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace ipmcd
{

static const json done{{"ok", true}};

static json error(const std::string &why) { return {{"error", why}}; }

static std::vector<std::string> split(const std::string &line)
{
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

static std::string join(std::span<const std::string> words)
{
    std::string line;
    for (const std::string &word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

const control::verb control::verbs[] = {
    {"show", "show [NAME | sensor NAME]", &control::show},
    {"set", "set POINTER VALUE", &control::set},
    {"fail", "fail NETFN CMD [sub=HEX] KIND [count=N] | fail clear", &control::fail},
    {"cancel", "cancel", &control::cancel},
    {"save", "save", &control::save},
    {"reset", "reset", &control::reset},
};

control::control(controller &behind, fault_list &ordered, const service &traffic, std::function<void()> save_state_)
    : board(behind), faults(ordered), ipmi(traffic), save_state(std::move(save_state_))
{
}

json control::answer(const std::string &line)
{
    const auto given = split(line);
    std::string known;
    for (const verb &row : verbs) {
        if (!given.empty() && given[0] == row.word) {
            try {
                return (this->*row.run)(std::span(given).subspan(1));
            } catch (const std::exception &problem) {
                return error(problem.what());
            }
        }
        known += std::string(known.empty() ? "" : "; ") + row.usage;
    }
    return error("unknown command, known are: " + known);
}

json control::show(words arguments)
{
    json all = board.shown();
    all["faults"] = faults.to_json();
    all["traffic"] = ipmi.counters();
    if (arguments.empty())
        return all;
    if (arguments.size() > 1)
        return show_one(arguments[0], join(arguments.subspan(1)));
    if (all.contains(arguments[0]))
        return all[arguments[0]];
    std::string known;
    for (const auto &[name, part] : all.items())
        known += " " + name;
    return error(arguments[0] + ": nothing of that name, there are:" + known);
}

/// One of many things of a kind.
json control::show_one(const std::string &kind, const std::string &name)
{
    try {
        const auto found = board.details(kind, name);
        return found ? *found : error("show takes one name, or \"sensor\" and the name of one");
    } catch (const std::out_of_range &problem) {
        return error(name + ": " + problem.what());
    }
}

/// The value goes through the family's from_json like a state that is loaded, so nothing wrong can be set.
json control::set(words arguments)
{
    if (arguments.size() < 2)
        return error("set POINTER VALUE, as in set /fans/level 80");
    std::istringstream in(join(arguments));
    std::string place, value;
    in >> std::quoted(place);
    std::getline(in >> std::ws, value);
    const json wanted = json::parse(value, nullptr, false);
    if (wanted.is_discarded())
        return error(value + ": not JSON; a text needs double quotes");
    const json::json_pointer pointer(place);
    json state = board.to_json();
    if (pointer.empty() || !state.contains(pointer))
        return error(place + ": there is nothing at that place of the state");
    state[pointer] = wanted;
    const std::string family = place.substr(1, place.find('/', 1) - 1);
    board.from_json({{family, state[family]}});
    return done;
}

json control::fail(words arguments)
{
    if (arguments.size() == 1 && arguments[0] == "clear")
        faults.clear();
    else
        faults.add(parse_fault(arguments));
    return done;
}

json control::cancel(words arguments)
{
    if (!arguments.empty())
        return error("cancel takes no words: it makes all reservations void");
    board.cancel_reservations();
    return done;
}

json control::save(words arguments)
{
    if (!arguments.empty())
        return error("save takes no words: it writes the file that --state named");
    if (!save_state)
        return error("there is no state file, ipmcd was started without --state");
    save_state();
    return done;
}

json control::reset(words arguments)
{
    if (!arguments.empty())
        return error("reset takes no words");
    board.reset();
    return done;
}

}  // namespace ipmcd

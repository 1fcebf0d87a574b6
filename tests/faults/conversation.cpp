#include "tests/faults/conversation.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>

static uint8_t hex_byte(const std::string &hex, size_t place)
{
    return uint8_t(std::stoul(hex.substr(place, 2), nullptr, 16));
}

concealed::concealed(const std::string &hex)
{
    for (size_t place = 0; place + 1 < hex.size(); place += 2)
        bytes.push_back(uint8_t(~hex_byte(hex, place)));
}

static std::string text_of(const std::string &hex)
{
    std::string text;
    for (size_t place = 0; place + 1 < hex.size(); place += 2)
        text += char(hex_byte(hex, place));
    return text;
}

static std::string word_of(std::istream &line)
{
    std::string word;
    line >> word;
    return word;
}

static std::string rest_of(std::istream &line)
{
    std::string rest;
    std::getline(line >> std::ws, rest);
    return rest;
}

static std::string text_in(std::istream &line) { return text_of(word_of(line)); }

static int number_in(std::istream &line) { return int(std::stoll(word_of(line))); }

/// A frame that is like the one before it is another attempt of the same exchange.
static void take_send(conversation &to, std::istream &line)
{
    attempt made;
    made.result = number_in(line);
    static std::string before;
    const std::string frame = word_of(line);
    if (to.exchanges.empty() || frame != before)
        to.exchanges.push_back({concealed(frame), {}});
    before = frame;
    to.exchanges.back().attempts.push_back(made);
}

static void take_answer(conversation &to, std::istream &line)
{
    answer made;
    const std::string length = word_of(line);
    made.none = length == "none";
    if (!made.none) {
        made.length = unsigned(std::stoul(length));
        const std::string payload = text_in(line);
        made.payload.assign(payload.begin(), payload.end());
    }
    to.exchanges.back().attempts.back().answers.push_back(made);
}

static void take_file(conversation &to, std::istream &line)
{
    file_found made;
    made.path = text_in(line);
    const std::string content = word_of(line);
    made.content = content == "-" ? "" : text_of(content);
    made.kind = rest_of(line);
    to.files.push_back(made);
}

static void take_event(conversation &to, std::istream &line)
{
    event made;
    made.severity = unsigned(number_in(line));
    made.code = std::stoul(word_of(line), nullptr, 16);
    const std::string text = word_of(line);  // s:HEX
    made.is_described = !text.empty();
    made.description = made.is_described ? text_of(text.substr(2)) : "";
    to.events.push_back(made);
}

static void take_damage(conversation &to, std::istream &line)
{
    const int from = number_in(line), end = number_in(line);
    to.damages.push_back({rest_of(line), from, end});
}

using taker = std::function<void(conversation &, std::istream &)>;

static const std::map<std::string, taker> &takers()
{
    static const std::map<std::string, taker> rows = {
        {"transcript", [](conversation &to, std::istream &line) { to.where = rest_of(line); }},
        {"uid", [](conversation &to, std::istream &line) { to.user = to.real_user = unsigned(number_in(line)); }},
        {"real", [](conversation &to, std::istream &line) { to.real_user = unsigned(std::stoul(word_of(line))); }},
        {"word", [](conversation &to, std::istream &line) { to.words.push_back(text_in(line)); }},
        {"environment", [](conversation &to, std::istream &line) { to.environment.push_back(text_in(line)); }},
        {"closed", [](conversation &to, std::istream &line) { to.closed.push_back(number_in(line)); }},
        {"screen", [](conversation &to, std::istream &line) { to.screen = word_of(line); }},
        {"file", take_file},
        {"result",
         [](conversation &to, std::istream &line) {
             const std::string call = word_of(line);
             to.results.emplace_back(call, number_in(line));
         }},
        {"fails",
         [](conversation &to, std::istream &line) {
             const std::string call = word_of(line);
             to.failures.emplace_back(call, rest_of(line));
         }},
        {"owner",
         [](conversation &to, std::istream &line) {
             const int user = number_in(line);
             to.owners.emplace_back(rest_of(line), unsigned(user));
         }},
        {"damaged", take_damage},
        {"event", take_event},
        {"events", [](conversation &to, std::istream &) { to.events_shown = true; }},
        {"modes", [](conversation &, std::istream &) {}},  // they are judged by their end
        {"send", take_send},
        {"recv", take_answer},
        {"secret", [](conversation &to, std::istream &line) { to.secrets.emplace_back(word_of(line)); }},
        {"keys", [](conversation &to, std::istream &line) { to.keys.emplace_back(word_of(line)); }},
        {"shown", [](conversation &to, std::istream &line) { to.shown += text_in(line); }},
        {"logged", [](conversation &to, std::istream &line) { to.logged.push_back(text_in(line)); }},
    };
    return rows;
}

bool conversation::has_results_of(std::string_view call) const
{
    return std::any_of(results.begin(), results.end(), [call](const auto &row) { return row.first == call; });
}

bool read_conversation(std::istream &from, conversation &to)
{
    to = {};
    for (std::string text; std::getline(from, text) && text != "end";) {
        std::istringstream line(text);
        const auto row = takers().find(word_of(line));
        if (row == takers().end()) {
            fprintf(stderr, "%s: what is \"%s\"?\n", to.where.c_str(), text.c_str());
            exit(1);
        }
        row->second(to, line);
    }
    return !to.where.empty();
}

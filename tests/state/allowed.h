/// The requests that cfgtool-state may send, from the file allowed-requests beside this one.
#pragma once

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace allowed
{

using bytes = std::vector<uint8_t>;  // network function, command, data

struct pattern {
    std::string when;  // "whole", "then", or nothing
    struct range {
        uint8_t first, last;
    };
    std::vector<range> each;

    bool fits(const bytes &request) const
    {
        return std::equal(each.begin(), each.end(), request.begin(), request.end(),
                          [](const range &any, uint8_t byte) { return any.first <= byte && byte <= any.last; });
    }
};

inline uint8_t byte_of(const std::string &word) { return uint8_t(std::stoul(word, nullptr, 16)); }

/// 2C, or 00..FB. False = the words of its name have begun.
inline bool take(pattern &made, const std::string &word)
{
    const bool is_byte = word.size() == 2 && word.find_first_not_of("0123456789ABCDEF") == std::string::npos;
    if (is_byte)
        made.each.push_back({byte_of(word), byte_of(word)});
    else if (word.size() == 6 && word.compare(2, 2, "..") == 0)
        made.each.push_back({byte_of(word.substr(0, 2)), byte_of(word.substr(4))});
    else if (made.each.empty())
        made.when = word;
    else
        return false;
    return true;
}

inline const std::vector<pattern> &list()
{
    static const std::vector<pattern> all = [] {
        std::vector<pattern> read;
        std::ifstream file(ALLOWED_REQUESTS);
        for (std::string line; std::getline(file, line);) {
            if (line.empty() || line[0] == '#')
                continue;
            std::istringstream words(line);
            pattern &made = read.emplace_back();
            for (std::string word; words >> word && take(made, word);)
                ;
        }
        return read;
    }();
    return all;
}

/// Looks at the requests of one run, in their order.
class watch
{
public:
    bool permits(const bytes &request)
    {
        const auto found = std::find_if(list().begin(), list().end(), [&](const pattern &any) {
            return any.fits(request) && (any.when != "then" || was_refused);
        });
        is_whole = found != list().end() && found->when == "whole";
        return found != list().end();
    }
    /// The completion code of its answer.
    void answered(uint8_t completion) { was_refused = was_refused || (is_whole && completion != 0); }

private:
    bool is_whole = false;     // the request before was for a record in one piece
    bool was_refused = false;  // such a one
};

}  // namespace allowed

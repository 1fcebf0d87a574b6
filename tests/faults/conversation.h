/// What a transcript says, as conversations.py writes it down.
#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Bytes that may be secret are kept with every bit the other way round, so that memory holds them only where the tool
/// put them.
class concealed
{
public:
    concealed() = default;
    explicit concealed(const std::string &hex);

    size_t size() const { return bytes.size(); }
    uint8_t at(size_t place) const { return uint8_t(~bytes[place]); }

private:
    std::vector<uint8_t> bytes;
};

/// What one receive finds.
struct answer {
    bool none = true;
    unsigned length = 0;  // in the length field
    std::vector<uint8_t> payload;
};

/// One send of a request, and the receives behind it.
struct attempt {
    int result = 0;
    std::vector<answer> answers;
};

struct exchange {
    concealed request;  // the whole frame
    std::vector<attempt> attempts;
};

struct file_found {
    std::string path, content, kind;  // "file", "folder", "fifo", "link TARGET", "zeros SIZE" or "cut LENGTH"
};

/// What the event table says of a record.
struct event {
    unsigned severity = 0;
    unsigned long code = 0;
    bool is_described = true;
    std::string description;
};

struct unreadable {
    std::string path;
    off_t from, to;
};

struct conversation {
    // What the tool finds
    std::string where;  // the transcript stands
    std::vector<std::string> words, environment;
    std::vector<file_found> files;
    std::vector<std::pair<std::string, long>> results;          // call, value
    std::vector<std::pair<std::string, std::string>> failures;  // call, path
    std::vector<std::pair<std::string, unsigned>> owners;       // path, user
    std::vector<unreadable> damages;
    std::vector<event> events;
    std::vector<int> closed;      // descriptors
    std::vector<concealed> keys;  // those typed together
    std::string screen;           // "full", "gone", "file" or nothing
    unsigned user = 0, real_user = 0;
    bool events_shown = false;

    std::vector<exchange> exchanges;
    std::vector<concealed> secrets;

    // What it is to do
    std::string shown;
    std::vector<std::string> logged;

    /// Whether the first so many calls of this name have results of their own.
    bool has_results_of(std::string_view call) const;
};

/// False at the end. What it does not understand ends the program.
bool read_conversation(std::istream &from, conversation &to);

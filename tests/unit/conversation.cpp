#include "tests/unit/conversation.h"

#include <cstdlib>
#include <numeric>
#include <sstream>

static byte_text bytes_of(const std::string &hexadecimal)
{
    byte_text bytes;
    std::istringstream words(hexadecimal);
    for (unsigned value; words >> std::hex >> value;)
        bytes.push_back(uint8_t(value));
    return bytes;
}

/// With it, the bytes add up to 0 modulo 256.
static uint8_t checksum(const byte_text &bytes)
{
    return uint8_t(0x100 - std::accumulate(bytes.begin(), bytes.end(), 0U) % 0x100);
}

void conversation::begin()
{
    reset_stub();
    setenv("LOGNAME", "tester", 1);
    stub.answer_all = {0x00};
    exchange(ipmi_request(netfn_app, 0x01));  // tells where the sequence counter is
    sequence = uint8_t((stub.sent[0][4] >> 2) + 1);
    reset_stub();
    frames.clear();
}

byte_text conversation::frame_of(const byte_text &request)
{
    byte_text frame{0x00, uint8_t(request[0] << 2)};
    frame.push_back(checksum(frame));
    frame.insert(frame.end(), {0x63, uint8_t((sequence++ & 0x3F) << 2)});
    frame.insert(frame.end(), request.begin() + 1, request.end());
    frame.push_back(checksum(frame));
    return frame;
}

void conversation::attempt(const byte_text &frame, int send_result)
{
    frames.push_back(frame);
    stub.send_results.push_back(send_result);
}

void conversation::wire(const std::string &request, const std::string &ending)
{
    static constexpr int attempts = 5;
    const byte_text frame = frame_of(bytes_of(request));
    if (ending == "unsent") {
        for (int n = 0; n < attempts; ++n)
            attempt(frame, -1);
    } else if (ending == "silent") {
        for (int n = 0; n < attempts; ++n) {
            attempt(frame, 0);
            stub.receptions.push_back({false, {}});
        }
    } else {
        attempt(frame, 0);
        stub.receptions.push_back({true, answer_to(frame, bytes_of(ending))});
    }
}

std::string conversation::run(const command_entry *table, const std::string &dataitem, std::vector<std::string> words,
                              int result)
{
    const row_matches found = find_rows(table, dataitem.c_str());
    EXPECT_EQ(found.count, 1U) << dataitem;
    const command_entry &row = table[found.first];
    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    return printed([&] { EXPECT_EQ(row.handler({row.level(), uint8_t(words.size()), argv.data(), nullptr}), result); });
}

std::vector<std::string> conversation::logged()
{
    std::vector<std::string> records;
    for (const log_entry &entry : stub.logged) {
        EXPECT_EQ(entry.user, "tester");
        records.push_back(std::to_string(entry.log_class) + " " + entry.module + " " + entry.record);
    }
    return records;
}

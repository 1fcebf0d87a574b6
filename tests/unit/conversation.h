/// Handlers called through their registry tables, and what they say to controller, operator and log.
#pragma once

#include "cli/registry.h"
#include "tests/unit/platform_stub.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

class conversation : public testing::Test
{
protected:
    void SetUp() override { begin(); }
    /// What is on the wire is complete: anything more or less fails.
    void TearDown() override { EXPECT_EQ(stub.sent, frames); }

    /// Forgets what was before.
    void begin();
    /// The next request, network function, command and data in hexadecimal, and how it ends: completion code and data,
    /// "silent" (five sends without an answer) or "unsent" (five that fail).
    void wire(const std::string &request, const std::string &ending);
    /// Runs a handler with the words behind the dataitem.
    ///   returns  what it printed
    std::string run(const command_entry *table, const std::string &dataitem, std::vector<std::string> words,
                    int result);
    /// The records, "CLASS MODULE RECORD" each.
    static std::vector<std::string> logged();

private:
    byte_text frame_of(const byte_text &request);
    void attempt(const byte_text &frame, int send_result);

    uint8_t sequence = 0;  // of the next request
    std::vector<byte_text> frames;
};

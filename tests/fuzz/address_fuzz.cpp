/// Addresses as they are typed: an address and a mask, on two lines, by the rules and through every command that takes
/// one.
#include "ui/address.h"

#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <arpa/inet.h>

static void check_mask()
{
    uint32_t mask = 0;
    for (int octet = 0; octet < 4; ++octet)
        mask = mask << 8 | input.u8();
    bool valid = false;
    for (int ones = 1; ones <= 32; ++ones)
        valid = valid || mask == uint32_t(UINT64_MAX << (32 - ones));
    check((mask_check(mask) == 0) == valid);
}

/// Four groups of digits, the first three of one to three; the last of any length that 15 characters leave.
static bool is_quad(const std::string &text)
{
    size_t at = 0, groups = 0;
    for (; groups < 4; ++groups) {
        const size_t begin = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
        if (at == begin || (groups < 3 && (at - begin > 3 || at == text.size() || text[at++] != '.')))
            return false;
    }
    return at == text.size() && at <= 15;
}

static void check_pair(const std::string &address_text, const std::string &mask_text)
{
    uint32_t address = 0, mask = 0;
    check((IPCheck(address_text.c_str(), unsigned(address_text.size())) == 1) == is_quad(address_text));
    const interface_address judged = check_interface_address(address_text.c_str(), mask_text.c_str(), address, mask);
    in_addr converted{};
    const bool readable = inet_aton(address_text.c_str(), &converted) != 0 && converted.s_addr != UINT32_MAX;
    check(judged == interface_address::unreadable || readable);
    if (judged != interface_address::accepted)
        return;
    check(is_quad(address_text) && mask_check(mask) == 0 && ntohl(converted.s_addr) == address);
    check((address & ~mask) != 0 && (address | mask) != UINT32_MAX && (address & mask) != 0);
    check(address >> 24 < 224 && address >> 24 != 0 && address >> 24 != 127);
}

static void run_commands(const std::string &address, const std::string &mask)
{
    const std::vector<std::string> command_lines[] = {
        {"-t", "eth0", "-d", "ipaddr", "-v", address, mask}, {"-t", "eth0", "-d", "gateway", "-v", address},
        {"-t", "eth0", "-d", "ipaddr6", "-v", address},      {"-t", "eth0", "-d", "gateway6", "-v", address},
        {"-t", "trap", "-d", "address", "-v", "1", address},
    };
    static constexpr uint8_t done[64 * 3] = {};  // answers without data
    for (const auto &words : command_lines) {
        input = {done, sizeof done};
        run_tool({}, words);
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const std::string address = input.line().c_str(), mask = input.line().c_str();
    check_mask();
    check_pair(address, mask);
    run_commands(address, mask);
    return 0;
}

#include "snmp/trap_destination.h"

#include "ipmi/lan_parameters.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "system/hold_signals.h"
#include "ui/address.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <arpa/inet.h>
#include <cstring>

// LAN parameter selectors of the controller maker's
static constexpr uint8_t destination_port = 0xC0, destination_enable = 0xC1, trap_enable = 0xC2,
                         destination_address = 0xD1;

static constexpr uint8_t enabled = 1;

/// 1 to 4, or 0 for anything else. Kept: only the number the word begins with counts.
static uint8_t destination_number(const char *word)
{
    const int32_t number = leading_number(word);
    return number >= 1 && number <= 4 ? uint8_t(number) : uint8_t(0);
}

// Address -----------------------------------------------------------------------------------------------------------

/// How a destination is reached. `refusal` is null when the text is an address.
struct trap_target {
    const char *refusal;
    bool is_ipv4;
    uint8_t bytes[16];  // in network order; four of them for IPv4
};

static constexpr char invalid_format[] = "Input parameter format invalid.";

static trap_target parse_ipv4_target(const char *text)
{
    trap_target target{nullptr, true, {}};
    in_addr address;
    if (inet_aton(text, &address) == 0)
        return {invalid_format, true, {}};
    // Kept: the limited broadcast may be one, but not in another spelling.
    if (address.s_addr == UINT32_MAX && strncmp(text, "255.255.255.255", strlen(text)) != 0)
        return {invalid_format, true, {}};
    if (IPCheck(text, unsigned(strlen(text))) != 1)
        return {"Input parameter format error.", true, {}};
    memcpy(target.bytes, &address.s_addr, sizeof address.s_addr);
    return target;
}

static trap_target parse_ipv6_target(const char *text)
{
    trap_target target{nullptr, false, {}};
    if (inet_pton(AF_INET6, text, target.bytes) != 1)
        target.refusal = invalid_format;
    return target;
}

int set_trap_dest_address(uint8_t destination, uint8_t type, const uint8_t *bytes, size_t length)
{
    static constexpr char failure[] = "Set trap dest%d address failed, error code: 0x%X";
    if (bytes == nullptr)
        return 0;
    lan_bracket bracket;
    if (!bracket.opened())
        return fail(failure, destination, g_error_code);
    const ipmi_answer got = exchange(
        set_oem_lan_parameter(lan_channel, destination_address).u8(destination).u8(type).bytes({bytes, length}));
    if (!got.ok())
        return fail(failure, destination, got.error_code(destination_address));
    bracket.close();
    done("Set trap dest%d address success.", destination);
    return 1;
}

int trap_address(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const uint8_t destination = typed.has_values(2) ? destination_number(typed.value(0)) : uint8_t(0);
    if (destination == 0)
        return usage_error("Usage: cfgtool -t trap -d address -v <destN(1~4)> <ipaddr>");
    const bool dotted = strchr(typed.value(1), '.') != nullptr;  // IPv4 then, whatever else it holds
    const trap_target address = dotted ? parse_ipv4_target(typed.value(1)) : parse_ipv6_target(typed.value(1));
    if (address.refusal != nullptr)
        return refuse("%s", address.refusal);
    const hold_signals until_recorded;
    if (!set_trap_dest_address(destination, address.is_ipv4 ? 0 : 1, address.bytes, address.is_ipv4 ? 4 : 16))
        return 0;
    if (address.is_ipv4)
        log_change("Alert", "Set trap destination%d IPv4 compatiable address success,EvtCode:0x213007D0", destination);
    else
        log_change("Alert", "Set trap destination%d IPv6 compatiable address success,EvtCode:0x213007D0", destination);
    return 1;
}

// Port --------------------------------------------------------------------------------------------------------------

int trap_port(const invocation &typed)
{
    static constexpr char usage[] = "Usage: cfgtool -t trap -d port -v <destN(1~4)> <portvalue(1~65535)>";
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(2) || strchr(typed.value(0), '.') != nullptr || strchr(typed.value(1), '.') != nullptr)
        return usage_error(usage);
    const uint8_t destination = destination_number(typed.value(0));
    const int32_t port = leading_number(typed.value(1));
    if (destination == 0 || port < 1 || port > UINT16_MAX)
        return usage_error(usage);

    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set SNMP trap port failed, error code: 0x%X", g_error_code);
    const ipmi_answer got =
        exchange(set_oem_lan_parameter(lan_channel, destination_port).u8(destination).u16le(uint16_t(port)));
    if (got.unanswered())
        return fail("Set trap port failed,error code: 0x%X", got.error_code());  // Kept: no blank after the comma
    if (!got.ok())
        return fail("Set trap port failed, error code: 0x%X", got.error_code(destination_port));
    log_change("Alert", "Set trap destination%d port success,EvtCode:0x213007E0", destination);
    if (!bracket.close())
        return fail_silently(g_error_code);  // Kept: nothing said, although the port is written and logged
    done("Set trap port success.");
    return 1;
}

// State -------------------------------------------------------------------------------------------------------------

/// Kept, here and below: no blank after the comma where no answer came.
int set_trap_state(uint8_t state, const char *word)
{
    if (word == nullptr)
        return fail("set_trap_state:str_buf is null ptr!");
    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set trap state, error code: 0x%X", g_error_code);
    const ipmi_answer got = exchange(set_oem_lan_parameter(lan_channel, trap_enable).u8(state));
    if (got.unanswered())
        return fail("Set trap %s failed,error code: 0x%X", word, got.error_code());
    if (!got.ok())
        return fail("Set trap %s failed, error code: 0x%X", word, got.error_code(trap_enable));
    bracket.close();
    done("Set trap %s success.", word);
    log_change("Alert", "%s trap success,EvtCode:0x21300770",
               strcmp(word, "enabled") == 0 ? "Enable" : "disable");  // Kept: in lower case
    return 1;
}

/// One bit among 16, by destination; nothing for a number that has none.
static uint16_t destination_bit(uint32_t destination, uint8_t value)
{
    const uint32_t shift = destination - 1;
    return shift < 32 ? uint16_t(uint32_t(value) << shift) : uint16_t(0);
}

int set_trap_dest_state(uint32_t destination, uint8_t state, const char *word)
{
    if (word == nullptr)
        return fail("set_trap_dest_state:str_buf is null ptr!");
    const auto number = int(destination);
    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set trap dest state, error code: 0x%X", g_error_code);
    const ipmi_answer got = exchange(set_oem_lan_parameter(lan_channel, destination_enable)
                                         .u16le(destination_bit(destination, 1))
                                         .u16le(destination_bit(destination, state)));
    if (got.unanswered())
        return fail("Set trap dest%d %s failed,error code: 0x%X", number, word, got.error_code());
    if (!got.ok())
        return fail("Set trap dest%d %s failed, error code: 0x%X", number, word, got.error_code(destination_enable));
    bracket.close();
    done("Set trap dest%d %s success.", number, word);
    log_change("Alert", "%s trap destination%d success,EvtCode:0x213007B0",
               strcmp(word, "enabled") == 0 ? "Enable" : "Disable", number);
    return 1;
}

int trap_state(const invocation &typed)
{
    static constexpr char usage[] = "Usage: cfgtool -t trap -d state -v [destN(1~4)] <disabled|enabled>";
    if (!check_privilege(typed))
        return 0;
    const bool one_destination = typed.has_values(2);
    if (!one_destination && !typed.has_values(1))
        return usage_error(usage);
    const uint8_t destination = one_destination ? destination_number(typed.value(0)) : uint8_t(0);
    const char *word = typed.value(one_destination ? 1 : 0);
    const bool enable = strcmp(word, "enabled") == 0;
    if ((one_destination && destination == 0) || (!enable && strcmp(word, "disabled") != 0))
        return usage_error(usage);
    const uint8_t state = enable ? enabled : uint8_t(0);
    return one_destination ? set_trap_dest_state(destination, state, word) : set_trap_state(state, word);
}

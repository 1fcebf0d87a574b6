#include "network/port_address.h"

#include "ipmi/lan_parameters.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/address.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstring>

// LAN parameter selectors (IPMI 2.0, LAN Configuration Parameters); those from 0xC0 on are the controller maker's
static constexpr uint8_t ip_address = 0x03, ip_address_source = 0x04, subnet_mask = 0x06, default_gateway = 0x0C,
                         ipv6_address = 0xCC, ipv6_prefix_length = 0xCD, ipv6_gateway = 0xCE,
                         ipv6_address_source = 0xD0;

static constexpr uint8_t source_static = 1, source_dhcp = 2;

/// An IPv6 address as it is sent: the last byte in network order goes first.
struct ipv6_bytes {
    uint8_t reversed[16];
};

/// Kept: a text that is no IPv6 address gives the all-zero address; false only where the library knows no IPv6.
static bool parse_ipv6(const char *text, ipv6_bytes &address)
{
    const int converted = inet_pton(AF_INET6, text, address.reversed);
    if (converted != 1)
        address = {};
    std::reverse(std::begin(address.reversed), std::end(address.reversed));
    return converted >= 0;
}

/// A write between the brackets failed. Kept: without an answer the bracket is closed before the failure is told, where
/// closing may change g_error_code; after a refusal behind it.
///   returns  false
template <typename telling>
static bool write_failed(lan_bracket &bracket, const ipmi_answer &got, telling tell)
{
    if (got.unanswered())
        bracket.close();
    tell();
    return false;
}

// Address source ----------------------------------------------------------------------------------------------------

static bool is_dhcp(const char *word) { return strcmp(word, "dhcp") == 0; }
static bool is_source(const char *word) { return is_dhcp(word) || strcmp(word, "static") == 0; }

/// Sends the source that the word names and tells the outcome. True = set.
static bool set_source(lan_bracket &bracket, ipmi_request request, uint8_t selector, const char *word)
{
    const ipmi_answer got = exchange(request.u8(is_dhcp(word) ? source_dhcp : source_static));
    if (!got.ok())
        return write_failed(bracket, got,
                            [&] { fail("Set IP mode failed,error code:0x%X", got.error_code(selector)); });
    done(is_dhcp(word) ? "Set DHCP mode successfully." : "Set STATIC mode successfully.");
    return true;
}

static int opening_mode_failed(const char *word)
{
    return fail("Set %s failed, error code: 0x%X", is_dhcp(word) ? "DHCP mode" : "static mode", g_error_code);
}

// IPv4 address ------------------------------------------------------------------------------------------------------

static int ipaddr_usage(const lan_port &port)
{
    return usage_error("Usage: cfgtool -t %s -d ipaddr -v <ipaddr> <mask>\r\n"
                       "       cfgtool -t %s -d ipaddr -v <dhcp|static>",
                       port.target, port.target);
}

static int set_ipv4_source(const lan_port &port, lan_bracket &bracket, const char *word)
{
    if (!is_source(word))
        return ipaddr_usage(port);
    if (!set_source(bracket, set_lan_parameter(port.channel, ip_address_source), ip_address_source, word))
        return 0;
    log_change("Network", "Set %s IPv4 address source(%s) success,EvtCode:0x21200640", port.log_word, word);
    return 1;
}

static int set_ipv4_address(const lan_port &port, lan_bracket &bracket, const char *address_text, const char *mask_text)
{
    uint32_t address, mask;
    switch (check_interface_address(address_text, mask_text, address, mask)) {
    case interface_address::unreadable:
        return refuse("Input parameter format error,format should such as 192.168.1.1");
    case interface_address::unreasonable:
        return refuse("Input parameter format error.");
    case interface_address::accepted:
        break;
    }
    const ipmi_answer got = exchange(set_lan_parameter(port.channel, ip_address).u32be(address));
    if (!got.ok())
        return write_failed(bracket, got,
                            [&] { fail("Set IP address failed, error code: 0x%X", got.error_code(ip_address)); });
    log_change("Network", "Set %s IPv4 address(%s) success,EvtCode:0x21200650", port.log_word, address_text);

    const ipmi_answer masked = exchange(set_lan_parameter(port.channel, subnet_mask).u32be(mask));
    if (!masked.ok())  // the address stays in force
        return write_failed(bracket, masked, [&] {
            fail("Set MASK address  failed, error code: 0x%X", masked.error_code(subnet_mask));  // Kept: two blanks
        });
    log_change("Network", "Set %s IPv4 submask(%s) success,EvtCode:0x21200660", port.log_word, mask_text);
    done("Set IP address %s successfully.", address_text);
    done("Set MASK address %s successfully.", mask_text);
    return 1;
}

int ipaddr(const lan_port &port, const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const bool with_mask = typed.has_values(2);
    if (!with_mask && !typed.has_values(1))
        return ipaddr_usage(port);

    lan_bracket bracket;
    if (!bracket.opened()) {
        bracket.close();  // Kept: though it was never open
        return with_mask ? fail("Set IP address failed, error code: 0x%X", g_error_code)
                         : opening_mode_failed(typed.value(0));
    }
    return with_mask ? set_ipv4_address(port, bracket, typed.value(0), typed.value(1))
                     : set_ipv4_source(port, bracket, typed.value(0));
}

// IPv6 address ------------------------------------------------------------------------------------------------------

static int ipaddr6_usage(const lan_port &port)
{
    return usage_error("Usage: cfgtool -t %s -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>\r\n"
                       "       cfgtool -t %s -d ipaddr6 -v <dhcp|static>",
                       port.target, port.target);
}

static int set_ipv6_source(const lan_port &port, lan_bracket &bracket, const char *word)
{
    if (!is_source(word))
        return ipaddr6_usage(port);
    if (!set_source(bracket, set_oem_lan_parameter(port.channel, ipv6_address_source), ipv6_address_source, word))
        return 0;
    log_change("Network", "Set %s IPv6 address source(%s) success,EvtCode:0x21200680", port.log_word, word);
    return 1;
}

static int set_ipv6_address(const lan_port &port, lan_bracket &bracket, const char *text, const char *slash)
{
    char address_text[INET6_ADDRSTRLEN];  // the longest IPv6 text; a longer one is cut
    const int length = int(std::min<ptrdiff_t>(slash - text, INET6_ADDRSTRLEN - 1));
    snprintf(address_text, sizeof address_text, "%.*s", length, text);
    ipv6_bytes address;
    if (!parse_ipv6(address_text, address))
        return refuse("Input parameter format invalid.");
    const int32_t prefix_length = parse_number(slash + 1);
    if (prefix_length < 0)  // Kept: 128 is no limit, the low eight bits are sent
        return usage_error("Usage: cfgtool -t %s -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>", port.target);

    const ipmi_answer got = exchange(set_oem_lan_parameter(port.channel, ipv6_address).bytes(address.reversed));
    if (!got.ok())
        return write_failed(bracket, got,
                            [&] { fail("Set IP address failed, error code: 0x%X", got.error_code(ipv6_address)); });
    log_change("Network", "Set %s IPv6 address(%s) success,EvtCode:0x21200690", port.log_word, address_text);

    const ipmi_answer prefixed =
        exchange(set_oem_lan_parameter(port.channel, ipv6_prefix_length).u8(uint8_t(prefix_length)));
    if (!prefixed.ok()) {
        const uint32_t code = prefixed.error_code(ipv6_prefix_length);
        return write_failed(bracket, prefixed, [&] {
            // Kept: never shows g_error_code. Without an answer the completion code shown is that of the address.
            fail_because(code, "Set IP address, error code: 0x%X", prefixed.composite_code(ipv6_prefix_length));
        });
    }
    log_change("Network", "Set %s IPv6 prefix length(%d) success,EvtCode:0x212006A0", port.log_word, prefix_length);
    done("Set IPv6 address successfully.");
    return 1;
}

int ipaddr6(const lan_port &port, const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const bool third_word = typed.has_values(2);  // Kept: of no effect but on the next failure's text
    if (!third_word && !typed.has_values(1))
        return ipaddr6_usage(port);

    lan_bracket bracket;
    if (!bracket.opened()) {
        bracket.close();  // Kept: though it was never open
        return third_word ? fail("Set IPv6 address failed, error code: 0x%X", g_error_code)
                          : opening_mode_failed(typed.value(0));
    }
    const char *slash = strchr(typed.value(0), '/');
    return slash != nullptr ? set_ipv6_address(port, bracket, typed.value(0), slash)
                            : set_ipv6_source(port, bracket, typed.value(0));
}

// Gateways ----------------------------------------------------------------------------------------------------------

int gateway(const lan_port &port, const invocation &typed)
{
    static constexpr char failure[] = "Set gateway failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1))
        return usage_error("Usage: cfgtool -t %s -d gateway -v <gateway>", port.target);
    uint32_t address;
    if (!parse_ipv4(typed.value(0), address))
        return refuse("Input parameter format invalid.");

    lan_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);  // Kept: nothing is closed here
    const ipmi_answer got = exchange(set_lan_parameter(port.channel, default_gateway).u32be(address));
    if (!got.ok())
        return fail(failure, got.error_code(default_gateway));
    bracket.close();
    done("Set gateway success.");
    log_change("Network", "Set %s IPv4 gateway(%s) success,EvtCode:0x21200670", port.log_word, typed.value(0));
    return 1;
}

int gateway6(const lan_port &port, const invocation &typed)
{
    static constexpr char failure[] = "Set gateway6 failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1))
        return usage_error("Usage: cfgtool -t %s -d gateway6 -v <gateway6>", port.target);
    ipv6_bytes address;
    if (!parse_ipv6(typed.value(0), address))
        return refuse("Input parameter format invalid.");

    lan_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);  // Kept: nothing is closed here
    const ipmi_answer got = exchange(set_oem_lan_parameter(port.channel, ipv6_gateway).bytes(address.reversed));
    if (!got.ok())
        return fail(failure, got.error_code(ipv6_gateway));
    bracket.close();
    done("Set gateway6 success.");
    log_change("Network", "Set %s IPv6 gateway(%s) success,EvtCode:0x212006B0", port.log_word, typed.value(0));
    return 1;
}

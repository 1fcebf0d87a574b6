#include "snmp/trap.h"

#include "ipmi/lan_parameters.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

#include <cstring>
#include <strings.h>

// LAN parameter selectors: Community String (IPMI 2.0, LAN Configuration Parameters), and the controller maker's
static constexpr uint8_t community_selector = 0x10, version_selector = 0xC3, severity_selector = 0xC4;

// Community ---------------------------------------------------------------------------------------------------------

static int community_usage()
{
    return usage_error("Usage: cfgtool -t trap -d community\r\n"
                       "    Contains 1-18 characters.\r\n"
                       "    Contains any digits, letters, or symbols except space.\r\n"
                       "    You must add blackslashes (\\) before the following characters: "
                       "~!@#$%%^&*()-=_+{}[]\\|:;'\"<>?,./\r\n"
                       "    For example, tes\\<a\\|b\\>t.");
}

/// Kept: "spaces", where the usage above has "space".
static int community_length_usage()
{
    return usage_error("Usage: cfgtool -t trap -d community\r\n"
                       "    Contains 1-18 characters.\r\n"
                       "    Contains any digits, letters, or symbols except spaces.\r\n"
                       "    You must add blackslashes (\\) before the following characters: "
                       "~!@#$%%^&*()-=_+{}[]\\|:;'\"<>?,./\r\n"
                       "    For example, tes\\<a\\|b\\>t.");
}

static void print_community_rules()
{
    say("Invalid Community:\r\n"
        "1) Contains 8-18 characters.\r\n"
        "2) Contains at least one of the following special characters:`~!@#$%%^&*()-_=+\\|[{}];:'\",<.>/?\r\n"
        "3) Contains at least two types of the following characters:\r\n"
        "   - Letters:a to z;\r\n"
        "   - Letters:A to Z;\r\n"
        "   - Digits:0 to 9;");
}

/// Asks for a community twice. False = told why there is none.
static bool read_new_community(typed_community &community)
{
    if (!community.read("New Community:"))
        return refuse("Usage: Input New Community error ") != 0;
    const size_t length = strlen(community.text);
    if (length < 1 || length > max_community)  // Kept: more cannot be typed
        return community_length_usage() != 0;
    if (vos_check_incorrect_char(community.text, " ") != 0)
        return refuse("Community string exclude characters:  spaces ") != 0;
    typed_community confirmation;
    if (!confirmation.read("Confirm Community:"))
        return refuse("Confirm Community error ") != 0;
    if (strcmp(community.text, confirmation.text) != 0)
        return refuse("Confirm Community error.") != 0;
    return true;
}

/// Wipes what was typed once it is in the request, and the request once it is sent.
static ipmi_answer set_community(typed_community &community)
{
    ipmi_request request = set_lan_parameter(lan_channel, community_selector);
    community.text[strcspn(community.text, " ")] = '\0';  // Kept: a blank ends it, should one get here
    request.padded(community.text, max_community);
    community.wipe();
    return exchange(request);
}

int trap_community(const invocation &typed)
{
    static constexpr uint8_t against_community_rules = 0x84;
    static constexpr char failure[] = "Set SNMP trap community failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return community_usage();
    typed_community community;
    if (!read_new_community(community))
        return 0;

    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set SNMP trap community name, error code: 0x%X", g_error_code);
    const ipmi_answer got = set_community(community);
    if (!got.ok()) {
        fail(failure, got.error_code(community_selector));
        if (got.refused_with(against_community_rules)) {
            print_community_rules();
            bracket.leave_open();  // Kept so
        }
        return 0;
    }
    bracket.close();
    done("Set SNMP trap community success.");
    log_change("Alert", "Set SNMP trap community success,EvtCode:0x213007A0");
    return 1;
}

// Version -----------------------------------------------------------------------------------------------------------

/// V1, V2C and V3 are sent as 1, 2 and 3; 0 = none of them. In any case of letters.
static uint8_t version_code(const char *text)
{
    static constexpr const char *versions[] = {"V1", "V2C", "V3"};
    for (uint8_t n = 0; n < 3; ++n)
        if (strcasecmp(versions[n], text) == 0)
            return uint8_t(n + 1);
    return 0;
}

int trap_version(const invocation &typed)
{
    static constexpr const char *shown_as[] = {"", "V1", "V2C", "V3"};
    if (!check_privilege(typed))
        return 0;
    const uint8_t code = typed.has_values(1) ? version_code(typed.value(0)) : uint8_t(0);
    if (code == 0)
        return usage_error("Usage: cfgtool -t trap -d version -v <V1|V2C|V3>");
    const char *version = shown_as[code];

    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set trap version, error code: 0x%X", g_error_code);
    const ipmi_answer got = exchange(set_oem_lan_parameter(lan_channel, version_selector).u8(code));
    if (got.unanswered())
        return fail("Set trap %s failed,error code: 0x%X", version, got.error_code());  // Kept: no blank, as elsewhere
    if (!got.ok())
        return fail("Set trap %s failed, error code: 0x%X", version, got.error_code(version_selector));
    bracket.close();
    done("Set trap %s success.", version);
    log_change("Alert", "Set SNMP trap version(%s) success,EvtCode:0x21300790", typed.value(0));  // Kept: as typed
    return 1;
}

// User --------------------------------------------------------------------------------------------------------------

static ipmi_request set_trap_user(const char *name, size_t length)
{
    return ipmi_request(netfn_oem, 0x93)
        .oem()
        .u8(0x2B)
        .u8(0x0A)
        .u8(0x00)
        .u8(uint8_t(length))
        .padded(name, unsigned(length));
}

int trap_user(const invocation &typed)
{
    static constexpr size_t longest_name = ipmi_request::max_data - 7;  // what the frame has room for
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1) || strlen(typed.value(0)) > longest_name)
        return usage_error("Usage: cfgtool -t trap -d user -v <username>");
    const char *name = typed.value(0);
    const ipmi_answer got = exchange(set_trap_user(name, strlen(name)));
    if (got.unanswered())
        return fail("Set trap username %s failed,error code: 0x%X", name, got.error_code());
    if (!got.ok())
        return fail("Set trap username %s failed, error code: 0x%X", name, got.error_code(oem_selector));
    done("Set trap username %s success.", name);
    log_change("Alert", "Set SNMP trap username success,EvtCode:0x21300790");
    return 1;
}

// Protocols ---------------------------------------------------------------------------------------------------------

int trap_auth_priv_protocol(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option < 1 || option > 4)
        return usage_error("Usage: cfgtool -t trap -d  auth_priv_protocol -v <option>\r\n"  // Kept: two blanks
                           "Options are:\r\n"
                           "    1    Authentication protocol MD5  Privacy protocol DES\r\n"
                           "    2    Authentication protocol MD5  Privacy protocol AES\r\n"
                           "    3    Authentication protocol SHA  Privacy protocol DES\r\n"
                           "    4    Authentication protocol SHA  Privacy protocol AES");
    const ipmi_answer got =
        exchange(ipmi_request(netfn_oem, 0x93).oem().u8(0x2B).u8(0x09).u8(0x00).u8(uint8_t(option)));
    if (got.unanswered())
        return fail("Set trap auth_priv_protocol %d failed,error code: 0x%X", option, got.error_code());
    if (!got.ok())
        return fail("Set trap auth_priv_protocol %d failed, error code: 0x%X", option, got.error_code(oem_selector));
    done("Set trap auth_priv_protocol %d success.", option);
    log_change("Alert", "Set SNMP trap auth_priv_protocol(%d) success,EvtCode:0x21300790", option);
    return 1;
}

// Severity ----------------------------------------------------------------------------------------------------------

int trap_severity(const invocation &typed)
{
    static constexpr const char *names[] = {"All", "MinorAlarm", "MajorAlarm", "CriticalAlarm"};
    static constexpr int32_t last = 3;
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option < 0 || option > last)
        return usage_error("Usage: cfgtool -t trap -d severity -v <option>\r\n"
                           "Options are:\r\n"
                           "    0    ALL\r\n"
                           "    1    Minor and above\r\n"
                           "    2    Major and above\r\n"
                           "    3    Critical");
    const auto severity = uint8_t(leading_number(typed.value(0)));  // Kept: so "0x3" is accepted and sends 0

    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set trap severity, error code: 0x%X", g_error_code);
    const ipmi_answer got = exchange(set_oem_lan_parameter(lan_channel, severity_selector).u8(0x00).u8(severity));
    if (got.unanswered())
        return fail("Set trap severity failed,error code: 0x%X", got.error_code());
    if (!got.ok())
        return fail("Set trap severity failed, error code: 0x%X", got.error_code(severity_selector));
    bracket.close();
    done("Set trap severity success.");
    const char *name = names[severity <= last ? severity : 0];  // Kept: any other would be "All"
    log_change("Alert", "Set trap severity filter(%s) success,EvtCode:0x21300780", name);
    return 1;
}

// Mode --------------------------------------------------------------------------------------------------------------

static ipmi_request set_trap_mode(uint8_t mode)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x15).u8(0x01).u8(0x11).u8(0x00).u8(0x00).u8(0x01).u8(mode);
}

int trap_mode(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t mode = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (mode != 0 && mode != 1)
        return usage_error("Usage: cfgtool -t trap -d  mode -v <option>\r\n"  // Kept: two blanks
                           "Options are:\r\n"
                           "    0     Event Code  \r\n"
                           "    1     OID  ");
    const char *word = mode == 0 ? "Event Code" : "OID";
    const ipmi_answer got = exchange(set_trap_mode(uint8_t(mode)));
    if (got.unanswered())
        return fail("Set trap mode %d failed,error code: 0x%X", mode, got.error_code());
    if (!got.ok())
        return fail("Set trap mode %d failed, error code: 0x%X", mode, got.error_code(oem_selector));
    done("Set trap mode %s success.", word);
    log_change("Alert", "Set SNMP trap mode(%s) success,EvtCode:0x21300CF0", word);
    return 1;
}

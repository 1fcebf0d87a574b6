#include "network/nic.h"

#include "ipmi/get_requests.h"
#include "ipmi/lan_parameters.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "system/board_profile.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstring>

// LAN parameter selectors: 802.1q VLAN ID (IPMI 2.0, LAN Configuration Parameters), and the controller maker's
static constexpr uint8_t vlan_id_selector = 0x14, shared_port_selector = 0xC5, nic_mode_selector = 0xD7;

static ipmi_request set_sideband_port(uint8_t index)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x05).u8(0x0D).u8(0x00).u8(0x00).u8(0x01).u8(index);
}

/// The number of ports of the host's network card that can carry the controller's traffic, 0 without such a card; -1 =
/// cannot be asked.
static int ask_nic_port_count()
{
    const ipmi_answer got = exchange(get_nic_port_count());
    if (!got.ok()) {
        g_error_code = got.error_code(oem_selector);
        return -1;
    }
    return ipmi_reader(got.data).skip(3).u8();  // behind the enterprise number
}

static int refuse_without_card(int port_count)
{
    const uint32_t reason = port_count < 0 ? g_error_code : 0;
    return refuse_because(reason, "The NIC is not installed in the host!");
}

// Mode --------------------------------------------------------------------------------------------------------------

struct nic_mode {
    const char *word;  // as typed
    uint8_t code;
    const char *name;
};
static constexpr nic_mode dedicated = {"1", 1, "Dedicated"};
static constexpr nic_mode nic_modes[] = {dedicated, {"2", 2, "Shared"}, {"3", 3, "Adaptive"}};

static const nic_mode *find_mode(const char *word)
{
    for (const nic_mode &mode : nic_modes)
        if (strcmp(mode.word, word) == 0)
            return &mode;
    return nullptr;
}

int eth0_mode(const invocation &typed)
{
    static constexpr uint8_t state_not_supported = 0x81;
    if (!check_privilege(typed))
        return 0;
    const nic_mode *mode = typed.has_values(1) ? find_mode(typed.value(0)) : nullptr;
    if (mode == nullptr)
        return usage_error("Usage: cfgtool -t eth0 -d mode -v <option>\r\n"
                           "Options are:\r\n"
                           "    1    Dedicated \r\n"
                           "    2    Shared \r\n"
                           "    3    Adaptive ");
    if (mode->code != dedicated.code)
        if (const int port_count = ask_nic_port_count(); port_count <= 0)
            return refuse_without_card(port_count);

    lan_bracket bracket;
    if (!bracket.opened())
        return fail("Set eth0 state failed, error code: 0x%X", g_error_code);  // Kept: "state"
    const ipmi_answer got = exchange(set_oem_lan_parameter(lan_channel, nic_mode_selector).u8(mode->code));
    if (got.refused_with(state_not_supported))
        return fail_because(got.error_code(nic_mode_selector),
                            "Curret state is not supported, please wait!");  // Kept: spelled so
    if (!got.ok())
        return fail("Set eth0 mode failed, error code: 0x%X", got.error_code(nic_mode_selector));
    bracket.close();
    done("Set eth0 mode %s success.", mode->name);
    log_change("Network", "Set Eth mode:%s success,EvtCode:0x21200D00", mode->name);
    return 1;
}

// Sideband port -----------------------------------------------------------------------------------------------------

/// The index of "port1" to "port4", the last two only on a board with exactly four MAC addresses; -1 = none of them.
static int sideband_index(const char *word)
{
    static constexpr const char *ports[] = {"port1", "port2", "port3", "port4"};
    const int known = board.mac_count == 4 ? 4 : 2;
    for (int index = 0; index < known; ++index)
        if (strcmp(ports[index], word) == 0)
            return index;
    return -1;
}

int eth0_sideband(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int index = typed.has_values(1) ? sideband_index(typed.value(0)) : -1;
    if (index < 0)
        return usage_error("Usage: cfgtool -t eth0 -d sideband -v <port1-port%d> ", board.mac_count);
    if (const int port_count = ask_nic_port_count(); port_count <= index)
        return refuse_without_card(port_count);

    const ipmi_answer got = exchange(set_sideband_port(uint8_t(index)));
    if (!got.ok())  // Kept: never shows g_error_code
        return fail_because(got.error_code(), "Set sideband enable port failed, error code: 0x%X",
                            got.composite_code());
    done("Set sideband enable port success!");
    log_change("Network", "Set shared Eth destination port(%s) success,EvtCode:0x212006E0", typed.value(0));
    return 1;
}

// VLAN --------------------------------------------------------------------------------------------------------------

int eth0_vlan(const invocation &typed)
{
    static constexpr char failure[] = "Set eth0 vlan failed, error code: 0x%X";
    static constexpr uint16_t enabled = 0x8000;
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1))
        return usage_error("Usage: cfgtool -t eth0 -d vlan -v <off|<id>>");
    const bool off = strcmp(typed.value(0), "off") == 0;
    const uint32_t id = off ? 0 : parse_unsigned(typed.value(0));
    if (!off && (id < 1 || id > 4094))
        return refuse("vlan id must be between 1 and 4094.");

    lan_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);
    const auto value = uint16_t(off ? 0 : id | enabled);
    const ipmi_answer got = exchange(set_lan_parameter(lan_channel, vlan_id_selector).u16le(value));
    if (!got.ok())  // Kept: shows g_error_code also for a refusal, which does not set it
        return fail_because(got.error_code(vlan_id_selector), failure, g_error_code);
    bracket.close();
    done("Set eth0 vlan success.");
    log_change("Network", "%s Eth Vlan ID(%d) success,EvtCode:0x21200CB0", off ? "Disable" : "Enable", int(id));
    return 1;
}

// Shared port -------------------------------------------------------------------------------------------------------

static constexpr char eth1_state_failure[] = "Set eth1 state failed, error code: 0x%X";

/// What follows when the shared port was enabled. True = done.
static bool reset_sideband_port()
{
    static constexpr uint8_t no_port_named = 0xFF, parameter_out_of_range = 0xC9;
    const ipmi_answer got = exchange(set_sideband_port(no_port_named));
    if (got.refused_with(parameter_out_of_range))
        fail_because(got.error_code(oem_selector), "Eth1 can not been enabled or disabled!");
    else if (!got.ok())
        fail(eth1_state_failure, got.error_code(oem_selector));
    return got.ok();
}

int eth1_state(const invocation &typed)
{
    static constexpr uint8_t last_enabled_port = 0x80;
    if (!check_privilege(typed))
        return 0;
    const bool enable = typed.has_values(1) && strcmp(typed.value(0), "enabled") == 0;
    if (!enable && !(typed.has_values(1) && strcmp(typed.value(0), "disabled") == 0))
        return usage_error("Usage: cfgtool -t eth1 -d state -v <enabled|disabled>");

    lan_bracket bracket;
    if (!bracket.opened())
        return fail(eth1_state_failure, g_error_code);
    const ipmi_answer got = exchange(set_oem_lan_parameter(shared_lan_channel, shared_port_selector).u8(enable));
    if (got.refused_with(last_enabled_port))
        return fail_because(got.error_code(shared_port_selector), "Make sure one network port enabled at least!");
    if (!got.ok())
        return fail(eth1_state_failure, got.error_code(shared_port_selector));
    if (enable && !reset_sideband_port())  // the state stays as it was set
        return 0;
    bracket.close();
    done("Set eth1 state success.");
    log_change("Network", "%s shared Eth success,EvtCode:0x212006D0", enable ? "Enable" : "Disable");
    return 1;
}

#include "snmp/service.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstring>

static constexpr char module[] = "Zentro";

// Services ----------------------------------------------------------------------------------------------------------

/// Kept whole: what is not selectable is switched off for this tool.
template <uint8_t webssl_port_kind>
static constexpr service service_table[] = {
    {"ftp", 1, 0, http},   {"ssh", 2, 0, http},    {"telnet", 3, 0, http},
    {"kvm", 4, 0, http},   {"vmm", 5, 0, http},    {"cim", 6, 0, http},
    {"wsman", 7, 0, http}, {"snmp", 8, 0, http},   {"webssl", 9, 1, webssl_port_kind},
    {"lan", 10, 0, http},  {"video", 11, 0, http}, {"", 0, 0, 0},
};
const service *const state_table = service_table<http>, *const port_table = service_table<https>;

const service *find_service(const service *table, const char *name)
{
    const service *found = nullptr;
    for (const service *row = table; row->name[0] != '\0'; ++row)
        if (row->selectable == 1 && name != nullptr && strcmp(row->name, name) == 0)
            found = row;
    return found;
}

static uint8_t service_id(const service *table, const char *name)
{
    const service *found = find_service(table, name);
    return found != nullptr ? found->id : uint8_t(0);
}

uint8_t port_kind_of(const char *name)
{
    const service *found = find_service(port_table, name);
    if (found == nullptr)
        found = find_service(state_table, name);
    return found != nullptr ? found->port_kind : uint8_t(0);
}

static ipmi_request set_service(uint8_t id, uint8_t setting)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x0F).u8(id).u8(setting).u8(0x00).u8(0x00);
}

// State -------------------------------------------------------------------------------------------------------------

static ipmi_request set_service_state(uint8_t id, bool enable)
{
    static constexpr uint8_t enable_state = 0x01;
    return set_service(id, enable_state).u8(0x01).u8(uint8_t(0x40 | (enable ? 1 : 0)));
}

static void print_state_usage()
{
    usage_error("Usage: ");
    for (const service *row = state_table; row->name[0] != '\0'; ++row)
        if (row->selectable == 1)
            usage_error("       cfgtool -t service -d state -v <%s> <enabled|disabled>", row->name);
}

static int state_failed()
{
    log_change(module, "Enable/Disable service fail,EvtCode:0x202001A1");
    return 0;
}

int service_state(const invocation &typed)
{
    const char *name = typed.count > 1 ? typed.value(0) : "", *word = typed.count > 2 ? typed.value(1) : "";
    const uint8_t id = service_id(state_table, name);
    const bool enable = strcmp(word, "enabled") == 0;
    if (!check_privilege(typed))
        return state_failed();
    if (!typed.has_values(2) || id == 0 || (!enable && strcmp(word, "disabled") != 0)) {
        print_state_usage();
        return state_failed();
    }
    const char *action = enable ? "Enable" : "Disable";
    const ipmi_answer got = exchange(set_service_state(id, enable));
    if (got.refused()) {
        fail("Set service state failed, error code: 0x%X.", got.error_code());
        log_change(module, "%s %s service fail,EvtCode:0x202001A1", action, name);
        return 0;
    }
    if (got.unanswered())
        fail_silently(got.error_code());
    log_change(module, "%s %s service success,EvtCode:0x202001A0", action, name);  // Kept: also without an answer
    done("Set %s service state success.", name);
    return 1;
}

// Port --------------------------------------------------------------------------------------------------------------

static ipmi_request set_service_port(uint8_t id, uint8_t port_kind, uint16_t port)
{
    static constexpr uint8_t port_setting = 0x02;
    return set_service(id, port_setting).u8(0x02).u8(port_kind).u16le(port);
}

static void print_port_usage()
{
    usage_error("Usage: ");
    for (const service *row = port_table; row->name[0] != '\0'; ++row)
        if (row->selectable == 1)
            usage_error("       cfgtool -t service -d port -v <%s> <portvalue(1~65535)>", row->name);
}

// Kept: the texts of the plain web server; no row of its kind is selectable, but one may become so.
int port_failed(uint8_t port_kind, uint32_t port)
{
    if (port_kind == http)
        log_change(module, "Set Web Server HTTP service port(%d) fail, EvtCode:0x202001B1", int32_t(port));
    else if (port_kind == https)
        log_change(module, "Set Web Server HTTPS service port(%d) fail, EvtCode:0x202001B1", int32_t(port));
    else
        save_sys_log(log_class_change, module, "");  // Kept: a record without a text
    return 0;
}

void log_port_set(uint8_t port_kind, uint32_t port)
{
    if (port_kind == http)
        log_change(module, "Set Web Server HTTP service port(%d) success, EvtCode:0x202001B0", int32_t(port));
    else
        log_change(module, "Set Web Server HTTPS service port(%d) success, EvtCode:0x202001B0", int32_t(port));
}

int service_port(const invocation &typed)
{
    if (!typed.has_values(2)) {  // Kept: before the privilege is asked for
        print_port_usage();
        log_change(module, "Set Web Server HTTPS service port fail, EvtCode:0x202001B1");
        return 0;
    }
    const char *name = typed.value(0);
    const uint8_t id = service_id(port_table, name);
    const uint8_t port_kind = port_kind_of(name);
    const uint32_t port = parse_unsigned(typed.value(1));
    if (!check_privilege(typed))
        return port_failed(port_kind, port);
    if (id == 0 || port_kind == 0 || port < 1 || port > UINT16_MAX) {
        print_port_usage();
        return port_failed(port_kind, port);
    }
    const ipmi_answer got = exchange(set_service_port(id, port_kind, uint16_t(port)));
    if (got.refused()) {
        fail("Set service port failed, error code: 0x%X.", got.error_code());
        return port_failed(port_kind, port);
    }
    if (got.unanswered())
        fail_silently(got.error_code());
    log_port_set(port_kind, port);  // Kept: also without an answer
    done("Set %s service port to %d success.", name, int32_t(port));
    return 1;
}

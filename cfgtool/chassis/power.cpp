#include "chassis/power.h"

#include "ipmi/boot_options.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

static constexpr uint8_t fru0 = 0;
static constexpr uint8_t not_in_present_state = 0xD5;

/// One thing to do to the host.
struct host_action {
    uint32_t option;  // as typed
    uint8_t code;     // as sent
    const char *words, *success, *failure;
};

static constexpr host_action power_actions[] = {
    {0, 0x05, "off graceful", "Set chassis control(power off graceful),EvtCode:0x201000B0",
     "Set chassis control(power off graceful) fail,EvtCode:0x201000B1"},
    {1, 0x01, "on", "Host power on success,EvtCode:0x20100010", "Host power on fail,EvtCode:0x20100011"},
    {2, 0x00, "off force", "Host power off force success,EvtCode:0x20100020",
     "Host power off force fail,EvtCode:0x20100021"},
};
static constexpr host_action fru_actions[] = {
    {0, 0x00, "cold reset", "Host cold reset success,EvtCode:0x20100030", "Host cold reset fail,EvtCode:0x20100031"},
    {2, 0x02, "graceful reboot", "Host graceful reboot success,EvtCode:0x20100040",
     "Host graceful reboot fail,EvtCode:0x20100041"},
};

static ipmi_request chassis_control(uint8_t control) { return ipmi_request(netfn_chassis, 0x02).u8(control); }

static ipmi_request fru_control(uint8_t fru, uint8_t option)
{
    return ipmi_request(netfn_picmg, 0x04).u8(0x00).u8(fru).u8(option);  // PICMG identifier first
}

static int log_failure(const char *record)
{
    save_sys_log(log_class_change, "Host", record);
    return 0;
}

/// What both commands record when no action was chosen, refused privilege included. Kept: the failure of "on".
static int log_nothing_chosen() { return log_failure("Host power control fail,EvtCode:0x20100011"); }

template <size_t count>
static const host_action *find_action(const host_action (&actions)[count], const invocation &typed)
{
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    for (const host_action &action : actions)
        if (option >= 0 && action.option == uint32_t(option))
            return &action;
    return nullptr;
}

int powerstate(const invocation &typed)
{
    if (!check_privilege(typed))
        return log_nothing_chosen();
    const host_action *action = find_action(power_actions, typed);
    if (action == nullptr) {
        usage_error("Usage: cfgtool -d powerstate -v <option>\r\n"
                    "Options are:\r\n"
                    "    0    Graceful Power Off, deactivate FRU\r\n"
                    "    1    Power on, activate FRU\r\n"
                    "    2    Forcibly Power Off, deactivate FRU");
        return log_nothing_chosen();
    }
    if (!ask_confirm_with_warning())
        return log_nothing_chosen();

    const ipmi_answer got = exchange(chassis_control(action->code));
    if (got.unanswered())
        fail("Control power %s failed, error code: 0x%X", action->words, got.error_code());
    else if (got.refused_with(not_in_present_state))  // Kept: no carriage return, and nothing for any other refusal
        fail_raw(got.error_code(), "Set Power Control(power %s)failed: Command not supported in present state\n",
                 action->words);
    else if (!got.ok())
        fail_silently(got.error_code());
    if (!got.ok())
        return log_failure(action->failure);

    done("Control power %s successfully.", action->words);
    save_sys_log(log_class_change, "Host", action->success);
    return 1;
}

int frucontrol(const invocation &typed)
{
    if (!check_privilege(typed))
        return log_nothing_chosen();
    const host_action *action = find_action(fru_actions, typed);
    if (action == nullptr) {
        usage_error("Usage: cfgtool -d frucontrol -v <option>\r\n"
                    "Options are:\r\n"
                    "    0    Cold Reset\r\n"
                    "    2    Graceful Reboot");
        return log_nothing_chosen();
    }
    if (!ask_confirm_with_warning())
        return log_failure(action->failure);

    const ipmi_answer got = exchange(fru_control(fru0, action->code));
    if (got.unanswered())
        fail("FRU control fru%d (%s) failed, error code: 0x%X", fru0, action->words, got.error_code());
    else if (got.refused_with(not_in_present_state))  // Kept: no carriage return, and nothing for any other refusal
        fail_raw(got.error_code(), "Set fru%d Power Control(%s)failed: Command not supported in present state\n", fru0,
                 action->words);
    else if (!got.ok())
        fail_silently(got.error_code());
    if (!got.ok())
        return log_failure(action->failure);

    done("FRU control fru%d (%s) successfully.", fru0, action->words);
    save_sys_log(log_class_change, "Host", action->success);
    return 1;
}

int shutdowntimeout(const invocation &typed)
{
    static constexpr char failure[] = "Set shutdown timeout failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    const int32_t timeout_s = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (timeout_s != 0 && (timeout_s < 10 || timeout_s > 6540))
        return usage_error("Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s");

    boot_option_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);
    const auto timeout_100ms = uint16_t(timeout_s * 10);
    const ipmi_answer got = exchange(set_boot_option(boot_option_shutdown_timeout).u16le(timeout_100ms));
    if (got.refused()) {
        bracket.close();
        return fail(failure, got.error_code(boot_option_shutdown_timeout));
    }
    if (got.ok()) {
        done("Set shutdown timeout successfully.");
        log_change("Host", "Set graceful shutdown timeout(%d seconds) success,EvtCode:0x20100090", timeout_s);
    }
    if (got.unanswered())
        fail_silently(got.error_code());
    return close_and_decide(bracket);  // Kept: also when the timeout was not answered
}

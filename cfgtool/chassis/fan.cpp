#include "chassis/fan.h"

#include "ipmi/get_requests.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "system/board_profile.h"
#include "ui/arguments.h"
#include "ui/console.h"

static constexpr uint32_t mode_auto = 0, mode_manual = 1;
static constexpr uint32_t default_timeout_s = 30, max_timeout_s = 100000000;
static constexpr uint8_t emergency_shut_down = 254;  // PICMG 3.0, Get Fan Level

static ipmi_request set_fan_mode_auto() { return ipmi_request(netfn_oem, 0x91).oem().u8(0x01).u8(mode_auto); }

static ipmi_request set_fan_mode_manual(uint32_t timeout_s)
{
    return ipmi_request(netfn_oem, 0x91).oem().u8(0x01).u8(mode_manual).u32le(timeout_s);
}

static ipmi_request set_fan_level(uint8_t percent)
{
    return ipmi_request(netfn_picmg, 0x15).u8(0x00).u8(0x00).u8(percent);  // PICMG identifier, FRU 0
}

// Status ------------------------------------------------------------------------------------------------------------

static void show_level(uint8_t level)
{
    if (level == emergency_shut_down)
        say_raw("Fan has been placed in \"Emergency Shut Down\" by the Shelf Manager\n");  // Kept: no carriage return
    else if (level <= 100)
        say("Manual Fan Level:    %d%%", level);
}

/// Shows the mode and, unless it is automatic, the level. 1 = shown, 0 = no answer, else the completion code.
static int show_fan_status()
{
    const ipmi_answer shown_mode = exchange(get_fan_mode());
    if (!shown_mode.ok())
        return shown_mode.completion;

    ipmi_reader status(shown_mode.data);
    const uint8_t mode = status.skip(3).u8();  // behind the enterprise number
    const uint32_t timeout_s = status.u32le();
    const bool forever = status.u8() == 1;
    if (mode == mode_auto) {
        say("Current Mode:        Auto ");  // Kept: a blank behind it
        return 1;
    }
    if (mode == mode_manual && forever)
        say("Current Mode:        manual forever");
    else if (mode == mode_manual)
        say("Current Mode:        manual, timeout %u seconds.", timeout_s);

    const ipmi_answer level = exchange(get_fan_level());
    if (!level.ok())
        return level.completion;
    show_level(ipmi_reader(level.data).skip(1).u8());  // after the PICMG identifier
    return 1;
}

// Commands ----------------------------------------------------------------------------------------------------------

static constexpr char fanmode_usage[] =
    "Usage: cfgtool -d fanmode -v <mode> [timeout]\r\n"
    "Modes are:\r\n"
    "    0    auto regulate fan speed, without parameter [timeout]\r\n"
    "    1    manual regulate fan speed, with parameter [timeout], timeout range <0-100000000>";

int fanmode(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const bool timeout_given = typed.has_values(2);
    if (!timeout_given && !typed.has_values(1))
        return usage_error(fanmode_usage);
    const uint32_t mode = parse_unsigned(typed.value(0));
    const uint32_t timeout_s = timeout_given ? parse_unsigned(typed.value(1)) : default_timeout_s;
    if (mode > mode_manual || timeout_s > max_timeout_s)  // what is no number is larger than both
        return usage_error(fanmode_usage);
    if (mode == mode_auto && timeout_given)
        return usage_error(fanmode_usage);

    const ipmi_answer got = exchange(mode == mode_auto ? set_fan_mode_auto() : set_fan_mode_manual(timeout_s));
    if (!got.ok())
        return fail("Set fan mode failed, error code: 0x%X", got.error_code());

    done("Set fan mode successfully.");
    if (mode == mode_auto) {
        say("Current Mode:       Auto");  // Kept: one blank less than in the status
        log_change("Fan", "Set fan mode(%s) success,EvtCode:0x20E004D0", "auto");
        return 1;
    }
    show_fan_status();
    log_change("Fan", "Set fan mode(%s) success,EvtCode:0x20E004D0", "manual");
    log_change("Fan", "Set fan manual mode expired time(%u seconds) success,EvtCode:0x20E004E0", timeout_s);
    return 1;
}

int fanlevel(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t percent = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (percent < 0)
        return usage_error("Usage: cfgtool -d fanlevel -v <value>");
    if (percent < board.min_fan_level)
        return refuse("Fanlevel must not be lower than %d percent.", board.min_fan_level);
    if (percent > 100)
        return refuse("The highest fanlevel is 100 percent.");

    const ipmi_answer got = exchange(set_fan_level(uint8_t(percent)));
    if (!got.ok())
        return fail("Set fan level  failed, error code: 0x%X", got.error_code());  // Kept: two blanks

    done("Set fan level successfully.");
    show_fan_status();
    log_change("Fan", "Set fan level(%d) success,EvtCode:0x20E004F0", percent);
    return 1;
}

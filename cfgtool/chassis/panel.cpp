#include "chassis/panel.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstdio>
#include <cstring>

// Identify LED ------------------------------------------------------------------------------------------------------

static constexpr char identify_usage[] = "Usage: cfgtool -d identify  [-v time | force]    0s<=time<=255s.\r\n"
                                         "       0s means to turn off identify led.";

static ipmi_request chassis_identify() { return ipmi_request(netfn_chassis, 0x04); }

/// What is asked of the LED: the request's data, and the record that a success leaves.
struct identify_wish {
    ipmi_request request;
    char record[80];
};

static identify_wish default_interval()
{
    return {chassis_identify(), "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"};
}

static identify_wish steady()
{
    return {chassis_identify().u8(0xFF).u8(0x01), "Set chassis identify(stendy on) success,EvtCode:0x21A011E0"};
}

static identify_wish interval(uint8_t seconds)
{
    identify_wish wish{chassis_identify().u8(seconds).u8(0x00), "Set chassis identify(off) success,EvtCode:0x21A011E0"};
    if (seconds != 0)
        snprintf(wish.record, sizeof wish.record,
                 "Set chassis identify(temporary on %d seconds) success,EvtCode:0x21A011E0", seconds);
    return wish;
}

int identify(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0 && typed.count != 2)
        return usage_error(identify_usage);
    // Kept: the value is looked at before the "-v".
    const bool force = typed.count == 2 && strcmp(typed.value(0), "force") == 0;
    const int32_t seconds = typed.count == 2 && !force ? parse_number(typed.value(0)) : 0;
    if (seconds < 0 || (typed.count == 2 && !typed.has_values(1)))
        return usage_error(identify_usage);

    // Kept: a time above 255 is no error, it is taken modulo 256.
    const identify_wish wish = typed.count == 0 ? default_interval() : force ? steady() : interval(uint8_t(seconds));
    const ipmi_answer got = exchange(wish.request);
    if (!got.ok())
        return fail("Identify UID led failed, error code: 0x%X", got.error_code());
    log_change("LED", "%s", wish.record);
    done("Identify UID led successfully.");
    return 1;
}

// Serial connector --------------------------------------------------------------------------------------------------

static constexpr char serialdir_usage[] = "Usage: cfgtool -d serialdir -v <option>.\r\n"
                                          "Options are:\r\n"
                                          " 0     Serial switch from SYS COM to PANEL COM.\r\n"
                                          " 1     Serial switch from BMC COM to PANEL COM.";

struct serial_direction {
    uint8_t code;
    const char *words, *log_words;
};
static constexpr serial_direction serial_directions[] = {
    {0, "SYS COM.", "Host Serial"},
    {4, "BMC COM.", "Zentro debug Serial"},
};

static ipmi_request set_serial_direction(uint8_t direction)
{
    return ipmi_request(netfn_oem, 0x91).oem().u8(0x17).u8(0x01).u8(direction);
}

int serialdir(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option < 0 || option > 2)
        return usage_error(serialdir_usage);
    if (option == 2)
        return refuse_silently();  // Kept: taken, and nothing done

    const serial_direction &direction = serial_directions[option];
    const ipmi_answer got = exchange(set_serial_direction(direction.code));
    if (got.unanswered())
        return fail("Set serial direction failed, error code: 0x%X.", got.error_code());
    if (!got.ok())
        return fail("Set serial port direction failed, error code: 0x%X.", got.error_code());
    done("Set serial port direction successfully!");
    say_raw("Serial port direction is:");
    say("%s", direction.words);
    log_change("Serial", "Set serial direction(Panel Connector->%s) success,EvtCode:0x20500240", direction.log_words);
    return 1;
}

// Screen snapshot ---------------------------------------------------------------------------------------------------

static ipmi_request save_screen_snapshot(bool wake_up)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x03).u8(0x00).u8(wake_up);
}

int printscreen(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0 && typed.count != 2)
        return usage_error("Usage: cfgtool -d printscreen [-v wakeup] ");  // Kept: a blank at the end, and none below
    const bool wake_up = typed.count == 2;
    if (wake_up && strcmp(typed.value(0), "wakeup") != 0)  // Kept: the first word is not looked at
        return usage_error("Usage: cfgtool -d printscreen [-v wakeup]");

    const ipmi_answer got = exchange(save_screen_snapshot(wake_up));
    if (got.refused())
        return fail("Set printscreen failed, error code: 0x%X", got.error_code(uint8_t(OEM_IANA & 0xFF)));
    if (got.ok())
        done("Set printscreen successfully.");
    else
        fail_silently(got.error_code());
    log_change("KVM", "Save screen snapshot success,EvtCode:0x20F00520");  // Kept: also when no answer came
    return 1;
}

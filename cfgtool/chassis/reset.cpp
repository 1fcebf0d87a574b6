#include "chassis/reset.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

#include <cstring>

// Controller --------------------------------------------------------------------------------------------------------

static ipmi_request cold_reset() { return ipmi_request(netfn_app, 0x02); }

int reset(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -d reset");
    if (!ask_confirm("This operation will reboot IPMC system. Continue? [Y/N]:"))
        return 0;

    const ipmi_answer got = exchange(cold_reset());
    if (!got.ok())
        return fail("Reset failed, error code: 0x%X", got.error_code());
    done("Resetting...");
    log_change("Zentro", "Reset Zentro success,EvtCode:0x202001E0");
    return 1;
}

// System Event Log --------------------------------------------------------------------------------------------------

static constexpr uint8_t initiate_erase = 0xAA, get_erasure_status = 0x00;  // IPMI 2.0, Clear SEL
static constexpr uint8_t erasure_completed = 1;

static ipmi_request reserve_sel() { return ipmi_request(netfn_storage, 0x42); }

static ipmi_request clear_sel(uint16_t reservation, uint8_t action)
{
    return ipmi_request(netfn_storage, 0x47).u16le(reservation).u8('C').u8('L').u8('R').u8(action);
}

/// A dot every 100 ms until the log is empty or the controller gives no answer to go by.
static void wait_for_erasure(uint16_t reservation)
{
    for (;;) {
        vos_task_delay_us(100000);
        say_now(".");
        const ipmi_answer got = exchange(clear_sel(reservation, get_erasure_status));
        if (!got.ok())
            fail_silently(got.error_code());
        if (!got.ok() || (ipmi_reader(got.data).u8() & 0x3F) == erasure_completed)
            return;
    }
}

int sel(const invocation &typed)
{
    static constexpr char failure[] = "Clear SEL failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1) || strcmp(typed.value(0), "clear") != 0)
        return usage_error("Usage: cfgtool -d sel -v clear");
    if (!ask_confirm_with_warning())
        return 0;

    const ipmi_answer reserved = exchange(reserve_sel());
    if (!reserved.ok())
        return fail(failure, reserved.error_code());
    const uint16_t reservation = ipmi_reader(reserved.data).u16le();
    const ipmi_answer erasing = exchange(clear_sel(reservation, initiate_erase));
    if (!erasing.ok())
        return fail(failure, erasing.error_code());

    say_now("Clear sel .");
    wait_for_erasure(reservation);
    done("completed.");  // Kept: whatever ended the waiting
    log_change("SEL", "Clear SEL records success,EvtCode:0x207002F0");
    return 1;
}

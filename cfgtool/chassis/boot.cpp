#include "chassis/boot.h"

#include "ipmi/boot_options.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

// CMOS clear --------------------------------------------------------------------------------------------------------

/// The bit is a pulse for the controller, not a lasting flag: it is taken back at once, whatever comes of that.
static void take_back_clear_cmos()
{
    boot_flags flags;
    if (!get_boot_flags(flags))
        return;
    flags.byte2() &= uint8_t(~boot_flags::clear_cmos);
    exchange(set_boot_flags(flags));
}

int clearcmos(const invocation &typed)
{
    static constexpr char failure[] = "Clear CMOS  failed, error code: 0x%X";  // Kept: two blanks
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -d clearcmos");
    if (!ask_confirm_with_warning())
        return 0;

    boot_flags flags;
    if (!get_boot_flags(flags))
        return fail(failure, g_error_code);
    boot_option_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);
    flags.byte2() |= boot_flags::clear_cmos;
    const ipmi_answer got = exchange(set_boot_flags(flags));
    if (!got.ok())
        fail(failure, got.error_code());
    if (got.refused())
        return 0;
    if (got.ok()) {
        done("Clear CMOS successfully.");
        log_change("CMOS", "Clear CMOS success,EvtCode:0x20400230");
    }
    take_back_clear_cmos();
    return close_and_decide(bracket);  // Kept: also when the clearing was not answered
}

// Boot device -------------------------------------------------------------------------------------------------------

/// The option is the boot device selector (IPMI 2.0, Boot Option Parameters).
struct boot_device {
    int32_t option;
    const char *log_name;
};
static constexpr boot_device boot_devices[] = {
    {0, "No override"}, {1, "PXE"},        {2, "Hard-drive"},
    {5, "CD/DVD"},      {6, "BIOS SETUP"}, {0xF, "floppy/primary removable media"},
};

static constexpr char bootdevice_usage[] = "Usage: cfgtool -d bootdevice -v <option>\r\n"
                                           "Options are:\r\n"
                                           "    0    No override\r\n"
                                           "    1    Force PXE\r\n"
                                           "    2    Force boot from default Hard-drive\r\n"
                                           "    5    Force boot from default CD/DVD\r\n"
                                           "    6    Force boot into BIOS Setup\r\n"
                                           "    0xF  Force boot from Floppy/primary removable media";

static const boot_device *find_device(int32_t option)
{
    for (const boot_device &device : boot_devices)
        if (device.option == option)
            return &device;
    return nullptr;
}

/// The flags to start from: the controller's if they are valid. Kept: failing to read them is not told.
static boot_flags current_or_empty_flags()
{
    boot_flags flags;
    if (get_boot_flags(flags) && (flags.byte1() & boot_flags::valid) != 0)
        return flags;
    flags = {};
    flags.byte1() = boot_flags::valid;  // for the next boot only
    return flags;
}

int bootdevice(const invocation &typed)
{
    static constexpr char failure[] = "Set boot device failed, error code: 0x%X";
    if (!check_privilege(typed))
        return 0;
    const boot_device *device = typed.has_values(1) ? find_device(parse_number(typed.value(0))) : nullptr;
    if (device == nullptr)
        return usage_error(bootdevice_usage);

    boot_flags flags = current_or_empty_flags();
    boot_option_bracket bracket;
    if (!bracket.opened())
        return fail(failure, g_error_code);
    flags.byte2() = uint8_t((flags.byte2() & ~boot_flags::device_mask) | device->option << 2);
    const ipmi_answer got = exchange(set_boot_flags(flags));
    if (got.refused()) {
        bracket.close();
        return fail(failure, got.error_code(boot_option_flags));
    }
    if (got.ok()) {
        done("Set boot device successfully.");
        log_change("Host", "Set system boot device(%s) success,EvtCode:0x20100080", device->log_name);
    } else {
        fail(failure, got.error_code());
    }
    return close_and_decide(bracket);
}

// BIOS write protection ---------------------------------------------------------------------------------------------

static constexpr char bioswriteprotect_usage[] = "Usage: cfgtool -d bioswriteprotect -v <option>\r\n"
                                                 "Options are:\r\n"
                                                 "    1    BIOS write protect enable\r\n"
                                                 "    0    BIOS write protect disable";

/// Kept: shows g_error_code whatever the code, and a refusal does not set it: it shows 0.
static int protection_failed(bool enable, uint32_t code)
{
    if (enable)
        return fail_because(code, "Enable BIOS write protection failed, error code: 0x%X", g_error_code);
    return fail_because(code, "Disable BIOS write protection failed, error code: 0x%X", g_error_code);
}

int bioswriteprotect(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option != 0 && option != 1)
        return usage_error(bioswriteprotect_usage);
    const bool enable = option == 1;

    boot_option_bracket bracket;
    if (!bracket.opened())
        return protection_failed(enable, g_error_code);
    const ipmi_answer got = exchange(set_boot_option(boot_option_bios_protect).u8(uint8_t(option)));
    if (!got.ok())
        protection_failed(enable, got.error_code(boot_option_bios_protect));
    if (got.refused())
        return 0;
    if (got.ok())
        done(enable ? "Enable BIOS write protection successfully." : "Disable BIOS write protection successfully.");
    return close_and_decide(bracket);
}

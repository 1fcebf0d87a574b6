/// The host: its power, the identify light of its chassis, and how it boots (IPMI 2.0).
#include "ipmi/boot_options.h"
#include "ipmi/get_requests.h"
#include "state/areas.h"
#include "state/complaints.h"

bool read_power(report &, node &area)
{
    static constexpr uint8_t is_on = 0x01, identify_is_known = 0x40;
    static constexpr const char *identify_words[] = {"off", "timed", "on"};
    const reply got = ask(get_chassis_status(), {0, 3}, "power");
    if (!got.ok())
        return false;
    ipmi_reader status = got.read();
    area.put("on", (status.u8() & is_on) != 0);
    const uint8_t chassis = status.skip(1).u8();
    if ((chassis & identify_is_known) == 0)
        area.put_null("identify");
    else
        put_word(area, "identify", chassis >> 4 & 0x03U, identify_words, "power.identify");
    return false;
}

// Boot options ------------------------------------------------------------------------------------------------------

/// Asks for an option; the answer begins with its version and number. One that is marked invalid has no value.
static reply ask_boot_option(uint8_t option, uint8_t size, const char *what)
{
    static constexpr uint8_t is_invalid = 0x80;
    reply got = ask(get_boot_option(option), {2, size}, what, parameter_not_supported);
    if (!got.ok())
        return got;
    const uint8_t number = got.header(1);
    if ((number & ~is_invalid) != option) {
        complain("%s: the answer is for option 0x%02X", what, number & ~is_invalid);
        got.set_failed();
    } else if ((number & is_invalid) != 0) {
        got.set_none();
    }
    return got;
}

static void read_boot_flags(node &area)
{
    static constexpr uint8_t persistent = 0x40;  // byte 1
    static constexpr const char *device_words[] = {
        "none",         "pxe",    "disk",  "safe_mode_disk", "diagnostics", "cdrom", "bios_setup", "remote_floppy",
        "remote_cdrom", "remote", nullptr, "remote_disk",    nullptr,       nullptr, nullptr,      "floppy"};
    const reply got = ask_boot_option(boot_option_flags, 2, "boot.device");
    if (got.has_none())
        for (const char *key : {"device", "valid", "persistent", "clear_cmos"})
            area.put_null(key);
    if (!got.ok())
        return;
    const uint8_t byte1 = got.value(0), byte2 = got.value(1);
    put_word(area, "device", (byte2 & boot_flags::device_mask) >> 2, device_words, "boot.device");
    area.put("valid", (byte1 & boot_flags::valid) != 0);
    area.put("persistent", (byte1 & persistent) != 0);
    area.put("clear_cmos", (byte2 & boot_flags::clear_cmos) != 0);
}

bool read_boot(report &to, node &area)
{
    to.cannot_read("boot.bios_print");
    read_boot_flags(area);

    const reply protect = ask_boot_option(boot_option_bios_protect, 1, "boot.bios_write_protect");
    if (protect.has_none())
        area.put_null("bios_write_protect");
    else if (protect.ok())
        area.put("bios_write_protect", protect.value(0) != 0);

    const reply timeout = ask_boot_option(boot_option_shutdown_timeout, 2, "boot.shutdown_timeout_s");
    if (timeout.has_none())
        area.put_null("shutdown_timeout_s");
    else if (timeout.ok())
        area.put("shutdown_timeout_s", timeout.read().u16le() / 10.0);
    return false;
}

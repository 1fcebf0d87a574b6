#include "chassis/maintenance.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "system/files.h"
#include "system/hold_signals.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// EEPROM ------------------------------------------------------------------------------------------------------------

static constexpr size_t eeprom_size = 16384, eeprom_block = 64;

/// A dot for every block, 78 to a line.
static void show_dot(size_t block)
{
    static constexpr size_t dots_per_line = 78;
    say_now((block + 1) % dots_per_line == 0 ? ".\r\n" : ".");
}

/// Reads block by block up to the first that fails.
static void read_eeprom(uint8_t *image)
{
    static constexpr int bus = 2, address = 0xA0;
    for (size_t block = 0; block < eeprom_size / eeprom_block; ++block) {
        show_dot(block);
        const size_t offset = block * eeprom_block;
        const uint8_t position[] = {uint8_t(offset >> 8), uint8_t(offset)};
        const int result =
            i2c_write_read(bus, address, position, int(sizeof position), image + offset, int(eeprom_block), 0);
        if (result < 0) {
            fail("ret = %d, pos = %d", result, int(offset));
            return;
        }
    }
}

static void save_eeprom()
{
    static constexpr char path[] = "/tmp/eeprom.bin";
    auto *image = static_cast<uint8_t *>(calloc(1, eeprom_size));
    if (image == nullptr) {
        fail("malloc failed!");
        return;
    }
    read_eeprom(image);
    const replaced how = replace_file(path, {image, eeprom_size});
    if (how == replaced::not_opened)
        fail("fp is null");
    else if (how == replaced::not_written)
        fail_silently();
    free(image);
}

int readeeprom(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -t maintenance -d readeeprom");
    save_eeprom();
    done("\nRead eeprom to file /tmp/eeprom.bin successfully.");  // Kept: whatever came of it
    log_change("Zentro", "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480");
    return 1;
}

// BIOS flash --------------------------------------------------------------------------------------------------------

static constexpr unsigned bios_8_mib = 0x800000, bios_16_mib = 0x1000000;

int downloadbios(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -t maintenance -d downloadbios");
    if (get_bios("/tmp/bios.bin", bios_8_mib) < 0)
        return fail("Download bios fail");
    log_change("BIOS", "Download bios to /tmp/bios.bin success, EvtCode:0x21701490");
    return done_silently();
}

/// Runs a program with one word, or none, and waits. What comes of it is nobody's concern.
static void run(const char *program, const char *word = nullptr)
{
    char *const words[] = {const_cast<char *>(program), const_cast<char *>(word), nullptr};
    vos_system(program, words);
}

static constexpr char flash_module[] = "/ko/m25p80.ko";
static constexpr int owner_controller = 1, owner_host = 0;

/// Takes the flash from the host, writes it and gives it back. False = failed.
static bool write_flash(const char *file, unsigned length)
{
    if (set_bios_owner(owner_controller) != 0)
        return false;
    run("/sbin/insmod", flash_module);
    const bool written = spi_flash_copy("/dev/mtd6", 0, file, 0, length, 1, 1) == 0;
    const bool given_back = set_bios_owner(owner_host) == 0;
    if (given_back || !written)  // Kept: after a write that is not given back the module stays loaded
        run("/sbin/rmmod", flash_module);
    return written && given_back;
}

static bool ends_in_bin(const char *name)
{
    const size_t length = strlen(name);
    return length >= 4 && strcmp(name + length - 4, ".bin") == 0;
}

static bool upgrade_from(const char *file)
{
    const long length = get_file_length(file);
    if (length != bios_8_mib && length != bios_16_mib) {
        fail("\n BIOS.bin size is error, please check upgrade file.");
        return false;
    }
    say("size of %s is %d", file, int(length));
    return write_flash(file, unsigned(length));
}

int upgradebios(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 2 || strncmp(typed.arguments[0], "-v", 2) != 0)  // Kept: no more than these two characters
        return usage_error("Usage: cfgtool -t maintenance -d upgradebios -v <filename>");
    const char *file = typed.value(0);
    if (!ends_in_bin(file))
        return refuse("please check the upgrade file BIOS.bin ");
    if (!ask_confirm("This operation will upgrade BIOS. Continue? [Y/N]:"))
        return 0;
    const hold_signals until_recorded;  // and above all while the flash is the controller's
    if (!upgrade_from(file))
        return fail("Upgrade bios fail");
    log_change("BIOS", " Upgrade bios from %s success, EvtCode:0x217014A0", file);  // Kept: a blank in front
    return done_silently();
}

// Web server --------------------------------------------------------------------------------------------------------

int webrestart(const invocation &typed)
{
    static constexpr char web_server[] = "/web/linux/webs";
    if (!check_privilege(typed)) {
        log_change("Zentro", "Restart web service fail, EvtCode:0x202014E1");
        return 0;
    }
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -t maintenance -d webrestart");
    run("/sbin/killall", web_server);
    vos_task_delay(2000);
    run(web_server);
    log_change("Zentro", "Restart web service success, EvtCode:0x202014E0");
    return done_silently();
}

// BIOS debug output -------------------------------------------------------------------------------------------------

int biosprint(const invocation &typed)
{
    static constexpr const char *descriptions[] = {"unknown op", "Set BIOS debug info enable",
                                                   "Set BIOS debug info enabled/disabled by BIOS setup menu"};
    static constexpr int on = 1, not_supported = -10;
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option != 1 && option != 2)
        return usage_error("Usage: cfgtool -t maintenance -d biosprint -v <option>\r\n"
                           "Options are:\r\n"
                           "    1    BIOS debug info enable\r\n"
                           "    2    BIOS debug info enabled/disabled by BIOS setup menu");
    if (option == on) {
        say("WARNING: Setting BIOS debug info enable will make system start slow. ");
        if (!ask_confirm(continue_prompt))
            return 0;
    }
    const char *description = descriptions[option];
    const int result = set_bios_print_flag(option == on);
    if (result == not_supported)
        return fail("Unsupported command.");
    if (result != 0) {
        fail("%s failed.", description);
        log_change("BIOS", "%s failed.", description);
        return 0;
    }
    done("%s successfully.", description);
    log_change("BIOS", "%s successfully.", description);
    return 1;
}

// Web host name -----------------------------------------------------------------------------------------------------

static constexpr size_t longest_host = 255, host_chunk = 18;

static ipmi_request set_http_host(bool more, size_t offset, const char *chunk, size_t size)
{
    return ipmi_request(netfn_oem, 0x93)
        .oem()
        .u8(0x05)
        .u8(0x18)
        .u8(more)
        .u8(uint8_t(offset))
        .u8(uint8_t(size))
        .padded(chunk, unsigned(size));
}

int httphost(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1))
        return usage_error("Usage: cfgtool -d httphost -v <value>");
    const char *host = typed.value(0);
    const size_t length = strlen(host);
    if (length > longest_host)
        return refuse("invalid httphost length, it must be less than 256 characters");

    for (size_t offset = 0; offset < length; offset += host_chunk) {
        const bool more = length - offset > host_chunk;
        const size_t size = std::min(length - offset, host_chunk);
        const ipmi_answer got = exchange(set_http_host(more, offset, host + offset, size));
        if (!got.ok())
            return fail("Set httphost %s failed, error code: 0x%X", host, got.error_code(uint8_t(OEM_IANA >> 8)));
    }
    log_record(log_class_account, "WebUI", "Set httphost success,EvtCode:0x10301570");
    done("Set httphost success.");
    return 1;
}

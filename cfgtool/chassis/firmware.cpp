#include "chassis/firmware.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"

#include <csignal>
#include <cstring>

static constexpr char module[] = "Firmware";

static ipmi_request upgrade_request(uint8_t action) { return ipmi_request(netfn_oem, 0x91).oem().u8(0x06).u8(action); }
static constexpr uint8_t initiate_action = 0xAA, status_action = 0x00, finish_action = 0x55;

// Arguments ---------------------------------------------------------------------------------------------------------

static constexpr size_t longest_path = 80;

struct upgrade_order {
    const char *path;
    bool reboot;
};

static int upgrade_usage()
{
    return usage_error("Usage: cfgtool -d upgrade -v [filepath] [option]\r\n"
                       "Filepath      e.g.: /tmp/image.hpm\r\n"
                       "Option are:\r\n"
                       "    1           reboot BMC after upgrade(default)\r\n"
                       "    0           don't reboot BMC after upgrade");
}

static bool is_reboot_option(const char *word) { return strcmp(word, "0") == 0 || strcmp(word, "1") == 0; }

/// False = told why not.
static bool take_arguments(const invocation &typed, upgrade_order &order)
{
    order = {"/tmp/image.hpm", true};
    const bool path_and_option = typed.has_values(2), path_or_option = typed.has_values(1);
    if (typed.count == 0)
        return true;
    if (!path_and_option && !path_or_option)
        return upgrade_usage() != 0;
    const char *path = typed.value(0), *option = typed.value(path_and_option ? 1 : 0);
    const bool is_path = path[0] == '/';
    if (strlen(path) > longest_path && (is_path || path_and_option))  // Kept: with an option, before the "/" is missed
        return refuse("Invalid length of the file path") != 0;
    if (is_path)
        order.path = path;
    else if (path_and_option)
        return upgrade_usage() != 0;
    if (is_path && path_or_option)
        return true;
    if (!is_reboot_option(option))
        return upgrade_usage() != 0;
    order.reboot = option[0] == '1';
    return true;
}

// Initiate ----------------------------------------------------------------------------------------------------------

static constexpr size_t chunk_size = 16;

static ipmi_request initiate_request(const char *path, size_t length, size_t offset)
{
    const bool more = length - offset > chunk_size;
    const size_t size = more ? chunk_size : length - offset;
    ipmi_request request = upgrade_request(initiate_action);
    request.u8(0x00).u8(0x00).u8(uint8_t((more ? 0x80 : 0x00) | offset)).u8(uint8_t(size));
    request.padded(path + offset, unsigned(size));
    return request;
}

/// Hands over the path. False = told and recorded why not.
static bool initiate(const char *path)
{
    static constexpr uint8_t already_upgrading = 0x80;
    const size_t length = strlen(path);
    for (size_t offset = 0; offset < length; offset += chunk_size) {
        const ipmi_answer got = exchange(initiate_request(path, length, offset));
        if (got.ok())
            continue;
        if (got.unanswered())
            fail_because(got.error_code(), "send upgrade cmd faild!");  // Kept: spelled so
        else if (got.refused_with(already_upgrading))
            fail_because(got.error_code(), "Upgrade in progress.");
        else
            fail_because(got.error_code(), "Upgrade failed, error code:0x%02x", got.completion);
        log_change(module, "Initiate upgrade firmware fail,EvtCode:0x20B00401");
        return false;
    }
    char name[128] = "";
    vos_get_file_name(path, name, sizeof name);
    log_change(module, "Initiate upgrade firmware(%s) success,EvtCode:0x20B00400", name);
    return true;
}

// Follow ------------------------------------------------------------------------------------------------------------

static uint8_t current_component = 1;

static const char *component_name(uint8_t component)
{
    switch (component) {
    case 1:
        return "Zentro";
    case 2:
        return "BIOS";
    case 5:
        return "CPLD";
    case 6:
        return "HDD backplane CPLD";
    default:
        return "unknown";
    }
}

struct upgrade_status {
    bool show_100;
    uint8_t percent, state, component, extended_error;

    static constexpr uint8_t updating = 2, finished = 3;
};

static upgrade_status read_status(std::span<const uint8_t> data)
{
    ipmi_reader fields(data);
    const uint8_t progress = fields.skip(3).u8();  // behind the enterprise number
    const uint8_t state = fields.u8(), component = fields.u8(), extended_error = fields.u8();
    return {(progress & 0x80) != 0, uint8_t(progress & 0x7F), state, component, extended_error};
}

/// Returns false.
static bool show_refusal(const ipmi_answer &got)
{
    const uint32_t code = got.error_code();
    const upgrade_status status = read_status(got.data);
    switch (got.completion & 0x7F) {
    case 2:
        return fail_because(code, "The file does not exist!");
    case 3:
        return fail_because(code, "Invalid upgraded file!");
    case 4:
        return fail_because(code, "Not enough memory!");
    case 8:
        return fail_because(code, "Power-on state does not support upgrade!");
    default:
        return fail_because(code, "Error code: 0x%02x%02x ", status.extended_error, status.component);
    }
}

static void tell_start(uint8_t component)
{
    static constexpr uint8_t bios = 2;
    say_now("Updating...\r\n");
    if (component == bios)
        say_now("System needs two minutes of preparation time. \r\n");
}

static void tell_progress(const upgrade_status &status)
{
    if (status.show_100)
        say_now("\r100%%");
    else if (status.percent <= 99)
        say_now("\r%2d%%", status.percent);
}

/// Asks for the status twice a second until it is finished. Without a limit. False = told why it failed.
static bool follow()
{
    for (bool started = false;;) {
        const ipmi_answer got = exchange(upgrade_request(status_action));
        if (got.unanswered())
            return fail_because(got.error_code(), "recv ipmi msg  fail, g_error_code=%d ", int(got.error_code()));
        if (!got.ok())
            return show_refusal(got);
        const upgrade_status status = read_status(got.data);
        if (status.state == upgrade_status::finished) {
            say("\r100%%");
            done("Update successfully.");
            return true;
        }
        if (status.state == upgrade_status::updating) {
            if (!started)
                tell_start(status.component);
            started = true;
            tell_progress(status);
        }
        current_component = status.component;
        vos_task_delay(500);
    }
}

// Finish ------------------------------------------------------------------------------------------------------------

/// Has the controller activate the image and reboot.
static void finish()
{
    const ipmi_answer got = exchange(upgrade_request(finish_action));
    const char *component = component_name(current_component);
    if (got.ok()) {
        log_change(module, "Finish upgrade firmware(%s) success,EvtCode:0x20B00B60", component);
        return;
    }
    if (got.refused())
        fail("Finish upgrade failed, error code: 0x%X", got.error_code(0x06));
    log_change(module, "Finish upgrade firmware(%s) fail,EvtCode:0x20B00B61", component);
    fail_because(got.error_code(0x06), "finish upgrade failed!");
}

/// From here on to its end the tool can be neither interrupted nor suspended from the terminal.
static void shut_out_terminal_signals()
{
    struct sigaction ignoring {
    };
    ignoring.sa_handler = [](int) {};
    ignoring.sa_flags = SA_RESTART;
    sigaction(SIGINT, &ignoring, nullptr);
    sigaction(SIGTSTP, &ignoring, nullptr);
}

int upgrade(const invocation &typed)
{
    upgrade_order order;
    if (!check_privilege(typed) || !take_arguments(typed, order))
        return 0;
    shut_out_terminal_signals();
    say("Please make sure the Zentro is working while upgrading!");
    if (!initiate(order.path) || !follow())
        return fail("Update fail.");
    if (order.reboot)
        finish();
    return 1;
}

// Rollback ----------------------------------------------------------------------------------------------------------

static ipmi_request initiate_manual_rollback() { return ipmi_request(netfn_picmg, 0x38).u8(0x00); }  // PICMG HPM.1

static int rollback_failed()
{
    log_change(module, "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1");
    return 0;
}

int rollback(const invocation &typed)
{
    if (!check_privilege(typed) || !ask_confirm_with_warning())
        return rollback_failed();
    const ipmi_answer got = exchange(initiate_manual_rollback());
    if (got.unanswered()) {
        fail("Set rollback failed,error code: 0x%X", got.error_code());  // Kept: no blank after the comma
        return rollback_failed();
    }
    if (!got.ok()) {
        fail("Set rollback failed, error code: 0x%X", got.error_code());
        return rollback_failed();
    }
    done("Set rollback successfully, system will reboot soon!");
    log_change(module, "Initiate Zentro manual rollback success,EvtCode:0x20B003F0");
    return 1;
}

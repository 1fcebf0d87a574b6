#include "user/settings.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "system/hold_signals.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"
#include "user/directory.h"

#include <algorithm>
#include <cstring>

static constexpr char module[] = "User";

static std::span<const uint8_t> bytes_of(const char *text, size_t count)
{
    return {reinterpret_cast<const uint8_t *>(text), count};
}

// privilege ---------------------------------------------------------------------------------------------------------

static const char *privilege_name(int32_t privilege)
{
    switch (privilege) {
    case 1:
        return "callback";
    case 2:
        return "user";
    case 3:
        return "operator";
    case 4:
        return "administrator";
    case 15:
        return "no access";
    default:
        return "unknown";
    }
}

static bool can_be_given(int32_t privilege) { return (privilege >= 2 && privilege <= 4) || privilege == 15; }

static ipmi_request set_user_access(uint8_t user, uint8_t privilege)
{
    static constexpr uint8_t lan_channel_number = 1;  // no bit set to change the other access bits
    return ipmi_request(netfn_app, 0x43).u8(lan_channel_number).u8(user).u8(privilege);
}

static void print_privilege_usage()
{
    usage_error("cfgtool -d privilege -v <username> <privilege>\r\n"
                "Privileges are:\r\n"
                "    15       No Access\r\n"
                "    2        User\r\n"
                "    3        Operator\r\n"
                "    4        Administrator");
}

static int privilege_failed(int32_t privilege)
{
    log_record(log_class_account, module, "Modify user privilege(%s) fail,EvtCode:0x11100591",
               privilege_name(privilege));
    return 0;
}

static int privilege_failed(const char *name, uint8_t user, int32_t privilege)
{
    log_record(log_class_account, module, "Modify user(%s|user%d) privilege(%s) fail,EvtCode:0x11100591", name, user,
               privilege_name(privilege));
    return 0;
}

int privilege(const invocation &typed)
{
    static constexpr char failure[] = "Set user privilege failed, error code: 0x%X";
    if (!typed.has_values(2)) {
        print_privilege_usage();
        log_record(log_class_account, module, "Modify user privilege fail,EvtCode:0x11100591");
        return 0;
    }
    const char *name = typed.value(0);
    const int32_t wanted = parse_number(typed.value(1));
    if (!check_privilege(typed) || verify_caller_password() != 0)
        return privilege_failed(wanted);
    if (!refresh_user_table()) {
        fail(failure, g_error_code);
        log_record(log_class_account, module, "Modify user(%s) privilege fail,EvtCode:0x11100591",
                   privilege_name(wanted));  // Kept: the privilege in the place of the name
        return 0;
    }
    const uint8_t user = find_user(name);
    if (user == user_limit) {
        fail("Set user privilege failed.");
        log_record(log_class_account, module, "Modify user(user%d) privilege(%s) fail,EvtCode:0x11100591", user,
                   privilege_name(wanted));
        return 0;
    }
    if (!can_be_given(wanted)) {
        print_privilege_usage();
        return privilege_failed(name, user, wanted);
    }
    for (const ipmi_request &request : {enable_user_request(user), set_user_access(user, uint8_t(wanted))}) {
        if (const ipmi_answer got = exchange(request); !got.ok()) {
            fail(failure, got.error_code());
            return privilege_failed(name, user, wanted);
        }
    }
    done("Set user privilege successfully.");
    log_record(log_class_account, module, "Modify user(%s|user%d) privilege(%s) success,EvtCode:0x11100590", name, user,
               privilege_name(wanted));
    return 1;
}

// unlock ------------------------------------------------------------------------------------------------------------

static constexpr uint8_t unlock_operation = 0x80, user_not_unlocked = 0x85;

static ipmi_request unlock_user(const char *name)
{
    return ipmi_request(netfn_oem, 0x91)
        .oem()
        .u8(check_password_function)
        .u8(unlock_operation)
        .padded(name, 16)
        .padded("", 20);
}

static int unlock_failed()
{
    log_record(log_class_account, module, "Set user unlock status fail,EvtCode:0x11100CC1");
    return 0;
}

int unlock(const invocation &typed)
{
    if (!check_privilege(typed))
        return unlock_failed();
    if (!typed.has_values(1)) {
        usage_error("Usage: cfgtool -t user -d unlock -v <username>");
        return unlock_failed();
    }
    if (verify_caller_password() != 0)
        return unlock_failed();
    if (!refresh_user_table()) {
        refuse_silently(g_error_code);
        return unlock_failed();
    }
    const uint8_t user = find_user(typed.value(0));
    if (user == user_limit) {
        fail("Set user unlock failed.");
        log_record(log_class_account, module, "Set user(user%d) unlock status fail,EvtCode:0x11100CC1", user);
        return 0;
    }
    const char *name = user_table[user].name;
    const ipmi_answer got = exchange(unlock_user(name));
    if (got.ok()) {
        done("Set user:%s unlock status successfully.", name);
        log_record(log_class_account, module, "Set user(%s|user%d) unlock status success,EvtCode:0x11100CC0", name,
                   user);
        return 1;
    }
    if (got.unanswered())
        fail("Send 'unlock user' failed, error code: 0x%X", got.error_code());
    else if (got.refused_with(user_not_unlocked))
        fail_because(got.error_code(unlock_operation), "Unlock user failed!");
    else
        fail("Unlock user failed, error code: 0x%X", got.error_code(unlock_operation));
    log_record(log_class_account, module, "Set user(%s|user%d) unlock status fail,EvtCode:0x11100CC1", name, user);
    return 0;
}

// passwordcomplexity ------------------------------------------------------------------------------------------------

static ipmi_request set_complexity_check(bool enable)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x22).u8(enable);
}

static int complexity_failed()
{
    log_record(log_class_account, module,
               "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1");
    return 0;
}

static int complexity_failed(bool enable)
{
    log_record(log_class_account, module, "%s local user password complexity check fail, EvtCode:0x11100BD1",
               enable ? "Enable" : "Disable");
    return 0;
}

int passwordcomplexity(const invocation &typed)
{
    if (!check_privilege(typed))
        return complexity_failed();
    const bool enable = typed.has_values(1) && strcmp(typed.value(0), "enable") == 0;
    if (!enable && !(typed.has_values(1) && strcmp(typed.value(0), "disable") == 0)) {
        usage_error("Usage: cfgtool -d passwordcomplexity -v <enable/disable>");
        return complexity_failed();
    }
    if (!enable) {
        say("WARNING: Disabling the complexity checking function may reduce the system security.");
        if (!ask_confirm(continue_prompt))
            return complexity_failed(enable);
    }
    const ipmi_answer got = exchange(set_complexity_check(enable));
    if (!got.ok()) {
        // Kept: the enterprise number's second byte in the code, where others have the function.
        fail("Set password complexity check state failed, error code: 0x%X", got.error_code(uint8_t(OEM_IANA >> 8)));
        return complexity_failed(enable);
    }
    done("Set password complexity check state successfully");
    log_record(log_class_account, module, "%s local user password complexity check success, EvtCode:0x11100BD0",
               typed.value(0));  // Kept: as typed, while the failures capitalise it
    return 1;
}

// remotemanageid ----------------------------------------------------------------------------------------------------

static constexpr size_t longest_manage_id = 64, manage_id_piece = 16;

/// One piece of the id, the last one unless more follow.
static ipmi_request set_manage_id(bool more, size_t offset, std::span<const uint8_t> piece)
{
    ipmi_request request(netfn_oem, 0x94);
    request.oem().u8(0x1F).u8(0x01).u8(0x0C).u8(more).u8(uint8_t(offset)).u8(uint8_t(piece.size())).bytes(piece);
    return request;
}

int remotemanageid(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(1))
        return usage_error("cfgtool -d remotemanageid -v <id>\r\n"
                           "    Contains 0-64 characters.\r\n"
                           "    Contains any digits, letters, or symbols.\r\n"
                           "    You must add blackslashes (\\) before spaces and the following characters: "
                           "~!@#$%%^&*()-=_+{}[]\\|;:'\"<>?,./\r\n"
                           "    For example, tes\\<a\\|b\\>t.");
    const char *id = typed.value(0);
    const size_t length = strlen(id);
    if (length > longest_manage_id)
        return refuse("The length of remotemanageid is too long.\r\n"
                      "Remote Manage ID should less than 64 bytes.");  // Kept: 64 are accepted

    // Kept: a length that is a multiple of 16, 0 included, ends with a last piece of length 0.
    for (size_t offset = 0; offset <= length; offset += manage_id_piece) {
        const bool more = length - offset > manage_id_piece;
        const size_t size = more ? manage_id_piece : length - offset;
        const ipmi_answer got = exchange(set_manage_id(more, offset, bytes_of(id + offset, size)));
        // Kept: the digits, and that one of the two does not say "failed".
        if (got.unanswered())
            return fail("2set remotemanageid failed, error code: 0x%X", got.error_code());
        if (!got.ok())
            return fail("1set remotemanageid, error code: 0x%X", got.error_code(0x01));
    }
    done("Set remotemanageid:%s successfully.", id);
    log_record(log_class_account, "Zentro", "Set Device Remote Manage ID(%s) success,EvtCode:0x20200DD0", id);
    return 1;
}

// serialnumber ------------------------------------------------------------------------------------------------------

static constexpr size_t longest_serial_number = 22, serial_piece = 18;
static constexpr char serial_failure[] = "Set smbios serial number failed, error code: 0x%X";

static ipmi_answer smbios_write_bracket(bool begin)
{
    return exchange(ipmi_request(netfn_oem, 0x90).u8(0x20).oem().u8(begin));
}

static ipmi_request set_serial_piece(bool more, size_t offset, std::span<const uint8_t> piece)
{
    ipmi_request request(netfn_oem, 0x90);
    request.u8(0x04).u8(0x00).u8(0x06).u8(0x03);
    request.u8(uint8_t((more ? 0x80 : 0x00) | offset)).u8(uint8_t(piece.size())).bytes(piece);
    return request;
}

/// False = told why not.
static bool send_serial_number(const char *number, size_t length)
{
    for (size_t offset = 0; offset < length; offset += serial_piece) {
        const bool more = length - offset > serial_piece;
        const size_t size = std::min(length - offset, serial_piece);
        const ipmi_answer got = exchange(set_serial_piece(more, offset, bytes_of(number + offset, size)));
        if (!got.ok()) {
            fail(serial_failure, got.error_code(0x04));
            return false;
        }
    }
    done("Set smbios serial number successfully.");
    return true;
}

int serialnumber(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const size_t length = typed.has_values(1) ? strlen(typed.value(0)) : 0;
    if (length == 0 || length > longest_serial_number)
        return usage_error("Usage: cfgtool -t smbios -d serialnumber -v <serialnumber> \r\n"
                           "the length of serialnumber is 0<length<23");

    const hold_signals until_closed;
    const ipmi_answer got = smbios_write_bracket(true);
    if (!got.ok())
        return fail(serial_failure, got.error_code(0x20));
    const bool sent = send_serial_number(typed.value(0), length);
    smbios_write_bracket(false);
    return sent;
}

#include "user/account.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"
#include "ui/prompt.h"
#include "user/add_lock.h"
#include "user/directory.h"

#include <algorithm>
#include <cstring>

static constexpr uint8_t against_password_rules = 0x84, trap_v3_user = 0xD7;
static constexpr char module[] = "User";

// Passwords ---------------------------------------------------------------------------------------------------------

unsigned repeat_count(const char *text, size_t length)
{
    if (text == nullptr)
        return 1;
    for (size_t unit = 1; unit <= length / 2; ++unit)
        if (length % unit == 0 && memcmp(text, text + unit, length - unit) == 0)  // each block equals the one before
            return unsigned(length / unit);
    return 1;
}

/// A password of a repeated string is warned of. False = abandoned.
static bool accept_repetition(const typed_password &password)
{
    if (repeat_count(password.text, strlen(password.text)) == 1)
        return true;
    say("WARNING: Using a password consisting of only repeated string may have many adverse effects,such as aa, "
        "ababab, and abcdabcd.");
    return ask_confirm(continue_prompt);
}

/// Asks for a new password twice. False = told why there is none, if the caller did not abandon it; what was typed is
/// wiped.
static bool read_new_password(typed_password &password, const char *prompt, const char *prompt_failure)
{
    if (!password.read(prompt)) {
        refuse("%s", prompt_failure);
        return false;
    }
    typed_password confirmation;
    if (!confirmation.read("Confirm password:") || strcmp(password.text, confirmation.text) != 0)
        refuse("Confirm password error.");
    else if (accept_repetition(password))
        return true;
    password.wipe();
    return false;
}

using exchange_routine = ipmi_answer(const ipmi_request &);

/// Wipes a password once it is in the request, and the request once it is sent.
static ipmi_answer set_password(exchange_routine &send, uint8_t user, typed_password &password)
{
    static constexpr uint8_t twenty_bytes = 0x80, set = 0x02;
    ipmi_request request(netfn_app, 0x47);
    request.u8(twenty_bytes | user).u8(set).padded(password.text, max_password);
    password.wipe();
    return send(request);
}

// adduser -----------------------------------------------------------------------------------------------------------

static int add_failed()
{
    log_record(log_class_account, module, "Add user fail,EvtCode:0x11100561");
    return 0;
}

static int add_failed(const char *name)
{
    log_record(log_class_account, module, "Add user(%s) fail,EvtCode:0x11100561", name);
    return 0;
}

static int add_failed(const char *name, uint8_t user)
{
    log_record(log_class_account, module, "Add user(%s|user%d) fail,EvtCode:0x11100561", name, user);
    return 0;
}

static constexpr char add_failure[] = "Add user failed, error code: 0x%X";

/// Blanks only, as far as 17 bytes are looked at; a longer name is too long anyway.
static bool is_blank(const char *name)
{
    const size_t length = strlen(name);
    return size_t(std::count(name, name + std::min<size_t>(length, 17), ' ')) == length;
}

static uint8_t find_free_slot()
{
    uint8_t user = first_user;
    while (user < user_limit && user_table[user].name[0] != '\0')
        ++user;
    return user;
}

/// Gives the name a slot of its own while nobody else can. Returns the id, or 0 when it is told and recorded why not.
static uint8_t claim_slot(const char *name)
{
    add_user_lock lock;
    if (!lock.take()) {
        fail(add_failure, g_error_code);
        add_failed(name);
        return 0;
    }
    if (!refresh_user_table()) {
        fail(add_failure, g_error_code);
        lock.release();
        add_failed(name);
        return 0;
    }
    if (const uint8_t user = find_user(name); user < user_limit) {
        refuse("User %s exists.", name);
        lock.release();
        add_failed(name, user);
        return 0;
    }
    const uint8_t user = find_free_slot();
    if (user == user_limit) {
        refuse("User full, can't add more user.");
        lock.release();
        add_failed(name, user);
        return 0;
    }
    const bool named = set_user_name(user, name);
    lock.release();
    if (!named) {
        fail(add_failure, g_error_code);
        add_failed(name, user);
        return 0;
    }
    return user;
}

static void roll_back(uint8_t user) { set_user_name(user, ""); }

/// The failures that both requests of a named user share. Kept: the name goes before the text when no answer came.
static void tell_and_roll_back(const ipmi_answer &got, uint8_t user)
{
    if (got.unanswered()) {
        roll_back(user);
        fail(add_failure, g_error_code);
    } else {
        fail(add_failure, got.error_code());
        roll_back(user);
    }
}

/// Gives a named user a password. False = told why not, and the name is gone again.
static bool give_password(uint8_t user)
{
    typed_password new_password;
    if (!read_new_password(new_password, "Password:", "Input password error.")) {
        roll_back(user);
        return false;
    }
    const ipmi_answer got = set_password(exchange_patient, user, new_password);
    if (got.refused_with(against_password_rules)) {
        fail("Set user password failed, error code: 0x%X", got.error_code());
        roll_back(user);
        print_password_rules();
    } else if (!got.ok()) {
        tell_and_roll_back(got, user);
    }
    return got.ok();
}

/// Enables a user that has its password. False as above.
static bool enable(uint8_t user)
{
    const ipmi_answer got = exchange_patient(enable_user_request(user));
    if (got.refused_with(against_password_rules)) {
        fail("Set user priv failed, error code: 0x%X", got.error_code());
        roll_back(user);
        print_password_rules();
    } else if (!got.ok()) {
        tell_and_roll_back(got, user);
    }
    return got.ok();
}

int adduser(const invocation &typed)
{
    if (!check_privilege(typed))
        return add_failed();
    if (!typed.has_values(1) || vos_check_username(typed.value(0)) != 0) {
        usage_error(
            "cfgtool -d adduser -v <username>\r\n"
            "    contain digits, letters, and characters except colons (:,\\), but cannot start with a number sign (#) "
            "or space.");
        return add_failed();
    }
    const char *name = typed.value(0);
    if (verify_caller_password() != 0)
        return add_failed();
    if (is_blank(name)) {
        refuse("The user name can not be blank.");
        return add_failed();
    }
    if (strlen(name) >= sizeof user_entry::name) {
        refuse("The length of user name is too long.\r\n"
               "User name should less than 17 bytes.");
        return add_failed();
    }
    const uint8_t user = claim_slot(name);
    if (user == 0)
        return 0;
    if (!give_password(user) || !enable(user))
        return add_failed(name, user);

    done("\nAdd user successfully.\r\n"
         "New user is NO Access, you should modify user privileges as needed.");
    log_record(log_class_account, module, "Add user(%s|user%d) success,EvtCode:0x11100560", name, user);
    return 1;
}

// password ----------------------------------------------------------------------------------------------------------

static int modify_failed()
{
    log_record(log_class_account, module, "Modify user password fail,EvtCode:0x11100581");
    return 0;
}

static int modify_failed(const char *name, uint8_t user)
{
    log_record(log_class_account, module, "Modify user(%s|user%d) password fail,EvtCode:0x11100581", name, user);
    return 0;
}

int password(const invocation &typed)
{
    static constexpr char failure[] = "Set user password failed, error code: 0x%X";
    if (!typed.has_values(1)) {  // no privilege asked for yet: everybody may change their own password
        usage_error("cfgtool -d password -v <username>");
        return modify_failed();
    }
    const char *name = typed.value(0);
    if (verify_caller_password() != 0)
        return modify_failed();
    if (!refresh_user_table()) {
        fail(failure, g_error_code);
        return modify_failed();
    }
    const uint8_t user = find_user(name);
    if (user == user_limit) {
        refuse("Insufficient privilege level");  // Kept: these words
        log_record(log_class_account, module, "Modify user(user%d) password fail,EvtCode:0x11100581", user);
        return 0;
    }
    if (strcmp(name, user_table[caller_user()].name) != 0 && !check_privilege(typed))
        return modify_failed(name, user);

    typed_password new_password;
    if (!read_new_password(new_password, "New password:", "Input new password error."))
        return modify_failed(name, user);
    const ipmi_answer got = set_password(exchange, user, new_password);
    if (!got.ok()) {
        fail(failure, got.error_code());
        if (got.refused_with(against_password_rules))
            print_password_rules();
        return modify_failed(name, user);
    }
    done("\nSet user password successfully.");
    log_record(log_class_account, module, "Modify user(%s|user%d) password success,EvtCode:0x11100580", name, user);
    return 1;
}

// deluser -----------------------------------------------------------------------------------------------------------

static int delete_failed()
{
    log_record(log_class_account, module, "Delete user fail,EvtCode:0x111005A1");
    return 0;
}

int deluser(const invocation &typed)
{
    if (!check_privilege(typed))
        return delete_failed();
    if (!typed.has_values(1)) {
        usage_error("cfgtool -d deluser -v <username>");
        return delete_failed();
    }
    const char *name = typed.value(0);
    if (verify_caller_password() != 0)
        return delete_failed();
    if (!refresh_user_table()) {
        refuse_silently(g_error_code);
        return delete_failed();
    }
    const uint8_t user = find_user(name);
    if (user == user_limit) {
        fail("Delete user failed.");
        log_record(log_class_account, module, "Delete user(user%d) fail,EvtCode:0x111005A1", user);
        return 0;
    }
    const ipmi_answer got = exchange(set_user_name_request(user, ""));
    if (got.ok()) {
        done("Delete user successfully.");
        log_record(log_class_account, module, "Delete user(%s|user%d) success,EvtCode:0x111005A0", name, user);
        return 1;
    }
    if (got.unanswered())
        fail("Set user name failed, error code: 0x%X", got.error_code());
    else if (got.refused_with(trap_v3_user))
        fail_because(got.error_code(), "%s is trap V3 user ,cannot delete", name);  // Kept: the blank before the comma
    else
        fail("Delete user failed, error code: 0x%X", got.error_code());
    log_record(log_class_account, module, "Delete user(%s|user%d) fail,EvtCode:0x111005A1", name, user);
    return 0;
}

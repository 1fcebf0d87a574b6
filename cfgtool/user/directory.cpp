#include "user/directory.h"

#include "ipmi/get_requests.h"
#include "ipmi/transport.h"
#include "ui/console.h"
#include "ui/prompt.h"

#include <cstring>
#include <unistd.h>

user_entry user_table[user_limit];

// The table ---------------------------------------------------------------------------------------------------------

static constexpr uint8_t anonymous_user = 1, no_access = 15, lan_channel_number = 1;

static bool refresh_failed(const ipmi_answer &got)
{
    g_error_code = got.error_code();
    return false;
}

/// False = it failed, and g_error_code says why.
static bool refresh_user(uint8_t user)
{
    user_entry &entry = user_table[user];
    const ipmi_answer name = exchange(get_user_name(user));
    if (!name.ok())
        return refresh_failed(name);
    ipmi_reader characters(name.data);
    memset(entry.name, 0, sizeof entry.name);
    for (size_t n = 0; n < sizeof entry.name - 1; ++n)
        entry.name[n] = char(characters.u8());

    const ipmi_answer access = exchange(get_user_access(lan_channel_number, user));
    if (!access.ok())
        return refresh_failed(access);
    entry.privilege = ipmi_reader(access.data).skip(3).u8() & 0x0F;
    return true;
}

int refresh_user_table()
{
    user_table[anonymous_user].privilege = no_access;
    for (uint8_t user = first_user; user < user_limit; ++user)
        if (!refresh_user(user))
            return 0;
    return 1;
}

uint8_t find_user(const char *name)
{
    uint8_t user = first_user;
    while (user < user_limit && (*name == '\0' || strcmp(user_table[user].name, name) != 0))
        ++user;
    return user;
}

// The caller --------------------------------------------------------------------------------------------------------

int caller_user()
{
    static constexpr uid_t account_base = 500, root_counts_as = 502;
    const uid_t account = getuid() != 0 ? getuid() : root_counts_as;
    return account > account_base && account - account_base < user_limit ? int(account - account_base) : -1;
}

int verify_caller_password()
{
    static constexpr uint8_t check = 0x00, wrong_password = 0x82;
    if (!refresh_user_table()) {
        refuse_silently(g_error_code);
        return -1;
    }
    const int caller = caller_user();
    if (caller < 0) {
        refuse_silently();
        return -1;
    }
    typed_password password;
    if (!password.read("Input your password:")) {
        refuse("Input your password error.");
        return -1;
    }
    ipmi_request request(netfn_oem, 0x91);
    request.oem().u8(check_password_function).u8(check);
    request.padded(user_table[caller].name, 16).padded(password.text, max_password);
    const ipmi_answer got = exchange(request);
    if (got.ok())
        return 0;
    if (got.unanswered())
        refuse("send 'check user password' failed, error code: 0x%X", got.error_code());
    else if (got.refused_with(wrong_password))
        refuse_because(got.error_code(check), "Incorrect password.");
    else
        refuse("Check user password failed, error code: 0x%X", got.error_code(check));
    return -1;
}

// Shared by the account commands ------------------------------------------------------------------------------------

ipmi_request set_user_name_request(uint8_t user, const char *name)
{
    return ipmi_request(netfn_app, 0x45).u8(user).padded(name, 16);
}

int set_user_name(uint8_t user, const char *name)
{
    const ipmi_answer got = exchange_patient(set_user_name_request(user, name));
    if (!got.ok())
        g_error_code = got.error_code();
    return got.ok();
}

ipmi_request enable_user_request(uint8_t user)
{
    static constexpr uint8_t enable = 0x01;
    return ipmi_request(netfn_app, 0x47).u8(user).u8(enable).padded("", 16);
}

void print_password_rules()
{
    say("Invalid Password:\r\n"
        "1) Contains 8-20 characters.\r\n"
        "2) Contains at least one space or one of the following special "
        "characters:`~!@#$%%^&*()-_=+\\|[{}];:'\",<.>/?\r\n"
        "3) Contains at least two types of the following characters:\r\n"
        "   - Letters:a to z;\r\n"
        "   - Letters:A to Z;\r\n"
        "   - Digits:0 to 9;\r\n"
        "4) Password can not be the reverse of the account or accounts.");
}

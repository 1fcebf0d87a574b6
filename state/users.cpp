/// The users who have a name, and their access on the management channel (IPMI 2.0).
#include "ipmi/get_requests.h"
#include "ipmi/lan_parameters.h"
#include "state/areas.h"

#include <algorithm>

static constexpr uint8_t name_size = 16;
static constexpr uint8_t first_user = 2, last_user = 17;  // user 1 is anonymous

/// Returns how many users there can be.
static uint8_t put_access(node &user, const reply &got, const char *what)
{
    static constexpr const char *privilege_words[] = {
        nullptr, "callback", "user",  "operator", "administrator", "oem",   nullptr, nullptr,
        nullptr, nullptr,    nullptr, nullptr,    nullptr,         nullptr, nullptr, "no_access"};
    static constexpr unsigned enabled = 1, disabled = 2;
    const unsigned status = got.value(1) >> 6;
    put_word(user, "privilege", got.value(3) & 0x0FU, privilege_words, what);
    if (status == enabled || status == disabled)
        user.put("enabled", status == enabled);
    else
        user.put_null("enabled");  // controllers of an older standard do not say
    return got.value(0) & 0x3F;
}

/// Returns how many users there can be, as far as is known.
static uint8_t read_user(node &area, uint8_t id)
{
    char name[name_size + 1] = "";
    const reply named = ask(get_user_name(id), {0, name_size}, path("users[%u].name", id));
    if (named.ok())
        std::copy_n(named.value().begin(), name_size, name);
    if (named.ok() && name[0] == '\0')  // a free slot
        return last_user;
    node &user = area.object(nullptr);
    user.put("id", id);
    if (!named.ok())
        return last_user;
    put_name(user, name, path("users[%u].name", id));
    const char *const what = path("users[%u].privilege", id);
    const reply access = ask(get_user_access(lan_channel, id), {0, 4}, what);
    return access.ok() ? put_access(user, access, what) : last_user;
}

bool read_users(report &to, node &area)
{
    to.cannot_read("users.locked");
    to.cannot_read("users.password_complexity");
    uint8_t last = last_user;
    for (uint8_t id = first_user; id <= last; ++id)
        last = std::min(last, read_user(area, id));
    return true;
}

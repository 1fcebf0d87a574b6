#include "ipmi/privilege.h"

#include "ipmi/get_requests.h"
#include "ipmi/transport.h"
#include "platform/platform.h"
#include "ui/console.h"

#include <unistd.h>

static constexpr uid_t account_base = 500;  // controller user N is account 500 + N
static constexpr uint8_t lan_channel = 1;
static constexpr char insufficient[] = "Insufficient privilege level";

/// The privilege limit of a controller user: the low four bits of the channel access byte, where 15 means no access.
static uint8_t privilege_limit(std::span<const uint8_t> user_access)
{
    const uint8_t limit = ipmi_reader(user_access).skip(3).u8() & 0x0F;
    return limit == 15 ? 0 : limit;
}

const char *privilege_refusal(uint8_t level)
{
    const uid_t account = geteuid();
    if (account == 0)
        return nullptr;
    if (account <= account_base || account - account_base > UINT8_MAX)  // a user number is one byte
        return insufficient;

    const ipmi_answer got = exchange(get_user_access(lan_channel, uint8_t(account - account_base)));
    if (got.unanswered())
        return "send 'Get User Access Command' failed!";
    if (!got.ok()) {
        g_error_code = got.error_code();
        return "Get User Access Command failed!";
    }
    return privilege_limit(got.data) < level ? insufficient : nullptr;
}

int check_privilege(const invocation &typed)
{
    const char *reason = privilege_refusal(typed.level);
    if (reason == nullptr)
        return 1;
    refuse_because(reason == insufficient ? 0 : g_error_code, "%s", reason);
    if (typed.count == 0)
        vos_strncat(current_command, sizeof current_command,
                    " operation rejected because of insufficient privilege level.", 60);
    return 0;
}

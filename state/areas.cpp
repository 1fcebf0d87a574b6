#include "state/areas.h"

#include "ipmi/get_requests.h"
#include "ipmi/lan_parameters.h"
#include "state/complaints.h"
#include "state/text.h"

#include <algorithm>
#include <arpa/inet.h>

reply ask_lan_parameter(uint8_t selector, uint8_t size, const char *what, uint8_t set)
{
    static constexpr uint8_t first_oem_selector = 0xC0, revision = 1, enterprise_number = 3;
    const uint8_t before = selector < first_oem_selector ? revision : revision + enterprise_number;
    return ask(get_lan_parameter(lan_channel, selector, set), {before, size}, what, parameter_not_supported);
}

bool is_none(std::span<const uint8_t> address)
{
    return std::all_of(address.begin(), address.end(), [](uint8_t byte) { return byte == 0; });
}

void put_address(node &to, const char *key, std::span<const uint8_t> address)
{
    char text[INET6_ADDRSTRLEN];
    if (is_none(address))
        to.put_null(key);
    else
        to.put(key, inet_ntop(address.size() == 4 ? AF_INET : AF_INET6, address.data(), text, sizeof text));
}

void put_word(node &to, const char *key, unsigned number, std::span<const char *const> words, const char *what)
{
    if (number < words.size() && words[number] != nullptr)
        to.put(key, words[number]);
    else
        complain("%s: %u has no meaning", what, number);
}

void put_name(node &to, const char *name, const char *what)
{
    char shown[64];
    to.put("name", name);
    if (!printable(name, shown))
        remark("%s: a name with characters that cannot be shown: %s", what, shown);
}

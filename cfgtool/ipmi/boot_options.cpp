#include "ipmi/boot_options.h"
#include "ipmi/get_requests.h"

#include "ipmi/transport.h"
#include "ui/console.h"

#include <algorithm>

ipmi_request set_boot_option(uint8_t parameter) { return ipmi_request(netfn_chassis, 0x08).u8(parameter); }

int set_boot_option_progress(uint8_t value)
{
    static constexpr uint8_t already_in_progress = 0x81;
    if (value > 1)
        return 0;
    const ipmi_answer got = exchange(set_boot_option(boot_option_set_in_progress).u8(value));
    if (got.ok() || got.refused_with(already_in_progress))
        return 1;
    g_error_code = got.error_code(value);
    return 0;
}

int close_and_decide(boot_option_bracket &bracket) { return bracket.close() ? 1 : fail_silently(g_error_code); }

int get_boot_flags(boot_flags &flags)
{
    static constexpr size_t header = 2;  // parameter version, parameter number
    flags = {};
    const ipmi_answer got = exchange(get_boot_option(boot_option_flags));
    // Up to five bytes of the parameter, and perhaps the frame's checksum, which nobody counts on.
    const bool right_length = got.data.size() > header && got.data.size() <= header + sizeof flags.byte + 1;
    if (got.ok() && right_length && (got.data[1] & 0x7F) == boot_option_flags) {
        const auto parameter = got.data.subspan(header);
        std::copy_n(parameter.begin(), std::min(parameter.size(), sizeof flags.byte), flags.byte);
        return 1;
    }
    g_error_code = got.error_code(boot_option_flags);
    return 0;
}

ipmi_request set_boot_flags(const boot_flags &flags) { return set_boot_option(boot_option_flags).bytes(flags.byte); }

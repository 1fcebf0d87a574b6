/// The fans: how they are regulated (the controller maker's request) and their level (PICMG 3.0).
#include "ipmi/get_requests.h"
#include "state/areas.h"

static void read_mode(node &area)
{
    static constexpr const char *mode_words[] = {"auto", "manual"};
    static constexpr uint8_t manual = 1;
    const reply got = ask(get_fan_mode(), {3, 6}, "fans.mode");  // the enterprise number comes first
    if (!got.ok())
        return;
    ipmi_reader status = got.read();
    const uint8_t mode = status.u8();
    const uint32_t timeout_s = status.u32le();
    const bool forever = status.u8() == 1;
    put_word(area, "mode", mode, mode_words, "fans.mode");
    if (mode == manual && !forever)
        area.put("timeout_s", timeout_s);
    else
        area.put_null("timeout_s");
}

bool read_fans(report &, node &area)
{
    read_mode(area);
    // Above 100 are local control and the emergency shut-down: no level is ordered.
    if (const reply got = ask(get_fan_level(), {1, 1}, "fans.level_percent"); got.ok()) {
        const uint8_t level = got.value(0);
        if (level <= 100)
            area.put("level_percent", level);
        else
            area.put_null("level_percent");
    }
    return false;
}

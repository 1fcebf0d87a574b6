/// Fans: the mode of their regulation (OEM) and their level (PICMG 3.0).
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

enum class fan_mode : uint8_t { automatic, manual };
constexpr const char *mode_words[] = {"auto", "manual"};

constexpr uint32_t default_timeout_s = 30;
constexpr uint32_t longest_timeout_s = 100'000'000;

// PICMG 3.0, Set Fan Level: levels that are no percentage
constexpr uint8_t emergency_shut_down = 0xFE;
constexpr uint8_t local_control = 0xFF;

constexpr bool is_level(uint8_t level) { return level <= 100 || level == emergency_shut_down; }

struct fan_state {
    fan_mode mode = fan_mode::automatic;
    uint32_t timeout_s = default_timeout_s;  // of the manual mode, as it was set; 0 = no expiry
    uint8_t level = 50;                      // percent ordered by hand, or emergency_shut_down
};

class fans final : public family
{
public:
    explicit fans(controller &owner) : expiry(owner.timers().make_timer([this] { regulate_automatically(); })) {}

    const char *name() const override { return "fans"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_mode(byte_reader &request, byte_writer &answer);
    completion set_mode(byte_reader &request, byte_writer &answer);
    completion get_level(byte_reader &request, byte_writer &answer);
    completion set_level(byte_reader &request, byte_writer &answer);

    void take_over(const fan_state &wanted);
    void regulate_automatically();
    void regulate_by_hand(uint32_t timeout_s);

    fan_state state;
    std::unique_ptr<timer> expiry;
};

void fans::regulate_automatically()
{
    state.mode = fan_mode::automatic;
    expiry->stop();
}

void fans::regulate_by_hand(uint32_t timeout_s)
{
    state.mode = fan_mode::manual;
    state.timeout_s = timeout_s;
    if (timeout_s == 0)
        expiry->stop();
    else
        expiry->start(std::chrono::seconds(timeout_s));
}

/// The time of a manual mode starts anew: how much of it was left is not part of the state.
void fans::take_over(const fan_state &wanted)
{
    state = wanted;
    if (state.mode == fan_mode::manual)
        regulate_by_hand(state.timeout_s);
    else
        regulate_automatically();
}

completion fans::get_mode(byte_reader &, byte_writer &answer)
{
    const bool forever = state.timeout_s == 0;
    answer.bytes(oem_iana).u8(uint8_t(state.mode)).u32le(state.timeout_s).u8(forever);
    return completion::ok;
}

completion fans::set_mode(byte_reader &request, byte_writer &answer)
{
    const uint8_t mode = request.u8();
    if (mode > uint8_t(fan_mode::manual))
        return completion::invalid_field;
    const bool by_hand = mode == uint8_t(fan_mode::manual);
    if (request.left() != (by_hand ? sizeof(uint32_t) : 0))
        return completion::length_invalid;
    const uint32_t timeout_s = request.u32le();
    if (timeout_s > longest_timeout_s)
        return completion::out_of_range;
    if (by_hand)
        regulate_by_hand(timeout_s);
    else
        regulate_automatically();
    answer.bytes(oem_iana);
    return completion::ok;
}

completion fans::get_level(byte_reader &request, byte_writer &answer)
{
    if (request.u8() != 0)
        return completion::not_present;  // this board has FRU 0 only
    answer.bytes(picmg()).u8(state.mode == fan_mode::automatic ? local_control : state.level);
    return completion::ok;
}

/// A level ordered while the fans regulate themselves takes them over for the default time, as a manual mode without
/// a time of its own would; under manual mode the time goes on running.
completion fans::set_level(byte_reader &request, byte_writer &answer)
{
    if (request.u8() != 0)
        return completion::not_present;
    const uint8_t level = request.u8();
    if (level == local_control) {
        regulate_automatically();
    } else if (is_level(level)) {
        state.level = level;
        if (state.mode == fan_mode::automatic)
            regulate_by_hand(default_timeout_s);
    } else {
        return completion::invalid_field;  // 101 to 253: neither a percentage nor a special level
    }
    answer.bytes(picmg());
    return completion::ok;
}

json fans::to_json() const
{
    return {{"mode", mode_words[uint8_t(state.mode)]}, {"timeout_s", state.timeout_s}, {"level", state.level}};
}

void fans::from_json(const json &json)
{
    fan_state wanted = state;
    json_fields fields(json, "/fans");
    fields.choice("mode", wanted.mode, mode_words);
    fields.number("timeout_s", wanted.timeout_s, 0, longest_timeout_s);
    fields.number("level", wanted.level, 0, emergency_shut_down);
    fields.done();
    if (!is_level(wanted.level))
        fields.refuse("level", "a number from 0 to 100, or 254 for emergency shut-down, is needed here");
    take_over(wanted);
}

std::string words_of_mode(byte_reader &data)
{
    const uint8_t mode = data.u8();
    if (mode != uint8_t(fan_mode::manual))
        return mode == 0 ? "auto" : text("mode %u", mode);
    const uint32_t timeout_s = data.u32le();
    return timeout_s == 0 ? "manual, forever" : text("manual, %u s", timeout_s);
}

std::string words_of_mode_answer(byte_reader &data)
{
    data.bytes(oem_iana.size());
    return words_of_mode(data);
}

std::string words_of_level_value(byte_reader &data)
{
    const uint8_t level = data.u8();
    if (level == emergency_shut_down)
        return "emergency shut-down";
    return level == local_control ? "local control" : text("%u %%", level);
}

std::string words_of_level(byte_reader &data)
{
    const std::string fru = text("FRU %u, ", data.u8());
    return fru + words_of_level_value(data);
}

std::string words_of_level_answer(byte_reader &data)
{
    data.bytes(picmg().size());
    return words_of_level_value(data);
}

std::string words_of_fru(byte_reader &data) { return text("FRU %u", data.u8()); }

const command fans::table[] = {
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x01),
     .name = "Set Fan Mode",
     .length = {1, 5},  // a manual mode comes with its time
     .run = call<&fans::set_mode>,
     .request_words = words_of_mode},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x02),
     .name = "Get Fan Mode",
     .run = call<&fans::get_mode>,
     .answer_words = words_of_mode_answer},
    {.netfn = netfn::picmg,
     .number = 0x15,
     .lead = picmg(),
     .name = "Set Fan Level",
     .length = {2, 2},
     .run = call<&fans::set_level>,
     .request_words = words_of_level},
    {.netfn = netfn::picmg,
     .number = 0x16,
     .lead = picmg(),
     .name = "Get Fan Level",
     .length = {1, 1},
     .run = call<&fans::get_level>,
     .request_words = words_of_fru,
     .answer_words = words_of_level_answer},
};

std::span<const command> fans::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_fans(controller &owner) { return std::make_unique<fans>(owner); }

}  // namespace ipmcd

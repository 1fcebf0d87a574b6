/// The controller's time and its offset from UTC (IPMI 2.0, SEL Time commands).
#include "ipmcd/families/clock.h"
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

#include <ctime>

namespace ipmcd
{

namespace
{

constexpr int16_t largest_offset_min = 1440;
constexpr int16_t unspecified_offset = 0x7FF;

class clock final : public family
{
public:
    explicit clock(controller &owner) : machine(owner.timers()), board(owner.shared<board_clock>()) {}

    const char *name() const override { return "clock"; }
    std::span<const command> commands() const override;
    void reset() override;
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_time(byte_reader &request, byte_writer &answer);
    completion set_time(byte_reader &request, byte_writer &answer);
    completion get_utc_offset(byte_reader &request, byte_writer &answer);
    completion set_utc_offset(byte_reader &request, byte_writer &answer);

    const scheduler &machine;
    board_clock &board;
    int16_t utc_offset_min = 0;
};

bool is_utc_offset(int16_t minutes)
{
    return (minutes >= -largest_offset_min && minutes <= largest_offset_min) || minutes == unspecified_offset;
}

void clock::reset()
{
    board = {};
    utc_offset_min = 0;
}

completion clock::get_time(byte_reader &, byte_writer &answer)
{
    answer.u32le(board.time(machine));
    return completion::ok;
}

completion clock::set_time(byte_reader &request, byte_writer &)
{
    board.set_time(machine, request.u32le());
    return completion::ok;
}

completion clock::get_utc_offset(byte_reader &, byte_writer &answer)
{
    answer.u16le(uint16_t(utc_offset_min));
    return completion::ok;
}

completion clock::set_utc_offset(byte_reader &request, byte_writer &)
{
    const auto minutes = int16_t(request.u16le());
    if (!is_utc_offset(minutes))
        return completion::out_of_range;
    utc_offset_min = minutes;
    return completion::ok;
}

json clock::to_json() const { return {{"ahead_s", board.ahead_s}, {"utc_offset_min", utc_offset_min}}; }

void clock::from_json(const json &json)
{
    int64_t ahead_s = board.ahead_s;
    int16_t minutes = utc_offset_min;
    json_fields fields(json, "/clock");
    fields.number("ahead_s", ahead_s, -int64_t{UINT32_MAX}, UINT32_MAX);
    fields.number("utc_offset_min", minutes, -largest_offset_min, unspecified_offset);
    fields.done();
    if (!is_utc_offset(minutes))
        fields.refuse("utc_offset_min", "a number from -1440 to 1440, or 2047 for unspecified, is needed here");
    board.ahead_s = ahead_s;
    utc_offset_min = minutes;
}

std::string words_of_time(byte_reader &data)
{
    const time_t seconds = data.u32le();
    tm utc{};
    gmtime_r(&seconds, &utc);
    std::array<char, 32> made{};
    strftime(made.data(), made.size(), "%F %T UTC", &utc);
    return made.data();
}

std::string words_of_offset(byte_reader &data)
{
    const auto minutes = int16_t(data.u16le());
    return minutes == unspecified_offset ? "unspecified" : text("%+d min", minutes);
}

const command clock::table[] = {
    {.netfn = netfn::storage,
     .number = 0x48,
     .name = "Get SEL Time",
     .run = call<&clock::get_time>,
     .answer_words = words_of_time},
    {.netfn = netfn::storage,
     .number = 0x49,
     .name = "Set SEL Time",
     .length = {4, 4},
     .run = call<&clock::set_time>,
     .request_words = words_of_time},
    {.netfn = netfn::storage,
     .number = 0x5C,
     .name = "Get SEL Time UTC Offset",
     .run = call<&clock::get_utc_offset>,
     .answer_words = words_of_offset},
    {.netfn = netfn::storage,
     .number = 0x5D,
     .name = "Set SEL Time UTC Offset",
     .length = {2, 2},
     .run = call<&clock::set_utc_offset>,
     .request_words = words_of_offset},
};

std::span<const command> clock::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_clock(controller &owner) { return std::make_unique<clock>(owner); }

}  // namespace ipmcd

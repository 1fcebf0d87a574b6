/// What the host finds when it boots (IPMI 2.0, Set and Get System Boot Options), and two of the maker's settings that
/// travel the same way: how long a soft shutdown may take, and the write protection of the host's BIOS.
#include "ipmcd/controller.h"
#include "ipmcd/families/host.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

constexpr completion parameter_unknown{0x80}, already_in_progress{0x81};
constexpr uint8_t parameter_version = 0x01;

constexpr uint16_t default_timeout_100ms = 600;
constexpr uint16_t shortest_timeout_100ms = 100, longest_timeout_100ms = 65400;

using flag_bytes = std::array<uint8_t, 5>;
// First byte of the boot flags; the five low bits are reserved.
constexpr uint8_t valid = 0x80, persistent = 0x40, uefi = 0x20;
// Second byte; between them the boot device.
constexpr uint8_t cmos_clear = 0x80;

/// Boot device selectors of the second byte; null: reserved.
constexpr const char *devices[] = {"no override",   "PXE",    "hard drive", "hard drive in safe mode",
                                   "diagnostics",   "CD/DVD", "BIOS setup", "remote floppy",
                                   "remote CD/DVD", "remote", nullptr,      "remote hard drive",
                                   nullptr,         nullptr,  nullptr,      "floppy or removable"};

const char *device_of(uint8_t byte2) { return devices[byte2 >> 2 & 0x0F]; }

struct boot_state {
    uint8_t set_in_progress = 0;
    flag_bytes flags{};
    uint16_t shutdown_timeout_100ms = default_timeout_100ms;
    uint8_t bios_write_protect = 0;
    uint32_t cmos_clears = 0;  // the bit is a pulse: what counts is how often it was raised
};

class boot final : public family
{
public:
    explicit boot(controller &owner) : computer(owner.shared<host>())
    {
        computer.on_boot = [this] { use_flags(); };
        take_over({});
    }

    const char *name() const override { return "boot"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    void restart() override { state.set_in_progress = 0; }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    struct parameter {
        uint8_t number;
        const char *name;
        size_t length;
        completion (boot::*set)(byte_reader &value);
        void (boot::*get)(byte_writer &value) const;
        data_words words;
    };
    static const parameter parameters[4];
    static const command table[];

    completion set_option(byte_reader &request, byte_writer &answer);
    completion get_option(byte_reader &request, byte_writer &answer);

    completion set_progress(byte_reader &value);
    completion set_flags(byte_reader &value);
    completion set_shutdown_timeout(byte_reader &value);
    completion set_bios_write_protect(byte_reader &value);
    void get_progress(byte_writer &value) const { value.u8(state.set_in_progress); }
    void get_flags(byte_writer &value) const { value.bytes(state.flags); }
    void get_shutdown_timeout(byte_writer &value) const { value.u16le(state.shutdown_timeout_100ms); }
    void get_bios_write_protect(byte_writer &value) const { value.u8(state.bios_write_protect); }

    static const parameter *find(uint8_t number);
    static std::string words_of_set(byte_reader &data);
    static std::string words_of_get(byte_reader &data);
    static std::string words_of_answer(byte_reader &data);

    void take_over(const boot_state &wanted);
    void use_flags();

    boot_state state;
    host &computer;
};

void boot::take_over(const boot_state &wanted)
{
    state = wanted;
    computer.shutdown_timeout = std::chrono::milliseconds(100) * state.shutdown_timeout_100ms;
}

/// The host boots as the flags want it; unless they are to persist that was once.
void boot::use_flags()
{
    if ((state.flags[0] & persistent) == 0)
        state.flags[0] &= uint8_t(~valid);
}

// Parameters ---------------------------------------------------------------------------------------------------------

/// Tells others that somebody is writing; it keeps nobody from it, and what is written holds at once.
completion boot::set_progress(byte_reader &value)
{
    const uint8_t wanted = value.u8();
    if (wanted > 1)
        return completion::invalid_field;  // "commit write" belongs to a roll-back that this controller has not
    if (wanted == 1 && state.set_in_progress == 1)
        return already_in_progress;
    state.set_in_progress = wanted;
    return completion::ok;
}

bool are_boot_flags(const flag_bytes &flags)
{
    const bool reserved_are_clear = (flags[0] & 0x1F) == 0 && (flags[3] & 0xF0) == 0 && (flags[4] & 0xE0) == 0;
    return reserved_are_clear && device_of(flags[1]);
}

completion boot::set_flags(byte_reader &value)
{
    flag_bytes wanted{};
    std::ranges::copy(value.bytes(wanted.size()), wanted.begin());
    if (!are_boot_flags(wanted))
        return completion::invalid_field;
    if ((wanted[1] & cmos_clear) != 0 && (state.flags[1] & cmos_clear) == 0)
        state.cmos_clears++;
    state.flags = wanted;
    return completion::ok;
}

bool is_timeout(uint16_t timeout_100ms)
{
    return timeout_100ms == 0 || (timeout_100ms >= shortest_timeout_100ms && timeout_100ms <= longest_timeout_100ms);
}

completion boot::set_shutdown_timeout(byte_reader &value)
{
    boot_state wanted = state;
    wanted.shutdown_timeout_100ms = value.u16le();
    if (!is_timeout(wanted.shutdown_timeout_100ms))
        return completion::out_of_range;
    take_over(wanted);
    return completion::ok;
}

completion boot::set_bios_write_protect(byte_reader &value)
{
    const uint8_t wanted = value.u8();
    if (wanted > 1)
        return completion::invalid_field;
    state.bios_write_protect = wanted;
    return completion::ok;
}

// Commands -----------------------------------------------------------------------------------------------------------

const boot::parameter *boot::find(uint8_t number)
{
    for (const parameter &row : parameters)
        if (row.number == number)
            return &row;
    return nullptr;
}

/// The top bit of the number would mark the parameter as invalid; this controller's parameters are always valid, and so
/// there is no parameter of such a number.
completion boot::set_option(byte_reader &request, byte_writer &)
{
    const parameter *const row = find(request.u8());
    if (!row)
        return parameter_unknown;
    if (request.left() != row->length)
        return completion::length_invalid;
    return (this->*row->set)(request);
}

completion boot::get_option(byte_reader &request, byte_writer &answer)
{
    const parameter *const row = find(request.u8());
    if (!row)
        return parameter_unknown;
    if (request.u8() != 0 || request.u8() != 0)
        return completion::out_of_range;  // no parameter has several sets or blocks
    answer.u8(parameter_version).u8(row->number);
    (this->*row->get)(answer);
    return completion::ok;
}

json boot::to_json() const
{
    return {{"set_in_progress", state.set_in_progress == 1},
            {"flags", hex(state.flags)},
            {"shutdown_timeout_100ms", state.shutdown_timeout_100ms},
            {"bios_write_protect", state.bios_write_protect == 1},
            {"cmos_clears", state.cmos_clears}};
}

void boot::from_json(const json &json)
{
    boot_state wanted = state;
    bool in_progress = state.set_in_progress == 1, protect = state.bios_write_protect == 1;
    json_fields fields(json, "/boot");
    fields.boolean("set_in_progress", in_progress);
    fields.bytes("flags", wanted.flags);
    fields.number("shutdown_timeout_100ms", wanted.shutdown_timeout_100ms, 0, longest_timeout_100ms);
    fields.boolean("bios_write_protect", protect);
    fields.number("cmos_clears", wanted.cmos_clears, 0, UINT32_MAX);
    fields.done();
    if (!are_boot_flags(wanted.flags))
        fields.refuse("flags", "boot flags are needed here, with their reserved bits clear");
    if (!is_timeout(wanted.shutdown_timeout_100ms))
        fields.refuse("shutdown_timeout_100ms", "0 or a number from 100 to 65400 is needed here");
    wanted.set_in_progress = in_progress;
    wanted.bios_write_protect = protect;
    take_over(wanted);
}

// Words --------------------------------------------------------------------------------------------------------------

std::string words_of_progress(byte_reader &value)
{
    static constexpr const char *known[] = {"complete", "in progress", "commit write"};
    const uint8_t progress = value.u8();
    return progress < std::size(known) ? known[progress] : text("%u", progress);
}

std::string words_of_flags(byte_reader &value)
{
    const uint8_t byte1 = value.u8();
    const uint8_t byte2 = value.u8();
    std::string made = (byte1 & valid) == 0 ? "not valid" : (byte1 & persistent) != 0 ? "every boot" : "next boot";
    if ((byte1 & uefi) != 0)
        made += ", UEFI";
    const char *const device = device_of(byte2);
    made += device ? text(", %s", device) : text(", device %u", byte2 >> 2 & 0x0F);
    return (byte2 & cmos_clear) != 0 ? made + ", CMOS clear" : made;
}

std::string words_of_timeout(byte_reader &value)
{
    const uint16_t timeout_100ms = value.u16le();
    return timeout_100ms == 0 ? "none" : text("%u.%u s", timeout_100ms / 10, timeout_100ms % 10);
}

std::string words_of_switch(byte_reader &value)
{
    const uint8_t wanted = value.u8();
    return wanted == 0 ? "off" : wanted == 1 ? "on" : text("%u", wanted);
}

/// "boot flags: next boot, PXE"
std::string boot::words_of_set(byte_reader &data)
{
    const uint8_t number = data.u8();
    const parameter *const row = find(number);
    if (!row)
        return text("parameter 0x%02X", number);
    return data.left() == row->length ? text("%s: ", row->name) + row->words(data) : row->name;
}

std::string boot::words_of_get(byte_reader &data)
{
    const uint8_t number = data.u8();
    const parameter *const row = find(number);
    return row ? row->name : text("parameter 0x%02X", number);
}

std::string boot::words_of_answer(byte_reader &data)
{
    data.u8();
    return words_of_set(data);
}

const boot::parameter boot::parameters[4] = {
    {0x00, "set in progress", 1, &boot::set_progress, &boot::get_progress, words_of_progress},
    {0x05, "boot flags", 5, &boot::set_flags, &boot::get_flags, words_of_flags},
    {0x62, "shutdown time-out", 2, &boot::set_shutdown_timeout, &boot::get_shutdown_timeout, words_of_timeout},
    {0x63, "BIOS write protection", 1, &boot::set_bios_write_protect, &boot::get_bios_write_protect, words_of_switch},
};

const command boot::table[] = {
    {.netfn = netfn::chassis,
     .number = 0x08,
     .name = "Set System Boot Options",
     .length = {1, 20},
     .run = call<&boot::set_option>,
     .request_words = boot::words_of_set},
    {.netfn = netfn::chassis,
     .number = 0x09,
     .name = "Get System Boot Options",
     .length = {3, 3},  // set and block selector come last
     .run = call<&boot::get_option>,
     .request_words = boot::words_of_get,
     .answer_words = boot::words_of_answer},
};

std::span<const command> boot::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_boot(controller &owner) { return std::make_unique<boot>(owner); }

}  // namespace ipmcd

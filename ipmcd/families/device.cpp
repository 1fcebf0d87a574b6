/// What the controller says of itself, and its cold reset. Who tells the sensors' records is the board's to say.
#include "ipmcd/controller.h"
#include "ipmcd/families/firmware.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

constexpr uint8_t ipmi_version_2_0 = 0x02;  // BCD, low digit first
constexpr uint8_t provides_device_sdrs = 0x80;

struct device_state {
    uint8_t device_id = 0x20;
    uint8_t revision = 1;      // 0 to 15
    bool device_sdrs = false;  // sensors tell their own records, beside or instead of the SDR repository
    uint8_t support = 0;       // additional device support: a bit for each function present
    uint16_t product = 1;
    uint32_t cold_resets = 0;  // so far
};

// IPMI 2.0, Get Device ID, additional device support
constexpr uint8_t chassis_device = 0x80, sel_device = 0x04, sdr_repository = 0x02, sensor_device = 0x01;

device_state factory_state(const board_description &board)
{
    uint8_t support = chassis_device | sel_device;
    if (board.has_repository())
        support |= sdr_repository;
    if (!board.sensors.empty())
        support |= sensor_device;
    return {.device_sdrs = board.has_device_sdrs(), .support = support};
}

class device final : public family
{
public:
    explicit device(controller &own)
        : owner(own), state(factory_state(own.description())), firmware(own.shared<running_firmware>().version)
    {
    }

    const char *name() const override { return "device"; }
    std::span<const command> commands() const override;
    void reset() override;
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_device_id(byte_reader &request, byte_writer &answer);
    completion cold_reset(byte_reader &request, byte_writer &answer);

    controller &owner;
    device_state state;
    firmware_version &firmware;
};

uint8_t to_bcd(uint8_t number) { return uint8_t(number / 10 << 4 | number % 10); }

completion device::get_device_id(byte_reader &, byte_writer &answer)
{
    answer.u8(state.device_id).u8(uint8_t(state.revision | (state.device_sdrs ? provides_device_sdrs : 0)));
    answer.u8(firmware.major).u8(to_bcd(firmware.minor)).u8(ipmi_version_2_0).u8(state.support);
    answer.bytes(oem_iana).u16le(state.product);
    return completion::ok;
}

void device::reset()
{
    state = factory_state(owner.description());
    firmware = {};
}

completion device::cold_reset(byte_reader &, byte_writer &)
{
    state.cold_resets++;
    owner.restart_soon();
    return completion::ok;
}

json device::to_json() const
{
    return {{"device_id", state.device_id},     {"revision", state.revision},       {"firmware_major", firmware.major},
            {"firmware_minor", firmware.minor}, {"device_sdrs", state.device_sdrs}, {"support", state.support},
            {"product", state.product},         {"cold_resets", state.cold_resets}};
}

void device::from_json(const json &json)
{
    device_state wanted = state;
    firmware_version wanted_firmware = firmware;
    json_fields fields(json, "/device");
    fields.number("device_id", wanted.device_id, 0, 255);
    fields.number("revision", wanted.revision, 0, 15);
    fields.number("firmware_major", wanted_firmware.major, 0, largest_firmware_major);
    fields.number("firmware_minor", wanted_firmware.minor, 0, largest_firmware_minor);
    fields.boolean("device_sdrs", wanted.device_sdrs);
    fields.number("support", wanted.support, 0, 255);
    fields.number("product", wanted.product, 0, 65535);
    fields.number("cold_resets", wanted.cold_resets, 0, UINT32_MAX);
    fields.done();
    state = wanted;
    firmware = wanted_firmware;
}

std::string words_of_device_id(byte_reader &data)
{
    const uint8_t device_id = data.u8();
    data.u8();
    const uint8_t major = data.u8();
    return text("device 0x%02X, firmware %u.%02X", device_id, major, data.u8());
}

const command device::table[] = {
    {.netfn = netfn::app,
     .number = 0x01,
     .name = "Get Device ID",
     .run = call<&device::get_device_id>,
     .answer_words = words_of_device_id},
    {.netfn = netfn::app, .number = 0x02, .name = "Cold Reset", .run = call<&device::cold_reset>},
};

std::span<const command> device::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_device(controller &owner) { return std::make_unique<device>(owner); }

}  // namespace ipmcd

#include "ipmcd/sensors/records.h"

#include "ipmcd/bytes.h"

namespace ipmcd
{

static constexpr uint8_t sdr_version = 0x51;  // BCD, low digit first: 1.5

sdr_record make_record(uint16_t id, uint8_t type, std::span<const uint8_t> body)
{
    sdr_record made = {uint8_t(id), uint8_t(id >> 8), sdr_version, type, uint8_t(body.size())};
    made.insert(made.end(), body.begin(), body.end());
    return made;
}

static void write_name(byte_writer &body, std::string_view name)
{
    constexpr uint8_t eight_bit_characters = 0xC0;
    body.u8(uint8_t(eight_bit_characters | name.size()));
    for (const char c : name)
        body.u8(uint8_t(c));
}

// Sensors ------------------------------------------------------------------------------------------------------------

static void write_owner(byte_writer &body, const sensor &what)
{
    constexpr uint8_t lun_0 = 0x00;
    body.u8(own_address).u8(lun_0).u8(what.number).u8(what.place.entity).u8(what.place.instance);
}

static uint8_t initialization(const sensor &what)
{
    constexpr uint8_t scanning = 0x40, events = 0x20, thresholds = 0x10, hysteresis = 0x08, type = 0x04;
    constexpr uint8_t events_at_power_up = 0x02, scanning_at_power_up = 0x01;
    uint8_t bits = scanning | events | type | events_at_power_up | scanning_at_power_up;
    if (what.threshold_access() == access_support::settable)
        bits |= thresholds;
    if (what.hysteresis_access == access_support::settable)
        bits |= hysteresis;
    return bits;
}

static uint8_t capabilities(const sensor &what)
{
    constexpr uint8_t rearms_itself = 0x40, events_for_all_sensors_or_none = 0x02;
    return uint8_t(rearms_itself | uint8_t(what.hysteresis_access) << 4 | uint8_t(what.threshold_access()) << 2 |
                   events_for_all_sensors_or_none);
}

/// What a sensor is and which events it has: the same in full and compact records.
static void write_kind(byte_writer &body, const sensor &what)
{
    body.u8(initialization(what)).u8(capabilities(what)).u8(what.type).u8(what.reading_type);
    if (!what.has_thresholds()) {
        body.u16le(what.assertions).u16le(what.deassertions).u16le(what.states);
        return;
    }
    // Which comparisons a reading comes with stands above the events.
    const uint8_t lower = what.compared & 0x07, upper = uint8_t(what.compared >> first_upper_threshold);
    body.u16le(uint16_t(what.assertions | lower << 12)).u16le(uint16_t(what.deassertions | upper << 12));
    body.u8(what.readable).u8(what.settable);
}

static void write_units(byte_writer &body, const sensor &what)
{
    constexpr uint8_t no_modifier = 0;
    const bool is_percentage = what.unit == unit_percent;
    body.u8(uint8_t(uint8_t(what.factors.format) << 6 | is_percentage));
    body.u8(uint8_t(is_percentage ? 0 : what.unit)).u8(no_modifier);
}

static void write_factors(byte_writer &body, const conversion &factors)
{
    constexpr uint8_t linear = 0, no_accuracy = 0;
    const auto high_bits = [](int16_t number) { return uint8_t((number >> 8 & 0x03) << 6); };
    body.u8(linear);
    body.u8(uint8_t(factors.m)).u8(high_bits(factors.m));
    body.u8(uint8_t(factors.b)).u8(high_bits(factors.b)).u8(no_accuracy);
    body.u8(uint8_t(factors.result_exponent << 4 | (factors.b_exponent & 0x0F)));
}

static void write_range(byte_writer &body, data_format format)
{
    constexpr uint8_t none_specified = 0;
    body.u8(none_specified).u8(0).u8(0).u8(0);  // nominal reading, normal largest and smallest
    const bool is_signed = format == data_format::ones_complement || format == data_format::twos_complement;
    body.u8(is_signed ? 0x7F : 0xFF).u8(is_signed ? 0x80 : 0x00);  // largest and smallest reading
}

/// A record has the thresholds in the reverse order of their bits.
static void write_thresholds(byte_writer &body, const sensor &what)
{
    for (size_t which = threshold_count; which-- > 0;)
        body.u8(what.thresholds[which]);
    body.u8(what.hysteresis.positive_going).u8(what.hysteresis.negative_going);
}

static void write_full(byte_writer &body, const sensor &what)
{
    constexpr uint8_t reserved = 0, oem = 0;
    write_owner(body, what);
    write_kind(body, what);
    write_units(body, what);
    write_factors(body, what.factors);
    write_range(body, what.factors.format);
    write_thresholds(body, what);
    body.u8(reserved).u8(reserved).u8(oem);
}

static constexpr uint8_t one_sensor[] = {0x01, 0x00};  // shares the record with no other

static void write_compact(byte_writer &body, const sensor &what)
{
    constexpr uint8_t no_hysteresis = 0, reserved = 0, oem = 0;
    write_owner(body, what);
    write_kind(body, what);
    write_units(body, what);
    body.bytes(one_sensor).u8(no_hysteresis).u8(no_hysteresis);
    body.u8(reserved).u8(reserved).u8(reserved).u8(oem);
}

static void write_event_only(byte_writer &body, const sensor &what)
{
    constexpr uint8_t reserved = 0, oem = 0;
    write_owner(body, what);
    body.u8(what.type).u8(what.reading_type).bytes(one_sensor).u8(reserved).u8(oem);
}

sdr_record sensor_record(const sensor &what)
{
    struct layout {
        uint8_t type;
        void (*write)(byte_writer &body, const sensor &what);
    };
    static constexpr layout layouts[] = {
        {sdr_type::full, write_full}, {sdr_type::compact, write_compact}, {sdr_type::event_only, write_event_only}};
    const layout &own = layouts[size_t(what.kind)];
    byte_writer body;
    own.write(body, what);
    write_name(body, what.name);
    return make_record(what.record_id, own.type, body.written());
}

// Where things are ---------------------------------------------------------------------------------------------------

/// Entity, a byte for the maker, and the name end all locators alike.
static sdr_record locator(uint16_t id, uint8_t type, byte_writer &body, entity_id where, std::string_view name)
{
    constexpr uint8_t oem = 0;
    body.u8(where.entity).u8(where.instance).u8(oem);
    write_name(body, name);
    return make_record(id, type, body.written());
}

sdr_record generic_locator(uint16_t id, uint8_t address, uint8_t device_type, entity_id where, std::string_view name)
{
    constexpr uint8_t own_bus = 0, span = 0, reserved = 0, no_modifier = 0;
    byte_writer body;
    body.u8(own_address).u8(address).u8(own_bus).u8(span).u8(reserved).u8(device_type).u8(no_modifier);
    return locator(id, sdr_type::generic_locator, body, where, name);
}

sdr_record fru_locator(uint16_t id, uint8_t fru, entity_id where, std::string_view name)
{
    constexpr uint8_t logical = 0x80, channel = 0, reserved = 0, inventory = 0x10, no_modifier = 0;
    byte_writer body;
    body.u8(own_address).u8(fru).u8(logical).u8(channel).u8(reserved).u8(inventory).u8(no_modifier);
    return locator(id, sdr_type::fru_locator, body, where, name);
}

sdr_record controller_locator(uint16_t id, uint8_t address, uint8_t capabilities, entity_id where,
                              std::string_view name)
{
    constexpr uint8_t channel = 0, static_controller = 0, reserved = 0;
    byte_writer body;
    body.u8(address).u8(channel).u8(static_controller).u8(capabilities).u8(reserved).u8(reserved).u8(reserved);
    return locator(id, sdr_type::controller_locator, body, where, name);
}

sdr_record association(uint16_t id, entity_id container, std::span<const entity_id> contained)
{
    constexpr uint8_t a_list = 0;
    byte_writer body;
    body.u8(container.entity).u8(container.instance).u8(a_list);
    for (size_t i = 0; i < most_contained; i++) {
        const entity_id one = i < contained.size() ? contained[i] : entity_id{0, 0};
        body.u8(one.entity).u8(one.instance);
    }
    return make_record(id, sdr_type::association, body.written());
}

}  // namespace ipmcd

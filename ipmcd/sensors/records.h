/// Sensor data records as they stand in a repository (IPMI 2.0, Sensor Data Record Formats).
#pragma once

#include "ipmcd/sensors/sensor.h"

#include <span>
#include <string_view>
#include <vector>

namespace ipmcd
{

using sdr_record = std::vector<uint8_t>;

constexpr size_t sdr_header_size = 5;
constexpr size_t largest_sdr_body = 255;
constexpr size_t longest_sdr_name = 16;
/// The slave address of the controller, owner of all its sensors.
constexpr uint8_t own_address = 0x20;

namespace sdr_type
{
constexpr uint8_t full = 0x01;
constexpr uint8_t compact = 0x02;
constexpr uint8_t event_only = 0x03;
constexpr uint8_t association = 0x08;
constexpr uint8_t generic_locator = 0x10;
constexpr uint8_t fru_locator = 0x11;
constexpr uint8_t controller_locator = 0x12;
}  // namespace sdr_type

/// The header in front of a body.
sdr_record make_record(uint16_t id, uint8_t type, std::span<const uint8_t> body);

sdr_record sensor_record(const sensor &what);

sdr_record generic_locator(uint16_t id, uint8_t address, uint8_t device_type, entity_id where, std::string_view name);
sdr_record fru_locator(uint16_t id, uint8_t fru, entity_id where, std::string_view name);
sdr_record controller_locator(uint16_t id, uint8_t address, uint8_t capabilities, entity_id where,
                              std::string_view name);

constexpr size_t most_contained = 4;
/// At most `most_contained` entities in a container.
sdr_record association(uint16_t id, entity_id container, std::span<const entity_id> contained);

}  // namespace ipmcd

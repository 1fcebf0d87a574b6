/// What is fixed about a sensor: what its record tells, and what it measures when nobody says otherwise.
#pragma once

#include "ipmcd/sensors/conversion.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace ipmcd
{

enum class record_kind : uint8_t { full, compact, event_only };

/// What may be done with thresholds or hysteresis. The numbers are those of the record's sensor capabilities.
enum class access_support : uint8_t { none, readable, settable, fixed };

// A threshold is known by the number of its bit in the masks (IPMI 2.0, Set Sensor Thresholds).
constexpr size_t threshold_count = 6;
constexpr size_t first_upper_threshold = 3;
constexpr uint8_t all_thresholds = 0x3F;
constexpr const char *threshold_words[threshold_count] = {"lower_non_critical",    "lower_critical",
                                                          "lower_non_recoverable", "upper_non_critical",
                                                          "upper_critical",        "upper_non_recoverable"};
using raw_thresholds = std::array<uint8_t, threshold_count>;

constexpr uint8_t threshold_bit(size_t which) { return uint8_t(1 << which); }

struct hysteresis {
    uint8_t positive_going = 0;  // raw counts
    uint8_t negative_going = 0;
};

/// What a sensor or a device belongs to: the second power supply.
struct entity_id {
    uint8_t entity = 0;  // unspecified
    uint8_t instance = 1;
};

constexpr uint8_t threshold_reading_type = 0x01;
constexpr uint8_t sensor_specific_reading_type = 0x6F;
constexpr uint16_t all_states = 0x7FFF;
/// A unit of this number is no unit of the table but the percentage flag.
constexpr unsigned unit_percent = 0x100;

struct sensor {
    std::string name;
    record_kind kind = record_kind::full;
    uint16_t record_id = 0;
    uint8_t number = 0;
    uint8_t type = 0;
    uint8_t reading_type = threshold_reading_type;
    entity_id place{};
    uint16_t assertions = 0;  // events that it tells, as masks of its record
    uint16_t deassertions = 0;

    // Of a sensor with thresholds, which has a full record
    unsigned unit = 0;
    conversion factors{};
    uint8_t compared = 0;  // thresholds that it has
    uint8_t readable = 0;  // of these, masks
    uint8_t settable = 0;
    raw_thresholds thresholds{};
    access_support hysteresis_access = access_support::none;
    ipmcd::hysteresis hysteresis{};

    // Of a discrete one
    uint16_t states = 0;  // that it can be in, a mask

    /// The raw reading, or the states it is in. None: it measures nothing.
    std::optional<uint16_t> reading;

    bool has_thresholds() const { return reading_type == threshold_reading_type; }
    bool has_reading() const { return kind != record_kind::event_only; }
    access_support threshold_access() const
    {
        if (compared == 0)
            return access_support::none;
        return settable != 0   ? access_support::settable
               : readable != 0 ? access_support::readable
                               : access_support::fixed;
    }
};

}  // namespace ipmcd

/// The controller's sensor data records (SDRs): read one by one, kept, and found by name.
#pragma once

#include <cstdint>
#include <string_view>

/// A record that has been read, in the order of reading.
struct sdr_record {
    uint16_t id;
    uint8_t type;
    uint8_t length;  // of the body
    sdr_record *next;
    uint8_t *body;  // the record without its 5-byte header, and a zero byte behind it

    /// A byte of the body; beyond its end 0.
    uint8_t at(unsigned offset) const { return offset < length ? body[offset] : uint8_t(0); }
    uint8_t sensor_number() const { return at(2); }
    uint8_t sensor_type() const;
    /// The ID string, up to 31 characters; empty for a record that has none.
    std::string_view id_string() const;
};

// Record types (IPMI 2.0, Sensor Data Record Formats)
constexpr uint8_t sdr_full = 0x01, sdr_compact = 0x02, sdr_event_only = 0x03;

constexpr uint32_t error_sensor_not_found = 0x40000003, error_empty_record = 0x40000004;

/// Finds the record whose ID string is exactly `name`, among those kept first, then among those still to be read. Costs
/// three requests at the first call and two for every record read.
///   returns  null = none, and g_error_code says why, unless a text was printed that does
const sdr_record *sdr_find_by_name(const char *name);
/// The same by sensor number and type, but without a text of its own. Once there was none it reads no further.
const sdr_record *sdr_find_by_number(uint8_t number, uint8_t type);

/// Prints what the reader does: 1 or 3 its steps, 1 or 4 the records read. Stays 0 in the tool.
extern int sdr_verbosity;
[[gnu::format(printf, 1, 2)]] void sdr_diagnose(const char *format, ...);

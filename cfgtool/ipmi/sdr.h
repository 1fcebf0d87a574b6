/// The controller's sensor data records (SDRs): read one by one, kept, and found by name.
#pragma once

#include <cstdint>
#include <span>
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
    bool is_sensor() const;
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

/// All records one after the other, with as few requests as there can be: each whole, which needs no reservation. Where
/// the controller refuses that, it is reserved, and from there on records are read in pieces.
///   device    the data of a Get Device ID answer, which say what records the controller offers
///   returns   false = none
bool sdr_open_for_all(std::span<const uint8_t> device);

struct sdr_step {
    enum class kind : uint8_t { record, lost, end, failed } is;
    uint16_t id;               // of the record
    const sdr_record *record;  // a sensor's
};
/// The next sensor's record; others are passed over. A record that is lost could not be read, and there may be more
/// after it; after a failure the reading cannot go on. In both cases g_error_code says why.
sdr_step sdr_next();

/// Prints what the reader does: 1 or 3 its steps, 1 or 4 the records read. Stays 0 in the tool.
extern int sdr_verbosity;
[[gnu::format(printf, 1, 2)]] void sdr_diagnose(const char *format, ...);

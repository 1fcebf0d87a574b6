/// The sensors, as their records describe them (IPMI 2.0, Sensor Data Record Formats and Sensor Device Commands).
/// Values are converted as the tool converts them when it sets a threshold: by the linear factors of the record.
#include "ipmi/conversion.h"
#include "ipmi/get_requests.h"
#include "ipmi/sdr.h"
#include "state/areas.h"
#include "state/complaints.h"
#include "state/text.h"
#include "state/units.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

/// The thresholds by their bits in masks.
static constexpr const char *threshold_keys[] = {"lower_noncritical", "lower_critical", "lower_nonrecoverable",
                                                 "upper_noncritical", "upper_critical", "upper_nonrecoverable"};
static constexpr size_t threshold_count = std::size(threshold_keys);

/// Who may do what with thresholds or hysteresis, two bits of the record's sensor capabilities.
enum class access : uint8_t { none, readable, settable, fixed };

struct sensor {
    const sdr_record &record;
    uint8_t number;
    char name[32];     // as its record has it
    char shown[64];    // the name in paths
    bool has_factors;  // that make a number of a raw reading

    bool has_reading() const { return record.type != sdr_event_only; }
    bool has_thresholds() const { return has_reading() && record.at(8) == 0x01; }  // the event/reading type
    bool is_analog() const { return record.type == sdr_full && has_thresholds() && record.at(15) >> 6 != 3; }
    access threshold_access() const { return access(record.at(6) >> 2 & 0x03); }
    access hysteresis_access() const { return access(record.at(6) >> 4 & 0x03); }
    /// The states that a discrete sensor can tell, a mask.
    uint16_t readable_states() const { return uint16_t(record.at(13) | record.at(14) << 8); }
};

static void put_value(node &to, const char *key, const sensor &from, uint8_t raw)
{
    double value;
    if (sensor_raw_to_real(from.record, raw, value))
        to.put(key, value);
}

// Reading -----------------------------------------------------------------------------------------------------------

/// The gravest of the thresholds that are crossed.
static const char *threshold_state(uint8_t crossed)
{
    static constexpr uint8_t gravest_first[] = {5, 2, 4, 1, 3, 0};
    for (const uint8_t which : gravest_first)
        if ((crossed & 1 << which) != 0)
            return threshold_keys[which];
    return "ok";
}

/// What Get Sensor Reading says beside the reading: a word, or the states of a discrete sensor as a mask. Empty = it
/// was not answered.
using state_text = char[24];

static unsigned states_of(const sensor &from, const reply &got)
{
    return got.read().skip(2).u16le() & from.readable_states() & 0x7FFFU;
}

static void read_reading(node &to, const sensor &from, state_text &state)
{
    static constexpr uint8_t scanning = 0x40, unavailable = 0x20;
    // The second byte of the states comes only from sensors that have so many.
    const uint8_t size = !from.has_thresholds() && from.readable_states() > UINT8_MAX ? 4 : 3;
    const reply got = ask(get_sensor_reading(from.number), {0, size}, path("sensors[%s].reading", from.shown));
    if (!got.ok())
        return;
    const bool is_scanned = (got.value(1) & scanning) != 0;
    const bool has_reading = is_scanned && (got.value(1) & unavailable) == 0;
    if (!has_reading || !from.is_analog())
        to.put_null("reading");
    else
        put_value(to, "reading", from, got.value(0));
    if (!has_reading)
        snprintf(state, sizeof state, "%s", is_scanned ? "unavailable" : "disabled");
    else if (from.has_thresholds())
        snprintf(state, sizeof state, "%s", threshold_state(got.value(2)));
    else
        snprintf(state, sizeof state, "0x%04X", states_of(from, got));
}

// Thresholds and hysteresis -----------------------------------------------------------------------------------------

/// True = it can be asked for. What is there and cannot is named, what is not there is null.
static bool is_readable(report &to, node &of, const sensor &from, const char *key, access allowed)
{
    if (!from.is_analog() || allowed == access::none)
        of.put_null(key);
    else if (allowed == access::fixed)
        to.cannot_read(path("sensors[%s].%s", from.shown, key));
    else
        return true;
    return false;
}

static void read_thresholds(report &to, node &of, const sensor &from)
{
    static constexpr char key[] = "thresholds";
    if (!is_readable(to, of, from, key, from.threshold_access()) || !from.has_factors)
        return;
    const reply got =
        ask(get_sensor_thresholds(from.number), {0, 1 + threshold_count}, path("sensors[%s].%s", from.shown, key));
    if (!got.ok())
        return;
    node &thresholds = of.object(key);
    for (size_t which = 0; which < threshold_count; ++which)
        if ((got.value(0) & 1 << which) != 0)
            put_value(thresholds, threshold_keys[which], from, got.value(1 + which));
        else
            thresholds.put_null(threshold_keys[which]);
}

/// Raw counts, as they are set.
static void read_hysteresis(report &to, node &of, const sensor &from)
{
    static constexpr char key[] = "hysteresis";
    if (!is_readable(to, of, from, key, from.hysteresis_access()))
        return;
    const reply got = ask(get_sensor_hysteresis(from.number), {0, 2}, path("sensors[%s].%s", from.shown, key));
    if (!got.ok())
        return;
    node &hysteresis = of.object(key);
    hysteresis.put("positive", got.value(0));
    hysteresis.put("negative", got.value(1));
}

// -------------------------------------------------------------------------------------------------------------------

static void read_sensor(report &to, node &area, const sdr_record &record)
{
    double unused;
    sensor from{.record = record,
                .number = record.sensor_number(),
                .name = "",
                .shown = "",
                .has_factors = sensor_raw_to_real(record, 0, unused)};
    const std::string_view name = record.id_string();
    std::copy(name.begin(), name.end(), from.name);
    printable(from.name, from.shown);
    if (from.name[0] == '\0')
        snprintf(from.shown, sizeof from.shown, "%u", from.number);
    if (from.is_analog() && !from.has_factors)
        complain("sensors[%s]: the factors of its record make no number", from.shown);
    node &made = area.object(nullptr);
    put_name(made, from.name, path("sensors[%u].name", from.number));
    made.put("number", from.number);
    char unit[64];
    if (from.is_analog() && unit_of(record, unit))
        made.put("unit", unit);
    else
        made.put_null("unit");
    state_text state = "";
    if (from.has_reading())
        read_reading(made, from, state);
    else
        made.put_null("reading");
    read_thresholds(to, made, from);
    read_hysteresis(to, made, from);
    if (state[0] != '\0')
        made.put("state", state);
    else if (!from.has_reading())
        made.put_null("state");
}

bool read_sensors(report &to, node &area)
{
    to.cannot_read("sensors.test");
    if (!device_id().ok())
        return false;
    if (!sdr_open_for_all(device_id().value())) {
        complain("sensors: the controller offers no sensor data records");
        return false;
    }
    for (bool is_complete = true;;) {
        const sdr_step step = sdr_next();
        if (step.is == sdr_step::kind::end)
            return is_complete;
        if (step.is == sdr_step::kind::record)
            read_sensor(to, area, *step.record);
        else
            complain("sensors: record 0x%04X cannot be read (0x%X)", step.id, g_error_code);
        if (step.is == sdr_step::kind::failed)
            return false;
        is_complete = is_complete && step.is == sdr_step::kind::record;
    }
}

#include "sensor/sensor.h"

#include "ipmi/conversion.h"
#include "ipmi/get_requests.h"
#include "ipmi/privilege.h"
#include "ipmi/sdr.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstdlib>
#include <cstring>

static constexpr uint32_t error_not_full_record = 0x40000008, error_not_a_number = 0x40000009;

static bool failed(uint32_t reason)
{
    g_error_code = reason;
    return false;
}

/// Sends a request that is only to succeed. False = it did not, and g_error_code says why.
static bool send(const ipmi_request &request)
{
    const ipmi_answer got = exchange(request);
    return got.ok() || failed(got.error_code());
}

/// A full sensor record by name; null = none, and g_error_code says why.
static const sdr_record *find_full_record(const char *name)
{
    const sdr_record *record = sdr_find_by_name(name);
    if (record == nullptr || record->type == sdr_full)
        return record;
    g_error_code = error_not_full_record;
    return nullptr;
}

// Thresholds --------------------------------------------------------------------------------------------------------

static ipmi_request set_sensor_thresholds(uint8_t sensor, uint8_t slot, uint8_t raw)
{
    ipmi_request request(netfn_sensor_event, 0x26);
    request.u8(sensor).u8(uint8_t(1 << slot));
    for (uint8_t n = 0; n < 6; ++n)
        request.u8(n == slot ? raw : uint8_t(0));
    return request;
}

static bool change_threshold(const threshold &which, const char *name, double value)
{
    const sdr_record *record = find_full_record(name);
    if (record == nullptr)
        return false;
    sdr_diagnose("Setting sensor \"%s\" %s threshold to %.3f", name, which.name, value);
    const double raw = sensor_real_to_raw(*record, value);
    return raw_in_range(*record, raw) &&
           send(set_sensor_thresholds(record->sensor_number(), which.slot, raw_byte(raw)));
}

int set_threshold(const threshold &which, const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(2))
        return usage_error("Usage: cfgtool -t sensor -d %s -v <sensorname>  <%sval>", which.dataitem, which.dataitem);
    const double value = strtod(typed.value(1), nullptr);  // Kept: text that is not a number counts as 0
    if (!change_threshold(which, typed.value(0), value))
        return fail("Set sensor %s failed, error code: 0x%X", which.words, g_error_code);
    done("Set sensor %s successfully.", which.words);
    log_change("Sensor", "Set sensor(%s) %s threshold(%.3f) success,EvtCode:0x%08X", typed.value(0), which.log_words,
               value, which.event);
    return 1;
}

// Hysteresis --------------------------------------------------------------------------------------------------------

struct hysteresis_kind {
    int type;              // in diagnostics
    const char *dataitem;  // as typed
    const char *word;
    uint32_t event;
};
static constexpr hysteresis_kind positive = {1, "positivehysteresis", "positive", 0x20600260};
static constexpr hysteresis_kind negative = {2, "negativehysteresis", "negative", 0x20600250};

static ipmi_request set_sensor_hysteresis(uint8_t sensor, uint8_t positive_going, uint8_t negative_going)
{
    return ipmi_request(netfn_sensor_event, 0x24)
        .u8(sensor)
        .u8(sensor_hysteresis_mask)
        .u8(positive_going)
        .u8(negative_going);
}

/// Changes one of the two counts and leaves the other as it is.
static bool change_hysteresis(const hysteresis_kind &kind, const char *name, uint8_t count)
{
    sdr_diagnose("type = %d, name = %s, value = %d.", kind.type, name, count);
    const sdr_record *record = find_full_record(name);
    if (record == nullptr)
        return false;
    const ipmi_answer got = exchange(get_sensor_hysteresis(record->sensor_number()));
    if (!got.ok())
        return failed(got.error_code());
    ipmi_reader counts(got.data);
    const uint8_t positive_going = counts.u8(), negative_going = counts.u8();
    const bool is_positive = kind.type == positive.type;
    return send(set_sensor_hysteresis(record->sensor_number(), is_positive ? count : positive_going,
                                      is_positive ? negative_going : count));
}

static int set_hysteresis(const hysteresis_kind &kind, const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(2))
        return usage_error("Usage: cfgtool -t sensor -d %s -v <sensorname>  <%sval>", kind.dataitem, kind.dataitem);
    const int32_t count = parse_number(typed.value(1));
    if (count < 0 || count > UINT8_MAX)
        return refuse("Input parameter out of range.");
    if (!change_hysteresis(kind, typed.value(0), uint8_t(count)))
        return fail("Set sensor %s hysteresis failed, error code: 0x%X", kind.word, g_error_code);
    done("Set sensor %s hysteresis successfully.", kind.word);
    log_change("Sensor", "Set sensor(%s) %s hysteresis(%d) success,EvtCode:0x%08X", typed.value(0), kind.word, count,
               kind.event);
    return 1;
}

int negativehysteresis(const invocation &typed) { return set_hysteresis(negative, typed); }

int positivehysteresis(const invocation &typed) { return set_hysteresis(positive, typed); }

// Test --------------------------------------------------------------------------------------------------------------

static ipmi_request sensor_test_request(uint8_t sensor, bool start)
{
    return ipmi_request(netfn_oem, 0x91).oem().u8(0x0C).u8(sensor).u8(start);
}

static bool stop_test(const sdr_record &record)
{
    return send(sensor_test_request(record.sensor_number(), false).u8(0x00));
}

/// A full record takes the value in its units, any other a raw count of 16 bits.
static bool start_test(const sdr_record &record, const char *value_text)
{
    char *end;
    const double value = strtod(value_text, &end);
    if (*end != '\0')
        return failed(error_not_a_number);
    ipmi_request request = sensor_test_request(record.sensor_number(), true);
    if (record.type == sdr_full) {
        const double raw = sensor_real_to_raw(record, value);
        return raw_in_range(record, raw) && send(request.u8(raw_byte(raw)));
    }
    if (value > 65535.0)
        return failed(error_raw_range);
    return send(request.u16le(value > 0 ? uint16_t(value) : uint16_t(0)));  // a negative value has no unsigned integer
}

static bool change_test(const char *name, const char *value_text)
{
    const sdr_record *record = sdr_find_by_name(name);
    if (record == nullptr)
        return false;
    return strcmp(value_text, "stop") == 0 ? stop_test(*record) : start_test(*record, value_text);
}

int sensor_test(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (!typed.has_values(2))
        return usage_error("Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
                           "value:  value      start test and set the current value\r\n"
                           "        stop       stop test");
    if (!change_test(typed.value(0), typed.value(1)))
        return fail("Sensor test failed, error code: 0x%X", g_error_code);
    done("Sensor test successfully.");
    log_change("Sensor", "Set sensor(%s) test value(%s) success,EvtCode:0x206002E0", typed.value(0), typed.value(1));
    return 1;
}

/// Sensors: what they measure, their thresholds and hysteresis (IPMI 2.0, Sensor Device commands), and a test mode in
/// which they report what they are told to (OEM).
#include "ipmcd/controller.h"
#include "ipmcd/sensors/words.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

/// What changes about a sensor. Readings are raw, or, of discrete sensors, the states they are in.
struct measurement {
    std::optional<uint16_t> reading;  // none: it measures nothing now
    std::optional<uint16_t> test;     // reported instead, in test mode
    raw_thresholds thresholds{};
    ipmcd::hysteresis hysteresis{};
    uint8_t crossed = 0;  // thresholds, a mask

    std::optional<uint16_t> reported() const { return test ? test : reading; }
};

class sensors final : public family
{
public:
    explicit sensors(controller &owner) : board(owner.description()) { sensors::reset(); }

    const char *name() const override { return "sensors"; }
    std::span<const command> commands() const override;
    void reset() override;
    void restart() override;
    json to_json() const override;
    json shown() const override;
    std::optional<json> details(std::string_view kind, std::string_view which) const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_reading(byte_reader &request, byte_writer &answer);
    completion get_thresholds(byte_reader &request, byte_writer &answer);
    completion set_thresholds(byte_reader &request, byte_writer &answer);
    completion get_hysteresis(byte_reader &request, byte_writer &answer);
    completion set_hysteresis(byte_reader &request, byte_writer &answer);
    completion test(byte_reader &request, byte_writer &answer);

    std::optional<size_t> find(uint8_t number) const;

    const board_description &board;
    std::vector<measurement> state;  // of each of the board's sensors
};

// Thresholds that are crossed ----------------------------------------------------------------------------------------

/// What is crossed stays so until the reading is back behind the threshold by the hysteresis.
bool is_crossed(const sensor &which, const measurement &now, size_t limit)
{
    const int direction = which.factors.m < 0 ? -1 : 1;  // large raw readings are small values then
    const int reading = direction * which.factors.number(uint8_t(*now.reported()));
    const int threshold = direction * which.factors.number(now.thresholds[limit]);
    const bool was = (now.crossed & threshold_bit(limit)) != 0;
    if (limit >= first_upper_threshold)
        return reading >= threshold - (was ? now.hysteresis.positive_going : 0);
    return reading <= threshold + (was ? now.hysteresis.negative_going : 0);
}

/// Has to follow each change of a reading, a threshold or a hysteresis.
void compare(const sensor &which, measurement &now)
{
    uint8_t crossed = 0;
    for (size_t limit = 0; limit < threshold_count; limit++)
        if ((which.compared & threshold_bit(limit)) != 0 && now.reported() && is_crossed(which, now, limit))
            crossed |= threshold_bit(limit);
    now.crossed = crossed;
}

measurement factory_state(const sensor &which)
{
    measurement now;
    now.reading = which.reading;
    now.thresholds = which.thresholds;
    now.hysteresis = which.hysteresis;
    compare(which, now);
    return now;
}

// Commands -----------------------------------------------------------------------------------------------------------

void sensors::reset()
{
    state.clear();
    for (const sensor &one : board.sensors)
        state.push_back(factory_state(one));
}

void sensors::restart()
{
    for (size_t i = 0; i < state.size(); i++) {
        state[i].test.reset();
        compare(board.sensors[i], state[i]);
    }
}

std::optional<size_t> sensors::find(uint8_t number) const
{
    const auto found = std::ranges::find_if(board.sensors, [&](const sensor &one) { return one.number == number; });
    return found == board.sensors.end() ? std::nullopt : std::optional(size_t(found - board.sensors.begin()));
}

completion sensors::get_reading(byte_reader &request, byte_writer &answer)
{
    constexpr uint8_t enabled = 0xC0, unavailable = 0x20;  // events and scanning; no reading
    constexpr uint8_t no_comparison = 0xC0, no_state = 0x80;
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const sensor &which = board.sensors[*index];
    if (!which.has_reading())
        return completion::illegal_for_record;
    const auto reading = state[*index].reported();
    const uint8_t status = reading ? enabled : enabled | unavailable;
    const uint16_t bits = reading.value_or(0);
    if (which.has_thresholds())
        answer.u8(uint8_t(bits)).u8(status).u8(no_comparison | state[*index].crossed);
    else
        answer.u8(0).u8(status).u8(uint8_t(bits)).u8(uint8_t(no_state | bits >> 8));
    return completion::ok;
}

completion sensors::get_thresholds(byte_reader &request, byte_writer &answer)
{
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const sensor &which = board.sensors[*index];
    if (which.readable == 0)
        return completion::illegal_for_record;
    answer.u8(which.readable);
    for (size_t limit = 0; limit < threshold_count; limit++)
        answer.u8((which.readable & threshold_bit(limit)) != 0 ? state[*index].thresholds[limit] : uint8_t{0});
    return completion::ok;
}

completion sensors::set_thresholds(byte_reader &request, byte_writer &)
{
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const sensor &which = board.sensors[*index];
    if (which.settable == 0)
        return completion::illegal_for_record;
    const uint8_t mask = request.u8();
    if ((mask & ~which.settable) != 0)
        return completion::invalid_field;
    const auto given = request.bytes(threshold_count);
    for (size_t limit = 0; limit < threshold_count; limit++)
        if ((mask & threshold_bit(limit)) != 0)
            state[*index].thresholds[limit] = given[limit];
    compare(which, state[*index]);
    return completion::ok;
}

constexpr uint8_t hysteresis_mask = 0xFF;  // always so; IPMI 2.0 keeps the byte for a mask to come

completion sensors::get_hysteresis(byte_reader &request, byte_writer &answer)
{
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const access_support allowed = board.sensors[*index].hysteresis_access;
    if (allowed != access_support::readable && allowed != access_support::settable)
        return completion::illegal_for_record;
    if (request.u8() != hysteresis_mask)
        return completion::invalid_field;
    const hysteresis &own = state[*index].hysteresis;
    answer.u8(own.positive_going).u8(own.negative_going);
    return completion::ok;
}

completion sensors::set_hysteresis(byte_reader &request, byte_writer &)
{
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const sensor &which = board.sensors[*index];
    if (which.hysteresis_access != access_support::settable)
        return completion::illegal_for_record;
    if (request.u8() != hysteresis_mask)
        return completion::invalid_field;
    hysteresis &own = state[*index].hysteresis;
    own.positive_going = request.u8();
    own.negative_going = request.u8();
    compare(which, state[*index]);
    return completion::ok;
}

constexpr uint8_t stop_test = 0, start_test = 1;

/// The value is one byte for a sensor with a full record and two for any other. Stopping a test needs none; the one
/// byte that comes with it is not looked at.
completion sensors::test(byte_reader &request, byte_writer &answer)
{
    const auto index = find(request.u8());
    if (!index)
        return completion::not_present;
    const sensor &which = board.sensors[*index];
    const uint8_t action = request.u8();
    if (action > start_test)
        return completion::invalid_field;
    const bool two_bytes = action == start_test && which.kind != record_kind::full;
    if (request.left() != (two_bytes ? 2U : 1U))
        return completion::length_invalid;
    const uint16_t value = request.u16le();
    if (value > all_states)
        return completion::out_of_range;
    state[*index].test = action == start_test ? std::optional(value) : std::nullopt;
    compare(which, state[*index]);
    answer.bytes(oem_iana);
    return completion::ok;
}

// JSON ---------------------------------------------------------------------------------------------------------------

/// A reading as a value in the sensor's unit, or as the number of its states; null for none.
json value_to_json(const sensor &which, std::optional<uint16_t> raw)
{
    if (!raw)
        return nullptr;
    return which.has_thresholds() ? json(which.factors.value(uint8_t(*raw))) : json(*raw);
}

void read_value(json_fields &fields, const char *key, const sensor &which, std::optional<uint16_t> &value)
{
    const json *given = fields.find(key);
    if (!given)
        return;
    if (given->is_null()) {
        value.reset();
    } else if (!which.has_thresholds()) {
        fields.number(key, value.emplace(), 0, all_states);
    } else {
        value = raw_from_json(*given, fields, key, which.factors);
    }
}

json measurement_to_json(const sensor &which, const measurement &now)
{
    json all = json::object();
    if (which.has_reading())
        all["reading"] = value_to_json(which, now.reading);
    all["test"] = value_to_json(which, now.test);
    for (size_t limit = 0; limit < threshold_count; limit++)
        if ((which.compared & threshold_bit(limit)) != 0)
            all["thresholds"][threshold_words[limit]] = which.factors.value(now.thresholds[limit]);
    if (which.hysteresis_access != access_support::none)
        all["hysteresis"] = {{"positive", now.hysteresis.positive_going}, {"negative", now.hysteresis.negative_going}};
    return all;
}

void read_thresholds(const json &part, const std::string &where, const sensor &which, measurement &now)
{
    json_fields limits(part, where);
    for (size_t limit = 0; limit < threshold_count; limit++)
        if ((which.compared & threshold_bit(limit)) != 0)
            if (const json *value = limits.find(threshold_words[limit]))
                now.thresholds[limit] = raw_from_json(*value, limits, threshold_words[limit], which.factors);
    limits.done();
}

void read_hysteresis(const json &part, const std::string &where, measurement &now)
{
    json_fields counts(part, where);
    counts.number("positive", now.hysteresis.positive_going, 0, 255);
    counts.number("negative", now.hysteresis.negative_going, 0, 255);
    counts.done();
}

void read_measurement(const json &object, const std::string &where, const sensor &which, measurement &now)
{
    json_fields fields(object, where);
    if (which.has_reading())
        read_value(fields, "reading", which, now.reading);
    read_value(fields, "test", which, now.test);
    if (which.compared != 0)
        if (const json *part = fields.find("thresholds"))
            read_thresholds(*part, where + "/thresholds", which, now);
    if (which.hysteresis_access != access_support::none)
        if (const json *part = fields.find("hysteresis"))
            read_hysteresis(*part, where + "/hysteresis", now);
    fields.done();
    compare(which, now);
}

json sensors::to_json() const
{
    json all = json::object();
    for (size_t i = 0; i < state.size(); i++)
        all[board.sensors[i].name] = measurement_to_json(board.sensors[i], state[i]);
    return all;
}

void sensors::from_json(const json &json)
{
    std::vector<measurement> wanted = state;
    json_fields fields(json, "/sensors");
    for (size_t i = 0; i < wanted.size(); i++) {
        const sensor &one = board.sensors[i];
        if (const auto *part = fields.find(one.name.c_str()))
            read_measurement(*part, "/sensors/" + one.name, one, wanted[i]);
    }
    fields.done("board \"" + board.name + "\" has no such sensor");
    state = wanted;
}

json words_of_mask(uint8_t mask)
{
    json words = json::array();
    for (size_t limit = 0; limit < threshold_count; limit++)
        if ((mask & threshold_bit(limit)) != 0)
            words.push_back(threshold_words[limit]);
    return words;
}

/// One line of a list: what it reports, and what is wrong with that.
json sensors::shown() const
{
    json all = json::object();
    for (size_t i = 0; i < state.size(); i++) {
        const sensor &which = board.sensors[i];
        json &line = all[which.name] = {{"number", text("0x%02X", which.number)}};
        if (which.has_reading())
            line["reading"] = value_to_json(which, state[i].reported());
        if (which.has_thresholds())
            line["unit"] = word_of(sensor_units(), which.unit);
        if (state[i].crossed != 0)
            line["crossed"] = words_of_mask(state[i].crossed);
        if (state[i].test)
            line["in_test"] = true;
    }
    return all;
}

json all_about(const sensor &which, const measurement &now)
{
    static constexpr const char *kinds[] = {"full", "compact", "event only"};
    json all{{"number", text("0x%02X", which.number)},
             {"record", kinds[size_t(which.kind)]},
             {"record_id", which.record_id},
             {"type", word_of(sensor_types(), which.type)},
             {"at", word_of(entities(), which.place.entity) + text(" %u", which.place.instance)}};
    if (const auto raw = now.reported(); raw && which.has_thresholds())
        all["raw"] = *raw;
    if (which.has_thresholds()) {
        all["unit"] = word_of(sensor_units(), which.unit);
        all["crossed"] = words_of_mask(now.crossed);
        all["readable"] = words_of_mask(which.readable);
        all["settable"] = words_of_mask(which.settable);
    }
    all.update(measurement_to_json(which, now));
    return all;
}

std::optional<json> sensors::details(std::string_view kind, std::string_view which) const
{
    if (kind != "sensor")
        return std::nullopt;
    for (size_t i = 0; i < state.size(); i++)
        if (board.sensors[i].name == which)
            return all_about(board.sensors[i], state[i]);
    throw std::out_of_range("this board has no sensor of that name");
}

// Words --------------------------------------------------------------------------------------------------------------

std::string words_of_sensor(byte_reader &data) { return text("sensor 0x%02X", data.u8()); }

/// ", upper critical 85" for each bit of the mask, raw.
std::string words_of_limits(uint8_t mask, byte_reader &data)
{
    static constexpr const char *words[] = {"lower non-critical", "lower critical", "lower non-recoverable",
                                            "upper non-critical", "upper critical", "upper non-recoverable"};
    std::string all;
    for (size_t limit = 0; limit < threshold_count; limit++) {
        const uint8_t raw = data.u8();
        if ((mask & threshold_bit(limit)) != 0)
            all += text(", %s %u", words[limit], raw);
    }
    return all;
}

std::string words_of_new_thresholds(byte_reader &data)
{
    const std::string which = words_of_sensor(data);
    const uint8_t mask = data.u8();
    return which + words_of_limits(mask, data);
}

std::string words_of_thresholds(byte_reader &data)
{
    const uint8_t mask = data.u8();
    const std::string limits = words_of_limits(mask, data);
    return limits.empty() ? "none" : limits.substr(2);
}

std::string words_of_hysteresis(byte_reader &data)
{
    const uint8_t positive = data.u8();
    return text("positive %u, negative %u", positive, data.u8());
}

std::string words_of_new_hysteresis(byte_reader &data)
{
    const std::string which = words_of_sensor(data);
    data.u8();
    return which + ", " + words_of_hysteresis(data);
}

std::string words_of_test(byte_reader &data)
{
    const std::string which = words_of_sensor(data);
    const uint8_t action = data.u8();
    return which + (action == stop_test    ? ", stop"
                    : action == start_test ? text(", value %u", data.u16le())
                                           : text(", action %u", action));
}

/// A sensor with thresholds answers three bytes, a discrete one four.
std::string words_of_reading(byte_reader &data)
{
    const bool has_thresholds = data.left() == 3;
    const uint8_t raw = data.u8();
    if ((data.u8() & 0x20) != 0)
        return "unavailable";
    if (!has_thresholds)
        return text("states 0x%04X", data.u16le() & all_states);
    const uint8_t crossed = data.u8() & all_thresholds;
    return text("raw %u", raw) + (crossed == 0 ? "" : text(", crossed 0x%02X", crossed));
}

const command sensors::table[] = {
    {.netfn = netfn::sensor_event,
     .number = 0x24,
     .name = "Set Sensor Hysteresis",
     .length = {4, 4},
     .run = call<&sensors::set_hysteresis>,
     .request_words = words_of_new_hysteresis},
    {.netfn = netfn::sensor_event,
     .number = 0x25,
     .name = "Get Sensor Hysteresis",
     .length = {2, 2},
     .run = call<&sensors::get_hysteresis>,
     .request_words = words_of_sensor,
     .answer_words = words_of_hysteresis},
    {.netfn = netfn::sensor_event,
     .number = 0x26,
     .name = "Set Sensor Thresholds",
     .length = {2 + threshold_count, 2 + threshold_count},
     .run = call<&sensors::set_thresholds>,
     .request_words = words_of_new_thresholds},
    {.netfn = netfn::sensor_event,
     .number = 0x27,
     .name = "Get Sensor Thresholds",
     .length = {1, 1},
     .run = call<&sensors::get_thresholds>,
     .request_words = words_of_sensor,
     .answer_words = words_of_thresholds},
    {.netfn = netfn::sensor_event,
     .number = 0x2D,
     .name = "Get Sensor Reading",
     .length = {1, 1},
     .run = call<&sensors::get_reading>,
     .request_words = words_of_sensor,
     .answer_words = words_of_reading},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x0C),
     .name = "Sensor Test",
     .length = {3, 4},
     .run = call<&sensors::test>,
     .request_words = words_of_test},
};

std::span<const command> sensors::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_sensors(controller &owner) { return std::make_unique<sensors>(owner); }

}  // namespace ipmcd

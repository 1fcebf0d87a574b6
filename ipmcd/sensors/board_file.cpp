#include "ipmcd/sensors/board_file.h"

#include "ipmcd/sensors/words.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>

namespace ipmcd
{

namespace
{

constexpr size_t most_records = 0xFFFE;
constexpr size_t most_device_records = 0xFF;  // Get Device SDR Info has a byte for their number
constexpr unsigned most_instances = 127;
constexpr const char *format_words[] = {"unsigned", "ones_complement", "twos_complement", "none"};
constexpr const char *access_words[] = {"none", "readable", "settable", "fixed"};

// Values of single fields --------------------------------------------------------------------------------------------

/// A number, or the same in a text of hexadecimal digits: 17, "0x11".
std::optional<unsigned> number_of(const json &given)
{
    if (given.is_number_integer() && given >= 0 && given <= UINT32_MAX)
        return given.get<unsigned>();
    const std::string digits = given.is_string() ? given.get<std::string>() : std::string();
    const char *const end = digits.data() + digits.size();
    unsigned value = 0;
    if (!digits.starts_with("0x") || digits.size() == 2 ||
        std::from_chars(digits.data() + 2, end, value, 16).ptr != end)
        return std::nullopt;
    return value;
}

template <std::integral number_type>
void read_code(json_fields &fields, const char *key, number_type &value, unsigned largest)
{
    const json *given = fields.find(key);
    if (!given)
        return;
    const auto number = number_of(*given);
    if (!number || *number > largest)
        fields.refuse(key, text("a number from 0 to %u, or one like \"0x%X\", is needed here", largest, largest));
    value = number_type(*number);
}

/// The same, or a word of the table.
template <std::integral number_type>
void read_word(json_fields &fields, const char *key, number_type &value, std::span<const code_word> table)
{
    const json *given = fields.find(key);
    if (!given)
        return;
    std::string known;
    for (const code_word &row : table) {
        if (*given == row.word) {
            value = number_type(row.code);
            return;
        }
        known += std::string(row.word) + ", ";
    }
    const auto number = number_of(*given);
    if (!number || *number > 0xFF)
        fields.refuse(key, "one of the words " + known + "or a number from 0 to 255, is needed here");
    value = number_type(*number);
}

void read_exponent(json_fields &fields, const char *key, int8_t &exponent) { fields.number(key, exponent, -8, 7); }

std::string read_name(json_fields &fields)
{
    std::string name;
    fields.text("name", name, longest_sdr_name);
    if (name.empty())
        fields.refuse("name", "each record has a name");
    return name;
}

/// A number without which a record is none.
void require(json_fields &fields, const char *key)
{
    if (!fields.find(key))
        fields.refuse(key, "is missing");
}

/// "processor 2": an entity and which of its kind.
std::optional<entity_id> parse_place(const std::string &words)
{
    const size_t blank = words.rfind(' ');
    unsigned instance = 0;
    const char *const end = words.data() + words.size();
    if (blank == std::string::npos || std::from_chars(words.data() + blank + 1, end, instance).ptr != end ||
        instance > most_instances)
        return std::nullopt;
    for (const code_word &row : entities())
        if (words.substr(0, blank) == row.word)
            return entity_id{uint8_t(row.code), uint8_t(instance)};
    return std::nullopt;
}

entity_id place_of(const json &given, const json_fields &fields, const char *key)
{
    if (const auto place = given.is_string() ? parse_place(given) : std::nullopt)
        return *place;
    std::string known;
    for (const code_word &row : entities())
        known += std::string(", ") + row.word;
    fields.refuse(key,
                  "an entity and its number are needed here, as in \"processor 1\"; entities are" + known.substr(1));
}

entity_id read_place(json_fields &fields)
{
    const json *given = fields.find("at");
    return given ? place_of(*given, fields, "at") : entity_id{};
}

// Sensors ------------------------------------------------------------------------------------------------------------

void read_factors(json_fields &fields, conversion &factors)
{
    fields.choice("format", factors.format, format_words);
    fields.number("M", factors.m, -512, 511);
    fields.number("B", factors.b, -512, 511);
    read_exponent(fields, "B_exponent", factors.b_exponent);
    read_exponent(fields, "result_exponent", factors.result_exponent);
    if (factors.m == 0)
        fields.refuse("M", "0 would make all readings the same");
}

/// A list of words for thresholds as a mask; all that are allowed, when there is no list.
uint8_t read_mask(json_fields &fields, const char *key, uint8_t allowed, const std::string &which_are_allowed)
{
    const json *list = fields.find(key);
    if (!list)
        return allowed;
    uint8_t mask = 0;
    const auto bit_of = [&](const json &word) {
        for (size_t which = 0; which < threshold_count; which++)
            if (word == threshold_words[which])
                return uint8_t(threshold_bit(which) & allowed);
        return uint8_t(0);
    };
    for (const json &word : list->is_array() ? *list : json::array({nullptr})) {
        if (bit_of(word) == 0)
            fields.refuse(key, "a list of thresholds " + which_are_allowed + " is needed here");
        mask |= bit_of(word);
    }
    return mask;
}

void read_thresholds(json_fields &fields, sensor &made, const std::string &where)
{
    if (const json *part = fields.find("thresholds")) {
        json_fields limits(*part, where + "/thresholds");
        for (size_t which = 0; which < threshold_count; which++) {
            if (const json *value = limits.find(threshold_words[which])) {
                made.thresholds[which] = raw_from_json(*value, limits, threshold_words[which], made.factors);
                made.compared |= threshold_bit(which);
            }
        }
        limits.done();
    }
    made.readable = read_mask(fields, "readable", made.compared, "that the sensor has");
    made.settable = read_mask(fields, "settable", made.readable, "that can be read");
}

void read_hysteresis(json_fields &fields, sensor &made, const std::string &where)
{
    const json *part = fields.find("hysteresis");
    if (!part)
        return;
    made.hysteresis_access = access_support::settable;
    json_fields counts(*part, where + "/hysteresis");
    counts.number("positive", made.hysteresis.positive_going, 0, 255);
    counts.number("negative", made.hysteresis.negative_going, 0, 255);
    counts.choice("access", made.hysteresis_access, access_words);
    counts.done();
}

/// Crossing an upper threshold is told going high, a lower one going low.
uint16_t events_of_thresholds(uint8_t compared)
{
    unsigned events = 0;
    for (size_t which = 0; which < threshold_count; which++)
        if ((compared & threshold_bit(which)) != 0)
            events |= 1U << (2 * which + (which >= first_upper_threshold ? 1 : 0));
    return uint16_t(events);
}

void read_events(json_fields &fields, sensor &made, uint16_t usual, unsigned largest)
{
    made.assertions = made.deassertions = usual;
    read_code(fields, "assertions", made.assertions, largest);
    read_code(fields, "deassertions", made.deassertions, largest);
}

void read_analog(json_fields &fields, sensor &made, const std::string &where)
{
    read_word(fields, "unit", made.unit, sensor_units());
    read_factors(fields, made.factors);
    if (made.factors.format == data_format::none)
        fields.refuse("format", "a sensor with thresholds has a reading");
    read_thresholds(fields, made, where);
    read_hysteresis(fields, made, where);
    read_events(fields, made, events_of_thresholds(made.compared), 0x0FFF);
    const json *value = fields.find("reading");
    if (value && !value->is_null())
        made.reading = raw_from_json(*value, fields, "reading", made.factors);
}

void read_discrete(json_fields &fields, sensor &made)
{
    made.factors.format = data_format::none;
    read_code(fields, "states", made.states, all_states);
    read_events(fields, made, made.states, all_states);
    const json *value = fields.find("reading");
    if (!value || value->is_null())
        return;
    read_code(fields, "reading", made.reading.emplace(), all_states);
    if ((*made.reading & ~made.states) != 0)
        fields.refuse("reading", "the sensor cannot be in these states");
}

// Records ------------------------------------------------------------------------------------------------------------

/// A record that is being read: it knows its fields, its place in the file and its id.
struct item {
    json_fields &fields;
    std::string where;
    uint16_t id;
};

void add_sensor(board_description &board, const item &from, const sensor &made)
{
    for (const sensor &other : board.sensors) {
        if (other.number == made.number)
            from.fields.refuse("number", "sensor \"" + other.name + "\" has this number");
        if (other.name == made.name)
            from.fields.refuse("name", "another sensor has this name");
    }
    board.sensors.push_back(made);
    board.records.push_back(sensor_record(made));
}

sensor read_sensor(const item &from, record_kind kind, uint8_t usual_reading_type)
{
    sensor made;
    made.name = read_name(from.fields);
    made.kind = kind;
    made.record_id = from.id;
    require(from.fields, "number");
    require(from.fields, "type");
    read_code(from.fields, "number", made.number, 0xFE);  // 0xFF is reserved
    read_word(from.fields, "type", made.type, sensor_types());
    made.reading_type = usual_reading_type;
    read_code(from.fields, "reading_type", made.reading_type, 0x7F);
    made.place = read_place(from.fields);
    if (made.has_thresholds() && kind != record_kind::full)
        from.fields.refuse("reading_type", "thresholds need a full record");
    return made;
}

void read_full(board_description &board, const item &from)
{
    sensor made = read_sensor(from, record_kind::full, threshold_reading_type);
    if (made.has_thresholds())
        read_analog(from.fields, made, from.where);
    else
        read_discrete(from.fields, made);
    add_sensor(board, from, made);
}

void read_compact(board_description &board, const item &from)
{
    sensor made = read_sensor(from, record_kind::compact, sensor_specific_reading_type);
    read_discrete(from.fields, made);
    add_sensor(board, from, made);
}

void read_event_only(board_description &board, const item &from)
{
    add_sensor(board, from, read_sensor(from, record_kind::event_only, sensor_specific_reading_type));
}

void read_generic_locator(board_description &board, const item &from)
{
    uint8_t address = 0, device_type = 0;
    const std::string name = read_name(from.fields);
    require(from.fields, "address");
    read_code(from.fields, "address", address, 0xFF);
    read_code(from.fields, "device_type", device_type, 0xFF);
    board.records.push_back(generic_locator(from.id, address, device_type, read_place(from.fields), name));
}

void read_fru_locator(board_description &board, const item &from)
{
    uint8_t fru = 0;
    const std::string name = read_name(from.fields);
    require(from.fields, "fru");
    read_code(from.fields, "fru", fru, 0xFE);
    board.records.push_back(fru_locator(from.id, fru, read_place(from.fields), name));
}

void read_controller_locator(board_description &board, const item &from)
{
    uint8_t address = own_address, capabilities = 0;
    const std::string name = read_name(from.fields);
    read_code(from.fields, "address", address, 0xFF);
    read_code(from.fields, "capabilities", capabilities, 0xFF);
    board.records.push_back(controller_locator(from.id, address, capabilities, read_place(from.fields), name));
}

void read_association(board_description &board, const item &from)
{
    const entity_id container = read_place(from.fields);
    std::vector<entity_id> contained;
    const json *list = from.fields.find("contains");
    if (!list || !list->is_array() || list->empty() || list->size() > most_contained)
        from.fields.refuse("contains", text("a list of 1 to %zu entities is needed here", most_contained));
    for (const json &one : *list)
        contained.push_back(place_of(one, from.fields, "contains"));
    board.records.push_back(association(from.id, container, contained));
}

/// Of any type, with a body byte by byte.
void read_other(board_description &board, const item &from)
{
    uint8_t type = 0;
    require(from.fields, "type");
    read_code(from.fields, "type", type, 0xFF);
    const json *body = from.fields.find("body");
    const std::string digits = body && body->is_string() ? body->get<std::string>() : "?";
    const std::vector<uint8_t> bytes = parse_hex(digits);
    if ((bytes.empty() && !digits.empty()) || bytes.size() > largest_sdr_body)
        from.fields.refuse("body", text("at most %zu bytes as in \"D9 7E 00 01\" are needed here", largest_sdr_body));
    board.records.push_back(make_record(from.id, type, bytes));
}

struct record_word {
    const char *word;
    void (*read)(board_description &board, const item &from);
};
constexpr record_word record_words[] = {
    {"full", read_full},
    {"compact", read_compact},
    {"event only", read_event_only},
    {"association", read_association},
    {"generic locator", read_generic_locator},
    {"FRU locator", read_fru_locator},
    {"controller locator", read_controller_locator},
    {"other", read_other},
};

void read_record(board_description &board, const json &object, const std::string &where)
{
    json_fields fields(object, where);
    const json *kind = fields.find("record");
    const auto *const found =
        std::ranges::find_if(record_words, [&](const auto &row) { return kind && *kind == row.word; });
    if (found == std::end(record_words)) {
        std::string known;
        for (const record_word &row : record_words)
            known += std::string(known.empty() ? "\"" : ", \"") + row.word + '"';
        fields.refuse("record", "one of " + known + " is needed here");
    }
    found->read(board, {fields, where, uint16_t(board.records.size() + 1)});
    fields.done();
}

void read_records(board_description &board, const json &list, const json_fields &fields)
{
    if (!list.is_array() || list.empty() || list.size() > most_records)
        fields.refuse("records", text("a list of 1 to %zu records is needed here", most_records));
    for (const json &one : list)
        read_record(board, one, "/records/" + std::to_string(board.records.size()));
}

const built_in_board *find_built_in(const std::string &name)
{
    const auto boards = built_in_boards();
    const auto found = std::ranges::find_if(boards, [&](const auto &one) { return name == one.name; });
    return found == boards.end() ? nullptr : &*found;
}

/// Another board with the same records is told in a line.
void borrow_records(board_description &board, const json &name, const json_fields &fields)
{
    const built_in_board *const owner = name.is_string() ? find_built_in(name) : nullptr;
    if (!owner || board.name == owner->name)
        fields.refuse("records_of", "the name of another built-in board is needed here");
    board_description lender = read_board(json::parse(owner->file));
    board.records = std::move(lender.records);
    board.sensors = std::move(lender.sensors);
}

}  // namespace

uint8_t raw_from_json(const json &value, const json_fields &fields, const char *key, const conversion &factors)
{
    const auto raw = value.is_number() ? factors.raw(value.get<double>()) : std::nullopt;
    if (!raw) {
        const auto [smallest, largest] = factors.value_range();
        fields.refuse(key, text("a number from %g to %g is needed here", smallest, largest));
    }
    return *raw;
}

board_description read_board(const json &file)
{
    constexpr size_t longest_board_name = 64;
    board_description board;
    json_fields fields(file, "");
    fields.text("board", board.name, longest_board_name);
    if (board.name.empty())
        fields.refuse("board", "each board has a name");
    fields.choice("sdrs", board.source, sdr_source_words);
    fields.number("largest_read", board.largest_read, 0, 255);
    const json *const own = fields.find("records"), *const borrowed = fields.find("records_of");
    if (bool(own) == bool(borrowed))
        fields.refuse("records", "a board has either \"records\" or \"records_of\"");
    if (own)
        read_records(board, *own, fields);
    else
        borrow_records(board, *borrowed, fields);
    fields.done();
    if (board.has_device_sdrs() && board.records.size() > most_device_records)
        fields.refuse("records", text("at most %zu can be Device SDRs", most_device_records));
    return board;
}

static json parse_file(const std::string &path)
{
    std::ifstream in(path);
    if (!in)
        throw std::runtime_error(strerror(errno));
    return json::parse(in);
}

board_description load_board(const std::string &name_or_path)
{
    std::string known;
    for (const built_in_board &one : built_in_boards())
        known += std::string(" ") + one.name;
    const built_in_board *const built_in = find_built_in(name_or_path);
    if (!built_in && name_or_path.find_first_of("./") == std::string::npos)
        throw std::runtime_error("board " + name_or_path + ": no board of that name is built in, there are:" + known +
                                 "; a file has a path with a dot or a slash");
    try {
        return read_board(built_in ? json::parse(built_in->file) : parse_file(name_or_path));
    } catch (const json::exception &problem) {
        throw std::runtime_error("board " + name_or_path + ": not readable as JSON: " + problem.what());
    } catch (const std::runtime_error &problem) {
        throw std::runtime_error("board " + name_or_path + ": " + problem.what());
    }
}

const board_description &default_board()
{
    static const board_description board = load_board("default");
    return board;
}

}  // namespace ipmcd

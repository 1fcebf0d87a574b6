/// The System Event Log (IPMI 2.0, SEL commands). With a disk it is kept there as it goes, and a full log becomes an
/// archive, as stored_log.h has it.
#include "ipmcd/controller.h"
#include "ipmcd/families/clock.h"
#include "ipmcd/families/reservation.h"
#include "ipmcd/families/stored_log.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

constexpr uint8_t sel_version = 0x51;  // BCD, low digit first: 1.5
constexpr size_t record_size = sizeof(sel_record);
constexpr size_t capacity = 1024;
constexpr uint32_t default_erase_ms = 1000, longest_erase_ms = 600'000;

constexpr completion record_type_unknown{0x80}, erase_in_progress{0x81};

constexpr uint16_t first_record = 0x0000, last_record = 0xFFFF;  // record ids with a meaning of their own
constexpr uint8_t whole_record = 0xFF;

constexpr uint8_t initiate_erase = 0xAA, get_erasure_status = 0x00;

// Record types: a system event, the maker's events with and without a time
constexpr uint8_t system_event = 0x02, first_oem_timed = 0xC0, first_oem_untimed = 0xE0;
bool is_timed(uint8_t type) { return type == system_event || (type >= first_oem_timed && type < first_oem_untimed); }
bool is_known_type(uint8_t type) { return type == system_event || type >= first_oem_timed; }

struct sel_state {
    std::vector<sel_record> records;  // ids 1, 2, 3 ...: nothing is ever taken out but all at once
    uint32_t last_addition = 0;
    uint32_t last_erase = 0;
    bool overflow = false;  // events were lost since the last erase
    bool erasing = false;
    uint32_t erase_ms = default_erase_ms;
};

class sel final : public family
{
public:
    explicit sel(controller &owner)
        : board(owner), machine(owner.timers()), clock(owner.shared<board_clock>()),
          erasure(owner.timers().make_timer([this] { finish_erase(); }))
    {
    }

    const char *name() const override { return "sel"; }
    std::span<const command> commands() const override;
    void reset() override;
    void restart() override { cancel_reservations(); }
    void cancel_reservations() override { reserved.cancel(); }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_info(byte_reader &request, byte_writer &answer);
    completion reserve(byte_reader &request, byte_writer &answer);
    completion get_entry(byte_reader &request, byte_writer &answer);
    completion add_entry(byte_reader &request, byte_writer &answer);
    completion clear(byte_reader &request, byte_writer &answer);

    sel_state &state() const;
    template <typename change>
    bool keep(change on_disk) const;
    void meet_disk() const;
    size_t index_of(uint16_t id) const;
    bool make_room();
    void start_erase();
    void finish_erase();
    void take_over(const sel_state &wanted);

    const controller &board;
    const scheduler &machine;
    const board_clock &clock;
    mutable sel_state known;  // but for what the disk holds: see state()
    mutable bool has_met_disk = false;
    mutable std::optional<std::filesystem::path> kept_on;  // the disk
    reservation reserved;
    std::unique_ptr<timer> erasure;
};

// On the disk ---------------------------------------------------------------------------------------------------------

/// Does something with the log on the disk. False when that fails, or when it is not kept there.
template <typename change>
bool sel::keep(change on_disk) const
{
    if (!kept_on)
        return false;
    try {
        on_disk(*kept_on);
        return true;
    } catch (const std::exception &problem) {
        report(problem.what());
        return false;
    }
}

/// Whether this log could have come to be here.
bool is_own_log(std::span<const sel_record> records)
{
    return records.size() <= capacity &&
           std::ranges::all_of(records, [](const sel_record &one) { return is_known_type(one[2]); });
}

uint32_t time_of(const sel_record &one)
{
    return uint32_t(one[3]) | uint32_t(one[4]) << 8 | uint32_t(one[5]) << 16 | uint32_t(one[6]) << 24;
}

void number(std::span<sel_record> records)
{
    for (size_t index = 0; index < records.size(); index++) {
        records[index][0] = uint8_t(index + 1);
        records[index][1] = uint8_t((index + 1) >> 8);
    }
}

/// The log on the disk takes the place of the one in the state: after a controller that was killed it is the younger
/// one. What somebody put there and this log cannot be becomes an archive; if that fails it is left alone.
void sel::meet_disk() const
{
    has_met_disk = true;
    kept_on = board.disk();
    const bool is_kept = keep([this](const auto &disk) {
        const auto found = read_log(disk);
        if (!found) {
            if (!known.records.empty())
                write_log(disk, known.records);
            return;
        }
        known.records.clear();
        if (is_own_log(*found))
            known.records = *found;
        else
            archive_log(disk, *found);
        number(known.records);
        if (!known.records.empty() && is_timed(known.records.back()[2]))
            known.last_addition = time_of(known.records.back());
    });
    if (!is_kept)
        kept_on.reset();
}

/// The log of a disk is read when it is first needed, since a state is loaded before that.
sel_state &sel::state() const
{
    if (board.disk() && !has_met_disk)
        meet_disk();
    return known;
}

/// A full log becomes an archive, where there is a disk for it.
bool sel::make_room()
{
    if (!keep([this](const auto &disk) { archive_log(disk, known.records); }))
        return false;
    known.records.clear();
    known.overflow = false;
    known.last_erase = clock.time(machine);
    cancel_reservations();
    return true;
}

// Requests ------------------------------------------------------------------------------------------------------------

void sel::reset()
{
    state();  // or the disk's log would come back
    take_over({});
    cancel_reservations();
}

/// An erase under way starts anew: how far it was is not part of the state.
void sel::take_over(const sel_state &wanted)
{
    const bool is_other_log = known.records != wanted.records;
    known = wanted;
    if (is_other_log)
        keep([this](const auto &disk) { write_log(disk, known.records); });
    erasure->stop();
    if (known.erasing)
        start_erase();
}

completion sel::get_info(byte_reader &, byte_writer &answer)
{
    constexpr uint8_t can_be_reserved = 0x02, overflow = 0x80;
    if (state().erasing)
        return erase_in_progress;
    answer.u8(sel_version).u16le(uint16_t(state().records.size()));
    answer.u16le(uint16_t((capacity - state().records.size()) * record_size));
    answer.u32le(state().last_addition).u32le(state().last_erase);
    answer.u8(uint8_t(can_be_reserved | (state().overflow ? overflow : 0)));
    return completion::ok;
}

completion sel::reserve(byte_reader &, byte_writer &answer)
{
    if (state().erasing)
        return erase_in_progress;
    answer.u16le(reserved.take());
    return completion::ok;
}

/// Beyond the end when there is no such record.
size_t sel::index_of(uint16_t id) const
{
    if (id == first_record)
        return 0;
    return (id == last_record ? state().records.size() : id) - 1U;
}

/// A reservation is needed for a record in pieces only: to go on behind its beginning.
completion sel::get_entry(byte_reader &request, byte_writer &answer)
{
    if (state().erasing)
        return erase_in_progress;
    const uint16_t given = request.u16le();
    const size_t index = index_of(request.u16le());
    const size_t offset = request.u8();
    const size_t count = request.u8();
    if (offset != 0 && !reserved.is(given))
        return completion::reservation_cancelled;
    if (index >= state().records.size())
        return completion::not_present;
    if (offset >= record_size || (count != whole_record && count > record_size - offset))
        return completion::out_of_range;
    const bool is_last = index + 1 == state().records.size();
    answer.u16le(is_last ? last_record : uint16_t(index + 2));
    answer.bytes(std::span(state().records[index]).subspan(offset, std::min(count, record_size - offset)));
    return completion::ok;
}

/// The log gives the record its id, and its time unless it is of a kind without one.
completion sel::add_entry(byte_reader &request, byte_writer &answer)
{
    if (state().erasing)
        return erase_in_progress;
    sel_record added{};
    std::ranges::copy(request.bytes(record_size), added.begin());
    if (!is_known_type(added[2]))
        return record_type_unknown;
    if (state().records.size() == capacity && !make_room()) {
        state().overflow = true;
        return completion::out_of_space;
    }
    const auto id = uint16_t(state().records.size() + 1);
    const uint32_t now = clock.time(machine);
    added[0] = uint8_t(id);
    added[1] = uint8_t(id >> 8);
    if (is_timed(added[2]))
        for (unsigned i = 0; i < sizeof now; i++)
            added[3 + i] = uint8_t(now >> 8 * i);
    state().records.push_back(added);
    state().last_addition = now;
    keep([this](const auto &disk) { append_to_log(disk, known.records); });
    answer.u16le(id);
    return completion::ok;
}

/// The reservation stays with whoever ordered an erase, to ask how far it is.
completion sel::clear(byte_reader &request, byte_writer &answer)
{
    static constexpr uint8_t magic[] = {'C', 'L', 'R'};
    const uint16_t given = request.u16le();
    const auto letters = request.bytes(std::size(magic));
    const uint8_t action = request.u8();
    if (!std::ranges::equal(letters, magic) || (action != initiate_erase && action != get_erasure_status))
        return completion::invalid_field;
    if (!reserved.is(given))
        return completion::reservation_cancelled;
    if (action == initiate_erase && !state().erasing)
        start_erase();
    constexpr uint8_t in_progress = 0, completed = 1;
    answer.u8(state().erasing ? in_progress : completed);
    return completion::ok;
}

void sel::start_erase()
{
    state().erasing = true;
    if (state().erase_ms == 0)
        finish_erase();
    else
        erasure->start(std::chrono::milliseconds(state().erase_ms));
}

void sel::finish_erase()
{
    state().records.clear();
    state().overflow = false;
    state().erasing = false;
    state().last_erase = clock.time(machine);
    keep([](const auto &disk) { write_log(disk, {}); });
}

// Words and JSON -----------------------------------------------------------------------------------------------------

json sel::to_json() const
{
    json records = json::array();
    for (const sel_record &one : state().records)
        records.push_back(hex(one));
    return {{"records", records},
            {"last_addition", state().last_addition},
            {"last_erase", state().last_erase},
            {"overflow", state().overflow},
            {"erasing", state().erasing},
            {"erase_ms", state().erase_ms}};
}

std::vector<sel_record> records_from_json(const json &given, const json_fields &fields)
{
    std::vector<sel_record> records;
    if (!given.is_array() || given.size() > capacity)
        fields.refuse("records", text("a list of at most %zu records is needed here", capacity));
    for (const auto &item : given) {
        const auto bytes = item.is_string() ? parse_hex(item.get_ref<const std::string &>()) : std::vector<uint8_t>();
        sel_record one{};
        if (bytes.size() != record_size)
            fields.refuse("records", "16 bytes in hexadecimal are needed for each record");
        std::ranges::copy(bytes, one.begin());
        const auto id = size_t(one[0] | one[1] << 8);
        if (id != records.size() + 1 || !is_known_type(one[2]))
            fields.refuse("records", "record ids 1, 2, 3 ... and record types 02 or C0 to FF are needed here");
        records.push_back(one);
    }
    return records;
}

void sel::from_json(const json &json)
{
    sel_state wanted = known;
    json_fields fields(json, "/sel");
    if (const auto *given = fields.find("records"))
        wanted.records = records_from_json(*given, fields);
    fields.number("last_addition", wanted.last_addition, 0, UINT32_MAX);
    fields.number("last_erase", wanted.last_erase, 0, UINT32_MAX);
    fields.boolean("overflow", wanted.overflow);
    fields.boolean("erasing", wanted.erasing);
    fields.number("erase_ms", wanted.erase_ms, 0, longest_erase_ms);
    fields.done();
    take_over(wanted);
}

std::string words_of_info(byte_reader &data)
{
    data.u8();
    const uint16_t records = data.u16le();
    return text("%u records, %u bytes free", records, data.u16le());
}

std::string words_of_reservation(byte_reader &data) { return text("reservation %u", data.u16le()); }

std::string words_of_record_id(uint16_t id)
{
    return id == first_record ? "first record" : id == last_record ? "last record" : text("record %u", id);
}

std::string words_of_entry_request(byte_reader &data)
{
    data.u16le();
    std::string which = words_of_record_id(data.u16le());
    const uint8_t offset = data.u8();
    const uint8_t count = data.u8();
    if (offset == 0 && count == whole_record)
        return which;
    return which + (count == whole_record ? text(" from byte %u", offset) : text(", %u bytes from %u", count, offset));
}

std::string words_of_entry_answer(byte_reader &data)
{
    const uint16_t next = data.u16le();
    return next == last_record ? "no next record" : text("next record %u", next);
}

std::string words_of_new_entry(byte_reader &data)
{
    data.u16le();
    return text("type 0x%02X", data.u8());
}

std::string words_of_new_id(byte_reader &data) { return text("record %u", data.u16le()); }

std::string words_of_clear(byte_reader &data)
{
    const std::string whose = words_of_reservation(data);
    data.bytes(3);
    const uint8_t action = data.u8();
    return whose + (action == initiate_erase       ? ", erase"
                    : action == get_erasure_status ? ", how far is it"
                                                   : text(", action 0x%02X", action));
}

std::string words_of_progress(byte_reader &data) { return (data.u8() & 0x0F) == 0 ? "in progress" : "completed"; }

const command sel::table[] = {
    {.netfn = netfn::storage,
     .number = 0x40,
     .name = "Get SEL Info",
     .run = call<&sel::get_info>,
     .answer_words = words_of_info},
    {.netfn = netfn::storage,
     .number = 0x42,
     .name = "Reserve SEL",
     .run = call<&sel::reserve>,
     .answer_words = words_of_reservation},
    {.netfn = netfn::storage,
     .number = 0x43,
     .name = "Get SEL Entry",
     .length = {6, 6},
     .run = call<&sel::get_entry>,
     .request_words = words_of_entry_request,
     .answer_words = words_of_entry_answer},
    {.netfn = netfn::storage,
     .number = 0x44,
     .name = "Add SEL Entry",
     .length = {record_size, record_size},
     .run = call<&sel::add_entry>,
     .request_words = words_of_new_entry,
     .answer_words = words_of_new_id},
    {.netfn = netfn::storage,
     .number = 0x47,
     .name = "Clear SEL",
     .length = {6, 6},
     .run = call<&sel::clear>,
     .request_words = words_of_clear,
     .answer_words = words_of_progress},
};

std::span<const command> sel::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_sel(controller &owner) { return std::make_unique<sel>(owner); }

}  // namespace ipmcd

#include "ipmi/sdr.h"

#include "ipmi/code_text.h"
#include "ipmi/get_requests.h"
#include "ipmi/transport.h"
#include "platform/platform.h"
#include "ui/console.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int sdr_verbosity;

static bool describes_steps() { return sdr_verbosity == 1 || sdr_verbosity == 3; }

void sdr_diagnose(const char *format, ...)
{
    if (!describes_steps())
        return;
    va_list values;
    va_start(values, format);
    say_values(format, values);
    va_end(values);
}

/// A search that prints nothing of its own does not print what it meets on the way either.
static bool is_silent;

static void complain(uint32_t code, const char *text)
{
    if (!is_silent)
        fail_because(code, "%s", text);
}

// Records -----------------------------------------------------------------------------------------------------------

/// Where a record type keeps what is asked of it. Other types are read and forgotten.
struct record_layout {
    uint8_t type;
    uint8_t id_string;    // offset of the type/length byte in the body, 0 = the record has no name
    uint8_t sensor_type;  // offset of the sensor type, 0 = it is no sensor's
};
static constexpr record_layout record_layouts[] = {
    {sdr_full, 42, 7},        // full sensor record
    {sdr_compact, 26, 7},     // compact sensor record
    {sdr_event_only, 11, 5},  // event-only record
    {0x08, 0, 0},             // entity association
    {0x10, 10, 0},            // generic device locator
    {0x11, 10, 0},            // FRU device locator
    {0x12, 10, 0},            // management controller device locator
};

static const record_layout *layout_of(uint8_t type)
{
    for (const record_layout &layout : record_layouts)
        if (layout.type == type)
            return &layout;
    return nullptr;
}

static constexpr uint8_t id_length_mask = 0x1F;

uint8_t sdr_record::sensor_type() const { return at(layout_of(type)->sensor_type); }

bool sdr_record::is_sensor() const
{
    const record_layout *const layout = layout_of(type);
    return layout != nullptr && layout->sensor_type != 0;
}

std::string_view sdr_record::id_string() const
{
    const unsigned start = layout_of(type)->id_string;
    const unsigned longest = start != 0 ? at(start) & id_length_mask : 0;
    if (longest == 0)
        return {};
    const auto *text = reinterpret_cast<const char *>(body + start + 1);
    return {text, strnlen(text, longest)};  // a zero byte follows the body
}

/// The whole name, byte for byte, and only zeros up to the end of a longer ID string.
static bool has_name(const sdr_record &record, std::string_view name)
{
    const unsigned start = layout_of(record.type)->id_string;
    if (start == 0)
        return false;
    unsigned at = start + 1;
    for (const char wanted : name)
        if (record.at(at++) != uint8_t(wanted))
            return false;
    for (const unsigned end = start + 1 + (record.at(start) & id_length_mask); at < end; ++at)
        if (record.at(at) != 0)
            return false;
    return true;
}

// The store ---------------------------------------------------------------------------------------------------------

/// The requests of one kind of store: the repository, or the device's own records.
struct sdr_source {
    uint8_t netfn, info, reserve, read;
};
static constexpr sdr_source repository = {netfn_storage, 0x20, 0x22, 0x23};
static constexpr sdr_source device_sdrs = {netfn_sensor_event, 0x20, 0x22, 0x21};

static constexpr uint8_t reservation_cancelled = 0xC5, cannot_return_bytes = 0xCA;
static constexpr unsigned header_length = 5;   // of a record, in front of its body
static constexpr unsigned next_id_length = 2;  // of an answer, in front of the bytes asked for
static constexpr uint16_t last_record = 0xFFFF;

struct sdr_iterator {
    uint16_t reservation;
    uint16_t record_count;  // for information
    uint16_t next_record;   // 0 = the first one
    bool is_strict;         // takes no answer that is too short, and does not renew a reservation for ever
};
struct sdr_header {
    uint16_t next_record;
    uint16_t id;
    uint8_t version, type, length;
};

static bool use_device_sdrs;
static sdr_iterator *iterator;
static uint32_t manufacturer_id;
static unsigned sdr_read_size = 255;  // only shrinks: 126, 62, 30, 14, 6, 2, 0
static uint8_t headers_read[(last_record + 1) / 8];

static const sdr_source &source() { return use_device_sdrs ? device_sdrs : repository; }

/// A store that leads back to a record whose header was read has come to its end.
static bool was_read(uint16_t record) { return (headers_read[record / 8] & 1 << record % 8) != 0; }
static void note_as_read(uint16_t record) { headers_read[record / 8] |= uint8_t(1 << record % 8); }

static bool reserve(sdr_iterator &store)
{
    const ipmi_answer got = exchange(ipmi_request(source().netfn, source().reserve));
    if (!got.ok()) {
        g_error_code = got.error_code();
        return false;
    }
    store.reservation = ipmi_reader(got.data).u16le();
    sdr_diagnose("SDR reservation ID %04x", store.reservation);
    return true;
}

/// A cancelled reservation: others are reading too. Waits 0 to 3 s and asks for a new one.
static bool renew_reservation(sdr_iterator &store)
{
    vos_task_delay((vos_rand() & 3) * 1000);
    return reserve(store);
}

/// Which records the controller offers, by the data of a Get Device ID answer. False = none.
static bool choose_source(std::span<const uint8_t> device_id)
{
    static constexpr uint8_t provides_device_sdrs = 0x80, is_repository = 0x02, is_sensor_device = 0x01;
    ipmi_reader device(device_id);
    const uint8_t revision = device.skip(1).u8();
    const uint8_t support = device.skip(3).u8();
    manufacturer_id = device.u16le();
    manufacturer_id |= uint32_t(device.u8() & 0x0F) << 16;
    if ((revision & provides_device_sdrs) == 0)
        return true;
    if ((support & is_repository) != 0) {
        sdr_diagnose("Using SDR from Repository ");
        return true;
    }
    if ((support & is_sensor_device) != 0) {
        sdr_diagnose("Using Device SDRs");
        use_device_sdrs = true;
        return true;
    }
    sdr_diagnose("Error obtaining SDR info");
    return false;
}

static bool ask_for_source()
{
    const ipmi_answer got = exchange(get_device_id());
    if (!got.ok()) {
        g_error_code = got.error_code();
        return false;
    }
    return choose_source(got.data);
}

static bool read_device_sdr_info(sdr_iterator &store)
{
    static constexpr uint8_t sdr_count = 0x01;
    const ipmi_answer got = exchange(ipmi_request(source().netfn, source().info).u8(sdr_count));
    if (got.unanswered())
        return false;
    if (!got.ok() || got.data.empty()) {
        complain(got.ok() ? 0 : got.error_code(), "Err in cmd get sensor sdr info");
        return false;
    }
    store.record_count = ipmi_reader(got.data).u8();
    sdr_diagnose("SDR records   : %d", store.record_count);
    return true;
}

static bool read_repository_info(sdr_iterator &store)
{
    const ipmi_answer got = exchange(ipmi_request(source().netfn, source().info));
    if (!got.ok()) {
        g_error_code = got.error_code();
        return false;
    }
    ipmi_reader info(got.data);
    const uint8_t version = info.u8();
    if (version != 0x51 && version != 0x01 && version != 0x02)
        sdr_diagnose("WARNING: Unknown SDR repository version 0x%02x", version);
    store.record_count = info.u16le();
    sdr_diagnose("SDR free space: %d", info.u16le());
    sdr_diagnose("SDR records   : %d", store.record_count);
    return true;
}

static bool open_store(sdr_iterator &store)
{
    if (!ask_for_source())
        return false;
    if (!(use_device_sdrs ? read_device_sdr_info(store) : read_repository_info(store)))
        return false;
    if (reserve(store))
        return true;
    sdr_diagnose("Unable to obtain SDR reservation");
    return false;
}

static sdr_iterator *sdr_open()
{
    auto *store = static_cast<sdr_iterator *>(calloc(1, sizeof(sdr_iterator)));
    if (store == nullptr) {
        sdr_diagnose("IPMC: malloc failure");
        return nullptr;
    }
    if (open_store(*store))
        return store;
    free(store);
    return nullptr;
}

// Reading -----------------------------------------------------------------------------------------------------------

static ipmi_request read_record(const sdr_iterator &store, uint16_t record, uint8_t offset, uint8_t count)
{
    ipmi_request request(source().netfn, source().read);
    request.u16le(store.reservation).u16le(record).u8(offset).u8(count);
    return request;
}

/// What an error code shows of a reading request.
static uint32_t reading_code(uint8_t completion)
{
    return uint32_t(source().netfn) << 24 | uint32_t(source().read) << 16 | completion;
}

static sdr_header header_of(std::span<const uint8_t> data)
{
    ipmi_reader fields(data);
    sdr_header header;
    header.next_record = fields.u16le();
    header.id = fields.u16le();
    header.version = fields.u8();
    header.type = fields.u8();
    header.length = fields.u8();
    return header;
}

/// Asks for the next record's header up to five times. False = the controller does not give it, and g_error_code says
/// why.
static bool ask_for_header(sdr_iterator &store, sdr_header &header)
{
    uint8_t completion = 0;
    for (int attempt = 0; attempt < 5; ++attempt) {
        const ipmi_answer got = exchange(read_record(store, store.next_record, 0, header_length));
        if (got.ok()) {
            header = header_of(got.data);
            return true;
        }
        if (got.unanswered())
            return false;
        completion = got.completion;
        if (got.refused_with(reservation_cancelled)) {
            sdr_diagnose("SDR reservation %04x cancelled. Sleeping a bit and retrying...", store.reservation);
            if (!renew_reservation(store)) {
                sdr_diagnose("Unable to renew SDR reservation");
                return false;
            }
        } else {
            sdr_diagnose("Get SDR %04x command failed: %s", store.next_record,
                         completion_text(got.completion, got.netfn, got.command));
        }
    }
    g_error_code = reading_code(completion);
    return false;
}

static void describe(const sdr_header &header)
{
    if (!describes_steps())
        return;
    sdr_diagnose("SDR record ID   : 0x%04x", header.id);
    sdr_diagnose("SDR record type : 0x%02x", header.type);
    sdr_diagnose("SDR record next : 0x%04x", header.next_record);
    sdr_diagnose("SDR record bytes: %d", header.length);
}

/// The header of the next record, and the iterator moved on; null at the end and on failure. The next call overwrites
/// it.
static const sdr_header *sdr_get_next_header(sdr_iterator &store)
{
    static sdr_header header;
    if (store.next_record == last_record || was_read(store.next_record))
        return nullptr;
    if (!ask_for_header(store, header))
        return nullptr;
    note_as_read(store.next_record);
    if (header.length == 0) {
        g_error_code = reading_code(0);
        return nullptr;
    }
    if (header.id != store.next_record) {
        sdr_diagnose("SDR record id mismatch: 0x%04x", header.id);
        header.id = store.next_record;
    }
    describe(header);
    store.next_record = header.next_record;
    return &header;
}

static void dump_body(const uint8_t *body, unsigned length)
{
    if (sdr_verbosity != 1 && sdr_verbosity != 4)
        return;
    say("SDR data (len = %d):", int(length));
    for (unsigned n = 0; n < length; ++n) {
        say_raw("%02X ", body[n]);
        if ((n + 1) % 20 == 0)
            say_raw("\r\n");
    }
    say_raw("\r\n");
}

/// Fills the body piece by piece. False = it could not be read whole, and g_error_code says why.
static bool fill_body(uint8_t *body, const sdr_header &header, sdr_iterator &store)
{
    static constexpr unsigned most_refusals = 5;
    unsigned position = 0, refusals = 0;
    while (position < header.length) {
        if (sdr_read_size == 0) {  // refused down to nothing, perhaps at an earlier record
            g_error_code = reading_code(cannot_return_bytes);
            return false;
        }
        const unsigned size = std::min(header.length - position, sdr_read_size);
        const unsigned offset = (position & 0xFF) + header_length;
        sdr_diagnose("Getting %d bytes from SDR at offset %d", int(size), int(offset));
        const ipmi_answer got = exchange(read_record(store, header.id, uint8_t(offset), uint8_t(size)));
        if (got.refused_with(reservation_cancelled)) {
            sdr_diagnose("SDR reservation cancelled. Sleeping a bit and retrying...");
            const bool may_renew = !store.is_strict || ++refusals < most_refusals;
            if (!may_renew)
                g_error_code = got.error_code();
            if (!may_renew || !renew_reservation(store))  // Kept: a search goes on for ever, unlike for a header
                return false;
            continue;
        }
        if (got.refused_with(cannot_return_bytes)) {
            sdr_read_size = sdr_read_size / 2 - 1;
            continue;
        }
        if (!got.ok()) {
            g_error_code = got.error_code();
            return false;
        }
        if (store.is_strict && got.data.size() < next_id_length + size) {
            g_error_code = error_no_answer;
            return false;
        }
        ipmi_reader piece(got.data);
        piece.skip(next_id_length).bytes({body + position, size});
        position += sdr_read_size;
    }
    return true;
}

/// A body of the header's length, null on failure. The caller owns it.
static uint8_t *sdr_read_body(const sdr_header &header, sdr_iterator &store)
{
    if (header.length < 1) {
        g_error_code = error_empty_record;
        return nullptr;
    }
    auto *body = static_cast<uint8_t *>(calloc(1, header.length + 1U));
    if (body == nullptr) {
        g_error_code = error_memory;
        return nullptr;
    }
    if (!fill_body(body, header, store)) {
        free(body);
        return nullptr;
    }
    dump_body(body, header.length);
    return body;
}

// Finding -----------------------------------------------------------------------------------------------------------

static sdr_record *first_kept;
static sdr_record **end_of_kept = &first_kept;

/// Reads on to the next record of a kept type. Null at the end; `bodies_read` counts what was read on the way.
static sdr_record *read_next(sdr_iterator &store, unsigned &bodies_read)
{
    while (const sdr_header *header = sdr_get_next_header(store)) {
        auto *record = static_cast<sdr_record *>(calloc(1, sizeof(sdr_record)));
        if (record == nullptr) {
            complain(error_memory, "ipmi_sdr_find_sdr_byid: malloc failure");
            return nullptr;
        }
        *record = {header->id, header->type, header->length, nullptr, sdr_read_body(*header, store)};
        if (record->body == nullptr) {
            free(record);
            continue;
        }
        ++bodies_read;
        if (layout_of(record->type) != nullptr) {
            *end_of_kept = record;
            end_of_kept = &record->next;
            return record;
        }
        free(record->body);
        free(record);
    }
    return nullptr;
}

static const sdr_record *find_kept(const auto &fits)
{
    const sdr_record *record = first_kept;
    while (record != nullptr && !fits(*record))
        record = record->next;
    return record;
}

static const sdr_record *find(sdr_iterator &store, const auto &fits)
{
    if (const sdr_record *kept = find_kept(fits))
        return kept;
    unsigned bodies_read = 0;
    while (const sdr_record *record = read_next(store, bodies_read))
        if (fits(*record))
            return record;
    if (bodies_read > 0)
        g_error_code = error_sensor_not_found;
    return nullptr;
}

const sdr_record *sdr_find_by_name(const char *name)
{
    if (name == nullptr) {
        fail("Get sdr fail.");
        return nullptr;
    }
    if (iterator == nullptr)
        iterator = sdr_open();
    if (iterator == nullptr) {
        fail("Unable to open SDR for reading");
        return nullptr;
    }
    return find(*iterator,
                [name = std::string_view(name)](const sdr_record &record) { return has_name(record, name); });
}

/// Then the store is at its end, or does not answer: it is not asked again for each of many sensors.
static bool asked_in_vain;

const sdr_record *sdr_find_by_number(uint8_t number, uint8_t type)
{
    const auto wanted = [number, type](const sdr_record &record) {
        return record.sensor_number() == number && record.is_sensor() && record.sensor_type() == type;
    };
    if (asked_in_vain)
        return find_kept(wanted);
    is_silent = true;
    if (iterator == nullptr)
        iterator = sdr_open();
    const sdr_record *found = iterator != nullptr ? find(*iterator, wanted) : nullptr;
    is_silent = false;
    asked_in_vain = found == nullptr;
    return found;
}

// All of them -------------------------------------------------------------------------------------------------------

static sdr_iterator all_records;  // without a reservation until a record was refused in one piece
static bool in_pieces;
static uint8_t current_body[UINT8_MAX + 1];
static sdr_record current;

bool sdr_open_for_all(std::span<const uint8_t> device)
{
    all_records = {.reservation = 0, .record_count = 0, .next_record = 0, .is_strict = true};
    return choose_source(device);
}

static sdr_step failed(sdr_step::kind how, uint16_t id, uint32_t reason)
{
    g_error_code = reason;
    return {how, id, nullptr};
}

/// Makes a header's record the current one, with an empty body.
static sdr_step begin_record(const sdr_header &header, uint16_t id)
{
    memset(current_body, 0, sizeof current_body);
    current = {id, header.type, header.length, nullptr, current_body};
    return {sdr_step::kind::record, id, &current};
}

static sdr_step next_in_pieces()
{
    const uint16_t id = all_records.next_record;
    const sdr_header *const header = sdr_get_next_header(all_records);
    if (header == nullptr)
        return {sdr_step::kind::failed, id, nullptr};
    const sdr_step step = begin_record(*header, id);
    if (current.is_sensor() && !fill_body(current_body, *header, all_records))
        return {sdr_step::kind::lost, id, nullptr};
    return step;
}

/// What begins at the beginning of a record needs no reservation (IPMI 2.0, Get SDR).
static sdr_step next_whole()
{
    static constexpr uint8_t whole_record = 0xFF;
    const uint16_t id = all_records.next_record;
    const ipmi_answer got = exchange(read_record(all_records, id, 0, whole_record));
    if (got.refused()) {
        in_pieces = true;
        return reserve(all_records) ? next_in_pieces() : sdr_step{sdr_step::kind::failed, id, nullptr};
    }
    if (!got.ok())
        return {sdr_step::kind::failed, id, nullptr};
    if (got.data.size() < next_id_length)
        return failed(sdr_step::kind::failed, id, error_no_answer);
    note_as_read(id);
    const sdr_header header = header_of(got.data);
    all_records.next_record = header.next_record;
    if (got.data.size() < next_id_length + header_length + header.length)
        return failed(sdr_step::kind::lost, id, error_no_answer);
    const sdr_step step = begin_record(header, id);
    ipmi_reader(got.data).skip(next_id_length + header_length).bytes({current_body, header.length});
    return step;
}

sdr_step sdr_next()
{
    for (;;) {
        if (all_records.next_record == last_record || was_read(all_records.next_record))
            return {sdr_step::kind::end, all_records.next_record, nullptr};
        const sdr_step step = in_pieces ? next_in_pieces() : next_whole();
        if (step.is != sdr_step::kind::record || step.record->is_sensor())
            return step;
    }
}

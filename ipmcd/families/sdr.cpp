/// Sensor data records: the SDR repository (IPMI 2.0, SDR Repository commands) and the records that sensors' own device
/// tells (Device SDR commands). Which of them there are is the board's; the records are the same.
#include "ipmcd/controller.h"
#include "ipmcd/families/reservation.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

constexpr uint8_t sdr_version = 0x51;  // BCD, low digit first: 1.5

constexpr uint16_t first_record = 0x0000, last_record = 0xFFFF;  // record ids with a meaning of their own
constexpr uint8_t whole_record = 0xFF;

class sdr final : public family
{
public:
    explicit sdr(controller &owner) : board(owner.description()), largest_read(board.largest_read) {}

    const char *name() const override { return "sdr"; }
    std::span<const command> commands() const override;
    void reset() override;
    void restart() override { cancel_reservations(); }
    void cancel_reservations() override;
    json to_json() const override { return {{"largest_read", largest_read}}; }
    json shown() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_repository_info(byte_reader &request, byte_writer &answer);
    completion reserve_repository(byte_reader &request, byte_writer &answer);
    completion get_sdr(byte_reader &request, byte_writer &answer);
    completion get_device_info(byte_reader &request, byte_writer &answer);
    completion reserve_device(byte_reader &request, byte_writer &answer);
    completion get_device_sdr(byte_reader &request, byte_writer &answer);

    size_t index_of(uint16_t id) const;
    completion read(const reservation &reserved, byte_reader &request, byte_writer &answer) const;

    const board_description &board;
    uint8_t largest_read;
    reservation repository, device;
};

void sdr::reset()
{
    largest_read = board.largest_read;
    cancel_reservations();
}

void sdr::cancel_reservations()
{
    repository.cancel();
    device.cancel();
}

/// Nothing can be written here: there is no free space, and no time of an addition or an erase.
completion sdr::get_repository_info(byte_reader &, byte_writer &answer)
{
    constexpr uint16_t no_space = 0;
    constexpr uint32_t unspecified_time = UINT32_MAX;
    constexpr uint8_t can_be_reserved = 0x02;
    answer.u8(sdr_version).u16le(uint16_t(board.records.size())).u16le(no_space);
    answer.u32le(unspecified_time).u32le(unspecified_time).u8(can_be_reserved);
    return completion::ok;
}

completion sdr::reserve_repository(byte_reader &, byte_writer &answer)
{
    answer.u16le(repository.take());
    return completion::ok;
}

completion sdr::reserve_device(byte_reader &, byte_writer &answer)
{
    answer.u16le(device.take());
    return completion::ok;
}

completion sdr::get_device_info(byte_reader &request, byte_writer &answer)
{
    constexpr uint8_t number_of_records = 0x01, static_on_lun_0 = 0x01;
    const uint8_t wanted = request.u8();
    if (wanted > number_of_records)
        return completion::invalid_field;
    const size_t number = wanted == number_of_records ? board.records.size() : board.sensors.size();
    answer.u8(uint8_t(number)).u8(static_on_lun_0);
    return completion::ok;
}

/// Beyond the end when there is no such record.
size_t sdr::index_of(uint16_t id) const
{
    if (id == first_record)
        return 0;
    return (id == last_record ? board.records.size() : id) - 1U;
}

/// A reservation is needed to go on behind the beginning of a record; one that is given has to be good in any case.
completion sdr::read(const reservation &reserved, byte_reader &request, byte_writer &answer) const
{
    const uint16_t given = request.u16le();
    const size_t index = index_of(request.u16le());
    const size_t offset = request.u8();
    const size_t count = request.u8();
    if ((offset != 0 || given != 0) && !reserved.is(given))
        return completion::reservation_cancelled;
    if (index >= board.records.size())
        return completion::not_present;
    const sdr_record &record = board.records[index];
    if (offset >= record.size())
        return completion::out_of_range;
    const size_t left = record.size() - offset;
    const size_t taken = count == whole_record ? left : count;
    if (taken > left || taken > largest_read)
        return completion::cannot_return_bytes;
    const bool is_last = index + 1 == board.records.size();
    answer.u16le(is_last ? last_record : uint16_t(index + 2));
    answer.bytes(std::span(record).subspan(offset, taken));
    return completion::ok;
}

completion sdr::get_sdr(byte_reader &request, byte_writer &answer) { return read(repository, request, answer); }

completion sdr::get_device_sdr(byte_reader &request, byte_writer &answer) { return read(device, request, answer); }

json sdr::shown() const
{
    return {{"board", board.name},
            {"source", sdr_source_words[size_t(board.source)]},
            {"records", board.records.size()},
            {"sensors", board.sensors.size()},
            {"largest_read", largest_read}};
}

void sdr::from_json(const json &json)
{
    uint8_t wanted = largest_read;
    json_fields fields(json, "/sdr");
    fields.number("largest_read", wanted, 0, 255);
    fields.done();
    largest_read = wanted;
}

// Words --------------------------------------------------------------------------------------------------------------

std::string words_of_repository_info(byte_reader &data)
{
    data.u8();
    return text("%u records", data.u16le());
}

std::string words_of_reservation(byte_reader &data) { return text("reservation %u", data.u16le()); }

std::string words_of_device_info_request(byte_reader &data) { return (data.u8() & 1) == 0 ? "sensors" : "records"; }

std::string words_of_device_info(byte_reader &data) { return text("%u", data.u8()); }

std::string words_of_read(byte_reader &data)
{
    const uint16_t given = data.u16le();
    const uint16_t id = data.u16le();
    const uint8_t offset = data.u8();
    const uint8_t count = data.u8();
    std::string words = id == first_record ? "first record" : id == last_record ? "last record" : text("record %u", id);
    if (count != whole_record)
        words += text(", %u bytes from %u", count, offset);
    else if (offset != 0)
        words += text(" from byte %u", offset);
    return given == 0 ? words : words + text(", reservation %u", given);
}

std::string words_of_next(byte_reader &data)
{
    const uint16_t next = data.u16le();
    return next == last_record ? "no next record" : text("next record %u", next);
}

// The commands of the repository, then those of Device SDRs.
constexpr size_t repository_commands = 3, device_commands = 3;

const command sdr::table[] = {
    {.netfn = netfn::storage,
     .number = 0x20,
     .name = "Get SDR Repository Info",
     .run = call<&sdr::get_repository_info>,
     .answer_words = words_of_repository_info},
    {.netfn = netfn::storage,
     .number = 0x22,
     .name = "Reserve SDR Repository",
     .run = call<&sdr::reserve_repository>,
     .answer_words = words_of_reservation},
    {.netfn = netfn::storage,
     .number = 0x23,
     .name = "Get SDR",
     .length = {6, 6},
     .run = call<&sdr::get_sdr>,
     .request_words = words_of_read,
     .answer_words = words_of_next},
    {.netfn = netfn::sensor_event,
     .number = 0x20,
     .name = "Get Device SDR Info",
     .length = {0, 1},
     .run = call<&sdr::get_device_info>,
     .request_words = words_of_device_info_request,
     .answer_words = words_of_device_info},
    {.netfn = netfn::sensor_event,
     .number = 0x22,
     .name = "Reserve Device SDR Repository",
     .run = call<&sdr::reserve_device>,
     .answer_words = words_of_reservation},
    {.netfn = netfn::sensor_event,
     .number = 0x21,
     .name = "Get Device SDR",
     .length = {6, 6},
     .run = call<&sdr::get_device_sdr>,
     .request_words = words_of_read,
     .answer_words = words_of_next},
};

std::span<const command> sdr::commands() const
{
    const std::span<const command> all(table);
    switch (board.source) {
    case sdr_source::repository:
        return all.first(repository_commands);
    case sdr_source::device:
        return all.last(device_commands);
    case sdr_source::both:
        break;
    }
    return all;
}

}  // namespace

std::unique_ptr<family> make_sdr(controller &owner) { return std::make_unique<sdr>(owner); }

}  // namespace ipmcd

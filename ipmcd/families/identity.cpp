/// By what the board is known: an identifier for whoever manages it remotely, the name under which its web pages are
/// found, and the system serial number that the host's SMBIOS tables report.
#include "ipmcd/controller.h"
#include "ipmcd/families/pieces.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

constexpr size_t longest_id = 64, longest_id_piece = 16;
constexpr size_t longest_host_name = 255, longest_host_name_piece = 18;
constexpr size_t longest_serial_number = 22, longest_serial_piece = 18;
constexpr uint8_t more_pieces = 0x80;  // in the offset of a piece of the serial number

struct identity_state {
    std::string remote_manage_id;
    std::string web_host;  // a name or an address
    std::string serial_number = "SIM-0001";
    bool smbios_is_open = false;  // somebody is writing the SMBIOS tables
};

class identity final : public family
{
public:
    const char *name() const override { return "identity"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    void restart() override;
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion write_id(byte_reader &request, byte_writer &answer);
    completion write_web_host(byte_reader &request, byte_writer &answer);
    completion open_smbios(byte_reader &request, byte_writer &answer);
    completion write_serial_number(byte_reader &request, byte_writer &answer);

    void take_over(const identity_state &wanted);

    identity_state state;
    text_in_pieces id{longest_id, longest_id_piece};
    text_in_pieces web_host{longest_host_name, longest_host_name_piece};
    text_in_pieces serial_number{longest_serial_number, longest_serial_piece};
};

/// Texts that are half written are forgotten.
void identity::take_over(const identity_state &wanted)
{
    state = wanted;
    id.start_anew();
    web_host.start_anew();
    serial_number.start_anew();
}

void identity::restart()
{
    identity_state kept = state;
    kept.smbios_is_open = false;
    take_over(kept);
}

/// Whether more pieces follow, and the offset, stand in front of this one.
completion take_numbered_piece(text_in_pieces &pieces, byte_reader &request, byte_writer &answer, std::string &whole)
{
    const uint8_t more = request.u8();
    if (more > 1)
        return completion::invalid_field;
    const uint8_t offset = request.u8();
    const completion code = pieces.take(offset, more == 1, request, whole);
    if (code == completion::ok)
        answer.bytes(oem_iana);
    return code;
}

completion identity::write_id(byte_reader &request, byte_writer &answer)
{
    return take_numbered_piece(id, request, answer, state.remote_manage_id);
}

completion identity::write_web_host(byte_reader &request, byte_writer &answer)
{
    return take_numbered_piece(web_host, request, answer, state.web_host);
}

/// Whoever opens while it is open begins anew: the writer before him may be gone.
completion identity::open_smbios(byte_reader &request, byte_writer &)
{
    const uint8_t wanted = request.u8();
    if (wanted > 1)
        return completion::invalid_field;
    state.smbios_is_open = wanted == 1;
    serial_number.start_anew();
    return completion::ok;
}

completion identity::write_serial_number(byte_reader &request, byte_writer &)
{
    if (!state.smbios_is_open)
        return completion::not_in_this_state;
    const uint8_t offset = request.u8();
    return serial_number.take(offset & uint8_t(~more_pieces), (offset & more_pieces) != 0, request,
                              state.serial_number);
}

json identity::to_json() const
{
    return {{"remote_manage_id", state.remote_manage_id},
            {"web_host", state.web_host},
            {"serial_number", state.serial_number},
            {"smbios_is_open", state.smbios_is_open}};
}

void identity::from_json(const json &json)
{
    identity_state wanted = state;
    json_fields fields(json, "/identity");
    fields.text("remote_manage_id", wanted.remote_manage_id, longest_id);
    fields.text("web_host", wanted.web_host, longest_host_name);
    fields.text("serial_number", wanted.serial_number, longest_serial_number);
    fields.boolean("smbios_is_open", wanted.smbios_is_open);
    fields.done();
    take_over(wanted);
}

std::string words_of_numbered_piece(byte_reader &data)
{
    const bool more_follow = data.u8() != 0;
    const uint8_t offset = data.u8();
    return words_of_piece(offset, more_follow, data);
}

std::string words_of_serial_number(byte_reader &data)
{
    const uint8_t offset = data.u8();
    return words_of_piece(offset & uint8_t(~more_pieces), (offset & more_pieces) != 0, data);
}

std::string words_of_opening(byte_reader &data)
{
    const uint8_t wanted = data.u8();
    return wanted == 0 ? "end" : wanted == 1 ? "begin" : text("%u", wanted);
}

const command identity::table[] = {
    {.netfn = netfn::oem,
     .number = 0x94,
     .lead = oem(0x1F, 0x01, 0x0C),
     .name = "Write Remote Manage ID",
     .length = {3, 3 + longest_id_piece},
     .run = call<&identity::write_id>,
     .request_words = words_of_numbered_piece},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x05, 0x18),
     .name = "Write Web Host Name",
     .length = {4, 3 + longest_host_name_piece},  // a name cannot be cleared
     .run = call<&identity::write_web_host>,
     .request_words = words_of_numbered_piece},
    {.netfn = netfn::oem,
     .number = 0x90,
     .lead = leading_bytes(0x20, oem_iana[0], oem_iana[1], oem_iana[2]),
     .name = "Write SMBIOS",
     .length = {1, 1},
     .run = call<&identity::open_smbios>,
     .request_words = words_of_opening},
    {.netfn = netfn::oem,
     .number = 0x90,
     .lead = leading_bytes(0x04, 0x00, 0x06, 0x03),
     .name = "Write SMBIOS Serial Number",
     .length = {3, 2 + longest_serial_piece},  // a serial number cannot be cleared
     .run = call<&identity::write_serial_number>,
     .request_words = words_of_serial_number},
};

std::span<const command> identity::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_identity(controller &) { return std::make_unique<identity>(); }

}  // namespace ipmcd

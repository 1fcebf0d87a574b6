/// Snapshots of the host's screen, which the controller keeps as pictures in its /tmp/screen.
#include "ipmcd/controller.h"
#include "ipmcd/disk.h"
#include "ipmcd/families/host.h"
#include "ipmcd/families/pictures.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

constexpr char folder[] = "tmp/screen";

class screen final : public family
{
public:
    explicit screen(controller &owner)
        : board(owner), computer(owner.shared<host>()), pictures(owner.shared<screen_pictures>())
    {
    }

    const char *name() const override { return "screen"; }
    std::span<const command> commands() const override;
    void reset() override;
    json to_json() const override { return {{"asleep", asleep}, {"snapshots", pictures.taken}}; }
    void from_json(const json &json) override;

private:
    static const command table[];

    completion save_snapshot(byte_reader &request, byte_writer &answer);

    controller &board;
    const host &computer;
    screen_pictures &pictures;
    bool asleep = false;  // a screen asleep is black
};

void screen::reset()
{
    asleep = false;
    pictures = {};
}

/// What this host shows: a portable pixmap of 32 x 18 points in one grey.
std::string picture(bool black)
{
    constexpr unsigned width = 32, height = 18;
    return text("P6 %u %u 255\n", width, height) + std::string(size_t{3} * width * height, black ? '\0' : '\x60');
}

completion screen::save_snapshot(byte_reader &request, byte_writer &answer)
{
    const uint8_t wake_up = request.u8();
    if (wake_up > 1)
        return completion::invalid_field;
    if (!computer.is_on)
        return completion::not_in_this_state;  // no picture comes from a host without power
    if (wake_up == 1)
        asleep = false;
    if (board.disk())
        write_new_file(*board.disk(), folder, text("snapshot%u.ppm", pictures.taken + 1).c_str(), picture(asleep));
    pictures.taken++;
    answer.bytes(oem_iana);
    return completion::ok;
}

void screen::from_json(const json &json)
{
    bool wanted_asleep = asleep;
    screen_pictures wanted = pictures;
    json_fields fields(json, "/screen");
    fields.boolean("asleep", wanted_asleep);
    fields.number("snapshots", wanted.taken, 0, UINT32_MAX);
    fields.done();
    asleep = wanted_asleep;
    pictures = wanted;
}

std::string words_of_snapshot(byte_reader &data) { return data.u8() == 0 ? "as it is" : "woken up first"; }

const command screen::table[] = {
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x03, 0x00),
     .name = "Save Screen Snapshot",
     .length = {1, 1},
     .run = call<&screen::save_snapshot>,
     .request_words = words_of_snapshot},
};

std::span<const command> screen::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_screen(controller &owner) { return std::make_unique<screen>(owner); }

}  // namespace ipmcd

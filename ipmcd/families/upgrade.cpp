/// Firmware: an upgrade from an image file on the controller's disk (OEM), and the way back to the firmware before it
/// (PICMG HPM.1, Initiate Manual Rollback).
///
/// An image is a header of text lines, an empty line, and what is to be installed:
///
///     ipmcd image 1
///     component 1
///     version 1.05
///     cksum 3410598071 10
///
///     The rest.
///
/// The last line of the header is what cksum(1) prints for the rest: its checksum and its length.
#include "ipmcd/controller.h"
#include "ipmcd/disk.h"
#include "ipmcd/families/firmware.h"
#include "ipmcd/families/host.h"
#include "ipmcd/families/pieces.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace ipmcd
{

namespace
{

constexpr size_t longest_path = 80, longest_piece = 16;
constexpr uint8_t more_pieces = 0x80;  // in the offset of a piece
constexpr size_t largest_header = 256;
constexpr std::chrono::milliseconds step{100};
constexpr uint32_t default_duration_ms = 5000, longest_duration_ms = 3'600'000;
constexpr uint32_t default_memory = 64U << 20;

constexpr completion upgrade_in_progress{0x80};

namespace component
{
constexpr uint8_t controller = 1, bios = 2, cpld = 5, drive_backplane_cpld = 6;
}
bool is_component(unsigned id)
{
    return id == component::controller || id == component::bios || id == component::cpld ||
           id == component::drive_backplane_cpld;
}

/// What an upgrade failed of.
enum class failure : uint8_t { none, no_file, invalid_file, no_memory, host_is_on };
constexpr const char *failure_words[] = {"none", "no file", "invalid file", "no memory", "host is on"};
constexpr completion refusals[] = {completion::ok, completion(0x82), completion(0x83), completion(0x84),
                                   completion(0x88)};

/// In the order of the states that a query tells.
enum class phase : uint8_t { idle, failed, updating, finished };
constexpr const char *phase_words[] = {"idle", "failed", "updating", "finished"};

// Images -------------------------------------------------------------------------------------------------------------

/// The checksum of cksum(1), byte by byte.
class posix_checksum
{
public:
    void add(uint8_t byte)
    {
        sum ^= uint32_t{byte} << 24;
        for (int bit = 0; bit < 8; bit++)
            sum = sum << 1 ^ ((sum & 0x80000000U) != 0 ? 0x04C11DB7U : 0U);
    }
    /// With the length behind the bytes, as many bytes of it as are not 0.
    uint32_t finish(uint64_t length) const
    {
        posix_checksum whole = *this;
        for (; length != 0; length >>= 8)
            whole.add(uint8_t(length));
        return ~whole.sum;
    }

private:
    uint32_t sum = 0;
};

struct image {
    uint8_t component = component::controller;
    firmware_version version{};
    uint32_t checksum = 0;
    uint32_t length = 0;  // of what follows the header
};

/// Reads up to the empty line; the file stands behind it then. None: the file is no image.
std::optional<image> read_header(int file)
{
    std::string header;
    for (char c = 0; !header.ends_with("\n\n"); header += c)
        if (header.size() == largest_header || read(file, &c, 1) != 1)
            return std::nullopt;
    unsigned id = 0, major = 0, minor = 0, checksum = 0, length = 0;
    int end = 0;
    const int read = sscanf(header.c_str(), "ipmcd image 1\ncomponent %3u\nversion %3u.%2u\ncksum %10u %10u%n", &id,
                            &major, &minor, &checksum, &length, &end);
    if (read != 5 || size_t(end) + 2 != header.size() || !is_component(id) || major > largest_firmware_major ||
        minor > largest_firmware_minor || length == 0)
        return std::nullopt;
    return image{uint8_t(id), {uint8_t(major), uint8_t(minor)}, checksum, length};
}

// The family ---------------------------------------------------------------------------------------------------------

struct upgrade_state {
    ipmcd::phase phase = phase::idle;
    failure why = failure::none;
    std::string path;  // of the image on the controller
    uint8_t component = component::controller;
    firmware_version version{};  // of the image
    firmware_version previous{0, 90};
    uint32_t duration_ms = default_duration_ms;
    uint32_t memory = default_memory;  // the largest image there is room for
};

class upgrade final : public family
{
public:
    explicit upgrade(controller &owner)
        : board(owner), computer(owner.shared<host>()), running(owner.shared<running_firmware>().version),
          next_step(owner.timers().make_timer([this] { read_on(); }))
    {
    }

    const char *name() const override { return "upgrade"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    void restart() override;
    json to_json() const override;
    json shown() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion initiate(byte_reader &request, byte_writer &answer);
    completion query(byte_reader &request, byte_writer &answer);
    completion finish(byte_reader &request, byte_writer &answer);
    completion roll_back(byte_reader &request, byte_writer &answer);

    void take_over(const upgrade_state &wanted);
    void start();
    failure open_image();
    void read_on();
    void end(phase reached, failure why);
    uint8_t percent() const;
    void run(firmware_version wanted);

    controller &board;
    const host &computer;
    firmware_version &running;
    upgrade_state state;
    text_in_pieces path{longest_path, longest_piece};
    // Of an upgrade under way
    image target;
    descriptor file;
    uint32_t done = 0;  // bytes read behind the header
    posix_checksum checksum;
    std::unique_ptr<timer> next_step;
};

/// An upgrade under way starts anew: how far it was is not part of the state.
void upgrade::take_over(const upgrade_state &wanted)
{
    state = wanted;
    path.start_anew();
    next_step->stop();
    file = descriptor();
    if (state.phase == phase::updating)
        start();
}

/// An upgrade ends with the controller that makes it; one that waits for its finish goes on waiting.
void upgrade::restart()
{
    upgrade_state kept = state;
    if (kept.phase == phase::updating)
        kept.phase = phase::idle;
    take_over(kept);
}

completion upgrade::initiate(byte_reader &request, byte_writer &answer)
{
    if (state.phase == phase::updating)
        return upgrade_in_progress;
    const uint16_t reserved = request.u16le();
    if (reserved != 0)
        return completion::invalid_field;
    const uint8_t offset = request.u8();
    std::string whole;
    const completion code = path.take(offset & uint8_t(~more_pieces), (offset & more_pieces) != 0, request, whole);
    if (code != completion::ok)
        return code;
    if ((offset & more_pieces) == 0) {
        if (!whole.starts_with('/'))
            return completion::invalid_field;
        state.path = whole;
        start();
    }
    answer.bytes(oem_iana);
    return completion::ok;
}

void upgrade::start()
{
    done = 0;
    checksum = {};
    target = {};
    const failure why = open_image();
    if (why != failure::none) {
        end(phase::failed, why);
        return;
    }
    state.phase = phase::updating;
    state.why = failure::none;
    next_step->start(step);
}

failure upgrade::open_image()
{
    file = board.disk() ? open_file(*board.disk(), state.path) : descriptor();
    if (file.get() < 0)
        return failure::no_file;
    const auto header = read_header(file.get());
    if (!header)
        return failure::invalid_file;
    target = *header;
    state.component = target.component;
    state.version = target.version;
    if (target.length > state.memory)
        return failure::no_memory;
    return target.component == component::bios && computer.is_on ? failure::host_is_on : failure::none;
}

/// A step of the upgrade: as many bytes as the whole time has for it.
void upgrade::read_on()
{
    const uint64_t due = uint64_t{target.length} * uint64_t(step.count()) / std::max(state.duration_ms, 1U) + 1;
    std::vector<uint8_t> bytes(size_t(std::min<uint64_t>(due, target.length - done)));
    const ssize_t got = read(file.get(), bytes.data(), bytes.size());
    if (got <= 0) {
        end(phase::failed, failure::invalid_file);  // shorter than its header says
        return;
    }
    for (const uint8_t byte : std::span(bytes).first(size_t(got)))
        checksum.add(byte);
    done += uint32_t(got);
    if (done < target.length)
        next_step->start(step);
    else if (checksum.finish(target.length) == target.checksum)
        end(phase::finished, failure::none);
    else
        end(phase::failed, failure::invalid_file);
}

void upgrade::end(phase reached, failure why)
{
    state.phase = reached;
    state.why = why;
    file = descriptor();
}

uint8_t upgrade::percent() const
{
    if (state.phase == phase::updating)
        return uint8_t(uint64_t{done} * 100 / target.length);
    return state.phase == phase::finished ? 100 : 0;
}

completion upgrade::query(byte_reader &, byte_writer &answer)
{
    constexpr uint8_t all_of_it = 0x80, no_extended_error = 0;
    if (state.phase == phase::failed)
        return refusals[size_t(state.why)];
    const uint8_t progress = percent();
    answer.bytes(oem_iana).u8(progress == 100 ? all_of_it | progress : progress);
    answer.u8(uint8_t(state.phase)).u8(state.component).u8(no_extended_error);
    return completion::ok;
}

/// The controller runs its new firmware from now on; what else was upgraded needs nothing more.
completion upgrade::finish(byte_reader &, byte_writer &answer)
{
    if (state.phase != phase::finished)
        return completion::not_in_this_state;
    state.phase = phase::idle;
    if (state.component == component::controller)
        run(state.version);
    answer.bytes(oem_iana);
    return completion::ok;
}

void upgrade::run(firmware_version wanted)
{
    state.previous = std::exchange(running, wanted);
    board.restart_soon();
}

completion upgrade::roll_back(byte_reader &, byte_writer &answer)
{
    if (state.phase == phase::updating)
        return completion::not_in_this_state;
    run(state.previous);
    answer.bytes(picmg());
    return completion::ok;
}

// JSON and words -----------------------------------------------------------------------------------------------------

std::string version_text(firmware_version version) { return text("%u.%02u", version.major, version.minor); }

void read_version(json_fields &fields, const char *key, firmware_version &version)
{
    std::string given;
    fields.text(key, given, 6);
    if (given.empty())
        return;
    unsigned major = 0, minor = 0;
    int end = 0;
    const bool is_version =
        sscanf(given.c_str(), "%3u.%2u%n", &major, &minor, &end) == 2 && size_t(end) == given.size();
    if (!is_version || major > largest_firmware_major || minor > largest_firmware_minor)
        fields.refuse(key, "a version from \"0.00\" to \"127.99\" is needed here");
    version = {uint8_t(major), uint8_t(minor)};
}

json upgrade::to_json() const
{
    return {{"phase", phase_words[size_t(state.phase)]},
            {"failure", failure_words[size_t(state.why)]},
            {"path", state.path},
            {"component", state.component},
            {"version", version_text(state.version)},
            {"previous", version_text(state.previous)},
            {"duration_ms", state.duration_ms},
            {"memory", state.memory}};
}

json upgrade::shown() const
{
    json all = to_json();
    all["percent"] = percent();
    return all;
}

void upgrade::from_json(const json &json)
{
    upgrade_state wanted = state;
    json_fields fields(json, "/upgrade");
    fields.choice("phase", wanted.phase, phase_words);
    fields.choice("failure", wanted.why, failure_words);
    fields.text("path", wanted.path, longest_path);
    fields.number("component", wanted.component, 0, 255);
    read_version(fields, "version", wanted.version);
    read_version(fields, "previous", wanted.previous);
    fields.number("duration_ms", wanted.duration_ms, 0, longest_duration_ms);
    fields.number("memory", wanted.memory, 0, UINT32_MAX);
    fields.done();
    if (!is_component(wanted.component))
        fields.refuse("component", "there are 1 (controller), 2 (BIOS), 5 (CPLD) and 6 (drive backplane)");
    if ((wanted.phase == phase::failed) != (wanted.why != failure::none))
        fields.refuse("failure", "an upgrade that failed has one, any other has \"none\"");
    take_over(wanted);
}

std::string words_of_initiation(byte_reader &data)
{
    data.u16le();
    const uint8_t offset = data.u8();
    return words_of_piece(offset & uint8_t(~more_pieces), (offset & more_pieces) != 0, data);
}

std::string words_of_progress(byte_reader &data)
{
    data.bytes(oem_iana.size());
    const unsigned percent = data.u8() & 0x7F;
    const uint8_t reached = data.u8();
    const std::string words = reached < std::size(phase_words) ? phase_words[reached] : text("state %u", reached);
    return words + text(", %u %%, component %u", percent, data.u8());
}

const command upgrade::table[] = {
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x06, 0xAA),
     .name = "Initiate Upgrade",
     .length = {4, 4 + longest_piece},
     .run = call<&upgrade::initiate>,
     .request_words = words_of_initiation},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x06, 0x00),
     .name = "Query Upgrade Status",
     .run = call<&upgrade::query>,
     .answer_words = words_of_progress},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x06, 0x55),
     .name = "Finish Upgrade",
     .run = call<&upgrade::finish>},
    {.netfn = netfn::picmg,
     .number = 0x38,
     .lead = picmg(),
     .name = "Initiate Manual Rollback",
     .run = call<&upgrade::roll_back>},
};

std::span<const command> upgrade::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_upgrade(controller &owner) { return std::make_unique<upgrade>(owner); }

}  // namespace ipmcd

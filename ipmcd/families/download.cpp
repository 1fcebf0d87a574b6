/// Data that the controller collects into files for its user to fetch (OEM): the console that was recorded over serial
/// line, the black box of the host's crashes, recorded video, and the pictures of its screen.
#include "ipmcd/controller.h"
#include "ipmcd/disk.h"
#include "ipmcd/families/pictures.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

constexpr uint32_t most_recorded = 16U << 20;
constexpr uint32_t default_duration_ms = 3000, longest_duration_ms = 3'600'000;

enum class kind : uint8_t { console, black_box, video, pictures };
constexpr const char *kind_words[] = {"console", "black_box", "video", "pictures"};
constexpr size_t kind_count = std::size(kind_words);

enum class action : uint8_t { start, progress, size };
constexpr const char *action_words[] = {"start", "how far is it", "size"};

enum class phase : uint8_t { idle, running, done, failed };
constexpr const char *phase_words[] = {"idle", "running", "done", "failed"};

// What the answer to a question for the progress tells
constexpr uint8_t status_done = 0, status_running = 1, status_failed = 2;

struct download_state {
    ipmcd::phase phase = phase::idle;
    kind what = kind::console;  // is being, or was last, collected
    uint32_t duration_ms = default_duration_ms;
    bool black_box_enabled = true;
    // Bytes that were recorded
    uint32_t console = 6000;
    uint32_t black_box = 65536;
    uint32_t video = 20000;
};

class download final : public family
{
public:
    explicit download(controller &owner)
        : board(owner), pictures(owner.shared<screen_pictures>()),
          collection(owner.timers().make_timer([this] { finish(); }))
    {
    }

    const char *name() const override { return "download"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    void restart() override;
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion collect(byte_reader &request, byte_writer &answer);
    completion get_black_box(byte_reader &request, byte_writer &answer);

    completion start(kind what);
    completion tell_progress(kind what, byte_writer &answer) const;
    completion tell_size(kind what, byte_writer &answer) const;

    void take_over(const download_state &wanted);
    void begin();
    void finish();
    void write(kind what) const;
    uint32_t recorded(kind what) const;
    uint8_t percent() const;

    controller &board;
    const screen_pictures &pictures;
    download_state state;
    std::chrono::milliseconds begun{0};
    std::unique_ptr<timer> collection;
};

// Files --------------------------------------------------------------------------------------------------------------

/// What a host would have left, as many bytes of it.
std::string recording(const char *what, uint32_t size)
{
    std::string all;
    for (unsigned line = 1; all.size() < size; line++)
        all += text("%s, line %u\r\n", what, line);
    all.resize(size);
    return all;
}

/// An archive of one file, as tar(5) has it in "ustar".
std::string tar_of(const char *name, const std::string &content)
{
    constexpr size_t block = 512, sum_at = 148;
    std::string header =
        text("%-100s%07o%c%07o%c%07o%c%011zo%c%011o%c%8s0", name, 0644U, 0, 0U, 0, 0U, 0, content.size(), 0, 0U, 0, "");
    std::replace(header.begin(), header.begin() + 100, ' ', '\0');
    header.resize(257);
    header.append("ustar\0", 6).append("00");
    header.resize(block);
    unsigned sum = 0;
    for (const char c : header)
        sum += uint8_t(c);
    header.replace(sum_at, 8, text("%06o%c ", sum, 0));
    std::string archive = header + content;
    archive.resize((archive.size() + block - 1) / block * block + 2 * block);
    return archive;
}

/// In place of what an earlier collection left. The pictures are there already.
void download::write(kind what) const
{
    if (!board.disk())
        return;
    switch (what) {
    case kind::console:
        replace_file(*board.disk(), "tmp", "sol.dat", recording("console", state.console));
        break;
    case kind::black_box:
        replace_file(*board.disk(), "tmp", "blackbox.tar",
                     tar_of("blackbox.txt", recording("black box", state.black_box)));
        break;
    case kind::video:
        replace_file(*board.disk(), "tmp/video", "video.dat", recording("video", state.video));
        break;
    case kind::pictures:
        break;
    }
}

uint32_t download::recorded(kind what) const
{
    switch (what) {
    case kind::console:
        return state.console;
    case kind::black_box:
        return state.black_box;
    case kind::video:
        return state.video;
    case kind::pictures:
        break;
    }
    return pictures.taken;
}

// Collections --------------------------------------------------------------------------------------------------------

/// A collection under way starts anew: how far it was is not part of the state.
void download::take_over(const download_state &wanted)
{
    state = wanted;
    collection->stop();
    if (state.phase == phase::running)
        begin();
}

void download::restart()
{
    download_state kept = state;
    if (kept.phase == phase::running)
        kept.phase = phase::idle;
    take_over(kept);
}

void download::begin()
{
    state.phase = phase::running;
    begun = board.timers().now();
    collection->start(std::chrono::milliseconds(state.duration_ms));
}

void download::finish()
{
    try {
        write(state.what);
        state.phase = phase::done;
    } catch (const std::exception &problem) {
        report(problem.what());
        state.phase = phase::failed;
    }
}

uint8_t download::percent() const
{
    if (state.phase != phase::running)
        return state.phase == phase::done ? 100 : 0;
    const auto elapsed = board.timers().now() - begun;
    return uint8_t(std::min<int64_t>(elapsed.count() * 100 / std::max(state.duration_ms, 1U), 99));
}

completion download::collect(byte_reader &request, byte_writer &answer)
{
    const auto what = kind(request.u8());
    const uint8_t wanted = request.u8();
    if (size_t(what) >= kind_count || wanted >= std::size(action_words))
        return completion::invalid_field;
    if (what == kind::black_box && !state.black_box_enabled)
        return completion::sub_function_disabled;
    answer.bytes(oem_iana);
    switch (action(wanted)) {
    case action::start:
        return start(what);
    case action::progress:
        return tell_progress(what, answer);
    case action::size:
        break;
    }
    return tell_size(what, answer);
}

/// Video and pictures are there at once; nobody asks how far they are.
completion download::start(kind what)
{
    if (state.phase == phase::running)
        return completion::node_busy;
    if (recorded(what) == 0)
        return completion::not_present;
    if (what == kind::video || what == kind::pictures) {
        write(what);
        return completion::ok;
    }
    state.what = what;
    begin();
    return completion::ok;
}

completion download::tell_progress(kind what, byte_writer &answer) const
{
    if (state.phase == phase::idle || state.what != what)
        return completion::not_in_this_state;
    answer.u8(state.phase == phase::running ? status_running
              : state.phase == phase::done  ? status_done
                                            : status_failed);
    answer.u8(percent());
    return completion::ok;
}

completion download::tell_size(kind what, byte_writer &answer) const
{
    if (what != kind::black_box)
        return completion::invalid_field;
    answer.u8(0).u32le(state.black_box);
    return completion::ok;
}

completion download::get_black_box(byte_reader &, byte_writer &answer)
{
    constexpr uint8_t bytes_of_value = 1;
    answer.bytes(oem_iana).u8(bytes_of_value).u8(state.black_box_enabled);
    return completion::ok;
}

// JSON and words -----------------------------------------------------------------------------------------------------

json download::to_json() const
{
    return {{"phase", phase_words[size_t(state.phase)]},
            {"what", kind_words[size_t(state.what)]},
            {"duration_ms", state.duration_ms},
            {"black_box_enabled", state.black_box_enabled},
            {"console", state.console},
            {"black_box", state.black_box},
            {"video", state.video}};
}

void download::from_json(const json &json)
{
    download_state wanted = state;
    json_fields fields(json, "/download");
    fields.choice("phase", wanted.phase, phase_words);
    fields.choice("what", wanted.what, std::span(kind_words).first(2));  // the others take no time
    fields.number("duration_ms", wanted.duration_ms, 0, longest_duration_ms);
    fields.boolean("black_box_enabled", wanted.black_box_enabled);
    fields.number("console", wanted.console, 0, most_recorded);
    fields.number("black_box", wanted.black_box, 0, most_recorded);
    fields.number("video", wanted.video, 0, most_recorded);
    fields.done();
    take_over(wanted);
}

std::string words_of_collection(byte_reader &data)
{
    const uint8_t what = data.u8();
    const uint8_t wanted = data.u8();
    const std::string words = what < kind_count ? kind_words[what] : text("data %u", what);
    return words + ", " + (wanted < std::size(action_words) ? action_words[wanted] : text("action %u", wanted));
}

/// The answer to a start says nothing, that of a size is the longest.
std::string words_of_collection_answer(byte_reader &data)
{
    data.bytes(oem_iana.size());
    if (data.left() == 0)
        return "started";
    const uint8_t status = data.u8();
    if (data.left() == sizeof(uint32_t))
        return text("%u bytes", data.u32le());
    const char *const words = status == status_done ? "done" : status == status_running ? "in progress" : "failed";
    return text("%s, %u %%", words, data.u8());
}

std::string words_of_black_box(byte_reader &data)
{
    data.bytes(oem_iana.size() + 1);
    return data.u8() == 0 ? "disabled" : "enabled";
}

const command download::table[] = {
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x1F),
     .name = "Collect Data",
     .length = {2, 2},
     .run = call<&download::collect>,
     .request_words = words_of_collection,
     .answer_words = words_of_collection_answer},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x10, 0x0C, 0x01, 0x00, 0x00, 0x01),
     .name = "Get Black Box State",
     .run = call<&download::get_black_box>,
     .answer_words = words_of_black_box},
};

std::span<const command> download::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_download(controller &owner) { return std::make_unique<download>(owner); }

}  // namespace ipmcd

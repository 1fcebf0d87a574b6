#include "ipmcd/controller.h"

#include "ipmcd/text.h"

#include <algorithm>
#include <exception>
#include <stdexcept>

namespace ipmcd
{

static bool starts_with(std::span<const uint8_t> data, std::span<const uint8_t> lead)
{
    return data.size() >= lead.size() && std::equal(lead.begin(), lead.end(), data.begin());
}

std::unique_ptr<timer> controller::watched_scheduler::make_timer(std::function<void()> when_due)
{
    return machine.make_timer([&board = owner, act = std::move(when_due)] {
        act();
        board.note_change();
    });
}

void controller::watched_scheduler::in_background(uint32_t account, std::function<void()> work, background_result then)
{
    machine.in_background(account, std::move(work), [&board = owner, act = std::move(then)](std::exception_ptr failed) {
        act(std::move(failed));
        board.note_change();
    });
}

controller::controller(scheduler &timers, std::span<const family_maker> makers, board_description described)
    : clock(timers, *this), restarting(clock.make_timer([this] { restart(); })), board(std::move(described))
{
    for (const family_maker make : makers) {
        members.push_back(make(*this));
        for (const command &row : members.back()->commands())
            entries.push_back({members.back().get(), &row});
    }
}

/// Of rows that fit, the one with the longest leading bytes.
const controller::entry *controller::find(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const
{
    const entry *best = nullptr;
    for (const entry &candidate : entries) {
        const ipmcd::command &row = *candidate.row;
        if (row.netfn == netfn && row.number == command && starts_with(data, row.lead) &&
            (!best || row.lead.size() > best->row->lead.size()))
            best = &candidate;
    }
    return best;
}

/// Why no row fits. The number of a maker or of a sub-function is a data field like any other: one that nobody here
/// knows is an invalid field; "invalid command" stays for command numbers that this controller does not have at all.
completion controller::refusal(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const
{
    completion why = completion::invalid_command;
    for (const auto &[owner, row] : entries) {
        if (row->netfn != netfn || row->number != command)
            continue;
        if (starts_with(row->lead, data))
            return completion::length_invalid;  // ends inside the leading bytes
        why = completion::invalid_field;
    }
    return why;
}

/// A handler that fails is not the end of the controller.
template <typename handling>
static completion guarded(const command &row, const byte_writer &answer, handling handle)
{
    try {
        const completion code = handle();
        return answer.overflown() ? completion::no_response_possible : code;
    } catch (const std::exception &problem) {
        report(row.name + std::string(": ") + problem.what());
        return completion::unspecified;
    }
}

void controller::execute(const request_frame &request, uint32_t account, command_result then)
{
    const entry *found = find(request.netfn, request.command, request.data);
    if (!found)
        return then(refusal(request.netfn, request.command, request.data), {});
    if (request.lun != 0)
        return then(completion::invalid_for_lun, {});
    const ipmcd::command &row = *found->row;
    byte_reader data(request.data.subspan(row.lead.size()));
    if (data.left() < row.length.smallest || data.left() > row.length.largest)
        return then(completion::length_invalid, {});
    byte_writer answer;
    slow_answer slow;
    const completion code = guarded(row, answer, [&] {
        return row.run ? row.run(*found->owner, data, answer) : row.run_slowly(*found->owner, data, account, slow);
    });
    if (code != completion::ok || !slow.work) {
        then(code, answer.written());
        return note_change();
    }
    clock.in_background(account, std::move(slow.work),
                        [&row, finish = std::move(slow.finish), then = std::move(then)](std::exception_ptr failed) {
                            byte_writer late_answer;
                            const completion late_code = guarded(row, late_answer, [&] {
                                if (failed)
                                    std::rethrow_exception(failed);
                                return finish(late_answer);
                            });
                            then(late_code, late_answer.written());
                        });
}

const command *controller::row_of(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const
{
    const entry *found = find(netfn, command, data);
    return found ? found->row : nullptr;
}

size_t controller::open_bytes(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const
{
    if (const ipmcd::command *row = row_of(netfn, command, data)) {
        const auto rest = data.subspan(row->lead.size());
        return data.size() - rest.size() + (row->open ? std::min(row->open(rest), rest.size()) : rest.size());
    }
    size_t open = data.size();
    for (const auto &[owner, row] : entries)
        if (row->netfn == netfn && row->number == command && row->open)
            open = std::min(open, row->lead.size());
    return open;
}

json controller::to_json() const
{
    json state = json::object();
    for (const auto &member : members)
        state[member->name()] = member->to_json();
    return state;
}

json controller::shown() const
{
    json state = json::object();
    for (const auto &member : members)
        state[member->name()] = member->shown();
    return state;
}

std::optional<json> controller::details(std::string_view kind, std::string_view name) const
{
    for (const auto &member : members)
        if (auto found = member->details(kind, name))
            return found;
    return std::nullopt;
}

void controller::from_json(const json &state)
{
    json_fields fields(state, "");
    for (const auto &member : members)
        if (const json *part = fields.find(member->name()))
            member->from_json(*part);
    fields.done();
    note_change();
}

void controller::reset()
{
    for (const auto &member : members)
        member->reset();
    note_change();
}

void controller::restart()
{
    for (const auto &member : members)
        member->restart();
}

void controller::cancel_reservations()
{
    for (const auto &member : members)
        member->cancel_reservations();
}

family &controller::member(std::string_view name)
{
    for (const auto &member : members)
        if (member->name() == name)
            return *member;
    throw std::out_of_range("no family " + std::string(name));
}

}  // namespace ipmcd

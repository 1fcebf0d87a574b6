#include "ipmcd/server.h"

#include "ipmcd/control.h"
#include "ipmcd/service.h"
#include "ipmcd/text.h"
#include "ipmcd/wiping.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <event2/buffer.h>
#include <linux/sockios.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace ipmcd
{

static constexpr size_t longest_datagram =
    2048;  // a request has 255 bytes at most; of a longer one the checksum is cut off
static constexpr size_t longest_line = 65536;
static constexpr size_t most_unread = 1 << 20;  // bytes of answers that a client may leave in the line
static constexpr size_t taken_in_a_row = 256, served_in_a_row = 64;  // requests; then other events have their turn
static constexpr int wanted_buffer = 1 << 20;                        // for answers; the system may give less
static constexpr size_t most_late_answers = 4096;

namespace
{
class loop_timer final : public timer
{
public:
    loop_timer(event_base *base, std::function<void()> when_due)
        : act(std::move(when_due)), pending(made(evtimer_new(base, run, this)))
    {
    }
    void start(std::chrono::milliseconds delay) override
    {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(delay);
        const std::chrono::microseconds rest = delay - seconds;
        const timeval after{.tv_sec = seconds.count(), .tv_usec = rest.count()};
        evtimer_add(pending.get(), &after);
    }
    void stop() override { evtimer_del(pending.get()); }

private:
    static void run(evutil_socket_t, short, void *self)
    {
        const auto act = static_cast<loop_timer *>(self)->act;  // a copy: it may destroy this timer
        act();
    }

    std::function<void()> act;
    event_owner<event> pending;
};
}  // namespace

event_loop::event_loop() : base(made(event_base_new()))
{
    signal(SIGPIPE, SIG_IGN);  // a client that hangs up is no reason to end
    const auto stop = [](evutil_socket_t, short, void *loop) { event_base_loopbreak(static_cast<event_base *>(loop)); };
    on_terminate.reset(made(evsignal_new(base.get(), SIGTERM, stop, base.get())));
    on_interrupt.reset(made(evsignal_new(base.get(), SIGINT, stop, base.get())));
    evsignal_add(on_terminate.get(), nullptr);
    evsignal_add(on_interrupt.get(), nullptr);
}

std::chrono::milliseconds event_loop::now() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now().time_since_epoch());
}

std::unique_ptr<timer> event_loop::make_timer(std::function<void()> when_due)
{
    return std::make_unique<loop_timer>(base.get(), std::move(when_due));
}

void event_loop::in_background(uint32_t account, std::function<void()> work, background_result then)
{
    if (!thread)
        thread.emplace(base.get());
    thread->run(account, std::move(work), std::move(then));
}

void event_loop::run() { event_base_dispatch(base.get()); }

ipmi_port::ipmi_port(event_loop &loop_, bound_socket &socket_, service &ipmi_)
    : loop(loop_), socket(socket_), ipmi(ipmi_), next_turn(loop.make_timer([this] { work(); }))
{
    listen();
}

/// What the buffer really holds is for the system to say. A quarter of it may fill with answers that nobody reads; the
/// rest is for the requests that are still on their way when the socket is replaced.
void ipmi_port::listen()
{
    const int fd = socket.get();
    int size = wanted_buffer;
    socklen_t length = sizeof size;
    setsockopt(fd, SOL_SOCKET, SO_SNDBUF, &size, length);
    getsockopt(fd, SOL_SOCKET, SO_SNDBUF, &size, &length);
    most_unread = size / 4;
    const auto ready = [](evutil_socket_t, short, void *self) { static_cast<ipmi_port *>(self)->work(); };
    on_request.reset(made(event_new(loop.get(), fd, EV_READ | EV_PERSIST, ready, this)));
    event_add(on_request.get(), nullptr);
}

void ipmi_port::work()
{
    take_in(socket.share(), taken_in_a_row);
    is_serving = true;
    for (size_t i = 0; i < served_in_a_row && !waiting.empty(); i++)
        serve(*waiting.next());
    is_serving = false;
    wipe_stack();
    if (!waiting.empty())
        next_turn->start(std::chrono::milliseconds(0));  // other events first
}

/// The account that the kernel puts beside a datagram.
static uint32_t account_of(msghdr &received)
{
    const cmsghdr *const part = CMSG_FIRSTHDR(&received);
    ucred who{.pid = 0, .uid = uint32_t(-1), .gid = 0};
    if (part && part->cmsg_level == SOL_SOCKET && part->cmsg_type == SCM_CREDENTIALS)
        memcpy(&who, CMSG_DATA(part), sizeof who);
    return who.uid;
}

void ipmi_port::take_in(const shared_socket &from, size_t at_most)
{
    std::array<uint8_t, longest_datagram> buffer{};
    for (size_t i = 0; i < at_most; i++) {
        sockaddr_un address{};
        alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> account{};
        iovec bytes{.iov_base = buffer.data(), .iov_len = buffer.size()};
        msghdr message{};
        message.msg_name = &address;
        message.msg_namelen = sizeof address;
        message.msg_iov = &bytes;
        message.msg_iovlen = 1;
        message.msg_control = account.data();
        message.msg_controllen = account.size();
        const ssize_t got = recvmsg(from->get(), &message, MSG_CMSG_CLOEXEC);
        if (got < 0)
            return;
        const auto *const name = reinterpret_cast<const char *>(&address);
        if (!waiting.add({.from = {.account = account_of(message), .address = {name, message.msg_namelen}},
                          .via = from,
                          .datagram = {buffer.begin(), buffer.begin() + got}}))
            ipmi.note_dropped();
    }
}

void ipmi_port::serve(waiting_request request)
{
    ipmi.take(std::move(request.datagram), request.from.account,
              [this, from = request.from, to = destination{request.from.address, request.via}](
                  std::optional<delivery> answer) { deliver(std::move(answer), to, from); });
}

void ipmi_port::deliver(std::optional<delivery> answer, const destination &to, const sender &from)
{
    if (answer && answer->delay.count() != 0)
        send_later(answer->delay, std::move(answer->datagram), to);
    else if (answer)
        send(answer->datagram, to);
    waiting.done(from);
    if (!is_serving && !waiting.empty())  // one of its requests may have waited for this answer
        next_turn->start(std::chrono::milliseconds(0));
}

/// The address is as the kernel gave it. A socket without a name of its own cannot be answered, and one that is gone or
/// takes nothing more has lost its answer.
void ipmi_port::send(std::span<const uint8_t> datagram, const destination &to)
{
    const bool has_name = to.address.size() > offsetof(sockaddr_un, sun_path);
    if (!has_name || sendto(to.via->get(), datagram.data(), datagram.size(), MSG_NOSIGNAL | MSG_DONTWAIT,
                            reinterpret_cast<const sockaddr *>(to.address.data()), socklen_t(to.address.size())) < 0)
        ipmi.note_undelivered();
    replace_when_filled();
}

void ipmi_port::send_later(std::chrono::milliseconds delay, std::vector<uint8_t> datagram, const destination &to)
{
    if (late.size() == most_late_answers) {
        ipmi.note_undelivered();
        return;
    }
    const auto place = late.emplace(late.end());
    *place = loop.make_timer([this, place, to, datagram = std::move(datagram)] {
        send(datagram, to);
        late.erase(place);
    });
    (*place)->start(delay);
}

/// What still waits in the old socket is taken in and answered through it: for the rest of the time it stays open.
void ipmi_port::replace_when_filled()
{
    int unread = 0;
    if (ioctl(socket.get(), SIOCOUTQ, &unread) != 0 || unread <= most_unread)
        return;
    const shared_socket old = socket.share();
    try {
        socket.renew();
    } catch (const std::exception &problem) {
        if (!std::exchange(cannot_replace, true))
            report(std::string("answers that nobody reads may hold up others: ") + problem.what());
        return;
    }
    cannot_replace = false;
    ipmi.note_renewal();
    listen();
    take_in(old, SIZE_MAX);
}

control_port::control_port(event_loop &loop_, const bound_socket &socket, control &commands_)
    : loop(loop_), commands(commands_)
{
    const auto come = [](evconnlistener *, evutil_socket_t fd, sockaddr *, int, void *self) {
        static_cast<control_port *>(self)->accept(fd);
    };
    constexpr unsigned flags = LEV_OPT_CLOSE_ON_EXEC;  // the descriptor stays the socket's
    listener.reset(made(evconnlistener_new(loop.get(), come, this, flags, SOMAXCONN, socket.get())));
}

void control_port::accept(int fd)
{
    bufferevent *const client = bufferevent_socket_new(loop.get(), fd, BEV_OPT_CLOSE_ON_FREE);
    if (!client) {
        evutil_closesocket(fd);
        return;
    }
    clients.emplace(client, client);
    const auto readable = [](bufferevent *from, void *self) { static_cast<control_port *>(self)->answer_lines(from); };
    const auto ended = [](bufferevent *from, short what, void *self) {
        auto *const port = static_cast<control_port *>(self);
        if ((what & BEV_EVENT_EOF) != 0)
            port->end_when_sent(from);
        else
            port->end(from);
    };
    bufferevent_setcb(client, readable, nullptr, ended, this);
    bufferevent_enable(client, EV_READ | EV_WRITE);
}

void control_port::answer_lines(bufferevent *client)
{
    evbuffer *const in = bufferevent_get_input(client);
    evbuffer *const out = bufferevent_get_output(client);
    size_t length = 0;
    while (char *const line = evbuffer_readln(in, &length, EVBUFFER_EOL_CRLF)) {
        const json answer = commands.answer({line, length});
        // Words of the line may come back in an error text, whatever bytes they are made of: all but ASCII is escaped.
        const std::string sent = answer.dump(-1, ' ', true, json::error_handler_t::replace) + "\n";
        explicit_bzero(line, length);
        free(line);
        evbuffer_add(out, sent.data(), sent.size());
        if (evbuffer_get_length(out) > most_unread)
            return end(client);
    }
    wipe_stack();
    if (evbuffer_get_length(in) > longest_line)
        end(client);
}

/// A client that has said all it has to say still gets its answers.
void control_port::end_when_sent(bufferevent *client)
{
    if (evbuffer_get_length(bufferevent_get_output(client)) == 0)
        return end(client);
    const auto sent = [](bufferevent *to, void *self) { static_cast<control_port *>(self)->end(to); };
    const auto failed = [](bufferevent *to, short, void *self) { static_cast<control_port *>(self)->end(to); };
    bufferevent_disable(client, EV_READ);
    bufferevent_setcb(client, nullptr, sent, failed, this);
}

}  // namespace ipmcd

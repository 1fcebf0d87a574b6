#include "ipmcd/server.h"

#include "ipmcd/control.h"
#include "ipmcd/service.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <event2/buffer.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>

namespace ipmcd
{

static constexpr size_t longest_datagram =
    2048;  // a request has 255 bytes at most; of a longer one the checksum is cut off
static constexpr size_t longest_line = 65536;
static constexpr size_t most_unread = 1 << 20;  // bytes of answers that a client may leave in the line
static constexpr int requests_in_a_row = 64;    // then other events have their turn
static constexpr size_t most_late_answers = 4096;

template <typename type>
static type *made(type *it)
{
    if (!it)
        throw std::runtime_error("the event loop cannot be set up");
    return it;
}

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

void event_loop::run() { event_base_dispatch(base.get()); }

ipmi_port::ipmi_port(event_loop &loop_, const bound_socket &socket, service &ipmi_)
    : loop(loop_), fd(socket.get()), ipmi(ipmi_)
{
    const auto ready = [](evutil_socket_t, short, void *self) { static_cast<ipmi_port *>(self)->receive(); };
    on_request.reset(made(event_new(loop.get(), fd, EV_READ | EV_PERSIST, ready, this)));
    event_add(on_request.get(), nullptr);
}

void ipmi_port::receive()
{
    std::array<uint8_t, longest_datagram> buffer{};
    for (int i = 0; i < requests_in_a_row; i++) {
        sockaddr_un from{};
        socklen_t length = sizeof from;
        const ssize_t got = recvfrom(fd, buffer.data(), buffer.size(), 0, reinterpret_cast<sockaddr *>(&from), &length);
        if (got < 0)
            return;
        const std::string client(reinterpret_cast<const char *>(&from), length);
        auto answer = ipmi.take(std::span(buffer).first(size_t(got)));
        if (!answer)
            continue;
        if (answer->delay.count() == 0)
            send(answer->datagram, client);
        else
            send_later(answer->delay, std::move(answer->datagram), client);
    }
}

/// `client` is the address as the kernel gave it. One without a name of its own cannot be answered.
void ipmi_port::send(std::span<const uint8_t> datagram, const std::string &client)
{
    const bool has_name = client.size() > offsetof(sockaddr_un, sun_path);
    if (!has_name || sendto(fd, datagram.data(), datagram.size(), MSG_NOSIGNAL,
                            reinterpret_cast<const sockaddr *>(client.data()), socklen_t(client.size())) < 0)
        ipmi.note_undelivered();
}

void ipmi_port::send_later(std::chrono::milliseconds delay, std::vector<uint8_t> datagram, const std::string &client)
{
    if (late.size() == most_late_answers) {
        ipmi.note_undelivered();
        return;
    }
    const auto place = late.emplace(late.end());
    *place = loop.make_timer([this, place, client, datagram = std::move(datagram)] {
        send(datagram, client);
        late.erase(place);
    });
    (*place)->start(delay);
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
        free(line);
        evbuffer_add(out, sent.data(), sent.size());
        if (evbuffer_get_length(out) > most_unread)
            return end(client);
    }
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

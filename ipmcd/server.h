/// The event loop: the IPMI socket, the control socket, timers and signals.
#pragma once

#include "ipmcd/bound_socket.h"
#include "ipmcd/requests.h"
#include "ipmcd/scheduler.h"

#include <event2/bufferevent.h>
#include <event2/event.h>
#include <event2/listener.h>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace ipmcd
{

class control;
class service;

struct event_deleter {
    void operator()(event_base *it) const { event_base_free(it); }
    void operator()(event *it) const { event_free(it); }
    void operator()(evconnlistener *it) const { evconnlistener_free(it); }
    void operator()(bufferevent *it) const { bufferevent_free(it); }
};
template <typename type>
using event_owner = std::unique_ptr<type, event_deleter>;

class event_loop final : public scheduler
{
public:
    event_loop();
    std::chrono::milliseconds now() const override;
    std::unique_ptr<timer> make_timer(std::function<void()> when_due) override;
    event_base *get() { return base.get(); }
    /// Runs until SIGTERM or SIGINT.
    void run();

private:
    event_owner<event_base> base;
    event_owner<event> on_terminate;
    event_owner<event> on_interrupt;
};

/// Takes requests from the IPMI socket and sends their answers to where they came from. No client can hold up another:
/// nothing here waits, requests get their turn (request_queue), and since answers that nobody reads fill the buffer of
/// the socket that they left by, whoever reads them or not, the socket is replaced before that is full.
class ipmi_port
{
public:
    ipmi_port(event_loop &loop, bound_socket &socket, service &ipmi);

private:
    using shared_socket = std::shared_ptr<const descriptor>;
    /// Where an answer goes.
    struct destination {
        std::string address;
        shared_socket via;
    };

    void listen();
    void work();
    void take_in(const shared_socket &from, size_t at_most);
    void serve(const waiting_request &request);
    void send(std::span<const uint8_t> datagram, const destination &to);
    void send_later(std::chrono::milliseconds delay, std::vector<uint8_t> datagram, const destination &to);
    void replace_when_filled();

    event_loop &loop;
    bound_socket &socket;
    service &ipmi;
    request_queue waiting;
    int most_unread = 0;  // bytes of answers in the buffer of the present socket
    bool cannot_replace = false;
    std::list<std::unique_ptr<timer>> late;  // one for each answer that is still to go out
    std::unique_ptr<timer> next_turn;
    event_owner<event> on_request;
};

/// Answers control commands, any number of lines in a connection.
class control_port
{
public:
    control_port(event_loop &loop, const bound_socket &socket, control &commands);

private:
    void accept(int fd);
    void answer_lines(bufferevent *client);
    void end(bufferevent *client) { clients.erase(client); }
    void end_when_sent(bufferevent *client);

    event_loop &loop;
    control &commands;
    std::map<bufferevent *, event_owner<bufferevent>> clients;
    event_owner<evconnlistener> listener;
};

}  // namespace ipmcd

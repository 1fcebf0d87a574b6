/// The event loop: the IPMI socket, the control socket, timers and signals.
#pragma once

#include "ipmcd/bound_socket.h"
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

/// Takes requests from the IPMI socket and sends their answers to where they came from.
class ipmi_port
{
public:
    ipmi_port(event_loop &loop, const bound_socket &socket, service &ipmi);

private:
    void receive();
    void send(std::span<const uint8_t> datagram, const std::string &client);
    void send_later(std::chrono::milliseconds delay, std::vector<uint8_t> datagram, const std::string &client);

    event_loop &loop;
    int fd;
    service &ipmi;
    std::list<std::unique_ptr<timer>> late;  // one for each answer that is still to go out
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

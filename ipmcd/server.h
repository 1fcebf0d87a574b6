/// The event loop: the IPMI socket, the control socket, timers and signals.
#pragma once

#include "ipmcd/bound_socket.h"
#include "ipmcd/event_owner.h"
#include "ipmcd/requests.h"
#include "ipmcd/scheduler.h"
#include "ipmcd/worker.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ipmcd
{

class control;
struct delivery;
class service;

class event_loop final : public scheduler
{
public:
    event_loop();
    std::chrono::milliseconds now() const override;
    std::unique_ptr<timer> make_timer(std::function<void()> when_due) override;
    void in_background(uint32_t account, std::function<void()> work, background_result then) override;
    event_base *get() { return base.get(); }
    /// Runs until SIGTERM or SIGINT.
    void run();

private:
    event_owner<event_base> base;
    event_owner<event> on_terminate;
    event_owner<event> on_interrupt;
    std::optional<worker> thread;  // since there was work for one
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
    void serve(waiting_request request);
    void deliver(std::optional<delivery> answer, const destination &to, const sender &from);
    void send(std::span<const uint8_t> datagram, const destination &to);
    void send_later(std::chrono::milliseconds delay, std::vector<uint8_t> datagram, const destination &to);
    void replace_when_filled();

    event_loop &loop;
    bound_socket &socket;
    service &ipmi;
    request_queue waiting;
    bool is_serving = false;
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

/// Requests that wait for their turn. Each account has one, and each of its sockets has one within it, so nobody waits
/// for more than one request of anybody else, however many somebody sends.
#pragma once

#include "ipmcd/bound_socket.h"

#include <compare>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ipmcd
{

/// Where a request comes from, as the kernel says: the account, and the address of the socket.
struct sender {
    uint32_t account = 0;
    std::string address;
};

struct waiting_request {
    sender from;
    std::shared_ptr<const descriptor> via;  // the socket that it came by, and that the answer has to leave by
    std::vector<uint8_t> datagram;
};

class request_queue
{
public:
    /// What a socket may have waiting. Once its account has `many_of_account`, it is one for each socket, and none
    /// beyond `most_of_account`.
    static constexpr size_t most_of_socket = 256, many_of_account = 1024, most_of_account = 4096;

    /// False: too many of this sender's wait, and this one is dropped.
    bool add(waiting_request added);
    /// The one whose turn it is. Its sender has no other turn until `done`, so answers keep the order of requests.
    std::optional<waiting_request> next();
    /// The request that `next` gave out is answered, or needs no answer.
    void done(const sender &from);
    bool empty() const { return turns.empty(); }

private:
    struct account {
        std::map<std::string, std::deque<waiting_request>> sockets;  // those with requests, here or given out
        std::deque<std::string> turns;                               // of sockets
        size_t count = 0;
    };
    void give_turn(uint32_t number, account &owner, const std::string &address);

    std::map<uint32_t, account> accounts;  // those with requests, here or given out
    std::deque<uint32_t> turns;            // of accounts
};

}  // namespace ipmcd

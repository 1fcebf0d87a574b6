#include "ipmcd/requests.h"

#include <utility>

namespace ipmcd
{

void request_queue::give_turn(uint32_t number, account &owner, const std::string &address)
{
    owner.turns.push_back(address);
    if (owner.turns.size() == 1)
        turns.push_back(number);
}

bool request_queue::add(waiting_request added)
{
    account &owner = accounts[added.from.account];
    const auto [socket, is_new] = owner.sockets.try_emplace(added.from.address);
    auto &waiting = socket->second;
    const size_t most = owner.count < many_of_account ? most_of_socket : owner.count < most_of_account ? 1 : 0;
    if (waiting.size() >= most) {
        if (is_new)
            owner.sockets.erase(socket);
        return false;
    }
    owner.count++;
    waiting.push_back(std::move(added));
    if (is_new)
        give_turn(waiting.back().from.account, owner, socket->first);
    return true;
}

std::optional<waiting_request> request_queue::next()
{
    if (turns.empty())
        return std::nullopt;
    const uint32_t number = turns.front();
    turns.pop_front();
    account &owner = accounts.at(number);
    auto &waiting = owner.sockets.at(owner.turns.front());
    owner.turns.pop_front();
    if (!owner.turns.empty())
        turns.push_back(number);
    waiting_request taken = std::move(waiting.front());
    waiting.pop_front();
    owner.count--;
    return taken;
}

void request_queue::done(const sender &from)
{
    const auto found = accounts.find(from.account);
    account &owner = found->second;
    const auto socket = owner.sockets.find(from.address);
    if (!socket->second.empty())
        give_turn(from.account, owner, from.address);
    else if (owner.sockets.erase(socket); owner.sockets.empty())
        accounts.erase(found);
}

}  // namespace ipmcd

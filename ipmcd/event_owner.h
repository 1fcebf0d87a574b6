/// Things of the event library that free themselves.
#pragma once

#include <event2/bufferevent.h>
#include <event2/event.h>
#include <event2/listener.h>
#include <memory>
#include <stdexcept>

namespace ipmcd
{

struct event_deleter {
    void operator()(event_base *it) const { event_base_free(it); }
    void operator()(event *it) const { event_free(it); }
    void operator()(evconnlistener *it) const { evconnlistener_free(it); }
    void operator()(bufferevent *it) const { bufferevent_free(it); }
};
template <typename type>
using event_owner = std::unique_ptr<type, event_deleter>;

/// What the event library made, which is null only when there is no memory.
template <typename type>
type *made(type *it)
{
    if (!it)
        throw std::runtime_error("the event loop cannot be set up");
    return it;
}

}  // namespace ipmcd

/// The controller's network services: whether each runs, and on which port.
#pragma once

#include "ui/invocation.h"

#include <cstdint>

/// -v SERVICE enabled|disabled
command_handler service_state;
/// -v SERVICE PORT
command_handler service_port;

/// Port kinds: the plain web server's and the secure one's.
constexpr uint8_t http = 1, https = 2;

struct service {
    const char *name;    // empty ends the table
    uint8_t id;          // what the controller calls it
    uint8_t selectable;  // 1 = for the commands here
    uint8_t port_kind;
};
extern const service *const state_table, *const port_table;

/// The last selectable row of that name; null when there is none, or no name.
const service *find_service(const service *table, const char *name);
/// By both tables in turn, where the last match counts; 0 = no service.
uint8_t port_kind_of(const char *name);

/// Record that a port is set, or is not. It is recorded as a signed number, -1 for what is none.
void log_port_set(uint8_t port_kind, uint32_t port);
/// A kind of 0 gives a record without a text. Returns 0.
int port_failed(uint8_t port_kind, uint32_t port);

/// The four destinations that SNMP traps go to, and the switches of each and of all.
#pragma once

#include "ui/invocation.h"

#include <cstdint>
#include <span>

/// -v DESTINATION ADDRESS
command_handler trap_address;
/// -v DESTINATION PORT
command_handler trap_port;
/// -v [DESTINATION] enabled|disabled
command_handler trap_state;

/// Sets the address of destination 1 to 4: type 0 and four bytes, or type 1 and sixteen, in network order. Prints the
/// outcome, logs nothing. 1 = set; null bytes give 0 at once.
int set_trap_dest_address(uint8_t destination, uint8_t type, const uint8_t *bytes, size_t length);
/// Switch trap sending, as a whole or to one destination. `word` is "enabled" or "disabled", as `state` says; null is
/// refused with a text. Print and log. 1 = set.
int set_trap_state(uint8_t state, const char *word);
int set_trap_dest_state(uint32_t destination, uint8_t state, const char *word);

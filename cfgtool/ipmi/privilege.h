/// Who may run a command.
#pragma once

#include <cstdint>

/// Asks the controller for the caller's privilege limit and compares it with the level a command requires (IPMI
/// numbering, 4 = Administrator). Takes the first four arguments of a handler. Root may do everything and is not asked
/// about; controller user N is system account 500 + N.
///   returns  1 = allowed; 0 = refused, and the reason is printed
int check_privilege(uint8_t level, uint8_t argc, char **argv, const char *target);

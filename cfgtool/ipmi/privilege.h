/// Who may run a command.
#pragma once

#include "ui/invocation.h"

/// Asks the controller for the caller's privilege limit and compares it with the level that the command requires (IPMI
/// numbering, 4 = Administrator). Root may do everything and is not asked about; controller user N is system account
/// 500 + N.
///   returns  1 = allowed; 0 = refused, and the reason is printed
int check_privilege(const invocation &typed);

/// The same without a text. Null = allowed, else the reason why not; where the controller could not be asked,
/// g_error_code has the error code.
const char *privilege_refusal(uint8_t level);

/// The controller's local users, and the proof that the caller is one of them.
#pragma once

#include "ipmi/request.h"

#include <cstdint>

/// A user id is the index. 0 and 1 (the anonymous user) are never listed or assigned.
struct user_entry {
    char name[17];      // empty = a free slot
    uint8_t privilege;  // channel privilege limit: 1 callback, 2 user, 3 operator, 4 administrator, 15 no access
};
constexpr uint8_t first_user = 2, user_limit = 18;
extern user_entry user_table[user_limit];

/// Fills user_table from the controller; what was read before a failure stays.
///   returns  1 = filled; 0 = not, and g_error_code says why
int refresh_user_table();

/// The id of the user with exactly this name; user_limit (18) = none, as for an empty name. Kept: records of failures
/// show that 18 as the user's id.
uint8_t find_user(const char *name);

/// The user id behind the login that runs the tool: account 500 + id, root counts as user 2. -1 = none.
int caller_user();

/// Asks for the password of the caller's own account and has the controller check it. Refreshes user_table.
///   returns  0 = it is right; -1 = it is not, or cannot be checked; the reason is printed, except that nothing is said
///            of a failed refresh and of a caller without a user
int verify_caller_password();

/// The OEM function that checks a password, and that unlocks who failed too often.
constexpr uint8_t check_password_function = 0x11;

/// Set User Name. An empty name clears the slot.
ipmi_request set_user_name_request(uint8_t user, const char *name);
/// Sends it, patiently. 1 = set; 0 = not, and g_error_code says why.
int set_user_name(uint8_t user, const char *name);

/// Set User Password, enabling the user and leaving the password alone.
ipmi_request enable_user_request(uint8_t user);

/// What the controller demands of a password: shown when it refuses one.
void print_password_rules();

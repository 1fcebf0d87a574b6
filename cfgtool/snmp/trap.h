/// What the controller's SNMP trap sender sends, and how.
#pragma once

#include "ui/invocation.h"

/// No words: asks for the community, hidden, twice.
command_handler trap_community;
/// -v V1|V2C|V3
command_handler trap_version;
/// -v NAME
command_handler trap_user;
/// -v 1|2|3|4
command_handler trap_auth_priv_protocol;
/// -v 0|1|2|3
command_handler trap_severity;
/// -v 0|1
command_handler trap_mode;

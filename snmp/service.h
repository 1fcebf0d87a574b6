/// The controller's network services: whether each runs, and on which port.
#pragma once

#include "cli/registry.h"

/// -v SERVICE enabled|disabled
command_handler service_state;
/// -v SERVICE PORT
command_handler service_port;

/// The front panel and the screen: identify LED, serial connector, screen snapshot.
#pragma once

#include "ui/invocation.h"

/// No words, -v SECONDS or -v force: the identify (UID) LED.
command_handler identify;
/// -v 0|1: what the front panel's serial connector leads to, the host or the controller.
command_handler serialdir;
/// No words or -v wakeup: the controller saves a snapshot of the host's screen.
command_handler printscreen;

/// The controller's firmware: upgrade from an image file on its own disk, and the way back.
#pragma once

#include "ui/invocation.h"

/// No words, -v PATH, -v 0|1, or -v PATH 0|1: 1 = reboot into the new image, 0 = leave it waiting.
command_handler upgrade;
/// Words are ignored: back to the image before.
command_handler rollback;

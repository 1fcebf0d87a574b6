/// Diagnostic data that the controller collects into files of its own.
#pragma once

#include "ui/invocation.h"

/// -v 0|1|2|3: serial-over-LAN output, black box, video, screen pictures.
command_handler download;

/// What is written to the host's boot options: CMOS clear, boot device, BIOS write protection.
#pragma once

#include "ui/invocation.h"

/// No words: the host's firmware clears its CMOS settings.
command_handler clearcmos;
/// -v OPTION: the device of the next host boot.
command_handler bootdevice;
/// -v 0|1: BIOS flash write protection off or on.
command_handler bioswriteprotect;

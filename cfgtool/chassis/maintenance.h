/// Service operations on the controller's own hardware and processes, and the name its web interface announces.
#pragma once

#include "ui/invocation.h"

/// No words: the board EEPROM into /tmp/eeprom.bin.
command_handler readeeprom;
/// No words: the host's BIOS flash into /tmp/bios.bin.
command_handler downloadbios;
/// -v FILE: a BIOS image of 8 or 16 MiB into the host's BIOS flash.
command_handler upgradebios;
/// No words.
command_handler webrestart;
/// -v 1|2: BIOS debug output on, or left to the BIOS setup menu.
command_handler biosprint;
/// -v NAME, up to 255 characters.
command_handler httphost;

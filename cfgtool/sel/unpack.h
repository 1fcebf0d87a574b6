/// The archives of older logs.
#pragma once

#include "sel/own_folder.h"

/// Where an archived log lies when it is unpacked.
constexpr own_folder unpacked_folder = {"/tmp/dev/", "/tmp/dev"};
constexpr char unpacked_log[] = "/tmp/dev/shm/save/reboot_file/sel_bak.bin";

/// Unpacks an archive in /tmp. One of an archive before or of a run that was broken off is gone then.
///   returns  false = what lies there is not to be touched; true as well = there is no log
bool unpack_log(char *archive);

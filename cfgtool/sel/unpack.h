/// The archives of older logs.
#pragma once

#include "sel/own_folder.h"

/// Where an archived log lies when it is unpacked.
constexpr own_folder unpacked_folder = {"/tmp/dev/", "/tmp/dev"};
constexpr char unpacked_log[] = "/tmp/dev/shm/save/reboot_file/sel_bak.bin";

/// Unpacks an archive in /tmp, from where a log that an earlier archive or an interrupted run left is removed first.
/// What the archive brings stays until tidy_tmp().
///   returns  false = what is in the log's place must not be touched; true also when the archive has no log
bool unpack_log(char *archive);

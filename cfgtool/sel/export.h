/// The debug-information command, and the export of the stored event logs that it begins with.
#pragma once

#include "ui/invocation.h"

#include <cstddef>

/// No words.
command_handler zntool;

/// Converts the logs in /data/share/sel/, the live one and the archived ones, and packs the tables into /tmp/sel.tar. A
/// log that cannot be converted does not keep the others out.
///   returns  0 = packed; -1 = there is no file to export, or nowhere to put it
int pack_sel_info();

/// Stores the names of a folder's entries one behind the other, each in a buffer of `name_size` and cut to it, in the
/// folder's own order. Tells when the folder cannot be read, and when `maximum` is reached.
///   returns  the number of names stored
int enum_files(const char *directory, char *names, size_t name_size, int maximum);

/// How far an export is, in percent.
extern int export_progress;

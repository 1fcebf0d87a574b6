/// One SEL file as a table.
#pragma once

/// Writes the records of a SEL file (16 bytes each, IPMI 2.0, SEL Event Records; a partial last one is left out) as
/// CSV, the newest first. Pauses 20 ms after every 100 records, so that the controller's other processes are not
/// starved. The event table must be loaded.
///   returns  1 = written; 0 = a file cannot be opened or written, and a text tells which
int sel_bin2txt(const char *sel_path, const char *csv_path);

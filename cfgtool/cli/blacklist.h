/// /data/blacklist: the commands that are switched off on this controller, one a line, written as one would type them:
///   cfgtool -d DATAITEM             a top-level dataitem
///   cfgtool -t TARGET               a whole target
///   cfgtool -t TARGET -d DATAITEM   one dataitem of a target (all targets but maintenance)
/// Names are found anywhere in the line, not as words.
#pragma once

/// Disables the rows of the registry that the file names. Without a file nothing is disabled and nothing said.
void read_blacklist();

/// The same for the next `length` bytes of an open file, or as many as there are. Takes the same memory whatever the
/// length of the file and of its lines.
void apply_blacklist(int file, unsigned long length);

/// Switches of the board: lines of a GPIO chip, or control files.
#pragma once

/// Sets the switch that a key of the board file names to 0 or 1 and reads it back. 0 = done, -1 = failed, `without_key`
/// = the board file has no such key.
///   held  a GPIO line is held for as long as it is 1, so that nobody else can set it: the descriptor is here, -1 =
///   none
int set_switch(const char *key, int value, int without_key, int *held);

/// What is in /tmp while an archive is unpacked there, which may bring anything.
#pragma once

/// Notes what is in /tmp. A folder on it that was made or changed just before says what its clock shows.
///   returns  false = it could not be noted whole, so nothing must be unpacked
bool note_tmp(const char *changed_just_now);

/// Gives /tmp itself the owner and the mode back that were noted.
void give_back_tmp();

/// Removes what has come to /tmp since it was noted, and gives folders in it their owner and mode back. Spares the work
/// folder and what others seem to have made meanwhile: ordinary files and folders whose time of change lies between the
/// two calls, where an archiver would have set it to what the archive says. Does nothing without a note.
void tidy_tmp();

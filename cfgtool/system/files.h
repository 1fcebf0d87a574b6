/// Files of the controller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <sys/types.h>

/// Length of a file; -1 = it cannot be examined.
long get_file_length(const char *path);

/// As open(), and again when a signal interrupts it.
int open_file(const char *path, int flags, mode_t mode = 0);

/// The mode that open() gives a new file which everybody may read and write: 0666 less the umask.
mode_t mode_of_new_file();

/// Opens a regular file for reading, never a pipe or a device, which could keep the tool waiting or reading for ever.
/// The descriptor; -1 = there is none.
int open_regular(const char *path);

/// Reads up to `size` bytes; fewer at the end of the file or where reading fails.
size_t read_up_to(int file, void *to, size_t size);

/// How putting a new file in the place of a path ended.
enum class replaced { yes, not_opened, not_written };

/// Writes a file beside the path and puts it in its place when it is whole, so that a failure leaves the old file and a
/// link is replaced, not followed. The new file has the mode of any new file, whatever the old one had.
replaced replace_file(const char *path, std::span<const uint8_t> content);

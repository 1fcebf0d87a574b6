/// What the platforms of the tests have in common: the scripted one and the one of the faults. The bounded memory and
/// string calls of platform.h are defined here as well.
#pragma once

#include <dirent.h>
#include <string>
#include <vector>

#define ABI extern "C" [[gnu::visibility("default")]]

/// Copies byte by byte: no register keeps a piece of a secret, to be found where the next routine saves its registers.
void copy_bytes(void *to, const void *from, size_t count);

/// Where a path of the controller lies in a run's own folder. One that lies there already stays.
std::string found_in(const std::string &root, const char *path);

/// Really runs the archiver, with the controller's folders where they lie. What it has to say is not shown.
///   returns  its exit status; -1 = it could not be run
int unpack(const std::string &root, char *const argv[]);

/// The entries of a folder from the first name in the alphabet to the last: they are handed out from the end.
std::vector<dirent> sorted_entries(DIR *folder, dirent *(*next)(DIR *));

/// "Type 04h"
const char *type_name(unsigned char sensor_type);

/// What a handle of the configuration parser stands for.
struct cfg_file {
    std::string text, value;

    /// As KeySearch().
    long find(long start, const char *key, const char *separator, char **value_found, int *found);
};

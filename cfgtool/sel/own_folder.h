/// Folders of our own in /tmp, where anybody may put something in the way, and where an archive may bring anything.
#pragma once

struct own_folder {
    const char *path;  // with a "/" at its end, as the platform is asked to remove it
    const char *name;  // without: the "/" would lead through a link
};

/// Makes a folder that nobody else can write to or, as /tmp is sticky, put another in the place of. What lies there is
/// removed first, but for such a folder: it stays as it is.
///   returns  false = somebody else's lies there and cannot be removed
bool make_folder(const own_folder &folder);

/// The same of a folder that an archive may have given to somebody else, or put a link in the place of.
///   returns  false = what lies there is no folder, or stays somebody else's; true as well = there is nothing
bool take_back_folder(const char *name);

/// Removes a folder. A link in its place goes, and what it leads to stays.
void remove_folder(const own_folder &folder);

/// Removes what lies at a path, most often nothing.
void remove_anything(const char *path);

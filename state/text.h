/// Texts of the controller's own, made fit to be shown.
#pragma once

#include <cstddef>

/// Copies a text; what is not a printable ASCII character becomes \xNN, so that no terminal acts on it. Too long a text
/// is cut. False = some characters had to be replaced.
bool printable(const char *text, char *to, size_t size);

template <size_t size>
bool printable(const char *text, char (&to)[size])
{
    return printable(text, to, size);
}

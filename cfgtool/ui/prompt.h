/// Questions to the operator: confirmations and hidden words.
#pragma once

#include "platform/platform.h"

#include <cstddef>

/// Prints the prompt and reads one character of the terminal's line. The rest of the line is thrown away.
///   returns  true for "y" and "Y"; false for "n" and "N", silently, and for anything else with "Input character
///            invalid.", an empty line and the end of the input included
bool ask_confirm(const char *prompt);

constexpr char continue_prompt[] = "Do you want to continue?[Y/N]:";
/// The warning line of the dangerous commands, then continue_prompt.
bool ask_confirm_with_warning();

/// Reads one key in raw mode; the terminal is as before when it returns.
///   returns  the key's code; -1 at the end of the input or when standard input is no terminal
int read_key();

constexpr unsigned max_password = 20, max_community = 18;

/// Reads a word key by key without showing it. Codes 26 to 127 are taken; 8 and 127 erase; any other key ends it, as
/// Enter does. A key beyond the limit, or an erase with nothing left, rings the bell. Before the first word is read the
/// process is made undumpable.
///   returns  the word in a buffer that the next call overwrites, for the caller to wipe with vos_memset; null when
///            standard input is no terminal or ends
char *read_password(const char *prompt);
/// The same for an SNMP community, in a buffer of its own.
char *read_community(const char *prompt);

/// A hidden word of its own, wiped at its end.
template <unsigned limit, char *(&ask)(const char *prompt)>
class typed_word
{
public:
    char text[limit + 1]{};

    typed_word() = default;
    ~typed_word() { wipe(); }
    typed_word(const typed_word &) = delete;
    typed_word &operator=(const typed_word &) = delete;

    /// Asks for it. False = there is none: no terminal, or the end of the input.
    bool read(const char *prompt)
    {
        wipe();
        char *typed = ask(prompt);
        if (typed == nullptr)
            return false;
        vos_strncpy(text, sizeof text, typed, limit);
        vos_memset(typed, sizeof text, 0, sizeof text);
        return true;
    }
    void wipe() { vos_memset(text, sizeof text, 0, sizeof text); }
};
using typed_password = typed_word<max_password, read_password>;
using typed_community = typed_word<max_community, read_community>;

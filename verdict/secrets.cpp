#include "verdict/secrets.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <unistd.h>

/// Keys that the tool's prompts take as part of a word. Any other would end or shorten it, and what follows it would be
/// typed at the next prompt.
static bool can_be_typed(char c) { return uint8_t(c) >= 26 && uint8_t(c) < 127; }

secret_words::~secret_words() { explicit_bzero(buffer, sizeof buffer); }

void secret_words::read_more()
{
    if (has_ended || filled == sizeof buffer)
        return;
    const ssize_t got = read(from, buffer + filled, sizeof buffer - filled);
    if (got > 0)
        filled += size_t(got);
    else
        has_ended = got == 0 || (errno != EINTR && errno != EAGAIN);
}

secret_words::state secret_words::next()
{
    if (why != nullptr)
        return state::none;
    if (const auto *feed = static_cast<const char *>(memchr(buffer, '\n', filled)))
        return take(size_t(feed - buffer), size_t(feed - buffer) + 1);
    if (filled == sizeof buffer)
        return withhold("a hidden word is too long");
    if (!has_ended)
        return state::incomplete;
    return filled > 0 ? take(filled, filled) : state::none;
}

secret_words::state secret_words::take(size_t end, size_t next_begin)
{
    if (!std::all_of(buffer, buffer + end, can_be_typed))
        return withhold("a hidden word has a byte that cannot be typed");
    word_length = end;
    word_end = next_begin;
    return state::word;
}

secret_words::state secret_words::withhold(const char *reason)
{
    why = reason;
    return state::none;
}

void secret_words::wipe_word()
{
    memmove(buffer, buffer + word_end, filled - word_end);
    filled -= word_end;
    explicit_bzero(buffer + filled, sizeof buffer - filled);
    word_length = word_end = 0;
}

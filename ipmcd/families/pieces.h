/// A text that comes in pieces: offset, length and characters in each, and whether more follow.
#pragma once

#include "ipmcd/bytes.h"
#include "ipmcd/completion.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <string>

namespace ipmcd
{

class text_in_pieces
{
public:
    text_in_pieces(size_t longest_text, size_t longest_piece) : longest(longest_text), longest_part(longest_piece) {}

    void start_anew() { collected.clear(); }
    /// `piece` stands on the byte that says how long the piece is. A piece at offset 0 begins anew, any other has to go
    /// on where the one before it ended. The last one puts the whole text into `whole`; a wrong one changes nothing.
    completion take(size_t offset, bool more_follow, byte_reader &piece, std::string &whole)
    {
        const size_t length = piece.u8();
        if (length > longest_part || offset + length > longest)
            return completion::field_length_exceeded;
        if (piece.left() != length)
            return completion::length_invalid;
        if (offset != 0 && offset != collected.size())
            return completion::out_of_range;
        const auto characters = piece.bytes(length);
        if (!std::ranges::all_of(characters, [](uint8_t byte) { return byte >= 0x20 && byte <= 0x7E; }))
            return completion::invalid_field;
        collected.resize(offset);
        collected.append(characters.begin(), characters.end());
        if (!more_follow)
            whole = std::exchange(collected, {});
        return completion::ok;
    }

private:
    size_t longest, longest_part;
    std::string collected;
};

/// "offset 16, \"text\", more follow", for the trace; stands on the byte that says how long the piece is.
inline std::string words_of_piece(unsigned offset, bool more_follow, byte_reader &piece)
{
    const uint8_t length = piece.u8();
    const auto bytes = piece.bytes(length);
    const std::string characters = quoted({bytes.begin(), bytes.end()});
    return text("offset %u, %s, %s", offset, characters.c_str(), more_follow ? "more follow" : "last");
}

}  // namespace ipmcd

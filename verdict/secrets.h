/// Hidden words, one a line of a descriptor, each read when it is asked for and wiped when it has been handed over.
#pragma once

#include <cstddef>

class secret_words
{
public:
    explicit secret_words(int descriptor) : from(descriptor) {}
    ~secret_words();
    secret_words(const secret_words &) = delete;
    secret_words &operator=(const secret_words &) = delete;

    /// Reads once; call it when the descriptor can be read.
    void read_more();
    enum class state { word, incomplete, none };
    /// The next word of what has been read. After `word`, word() and length() are valid until wipe_word(). After `none`
    /// no word follows.
    state next();
    const char *word() const { return buffer; }
    size_t length() const { return word_length; }
    void wipe_word();

    /// Why a word that was there has not been handed over; null = none was withheld.
    const char *complaint() const { return why; }

private:
    state take(size_t end, size_t next_begin);
    state withhold(const char *reason);

    int from;
    bool has_ended = false;
    const char *why = nullptr;
    size_t filled = 0, word_length = 0, word_end = 0;
    char buffer[1024]{};
};

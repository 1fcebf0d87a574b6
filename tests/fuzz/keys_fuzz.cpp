/// Keys at every kind of prompt, one prompt behind the other, beside an editing of the same keys. An input is the
/// number of prompts, a letter for each, and what is typed.
#include "ui/prompt.h"

#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <optional>

static std::string typed;  // what is still to be read

static int next_key()
{
    if (typed.empty())
        return -1;
    const auto key = static_cast<unsigned char>(typed.front());
    typed.erase(0, 1);
    return key;
}

static std::optional<std::string> expected_word(size_t limit)
{
    std::string word;
    for (int key = next_key(); key != -1; key = next_key()) {
        const bool erases = key == 8 || key == 127;
        if (!erases && (key < 26 || key > 127))
            return word;
        if (!erases && word.size() < limit)
            word += char(key);
        else if (erases && !word.empty())
            word.pop_back();
    }
    return std::nullopt;
}

static bool expected_confirmation()
{
    const int answer = next_key();
    for (int rest = answer; rest != '\n' && rest != -1;)
        rest = next_key();
    return answer == 'y' || answer == 'Y';
}

static void check_word(const char *word, const std::optional<std::string> &wanted)
{
    check((word != nullptr) == wanted.has_value());
    check(word == nullptr || *wanted == word);
}

static void prompt(char letter)
{
    switch (letter) {
    case 'c':
        return check_word(read_community("Community:"), expected_word(max_community));
    case 'k':
        return check(read_key() == next_key());
    case 'y':
        return check(ask_confirm_with_warning() == expected_confirmation());
    default:
        return check_word(read_password("Password:"), expected_word(max_password));
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const std::string prompts = input.line() + 'p';
    typed = input.bytes(size);
    if (typed.empty())
        typed = "\r";
    surroundings found;
    found.keys = typed;
    play(found, [&] {
        for (const char letter : prompts)
            prompt(letter);
    });
    return 0;
}

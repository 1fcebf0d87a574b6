#include "cli/prompt.h"

#include "cli/console.h"

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>

/// What is typed goes from the terminal to the reader and stays in no library buffer on its way.
static void read_unbuffered() { setvbuf(stdin, nullptr, _IONBF, 0); }

// Confirmation ------------------------------------------------------------------------------------------------------

bool ask_confirm(const char *prompt)
{
    say_now("%s", prompt);
    read_unbuffered();
    const int answer = getchar();
    if (answer == 'y' || answer == 'Y')
        return true;
    if (answer != 'n' && answer != 'N')
        say("Input character invalid.");
    return false;
}

bool ask_confirm_with_warning()
{
    say("WARNING: The operation may have many adverse effects");
    return ask_confirm(continue_prompt);
}

// Hidden input ------------------------------------------------------------------------------------------------------

int read_key()
{
    termios before;
    if (tcgetattr(STDIN_FILENO, &before) != 0)
        return -1;
    termios raw = before;
    cfmakeraw(&raw);
    if (tcsetattr(STDIN_FILENO, TCSANOW, &raw) != 0)
        return -1;
    const int key = fgetc(stdin);
    return tcsetattr(STDIN_FILENO, TCSANOW, &before) == 0 ? key : -1;
}

static termios shown_terminal;  // as it was before the first key: what a signal puts back

/// Puts the terminal back for as long as the signal's own effect lasts: for good, or until the process is continued.
static void restore_and_raise(int signal_number)
{
    termios hidden;
    const bool known = tcgetattr(STDIN_FILENO, &hidden) == 0;
    tcsetattr(STDIN_FILENO, TCSANOW, &shown_terminal);

    struct sigaction own;
    struct sigaction standard {
    };
    standard.sa_handler = SIG_DFL;
    sigaction(signal_number, &standard, &own);
    sigset_t only_this, blocked;
    sigemptyset(&only_this);
    sigaddset(&only_this, signal_number);
    raise(signal_number);
    sigprocmask(SIG_UNBLOCK, &only_this, &blocked);  // here it ends or stops
    sigprocmask(SIG_SETMASK, &blocked, nullptr);
    sigaction(signal_number, &own, nullptr);
    if (known)
        tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
}

/// Between the keys of a hidden word the terminal is in its normal mode but for the echo. A signal that ends or stops
/// the tool meanwhile finds it as it was; one that the caller ignores stays ignored.
class hidden_terminal
{
public:
    hidden_terminal() : is_terminal(tcgetattr(STDIN_FILENO, &shown_terminal) == 0)
    {
        if (!is_terminal)
            return;
        struct sigaction restoring {
        };
        restoring.sa_handler = restore_and_raise;
        restoring.sa_flags = SA_RESTART;
        for (size_t n = 0; n < signal_count; ++n) {
            sigaction(signals[n], nullptr, &before[n]);
            if (before[n].sa_handler == SIG_DFL)
                sigaction(signals[n], &restoring, nullptr);
        }
        termios silent = shown_terminal;
        silent.c_lflag &= ~tcflag_t(ECHO | ECHONL);
        tcsetattr(STDIN_FILENO, TCSANOW, &silent);
    }
    ~hidden_terminal()
    {
        if (!is_terminal)
            return;
        tcsetattr(STDIN_FILENO, TCSANOW, &shown_terminal);
        for (size_t n = 0; n < signal_count; ++n)
            sigaction(signals[n], &before[n], nullptr);
    }
    hidden_terminal(const hidden_terminal &) = delete;
    hidden_terminal &operator=(const hidden_terminal &) = delete;

private:
    static constexpr int signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGALRM, SIGUSR1, SIGUSR2, SIGTSTP, SIGTTIN};
    static constexpr size_t signal_count = sizeof signals / sizeof *signals;

    const bool is_terminal;
    struct sigaction before[signal_count];
};

static constexpr int backspace = 8, carriage_return = 13, first_accepted = 26, erase = 127;  // Kept: 26 and not 32

static void ring_bell() { say_now("\a"); }

/// `word` has room for `limit` characters and the terminating zero.
static char *read_hidden(const char *prompt, char *word, size_t limit)
{
    prctl(PR_SET_DUMPABLE, 0);
    read_unbuffered();
    vos_memset(word, limit + 1, 0, limit + 1);
    hidden_terminal hidden;
    say_now("%s", prompt);

    size_t length = 0;
    int key;
    while ((key = read_key()) != -1 && key != carriage_return) {
        const bool erases = key == backspace || key == erase;
        if (!erases && (key < first_accepted || key > erase))
            break;  // any other control key ends the word as Enter does
        if (erases && length > 0)
            word[--length] = '\0';
        else if (erases || length == limit)
            ring_bell();
        else
            word[length++] = char(key);
    }
    if (key == -1) {
        vos_memset(word, limit + 1, 0, limit + 1);
        return nullptr;
    }
    say_raw("\n");
    return word;
}

char *read_password(const char *prompt)
{
    static char word[max_password + 1];
    return read_hidden(prompt, word, max_password);
}

char *read_community(const char *prompt)
{
    static char word[max_community + 1];
    return read_hidden(prompt, word, max_community);
}

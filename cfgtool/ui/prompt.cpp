#include "ui/prompt.h"

#include "ui/console.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <poll.h>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>

/// What is typed goes from the terminal to the reader and stays in no library buffer on its way.
static void read_unbuffered()
{
    static bool done;
    if (!done)
        setvbuf(stdin, nullptr, _IONBF, 0);
    done = true;
}

// Confirmation ------------------------------------------------------------------------------------------------------

/// What was typed behind the answer must not become a command of the shell that started the tool.
static void discard_rest_of_line()
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (isatty(STDIN_FILENO) != 1)
        return;
    for (int typed = 0; typed != '\n' && typed != EOF && poll(&input, 1, 0) == 1;)
        typed = getchar();
}

bool ask_confirm(const char *prompt)
{
    ask_question(prompt);
    read_unbuffered();
    const int answer = getchar();
    if (answer != '\n' && answer != EOF)
        discard_rest_of_line();
    if (answer == 'y' || answer == 'Y')
        return true;
    if (answer == 'n' || answer == 'N')
        refuse_silently();
    else
        refuse("Input character invalid.");
    return false;
}

bool ask_confirm_with_warning()
{
    say("WARNING: The operation may have many adverse effects");
    return ask_confirm(continue_prompt);
}

// Hidden input ------------------------------------------------------------------------------------------------------

static termios shown_mode;                   // as it was before the first key: what a signal puts back
static const termios *volatile wanted_mode;  // what the terminal is to be in when the process is continued

int read_key()
{
    static termios raw;
    termios before;
    if (tcgetattr(STDIN_FILENO, &before) != 0)
        return -1;
    raw = before;
    cfmakeraw(&raw);
    const termios *const mode_between_keys = wanted_mode;
    wanted_mode = &raw;
    const int key = tcsetattr(STDIN_FILENO, TCSANOW, &raw) == 0 ? fgetc(stdin) : -1;
    wanted_mode = mode_between_keys;
    return tcsetattr(STDIN_FILENO, TCSANOW, &before) == 0 ? key : -1;
}

/// The terminal of a job in the background belongs to others. One that is nobody's, a console without job control, is
/// ours.
static void set_mode_in_foreground(const termios *mode)
{
    const pid_t owner = tcgetpgrp(STDIN_FILENO);
    if (owner == -1 || owner == getpgrp())
        tcsetattr(STDIN_FILENO, TCSANOW, mode);
}

/// Puts the terminal back for as long as the signal's own effect lasts: for good, or until the process is continued.
static void restore_and_raise(int signal_number)
{
    const int error = errno;
    set_mode_in_foreground(&shown_mode);
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
    set_mode_in_foreground(wanted_mode);
    errno = error;
}

/// However it was stopped, whoever had the terminal meanwhile.
static void hide_again(int)
{
    const int error = errno;
    set_mode_in_foreground(wanted_mode);
    errno = error;
}

/// Between the keys of a hidden word the terminal is in its normal mode but for the echo. A signal that ends or stops
/// the tool meanwhile finds it as it was; one that the caller ignores stays ignored.
class hidden_terminal
{
public:
    hidden_terminal() : is_terminal(tcgetattr(STDIN_FILENO, &shown_mode) == 0)
    {
        sigemptyset(&caught);
        if (!is_terminal)
            return;
        silent_mode = shown_mode;
        silent_mode.c_lflag &= ~tcflag_t(ECHO | ECHONL);
        wanted_mode = &silent_mode;
        for (int number = 1; number <= SIGRTMAX; ++number)
            if (number != SIGCHLD && number != SIGURG && number != SIGWINCH && number != SIGTTOU)  // these end nothing
                catch_signal(number, number == SIGCONT ? hide_again : restore_and_raise);
        is_hidden = tcsetattr(STDIN_FILENO, TCSANOW, &silent_mode) == 0;
    }
    ~hidden_terminal()
    {
        if (!is_terminal)
            return;
        wanted_mode = &shown_mode;  // also when the tool is stopped before the signals have their own effect again
        tcsetattr(STDIN_FILENO, TCSANOW, &shown_mode);
        for (int number = 1; number <= SIGRTMAX; ++number)
            if (sigismember(&caught, number) == 1)
                signal(number, SIG_DFL);
        wanted_mode = nullptr;
    }
    /// Else what is typed between two keys would show.
    bool hides() const { return is_hidden; }

    hidden_terminal(const hidden_terminal &) = delete;
    hidden_terminal &operator=(const hidden_terminal &) = delete;

private:
    void catch_signal(int number, void (*handler)(int))
    {
        struct sigaction present;
        struct sigaction own {
        };
        own.sa_handler = handler;
        own.sa_flags = SA_RESTART;
        if (sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_DFL &&
            sigaction(number, &own, nullptr) == 0)
            sigaddset(&caught, number);
    }

    const bool is_terminal;
    bool is_hidden = false;
    termios silent_mode;
    sigset_t caught;
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
    ask_hidden(prompt);

    size_t length = 0;
    int key;
    while ((key = hidden.hides() ? read_key() : -1) != -1 && key != carriage_return) {
        const bool erases = key == backspace || key == erase;
        if (!erases && (key < first_accepted || key > erase))
            break;  // any other key ends the word as Enter does
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

#!/usr/bin/python3
"""Signals and keys at every step of a confirmation and of a hidden word.

TOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs."""
import os
import signal
import termios
import unittest

from session import Session

ENDING = [signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT, signal.SIGALRM, signal.SIGUSR1, signal.SIGXCPU]
ENDING += [signal.SIGRTMIN]
STOPPING = [signal.SIGTSTP, signal.SIGTTIN]

ASKED = b"This operation will reboot IPMC system. Continue? [Y/N]:"
CONFIRMATION = f"""$ cfgtool -d reset
|"{ASKED.decode()}"
keys "as they come"
"""
RESET = CONFIRMATION + """> 06 02  < 00
| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"
"""
RESET_SHOWN = b"Resetting...\r\r\n"  # the terminal makes \r\n of \n

FIRST, SECOND = b"Tricorn8", b"Bicorn"
NEW, AGAIN = '$ cfgtool -t trap -d community\n|"New Community:"\n', '|"\\nConfirm Community:"\n'
CHECKED = f'|"\\n"\ncall vos_check_incorrect_char "{FIRST.decode()}" " "\n|"Confirm Community:"\n'
NOT_THE_SAME = f"""{NEW}secret "{SECOND.decode()}"
{CHECKED}secret "{FIRST.decode()}"
|"\\nConfirm Community error.\\r\\n"
"""
BOTH_SHOWN = b"New Community:\r\nConfirm Community:"
NOT_THE_SAME_SHOWN = BOTH_SHOWN + b"\r\nConfirm Community error.\r\r\n"


class terminal(unittest.TestCase):
    def start(self, *words, **more):
        session = Session(*words, **more)
        self.addCleanup(session.close)
        return session

    def assert_ends(self, session, shown):
        self.assertEqual(session.end(), [])
        self.assertEqual(session.shown, shown)

    # Confirmations ----------------------------------------------------------------------------------------------------

    def at_each_step_of_an_answer(self, signals, events, check):
        """A confirmation before each key of an answer, and before the Enter that hands it over."""
        for number in signals:
            for typed in (b"", b"y", b"ye"):
                with self.subTest(signal=number, typed=typed):
                    session = self.start(events.format(signal.Signals(number).name.removeprefix("SIG")))
                    session.waits_in_line(ASKED)
                    session.type(typed)
                    session.waits_in_line(ASKED + typed)
                    check(session, number, typed)

    def test_a_signal_ends_a_confirmation(self):
        def check(session, number, typed):
            session.send(number)
            self.assert_ends(session, ASKED + typed)

        self.at_each_step_of_an_answer(ENDING, CONFIRMATION + "ends {}\n", check)

    def test_a_stopped_confirmation_goes_on(self):
        def check(session, number, typed):
            session.stop(number)
            self.assertEqual(session.mode(), session.before)
            session.go_on()
            session.type(b"yes"[len(typed) :] + b"\n")
            self.assert_ends(session, ASKED + b"yes\r\n" + RESET_SHOWN)

        self.at_each_step_of_an_answer([*STOPPING, signal.SIGSTOP], RESET, check)

    def test_ctrl_c_and_ctrl_backslash_end_a_confirmation(self):
        for key, shown, name in ((b"\x03", b"^C", "INT"), (b"\x1c", b"^\\", "QUIT")):
            with self.subTest(key=key):
                session = self.start(CONFIRMATION + f"ends {name}\n")
                session.waits_in_line(ASKED)
                session.type(b"y")
                session.waits_in_line(ASKED + b"y")
                session.type(key)
                self.assert_ends(session, ASKED + b"y" + shown)

    def test_ctrl_z_stops_a_confirmation(self):
        session = self.start(RESET)
        session.waits_in_line(ASKED)
        session.type(b"\x1a")
        session.wait_stopped(signal.SIGTSTP)
        self.assertEqual(session.mode(), session.before)
        session.go_on()
        session.type(b"y\n")
        self.assert_ends(session, ASKED + b"^Zy\r\n" + RESET_SHOWN)

    def test_an_answer_is_handed_over_by_enter(self):
        session = self.start(RESET)
        session.waits_in_line(ASKED)
        session.type(b"y")
        session.waits_in_line(ASKED + b"y")  # and not until then
        self.assertNotIn(b"send", session.trace())
        session.type(b"\n")
        self.assert_ends(session, ASKED + b"y\r\n" + RESET_SHOWN)

    def test_the_rest_of_an_answer_does_not_reach_the_shell(self):
        for answer, events in ((b"yes, do\n", RESET), (b"no, don't\n", CONFIRMATION)):
            with self.subTest(answer=answer):
                session = self.start(events)
                session.waits_in_line(ASKED)
                session.type(answer + b"next\n")
                self.assertEqual(session.end(), [])
                os.set_blocking(session.child, False)
                self.assertEqual(os.read(session.child, 100), b"next\n")

    # Hidden words -----------------------------------------------------------------------------------------------------

    def at_each_key(self, events, check, **more):
        """The two prompts of a community, at some of their keys, each waited for in its turn. Checked with the session,
        the keys that are left, the number of the first of them, and what the terminal shows."""
        keys = FIRST + b"\r" + SECOND + b"\r"
        for step in (0, 1, 4, len(FIRST), len(FIRST) + 1, len(FIRST) + 2, len(keys) - 1):
            with self.subTest(keys=keys[:step]):
                at_first = step <= len(FIRST)
                session = self.start(NEW + events(at_first), **more)
                session.type_each(keys[:step])
                session.waits_for_key(step + 1)
                check(session, keys[step:], step + 1, b"New Community:" if at_first else BOTH_SHOWN)

    def end_at_each_key(self, number, **more):
        ends = f"ends {signal.Signals(number).name.removeprefix('SIG')}\n"

        def check(session, _keys, _number, shown):
            session.send(number)
            self.assert_ends(session, shown)

        self.at_each_key(lambda at_first: ends if at_first else CHECKED + ends, check, **more)

    def test_a_signal_ends_a_hidden_word(self):
        for number in ENDING:
            with self.subTest(signal=number):
                self.end_at_each_key(number)

    def test_a_signal_ends_a_hidden_word_on_a_console_without_job_control(self):
        self.end_at_each_key(signal.SIGTERM, job=False)

    def stop_at_each_key(self, stop, **more):
        """Stopped and continued, the tool goes on with the key that it waited for; nothing is shown."""

        def check(session, keys, *_):
            stop(session)
            self.assertEqual(session.mode(), session.before)
            self.go_on_hidden(session)
            session.type_each(keys, session.modes().count("raw"))
            self.assert_ends(session, NOT_THE_SAME_SHOWN)

        self.at_each_key(lambda _: NOT_THE_SAME.removeprefix(NEW), check, **more)

    def go_on_hidden(self, session):
        modes = len(session.modes())
        session.go_on()
        session.until("the terminal is hidden again", lambda: session.modes()[modes:][-1:] == ["raw"])
        session.until("a key is waited for", lambda: session.state() == "S")
        self.assertFalse(session.mode()[3] & (termios.ECHO | termios.ICANON))

    def test_a_stopped_hidden_word_shows_the_terminal_and_hides_it_again(self):
        for number in STOPPING:
            with self.subTest(signal=number):
                self.stop_at_each_key(lambda session, number=number: session.stop(number))

    @staticmethod
    def stop_without_notice(session):
        session.stop(signal.SIGSTOP)
        termios.tcsetattr(session.child, termios.TCSANOW, session.before)  # as a shell does

    def test_a_tool_that_is_stopped_without_notice_hides_the_terminal_again(self):
        self.stop_at_each_key(self.stop_without_notice)

    def test_on_a_console_without_job_control_it_does_so_too(self):
        self.stop_at_each_key(self.stop_without_notice, job=False)

    def test_in_the_background_the_terminal_is_left_alone(self):
        def stop(session):
            session.stop(signal.SIGTSTP)
            session.to_background()
            session.go_on()
            session.wait_stopped(signal.SIGTTIN)  # nobody reads keys in the background
            self.assertEqual(session.mode(), session.before)
            session.to_foreground()

        self.stop_at_each_key(stop)

    def test_a_signal_that_the_caller_ignores_stays_ignored(self):
        ignored = [signal.SIGHUP, signal.SIGINT, signal.SIGTSTP]

        def check(session, keys, number, _shown):
            for each in ignored:
                session.send(each)
            session.type_each(keys, number)
            self.assert_ends(session, NOT_THE_SAME_SHOWN)

        self.at_each_key(lambda _: NOT_THE_SAME.removeprefix(NEW), check, ignored=ignored)

    def test_ctrl_z_is_a_character_of_a_hidden_word_and_ctrl_c_its_end(self):
        events = f'{NEW}|"\\n"\ncall vos_check_incorrect_char "a\\x1Ab\\x1Cc" " "\n|"Confirm Community:"\n'
        session = self.start(events + '|"\\nConfirm Community error.\\r\\n"\n')
        session.type_each(b"a\x1ab\x1cc\x03\x03")
        self.assert_ends(session, NOT_THE_SAME_SHOWN)

    # Between two keys the tool rings a bell, on a terminal that takes no output at the moment -------------------------

    def between_keys(self, events):
        session = self.start(NEW + events)
        session.waits_for_key(1)
        termios.tcflow(session.child, termios.TCOOFF)
        session.type(b"\x7f")
        session.until("between keys", lambda: session.modes()[-3:] == ["hidden", "raw", "hidden"])
        session.until("the bell waits", lambda: session.state() == "S")
        mode = session.mode()[3]
        self.assertTrue(mode & termios.ICANON and mode & termios.ISIG)
        self.assertFalse(mode & termios.ECHO)
        return session

    def test_a_signal_between_two_keys(self):
        for number in ENDING:
            with self.subTest(signal=number):
                session = self.between_keys(f"ends {signal.Signals(number).name.removeprefix('SIG')}\n")
                session.send(number)
                self.assert_ends(session, b"New Community:")

    def test_ctrl_c_between_two_keys(self):
        session = self.between_keys("ends INT\n")
        session.type(b"\x03")
        self.assert_ends(session, b"New Community:")

    def test_ctrl_z_between_two_keys(self):
        session = self.between_keys('|"\\a"\n' + NOT_THE_SAME.removeprefix(NEW))
        session.type(b"\x1a")
        session.wait_stopped(signal.SIGTSTP)
        self.assertEqual(session.mode(), session.before)
        session.go_on()
        session.until("hidden again", lambda: session.modes()[-1] == "hidden")
        termios.tcflow(session.child, termios.TCOON)
        session.until("a key is asked for", lambda: session.modes()[-1] == "raw")
        session.type_each(FIRST + b"\r" + SECOND + b"\r", session.modes().count("raw"))
        self.assert_ends(session, NOT_THE_SAME_SHOWN.replace(b":", b":\a", 1))

    # The end of the input ---------------------------------------------------------------------------------------------

    def test_a_terminal_that_hangs_up_gives_no_word(self):
        endings = {True: '|"Usage: Input New Community error \\r\\n"\n', False: '|"Confirm Community error \\r\\n"\n'}

        def events(first):
            found = f'secret "{FIRST.decode()}"\n' if first else f'{CHECKED}secret "{FIRST.decode()}"\n'
            return found + endings[first]

        def check(session, *_):
            session.hang_up()
            self.assertEqual(session.end(), [])

        self.at_each_key(events, check, job=False, screen=False)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""What programs are told while the tool waits for its operator, and what they are never told.

TOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs."""
import signal
import unittest

from session import Session

QUESTION = "This operation will reboot IPMC system. Continue? [Y/N]:"
ASKED = f'$ cfgtool -d reset\nconfirm|"{QUESTION}"\nkeys "as they come"\n'
BEGUN = b"version\t1\ncommand\t\treset\nconfirm\t\t" + QUESTION.encode() + b"\n"

WORD = b"Tricorn8"
HIDDEN = f"""$ cfgtool -t tr -d comm
hidden|"New Community:"
keys "as they come"
|"\\n"
call vos_check_incorrect_char "{WORD.decode()}" " "
hidden|"Confirm Community:"
|"\\n"
refuse| Confirm Community error.
"""


class status(unittest.TestCase):
    def start(self, text):
        session = Session(text, status=True)
        self.addCleanup(session.close)
        return session

    def test_a_question_is_told_before_it_waits_for_the_answer(self):
        session = self.start(ASKED + '> 06 02  < 00\ndone| Resetting...\n'
                             'log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"\n')
        session.waits_in_line(QUESTION.encode())
        self.assertEqual(session.told_to_programs(), BEGUN)
        session.type(b"y\n")
        self.assertEqual(session.end(), [])

    def test_a_no_is_told_though_nothing_is_shown(self):
        session = self.start(ASKED + 'refuse|""\n')
        session.waits_in_line(QUESTION.encode())
        session.type(b"n\n")
        self.assertEqual(session.end(), [])
        self.assertEqual(session.told_to_programs(), BEGUN + b"refused\t\t\nend\n")

    def test_a_hidden_word_is_asked_for_before_its_first_key_and_never_told(self):
        session = self.start(HIDDEN)
        session.waits_for_key(1)
        self.assertEqual(session.told_to_programs(), b"version\t1\ncommand\ttrap\tcommunity\nhidden\t\tNew Community:\n")
        key = session.type_each(WORD + b"\r")
        session.type_each(b"Bicorn\r", key)
        self.assertEqual(session.end(), [])
        for part in (WORD[:4], WORD[4:], b"Bicorn"):
            self.assertNotIn(part, session.told_to_programs())

    def test_a_signal_that_ends_it_leaves_no_end(self):
        session = self.start(ASKED + "ends TERM\n")
        session.waits_in_line(QUESTION.encode())
        session.send(signal.SIGTERM)
        self.assertEqual(session.end(), [])
        self.assertEqual(session.told_to_programs(), BEGUN)


if __name__ == "__main__":
    unittest.main()

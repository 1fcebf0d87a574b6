"""That the mutator finds the places it should and no others, and tells a mutant that is caught from one that is not."""

import os
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True

from build import ROOT, Build, text_of  # noqa: E402
from mutate import Trial, order_of, shares  # noqa: E402
from places import File  # noqa: E402
from runs import runs_of  # noqa: E402


def changes(source):
    return [(place.kind, source[place.start : place.end], place.after) for place in File(source).places()]


class Places(unittest.TestCase):
    def test_conditions(self):
        self.assertEqual(
            changes("bool f(int a) { return a < b || !c(a); }"),
            [("condition", "<", "<="), ("condition", "<", ">="), ("condition", "||", "&&"), ("condition", "!", "")],
        )
        self.assertEqual(changes("void f() { if (g(a)) h = k; }"), [("condition", "g(a)", "!(g(a))")])

    def test_constants(self):
        self.assertEqual(
            changes("int a = 9, b = 0x0F, c = 7U, f = 0666; bool d = true; char e = 'x';"),
            [
                ("constant", "9", "10"),
                ("constant", "0x0F", "0x10"),
                ("constant", "7U", "8U"),
                ("constant", "0666", "0667"),
                ("constant", "true", "false"),
                ("constant", "'x'", "char('x' + 1)"),
            ],
        )

    def test_calls_and_exits(self):
        self.assertEqual(changes("void f() { a::b(c)->d(e); }"), [("call", "a::b(c)->d(e);", ";")])
        self.assertEqual(
            changes("int f() { if (!a) return g(b); return c; }"),
            [("condition", "!", ""), ("exit", "return g(b);", ";")],
        )

    def test_arithmetic(self):
        self.assertEqual(changes("int a = b + c;"), [("arithmetic", "+", "-")])

    def test_what_is_left_alone(self):
        for source in (
            "// a < 1\n",
            "/* a == 1 */",
            "#if A == 1\n",
            'auto a = "1 == 1";',
            "static_assert(sizeof(a) == 1);",
            "[[gnu::format(printf, 1, 2)]] void f();",
            "char name[20];",
            "void f(char (&name)[20]);",
            "std::vector<std::pair<int, long>> a;",
            "void f(const char *a, int &&b);",
            "reader r(a);",
        ):
            self.assertEqual(changes(source), [], source)

    def test_lines_stay(self):
        source = "void f()\n{\n    g(a,\n      b);\n    h = 1;\n}\n"
        call, constant = File(source).places()
        self.assertEqual((call.line(source), constant.line(source)), (3, 5))
        self.assertEqual(call.apply(source), "void f()\n{\n    ;\n\n    h = 1;\n}\n")

    def test_a_seed_always_gives_the_same(self):
        text = text_of("cfgtool/ui/arguments.cpp")
        self.assertEqual(order_of("cfgtool/ui/arguments.cpp", text, 7), order_of("cfgtool/ui/arguments.cpp", text, 7))
        self.assertNotEqual(order_of("cfgtool/ui/arguments.cpp", text, 7), order_of("cfgtool/ui/arguments.cpp", text, 8))

    def test_every_file_has_its_share(self):
        self.assertEqual(shares(10, {"large": 90, "small": 10, "none": 0}), {"large": 9, "small": 1, "none": 0})
        self.assertEqual(shares(10, {"a": 2, "b": 3}), {"a": 2, "b": 3})


class Mutants(unittest.TestCase):
    """fanlevel takes 100 as the highest level; a transcript types 0x64, none types 77."""

    @classmethod
    def setUpClass(cls):
        cls.build = Build(os.environ["BUILD"])

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        wanted = ["cfgtool", "-d", "fanlevel", "-v", "0x64"]
        self.runs = [run for run in runs_of(f"{ROOT}/tests/transcripts/chassis/fan.t") if run.argv == wanted]
        self.assertTrue(self.runs)
        self.trial = Trial(self.build, self.runs, None, scratch.name)
        self.source = "cfgtool/chassis/fan.cpp"
        self.text = text_of(self.source)

    def changed(self, after):
        self.assertIn("percent > 100", self.text)
        return self.text.replace("percent > 100", after)

    def caught(self):
        return any(self.trial.catches(run) for run in self.runs)

    def test_caught(self):
        self.assertEqual(self.trial.workshop.make(self.source, self.changed("percent >= 100")), "built")
        self.assertTrue(self.caught())

    def test_caught_by_unit_tests(self):
        """What no command line reaches."""
        source = "cfgtool/user/settings.cpp"
        text = text_of(source)
        self.assertIn("offset += serial_piece", text)
        changed = text.replace("offset += serial_piece", "offset -= serial_piece")
        self.assertEqual(self.trial.workshop.make(source, changed), "built")
        if self.build.linkers["unit-tests"]:
            self.assertTrue(self.trial.workshop.fails("unit tests"))

    def test_survives(self):
        self.assertEqual(self.trial.workshop.make(self.source, self.changed("percent > 100 || percent == 77")), "built")
        self.assertFalse(self.caught())

    def test_does_not_count(self):
        self.assertEqual(self.trial.workshop.make(self.source, self.text), "the same")
        self.assertEqual(self.trial.workshop.make(self.source, self.changed("percent >= 101")), "the same")
        self.assertEqual(self.trial.workshop.make(self.source, self.changed("percent >")), "no C++")


if __name__ == "__main__":
    unittest.main()

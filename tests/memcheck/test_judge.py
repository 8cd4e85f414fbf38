"""What valgrind writes, and how it is judged."""
import os
import tempfile
import unittest

import judge

FOLDER, INTERPRETER = "/build/release", "/build/release/tests/support/plain_heap_python"
MODULE = FOLDER + "/stage/python/kelmo/pluginmodifier.so"
LIBC = "/usr/lib/libc.so.6"
LOADER = "/usr/lib/ld-linux-x86-64.so.2"


def stack(*files):
    return "<stack>%s</stack>" % "".join("<frame><ip>0x1</ip><obj>%s</obj><fn>f</fn></frame>" % file for file in files)


def calls(*functions, file=MODULE):
    return "<stack>%s</stack>" % "".join("<frame><obj>%s</obj><fn>%s</fn></frame>" % (file, name) for name in functions)


def error(kind, *files, stacks=""):
    return "<error><kind>%s</kind><what>Something is wrong</what>%s</error>" % (kind, stacks or stack(*files))


def leak(kind, blocks, *files, stacks=""):
    return ("<error><kind>Leak_%s</kind><xwhat><text>%d blocks</text><leakedbytes>9</leakedbytes>"
            "<leakedblocks>%d</leakedblocks></xwhat>%s</error>" % (kind, blocks, blocks, stacks or stack(*files)))


def report(*errors, state="FINISHED"):
    return ("<?xml version=\"1.0\"?><valgrindoutput><status><state>RUNNING</state></status>%s"
            "<status><state>%s</state></status></valgrindoutput>" % ("".join(errors), state))


# (what it is, the reports by their names, errors, blocks lost, kept, the interpreter's; the text of a problem)
CASES = [
    ("nothing at all", {}, 0, 0, 0, 0, None),
    ("a clean process", {"1.0.xml": report()}, 0, 0, 0, 0, None),
    ("an error of ours", {"1.0.xml": report(error("InvalidRead", MODULE))}, 1, 0, 0, 0, "Something is wrong"),
    ("an error of the interpreter's", {"1.0.xml": report(error("UninitCondition", INTERPRETER))}, 1, 0, 0, 0,
     "Something is wrong"),
    ("a kind that nobody knows", {"1.0.xml": report(error("Novelty", LIBC))}, 1, 0, 0, 0, "Something is wrong"),
    ("a lost block", {"1.0.xml": report(leak("DefinitelyLost", 1, LIBC, MODULE, INTERPRETER))}, 0, 1, 0, 0, "1 blocks"),
    ("blocks that only it knew", {"1.0.xml": report(leak("IndirectlyLost", 3, LIBC, MODULE))}, 0, 3, 0, 0, "3 blocks"),
    ("blocks of the interpreter's", {"1.0.xml": report(leak("DefinitelyLost", 2, LIBC, INTERPRETER, LIBC))},
     0, 0, 0, 2, None),
    ("blocks that are held", {"1.0.xml": report(leak("StillReachable", 2, MODULE), leak("PossiblyLost", 1, MODULE))},
     0, 0, 0, 0, None),
    ("kept on purpose", {"1.4.xml": report(leak("DefinitelyLost", 1, MODULE), leak("IndirectlyLost", 3, MODULE))},
     0, 0, 4, 0, None),
    ("one more than kept", {"1.4.xml": report(leak("DefinitelyLost", 5, MODULE))}, 0, 5, 0, 0, "keeps 4 blocks"),
    ("one less", {"1.4.xml": report(leak("DefinitelyLost", 3, MODULE))}, 0, 3, 0, 0, "keeps 4 blocks"),
    ("none of what is kept", {"1.4.xml": report()}, 0, 0, 0, 0, "keeps 4 blocks"),
    ("the loader's way to compare", {"1.0.xml": report(
        error("InvalidRead", stacks=calls("strncmp", "is_dst", file=LOADER) + stack(MODULE)))}, 0, 0, 0, 0, None),
    ("... in a file of ours", {"1.0.xml": report(error("InvalidRead", stacks=calls("strncmp", "is_dst")))},
     1, 0, 0, 0, "Something is wrong"),
    ("another error of the loader", {"1.0.xml": report(
        error("InvalidRead", stacks=calls("strncmp", "open_path", file=LOADER)))}, 1, 0, 0, 0, "Something is wrong"),
    ("names found by a search", {"1.0.xml": report(leak("DefinitelyLost", 4, stacks=calls(
        "malloc", "PyString_FromString", "newString", "appendName", "f")))}, 0, 0, 0, 0, None),
    ("... and made by another", {"1.0.xml": report(leak("DefinitelyLost", 4, stacks=calls(
        "malloc", "PyString_FromString", "newString", "otherName", "appendName")))}, 0, 4, 0, 0, "4 blocks"),
    ("... or not a name", {"1.0.xml": report(leak("DefinitelyLost", 4, stacks=calls(
        "malloc", "PyList_Append", "appendName", "f")))}, 0, 4, 0, 0, "4 blocks"),
    ("two processes, one of them bad", {"1.0.xml": report(), "2.0.xml": report(error("InvalidFree", MODULE))},
     1, 0, 0, 0, "2.0.xml: "),
    ("a process that was killed", {"1.0.xml": report(state="RUNNING")}, 0, 0, 0, 0, "did not come to its end"),
    ("half a report", {"1.0.xml": report()[:60]}, 0, 0, 0, 0, "no whole report"),
]


class JudgeTest(unittest.TestCase):

    def test_each_report(self):
        for label, reports, errors, lost, kept, others, problem in CASES:
            with self.subTest(label), tempfile.TemporaryDirectory() as folder:
                for name, text in reports.items():
                    with open(os.path.join(folder, name), "w") as file:
                        file.write(text)
                seen = judge.judge(folder, FOLDER, INTERPRETER)
                self.assertEqual((seen.processes, seen.errors, seen.lost, seen.kept, seen.others),
                                 (len(reports), errors, lost, kept, others))
                self.assertEqual(seen.passed(), bool(reports) and problem is None)
                self.assertTrue(problem is None or problem in "\n".join(seen.problems), seen.problems)


if __name__ == "__main__":
    unittest.main()

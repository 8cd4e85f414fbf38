"""Judges what valgrind has written about a run's processes. Every error counts, whoever makes it, but for one of the
system's loader, which compares the words of a search path eight bytes at a time, beyond the end of its own copy.

A lost block counts when a frame of the stack that allocated it is in a file of ours. What the interpreter loses of its
own is only told. A process that keeps blocks on purpose says how many by its report's name, PROCESS.KEPT.xml; then it
keeps exactly as many. One thing is kept by contract: a search refers to each name that it has found once more than its
list does, for ever. Such a name is a lost block in every run; tests/script/faults/test_references.py counts the references.
"""
import os
import xml.etree.ElementTree as ElementTree

LOST = ("Leak_DefinitelyLost", "Leak_IndirectlyLost")
HELD = ("Leak_PossiblyLost", "Leak_StillReachable")
# The loader's innermost functions where it does that.
LOADER = ("strncmp", "is_dst")
# From the C heap to the one place where a found name is made.
FOUND_NAME = ("malloc", "PyString_FromString", "newString", "appendName")


def describe(frame):
    """One frame in a line, as a debugger shows it."""
    place = frame.findtext("obj", "?")
    if frame.find("file") is not None:
        place = "%s:%s" % (frame.findtext("file"), frame.findtext("line", "?"))
    return "%s (%s)" % (frame.findtext("fn", "?"), place)


def is_ours(stack, folder, interpreter):
    """Whether a frame of the stack is in a file under the folder, but for the program that is the interpreter."""
    files = [frame.findtext("obj", "") for frame in stack.iter("frame")]
    return any(file.startswith(folder + os.sep) and file != interpreter for file in files)


def begins_with(stack, names):
    """Whether these are the stack's innermost functions, without the names of what they stand in."""
    functions = [frame.findtext("fn", "") for frame in stack.findall("frame")[:len(names)]]
    return [function.split("(_object")[0].split("::")[-1] for function in functions] == list(names)


def is_loaders(stack):
    """Whether the loader itself reads in its own way."""
    return "/ld-linux" in stack.findtext("frame/obj", "") and begins_with(stack, LOADER)


class Judgement:
    """The sum over all reports."""

    def __init__(self, folder, interpreter):
        self.folder, self.interpreter = folder, interpreter
        self.processes = self.errors = self.lost = self.kept = self.names = self.others = 0
        self.problems = []  # texts

    def passed(self):
        return self.processes > 0 and not self.problems

    def text(self):
        return ("%d processes, %d errors, %d lost blocks (besides %d kept on purpose and %d names found by searches); "
                "the interpreter lost %d of its own"
                % (self.processes, self.errors, self.lost, self.kept, self.names, self.others))

    def problem(self, name, what, stacks=()):
        lines = ["%s: %s" % (name, what)]
        for stack in stacks:
            lines.extend("    " + describe(frame) for frame in stack.iter("frame"))
            lines.append("")
        self.problems.append("\n".join(lines).rstrip())

    def read(self, path):
        """Adds one process's report."""
        name = os.path.basename(path)
        self.processes += 1
        try:
            report = ElementTree.parse(path).getroot()
        except ElementTree.ParseError as error:
            return self.problem(name, "is no whole report: %s" % error)
        if not any(state.text == "FINISHED" for state in report.iter("state")):
            return self.problem(name, "the process did not come to its end")
        lost = []
        for error in report.iter("error"):
            kind, stacks = error.findtext("kind"), error.findall("stack")
            blocks = int(error.findtext("xwhat/leakedblocks", "0"))
            if kind in HELD or kind == "InvalidRead" and is_loaders(stacks[0]):
                continue
            if kind not in LOST:
                self.errors += 1
                self.problem(name, error.findtext("what") or error.findtext("xwhat/text") or kind, stacks)
            elif begins_with(stacks[0], FOUND_NAME):
                self.names += blocks
            elif any(is_ours(stack, self.folder, self.interpreter) for stack in stacks):
                lost.append((blocks, error.findtext("xwhat/text"), stacks))
            else:
                self.others += blocks
        self.count_lost(name, lost)

    def count_lost(self, name, lost):
        kept, found = int(name.split(".")[1]), sum(blocks for blocks, _, _ in lost)
        if found == kept:
            self.kept += kept
            return
        self.lost += found
        if kept:
            self.problem(name, "keeps %d blocks on purpose, and %d were lost" % (kept, found))
        for _, text, stacks in lost:
            self.problem(name, text, stacks)


def judge(reports, folder, interpreter):
    """The judgement of all reports in a folder."""
    judgement = Judgement(folder, interpreter)
    for name in sorted(os.listdir(reports)):
        judgement.read(os.path.join(reports, name))
    return judgement

"""The command line itself: help, version, and every way to get it wrong."""
import unittest

from program import ProgramTest

HELP = '"kelmo-offline{} --help" tells how it is used.\n'


def told(message, command=""):
    return "kelmo-offline: " + message + "\n" + HELP.format(" " + command if command else "")


WRONG = [
    ([], told("a command is missing: run, cat or info")),
    (["rnu"], told('unknown command "rnu"; did you mean "run"?')),
    (["frobnicate"], told('unknown command "frobnicate"')),
    (["--frob"], told('unknown option "--frob"')),
    (["run"], told("SCENE is required", "run")),
    (["run", "scene.kscene"], told("SCRIPT is required", "run")),
    (["cat"], told("SCENE is required", "cat")),
    (["run", "scene.kscene", "a.py", "more"],
     told('unexpected argument "more"; what is meant for the script stands after --', "run")),
    (["cat", "scene.kscene", "more"], told('unexpected argument "more"', "cat")),
    (["info", ""], told("TYPE: the name is empty", "info")),
    (["info", "MtlDiffuse", "more"], told('unexpected argument "more"', "info")),
    (["cat", "scene.kscene", "--", "more"], told('unexpected argument "more"', "cat")),
    (["run", "scene.kscene", "a.py", "--jason"], told('unknown option "--jason"; did you mean "--json"?', "run")),
    (["run", "scene.kscene", "a.py", "--wrong=3"], told('unknown option "--wrong=3"', "run")),
    (["run", "scene.kscene", "a.py", "-x"], told('unknown option "-x"', "run")),
    (["run", "scene.kscene", "a.py", "-o"], told("--output: 1 required OUT missing", "run")),
    (["run", "scene.kscene", "a.py", "-o", ""], told("--output: the name is empty", "run")),
    (["run", "scene.kscene", "a.py", "--defer", "material"],
     told('--defer: "material" is not one of materials, textures, cameras, nodes; did you mean "materials"?', "run")),
    (["cat", "scene.kscene", "--defer", "nodes,"],
     told('--defer: "" is not one of materials, textures, cameras, nodes', "cat")),
]


class Usage(ProgramTest):
    def test_wrong_command_lines(self):
        for arguments, message in WRONG:
            with self.subTest(arguments):
                self.check(self.run_program(*arguments), 2, "", message)

    def test_help(self):
        for arguments, words in [
                (["--help"], ["run", "cat", "info", "Exit codes:", "Examples:"]),
                (["-h"], ["Exit codes:"]),
                (["run", "--help"], ["SCENE", "SCRIPT", "--output", "--dry-run", "--types", "--defer", "--json",
                                     "Examples:", "kelmo-offline run shot.kscene relight.py -o relit.kscene"]),
                (["cat", "--help"], ["SCENE", "--defer", "Examples:", "kelmo-offline cat shot.glb > shot.kscene"]),
                (["info", "--help"], ["TYPE", "--json", "Examples:", "kelmo-offline info MtlDiffuse"])]:
            with self.subTest(arguments):
                result = self.run_program(*arguments)
                self.check(result, 0, err="")
                for word in words:
                    self.assertIn(word, result.out)

    def test_every_exit_code_is_in_the_help(self):
        text = self.run_program("--help").out
        for code in range(7):
            self.assertRegex(text, r"\n  %d  \w" % code)

    def test_version(self):
        result = self.run_program("--version")
        self.check(result, 0, err="")
        self.assertRegex(result.out, r"^kelmo-offline \d+\.\d+\.\d+ \(Python 2\.7\.\d+\+?, scene format 1\)\n$")


if __name__ == "__main__":
    unittest.main()

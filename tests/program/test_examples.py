"""The examples run on the sample scenes and change what the golden listings say.

KELMO_UPDATE_GOLDEN=1 writes the listings anew, to be read before they are committed.
"""
import os
import re
import unittest

from program import EXAMPLES, ROOT, SCENES, ProgramTest

EXPECTED = os.path.join(ROOT, "tests/program/expected")
FORMATS = ["glb", "fbx", "obj"]


class Examples(ProgramTest):
    def compare(self, name, text):
        path = os.path.join(EXPECTED, name)
        if os.environ.get("KELMO_UPDATE_GOLDEN"):
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        with open(path, encoding="utf-8") as file:
            self.assertEqual(text, file.read())

    def run_example(self, script, scene, *arguments):
        result = self.run_program("run", os.path.join(SCENES, scene), os.path.join(EXAMPLES, script), *arguments)
        notes = [line for line in result.err.splitlines() if not line.startswith(os.path.join(SCENES, scene) + ": ")]
        self.assertEqual((result.code, notes), (0, []))
        return result.out

    def test_studio_look(self):
        for kind in FORMATS:
            with self.subTest(kind):
                self.compare("studio_look_%s.txt" % kind,
                             self.run_example("studio_look.py", "studio." + kind, "-o", "out.kscene"))

    def test_saved_look_loads_again(self):
        for kind in FORMATS:
            with self.subTest(kind):
                self.run_example("studio_look.py", "studio." + kind, "-o", "out.kscene")
                again = self.run_program("cat", "out.kscene")
                self.check(again, 0, err="")
                self.assertTrue(again.out == self.read("out.kscene"), "the saved scene changes when it is saved again")

    def test_look_is_refused_twice(self):
        """The second run meets the plugins of the first: it warns, and says where it could not go on."""
        self.run_example("studio_look.py", "studio.glb", "-o", "out.kscene")
        result = self.run_program("run", "out.kscene", os.path.join(EXAMPLES, "studio_look.py"), "-o", "twice.kscene")
        self.assertEqual(result.code, 1)
        self.assertIn('kelmo: warning: A plugin \\"look@sky\\" already exists.\n', result.err)
        self.assertIn("Traceback (most recent call last):\n", result.err)
        self.assertNotIn("twice.kscene", self.names())

    def test_arguments_reach_the_example(self):
        out = self.run_example("studio_look.py", "studio.glb", "--", "--dim", "1", "--statues", "nobody", "--props", "none")
        self.assertNotIn("look@marble", out)
        self.assertNotIn("object_id", out)
        self.assertIn('created  LightEnvironment "look@sky"\n', out)

    def test_inventory(self):
        for kind in FORMATS:
            with self.subTest(kind):
                self.compare("inventory_%s.txt" % kind, self.run_example("inventory.py", "studio." + kind))
        self.assertEqual(self.run_example("inventory.py", "studio.glb", "--", "zzz*"), "nothing matches\nnothing changed\n")

    def test_first_script_of_the_readme(self):
        """The script and its output stand in the README as they are."""
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            readme = file.read()
        script = re.search(r"```python\n(# first\.py\n.*?)```", readme, re.DOTALL).group(1)
        command, shown = re.search(r"```\n\$ kelmo-offline ([^\n]*)\n(.*?)```", readme, re.DOTALL).groups()
        self.write("first.py", script)
        os.symlink(EXAMPLES, self.path("examples"))
        result = self.run_program(*command.split())
        self.assertEqual((result.code, result.err + result.out), (0, shown))


if __name__ == "__main__":
    unittest.main()

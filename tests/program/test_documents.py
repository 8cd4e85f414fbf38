"""The documents: every link leads somewhere, every command that the README names exists, and the examples are true."""
import glob
import os
import re
import unittest

from program import EXAMPLES, ROOT, ProgramTest

DOCUMENTS = sorted(glob.glob(os.path.join(ROOT, "*.md")) + glob.glob(os.path.join(ROOT, "docs/*.md")) +
                   glob.glob(os.path.join(ROOT, "offline/**/*.md"), recursive=True))


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


class Documents(unittest.TestCase):
    def test_links(self):
        links = 0
        for path in DOCUMENTS:
            for target in re.findall(r"\]\(([^)#\s]+)[^)\s]*\)", read(path)):
                if "://" in target:
                    continue
                links += 1
                with self.subTest(document=os.path.relpath(path, ROOT), link=target):
                    self.assertTrue(os.path.exists(os.path.join(os.path.dirname(path), target)))
        self.assertGreater(links, 10)

    def test_commands_and_folders_of_the_readme(self):
        text = read(os.path.join(ROOT, "README.md"))
        named = re.findall(r"`((?:scripts|docs|sceneaccess|offline|windows|tests|bench|examples)/[\w./-]*)`", text)
        self.assertGreater(len(named), 12)
        for name in named:
            with self.subTest(name):
                self.assertTrue(os.path.exists(os.path.join(ROOT, name)))
        for command in sorted(glob.glob(os.path.join(ROOT, "scripts/*"))):
            if os.path.isfile(command):
                with self.subTest(command):
                    self.assertTrue("`scripts/%s`" % os.path.basename(command) in text, "the README does not tell of it")


def blocks(name, language=""):
    """The fenced blocks of a document in this language."""
    found = re.findall(r"^```(\w*)\n(.*?)^```$", read(os.path.join(ROOT, name)), re.DOTALL | re.MULTILINE)
    return [text for kind, text in found if kind == language]


class Examples(ProgramTest):
    def test_first_script_of_the_readme(self):
        script, = [block for block in blocks("README.md", "python") if block.startswith("# first.py\n")]
        transcript, = [block for block in blocks("README.md") if block.startswith("$ kelmo-offline run ")]
        command, printed = transcript.split("\n", 1)
        self.write("first.py", script)
        os.symlink(EXAMPLES, self.path("examples"))
        result = self.run_program(*command.split()[2:])
        self.check(result, 0)
        self.assertEqual(result.err + result.out, printed)
        self.assertIn("darker.kscene", self.names())

    def test_scene_of_the_scene_format(self):
        scene = blocks("docs/scene-format.md")[0]
        self.write("example.kscene", scene)
        self.check(self.run_program("cat", "example.kscene"), 0, scene, "")

    def test_error_of_the_scene_format(self):
        message, = [block for block in blocks("docs/scene-format.md") if block.startswith("[studio.kscene]")]
        line = '{"type":"MtlDiffuse","name":"clay","params":{"color":[0.8,"red",0.3]}}\n'
        self.write("studio.kscene", '{"kelmo-scene":1}\n{"type":"TexChecker","name":"tiles"}\n' + line)
        result = self.run_program("cat", "studio.kscene")
        self.check(result, 4, "", "kelmo-offline: " + message)

    def test_types_of_the_page_on_types(self):
        os.mkdir(self.path("types"))
        self.write("types/example.json", blocks("docs/plugin-types.md", "json")[0])
        result = self.run_program("info", "MtlDiffuse", "--types", "types")
        self.check(result, 0, err="")
        self.assertIn("MtlDiffuse: A matte surface.\n", result.out)
        self.assertIn("  color      texture         [0.5,0.5,0.5,1]  Reflected colour.\n", result.out)


if __name__ == "__main__":
    unittest.main()

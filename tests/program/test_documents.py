"""The documents: every link leads somewhere, and every command that the README names exists."""
import glob
import os
import re
import unittest

from program import ROOT

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
                    self.assertIn("`scripts/%s`" % os.path.basename(command), text)


if __name__ == "__main__":
    unittest.main()

"""Progress is shown on a terminal, wiped afterwards, and silent in a pipe."""
import os
import pty
import re
import unittest

from program import ProgramTest


class Terminal(ProgramTest):
    def on_terminal(self, *arguments, **options):
        """What standard error shows when it is a terminal."""
        leader, follower = pty.openpty()
        self.addCleanup(os.close, leader)
        result = self.run_program(*arguments, stderr=follower, **options)
        os.close(follower)
        seen = b""
        while True:
            try:
                piece = os.read(leader, 4096)
            except OSError:
                break
            if not piece:
                break
            seen += piece
        return result, seen.decode("utf-8")

    def test_progress(self):
        self.write("script.py", "")
        result, seen = self.on_terminal("run", "scene.kscene", "script.py", "-o", "out.kscene")
        self.assertEqual((result.code, result.out), (0, 'nothing changed\nsaved "out.kscene"\n'))
        self.assertEqual(seen, "\r\x1b[Kreading scene.kscene (0.0 MB) ... \r\x1b[K\r\x1b[Ksaving out.kscene ... \r\x1b[K")

    def test_progress_tells_the_seconds(self):
        self.write("shot.glb", "anything")
        self.make_tree("#!/bin/sh\nsleep 2.5\n")
        result, seen = self.on_terminal("cat", "shot.glb", program=self.path("tree/bin/kelmo-offline"))
        self.assertEqual((result.code, result.out), (5, ""))
        line = re.escape("\r\x1b[Ktranslating shot.glb (0.0 MB) ... ")
        end = re.escape('\r\x1b[Kkelmo-offline: The translation of "shot.glb" died: it ended with code 0 and without a '
                        "result.\r\n")
        # A busy machine may see another second.
        self.assertRegex(seen, "^" + line + line + "1 s" + line + "2 s(" + line + "\\d+ s)*" + end + "$")

    def test_silence_in_a_pipe(self):
        self.write("script.py", "")
        self.check(self.run_program("run", "scene.kscene", "script.py", "-o", "out.kscene"), 0, err="")
        self.check(self.run_program("cat", "scene.kscene"), 0, err="")


if __name__ == "__main__":
    unittest.main()

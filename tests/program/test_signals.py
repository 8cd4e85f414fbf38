"""Ctrl-C and SIGTERM: no half-written file, and the caller sees what ended the program."""
import os
import signal
import subprocess
import time
import unittest

from program import INIT, ProgramTest

WAIT = INIT + "import time\nopen('ready', 'w').close()\ntime.sleep(60)\n"


class Signals(ProgramTest):
    def end_by(self, number, *arguments):
        self.write("script.py", WAIT)
        self.write("out.kscene", "precious")
        process = self.start("run", "scene.kscene", "script.py", "-o", "out.kscene", *arguments,
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        deadline = time.monotonic() + 60
        while not os.path.exists(self.path("ready")) and process.poll() is None and time.monotonic() < deadline:
            time.sleep(0.02)
        process.send_signal(number)
        out, err = process.communicate(timeout=60)
        self.assertEqual(process.returncode, -number)
        self.assertEqual(self.read("out.kscene"), "precious")
        self.assertEqual(self.names(), ["out.kscene", "ready", "scene.kscene", "script.py"])
        return out.decode(), err.decode()

    def test_terminated_while_the_script_runs(self):
        self.assertEqual(self.end_by(signal.SIGTERM), ("", ""))

    def test_interrupted_while_the_script_runs(self):
        out, err = self.end_by(signal.SIGINT)
        self.assertEqual(out, "")
        self.assertEqual(err, 'Traceback (most recent call last):\n  File "script.py", line 5, in <module>\n'
                              "    time.sleep(60)\nKeyboardInterrupt\n")

    def test_terminated_while_translating(self):
        """The translating process does not outlive the program."""
        self.write("shot.glb", "anything")
        self.make_tree("#!/bin/sh\necho $$ > started\nmv started pid\nexec sleep 60\n")
        process = self.start("cat", "shot.glb", program=self.path("tree/bin/kelmo-offline"), stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE)
        deadline = time.monotonic() + 60
        while not os.path.exists(self.path("pid")) and process.poll() is None and time.monotonic() < deadline:
            time.sleep(0.02)
        translator = int(self.read("pid"))
        process.terminate()
        self.assertEqual(process.communicate(timeout=60), (b"", b""))
        self.assertEqual(process.returncode, -signal.SIGTERM)
        while self.is_running(translator) and time.monotonic() < deadline:
            time.sleep(0.02)
        self.assertFalse(self.is_running(translator))

    @staticmethod
    def is_running(pid):
        try:
            with open("/proc/%d/stat" % pid) as file:
                return file.read().rsplit(")", 1)[1].split()[0] != "Z"
        except FileNotFoundError:
            return False

    def test_terminated_while_saving(self):
        """A signal at any moment of a long save leaves the old file, or the whole new one, and nothing beside."""
        lines = ['{"kelmo-scene":1}\n'] + ['{"type":"LightPoint","name":"light %d"}\n' % i for i in range(100000)]
        big = self.write("big.kscene", "".join(lines))
        self.write("script.py", "open('ready', 'w').close()\n")
        killed = 0
        for delay in [0.0, 0.02, 0.05, 0.1, 0.2, 0.4]:
            self.write("out.kscene", "old")
            if os.path.exists(self.path("ready")):
                os.unlink(self.path("ready"))
            process = self.start("run", big, "script.py", "-o", "out.kscene", stdout=subprocess.DEVNULL,
                                 stderr=subprocess.PIPE)
            while not os.path.exists(self.path("ready")) and process.poll() is None:
                time.sleep(0.001)
            time.sleep(delay)
            process.terminate()
            self.assertEqual(process.communicate(timeout=120)[1], b"")
            self.assertIn(process.returncode, (0, -signal.SIGTERM))
            kept = self.read("out.kscene")
            self.assertTrue(kept in ("old", "".join(lines)), "a file of %d characters" % len(kept))
            killed += process.returncode != 0
            self.assertEqual(self.names(), ["big.kscene", "out.kscene", "ready", "scene.kscene", "script.py"])
        self.assertGreater(killed, 0)


if __name__ == "__main__":
    unittest.main()

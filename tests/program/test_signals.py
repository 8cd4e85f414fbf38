"""What ends the program from outside, and a script that ends it from within: no half-written file, and the caller sees
what it was."""
import os
import resource
import signal
import subprocess
import time
import unittest

from program import DONE, INIT, ProgramTest

# Ctrl-C may come as soon as the file is there: all of it stands in one line.
WAIT = INIT + "import time\nopen('ready', 'w').close(); time.sleep(60)\n"

# Changes the scene, with values of its own alive, and waits until it may end.
CHANGE = INIT + "pm._delete('key')\npm._setParam('clay', 'color', (5, (1.0, 0.5, 0.25)))\n"
WAIT_FOR_LEAVE = CHANGE + "import os, time\nopen('ready', 'w').close()\n" + (
    "while not os.path.exists('go'): time.sleep(0.01)\n") + DONE

CHANGED_NODE = INIT + "pm._create('GeomNode', 'new')\n" + DONE
PRINTING = INIT + "pm._create('GeomNode', 'new')\nfor i in range(100000): print i\n" + DONE


class Signals(ProgramTest):
    def setUp(self):
        ProgramTest.setUp(self)
        # No program leaves its memory beside its files.
        limits = resource.getrlimit(resource.RLIMIT_CORE)
        resource.setrlimit(resource.RLIMIT_CORE, (0, limits[1]))
        self.addCleanup(resource.setrlimit, resource.RLIMIT_CORE, limits)

    def wait_for(self, name, process):
        deadline = time.monotonic() + 60
        while not os.path.exists(self.path(name)) and process.poll() is None and time.monotonic() < deadline:
            time.sleep(0.02)

    def end_by(self, number, old="precious"):
        """What is printed by a run that this signal ends while the script runs; `old`: what the output held."""
        self.write("script.py", WAIT)
        left = ["ready", "scene.kscene", "script.py"]
        if old is not None:
            self.write("out.kscene", old)
            left.insert(0, "out.kscene")
        process = self.start("run", "scene.kscene", "script.py", "-o", "out.kscene", stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE)
        self.wait_for("ready", process)
        process.send_signal(number)
        out, err = process.communicate(timeout=60)
        self.assertEqual(process.returncode, -number)
        self.assertEqual(self.names(), left)
        if old is not None:
            self.assertEqual(self.read("out.kscene"), old)
        for name in left[:-2]:
            os.unlink(self.path(name))
        return out.decode(), err.decode()

    def test_ended_while_the_script_runs(self):
        for number in [signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT, signal.SIGKILL]:
            for old in ["precious", None]:
                with self.subTest(signal=number, old=old):
                    self.assertEqual(self.end_by(number, old), ("", ""))

    def test_a_signal_that_the_caller_ignores(self):
        """As under nohup: the run goes on to its end."""
        self.write("script.py", WAIT_FOR_LEAVE)
        process = self.start("run", "scene.kscene", "script.py", "-o", "out.kscene", stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE,
                             preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        self.wait_for("ready", process)
        process.send_signal(signal.SIGHUP)
        self.write("go", "")
        self.assertEqual(process.communicate(timeout=60)[1], b"")
        self.assertEqual(process.returncode, 0)
        self.assertIn('"color":[1,0.5,0.25]', self.read("out.kscene"))

    def test_a_script_that_ends_the_program(self):
        """Values of the script are alive; neither Python nor the host is told of the end."""
        for end, code in [("os._exit(7)", 7), ("os.abort()", -signal.SIGABRT),
                          ("os.kill(os.getpid(), signal.SIGKILL)", -signal.SIGKILL)]:
            for old in ["precious", None]:
                with self.subTest(end, old=old):
                    if old is not None:
                        self.write("out.kscene", old)
                    self.check(self.run_script(CHANGE + "import os, signal\n" + end + "\n", "-o", "out.kscene"),
                               code, "", "")
                    self.assertEqual(self.names(), (["out.kscene"] if old else []) + ["scene.kscene", "script.py"])
                    if old is not None:
                        self.assertEqual(self.read("out.kscene"), old)
                        os.unlink(self.path("out.kscene"))

    def test_a_reader_that_has_gone(self):
        """The scene is saved whole, or not at all when the script could not go on."""
        big = self.write("big.kscene", '{"kelmo-scene":1}\n' + '{"type":"GeomNode","name":"node"}\n')
        for arguments, text, code, saved in [
                (["cat", big], None, -signal.SIGPIPE, None), (["info"], None, -signal.SIGPIPE, None),
                (["run", big, "script.py", "-o", "out.kscene"], CHANGED_NODE, 3, '"name":"new"'),
                (["run", big, "script.py", "-o", "out.kscene", "--json"], CHANGED_NODE, 3, '"name":"new"'),
                (["run", big, "script.py", "-o", "out.kscene"], PRINTING, 1, None)]:
            with self.subTest(arguments):
                self.write("script.py", text or "")
                self.write("out.kscene", "precious")
                reading, writing = os.pipe()
                os.close(reading)
                result = self.run_program(*arguments, stdout=writing)
                os.close(writing)
                self.assertEqual(result.code, code, result.err)
                self.assertEqual(self.names(), ["big.kscene", "out.kscene", "scene.kscene", "script.py"])
                if saved is None:
                    self.assertEqual(self.read("out.kscene"), "precious")
                else:
                    self.assertIn(saved, self.read("out.kscene"))

    def test_interrupted_while_the_script_runs(self):
        out, err = self.end_by(signal.SIGINT)
        self.assertEqual(out, "")
        self.assertEqual(err, 'Traceback (most recent call last):\n  File "script.py", line 4, in <module>\n'
                              "    open('ready', 'w').close(); time.sleep(60)\nKeyboardInterrupt\n")

    def test_terminated_while_translating(self):
        """The translating process does not outlive the program."""
        self.write("shot.glb", "anything")
        self.make_tree("#!/bin/sh\necho $$ > started\nmv started pid\nexec sleep 60\n")
        process = self.start("cat", "shot.glb", program=self.path("tree/bin/kelmo-offline"), stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE)
        self.wait_for("pid", process)
        translator = int(self.read("pid"))
        process.terminate()
        self.assertEqual(process.communicate(timeout=60), (b"", b""))
        self.assertEqual(process.returncode, -signal.SIGTERM)
        deadline = time.monotonic() + 60
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

    def test_the_old_file_is_replaced_and_not_written(self):
        """Whoever has opened it goes on reading the old scene, whatever ends the run in between."""
        self.write("out.kscene", "precious")
        with open(self.path("out.kscene"), "rb") as old:
            self.check(self.run_script(CHANGE + DONE, "-o", "out.kscene"), 0, err="")
            self.assertEqual(old.read(), b"precious")
        self.assertIn('"color":[1,0.5,0.25]', self.read("out.kscene"))

    def test_a_signal_waits_until_the_scene_is_saved(self):
        """The reader of a pipe holds up the saving while the signal comes."""
        lines = ['{"kelmo-scene":1}\n'] + ['{"type":"LightPoint","name":"light %d"}\n' % i for i in range(20000)]
        big = self.write("big.kscene", "".join(lines))
        self.write("script.py", "pass\n")
        os.mkfifo(self.path("out.pipe"))
        for number in [signal.SIGTERM, signal.SIGHUP, signal.SIGINT]:
            with self.subTest(signal=number):
                process = self.start("run", big, "script.py", "-o", "out.pipe", stdout=subprocess.DEVNULL,
                                     stderr=subprocess.PIPE)
                with open(self.path("out.pipe"), "rb", buffering=0) as reader:
                    saved = reader.read(10)
                    process.send_signal(number)
                    time.sleep(0.05)
                    saved += reader.readall()
                self.assertEqual(process.communicate(timeout=60)[1], b"")
                self.assertEqual(process.returncode, -number)
                self.assertEqual(saved.decode(), "".join(lines))

    def test_ended_while_saving(self):
        """A signal at any moment of a long save leaves the old file, or the whole new one, and nothing beside."""
        lines = ['{"kelmo-scene":1}\n'] + ['{"type":"LightPoint","name":"light %d"}\n' % i for i in range(100000)]
        big = self.write("big.kscene", "".join(lines))
        self.write("script.py", "open('ready', 'w').close()\n")
        for number in [signal.SIGTERM, signal.SIGHUP, signal.SIGINT]:
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
                process.send_signal(number)
                err = process.communicate(timeout=120)[1]
                # Python may still tell of Ctrl-C.
                self.assertTrue(err == b"" or number == signal.SIGINT, err)
                self.assertIn(process.returncode, (0, -number))
                kept = self.read("out.kscene")
                self.assertTrue(kept in ("old", "".join(lines)), "a file of %d characters" % len(kept))
                killed += process.returncode != 0
                self.assertEqual(self.names(), ["big.kscene", "out.kscene", "ready", "scene.kscene", "script.py"])
            self.assertGreater(killed, 0)


if __name__ == "__main__":
    unittest.main()

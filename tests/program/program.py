"""Runs kelmo-offline in a folder of the test's own and looks at what it printed, left with and wrote."""
import json
import os
import shutil
import subprocess
import tempfile
import time
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PROGRAM = os.environ.get("KELMO_OFFLINE", os.path.join(ROOT, "build/release/stage/bin/kelmo-offline"))
STAGE = os.path.dirname(os.path.dirname(PROGRAM))
SCENES = os.path.join(ROOT, "examples/scenes")
EXAMPLES = os.path.join(ROOT, "examples")

HEADER = '{"kelmo-scene":1,"up":"y","unit":1}\n'
SCENE = HEADER + (
    '{"type":"MtlDiffuse","name":"clay","params":{"color":[0.8,0.45,0.3]}}\n'
    '{"type":"LightPoint","name":"key","params":{"intensity":2}}\n'
    '{"type":"LightPoint","name":"fill"}\n')

# What a script begins with.
IMPORT = "import kelmo.pluginmodifier as pm\n"
INIT = IMPORT + "pm._init()\n"
DONE = "pm._uninit()\n"


class Result:
    def __init__(self, code, out, err):
        self.code, self.out, self.err = code, out, err

    def json(self):
        return json.loads(self.out)


class ProgramTest(unittest.TestCase):
    """`self.run_program` works in a fresh folder that holds scene.kscene."""

    maxDiff = None

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="kelmo-offline-test-")
        self.addCleanup(holder.cleanup)
        self.folder = holder.name
        self.write("scene.kscene", SCENE)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        data = text if isinstance(text, bytes) else text.encode("utf-8")
        with open(self.path(name), "wb") as file:
            file.write(data)
        return name

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read().decode("utf-8")

    def names(self):
        return sorted(os.listdir(self.folder))

    def start(self, *arguments, **options):
        environment = dict(os.environ, **options.pop("environment", {}))
        return subprocess.Popen([options.pop("program", PROGRAM)] + list(arguments), cwd=self.folder, env=environment,
                                stdin=subprocess.DEVNULL, **options)

    def run_program(self, *arguments, **options):
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        process = self.start(*arguments, **options)
        out, err = process.communicate(timeout=120)
        return Result(process.returncode, (out or b"").decode("utf-8"), (err or b"").decode("utf-8"))

    def run_script(self, text, *arguments, scene="scene.kscene", **options):
        self.write("script.py", text)
        return self.run_program("run", scene, "script.py", *arguments, **options)

    def run_through_a_pipe(self, text, *arguments):
        """Runs the program while `text` is written, once, to the named pipe "pipe"."""
        pipe = self.path("pipe")
        if not os.path.exists(pipe):
            os.mkfifo(pipe)
        process = self.start(*arguments, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        while process.poll() is None:
            try:
                descriptor = os.open(pipe, os.O_WRONLY | os.O_NONBLOCK)
            except OSError:  # nobody reads yet
                time.sleep(0.01)
                continue
            os.write(descriptor, text.encode("utf-8"))
            os.close(descriptor)
            break
        out, err = process.communicate(timeout=120)
        return Result(process.returncode, out.decode("utf-8"), err.decode("utf-8"))

    def make_tree(self, translator):
        """A tree like the stage, with a translating program of the test's own (none: None)."""
        for folder in ["bin", "libexec"]:
            os.makedirs(self.path("tree/" + folder))
        for name in ["plug-ins", "lib", "share", "python"]:
            os.symlink(os.path.join(STAGE, name), self.path("tree/" + name))
        shutil.copy(PROGRAM, self.path("tree/bin/kelmo-offline"))
        if translator is not None:
            self.write("tree/libexec/kelmo-translate", translator)
            os.chmod(self.path("tree/libexec/kelmo-translate"), 0o700)

    def run_in_tree(self, *arguments):
        return self.run_program(*arguments, program=self.path("tree/bin/kelmo-offline"))

    def check(self, result, code, out=None, err=None):
        """Compares to the letter what is given."""
        seen = (result.code, result.out, result.err)
        self.assertEqual(seen, (code, result.out if out is None else out, result.err if err is None else err))

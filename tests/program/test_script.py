"""How the script runs: its names, arguments, search path, exceptions and ways to leave."""
import os
import shutil
import unittest

from program import INIT, STAGE, ProgramTest

NOTHING = "nothing changed\n"

LEAVES = [
    # what the script says, exit code, standard error
    ("sys.exit()", 0, ""),
    ("sys.exit(None)", 0, ""),
    ("sys.exit(0)", 0, ""),
    ("sys.exit(False)", 0, ""),
    ("raise SystemExit", 0, ""),
    ("sys.exit(3)", 1, "kelmo-offline: the script left with 3\n"),
    ("sys.exit(-1)", 1, "kelmo-offline: the script left with -1\n"),
    ("sys.exit(256)", 1, "kelmo-offline: the script left with 256\n"),
    ("sys.exit('no lights found')", 1, "no lights found\n"),
    ("sys.exit(u'kein Licht \\xfcbrig')", 1, "kein Licht \u00fcbrig\n"),
    ("sys.exit(('a', 1))", 1, "('a', 1)\n"),
]

RAISES = [
    # the script, the traceback to the letter
    ("x = 1\ny = x / 0\n",
     'Traceback (most recent call last):\n  File "script.py", line 2, in <module>\n    y = x / 0\n'
     "ZeroDivisionError: integer division or modulo by zero\n"),
    ("def f():\n    raise ValueError('odd')\n\nf()\n",
     'Traceback (most recent call last):\n  File "script.py", line 4, in <module>\n    f()\n'
     '  File "script.py", line 2, in f\n    raise ValueError(\'odd\')\nValueError: odd\n'),
    ("print 'a\n",
     "  File \"script.py\", line 1\n    print 'a\n           ^\nSyntaxError: EOL while scanning string literal\n"),
    ("s = '\xe4'\n",
     "  File \"script.py\", line 1\nSyntaxError: Non-ASCII character '\\xc3' in file script.py on line 1, but no "
     "encoding declared; see http://python.org/dev/peps/pep-0263/ for details\n"),
    ("import kelmo.pluginmodifier as pm\npm._findByName('*')\n",
     'Traceback (most recent call last):\n  File "script.py", line 2, in <module>\n    pm._findByName(\'*\')\n'
     "Exception: The kelmo.pluginmodifier module wasn't initialized properly. One possible reason for this error is "
     "that you are trying to execute the script from the Script Editor. The script must be placed inside the special "
     "field that Kelmo provides for Python code (Render Settings / Kelmo Common / MEL/Python Callbacks / Post "
     "Translate Python Script)\n"),
    (INIT + "pm._delete('ghost')\n",
     'Traceback (most recent call last):\n  File "script.py", line 3, in <module>\n    pm._delete(\'ghost\')\n'
     'Exception: The plugin "ghost" doesn\'t exist.\n'),
    ("import sys\nsys.excepthook = lambda *a: sys.exit(0)\nraise KeyError('k')\n",
     'Traceback (most recent call last):\n  File "script.py", line 3, in <module>\n    raise KeyError(\'k\')\n'
     "KeyError: 'k'\n"),
    ("import sys\ndef hook(kind, value, trace): sys.stderr.write('hook: %s\\n' % value)\nsys.excepthook = hook\n"
     "raise ValueError('v')\n", "hook: v\n"),
]


class Script(ProgramTest):
    def test_ways_to_leave(self):
        for text, code, err in LEAVES:
            with self.subTest(text):
                result = self.run_script("import sys\nprint 'before'\n" + text + "\nprint 'after'\n", "-o", "out.kscene")
                out = "before\n" + (NOTHING + 'saved "out.kscene"\n' if code == 0 else "")
                self.check(result, code, out, err)
                self.assertEqual("out.kscene" in self.names(), code == 0)
                if code == 0:
                    os.unlink(self.path("out.kscene"))

    def test_exceptions(self):
        for text, err in RAISES:
            with self.subTest(text):
                self.check(self.run_script(text, "-o", "out.kscene"), 1, "", err)
                self.assertNotIn("out.kscene", self.names())

    def test_names(self):
        result = self.run_script("print __name__, __file__, sorted(k for k in globals())\n")
        self.check(result, 0, "__main__ script.py ['__builtins__', '__doc__', '__file__', '__name__', "
                   "'__package__']\n" + NOTHING, "")

    def test_arguments(self):
        for arguments in [[], ["--"], ["--", "a"], ["--", "a b", "", "--json", "-n", "--", "--help", "\u00e4"]]:
            with self.subTest(arguments):
                result = self.run_script("import sys\nprint sys.argv\n", *arguments)
                shown = [argument.encode("utf-8") for argument in arguments[1:]]
                literal = ", ".join(["'script.py'"] + [repr(argument)[1:] for argument in shown])
                self.check(result, 0, "[" + literal + "]\n" + NOTHING, "")

    def test_search_path(self):
        os.mkdir(self.path("tools"))
        self.write("tools/helper.py", "name = 'helper'\n")
        self.write("tools/job.py", "import sys, helper\nprint sys.path[:2], helper.name\n")
        result = self.run_program("run", "scene.kscene", "tools/job.py",
                                  environment={"PYTHONDONTWRITEBYTECODE": "1"})
        self.check(result, 0, "['%s', 'tools'] helper\n" % os.path.join(STAGE, "python") + NOTHING, "")

    def test_module_is_the_staged_one(self):
        result = self.run_script("import kelmo.pluginmodifier as pm\nprint pm.__file__\n")
        self.check(result, 0, os.path.join(STAGE, "python/kelmo/pluginmodifier.so") + "\n" + NOTHING, "")

    def test_tree_can_be_moved(self):
        shutil.copytree(STAGE, self.path("moved"))
        self.write("script.py", INIT + "import os\nprint pm.__file__, os.environ['KELMO_FOR_MAYA2020_MAIN']\n"
                                "print pm._findByType('LightPoint')\npm._uninit()\n")
        moved = os.path.realpath(self.path("moved"))
        result = self.run_program("run", "scene.kscene", "script.py", program=self.path("moved/bin/kelmo-offline"))
        self.check(result, 0, "%s/python/kelmo/pluginmodifier.so %s\n['key', 'fill']\n" % (moved, moved) + NOTHING, "")

    def test_inherited_root_is_overwritten(self):
        result = self.run_script(INIT + "import os\nprint os.environ['KELMO_FOR_MAYA2020_MAIN']\n"
                                 "print pm._pluginExists('clay')\npm._uninit()\n",
                                 environment={"KELMO_FOR_MAYA2020_MAIN": "/nowhere"})
        self.check(result, 0, STAGE + "\nTrue\n" + NOTHING, "")

    def test_missing_uninit_is_told(self):
        self.check(self.run_script(INIT), 0, NOTHING, "kelmo-offline: the script did not call _uninit()\n")

    def test_streams(self):
        result = self.run_script("import sys\nprint 'to out'\nsys.stderr.write('to err\\n')\n")
        self.check(result, 0, "to out\n" + NOTHING, "to err\n")

    def test_open_line_is_ended(self):
        self.check(self.run_script("print 'half',\n"), 0, "half\n" + NOTHING, "")

    def test_exit_handlers_and_threads_belong_to_the_run(self):
        result = self.run_script(
            INIT + "import atexit, threading\natexit.register(pm._uninit)\natexit.register(lambda: pm._delete('key'))\n"
            "threading.Timer(0.2, lambda: None).start()\n")
        self.check(result, 0, 'deleted  LightPoint "key"\n1 deleted\n', "")

    def test_unreadable_scripts(self):
        os.mkdir(self.path("folder.py"))
        for name, reason in [("missing.py", "No such file or directory"), ("folder.py", "it is a folder"),
                             ("scene.kscene/x.py", "Not a directory")]:
            with self.subTest(name):
                self.check(self.run_program("run", "scene.kscene", name), 4, "",
                           'kelmo-offline: cannot read the script "%s": %s\n' % (name, reason))

    def test_script_from_a_pipe(self):
        for text, code, out, err in [
                ("print 'piped'\n", 0, "piped\n" + NOTHING, ""),
                ("raise KeyError\n", 1, "", 'Traceback (most recent call last):\n  File "{}", line 1, in <module>\n'
                                            "    \nKeyError\n")]:
            reading, writing = os.pipe()
            os.write(writing, text.encode())
            os.close(writing)
            name = "/dev/fd/%d" % reading
            result = self.run_program("run", "scene.kscene", name, pass_fds=[reading])
            os.close(reading)
            self.check(result, code, out, err.format(name))
        # A traceback would wait for the writer of this one.
        os.mkfifo(self.path("pipe.py"))
        self.check(self.run_program("run", "scene.kscene", "pipe.py"), 4, "",
                   'kelmo-offline: cannot read the script "pipe.py": it is a named pipe\n')

    def test_names_beyond_ascii(self):
        self.write("sk\u00fcript \u2603.py", "print __file__\n")
        self.write("sz\u00e4ne.kscene", self.read("scene.kscene"))
        result = self.run_program("run", "sz\u00e4ne.kscene", "sk\u00fcript \u2603.py", "-o", "aus\u00e4.kscene")
        self.check(result, 0, "sk\u00fcript \u2603.py\n" + NOTHING + 'saved "aus\u00e4.kscene"\n', "")
        self.assertEqual(self.read("aus\u00e4.kscene"), self.read("scene.kscene"))


if __name__ == "__main__":
    unittest.main()

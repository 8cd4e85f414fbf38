"""What is saved, where, and what happens when it cannot be."""
import os
import stat
import unittest

from program import INIT, SCENE, ProgramTest

DELETE_KEY = INIT + "pm._delete('key')\npm._uninit()\n"
CHANGED = 'deleted  LightPoint "key"\n1 deleted\n'
WITHOUT_KEY = "".join(line for line in SCENE.splitlines(True) if '"key"' not in line)


class Output(ProgramTest):
    def test_saved_scene(self):
        result = self.run_script(DELETE_KEY, "-o", "out.kscene")
        self.check(result, 0, CHANGED + 'saved "out.kscene"\n', "")
        self.assertEqual(self.read("out.kscene"), WITHOUT_KEY)
        self.assertEqual(self.names(), ["out.kscene", "scene.kscene", "script.py"])

    def test_nothing_is_saved_without_an_output(self):
        self.check(self.run_script(DELETE_KEY), 0, CHANGED, "")
        self.assertEqual(self.read("scene.kscene"), SCENE)
        self.assertEqual(self.names(), ["scene.kscene", "script.py"])

    def test_output_is_seen_from_where_the_program_started(self):
        os.mkdir(self.path("elsewhere"))
        result = self.run_script("import os\nos.chdir('elsewhere')\n", "-o", "out.kscene")
        self.check(result, 0, 'nothing changed\nsaved "out.kscene"\n', "")
        self.assertEqual(self.read("out.kscene"), SCENE)
        self.assertEqual(os.listdir(self.path("elsewhere")), [])

    def test_dry_run(self):
        for flag in ["-n", "--dry-run"]:
            self.check(self.run_script(DELETE_KEY, flag, "-o", "out.kscene"), 0, CHANGED + "not saved (-n)\n", "")
        self.check(self.run_script(DELETE_KEY, "-n"), 0, CHANGED, "")
        self.check(self.run_script(DELETE_KEY, "-n", "-o", "missing/out.kscene"), 0, CHANGED + "not saved (-n)\n", "")
        self.assertEqual(self.names(), ["scene.kscene", "script.py"])

    def test_output_over_the_scene(self):
        self.check(self.run_script(DELETE_KEY, "-o", "scene.kscene"), 0, CHANGED + 'saved "scene.kscene"\n', "")
        self.assertEqual(self.read("scene.kscene"), WITHOUT_KEY)

    def test_failed_script_leaves_a_former_output_alone(self):
        self.write("out.kscene", "precious")
        self.assertEqual(self.run_script(DELETE_KEY + "raise KeyError\n", "-o", "out.kscene").code, 1)
        self.assertEqual(self.read("out.kscene"), "precious")

    def test_link_is_followed(self):
        self.write("real.kscene", "old")
        os.symlink("real.kscene", self.path("link.kscene"))
        self.check(self.run_script(DELETE_KEY, "-o", "link.kscene"), 0, CHANGED + 'saved "link.kscene"\n', "")
        self.assertTrue(os.path.islink(self.path("link.kscene")))
        self.assertEqual(self.read("real.kscene"), WITHOUT_KEY)

    def test_special_files_are_written_directly(self):
        result = self.run_script(DELETE_KEY, "-o", "/dev/stdout")
        self.check(result, 0, WITHOUT_KEY + CHANGED + 'saved "/dev/stdout"\n', "")
        self.check(self.run_script(DELETE_KEY, "-o", "/dev/null"), 0, CHANGED + 'saved "/dev/null"\n', "")
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/null").st_mode))
        self.check(self.run_script(DELETE_KEY, "-o", "/dev/full"), 3, "",
                   'kelmo-offline: cannot write "/dev/full": No space left on device\n')

    def test_unwritable_outputs_are_refused_before_the_script_runs(self):
        os.mkdir(self.path("folder"))
        self.write("export.obj", "v 0 0 0\n")
        for output, code, message in [
                ("folder", 3, 'cannot write "folder": it is a folder'),
                ("missing/out.kscene", 3, 'cannot write "missing/out.kscene": the folder "missing" does not exist'),
                ("script.py/out.kscene", 3, 'cannot write "script.py/out.kscene": "script.py" is not a folder'),
                ("script.py", 2, 'the output "script.py" is the script itself'),
                # It could not be read again: what is named so is taken for an export.
                ("out.glb", 2, 'the output "out.glb" is named like an export; save to a .kscene file')]:
            with self.subTest(output):
                result = self.run_script("print 'ran'\n", "-o", output)
                self.check(result, code, "", "kelmo-offline: " + message + "\n")
        self.check(self.run_script("print 'ran'\n", "-o", "export.obj", scene="export.obj"), 2, "",
                   'kelmo-offline: the output "export.obj" is the export itself; save to a .kscene file\n')

    def test_closed_and_full_standard_output(self):
        self.write("script.py", DELETE_KEY)
        for arguments in [["run", "scene.kscene", "script.py"], ["run", "scene.kscene", "script.py", "--json"],
                          ["cat", "scene.kscene"], ["info"], ["--help"]]:
            with self.subTest(arguments), open("/dev/full", "wb") as full:
                result = self.run_program(*arguments, stdout=full)
                self.check(result, 3, "",
                           "kelmo-offline: cannot write to standard output: No space left on device\n")

    def test_a_message_that_cannot_be_written_changes_no_exit_code(self):
        self.write("stop.py", "import sys\nsys.exit('stop')\n")
        self.write("three.py", "import sys\nsys.exit(3)\n")
        for code, arguments in [(1, ["run", "scene.kscene", "stop.py"]), (1, ["run", "scene.kscene", "three.py"]),
                                (2, ["walk"]), (3, ["run", "scene.kscene", "stop.py", "-o", "missing/out.kscene"]),
                                (4, ["cat", "missing.kscene"])]:
            with self.subTest(arguments), open("/dev/full", "wb") as full:
                self.check(self.run_program(*arguments, stderr=full), code, "")

    def test_saved_even_when_nobody_reads_the_listing(self):
        self.write("script.py", DELETE_KEY)
        reading, writing = os.pipe()
        os.close(reading)
        result = self.run_program("run", "scene.kscene", "script.py", "-o", "out.kscene", stdout=writing)
        os.close(writing)
        self.check(result, 3, "", "kelmo-offline: cannot write to standard output: Broken pipe\n")
        self.assertEqual(self.read("out.kscene"), WITHOUT_KEY)


if __name__ == "__main__":
    unittest.main()

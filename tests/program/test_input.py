"""What cannot be read: scenes, exports and plugin types, each with its message and exit code."""
import os
import shutil
import signal
import unittest

from program import SCENES, STAGE, ProgramTest

START = '{"kelmo-scene":1}\n'

DAMAGED = [
    ("", 'line 1, column 1 | expected the header, as {"kelmo-scene":1}, found the end of the line'),
    ("hello", 'line 1, column 1 | expected the header, as {"kelmo-scene":1}, found hello'),
    ('{"kelmo-scene":2}\n', "line 1, column 16 | expected the version of the format, 1, found 2"),
    (START + '{"type":"LigthPoint","name":"a"}\n',
     'line 2, column 9 | there is no plugin type "LigthPoint" (did you mean "LightPoint"?)'),
    (START + '{"type":"LightPoint","name":"a","params":{"intensty":1}}\n',
     'line 2, column 43 | plugin "a", parameter "intensty" | the type "LightPoint" has no parameter "intensty" (did '
     'you mean "intensity"?)'),
    (START + '{"type":"LightPoint","name":"a","params":{"intensity":"x"}}\n',
     'line 2, column 55 | plugin "a", parameter "intensity" | expected a number, found "x"'),
    (START + '{"type":"LightPoint","name":"a","params":{"intensity":1',
     'line 2, column 56 | plugin "a" | expected "," or "}", found the end of the line'),
    (START + '{"type":"GeomNode","name":"a","params":{"material":"ghost"}}\n',
     'line 2, column 52 | plugin "a", parameter "material" | there is no plugin "ghost"'),
    (START + '{"type":"GeomNode","name":"a"}\n{"type":"GeomNode","name":"a"}\n',
     'line 3, column 1 | plugin "a" | a plugin of this name stands in the scene already'),
]

TYPES = [
    ("{", "[types/x.json] the plugin types cannot be read | line 1, column 2: Missing a name for object member."),
    ('{"family":"x","types":[{"name":"A","kind":"ligt"}]}',
     '[types/x.json] the plugin types cannot be read | types[0] "A".kind: unknown kind "ligt"; did '
     'you mean "light"?'),
]


class Input(ProgramTest):
    def test_damaged_scenes(self):
        self.write("script.py", "print 'ran'\n")
        for text, message in DAMAGED:
            self.write("bad.kscene", text)
            for arguments in [["cat", "bad.kscene"], ["run", "bad.kscene", "script.py", "-o", "out.kscene"]]:
                with self.subTest(message, command=arguments[0]):
                    self.check(self.run_program(*arguments), 4, "", "kelmo-offline: [bad.kscene] " + message + "\n")
        self.assertNotIn("out.kscene", self.names())

    def test_scenes_that_are_not_there(self):
        os.mkdir(self.path("folder"))
        self.write("notes.txt", "hello")
        self.write("empty.glb", "")
        for name, message in [
                ("missing.kscene", "[missing.kscene] the file cannot be read: No such file or directory"),
                ("missing.glb", '"missing.glb" cannot be read: there is no such file.'),
                ("folder", '"folder" cannot be read: it is a folder.'),
                ("empty.glb", '"empty.glb" cannot be read: it is empty.'),
                ("notes.txt", '"notes.txt" cannot be read: its name does not end in .glb, .gltf, .fbx or .obj.')]:
            with self.subTest(name):
                self.check(self.run_program("cat", name), 4, "", "kelmo-offline: " + message + "\n")

    def test_scene_is_known_by_its_first_line(self):
        self.write("scene.txt", self.read("scene.kscene"))
        self.check(self.run_program("cat", "scene.txt"), 0, self.read("scene.kscene"), "")

    def test_scene_from_a_pipe(self):
        text = self.read("scene.kscene")
        self.check(self.run_through_a_pipe(text, "cat", "pipe"), 0, text, "")
        self.write("script.py", "print 'ran'\n")
        self.check(self.run_through_a_pipe(text, "run", "pipe", "script.py"), 0, "ran\nnothing changed\n", "")
        self.check(self.run_through_a_pipe("hello", "cat", "pipe"), 4, "", "kelmo-offline: [pipe] " + DAMAGED[1][1] + "\n")

    def test_damaged_types(self):
        os.mkdir(self.path("types"))
        for text, message in TYPES:
            self.write("types/x.json", text)
            self.write("script.py", "print 'ran'\n")
            for arguments in [["info"], ["cat", "scene.kscene"], ["run", "scene.kscene", "script.py"]]:
                with self.subTest(message, command=arguments[0]):
                    self.check(self.run_program(*arguments, "--types", "types"), 4, "",
                               "kelmo-offline: " + message + "\n")
        self.check(self.run_program("info", "--types", "nowhere"), 4, "",
                   "kelmo-offline: [nowhere] the folder of plugin types cannot be read: No such file or directory\n")

    def test_types_of_the_users(self):
        os.mkdir(self.path("types"))
        self.write("types/x.json", '{"family":"x","types":[{"name":"XThing","kind":"other","doc":"A thing.",'
                                   '"params":[{"name":"size","type":"int","doc":"Size."}]}]}')
        text = START + '{"type":"XThing","name":"a","params":{"size":3}}\n'
        self.write("x.kscene", text)
        self.check(self.run_program("cat", "x.kscene", "--types", "types"), 0, text, "")
        self.check(self.run_program("cat", "x.kscene"), 4, "")

    def test_deferring_is_for_exports(self):
        self.check(self.run_program("cat", "scene.kscene", "--defer", "nodes"), 2, "",
                   'kelmo-offline: --defer is for exports, and "scene.kscene" is an offline scene\n')

    def test_deferred_records(self):
        scene = os.path.join(SCENES, "studio.glb")
        result = self.run_program("cat", scene, "--defer", "cameras,nodes")
        self.check(result, 0)
        self.assertIn('"deferred":true', result.out)
        plain = self.run_program("cat", scene)
        self.assertNotIn('"deferred":true', plain.out)
        self.assertEqual(len(result.out.splitlines()), len(plain.out.splitlines()))

    def test_deferred_camera_of_a_node_that_stands(self):
        self.write("script.py", "import kelmo.pluginmodifier as pm\npm._init()\nprint pm._exportCamera('shotCam')\n"
                                "pm._uninit()\n")
        scene = os.path.join(SCENES, "studio.glb")
        result = self.run_program("run", scene, "script.py", "--defer", "cameras", "--json")
        self.check(result, 0)
        self.assertEqual([change["plugin"] for change in result.json()["changes"] if change["change"] == "created"],
                         ["shotCam@camera"])

    def test_translation_notes(self):
        for name, notes in [
                ("studio.glb", ["a unit is 1 m (always so in glTF)", "y is up (always so in glTF)"]),
                ("studio.obj", ["the unit is not known (the file does not say)",
                                "which axis is up is not known (the file does not say)"])]:
            scene = os.path.join(SCENES, name)
            result = self.run_program("cat", scene)
            self.assertEqual(result.err.splitlines()[:2], [scene + ": " + note for note in notes])

    def test_translation_that_dies(self):
        self.write("shot.glb", "anything")
        self.make_tree("#!/bin/sh\nkill -%d $$\n" % signal.SIGSEGV)
        start = 'kelmo-offline: The translation of "shot.glb" died: '
        self.check(self.run_in_tree("cat", "shot.glb"), 5, "", start + "Segmentation fault (signal 11).\n")
        self.write("tree/libexec/kelmo-translate", "#!/bin/sh\nexit 0\n")
        self.check(self.run_in_tree("cat", "shot.glb"), 5, "", start + "it ended with code 0 and without a result.\n")

    def test_incomplete_installation(self):
        self.write("shot.glb", "anything")
        self.make_tree(None)
        self.check(self.run_in_tree("cat", "shot.glb"), 6, "",
                   'kelmo-offline: "shot.glb" was not translated: the program "%s" could not be started.\n'
                   % self.path("tree/libexec/kelmo-translate"))
        shutil.rmtree(self.path("tree"))
        for part, replaced in [("share/kelmo-offline/types", "share"), ("python/kelmo", "python")]:
            self.make_tree(None)
            os.unlink(self.path("tree/" + replaced))
            self.write("script.py", "print 'ran'\n")
            for arguments in [["info"], ["cat", "scene.kscene"], ["run", "scene.kscene", "script.py"]]:
                with self.subTest(part, command=arguments[0]):
                    self.check(self.run_in_tree(*arguments), 6, "",
                               'kelmo-offline: the installation is not complete: "%s" cannot be read: '
                               'No such file or directory\n' % self.path("tree/" + part))
            shutil.rmtree(self.path("tree"))
        self.make_tree(None)
        library = self.path("tree/plug-ins/kelmoformaya.mll")
        os.unlink(self.path("tree/plug-ins"))
        self.check(self.run_in_tree("cat", "scene.kscene"), 6, "",
                   'kelmo-offline: the installation is not complete: "%s" cannot be read: No such file or directory\n'
                   % library)
        os.mkdir(self.path("tree/plug-ins"))
        self.write("tree/plug-ins/kelmoformaya.mll", "no library")
        self.check(self.run_in_tree("cat", "scene.kscene"), 6, "",
                   "kelmo-offline: the host library cannot be loaded: %s: file too short\n" % library)

    def test_damaged_types_of_the_installation(self):
        self.make_tree(None)
        os.unlink(self.path("tree/plug-ins"))
        # The host finds its types from its own place.
        shutil.copytree(os.path.join(STAGE, "plug-ins"), self.path("tree/plug-ins"))
        os.unlink(self.path("tree/share"))
        os.makedirs(self.path("tree/share/kelmo-offline/types"))
        self.write("tree/share/kelmo-offline/types/x.json", "{")
        why = ("the plugin types could not be read: [%s/../share/kelmo-offline/types/x.json] the plugin types cannot be "
               "read | line 1, column 2: Missing a name for object member.\n" % self.path("tree/plug-ins"))
        for arguments in [["info"], ["cat", "scene.kscene"]]:
            with self.subTest(arguments[0]):
                self.check(self.run_in_tree(*arguments), 6, "",
                           "kelmo: warning: " + why + "kelmo-offline: the installation is damaged: " + why)


if __name__ == "__main__":
    unittest.main()

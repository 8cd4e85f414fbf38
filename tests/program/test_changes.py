"""The listing of what a script changed, for people and as JSON."""
import json
import os
import unittest

from program import DONE, HEADER, INIT, SCENES, ProgramTest

CASES = [
    ("nothing", "", "nothing changed\n",
     []),
    ("created", "pm._create('LightPoint', 'rim')\n",
     'created  LightPoint "rim"\n1 created\n',
     [{"change": "created", "plugin": "rim", "type": "LightPoint"}]),
    ("deleted", "pm._delete('fill')\n",
     'deleted  LightPoint "fill"\n1 deleted\n',
     [{"change": "deleted", "plugin": "fill", "type": "LightPoint"}]),
    ("created and deleted again", "pm._create('LightPoint', 'rim'); pm._delete('rim')\n", "nothing changed\n", []),
    ("replaced by another type", "pm._delete('key'); pm._create('LightSpot', 'key')\n",
     'deleted  LightPoint "key"\ncreated  LightSpot "key"\n1 created, 1 deleted\n',
     [{"change": "deleted", "plugin": "key", "type": "LightPoint"},
      {"change": "created", "plugin": "key", "type": "LightSpot"}]),
    ("names that need quoting", "pm._create('LightPoint', 'a\"b\\n\\xc3\\xa4\\xff')\n",
     'created  LightPoint "a\\"b\\n\u00e4\\udcff"\n1 created\n',
     [{"change": "created", "plugin": 'a"b\n\u00e4\udcff', "type": "LightPoint"}]),
    ("set", "pm._setParam('key', 'intensity', (1, 4.5)); pm._setParam('fill', 'samples', (0, 3))\n",
     'changed  LightPoint "key"\n           intensity: 2 -> 4.5\n'
     'changed  LightPoint "fill"\n           samples: (not set) -> 3\n2 changed\n',
     [{"change": "set", "plugin": "key", "type": "LightPoint", "param": "intensity", "old": "2", "new": "4.5"},
      {"change": "set", "plugin": "fill", "type": "LightPoint", "param": "samples", "old": None, "new": "3"}]),
    ("set to what it was", "pm._setParam('key', 'intensity', (1, 2.0))\n", "nothing changed\n", []),
    ("created and set", "pm._create('LightPoint', 'rim'); pm._setParam('rim', 'intensity', (1, 3.0))\n",
     'created  LightPoint "rim"\n           intensity: 3\n1 created\n',
     [{"change": "created", "plugin": "rim", "type": "LightPoint"},
      {"change": "set", "plugin": "rim", "type": "LightPoint", "param": "intensity", "old": None, "new": "3"}]),
    ("an extra scene", "pm._addSceneContent(['extra.kscene'], '')\n",
     "loaded   an extra scene of 2 plugins\n1 scene loaded\n",
     [{"change": "scene_added", "plugins": 2}]),
    ("extra scenes of one and none", "pm._addSceneContent(['one.kscene'], ''); pm._addSceneContent([], '')\n",
     "loaded   an extra scene of 1 plugin\nloaded   an extra scene of 0 plugins\n2 scenes loaded\n",
     [{"change": "scene_added", "plugins": 1}, {"change": "scene_added", "plugins": 0}]),
]


class Changes(ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("one.kscene", HEADER + '{"type":"MtlDiffuse","name":"x"}\n')
        self.write("extra.kscene", HEADER + '{"type":"MtlDiffuse","name":"x"}\n{"type":"MtlDiffuse","name":"y"}\n')

    def test_cases(self):
        for name, text, listing, changes in CASES:
            with self.subTest(name):
                self.check(self.run_script(INIT + text + DONE), 0, listing, "")
                result = self.run_script(INIT + text + DONE, "--json")
                self.check(result, 0, err="")
                self.assertEqual(result.json(), {"scene": "scene.kscene", "script": "script.py", "result": "done",
                                                 "saved": None, "changes": changes, "warnings": [], "translation": []})

    def test_long_list_is_shortened(self):
        result = self.run_script(INIT + "pm._create('GeomStaticMesh', 'm')\n"
                                 "pm._setParam('m', 'faces', (0, [(0, i) for i in range(3000)]))\n" + DONE)
        self.check(result, 0, err="")
        self.assertLess(len(result.out), 400)
        self.assertIn("3000", result.out)

    def test_json_keeps_standard_output_for_itself(self):
        result = self.run_script(INIT + "print 'chatter'\npm._create('LightPoint', 'key')\n" + DONE,
                                 "--json", "-o", "o.kscene")
        warning = 'A plugin \\"key\\" already exists.'
        self.check(result, 0, err="kelmo: warning: " + warning + "\nchatter\n")
        self.assertEqual(result.json(), {"scene": "scene.kscene", "script": "script.py", "result": "done",
                                         "saved": "o.kscene", "changes": [], "warnings": [warning],
                                         "translation": []})

    def test_json_holds_the_report_of_a_translation(self):
        result = self.run_script("", "--json", scene=os.path.join(SCENES, "studio.glb"))
        self.assertEqual(result.code, 0)
        events = result.json()["translation"]
        self.assertEqual(events[0]["event"], "source")
        self.assertIn({"event": "unit", "metres": 1, "why": "always so in glTF"}, events)
        self.assertEqual(events[-1], {"event": "done"})

    def test_json_tells_a_failure(self):
        for text, outcome in [("raise KeyError\n", "raised"), ("import sys; sys.exit(4)\n", "left")]:
            with self.subTest(outcome):
                result = self.run_script(INIT + "pm._delete('key')\n" + text, "--json", "-o", "out.kscene")
                self.assertEqual(result.code, 1)
                told = json.loads(result.out)
                self.assertEqual((told["result"], told["saved"], len(told["changes"])), (outcome, None, 1))

    def test_warnings_are_shown(self):
        result = self.run_script(INIT + "print pm._create('LightPoint', 'key')\n" + DONE)
        self.check(result, 0, "None\nnothing changed\n", 'kelmo: warning: A plugin \\"key\\" already exists.\n')


if __name__ == "__main__":
    unittest.main()

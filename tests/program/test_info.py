"""kelmo-offline info: the catalogue of plugin types."""
import json
import os
import unittest

from program import STAGE, ProgramTest

LAMP = {
    "family": "Test", "types": [
        {"name": "XLamp", "kind": "light", "unique": True, "doc": "A lamp.", "interfaces": ["texture", "texture_float"],
         "params": [
             {"name": "on", "type": "bool", "default": True, "doc": "Whether it is lit."},
             {"name": "power", "type": "float", "default": 0.5},
             {"name": "drift", "type": "vector", "default": [0, -0.0, 0.25]},
             {"name": "tints", "type": "color", "list": True, "doc": "A colour for each bulb."},
             {"name": "rings", "type": "list", "shape": "ints"},
             {"name": "anything", "type": "list"},
             {"name": "out_color", "type": "output_texture"}]},
        {"name": "XEmpty", "kind": "other", "doc": "Nothing in it."}]}

LAMP_TEXT = """XLamp: A lamp.
kind: light; only one plugin of the type may exist; usable as texture, texture_float

  parameter  type            default
  on         bool            true         Whether it is lit.
  power      float           0.5
  drift      vector          [0,-0,0.25]
  tints      color list      -            A colour for each bulb.
  rings      list of ints    -
  anything   list            -
  out_color  output_texture  -
"""

EMPTY_TEXT = """XEmpty: Nothing in it.
kind: other

no parameters
"""


class Info(ProgramTest):
    def setUp(self):
        super().setUp()
        os.mkdir(self.path("types"))
        self.write("types/test.json", json.dumps(LAMP))

    def shipped(self):
        names = []
        folder = os.path.join(STAGE, "share/kelmo-offline/types")
        for name in sorted(os.listdir(folder)):
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                names += [kind["name"] for kind in json.load(file)["types"]]
        return names

    def test_type_of_a_folder_of_the_users(self):
        self.check(self.run_program("info", "XLamp", "--types", "types"), 0, LAMP_TEXT, "")
        self.check(self.run_program("info", "XEmpty", "--types", "types"), 0, EMPTY_TEXT, "")
        # The option takes one folder each time, so what follows it is the type.
        self.check(self.run_program("info", "--types", "types", "XLamp"), 0, LAMP_TEXT, "")
        os.mkdir(self.path("more"))
        self.check(self.run_program("info", "--types", "types", "--types", "more", "XLamp"), 0, LAMP_TEXT, "")

    def test_every_shipped_type_can_be_shown(self):
        names = self.shipped()
        self.assertGreater(len(names), 30)
        listing = self.run_program("info")
        self.check(listing, 0, err="")
        for name in names:
            self.assertRegex(listing.out, r"(?m)^  %s  +\S" % name)
        for name in names[::7]:
            result = self.run_program("info", name)
            self.check(result, 0, err="")
            self.assertTrue(result.out.startswith(name + ": "))

    def test_json(self):
        listed = self.run_program("info", "--json", "--types", "types")
        self.check(listed, 0, err="")
        self.assertEqual(sorted(kind["name"] for kind in listed.json()), sorted(self.shipped() + ["XLamp", "XEmpty"]))
        lamp = self.run_program("info", "XLamp", "--json", "--types", "types")
        self.check(lamp, 0, err="")
        self.assertEqual([param["name"] for param in lamp.json()["params"]],
                         ["on", "power", "drift", "tints", "rings", "anything", "out_color"])

    def test_unknown_type(self):
        for name, hint in [("MtlDifuse", '; did you mean "MtlDiffuse"?'), ("mtldiffuse", '; did you mean "MtlDiffuse"?'),
                           ("GeomStaticMsh", '; did you mean "GeomStaticMesh"?'), ("Qwertzuiop", "")]:
            with self.subTest(name):
                self.check(self.run_program("info", name), 2, "",
                           'kelmo-offline: there is no plugin type "%s"%s\n' % (name, hint))


if __name__ == "__main__":
    unittest.main()

# -*- coding: utf-8 -*-
"""The translated sample scenes, read through the module, hold what their files say, number by number."""
import json
import struct

import offlinehost
import support

SCENES = ('studio_glb.kscene', 'studio_fbx.kscene', 'studio_obj.kscene', 'rich_gltf.kscene')


def single(number):
    """The nearest 32-bit float."""
    return struct.unpack('f', struct.pack('f', number))[0]


def floats(numbers):
    return tuple(single(number) for number in numbers)


def matrix(columns):
    return tuple(floats(column) for column in columns)


def transform(value):
    return matrix(value[0]), tuple(float(number) for number in value[1])


def text(value):
    return '' if value is None else value.encode('utf-8')


def reference(value):
    """What a list of plugins holds for a reference."""
    if isinstance(value, list):
        return tuple(part.encode('utf-8') for part in value)
    return None if value is None else value.encode('utf-8')


# By declared kind: the type code, and what the module gives for the value of the file.
PLAIN = {'int': (0, int), 'float': (1, single), 'double': (2, float), 'bool': (3, bool), 'vector': (4, floats),
         'color': (5, floats), 'acolor': (6, floats), 'matrix': (7, matrix), 'transform': (8, transform), 'string': (9, text)}
TEXTURES = {'texture_float': 'float', 'texture_int': 'int', 'texture_vector': 'vector', 'texture_matrix': 'matrix',
            'texture_transform': 'transform'}


def isReference(value):
    return value is None or isinstance(value, unicode) or isinstance(value, list) and isinstance(value[0], unicode)


def tagged(kind, value):
    """The pair for a single value of this declared kind."""
    if kind == 'plugin' or kind.startswith('texture') and isReference(value):
        found = reference(value)
        return None if found is None else (1000 if isinstance(found, tuple) else 10, found)
    if kind == 'texture':
        return (5 if len(value) == 3 else 6), floats(value)
    code, convert = PLAIN[TEXTURES.get(kind, kind)]
    return (1 if code == 2 else code), convert(value)


def expected(param, value):
    """What _getParam gives for a parameter of this declaration, carried with this value of the file."""
    kind, shape = param['type'], param.get('shape')
    if kind == 'list':
        if shape == 'map_channels':
            return 12, [(12, [(0, c['channel']), (4, [floats(v) for v in c['vertices']]), (0, c['faces'])]) for c in value]
        element = {'ints': 'int', 'floats': 'float', 'vectors': 'vector', 'plugins': 'plugin'}[shape]
        return 12, [(12, [tagged(element, part) for part in inner]) for inner in value]
    if not param.get('list'):
        return tagged(kind, value)
    if kind == 'plugin' or kind.startswith('texture'):
        return 10, [reference(part) for part in value]
    code, convert = PLAIN[kind]
    return code, [convert(part) for part in value]


class SampleScenesTest(support.ModuleTest):

    def declarations(self, typeName):
        if typeName not in self.known:
            declared = {}
            for param in offlinehost.types(typeName)[0]['params']:
                declared.setdefault(param['name'], param)
            self.known[typeName] = declared
        return self.known[typeName]

    def compare(self, scene):
        """Compares every parameter of a scene's file; how many there were."""
        count = 0
        with open(support.scenePath(scene), 'rb') as lines:
            next(lines)
            for line in lines:
                plugin = json.loads(line)
                name = plugin['name'].encode('utf-8')
                self.assertEqual(self.module._getPluginType(name), plugin['type'])
                self.assertEqual(sorted(self.module._getPluginParams(name, 1)), sorted(plugin.get('params', {})))
                for param, value in plugin.get('params', {}).items():
                    wanted = expected(self.declarations(plugin['type'])[param], value)
                    self.assertTrue(self.module._getParam(name, param) == wanted, (scene, name, param))
                    count += 1
        return count

    def testEveryNumber(self):
        self.known = {}
        counts = {}
        for scene in SCENES:
            offlinehost.reset()
            offlinehost.open(support.scenePath(scene))
            counts[scene] = self.compare(scene)
        self.assertTrue(min(counts.values()) > 50, counts)

    def testTheNamesOfAScene(self):
        offlinehost.open(support.scenePath('studio_glb.kscene'))
        with open(support.scenePath('studio_glb.kscene'), 'rb') as lines:
            names = [json.loads(line)['name'].encode('utf-8') for line in lines.readlines()[1:]]
        self.assertEqual(self.module._findByName('*'), names)

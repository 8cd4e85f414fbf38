# -*- coding: utf-8 -*-
"""Random tagged values, of right and wrong kinds and nested to depth 5, set and read back against a model.

PROPERTY_CASES says how many (default 100000), PROPERTY_SEED from where.
"""
import os
import random

import offlinehost
import support
from all_kinds import AllKindsTest, OUTPUTS, PARAMS, SCENE, TEXTURES
from value_model import modelSet

CASES = int(os.environ.get('PROPERTY_CASES', '100000'))
SEED = int(os.environ.get('PROPERTY_SEED', '1'))

TEXTURE_CODES = dict(zip(TEXTURES, (11, 13, 14, 15, 16, 17)))
ALL_TEXTURES = tuple(TEXTURE_CODES.values())
PLUGINS = {'all': ALL_TEXTURES, 'other': ALL_TEXTURES, 'plain': ()}
PLUGINS.update(('only_' + kind, (code,)) for kind, code in TEXTURE_CODES.items())
DECLARED = dict((name, code) for name, (code, _) in PARAMS.items())
DECLARED.update(OUTPUTS)
OUTPUT_CODES = dict(((plugin, name), code) for plugin in ('all', 'other') for name, code in DECLARED.items())

# (plugin, parameter, declared code, is a list, special class)
TARGETS = [('all', name, code, isList, None) for name, (code, isList) in sorted(PARAMS.items())]
SPECIAL = [('mesh', 'map_channels', 12, True, 'map channels'), ('linker', 'ignored_lights', 12, True, 10),
           ('linker', 'ignored_shadow_lights', 12, True, 10), ('output', 'frames', 12, True, 0),
           ('patch', 'weights', 12, True, 1), ('patch', 'cvs', 12, True, 4), ('patch', 'trim_curves', 12, True, None),
           ('patch', 'map_channels', 12, True, None)]

CODES = list(range(-1, 19)) + [999, 1000, 1001, 1005, 1006, 10000, 2 ** 31, 2 ** 32, True, 0L, 1.5, 'x', None]
INTS = (0, 1, -1, 7, 255, 256, 2 ** 31 - 1, -2 ** 31, 2 ** 31, 2 ** 32, 2 ** 63, 10 ** 400, 5L, True, False)
FLOATS = (0.0, -0.0, 0.5, 0.1, -2.7, 1e-13, 1e30, 1e300, 2.5e9, float('inf'), float('-inf'), float('nan'))
TEXTS = ('', 'text', 'a\0b', '\xff', u'plain', u'\xe9', 'all', 'other')


class Values(object):
    """Makes random values; most are right, some are wrong somewhere."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def oneIn(self, n):
        return self.random.randrange(n) == 0

    def number(self):
        return self.random.choice(FLOATS if self.oneIn(2) else INTS)

    def junk(self):
        return self.random.choice((None, 'x', (), (1,), [], {}, 5, 2.5, object, (1, 2, 3, 4), [1, 2, 3]))

    def vector(self):
        if self.oneIn(40):
            return self.junk()
        return tuple(self.number() if not self.oneIn(60) else self.junk() for _ in range(self.random.choice((3,) * 20 + (2, 4))))

    def matrix(self):
        return tuple(self.vector() for _ in range(3))

    def reference(self):
        return self.random.choice(sorted(PLUGINS) * 3 + ['nowhere', u'other', '', 5, None])

    def content(self, code):
        if self.oneIn(25):
            return self.junk()
        if code in (0, 3):
            return self.random.choice(INTS if not self.oneIn(8) else FLOATS)
        if code in (1, 2):
            return self.number()
        if code in (4, 5):
            return self.vector()
        if code == 6:
            return (self.vector(), self.number())
        if code == 7:
            return self.matrix()
        if code == 8:
            return (self.matrix(), self.vector())
        if code == 9:
            return self.random.choice(TEXTS)
        if code == 1000:
            return (self.reference(), self.random.choice(sorted(DECLARED) + ['nothing', 5]))
        return self.reference()

    def tagged(self, code, depth):
        """A value tagged with `code` most of the time; a list now and then, down to depth 5."""
        if self.oneIn(30):
            return self.junk()
        if self.oneIn(12):
            code = self.random.choice(CODES)
        if code == 12 or depth < 5 and self.oneIn(12):
            return code, self.elements(code, depth)
        return code, self.content(code)

    def elements(self, code, depth):
        if depth >= 5:
            return []
        inner = self.random.choice((0, 1, 4, 9, 10, 12, code)) if code == 12 else code
        return [self.tagged(inner, depth + 1) for _ in range(self.random.choice((0, 1, 2, 3, 3, 5)))]

    def channels(self):
        """Map channels, mostly of their shape."""
        return (12, [(12, [self.tagged(0, 4), (4, [self.tagged(4, 4) for _ in range(self.random.randrange(4))]),
                           (0, [self.tagged(0, 4) for _ in range(self.random.randrange(4))])])
                     for _ in range(self.random.randrange(3))])

    def valueFor(self, declared, isList, special):
        if special == 'map channels' and not self.oneIn(3):
            return self.channels()
        sources = {3: (0, 1, 2, 3), 11: (5, 6, 10, 1000), 13: (0, 1, 10, 1000), 14: (0, 1, 10, 1000),
                   15: (4, 10, 1000), 16: (7, 8, 10, 1000), 17: (7, 8, 10, 1000), 10: (10, 1000)}
        source = self.random.choice(sources.get(declared, (declared,)))
        if isList and not self.oneIn(20):
            # The code of the whole list is not looked at.
            outer = source if not self.oneIn(8) else self.random.choice(CODES)
            if self.oneIn(2) and source != 12:
                return outer, [self.tagged(source, 5) for _ in range(self.random.randrange(6))]
            return outer, self.elements(source, 0)
        return self.tagged(source, 1)


class PropertyTest(AllKindsTest):

    plugins = SCENE + [{'type': 'GeomStaticMesh', 'name': 'mesh'}, {'type': 'GeomStaticNURBS', 'name': 'patch'},
                       {'type': 'SettingsOutput', 'name': 'output'}, {'type': 'SettingsLightLinker', 'name': 'linker'}]

    def outcome(self, plugin, param, value):
        """What _setParam did, in the terms of the model."""
        try:
            result = self.module._setParam(plugin, param, value)
        except Exception as error:
            self.assertIs(type(error), Exception)
            if str(error) == 'Invalid value given for parameter \\"%s\\" in plugin \\"%s\\".' % (param, plugin):
                return 'invalid', None, None
            return 'missing', str(error), None
        self.assertIs(result, None)
        warnings = offlinehost.warnings()
        expected = 'A value given for parameter "%s" in plugin "%s" could not be read as its type: ' % (param, plugin)
        self.assertTrue(len(warnings) < 2 and all(text.startswith(expected) for text in warnings), warnings)
        return 'set', repr(self.module._getParam(plugin, param)), bool(warnings)

    def testRandomValues(self):
        # Every parameter is found by name; what the host declares is what the model believes.
        for plugin, param, code, isList, _ in TARGETS + SPECIAL:
            self.assertEqual(self.module._getParamType(plugin, param), (code, isList))
        values = Values(SEED)
        seen = {'set': 0, 'invalid': 0, 'missing': 0}
        warned = 0
        held = dict(((target[0], target[1]), repr(self.module._getParam(target[0], target[1])))
                    for target in TARGETS + SPECIAL)
        plugins = dict(PLUGINS, mesh=(), patch=(), output=(), linker=(), hidden=ALL_TEXTURES)
        for case in range(CASES):
            target = values.random.choice(TARGETS + SPECIAL * 2)
            plugin, param, code, isList, special = target
            value = values.valueFor(code, isList, special)
            expected = modelSet(plugins, OUTPUT_CODES, code, isList, special, value)
            actual = self.outcome(plugin, param, value)
            self.assertEqual((case, target, value, actual), (case, target, value, expected))
            seen[actual[0]] += 1
            warned += bool(actual[2])
            if actual[0] == 'set':
                held[plugin, param] = actual[1]
            else:
                self.assertEqual(repr(self.module._getParam(plugin, param)), held[plugin, param])
        # The values were of every kind.
        support.figure('random values set and read back', CASES)
        self.assertTrue(min(seen.values()) > CASES / 50 and warned > CASES / 50, (seen, warned))

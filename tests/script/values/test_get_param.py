# -*- coding: utf-8 -*-
"""Reading parameter values as tagged pairs: every type, single and list, carried and as a declared default."""
import math
import sys

import offlinehost
import support

IDENTITY = ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0))
MATRIX = [[1, 2, 3], [4, 5, 6], [7, 8, 9.5]]
MATRIX_TUPLE = ((1.0, 2.0, 3.0), (4.0, 5.0, 6.0), (7.0, 8.0, 9.5))
# 0.1 as a 32-bit float.
TENTH = 0.10000000149011612

# (type, parameter, value in the scene, what _getParam gives)
SINGLE = [
    ('GeomNode', 'object_id', -7, (0, -7)),
    ('GeomNode', 'object_id', 2147483647, (0, 2147483647)),
    ('GeomNode', 'object_id', -2147483648, (0, -2147483648)),
    ('GeomStaticMesh', 'smooth_angle', 0.5, (1, 0.5)),
    ('GeomStaticMesh', 'smooth_angle', 0.1, (1, TENTH)),
    ('GeomStaticMesh', 'smooth_angle', 'inf', (1, float('inf'))),
    ('LightPoint', 'exposure', 0.1, (1, 0.1)),
    ('GeomNode', 'visible', False, (3, False)),
    ('GeomNode', 'visible', True, (3, True)),
    ('LightPoint', 'attenuation', [1, -2, 0.1], (4, (1.0, -2.0, TENTH))),
    ('LightPoint', 'shadow_color', [0.25, 0.5, 1], (5, (0.25, 0.5, 1.0))),
    ('TexImage', 'fallback', [0.25, 0.5, 1, 0.75], (6, (0.25, 0.5, 1.0, 0.75))),
    ('GeomNode', 'instancer_matrix', MATRIX, (7, MATRIX_TUPLE)),
    ('GeomNode', 'transform', [MATRIX, [0.1, 2, 3]], (8, (MATRIX_TUPLE, (0.1, 2.0, 3.0)))),
    ('GeomNode', 'tag', u'd\u00e9j\u00e0', (9, u'd\u00e9j\u00e0'.encode('utf-8'))),
    ('GeomNode', 'tag', '', (9, '')),
    ('GeomNode', 'tag', None, (9, '')),
    ('GeomNode', 'material', 'target', (10, 'target')),
    ('GeomNode', 'material', ['target', 'out_color'], (1000, ('target', 'out_color'))),
    ('GeomNode', 'material', None, None),
    ('MtlDiffuse', 'color', [0.25, 0.5, 1, 0.75], (6, (0.25, 0.5, 1.0, 0.75))),
    ('MtlDiffuse', 'color', [0.25, 0.5, 1], (5, (0.25, 0.5, 1.0))),
    ('MtlDiffuse', 'color', 'target', (10, 'target')),
    ('MtlDiffuse', 'color', ['target', 'out_color'], (1000, ('target', 'out_color'))),
    ('MtlDiffuse', 'roughness', 0.5, (1, 0.5)),
    ('MtlDiffuse', 'roughness', ['target', 'out_alpha'], (1000, ('target', 'out_alpha'))),
    ('MtlSwitch', 'index', 3, (0, 3)),
    ('TexVector', 'value', [1, 2, 3], (4, (1.0, 2.0, 3.0))),
    ('TexMatrix', 'value', MATRIX, (7, MATRIX_TUPLE)),
    ('TexTransform', 'value', [MATRIX, [0.1, 2, 3]], (8, (MATRIX_TUPLE, (0.1, 2.0, 3.0)))),
]

LISTS = [
    ('GeomStaticMesh', 'faces', [0, 1, -2], (0, [0, 1, -2])),
    ('GeomStaticMesh', 'crease_weights', [0.5, 0.1], (1, [0.5, TENTH])),
    ('GeomStaticNURBS', 'knots_u', [0.1, 1], (2, [0.1, 1.0])),
    ('GeomStaticMesh', 'hidden_edges', [True, False], (3, [True, False])),
    ('GeomStaticMesh', 'vertices', [[1, 2, 3], [4, 5, 0.1]], (4, [(1.0, 2.0, 3.0), (4.0, 5.0, TENTH)])),
    ('GeomCurves', 'root_colors', [[0.25, 0.5, 1]], (5, [(0.25, 0.5, 1.0)])),
    ('GeomStaticMesh', 'colors', [[0.25, 0.5, 1, 0.75]], (6, [(0.25, 0.5, 1.0, 0.75)])),
    ('GeomParticles', 'orientations', [MATRIX, MATRIX], (7, [MATRIX_TUPLE, MATRIX_TUPLE])),
    ('GeomInstances', 'transforms', [[MATRIX, [0.1, 2, 3]]], (8, [(MATRIX_TUPLE, (0.1, 2.0, 3.0))])),
    ('GeomStaticMesh', 'map_channel_names', ['uv', None, ''], (9, ['uv', '', ''])),
    ('GeomInstances', 'sources', ['target', None, ['target', 'out_color']],
     (10, ['target', None, ('target', 'out_color')])),
    ('TexRamp', 'textures', ['target'], (10, ['target'])),
]

LISTS_OF_LISTS = [
    # The element's code is asked before it is opened, so the inner lists are read element by element.
    ('SettingsOutput', 'frames', [[1, 2], [], [3]], (12, [(12, [(0, 1), (0, 2)]), (12, []), (12, [(0, 3)])])),
    ('GeomStaticNURBS', 'weights', [[0.5], [0.1]], (12, [(12, [(1, 0.5)]), (12, [(1, TENTH)])])),
    ('GeomStaticNURBS', 'cvs', [[[1, 2, 3]]], (12, [(12, [(4, (1.0, 2.0, 3.0))])])),
    ('NodeSet', 'nested', [['target'], []], (12, [(12, [(10, 'target')]), (12, [])])),
    ('GeomStaticMesh', 'map_channels',
     [{'channel': 7, 'vertices': [[0, 0.5, 0], [1, 0, 0]], 'faces': [0, 1, 0]}, {'channel': 1, 'vertices': [], 'faces': []}],
     (12, [(12, [(0, 7), (4, [(0.0, 0.5, 0.0), (1.0, 0.0, 0.0)]), (0, [0, 1, 0])]),
           (12, [(0, 1), (4, []), (0, [])])])),
    ('UserAttributes', 'values', [{'0': 5}, {'1': 0.5}, {'9': 'a'}, {'12': [{'0': 1}, {'12': []}]}],
     (12, [(0, 5), (1, 0.5), (9, 'a'), (12, [(0, 1), (12, [])])])),
]


def typed(value):
    """The value with the type of each part, because 1 == 1.0 == True."""
    if isinstance(value, (tuple, list)):
        return type(value), [typed(part) for part in value]
    return type(value), value


class ValuesTest(support.ModuleTest):

    def read(self, kind, param, value, rigid):
        """What _getParam gives for a value that is carried so."""
        offlinehost.reset()
        record = {'type': kind, 'name': 'owner', 'params': {param: value}}
        if rigid:
            record['rigid'] = [param]
        offlinehost.open_text(support.sceneText({'type': 'TexChecker', 'name': 'target'}, record))
        return self.module._getParam('owner', param)

    def check(self, rows, rigid):
        for kind, param, value, expected in rows:
            result = self.read(kind, param, value, rigid)
            self.assertEqual((kind, param, typed(result)), (kind, param, typed(expected)))

    def testSingleValues(self):
        self.check(SINGLE, False)

    def testLists(self):
        self.check(LISTS, False)
        self.check([(kind, param, [], (expected[0], [])) for kind, param, _, expected in LISTS], False)

    def testListsOfLists(self):
        self.check(LISTS_OF_LISTS, False)
        self.check([(kind, param, [], (12, [])) for kind, param, _, _ in LISTS_OF_LISTS], False)

    def testValuesThatCannotCloneThemselvesReadAlike(self):
        self.check([row for row in SINGLE if row[0] not in ('MtlDiffuse', 'MtlSwitch')], True)
        self.check([row for row in LISTS if row[0] != 'TexRamp'], True)
        # These answer the texture code itself, which has no converter for elements.
        self.check([('TexRamp', 'textures', ['target'], None), ('MtlDiffuse', 'color', 'target', (10, 'target')),
                    ('MtlDiffuse', 'roughness', ['target', 'out_alpha'], (1000, ('target', 'out_alpha')))], True)
        self.check([row for row in LISTS_OF_LISTS if row[1] != 'map_channels'], True)

    def testNotANumber(self):
        tag, value = self.read('GeomStaticMesh', 'smooth_angle', 'nan', False)
        self.assertEqual((tag, math.isnan(value)), (1, True))

    def testUnicodeNames(self):
        offlinehost.open_text(support.sceneText(u'{"type":"GeomNode","name":"\u6f22","params":{"object_id":3}}'.encode('utf-8')))
        self.assertEqual(self.module._getParam(u'\u6f22', u'object_id'), (0, 3))


class DefaultsTest(support.ModuleTest):

    scene = support.sceneText(*[{'type': name, 'name': name} for name in (
        'GeomNode', 'GeomStaticMesh', 'LightPoint', 'TexImage', 'MtlDiffuse', 'MtlSwitch', 'TexVector', 'TexMatrix',
        'TexTransform', 'SettingsOutput', 'TexUserAttribute')])

    def testDeclaredDefaults(self):
        for plugin, param, expected in (
                ('GeomNode', 'object_id', (0, 0)), ('GeomStaticMesh', 'smooth_angle', (1, 60.0)),
                ('GeomStaticMesh', 'bounds_hint', (1, -1.0)),
                ('GeomNode', 'visible', None),  # a bool's default is not handed out
                ('LightPoint', 'attenuation', (4, (0.0, 0.0, 1.0))), ('LightPoint', 'shadow_color', (5, (0.0, 0.0, 0.0))),
                ('TexImage', 'fallback', (6, (1.0, 0.0, 1.0, 1.0))), ('GeomNode', 'instancer_matrix', (7, IDENTITY)),
                ('GeomNode', 'transform', (8, (IDENTITY, (0.0, 0.0, 0.0)))), ('GeomNode', 'tag', (9, '')),
                ('TexImage', 'color_space', (9, 'auto')), ('TexImage', 'file', (9, '')),  # a null text
                ('GeomNode', 'material', None),  # no default
                ('GeomNode', 'materials', None), ('GeomStaticMesh', 'map_channels', None),
                ('MtlDiffuse', 'color', (6, (0.5, 0.5, 0.5, 1.0))), ('MtlDiffuse', 'roughness', (1, 0.0)),
                ('MtlSwitch', 'index', (0, 0)), ('TexVector', 'value', (4, (0.0, 0.0, 1.0))),
                ('TexMatrix', 'value', (7, IDENTITY)), ('TexTransform', 'value', (8, (IDENTITY, (0.0, 0.0, 0.0)))),
                ('TexUserAttribute', 'out_color', None)):
            result = self.module._getParam(plugin, param)
            self.assertEqual((plugin, param, typed(result)), (plugin, param, typed(expected)))


class FailuresTest(support.ModuleTest):

    scene = support.sceneText({'type': 'GeomNode', 'name': 'node'})

    def testUnknownNames(self):
        self.assertRaisesText(Exception, 'The plugin "nobody" doesn\'t exist.', self.module._getParam, 'nobody', 'tag')
        for name in ('nothing', 'Tag', ''):
            self.assertRaisesText(Exception, 'A parameter with name "%s" doesn\'t exist for plugin "node".' % name,
                                  self.module._getParam, 'node', name)


class LargeListsTest(support.ModuleTest):

    def testManyVectors(self):
        count = 20000
        vertices = ','.join('[%d,%d.5,-%d]' % (i, i, i) for i in range(count))
        offlinehost.open_text(support.sceneText(
            '{"type":"GeomStaticMesh","name":"mesh","params":{"vertices":[%s]}}' % vertices))
        self.assertEqual(self.module._getParam('mesh', 'vertices'),
                         (4, [(float(i), i + 0.5, float(-i)) for i in range(count)]))


class RecursionTest(support.ModuleTest):
    """Nested lists count against the interpreter's limit on recursion, as nested calls do."""

    LEVELS = 20

    def setUp(self):
        support.ModuleTest.setUp(self)
        value = [{'0': 1}]
        for _ in range(self.LEVELS - 1):
            value = [{'12': value}]
        offlinehost.open_text(support.sceneText({'type': 'UserAttributes', 'name': 'deep', 'params': {'values': value}}))
        self.addCleanup(sys.setrecursionlimit, sys.getrecursionlimit())

    def below(self, frames):
        """What _getParam gives that many frames further down, or the text of the error."""
        if frames > 0:
            return self.below(frames - 1)
        try:
            return self.module._getParam('deep', 'values')
        except RuntimeError as error:
            return error.args[0]

    def testNearTheLimit(self):
        full = self.below(0)
        text = 'maximum recursion depth exceeded while reading a parameter value'
        frame, used = sys._getframe(), 0
        while frame is not None:
            frame, used = frame.f_back, used + 1
        sys.setrecursionlimit(used + 60)
        results = [self.below(frames) for frames in range(45)]
        refused = results.index(text)
        # Each level counts once; what was refused is refused further down, and nothing of the refusal stays.
        self.assertTrue(0 < refused <= 60 - self.LEVELS, refused)
        self.assertEqual(results, [full] * refused + [text] * (len(results) - refused))
        self.assertEqual(self.below(refused - 1), full)


class ReferencesTest(support.ModuleTest):

    scene = support.sceneText({'type': 'GeomNode', 'name': 'node', 'params': {
        'object_id': 1000003, 'transform': [MATRIX, [1, 2, 3]], 'tag': 'a longer text', 'light_sets': ['set', None]}},
        {'type': 'LightSet', 'name': 'set'},
        {'type': 'GeomStaticMesh', 'name': 'mesh', 'params': {'vertices': [[1, 2, 3], [4, 5, 6]]}})

    def testResultsAreHeldByNobodyElse(self):
        for plugin, param in (('node', 'object_id'), ('node', 'transform'), ('node', 'tag'), ('mesh', 'vertices')):
            pair = self.module._getParam(plugin, param)
            self.assertEqual(sys.getrefcount(pair), 2)
            self.assertEqual(sys.getrefcount(pair[1]), 2)
        vertices = self.module._getParam('mesh', 'vertices')[1]
        self.assertEqual([sys.getrefcount(vertices[i]) for i in range(2)], [2, 2])
        self.assertEqual(sys.getrefcount(vertices[0][0]), 2)

    def testNothingIsLeftOfManyReads(self):
        none = sys.getrefcount(None)
        for _ in range(1000):
            self.module._getParam('node', 'material')
            self.module._getParam('node', 'light_sets')
        self.assertTrue(abs(sys.getrefcount(None) - none) < 50)

    def testListsAreCollectedWhenTheyAreInACycle(self):
        import gc
        gc.collect()
        cycle = self.module._getParam('mesh', 'vertices')[1]
        self.assertTrue(gc.is_tracked(cycle))
        cycle.append(cycle)
        del cycle
        self.assertTrue(gc.collect() > 0)

# -*- coding: utf-8 -*-
"""Calls of every function, each way that they can go: the table behind the tests of reference counts and faults.

A row is (function, path, calls, kept). The calls make one round, which can be repeated at will; `kept` is how many
references a round keeps for ever. Only the searches keep any: one for each name that they find. No call changes the
counts of its arguments, of None, True and False, and a result has no owner but the caller.

A call is (function, arguments, outcome); an outcome is returns(VALUE), raises(TEXT) or warns(TEXT). {folder} in an
argument or a text stands for the folder of the scene files.
"""
import shutil
import tempfile

import all_kinds
import offlinehost
import support

NOT_INITIALISED = (
    "The kelmo.pluginmodifier module wasn't initialized properly. One possible reason for this error is that you are "
    "trying to execute the script from the Script Editor. The script must be placed inside the special field that "
    "Kelmo provides for Python code (Render Settings / Kelmo Common / MEL/Python Callbacks / Post Translate Python "
    "Script)")
NO_PLUGIN = 'The plugin "nobody" doesn\'t exist.'
NO_PARAM = 'A parameter with name "nothing" doesn\'t exist for plugin "%s".'


def returns(value):
    return 'returns', value


def raises(text, kind=Exception):
    """The text None stands for any: the system's own words are part of it."""
    return 'raises', kind, text


def warns(*texts):
    """The host prints these warnings and the call returns None."""
    return 'warns', texts


MATRIX = ((1.5, 0.0, 0.0), (0.0, 2.5, 0.0), (0.0, 0.0, 3.5))
TRANSFORM = (MATRIX, (4.5, 5.5, 6.5))

# A value of every kind for the plugin type of all_kinds, in a scene file and as _getParam reads it.
CARRIED = {
    'int': (1234567, (0, 1234567)), 'float': (1.5, (1, 1.5)), 'double': (2.5, (1, 2.5)), 'bool': (True, (3, True)),
    'vector': ([1, 2, 3], (4, (1.0, 2.0, 3.0))), 'color': ([1, 2, 3], (5, (1.0, 2.0, 3.0))),
    'acolor': ([1, 2, 3, 4], (6, (1.0, 2.0, 3.0, 4.0))), 'matrix': (MATRIX, (7, MATRIX)),
    'transform': (TRANSFORM, (8, TRANSFORM)), 'string': ('some text', (9, 'some text')),
    'plugin': ('other', (10, 'other')), 'texture': (['other', 'output_texture'], (1000, ('other', 'output_texture'))),
    'texture_float': (1.5, (1, 1.5)), 'texture_int': (1234567, (0, 1234567)),
    'texture_vector': ([1, 2, 3], (4, (1.0, 2.0, 3.0))), 'texture_matrix': (MATRIX, (7, MATRIX)),
    'texture_transform': (TRANSFORM, (8, TRANSFORM)),
    'ints': ([1234567, 7654321], (0, [1234567, 7654321])), 'floats': ([1.5], (1, [1.5])),
    'doubles': ([2.5], (2, [2.5])),
    'bools': ([True, False], (3, [True, False])), 'vectors': ([[1, 2, 3]], (4, [(1.0, 2.0, 3.0)])),
    'colors': ([[1, 2, 3]], (5, [(1.0, 2.0, 3.0)])), 'acolors': ([[1, 2, 3, 4]], (6, [(1.0, 2.0, 3.0, 4.0)])),
    'matrixs': ([MATRIX], (7, [MATRIX])), 'transforms': ([TRANSFORM], (8, [TRANSFORM])),
    'strings': (['some text', None], (9, ['some text', ''])),
    'plugins': (['other', None, ['other', 'output_texture']], (10, ['other', None, ('other', 'output_texture')])),
    'anys': ([{'0': 1234567}, {'12': [{'9': 'some text'}]}], (12, [(0, 1234567), (12, [(9, 'some text')])])),
}

# A value of every kind as a script gives it.
GIVEN = {
    'int': (0, 1234567), 'float': (1, 1.5), 'double': (2, 2.5), 'bool': (3, True), 'vector': (4, (1.5, 2.5, 3.5)),
    'color': (5, (1.5, 2.5, 3.5)), 'acolor': (6, ((1.5, 2.5, 3.5), 4.5)), 'matrix': (7, MATRIX),
    'transform': (8, TRANSFORM), 'string': (9, 'some text'), 'plugin': (10, 'other'), 'texture': (10, 'other'),
    'texture_float': (1000, ('other', 'output_texture_float')), 'texture_int': (0, 1234567),
    'texture_vector': (4, (1.5, 2.5, 3.5)), 'texture_matrix': (7, MATRIX), 'texture_transform': (8, TRANSFORM),
    'ints': (0, [(0, 1234567), (0, 7654321)]), 'floats': (1, [(1, 1.5), (0, 7654321)]), 'doubles': (2, [(2, 2.5)]),
    'vectors': (4, [(4, (1.5, 2.5, 3.5))]), 'colors': (5, [(5, (1.5, 2.5, 3.5))]),
    'acolors': (6, [(6, ((1.5, 2.5, 3.5), 4.5))]), 'matrixs': (7, [(7, MATRIX)]), 'transforms': (8, [(8, TRANSFORM)]),
    'strings': (9, [(9, 'some text')]), 'plugins': (10, [(10, 'other'), (1000, ('other', 'output_texture'))]),
    'textures': (10, [(10, 'other')]), 'anys': (12, [(0, 1234567), (12, [(9, 'some text'), (3, True)])]),
}

FILLED = dict((name, value[0]) for name, value in CARRIED.items())
SCENE = all_kinds.SCENE + [
    {'type': 'AllKinds', 'name': 'filled', 'params': FILLED},
    {'type': 'AllKinds', 'name': 'rigid', 'params': FILLED, 'rigid': sorted(FILLED)},
    {'type': 'TestThing', 'name': 'thing', 'params': {'count': 1234567}},
    {'type': 'TestSettings', 'name': 'settings'},
    {'type': 'GeomStaticMesh', 'name': 'a mesh', 'params': {'map_channels': [
        {'channel': 7, 'vertices': [[0, 0.5, 0]], 'faces': [0, 0, 0]}]}},
    {'type': 'SettingsOutput', 'name': 'an output', 'params': {'frames': [[1234567, 2], []]}},
    {'type': 'GeomStaticNURBS', 'name': 'a surface'}, {'type': 'SettingsLightLinker', 'name': 'a linker'},
    {'type': 'GeomNode', 'name': 'a node'}, {'type': 'TexImage', 'name': 'an image'},
    {'type': 'TestMaterial', 'name': 'material', 'deferred': True},
    {'type': 'TestTexture', 'name': 'texture', 'deferred': True},
    {'type': 'TestCamera', 'name': 'camera', 'deferred': True},
    {'type': 'TestNode', 'name': 'node', 'deferred': True, 'params': {'material': 'material'}},
]

# The scene files; the test loads the first one before it begins.
FILES = {
    'extra.kscene': [{'type': 'TestThing', 'name': 'extra', 'params': {'count': 1}}],
    'empty.kscene': [],
    'damaged.kscene': ['{"type":"TestThing","name":5}'],
}
DAMAGED = '[{folder}/damaged.kscene] line 2, column 28 | expected the name of the plugin, found 5'


def row(function, path, arguments, outcome, kept=0):
    return function, path, [(function, arguments, outcome)], kept


def typeError(function, arguments, path, text):
    return row(function, path, arguments, raises('%s() %s' % (function, text), TypeError))


STARTED = [
    row('_init', 'started', (), returns(None)),
    ('_init', 'started twice', [('_init', (), returns(None)), ('_init', (), returns(None))], 0),
    ('_uninit', 'ended', [('_uninit', (), returns(None)), ('_init', (), returns(None))], 0),
    ('_uninit', 'ended twice', [('_uninit', (), returns(None)), ('_uninit', (5, 'x'), returns(None)),
                                ('_init', (), returns(None))], 0),

    ('_create', 'created', [('_create', ('TestThing', 'a new thing'), returns('a new thing')),
                            ('_delete', ('a new thing',), returns(None))], 0),
    ('_create', 'created, unicode', [('_create', (u'TestThing', u'a n\xe9w thing'), returns('a n\xc3\xa9w thing')),
                                     ('_delete', (u'a n\xe9w thing',), returns(None))], 0),
    row('_create', 'single instance', ('TestSettings', 'more settings'),
        warns('Only one instance of type \\"TestSettings\\" can exist.')),
    row('_create', 'name taken', ('TestThing', 'thing'), warns('A plugin \\"thing\\" already exists.')),
    row('_create', 'unknown type', ('Nothing', 'a new thing'),
        warns('A plugin \\"a new thing\\" of type \\"Nothing\\" could not be created.')),
    typeError('_create', ('TestThing',), 'missing argument', 'takes at least 2 arguments (1 given)'),
    typeError('_create', ('TestThing', 1234567), 'no text', 'argument 2 must be str, not int'),

    row('_delete', 'unknown plugin', ('nobody',), raises(NO_PLUGIN)),
    typeError('_delete', (), 'missing argument', 'takes at least 1 argument (0 given)'),
    row('_delete', 'unknown plugin, unicode', (u'nob\xf6dy',), raises('The plugin "nob\xc3\xb6dy" doesn\'t exist.')),

    row('_pluginExists', 'exists', ('thing',), returns(True)),
    row('_pluginExists', 'exists in an extra scene', (u'extra',), returns(True)),
    row('_pluginExists', 'unknown plugin', ('nobody',), returns(False)),
    row('_pluginExists', 'missing argument', (), returns(False)),
    row('_pluginExists', 'no text', ([1234567],), returns(False)),

    row('_getPluginType', 'known', ('thing',), returns('TestThing')),
    row('_getPluginType', 'in an extra scene', (u'extra',), returns('TestThing')),
    row('_getPluginType', 'unknown plugin', ('nobody',), raises(NO_PLUGIN)),
    typeError('_getPluginType', (None,), 'no text', 'argument 1 must be str, not NoneType'),

    row('_unique', 'single instance', ('settings',), returns(True)),
    row('_unique', 'many instances', ('thing',), returns(False)),
    row('_unique', 'unknown plugin', ('nobody',), returns(False)),
    typeError('_unique', (True,), 'no text', 'argument 1 must be str, not bool'),

    row('_findByName', 'one found', ('thing',), returns(['thing']), kept=1),
    row('_findByName', 'several found', (u'only_texture_*',),
        returns(['only_' + kind for kind in all_kinds.TEXTURES if kind != 'texture']), kept=5),
    row('_findByName', 'none found', ('nobody',), returns([])),
    typeError('_findByName', (), 'missing argument', 'takes at least 1 argument (0 given)'),
    row('_findByType', 'one found', ('TestThing',), returns(['thing']), kept=1),
    row('_findByType', 'several found', ('AllKind?',), returns(['all', 'other', 'filled', 'rigid']), kept=4),
    row('_findByType', 'none found', ('Nothing*',), returns([])),
    typeError('_findByType', (1.5,), 'no text', 'argument 1 must be str, not float'),

    row('_getTypeParams', 'known type', ('TestThing',), returns(['count', 'label', 'ids', 'link', 'out'])),
    row('_getTypeParams', 'no parameters', (u'NoTexture',), returns([])),
    row('_getTypeParams', 'unknown type', ('Nothing',), warns('\\"Nothing\\" is not a valid plugin type.')),
    typeError('_getTypeParams', (), 'missing argument', 'takes at least 1 argument (0 given)'),

    row('_getPluginParams', 'declared', ('thing', 0), returns(['count', 'label', 'ids', 'link', 'out'])),
    row('_getPluginParams', 'carried', ('thing', True), returns(['count'])),
    row('_getPluginParams', 'carried, many', ('filled', 1234567), returns(list(FILLED))),
    row('_getPluginParams', 'no integer', ('thing', 'flag'), returns(['count'])),
    row('_getPluginParams', 'unknown plugin', ('nobody', 0), raises(NO_PLUGIN)),
    typeError('_getPluginParams', ('thing',), 'missing argument', 'takes at least 2 arguments (1 given)'),

    row('_getParamType', 'single', ('thing', 'count'), returns((0L, False))),
    row('_getParamType', 'list', ('thing', u'ids'), returns((0L, True))),
    row('_getParamType', 'unknown plugin', ('nobody', 'count'), raises(NO_PLUGIN)),
    row('_getParamType', 'unknown parameter', ('thing', 'nothing'), raises(NO_PARAM % 'thing')),
    typeError('_getParamType', ('thing', 1), 'no text', 'argument 2 must be str, not int'),

    row('_isOutputParam', 'output', ('thing', 'out'), returns(True)),
    row('_isOutputParam', 'input', (u'thing', 'count'), returns(False)),
    row('_isOutputParam', 'unknown plugin', ('nobody', 'out'), raises(NO_PLUGIN)),
    row('_isOutputParam', 'unknown parameter', ('thing', 'nothing'), raises(NO_PARAM % 'thing')),
    typeError('_isOutputParam', ('thing',), 'missing argument', 'takes at least 2 arguments (1 given)'),

    row('_paramExists', 'exists', ('thing', 'out'), returns(True)),
    row('_paramExists', 'unknown plugin', ('nobody', 'out'), returns(False)),
    row('_paramExists', 'unknown parameter', ('thing', u'nothing'), returns(False)),
    row('_paramExists', 'missing argument', ('thing',), returns(False)),
    row('_paramExists', 'no text', ('thing', 1.5), returns(False)),

    row('_getParam', 'nothing carried, no default', ('thing', 'ids'), returns(None)),
    row('_getParam', 'nothing carried, a default', ('thing', 'label'), returns(None)),
    row('_getParam', 'a number by default', ('settings', 'samples'), returns((0, 16))),
    row('_getParam', 'a matrix by default', ('a node', 'instancer_matrix'),
        returns((7, ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0))))),
    row('_getParam', 'a transform by default', ('a node', 'transform'),
        returns((8, (((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0)), (0.0, 0.0, 0.0))))),
    row('_getParam', 'a colour by default', ('an image', 'fallback'), returns((6, (1.0, 0.0, 1.0, 1.0)))),
    row('_getParam', 'a text by default', ('an image', 'color_space'), returns((9, 'auto'))),
    row('_getParam', 'map channels', ('a mesh', 'map_channels'),
        returns((12, [(12, [(0, 7), (4, [(0.0, 0.5, 0.0)]), (0, [0, 0, 0])])]))),
    row('_getParam', 'a list of lists', ('an output', 'frames'),
        returns((12, [(12, [(0, 1234567), (0, 2)]), (12, [])]))),
    row('_getParam', 'unknown plugin', ('nobody', 'count'), raises(NO_PLUGIN)),
    row('_getParam', 'unknown parameter', ('thing', 'nothing'), raises(NO_PARAM % 'thing')),
    typeError('_getParam', (u'thing', None), 'no text', 'argument 2 must be str, not NoneType'),

    row('_setParam', 'unknown plugin', ('nobody', 'count', (0, 1234567)), raises(NO_PLUGIN)),
    row('_setParam', 'unknown parameter', ('thing', 'nothing', (0, 1234567)), raises(NO_PARAM % 'thing')),
    row('_setParam', 'another kind', ('thing', 'count', (9, 'some text')),
        raises('Invalid value given for parameter \\"count\\" in plugin \\"thing\\".')),
    row('_setParam', 'no pair', ('thing', 'count', [1234567]),
        raises('Invalid value given for parameter \\"count\\" in plugin \\"thing\\".')),
    row('_setParam', 'no list', ('thing', 'ids', (0, 1234567)),
        raises('Invalid value given for parameter \\"ids\\" in plugin \\"thing\\".')),
    row('_setParam', 'a reference to nobody', ('thing', 'link', (10, 'nobody')), raises(NO_PLUGIN)),
    row('_setParam', 'a reference to no output', ('thing', 'link', (1000, ('other', 'nothing'))),
        raises(NO_PARAM % 'other')),
    row('_setParam', 'a list with a reference to nobody', ('all', 'plugins', (10, [(10, 'other'), (10, 'nobody')])),
        raises(NO_PLUGIN)),
    row('_setParam', 'an element of another kind', ('thing', 'ids', (0, [(0, 1234567), (9, 'some text')])),
        returns(None)),
    row('_setParam', 'an element that is no pair', ('thing', 'ids', (0, [(0, 1234567), 7654321])),
        warns('A value given for parameter "ids" in plugin "thing" could not be read as its type: a (type code, value) '
              'pair is expected, not int.')),
    row('_setParam', 'a number that is none', ('thing', 'count', (0, 'some text')),
        warns('A value given for parameter "count" in plugin "thing" could not be read as its type: an integer is '
              'required.')),
    row('_setParam', 'a list of lists', ('an output', 'frames', (12, [(12, [(0, 1234567), (0, 7)]), (12, [(0, 8)])])),
        returns(None)),
    row('_setParam', 'lists of vectors', ('a surface', 'cvs', (12, [(12, [(4, (1.5, 2.5, 3.5))]), (12, [])])),
        returns(None)),
    row('_setParam', 'lists of references', ('a linker', 'ignored_lights', (12, [(12, [(10, 'other'), (10, 'all')])])),
        returns(None)),
    row('_setParam', 'map channels', ('a mesh', 'map_channels', (12, [(12, [
        (0, 5), (4, [(4, (1.5, 2.5, 3.5)), (4, (4.5, 5.5, 6.5))]), (0, [(0, 0), (0, 1), (0, 0)])])])), returns(None)),
    row('_setParam', 'in an extra scene', (u'extra', u'count', (0, 1234567)), returns(None)),
    typeError('_setParam', ('thing', 'count'), 'missing argument', 'takes at least 3 arguments (2 given)'),
    typeError('_setParam', (1234567, 'count', (0, 1)), 'no text', 'argument 1 must be str, not int'),

    row('_exportTexture', 'exported', ('texture',), returns('texture')),
    row('_exportMaterial', 'exported', (u'material',), returns('material')),
    row('_exportCamera', 'exported', ('camera',), returns('camera')),
    row('_exportNode', 'exported', ('node',), returns('node')),

    row('_addSceneContent', 'no file', ([], ''), returns(None)),
    row('_addSceneContent', 'two files', (['{folder}/empty.kscene', u'{folder}/empty.kscene'], u'text'), returns(None)),
    row('_addSceneContent', 'missing file', (['{folder}/none.kscene'], ''), raises(None)),
    row('_addSceneContent', 'damaged file', (['{folder}/damaged.kscene'], ''), raises(DAMAGED)),
    row('_addSceneContent', 'items that are no texts', ([1234567, None, u'\xe9\xe9'], ''), raises(None)),
    typeError('_addSceneContent', ((), ''), 'no list', 'argument 1 must be list, not tuple'),
    typeError('_addSceneContent', ([],), 'missing argument', 'takes at least 2 arguments (1 given)'),
    row('_appendSceneContent', 'no file', ([], ''), returns(None)),
    row('_appendSceneContent', 'a file', (['{folder}/empty.kscene'], 'text'), returns(None)),
    row('_appendSceneContent', 'missing file', (['{folder}/none.kscene'], ''), raises(None)),
    row('_appendSceneContent', 'damaged file', (['{folder}/damaged.kscene'], ''), raises(DAMAGED)),
    typeError('_appendSceneContent', ([], 1.5), 'no text', 'argument 2 must be str, not float'),

    ('_duplicate', 'duplicated', [('_duplicate', ('filled', 'a copy'), returns('a copy')),
                                  ('_delete', ('a copy',), returns(None))], 0),
    ('_duplicate', 'duplicated, values that cannot clone themselves',
     [('_duplicate', ('rigid', u'a copy'), returns('a copy')), ('_delete', ('a copy',), returns(None))], 0),
    ('_duplicate', 'from an extra scene', [('_duplicate', ('extra', 'a copy'), returns('a copy')),
                                           ('_delete', ('a copy',), returns(None))], 0),
    row('_duplicate', 'unknown plugin', ('nobody', 'a copy'), raises(NO_PLUGIN)),
    row('_duplicate', 'single instance', ('settings', 'a copy'),
        warns('Only one instance of type \\"TestSettings\\" can exist.')),
    row('_duplicate', 'name taken', ('thing', 'other'), warns('A plugin "other" already exists.')),
    row('_duplicate', 'no name', ('thing', ''), warns('A plugin "" of type "TestThing" could not be created.')),
    typeError('_duplicate', ('thing',), 'missing argument', 'takes at least 2 arguments (1 given)'),
]
STARTED += [row('_getParam', name + ', ' + plugin, (plugin, name), returns(value[1]))
            for name, value in sorted(CARRIED.items()) for plugin in ('filled', 'rigid')]
STARTED += [row('_setParam', name, ('all', name, value), returns(None)) for name, value in sorted(GIVEN.items())]
STARTED += [row('_export' + kind.capitalize(), 'refused', ('nobody',),
                warns('The %s \\"nobody\\" could not be exported.' % kind))
            for kind in ('texture', 'material', 'camera', 'node')]
STARTED += [typeError('_export' + kind, (1234567,), 'no text', 'argument 1 must be str, not int')
            for kind in ('Texture', 'Material', 'Camera', 'Node')]

# Before _init.
ARGUMENTS = {
    '_delete': ('thing',), '_create': ('TestThing', 'thing'), '_setParam': ('thing', 'count', (0, 1234567)),
    '_getParam': ('thing', 'count'), '_getPluginParams': ('thing', 1), '_getTypeParams': ('TestThing',),
    '_getPluginType': ('thing',), '_getParamType': ('thing', 'count'), '_isOutputParam': ('thing', 'count'),
    '_findByType': ('*',), '_findByName': ('*',), '_exportTexture': ('thing',), '_exportMaterial': ('thing',),
    '_exportCamera': ('thing',), '_exportNode': ('thing',), '_addSceneContent': ([], ''),
    '_appendSceneContent': ([], ''), '_duplicate': ('thing', 'a copy'),
}
NOT_STARTED = [row(name, 'not initialised', arguments, raises(NOT_INITIALISED))
               for name, arguments in sorted(ARGUMENTS.items())]
NOT_STARTED += [row('_pluginExists', 'not initialised', ('thing',), returns(False)),
                row('_paramExists', 'not initialised', ('thing', 'count'), returns(False)),
                row('_unique', 'not initialised', ('thing',), returns(False)),
                row('_uninit', 'not initialised', (), returns(None))]

# _init under roots that are not what they should be: the folder of the host variant and the message.
REFUSED_STARTS = [('without_' + name, 'MayaSceneAccessUtils: Could not find symbol "%s".' % name)
                  for name in ('getPluginManager', 'getScenes', 'exportTexture', 'exportMaterial', 'exportCamera',
                               'exportNode')]
REFUSED_STARTS += [(name, 'MayaSceneAccessUtils: Could not obtain plugin manager.')
                   for name in ('null_manager', 'null_scenes')]
REFUSED_STARTS += [('nowhere', None)]

# Without a printWarning in the host a warning is an Exception.
WITHOUT_WARNINGS = [
    (function, path + ', no printWarning', [(name, arguments, raises(outcome[1][0]))
                                            for name, arguments, outcome in calls], kept)
    for function, path, calls, kept in STARTED if calls[0][2][0] == 'warns' and function != '_setParam']


def replaced(value, folder):
    """The value with the folder put in, and all its texts and containers made anew."""
    if isinstance(value, (tuple, list)):
        return type(value)([replaced(item, folder) for item in value])
    if isinstance(value, basestring):
        return type(value)('').join(list(value.replace('{folder}', folder)))
    return value


class CallTest(support.ModuleTest):
    """A test of the table's calls, in the state that the table stands for."""

    scene = support.sceneText(*SCENE)

    def setUp(self):
        support.ModuleTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')
        self.addCleanup(shutil.rmtree, self.folder)
        for name, plugins in FILES.items():
            with open(self.folder + '/' + name, 'wb') as scene:
                scene.write(support.sceneText(*plugins))
        self.addExtraScene()

    def addExtraScene(self):
        self.module._addSceneContent([self.folder + '/extra.kscene'], '')

    def leave(self):
        support.ModuleTest.leave(self)
        counters = offlinehost.counters()
        self.abandoned = counters['script_access_begun'] - counters['script_access_ended']

    def made(self, calls):
        """The calls of a row with the functions themselves and arguments of their own."""
        return [(getattr(self.module, function), replaced(arguments, self.folder), outcome)
                for function, arguments, outcome in calls]

    def outcome(self, function, arguments):
        """What a call gives, as the table writes it, in a list."""
        offlinehost.warnings()
        try:
            result = function(*arguments)
        except Exception as error:
            return ['raises', type(error), str(error)]
        warnings = offlinehost.warnings()
        return ['warns', tuple(warnings)] if warnings and result is None else ['returns', result]

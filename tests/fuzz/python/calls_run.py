"""Calls of all 23 functions, with arguments that the bytes choose, compared with scene_model.py one by one.

A run is a session of its own. At its end the main scene is saved and must hold the model's plugins in their order, and
the host is asked what is left.
"""
import atexit
import json
import shutil
import tempfile

import offlinehost
import support
from byte_choices import ByteChoices
from scene_model import SceneModel, TYPES

MOST_CALLS = 60

PLUGINS = [('TestThing', 'thing'), ('TestSettings', 'settings'), ('TestTexture', 'a')]
DEFERRED = [('TestTexture', 'texture'), ('TestMaterial', 'material'), ('TestCamera', 'camera'), ('TestNode', 'node')]
FOLDER = tempfile.mkdtemp()
atexit.register(shutil.rmtree, FOLDER)
FILES = {FOLDER + '/empty.kscene': [], FOLDER + '/one.kscene': [('TestThing', 'extra')],
         FOLDER + '/two.kscene': [('TestCamera', 'more'), ('TestThing', 'a'), ('TestSettings', 'b')]}
for path, plugins in FILES.items():
    with open(path, 'wb') as scene:
        scene.write(support.sceneText(*[{'type': typeName, 'name': name} for typeName, name in plugins]))

NAMES = ['thing', 'a', 'b', 'settings', 'extra', 'more', 'texture', 'material', 'camera', 'node', 'nobody', '', u'\xe9',
         u'thing', 'a\0b', '100%s%n', 'n' * 1022, 'n' * 1023, 'n' * 1024]
TYPE_NAMES = ['TestThing', u'TestThing', 'TestTexture', 'TestMaterial', 'TestCamera', 'TestNode', 'TestSettings',
              'Nothing', '', '%n']
PATTERNS = ['*', '?', 'a*', '*e*', 't?ing', 'Test*', '*ing', '*t*t*', 'nobody', u'\xe9', '??', '', 'n*n', '*%*']
PARAMS = ['count', 'label', 'ids', 'link', 'out', 'color', 'file', 'fov', 'material', 'samples', 'nothing', '']
WORDS = {'new': NAMES, 'type': TYPE_NAMES, 'pattern': PATTERNS, 'flag': [0, 1, True], 'text': ['', 'text']}
PATHS = sorted(FILES) + [FOLDER + '/missing.kscene']
REFERENCES = [name for name in NAMES if isinstance(name, str)]


class Arguments(object):
    """Makes arguments out of choices."""

    def __init__(self, choices, model):
        self.choices = choices
        self.model = model
        self.plugin = None  # the one that was named last
        self.declared = None  # the parameter that was named last

    def mostly(self):
        return self.choices.randrange(4) != 0

    def name(self):
        """Mostly of a plugin that there is."""
        plugins = self.model.main + sum(self.model.extra, [])
        if not plugins or not self.mostly():
            return self.choices.choice(NAMES)
        self.plugin = self.choices.choice(plugins)
        return self.plugin.name

    def param(self):
        """Mostly one of the plugin."""
        if self.plugin is None or not self.mostly():
            return self.choices.choice(PARAMS)
        self.declared = self.choices.choice(TYPES[self.plugin.type])
        return self.declared[0]

    def value(self):
        """Mostly one that the parameter takes."""
        kind = self.choices.randrange(7)
        if self.declared is not None and self.mostly():
            kind = {0: int(self.declared[2]), 1: 5, 9: 3, 10: 2, 11: 6}.get(self.declared[1], kind)
        if kind == 0:
            return 0, self.choices.randrange(256)
        if kind == 1:
            return 0, [(0, self.choices.randrange(256)) for _ in range(self.choices.randrange(4))]
        if kind == 2:
            return 10, self.choices.choice(REFERENCES)
        if kind == 3:
            return 9, self.choices.choice(REFERENCES)
        if kind == 4:
            return 1000, (self.choices.choice(REFERENCES), self.choices.choice(PARAMS))
        return ((1, 0.5), (5, (1.0, 0.5, 0.25)))[kind - 5]

    def make(self, kind):
        if kind in ('name', 'param', 'value'):
            return getattr(self, kind)()
        if kind == 'paths':
            return [self.choices.choice(PATHS) for _ in range(self.choices.randrange(3))]
        return self.choices.choice(WORDS[kind])


# What is called more often stands here more often: a scene that is built up shows more.
FUNCTIONS = [(name, kinds.split()) for name, kinds in (
    ('_create', 'type new'), ('_setParam', 'name param value'), ('_getParam', 'name param'), ('_delete', 'name'),
    ('_duplicate', 'name new'), ('_pluginExists', 'name'), ('_getPluginType', 'name'), ('_unique', 'name'),
    ('_findByName', 'pattern'), ('_findByType', 'pattern'), ('_getTypeParams', 'type'),
    ('_getPluginParams', 'name flag'), ('_getParamType', 'name param'), ('_isOutputParam', 'name param'),
    ('_paramExists', 'name param'), ('_exportTexture', 'name'), ('_exportMaterial', 'name'), ('_exportCamera', 'name'),
    ('_exportNode', 'name'), ('_addSceneContent', 'paths text'), ('_appendSceneContent', 'paths text'), ('_init', ''),
    ('_uninit', ''), ('_create', 'type new'), ('_setParam', 'name param value'), ('_setParam', 'name param value'),
    ('_getParam', 'name param'), ('_getParam', 'name param'))]
assert len(set(name for name, _ in FUNCTIONS)) == 23


class CallsTest(support.ModuleTest):

    scene = support.sceneText(*([{'type': typeName, 'name': name} for typeName, name in PLUGINS] +
                                [{'type': typeName, 'name': name, 'deferred': True} for typeName, name in DEFERRED]))

    def outcome(self, function, arguments):
        try:
            result = getattr(self.module, function)(*arguments)
        except Exception as error:
            self.assertIs(type(error), Exception)
            self.assertEqual(offlinehost.warnings(), [])
            return 'raises', str(error)
        warnings = offlinehost.warnings()
        if not warnings:
            return 'returns', repr(result)
        self.assertEqual((len(warnings), result), (1, None))
        return 'warns', warnings[0]

    def compare(self, call, actual, expected):
        if expected[1].endswith('...') and actual[1].startswith(expected[1][:-3]):
            expected = actual
        self.assertEqual((call, actual), (call, expected))

    def compareValues(self, model):
        """Every plugin that can be found carries what the model's does, in the same order."""
        for plugin in model.main + sum(model.extra, []):
            if model.find(plugin.name) is plugin:
                carried = [(param, repr(self.module._getParam(plugin.name, param)))
                           for param in self.module._getPluginParams(plugin.name, 1)]
                self.assertEqual((plugin.name, carried), (plugin.name, plugin.values))

    def runTest(self):
        model = SceneModel(PLUGINS, DEFERRED, FILES)
        model.started = True
        arguments = Arguments(self.choices, model)
        for _ in range(MOST_CALLS):
            if not self.choices.more():
                break
            function, kinds = self.choices.choice(FUNCTIONS)
            if not model.started and arguments.mostly():
                function, kinds = '_init', []
            given = [arguments.make(kind) for kind in kinds]
            self.compare((function, given), self.outcome(function, given), model.call(function, given))
        if model.started:
            self.compareValues(model)
        records = [json.loads(line) for line in offlinehost.text().splitlines()[1:]]
        stands = [(record['type'], record['name'].encode('utf-8')) for record in records if not record.get('deferred')]
        self.assertEqual(stands, [(plugin.type, plugin.name) for plugin in model.main])
        self.module._uninit()
        counters = offlinehost.counters()
        self.abandoned = counters['script_access_begun'] - counters['script_access_ended']


def run(data):
    test = CallsTest()
    test.choices = ByteChoices(data)
    test.setUp()
    test.runTest()
    test.tearDown()

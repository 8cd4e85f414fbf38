"""A scene as the 23 functions show it, in plain Python: what each call returns, warns or raises, and what it changes.

An outcome is ('returns', repr), ('warns', text) or ('raises', text); a text that ends in ... stands for its beginning.
"""
import re
import struct

import call_cases
from value_model import modelSet

# Type -> its parameters: (name, type code, is a list); those of tests/support/types/testing.json.
TYPES = {
    'TestThing': [('count', 0, False), ('label', 9, False), ('ids', 0, True), ('link', 10, False),
                  ('out', 1000, False)],
    'TestMaterial': [('color', 11, False)], 'TestTexture': [('file', 9, False)], 'TestCamera': [('fov', 1, False)],
    'TestNode': [('material', 10, False)], 'TestSettings': [('samples', 0, False)],
}
FOV = struct.unpack('f', struct.pack('f', 0.7853982))[0]
DEFAULTS = {('TestThing', 'count'): (0, 3), ('TestSettings', 'samples'): (0, 16), ('TestCamera', 'fov'): (1, FOV),
            ('TestMaterial', 'color'): (6, (0.5, 0.5, 0.5, 1.0))}
KINDS = {'TestMaterial': 'material', 'TestTexture': 'texture', 'TestCamera': 'camera', 'TestNode': 'node'}
FEEDS = {'TestMaterial': (11,), 'TestTexture': (11, 13)}
LONGEST_MESSAGE = 1023


def characters(text):
    """What the module reads of a text argument."""
    return (text.encode('utf-8') if isinstance(text, unicode) else text).split('\0')[0]


def returns(value):
    return 'returns', repr(value)


def warns(text):
    return 'warns', text[:LONGEST_MESSAGE]


class Raised(Exception):
    """What a call raises."""


class Plugin(object):

    def __init__(self, typeName, name):
        self.type = typeName
        self.name = name
        self.values = []  # (parameter, repr of what is read), in the order in which they came

    def value(self, param):
        return dict(self.values).get(param)

    def give(self, param, shown):
        if self.value(param) is None:
            self.values.append((param, shown))
        else:
            self.values = [(name, shown if name == param else old) for name, old in self.values]

    def declared(self, param):
        for name, code, isList in TYPES[self.type]:
            if name == param:
                return code, isList
        raise Raised('A parameter with name "%s" doesn\'t exist for plugin "%s".' % (param, self.name))


def findIn(scene, name):
    for plugin in scene:
        if plugin.name == name:
            return plugin
    return None


class SceneModel(object):

    def __init__(self, plugins, deferred, files):
        self.main = [Plugin(typeName, name) for typeName, name in plugins]
        self.waiting = [Plugin(typeName, name) for typeName, name in deferred]
        self.files = files  # path -> [(type, name)]
        self.extra = []  # oldest first
        self.started = False

    def call(self, function, arguments):
        """The outcome of a call whose arguments are of the right kinds."""
        if function in ('_init', '_uninit'):
            self.started = function == '_init'
            return returns(None)
        if not self.started:
            if function in ('_pluginExists', '_paramExists', '_unique'):
                return returns(False)
            return 'raises', call_cases.NOT_INITIALISED
        try:
            return getattr(self, function[1:])(*arguments)
        except Raised as error:
            return 'raises', str(error)[:LONGEST_MESSAGE]

    # Finding

    def find(self, name):
        found = findIn(self.main, name)
        for scene in reversed(self.extra):
            found = found or findIn(scene, name)
        return found

    def lookup(self, name):
        plugin = self.find(characters(name))
        if plugin is None:
            raise Raised('The plugin "%s" doesn\'t exist.' % characters(name))
        return plugin

    def pluginExists(self, name):
        return returns(self.find(characters(name)) is not None)

    def getPluginType(self, name):
        return returns(self.lookup(name).type)

    def unique(self, name):
        plugin = self.find(characters(name))
        return returns(plugin is not None and plugin.type == 'TestSettings')

    def search(self, pattern, text):
        wanted = ''.join({'*': '.*', '?': '.'}.get(byte, re.escape(byte)) for byte in characters(pattern))
        return returns([plugin.name for plugin in self.main if re.match('(?:%s)\\Z' % wanted, text(plugin), re.DOTALL)])

    def findByName(self, pattern):
        return self.search(pattern, lambda plugin: plugin.name)

    def findByType(self, pattern):
        return self.search(pattern, lambda plugin: plugin.type)

    # Making and ending

    def made(self, typeName, name, quote):
        if findIn(self.main, name) is not None:
            return None, warns('A plugin %s%s%s already exists.' % (quote, name, quote))
        if not name or typeName not in TYPES:
            text = 'A plugin {0}%s{0} of type {0}%s{0} could not be created.'.format(quote)
            return None, warns(text % (name, typeName))
        self.main.append(Plugin(typeName, name))
        return self.main[-1], returns(name)

    def create(self, typeName, name):
        typeName, name = characters(typeName), characters(name)
        if typeName == 'TestSettings' and any(plugin.type == typeName for plugin in self.main):
            return warns('Only one instance of type \\"TestSettings\\" can exist.')
        return self.made(typeName, name, '\\"')[1]

    def duplicate(self, source, name):
        source = self.lookup(source)
        if source.type == 'TestSettings':
            return warns('Only one instance of type \\"TestSettings\\" can exist.')
        plugin, outcome = self.made(source.type, characters(name), '"')
        if plugin is not None:
            plugin.values = list(source.values)
        return outcome

    def delete(self, name):
        plugin = self.lookup(name)
        for scene in [self.main] + self.extra:
            if plugin in scene:
                scene.remove(plugin)
        return returns(None)

    # Parameters

    def getTypeParams(self, typeName):
        typeName = characters(typeName)
        if typeName not in TYPES:
            return warns('\\"%s\\" is not a valid plugin type.' % typeName)
        return returns([name for name, _, _ in TYPES[typeName]])

    def getPluginParams(self, name, existing):
        plugin = self.lookup(name)
        return returns([param for param, _ in plugin.values] if existing else [row[0] for row in TYPES[plugin.type]])

    def paramExists(self, name, param):
        plugin = self.find(characters(name))
        return returns(plugin is not None and any(row[0] == param for row in TYPES[plugin.type]))

    def getParamType(self, name, param):
        code, isList = self.lookup(name).declared(param)
        return returns((long(code), isList))

    def isOutputParam(self, name, param):
        return returns(self.lookup(name).declared(param)[0] >= 1000)

    def getParam(self, name, param):
        plugin = self.lookup(name)
        plugin.declared(param)
        return 'returns', plugin.value(param) or repr(DEFAULTS.get((plugin.type, param)))

    def setParam(self, name, param, value):
        plugin = self.lookup(name)
        code, isList = plugin.declared(param)
        visible = dict((each.name, each) for scene in [[]] + self.extra + [self.main] for each in scene)
        feeds = dict((each.name, FEEDS.get(each.type, ())) for each in visible.values())
        outputs = dict(((each.name, row[0]), row[1]) for each in visible.values() for row in TYPES[each.type])
        kind, shown, _ = modelSet(feeds, outputs, code, isList, None, value)
        if kind == 'invalid':
            raise Raised('Invalid value given for parameter \\"%s\\" in plugin \\"%s\\".' % (param, characters(name)))
        if kind == 'missing':
            raise Raised(shown)
        plugin.give(param, shown)
        return returns(None)

    # Exports

    def export(self, kind, name):
        name = characters(name)
        plugin = findIn(self.main, name)
        wanted = findIn(self.waiting, name)
        found = plugin or wanted
        if found is None or kind not in ('node', KINDS.get(found.type)):
            return warns('The %s \\"%s\\" could not be exported.' % (kind, name))
        if plugin is None:
            self.waiting.remove(wanted)
            self.main.append(wanted)
        return returns(name)

    def exportTexture(self, name):
        return self.export('texture', name)

    def exportMaterial(self, name):
        return self.export('material', name)

    def exportCamera(self, name):
        return self.export('camera', name)

    def exportNode(self, name):
        return self.export('node', name)

    # Scene files

    def load(self, scene, paths):
        for path in paths:
            if path not in self.files:
                raise Raised('[%s] ...' % path)
            for line, (typeName, name) in enumerate(self.files[path]):
                if findIn(scene, name) is not None:
                    raise Raised('[%s] line %d, column 1 | plugin "%s" | a plugin of this name stands in the scene '
                                 'already' % (path, line + 2, name))
                scene.append(Plugin(typeName, name))
        return returns(None)

    def addSceneContent(self, paths, _):
        self.extra.append([])
        return self.load(self.extra[-1], paths)

    def appendSceneContent(self, paths, text):
        return self.load(self.extra[0], paths) if self.extra else self.addSceneContent(paths, text)

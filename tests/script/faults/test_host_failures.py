"""A host that refuses, and scene files that cannot be read: words of their own, the scene as it was, nothing kept."""
import json
import os
import shutil
import tempfile

import call_cases as cases
import offlinehost
import support

PLUGINS = [
    {'type': 'AllKinds', 'name': 'filled', 'params': cases.FILLED},
    {'type': 'AllKinds', 'name': 'other'},
    {'type': 'AllKinds', 'name': 'rigid', 'params': cases.FILLED, 'rigid': sorted(cases.FILLED)},
    {'type': 'TestMaterial', 'name': 'waiting', 'deferred': True, 'params': {'color': 'other'}},
    {'type': 'GeomStaticMesh', 'name': 'mesh', 'params': {'vertices': [[0, 0, 0], [1, 0, 0]], 'faces': [0, 1, 0]}},
]


# Reads files as a user who is not root, and tells how that failed and what was read before.
UNREADABLE = '''
import json, os, sys
import offlinehost
from kelmo import pluginmodifier as m
offlinehost.add_types(%r)
m._init()
if os.getuid() == 0: os.setuid(65534)
good, paths = %r, %r
for path in paths:
    try: m._addSceneContent([good, path], '')
    except Exception as error: print error
for index in range(len(paths)):
    print json.dumps([json.loads(line)['name'] for line in offlinehost.extra_text(index).splitlines()[1:]])
m._uninit()
print [name for name, count in offlinehost.end().items() if count and name.startswith(('blocks_', 'misuse_'))]
sys.stdout.flush()
os._exit(0)  # nothing is written at the end, which this user may not do
'''


class FilesTest(support.ModuleTest):

    scene = support.sceneText({'type': 'TestThing', 'name': 'thing', 'params': {'count': 5}})

    def setUp(self):
        support.ModuleTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        with open(self.folder + '/' + name, 'wb') as scene:
            scene.write(text)
        return self.folder + '/' + name

    def failure(self, files, function='_addSceneContent'):
        """The text of the exception that loading these files raises; '' when it raises none."""
        before = offlinehost.text()
        scenes = offlinehost.counters()['extra_scenes']
        text = ''
        support.figure('damaged and missing scene files read')
        try:
            self.assertIs(getattr(self.module, function)(files, ''), None)
        except Exception as error:
            self.assertIs(type(error), Exception)
            text = str(error)
        self.assertIs(offlinehost.take_pending_error(), None)
        # A scene that was made stays listed, and the main scene does not change.
        scenes += 1 if function == '_addSceneContent' or scenes == 0 else 0
        self.assertEqual((offlinehost.counters()['extra_scenes'], offlinehost.text()), (scenes, before))
        return text

    def extraNames(self):
        return [json.loads(line)['name'] for line in offlinehost.extra_text(0).splitlines()[1:]]


class UnreadableFilesTest(FilesTest):

    def testFilesThatAreNone(self):
        good = self.write('good.kscene', support.sceneText({'type': 'TestThing', 'name': 'good'}))
        self.write('a file', '')
        paths = [self.folder + '/none.kscene', self.folder, self.folder + '/a file/below', self.folder + '/none/none',
                 'n' * 5000, self.folder + '/bell\a']
        if os.name == 'posix':
            # What can be opened and not be read, even by somebody who may read everything.
            paths.append('/proc/self/mem')
            os.symlink(self.folder + '/nowhere', self.folder + '/dangling')
            paths.append(self.folder + '/dangling')
        for path in paths:
            text = self.failure([good, path, good])
            self.assertIn(path[:400], text)
            self.assertEqual((path, self.extraNames()), (path, ['good']))
        # Appended to the oldest scene, which has the first file's plugin already.
        for path in paths:
            self.assertIn(path[:400], self.failure([path, good], '_appendSceneContent'))
            self.assertIn('"good"', self.failure([good, path], '_appendSceneContent'))

        if os.name == 'posix':
            self.checkFilesThatMayNotBeRead(good)

    def checkFilesThatMayNotBeRead(self, good):
        """As somebody who may not read everything."""
        os.chmod(self.folder, 0o755)
        closed = self.write('closed.kscene', support.sceneText({'type': 'TestThing', 'name': 'closed'}))
        os.chmod(closed, 0)
        os.mkdir(self.folder + '/closed', 0)
        paths = [closed, self.folder + '/closed/any.kscene']
        lines = ['[%s] the file cannot be read: Permission denied' % path for path in paths] + ['["good"]'] * 2 + ['[]']
        result = support.runPython(UNREADABLE % (self.types[0], good, paths))
        self.assertEqual(result, (0, '\n'.join(lines) + '\n', ''))

    def testFilesThatHoldNoScene(self):
        for text in ('', '\n', ' ', '\0', '{}', '[]', 'null', '{"kelmo-scene":2}', '{"kelmo-scene":"1"}\n',
                     '\xff\xfe{\0', '\xef\xbb\xbf',
                     '{"kelmo-scene":1', '{"type":"TestThing","name":"thing"}\n', '<scene/>',
                     '\x1f\x8b\x08\0\0\0\0\0', '[' * 100000):
            path = self.write('none.kscene', text)
            self.assertIn(path, self.failure([path]), repr(text[:40]))
            self.assertEqual(self.extraNames(), [])


class DamagedLinesTest(FilesTest):

    # What becomes of a line; None: nothing that is still one.
    DAMAGES = [
        ('cut', lambda line: line[:len(line) // 2]),
        ('without its end', lambda line: line[:-1]),
        ('of nothing', lambda line: '{}'),
        ('of another kind', lambda line: '[' + line + ']'),
        ('with more behind it', lambda line: line + '}'),
        ('with a zero', lambda line: line[:9] + '\0' + line[9:]),
        ('that is not UTF-8', lambda line: line[:3] + '\xff' + line[3:]),
        ('with a number in place of a text', lambda line: line.replace('"' + line.split('"')[3] + '"', '5', 1)),
        ('with a key of its own', lambda line: line[:-1] + ',"further":5}'),
        ('nested beyond all bounds', lambda line: line[:-1] + ',"params":' + '[' * 5000 + ']' * 5000 + '}'),
    ]

    def testEveryLineInEveryWay(self):
        lines = support.sceneText(*PLUGINS).splitlines()
        for number in range(1, len(lines)):
            for label, damage in self.DAMAGES:
                damaged = list(lines)
                damaged[number] = damage(lines[number])
                self.assertNotEqual(damaged[number], lines[number])
                path = self.write('damaged.kscene', '\n'.join(damaged) + '\n')
                text = self.failure([path])
                where = 'line %d, %s: %s' % (number + 1, label, text)
                self.assertTrue(text.startswith('[%s] line %d' % (path, number + 1)), where)
                # What stood before it is there; a plugin that is still deferred is no plugin of the scene.
                before = [plugin['name'] for plugin in PLUGINS[:number - 1]]
                self.assertEqual((where, self.extraNames()), (where, before))
                # And the module goes on.
                self.assertEqual(self.module._getParam('thing', 'count'), (0, 5))
                for name in before:
                    self.assertIs(self.module._pluginExists(name), name != 'waiting')

    def testTheHeader(self):
        lines = support.sceneText(*PLUGINS).splitlines()
        for label, damage in self.DAMAGES[:7]:
            path = self.write('damaged.kscene', '\n'.join([damage(lines[0])] + lines[1:]) + '\n')
            text = self.failure([path])
            self.assertTrue(text.startswith('[%s] line 1' % path), '%s: %s' % (label, text))
            self.assertEqual(self.extraNames(), [])

    def testAFileThatEndsAtAnyByte(self):
        plugins = PLUGINS[1:2] + PLUGINS[4:]
        lines = support.sceneText(*plugins).splitlines()
        whole = '\n'.join(lines) + '\n'
        for length in range(0, len(whole) + 1):
            path = self.write('cut.kscene', whole[:length])
            kept = whole[:length].split('\n')
            # A last line may be whole without its end.
            complete = sum(a == b for a, b in zip(kept, lines))
            text = self.failure([path])
            self.assertEqual((length, self.extraNames()),
                             (length, [plugin['name'] for plugin in plugins[:max(0, complete - 1)]]))
            isWhole = complete > 0 and kept[complete:] in ([], [''])
            self.assertEqual((length, text == ''), (length, isWhole))


class RefusalsTest(cases.CallTest):

    def testAPluginWithoutADescriptorInterface(self):
        # Its outputs cannot be asked for, so they feed nothing; everything else is as with any plugin.
        self.assertRaisesText(Exception, 'Invalid value given for parameter \\"texture\\" in plugin \\"all\\".',
                              self.module._setParam, 'all', 'texture', (1000, ('hidden', 'output_texture')))
        self.assertIs(self.module._setParam('all', 'texture', (10, 'hidden')), None)
        self.assertEqual(self.module._getParam('all', 'texture'), (10, 'hidden'))

    def testEveryRefusalLeavesTheSceneAsItWas(self):
        before = offlinehost.text()
        for function, path, calls, _ in cases.STARTED:
            # A conversion that fails is a warning, and the value is set all the same.
            isSet = path in ('a number that is none', 'an element that is no pair')
            if calls[0][2][0] == 'returns' or function.endswith('SceneContent') or isSet:
                continue
            for call, arguments, _ in self.made(calls):
                self.assertNotEqual(self.outcome(call, arguments)[0], 'returns', path)
            self.assertEqual((function, path, offlinehost.text()), (function, path, before))
        self.assertEqual(offlinehost.counters()['owned_values'], 0)

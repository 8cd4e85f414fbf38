# -*- coding: utf-8 -*-
"""Loading scene files into extra scenes, and how plugins of extra scenes are found."""
import shutil
import tempfile

import offlinehost
import support


class SceneContentTest(support.ModuleTest):

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'}, {'type': 'MtlDiffuse', 'name': 'main only'})

    def setUp(self):
        support.ModuleTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')
        self.a = self.write('a.kscene', {'type': 'TexChecker', 'name': 'a'}, {'type': 'TexChecker', 'name': 'clay'},
                            {'type': 'TexChecker', 'name': 'shared'})
        self.b = self.write('b.kscene', {'type': 'TexNoise', 'name': 'b'}, {'type': 'TexNoise', 'name': 'shared'})

    def tearDown(self):
        shutil.rmtree(self.folder)
        support.ModuleTest.tearDown(self)

    def write(self, name, *plugins):
        path = self.folder + '/' + name
        with open(path, 'wb') as scene:
            scene.write(support.sceneText(*plugins))
        return path

    def extraNames(self, index):
        return [line.split('"name":"')[1].split('"')[0] for line in offlinehost.extra_text(index).splitlines()[1:]]

    def extraScenes(self):
        return offlinehost.counters()['extra_scenes']

    def reads(self):
        """The calls of readFile since the last look."""
        return [event for event in offlinehost.events() if 'readFile' in event]


class AddTest(SceneContentTest):

    def testPluginsAreFound(self):
        self.assertIs(self.module._addSceneContent([self.a], ''), None)
        self.assertEqual(self.module._getPluginType('a'), 'TexChecker')
        self.assertEqual(self.extraScenes(), 1)

    def testTheMainSceneWins(self):
        self.module._addSceneContent([self.a], '')
        self.assertEqual(self.module._getPluginType('clay'), 'MtlDiffuse')
        self.module._delete('clay')
        self.assertEqual(self.module._getPluginType('clay'), 'TexChecker')

    def testTheNewestExtraSceneWins(self):
        self.module._addSceneContent([self.a], '')
        self.module._addSceneContent([self.b], '')
        self.assertEqual(self.module._getPluginType('shared'), 'TexNoise')
        self.assertEqual((self.extraNames(0), self.extraNames(1)), (['b', 'shared'], ['a', 'clay', 'shared']))
        self.module._delete('shared')
        self.assertEqual(self.module._getPluginType('shared'), 'TexChecker')
        self.module._delete('shared')
        self.assertIs(self.module._pluginExists('shared'), False)

    def testDeletingInAnExtraScene(self):
        self.module._addSceneContent([self.a, self.write('b2.kscene', {'type': 'TexNoise', 'name': 'b'})], '')
        offlinehost.observe()
        self.module._delete('b')
        self.assertEqual(offlinehost.events(), ['manager.findPlugin("b")', 'scene.findPlugin("b")',
                                                'scene.deletePlugin("b", true)'])
        self.assertEqual(self.extraNames(0), ['a', 'clay', 'shared'])
        self.assertEqual(self.module._findByName('*'), ['clay', 'main only'])

    def testSearchesSeeTheMainSceneOnly(self):
        self.module._addSceneContent([self.a], '')
        self.assertEqual(self.module._findByName('*'), ['clay', 'main only'])
        self.assertEqual(self.module._findByType('Tex*'), [])

    def testCreationGoesToTheMainScene(self):
        self.module._addSceneContent([self.a], '')
        self.assertEqual(self.module._create('TexNoise', 'a'), 'a')  # the name is free there
        self.assertEqual(self.module._getPluginType('a'), 'TexNoise')
        self.assertEqual(self.extraNames(0), ['a', 'clay', 'shared'])

    def testAnEmptyListMakesAScene(self):
        self.module._addSceneContent([], '')
        self.assertEqual((self.extraScenes(), self.extraNames(0)), (1, []))

    def testManyScenes(self):
        # More than one block of the list's storage.
        for i in range(40):
            self.module._addSceneContent([self.write('%d.kscene' % i, {'type': 'TexNoise', 'name': 'n%d' % i})], '')
        self.assertEqual(self.extraScenes(), 40)
        for i in range(40):
            self.assertEqual(self.extraNames(i), ['n%d' % (39 - i)])
            self.assertIs(self.module._pluginExists('n%d' % i), True)

    def testAReferenceThatASavedSceneCannotHoldIsNull(self):
        # By name it would lead nowhere, or to the main scene's plugin of that name.
        self.module._create('MtlDiffuse', 'user')
        self.module._addSceneContent([self.write('c.kscene', {'type': 'TexChecker', 'name': 'far'},
                                                 {'type': 'TexChecker', 'name': 'clay'},
                                                 {'type': 'MtlDiffuse', 'name': 'far user', 'params': {'color': 'clay'}},
                                                 {'type': 'MtlDiffuse', 'name': 'near user',
                                                  'params': {'color': 'main only'}})], '')
        self.module._setParam('user', 'color', (10, 'far'))
        self.assertEqual(self.module._getParam('user', 'color'), (10, 'far'))
        self.module._duplicate('far user', 'copy')
        self.assertEqual(offlinehost.text().splitlines()[3:],
                         ['{"type":"MtlDiffuse","name":"user","params":{"color":null}}',
                          '{"type":"MtlDiffuse","name":"copy","params":{"color":null}}'])
        # An extra scene refers to the main scene by name.
        self.assertEqual(offlinehost.extra_text(0).splitlines()[3:],
                         ['{"type":"MtlDiffuse","name":"far user","params":{"color":"clay"}}',
                          '{"type":"MtlDiffuse","name":"near user","params":{"color":"main only"}}'])

    def testWhatTheSceneIsAsked(self):
        offlinehost.observe()
        other = self.write('other.kscene')
        self.module._addSceneContent([self.a, other], '')
        self.assertEqual(offlinehost.events(), ['KelmoScene(manager, null, 0)'] +
                         ['scene.readFile("%s", 0, 1, null)' % path for path in (self.a, other)])
        self.module._addSceneContent([self.a], u'pr\u00e9fix')
        self.assertEqual(self.reads(), ['scene.readFile("%s", 0, 1, "%s")' % (self.a, u'pr\u00e9fix'.encode('utf-8'))])

    def testUnicodeFileNames(self):
        # An ASCII unicode item has characters; any other has none, and reaches the core as no name at all.
        self.module._addSceneContent([unicode(self.a)], '')
        self.assertIs(self.module._pluginExists('a'), True)
        offlinehost.observe()
        self.assertRaises(Exception, self.module._addSceneContent, [u'd\u00e9j\u00e0.kscene'], '')
        self.assertEqual(self.reads(), ['scene.readFile(null, 0, 1, null)'])

    def testANameWhoseEncodingChangesTheList(self):
        # The encoding is the script's own, and takes away the only other reference to the name.
        code = ('import codecs, sys\n'
                'from kelmo import pluginmodifier as m\n'
                'files, encoded = [], "".join(["no such", " file"])\n'
                'def encode(name, errors=None):\n'
                '    del files[:]\n'
                '    return encoded, len(name)\n'
                'codecs.register(lambda name: (encode, None, None, None) if name == "own" else None)\n'
                'reload(sys)\n'
                'sys.setdefaultencoding("own")\n'
                'm._init()\n'
                'before = sys.getrefcount(encoded)\n'
                'for number in range(3):\n'
                '    files.append(u"name " + u"012"[number])\n'
                '    try:\n'
                '        m._addSceneContent(files, "")\n'
                '    except Exception as error:\n'
                '        print str(error)[:15], len(files), sys.getrefcount(encoded) - before\n'
                '        sys.exc_clear()\n'
                '        del error\n'
                'm._uninit()\n')
        status, out, err = support.runPython(code)
        self.assertEqual((status, err), (0, ''))
        self.assertEqual(out, '[no such file]  0 0\n' * 3)

    def testItemsThatAreNoStrings(self):
        for item in (None, 5, ['a'], object()):
            offlinehost.observe()
            self.assertRaises(Exception, self.module._addSceneContent, [item], '')
            self.assertEqual(self.reads(), ['scene.readFile(null, 0, 1, null)'])
            self.assertIs(offlinehost.take_pending_error(), None)

    def testAHoleInTheList(self):
        # As _getParam hands them out.
        self.module._create('UserAttributes', 'mixed')
        self.module._setParam('mixed', 'values', (12, [(11, 'unknown')]))
        offlinehost.observe()
        self.assertRaises(Exception, self.module._addSceneContent, self.module._getParam('mixed', 'values')[1], '')
        self.assertEqual(self.reads(), ['scene.readFile(null, 0, 1, null)'])
        self.assertIs(offlinehost.take_pending_error(), None)

    def testAnEmptyFileNameIsNotNull(self):
        offlinehost.observe()
        self.assertRaises(Exception, self.module._addSceneContent, [''], '')
        self.assertEqual(self.reads(), ['scene.readFile("", 0, 1, null)'])

    def testANameEndsAtItsFirstZero(self):
        self.module._addSceneContent([self.a + '\0more'], '')
        self.assertIs(self.module._pluginExists('a'), True)

    def testArgumentsOfAnotherKindMakeNoScene(self):
        for arguments in ((), (5, ''), ((self.a,), ''), ([self.a],), ([self.a], 5)):
            self.assertRaises(TypeError, self.module._addSceneContent, *arguments)
            self.assertRaises(TypeError, self.module._appendSceneContent, *arguments)
        self.assertEqual(self.extraScenes(), 0)


class AppendTest(SceneContentTest):

    def testIntoNothingMakesAScene(self):
        self.assertIs(self.module._appendSceneContent([self.a], ''), None)
        self.assertEqual((self.extraScenes(), self.extraNames(0)), (1, ['a', 'clay', 'shared']))

    def testIntoTheOldestScene(self):
        self.module._addSceneContent([], '')
        self.module._addSceneContent([], '')
        self.module._appendSceneContent([self.a], '')
        self.assertEqual(self.extraScenes(), 2)
        self.assertEqual((self.extraNames(0), self.extraNames(1)), ([], ['a', 'clay', 'shared']))

    def testAnEmptyListDoesNothing(self):
        self.module._addSceneContent([self.a], '')
        self.module._appendSceneContent([], '')
        self.assertEqual((self.extraScenes(), self.extraNames(0)), (1, ['a', 'clay', 'shared']))
        offlinehost.reset()
        self.module._appendSceneContent([], '')
        self.assertEqual(self.extraScenes(), 1)


class FailuresTest(SceneContentTest):

    def failure(self, function, files):
        try:
            function(files, '')
        except Exception as error:
            self.assertIs(type(error), Exception)
            return str(error)
        self.fail('no exception')

    def testAFileThatIsNotThere(self):
        text = self.failure(self.module._addSceneContent, [self.a, self.folder + '/none.kscene', self.b])
        self.assertTrue(text.startswith('['), text)
        self.assertIn(self.folder + '/none.kscene', text)
        # The scene stays, with what was read before; later files are not tried.
        self.assertEqual((self.extraScenes(), self.extraNames(0)), (1, ['a', 'clay', 'shared']))

    def testADamagedFileKeepsWhatStoodBefore(self):
        damaged = self.write('damaged.kscene', {'type': 'TexNoise', 'name': 'good'}, '{"type":"TexNoise","name":5}')
        text = self.failure(self.module._addSceneContent, [damaged])
        self.assertIn(damaged, text)
        self.assertIn('3', text)  # the line
        self.assertIn(' | ', text)  # the cause behind it
        self.assertEqual(self.extraNames(0), ['good'])

    def testAFailureInAppending(self):
        self.module._addSceneContent([self.a], '')
        self.failure(self.module._appendSceneContent, [self.folder])
        self.assertEqual((self.extraScenes(), self.extraNames(0)), (1, ['a', 'clay', 'shared']))

    def testTheMessageIsCut(self):
        name = self.folder + '/' + 'n' * 3000
        text = self.failure(self.module._addSceneContent, [name])
        self.assertEqual(len(text), 1023)
        self.assertTrue(('[' + name).startswith(text), text)

    def testTheMessageIsNoFormat(self):
        name = self.folder + '/%s%n%1000000d.kscene'
        text = self.failure(self.module._addSceneContent, [name])
        self.assertTrue(text.startswith('[%s] ' % name), text)


class WithoutMemoryTest(SceneContentTest):

    def testTheSceneItself(self):
        # The 32 bytes cannot be had: a null scene is listed, and skipped by everything.
        offlinehost.fail_allocation(1)
        self.assertIs(self.module._addSceneContent([self.a], ''), None)
        offlinehost.fail_allocation(0)
        self.assertEqual(self.extraScenes(), 1)
        self.assertIs(self.module._pluginExists('a'), False)
        self.module._appendSceneContent([self.a], '')
        self.assertIs(self.module._pluginExists('a'), False)
        self.module._addSceneContent([self.b], '')
        self.assertEqual(self.module._getPluginType('b'), 'TexNoise')

# -*- coding: utf-8 -*-
"""_duplicate: what is copied, what is left out, what is refused, and who owns the copies."""
import json
import shutil
import tempfile

import offlinehost
import support
from all_kinds import AllKindsTest

SCENES = ('studio_glb.kscene', 'studio_fbx.kscene', 'studio_obj.kscene')
MATRIX = [[1, 2, 3], [4, 5, 6], [7, 8, 9]]

# A carried value of every kind, as a scene file has it.
VALUES = {'int': 3, 'float': 0.5, 'double': 0.1, 'bool': True, 'vector': [1, 2, 3], 'color': [0.25, 0.5, 1],
          'acolor': [0.25, 0.5, 1, 0.75], 'matrix': MATRIX, 'transform': [MATRIX, [0.5, 0.25, 3]], 'string': u'd\xe9j\xe0',
          'plugin': ['other', 'color'], 'texture': 'other', 'texture_float': ['other', 'output_texture_float'],
          'texture_int': 7, 'texture_vector': [1, 2, 3], 'texture_matrix': MATRIX, 'texture_transform': 'other',
          'ints': [1, 2], 'floats': [0.5], 'doubles': [0.1, 0.2], 'vectors': [[1, 2, 3]], 'colors': [[1, 2, 3]],
          'acolors': [[1, 2, 3, 4]], 'matrixs': [MATRIX], 'transforms': [[MATRIX, [1, 2, 3]]], 'strings': ['a', None],
          'plugins': ['other', None, ['other', 'color']], 'textures': ['other'], 'bools': [True, False],
          'anys': [{'0': 5}, {'12': [{'9': 'a'}]}]}


class KindsTest(AllKindsTest):

    plugins = AllKindsTest.plugins + [{'type': 'AllKinds', 'name': 'full', 'params': VALUES},
                                      {'type': 'AllKinds', 'name': 'rigid', 'params': VALUES, 'rigid': sorted(VALUES)}]

    def values(self, plugin):
        return dict((param, repr(self.module._getParam(plugin, param)))
                    for param in self.module._getPluginParams(plugin, 1))

    def record(self, name):
        for line in offlinehost.text().splitlines():
            record = json.loads(line)
            if record.get('name') == name:
                return record

    def testValuesThatCloneThemselves(self):
        self.assertEqual(self.module._duplicate('full', 'copy'), 'copy')
        self.assertEqual(self.values('copy'), self.values('full'))
        self.assertEqual(self.record('copy')['params'], self.record('full')['params'])
        self.assertEqual(self.module._getPluginParams('copy', 1), self.module._getPluginParams('full', 1))

    def testValuesThatAreCloned(self):
        self.module._duplicate('rigid', 'copy')
        expected = self.values('rigid')
        # There is no bool list; a value that answers a texture's own code is no plugin reference; and the copy of a
        # list of any shape is made by its first element, a flat list here, which the parameter does not take.
        for missing in ('bools', 'texture', 'texture_float', 'texture_transform', 'anys'):
            del expected[missing]
        # Bools are held as ints. Elements that answer a texture's code are not copied.
        expected['bool'] = '(0, 1)'
        expected['textures'] = '(10, [None])'
        self.assertEqual(self.values('copy'), expected)

    def testTheModulesOwnValues(self):
        for param, value in (('int', (0, 5)), ('string', (9, 'text')), ('texture', (1000, ('other', 'output_texture'))),
                             ('floats', (1, [(1, 0.5)])), ('plugins', (10, [(10, 'other'), (1000, ('other', 'color'))]))):
            self.module._setParam('all', param, value)
        self.module._duplicate('all', 'copy')
        self.assertEqual(self.values('copy'), self.values('all'))
        self.module._setParam('all', 'string', (9, 'changed'))
        self.assertEqual(self.module._getParam('copy', 'string'), (9, 'text'))

    def testGenericListsGoByTheirFirstElement(self):
        for number, (given, expected) in enumerate((
                ([(0, 1), (1, 2.5)], None), ([], None), ([(12, [(0, 1)]), (0, 2)], '(12, [(12, [(0, 1)]), (0, 2)])'),
                ([(12, [(9, 'a')])], "(12, [(12, [(9, 'a')])])"))):
            self.module._setParam('all', 'anys', (12, given))
            name = 'copy%d' % number
            self.module._duplicate('all', name)
            # A flat list is nothing that a list of any shape takes.
            self.assertEqual(repr(self.module._getParam(name, 'anys')), repr(None) if expected is None else expected)

    def testWhatIsOnlyDeclaredStaysDefault(self):
        self.module._duplicate('all', 'copy')
        self.assertEqual(self.module._getPluginParams('copy', 1), [])


class RefusalsTest(support.ModuleTest):

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay', 'params': {'color': [1, 0, 0]}},
                              {'type': 'MtlDiffuse', 'name': 'taken'},
                              {'type': 'SettingsOutput', 'name': 'output'})

    def testASingleInstanceType(self):
        before = offlinehost.text()
        self.assertIs(self.module._duplicate('output', 'second'), None)
        self.assertWarned('Only one instance of type \\"SettingsOutput\\" can exist.')
        self.assertEqual(offlinehost.text(), before)

    def testATakenName(self):
        before = offlinehost.text()
        self.assertIs(self.module._duplicate('clay', 'taken'), None)
        self.assertWarned('A plugin "taken" already exists.')
        self.assertIs(self.module._duplicate('clay', 'clay'), None)
        self.assertWarned('A plugin "clay" already exists.')
        self.assertEqual(offlinehost.text(), before)

    def testAMissingSource(self):
        self.assertRaisesText(Exception, 'The plugin "nowhere" doesn\'t exist.', self.module._duplicate, 'nowhere', 'x')

    def testAPluginThatCannotBeMade(self):
        self.assertIs(self.module._duplicate('clay', ''), None)
        self.assertWarned('A plugin "" of type "MtlDiffuse" could not be created.')

    def testArguments(self):
        self.assertRaises(TypeError, self.module._duplicate)
        self.assertRaises(TypeError, self.module._duplicate, 'clay')
        self.assertRaises(TypeError, self.module._duplicate, 'clay', 5)
        self.assertEqual(self.module._duplicate(u'clay', u'caf\xe9'), 'caf\xc3\xa9')


class OwnershipTest(support.ModuleTest):

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay', 'params': {'color': [1, 0, 0], 'roughness': 0.5}})

    def testTheRoad(self):
        offlinehost.observe(True)
        self.module._duplicate('clay', 'copy')
        events = offlinehost.events()
        offlinehost.observe(False)
        self.assertEqual(events, ['manager.findPlugin("clay")',
                                  'manager.createPlugin("copy", "MtlDiffuse", false, false, false)',
                                  'plugin("clay").enumParams()', 'plugin("copy").setParameter("color")',
                                  'plugin("copy").setParameter("roughness")'])

    def testTheCopiesAreTheHosts(self):
        self.module._duplicate('clay', 'copy')
        self.assertEqual(offlinehost.counters()['owned_values'], 2)
        self.module._setParam('copy', 'roughness', (1, 0.25))
        self.assertEqual(offlinehost.counters()['owned_values'], 2)
        self.module._delete('clay')
        self.assertEqual(self.module._getParam('copy', 'color'), (5, (1.0, 0.0, 0.0)))

    def testWithoutMemoryWhatIsMissingIsMissing(self):
        for n in range(1, 12):
            for persistent in (False, True):
                name = 'copy%d%s' % (n, persistent)
                offlinehost.fail_allocation(n, persistent)
                result = self.module._duplicate('clay', name)
                offlinehost.fail_allocation(0)
                if result is None:
                    self.assertWarned('A plugin "%s" of type "MtlDiffuse" could not be created.' % name)
                    continue
                for param in self.module._getPluginParams(name, 1):
                    self.assertEqual(self.module._getParam(name, param), self.module._getParam('clay', param))


class SampleScenesTest(support.ModuleTest):

    def testEveryPluginOfTheSampleScenes(self):
        copies = 0
        for scene in SCENES:
            offlinehost.reset()
            offlinehost.open(support.scenePath(scene))
            for name in self.module._findByName('*'):
                if self.module._unique(name):
                    self.assertIs(self.module._duplicate(name, name + ' copy'), None)
                    self.assertWarned('Only one instance of type \\"%s\\" can exist.' % self.module._getPluginType(name))
                    continue
                self.assertEqual(self.module._duplicate(name, name + ' copy'), name + ' copy')
                params = self.module._getPluginParams(name, 1)
                copied = self.module._getPluginParams(name + ' copy', 1)
                self.assertEqual((name, [p for p in params if p in copied]), (name, copied))
                for param in copied:
                    self.assertEqual(repr(self.module._getParam(name + ' copy', param)),
                                     repr(self.module._getParam(name, param)))
                for param in set(params) - set(copied):
                    # The one kind that cannot be cloned here: a list of any shape is made by its first element.
                    self.assertEqual(self.module._getParamType(name, param), (12, True))
                copies += 1
        self.assertTrue(copies > 30, copies)


class ExtraScenesTest(support.ModuleTest):
    """Plugins of scenes that the script loaded: duplicated into the main scene, and set where they are."""

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'})

    def setUp(self):
        support.ModuleTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')
        for name in ('old', 'new'):
            path = '%s/%s.kscene' % (self.folder, name)
            with open(path, 'wb') as scene:
                scene.write(support.sceneText({'type': 'MtlDiffuse', 'name': name, 'params': {'color': [0, 1, 0]}}))
            self.module._addSceneContent([path], '')

    def tearDown(self):
        shutil.rmtree(self.folder)
        support.ModuleTest.tearDown(self)

    def attachments(self, *arguments):
        offlinehost.observe(True)
        self.module._setParam(*arguments)
        events = [event for event in offlinehost.events() if 'attach' in event]
        offlinehost.observe(False)
        return events

    def testTheDuplicateIsMadeInTheMainScene(self):
        self.assertEqual(self.module._duplicate('old', 'copy'), 'copy')
        self.assertIn('"name":"copy"', offlinehost.text())
        self.assertNotIn('"copy"', offlinehost.extra_text(0) + offlinehost.extra_text(1))
        self.assertEqual(self.module._getParam('copy', 'color'), (5, (0.0, 1.0, 0.0)))

    def testUnderItsOwnName(self):
        # The name is free in the main scene, and the duplicate then stands before its source.
        self.assertEqual(self.module._duplicate('old', 'old'), 'old')
        self.module._setParam('old', 'color', (5, (0, 0, 1)))
        self.assertIn('{"type":"MtlDiffuse","name":"old","params":{"color":[0,0,1]}}', offlinehost.text())
        self.assertIn('"color":[0,1,0]', offlinehost.extra_text(1))
        self.assertIs(self.module._duplicate('old', 'old'), None)
        self.assertWarned('A plugin "old" already exists.')

    def testOnlyAReplacedValueOfTheSceneIsAttached(self):
        attached = ['scene.attachParameter("color")']
        # The old value is the scene's.
        self.assertEqual(self.attachments('old', 'color', (5, (1, 0, 0))), attached)
        # Now it is the host's, and destroyed.
        self.assertEqual(self.attachments('old', 'color', (5, (1, 0, 1))), [])
        # There was none.
        self.assertEqual(self.attachments('old', 'roughness', (1, 0.5)), [])
        # A plugin of the main scene.
        self.assertEqual(self.attachments('clay', 'color', (5, (1, 0, 0))), [])
        self.assertEqual(self.attachments('new', 'color', (5, (1, 0, 0))), attached)

    def testThriceSetOnAPluginOfAnExtraScene(self):
        before = offlinehost.counters()
        for blue in (0.25, 0.5, 0.75):
            self.module._setParam('old', 'color', (5, (0, 0, blue)))
        self.assertEqual(self.module._getParam('old', 'color'), (5, (0.0, 0.0, 0.75)))
        after = offlinehost.counters()
        self.assertEqual(after['owned_values'], 1)
        self.assertEqual(after['attached_parameters'], before['attached_parameters'] + 1)

# -*- coding: utf-8 -*-
"""Creating, deleting and asking for plugins."""
import offlinehost
import support

SCENE = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'},
                          {'type': 'SettingsOutput', 'name': 'output'},
                          {'type': 'TexChecker', 'name': 'checker'})


class CreateTest(support.ModuleTest):

    scene = SCENE

    def testANewPlugin(self):
        self.assertEqual(self.module._create('MtlDiffuse', 'steel'), 'steel')
        self.assertEqual(self.module._getPluginType('steel'), 'MtlDiffuse')
        self.assertEqual(self.module._findByName('*'), ['clay', 'output', 'checker', 'steel'])

    def testUnicodeNamesComeBackAsUtf8(self):
        name = self.module._create(u'MtlDiffuse', u'\u6f22\u00e9')
        self.assertEqual((type(name), name), (str, u'\u6f22\u00e9'.encode('utf-8')))
        self.assertEqual(self.module._getPluginType(name), 'MtlDiffuse')

    def testATakenName(self):
        before = offlinehost.text()
        for kind in ('MtlDiffuse', 'TexChecker'):
            self.assertIs(self.module._create(kind, 'clay'), None)
            self.assertWarned('A plugin \\"clay\\" already exists.')
        self.assertEqual(offlinehost.text(), before)

    def testATakenNameWinsOverAnUnknownType(self):
        self.assertIs(self.module._create('NoSuchType', 'clay'), None)
        self.assertWarned('A plugin \\"clay\\" already exists.')

    def testAnUnknownType(self):
        for kind in ('NoSuchType', 'mtldiffuse', ''):
            self.assertIs(self.module._create(kind, 'new'), None)
            self.assertWarned('A plugin \\"new\\" of type \\"%s\\" could not be created.' % kind)
            self.assertIs(self.module._pluginExists('new'), False)

    def testASecondPluginOfASingleInstanceType(self):
        before = offlinehost.text()
        # Also under a name that is taken, by whatever type.
        for name in ('second', 'output', 'clay'):
            self.assertIs(self.module._create('SettingsOutput', name), None)
            self.assertWarned('Only one instance of type \\"SettingsOutput\\" can exist.')
        self.assertEqual(offlinehost.text(), before)

    def testATypeIsNotTakenForASimilarOne(self):
        for kind in ('settingsoutput', 'SettingsOutpu', 'SettingsOutput ', 'SettingsOutput2', ''):
            self.assertIs(self.module._create(kind, 'second'), None)
            self.assertWarned('A plugin \\"second\\" of type \\"%s\\" could not be created.' % kind)

    def testASingleInstanceTypeThatHasNoPluginYet(self):
        self.assertEqual(self.module._create('SettingsLightLinker', 'linker'), 'linker')
        self.assertIs(self.module._create('SettingsLightLinker', 'again'), None)
        self.assertWarned('Only one instance of type \\"SettingsLightLinker\\" can exist.')
        self.module._delete('linker')
        self.assertEqual(self.module._create('SettingsLightLinker', 'again'), 'again')

    def testCreationAsksTheHostOnce(self):
        offlinehost.observe()
        self.module._create('MtlDiffuse', 'steel')
        events = [event for event in offlinehost.events() if event.startswith('manager.createPlugin')]
        self.assertEqual(len(events), 1, events)


class DeleteTest(support.ModuleTest):

    scene = SCENE

    def testAPluginOfTheMainScene(self):
        self.assertIs(self.module._delete('clay'), None)
        self.assertEqual(self.module._findByName('*'), ['output', 'checker'])
        self.assertRaisesText(Exception, 'The plugin "clay" doesn\'t exist.', self.module._delete, 'clay')

    def testDeletionAsksTheHostOnce(self):
        offlinehost.observe()
        self.module._delete('clay')
        self.assertEqual(offlinehost.events(), ['manager.findPlugin("clay")', 'manager.deletePlugin("clay", true)'])

    def testANameCanBeUsedAgain(self):
        self.module._delete('clay')
        self.assertEqual(self.module._create('TexChecker', 'clay'), 'clay')
        self.assertEqual(self.module._getPluginType('clay'), 'TexChecker')

    def testAnUnknownPlugin(self):
        for name in ('nobody', 'Clay', ''):
            self.assertRaisesText(Exception, 'The plugin "%s" doesn\'t exist.' % name, self.module._delete, name)


class QuestionsTest(support.ModuleTest):

    scene = SCENE

    def testPluginExists(self):
        self.assertIs(self.module._pluginExists('clay'), True)
        for name in ('nobody', 'Clay', 'cla', 'clay ', ''):
            self.assertIs(self.module._pluginExists(name), False)

    def testGetPluginType(self):
        self.assertEqual(self.module._getPluginType('checker'), 'TexChecker')
        self.assertRaisesText(Exception, 'The plugin "nobody" doesn\'t exist.', self.module._getPluginType, 'nobody')

    def testUniqueAsksThePluginNotTheType(self):
        self.assertIs(self.module._unique('output'), True)
        self.assertIs(self.module._unique('clay'), False)
        self.assertIs(self.module._unique('SettingsOutput'), False)
        self.assertIs(self.module._unique('nobody'), False)

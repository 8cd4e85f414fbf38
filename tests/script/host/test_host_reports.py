"""What the host tells of a script's work: what it has changed, and who freed what when it was over."""
import shutil
import tempfile

import offlinehost
from support import ModuleTest, sceneText

THING = '{"type":"TestThing","name":"%s","params":{"count":1}}'


class ReportTest(ModuleTest):

    scene = sceneText(THING % 'first', THING % 'second', THING % 'third')

    def addExtraScene(self, *names):
        folder = tempfile.mkdtemp().replace('\\', '/')
        try:
            with open(folder + '/extra.kscene', 'wb') as scene:
                scene.write(sceneText(*[THING % name for name in names]))
            self.module._addSceneContent([folder + '/extra.kscene'], '')
        finally:
            shutil.rmtree(folder)


class EndingTest(ReportTest):

    def ended(self):
        """The report without what is zero and without the counts of the scene's own values."""
        self.module._uninit()
        return dict((name, value) for name, value in self.endHost().items()
                    if value and name not in ('values_made', 'values_freed', 'last_misuse'))

    def testNothingWasSet(self):
        self.assertEqual(self.ended(), {})

    def testAValueOfTheMainScene(self):
        self.module._setParam('first', 'count', (0, 2))
        self.assertEqual(offlinehost.counters()['owned_values'], 1)
        self.assertEqual(self.ended(), {'owned_freed': 1})

    def testTheSameParameterThreeTimes(self):
        for number in (2, 3, 4):
            self.module._setParam('first', 'count', (0, number))
            self.assertEqual(offlinehost.counters()['owned_values'], 1)
        self.assertEqual(self.module._getParam('first', 'count'), (0, 4))
        self.assertEqual(self.ended(), {'owned_freed': 1})

    def testThreeTimesInAnExtraScene(self):
        self.addExtraScene('extra')
        for number in (2, 3, 4):
            self.module._setParam('extra', 'count', (0, number))
        self.assertEqual(self.module._getParam('extra', 'count'), (0, 4))
        self.assertEqual(self.ended(), {'owned_freed': 1, 'scenes_freed': 1})

    def testManyValuesAndADeletedPlugin(self):
        for i in range(300):
            self.module._create('TestThing', 'thing%d' % i)
            self.module._setParam('thing%d' % i, 'ids', (0, [(0, i)] * 10))
        self.module._delete('thing7')
        self.assertEqual(offlinehost.counters()['owned_values'], 300)
        self.assertEqual(self.ended(), {'owned_freed': 300})

    def testManyExtraScenes(self):
        for i in range(20):
            self.addExtraScene('extra%d' % i)
        self.assertEqual(self.ended(), {'scenes_freed': 20})


class ChangesTest(ReportTest):

    def testWhatAScriptHasChanged(self):
        offlinehost.snapshot()
        self.module._setParam('second', 'count', (0, 2))
        self.module._setParam('second', 'ids', (0, [(0, i) for i in range(100)]))
        self.module._delete('first')
        self.module._create('TestThing', 'new')
        self.module._setParam('new', 'link', (10, 'third'))
        self.addExtraScene('a', 'b')

        def change(kind, plugin, **more):
            return dict({'change': kind, 'plugin': plugin, 'type': 'TestThing'}, **more)
        self.assertEqual(offlinehost.changes(), [
            change('deleted', 'first'),
            change('set', 'second', param='count', old='1', new='2'),
            change('set', 'second', param='ids', old=None, new='[0,1,2,3,4,5,6,7,... 100 in all]'),
            change('created', 'new'),
            change('set', 'new', param='link', old=None, new='"third"'),
            {'change': 'scene_added', 'plugins': 2}])

    def testTheSameValueSetAgainIsNoChange(self):
        self.module._setParam('first', 'count', (0, 5))
        offlinehost.snapshot()
        self.module._setParam('first', 'count', (0, 5))
        self.assertEqual(offlinehost.changes(), [])

    def testTheSameNumberInAnotherClassIsNoChange(self):
        # The core's own value object is replaced by the module's.
        offlinehost.snapshot()
        self.module._setParam('first', 'count', (0, 1))
        self.assertEqual(offlinehost.changes(), [])

    def testAMaterialisedNodeWasCreated(self):
        offlinehost.open_text(sceneText(
            '{"type":"TestMaterial","name":"steel","deferred":true,"params":{"color":[1,0,0]}}'))
        offlinehost.snapshot()
        self.assertEqual(self.module._exportMaterial('steel'), 'steel')
        (created, given) = offlinehost.changes()
        self.assertEqual((created['change'], created['plugin']), ('created', 'steel'))
        self.assertEqual((given['param'], given['old']), ('color', None))


class ObservationTest(ReportTest):

    def testTheCallsOfAnInitialisation(self):
        self.module._uninit()
        offlinehost.observe()
        self.module._init()
        self.assertEqual(offlinehost.events(),
                         ['host.getPluginManager()', 'host.getScenes()', 'manager.beginScriptAccess()'])
        self.module._uninit()
        self.assertEqual(offlinehost.events(), ['manager.endScriptAccess()'])
        self.module._init()

    def testTheCallsOfARefusedExport(self):
        offlinehost.observe()
        self.module._exportCamera('no "such" camera')
        text = 'The camera \\"no "such" camera\\" could not be exported.'
        self.assertWarned(text)
        self.assertEqual(offlinehost.events(), [
            'host.exportCamera("no \\"such\\" camera")',
            'host.printWarning("%s")' % text.replace('\\', '\\\\').replace('"', '\\"')])

    def testNothingMoreIsObservedAfterwards(self):
        offlinehost.observe()
        offlinehost.observe(False)
        self.module._create('TestThing', 'new')
        self.assertEqual(offlinehost.events(), [])

# -*- coding: utf-8 -*-
"""The offline host through its control table: scenes, reports, warnings, observation, misuse."""
import os
import shutil
import tempfile
import threading

import offlinehost
from support import BUILD, HostTest, STAGE, runPython, sceneText

SCENE = sceneText(
    '{"type":"TestThing","name":"first","params":{"count":5,"label":"a","ids":[1,2,3]}}',
    '{"type":"TestThing","name":"second","params":{"link":"first"}}')


class OpeningAndSaving(HostTest):

    def setUp(self):
        HostTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')

    def leave(self):
        # Windows has file names in UTF-16 only; a byte text there is not UTF-8.
        shutil.rmtree(self.folder.decode('utf-8') if os.name == 'nt' else self.folder)

    def testATextIsReadAndWrittenBack(self):
        offlinehost.open_text(SCENE)
        self.assertEqual(offlinehost.text(), SCENE)
        self.assertEqual(offlinehost.counters()['main_plugins'], 2)

    def testAFileIsReadAndWrittenBack(self):
        for name in ('plain.kscene', 'caf\xc3\xa9 \xe6\xbc\xa2.kscene'):
            path = self.folder + '/' + name
            offlinehost.reset()
            self.addTestTypes()
            offlinehost.open_text(SCENE)
            offlinehost.save(path)
            offlinehost.reset()
            self.addTestTypes()
            offlinehost.open(path)
            self.assertEqual(offlinehost.text(), SCENE, name)

    def testAnEmptySceneHasAHeaderOnly(self):
        offlinehost.open_text(sceneText())
        self.assertEqual(offlinehost.text(), sceneText())

    def testWhatCannotBeReadIsSaidAndKeepsWhatStoodBefore(self):
        try:
            offlinehost.open_text(SCENE + '{"type":"TestThin","name":"third"}\n', 'shot.kscene')
        except offlinehost.Error as error:
            for part in ('shot.kscene', '4', 'TestThin', 'TestThing'):
                self.assertIn(part, str(error))
        else:
            self.fail('an unknown type was read')
        self.assertEqual(offlinehost.text(), SCENE)

    def testAFileThatIsNotThere(self):
        path = self.folder + '/missing.kscene'
        with self.assertRaises(offlinehost.Error) as raised:
            offlinehost.open(path)
        self.assertIn(path, str(raised.exception))

    def testAFolderThatIsNotThereCannotBeSavedInto(self):
        offlinehost.open_text(SCENE)
        with self.assertRaises(offlinehost.Error) as raised:
            offlinehost.save(self.folder + '/no/such/folder/a.kscene')
        self.assertIn('no/such/folder', str(raised.exception))
        self.assertEqual(os.listdir(self.folder), [])

    def testThereIsNoExtraScene(self):
        self.assertRaisesText(offlinehost.Error, 'there is no extra scene 0', offlinehost.extra_text, 0)
        self.assertRaisesText(offlinehost.Error, 'there is no extra scene -1', offlinehost.extra_text, -1)


class Types(HostTest):

    def testATypeIsDescribed(self):
        (found,) = offlinehost.types('TestMaterial')
        self.assertEqual((found['name'], found['kind'], found['interfaces']), ('TestMaterial', 'material', ['texture']))
        self.assertEqual([p['name'] for p in found['params']], ['color'])

    def testAllTypesAreDescribed(self):
        names = [found['name'] for found in offlinehost.types()]
        self.assertEqual(len(names), len(set(names)))
        for name in ('TestThing', 'TestSettings'):
            self.assertIn(name, names)

    def testAnUnknownTypeSuggestsTheNearest(self):
        self.assertRaisesText(offlinehost.Error,
                              'there is no plugin type "TestTexure"; did you mean "TestTexture"?',
                              offlinehost.types, 'TestTexure')
        self.assertRaisesText(offlinehost.Error, 'there is no plugin type "Qqqqqqqqqqqqqqqq"',
                              offlinehost.types, 'Qqqqqqqqqqqqqqqq')

    def testAFolderThatIsNotThere(self):
        with self.assertRaises(offlinehost.Error) as raised:
            offlinehost.add_types(BUILD + '/no/such/types')
        self.assertIn('/no/such/types', str(raised.exception))

    def testAddedTypesGoWithTheReset(self):
        offlinehost.reset()
        with self.assertRaises(offlinehost.Error):
            offlinehost.types('TestThing')
        self.addTestTypes()
        self.assertEqual(len(offlinehost.types('TestThing')), 1)


class Changes(HostTest):

    def testWithoutASnapshotThereIsNothingToCompareWith(self):
        self.assertRaisesText(offlinehost.Error, 'there is no snapshot to compare with', offlinehost.changes)

    def testNothingHasChanged(self):
        offlinehost.open_text(SCENE)
        offlinehost.snapshot()
        self.assertEqual(offlinehost.changes(), [])

    def testWhatIsReadLaterWasCreated(self):
        offlinehost.snapshot()
        offlinehost.open_text(SCENE)
        created = lambda name: {'change': 'created', 'plugin': name, 'type': 'TestThing'}
        given = lambda name, param, new: {'change': 'set', 'plugin': name, 'type': 'TestThing', 'param': param,
                                          'old': None, 'new': new}
        self.assertEqual(offlinehost.changes(), [
            created('first'), given('first', 'count', '5'), given('first', 'label', '"a"'),
            given('first', 'ids', '[1,2,3]'), created('second'), given('second', 'link', '"first"')])

    def testResetForgetsTheSnapshot(self):
        offlinehost.snapshot()
        offlinehost.reset()
        self.assertRaisesText(offlinehost.Error, 'there is no snapshot to compare with', offlinehost.changes)


class Ending(HostTest):

    def testEndReportsThatNothingIsLeft(self):
        offlinehost.open_text(SCENE)
        report = self.endHost()
        self.assertEqual(report['values_made'], 4)
        self.assertEqual(report['values_freed'], 4)
        self.assertEqual([name for name in report if name.endswith('_leaked') and report[name]], [])
        self.assertEqual((report['owned_freed'], report['scenes_freed'], report['accesses_open']), (0, 0, 0))

    def testAfterTheEndOnlyResetMayFollow(self):
        offlinehost.end()
        ended = 'the host has ended; only reset may follow'
        for function, arguments in ((offlinehost.text, ()), (offlinehost.open_text, (SCENE,)), (offlinehost.end, ()),
                                    (offlinehost.snapshot, ()), (offlinehost.extra_text, (0,)),
                                    (offlinehost.types, ())):
            self.assertRaisesText(offlinehost.Error, ended, function, *arguments)
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(SCENE)
        self.assertEqual(offlinehost.text(), SCENE)

    def testResetLeavesNothing(self):
        before = offlinehost.counters()
        offlinehost.open_text(SCENE)
        self.assertGreater(offlinehost.counters()['live_blocks'], before['live_blocks'])
        offlinehost.reset()
        self.addTestTypes()
        after = offlinehost.counters()
        for name in ('live_blocks', 'live_bytes', 'main_plugins', 'extra_scenes', 'owned_values', 'warnings'):
            self.assertEqual(after[name], before[name], name)


class Watching(HostTest):

    def testNothingIsObservedUnlessAskedFor(self):
        offlinehost.open_text(SCENE)
        self.assertEqual(offlinehost.events(), [])

    def testInjectedFailuresAreCounted(self):
        before = offlinehost.counters()['failed_allocations']
        offlinehost.fail_allocation(1)
        # Nobody can read a plugin without memory for it.
        with self.assertRaises(offlinehost.Error):
            offlinehost.open_text(SCENE)
        self.assertEqual(offlinehost.counters()['failed_allocations'], before + 1)

    def testResetCancelsAFailure(self):
        offlinehost.fail_allocation(1, persistent=True)
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(SCENE)
        self.assertEqual(offlinehost.text(), SCENE)

    def testACallFromASecondThreadIsMisuse(self):
        thread = threading.Thread(target=offlinehost.counters)
        thread.start()
        thread.join()
        self.assertWarned('counters was called from a second thread; only the thread that called first may call')
        report = offlinehost.end()
        self.assertEqual(report['misuse_threads'], 1)
        offlinehost.reset()

    def testAnotherHostCannotBeLoadedBeside(self):
        self.assertEqual(offlinehost.path(), STAGE + '/plug-ins/kelmoformaya.mll')
        self.assertRaisesText(offlinehost.Error, 'the host is loaded already, from ' + offlinehost.path(),
                              offlinehost.load, '/elsewhere.mll')
        offlinehost.load(offlinehost.path())


class AtTheEndOfAProcess(HostTest):
    """What the host says by itself when nobody has ended it."""

    def testSilenceWhenNothingIsLeft(self):
        code = 'import offlinehost; offlinehost.open_text(%r)' % sceneText()
        self.assertEqual(runPython(code), (0, '', ''))

    def testAHostThatIsNotThere(self):
        code = ('import offlinehost\n'
                'try: offlinehost.text()\n'
                'except offlinehost.Error as error: print error')
        status, out, err = runPython(code, root='/no/such/root')
        self.assertEqual((status, err), (0, ''))
        self.assertTrue(out.startswith('could not load /no/such/root/plug-ins/kelmoformaya.mll: '), out)

    def testWithoutARoot(self):
        code = ('import offlinehost\n'
                'try: offlinehost.text()\n'
                'except offlinehost.Error as error: print error')
        self.assertEqual(runPython(code, root=''),
                         (0, 'KELMO_FOR_MAYA2020_MAIN is not set, and no path was given\n', ''))

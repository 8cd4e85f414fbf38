"""The isolation of script tests itself: what has to fail a test does, and the runner counts it."""
import threading
import unittest

import offlinehost
import run
from support import HostTest, ModuleTest, runPython


def outcome(body, base=HostTest, **attributes):
    """What becomes of a test with this body: the lines of what its failure says; none when it passes."""
    attributes['runTest'] = body
    result = unittest.TestResult()
    type('Inner', (base,), attributes)().run(result)
    lines = []
    for _, text in result.failures + result.errors:
        lines += text.split('AssertionError: ', 1)[-1].strip().splitlines()
    return lines


class IsolationTest(HostTest):

    def testAQuietTestPasses(self):
        self.assertEqual(outcome(lambda test: offlinehost.types()), [])

    def testAnUnexpectedWarningFails(self):
        def warned(test):
            self.assertEqual(test.module._create('NoSuchType', 'new'), None)
        self.assertEqual(outcome(warned, ModuleTest), [
            'unexpected warning: A plugin \\"new\\" of type \\"NoSuchType\\" could not be created.'])

    def testAnExpectedWarningPasses(self):
        def warned(test):
            test.module._create('NoSuchType', 'new')
            test.assertWarned('A plugin \\"new\\" of type \\"NoSuchType\\" could not be created.')
        self.assertEqual(outcome(warned, ModuleTest), [])

    def testAWarningThatDoesNotComeFails(self):
        self.assertNotEqual(outcome(lambda test: test.assertWarned('nothing of the kind')), [])

    def testAnOpenAccessFails(self):
        self.assertEqual(outcome(lambda test: test.module._init(), ModuleTest),
                         ['access to the scene was begun 2 times and ended 1 times'])

    def testBlocksThatAreLeftFail(self):
        def leftInitialised(test):
            from kelmo import pluginmodifier
            pluginmodifier._init()
        # The module's state record, of thirteen pointers.
        self.assertEqual(outcome(leftInitialised), ['access to the scene was begun 1 times and ended 0 times',
                                                    'blocks_leaked: 1', 'bytes_leaked: 104'])
        from kelmo import pluginmodifier
        pluginmodifier._uninit()
        # That access was over for the host before, so it is not counted against this test.
        offlinehost.end()
        offlinehost.reset()

    def testAForeignThreadFails(self):
        def foreign(test):
            thread = threading.Thread(target=offlinehost.counters)
            thread.start()
            thread.join()
        self.assertEqual(outcome(foreign), [
            'unexpected warning: counters was called from a second thread; only the thread that called first may call',
            'misuse_threads: 1'])

    def testEveryTestBeginsAnew(self):
        offlinehost.open_text('{"kelmo-scene":1}\n{"type":"TestThing","name":"left over"}\n')
        counts = []
        self.assertEqual(outcome(lambda test: counts.append(offlinehost.counters()['main_plugins'])), [])
        self.assertEqual(counts, [0])


class RunnerTest(unittest.TestCase):

    def testATestThatFailsTwiceFailedOnce(self):
        class Inner(unittest.TestCase):
            def runTest(self):
                self.fail('in its body')

            def tearDown(self):
                self.fail('while it is torn down')
        result = Quiet()
        Inner().run(result)
        self.assertEqual((len(result.failures), len(result.errors), len(result.failed), result.testsRun), (1, 1, 1, 1))

    def testFailuresAndNothingToRunAreNoSuccess(self):
        self.assertEqual(run.closing(passed=3, failed=0, skipped=0), ('3 passed, 0 failed', 0))
        self.assertEqual(run.closing(passed=3, failed=1, skipped=0), ('3 passed, 1 failed', 1))
        self.assertEqual(run.closing(passed=0, failed=0, skipped=0), ('0 passed, 0 failed', 1))
        self.assertEqual(run.closing(passed=1, failed=0, skipped=2), ('1 passed, 0 failed, 2 skipped', 0))
        self.assertEqual(run.closing(passed=0, failed=0, skipped=2), ('0 passed, 0 failed, 2 skipped', 1))


class Quiet(run.Result):
    """A result that prints nothing."""

    def __init__(self):
        run.Result.__init__(self, verbose=False)

    def reportFailure(self, test, text):
        self.failed.add(test.id())


class AtTheEndOfAProcess(unittest.TestCase):

    def testWhatIsLeftAliveIsReported(self):
        status, out, err = runPython('from kelmo import pluginmodifier as m\nm._init()')
        self.assertEqual((status, out), (0, ''))
        self.assertTrue(err.startswith('kelmo: left alive at the end: {"owned_freed":0,'), err)
        self.assertIn('"blocks_leaked":1,', err)
        self.assertIn('"accesses_open":1,', err)

    def testNothingIsReportedWhenNothingIsLeft(self):
        code = 'from kelmo import pluginmodifier as m\nm._init()\nm._create("TexNoise", "noise")\nm._uninit()'
        self.assertEqual(runPython(code), (0, '', ''))

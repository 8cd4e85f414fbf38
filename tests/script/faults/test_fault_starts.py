"""Starts under every kind of root while the core's allocator refuses: a module that works, or none."""
import os

import call_cases as cases
import offlinehost
import support
from fault_case import NO_ROOT

NO_MEMORY = ['raises', MemoryError, '']

# How starts end that have their state, but find no memory for one of their texts: (label, root variable, deprecated
# variable, outcome when there is memory, and without it once and from then on).
WITHOUT_ROOT = ['raises', Exception, NO_ROOT]
STARTS = [
    ('a root', support.STAGE, None, ['returns', None], WITHOUT_ROOT, WITHOUT_ROOT),
    ('the deprecated root', None, support.STAGE, ['returns', None], WITHOUT_ROOT, WITHOUT_ROOT),
    ('no root', None, None, WITHOUT_ROOT, WITHOUT_ROOT, WITHOUT_ROOT),
    # A variable that cannot be read counts as missing, so the deprecated one is read.
    ('two roots, the first of which is wrong', support.variantRoot('null_manager'), support.STAGE,
     ['raises', Exception, 'MayaSceneAccessUtils: Could not obtain plugin manager.'], ['returns', None], WITHOUT_ROOT),
] + [(variant, support.variantRoot(variant), None, ['raises', Exception, text], WITHOUT_ROOT, WITHOUT_ROOT)
     for variant, text in cases.REFUSED_STARTS if text is not None]


class StartsTest(cases.CallTest):

    def setUp(self):
        cases.CallTest.setUp(self)
        self.module._uninit()
        for name in (support.ROOT_VARIABLE, support.DEPRECATED_ROOT_VARIABLE):
            self.addCleanup(offlinehost.set_environment, name, os.environ.get(name))

    def addExtraScene(self):
        pass

    def start(self, nth, persistent):
        """(whether an allocation was refused, outcome) of a start, which leaves a module that works or none."""
        before = offlinehost.counters()
        offlinehost.fail_allocation(nth, persistent)
        result = self.outcome(self.module._init, ())
        offlinehost.fail_allocation(0)
        self.assertIs(offlinehost.take_pending_error(), None)
        started = result[0] == 'returns'
        self.assertIs(self.module._pluginExists('thing'), started)
        after = offlinehost.counters()
        self.assertEqual(after['script_access_begun'] - before['script_access_begun'], started)
        self.module._uninit()
        self.assertEqual(offlinehost.counters()['live_blocks'], before['live_blocks'])
        return after['failed_allocations'] > before['failed_allocations'], result

    def starts(self, persistent):
        """The different outcomes, by the allocation from which on they are seen."""
        seen, nth, refused = [], 0, True
        while refused:
            nth += 1
            refused, result = self.start(nth, persistent)
            support.figure('starts with an allocation refused', int(refused))
            if nth == 1:
                self.assertEqual(result, NO_MEMORY)
            elif result not in seen:
                seen.append(result)
        self.assertNotIn(NO_MEMORY, seen)
        return seen, result

    def check(self, label, full, once, lasting):
        """`once` and `lasting`: the outcomes that are seen beside the full one."""
        for persistent, others in ((False, once), (True, lasting)):
            seen, last = self.starts(persistent)
            self.assertEqual((label, last), (label, full))
            expected = [full] + [other for other in others if other != full]
            self.assertEqual((label, persistent, sorted(seen)), (label, persistent, sorted(expected)))

    def testEachStart(self):
        for label, root, deprecated, full, once, lasting in STARTS:
            offlinehost.set_environment(support.ROOT_VARIABLE, root)
            offlinehost.set_environment(support.DEPRECATED_ROOT_VARIABLE, deprecated)
            self.check(label, full, [once], [lasting])

    def testALibraryThatIsNotThere(self):
        root = support.variantRoot('nowhere')
        offlinehost.set_environment(support.ROOT_VARIABLE, root)
        offlinehost.set_environment(support.DEPRECATED_ROOT_VARIABLE, None)
        text = 'MayaSceneAccessUtils: Could not load library "%s/plug-ins/kelmoformaya.mll": ' % root
        full = self.outcome(self.module._init, ())
        self.assertTrue(full[2].startswith(text + '[loadLib] LoadLibrary failed ('), full)
        # Without memory for the loader's reason there is no error that could be told.
        others = [['raises', Exception, text + 'No error'], WITHOUT_ROOT]
        self.check('nowhere', full, others, others)

    def testAStartAgainThatFails(self):
        """The state before it is gone, its access was never ended, and ending does nothing."""
        for nth in (1, 2):
            self.module._init()
            blocks = offlinehost.counters()['live_blocks']
            offlinehost.fail_allocation(nth, persistent=True)
            self.assertEqual(self.outcome(self.module._init, ())[0], 'raises')
            offlinehost.fail_allocation(0)
            self.assertEqual(offlinehost.counters()['live_blocks'], blocks - 1)
            self.assertRaisesText(Exception, cases.NOT_INITIALISED, self.module._getPluginType, 'thing')
            ended = offlinehost.counters()['script_access_ended']
            self.assertIs(self.module._uninit(), None)
            self.assertEqual(offlinehost.counters()['script_access_ended'], ended)

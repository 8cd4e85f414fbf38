"""Every function, on every path of the table in call_cases, while the core's allocator refuses."""
import call_cases as cases
import offlinehost
import support
from fault_case import REFUSALS, EachAllocationTest


class EveryCallTest(EachAllocationTest):

    def testEveryCall(self):
        # Nothing is known of a function that never asked for memory, and those that do are all known.
        self.assertEqual(self.checkRows(cases.STARTED), sorted(REFUSALS))

    def testCallsBeforeInitAskForNone(self):
        self.module._uninit()
        before = offlinehost.counters()
        offlinehost.fail_allocation(1, persistent=True)
        for function, path, calls, _ in cases.NOT_STARTED:
            for call, arguments, expected in self.made(calls):
                self.assertEqual((function, path, self.outcome(call, arguments)), (function, path, list(expected)))
        offlinehost.fail_allocation(0)
        after = offlinehost.counters()
        for name in ('allocations', 'failed_allocations'):
            self.assertEqual((name, after[name]), (name, before[name]))


class WithoutPrintWarningTest(EachAllocationTest):
    """What would be a warning is an Exception."""

    warns = False

    def setUp(self):
        EachAllocationTest.setUp(self)
        offlinehost.set_environment(support.ROOT_VARIABLE, support.variantRoot('without_printWarning'))
        self.addCleanup(offlinehost.set_environment, support.ROOT_VARIABLE, support.STAGE)

    def testEveryCallThatWarns(self):
        warning = [name for name in REFUSALS if any(how == 'warns' for how, _ in REFUSALS[name])] + ['_getTypeParams']
        rows = [row for row in cases.STARTED if row[0] in warning]
        self.assertEqual(self.checkRows(rows), sorted(set(warning) - set(['_getTypeParams'])))

"""No call changes a reference count but as the table in call_cases says.

Every interpreter shows the counts of single objects: of the arguments and all their parts, of None, True and False,
and of the results. The debug interpreter shows the count of all references too.
"""
import sys

import call_cases as cases
import offlinehost
import support

WARM_UP = 3
ROUNDS = 40
hasTotal = hasattr(sys, 'gettotalrefcount')


def parts(value):
    """The value and everything within it."""
    yield value
    if isinstance(value, (tuple, list)):
        for item in value:
            for part in parts(item):
                yield part


def isShared(value):
    """Whether Python may use one object for every such value."""
    if isinstance(value, (int, long)):
        return -6 < value < 257
    return value is None or isinstance(value, str) and len(value) < 2


def counts(values):
    """How often each of the values, and each part of them, is referred to; of those that are not shared."""
    result = []
    for i in range(len(values)):
        if not isShared(values[i]):
            result.append(sys.getrefcount(values[i]))
        if isinstance(values[i], (tuple, list)):
            result.extend(counts(values[i]))
    return result


def madeAnew(value):
    """The same value of objects that nothing else refers to."""
    if isinstance(value, (tuple, list)):
        return type(value)([madeAnew(item) for item in value])
    if isShared(value):
        return value
    return ''.join(list(value)) if isinstance(value, str) else type(value)(repr(value))


class ReferenceTest(cases.CallTest):

    roundCount = ROUNDS

    # What each call of a round gives, compared with the table.

    def checkOutcome(self, function, arguments, expected):
        actual = self.outcome(function, arguments)
        if expected == cases.raises(None) and len(actual) == 3:
            expected = expected[:2] + (actual[2],)
        self.assertEqual(repr(actual), repr(list(cases.replaced(expected, self.folder))))
        if actual[0] == 'returns':
            self.checkOwners(function, [actual.pop()])

    def checkOwners(self, function, holder):
        """A result and its parts are referred to by the caller alone; a name that was found, once more."""
        expected = counts([madeAnew(holder[0])])
        if function.__name__ in ('_findByName', '_findByType'):
            expected[1:] = [count + 1 for count in expected[1:]]
        self.assertEqual(counts(holder), expected)

    # The counts.

    def rounds(self, calls, count):
        """Makes the calls; what they return and raise is dropped."""
        for _ in range(count):
            for function, arguments, _ in calls:
                try:
                    function(*arguments)
                except Exception:
                    pass

    def countsChanged(self, calls, watched):
        """How the rounds change the counts of the watched objects."""
        before = [0] * len(watched)
        after = [0] * len(watched)
        for i in range(len(watched)):
            before[i] = sys.getrefcount(watched[i])
        self.rounds(calls, self.roundCount)
        for i in range(len(watched)):
            after[i] = sys.getrefcount(watched[i])
        return [b - a for a, b in zip(before, after)]

    def totalChanged(self, calls):
        """How the rounds change the count of all references; 0 where it cannot be seen."""
        if not hasTotal:
            return 0
        before = sys.gettotalrefcount()
        self.rounds(calls, self.roundCount)
        return sys.gettotalrefcount() - before

    def checkRow(self, calls, kept):
        made = self.made(calls)
        for function, arguments, outcome in made:
            self.checkOutcome(function, arguments, outcome)
        self.checkCounts(made, kept)
        support.figure('paths of a function whose reference counts were compared')

    def checkCounts(self, made, kept):
        watched = [None, True, False]
        for _, arguments, _ in made:
            watched.extend(part for part in parts(arguments) if not isShared(part))
        self.rounds(made, WARM_UP)
        self.assertEqual(self.countsChanged(made, watched), [0] * len(watched))
        idle = self.totalChanged([(lambda: None, (), None)])
        self.assertEqual(self.totalChanged(made) - idle, kept * self.roundCount if hasTotal else 0)

    def check(self, rows):
        failures = []
        for function, path, calls, kept in rows:
            try:
                self.checkRow(calls, kept)
            except AssertionError as error:
                failures.append('%s, %s: %s' % (function, path, error))
        offlinehost.warnings()
        self.assertEqual(failures, [])


class TableTest(ReferenceTest):

    def testCallsThatAreStarted(self):
        self.check(cases.STARTED)

    def testCallsBeforeInit(self):
        self.module._uninit()
        self.check(cases.NOT_STARTED)

    def underRoot(self, root):
        offlinehost.set_environment(support.ROOT_VARIABLE, root)
        self.addCleanup(offlinehost.set_environment, support.ROOT_VARIABLE, support.STAGE)

    def testStartsThatAreRefused(self):
        self.module._uninit()
        for variant, text in cases.REFUSED_STARTS:
            self.underRoot(support.variantRoot(variant))
            self.check([('_init', 'under ' + variant, [('_init', (), cases.raises(text))], 0)])
            self.assertIs(self.module._pluginExists('thing'), False)

    def testStartWithoutARoot(self):
        self.module._uninit()
        self.underRoot(None)
        self.check([('_init', 'no root', [('_init', (), cases.raises(
            'MayaSceneAccessUtils: Could not find environment variable "KELMO_FOR_MAYA2020_MAIN" (or its fallback: '
            '"KELMO_FOR_MAYA2020_MAIN_x64")'))], 0)])

    def testAHostThatPrintsNoWarnings(self):
        self.module._uninit()
        self.underRoot(support.variantRoot('without_printWarning'))
        self.module._init()
        self.check(cases.WITHOUT_WARNINGS)

    def testEveryFunctionHasItsPaths(self):
        functions = sorted(name for name in dir(self.module) if callable(getattr(self.module, name)))
        self.assertEqual(len(functions), 23)
        for name in functions:
            kinds = set(call[2][0] for _, _, calls, _ in cases.STARTED for call in calls if call[0] == name)
            self.assertIn('returns', kinds, name)
            # Only these cannot fail while the module is started.
            if name not in ('_init', '_uninit', '_pluginExists', '_paramExists'):
                self.assertIn('raises', kinds, name)


class WithoutMemoryTest(ReferenceTest):
    """The same while the core's allocator refuses: what a call says then, and what it leaves out, costs nothing."""

    roundCount = 6
    # The allocations that are refused, alone and with all that follow.
    REFUSED = (1, 2, 3, 4, 6, 9)

    def withoutMemory(self, function, nth, persistent):
        def call(*arguments):
            offlinehost.fail_allocation(nth, persistent)
            try:
                return function(*arguments)
            finally:
                offlinehost.fail_allocation(0)
        return call

    def startAgain(self):
        """A start without memory has left the module without a state."""
        if not self.module._pluginExists('thing'):
            self.module._init()

    def testEveryCall(self):
        failures = []
        for function, path, calls, kept in cases.STARTED:
            # So many new scenes need more room in the list of scenes, and without memory for that the core raises what
            # ends the interpreter: the C++ tests of faults look at it.
            if function == '_addSceneContent':
                continue
            made = []
            for nth in self.REFUSED:
                for persistent in (False, True):
                    made.extend((self.withoutMemory(call, nth, persistent), arguments, None)
                                for call, arguments, _ in self.made(calls))
                    made.append((self.startAgain, (), None))
            try:
                self.checkCounts(made, kept * 2 * len(self.REFUSED))
            except AssertionError as error:
                failures.append('%s, %s: %s' % (function, path, error))
        self.assertEqual(failures, [])
        offlinehost.warnings()

    def testEveryStart(self):
        self.module._uninit()
        for variant, _ in cases.REFUSED_STARTS + [('without_printWarning', None)]:
            offlinehost.set_environment(support.ROOT_VARIABLE, support.variantRoot(variant))
            self.addCleanup(offlinehost.set_environment, support.ROOT_VARIABLE, support.STAGE)
            made = [(self.withoutMemory(self.module._init, nth, persistent), (), None)
                    for nth in self.REFUSED for persistent in (False, True)]
            self.checkCounts(made, 0)
            self.module._uninit()


class MeasureTest(ReferenceTest):

    def failure(self, function, *arguments):
        function.__name__ = 'stub'
        self.module = type('Stub', (), {'stub': staticmethod(function), '_uninit': self.module._uninit})
        try:
            self.checkRow([('stub', arguments, cases.returns(None))], 0)
        except AssertionError as error:
            return str(error)

    def testACallThatKeepsNothing(self):
        self.assertIs(self.failure(lambda text: None, 'some text'), None)

    def testACallThatKeepsItsArgument(self):
        kept = []
        self.assertIn('[0, 0, 0, 0, %d]' % ROUNDS, self.failure(lambda text: kept.append(text), 'some text'))

    def testACallThatKeepsNone(self):
        kept = []
        self.assertIn('[%d, 0, 0, 0]' % ROUNDS, self.failure(lambda: kept.append(None)))

    def testACallThatKeepsWhatItMakes(self):
        kept = []
        found = self.failure(lambda: kept.append(object()))
        self.assertEqual(found, '%d != 0' % ROUNDS if hasTotal else None)

    def testAResultThatIsKept(self):
        kept = []

        def result():
            kept.append(''.join(['some', ' text']))
            return kept[-1]

        result.__name__ = 'stub'
        self.assertRaises(AssertionError, self.checkOutcome, result, (), cases.returns('some text'))

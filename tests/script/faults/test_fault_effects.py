"""What is missing, to the letter, after an allocation was refused, and faults of the interpreter's own."""
import json
import sys

import call_cases as cases
import offlinehost
import support
from fault_case import EachAllocationTest

# What a _setParam leaves behind when allocation 1, 2, ... is refused, alone and with all that follow: how it says so,
# or what the parameter reads as.
INVALID = 'Invalid value given for parameter \\"{1}\\" in plugin \\"{0}\\".'
UNSET = 'The parameter \\"{1}\\" couldn\'t be set for plugin \\"{0}\\".'
EFFECTS = [
    # The object, its name.
    (('thing', 'count', (0, 5)), [INVALID, UNSET], [INVALID, UNSET]),
    (('all', 'vector', (4, (1.0, 2.0, 3.0))), [INVALID, UNSET, UNSET], [INVALID, UNSET, UNSET]),
    # The object, its name; its text.
    (('thing', 'label', (9, 'some text')), [INVALID, UNSET, "(9, '')"], [INVALID, UNSET, "(9, '')"]),
    # The object, its name; the exact array, without which each element is appended.
    (('thing', 'ids', (0, [(0, 1), (0, 2)])), [INVALID, UNSET, '(0, [1, 2])'], [INVALID, UNSET, '(0, [])']),
    # The object, its name; the array; record and characters of each text; a place in the plugin.
    (('all', 'strings', (9, [(9, 'a'), (9, 'b')])),
     [INVALID, UNSET, "(9, ['a', 'b'])", "(9, ['', 'b'])", "(9, ['', 'b'])", "(9, ['a', ''])", "(9, ['a', ''])", UNSET],
     [INVALID] + [UNSET] * 7),
    # The object, its name; the array of plugins, that of output names; a place in the plugin.
    (('all', 'plugins', (10, [(10, 'other'), (1000, ('other', 'output_texture'))])),
     [INVALID, UNSET] + ["(10, ['other', ('other', 'output_texture')])"] * 2 + [UNSET], [INVALID] + [UNSET] * 4),
    # The object, its name; the array of lists as the fast road and as the walk makes it; for the walk the two lists
    # anew; their elements. A list that is missing reads as none.
    (('an output', 'frames', (12, [(12, [(0, 1), (0, 2)]), (12, [(0, 3)])])),
     [INVALID, UNSET] + ['(12, [(12, [(0, 1), (0, 2)]), (12, [(0, 3)])])'] * 3 +
     ['(12, [<NULL>, (12, [(0, 3)])])', '(12, [(12, [(0, 1), (0, 2)]), <NULL>])', '(12, [(12, []), (12, [(0, 3)])])',
      '(12, [(12, [(0, 1), (0, 2)]), (12, [])])'],
     [INVALID, UNSET, '(12, [])'] + ['(12, [<NULL>, <NULL>])'] * 3 +
     ['(12, [(12, []), <NULL>])', '(12, [(12, []), (12, [])])', '(12, [(12, [(0, 1), (0, 2)]), (12, [])])']),
    # The object, its name; the array of channels; the vertices, the faces.
    (('a mesh', 'map_channels', (12, [(12, [(0, 5), (4, [(4, (1.5, 2.5, 3.5))]), (0, [(0, 0)])])])),
     [INVALID, UNSET] + ['(12, [(12, [(0, 5), (4, [(1.5, 2.5, 3.5)]), (0, [0])])])'] * 3,
     [INVALID, UNSET, '(12, [])', '(12, [(12, [(0, 5), (4, []), (0, [])])])',
      '(12, [(12, [(0, 5), (4, [(1.5, 2.5, 3.5)]), (0, [])])])']),
    # The object, its name twice; the list and its array on the fast road; the number's payload; the inner list's way
    # and payload, its array; the text's payload, its copy; a place in the plugin.
    (('all', 'anys', (12, [(0, 1), (12, [(9, 'x')])])),
     [INVALID, UNSET, UNSET] + ["(12, [(0, 1), (12, [(9, 'x')])])"] * 2 + ["(12, [(0, 0), (12, [(9, 'x')])])"] +
     [INVALID] * 2 + ['(12, [(0, 1), (12, [])])'] + ["(12, [(0, 1), (12, [(9, '')])])"] * 2 + [UNSET],
     [INVALID] * 8 + [UNSET] * 4),
]


class EffectsTest(EachAllocationTest):

    def effect(self, arguments, nth, persistent):
        """What the call says or leaves, and whether an allocation was refused."""
        self.startAnew()
        refusals, result, _ = self.refused((self.module._setParam, arguments, None), nth, persistent)
        said = result[2] if result[0] == 'raises' else repr(self.module._getParam(*arguments[:2]))
        return said, refusals > 0

    def testWhatIsMissingAfterEachRefusal(self):
        for arguments, once, lasting in EFFECTS:
            for persistent, expected in ((False, once), (True, lasting)):
                seen, nth = [], 1
                while True:
                    said, wasRefused = self.effect(arguments, nth, persistent)
                    if not wasRefused:
                        break
                    seen.append(said)
                    nth += 1
                expected = [text.format(*arguments) if text in (INVALID, UNSET) else text for text in expected]
                self.assertEqual((arguments, persistent, seen), (arguments, persistent, expected))

    def testANameThatIsMissingInAList(self):
        names = self.module._getPluginParams('filled', 1)
        offlinehost.fail_allocation(1)
        self.assertEqual(self.module._getPluginParams('filled', 1), names[1:])
        offlinehost.fail_allocation(1, persistent=True)
        self.assertEqual(self.module._getPluginParams('filled', 1), [])

    def testASceneThatIsMissing(self):
        """It is listed, counted and passed over; no file is read into it."""
        offlinehost.fail_allocation(1)
        self.assertIs(self.module._addSceneContent([self.folder + '/none.kscene'], ''), None)
        self.assertEqual(offlinehost.counters()['extra_scenes'], 2)
        for name, isThere in (('thing', True), ('extra', True), ('nobody', False)):
            self.assertIs(self.module._pluginExists(name), isThere)
        # Behind it stands the scene that owns the plugin.
        self.assertIs(self.module._setParam('extra', 'count', (0, 5)), None)
        self.assertEqual(self.module._getParam('extra', 'count'), (0, 5))
        self.assertIs(self.module._delete('extra'), None)
        self.assertIs(self.module._pluginExists('extra'), False)

    def testAFirstSceneThatIsMissing(self):
        """It is the oldest of the list, so that what is appended to it goes nowhere."""
        self.module._uninit()
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(self.scene)
        self.module._init()
        offlinehost.fail_allocation(1)
        self.assertIs(self.module._appendSceneContent([self.folder + '/extra.kscene'], ''), None)
        self.assertIs(self.module._appendSceneContent([self.folder + '/none.kscene'], ''), None)
        self.assertIs(self.module._pluginExists('extra'), False)
        self.assertEqual(offlinehost.counters()['extra_scenes'], 1)

    def testAFileNameThatIsMissing(self):
        before = offlinehost.counters()['failed_allocations']
        for refusals, nth in enumerate((2, 3)):
            offlinehost.fail_allocation(nth)
            self.assertRaisesText(Exception, 'no file name', self.module._addSceneContent,
                                  [self.folder + '/empty.kscene'], '')
            self.assertEqual(offlinehost.counters()['failed_allocations'] - before, refusals + 1)


# Sets values on more plugins than the host's set has room for, while it cannot grow; then runs what follows, and tells
# how many values the set holds, what they are and what is left at the end.
OWNED_SET = '''
import json, offlinehost
from kelmo import pluginmodifier as m
offlinehost.add_types(%r)
offlinehost.open_text(%r)
m._init()
before = offlinehost.counters()['allocations']
m._setParam('thing 0', 'count', (0, 1))
# What a value needs while the set does not grow.
allocations = offlinehost.counters()['allocations'] - before
def setOnAll(value, refused):
    for i in range(%d):
        if refused: offlinehost.fail_allocation(allocations + 1, persistent=True)
        m._setParam('thing %%d' %% i, 'count', (0, value + i))
        offlinehost.fail_allocation(0)
setOnAll(1000000, True)
%s
owned = offlinehost.counters()['owned_values']
values = [m._getParam('thing %%d' %% i, 'count') for i in range(%d)]
m._uninit()
print json.dumps([owned, values, offlinehost.end()])
'''


class OwnedSetTest(support.ModuleTest):
    """Values that find no place in the host's set, because it could not grow, are nobody's and stay alive."""

    PLUGINS = 90
    FIRST_CAPACITY = 64

    scene = support.sceneText(*[{'type': 'TestThing', 'name': 'thing %d' % i} for i in range(PLUGINS)])

    def lastingValues(self, first, owned, more=''):
        """After more code the plugins hold values from `first` on, `owned` of them in the set; as many as have found
        no place while the set could not grow are left at the end, each with its name."""
        code = OWNED_SET % (self.types[0], self.scene, self.PLUGINS, more, self.PLUGINS)
        # What is left on purpose is counted here; a checker of leaks would only count it again.
        status, out, err = support.runPython(code, kept=2 * (self.PLUGINS - self.FIRST_CAPACITY))
        self.assertEqual((status, err), (0, ''))
        counted, values, report = json.loads(out)
        self.assertEqual(counted, owned)
        self.assertEqual(values, [[0, first + i] for i in range(self.PLUGINS)])
        self.assertEqual((report['owned_freed'], report['blocks_leaked']),
                         (owned, 2 * (self.PLUGINS - self.FIRST_CAPACITY)))
        self.assertEqual((report['misuse_foreign_frees'], report['misuse_wrong_sizes']), (0, 0))

    def testValuesBeyondTheSetsCapacity(self):
        self.lastingValues(1000000, self.FIRST_CAPACITY)

    def testASetThatGrowsAfterAll(self):
        # Now there is memory: each value comes into the set, and those that were in it go.
        self.lastingValues(2000000, self.PLUGINS, 'setOnAll(2000000, False)')

    def testANewValueComesInBeforeTheOldOneGoes(self):
        """So it is a value that replaces another for which the set grows, and not the next one."""
        def allocations(i):
            before = offlinehost.counters()['allocations']
            self.module._setParam('thing %d' % i, 'count', (0, i))
            return offlinehost.counters()['allocations'] - before

        first, replaced = [], []
        for i in range(self.FIRST_CAPACITY):
            first.append(allocations(i))
            replaced.append(allocations(i))
        self.assertEqual((max(first), max(replaced)), (min(first), min(replaced) + 1))
        self.assertEqual(replaced.count(max(replaced)), 1)

    def testGrowthThatIsRefusedOnce(self):
        before = offlinehost.counters()['allocations']
        self.module._setParam('thing 0', 'count', (0, 1))
        allocations = offlinehost.counters()['allocations'] - before
        for i in range(self.PLUGINS):
            offlinehost.fail_allocation(allocations + 1)
            self.module._setParam('thing %d' % i, 'count', (0, 1))
            offlinehost.fail_allocation(0)
        # Each time that the set asked once it was refused; when it was full it asked a second time.
        self.assertEqual(offlinehost.counters()['owned_values'], self.PLUGINS)


class ErrorsOfErrorsTest(cases.CallTest):
    """A conversion whose error cannot tell its own text."""

    def testAnErrorWithoutAText(self):
        def failing(error):
            raise error

        for label, text in (('raises', lambda error: failing(ValueError('no text'))), ('is empty', lambda error: ''),
                            ('is none', lambda error: None), ('is unicode', lambda error: u'\u6f22')):
            kind = type('Odd', (Exception,), {'__str__': text})
            number = type('Number', (object,), {'__int__': lambda self: failing(kind('unused'))})()
            self.assertIs(self.module._setParam('thing', 'count', (0, number)), None)
            self.assertEqual((label, offlinehost.take_pending_error()), (label, None))
            self.assertWarned(
                'A value given for parameter "count" in plugin "thing" could not be read as its type: Odd.')
            self.assertEqual(self.module._getParam('thing', 'count'), (0, -1))


class RecursionTest(cases.CallTest):
    """A value that is nested more deeply than the interpreter allows for is an error of the whole call."""

    def read(self, room):
        """The value, read with so many levels left, or the error's text."""
        limit, depth, frame = sys.getrecursionlimit(), 0, sys._getframe()
        while frame is not None:
            depth, frame = depth + 1, frame.f_back
        sys.setrecursionlimit(depth + room)
        try:
            return self.module._getParam('all', 'anys')
        except RuntimeError as error:
            return str(error)
        finally:
            sys.setrecursionlimit(limit)

    def testEachDepth(self):
        value = (0, 1234567)
        for _ in range(60):
            value = (12, [(9, 'before'), value, (9, 'after')])
        self.module._setParam('all', 'anys', value)
        whole = self.module._getParam('all', 'anys')
        results = []
        for room in range(20, 100, 3):
            results.append(self.read(room))
            self.assertIs(offlinehost.take_pending_error(), None)
        tooDeep = 'maximum recursion depth exceeded while reading a parameter value'
        self.assertEqual(results[0], tooDeep)
        self.assertEqual(results[-1], whole)
        self.assertEqual([result for result in results if result not in (tooDeep, whole)], [])

# -*- coding: utf-8 -*-
"""_setParam: every kind of value on every kind of parameter, refusals, ownership, and what is left behind."""
import sys

import offlinehost
import support
from all_kinds import AllKindsTest, PARAMS, SINGLE_KINDS, TEXTURES

MATRIX = ((1.0, 2.0, 3.0), (4.0, 5.0, 6.0), (7.0, 8.0, 9.0))
# A good value of every source code, and how it reads back from a parameter of its own code.
GOOD = {0: (0, 5), 1: (1, 0.5), 2: (2, 0.1), 3: (3, True), 4: (4, (1.0, 2.0, 3.0)), 5: (5, (0.25, 0.5, 1.0)),
        6: (6, ((0.25, 0.5, 1.0), 0.75)), 7: (7, MATRIX), 8: (8, (MATRIX, (1.5, 2.5, 3.5))), 9: (9, 'text'),
        10: (10, 'other'), 1000: (1000, ('other', 'output_texture'))}
IDENTITY_OFFSET = (0.0, 0.0, 0.0)

# (source code, declared code) -> what is read back.
PAIRS = {}
for number in (0, 1, 2, 3):
    value = float(GOOD[number][1])
    for declared in (0, 14, 3):
        PAIRS[number, declared] = (0, int(value))
    for declared in (1, 13):
        PAIRS[number, declared] = (1, 0.10000000149011612 if number == 2 else value)
    PAIRS[number, 2] = (1, value)
for declared in (4, 15):
    PAIRS[4, declared] = (4, (1.0, 2.0, 3.0))
for declared in (5, 11):
    PAIRS[5, declared] = (5, (0.25, 0.5, 1.0))
PAIRS[5, 6] = (6, (0.25, 0.5, 1.0, 1.0))
for declared in (6, 11):
    PAIRS[6, declared] = (6, (0.25, 0.5, 1.0, 0.75))
PAIRS[6, 5] = (5, (0.25, 0.5, 1.0))
for declared in (7, 16):
    PAIRS[7, declared] = PAIRS[8, declared] = (7, MATRIX)
for declared in (8, 17):
    PAIRS[7, declared] = (8, (MATRIX, IDENTITY_OFFSET))
    PAIRS[8, declared] = (8, (MATRIX, (1.5, 2.5, 3.5)))
PAIRS[9, 9] = (9, 'text')
for declared in (10, 11, 13, 14, 15, 16, 17):
    PAIRS[10, declared] = (10, 'other')
PAIRS[1000, 10] = PAIRS[1000, 11] = (1000, ('other', 'output_texture'))


class SingleValuesTest(AllKindsTest):

    def testEveryPair(self):
        for kind, declared in SINGLE_KINDS:
            for source in sorted(GOOD):
                if (source, declared) in PAIRS:
                    self.assertEqual((source, kind, self.setParam(kind, GOOD[source])),
                                     (source, kind, repr(PAIRS[source, declared])))
                else:
                    self.assertInvalid(kind, GOOD[source])

    def testCodesThatNoValueHas(self):
        for code in (-1, 11, 12, 13, 14, 15, 16, 17, 18, 999, 1001, 1002, 1003, 1004, 1005, 1006, 10000, 2 ** 31 - 1):
            for kind, _ in SINGLE_KINDS:
                self.assertInvalid(kind, (code, 'other'))

    def testNumbersConvertOneWay(self):
        for param, value, expected in (
                ('int', (1, 2.7), (0, 2)), ('int', (1, -2.7), (0, -2)), ('int', (2, 1e30), (0, int(-2 ** 31))),
                ('int', (1, float('nan')), (0, int(-2 ** 31))), ('int', (3, 7), (0, 1)), ('int', (0, 7L), (0, 7)),
                ('bool', (0, 7), (0, 7)), ('bool', (1, 0.5), (0, 0)), ('float', (0, 3), (1, 3.0)),
                ('float', (1, 3), (1, 3.0)), ('double', (1, 0.1), (1, 0.10000000149011612)),
                ('double', (2, 0.1), (1, 0.1)), ('float', (1, 1e300), (1, float('inf')))):
            self.assertEqual((param, value, self.setParam(param, value)), (param, value, repr(expected)))

    def testTransformOffsetsAreNarrowed(self):
        self.assertEqual(self.setParam('transform', (8, (MATRIX, (0.1, 0, 0)))),
                         repr((8, (MATRIX, (0.10000000149011612, 0.0, 0.0)))))

    def testTexts(self):
        for value, expected in (('', ''), ('a', 'a'), (u'abc', 'abc'), ('a\0b', 'a'), ('\xff\x80', '\xff\x80')):
            self.assertEqual(self.setParam('string', (9, value)), repr((9, expected)))

    def testNoTaggedValue(self):
        for value in (5, None, 'text', (), (0,), (0, 5, 6), [0, 5], (None, 5), ('0', 5), {}, (2 ** 32, 5),
                      (2 ** 70, 5), object()):
            self.assertInvalid('int', value)

    def testAListForASingleValueGivesItsFirstElement(self):
        self.assertEqual(self.setParam('int', (0, [(0, 5), (0, 6)])), '(0, 5)')
        self.assertEqual(self.setParam('int', ('any', [(1, 5.5), 7])), '(0, 5)')
        self.assertWarned(self.conversionWarning('int', 'an integer is required'))
        self.assertInvalid('int', (0, []))
        self.assertInvalid('int', (0, [5]))
        self.assertInvalid('int', (12, [(9, 'x')]))

    def testOutputsTakeNothing(self):
        for kind in ('output_texture', 'output_texture_float'):
            self.assertInvalid(kind, (5, (1, 1, 1)))
            self.assertInvalid(kind, (10, 'other'))


class ReferencesTest(AllKindsTest):

    def testAPluginFeedsWhatItOffers(self):
        for offered in TEXTURES:
            for wanted in TEXTURES:
                if offered == wanted:
                    self.assertEqual(self.setParam(wanted, (10, 'only_' + offered)), repr((10, 'only_' + offered)))
                else:
                    self.assertInvalid(wanted, (10, 'only_' + offered))
        for wanted in TEXTURES:
            self.assertInvalid(wanted, (10, 'plain'))
        self.assertEqual(self.setParam('plugin', (10, 'plain')), "(10, 'plain')")

    def testAnOutputFeedsWhatItIsDeclaredAs(self):
        for declared in TEXTURES:
            for wanted in TEXTURES:
                value = (1000, ('other', 'output_' + declared))
                if declared == wanted:
                    self.assertEqual(self.setParam(wanted, value), repr(value))
                else:
                    self.assertInvalid(wanted, value)
                # A plugin that does not hand out its descriptor cannot be checked.
                self.assertInvalid(wanted, (1000, ('hidden', 'output_' + declared)))
            self.assertEqual(self.setParam('plugin', (1000, ('other', 'output_' + declared))),
                             repr((1000, ('other', 'output_' + declared))))

    def testAParameterThatIsNoOutput(self):
        self.assertInvalid('texture', (1000, ('other', 'color')))
        self.assertEqual(self.setParam('plugin', (1000, ('other', 'color'))), "(1000, ('other', 'color'))")

    def testWhatDoesNotExist(self):
        for param in ('plugin', 'texture', 'plugins', 'textures', 'anys'):
            wrap = (lambda value: (10, [value])) if param.endswith('s') else (lambda value: value)
            self.assertRaisesText(Exception, 'The plugin "nowhere" doesn\'t exist.',
                                  self.module._setParam, 'all', param, wrap((10, 'nowhere')))
            self.assertRaisesText(Exception, 'The plugin "nowhere" doesn\'t exist.',
                                  self.module._setParam, 'all', param, wrap((1000, ('nowhere', 'color'))))
            self.assertRaisesText(Exception, 'The plugin "" doesn\'t exist.',
                                  self.module._setParam, 'all', param, wrap((10, 5)))
            self.assertRaisesText(Exception, 'A parameter with name "Color" doesn\'t exist for plugin "other".',
                                  self.module._setParam, 'all', param, wrap((1000, ('other', 'Color'))))
        self.assertEqual(self.module._getPluginParams('all', 1), [])


class ListsTest(AllKindsTest):

    def testEveryFlatList(self):
        elements = {'ints': ([(0, 1), (1, 2.7), (9, 'x'), (3, True)], (0, [1, 2, 0, 1])),
                    'floats': ([(1, 0.5), (0, 2), (4, (1, 2, 3))], (1, [0.5, 2.0, 0.0])),
                    'doubles': ([(2, 0.1), (0, 2)], (2, None)),
                    'vectors': ([(4, (1, 2, 3)), (5, (1, 2, 3))], (4, [(1.0, 2.0, 3.0), (0.0, 0.0, 0.0)])),
                    'colors': ([(5, (1, 2, 3)), (6, ((4, 5, 6), 7))], (5, [(1.0, 2.0, 3.0), (4.0, 5.0, 6.0)])),
                    'acolors': ([(6, ((1, 2, 3), 4)), (5, (5, 6, 7))],
                                (6, [(1.0, 2.0, 3.0, 4.0), (5.0, 6.0, 7.0, 1.0)])),
                    'matrixs': ([(7, MATRIX), (8, (MATRIX, (1, 2, 3)))], (7, [MATRIX, MATRIX])),
                    'transforms': ([(8, (MATRIX, (1, 2, 3))), (7, MATRIX)],
                                   (8, [(MATRIX, (1.0, 2.0, 3.0)), (MATRIX, IDENTITY_OFFSET)])),
                    'strings': ([(9, 'a'), (9, 'b\0c'), (0, 5)], (9, ['a', 'b', ''])),
                    'plugins': ([(10, 'all'), (1000, ('other', 'color')), (0, 5)],
                                (10, ['all', ('other', 'color'), None]))}
        for param in sorted(elements):
            given, expected = elements[param]
            if param == 'doubles':
                expected = (2, [0.1, 2.0])
            self.assertEqual((param, self.setParam(param, (0, given))), (param, repr(expected)))
            self.assertEqual(self.setParam(param, (0, [])), repr((expected[0], [])))
        self.assertInvalid('bools', (3, [(3, True)]))
        self.assertInvalid('bools', (3, []))

    def testListsOfTexturesAreListsOfReferences(self):
        for kind in TEXTURES:
            # Whatever the plugin offers: elements are not checked.
            self.module._setParam('all', kind + 's', (10, [(10, 'plain'), (1000, ('other', 'color'))]))
            self.assertEqual(self.module._getPluginParams('all', 1)[-1], kind + 's')

    def testASingleValueForAList(self):
        for param in sorted(PARAMS):
            if param.endswith('s'):
                self.assertInvalid(param, (0, 5))
                self.assertInvalid(param, (0, ((0, 5),)))

    def testNestedListsInAFlatList(self):
        for given, expected in (([(0, 1), (0, [(0, 2), (0, 3)]), (0, 4)], [2, 3, 4]),
                                ([(0, 1), (0, [(0, 2), (0, 3), (0, 4), (0, 5)]), (0, 6)], [2, 3, 6, 5]),
                                ([(0, [(0, 1), (0, 2)]), (0, [(0, 3)])], [3])):
            self.assertEqual(self.setParam('ints', (0, given)), repr((0, expected)))

    def testGenericLists(self):
        for given, expected in (
                ([], '(12, [])'),
                ([(0, 1), (12, [(1, 2.5), (9, 'a')]), (3, True), (11, 'p')],
                 "(12, [(0, 1), (12, [(1, 2.5), (9, 'a')]), (0, 1), <NULL>])"),
                ([(2, 0.1), (10, 'other'), (1000, ('other', 'color'))],
                 "(12, [(1, 0.1), (10, 'other'), (1000, ('other', 'color'))])"),
                ([(12, [(12, [(12, [])])])], '(12, [(12, [(12, [(12, [])])])])'),
                ([(1001, 'other')], '(12, [None])'),
                ([(5, (1, 2, 3)), (6, ((1, 2, 3), 4))], '(12, [(5, (1.0, 2.0, 3.0)), (6, (1.0, 2.0, 3.0, 4.0))])')):
            self.assertEqual(self.setParam('anys', (12, given)), expected)

    def testTextsOfAGenericListOutliveTheScript(self):
        self.module._setParam('all', 'anys', (12, [(9, ''.join(['kept', str(i)])) for i in range(100)]))
        [''.join(['lost', str(i)]) for i in range(1000)]
        self.assertEqual(self.module._getParam('all', 'anys'), (12, [(9, 'kept%d' % i) for i in range(100)]))

    def testFastAndSlowRoadsGiveTheSame(self):
        class Items(list):
            pass
        rows = {'ints': [0, 1, -2 ** 31, 2 ** 31 - 1], 'floats': [0.5, 3, 1e300], 'doubles': [0.1, 3],
                'vectors': [(1, 2.5, 3), (1, 2, 3, 4)], 'colors': [(1, 2.5, 3)], 'acolors': [((1, 2.5, 3), 4)],
                'matrixs': [MATRIX], 'transforms': [(MATRIX, (0.1, 2, 3))], 'strings': ['a', '', 'b\0c']}
        for param in sorted(rows):
            code = PARAMS[param][0]
            fast = [(code, value) for value in rows[param]]
            self.assertEqual((param, self.setParam(param, (code, fast))),
                             (param, self.setParam(param, (code, Items(fast)))))


class WrongKindsTest(AllKindsTest):

    def testTheFailureValueIsSetAndTheUserIsWarned(self):
        for param, value, expected, text in (
                ('int', (0, 'x'), '(0, -1)', 'an integer is required'),
                ('int', (0, 2 ** 31), '(0, -1)', 'Python int too large to convert to C long'),
                ('bool', (3, None), '(0, 1)', 'an integer is required'),
                ('float', (1, 'x'), '(1, -1.0)', 'a float is required'),
                ('string', (9, 5), "(9, '')", 'expected string or Unicode object, int found'),
                ('vector', (4, (1, 2)), '(4, (1.0, 2.0, -1.0))', 'tuple index out of range'),
                ('vector', (4, [1, 2, 3]), None, None),
                ('acolor', (6, (1, .5, .25, .75)), '(6, (-1.0, -1.0, -1.0, 0.5))', 'a tuple is expected, not int'),
                ('ints', (0, [(0, 1), (0, 'x'), (0, 3)]), '(0, [1, -1, 3])', 'an integer is required'),
                ('ints', (0, [(0, 1), 5]), '(0, [1, 0])', 'a (type code, value) pair is expected, not int'),
                ('anys', (12, [(9, None)]), "(12, [(9, '')])", 'expected string or Unicode object, NoneType found')):
            if expected is None:
                self.assertInvalid(param, value)
                continue
            self.assertEqual((param, self.setParam(param, value)), (param, expected))
            self.assertWarned(self.conversionWarning(param, text))

    def testTheTextOfTheScriptsOwnError(self):
        class Broken(object):
            def __float__(self):
                raise ValueError('no number today')

        class Silent(object):
            def __float__(self):
                raise ValueError()
        self.assertEqual(self.setParam('float', (1, Broken())), '(1, -1.0)')
        self.assertWarned(self.conversionWarning('float', 'no number today'))
        self.setParam('float', (1, Silent()))
        self.assertWarned(self.conversionWarning('float', 'ValueError'))

    def testARefusedValueDoesNotWarn(self):
        self.assertInvalid('string', (0, 'x'))
        self.assertInvalid('int', (9, 5))
        self.assertWarned()

    def testNoErrorStaysPending(self):
        self.module._setParam('all', 'int', (0, 'x'))
        for _ in range(3):
            pass
        self.assertEqual(len(offlinehost.warnings()), 1)


class CyclesTest(AllKindsTest):

    def testAListInsideItself(self):
        cycle = []
        cycle.append((12, cycle))
        branching = []
        branching.extend([(12, branching)] * 2)
        late = [(0, n) for n in range(1000)]
        late.append((12, [(12, late)]))
        doubling = [(0, 1)]
        for _ in range(50):
            doubling = [(12, doubling), (12, doubling)]
        for value in (cycle, branching, late, doubling):
            self.assertInvalid('anys', (12, value))
            self.assertInvalid('ints', (12, value))
        for value in (cycle, branching, late):
            del value[:]

    def testSixtyFourLevels(self):
        value = [(0, 1)]
        for _ in range(63):
            value = [(12, value)]
        self.assertEqual(self.setParam('anys', (12, value)), repr((12, value)))
        self.assertInvalid('anys', (12, [(12, value)]))


class OwnershipTest(AllKindsTest):

    def owned(self):
        return offlinehost.counters()['owned_values']

    def testTheSecondValueFreesTheFirst(self):
        self.module._setParam('all', 'int', (0, 1))
        alive = offlinehost.counters()['live_blocks']
        for n in range(100):
            self.module._setParam('all', 'int', (0, n))
            self.assertEqual(offlinehost.counters()['live_blocks'], alive)
            self.assertEqual(self.owned(), 1)

    def testAThousandValues(self):
        names = ['many%d' % n for n in range(1000)]
        for name in names:
            self.module._create('AllKinds', name)
            self.module._setParam(name, 'string', (9, name))
        self.assertEqual(self.owned(), 1000)
        for name in names:
            self.assertEqual(self.module._getParam(name, 'string'), (9, name))
            self.module._setParam(name, 'string', (9, 'again'))
        self.assertEqual(self.owned(), 1000)

    def testReferenceCounts(self):
        values = [('int', (0, 123456)), ('string', (9, 'some longer text')), ('anys', (12, [(9, 'abc'), (12, [])])),
                  ('acolor', (6, ((0.1, 0.2, 0.3), 0.4))), ('ints', (0, [(0, 100000 + n) for n in range(10)]))]
        for param, value in values:
            inner = value[1][0] if isinstance(value[1], (list, tuple)) else value[1]
            before = [sys.getrefcount(x) for x in (value, value[0], value[1], inner)]
            for _ in range(10):
                self.module._setParam('all', param, value)
            after = [sys.getrefcount(x) for x in (value, value[0], value[1], inner)]
            self.assertEqual((param, before), (param, after))

    def testARefusedValueIsFreed(self):
        self.module._setParam('all', 'int', (0, 1))
        alive = offlinehost.counters()['live_blocks']
        # Without memory for its name the plugin does not know what the value is for.
        offlinehost.fail_allocation(2)
        self.assertRaisesText(Exception, 'The parameter \\"int\\" couldn\'t be set for plugin \\"all\\".',
                              self.module._setParam, 'all', 'int', (0, 2))
        offlinehost.fail_allocation(0)
        self.assertEqual(offlinehost.counters()['live_blocks'], alive)
        self.assertEqual(self.owned(), 1)
        self.assertEqual(self.module._getParam('all', 'int'), (0, 1))

    def testEveryAllocationMayFail(self):
        for param, value in (('string', (9, 'text')), ('ints', (0, [(0, 1), (0, 2)])),
                             ('anys', (12, [(0, 1), (12, [(9, 'a')])])), ('plugin', (1000, ('other', 'color')))):
            for persistent in (False, True):
                for n in range(1, 30):
                    offlinehost.fail_allocation(n, persistent)
                    try:
                        self.module._setParam('all', param, value)
                    except Exception as error:
                        self.assertIn(str(error).split(' ')[0], ('Invalid', 'The'))
                    offlinehost.fail_allocation(0)
                    repr(self.module._getParam('all', param))
        self.module._setParam('all', 'string', (9, 'text'))
        self.assertEqual(self.module._getParam('all', 'string'), (9, 'text'))


class ValuesOfTheHostTest(AllKindsTest):

    plugins = AllKindsTest.plugins + [
        {'type': 'AllKinds', 'name': 'filled', 'params': {'int': 3, 'string': 'old', 'floats': [1, 2, 3]}}]

    def testAValueThatTheSceneMadeIsLeftToIt(self):
        before = offlinehost.counters()
        self.assertEqual(self.setParam('int', (0, 4), 'filled'), '(0, 4)')
        self.assertEqual(self.setParam('floats', (1, [(1, 0.5)]), 'filled'), '(1, [0.5])')
        after = offlinehost.counters()
        self.assertEqual(after['values_freed'], before['values_freed'])
        self.assertEqual(after['owned_values'], 2)


class RoadTest(AllKindsTest):

    def road(self, *arguments):
        offlinehost.observe(True)
        try:
            self.module._setParam(*arguments)
        finally:
            events = offlinehost.events()
            offlinehost.observe(False)
        return events

    def testASingleValue(self):
        self.assertEqual(self.road('all', 'int', (0, 5)),
                         ['manager.findPlugin("all")', 'plugin("all").getParameter("int")',
                          'plugin("all").setParameter("int")'])

    def testAReferenceIsLookedUpWhereItIsRead(self):
        self.assertEqual(self.road('all', 'texture', (10, 'other')),
                         ['manager.findPlugin("all")', 'manager.findPlugin("other")', 'manager.findPlugin("other")',
                          'plugin("all").getParameter("texture")', 'plugin("all").setParameter("texture")'])

    def testAFailureEndsTheRoad(self):
        for arguments, message, events in (
                (('nowhere', 'int', (0, 1)), 'The plugin "nowhere" doesn\'t exist.', ['manager.findPlugin("nowhere")']),
                (('all', 'Int', (0, 1)), 'A parameter with name "Int" doesn\'t exist for plugin "all".',
                 ['manager.findPlugin("all")']),
                (('all', 'int', (9, 'x')), 'Invalid value given for parameter \\"int\\" in plugin \\"all\\".',
                 ['manager.findPlugin("all")'])):
            offlinehost.observe(True)
            self.assertRaisesText(Exception, message, self.module._setParam, *arguments)
            self.assertEqual(offlinehost.events(), events)
            offlinehost.observe(False)


class ArgumentsTest(AllKindsTest):

    def testMissingArguments(self):
        for arguments in ((), ('all',), ('all', 'int')):
            self.assertRaises(TypeError, self.module._setParam, *arguments)
        self.assertRaises(TypeError, self.module._setParam, 5, 'int', (0, 1))
        self.assertRaises(TypeError, self.module._setParam, 'all', None, (0, 1))
        self.assertEqual(self.module._getPluginParams('all', 1), [])

    def testUnicodeNames(self):
        self.module._setParam(u'all', u'int', (0, 7))
        self.assertEqual(self.module._getParam('all', 'int'), (0, 7))
        self.module._create('AllKinds', u'caf\xe9')
        self.module._setParam(u'caf\xe9', 'int', (0, 8))
        self.assertEqual(self.module._getParam('caf\xc3\xa9', 'int'), (0, 8))

    def testBeforeInit(self):
        self.module._uninit()
        self.assertRaises(Exception, self.module._setParam, 'all', 'int', (0, 1))
        self.module._init()

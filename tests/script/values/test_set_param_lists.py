# -*- coding: utf-8 -*-
"""_setParam on lists: every flat list, nested and generic ones, lists inside themselves."""
import offlinehost
from all_kinds import AllKindsTest, PARAMS, TEXTURES

MATRIX = ((1.0, 2.0, 3.0), (4.0, 5.0, 6.0), (7.0, 8.0, 9.0))
IDENTITY_OFFSET = (0.0, 0.0, 0.0)

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


class HolesTest(AllKindsTest):
    """A mixed list that _getParam gives can have holes, and scripts write back what they read."""

    WARNING = 'a (type code, value) pair is expected, not <NULL>'

    def holes(self, given):
        """The list that is read where this one was set."""
        self.module._setParam('other', 'anys', (12, given))
        return self.module._getParam('other', 'anys')

    def testAHoleStaysAHole(self):
        for given in ([(11, 'p')], [(0, 5), (11, 'p'), (12, [(11, 'p'), (9, 'a')]), (0, 6)]):
            holes = self.holes(given)
            self.assertIn('<NULL>', repr(holes))
            self.assertEqual(self.setParam('anys', holes), repr(holes))
            self.assertWarned(self.conversionWarning('anys', self.WARNING))

    def testInAFlatListAHoleIsAnElementThatCannotBeRead(self):
        for param, nothing, value in (
                ('ints', 0, (0, 7)), ('floats', 0.0, (1, 0.5)), ('doubles', 0.0, (2, 0.5)),
                ('vectors', (0.0, 0.0, 0.0), (4, (1.0, 2.0, 3.0))), ('strings', '', (9, 'a')),
                ('plugins', None, (10, 'other'))):
            code = PARAMS[param][0]
            self.assertEqual((param, self.setParam(param, self.holes([(11, 'p'), value]))),
                             (param, repr((code, [nothing, value[1]]))))
            self.assertEqual(self.setParam(param, self.holes([value, (11, 'p')])), repr((code, [value[1], nothing])))
            self.assertWarned(*[self.conversionWarning(param, self.WARNING)] * 2)

    def testAHoleIsNoSingleValue(self):
        for param in ('int', 'string', 'plugin'):
            self.assertInvalid(param, self.holes([(11, 'p'), (0, 5)]))


class LongListsTest(AllKindsTest):
    """Long lists are read ahead of their use; every element still arrives, up to the last."""

    COUNT = 20011

    def testLongLists(self):
        for name, code, values in (
                ('ints', 0, range(self.COUNT)),
                ('floats', 1, [i * 0.5 for i in range(self.COUNT)]),
                ('vectors', 4, [(i * 0.5, -1.0, 2.0) for i in range(self.COUNT)]),
                ('colors', 5, [(1.0, i * 0.25, 0.0) for i in range(self.COUNT)])):
            self.module._setParam('all', name, (code, [(code, value) for value in values]))
            result = self.module._getParam('all', name)
            self.assertEqual(result[0], code)
            self.assertTrue(result[1] == values, name)
            # One of the last is of another kind: nothing but that one changes.
            odd = list(values)
            odd[-2] = None
            self.module._setParam('all', name, (code, [(code, value) for value in odd]))
            warning, = offlinehost.warnings()
            self.assertIn('A value given for parameter "%s" in plugin "all" could not be read' % name, warning)
            result = self.module._getParam('all', name)[1]
            self.assertTrue(result[:-2] == values[:-2] and result[-1] == values[-1] and result[-2] != values[-2], name)

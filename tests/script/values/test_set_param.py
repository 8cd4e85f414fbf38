# -*- coding: utf-8 -*-
"""_setParam on single values: every kind on every kind of parameter, references, arguments."""
import offlinehost
from all_kinds import AllKindsTest, SINGLE_KINDS, TEXTURES

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

    def testFastAndSlowRoadsGiveTheSame(self):
        class Pair(tuple):
            pass
        rows = {0: [0, -2 ** 31, 2 ** 31 - 1], 1: [0.5, 3, 1e300, 2 ** 60, 0.1], 4: [(1, 2.5, 3), (1.0, 2.0, 3.0, 4.0)],
                5: [(1, 2.5, 3), (0.1, 0.2, 0.3)]}
        targets = {0: ('int', 'bool', 'texture_int', 'float'), 1: ('float', 'texture_float', 'double', 'int'),
                   4: ('vector', 'texture_vector'), 5: ('color', 'texture', 'acolor')}
        for code in sorted(rows):
            for param in targets[code]:
                for value in rows[code]:
                    # As it is read back, and as it is saved.
                    given = (code, value)
                    fast = self.setParam(param, given), offlinehost.text()
                    slow = self.setParam(param, Pair(given)), offlinehost.text()
                    self.assertEqual((param, given, fast), (param, given, slow))

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

    def testAScriptThatEndsTheAccessWithinAConversion(self):
        pm = self.module
        before = pm._getPluginParams('all', 1)

        class Ends(object):
            def __int__(self):
                pm._uninit()
                return 0

            __float__ = __int__

        class EndsAndFails(Ends):
            def __int__(self):
                pm._uninit()
                raise ValueError('late')

        for param, value in (('int', (0, Ends())), ('int', (Ends(), 5)), ('int', (0, EndsAndFails())),
                             ('vector', (4, (1, 2, Ends()))), ('floats', (1, [(1, 0.5), (1, Ends())])),
                             ('anys', (12, [(12, [(1, Ends())])]))):
            with self.assertRaises(Exception) as raised:
                pm._setParam('all', param, value)
            self.assertIs(type(raised.exception), Exception)
            self.assertTrue(str(raised.exception).startswith("The kelmo.pluginmodifier module wasn't initialized"))
            pm._init()
            self.assertEqual(pm._getPluginParams('all', 1), before)

# -*- coding: utf-8 -*-
"""Values of the wrong Python kind: what is set instead, and how the user hears of it."""
import unittest

import offlinehost
import support
from all_kinds import AllKindsTest

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

    def testAnErrorWhoseTextCannotBeHad(self):
        class Unprintable(Exception):
            def __str__(self):
                raise RuntimeError('no text')

        def raising(error):
            class Raising(object):
                def __float__(self):
                    raise error
            return Raising()
        # A class's name stands for it, and its own failure does not stay pending.
        for error, text in ((Unprintable(), 'Unprintable'), (ValueError(u'\xe9'), 'ValueError'),
                            (KeyError('key'), "'key'"), (ValueError('%s%n'), '%s%n')):
            self.assertEqual(self.setParam('float', (1, raising(error))), '(1, -1.0)')
            self.assertIs(offlinehost.take_pending_error(), None)
            self.assertWarned(self.conversionWarning('float', text))

    def testARefusedValueDoesNotWarn(self):
        self.assertInvalid('string', (0, 'x'))
        self.assertInvalid('int', (9, 5))
        self.assertWarned()

    def testNoErrorStaysPending(self):
        self.module._setParam('all', 'int', (0, 'x'))
        for _ in range(3):
            pass
        self.assertEqual(len(offlinehost.warnings()), 1)


class WithoutPrintWarningTest(unittest.TestCase):

    def testTheWarningIsAnExceptionAndTheValueIsSet(self):
        code = ('from kelmo import pluginmodifier as m\n'
                'm._init()\n'
                'm._create("LightPoint", "key")\n'
                'try:\n'
                '    m._setParam("key", "intensity", (1, "x"))\n'
                'except Exception as error:\n'
                '    print type(error).__name__, error\n'
                'print m._getParam("key", "intensity")\n'
                'm._uninit()\n')
        status, out, err = support.runPython(code, root=support.variantRoot('without_printWarning'))
        self.assertEqual((status, err), (0, ''))
        self.assertEqual(out.splitlines(),
                         ['Exception A value given for parameter "intensity" in plugin "key" could not be read as its '
                          'type: a float is required.', '(1, -1.0)'])

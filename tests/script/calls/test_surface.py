"""What the module offers: names, flags, docstrings and order of its functions, and what importing it does."""
import os
import sys
import unittest

import offlinehost
import support

GOLDEN = os.path.join(support.TESTS, 'script', 'golden', 'surface.txt')


class SurfaceTest(unittest.TestCase):

    def testTheMethodTable(self):
        from kelmo import pluginmodifier
        table = ['%s\t%d\t%s\n' % row for row in offlinehost.method_table(pluginmodifier._init)]
        with open(GOLDEN) as golden:
            self.assertEqual(table, golden.readlines())

    def testEveryFunctionStandsInTheTable(self):
        from kelmo import pluginmodifier
        functions = [name for name in dir(pluginmodifier) if callable(getattr(pluginmodifier, name))]
        self.assertEqual(functions, sorted(row[0] for row in offlinehost.method_table(pluginmodifier._init)))

    def testModuleHasNoDocstring(self):
        from kelmo import pluginmodifier
        self.assertIs(pluginmodifier.__doc__, None)
        self.assertEqual(pluginmodifier.__name__, 'kelmo.pluginmodifier')

    def testImportLeavesAnEmptyModuleOfTheShortName(self):
        from kelmo import pluginmodifier
        short = sys.modules['pluginmodifier']
        self.assertIsNot(short, pluginmodifier)
        self.assertFalse(hasattr(short, '_init'))

    def testFunctionsTakePositionalArgumentsOnly(self):
        from kelmo import pluginmodifier
        for name in dir(pluginmodifier):
            function = getattr(pluginmodifier, name)
            if callable(function):
                self.assertRaises(TypeError, function, name='value')

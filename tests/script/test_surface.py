"""What the module offers: names, order, docstrings and flags of its functions, and what importing it does."""
import os
import sys
import unittest

import support

GOLDEN = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'golden', 'surface.txt')


class SurfaceTest(unittest.TestCase):

    def testFunctionsInOrder(self):
        """The method table is static and contiguous, so the functions' order is that of their definitions."""
        code = ('from kelmo import pluginmodifier as m\n'
                'for name in sorted(n for n in dir(m) if n not in ("__doc__", "__file__", "__name__", "__package__")):\n'
                '    function = getattr(m, name)\n'
                '    print "%s\\t%s\\t%s" % (name, type(function).__name__, function.__doc__)\n')
        status, out, err = support.runPython(code)
        self.assertEqual((status, err), (0, ''))
        with open(GOLDEN) as golden:
            self.assertEqual(out.splitlines(), golden.read().splitlines())

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

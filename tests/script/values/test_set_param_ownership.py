# -*- coding: utf-8 -*-
"""_setParam: who frees the values, the calls that the host receives, and what stays as it was."""
import sys

import offlinehost
from all_kinds import AllKindsTest

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

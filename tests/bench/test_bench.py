"""What scripts/bench makes of times: medians, ratios, bounds, exit codes, warnings. No module and no host is there: the
clock is the test's own, and a workload costs what the test says.
"""
import collections
import io
import json
import os
import shutil
import sys
import tempfile
import types
import unittest

BENCH = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'bench')


class Clock(object):
    now = 0.0


def stand_in(name, **members):
    module = types.ModuleType(name)
    module.__dict__.update(members)
    sys.modules[name] = module
    return module


def nothing(*_):
    return None


stand_in('benchfloors', processor_time=lambda: Clock.now, free_copies=nothing)
stand_in('offlinehost', reset=nothing)
stand_in('kelmo', pluginmodifier=stand_in('kelmo.pluginmodifier', _uninit=nothing, _duplicate=nothing))
sys.path.insert(0, BENCH)

import bench
import harness
import workloads
from workloads.context import Context


def taking(seconds):
    """A function that takes so long and gives what it is given."""
    def function(*arguments):
        Clock.now += seconds
        return arguments
    return function


class Timed(harness.OwnTime):
    """A contender with these times, the last one for ever after; counts how often it was asked."""

    def __init__(self, name, *seconds):
        harness.OwnTime.__init__(self, name, self.next)
        self.left = list(seconds)
        self.asked = 0

    def next(self):
        self.asked += 1
        return self.left.pop(0) if len(self.left) > 1 else self.left[0]


class BenchTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix='bench-test-')
        self.addCleanup(shutil.rmtree, self.folder)
        self.kept = {}
        self.flags = '-O2'
        self.sanitizers = ''
        self.addCleanup(setattr, bench, 'BASELINE', bench.BASELINE)
        self.addCleanup(setattr, workloads, 'groups', workloads.groups)
        self.addCleanup(setattr, sys, 'argv', sys.argv)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), 'w') as out:
            out.write(text)
        return self.path(name)

    def bench(self, wanted, *arguments):
        """The exit code and the output of a run over these workloads."""
        compiler = self.write('compiler', '#!/bin/sh\necho compiler 1.0\n')
        os.chmod(compiler, 0o700)
        self.write('CMakeCache.txt', 'CMAKE_BUILD_TYPE:STRING=Some\nCMAKE_CXX_FLAGS_SOME:STRING=%s\n'
                                     'CMAKE_CXX_COMPILER:FILEPATH=%s\nSANITIZE:STRING=%s\n'
                   % (self.flags, compiler, self.sanitizers))
        bench.BASELINE = self.write('baseline.json', json.dumps(self.kept))
        workloads.groups = lambda: [lambda context: iter(wanted)]
        sys.argv = ['bench.py'] + list(arguments)
        output, sys.stdout = sys.stdout, io.BytesIO()
        try:
            return bench.run(bench.arguments(), self.folder), sys.stdout.getvalue()
        finally:
            sys.stdout = output


class Check(BenchTest):
    CASES = [
        # Goal, kept ratio, measured ratio, exit code.
        (1.5, None, 1.4, 0),
        (1.5, None, 2.2, 0),   # missed, and within half more
        (1.5, None, 2.3, 1),
        (1.5, 0.1, 1.4, 0),    # a goal is what counts
        (1.5, 9.0, 2.3, 1),
        (None, 1.0, 1.9, 0),
        (None, 1.0, 2.1, 1),
        (None, 0.5, 1.9, 1),   # the first with a falsified ratio
        (None, None, 0.1, 1),  # nothing to compare with
    ]

    def test_bounds(self):
        for goal, kept, ratio, code in self.CASES:
            self.kept = {} if kept is None else {'some.work': kept}
            wanted = [harness.Workload('some.work', [Timed('floor', 1.0), Timed('module', ratio)], goal)]
            seen, output = self.bench(wanted, '--check')
            case = (goal, kept, ratio, output)
            self.assertEqual(seen, code, case)
            self.assertEqual('OUT OF BOUNDS some.work' in output, code == 1, case)
            self.assertIn('\n%d within bounds, %d not\n' % (1 - code, code), output)
            self.assertEqual(self.bench(wanted)[0], 0, case)  # only a check fails

    def test_one_out_of_bounds_among_others(self):
        self.kept = {'good': 1.0, 'bad': 1.0}
        code, output = self.bench([harness.Workload(name, [Timed('floor', 1.0), Timed('module', ratio)])
                                   for name, ratio in (('good', 1.0), ('bad', 3.0), ('good', 1.5))], '--check')
        self.assertEqual((code, output.count('OUT OF BOUNDS bad: 3.00, at most 2.00')), (1, 1), output)
        self.assertIn('\n2 within bounds, 1 not\n', output)

    def test_out_of_bounds_only_once(self):
        self.kept = {'some.work': 1.0}
        slow = [5.0] * (1 + harness.ROUNDS)
        wanted = harness.Workload('some.work', [Timed('floor', 1.0), Timed('module', *slow + [1.0])])
        code, output = self.bench([wanted], '--check')
        self.assertEqual((code, output.count('measured again')), (0, 1), output)

    def test_keep(self):
        self.kept = {'some.work': 1.0, 'other': 2.0}
        self.bench([harness.Workload('some.work', [Timed('floor', 2.0), Timed('module', 3.0)])], '--keep')
        with open(self.path('baseline.json')) as kept:
            self.assertEqual(json.load(kept), {'some.work': 1.5, 'other': 2.0})


class Measuring(BenchTest):
    def test_ratio_of_calls(self):
        wanted = harness.Workload('some.work', [
            harness.Call('floor', taking(0.0015), 'a'), harness.Call('module', taking(0.0045), 'a', 'b'),
            harness.Call('peer', taking(0.00075)), harness.Call('other', taking(0.003), 'a', 'b', 'c')])
        result = harness.measured(wanted, 0.05)
        self.assertEqual([round(result['ratios'][name], 6) for name in result['order']], [1.0, 3.0, 0.5, 2.0])
        self.assertAlmostEqual(result['seconds']['floor'], 0.0015)
        self.assertIn('1.5 ms', harness.line(result))

    def test_medians(self):
        # Six of eleven rounds are disturbed, three each way; the first time is the one before the rounds.
        floor = Timed('floor', *[1.0] + [9.0] * 3 + [0.5] * 3 + [2.0])
        module = Timed('module', *[1.0] + [0.1] * 3 + [8.0] * 3 + [3.0])
        result = harness.measured(harness.Workload('some.work', [floor, module]), 0.05)
        self.assertEqual(result['ratio'], 1.5)

    def test_each_round_begins_with_another(self):
        order = []

        def noting(name):
            return harness.OwnTime(name, lambda: order.append(name) or 1.0)
        harness.measured(harness.Workload('some.work', [noting(name) for name in 'abc']), 0.05)
        self.assertEqual(''.join(order), 'abc' + 'abcbcacab' * 3 + 'abcbca')

    def test_peers_take_part_less_often_in_a_quick_run(self):
        for arguments, rounds in (((), 11), (('--quick',), 3)):
            contenders = [Timed(name, 1.0) for name in ('floor', 'module', 'peer', 'other')]
            self.bench([harness.Workload('some.work', contenders)], *arguments)
            self.assertEqual([contender.asked - 1 for contender in contenders], [11, 11, rounds, rounds])

    def test_wrong_answer(self):
        carried = []
        right = harness.Call('floor', taking(1.0), 1).gives(lambda: (1,))
        for wrong in (harness.Call('peer', taking(1.0), 2).gives(lambda: (1,)),
                      harness.Call('peer', taking(1.0), 1).gives(lambda: (1,), list),
                      harness.Call('peer', carried.append, 2).leaves([1], lambda: carried)):
            with self.assertRaisesRegexp(harness.WrongResult, '^some.work: peer '):
                harness.measured(harness.Workload('some.work', [right, wrong]), 0.05)
        shown = harness.Call('peer', taking(1.0), 1).gives(lambda: [1], list)
        self.assertEqual(harness.measured(harness.Workload('some.work', [right, shown]), 0.05)['ratio'], 1.0)


class Report(BenchTest):
    def some(self):
        return [harness.Workload('some.work', [Timed('floor', 2e-6), Timed('module', 3e-6), Timed('peer', 8e-6)], 2.0)]

    def test_warning(self):
        for flags, sanitizers, warned in (('-O2 -g', '', False), ('-Os', '', False), ('', '', True), ('-g', '', True),
                                          ('-O0', '', True), ('-O2 -O0', '', True), ('-O2', 'address', True)):
            self.flags, self.sanitizers = flags, sanitizers
            output = self.bench(self.some())[1]
            self.assertEqual('WARNING: this build is not optimised' in output, warned, (flags, sanitizers, output))
            self.assertIn('compiler 1.0; Some ' + flags, output)

    def test_line(self):
        line = self.bench(self.some())[1].splitlines()[-1]
        self.assertEqual(line.split(), 'some.work floor 2 us module 1.5 goal 2 met peer 4'.split())

    def test_json(self):
        self.bench(self.some(), '--json', self.path('figures.json'))
        with open(self.path('figures.json')) as figures:
            seen = json.load(figures)
        self.assertEqual(sorted(seen), ['build', 'machine', 'results'])
        self.assertEqual((seen['build']['compiler'], seen['build']['optimised']), ('compiler 1.0', True))
        self.assertTrue(seen['machine']['processor'] and seen['machine']['date'])
        self.assertEqual([(result['workload'], result['ratios'], result['rounds']) for result in seen['results']],
                         [('some.work', {'floor': 1.0, 'module': 1.5, 'peer': 4.0}, 11)])


class Baseline(unittest.TestCase):
    def test_a_kept_ratio_for_each_workload_of_a_check(self):
        context = Context(quick=True, listing=True)
        for group in workloads.groups():
            self.assertEqual(list(group(context)), [])
        with open(bench.BASELINE) as kept:
            names = sorted(json.load(kept))
        repeated = [name for name, count in collections.Counter(context.names).items() if count > 1]
        self.assertEqual((names, repeated), (sorted(context.names), []))


if __name__ == '__main__':
    unittest.main()

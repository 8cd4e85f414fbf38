"""Runs the script tests under plain Python 2.7, with the real module and the offline host.

    run.py [--build DIR] [--list] [--part I/N] [TEST...]

DIR is a build folder (default: build/release of this tree). A TEST picks the tests whose name contains
it, --part every Nth of them from the Ith on. The closing line is "N passed, N failed"; the exit code is 1
after a failure and when no test ran.
"""
import argparse
import os
import subprocess
import sys
import time
import unittest

ROOT_VARIABLE = 'KELMO_FOR_MAYA2020_MAIN'
HERE = os.path.dirname(os.path.abspath(__file__))


def part(text):
    """(I, N) of the text I/N."""
    first, step = map(int, text.split('/'))
    if not 1 <= first <= step:
        raise ValueError
    return first, step


def arguments():
    parser = argparse.ArgumentParser(description='Runs the script tests.')
    parser.add_argument('--build', default=os.path.join(HERE, '..', '..', 'build', 'release'),
                        help='the build folder whose stage and test libraries are used')
    parser.add_argument('--list', action='store_true', help='print the names of the tests and run none')
    parser.add_argument('--part', type=part, default=(1, 1), metavar='I/N', help='run every Nth test, from the Ith on')
    parser.add_argument('--verbose', action='store_true', help='print each test and its time')
    parser.add_argument('tests', nargs='*', metavar='TEST', help='run the tests whose name contains this')
    return parser.parse_args()


def flattened(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            for inner in flattened(test):
                yield inner
        else:
            yield test


class Result(unittest.TestResult):
    """Counts tests, not events: one that fails in its body and again while it is torn down failed once."""

    def __init__(self, verbose):
        unittest.TestResult.__init__(self)
        self.verbose = verbose
        self.failed = set()
        self.started = 0.0

    def startTest(self, test):
        unittest.TestResult.startTest(self, test)
        self.started = time.time()

    def stopTest(self, test):
        unittest.TestResult.stopTest(self, test)
        if self.verbose:
            print '%-6s %6.3fs %s' % ('FAILED' if test.id() in self.failed else 'ok',
                                      time.time() - self.started, test.id())
            sys.stdout.flush()

    def reportFailure(self, test, text):
        self.failed.add(test.id())
        print 'FAILED %s\n%s' % (test.id(), text)
        sys.stdout.flush()

    def addError(self, test, error):
        unittest.TestResult.addError(self, test, error)
        self.reportFailure(test, self.errors[-1][1])

    def addFailure(self, test, error):
        unittest.TestResult.addFailure(self, test, error)
        self.reportFailure(test, self.failures[-1][1])

    def addUnexpectedSuccess(self, test):
        unittest.TestResult.addUnexpectedSuccess(self, test)
        self.reportFailure(test, 'was expected to fail, and passed')

    def addSkip(self, test, reason):
        unittest.TestResult.addSkip(self, test, reason)
        print 'SKIPPED %s: %s' % (test.id(), reason)


def discovered():
    """The tests of each topic's folder."""
    for name in sorted(os.listdir(HERE)):
        folder = os.path.join(HERE, name)
        if os.path.isdir(folder):
            for test in flattened(unittest.TestLoader().discover(folder, 'test_*.py', folder)):
                yield test
            # The search path stays short, for the scripts that tests start.
            sys.path.remove(folder)


def run(options):
    tests = list(discovered())
    wanted = [test for test in tests
              if not options.tests or any(name in test.id() for name in options.tests)]
    wanted = wanted[options.part[0] - 1::options.part[1]]
    if options.list:
        for test in wanted:
            print test.id()
        return 0 if wanted else 1
    import support
    result = Result(options.verbose)
    unittest.TestSuite(wanted).run(result)
    skipped = len(result.skipped)
    # An error outside a test (in setUpClass, say) fails the run although no test of that name was started.
    failed = len(result.failed)
    for name in sorted(support.FIGURES):
        print '%8d %s' % (support.FIGURES[name], name)
    text, status = closing(max(0, result.testsRun - skipped - failed), failed, skipped)
    print text
    return status


def closing(passed, failed, skipped):
    """The closing line and the exit code."""
    text = '%d passed, %d failed' % (passed, failed) + (', %d skipped' % skipped if skipped else '')
    return text, 0 if passed > 0 and failed == 0 else 1


def main():
    options = arguments()
    build = os.path.abspath(options.build)
    stage = os.path.join(build, 'stage').replace('\\', '/')
    # The module reads its own C runtime's environment, which on Windows is not the one that os.environ
    # writes: the variable has to stand before the process starts.
    if os.environ.get(ROOT_VARIABLE) != stage:
        return subprocess.call([sys.executable, '-B'] + sys.argv, env=dict(os.environ, **{ROOT_VARIABLE: stage}))
    sys.dont_write_bytecode = True
    sys.path[:0] = [os.path.join(build, 'stage', 'python'), os.path.join(build, 'tests', 'python'), HERE]
    return run(options)


if __name__ == '__main__':
    sys.exit(main())

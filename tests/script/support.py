"""What the script tests stand on: base classes that isolate each test and watch for noise and leaks.

A test fails when it leaves behind a warning that it did not ask for, a value or a block that is alive
when the host has ended, a Python error that a call left pending, or an access to the scene still begun.
"""
import json
import os
import subprocess
import sys
import unittest

import offlinehost

ROOT_VARIABLE = 'KELMO_FOR_MAYA2020_MAIN'
DEPRECATED_ROOT_VARIABLE = ROOT_VARIABLE + '_x64'
STAGE = os.environ[ROOT_VARIABLE]
BUILD = os.path.dirname(STAGE)
TESTS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def variantRoot(name):
    """The root under which a host variant of this name stands (see tests/support/host_variants)."""
    return BUILD + '/tests/roots/' + name


def scenePath(*names):
    """The path of a file in tests/scenes, with forward slashes."""
    return os.path.join(TESTS, 'scenes', *names).replace('\\', '/')


# What run.py prints before its closing line: how often a thing was tried, by its name.
FIGURES = {}


def figure(name, count=1):
    """Adds to one of the figures."""
    FIGURES[name] = FIGURES.get(name, 0) + count


def sceneText(*plugins):
    """An offline scene of these plugin records, each a dict or a finished line."""
    lines = ['{"kelmo-scene":1,"up":"y","unit":1}']
    lines.extend(p if isinstance(p, str) else json.dumps(p) for p in plugins)
    return '\n'.join(lines) + '\n'


def runPython(code, root=None, environment=None, arguments=(), kept=0):
    """Runs code in an interpreter of its own; (exit code, stdout, stderr).

    `root` is the root variable. `environment` sets further variables, or removes those that are None, where the
    module reads them: in the C runtime, which on Windows is not the interpreter's and takes any characters.
    `kept` is how many blocks the code leaves alive and unknown to anyone, which it
    counts itself: a checker of leaks that is built in looks away, and tests/memcheck expects as many.
    """
    if environment:
        code = 'import offlinehost\n' + ''.join(
            'offlinehost.set_environment(%r, %r)\n' % item for item in sorted(environment.items())) + code
    variables = dict(os.environ)
    variables[ROOT_VARIABLE] = STAGE if root is None else root
    variables['KEPT_BLOCKS'] = str(kept)
    variables['PYTHONPATH'] = os.pathsep.join(sys.path[:3])
    if kept:
        variables['LSAN_OPTIONS'] = 'detect_leaks=0'
    process = subprocess.Popen([sys.executable, '-B', '-c', code] + list(arguments), env=variables,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    out, err = process.communicate()
    return process.returncode, out.replace('\r\n', '\n'), err.replace('\r\n', '\n')


class HostTest(unittest.TestCase):
    """A test of the offline host alone.

    `scene`: the text that the main scene is read from. `types`: folders whose plugin types are added to the
    catalogue; those for tests (tests/support/types) by default.
    """

    scene = None
    types = (TESTS.replace('\\', '/') + '/support/types',)
    maxDiff = None

    def addTestTypes(self):
        """Adds the types again after a reset in the middle of a test."""
        for folder in self.types:
            offlinehost.add_types(folder)

    def endHost(self):
        """Ends the host before the test does; the report."""
        self.report = offlinehost.end()
        return self.report

    def setUp(self):
        self.report = None
        offlinehost.echo_warnings(False)
        offlinehost.reset()
        self.addTestTypes()
        if self.scene is not None:
            offlinehost.open_text(self.scene)

    def tearDown(self):
        problems = []
        try:
            pending = offlinehost.take_pending_error()
            if pending is not None:
                problems.append('a call left an error pending: ' + pending)
            self.leave()
            offlinehost.fail_allocation(0)
            problems.extend('unexpected warning: ' + text for text in offlinehost.warnings())
            counters = offlinehost.counters()
            if counters['script_access_begun'] != counters['script_access_ended'] + self.abandonedAccesses():
                problems.append('access to the scene was begun %d times and ended %d times'
                                % (counters['script_access_begun'], counters['script_access_ended']))
            report = self.report or self.endHost()
            problems.extend('%s: %d' % (name, report[name]) for name in sorted(report)
                            if name.endswith('_leaked') and report[name] != 0)
            # Blocks that were given back with a size that they do not have, and the like.
            problems.extend('%s: %d' % (name, report[name]) for name in sorted(report)
                            if name.startswith('misuse') and report[name] != 0)
        finally:
            offlinehost.reset()
        if problems:
            self.fail('\n'.join(problems))

    def leave(self):
        """What a subclass undoes before the host is asked what is left."""

    def abandonedAccesses(self):
        """How many accesses the test has begun and, on purpose, not ended."""
        return 0

    def assertWarned(self, *texts):
        """The warnings since the last look are exactly these, in order."""
        self.assertEqual(offlinehost.warnings(), list(texts))

    def assertRaisesText(self, kind, text, function, *arguments):
        """function(*arguments) raises exactly this type with exactly this text."""
        try:
            result = function(*arguments)
        except Exception as error:
            self.assertEqual((type(error), str(error)), (kind, text))
        else:
            self.fail('no exception, but %r; expected %s: %s' % (result, kind.__name__, text))


class ModuleTest(HostTest):
    """A test through the module, which is initialised before and uninitialised after."""

    def setUp(self):
        HostTest.setUp(self)
        from kelmo import pluginmodifier
        self.module = pluginmodifier
        self.abandoned = 0
        pluginmodifier._init()

    def leave(self):
        self.module._uninit()

    def abandonedAccesses(self):
        return self.abandoned

"""Every function, on every path of the table in call_cases, while the core's allocator refuses.

Each allocation of a call is refused in turn, alone and with all that follow, until the call needs no more of them.
A call then says so in its own words and leaves the scene as it was, or it succeeds and what found no memory is
missing: a zero for a number, an empty text, no reference, a shorter list, an absent value. Nothing else changes.
What is left alive and freed wrongly, and an error that is left pending, is looked for after each single call.
"""
import json
import os
import sys

import call_cases as cases
import offlinehost
import support

NO_ROOT = ('MayaSceneAccessUtils: Could not find environment variable "KELMO_FOR_MAYA2020_MAIN" (or its fallback: '
           '"KELMO_FOR_MAYA2020_MAIN_x64")')

NO_MEMORY = ['raises', MemoryError, '']

# How a call of each function may say that it has found no memory: kind and text, in which {0} and {1} are its
# arguments and {type} is the type of the plugin that it names first. Those that load files have the core's own words.
# A function that does not stand here asks for no memory.
REFUSALS = {
    '_init': [(MemoryError, ''), (Exception, NO_ROOT)],
    '_create': [('warns', 'A plugin \\"{1}\\" of type \\"{0}\\" could not be created.')],
    '_setParam': [(Exception, 'Invalid value given for parameter \\"{1}\\" in plugin \\"{0}\\".'),
                  (Exception, 'The parameter \\"{1}\\" couldn\'t be set for plugin \\"{0}\\".')],
    '_duplicate': [('warns', 'A plugin "{1}" of type "{type}" could not be created.')],
    '_exportTexture': [('warns', 'The texture \\"{0}\\" could not be exported.')],
    '_exportMaterial': [('warns', 'The material \\"{0}\\" could not be exported.')],
    '_exportCamera': [('warns', 'The camera \\"{0}\\" could not be exported.')],
    '_exportNode': [('warns', 'The node \\"{0}\\" could not be exported.')],
    '_getPluginParams': [],
    '_addSceneContent': [],
    '_appendSceneContent': [],
}


def refusals(name, arguments, scenes, warns):
    """The outcomes with which this call may refuse; without `warns` the host prints no warnings."""
    texts = [text.encode('utf-8') if isinstance(text, unicode) else text for text in arguments]
    kind = ''
    for scene in [scenes.main] + scenes.extra:
        kind = kind or texts and name == '_duplicate' and scene.get(texts[0], {}).get('type', '')
    for how, words in REFUSALS[name]:
        text = words.format(*texts, type=kind)
        if how == 'warns':
            yield ['warns', (text,)] if warns else ['raises', Exception, text]
        else:
            yield ['raises', how, text]


def isReduced(value, full):
    """Whether the value is the full one, or what is left of it where memory was missing."""
    if value == full or value is None:
        return True
    if type(value) is not type(full):
        # A reference to an output, of which the output's name is missing.
        return isinstance(full, list) and len(full) == 2 and value == full[0] and isinstance(value, basestring)
    if isinstance(value, dict):
        return sorted(value) == sorted(full) and all(isReduced(value[key], full[key]) for key in value)
    if isinstance(value, (list, tuple)):
        if len(value) == len(full):
            return all(isReduced(a, b) for a, b in zip(value, full))
        rest = iter(full)
        return all(any(item == other for other in rest) for item in value)
    return value == type(full)()


def isShortened(text, full):
    """Whether a chain of errors is the full one with parts missing, or without memory for them."""
    known = [piece.split('] ')[-1] for piece in full.split(' | ')] + ['no file name', 'out of memory']
    return all(piece.split('] ')[-1] in known for piece in text.split(' | '))


def records(text):
    """The plugins of a scene, each a record by its name."""
    return dict((record['name'], record) for record in map(json.loads, text.splitlines()[1:]))


class Scenes(object):
    """The main scene and the extra scenes, as they stand."""

    def __init__(self):
        self.main = records(offlinehost.text())
        self.extra = []
        for index in range(offlinehost.counters()['extra_scenes']):
            try:
                self.extra.append(records(offlinehost.extra_text(index)))
            except offlinehost.Error:
                self.extra.append({})  # listed, though it could not be allocated

    def __eq__(self, other):
        return self.__dict__ == other.__dict__

    def isReduced(self, full, before):
        """Whether each plugin is as it was before, or as isReduced of what the full change has made of it."""
        if sorted(self.main) != sorted(full.main):
            return False
        for name, record in self.main.items():
            if record == before.main.get(name):
                continue
            rest, fullRest = dict(record), dict(full.main[name])
            params, fullParams = rest.pop('params', {}), fullRest.pop('params', {})
            if rest != fullRest or not all(name in fullParams and isReduced(value, fullParams[name])
                                           for name, value in params.items()):
                return False
        return len(self.extra) == len(full.extra)


class EachAllocationTest(cases.CallTest):

    warns = True

    def startAnew(self):
        self.module._uninit()
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(self.scene)
        self.module._init()
        self.addExtraScene()

    def left(self):
        """What the call has left alive or misused, as text. Only a new start may follow."""
        self.module._uninit()
        report = offlinehost.end()
        return ', '.join('%s: %d' % (name, report[name]) for name in sorted(report)
                         if (name.endswith('_leaked') or name.startswith('misuse_')) and report[name])

    def refused(self, call, nth, persistent):
        """(refusals, result, scenes afterwards) of a call whose nth allocation is refused."""
        function, arguments, _ = call
        before = offlinehost.counters()['failed_allocations']
        offlinehost.fail_allocation(nth, persistent)
        result = self.outcome(function, arguments)
        offlinehost.fail_allocation(0)
        return offlinehost.counters()['failed_allocations'] - before, result, Scenes()

    def problem(self, call, result, scenes, before, full, fullResult):
        """What is wrong with a result and the scenes after it; None when nothing is."""
        function, arguments, _ = call
        name = function.__name__
        pending = offlinehost.take_pending_error()
        if pending is not None:
            return 'left pending: ' + pending
        if result in refusals(name, arguments, before, self.warns):
            return None if scenes == before else 'refused, and the scene changed'
        if name in ('_addSceneContent', '_appendSceneContent'):
            if scenes.main != before.main or len(scenes.extra) != len(full.extra):
                return 'other scenes than there should be'
            if result[0] == 'raises' and result[1] is Exception:
                words = fullResult[2] if fullResult[0] == 'raises' else ''
                return None if isShortened(result[2], words) else 'other words'
            # The scene itself could not be allocated: it is listed, and no file is read.
            return None if len(full.extra) > len(before.extra) and result == ['returns', None] else 'files were read'
        if result[0] != fullResult[0]:
            return 'an unknown refusal: %r' % (result,)
        if not isReduced(result, fullResult):
            return 'another result'
        return None if scenes.isReduced(full, before) else 'another scene'

    def startBefore(self, earlier):
        """The state in which the last call of a row is made."""
        self.startAnew()
        for function, arguments, _ in earlier:
            function(*arguments)
        offlinehost.warnings()

    def checkCall(self, label, earlier, call):
        """The problems found, and how many allocations the call makes."""
        self.startBefore(earlier)
        before = Scenes()
        _, fullResult, full = self.refused(call, 0, False)
        problems, most = [], 0
        for persistent in (False, True):
            nth = 1
            while True:
                self.startBefore(earlier)
                refusals, result, scenes = self.refused(call, nth, persistent)
                if refusals == 0:
                    break
                problem = self.problem(call, result, scenes, before, full, fullResult)
                left = self.left()
                if problem or left:
                    problems.append('%s, allocation %d%s: %s %s\n    %r' % (
                        label, nth, ' and all that follow' if persistent else '', problem or '', left, result))
                nth += 1
            most = max(most, nth - 1)
        return problems, most

    def checkRows(self, rows):
        """The names of the functions that asked for memory in any call of these rows."""
        problems, asking = [], set()
        for function, path, calls, _ in rows:
            made = self.made(calls)
            for i, call in enumerate(made):
                label = '%s, %s, call %d (%s)' % (function, path, i + 1, call[0].__name__)
                found, allocations = self.checkCall(label, made[:i], call)
                problems.extend(found)
                if allocations:
                    asking.add(call[0].__name__)
        self.assertEqual('\n'.join(problems), '')
        return sorted(asking)


class EveryCallTest(EachAllocationTest):

    def testEveryCall(self):
        # Nothing is known of a function that never asked for memory, and those that do are all known.
        self.assertEqual(self.checkRows(cases.STARTED), sorted(REFUSALS))

    def testCallsBeforeInitAskForNone(self):
        self.module._uninit()
        before = offlinehost.counters()
        offlinehost.fail_allocation(1, persistent=True)
        for function, path, calls, _ in cases.NOT_STARTED:
            for call, arguments, expected in self.made(calls):
                self.assertEqual((function, path, self.outcome(call, arguments)), (function, path, list(expected)))
        offlinehost.fail_allocation(0)
        after = offlinehost.counters()
        for name in ('allocations', 'failed_allocations'):
            self.assertEqual((name, after[name]), (name, before[name]))


class WithoutPrintWarningTest(EachAllocationTest):
    """What would be a warning is an Exception."""

    warns = False

    def setUp(self):
        EachAllocationTest.setUp(self)
        offlinehost.set_environment(support.ROOT_VARIABLE, support.variantRoot('without_printWarning'))
        self.addCleanup(offlinehost.set_environment, support.ROOT_VARIABLE, support.STAGE)

    def testEveryCallThatWarns(self):
        warning = [name for name in REFUSALS if any(how == 'warns' for how, _ in REFUSALS[name])] + ['_getTypeParams']
        rows = [row for row in cases.STARTED if row[0] in warning]
        self.assertEqual(self.checkRows(rows), sorted(set(warning) - set(['_getTypeParams'])))


# How starts end that have their state, but find no memory for one of their texts: (label, root variable, deprecated
# variable, outcome when there is memory, and without it once and from then on).
WITHOUT_ROOT = ['raises', Exception, NO_ROOT]
STARTS = [
    ('a root', support.STAGE, None, ['returns', None], WITHOUT_ROOT, WITHOUT_ROOT),
    ('the deprecated root', None, support.STAGE, ['returns', None], WITHOUT_ROOT, WITHOUT_ROOT),
    ('no root', None, None, WITHOUT_ROOT, WITHOUT_ROOT, WITHOUT_ROOT),
    # A variable that cannot be read counts as missing, so the deprecated one is read.
    ('two roots, the first of which is wrong', support.variantRoot('null_manager'), support.STAGE,
     ['raises', Exception, 'MayaSceneAccessUtils: Could not obtain plugin manager.'], ['returns', None], WITHOUT_ROOT),
] + [(variant, support.variantRoot(variant), None, ['raises', Exception, text], WITHOUT_ROOT, WITHOUT_ROOT)
     for variant, text in cases.REFUSED_STARTS if text is not None]


class StartsTest(cases.CallTest):

    def setUp(self):
        cases.CallTest.setUp(self)
        self.module._uninit()
        for name in (support.ROOT_VARIABLE, support.DEPRECATED_ROOT_VARIABLE):
            self.addCleanup(offlinehost.set_environment, name, os.environ.get(name))

    def addExtraScene(self):
        pass

    def start(self, nth, persistent):
        """(whether an allocation was refused, outcome) of a start, which leaves a module that works or none."""
        before = offlinehost.counters()
        offlinehost.fail_allocation(nth, persistent)
        result = self.outcome(self.module._init, ())
        offlinehost.fail_allocation(0)
        self.assertIs(offlinehost.take_pending_error(), None)
        started = result[0] == 'returns'
        self.assertIs(self.module._pluginExists('thing'), started)
        after = offlinehost.counters()
        self.assertEqual(after['script_access_begun'] - before['script_access_begun'], started)
        self.module._uninit()
        self.assertEqual(offlinehost.counters()['live_blocks'], before['live_blocks'])
        return after['failed_allocations'] > before['failed_allocations'], result

    def starts(self, persistent):
        """The different outcomes, by the allocation from which on they are seen."""
        seen, nth, refused = [], 0, True
        while refused:
            nth += 1
            refused, result = self.start(nth, persistent)
            if nth == 1:
                self.assertEqual(result, NO_MEMORY)
            elif result not in seen:
                seen.append(result)
        self.assertNotIn(NO_MEMORY, seen)
        return seen, result

    def check(self, label, full, once, lasting):
        """`once` and `lasting`: the outcomes that are seen beside the full one."""
        for persistent, others in ((False, once), (True, lasting)):
            seen, last = self.starts(persistent)
            self.assertEqual((label, last), (label, full))
            expected = [full] + [other for other in others if other != full]
            self.assertEqual((label, persistent, sorted(seen)), (label, persistent, sorted(expected)))

    def testEachStart(self):
        for label, root, deprecated, full, once, lasting in STARTS:
            offlinehost.set_environment(support.ROOT_VARIABLE, root)
            offlinehost.set_environment(support.DEPRECATED_ROOT_VARIABLE, deprecated)
            self.check(label, full, [once], [lasting])

    def testALibraryThatIsNotThere(self):
        root = support.variantRoot('nowhere')
        offlinehost.set_environment(support.ROOT_VARIABLE, root)
        offlinehost.set_environment(support.DEPRECATED_ROOT_VARIABLE, None)
        text = 'MayaSceneAccessUtils: Could not load library "%s/plug-ins/kelmoformaya.mll": ' % root
        full = self.outcome(self.module._init, ())
        self.assertTrue(full[2].startswith(text + '[loadLib] LoadLibrary failed ('), full)
        # Without memory for the loader's reason there is no error that could be told.
        others = [['raises', Exception, text + 'No error'], WITHOUT_ROOT]
        self.check('nowhere', full, others, others)

    def testAStartAgainThatFails(self):
        """The state before it is gone, its access was never ended, and ending does nothing."""
        for nth in (1, 2):
            self.module._init()
            blocks = offlinehost.counters()['live_blocks']
            offlinehost.fail_allocation(nth, persistent=True)
            self.assertEqual(self.outcome(self.module._init, ())[0], 'raises')
            offlinehost.fail_allocation(0)
            self.assertEqual(offlinehost.counters()['live_blocks'], blocks - 1)
            self.assertRaisesText(Exception, cases.NOT_INITIALISED, self.module._getPluginType, 'thing')
            ended = offlinehost.counters()['script_access_ended']
            self.assertIs(self.module._uninit(), None)
            self.assertEqual(offlinehost.counters()['script_access_ended'], ended)


# What a _setParam leaves behind when allocation 1, 2, ... is refused, alone and with all that follow: how it says so,
# or what the parameter reads as.
INVALID = 'Invalid value given for parameter \\"{1}\\" in plugin \\"{0}\\".'
UNSET = 'The parameter \\"{1}\\" couldn\'t be set for plugin \\"{0}\\".'
EFFECTS = [
    # The object, its name.
    (('thing', 'count', (0, 5)), [INVALID, UNSET], [INVALID, UNSET]),
    (('all', 'vector', (4, (1.0, 2.0, 3.0))), [INVALID, UNSET, UNSET], [INVALID, UNSET, UNSET]),
    # The object, its name; the text that it begins with, its text.
    (('thing', 'label', (9, 'some text')),
     [INVALID, UNSET, "(9, 'some text')", "(9, '')"], [INVALID, UNSET, "(9, '')", "(9, '')"]),
    # The object, its name; the exact array, without which each element is appended.
    (('thing', 'ids', (0, [(0, 1), (0, 2)])), [INVALID, UNSET, '(0, [1, 2])'], [INVALID, UNSET, '(0, [])']),
    # The object, its name; the array; record and characters of each text; a place in the plugin.
    (('all', 'strings', (9, [(9, 'a'), (9, 'b')])),
     [INVALID, UNSET, "(9, ['a', 'b'])", "(9, ['', 'b'])", "(9, ['', 'b'])", "(9, ['a', ''])", "(9, ['a', ''])", UNSET],
     [INVALID] + [UNSET] * 7),
    # The object, its name; the array of plugins, that of output names; a place in the plugin.
    (('all', 'plugins', (10, [(10, 'other'), (1000, ('other', 'output_texture'))])),
     [INVALID, UNSET] + ["(10, ['other', ('other', 'output_texture')])"] * 2 + [UNSET], [INVALID] + [UNSET] * 4),
    # The object, its name; the array of lists as the fast road and as the walk makes it; for the walk the two lists
    # anew; their elements. A list that is missing reads as none.
    (('an output', 'frames', (12, [(12, [(0, 1), (0, 2)]), (12, [(0, 3)])])),
     [INVALID, UNSET] + ['(12, [(12, [(0, 1), (0, 2)]), (12, [(0, 3)])])'] * 3 +
     ['(12, [<NULL>, (12, [(0, 3)])])', '(12, [(12, [(0, 1), (0, 2)]), <NULL>])', '(12, [(12, []), (12, [(0, 3)])])',
      '(12, [(12, [(0, 1), (0, 2)]), (12, [])])'],
     [INVALID, UNSET, '(12, [])'] + ['(12, [<NULL>, <NULL>])'] * 3 +
     ['(12, [(12, []), <NULL>])', '(12, [(12, []), (12, [])])', '(12, [(12, [(0, 1), (0, 2)]), (12, [])])']),
    # The object, its name; the array of channels; the vertices, the faces.
    (('a mesh', 'map_channels', (12, [(12, [(0, 5), (4, [(4, (1.5, 2.5, 3.5))]), (0, [(0, 0)])])])),
     [INVALID, UNSET] + ['(12, [(12, [(0, 5), (4, [(1.5, 2.5, 3.5)]), (0, [0])])])'] * 3,
     [INVALID, UNSET, '(12, [])', '(12, [(12, [(0, 5), (4, []), (0, [])])])',
      '(12, [(12, [(0, 5), (4, [(1.5, 2.5, 3.5)]), (0, [])])])']),
    # The object, its name twice; the list and its array on the fast road; the number's payload; the inner list's way
    # and payload, its array; the text's payload, its copy; a place in the plugin.
    (('all', 'anys', (12, [(0, 1), (12, [(9, 'x')])])),
     [INVALID, UNSET, UNSET] + ["(12, [(0, 1), (12, [(9, 'x')])])"] * 2 + ["(12, [(0, 0), (12, [(9, 'x')])])"] +
     [INVALID] * 2 + ['(12, [(0, 1), (12, [])])'] + ["(12, [(0, 1), (12, [(9, '')])])"] * 2 + [UNSET],
     [INVALID] * 8 + [UNSET] * 4),
]


class EffectsTest(EachAllocationTest):

    def effect(self, arguments, nth, persistent):
        """What the call says or leaves, and whether an allocation was refused."""
        self.startAnew()
        refusals, result, _ = self.refused((self.module._setParam, arguments, None), nth, persistent)
        said = result[2] if result[0] == 'raises' else repr(self.module._getParam(*arguments[:2]))
        return said, refusals > 0

    def testWhatIsMissingAfterEachRefusal(self):
        for arguments, once, lasting in EFFECTS:
            for persistent, expected in ((False, once), (True, lasting)):
                seen, nth = [], 1
                while True:
                    said, wasRefused = self.effect(arguments, nth, persistent)
                    if not wasRefused:
                        break
                    seen.append(said)
                    nth += 1
                expected = [text.format(*arguments) if text in (INVALID, UNSET) else text for text in expected]
                self.assertEqual((arguments, persistent, seen), (arguments, persistent, expected))

    def testANameThatIsMissingInAList(self):
        names = self.module._getPluginParams('filled', 1)
        offlinehost.fail_allocation(1)
        self.assertEqual(self.module._getPluginParams('filled', 1), names[1:])
        offlinehost.fail_allocation(1, persistent=True)
        self.assertEqual(self.module._getPluginParams('filled', 1), [])

    def testASceneThatIsMissing(self):
        """It is listed, counted and passed over; no file is read into it."""
        offlinehost.fail_allocation(1)
        self.assertIs(self.module._addSceneContent([self.folder + '/none.kscene'], ''), None)
        self.assertEqual(offlinehost.counters()['extra_scenes'], 2)
        for name, isThere in (('thing', True), ('extra', True), ('nobody', False)):
            self.assertIs(self.module._pluginExists(name), isThere)
        # Behind it stands the scene that owns the plugin.
        self.assertIs(self.module._setParam('extra', 'count', (0, 5)), None)
        self.assertEqual(self.module._getParam('extra', 'count'), (0, 5))
        self.assertIs(self.module._delete('extra'), None)
        self.assertIs(self.module._pluginExists('extra'), False)

    def testAFirstSceneThatIsMissing(self):
        """It is the oldest of the list, so that what is appended to it goes nowhere."""
        self.module._uninit()
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(self.scene)
        self.module._init()
        offlinehost.fail_allocation(1)
        self.assertIs(self.module._appendSceneContent([self.folder + '/extra.kscene'], ''), None)
        self.assertIs(self.module._appendSceneContent([self.folder + '/none.kscene'], ''), None)
        self.assertIs(self.module._pluginExists('extra'), False)
        self.assertEqual(offlinehost.counters()['extra_scenes'], 1)

    def testAFileNameThatIsMissing(self):
        before = offlinehost.counters()['failed_allocations']
        for refusals, nth in enumerate((2, 3)):
            offlinehost.fail_allocation(nth)
            self.assertRaisesText(Exception, 'no file name', self.module._addSceneContent,
                                  [self.folder + '/empty.kscene'], '')
            self.assertEqual(offlinehost.counters()['failed_allocations'] - before, refusals + 1)


class ErrorsOfErrorsTest(cases.CallTest):
    """A conversion whose error cannot tell its own text."""

    def testAnErrorWithoutAText(self):
        def failing(error):
            raise error

        for label, text in (('raises', lambda error: failing(ValueError('no text'))), ('is empty', lambda error: ''),
                            ('is none', lambda error: None), ('is unicode', lambda error: u'\u6f22')):
            kind = type('Odd', (Exception,), {'__str__': text})
            number = type('Number', (object,), {'__int__': lambda self: failing(kind('unused'))})()
            self.assertIs(self.module._setParam('thing', 'count', (0, number)), None)
            self.assertEqual((label, offlinehost.take_pending_error()), (label, None))
            self.assertWarned(
                'A value given for parameter "count" in plugin "thing" could not be read as its type: Odd.')
            self.assertEqual(self.module._getParam('thing', 'count'), (0, -1))


class RecursionTest(cases.CallTest):
    """A value that is nested more deeply than the interpreter allows for is an error of the whole call."""

    def read(self, room):
        """The value, read with so many levels left, or the error's text."""
        limit, depth, frame = sys.getrecursionlimit(), 0, sys._getframe()
        while frame is not None:
            depth, frame = depth + 1, frame.f_back
        sys.setrecursionlimit(depth + room)
        try:
            return self.module._getParam('all', 'anys')
        except RuntimeError as error:
            return str(error)
        finally:
            sys.setrecursionlimit(limit)

    def testEachDepth(self):
        value = (0, 1234567)
        for _ in range(60):
            value = (12, [(9, 'before'), value, (9, 'after')])
        self.module._setParam('all', 'anys', value)
        whole = self.module._getParam('all', 'anys')
        results = []
        for room in range(20, 100, 3):
            results.append(self.read(room))
            self.assertIs(offlinehost.take_pending_error(), None)
        tooDeep = 'maximum recursion depth exceeded while reading a parameter value'
        self.assertEqual(results[0], tooDeep)
        self.assertEqual(results[-1], whole)
        self.assertEqual([result for result in results if result not in (tooDeep, whole)], [])


# Sets values on more plugins than the host's set has room for, while it cannot grow; then runs what follows, and tells
# how many values the set holds, what they are and what is left at the end.
OWNED_SET = '''
import json, offlinehost
from kelmo import pluginmodifier as m
offlinehost.add_types(%r)
offlinehost.open_text(%r)
m._init()
before = offlinehost.counters()['allocations']
m._setParam('thing 0', 'count', (0, 1))
# What a value needs while the set does not grow.
allocations = offlinehost.counters()['allocations'] - before
def setOnAll(value, refused):
    for i in range(%d):
        if refused: offlinehost.fail_allocation(allocations + 1, persistent=True)
        m._setParam('thing %%d' %% i, 'count', (0, value + i))
        offlinehost.fail_allocation(0)
setOnAll(1000000, True)
%s
owned = offlinehost.counters()['owned_values']
values = [m._getParam('thing %%d' %% i, 'count') for i in range(%d)]
m._uninit()
print json.dumps([owned, values, offlinehost.end()])
'''


class OwnedSetTest(support.ModuleTest):
    """Values that find no place in the host's set, because it could not grow, are nobody's and stay alive."""

    PLUGINS = 90
    FIRST_CAPACITY = 64

    scene = support.sceneText(*[{'type': 'TestThing', 'name': 'thing %d' % i} for i in range(PLUGINS)])

    def lastingValues(self, first, owned, more=''):
        """After more code the plugins hold values from `first` on, `owned` of them in the set; as many as have found
        no place while the set could not grow are left at the end, each with its name."""
        code = OWNED_SET % (self.types[0], self.scene, self.PLUGINS, more, self.PLUGINS)
        # What is left on purpose is counted here.
        status, out, err = support.runPython(code, kept=2 * (self.PLUGINS - self.FIRST_CAPACITY))
        self.assertEqual((status, err), (0, ''))
        counted, values, report = json.loads(out)
        self.assertEqual(counted, owned)
        self.assertEqual(values, [[0, first + i] for i in range(self.PLUGINS)])
        self.assertEqual((report['owned_freed'], report['blocks_leaked']),
                         (owned, 2 * (self.PLUGINS - self.FIRST_CAPACITY)))
        self.assertEqual((report['misuse_foreign_frees'], report['misuse_wrong_sizes']), (0, 0))

    def testValuesBeyondTheSetsCapacity(self):
        self.lastingValues(1000000, self.FIRST_CAPACITY)

    def testASetThatGrowsAfterAll(self):
        # Now there is memory: each value comes into the set, and those that were in it go.
        self.lastingValues(2000000, self.PLUGINS, 'setOnAll(2000000, False)')

    def testGrowthThatIsRefusedOnce(self):
        before = offlinehost.counters()['allocations']
        self.module._setParam('thing 0', 'count', (0, 1))
        allocations = offlinehost.counters()['allocations'] - before
        for i in range(self.PLUGINS):
            offlinehost.fail_allocation(allocations + 1)
            self.module._setParam('thing %d' % i, 'count', (0, 1))
            offlinehost.fail_allocation(0)
        # Each time that the set asked once it was refused; when it was full it asked a second time.
        self.assertEqual(offlinehost.counters()['owned_values'], self.PLUGINS)

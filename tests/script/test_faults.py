"""Every function, on every path of the table in call_cases, while the core's allocator refuses.

Each allocation of a call is refused in turn, alone and with all that follow, until the call needs no more of them.
A call then says so in its own words and leaves the scene as it was, or it succeeds and what found no memory is
missing: a zero for a number, an empty text, no reference, a shorter list, an absent value. Nothing else changes.
What is left alive and freed wrongly, and an error that is left pending, is looked for after each single call.
"""
import json
import os

import call_cases as cases
import offlinehost
import support

NO_ROOT = ('MayaSceneAccessUtils: Could not find environment variable "KELMO_FOR_MAYA2020_MAIN" (or its fallback: '
           '"KELMO_FOR_MAYA2020_MAIN_x64")')

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


def refusals(name, arguments, scenes):
    """The outcomes with which this call may refuse."""
    texts = [text.encode('utf-8') if isinstance(text, unicode) else text for text in arguments]
    kind = ''
    for scene in [scenes.main] + scenes.extra:
        kind = kind or texts and name == '_duplicate' and scene.get(texts[0], {}).get('type', '')
    for how, words in REFUSALS[name]:
        text = words.format(*texts, type=kind)
        yield ['warns', (text,)] if how == 'warns' else ['raises', how, text]


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

    def startAnew(self):
        self.module._uninit()
        offlinehost.reset()
        self.addTestTypes()
        offlinehost.open_text(self.scene)
        self.module._init()
        self.addExtraScene()

    def endAndStartAnew(self):
        """What the call has left alive or misused, as text; the state before a call stands again."""
        self.module._uninit()
        report = offlinehost.end()
        left = ['%s: %d' % (name, report[name]) for name in sorted(report)
                if (name.endswith('_leaked') or name.startswith('misuse_')) and report[name]]
        self.startAnew()
        return ', '.join(left)

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
        if result in refusals(name, arguments, before):
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

    def checkCall(self, label, call):
        """The problems found, and how many allocations the call makes."""
        self.startAnew()
        before = Scenes()
        _, fullResult, full = self.refused(call, 0, False)
        problems, most = [], 0
        for persistent in (False, True):
            nth = 1
            while True:
                self.startAnew()
                refusals, result, scenes = self.refused(call, nth, persistent)
                if refusals == 0:
                    break
                problem = self.problem(call, result, scenes, before, full, fullResult)
                left = self.endAndStartAnew()
                if problem or left:
                    problems.append('%s, allocation %d%s: %s %s\n    %r' % (
                        label, nth, ' and all that follow' if persistent else '', problem or '', left, result))
                nth += 1
            most = max(most, nth - 1)
        return problems, most

    def testEveryCall(self):
        problems, asking = [], set()
        for function, path, calls, _ in cases.STARTED:
            call = self.made(calls)[0]
            found, allocations = self.checkCall(function + ', ' + path, call)
            problems.extend(found)
            if allocations:
                asking.add(call[0].__name__)
        self.assertEqual('\n'.join(problems), '')
        # Nothing is known of a function that never asked for memory, and those that do are all known.
        self.assertEqual(sorted(asking), sorted(REFUSALS))

    def testAStateThatCouldNotBeHadIsNoState(self):
        for nth in (1, 4, 5):
            offlinehost.fail_allocation(nth)
            self.assertRaises(Exception, self.module._init)
            offlinehost.fail_allocation(0)
            self.assertRaisesText(Exception, cases.NOT_INITIALISED, self.module._getPluginType, 'thing')
            self.module._init()
            self.assertEqual(self.module._getPluginType('thing'), 'TestThing')

    def testRefusalsWhileThereIsNoPrintWarning(self):
        offlinehost.set_environment(support.ROOT_VARIABLE, support.variantRoot('without_printWarning'))
        self.addCleanup(offlinehost.set_environment, support.ROOT_VARIABLE, support.STAGE)
        self.startAnew()
        for function, arguments, text in (
                (self.module._create, ('TestThing', 'new'),
                 'A plugin \\"new\\" of type \\"TestThing\\" could not be created.'),
                (self.module._duplicate, ('thing', 'new'), 'A plugin "new" of type "TestThing" could not be created.'),
                (self.module._exportTexture, ('texture',), 'The texture \\"texture\\" could not be exported.')):
            before = Scenes()
            offlinehost.fail_allocation(1, persistent=True)
            self.assertRaisesText(Exception, text, function, *arguments)
            offlinehost.fail_allocation(0)
            self.assertEqual(Scenes(), before)


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
        # What is left on purpose is counted here; a checker of leaks would only count it again.
        options = os.environ.get('LSAN_OPTIONS')
        os.environ['LSAN_OPTIONS'] = 'detect_leaks=0'
        try:
            code = OWNED_SET % (self.types[0], self.scene, self.PLUGINS, more, self.PLUGINS)
            status, out, err = support.runPython(code, kept=2 * (self.PLUGINS - self.FIRST_CAPACITY))
        finally:
            del os.environ['LSAN_OPTIONS']
            if options is not None:
                os.environ['LSAN_OPTIONS'] = options
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

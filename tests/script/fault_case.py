"""A call whose allocations are refused one by one: what the tests of faults share.

Each allocation of a call is refused in turn, alone and with all that follow, until the call needs no more of them.
A call then says so in its own words and leaves the scene as it was, or it succeeds and what found no memory is
missing: a zero for a number, an empty text, no reference, a shorter list, an absent value. Nothing else changes.
What is left alive and freed wrongly, and an error that is left pending, is looked for after each single call.
"""
import json

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
                support.figure('calls with an allocation refused')
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

"""Rounds, medians, ratios: how every workload is measured, printed, kept and compared.

A workload has contenders, each a name and a call. The first is the floor that the others are divided by, the second
the module, the rest are its peers. Each gives the right answer first, or the run ends. A round runs each contender
once, and each round begins with another one, so that what slows the machine down for a while slows all of them. What
is measured is the processor time of the thread; the ratio is that of the medians.
"""
import gc
import itertools

import benchfloors

ROUNDS = 11


class WrongResult(Exception):
    """A contender does another job than the one that is measured."""


def same(result):
    return result


class Call(object):
    """Calls a function with these arguments from a script loop."""

    def __init__(self, name, function, *arguments):
        self.name = name
        self.function = function
        self.arguments = arguments
        self.repeats = None
        self.check = None

    def gives(self, expected, shown=same):
        """`expected()` is what a call must give, once `shown` has brought it into the same form."""
        def check(result):
            return shown(result) == expected()
        self.check = check
        return self

    def leaves(self, expected, read):
        """`expected` is what `read()` must give after a call."""
        def check(_):
            return read() == expected
        self.check = check
        return self

    def verify(self):
        if self.check is not None and not self.check(self.function(*self.arguments)):
            raise WrongResult('%s does not give the right answer' % self.name)
        self.check = None  # and what it holds

    def calibrate(self, seconds):
        """Finds how many calls take about so long."""
        self.repeats = 1
        while True:
            spent = self.loop(self.repeats)
            if spent >= seconds / 4 or self.repeats >= 1 << 20:
                break
            self.repeats *= 4
        self.repeats = max(1, int(self.repeats * seconds / max(spent, 1e-9)))

    def measure(self):
        """Seconds a call."""
        return self.loop(self.repeats) / self.repeats

    def loop(self, count):
        function = self.function
        clock = benchfloors.processor_time
        rounds = itertools.repeat(None, count)
        # One loop for each number of arguments, as a script would write it.
        if len(self.arguments) == 0:
            start = clock()
            for _ in rounds:
                function()
            return clock() - start
        if len(self.arguments) == 1:
            a, = self.arguments
            start = clock()
            for _ in rounds:
                function(a)
            return clock() - start
        if len(self.arguments) == 2:
            a, b = self.arguments
            start = clock()
            for _ in rounds:
                function(a, b)
            return clock() - start
        a, b, c = self.arguments
        start = clock()
        for _ in rounds:
            function(a, b, c)
        return clock() - start


class OwnTime(object):
    """A contender that measures itself: `function()` gives seconds an operation, or raises when the result is wrong."""

    def __init__(self, name, function):
        self.name = name
        self.measure = function

    def verify(self):
        self.measure()

    def calibrate(self, seconds):
        """How often the operation is done is the function's own affair."""


class Workload(object):
    """`goal`: the most that the module may cost, in floors; None where it is only compared."""

    def __init__(self, name, contenders, goal=None, rounds=ROUNDS):
        self.name = name
        self.contenders = contenders
        self.goal = goal
        self.rounds = rounds


def median(numbers):
    ordered = sorted(numbers)
    return ordered[len(ordered) // 2]


def measured(workload, seconds, peerStep=1):
    """What a run of the workload gives, as it is kept in the JSON file. Peers take part in each `peerStep`-th round."""
    contenders = workload.contenders
    times = dict((contender.name, []) for contender in contenders)
    for contender in contenders:
        try:
            contender.verify()
        except WrongResult as error:
            raise WrongResult('%s: %s' % (workload.name, error))
    gc.collect()
    for contender in contenders:
        contender.calibrate(seconds)
    for number in range(workload.rounds):
        taking = contenders if number % peerStep == 0 else contenders[:2]
        turn = number % len(taking)
        for contender in taking[turn:] + taking[:turn]:
            gc.collect()
            times[contender.name].append(contender.measure())
    medians = dict((name, median(values)) for name, values in times.items())
    floor = medians[contenders[0].name]
    return {
        'workload': workload.name,
        'floor': contenders[0].name,
        'goal': workload.goal,
        'rounds': workload.rounds,
        'ratio': medians[contenders[1].name] / floor,
        'seconds': medians,
        'ratios': dict((name, value / floor) for name, value in medians.items()),
        'order': [contender.name for contender in contenders],
    }


def shownTime(seconds):
    for unit, factor in (('s', 1.0), ('ms', 1e3), ('us', 1e6)):
        if seconds * factor >= 1:
            return '%.4g %s' % (seconds * factor, unit)
    return '%.4g ns' % (seconds * 1e9)


def line(result):
    """One line for one workload."""
    order = result['order']
    peers = '  '.join('%s %.3g' % (name, result['ratios'][name]) for name in order[2:])
    goal = 'goal %-5.4g %s' % (result['goal'], 'met   ' if result['ratio'] <= result['goal'] else 'missed') \
        if result['goal'] is not None else ' ' * 17
    return ('%-38s %-14s %10s  %s %6.3g  %s  %s' % (
        result['workload'], order[0], shownTime(result['seconds'][order[0]]), order[1], result['ratio'], goal,
        peers)).rstrip()


def bound(result, baseline):
    """The ratio that a check lets pass: half above the goal; where there is none, twice what the baseline keeps."""
    if result['goal'] is not None:
        return 1.5 * result['goal']
    kept = baseline.get(result['workload'])
    return 2.0 * kept if kept is not None else None


def complaint(result, baseline):
    """What a check has against a result; None when it is within its bound."""
    limit = bound(result, baseline)
    if limit is None:
        return '%s: no goal, and no kept ratio; --keep keeps one' % result['workload']
    if result['ratio'] > limit:
        return '%s: %.2f, at most %.2f' % (result['workload'], result['ratio'], limit)
    return None

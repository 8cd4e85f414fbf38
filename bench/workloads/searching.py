"""Searching by name: few hits among many plugins, and patterns that make a simple matcher go back over and over."""
from functools import partial

from harness import Call, Workload

PATTERNS = ['mesh*', '*mesh*', '*Shape*@node', '*a*b*c*d', 'a*a*a*b']
SIZES = [1000, 10000, 100000, 1000000]
QUICK_SIZES = [1000, 1000000]
GOALS = {1000000: 5.0}

# One name in a hundred fits one of the patterns.
COMMON = ['obj_%07d@node', 'grp_%07d@geo', 'light_%07d', 'tex_%07d@file']
HITS = ['mesh_%07d@geo', 'proxymesh_%07d', 'wallShape_%07d@node', 'panel_a_b_c_%07d_d', 'a_ca_%07d_a_b']

# 250 bytes each; the bytes before the repetition make the names differ.
LONG_NAMES = [('a', ['%06d' % i + 'a' * 244 for i in range(1000)]),
              ('runs', [('%010d' % i + ('a' * 29 + 'b') * 8) for i in range(1000)])]
ADVERSARIAL = [
    ('a', 'late_byte', '*' + 'a' * 120 + 'b'),
    ('a', 'late_byte_then_star', '*' + 'a' * 120 + 'b*'),
    ('a', 'short_piece', '*aaaaaaaab*'),
    ('a', 'question_marks', '*' + 'a?' * 60 + 'b*'),
    ('a', 'inner_byte', '*' + 'a' * 60 + 'b' + 'a' * 60 + '*'),
    ('a', 'many_stars', '*a' * 20 + '*b'),
    ('runs', 'just_too_long', '*' + 'a' * 30 + '*'),
    ('runs', 'known_bytes', '*' + 'a' * 29 + 'b' + 'a' * 29 + 'bb*'),
    ('runs', 'any_byte', '*' + 'a' * 29 + '?' + 'a' * 30 + '*'),
]


def namesOf(count):
    return [(HITS[i // 100 % len(HITS)] if i % 100 == 99 else COMMON[i % len(COMMON)]) % i for i in range(count)]


def workloads(context):
    module, floors = context.module, context.floors

    def prepared(names):
        context.open()
        floors.fill('BenchKinds', names)
        total = sum(ord(name[0]) for name in names)
        return lambda: total

    for size in QUICK_SIZES if context.quick else SIZES:
        wanted = [pattern for pattern in PATTERNS if context.wants('search.%d %s' % (size, pattern))]
        if wanted:
            firstBytes = prepared(namesOf(size))
        for pattern in wanted:
            plain = partial(floors.plain, pattern)
            yield Workload('search.%d %s' % (size, pattern), [
                Call('touch names', floors.touch_names).gives(firstBytes),
                Call('module', module._findByName, pattern).gives(plain),
                Call('fnmatch', floors.fnmatch, pattern).gives(plain),
                Call('RE2', floors.re2, pattern).gives(plain)] + [
                    Call(name, maker.findByName, pattern).gives(plain, list)
                    for name, maker in context.bindings()], GOALS.get(size))

    for family, names in LONG_NAMES:
        rows = [(name, pattern) for owner, name, pattern in ADVERSARIAL
                if owner == family and context.wants('search.adversarial.' + name)]
        if rows:
            prepared(names)
        for name, pattern in rows:
            plain = partial(floors.plain, pattern)
            yield Workload('search.adversarial.' + name, [
                Call('plain scan', floors.plain, pattern),
                Call('module', module._findByName, pattern).gives(plain),
                Call('fnmatch', floors.fnmatch, pattern).gives(plain),
                Call('RE2', floors.re2, pattern).gives(plain)], 0.1)

#!/usr/bin/env python3
"""coverage.py BUILD TABLE REPORT   prints the lines and branches of sceneaccess/ that the tests took.

BUILD is a build with counters whose tests have run. TABLE names the branches that stay untaken; see its head. REPORT
receives every place that is not taken. The exit code is 1 when one of them is not named, or a named one is taken.

The same function in several objects, and the instances of one template, are one: a branch is taken when one of them
takes it. Not counted are branches that only an exception takes, and those of a line that is nothing but a brace: the
compiler makes them.
"""
import collections
import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCES = ROOT / 'sceneaccess'


class Line:
    """The counts of one source line; `functions` holds for each function the counts of its branches."""

    def __init__(self):
        self.count = 0
        self.functions = {}

    def add(self, function, count, branches):
        self.count += count
        # Instances of a template can have different branches; those that have as many are alike.
        known = self.functions.setdefault((function, len(branches)), [0] * len(branches))
        for index, taken in enumerate(branches):
            known[index] += taken

    def branches(self):
        return [taken for branches in self.functions.values() for taken in branches]


def counted_objects(build):
    """The files with the counts; for an object that no program has run, the one with its structure."""
    for notes in sorted(pathlib.Path(build).rglob('*.gcno')):
        counts = notes.with_suffix('.gcda')
        yield counts if counts.exists() else notes


def read_counts(build):
    """{file: {line number: Line}} of the sources."""
    files = collections.defaultdict(lambda: collections.defaultdict(Line))
    objects = [str(path) for part in ('sceneaccess', 'tests') for path in counted_objects(build + '/' + part)]
    text = subprocess.run(['gcov', '--branch-probabilities', '--json-format', '--stdout'] + objects,
                          check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    for document in text.splitlines():
        for file in json.loads(document)['files']:
            path = ROOT / file['file']
            if SOURCES not in path.parents:
                continue
            place = {f['name']: (f['start_line'], f['start_column']) for f in file['functions']}
            for line in file['lines']:
                branches = [b['count'] for b in line['branches'] if not b['throw']]
                files[path][line['line_number']].add(place.get(line.get('function_name')), line['count'], branches)
    return files


def is_brace(text):
    return re.sub(r'//.*|[{}\s;]', '', text) == ''


def read_table(path):
    """{(file, text of the line): (how many, reason)}"""
    named, reason = {}, None
    for number, row in enumerate(open(path), 1):
        row = row.rstrip('\n')
        entry = re.fullmatch(r'  (\S+) \((\d+)\): (.+)', row)
        if not row or row.startswith('#'):
            continue
        if entry and reason and (entry[1], entry[3]) not in named:
            named[entry[1], entry[3]] = int(entry[2]), reason
        elif row[0] != ' ':
            reason = row
        else:
            sys.exit('%s:%d: not "  FILE (COUNT): LINE", or there twice, or without a reason above' % (path, number))
    return named


def main(build, table, report):
    counts = read_counts(build)
    named = read_table(table)
    untaken, places, total, faults = collections.Counter(), [], collections.Counter(), []
    print('%-52s %13s %13s' % ('', 'lines', 'branches'))
    for path in sorted(counts):
        source = path.read_text().splitlines()
        file = str(path.relative_to(SOURCES))
        sums = collections.Counter()
        for number, line in sorted(counts[path].items()):
            text = source[number - 1].strip()
            branches = [] if is_brace(text) else line.branches()
            sums.update(lines=1, run=line.count > 0, branches=len(branches), taken=sum(b > 0 for b in branches))
            missing = sum(b == 0 for b in branches) + (line.count == 0)
            if missing:
                untaken[file, text] += missing
                places.append('%s:%d: %d: %s' % (path.relative_to(ROOT), number, missing, text))
        total.update(sums)
        print('%-52s %5d of %4d %5d of %4d' % (file, sums['run'], sums['lines'], sums['taken'], sums['branches']))
    print('%-52s %5d of %4d %5d of %4d' % ('sceneaccess', total['run'], total['lines'], total['taken'],
                                           total['branches']))
    pathlib.Path(report).write_text(''.join(place + '\n' for place in places))

    for key in sorted(set(untaken) | set(named)):
        known = named.get(key, (0, ''))[0]
        if untaken[key] > known:
            faults.append('%s: %d not taken, %d named: %s' % (key[0], untaken[key], known, key[1]))
        elif untaken[key] < known:
            faults.append('%s: %d named, only %d not taken: %s' % (key[0], known, untaken[key], key[1]))
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        sys.exit('%s names what stays untaken, and why; %s says where it stands.' % (table, report))
    print('every line and branch is taken or named (%d are named)' % sum(count for count, _ in named.values()))


if __name__ == '__main__':
    main(*sys.argv[1:])

"""Measures the module against what the same work must cost at least, and against what others need for it.

    bench.py [WORKLOAD...] [--quick] [--json FILE] [--check] [--keep] [--list]

Started by scripts/bench, which builds what it needs. A WORKLOAD picks the workloads whose name contains it.
"""
import argparse
import json
import os
import platform
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT_VARIABLE = 'KELMO_FOR_MAYA2020_MAIN'
BASELINE = os.path.join(HERE, 'baseline.json')


def arguments():
    parser = argparse.ArgumentParser(
        prog='scripts/bench', formatter_class=argparse.RawDescriptionHelpFormatter,
        description='Measures the module beside floors and peers; one line a workload, medians of 11 rounds.',
        epilog='examples:\n'
               '  scripts/bench                       everything, about ten minutes\n'
               '  scripts/bench read.float search     the workloads with these texts in their names\n'
               '  scripts/bench --check               the smaller sizes; fails when a ratio is out of bounds\n'
               '  scripts/bench --json figures.json   keeps the figures')
    parser.add_argument('--build', default=os.path.join(HERE, '..', 'build', 'release'), help=argparse.SUPPRESS)
    parser.add_argument('--quick', action='store_true', help='the smaller sizes and shorter rounds only')
    parser.add_argument('--json', metavar='FILE', help='write the figures to this file')
    parser.add_argument('--check', action='store_true',
                        help='as --quick, and exit with 1 when a ratio is above half more than its goal, or above '
                             'twice the kept ratio of a workload without a goal')
    parser.add_argument('--keep', action='store_true', help='write the ratios to bench/baseline.json')
    parser.add_argument('--list', action='store_true', help='print the names of the workloads')
    parser.add_argument('workloads', nargs='*', metavar='WORKLOAD')
    return parser.parse_args()


def isOptimised(flags):
    """Whether the last -O of these compiler flags asks for more than none."""
    levels = [flag for flag in flags.split() if flag.startswith('-O')]
    return bool(levels) and levels[-1] != '-O0'


def buildFacts(build):
    """What the build folder says about itself: its type, its compiler and flags, whether it is optimised."""
    values = {}
    with open(os.path.join(build, 'CMakeCache.txt')) as cache:
        for text in cache:
            name, separator, value = text.strip().partition('=')
            if separator:
                values[name.partition(':')[0]] = value
    kind = values.get('CMAKE_BUILD_TYPE', '')
    both = [values.get(name, '') for name in ('CMAKE_CXX_FLAGS', 'CMAKE_CXX_FLAGS_' + kind.upper())]
    flags = ' '.join(' '.join(both).split())
    return {'type': kind, 'flags': flags, 'compiler': compilerText(values['CMAKE_CXX_COMPILER']),
            'sanitizers': values.get('SANITIZE', ''), 'optimised': isOptimised(flags) and not values.get('SANITIZE')}


def machineFacts():
    model = 'unknown'
    with open('/proc/cpuinfo') as processors:
        for text in processors:
            if text.startswith('model name'):
                model = text.partition(':')[2].strip()
                break
    return {'processor': model, 'processors': os.sysconf('SC_NPROCESSORS_ONLN'), 'system': platform.platform(),
            'load': os.getloadavg()[0], 'python': platform.python_version(),
            'date': time.strftime('%Y-%m-%d %H:%M UTC', time.gmtime())}


def compilerText(path):
    return subprocess.Popen([path, '--version'], stdout=subprocess.PIPE).communicate()[0].splitlines()[0]


def printHead(machine, build):
    print '%(processor)s, %(processors)d processors, load %(load).1f; %(system)s; Python %(python)s' % machine
    print '%(compiler)s; %(type)s %(flags)s' % build
    if not build['optimised']:
        print 'WARNING: this build is not optimised; its figures mean nothing.'
    print


def measureAll(wanted, baseline, quick, check):
    """The results of the workloads, each printed as it comes, and what a check has against them."""
    import harness
    results, complaints = [], []
    for workload in wanted:
        result = harness.measured(workload, 0.02, 4) if quick else harness.measured(workload, 0.05)
        if check and harness.complaint(result, baseline) and harness.bound(result, baseline) is not None:
            # Other programs share the caches: what is too slow has to be so twice.
            print harness.line(result) + '  out of bounds, measured again'
            result = harness.measured(workload, 0.05, workload.rounds)
        results.append(result)
        print harness.line(result)
        sys.stdout.flush()
        complaint = harness.complaint(result, baseline)
        if check and complaint:
            complaints.append(complaint)
    return results, complaints


def keep(results, baseline):
    baseline.update((result['workload'], round(result['ratio'], 3)) for result in results)
    with open(BASELINE, 'w') as out:
        out.write('{\n%s\n}\n' % ',\n'.join('  %s: %s' % (json.dumps(name), baseline[name])
                                            for name in sorted(baseline)))


def run(options, build):
    import harness
    import workloads
    from workloads.context import Context

    with open(BASELINE) as kept:
        baseline = json.load(kept)
    quick = options.quick or options.check
    machine, facts = machineFacts(), buildFacts(build)
    printHead(machine, facts)

    context = Context(options.workloads, quick)
    wanted = (workload for group in workloads.groups() for workload in group(context))
    results, complaints = measureAll(wanted, baseline, quick, options.check)
    context.close()
    if not results:
        sys.exit('no workload of this name; --list prints the names')
    if options.json:
        machine['load at the end'] = os.getloadavg()[0]
        with open(options.json, 'w') as out:
            json.dump({'machine': machine, 'build': facts, 'results': results}, out, indent=1,
                      sort_keys=True)
            out.write('\n')
    if options.keep:
        keep(results, baseline)
    if options.check:
        print '\n%d within bounds, %d not' % (len(results) - len(complaints), len(complaints))
        for text in complaints:
            print 'OUT OF BOUNDS ' + text
    return 1 if complaints else 0


def main():
    options = arguments()
    build = os.path.abspath(options.build)
    stage = os.path.join(build, 'stage')
    # The module reads the environment that the process was started with.
    if os.environ.get(ROOT_VARIABLE) != stage:
        return subprocess.call([sys.executable, '-B'] + sys.argv, env=dict(os.environ, **{ROOT_VARIABLE: stage}))
    sys.dont_write_bytecode = True
    sys.path[:0] = [os.path.join(build, *names)
                    for names in (('stage', 'python'), ('tests', 'python'), ('bench', 'python'))]
    if options.list:
        import workloads
        from workloads.context import Context
        context = Context(listing=True)
        for group in workloads.groups():
            list(group(context))
        print '\n'.join(context.names)
        return 0
    return run(options, build)


if __name__ == '__main__':
    sys.exit(main())

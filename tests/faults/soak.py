"""A long run: mixed calls of all functions, on all their paths, in session after session; memory must stay flat.

    soak.py [--build DIR] [--calls N] [--seed N]

A session opens a scene, starts the module, makes calls that a seeded generator picks from the table of
tests/script/call_cases.py, ends the module and the host, and looks for what is left. The closing lines give the
resident memory after the first tenth of the calls and at the end. The exit code is 1 when it grew by more than
GROWTH KiB, or when a session left anything.
"""
import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
SCRIPT_TESTS = os.path.join(os.path.dirname(HERE), 'script')
ROOT_VARIABLE = 'KELMO_FOR_MAYA2020_MAIN'
SESSION_CALLS = 2000
GROWTH = 256


def arguments():
    parser = argparse.ArgumentParser(description='Makes mixed calls for long and watches the memory.')
    parser.add_argument('--build', default=os.path.join(HERE, '..', '..', 'build', 'release'),
                        help='the build folder whose stage is used')
    parser.add_argument('--calls', type=int, default=1000000, help='how many calls (default: a million)')
    parser.add_argument('--seed', type=int, default=1, help='of the generator that picks the calls')
    return parser.parse_args()


def resident():
    """The resident memory in KiB."""
    with open('/proc/self/status') as status:
        return [int(line.split()[1]) for line in status if line.startswith('VmRSS:')][0]


class Soak(object):

    def __init__(self, seed):
        import call_cases
        import offlinehost
        import support
        from kelmo import pluginmodifier
        self.host, self.module, self.types = offlinehost, pluginmodifier, support.HostTest.types
        self.random = random.Random(seed)
        self.scene = support.sceneText(*call_cases.SCENE)
        self.folder = tempfile.mkdtemp()
        for name, plugins in call_cases.FILES.items():
            with open(self.folder + '/' + name, 'wb') as scene:
                scene.write(support.sceneText(*plugins))
        # The names that a search finds keep a reference each for ever: the rows that find some are left out.
        self.rows = [[(name, getattr(pluginmodifier, name), call_cases.replaced(args, self.folder))
                      for name, args, _ in calls] for _, _, calls, kept in call_cases.STARTED if not kept]
        self.made = {}
        self.left = []

    def session(self, count):
        self.host.reset()
        for folder in self.types:
            self.host.add_types(folder)
        self.host.open_text(self.scene)
        self.module._init()
        self.module._addSceneContent([self.folder + '/extra.kscene'], '')
        done = 0
        while done < count:
            for name, function, args in self.random.choice(self.rows):
                try:
                    function(*args)
                except Exception:
                    pass
                self.made[name] = self.made.get(name, 0) + 1
                done += 1
        self.module._uninit()
        report = self.host.end()
        self.left.extend('%s: %d' % (name, report[name]) for name in sorted(report)
                         if (name.endswith('_leaked') or name.startswith('misuse_')) and report[name])
        return done


def run(options):
    soak = Soak(options.seed)
    soak.host.echo_warnings(False)
    started, done, marks = time.time(), 0, []
    while done < options.calls:
        done += soak.session(min(SESSION_CALLS, options.calls - done))
        if done * 10 >= options.calls * (len(marks) + 1):
            marks.append(resident())
            print '%9d calls  %6.1f s  VmRSS %d KiB' % (done, time.time() - started, marks[-1])
            sys.stdout.flush()
    shutil.rmtree(soak.folder)
    print '%d functions called, the least often %d times' % (len(soak.made), min(soak.made.values()))
    print 'VmRSS after a tenth %d KiB, at the end %d KiB, most %d KiB' % (marks[0], marks[-1], max(marks))
    print 'left by the sessions: %s' % (', '.join(soak.left) or 'nothing')
    return 1 if soak.left or max(marks) - marks[0] > GROWTH or len(soak.made) != 23 else 0


def main():
    options = arguments()
    build = os.path.abspath(options.build)
    stage = os.path.join(build, 'stage')
    if os.environ.get(ROOT_VARIABLE) != stage:
        return subprocess.call([sys.executable, '-B'] + sys.argv, env=dict(os.environ, **{ROOT_VARIABLE: stage}))
    sys.dont_write_bytecode = True
    sys.path[:0] = [os.path.join(stage, 'python'), os.path.join(build, 'tests', 'python'), SCRIPT_TESTS]
    return run(options)


if __name__ == '__main__':
    sys.exit(main())

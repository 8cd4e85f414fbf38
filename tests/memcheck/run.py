"""Runs the script suite and the module's C++ tests under valgrind, and judges what it finds; scripts/memcheck builds
what this needs, and tells how it is used."""
import argparse
import os
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor

import judge

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
SUITE = os.path.join(ROOT, "tests", "script", "run.py")
INTERPRETER = "tests/support/plain_heap_python"
UNIT_TESTS = ["module/module_test", "module/bridge_test", "params/params_test"]

# Frames enough to reach from the C heap through the core's into what called it. An allocation function of a test's own
# stays in its place, and no pipes for a debugger are left by a process that changes its user.
VALGRIND = ["valgrind", "--trace-children=yes", "--child-silent-after-fork=yes", "--keep-debuginfo=yes",
            "--soname-synonyms=somalloc=nouserintercepts", "--vgdb=no",
            "--num-callers=40", "--leak-check=full", "--show-leak-kinds=definite,indirect", "--xml=yes"]


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/memcheck", add_help=False)
    parser.add_argument("tests", nargs="*")
    return parser.parse_args()


def run_memcheck(reports, command):
    """Runs a command under valgrind: its own exit code, and all that it printed."""
    # The processes of one that keeps blocks on purpose say so in their environment; see support.runPython.
    environment = {"KEPT_BLOCKS": "0", "PROPERTY_CASES": "1000", **os.environ}
    names = os.path.join(reports, "%p.%q{KEPT_BLOCKS}.xml")
    done = subprocess.run(VALGRIND + ["--xml-file=" + names] + command, env=environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
    return done.returncode, done.stdout


def commands(build, options):
    """What is run, each with a name: the script tests in as many parts as there are processors, then C++ tests."""
    suite = [os.path.join(build, INTERPRETER), "-B", SUITE, "--build", build]
    chosen = subprocess.run(suite + ["--list"] + options.tests, stdout=subprocess.PIPE, text=True).stdout.splitlines()
    if not chosen:
        sys.exit("No script test has such a name.")
    parts = min(os.cpu_count(), len(chosen))
    for part in range(1, parts + 1):
        yield ("%d script tests, part %d of %d" % (len(chosen), part, parts),
               suite + ["--part", "%d/%d" % (part, parts)] + options.tests)
    if not options.tests:
        for name in UNIT_TESTS:
            yield name, [os.path.join(build, "tests", "unit", name)]


def main():
    options = arguments()
    build = os.path.join(ROOT, "build", "release")
    started = time.time()
    failed = False
    with tempfile.TemporaryDirectory(prefix="memcheck-") as reports, ThreadPoolExecutor(os.cpu_count()) as pool:
        runs = [(name, pool.submit(run_memcheck, reports, command)) for name, command in commands(build, options)]
        for name, run in runs:
            code, text = run.result()
            failed = failed or code != 0
            print("%s: %s" % (name, text.strip() if code else text.strip().splitlines()[-1]), flush=True)
        judgement = judge.judge(reports, build, os.path.join(build, INTERPRETER))
    for problem in judgement.problems:
        print(problem)
    print("%s; %.0f s" % (judgement.text(), time.time() - started))
    return 0 if judgement.passed() and not failed else 1


if __name__ == "__main__":
    sys.exit(main())

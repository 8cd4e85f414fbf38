"""The owned-value set beside the standard library's set and two fast ones."""
from functools import partial

import harness
from harness import OwnTime, Workload

JOBS = ['insert', 'remove', 'churn']
SIZES = [1000, 100000, 10000000]
QUICK_SIZES = [1000, 100000]
# A round of the largest does each operation ten million times.
ROUNDS = {10000000: 5}
SETS = [('unordered_set', 'std'), ('module', 'module'), ('flat_hash_set', 'abseil'), ('unordered_flat_set', 'boost')]


def workloads(context):
    for size in QUICK_SIZES if context.quick else SIZES:
        for job in JOBS:
            name = 'set.%s.%d' % (job, size)
            if context.wants(name):
                yield Workload(name, [OwnTime(shown, partial(context.floors.set_time, contender, job, size))
                                      for shown, contender in SETS], rounds=ROUNDS.get(size, harness.ROUNDS))

"""The workloads by group. A group is a function that takes a Context and yields the wanted workloads one by one."""
from workloads import calls, copying, reading, searching, sets, writing


def groups():
    return [calls.workloads, reading.workloads, writing.workloads, copying.workloads, searching.workloads,
            sets.workloads]

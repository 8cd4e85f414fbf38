"""Copying: a plugin with its values, and a value with a million elements.

The floor of a duplication is an allocation and a copy for each value. The host's own work, making the plugin and
taking the values, is measured apart and taken off; the last column has it in.
"""
import itertools
from functools import partial

from harness import Call, OwnTime, Workload, WrongResult

VALUES = 30
DUPLICATES = 200
ELEMENTS = 1000000
VECTOR_BYTES = 12


def source():
    return {'type': 'BenchSixty', 'name': 'source', 'params': dict((name, value) for name, value in numbers())}


def numbers():
    return [('number_%02d' % i, i * 0.5) for i in range(VALUES)]


def workloads(context):
    module, floors = context.module, context.floors
    clock = floors.processor_time
    names = ['copy_%d' % i for i in range(DUPLICATES)]

    def copies():
        floors.free_copies()
        start = clock()
        for _ in itertools.repeat(None, DUPLICATES):
            floors.copy_values(VALUES)
        return (clock() - start) / DUPLICATES

    def through(function):
        start = clock()
        for name in names:
            function('source', name)
        spent = clock() - start
        for param, value in numbers():
            if module._getParam(names[-1], param) != (1, value):
                raise WrongResult('a copy has another %s' % param)
        return spent / DUPLICATES

    def hostPart():
        context.open(source())
        return through(floors.share_values)

    def whole():
        context.open(source())
        return through(module._duplicate)

    def ownPart():
        shared = hostPart()
        return whole() - shared

    def bound(name):
        context.open(source())
        return through(dict(context.bindings())[name].duplicate) - hostPart()

    if context.wants('duplicate.30_scalars'):
        yield Workload('duplicate.30_scalars', [
            OwnTime('malloc, memcpy', copies), OwnTime('module', ownPart), OwnTime('SWIG', partial(bound, 'SWIG')),
            OwnTime('Cython', partial(bound, 'Cython')), OwnTime('with host calls', whole)], 4.0)

    if context.wants('clone.1000000'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        module._setParam('plugin', 'vectors', (4, [(4, (0.5, 0.25, 0.0))] * ELEMENTS))
        if not floors.clone_is_equal('plugin', 'vectors'):
            raise WrongResult('clone.1000000: the clone has other points')
        yield Workload('clone.1000000', [Call('malloc, memcpy', floors.copy_array, ELEMENTS * VECTOR_BYTES),
                                         Call('clone', floors.clone, 'plugin', 'vectors')], 1.1)

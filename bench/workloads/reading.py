"""Reading values: scalars beside the host's own calls, lists beside a C array."""
import marshal

from harness import Call, Workload, same
from workloads.context import point, points

# Kind, parameter, the value, the binding's function, what brings its result into the module's form.
SCALARS = [
    ('int', 'an_int', 12, 'getInt', same),
    ('float', 'a_float', 0.5, 'getFloat', same),
    ('vector', 'a_vector', [1.0, 2.5, -3.0], 'getVector', point),
    ('color', 'a_color', [0.25, 0.5, 0.75], 'getColor', point),
    ('string', 'a_string', 'textures/wood_01.exr', 'getString', same),
]

# Kind, parameter, one element by its number, the goals by length, the binding's function, its form.
LISTS = [
    ('ints', 'ints', lambda i: i, {}, 'getIntList', list),
    ('floats', 'floats', lambda i: i * 0.25, {1000: 1.9, 1000000: 1.2}, 'getFloatList', list),
    ('vectors', 'vectors', lambda i: (i * 0.5, i * 0.25, -1.0), {1000: 1.15, 1000000: 1.0}, 'getVectorList', points),
]

LENGTHS = [10, 1000, 1000000]


def untagged(read):
    """The value alone, which is what the bindings give."""
    return lambda: read()[1]


def workloads(context):
    module, floors = context.module, context.floors
    for kind, param, value, get, shown in SCALARS:
        if not context.wants('read.' + kind):
            continue
        context.open({'type': 'BenchKinds', 'name': 'plugin', 'params': {param: value}})
        floor = lambda param=param: floors.get_scalar('plugin', param)
        yield Workload('read.' + kind, [
            Call('host calls', floors.get_scalar, 'plugin', param),
            Call('module', module._getParam, 'plugin', param).gives(floor),
            Call('marshal', marshal.loads, marshal.dumps(floor())).gives(floor)] + [
                Call(name, getattr(maker, get), 'plugin', param).gives(untagged(floor), shown)
                for name, maker in context.bindings()], 1.10)

    for kind, param, element, goals, get, shown in LISTS:
        for length in LENGTHS:
            name = 'read.%s.%d' % (kind, length)
            if not context.wants(name):
                continue
            values = [element(i) for i in range(length)]
            context.open({'type': 'BenchKinds', 'name': 'plugin', 'params': {param: values}})
            getattr(floors, 'use_' + kind)(values)
            del values
            build = getattr(floors, kind)
            contenders = [Call('C array', build),
                          Call('module', module._getParam, 'plugin', param).gives(build),
                          Call('marshal', marshal.loads, marshal.dumps(build())).gives(build)]
            if not context.skipsPeers(length):
                contenders += [Call(maker_name, getattr(maker, get), 'plugin', param).gives(untagged(build), shown)
                               for maker_name, maker in context.bindings()]
            yield Workload(name, contenders, goals.get(length))

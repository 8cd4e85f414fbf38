"""Writing values: scalars beside the host's own calls and one new object, lists beside reading them into a C array."""
from harness import Call, Workload

# Kind, parameter, type code, value.
SCALARS = [
    ('float', 'a_float', 1, 0.5),
    ('vector', 'a_vector', 4, (1.0, 2.5, -3.0)),
]

# Kind, parameter, type code, one element by its number, the goals by length.
LISTS = [
    ('ints', 'ints', 0, lambda i: i, {}),
    ('floats', 'floats', 1, lambda i: i * 0.25, {1000: 1.15, 1000000: 1.10}),
    ('vectors', 'vectors', 4, lambda i: (i * 0.5, i * 0.25, -1.0), {1000: 1.15, 1000000: 1.10}),
]

LENGTHS = [10, 1000, 1000000]


def workloads(context):
    module, floors = context.module, context.floors
    for kind, param, code, value in SCALARS:
        name = 'write.' + kind
        if not context.wants(name):
            continue
        start = list(value) if isinstance(value, tuple) else value
        context.open(*[{'type': 'BenchKinds', 'name': plugin, 'params': {param: start}}
                       for plugin in ('floor', 'plugin', 'SWIG', 'Cython')])
        contenders = [Call('host calls', getattr(floors, 'set_' + kind), 'floor', param, (code, value)),
                      Call('module', module._setParam, 'plugin', param, (code, value))]
        if kind == 'float':
            contenders += [Call(maker_name, maker.setFloat, maker_name, param, value)
                           for maker_name, maker in context.bindings()]
        yield Workload(name, contenders, 1.5)

    for kind, param, code, element, goals in LISTS:
        for length in LENGTHS:
            name = 'write.%s.%d' % (kind, length)
            if not context.wants(name):
                continue
            context.open({'type': 'BenchKinds', 'name': 'plugin'})
            tagged = (code, [(code, element(i)) for i in range(length)])
            module._setParam('plugin', param, tagged)
            assert module._getParam('plugin', param) == (code, [value for _, value in tagged[1]]), name
            yield Workload(name, [Call('C array', getattr(floors, 'read_' + kind), tagged),
                                  Call('module', module._setParam, 'plugin', param, tagged)], goals.get(length))
            del tagged

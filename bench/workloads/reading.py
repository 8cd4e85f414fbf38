"""Reading values: scalars beside the host's own calls, lists beside a C array."""
import marshal

from harness import Call, Workload

SCALARS = [
    ('int', 'an_int', 12),
    ('float', 'a_float', 0.5),
    ('vector', 'a_vector', [1.0, 2.5, -3.0]),
    ('color', 'a_color', [0.25, 0.5, 0.75]),
    ('string', 'a_string', 'textures/wood_01.exr'),
]

# Kind, parameter, one element by its number, the goals by length.
LISTS = [
    ('ints', 'ints', lambda i: i, {}),
    ('floats', 'floats', lambda i: i * 0.25, {1000: 1.9, 1000000: 1.2}),
    ('vectors', 'vectors', lambda i: (i * 0.5, i * 0.25, -1.0), {1000: 1.15, 1000000: 1.0}),
]

LENGTHS = [10, 1000, 1000000]


def workloads(context):
    module, floors = context.module, context.floors
    for kind, param, value in SCALARS:
        if not context.wants('read.' + kind):
            continue
        context.open({'type': 'BenchKinds', 'name': 'plugin', 'params': {param: value}})
        expected = floors.get_scalar('plugin', param)
        assert module._getParam('plugin', param) == expected, kind
        contenders = [Call('host calls', floors.get_scalar, 'plugin', param),
                      Call('module', module._getParam, 'plugin', param),
                      Call('marshal', marshal.loads, marshal.dumps(expected))]
        if kind == 'float':
            contenders += [Call(name, maker.getFloat, 'plugin', param) for name, maker in context.bindings()]
        yield Workload('read.' + kind, contenders, 1.10)

    for kind, param, element, goals in LISTS:
        for length in LENGTHS:
            name = 'read.%s.%d' % (kind, length)
            if not context.wants(name):
                continue
            values = [element(i) for i in range(length)]
            context.open({'type': 'BenchKinds', 'name': 'plugin', 'params': {param: values}})
            getattr(floors, 'use_' + kind)(values)
            del values
            build = getattr(floors, kind)
            assert module._getParam('plugin', param) == build(), name
            contenders = [Call('C array', build), Call('module', module._getParam, 'plugin', param),
                          Call('marshal', marshal.loads, marshal.dumps(build()))]
            if kind == 'floats' and length == 1000:
                contenders += [Call(maker_name, maker.getFloatList, 'plugin', param)
                               for maker_name, maker in context.bindings()]
            yield Workload(name, contenders, goals.get(length))

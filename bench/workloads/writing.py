"""Writing values: scalars beside the host's own calls and one new object, lists beside reading them into a C array."""
from harness import Call, Workload
from workloads.context import madeForSwig

# Kind, parameter, type code, value, the binding's function.
SCALARS = [
    ('int', 'an_int', 0, 12, 'setInt'),
    ('float', 'a_float', 1, 0.5, 'setFloat'),
    ('vector', 'a_vector', 4, (1.0, 2.5, -3.0), 'setVector'),
    ('color', 'a_color', 5, (0.25, 0.5, 0.75), 'setColor'),
    ('string', 'a_string', 9, 'textures/wood_01.exr', 'setString'),
]

# Kind, parameter, type code, one element by its number, the goals by length, the binding's function.
LISTS = [
    ('ints', 'ints', 0, lambda i: i, {}, 'setIntList'),
    ('floats', 'floats', 1, lambda i: i * 0.25, {1000: 1.15, 1000000: 1.10}, 'setFloatList'),
    ('vectors', 'vectors', 4, lambda i: (i * 0.5, i * 0.25, -1.0), {1000: 1.15, 1000000: 1.10}, 'setVectorList'),
]

LENGTHS = [10, 1000, 1000000]

# What each plugin carries before it is set.
OTHER = {'int': 1, 'float': 0.25, 'vector': [0.0, 0.0, 0.0], 'color': [0.0, 0.0, 0.0], 'string': 'other'}


def workloads(context):
    module, floors = context.module, context.floors

    def setting(maker_name, maker, function, kind, param, value):
        given = madeForSwig(kind, value) if maker_name == 'SWIG' else value
        return Call(maker_name, getattr(maker, function), maker_name, param, given)

    def carried(plugin, param):
        return lambda: module._getParam(plugin, param)

    for kind, param, code, value, function in SCALARS:
        name = 'write.' + kind
        if not context.wants(name):
            continue
        context.open(*[{'type': 'BenchKinds', 'name': plugin, 'params': {param: OTHER[kind]}}
                       for plugin in ('floor', 'plugin', 'SWIG', 'Cython')])
        tagged = (code, value)
        yield Workload(name, [
            Call('host calls', getattr(floors, 'set_' + kind), 'floor', param, tagged).leaves(
                tagged, carried('floor', param)),
            Call('module', module._setParam, 'plugin', param, tagged).leaves(tagged, carried('plugin', param))] + [
                setting(maker_name, maker, function, kind, param, value).leaves(tagged, carried(maker_name, param))
                for maker_name, maker in context.bindings()], 1.5)

    for kind, param, code, element, goals, function in LISTS:
        for length in LENGTHS:
            name = 'write.%s.%d' % (kind, length)
            if not context.wants(name):
                continue
            context.open(*[{'type': 'BenchKinds', 'name': plugin} for plugin in ('plugin', 'SWIG', 'Cython')])
            tagged = (code, [(code, element(i)) for i in range(length)])
            values = [value for _, value in tagged[1]]
            contenders = [Call('C array', getattr(floors, 'read_' + kind), tagged),
                          Call('module', module._setParam, 'plugin', param, tagged).leaves(
                              (code, values), carried('plugin', param))]
            if not context.skipsPeers(length):
                contenders += [setting(maker_name, maker, function, kind, param, values).leaves(
                    (code, values), carried(maker_name, param)) for maker_name, maker in context.bindings()]
            yield Workload(name, contenders, goals.get(length))
            del tagged, values, contenders

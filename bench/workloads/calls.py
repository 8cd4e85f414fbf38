"""The price of a call: reading a name, asking the host, answering."""
from harness import Call, Workload


def yes():
    return True


def no():
    return False


def workloads(context):
    module, floors = context.module, context.floors
    if context.wants('call.str'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('call.str', [Call('host call', floors.exists, 'plugin').gives(yes),
                                    Call('module', module._pluginExists, 'plugin').gives(yes)] +
                       [Call(name, maker.exists, 'plugin').gives(yes) for name, maker in context.bindings()])
    if context.wants('call.unicode'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('call.unicode', [Call('host call, str', floors.exists, 'plugin').gives(yes),
                                        Call('module', module._pluginExists, u'plugin').gives(yes)] +
                       [Call(name, maker.exists, u'plugin').gives(yes) for name, maker in context.bindings()
                        if name != 'SWIG'])  # it takes no unicode for a std::string
    if context.wants('lookup.missing'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('lookup.missing', [Call('present plugin', module._pluginExists, 'plugin').gives(yes),
                                          Call('missing', module._pluginExists, 'nothing').gives(no)] +
                       [Call(name, maker.exists, 'nothing').gives(no) for name, maker in context.bindings()], 2.0)
    if context.wants('lookup.last_of_60'):
        context.open({'type': 'BenchSixty', 'name': 'plugin'})
        yield Workload('lookup.last_of_60', [Call('plugin lookup', module._pluginExists, 'plugin').gives(yes),
                                             Call('parameter', module._paramExists, 'plugin', 'number_59').gives(yes)] +
                       [Call(name, maker.paramExists, 'plugin', 'number_59').gives(yes)
                        for name, maker in context.bindings()], 1.5)

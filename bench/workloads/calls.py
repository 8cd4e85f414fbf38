"""The price of a call: reading a name, asking the host, answering."""
from harness import Call, Workload


def workloads(context):
    module, floors = context.module, context.floors
    if context.wants('call.str'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('call.str', [Call('host call', floors.exists, 'plugin'),
                                    Call('module', module._pluginExists, 'plugin')] +
                       [Call(name, maker.exists, 'plugin') for name, maker in context.bindings()])
    if context.wants('call.unicode'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('call.unicode', [Call('host call, str', floors.exists, 'plugin'),
                                        Call('module', module._pluginExists, u'plugin')])
    if context.wants('lookup.missing'):
        context.open({'type': 'BenchKinds', 'name': 'plugin'})
        yield Workload('lookup.missing', [Call('present plugin', module._pluginExists, 'plugin'),
                                          Call('missing', module._pluginExists, 'nothing')], 2.0)
    if context.wants('lookup.last_of_60'):
        context.open({'type': 'BenchSixty', 'name': 'plugin'})
        yield Workload('lookup.last_of_60', [Call('plugin lookup', module._pluginExists, 'plugin'),
                                             Call('parameter', module._paramExists, 'plugin', 'number_59')], 1.5)

"""Values that the bytes choose, right and wrong, set and read back; tests/script/value_model.py says what must come.

A run is a session of its own: when it ends the host is asked what is left.
"""
import test_property
from byte_choices import ByteChoices
from value_model import modelSet

TARGETS = test_property.TARGETS + test_property.SPECIAL
PLUGINS = dict(test_property.PLUGINS, mesh=(), patch=(), output=(), linker=(), hidden=test_property.ALL_TEXTURES)
MOST_VALUES = 20


def session(test, values):
    held = {}
    for _ in range(MOST_VALUES):
        if not values.random.more():
            return
        target = values.random.choice(TARGETS)
        plugin, param, code, isList, special = target
        before = repr(test.module._getParam(plugin, param))
        test.assertEqual(before, held.get((plugin, param), before))
        value = values.valueFor(code, isList, special)
        expected = modelSet(PLUGINS, test_property.OUTPUT_CODES, code, isList, special, value)
        actual = test.outcome(plugin, param, value)
        test.assertEqual((target, value, actual), (target, value, expected))
        held[plugin, param] = actual[1] if actual[0] == 'set' else before
        test.assertEqual(repr(test.module._getParam(plugin, param)), held[plugin, param])


def run(data):
    values = test_property.Values(0)
    values.random = ByteChoices(data)
    test = test_property.PropertyTest('testRandomValues')
    test.setUp()
    session(test, values)
    test.tearDown()

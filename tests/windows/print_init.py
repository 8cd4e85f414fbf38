"""Prints what _init does with the environment that the process was started with."""
import sys

import kelmo.pluginmodifier as module

try:
    module._init()
except Exception as error:
    sys.stdout.write('%s: %s' % (type(error).__name__, error))
else:
    sys.stdout.write('initialised')
    module._uninit()

"""Imports the packaged module and opens and closes a session with the host that the environment names."""
import sys

import kelmo.pluginmodifier as module

functions = [name for name in dir(module) if name.startswith('_') and not name.startswith('__')]
if len(functions) != 23:
    sys.exit('%s has %d functions: %s' % (module.__file__, len(functions), ' '.join(sorted(functions))))
module._init()
found = module._findByName('*')
module._uninit()
if found != []:
    sys.exit('The host was expected to be empty: %r' % found)
print 'imported %s: %d functions' % (module.__file__, len(functions))

"""Tells what a scene holds, and changes nothing.

    kelmo-offline run shot.glb examples/inventory.py
    kelmo-offline run shot.glb examples/inventory.py -- "prop_*"

The patterns after -- pick plugins by name; without one the whole scene is told.
"""
import sys

import kelmo.pluginmodifier as pm

pm._init()

names = []
for pattern in sys.argv[1:] or ["*"]:
    names += [name for name in pm._findByName(pattern) if name not in names]

by_type = {}
for name in names:
    by_type.setdefault(pm._getPluginType(name), []).append(name)

for kind in sorted(by_type):
    found = by_type[kind]
    note = "  (the only one that may exist)" if pm._unique(found[0]) else ""
    print "%4d  %s%s" % (len(found), kind, note)
    print "        " + ", ".join(found[:4]) + (", ..." if len(found) > 4 else "")

if not names:
    print "nothing matches"

pm._uninit()

"""What the workloads measure with: the module, the offline host, the floors, and which names are wanted."""
import json
import os

import benchfloors
import offlinehost
from kelmo import pluginmodifier

TYPES = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), 'types')


class Context(object):
    """`quick`: the smaller sizes only. `listing`: nothing is measured, the names are only collected."""

    def __init__(self, wanted=(), quick=False, listing=False):
        self.wanted = wanted
        self.quick = quick
        self.listing = listing
        self.names = []
        self.module = pluginmodifier
        self.host = offlinehost
        self.floors = benchfloors

    def wants(self, name):
        """Whether to yield the workload of this name. Asked before anything is set up for it."""
        self.names.append(name)
        return not self.listing and (not self.wanted or any(text in name for text in self.wanted))

    def open(self, *plugins):
        """A fresh main scene of these plugin records, with the module and the floors ready."""
        self.module._uninit()
        self.host.reset()
        self.host.add_types(TYPES)
        lines = ['{"kelmo-scene":1,"up":"y","unit":1}'] + [json.dumps(plugin) for plugin in plugins]
        self.host.open_text('\n'.join(lines) + '\n')
        self.module._init()
        self.floors.connect(self.host.path())

    def close(self):
        """Leaves nothing that the host would report at the process's end."""
        self.module._uninit()
        self.floors.free_copies()
        self.host.reset()

    def bindings(self):
        """The same scene through the binding makers, by name."""
        import scene_cython
        import scene_swig
        for maker in (scene_cython, scene_swig):
            maker.connect(self.host.path())
        return ('SWIG', scene_swig), ('Cython', scene_cython)

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

    def skipsPeers(self, length):
        """Whether a list of so many elements is measured without the bindings: they make an object of each."""
        return self.quick and length >= 1000000

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
        """The same scene through the binding makers: pairs of a name and a module."""
        import scene_cython
        import scene_swig
        for maker in (scene_cython, scene_swig):
            maker.connect(self.host.path())
        return ('SWIG', scene_swig), ('Cython', scene_cython)


def point(value):
    """The numbers of a point, or of a colour, that a binding gives."""
    return value if isinstance(value, tuple) else (value.x, value.y, value.z)


def points(values):
    return [point(value) for value in values]


def madeForSwig(kind, value):
    """A value as a script hands it to a function that SWIG wrapped: points are objects of their class."""
    import scene_swig
    if kind in ('vector', 'color'):
        return scene_swig.Point(*value)
    if kind == 'vectors':
        return [scene_swig.Point(*element) for element in value]
    return value

"""A plugin type that declares a parameter of every kind, and the base class of tests that set them."""
import json
import os
import shutil
import tempfile

import offlinehost
import support

SINGLE_KINDS = (('int', 0), ('float', 1), ('double', 2), ('bool', 3), ('vector', 4), ('color', 5), ('acolor', 6),
                ('matrix', 7), ('transform', 8), ('string', 9), ('plugin', 10), ('texture', 11),
                ('texture_float', 13), ('texture_int', 14), ('texture_vector', 15), ('texture_matrix', 16),
                ('texture_transform', 17))
OUTPUTS = (('output_texture', 1000), ('output_texture_float', 1001), ('output_texture_int', 1002),
           ('output_texture_vector', 1003), ('output_texture_matrix', 1004), ('output_texture_transform', 1005))
TEXTURES = ('texture', 'texture_float', 'texture_int', 'texture_vector', 'texture_matrix', 'texture_transform')

# Parameter name -> (declared code, is a list). A list parameter's name ends in s.
PARAMS = {'anys': (12, True)}
PARAMS.update((kind, (code, False)) for kind, code in SINGLE_KINDS)
PARAMS.update((kind + 's', (code, True)) for kind, code in SINGLE_KINDS)

ALL_KINDS = {
    'name': 'AllKinds', 'kind': 'other', 'interfaces': list(TEXTURES),
    'params': ([{'name': kind, 'type': kind} for kind, _ in SINGLE_KINDS] +
               [{'name': kind + 's', 'type': kind, 'list': True} for kind, _ in SINGLE_KINDS] +
               [{'name': 'anys', 'type': 'list'}] +
               [{'name': kind, 'type': kind} for kind, _ in OUTPUTS])}
# One type for each texture interface alone, one with none, and one that hides its descriptor.
ONE_INTERFACE = [{'name': 'Only_' + kind, 'kind': 'texture', 'interfaces': [kind], 'params': []} for kind in TEXTURES]
NO_INTERFACE = {'name': 'NoTexture', 'kind': 'other', 'params': []}
NO_DESCRIPTOR = {'name': 'Hidden', 'kind': 'other', 'descriptor': False, 'interfaces': list(TEXTURES),
                 'params': [{'name': kind, 'type': kind} for kind, _ in OUTPUTS]}
TYPES = [ALL_KINDS, NO_INTERFACE, NO_DESCRIPTOR] + ONE_INTERFACE

SCENE = [{'type': 'AllKinds', 'name': 'all'}, {'type': 'AllKinds', 'name': 'other'},
         {'type': 'NoTexture', 'name': 'plain'}, {'type': 'Hidden', 'name': 'hidden'}]
SCENE += [{'type': 'Only_' + kind, 'name': 'only_' + kind} for kind in TEXTURES]


class AllKindsTest(support.ModuleTest):
    """The main scene holds "all" and "other" (AllKinds), "plain", "hidden" and one "only_KIND" for each texture."""

    plugins = SCENE

    def setUp(self):
        support.ModuleTest.setUp(self)
        folder = tempfile.mkdtemp()
        try:
            with open(os.path.join(folder, 'all_kinds.json'), 'w') as out:
                json.dump({'family': 'Tests', 'types': TYPES}, out)
            offlinehost.add_types(folder.replace('\\', '/'))
        finally:
            shutil.rmtree(folder)
        offlinehost.open_text(support.sceneText(*self.plugins))

    def setParam(self, param, value, plugin='all'):
        """Sets it and reads it back; what is read as its repr, because a list can hold an element that is none."""
        self.assertIs(self.module._setParam(plugin, param, value), None)
        return repr(self.module._getParam(plugin, param))

    def assertInvalid(self, param, value, plugin='all'):
        """The value is refused and the parameter is as it was."""
        before = repr(self.module._getParam(plugin, param))
        self.assertRaisesText(Exception, 'Invalid value given for parameter \\"%s\\" in plugin \\"%s\\".'
                              % (param, plugin), self.module._setParam, plugin, param, value)
        self.assertEqual(repr(self.module._getParam(plugin, param)), before)

    def conversionWarning(self, param, text, plugin='all'):
        return ('A value given for parameter "%s" in plugin "%s" could not be read as its type: %s.'
                % (param, plugin, text))

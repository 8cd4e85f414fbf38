"""Questions about parameters: what a type declares, what a plugin carries, of which type a parameter is."""
import json
import os
import shutil
import tempfile

import offlinehost
import support

SCENE = support.sceneText({'type': 'GeomNode', 'name': 'node', 'params': {'visible': True, 'tag': 'a'}},
                          {'type': 'MtlSurface', 'name': 'steel', 'params': {'ior': 2.5}},
                          {'type': 'TexUserAttribute', 'name': 'attribute'},
                          {'type': 'GeomStaticMesh', 'name': 'mesh', 'params': {'faces': [0, 1, 2]}},
                          {'type': 'SceneMarker', 'name': 'bare'})


def declaredNames(typeName):
    return [str(param['name']) for param in offlinehost.types(typeName)[0]['params']]


class ParamNamesTest(support.ModuleTest):

    scene = SCENE

    def testDeclared(self):
        names = self.module._getPluginParams('node', 0)
        self.assertEqual(names, declaredNames('GeomNode'))
        self.assertTrue('visible' in names and 'material' in names)
        self.assertEqual(set(type(name) for name in names), set([str]))

    def testCarriedInTheirOrder(self):
        self.assertEqual(self.module._getPluginParams('node', 1), ['visible', 'tag'])
        self.assertEqual(self.module._getPluginParams('attribute', 1), [])

    def testADeclaredParameterThatIsNotCarried(self):
        self.assertIn('object_id', self.module._getPluginParams('node', 0))
        self.assertNotIn('object_id', self.module._getPluginParams('node', 1))

    def testFlags(self):
        declared, carried = self.module._getPluginParams('node', 0), ['visible', 'tag']
        for flag, names in ((0, declared), (False, declared), (0L, declared), (0.5, declared), (1, carried),
                            (True, carried), (-1, carried), (7, carried), (2 ** 31, carried), (2 ** 32, carried),
                            (2 ** 64, carried), (-2 ** 32, carried), ('0', carried), (None, carried), ([], carried)):
            self.assertEqual((flag, self.module._getPluginParams('node', flag)), (flag, names))

    def testTypeWithoutParameters(self):
        self.assertEqual(self.module._getPluginParams('bare', 0), [])
        self.assertEqual(self.module._getTypeParams('SceneMarker'), [])

    def testOfAType(self):
        for name in ('GeomStaticMesh', 'SettingsOutput', 'GeomStaticNURBS', 'SettingsLightLinker'):
            self.assertEqual(self.module._getTypeParams(name), declaredNames(name))

    def testOfAnUnknownType(self):
        for name in ('NoSuchType', 'geomnode', ''):
            self.assertIs(self.module._getTypeParams(name), None)
            self.assertWarned('\\"%s\\" is not a valid plugin type.' % name)

    def testOfAnUnknownPlugin(self):
        for flag in (0, 1):
            self.assertRaisesText(Exception, 'The plugin "nobody" doesn\'t exist.', self.module._getPluginParams,
                                  'nobody', flag)


class ManyParamsTest(support.ModuleTest):
    """The array that collects carried values grows by a hundred."""

    def testEveryCarriedNameIsListed(self):
        folder = tempfile.mkdtemp()
        try:
            with open(os.path.join(folder, 'wide.json'), 'w') as family:
                json.dump({'family': 'Wide', 'types': [
                    {'name': 'Wide', 'kind': 'other', 'doc': 'Many parameters.',
                     'params': [{'name': 'p%d' % i, 'type': 'int', 'doc': 'A number.'} for i in range(301)]}]}, family)
            offlinehost.add_types(folder)
        finally:
            shutil.rmtree(folder)
        for count in (99, 100, 101, 200, 301):
            names = ['p%d' % i for i in reversed(range(count))]
            offlinehost.open_text(support.sceneText('{"type":"Wide","name":"wide%d","params":{%s}}' % (
                count, ','.join('"%s":1' % name for name in names))))
            self.assertEqual(self.module._getPluginParams('wide%d' % count, 1), names)
            self.assertEqual(len(self.module._getPluginParams('wide%d' % count, 0)), 301)


class ParamTypeTest(support.ModuleTest):

    scene = SCENE

    def testTypes(self):
        for plugin, param, code, isList in (
                ('node', 'object_id', 0, False), ('steel', 'ior', 1, False), ('node', 'visible', 3, False),
                ('steel', 'base_tint', 5, False), ('node', 'instancer_matrix', 7, False), ('node', 'transform', 8, False),
                ('node', 'tag', 9, False), ('node', 'material', 10, False), ('steel', 'base_color', 11, False),
                ('steel', 'base_weight', 13, False), ('steel', 'normal', 15, False), ('steel', 'uv_transform', 17, False),
                ('mesh', 'faces', 0, True), ('mesh', 'vertices', 4, True), ('mesh', 'map_channels', 12, True),
                ('node', 'light_sets', 10, True), ('attribute', 'out_color', 1000, False),
                ('attribute', 'out_value', 1001, False), ('attribute', 'out_index', 1002, False),
                ('attribute', 'out_vector', 1003, False), ('attribute', 'out_matrix', 1004, False),
                ('attribute', 'out_transform', 1005, False)):
            result = self.module._getParamType(plugin, param)
            self.assertEqual((param, result), (param, (code, isList)))
            # A long and a bool, where the tag of a value is an int.
            self.assertEqual([type(result), type(result[0]), type(result[1])], [tuple, long, bool])
            isOutput = self.module._isOutputParam(plugin, param)
            self.assertIs(isOutput, 1000 <= code <= 1005)

    def testUnknownNames(self):
        for function in (self.module._getParamType, self.module._isOutputParam):
            self.assertRaisesText(Exception, 'The plugin "nobody" doesn\'t exist.', function, 'nobody', 'visible')
            for name in ('nothing', 'Visible', 'visibl', ''):
                self.assertRaisesText(Exception,
                                      'A parameter with name "%s" doesn\'t exist for plugin "node".' % name,
                                      function, 'node', name)


class ParamExistsTest(support.ModuleTest):

    scene = SCENE

    def testParamExists(self):
        for plugin, param, exists in (('node', 'visible', True), ('node', 'object_id', True), ('node', 'Visible', False),
                                      ('node', '', False), ('nobody', 'visible', False), ('bare', 'visible', False),
                                      ('attribute', 'out_color', True)):
            self.assertIs(self.module._paramExists(plugin, param), exists)


class WithoutPrintWarningTest(support.HostTest):

    def testAnUnknownTypeIsAnException(self):
        code = ('from kelmo import pluginmodifier as m\n'
                'm._init()\n'
                'try:\n'
                '    m._getTypeParams("NoSuchType")\n'
                'except Exception as error:\n'
                '    print type(error).__name__, error\n'
                'm._uninit()\n')
        self.assertEqual(support.runPython(code, root=support.variantRoot('without_printWarning')),
                         (0, 'Exception \\"NoSuchType\\" is not a valid plugin type.\n', ''))

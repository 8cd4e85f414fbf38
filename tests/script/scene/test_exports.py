# -*- coding: utf-8 -*-
"""Asking the host for nodes that it has not translated yet."""
import offlinehost
import support


class ExportsTest(support.ModuleTest):

    scene = support.sceneText(
        {'type': 'MtlDiffuse', 'name': 'clay'},
        {'type': 'MtlDiffuse', 'name': 'steel@mtl', 'node': 'steel', 'deferred': True, 'params': {'color': 'wood'}},
        {'type': 'TexChecker', 'name': 'wood', 'deferred': True},
        {'type': 'CameraPerspective', 'name': 'cam', 'node': '|group|cam', 'deferred': True},
        {'type': 'GeomNode', 'name': 'teapot', 'deferred': True, 'params': {'material': 'steel@mtl'}})

    def testDeferredNodesAreNotPartOfTheScene(self):
        self.assertEqual(self.module._findByName('*'), ['clay'])

    def testAMaterialComesWithWhatItRefersTo(self):
        name = self.module._exportMaterial('steel')
        self.assertEqual((type(name), name), (str, 'steel@mtl'))
        self.assertEqual(self.module._getParam('steel@mtl', 'color'), (10, 'wood'))
        self.assertEqual(sorted(self.module._findByName('*')), ['clay', 'steel@mtl', 'wood'])

    def testEachKind(self):
        self.assertEqual(self.module._exportTexture('wood'), 'wood')
        self.assertEqual(self.module._exportCamera('|group|cam'), 'cam')
        self.assertEqual(self.module._exportCamera(u'cam'), 'cam')
        self.assertEqual(self.module._exportNode('teapot'), 'teapot')
        self.assertEqual(sorted(self.module._findByName('*')), ['cam', 'clay', 'steel@mtl', 'teapot', 'wood'])

    def testAnyNode(self):
        self.assertEqual(self.module._exportNode('steel'), 'steel@mtl')
        self.assertEqual(self.module._exportNode('wood'), 'wood')
        self.assertEqual(self.module._exportNode('|group|cam'), 'cam')

    def testAPluginThatStandsAlready(self):
        self.assertEqual(self.module._exportMaterial('clay'), 'clay')
        self.assertEqual(self.module._exportMaterial('steel'), 'steel@mtl')
        self.assertEqual(self.module._exportMaterial('steel'), 'steel@mtl')
        self.assertEqual(len(self.module._findByName('*')), 3)

    def testRefusals(self):
        before = offlinehost.text()
        for function, kind in ((self.module._exportTexture, 'texture'), (self.module._exportMaterial, 'material'),
                               (self.module._exportCamera, 'camera'), (self.module._exportNode, 'node')):
            for name in ('nobody', '', u'\u6f22'.encode('utf-8')):
                self.assertIs(function(name), None)
                self.assertWarned('The %s \\"%s\\" could not be exported.' % (kind, name))
        # Of another kind.
        for function, kind, name in ((self.module._exportTexture, 'texture', 'steel'),
                                     (self.module._exportMaterial, 'material', 'wood'),
                                     (self.module._exportCamera, 'camera', 'clay')):
            self.assertIs(function(name), None)
            self.assertWarned('The %s \\"%s\\" could not be exported.' % (kind, name))
        self.assertEqual(offlinehost.text(), before)

    def testTheKindDecidesAmongThoseOfANode(self):
        # A camera waits while the node that carries it, and has its name, stands in the scene.
        self.module._create('GeomNode', '|group|cam')
        self.assertEqual(self.module._exportNode('|group|cam'), '|group|cam')
        self.assertEqual(self.module._exportCamera('|group|cam'), 'cam')

    def testWhyARecordCannotBeMade(self):
        self.module._create('TexChecker', 'steel@mtl')
        self.assertIs(self.module._exportMaterial('steel'), None)
        self.assertWarned('a deferred record cannot be made: [scene] line 3, column 1 | plugin "steel@mtl" | '
                          'a plugin of this name stands in the scene already',
                          'The material \\"steel\\" could not be exported.')
        # A record that refers to it is made, and refers to the plugin of that name.
        self.assertEqual(self.module._exportNode('teapot'), 'teapot')
        self.assertEqual(self.module._getParam('teapot', 'material'), (10, 'steel@mtl'))


class WithoutPrintWarningTest(support.HostTest):

    def testARefusalIsAnException(self):
        code = ('from kelmo import pluginmodifier as m\n'
                'm._init()\n'
                'for function in (m._exportTexture, m._exportMaterial, m._exportCamera, m._exportNode):\n'
                '    try:\n'
                '        function("nobody")\n'
                '    except Exception as error:\n'
                '        print type(error).__name__, error\n'
                'm._uninit()\n')
        status, out, err = support.runPython(code, root=support.variantRoot('without_printWarning'))
        self.assertEqual((status, err), (0, ''))
        self.assertEqual(out.splitlines(), ['Exception The %s \\"nobody\\" could not be exported.' % kind
                                            for kind in ('texture', 'material', 'camera', 'node')])

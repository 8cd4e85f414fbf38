# -*- coding: utf-8 -*-
"""Finding plugins by name and by type."""
import sys

import offlinehost
import support


class SearchTest(support.ModuleTest):

    scene = support.sceneText({'type': 'GeomStaticMesh', 'name': 'teapot@mesh'},
                              {'type': 'GeomNode', 'name': 'teapot@node'},
                              {'type': 'MtlDiffuse', 'name': 'clay'},
                              {'type': 'GeomStaticMesh', 'name': 'floor@mesh'},
                              u'{"type":"MtlDiffuse","name":"\u00e9"}'.encode('utf-8'))

    def testByName(self):
        everything = ['teapot@mesh', 'teapot@node', 'clay', 'floor@mesh', '\xc3\xa9']
        for pattern, names in (
                ('*', everything), ('**', everything), ('', []), ('clay', ['clay']), ('Clay', []), ('cla', []),
                ('*mesh', ['teapot@mesh', 'floor@mesh']), ('mesh*', []), ('teapot*', ['teapot@mesh', 'teapot@node']),
                ('*@*', ['teapot@mesh', 'teapot@node', 'floor@mesh']), ('cl?y', ['clay']), ('clay?', []),
                ('?????????sh', ['teapot@mesh']), ('*o*@m*h', ['teapot@mesh', 'floor@mesh']),
                ('??', ['\xc3\xa9']), ('?', []), (u'\u00e9', ['\xc3\xa9']), ('clay**', ['clay'])):
            found = self.module._findByName(pattern)
            self.assertEqual((pattern, type(found), found), (pattern, list, names))

    def testByTypeGivesPluginNames(self):
        for pattern, names in (
                ('GeomStaticMesh', ['teapot@mesh', 'floor@mesh']), ('Geom*', ['teapot@mesh', 'teapot@node', 'floor@mesh']),
                ('geom*', []), ('Mtl*', ['clay', '\xc3\xa9']), ('', []), ('*Mesh*', ['teapot@mesh', 'floor@mesh']),
                ('GeomNod?', ['teapot@node']), ('teapot*', [])):
            self.assertEqual((pattern, self.module._findByType(pattern)), (pattern, names))

    def testOrderIsThatOfTheScene(self):
        self.module._delete('clay')
        self.module._create('MtlDiffuse', 'clay')
        self.assertEqual(self.module._findByType('Mtl*'), ['\xc3\xa9', 'clay'])

    def testEachNameKeepsAReferenceBesideTheLists(self):
        for find, pattern in ((self.module._findByName, 'teapot@*'), (self.module._findByType, 'Geom*')):
            found = find(pattern)
            released = [''.join(list(name)) for name in found]  # strings of the same texts that only a list holds
            for name, plain in zip(range(len(found)), range(len(released))):
                self.assertEqual(sys.getrefcount(found[name]), sys.getrefcount(released[plain]) + 1)

    def testASearchEnumeratesOnce(self):
        offlinehost.observe()
        self.module._findByName('*')
        self.module._findByType('*')
        self.assertEqual([event for event in offlinehost.events() if 'enumPlugins' in event],
                         ['manager.enumPlugins()'] * 2)

    def testAnEmptyScene(self):
        for name in self.module._findByName('*'):
            self.module._delete(name)
        self.assertEqual(self.module._findByName('*'), [])
        self.assertEqual(self.module._findByType('*'), [])

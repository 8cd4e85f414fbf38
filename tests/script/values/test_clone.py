"""The classes of lists of lists: by the parameter's exact name and the plugin's exact type."""
import support

CHANNEL = (12, [(0, 7), (4, [(4, (0, 0.5, 0)), (4, (1, 0, 0))]), (0, [(0, 0), (0, 1)])])
VECTORS = (4, [(4, (1, 2, 3)), (4, (4, 5, 6))])


class SpecialListsTest(support.ModuleTest):

    scene = support.sceneText({'type': 'GeomStaticMesh', 'name': 'mesh'}, {'type': 'GeomStaticNURBS', 'name': 'patch'},
                              {'type': 'SettingsOutput', 'name': 'output'},
                              {'type': 'SettingsLightLinker', 'name': 'linker'},
                              {'type': 'LightPoint', 'name': 'key'}, {'type': 'UserAttributes', 'name': 'attributes'})

    def check(self, plugin, param, given, expected):
        self.assertIs(self.module._setParam(plugin, param, (12, given)), None)
        self.assertEqual((plugin, param, repr(self.module._getParam(plugin, param))), (plugin, param, repr(expected)))

    def testMapChannels(self):
        read = (12, [(0, 7), (4, [(0.0, 0.5, 0.0), (1.0, 0.0, 0.0)]), (0, [0, 1])])
        self.check('mesh', 'map_channels', [CHANNEL], (12, [read]))
        self.check('mesh', 'map_channels', [CHANNEL, CHANNEL], (12, [read, read]))
        self.check('mesh', 'map_channels', [], (12, []))
        # Three numbers instead of lists: the last one is the channel's number.
        self.check('mesh', 'map_channels', [(12, [(0, 1), (0, 2), (0, 3)])], (12, [(12, [(0, 3), (4, []), (0, [])])]))
        # The number given as a list does nothing.
        self.check('mesh', 'map_channels', [(12, [(0, [(0, 1)]), VECTORS, (0, [])])],
                   (12, [(12, [(0, 0), (4, [(1.0, 2.0, 3.0), (4.0, 5.0, 6.0)]), (0, [])])]))
        # A number among the channels is nothing; values of another kind stay zero.
        self.check('mesh', 'map_channels', [(0, 5)], (12, [(12, [(0, 0), (4, []), (0, [])])]))
        self.check('mesh', 'map_channels', [(12, [(1, 2.5), (4, [(0, 1)]), (0, [(9, 'x')])])],
                   (12, [(12, [(0, 0), (4, [(0.0, 0.0, 0.0)]), (0, [0])])]))

    def testTheSameNameOnAnotherType(self):
        self.check('patch', 'map_channels', [(0, 5), CHANNEL],
                   (12, [(0, 5), (12, [(0, 7), (12, [(4, (0.0, 0.5, 0.0)), (4, (1.0, 0.0, 0.0))]),
                                       (12, [(0, 0), (0, 1)])])]))

    def testListsOfLists(self):
        self.check('output', 'frames', [(0, [(0, 1), (0, 2)]), (0, 5), (12, [(0, 3)])],
                   (12, [(12, [(0, 1), (0, 2)]), (12, []), (12, [(0, 3)])]))
        self.check('output', 'frames', [(12, [(1, 2.7), (3, True), (9, 'x')])], (12, [(12, [(0, 2), (0, 1), (0, 0)])]))
        self.check('output', 'frames', [(12, [(12, [(0, 1)])])], (12, [(12, [(0, 0)])]))
        self.check('patch', 'weights', [(1, [(1, 0.5), (0, 2), (2, 0.25)])], (12, [(12, [(1, 0.5), (1, 2.0), (1, 0.25)])]))
        self.check('patch', 'cvs', [VECTORS, (4, [])], (12, [(12, [(4, (1.0, 2.0, 3.0)), (4, (4.0, 5.0, 6.0))]), (12, [])]))
        for param in ('ignored_lights', 'ignored_shadow_lights'):
            # The names of outputs are dropped, and what is no plugin stays none.
            self.check('linker', param, [(10, [(10, 'key'), (1000, ('key', 'color')), (0, 5)]), (10, [])],
                       (12, [(12, [(10, 'key'), (10, 'key'), None]), (12, [])]))

    def testAnotherNameOfTheSameType(self):
        self.check('patch', 'trim_curves', [VECTORS, (0, 5)],
                   (12, [(12, [(4, (1.0, 2.0, 3.0)), (4, (4.0, 5.0, 6.0))]), (0, 5)]))
        self.check('attributes', 'values', [(0, 5), (12, [(9, 'a')])], (12, [(0, 5), (12, [(9, 'a')])]))

    def testDuplicatesKeepTheClass(self):
        self.check('mesh', 'map_channels', [CHANNEL], (12, [(12, [(0, 7), (4, [(0.0, 0.5, 0.0), (1.0, 0.0, 0.0)]),
                                                                  (0, [0, 1])])]))
        self.module._duplicate('mesh', 'copy')
        self.assertEqual(self.module._getParam('copy', 'map_channels'), self.module._getParam('mesh', 'map_channels'))
        # It takes writes like the original: a number among the channels is nothing.
        self.check('copy', 'map_channels', [(0, 5)], (12, [(12, [(0, 0), (4, []), (0, [])])]))

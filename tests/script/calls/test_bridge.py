# -*- coding: utf-8 -*-
"""Loading the host: the root variables, the library, its exports, and starting and ending more than once.

The variables are read by the C runtime of the module, so each environment is that of a process of its own.
"""
import os
import unittest

import offlinehost
import support

PRIMARY = support.ROOT_VARIABLE
DEPRECATED = support.DEPRECATED_ROOT_VARIABLE
NOT_FOUND = ('MayaSceneAccessUtils: Could not find environment variable "KELMO_FOR_MAYA2020_MAIN" (or its fallback: '
             '"KELMO_FOR_MAYA2020_MAIN_x64")')

# Tries _init, tells how it went, and whether the module is usable afterwards.
TRY = ('from kelmo import pluginmodifier as m\n'
       'try:\n'
       '    print repr(m._init())\n'
       'except Exception as error:\n'
       '    print type(error).__name__, error\n'
       'try:\n'
       '    m._findByName("*")\n'
       '    print "initialised"\n'
       'except Exception:\n'
       '    print "uninitialised"\n'
       'm._uninit()\n')


def tried(**variables):
    """The output lines of TRY with these root variables, each None (unset) or a text."""
    status, out, err = support.runPython(TRY, environment={PRIMARY: variables.get('primary'),
                                                           DEPRECATED: variables.get('deprecated')})
    assert status == 0, err
    # The host says nothing, and neither does the module.
    assert err == '', err
    return out.splitlines()


class RootVariablesTest(unittest.TestCase):

    def testWhichVariableCounts(self):
        good, bad = support.STAGE, support.STAGE + '/nowhere'
        for primary, deprecated, found in ((good, None, True), (None, good, True), (good, bad, True), ('', good, True),
                                           (None, None, False), ('', '', False), ('<missing>', good, False),
                                           ('<missing>', None, False), (None, '<missing>', False)):
            lines = tried(primary=primary, deprecated=deprecated)
            expected = ['None', 'initialised'] if found else ['Exception ' + NOT_FOUND, 'uninitialised']
            self.assertEqual((primary, deprecated, lines), (primary, deprecated, expected))

    def testThePrimaryVariableIsNotHelpedByTheOther(self):
        lines = tried(primary=support.STAGE + '/nowhere', deprecated=support.STAGE)
        self.assertTrue(lines[0].startswith('Exception MayaSceneAccessUtils: Could not load library "%s/nowhere/plug-ins/'
                                            'kelmoformaya.mll": [loadLib] LoadLibrary failed (' % support.STAGE), lines)
        self.assertEqual(lines[-1], 'uninitialised')


class LibraryTest(unittest.TestCase):

    def testALibraryThatIsNotThere(self):
        root = support.STAGE + u'/d\u00e9j\u00e0'.encode('utf-8')
        lines = tried(primary=root)
        start = ('Exception MayaSceneAccessUtils: Could not load library "%s/plug-ins/kelmoformaya.mll": [loadLib] '
                 'LoadLibrary failed (' % root)
        self.assertEqual(lines[0][:len(start)], start)
        # The code, then the system's own text.
        code, text = lines[0][len(start):].split('): ', 1)
        self.assertEqual(int(code), 126 if os.name == 'nt' else 0)
        self.assertTrue(len(text) > 5, text)
        self.assertEqual(lines[-1], 'uninitialised')

    def testAPathIsCutTo1023Characters(self):
        root = '/' + 'r' * 1100
        lines = tried(primary=root)
        self.assertTrue(lines[0].startswith('Exception MayaSceneAccessUtils: Could not load library "'), lines[0])
        # The message has the same limit, so the path is cut before its quote.
        self.assertEqual(len(lines[0]), len('Exception ') + 1023)

    def testARootWithAnyCharacters(self):
        self.assertEqual(tried(primary=support.variantRoot(u'd\u00e9j\u00e0 \u6f22'.encode('utf-8'))),
                         ['None', 'initialised'])


class ExportsTest(unittest.TestCase):

    def testEachRequiredExport(self):
        for name in ('getPluginManager', 'getScenes', 'exportTexture', 'exportMaterial', 'exportCamera', 'exportNode'):
            self.assertEqual(tried(primary=support.variantRoot('without_' + name)),
                             ['Exception MayaSceneAccessUtils: Could not find symbol "%s".' % name, 'uninitialised'])

    def testNullObjects(self):
        for name in ('null_manager', 'null_scenes'):
            self.assertEqual(tried(primary=support.variantRoot(name)),
                             ['Exception MayaSceneAccessUtils: Could not obtain plugin manager.', 'uninitialised'])

    def testWithoutPrintWarningWarningsAreExceptions(self):
        code = ('from kelmo import pluginmodifier as m\n'
                'm._init()\n'
                'm._create("SettingsOutput", "output")\n'
                'for arguments in (("SettingsOutput", "other"), ("MtlDiffuse", "output"), ("NoSuchType", "new")):\n'
                '    try:\n'
                '        print repr(m._create(*arguments))\n'
                '    except Exception as error:\n'
                '        print type(error).__name__, error\n'
                'm._uninit()\n')
        status, out, err = support.runPython(code, root=support.variantRoot('without_printWarning'))
        self.assertEqual((status, err), (0, ''))
        self.assertEqual(out.splitlines(),
                         ['Exception Only one instance of type \\"SettingsOutput\\" can exist.',
                          'Exception A plugin \\"output\\" already exists.',
                          'Exception A plugin \\"new\\" of type \\"NoSuchType\\" could not be created.'])


class LifeOfTheModuleTest(support.HostTest):

    def accesses(self):
        counters = offlinehost.counters()
        return counters['script_access_begun'], counters['script_access_ended']

    def setUp(self):
        support.HostTest.setUp(self)
        from kelmo import pluginmodifier
        self.module = pluginmodifier
        self.abandoned = 0

    def abandonedAccesses(self):
        return self.abandoned

    def testInitAndUninit(self):
        self.assertIs(self.module._init(), None)
        self.assertEqual(self.accesses(), (1, 0))
        self.assertIs(self.module._uninit(), None)
        self.assertEqual(self.accesses(), (1, 1))
        self.assertIs(self.module._uninit(), None)
        self.assertEqual(self.accesses(), (1, 1))

    def testArgumentsAreIgnored(self):
        self.assertIs(self.module._init(1, 'two', None), None)
        self.assertIs(self.module._uninit(1, 'two', None), None)

    def testASecondInitDoesNotEndTheFirst(self):
        self.module._init()
        self.module._init()
        self.abandoned = 1
        self.assertEqual(self.accesses(), (2, 0))
        self.module._uninit()
        self.assertEqual(self.accesses(), (2, 1))

    def testTheSceneOutlivesUninit(self):
        self.module._init()
        self.module._create('MtlDiffuse', 'clay')
        self.module._uninit()
        self.assertRaises(Exception, self.module._delete, 'clay')
        self.module._init()
        self.assertIs(self.module._pluginExists('clay'), True)
        self.module._uninit()

    def testInitWithoutMemory(self):
        # The state record, then the texts of the root variable.
        for nth, kind, text in ((1, MemoryError, ''), (4, Exception, NOT_FOUND), (5, Exception, NOT_FOUND)):
            offlinehost.fail_allocation(nth)
            self.assertRaisesText(kind, text, self.module._init)
            offlinehost.fail_allocation(0)
            self.assertIs(self.module._pluginExists('clay'), False)


if __name__ == '__main__':
    unittest.main()

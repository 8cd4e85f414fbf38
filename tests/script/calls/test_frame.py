# -*- coding: utf-8 -*-
"""The call frame: the initialisation check, the arguments, and how problems reach the script."""
import sys
import unittest

import offlinehost
import support

NOT_INITIALISED = (
    "The kelmo.pluginmodifier module wasn't initialized properly. One possible reason for this error is that you are "
    "trying to execute the script from the Script Editor. The script must be placed inside the special field that "
    "Kelmo provides for Python code (Render Settings / Kelmo Common / MEL/Python Callbacks / Post Translate Python "
    "Script)")

# The functions with the usual frame, and how many arguments each takes.
FRAMED = {'_delete': 1, '_create': 2, '_setParam': 3, '_getParam': 2, '_getPluginParams': 2, '_getTypeParams': 1,
          '_getPluginType': 1, '_getParamType': 2, '_isOutputParam': 2, '_findByType': 1, '_findByName': 1,
          '_exportTexture': 1, '_exportMaterial': 1, '_exportCamera': 1, '_exportNode': 1, '_addSceneContent': 2,
          '_appendSceneContent': 2, '_duplicate': 2}

# Those whose first argument is a plugin, type or node name, or a pattern.
NAMED_FIRST = sorted(set(FRAMED) - set(['_addSceneContent', '_appendSceneContent']))


class BeforeInitTest(support.HostTest):

    def testEveryFunctionSaysSo(self):
        from kelmo import pluginmodifier
        for name in sorted(FRAMED):
            # The initialisation comes before the arguments.
            for arguments in ((), ('a', 'b', 'c')):
                self.assertRaisesText(Exception, NOT_INITIALISED, getattr(pluginmodifier, name), *arguments)

    def testPredicatesAnswerFalse(self):
        from kelmo import pluginmodifier
        self.assertIs(pluginmodifier._pluginExists('a'), False)
        self.assertIs(pluginmodifier._pluginExists(), False)
        self.assertIs(pluginmodifier._paramExists('a', 'b'), False)
        self.assertIs(pluginmodifier._paramExists(), False)

    def testUniqueReadsItsArgumentFirst(self):
        from kelmo import pluginmodifier
        self.assertIs(pluginmodifier._unique('a'), False)
        self.assertRaisesText(TypeError, '_unique() takes at least 1 argument (0 given)', pluginmodifier._unique)

    def testUninitDoesNothing(self):
        from kelmo import pluginmodifier
        self.assertIs(pluginmodifier._uninit(), None)


class ArgumentsTest(support.ModuleTest):

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'},
                              u'{"type":"MtlDiffuse","name":"\u6f22\u00e9"}'.encode('utf-8'),
                              u'{"type":"MtlDiffuse","name":"\U0001f3a8"}'.encode('utf-8'))

    def testMissingArguments(self):
        for name, count in sorted(FRAMED.items()):
            text = '%s() takes at least %d argument%s (0 given)' % (name, count, '' if count == 1 else 's')
            self.assertRaisesText(TypeError, text, getattr(self.module, name))
        self.assertRaisesText(TypeError, '_create() takes at least 2 arguments (1 given)', self.module._create, 'a')
        self.assertRaisesText(TypeError, '_setParam() takes at least 3 arguments (2 given)', self.module._setParam,
                              'a', 'b')

    def testArgumentsOfAnotherKind(self):
        for name in NAMED_FIRST:
            for value, kind in ((None, 'NoneType'), (5, 'int'), (['a'], 'list'), (2.5, 'float')):
                arguments = (value,) * FRAMED[name]
                self.assertRaisesText(TypeError, '%s() argument 1 must be str, not %s' % (name, kind),
                                      getattr(self.module, name), *arguments)
        self.assertRaisesText(TypeError, '_create() argument 2 must be str, not int', self.module._create, 'a', 1)
        self.assertRaisesText(TypeError, '_addSceneContent() argument 1 must be list, not tuple',
                              self.module._addSceneContent, (), '')
        self.assertRaisesText(TypeError, '_appendSceneContent() argument 2 must be str, not int',
                              self.module._appendSceneContent, [], 5)
        self.assertRaisesText(TypeError, '_unique() argument 1 must be str, not int', self.module._unique, 5)

    def testPredicatesNeverRaise(self):
        for value in (None, 5, [], u'\ud800', object()):
            self.assertIs(self.module._pluginExists(value), False)
            self.assertIs(self.module._paramExists(value, value), False)
            self.assertIs(self.module._paramExists('clay', value), False)
        self.assertIs(self.module._pluginExists(), False)
        self.assertIs(self.module._paramExists('clay'), False)

    def testFurtherArgumentsAreNotLookedAt(self):
        self.assertIs(self.module._pluginExists('clay', 5, None), True)
        self.assertEqual(self.module._getPluginType('clay', object()), 'MtlDiffuse')

    def testUnicodeIsReadAsUtf8(self):
        for name in (u'\u6f22\u00e9', u'\U0001f3a8'):
            self.assertIs(self.module._pluginExists(name), True)
            self.assertIs(self.module._pluginExists(name.encode('utf-8')), True)
        self.assertEqual(self.module._findByName(u'\u6f22*'), [u'\u6f22\u00e9'.encode('utf-8')])
        self.assertRaisesText(Exception, u'The plugin "\u00e9" doesn\'t exist.'.encode('utf-8'),
                              self.module._getPluginType, u'\u00e9')

    def testDefaultEncodingIsPutBack(self):
        self.assertEqual(sys.getdefaultencoding(), 'ascii')
        for call in (lambda: self.module._pluginExists(u'\u6f22'), lambda: self.module._getPluginType(u'clay'),
                     lambda: self.assertRaises(Exception, self.module._getPluginType, u'\u00e9')):
            call()
            self.assertEqual(sys.getdefaultencoding(), 'ascii')
        # And it works: a byte string that is no ASCII still cannot be mixed with unicode.
        self.assertRaises(UnicodeDecodeError, lambda: u'a' + '\xc3\xa9')

    def testAnyDefaultEncodingIsPutBack(self):
        code = ('import sys\nreload(sys)\n'
                'from kelmo import pluginmodifier as m\n'
                'for name in ("latin-1", "utf-16", "ascii"):\n'
                '    sys.setdefaultencoding(name)\n'
                '    m._pluginExists(u"\\u6f22")\n'
                '    print sys.getdefaultencoding()\n')
        self.assertEqual(support.runPython(code), (0, 'latin-1\nutf-16\nascii\n', ''))

    def testATextEndsAtItsFirstZero(self):
        self.assertIs(self.module._pluginExists('clay\0 and more'), True)
        self.assertIs(self.module._pluginExists(u'clay\0 and more'), True)
        self.assertEqual(self.module._create('MtlDiffuse', 'cut\0here'), 'cut')

    def testSubclassesOfStringsAreStrings(self):
        class Name(str):
            pass

        class UnicodeName(unicode):
            pass

        self.assertIs(self.module._pluginExists(Name('clay')), True)
        self.assertIs(self.module._pluginExists(UnicodeName(u'\u6f22\u00e9')), True)

    def testALongMessageIsCutTo1023Characters(self):
        for length in (990, 995, 996, 997, 998, 999, 1000, 5000):
            name = 'n' * length
            whole = 'The plugin "%s" doesn\'t exist.' % name
            self.assertRaisesText(Exception, whole[:1023], self.module._getPluginType, name)

    def testTextsAreNoFormats(self):
        for name in ('%s%n%d', '100%', '%1000000d'):
            self.assertRaisesText(Exception, 'The plugin "%s" doesn\'t exist.' % name, self.module._delete, name)
            self.assertIs(self.module._create('%s%n', name), None)
            self.assertWarned('A plugin \\"%s\\" of type \\"%s\\" could not be created.' % (name, '%s%n'))

    def testAProblemReplacesNothingThatIsPending(self):
        self.assertRaises(Exception, self.module._delete, 'nobody')
        self.assertIs(offlinehost.take_pending_error(), None)


class WarningsTest(support.HostTest):

    scene = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'})

    def testAWarningIsPrintedByTheHost(self):
        from kelmo import pluginmodifier
        pluginmodifier._init()
        self.assertIs(pluginmodifier._create('MtlDiffuse', 'clay'), None)
        self.assertWarned('A plugin \\"clay\\" already exists.')
        pluginmodifier._uninit()


if __name__ == '__main__':
    unittest.main()

"""Starting and ending in every order, the interpreter's end with values alive, and a call from a second thread."""
import json
import os
import threading
import unittest

import offlinehost
import support

GOLDEN_SURFACE = os.path.join(support.TESTS, 'script', 'golden', 'surface.txt')

SCENE = support.sceneText({'type': 'MtlDiffuse', 'name': 'clay'}, {'type': 'SettingsOutput', 'name': 'output'},
                          {'type': 'GeomNode', 'name': 'node'})

# What each script of its own begins with: a scene, the module under the name m, and values of every making.
BEGIN = '''
import atexit, os, sys
import offlinehost
from kelmo import pluginmodifier as m
offlinehost.open_text(%r)
m._init()
def setValues():
    m._setParam('clay', 'color', (5, (0.25, 0.5, 1.0)))
    m._setParam('clay', 'color', (5, (1.0, 0.5, 1.0)))
    m._setParam('node', 'tag', (9, 'some text'))
    m._setParam('node', 'material', (10, 'clay'))
    m._setParam('output', 'frames', (12, [(12, [(0, 1), (0, 2)])]))
    m._duplicate('clay', 'copy')
    m._addSceneContent([], '')
setValues()
''' % SCENE

# What the host says of a session that was never ended: the record of the module's state is all that is left.
NEVER_ENDED = {'blocks_leaked': 1, 'bytes_leaked': 104, 'accesses_open': 1}

# (label, how the script goes on, exit code, what it prints, the last line on stderr: a text or the host's report)
ENDINGS = [
    ('ended', 'm._uninit()', 0, '', ''),
    ('ended twice', 'm._uninit(); print m._uninit()', 0, 'None\n', ''),
    ('never ended', '', 0, '', NEVER_ENDED),
    ('started twice', 'print m._init(); m._setParam("node", "tag", (9, "more")); m._uninit()', 0, 'None\n', ''),
    ('started again and never ended', 'm._uninit(); m._init(); m._init()', 0, '',
     dict(NEVER_ENDED, accesses_open=2)),
    ('a script that fails', 'm._delete("nobody")', 1, '', NEVER_ENDED),
    ('a script that leaves', 'sys.exit(3)', 3, '', NEVER_ENDED),
    # On Windows a library's end is told to it even then.
    ('a script that leaves at once', 'os._exit(4)', 4, '', '' if os.name == 'posix' else NEVER_ENDED),
    ('results that are kept', 'kept = [m._getParam("clay", "color"), m._findByName("*"), m._setParam]', 0, '',
     NEVER_ENDED),
    ('results in a cycle', 'kept = m._findByName("*"); kept.append(kept)', 0, '', NEVER_ENDED),
    ('the module is forgotten', 'del m, sys.modules["kelmo.pluginmodifier"], sys.modules["kelmo"]; '
     'from kelmo import pluginmodifier as m; m._setParam("node", "tag", (9, "more")); '
     'print m._getParam("node", "tag")',
     0, "(9, 'more')\n", NEVER_ENDED),
    ('the module is loaded again', 'reload(m); print m._getParam("node", "tag")', 0, "(9, 'some text')\n", NEVER_ENDED),
    ('calls at the interpreter\'s end', 'atexit.register(lambda: sys.stdout.write(m._getPluginType("clay")))', 0,
     'MtlDiffuse', NEVER_ENDED),
    ('ended at the interpreter\'s end', 'atexit.register(m._uninit)', 0, '', ''),
    ('started at the interpreter\'s end', 'm._uninit(); atexit.register(m._init)', 0, '', NEVER_ENDED),
    ('a call while modules are taken down',
     'class Last(object):\n'
     '    def __init__(self): self.call, self.out = m._getPluginType, sys.stdout\n'
     '    def __del__(self): self.out.write(self.call("clay"))\n'
     'last = Last()', 0, 'MtlDiffuse', NEVER_ENDED),
    ('the host has ended first', 'print offlinehost.end()["owned_freed"], m._pluginExists("clay"); m._uninit()', 0,
     '5 False\n', ''),
]


class EndingsTest(unittest.TestCase):

    def testEachEnding(self):
        failures = []
        for label, ending, status, out, err in ENDINGS:
            result = support.runPython(BEGIN + ending + '\n')
            last = ''.join(result[2].splitlines(True)[-1:])
            if isinstance(err, dict):
                said, _, report = last.partition(': {')
                self.assertEqual((label, said), (label, 'kelmo: left alive at the end'))
                report = json.loads('{' + report)
                last = dict((name, report[name]) for name in report
                            if report[name] and name not in ('owned_freed', 'scenes_freed'))
            if (result[0], result[1], last) != (status, out, err):
                failures.append((label, result[0], result[1], last, result[2]))
        self.assertEqual(failures, [])


class OrderTest(support.HostTest):

    scene = SCENE

    def setUp(self):
        support.HostTest.setUp(self)
        from kelmo import pluginmodifier
        self.module = pluginmodifier

    def abandonedAccesses(self):
        return self.abandoned

    abandoned = 0

    def accesses(self):
        counters = offlinehost.counters()
        return counters['script_access_begun'], counters['script_access_ended']

    def blocks(self):
        return offlinehost.counters()['live_blocks']

    def testStartedTwice(self):
        before = self.blocks()
        for starts in (1, 2, 3):
            self.assertIs(self.module._init(), None)
            # One state record, whatever stood there.
            self.assertEqual((self.accesses(), self.blocks()), ((starts, 0), before + 1))
        self.assertIs(self.module._uninit(), None)
        self.assertEqual((self.accesses(), self.blocks()), ((3, 1), before))
        self.abandoned = 2

    def testEndedTwice(self):
        self.module._init()
        for _ in range(3):
            self.assertIs(self.module._uninit(), None)
            self.assertEqual(self.accesses(), (1, 1))

    def testEndedAndNeverStarted(self):
        self.assertIs(self.module._uninit(), None)
        self.assertEqual(self.accesses(), (0, 0))

    def testManyTimes(self):
        before = self.blocks()
        for times in range(1, 501):
            self.module._init()
            self.module._getParam('clay', 'color')
            self.module._uninit()
            self.assertEqual((self.accesses(), self.blocks()), ((times, times), before))

    def testValuesOutliveTheModule(self):
        self.module._init()
        self.module._setParam('node', 'tag', (9, 'some text'))
        self.module._uninit()
        self.assertEqual(offlinehost.counters()['owned_values'], 1)
        self.module._init()
        self.assertEqual(self.module._getParam('node', 'tag'), (9, 'some text'))
        self.module._uninit()
        self.assertEqual(self.endHost()['owned_freed'], 1)


class SecondThreadTest(support.HostTest):

    scene = SCENE

    def setUp(self):
        support.HostTest.setUp(self)
        from kelmo import pluginmodifier
        self.module = pluginmodifier

    def inAThread(self, function, *arguments):
        thread = threading.Thread(target=function, args=arguments)
        thread.start()
        thread.join()

    def assertMisused(self, *names):
        """Each call was counted, and the first one named; nothing else was said by the host itself."""
        misuse = '%s was called from a second thread; only the thread that called first may call' % names[0]
        self.assertEqual([text for text in offlinehost.warnings() if 'exported' not in text], [misuse])
        self.report = offlinehost.end()
        self.assertEqual(self.report['misuse_threads'], len(names))
        self.report.update(misuse_threads=0)

    # What the host and the core are asked for by a call of each function.
    CALLS = [
        ('_init', (), ['getPluginManager', 'getScenes', 'beginScriptAccess']),
        ('_uninit', (), ['endScriptAccess']),
        ('_delete', ('clay',), ['findPlugin', 'deletePlugin']),
        ('_create', ('MtlDiffuse', 'new'), ['enumPlugins', 'createPlugin']),
        ('_setParam', ('clay', 'color', (5, (1.0, 0.5, 0.25))), ['findPlugin']),
        ('_getParam', ('clay', 'color'), ['findPlugin']),
        ('_getPluginParams', ('clay', 1), ['findPlugin']),
        ('_getTypeParams', ('MtlDiffuse',), ['getPluginDescriptor']),
        ('_getPluginType', ('clay',), ['findPlugin']),
        ('_getParamType', ('clay', 'color'), ['findPlugin']),
        ('_isOutputParam', ('clay', 'color'), ['findPlugin']),
        ('_pluginExists', ('clay',), ['findPlugin']),
        ('_paramExists', ('clay', 'color'), ['findPlugin']),
        ('_findByType', ('*',), ['enumPlugins']),
        ('_findByName', ('*',), ['enumPlugins']),
        ('_exportTexture', ('nobody',), ['exportTexture', 'printWarning']),
        ('_exportMaterial', ('clay',), ['exportMaterial']),
        ('_exportCamera', ('nobody',), ['exportCamera', 'printWarning']),
        ('_exportNode', ('clay',), ['exportNode']),
        ('_addSceneContent', ([None], ''), ['KelmoScene', 'readFile']),
        ('_appendSceneContent', ([], ''), ['KelmoScene']),
        ('_duplicate', ('clay', 'copy'), ['findPlugin', 'createPlugin']),
        ('_unique', ('clay',), ['findPlugin']),
    ]

    def caught(self, function, arguments):
        """Calls; a failure of the function's own does not matter here."""
        try:
            function(*arguments)
        except Exception as error:
            self.assertEqual(str(error), 'no file name')

    def testEachFunction(self):
        self.assertEqual([call for call, _, _ in self.CALLS],
                         [line.split('\t')[0] for line in open(GOLDEN_SURFACE)])
        for call, arguments, names in self.CALLS:
            offlinehost.reset()
            offlinehost.open_text(SCENE)
            self.module._init()
            self.inAThread(self.caught, getattr(self.module, call), arguments)
            self.module._uninit()
            self.assertMisused(*names)
        self.report = None
        offlinehost.reset()

    def testAnExtraScene(self):
        """Its own calls are watched too."""
        self.module._init()
        self.module._addSceneContent([support.scenePath('studio_obj.kscene')], '')
        name = json.loads(offlinehost.extra_text(0).splitlines()[1])['name']
        self.inAThread(self.module._delete, name)
        self.module._uninit()
        self.assertMisused('findPlugin', 'findPlugin', 'deletePlugin')

    def testTheFirstCallerMayBeAnyThread(self):
        offlinehost.reset()
        results = []

        def script():
            offlinehost.open_text(SCENE)
            self.module._init()
            results.append(self.module._getPluginType('clay'))
            self.module._uninit()
            results.append(offlinehost.end()['misuse_threads'])
            results.extend(offlinehost.warnings())
            offlinehost.reset()

        self.inAThread(script)
        self.assertEqual(results, ['MtlDiffuse', 0])

"""The examples of the two pages on functions and values are run as they stand; the editor stub fits the module.

An example is a block of the kind `pycon`. The warnings that it prints are the lines of the block of the kind `warnings`
that follows it, and there are none without such a block. Each section starts from the page's scene.
"""
import doctest
import os
import re
import shutil
import tempfile

import offlinehost
import support

DOCS = os.path.join(os.path.dirname(support.TESTS), 'docs')
STUB = os.path.join(os.path.dirname(support.TESTS), 'offline', 'python', 'kelmo', 'pluginmodifier.pyi')
GOLDEN = os.path.join(support.TESTS, 'script', 'golden', 'surface.txt')
PAGES = ('reference.md', 'values.md')
PROPS = support.sceneText({'type': 'GeomNode', 'name': 'vase'})


def read(path):
    with open(path, 'rb') as source:
        return source.read().replace('\r\n', '\n')


def blocks(text):
    """(kind, content) of the fenced blocks."""
    return re.findall(r'(?ms)^```(\w+)\n(.*?)^```$', text)


def sections(page):
    """The page's scene, and (title, text) of each part between two headings."""
    text = read(os.path.join(DOCS, page))
    scenes = [content for kind, content in blocks(text) if kind == 'kscene']
    # A line that begins with # inside of a block is no heading.
    marked = re.sub(r'(?ms)^```.*?^```$', lambda block: block.group().replace('\n#', '\n\\#'), text)
    parts = re.split(r'(?m)^#+ (.*)$', marked)
    return scenes[0], zip(parts[1::2], parts[2::2])


class DocsTest(support.ModuleTest):

    def setUp(self):
        support.ModuleTest.setUp(self)
        self.folder = tempfile.mkdtemp().replace('\\', '/')
        with open(self.folder + '/props.kscene', 'wb') as scene:
            scene.write(PROPS)

    def tearDown(self):
        shutil.rmtree(self.folder)
        support.ModuleTest.tearDown(self)

    def abandonedAccesses(self):
        """The examples of _init begin an access that is begun already."""
        counters = offlinehost.counters()
        return counters['script_access_begun'] - counters['script_access_ended']

    def runSection(self, title, text, scene):
        """How many examples ran."""
        offlinehost.reset()
        offlinehost.open_text(scene)
        self.module._init()
        names = {'pm': self.module, 'folder': self.folder}
        expected = []
        ran = 0
        for kind, content in blocks(text):
            if kind == 'pycon':
                self.assertWarned(*expected)
                expected = []
                test = doctest.DocTest(doctest.DocTestParser().get_examples(content), names, title, None, 0, content)
                output = []
                result = doctest.DocTestRunner(verbose=False).run(test, out=output.append, clear_globs=False)
                self.assertEqual(result.failed, 0, ''.join(output))
                self.assertTrue(result.attempted > 0, content)
                ran += result.attempted
            elif kind == 'warnings':
                expected = content.splitlines()
        self.assertWarned(*expected)
        return ran

    def testExamples(self):
        for page in PAGES:
            scene, parts = sections(page)
            ran = sum(self.runSection(title, text, scene) for title, text in parts)
            self.assertTrue(ran > 30, (page, ran))

    def testEveryFunctionHasASectionWithAnExample(self):
        functions = [line.split('\t')[0] for line in read(GOLDEN).splitlines()]
        _, parts = sections('reference.md')
        described = dict((title.strip('`'), text) for title, text in parts if title.startswith('`_'))
        self.assertEqual(sorted(described), sorted(functions))
        for name, text in described.items():
            self.assertTrue(any(kind == 'pycon' and 'pm.%s(' % name in content for kind, content in blocks(text)), name)
            signature = text.strip().splitlines()[0]
            self.assertTrue(signature.startswith('`%s(' % name) and ' -> ' in signature, signature)

    def testLinksLeadSomewhere(self):
        for page in PAGES:
            text = read(os.path.join(DOCS, page))
            for target in re.findall(r'\]\(([^)]+)\)', text):
                name, _, anchor = target.partition('#')
                other = read(os.path.join(DOCS, name or page))
                headings = [re.sub(r'[^\w -]', '', title).lower().replace(' ', '-')
                            for title in re.findall(r'(?m)^#+ (.*)$', other)]
                self.assertTrue(not anchor or anchor in headings, (page, target))


class StubTest(support.ModuleTest):

    DEFINITION = re.compile(r'(?m)^def (\w+)\((.*)\) -> (.+):\n    """(.*)"""$')

    def definitions(self):
        return self.DEFINITION.findall(read(STUB))

    def testEveryFunctionAndItsDocstring(self):
        definitions = self.definitions()
        self.assertEqual(len(definitions), read(STUB).count('def '))
        self.assertEqual(sorted((name, text) for name, _, _, text in definitions),
                         sorted((name, getattr(self.module, name).__doc__) for name in dir(self.module)
                                if callable(getattr(self.module, name))))

    def testArguments(self):
        """Each function takes as many arguments as the stub says, by position only."""
        for name, arguments, _, _ in self.definitions():
            names = re.findall(r'(\w+): ', arguments)
            self.assertTrue(all(argument.startswith('__') for argument in names), name)
            if not names or name in ('_pluginExists', '_paramExists'):
                continue
            try:
                getattr(self.module, name)()
            except TypeError as error:
                self.assertEqual(str(error), '%s() takes at least %d argument%s (0 given)'
                                 % (name, len(names), '' if len(names) == 1 else 's'))
            else:
                self.fail(name)

    def testResults(self):
        """What the functions return is of the type that the stub names."""
        offlinehost.reset()
        offlinehost.open_text(support.sceneText({'type': 'LightPoint', 'name': 'key', 'params': {'intensity': 2}},
                                                {'type': 'MtlDiffuse', 'name': 'clay'},
                                                {'type': 'TexChecker', 'name': 'tiles'},
                                                {'type': 'CameraPerspective', 'name': 'cam'}))
        calls = {'_init': (), '_delete': ('clay',), '_create': ('LightPoint', 'new'),
                 '_setParam': ('key', 'intensity', (1, 2.5)), '_getParam': ('key', 'intensity'),
                 '_getPluginParams': ('key', 1), '_getTypeParams': ('LightPoint',), '_getPluginType': ('key',),
                 '_getParamType': ('key', 'intensity'), '_isOutputParam': ('key', 'intensity'), '_pluginExists': ('key',),
                 '_paramExists': ('key', 'intensity'), '_findByType': ('*',), '_findByName': ('*',),
                 '_exportTexture': ('tiles',), '_exportMaterial': ('clay',), '_exportCamera': ('cam',),
                 '_exportNode': ('key',), '_addSceneContent': ([], ''), '_appendSceneContent': ([], ''),
                 '_duplicate': ('key', 'copy'), '_unique': ('key',), '_uninit': ()}
        kinds = {'None': type(None), 'str': str, 'bool': bool, 'Optional[str]': str, 'List[str]': list,
                 'Optional[List[str]]': list, 'Tuple[int, bool]': tuple, 'Optional[Tuple[int, Any]]': tuple}
        definitions = self.definitions()
        self.assertEqual(sorted(calls), sorted(name for name, _, _, _ in definitions))
        # Deleting comes last of what needs the scene, and ending after it.
        late = ('_delete', '_uninit')
        for name, _, result, _ in sorted(definitions, key=lambda row: late.index(row[0]) if row[0] in late else -1):
            self.assertIs(type(getattr(self.module, name)(*calls[name])), kinds[result], name)

    def abandonedAccesses(self):
        counters = offlinehost.counters()
        return counters['script_access_begun'] - counters['script_access_ended']

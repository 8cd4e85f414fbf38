"""What a parameter holds after a tagged value was set, as a model in plain Python.

modelSet tells what _setParam does with a value, in the terms of the reference: which error, or what _getParam reads
afterwards (as its repr, in which an element that is none shows as <NULL>) and whether the user is warned.
"""
from value_targets import INT_MIN, asFloat32, makeList, makeScalar


class Refused(Exception):
    """The value is invalid for the parameter."""


class Missing(Exception):
    """A plugin or output does not exist; the text is the error's."""


class Single(object):
    """A value as the module reads it: its code, and what the getter of that code gives."""

    def __init__(self, code, value):
        self.code = code
        self.value = value


class Reader(object):
    """Reads Python objects as the module does; `warned`: something could not be converted."""

    def __init__(self, plugins, outputs):
        self.plugins = plugins  # name -> texture codes that it feeds
        self.outputs = outputs  # (plugin, parameter) -> declared code
        self.warned = False

    def failed(self, value):
        self.warned = True
        return value

    def integer(self, thing):
        if isinstance(thing, float):
            try:
                thing = int(thing)
            except (ValueError, OverflowError):
                return self.failed(-1)
        if not isinstance(thing, (int, long)) or not INT_MIN <= thing < 2 ** 31:
            return self.failed(-1)
        return int(thing)

    def number(self, thing):
        if not isinstance(thing, (int, long, float)):
            return self.failed(-1.0)
        try:
            return float(thing)
        except OverflowError:
            return self.failed(-1.0)

    def text(self, thing):
        if isinstance(thing, unicode):
            try:
                thing = thing.encode('ascii')
            except UnicodeError:
                return self.failed(None)
        if not isinstance(thing, str):
            return self.failed(None)
        return thing.split('\0')[0]

    def item(self, thing, index, read):
        if isinstance(thing, tuple) and index < len(thing):
            return read(thing[index])
        self.warned = True
        return -1.0 if read in (self.number, self.single) else None if read == self.text else read(None)

    def single(self, thing):
        return asFloat32(self.number(thing))

    def vector(self, thing):
        return tuple(self.item(thing, i, self.single) for i in range(3))

    def matrix(self, thing):
        return tuple(self.item(thing, i, self.vector) for i in range(3))

    def tagged(self, thing):
        """(code, value); (-1, None) for what is no pair."""
        if not isinstance(thing, tuple) or len(thing) != 2:
            self.warned = True
            return -1, None
        return self.integer(thing[0]), thing[1]

    def reference(self, code, value):
        """(plugin, output) of a value of code 10 or 1000."""
        name = self.text(value) if code == 10 else self.item(value, 0, self.text)
        name = name or ''
        if name not in self.plugins:
            raise Missing('The plugin "%s" doesn\'t exist.' % name)
        output = self.item(value, 1, self.text) if code == 1000 else None
        if output is not None and (name, output) not in self.outputs:
            raise Missing('A parameter with name "%s" doesn\'t exist for plugin "%s".' % (output, name))
        return name, output

    def read(self, code, value):
        """The Single that copying this value hands on, or None when nothing is copied."""
        if code == 0:
            return Single(0, self.integer(value))
        if code == 1:
            return Single(1, self.single(value))
        if code == 2:
            return Single(2, self.number(value))
        if code == 3:
            return Single(3, self.integer(value) != 0)
        if code in (4, 5):
            return Single(code, self.vector(value))
        if code == 6:
            return Single(6, self.item(value, 0, self.vector) + (self.item(value, 1, self.single),))
        if code == 7:
            return Single(7, self.matrix(value))
        if code == 8:
            return Single(8, (self.item(value, 0, self.matrix), self.item(value, 1, self.vector)))
        if code == 9:
            return Single(9, self.text(value))
        if code in (10, 1000):
            return Single(10, self.reference(code, value))
        if 1001 <= code <= 1005:
            return Single(10, (None, None))
        return None


OUTPUT_OF = {11: 1000, 13: 1001, 14: 1002, 15: 1003, 16: 1004, 17: 1005}
PLAIN = dict([(source, (0, 14, 3, 1, 13, 2)) for source in (0, 1, 2, 3)] +
             [(4, (4, 15)), (5, (5, 11, 6)), (6, (6, 11, 5)), (7, (7, 16, 8, 17)), (8, (7, 16, 8, 17)), (9, (9,))])


def checkSingle(reader, code, value, declared):
    """Raises Refused unless a value of this code can be the declared kind of single value."""
    if code in PLAIN:
        if declared not in PLAIN[code]:
            raise Refused()
    elif code in (10, 1000) and declared == 10:
        pass
    elif code in (10, 1000) and declared in OUTPUT_OF:
        plugin, output = reader.reference(code, value)
        if code == 10 and declared not in reader.plugins[plugin]:
            raise Refused()
        if code == 1000 and (output is None or reader.outputs[plugin, output] != OUTPUT_OF[declared]):
            raise Refused()
    else:
        raise Refused()


def fill(reader, target, values):
    target.setCount(len(values))
    for index, element in enumerate(values):
        if isinstance(element, tuple) and len(element) == 2 and isinstance(element[1], list):
            # The code of a list within is not read.
            target.open(index)
            fill(reader, target, element[1])
            target.close()
        else:
            single = reader.read(*reader.tagged(element))
            if single is not None:
                target.write(single, index)


def modelSet(plugins, outputs, declared, isList, special, value):
    """('invalid', None, None), ('missing', message, None) or ('set', repr, warned).

    `special`: the kind of a list of lists that has a class of its own, or None.
    """
    reader = Reader(plugins, outputs)
    try:
        code, content = reader.tagged(value)
        if isList or declared == 12:
            if not isinstance(content, list):
                raise Refused()
            target = makeList(declared, special)
            if target is None:
                raise Refused()
            fill(reader, target, content)
        else:
            if isinstance(content, list):
                code, content = reader.tagged(content[0]) if content else (10000, None)
            checkSingle(reader, code, content, declared)
            target = makeScalar(declared)
            single = reader.read(code, content)
            target.write(single, 0)
        return 'set', target.shown(), reader.warned
    except Refused:
        return 'invalid', None, None
    except Missing as error:
        return 'missing', str(error), None



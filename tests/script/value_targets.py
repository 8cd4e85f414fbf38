"""The objects that hold set values, modelled: what each write does to them and how they read back."""
import array
import math

# An int on every system: where a C long has 32 bits, the power is a long.
INT_MIN = int(-2 ** 31)


def truncated(number):
    if math.isnan(number) or not -2147483649.0 < number < 2147483648.0:
        return INT_MIN
    return int(number)


def asFloat32(number):
    return array.array('f', [number])[0]


def shownReference(reference):
    plugin, output = reference
    if plugin is None:
        return None
    return plugin if output is None else (plugin, output)


# declared code -> how a written value is stored. A pair that is missing stores nothing.
def stored(declared, single):
    code, value = single.code, single.value
    if declared in (0, 14, 3) and code in (0, 1, 2, 3):
        return truncated(value) if code in (1, 2) else int(value)
    if declared in (1, 13) and code in (0, 1, 2, 3):
        return asFloat32(float(value))
    if declared == 2 and code in (0, 1, 2, 3):
        return float(value)
    if declared in (4, 15) and code == 4 or declared == 9 and code == 9:
        return value
    if declared == 5 and code in (5, 6):
        return value[:3]
    if declared == 6 and code in (5, 6):
        return value if code == 6 else value + (1.0,)
    if declared in (7, 16) and code in (7, 8):
        return value if code == 7 else value[0]
    if declared in (8, 17) and code in (7, 8):
        return value if code == 8 else (value, (0.0, 0.0, 0.0))
    if declared == 10 and code == 10:
        return value
    return NotImplemented


ZEROS = {0: 0, 1: 0.0, 2: 0.0, 4: (0.0,) * 3, 5: (0.0,) * 3, 6: (0.0,) * 4, 7: ((0.0,) * 3,) * 3,
         8: (((0.0,) * 3,) * 3, (0.0,) * 3), 9: None, 10: (None, None)}


def element(code, value):
    """An untagged value as it is read."""
    if code == 9:
        return value or ''
    return shownReference(value) if code == 10 else value


class Scalar(object):

    def __init__(self, declared):
        self.declared = declared

    def write(self, single, _):
        declared = self.declared
        if declared == 11:
            # The class follows the source: a colour, a colour with alpha, or a reference.
            self.code, self.value = single.code, single.value
            return
        if single.code == 10:
            self.code, self.value = 10, single.value
            return
        self.value = stored(declared, single)
        self.code = {14: 0, 3: 0, 13: 1, 15: 4, 16: 7, 17: 8}.get(declared, declared)

    def shown(self):
        if self.code == 10:
            reference = shownReference(self.value)
            return repr((1000 if isinstance(reference, tuple) else 10, reference))
        return repr((1 if self.code == 2 else self.code, element(self.code, self.value)))


class Storage(object):
    """An array that keeps what it held beyond its count, while it does not grow."""

    def __init__(self, zero, step=100):
        self.zero, self.step, self.count, self.cells = zero, step, 0, []

    def setCount(self, count):
        self.grow(count, count)

    def append(self, value):
        count = self.count + 1
        self.grow(count, self.step - count % self.step + count)
        self.cells[count - 1] = value

    def grow(self, count, capacity):
        if count > len(self.cells):
            self.cells = self.cells[:self.count] + [self.zero] * (capacity - self.count)
        self.count = count

    def used(self):
        return self.cells[:self.count]


class FlatList(object):

    def __init__(self, code):
        self.code = code
        self.storage = Storage(ZEROS[code])

    def setCount(self, count):
        self.storage.setCount(count)

    def open(self, index):
        pass

    def close(self):
        pass

    def write(self, single, index):
        value = stored(self.code, single)
        if value is NotImplemented:
            return
        if index < self.storage.count:
            self.storage.cells[index] = value
        else:
            self.storage.append(value)

    def shown(self):
        return repr((self.code, [element(self.code, value) for value in self.storage.used()]))


class ListOfLists(object):

    def __init__(self, code):
        self.code, self.lists, self.depth, self.current = code, [], 0, 0

    def setCount(self, count):
        if self.depth == 0:
            self.lists = [Storage(ZEROS[self.code]) for _ in range(count)]
        elif self.depth == 1:
            self.lists[self.current].setCount(count)

    def open(self, index):
        if self.depth == 0:
            self.current = index
        self.depth += 1

    def close(self):
        self.depth -= 1

    def write(self, single, index):
        value = stored(self.code, single)
        if self.depth == 1 and value is not NotImplemented and index < self.lists[self.current].count:
            # Lists of plugins keep no outputs.
            self.lists[self.current].cells[index] = (value[0], None) if self.code == 10 else value

    def tagged(self, value):
        if self.code == 10:
            return None if value[0] is None else (10, value[0])
        return self.code, value

    def shown(self):
        return repr((12, [(12, [self.tagged(value) for value in inner.used()]) for inner in self.lists]))


class MapChannels(object):

    def __init__(self):
        self.channels, self.depth, self.channel, self.part = [], 0, 0, 0

    def array(self):
        """The opened vertices or faces, or None."""
        return self.channels[self.channel].get(self.part) if self.depth == 2 else None

    def setCount(self, count):
        if self.depth == 0:
            self.channels = [{'number': 0, 1: Storage(ZEROS[4]), 2: Storage(0)} for _ in range(count)]
        elif self.array() is not None:
            self.array().setCount(count)

    def open(self, index):
        self.depth += 1
        if self.depth == 1:
            self.channel = index
        elif self.depth == 2:
            self.part = index

    def close(self):
        self.depth -= 1

    def write(self, single, index):
        if self.depth == 1 and single.code == 0:
            self.channels[self.channel]['number'] = single.value
        array = self.array()
        if array is None or single.code != {1: 4, 2: 0}[self.part]:
            return
        if index < array.count:
            array.cells[index] = single.value
        else:
            array.append(single.value)

    def shown(self):
        return repr((12, [(12, [(0, c['number']), (4, c[1].used()), (0, c[2].used())]) for c in self.channels]))


class Generic(object):
    """Each element keeps its own type; None where nothing was written."""

    def __init__(self):
        self.path = [None]

    def setCount(self, count):
        self.path[-1] = [None] * count

    def open(self, index):
        self.path.append(index)
        self.path.append(None)

    def close(self):
        opened = self.path.pop()
        self.path[-2][self.path.pop()] = opened

    def write(self, single, index):
        self.path[-1][index] = single

    def shown(self):
        return shownGeneric(self.path[0])


def shownGeneric(value):
    if value is None:
        return '<NULL>'
    if isinstance(value, list):
        return '(12, [%s])' % ', '.join(shownGeneric(inner) for inner in value)
    code = {2: 1, 3: 0}.get(value.code, value.code)
    if code == 10:
        reference = shownReference(value.value)
        return repr(None if reference is None else (1000 if isinstance(reference, tuple) else 10, reference))
    return repr((code, int(value.value) if value.code == 3 else element(code, value.value)))


def makeScalar(declared):
    return Scalar(declared)


def makeList(declared, special):
    if declared == 12:
        if special == 'map channels':
            return MapChannels()
        return ListOfLists(special) if special is not None else Generic()
    if declared in (11, 13, 14, 15, 16, 17):
        declared = 10
    return FlatList(declared) if declared in ZEROS else None

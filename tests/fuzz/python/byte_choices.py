"""Choices that are read from bytes, in the way of random.Random. Past the end of the bytes they are all the first."""


class ByteChoices(object):

    def __init__(self, data):
        self.data = data
        self.at = 0

    def more(self):
        return self.at < len(self.data)

    def randrange(self, limit):
        number = 0
        bound = 1
        while bound < limit:
            number = number << 8 | (ord(self.data[self.at]) if self.more() else 0)
            self.at += 1
            bound <<= 8
        return number % limit

    def choice(self, values):
        return values[self.randrange(len(values))]

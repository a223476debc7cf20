# SPDX-License-Identifier: Apache-2.0
"""PropertyListAgreementTest.py CONVERTER

Property lists go from Python to the program CONVERTER and back, in both forms, and come back as they were: random lists,
the same ones on every run."""
import datetime
import os
import plistlib
import random
import struct
import subprocess
import sys
import tempfile
import unittest

CONVERTER = sys.argv.pop(1)
LISTS = 150
FORMATS = {'xml': plistlib.FMT_XML, 'binary': plistlib.FMT_BINARY}
DEEPEST = 8


class Lists:
    """Makes lists; for the binary form alone, with identifiers and characters that XML has no way to write."""

    def __init__(self, seed, for_binary):
        self.random, self.for_binary = random.Random(seed), for_binary

    def list(self):
        return self.container(0)

    def object(self, depth):
        makers = [self.text, self.text, self.integer, self.real, self.truth, self.date, self.data]
        makers += [self.identifier] * self.for_binary
        if depth < DEEPEST:
            makers += [lambda: self.container(depth + 1)] * 3
        return self.random.choice(makers)()

    def container(self, depth):
        count = self.random.choice((0, 1, 2, 3, 5, 14, 15, 16, 30)) if depth < 3 else self.random.randrange(4)
        if self.random.random() < 0.5:
            return [self.object(depth) for _ in range(count)]
        return {self.text(): self.object(depth) for _ in range(count)}

    def text(self):
        ranges = [(0x20, 0x7E), (0x20, 0x7E), (0xA0, 0xFF), (0x100, 0xD7FF), (0xE000, 0xFFFD), (0x10000, 0x10FFFF)]
        if self.for_binary:
            ranges.append((0, 0x1F))
        low, high = self.random.choice(ranges)
        length = self.random.choice((0, 1, 2, 7, 14, 15, 16, 40, 300))
        return ''.join(chr(self.random.randint(low, high)) for _ in range(length)) + self.random.choice(('', '&<]]>\n\t '))

    def integer(self):
        bits = self.random.choice((1, 7, 8, 15, 16, 31, 32, 33, 63, 64))
        edge = self.random.choice((0, -1, 1, -self.random.getrandbits(8)))
        number = (1 << bits) + edge if self.random.random() < 0.5 else -(1 << bits) + edge
        return max(-(1 << 63), min(number, (1 << 64) - 1))

    def real(self):
        while True:
            # Python takes -0.0 for 0.0 where both are in one list.
            number = self.random.choice((0.0, 0.1, 1e22, 5e-324, self.random.random(),
                                         struct.unpack('<d', self.random.randbytes(8))[0]))
            if number - number == 0:  # neither infinite nor not a number
                return number

    def truth(self):
        return self.random.random() < 0.5

    def date(self):
        # Python keeps microseconds, and counts from a far day only whole ones.
        return datetime.datetime(1, 1, 1) + datetime.timedelta(seconds=self.random.randrange(9998 * 365 * 86400))

    def data(self):
        return self.random.randbytes(self.random.choice((0, 1, 2, 3, 14, 15, 16, 100, 300)))

    def identifier(self):
        return plistlib.UID(self.random.getrandbits(self.random.choice((1, 8, 16, 32))))


def told_apart(value):
    """A form in which True is not 1, nor 1 the same as 1.0, nor 0.0 as -0.0."""
    if isinstance(value, dict):
        return {key: told_apart(each) for key, each in value.items()}
    if isinstance(value, list):
        return [told_apart(each) for each in value]
    return type(value).__name__, repr(value)


class PropertyListAgreement(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = holder.name

    def write(self, name, value, form):
        with open(os.path.join(self.folder, '%s-%s.in' % (name, form)), 'wb') as file:
            plistlib.dump(value, file, fmt=FORMATS[form], sort_keys=False)

    def read(self, name, source, form):
        with open(os.path.join(self.folder, '%s-%s.%s' % (name, source, form)), 'rb') as file:
            return plistlib.load(file, fmt=FORMATS[form])

    def convert(self):
        result = subprocess.run([CONVERTER, self.folder], capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stderr), (0, ''))

    def expect_agreement(self, lists, forms):
        for number, value in enumerate(lists):
            for form in forms:
                self.write(number, value, form)
        self.convert()
        for number, value in enumerate(lists):
            for source in forms:
                for form in forms:
                    with self.subTest(number=number, source=source, form=form):
                        self.assertEqual(told_apart(self.read(number, source, form)), told_apart(value))

    def test_both_forms_hold_the_same(self):
        self.expect_agreement([Lists(seed, for_binary=False).list() for seed in range(LISTS)], ['xml', 'binary'])

    def test_the_binary_form_holds_every_character(self):
        self.expect_agreement([Lists(seed, for_binary=True).list() for seed in range(LISTS)], ['binary'])

    def test_a_zero_keeps_its_sign_in_the_binary_form(self):
        self.expect_agreement([[-0.0], [0.0]], ['binary'])

    def test_the_edges_of_integers(self):
        edges = [sign * (1 << bits) + step for bits in range(64) for sign in (1, -1) for step in (-1, 0, 1)]
        edges = [number for number in edges if -(1 << 63) <= number < 1 << 64] + [(1 << 64) - 1]
        self.expect_agreement([edges], ['xml', 'binary'])


if __name__ == '__main__':
    unittest.main()

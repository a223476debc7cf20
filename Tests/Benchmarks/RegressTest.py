# SPDX-License-Identifier: Apache-2.0
"""Benchmarks/regress, with two programs that are told what to answer."""
import os
import plistlib
import re
import subprocess
import sys
import tempfile
import unittest

REGRESS = os.path.join(os.path.dirname(os.path.realpath(__file__)), '..', '..', 'Benchmarks', 'regress')


def record(text, **attributes):
    return {'string': text, 'title': '', 'otherAttributes': attributes}


class Regress(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = holder.name
        self.corpus = os.path.join(self.folder, 'corpus')

    def tool(self, name, answers, kind='rtf'):
        """A program that answers each document with a record, or by running a line of shell."""
        os.makedirs(os.path.join(self.corpus, kind), exist_ok=True)
        lines = []
        for document, answer in answers.items():
            open(os.path.join(self.corpus, kind, document), 'wb').close()
            if not isinstance(answer, str):
                stored = os.path.join(self.folder, '%s-%s' % (name, document))
                with open(stored, 'wb') as file:
                    plistlib.dump(answer, file, fmt=plistlib.FMT_BINARY)
                answer = "cat '%s'" % stored
            lines.append('*/%s) %s ;;' % (document, answer))
        path = os.path.join(self.folder, name)
        with open(path, 'w') as file:
            file.write('#!/bin/sh\ncase "$2" in\n%s\nesac\n' % '\n'.join(lines))
        os.chmod(path, 0o755)
        return path

    def regress(self, old, new, *options):
        result = subprocess.run([sys.executable, REGRESS, self.tool('old', old), self.tool('new', new), self.corpus,
                                 '--tolerance', '1000000', *options], capture_output=True, text=True, check=False)
        self.assertEqual(result.stderr, '')
        # Costs depend on what else the machine does; they have a test of their own.
        changes = re.sub(r'(?m)^  (cpu|memory).*\n', '', result.stdout)
        return result.returncode, changes

    def test_the_same_answers_are_no_change(self):
        answers = {'a': record('To be or not to be', Author='x'), 'b': {'errorString': 'no', 'errorData': b'1'}}
        status, output = self.regress(answers, answers)
        self.assertEqual((status, output), (0, 'rtf: 2 documents; means:\n2 documents: nothing got worse\n'))

    def test_says_which_words_are_lost(self):
        status, output = self.regress({'a': record('To be or not'), 'b': record('x')},
                                      {'a': record('to be oar'), 'b': record('x')})
        self.assertEqual(status, 1)
        self.assertIn('  lost text: 1  WORSE\n    %s/rtf/a\n        -2 +1 of 4 words: -or -not +oar\n' % self.corpus,
                      output)
        self.assertTrue(output.endswith('2 documents: something got worse\n'), output)

    def test_more_and_moved_text_is_no_loss(self):
        status, output = self.regress({'a': record('one two'), 'b': record('one two')},
                                      {'a': record('one two three'), 'b': record('two one')})
        self.assertEqual(status, 0)
        self.assertIn('gained text: 1\n', output)
        self.assertIn('text in another order: 1\n', output)

    def test_tells_lost_attributes_from_changed_ones(self):
        status, output = self.regress({'a': record('', Author='x', Title='t')}, {'a': record('', Author='y', Title='t')})
        self.assertEqual(status, 0)
        self.assertIn("changed attributes: 1\n    %s/rtf/a\n        Author 'x' -> 'y'\n" % self.corpus, output)
        status, output = self.regress({'a': record('', Author='x')}, {'a': record('', Editor='x')})
        self.assertEqual(status, 1)
        self.assertIn("lost attributes: 1  WORSE\n    %s/rtf/a\n        -Author 'x'; +Editor 'x'\n" % self.corpus, output)

    def test_names_each_worse_end(self):
        good = {name: record('x') for name in ('crash', 'error', 'late', 'none', 'status')}
        bad = {'crash': 'kill -SEGV $$', 'error': {'errorString': 'no'}, 'late': 'exec sleep 30', 'none': 'true',
               'status': 'exit 3'}
        status, output = self.regress(good, bad, '--seconds', '1')
        self.assertEqual(status, 1)
        for title, count in (('crash', 1), ('error', 1), ('time-out', 1), ('no record', 2)):
            self.assertIn('  new: %s: %d  WORSE\n' % (title, count), output)
        status, output = self.regress(bad, good, '--seconds', '1')
        self.assertEqual(status, 0)
        self.assertIn('  gone: crash: 1\n', output)
        self.assertNotIn('gained text', output)

    def test_says_when_it_takes_longer(self):
        answers = {'a': record('x')}
        old, new = self.tool('old', answers), self.tool('new', answers)
        with open(new, 'r+') as file:
            script = file.read().replace('case', 'i=0; while [ $i -lt 50000 ]; do i=$((i + 1)); done\ncase')
            file.seek(0)
            file.write(script)
        result = subprocess.run([sys.executable, REGRESS, old, new, self.corpus], capture_output=True, text=True,
                                check=False)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stdout, r'(?m)^  cpu .*  WORSE$')

    def test_a_corpus_without_documents_is_an_error(self):
        tool = self.tool('old', {})
        result = subprocess.run([sys.executable, REGRESS, tool, tool, self.folder], capture_output=True, text=True,
                                check=False)
        self.assertEqual((result.returncode, result.stdout), (1, ''))
        self.assertIn('There are no documents', result.stderr)


if __name__ == '__main__':
    unittest.main()

# SPDX-License-Identifier: Apache-2.0
"""Fuzz/run, with programs of a few lines in place of the targets, and with a true one where the fuzz preset is built."""
import importlib.machinery
import importlib.util
import os
import subprocess
import sys
import tempfile
import unittest

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.realpath(__file__)), '..', '..'))
RUN = os.path.join(TOP, 'Fuzz', 'run')
TRUE_TARGET = os.path.join(TOP, 'build', 'fuzz', 'bin', 'FuzzPercentEscapes')
CRASH = '''for each; do case $each in -artifact_prefix=*) touch "${each#*=}crash-1" ;; esac; done
echo 'SUMMARY: AddressSanitizer: heap-buffer-overflow'
exit 77'''
FINE = 'echo "#1 INITED cov: 12 ft: 34"; echo "stat::number_of_executed_units: 56"'


class Run(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.build = os.path.realpath(holder.name)
        for folder in ('bin', 'Fuzz'):
            os.mkdir(os.path.join(self.build, folder))

    def add(self, name, script):
        with open(os.path.join(self.build, 'Fuzz', 'targets'), 'a') as file:
            file.write('%s Platform/AppKit/RTF\n' % name)
        program = os.path.join(self.build, 'bin', 'Fuzz' + name)
        with open(program, 'w') as file:
            file.write('#!/bin/sh\necho "$@" >"$0.arguments"\n%s\n' % script)
        os.chmod(program, 0o755)

    def arguments_of(self, name):
        with open(os.path.join(self.build, 'bin', 'Fuzz%s.arguments' % name)) as file:
            return file.read().split()

    def run_targets(self, *arguments):
        return subprocess.run([sys.executable, '-B', RUN, '--built', self.build, *arguments], capture_output=True,
                              text=True, check=False)

    def test_wrong_arguments_are_refused(self):
        self.add('RTF', FINE)
        for arguments in ([], ['soon'], ['0'], ['-1'], ['nan'], ['1', '--workers', '0'], ['1', 'Nothing'], ['1', '--odd']):
            result = self.run_targets(*arguments)
            self.assertEqual((result.returncode, result.stdout), (64, ''), arguments)
            self.assertNotIn('Traceback', result.stderr, arguments)
        self.assertIn('No such target: Nothing', self.run_targets('1', 'Nothing', 'RTF').stderr)

    def test_all_targets_share_the_time(self):
        for name in ('RTF', 'PDFLines', 'HTML'):
            self.add(name, FINE)
        result = self.run_targets('0.5', '--workers', '2')
        self.assertEqual((result.returncode, result.stderr), (0, ''))
        for name in ('RTF', 'PDFLines', 'HTML'):
            self.assertIn('-max_total_time=20', self.arguments_of(name))
            self.assertRegex(result.stdout, r'(?m)^%s +20 s +56 runs +12 edges ok$' % name)

    def test_hands_over_seeds_dictionary_and_what_was_learnt(self):
        self.add('RTF', FINE)
        self.add('PDFLines', FINE)
        self.assertEqual(self.run_targets('1', 'RTF').returncode, 0)
        arguments = self.arguments_of('RTF')
        self.assertEqual(arguments[-2:], [self.build + '/corpus/RTF', TOP + '/Fuzz/Seeds/RTF'])
        self.assertIn('-dict=%s/Fuzz/Dictionaries/RTF.dict' % TOP, arguments)
        self.assertFalse(os.path.exists(self.build + '/bin/FuzzPDFLines.arguments'), 'was not named')

    def test_names_what_was_found(self):
        self.add('HTML', FINE)
        self.add('RTF', CRASH)
        result = self.run_targets('1')
        self.assertEqual(result.returncode, 1)
        self.assertIn('RTF: AddressSanitizer: heap-buffer-overflow\n    %s/bin/FuzzRTF %s/findings/RTF/crash-1\n' %
                      (self.build, self.build), result.stdout)
        self.assertIn('2 targets in 0.0 min, 1 failed', result.stdout)

    def test_chooses_inputs_by_what_they_reach_first(self):
        loader = importlib.machinery.SourceFileLoader('run', RUN)
        sys.path.insert(0, os.path.dirname(RUN))
        module = importlib.util.module_from_spec(importlib.util.spec_from_loader('run', loader))
        loader.exec_module(module)
        sizes = {'seed': 10, 'a': 10, 'b': 10, 'large': module.LARGEST_SEED + 1, 'same': 10}
        files = [os.path.join(self.build, name) for name in sizes]
        for file, size in zip(files, sizes.values()):
            with open(file, 'wb') as stream:
                stream.truncate(size)
        control = [str(len(files)), '1', *files, 'STARTED 0 10', 'FT 0 1 2', 'COV 0 1 2', 'STARTED 1 10', 'FT 1 3',
                   'COV 1 3', 'STARTED 2 10', 'COV 2 4 5', 'COV 3 6 7 8', 'COV 4']
        self.assertEqual(module.most_new_edges(control), [(files[2], 2), (files[1], 1)])

    @unittest.skipUnless(os.path.exists(TRUE_TARGET), 'the fuzz preset is not built')
    def test_runs_a_true_target(self):
        self.add('PercentEscapes', '')
        program = os.path.join(self.build, 'bin', 'FuzzPercentEscapes')
        os.remove(program)
        os.symlink(TRUE_TARGET, program)
        result = self.run_targets('0.03')
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertRegex(result.stdout, r'(?m)^PercentEscapes +2 s +\d+ runs +\d+ edges ok$')
        self.assertGreater(len(os.listdir(self.build + '/corpus/PercentEscapes')), 0)


if __name__ == '__main__':
    unittest.main()

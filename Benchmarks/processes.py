# SPDX-License-Identifier: Apache-2.0
"""Runs programs as processes of their own and measures them. What the scripts share."""
import collections
import functools
import json
import os
import subprocess
import sys

HERE = os.path.dirname(os.path.realpath(__file__))
TOOL = os.path.join(HERE, '..', 'build', 'release', 'bin', 'texttool')
SECONDS = 60  # no program is given more for one document

# The kinds of documents, which are the folders of a corpus, and how the tool is asked for one.
REQUESTS = {'doc': 'WordPath', 'docx': 'WordXPath', 'html': 'HTMLPath', 'image': 'ImagePath', 'media': 'QTPath',
            'odt': 'ODTPath', 'pdf': 'PDFPath', 'rtf': 'RTFPath', 'rtfd': 'RTFDPath'}

# Times in seconds, peak memory in MiB, the exit status or minus the signal.
Measurement = collections.namedtuple('Measurement', 'wall cpu memory status')


class Measurer:
    """Compiles a small program of this folder into `folder` and runs others through it."""

    def __init__(self, folder):
        self.folder = folder
        self.program = self._compile('measure', '-static')
        self.result = os.path.join(folder, 'result')
        self.environment = {k: v for k, v in os.environ.items() if k != 'OutPath'}

    @functools.cached_property
    def bare(self):
        """Another small program, to compare the start-up with."""
        return self._compile('bare')

    def _compile(self, name, *options):
        program = os.path.join(self.folder, name)
        source = os.path.join(HERE, name + '.cpp')
        subprocess.run(['c++', '-std=c++20', '-O2', *options, '-o', program, source], check=True)
        return program

    def run(self, command, output=subprocess.DEVNULL, seconds=SECONDS):
        # Some programs write pictures into the folder that they are started in.
        subprocess.run([self.program, self.result, str(seconds), *command], stdin=subprocess.DEVNULL, stdout=output,
                       stderr=subprocess.DEVNULL, env=self.environment, cwd=self.folder, check=True)
        with open(self.result) as file:
            wall, cpu, memory, status = map(int, file.read().split())
        return Measurement(wall / 1e6, cpu / 1e6, memory / 1024, status)


def documents(corpus, kind, limit):
    """The files of a corpus that are of this kind, the first ones when there is a limit."""
    folder = os.path.join(corpus, kind)
    names = sorted(os.listdir(folder)) if os.path.isdir(folder) else []
    return [os.path.join(os.path.abspath(folder), name) for name in names][:limit]


def keep(figures, file):
    """Writes figures as JSON; where no file is named, nobody wants them."""
    if file:
        with open(file, 'w') as output:
            json.dump(figures, output, indent=2)


def size_of(path):
    """Bytes of a file, or of all files of a folder."""
    if not os.path.isdir(path):
        return os.path.getsize(path)
    return sum(os.path.getsize(os.path.join(folder, name)) for folder, _, names in os.walk(path) for name in names)


def tool_or_exit(path):
    if not os.access(path, os.X_OK):
        sys.exit('%s is not there: build it first (cmake --build build/release --target tool)' % path)
    return os.path.realpath(path)

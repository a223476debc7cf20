# SPDX-License-Identifier: Apache-2.0
"""The page of figures: what was measured, in tables and charts, and on what."""
import os
import platform
import re
import shutil
import subprocess

import charts
from processes import HERE

PACKAGES = ['antiword', 'catdoc', 'docx2txt', 'html2text', 'libimage-exiftool-perl', 'mediainfo', 'mupdf-tools', 'odt2txt',
            'poppler-utils', 'ffmpeg', 'unrtf', 'w3m', 'chromium', 'libwebkit2gtk-4.1-0', 'libmupdf-dev', 'g++', 'libc6']
MIB = 1 << 20


def output(*command):
    found = shutil.which(command[0])
    return subprocess.run(command, capture_output=True, text=True).stdout.strip() if found else ''


def versions():
    lines = output('dpkg-query', '--show', '--showformat', '${Package}\t${Version}\t${db:Status-Status}\n', *PACKAGES)
    fields = [line.split('\t') for line in lines.splitlines()]
    return {name.partition(':')[0]: version for name, version, status in fields if status == 'installed'}


def machine():
    with open('/proc/cpuinfo') as file:
        model = re.search(r'model name\s*: (.*)', file.read())
    with open('/proc/meminfo') as file:
        memory = int(re.search(r'MemTotal:\s*(\d+)', file.read())[1]) / MIB
    return '%s, %d processors, %.0f GiB; Linux %s' % (
        model[1] if model else platform.machine(), os.cpu_count(), memory, platform.release().partition('-')[0])


class Page:
    def __init__(self, file):
        self.file = file
        self.folder = os.path.splitext(file)[0]
        self.parts, self.charts = [], 0

    def add(self, *paragraphs):
        self.parts += paragraphs

    def table(self, heads, rows, texts=1):
        """The first `texts` columns hold words, the others numbers."""
        marks = ['---'] * texts + ['---:'] * (len(heads) - texts)
        lines = ['| %s |' % ' | '.join(row) for row in [heads, marks, *rows]]
        self.add('\n'.join(lines))

    def chart(self, name, alternative, svg):
        os.makedirs(self.folder, exist_ok=True)
        with open(os.path.join(self.folder, name + '.svg'), 'w') as file:
            file.write(svg)
        self.charts += 1
        self.add('![%s](%s/%s.svg)' % (alternative, os.path.basename(self.folder), name))

    def begin(self, day, load, commands):
        revision = output('git', '-C', HERE, 'describe', '--always', '--dirty') or 'unknown'
        self.add('# Performance',
                 '`Benchmarks/run` measured this and wrote it: whole processes, from outside, the tool and other programs taking '
                 'turns on the same documents ([Benchmarks](../Benchmarks/README.md) says how). Times are medians.')
        self.table(['', ''], [['day', str(day)], ['texttool', revision], ['machine', machine()],
                              ['load before', '%.2f' % load]], 2)
        self.add('Versions: ' + ', '.join('%s %s' % item for item in sorted(versions().items())) + '.',
                 '```sh\n%s\n```' % '\n'.join(commands))

    def documents(self, figures):
        kinds = {kind: programs for kind, programs in figures.items() if kind != 'start-up'}
        self.add('## Documents', 'The last column is the tool’s median time divided by the program’s: below 1 the tool is '
                                 'faster. Other programs fail where the tool answers with a record.')
        rows = []
        for kind, programs in kinds.items():
            own = programs['texttool']
            for name, s in programs.items():
                rows.append(['%s (%d)' % (kind, len(own['documents'])) if name == 'texttool' else '', name, '%.2f' % (s['wall'] * 1e3),
                             '%.2f' % (s['cpu'] * 1e3), '%.1f' % s['memory'], '%.1f' % s['largest'], str(s['failed']),
                             '' if name == 'texttool' else '%.2f' % (own['wall'] / s['wall'])])
        self.table(['kind', 'program', 'wall ms', 'CPU ms', 'peak MiB', 'largest MiB', 'failed', 'beside it'], rows, 2)
        for name, key, unit, factor in ('time', 'wall', 'ms', 1e3), ('memory', 'memory', 'MiB', 1):
            groups = {kind: {p: s[key] * factor for p, s in programs.items()} for kind, programs in kinds.items()}
            title = {'time': 'Wall time of the median document', 'memory': 'Peak memory of the median document'}[name]
            self.chart(name, title, charts.bars(title, unit, groups, 'texttool'))
        series = {kind: [(max(d['bytes'], 1) / 1024, d['wall'] * 1e3) for d in programs['texttool']['documents']]
                  for kind, programs in kinds.items()}
        self.chart('size', 'Wall time over the size of the document',
                   charts.points('texttool: wall time over the size of the document', 'KiB', 'ms', series))

    def long_documents(self, figures):
        self.add('## Long documents', 'Cost is to grow in proportion.')
        self.table(['', 'source MB', 'text MB', 'wall s', 'CPU s', 'peak MiB', 'to the end'],
                   [[f['kind'], '%.1f' % (f['bytes'] / 1e6), '%.1f' % (f['text'] / 1e6), '%.2f' % f['wall'], '%.2f' % f['cpu'],
                     '%.0f' % f['memory'], 'yes' if f['whole'] else 'no'] for f in figures])
        for name, key, unit in ('long-time', 'wall', 's'), ('long-memory', 'memory', 'MiB'):
            series = {}
            for f in figures:
                series.setdefault(f['kind'], []).append((f['bytes'] / 1e6, f[key]))
            title = 'Long documents: %s over size' % ('wall time' if key == 'wall' else 'peak memory')
            self.chart(name, title, charts.points(title, 'MB', unit, series, joined=True))

    def huge_files(self, figures):
        self.add('## Metadata of files of 4 GiB', 'What is not metadata must cost nothing.')
        self.table(['file', 'program', 'wall ms', 'peak MiB', 'read MiB'],
                   [[f['file'], f['program'], '%.1f' % (f['wall'] * 1e3), '%.1f' % f['memory'], '%.2f' % f['read']]
                    for f in figures], 2)

    def web_archives(self, figures):
        self.add('## Web archives', 'An archive of one line; CPU time is that of all processes that take part.')
        self.table(['', 'wall s', 'CPU s'], [[f['what'], '%.3f' % f['wall'], '%.3f' % f['cpu']] for f in figures])

    def any_kind(self, figures):
        long = figures['long']
        self.add('## Files of any kind', 'Their words, beside programs that index desktops and sites. A text of %d MB takes the tool '
                                         '%.2f s and %.0f MiB.' % (long['megabytes'], long['wall'], long['memory']))
        self.table(['', 'files', 'wall ms', 'CPU ms', 'peak MiB', 'largest MiB', 'failed'],
                   [[name, str(s['files']), '%.2f' % (s['wall'] * 1e3), '%.2f' % (s['cpu'] * 1e3), '%.1f' % s['memory'],
                     '%.1f' % s['most'], str(s['failed'])] for name, s in figures['programs'].items()])

    def start_up(self, figures):
        self.add('## Start-up', 'A request that opens no document, beside a C++ program that does nothing.')
        self.table(['', 'wall ms', 'CPU ms', 'peak MiB'],
                   [[name, '%.2f' % (s['wall'] * 1e3), '%.2f' % (s['cpu'] * 1e3), '%.1f' % s['memory']]
                    for name, s in figures.items()])

    def write(self):
        with open(self.file, 'w') as file:
            file.write('\n\n'.join(self.parts) + '\n')

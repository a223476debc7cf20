# SPDX-License-Identifier: Apache-2.0
"""Takes the examples out of documents: fenced blocks of Markdown, and what stands between .EX and .EE in manual pages.

The word after the fence, or after `.\\" example:` in the line before .EX, says what an example is:

  sh          commands
  python      a program
  file NAME   the contents of a file, where the shell takes NAME to be; NAME may name its language first: file:cpp NAME
  output      what the example before it prints; a line ... stands for any lines, ... within one for any word
  picture     nothing to be run
  system      commands to a service of the system, which are run only where systemd is
  ci          commands that .ci/run or ./check runs, word by word
"""
import collections
import re

Example = collections.namedtuple('Example', 'kind argument text line section')

KINDS = {'sh', 'python', 'file', 'output', 'picture', 'system', 'ci'}
ROFF = {r'\-': '-', r'\e': '\\', r'\(aq': "'", r'\(dq': '"', r'\(ga': '`', r'\(ha': '^', r'\(ti': '~', r'\&': ''}


def example(info, lines, number, section=''):
    kind, _, argument = info.partition(' ')
    kind = kind.partition(':')[0]
    if kind not in KINDS:
        raise SystemExit('line %d: an example of no known kind: %r' % (number, info))
    return Example(kind, argument, ''.join(line + '\n' for line in lines), number, section)


def of_markdown(text):
    info, block, start, section = None, [], 0, ''
    for number, line in enumerate(text.splitlines(), 1):
        if line.startswith('```') and info is None:
            info, block, start = line[3:].strip(), [], number
        elif line.startswith('```'):
            yield example(info, block, start, section)
            info = None
        elif info is not None:
            block.append(line)
        elif line.startswith('    '):
            raise SystemExit('line %d: an example without a fence' % number)
        elif line.startswith('## '):
            section = line[3:]


def without_roff(line, number):
    def plain(match):
        if match[0] not in ROFF:
            raise SystemExit('line %d: %s in an example' % (number, match[0]))
        return ROFF[match[0]]
    return re.sub(r'\\(?:\(..|.)', plain, line)


def of_manual(text):
    info, block, start, inside = None, [], 0, False
    for number, line in enumerate(text.splitlines(), 1):
        if line.startswith('.\\" example: '):
            info, start = line.partition(': ')[2], number
        elif line == '.EX':
            if info is None:
                raise SystemExit('line %d: an example that does not say what it is' % number)
            inside, block = True, []
        elif line == '.EE':
            yield example(info, block, start)
            info, inside = None, False
        elif inside:
            block.append(without_roff(line, number))


def of_file(path):
    with open(path, encoding='utf-8') as file:
        text = file.read()
    return list(of_markdown(text) if path.endswith('.md') else of_manual(text))


def is_shown(expected, printed):
    """Whether `expected` is `printed`, with any lines in place of one that is ..., and anything but blanks in place of
    three dots within a line."""
    pattern = ''.join('(?:.*\n)*?' if line.strip() == '...' else re.escape(line.rstrip()).replace(r'\.\.\.', '\\S*') + '[ \t]*\n'
                      for line in expected.splitlines())
    return re.fullmatch(pattern, printed if printed.endswith('\n') or not printed else printed + '\n') is not None

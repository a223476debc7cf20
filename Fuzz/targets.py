# SPDX-License-Identifier: Apache-2.0
"""The fuzz targets, as the scripts beside this file use them."""
import os
import subprocess
import sys

FOLDER = os.path.dirname(os.path.realpath(__file__))
TOP = os.path.dirname(FOLDER)
USAGE = 64  # the exit status for wrong arguments


def build(preset):
    """Builds all targets; the folder of the build."""
    packages = [os.path.join(TOP, 'Scripts', 'install-packages'), 'build', 'check', 'all']
    for command in (packages, ['cmake', '--preset', preset],
                    ['cmake', '--build', '--preset', preset, '--target', 'FuzzTargets']):
        subprocess.run(command, cwd=TOP, check=True, stdout=subprocess.DEVNULL)
    return os.path.join(TOP, 'build', preset)


def usage_error(text):
    print(text, file=sys.stderr)
    sys.exit(USAGE)


class Target:
    def __init__(self, build_folder, name, parser):
        self.name = name
        self.parser = [os.path.join(TOP, path) for path in parser]
        self.program = os.path.join(build_folder, 'bin', 'Fuzz' + name)
        self.seeds = os.path.join(FOLDER, 'Seeds', name)
        self.dictionary = os.path.join(FOLDER, 'Dictionaries', name + '.dict')


def chosen(build_folder, names):
    """The targets with these names, or all when there are none, in the order of the list."""
    with open(os.path.join(build_folder, 'Fuzz', 'targets')) as file:
        targets = [Target(build_folder, name, parser) for name, *parser in map(str.split, file)]
    unknown = set(names) - {target.name for target in targets}
    if unknown:
        usage_error('No such target: %s' % ', '.join(sorted(unknown)))
    return [target for target in targets if not names or target.name in names]

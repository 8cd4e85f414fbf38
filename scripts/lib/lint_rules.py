#!/usr/bin/env python3
"""lint_rules.py BUILD FOLDER...: from BUILD/compile_commands.json, a BUILD/lint.ninja that runs clang-tidy on each C++
source of these folders once, and again when the source, one of its headers or .clang-tidy changed. Prints how many."""
import json
import os
import shlex
import sys

RULES = '''builddir = {folder}/checked
rule tidy
  command = $compile -MM -MF $out.d -MT $out $in && clang-tidy-14 --quiet $in -- $flags >$out.log 2>&1 && touch $out $
      || {{ cat $out.log; false; }}
  depfile = $out.d
  deps = gcc
  description = clang-tidy $in
'''


def flags_of(entry):
    """The compiler, and its options without the source and what is written."""
    words = shlex.split(entry['command'])
    return words[0], words[1:words.index('-o')]


def escaped(text):
    return text.replace('$', '$$').replace(':', '$:').replace(' ', '$ ')


def main():
    build, folders = sys.argv[1], tuple(folder + '/' for folder in sys.argv[2:])
    with open(os.path.join(build, 'compile_commands.json')) as commands:
        entries = json.load(commands)
    sources = {}
    for entry in entries:
        source = os.path.relpath(entry['file'])
        if source.startswith(folders) and source.endswith('.cpp'):
            sources.setdefault(source, entry)
    with open(os.path.join(build, 'lint.ninja'), 'w') as ninja:
        ninja.write(RULES.format(folder=build))
        for source, entry in sorted(sources.items()):
            compiler, flags = flags_of(entry)
            words = ' '.join(shlex.quote(word) for word in flags).replace('$', '$$')
            stamp = escaped('%s/checked/%s' % (build, source))
            ninja.write('build %s: tidy %s | .clang-tidy\n' % (stamp, escaped(source)))
            ninja.write('  flags = %s\n  compile = %s %s\n' % (words, compiler, words))
    print(len(sources))


main()

#!/usr/bin/env python3
"""lint_rules.py FOLDER: from FOLDER/compile_commands.json, a FOLDER/lint.ninja that runs clang-tidy on each of the
project's own C++ sources once, and again when the source, one of its headers or .clang-tidy changed."""
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
    end = words.index('-o')
    return words[0], [word for word in words[1:end] if not word.startswith('-fsanitize')]


def escaped(text):
    return text.replace('$', '$$').replace(':', '$:').replace(' ', '$ ')


def main():
    folder = sys.argv[1]
    with open(os.path.join(folder, 'compile_commands.json')) as commands:
        entries = json.load(commands)
    root = os.getcwd() + os.sep
    build = os.path.join(root, 'build') + os.sep
    sources = {}
    for entry in entries:
        path = entry['file']
        if path.startswith(root) and not path.startswith(build) and path.endswith('.cpp'):
            sources.setdefault(os.path.relpath(path, root), entry)
    with open(os.path.join(folder, 'lint.ninja'), 'w') as ninja:
        ninja.write(RULES.format(folder=folder))
        for source, entry in sorted(sources.items()):
            compiler, flags = flags_of(entry)
            words = ' '.join(shlex.quote(word) for word in flags).replace('$', '$$')
            stamp = escaped('%s/checked/%s' % (folder, source))
            ninja.write('build %s: tidy %s | .clang-tidy\n' % (stamp, escaped(source)))
            ninja.write('  flags = %s\n  compile = %s %s\n' % (words, compiler, words))
    print(len(sources))


main()

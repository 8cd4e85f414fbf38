#!/bin/sh
# The module's only defined dynamic symbol is its entry.      usage: exported_symbols.sh MODULE
set -eu
symbols=$(nm --dynamic --defined-only --format=posix "$1" | cut -d' ' -f1)
printf 'exported: %s\n' "$symbols"
[ "$symbols" = initpluginmodifier ]

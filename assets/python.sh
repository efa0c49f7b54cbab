#!/bin/sh
# Runs the first interpreter that has what the recipe imports: the one first on the PATH often is not Debian's.
#   python.sh <argument>…
for python in python3 /usr/bin/python3; do
  if "$python" -c 'import booleanOperations, brotli, fontTools' 2>/dev/null; then exec "$python" "$@"; fi
done
exec python3 "$@" # which says what is missing

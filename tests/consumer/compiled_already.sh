#!/bin/sh
# Stands before the compiler, as CMAKE_CXX_COMPILER_LAUNCHER: what a project that takes the source tree in as brisel/ would
# compile of the library was compiled a moment ago, of the same files. Anything else is compiled.
#   compiled_already.sh <build folder> <compiler> <argument>…
built=$1
shift
before=
for argument; do
  case $before$argument in
    -obrisel/*) exec cp "$built/${argument#brisel/}" "$argument" ;;
  esac
  before=$argument
done
exec "$@"

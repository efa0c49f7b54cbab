#!/usr/bin/env bash
# Runs one stage of a longer run and says how long it took.
#   setup/stage.sh <name> <command…>
# Where BRISEL_STAGES names a file, the line "<name> <seconds> <exit status>" is added to it.
set -uo pipefail

name=$1
shift
printf '\n=== %s\n' "$name"
start=$(date +%s)
"$@"
status=$?
seconds=$(($(date +%s) - start))
printf '=== %s: %d min %02d s%s\n' "$name" $((seconds / 60)) $((seconds % 60)) "$( ((status)) && echo ', FAILED')"
if [[ -n ${BRISEL_STAGES:-} ]]; then echo "$name $seconds $status" >>"$BRISEL_STAGES"; fi
exit $status

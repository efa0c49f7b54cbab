#!/usr/bin/env bash
# Runs every fuzz target of a folder for some seconds. New inputs worth keeping are added to fuzz/corpus/<name>/, what
# fails is written to out/fuzz/.
#   fuzz/run.sh <folder of programs> <seconds>
set -euo pipefail

programs=$1 seconds=$2
cd "$(dirname "$0")/.."
mkdir -p out/fuzz
export ASAN_OPTIONS=detect_stack_use_after_return=1
failed=()
for program in "$programs"/*_fuzzer; do
  name=$(basename "$program" _fuzzer)
  printf '\n=== %s\n' "$name"
  mkdir -p "out/fuzz/$name" "fuzz/corpus/$name"
  # Found inputs go to the first folder; only those that reach something new are merged into the stored ones.
  "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="out/fuzz/$name-" "out/fuzz/$name" "fuzz/corpus/$name" || failed+=("$name")
  "$program" -merge=1 "fuzz/corpus/$name" "out/fuzz/$name" || failed+=("$name")
done
((${#failed[@]} == 0)) || { echo "failed: ${failed[*]}"; exit 1; }

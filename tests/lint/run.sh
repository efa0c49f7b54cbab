#!/usr/bin/env bash
# Formatting and findings: clang-format over all C++, clang-tidy (.clang-tidy) over what is not a test, shellcheck.
#   tests/lint/run.sh [jobs]
set -euo pipefail
cd "$(dirname "$0")/../.."

jobs=${1:-$(nproc)}
folders=(brisel gallery fuzz benchmarks tests examples)

mapfile -t sources < <(find "${folders[@]}" -name node_modules -prune -o \( -name '*.h' -o -name '*.cc' \) -print | sort)
echo "clang-format: ${#sources[@]} files"
clang-format-14 --dry-run -Werror "${sources[@]}"

shellcheck assets/*.sh setup/*.sh fuzz/*.sh tests/*/*.sh .ci/run

cmake --preset lint >/dev/null
mapfile -t sources < <(find brisel gallery fuzz -name '*.cc' ! -name '*_test.cc' | sort)
echo "clang-tidy: ${#sources[@]} files"
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$jobs" clang-tidy-22 -p build/lint --quiet 2> >(
  grep -v 'warnings\? generated' >&2
)

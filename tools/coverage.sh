#!/usr/bin/env bash
# Builds with counters, runs every test and replays every fuzz seed, and tells what of each folder ran: the share of lines
# and branches, then the functions and the lines that nothing reached.
#   tools/coverage.sh [FOLDER...]     lists what is missed in these folders alone, such as host/files
# Runs that are killed count nothing, so what they alone reach is told as missed. Needs gcovr, which nothing else here does.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
if ! command -v gcovr >/dev/null; then
  echo "coverage.sh: gcovr is not installed (Debian package gcovr)" >&2
  exit 2
fi
build=build/coverage
mkdir -p build
cmake --preset coverage >"$build-configure.log" 2>&1 || { cat "$build-configure.log"; exit 1; }
cmake --build --preset coverage --parallel "$(nproc)" || exit 1
find "$build" -name '*.gcda' -delete
FAULTS_COUNTED=1 LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen ctest --preset coverage --parallel "$(nproc)" --quiet --output-log "$build/ctest.log" ||
  echo "coverage.sh: not every test passed, see $build/ctest.log" >&2
gcovr --root . --object-directory "$build" -j "$(nproc)" --exclude-throw-branches --exclude-unreachable-branches \
  --exclude 'tests/' --exclude 'fuzz/' --exclude 'build/' --gcov-ignore-parse-errors --json "$build/coverage.json" >"$build/gcovr.log" 2>&1 ||
  { tail "$build/gcovr.log"; exit 1; }
tools/coverage_report.py "$build/coverage.json" "$@"

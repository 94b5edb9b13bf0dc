#!/usr/bin/env bash
# tidy_unit.sh <unit>: clang-tidy on one unit for ./check, unless the time is over: $work holds the compile commands and
# takes what is said and which units are left, $deadline is in seconds since 1970.
set -euo pipefail
# shellcheck disable=SC2154
if ! grep -qF "/$1\"" "$work/compile_commands.json" || [ "$(date +%s)" -ge "$deadline" ]; then
  echo "$1" >>"$work/left"
  exit
fi
said="$(mktemp "$work/unit.XXXXXX")"
clang-tidy --quiet -p "$work" "$1" >"$said" 2>/dev/null || true
# What the compiler says, g++ says: clang 14 does not read all of C++20 and of g++'s library.
awk '/^error: |: (warning|error): / { compiler = /clang-diagnostic/ } !compiler' "$said" >>"$work/said"
rm "$said"

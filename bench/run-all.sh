#!/usr/bin/env bash
# Runs every benchmark script under bench/ (each prints its own figures).
set -euo pipefail
build=${1:-build}
here=$(cd "$(dirname "$0")" && pwd)
for script in "$here"/bench-*.sh; do
  [[ -x "$script" ]] || continue
  echo "== $(basename "$script")"
  "$script" "$build"
done

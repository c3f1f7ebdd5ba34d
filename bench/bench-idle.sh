#!/usr/bin/env bash
# An idle Quillo (panel closed) should wake no CPU: start it on a private desktop,
# let it settle, then count the context switches of all its threads over a window.
# Usage: bench/bench-idle.sh [build-dir] [seconds]
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
seconds=${2:-20}
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/tests/desktop-session.sh" bash -c '
  set -euo pipefail
  mkdir -p "$XDG_CONFIG_HOME/Quillo"
  printf "[General]\napp_opened=true\nsplashscreen=false\nhotkey=true\ntoggleHotkeyFirstRun=true\n" \
    > "$XDG_CONFIG_HOME/Quillo/Quillo.conf"
  "'"$build"'/bin/quillo" & pid=$!
  sleep 4
  switches() { cat /proc/$pid/task/*/status | awk "/ctxt_switches/ { n += \$2 } END { print n }"; }
  cpu() { awk "{ print \$14 + \$15 }" /proc/$pid/stat; }
  s0=$(switches); c0=$(cpu)
  sleep '"$seconds"'
  s1=$(switches); c1=$(cpu)
  echo "idle quillo over '"$seconds"' s: $((s1 - s0)) context switches, $((c1 - c0)) CPU ticks, RSS $(awk "/VmRSS/ { print \$2 \" kB\" }" /proc/$pid/status)"
  kill $pid
'

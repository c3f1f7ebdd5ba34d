#!/usr/bin/env bash
# Runs a command inside a private desktop made for the test run:
#   Xvfb on a free display, openbox, an XEmbed tray (trayer, top right),
#   a session bus, and a throw-away HOME / XDG_CONFIG_HOME / XDG_RUNTIME_DIR.
# Everything started here is stopped by PID when the command ends.
# Usage: tests/desktop-session.sh COMMAND [ARGS...]
# Env: QUILLO_SCREEN (default 1920x1080x24), QUILLO_TRAY_EDGE (top|bottom, default top).
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
session=$(mktemp -d /tmp/quillo-session.XXXXXX)
pids=()

cleanup() {
  local status=$?
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do
    kill "${pids[i]}" 2>/dev/null || true
  done
  for pid in "${pids[@]}"; do
    for _ in $(seq 50); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
    kill -9 "$pid" 2>/dev/null || true
  done
  rm -rf "$session"
  exit "$status"
}
trap cleanup EXIT INT TERM

export HOME="$session/home"
export XDG_CONFIG_HOME="$HOME/.config"
export XDG_DATA_HOME="$HOME/.local/share"
export XDG_CACHE_HOME="$HOME/.cache"
export XDG_RUNTIME_DIR="$session/runtime"
export TMPDIR="$session/tmp"
mkdir -p "$HOME/Desktop" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR" "$TMPDIR"
chmod 700 "$XDG_RUNTIME_DIR"
printf 'XDG_DESKTOP_DIR="$HOME/Desktop"\n' > "$XDG_CONFIG_HOME/user-dirs.dirs"
export QUILLO_TEST_ARTIFACTS="${QUILLO_TEST_ARTIFACTS:-$root/build/test-artifacts}"
mkdir -p "$QUILLO_TEST_ARTIFACTS"
unset WAYLAND_DISPLAY
export XDG_SESSION_TYPE=x11
export QT_QPA_PLATFORM=xcb

# X server on a free display.
Xvfb -displayfd 3 -screen 0 "${QUILLO_SCREEN:-1920x1080x24}" -nolisten tcp +extension RANDR \
  3>"$session/display" >"$session/xvfb.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do [[ -s "$session/display" ]] && break; sleep 0.05; done
[[ -s "$session/display" ]] || { echo "Xvfb did not start"; cat "$session/xvfb.log"; exit 1; }
export DISPLAY=":$(head -n1 "$session/display")"

# Session bus.
dbus-daemon --session --nofork --address="unix:path=$XDG_RUNTIME_DIR/bus" >"$session/dbus.log" 2>&1 &
pids+=($!)
export DBUS_SESSION_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/bus"
for _ in $(seq 100); do [[ -S "$XDG_RUNTIME_DIR/bus" ]] && break; sleep 0.05; done

# Window manager and tray host.
openbox --sm-disable >"$session/openbox.log" 2>&1 &
pids+=($!)
# (Outputs are captured first: with pipefail, grep -q ending a pipe early reads as failure.)
for _ in $(seq 100); do [[ $(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) == *window* ]] && break; sleep 0.05; done
trayer --edge "${QUILLO_TRAY_EDGE:-top}" --align right --widthtype request --height 24 \
  --SetDockType true --transparent false --tint 0x303030 >"$session/trayer.log" 2>&1 &
pids+=($!)
# The tray is ready once trayer's panel window is mapped.
for _ in $(seq 200); do
  [[ $(xwininfo -root -tree 2>/dev/null) == *'"panel" "trayer"'* ]] && break
  sleep 0.05
done
sleep 0.3

set +e
"$@"
status=$?
set -e
exit "$status"

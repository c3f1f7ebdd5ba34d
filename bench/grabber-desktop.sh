#!/usr/bin/env bash
# Starts a 3840x2160 Xvfb with a realistic desktop for bench-grabber.sh: a gradient
# background and several terminal windows full of text. Prints "DISPLAY PIDS..." on stdout;
# the caller stops those PIDs.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=${1:?work folder}
pids=()
trap 'status=$?; if [[ $status -ne 0 ]]; then kill "${pids[@]}" 2>/dev/null; fi' EXIT
Xvfb -displayfd 3 -screen 0 3840x2160x24 -nolisten tcp +extension RANDR 3>"$work/display" >"$work/xvfb.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do [[ -s "$work/display" ]] && break; sleep 0.05; done
export DISPLAY=":$(head -n1 "$work/display")"

openbox --sm-disable >"$work/openbox.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q window && break; sleep 0.05; done

convert -size 2160x3840 gradient:'#1d3b6e-#c77d4a' -rotate 90 -swirl 40 "$work/background.png"
display -window root "$work/background.png" || true  # sets the background, then exits 1

# Terminals showing source text, cascaded over the background.
find "$here/../src" -name '*.cpp' -print0 | sort -z | xargs -0 cat >"$work/text.txt"
geometries=("150x60+60+60" "130x70+1100+200" "160x50+2100+120" "120x45+300+1250" "140x40+1900+1300" "100x30+2900+1500")
i=0
for g in "${geometries[@]}"; do
  xterm -geometry "$g" -fa 'DejaVu Sans Mono' -fs $((10 + i % 3)) -bg '#fdf6e3' -fg '#073642' \
    -T "terminal $i" -e sh -c "tail -n +$((i * 90 + 1)) '$work/text.txt'; exec sleep 100000" &
  pids+=($!)
  i=$((i + 1))
done
for _ in $(seq 100); do
  [[ $(xdotool search --onlyvisible --name '^terminal ' 2>/dev/null | wc -l) -ge ${#geometries[@]} ]] && break
  sleep 0.1
done
sleep 1
echo "$DISPLAY ${pids[*]}"

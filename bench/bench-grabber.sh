#!/usr/bin/env bash
# Full-screen capture speed of quillo-screencapture against scrot, maim and ImageMagick's
# import, on a private 3840x2160 Xvfb desktop (gradient background, terminals of text):
# PNG and JPEG, timed with hyperfine, with file sizes and ratios. Usage: bench-grabber.sh BUILD_DIR
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
grabber="$build/bin/quillo-screencapture"
runs=${GRABBER_BENCH_RUNS:-15}

for tool in Xvfb openbox xterm scrot maim import convert display hyperfine python3; do
  command -v "$tool" >/dev/null || { echo "bench-grabber: skipped, $tool is not installed (scripts/deps.sh --bench)"; exit 0; }
done
[[ -x "$grabber" ]] || { echo "bench-grabber: $grabber is not built"; exit 1; }

work=$(mktemp -d /tmp/quillo-bench-grabber.XXXXXX)
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT INT TERM

read -r display started < <("$here/grabber-desktop.sh" "$work")
read -ra pids <<<"$started"
export DISPLAY="$display"
unset WAYLAND_DISPLAY
xdotool mousemove 10 10 2>/dev/null || true

declare -A commands=(
  [quillo-png]="$grabber -tpng $work/quillo.png"
  [scrot-png]="scrot -o $work/scrot.png"
  [maim-png]="maim $work/maim.png"
  [import-png]="import -window root $work/import.png"
  [quillo-jpg]="$grabber -tjpg $work/quillo.jpg"
  [scrot-jpg]="scrot -o $work/scrot.jpg"
  [maim-jpg]="maim -f jpg $work/maim.jpg"
  [import-jpg]="import -window root $work/import.jpg"
)
order=(quillo-png scrot-png maim-png import-png quillo-jpg scrot-jpg maim-jpg import-jpg)

args=()
for name in "${order[@]}"; do args+=(-n "$name" "${commands[$name]}"); done
echo "Timing full-screen captures of a 3840x2160 desktop ($runs runs each, load: $(cut -d' ' -f1-3 /proc/loadavg))"
hyperfine -N --warmup 2 --runs "$runs" --export-json "$work/times.json" --style basic "${args[@]}" >"$work/hyperfine.log" 2>&1 \
  || { cat "$work/hyperfine.log"; exit 1; }

# The files each tool wrote (from its last run), for the size comparison.
python3 - "$work" <<'PY'
import json, os, sys
work = sys.argv[1]
results = {r["command"]: r for r in json.load(open(os.path.join(work, "times.json")))["results"]}
def size(tool, ext):
    return os.path.getsize(os.path.join(work, f"{tool}.{ext}"))
for ext in ("png", "jpg"):
    q = results[f"quillo-{ext}"]
    print(f"\n{ext.upper()}            mean ms    ± sd   median      bytes   time/quillo  size/quillo")
    for tool in ("quillo", "scrot", "maim", "import"):
        r = results[f"{tool}-{ext}"]
        print(f"  {tool:<8} {r['mean']*1000:10.1f} {r['stddev']*1000:7.1f} {r['median']*1000:8.1f} {size(tool, ext):10d}"
              f" {r['mean']/q['mean']:12.2f}x {size(tool, ext)/size('quillo', ext):11.2f}x")
s = results["scrot-png"]; q = results["quillo-png"]
print(f"\nPNG: quillo takes {q['mean']/s['mean']:.2f} of scrot's time (target <= 0.50) at "
      f"{size('quillo','png')/size('scrot','png'):.2f} of its size (target <= 1.00)")
s = results["scrot-jpg"]; q = results["quillo-jpg"]
print(f"JPEG: quillo takes {q['mean']/s['mean']:.2f} of scrot's time (target <= 1.00)")
PY

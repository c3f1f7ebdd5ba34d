#!/usr/bin/env bash
# Upload speed on loopback: a 20 MB file through Quillo's upload client and through
# `curl -F`, interleaved, median of 7 each, and the time to rebuild a 10,000-link history.
# Usage: bench/bench-upload.sh [build-dir]   (targets: upload-bench)
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
tool="$build/bin/upload-bench"
[[ -x "$tool" ]] || { echo "build the upload-bench target first"; exit 1; }

work=$(mktemp -d /tmp/quillo-bench-upload.XXXXXX)
server=""
cleanup() {
  [[ -n "$server" ]] && kill "$server" 2>/dev/null && wait "$server" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT INT TERM

# Settings land in a throw-away home.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"

head -c $((20 * 1024 * 1024)) /dev/urandom > "$work/shot.png"
"$tool" serve "$work/port" &
server=$!
for _ in $(seq 100); do [[ -s "$work/port" ]] && break; sleep 0.05; done
url="http://127.0.0.1:$(cat "$work/port")/upload"

# Interleaved runs, so both clients see the same machine load; the median of 7 each.
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
: > "$work/quillo.ms"; : > "$work/curl.ms"
for _ in 1 2 3 4 5 6 7; do
  "$tool" upload "$url" "$work/shot.png" >> "$work/quillo.ms"
  curl -s -o /dev/null -w '%{time_total}\n' -F "file=@$work/shot.png" "$url" \
    | awk '{ printf "%.1f\n", $1 * 1000 }' >> "$work/curl.ms"
done
quillo=$(median < "$work/quillo.ms")
plain=$(median < "$work/curl.ms")
ratio=$(awk -v a="$quillo" -v b="$plain" 'BEGIN { printf "%.2f", a / b }')
echo "upload 20 MB, loopback: quillo ${quillo} ms, curl -F ${plain} ms, ratio ${ratio}x (target <= 1.1x)"

history=$(for _ in 1 2 3 4 5; do "$tool" history 10000; done | median)
echo "link history rebuild, 10,000 links: ${history} ms (target <= 50 ms)"

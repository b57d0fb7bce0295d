#!/usr/bin/env bash
# Timed command-line runs on the piece at the format's limits (7 tracks, busy
# sixteenths, chords, texts and tempo changes) at 1,000, 10,000 and 32,767
# bars: wall time, processor time and peak resident memory of each step.
#   bench/limits.sh [build folder, build/release by default] [bar counts...]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
shift || true
counts=("$@")
[ ${#counts[@]} -eq 0 ] && counts=(1000 10000 32767)
cli="$build/bin/vantoro-cli"
make="$build/bench/bench_make_limit"
for f in "$cli" "$make"; do
  [ -x "$f" ] || { echo "limits: $f is not built (scripts/build release)" >&2; exit 2; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# One step: its name, then the command; prints wall s, CPU s, peak MB.
step() {
  local name=$1
  shift
  /usr/bin/time -f "%e %U %S %M" -o "$work/time" "$@" >/dev/null 2>"$work/err" || {
    echo "limits: $name failed:" >&2
    cat "$work/err" >&2
    exit 1
  }
  read -r wall user sys kb <"$work/time"
  printf "%-8s %-22s %8s %8.2f %8d\n" "$bars" "$name" "$wall" "$(echo "$user + $sys" | bc)" \
    $((kb / 1024))
}

printf "%-8s %-22s %8s %8s %8s\n" bars step wall_s cpu_s peak_MB
for bars in "${counts[@]}"; do
  p="$work/limit$bars"
  step "generate" "$make" "$p.vtb" "$bars"
  step "info" "$cli" info "$p.vtb"
  step "load+save .vtb" "$cli" convert "$p.vtb" "$p.copy.vtb"
  step "MIDI export" "$cli" convert --rmtf "$p.vtb" "$p.mid"
  step "MIDI import" "$cli" convert "$p.mid" "$p.frommidi.vtb"
  step "ASCII export" "$cli" convert "$p.vtb" "$p.txt"
  step "PDF of track 1" "$cli" convert --track 1 "$p.vtb" "$p.pdf"
  rm -f "$p".*
done

#!/usr/bin/env bash
# Measures the time from the start of the process until the first window and the main window are there and the demo sounds, on
# the stage: RUNS starts, each a new process; the first may find the disk's cache cold. Prints milliseconds; the sound is
# looked at each 5 ms, in periods of the card of 3 ms. Then the memory of a program that has been started without a
# demo and has loaded nothing (PSS).
#
#   bench/start_up.sh [BUILD] [RUNS]     default: build/release, 10 runs
set -euo pipefail
HERE=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
BUILD=$(readlink -f "${1:-$HERE/../build/release}")
RUNS=${2:-10}
STAGE_TOOLS=$BUILD/tools/stage
LISTEN=$STAGE_TOOLS/listen
source "$HERE/../tools/stage/stage.sh"

play=$(mktemp -d)
stage_open "$play/stage" 1920x1000
stage_install "$BUILD/marvolin/marvolin" "$play/marvolin"
cp "$BUILD"/marvolin/*.wav "$BUILD/marvolin/startup.mvp" "$play/marvolin/"

ms() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }
"$STAGE_TOOLS/watch_windows" >"$play/windows" &
STAGE_PIDS+=($!)

# shown_at [WINDOW]: the first time after START at which a window was shown, or this one.
shown_at() {
  awk -v start="$START" -v window="${1:-}" '$1 >= start && (window == "" || $2 == window) { print $1; exit }' "$play/windows"
}
# The frame that the window manager has put around the main window.
frame() { xwininfo -id "$WINDOW" -tree | sed -n 's/.*Parent window id: \(0x[0-9a-f]*\).*/\1/p'; }

# True once the card has recorded the rest of the previous run.
RECORDED=-1
drained() {
  local before=$RECORDED
  RECORDED=$("$LISTEN" now "$SOUND")
  [[ $RECORDED -eq $before ]]
}

# Nothing asks for windows before the sound is there: that would take time from the start.
for ((run = 1; run <= RUNS; ++run)); do
  BEGIN=$("$LISTEN" now "$SOUND")
  "$LISTEN" heard "$SOUND" "$BEGIN" 20000 >"$play/heard" &
  listener=$!
  START=$(ms)
  STAGE_LATER=1 stage_start "$play/marvolin/marvolin"
  wait "$listener" || { echo "The demo is not heard." >&2; exit 1; }
  stage_shown
  FIRST=$(shown_at) SHOWN_AT=$(shown_at "$(frame)")
  [[ -n $SHOWN_AT ]] || { echo "The window is not shown." >&2; exit 1; }
  echo "$((FIRST - START)) $((SHOWN_AT - START)) $(($(<"$play/heard") - START))" | tee -a "$play/starts" |
    sed "s/\(.*\) \(.*\) \(.*\)/run $run: first window \1, main window \2, sound \3/"
  stage_clear
  stage_quit
  until_true 5 drained
done
column=0
for name in "first window" "main window" "sound"; do
  column=$((column + 1))
  cut -d ' ' -f $column "$play/starts" | sort -n | awk -v name="$name" '{ v[NR] = $1 }
    END { print name ": least", v[1], "median", v[int((NR + 1) / 2)], "most", v[NR] }'
done
rm "$play/marvolin/startup.mvp"
stage_start "$play/marvolin/marvolin"
stage_clear
awk '/^Pss:/ { printf "memory: %.1f MiB\n", $2 / 1024 }' "/proc/$PROGRAM/smaps_rollup"
stage_quit
stage_close
rm -rf "$play"

#!/usr/bin/env bash
# Measures the time from the start of the process until the first window and the main window are there and the demo sounds, on
# the stage: RUNS starts, each a new process; the first may find the disk's cache cold. Prints milliseconds; the sound is
# checked every 30 ms or so, which is the error of its figure. Then the memory of a program that has been started without a
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
# The window manager reports each new window: lines of "time windows".
while read -r line; do echo "$(ms) $line"; done < <(exec xprop -root -spy _NET_CLIENT_LIST) >"$play/windows" &
STAGE_PIDS+=($!)

heard() { [[ -n $("$LISTEN" sounding "$SOUND" "$BEGIN" 3600000) ]]; }
# The first time after START at which the window manager has reported a window.
first_window() { awk -v start="$START" '$1 >= start && /0x/ { print $1; exit }' "$play/windows"; }
# Sets SHOWN_AT once the window manager has reported the window after START.
shown() {
  SHOWN_AT=$(awk -v start="$START" -v window="$(printf '0x%x' "$WINDOW")" '$1 >= start && index($0, window) { print $1; exit }' \
    "$play/windows")
  [[ -n $SHOWN_AT ]]
}

# True once the card has recorded the rest of the previous run.
RECORDED=-1
drained() {
  local before=$RECORDED
  RECORDED=$("$LISTEN" now "$SOUND")
  [[ $RECORDED -eq $before ]]
}

for ((run = 1; run <= RUNS; ++run)); do
  BEGIN=$("$LISTEN" now "$SOUND")
  START=$(ms)
  { until_true 20 heard && ms; } >"$play/heard" &
  listener=$!
  stage_start "$play/marvolin/marvolin"
  wait "$listener" || { echo "The demo is not heard." >&2; exit 1; }
  SOUND_AT=$(<"$play/heard")
  until_true 20 shown || { echo "The window is not shown." >&2; exit 1; }
  echo "$(($(first_window) - START)) $((SHOWN_AT - START)) $((SOUND_AT - START))" | tee -a "$play/starts" |
    sed "s/\(.*\) \(.*\) \(.*\)/run $run: first window \1, main window \2, sound \3/"
  stage_clear
  stage_quit
  until_true 5 drained
done
number=0
for name in "first window" "main window" "sound"; do
  cut -d ' ' -f $((++number)) "$play/starts" | sort -n | awk -v name="$name" '{ v[NR] = $1 }
    END { print name ": least", v[1], "median", v[int((NR + 1) / 2)], "most", v[NR] }'
done
rm "$play/marvolin/startup.mvp"
stage_start "$play/marvolin/marvolin"
stage_clear
awk '/^Pss:/ { printf "memory: %.1f MiB\n", $2 / 1024 }' "/proc/$PROGRAM/smaps_rollup"
stage_quit
stage_close
rm -rf "$play"

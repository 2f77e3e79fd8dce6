#!/usr/bin/env bash
# Measures the time from the start of the process until the window is shown and the demo sounds, on the stage: RUNS starts,
# each a new process; the first may find the disk's cache cold. Prints milliseconds; the sound is checked every 30 ms or
# so, which is the error of its figure.
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
xprop -root -spy _NET_CLIENT_LIST | while read -r line; do echo "$(ms) $line"; done >"$play/windows" &
STAGE_PIDS+=($!)

heard() { [[ -n $("$LISTEN" sounding "$SOUND" "$BEGIN" 3600000) ]]; }
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
  window=$((SHOWN_AT - START)) sound=$((SOUND_AT - START))
  both=$((window > sound ? window : sound))
  echo "run $run: window $window, sound $sound, both $both"
  echo "$both" >>"$play/both"
  stage_clear
  stage_quit
  until_true 5 drained
done
sort -n "$play/both" | awk '{ v[NR] = $1 } END { print "both: least", v[1], "median", v[int((NR + 1) / 2)], "most", v[NR] }'
stage_close
rm -rf "$play"

#!/usr/bin/env bash
# A screen reader's way: the instrument is found through AT-SPI, a volume is read, set and heard, a change is told, and a
# LoopTrack is played by an action. Needs at-spi2-core and python3-pyatspi.
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# A bus of its own, on which assistive technology is switched on.
dbus-daemon --session --nofork --nopidfile --print-address=3 3>"$STAGE/bus" 2>"$STAGE/bus.log" &
STAGE_PIDS+=($!)
until_true 10 test -s "$STAGE/bus"
DBUS_SESSION_BUS_ADDRESS=$(cat "$STAGE/bus")
export DBUS_SESSION_BUS_ADDRESS
dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
  string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null

reader() { /usr/bin/python3 "$(dirname "${BASH_SOURCE[0]}")/assistive.py" "$@" 2>>"$FOLDER/reader.log"; }
reads() { [[ $(reader "$1" "$2") == "$3" ]]; }
# The count at the end tells that the reader has come to the end.
nothing_unnamed() {
  local unnamed
  unnamed=$(reader unnamed) || return 1
  [[ $unnamed =~ ^controls\ ([0-9]+)$ ]] && ((BASH_REMATCH[1] >= 100))
}

start
"$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone.wav" 400
drop SndDisp_1 "$FOLDER/tone.wav"

echo "A volume"
expect "the volume is read" reads value "Volume of LoopTrack B" 500.0
begin=$(now)
reader act "Play LoopTrack B" Toggle
expect "an action plays the LoopTrack" sounds_since "$begin"
expect "its state is told in words" reads words "Play LoopTrack B" plays
wait_ms 300
loud_before=$(loud $(($(now) - 200)) "$(now)")
reader set "Volume of LoopTrack B" 250
expect "the volume that was set is read again" reads value "Volume of LoopTrack B" 250.0
expect "in words, too" reads words "Volume of LoopTrack B" "Vol: 250"
wait_ms 400
between "the sound is softer, hundredths of a decibel" \
  $(($(loud $(($(now) - 200)) "$(now)") - loud_before)) -8000 -200
picture "volume set"

echo "A change by the hand is told"
: >"$FOLDER/watched"
reader watch "Volume of LoopTrack B" 20 >"$FOLDER/watched" &
watcher=$!
until_true 10 grep -q ready "$FOLDER/watched"
double_click VolKnob_1
expect "the new volume is told" grep -qx 0.0 "$FOLDER/watched"
wait "$watcher" || true
park

echo "Focus and names"
reader focus "Frequency of LoopTrack C"
before=$(face HzKnob_2)
xdotool key Tab
expect "the focus goes on from there" looks_unlike HzKnob_2 "$before"
expect "every control has a name" nothing_unnamed
finish

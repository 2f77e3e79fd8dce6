#!/usr/bin/env bash
# A sample that was replaced, and a row that was emptied, come back by Backspace without their files, while another LoopTrack
# sounds on without a gap. Shift+Backspace and the two buttons do the same. A set that was opened is taken back whole.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

HELD=$FOLDER/held
mkdir -p "$HELD"
cp "$SAMPLES/Noise.wav" "$HELD/Noise.wav"
cp "$SAMPLES/Rear_Left.wav" "$HELD/Left.wav"
cp "$SAMPLES/Rear_Right.wav" "$HELD/Right.wav"

park
empty=$(face DropDown_1)
drop SndDisp_0 "$HELD/Noise.wav"
drop SndDisp_1 "$HELD/Left.wav"
park
expect "B has a sample" looks_unlike DropDown_1 "$empty"
left=$(face DropDown_1 SndDisp_1)
drop SndDisp_1 "$HELD/Right.wav"
park
expect "another one takes its place" looks_unlike DropDown_1 "$(head -1 <<<"$left")"
right=$(face DropDown_1)
rm "$HELD"/*.wav

echo "Backspace while A plays"
begin=$(now)
key a
expect "A plays" sounds_since "$begin"
from=$(now)
key BackSpace
expect "the sample before is back" looks_like DropDown_1 "$(head -1 <<<"$left")"
expect "with its picture" looks_like SndDisp_1 "$(tail -1 <<<"$left")"
picture "taken back"
key BackSpace shift
expect "Shift+Backspace does it again" looks_like DropDown_1 "$right"
click Undo
park
expect "the button takes it back" looks_like DropDown_1 "$(head -1 <<<"$left")"
click Redo
park
expect "the other one does it again" looks_like DropDown_1 "$right"
key BackSpace
key BackSpace
expect "the first load goes, too" looks_like DropDown_1 "$empty"
wait_ms 500
to=$(now)
expect "A has no gap meanwhile" sounds_throughout "$from" "$to"
key BackSpace
silent=$(now)
expect "A goes with its load" silent_since "$silent"
back=$(now)
key BackSpace shift
expect "and plays on when that is done again" sounds_since "$back"

echo "A set that was opened"
CONTROLS=(DropDown_0 DropDown_1 SndDisp_1 VolKnob_0 PanKnob_0 VolKnob_1)
stop_all
drop SndDisp_0 "$SAMPLES/Noise.wav"
drop SndDisp_1 "$SAMPLES/Rear_Left.wav"
save_as "evening.mvn"
drop SndDisp_1 "$SAMPLES/Rear_Right.wav"
drag VolKnob_0 -12 0
drag PanKnob_0 10 0
remember "${CONTROLS[@]}"
hear_before 0 1
quick_load 1 "evening"
expect "the title names it" title_is "marvolin-evening.mvn"
for name in DropDown_1 VolKnob_0 PanKnob_0; do
  expect "$name is that of the set" looks_unlike "$name" "${LOOK[$name]}"
done
xdotool windowactivate --sync "$WINDOW" key BackSpace
compare "taken back" "${CONTROLS[@]}"
hear_the_same "taken back" 0 1
picture "set taken back"

finish

#!/usr/bin/env bash
# A session is built by hand from the bins, saved as a session and as a package, and opened after a new start: through
# QuickLoad with the left and the right button, and from another folder. It sounds and looks as before.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

CONTROLS=(LoopIt_0 LoopIt_1 LoopIt_2 LoopIt_3 DropDown_0 DropDown_1 DropDown_2 DropDown_3 VolKnob_0 VolKnob_1 VolKnob_2
  VolKnob_3 PanKnob_0 PanKnob_1 PanKnob_2 PanKnob_3 HzKnob_0 HzKnob_1 HzKnob_2 HzKnob_3 ChannelFlag_0 ChannelFlag_1
  ChannelFlag_2 ChannelFlag_3 SndDisp_0 SndDisp_1 SndDisp_2 SndDisp_3)
# What the pattern tab shows of its LoopTrack.
SEQUENCE=(PatternGraph_0 PatternGraph_1 PatternGraph_2 NSteps TimeDigit_0 TimeDigit_1 TimeDigit_2 LoopIt_5)

# draw GRAPH HEIGHT...: draws each of the four steps at a height in pixels from the top.
draw() {
  local graph=$1 step=0 width
  read -r _ _ width _ <<<"${PLACE[PatternGraph_$graph]}"
  shift
  for height in "$@"; do
    click "PatternGraph_$graph" 1 $((width / 20 + width * 19 * (2 * step + 1) / 160)) "$height"
    step=$((step + 1))
  done
}
# in_front ROW: lets the pattern tab show that LoopTrack.
in_front() { click "Thumb_$1"; }
# as_before WORDS: checks that the whole session looks as it was built.
as_before() {
  in_front 3
  compare "$1, D in front" "${CONTROLS[@]}" "${SEQUENCE[@]}"
  in_front 0
  local name
  for name in "${SEQUENCE[@]}"; do LOOK_OF_D[$name]=${LOOK[$name]} LOOK[$name]=${LOOK_OF_A[$name]}; done
  compare "$1, A in front" "${CONTROLS[@]}" "${SEQUENCE[@]}"
  for name in "${SEQUENCE[@]}"; do LOOK[$name]=${LOOK_OF_D[$name]}; done
}
declare -A LOOK_OF_A LOOK_OF_D

echo "Building a session"
expect "the browser is open beside the main window" find_browser
# Row 7 of the destinations: bins 1 to 3 feed A to C. The list opens at the row that is chosen, "Drg Drp".
destination 0 2
park
empty=$(face DropDown_3)
begin=$(now)
bin_click 0 1
expect "a click loads and plays" sounds_since "$begin"
bin_click 1 2
bin_click 2 0
park
expect "the second bin feeds B" looks_unlike DropDown_1 "$empty"
expect "the third bin feeds C" looks_unlike DropDown_2 "$empty"
stop_all
carry 1 "browse/PickFile_1 210 $(bin_row 4)" SndDisp_3
park
expect "a drag from the right margin loads D" looks_unlike DropDown_3 "$empty"
stage_picture "$FOLDER/built.png"
stop_all
# Track, One shot, Loop and Drum.
remember "${CONTROLS[@]}"
mode_to 0 1
mode_to 1 -1
mode_to 3 2
drag VolKnob_1 -12 0
drag PanKnob_2 -10 0
drag PanKnob_3 12 0
drag HzKnob_0 6 0
# A click on the left third of a flag flips its left colour: two LoopTracks change their wires.
read -r _ _ flag_width _ <<<"${PLACE[ChannelFlag_1]}"
click ChannelFlag_1 1 $((flag_width / 6)) 16
click ChannelFlag_2 1 $((flag_width / 6)) 16
park
for name in LoopIt_0 LoopIt_1 LoopIt_3 VolKnob_1 PanKnob_2 PanKnob_3 HzKnob_0 ChannelFlag_1 ChannelFlag_2; do
  expect "$name has changed" looks_unlike "$name" "${LOOK[$name]}"
done
click Tab_2
in_front 0
remember "${SEQUENCE[@]}"
# A step is as long as the sample; lowering a digit makes it one second (50 twips per unit).
drag TimeDigit_2 0 10
draw 0 2 40 70 20
draw 2 10 38 66 38
park
for name in PatternGraph_0 PatternGraph_2 TimeDigit_2; do
  expect "A: $name has changed" looks_unlike "$name" "${LOOK[$name]}"
done
remember "${SEQUENCE[@]}"
for name in "${SEQUENCE[@]}"; do LOOK_OF_A[$name]=${LOOK[$name]}; done
picture "before, A in front"
in_front 3
remember "${SEQUENCE[@]}"
drag TimeDigit_2 0 10
draw 1 56 46 66 50
park
for name in PatternGraph_1 TimeDigit_2; do
  expect "D: $name has changed" looks_unlike "$name" "${LOOK[$name]}"
done
# The next stop sends the patterns that were drawn while nothing plays.
begin=$(now)
click PlayStop 1 23 8
expect "all play" sounds_since "$begin"
stop_all
remember "${CONTROLS[@]}" "${SEQUENCE[@]}"
picture "before, D in front"
hear_before 0 1 2 3

echo "Saving"
save_as "first set.mvn"
mkdir "$FOLDER/moved"
save_as "first pack.mvp"
for sample in "Bass plucked D" "Beat 120 straight" "Chords electric piano" "Congas 120"; do
  expect "the package contains $sample" is_there "$HOME_FOLDER/$sample.wav"
done
stage_quit
mv "$HOME_FOLDER/first pack.mvp" "$HOME_FOLDER"/*.wav "$FOLDER/moved/"

echo "QuickLoad, left button"
start
park
expect "the program starts empty" looks_like DropDown_0 "$empty"
quick_load 1
expect "the title names the session" title_is "marvolin-first set.mvn"
stop_all
as_before "left button"
picture "after left"
hear_the_same "left button" 0 1 2 3
stage_quit

echo "QuickLoad, right button"
start
park
quick_load 3
expect "Save/Open opens" stage_named "Save/Open-first set.mvn"
in_window "$NAMED" click save/Reload
expect "the title names the session" title_is "marvolin-first set.mvn"
stop_all
as_before "right button"
hear_the_same "right button" 0 1 2 3
stage_quit

echo "A package that was moved"
# Without the samples that the session was made from: the package has its own.
rm -r "$HOME_FOLDER/Samples"
start
park
file_dialogue OpenIt "Open" "$FOLDER/moved/first pack.mvp"
expect "the title names the package" title_is "marvolin-first pack.mvp"
stop_all
as_before "package"
picture "after package"
hear_the_same "package" 0 1 2 3
finish

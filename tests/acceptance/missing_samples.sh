#!/usr/bin/env bash
# A set with two samples that have been moved is opened, saved again, and its samples are found in the folder where they are now.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

CONTROLS=(DropDown_0 DropDown_1 DropDown_2 VolKnob_0 VolKnob_1 VolKnob_2 PanKnob_1 SndDisp_0 SndDisp_1 SndDisp_2)
names() { grep -aq "$2" "$1"; }

echo "A set"
load_three
drag VolKnob_1 -12 0
drag PanKnob_1 10 0
remember "${CONTROLS[@]}"
hear_before 0 1
save_as "evening.mvn"
stage_quit

echo "Two of its samples are moved"
mkdir -p "$FOLDER/moved/deep/er"
samples=$(strings "$HOME_FOLDER/evening.mvn" | grep -o '/.*\.wav' | sort -u)
moved=$(head -n 2 <<<"$samples")
while read -r sample; do mv "$sample" "$FOLDER/moved/deep/er/"; done <<<"$moved"
start
expect "the browser is open beside the main window" find_browser
quick_load 1 "evening"
expect "the title names the set" title_is "marvolin-evening.mvn"
park
picture "missing"
stop_all
save_as "again.mvn"
while read -r sample; do
  expect "saved again it still names $(basename "$sample")" names "$HOME_FOLDER/again.mvn" "$sample"
done <<<"$samples"

echo "Find"
rows=()
for row in 0 1 2; do looks_like "DropDown_$row" "${LOOK[DropDown_$row]}" || rows+=("$row"); done
between "rows that miss their sample" ${#rows[@]} 2 2
find_in() {
  click "FindSample_${rows[0]}"
  expect "the question opens" stage_named "Find missing samples in a folder and below"
  in_window "$NAMED" xdotool type --delay 20 "$1"
  xdotool key Return
  expect "the question closes" stage_not_named "Find missing samples in a folder and below"
}
find_in "$FOLDER/moved"
park
expect "A is as before" looks_like DropDown_0 "${LOOK[DropDown_0]}"
stop_all
compare "what was found" "${CONTROLS[@]}"
hear_the_same "what was found" 0 1
picture "found"

echo "The set that was saved without them"
stop_all
quick_load 1 "evening"
expect "the title names the other set" title_is "marvolin-evening.mvn"
stop_all
quick_load 1 "again"
expect "the title names it" title_is "marvolin-again.mvn"
park
for row in "${rows[@]}"; do
  expect "row $row keeps its place, and misses its sample" looks_unlike "DropDown_$row" "${LOOK[DropDown_$row]}"
done
find_in "$FOLDER/moved"
park
for row in "${rows[@]}"; do
  expect "row $row is as before" looks_like "DropDown_$row" "${LOOK[DropDown_$row]}"
done
finish

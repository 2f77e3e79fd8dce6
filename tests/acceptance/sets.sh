#!/usr/bin/env bash
# A set is built by hand from the bins, saved as a session and as a package, and opened by a program started anew: through
# QuickLoad by the left and by the right button, and out of another folder. It sounds and looks as before.
STAGE_SIZE=1920x1000
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

HOME_FOLDER=$FOLDER/marvolin
is_there() { [[ -s $1 ]]; }

# find_browser: sets BROWSER.
find_browser() {
  stage_named "marvolin browser" || return 1
  BROWSER=$NAMED
}
# bin_click BIN ROW: a click on a sample of a bin.
ROW_HEIGHT=22
bin_click() { in_window "$BROWSER" click "browse/PickFile_$1" 1 40 $((ROW_HEIGHT * $2 + 12)); }

# bin_drag BIN ROW CONTROL: drags a sample by the right margin of its list onto a control of the main window.
bin_drag() {
  local from to browser main i moves=()
  read -ra from <<<"$(at "browse/PickFile_$1" 210 $((ROW_HEIGHT * $2 + 12)))"
  read -ra to <<<"$(at "$3")"
  read -ra browser <<<"$(in_window "$BROWSER" stage_corner)"
  read -ra main <<<"$(stage_corner)"
  local fx=$((browser[0] + from[0])) fy=$((browser[1] + from[1])) tx=$((main[0] + to[0])) ty=$((main[1] + to[1]))
  for i in 1 2 3 4 5 6 7 8; do moves+=(mousemove $((fx + (tx - fx) * i / 8)) $((fy + (ty - fy) * i / 8)) sleep 0.03); done
  xdotool mousemove "$fx" "$fy" mousedown 1 "${moves[@]}" mouseup 1
}

mode_to() { drag "LoopIt_$1" 0 $((-7 * $2)); }
stop_all() {
  local begin
  begin=$(now)
  click PlayStop 1 23 36
  expect "stop all is silent" silent_since "$begin"
}

CONTROLS=(LoopIt_0 LoopIt_1 LoopIt_2 LoopIt_3 DropDown_0 DropDown_1 DropDown_2 DropDown_3 VolKnob_0 VolKnob_1 VolKnob_2
  VolKnob_3 PanKnob_0 PanKnob_1 PanKnob_2 PanKnob_3 HzKnob_0 HzKnob_1 HzKnob_2 HzKnob_3 ChannelFlag_0 ChannelFlag_1
  ChannelFlag_2 ChannelFlag_3 SndDisp_0 SndDisp_1 SndDisp_2 SndDisp_3 PatternGraph_0 PatternGraph_1 NSteps TimeDigit_2)
declare -A LOOK

# remember: what the set looks like with nothing playing, the first LoopTrack's patterns in front.
remember() {
  local name
  park
  for name in "${CONTROLS[@]}"; do LOOK[$name]=$(face "$name"); done
}
looks_the_same() {
  local name
  for name in "${CONTROLS[@]}"; do
    looks_like "$name" "${LOOK[$name]}" || { differs=$name; return 1; }
  done
}
compare() {
  differs=
  park
  expect "$1: ${#CONTROLS[@]} controls look as before" looks_the_same
  [[ -z $differs ]] || echo "        seen otherwise at least once: $differs"
}

# levels: both sides of each LoopTrack alone, over two turns of the loop, in LEVEL.
listen_to_rows() {
  local row begin
  LEVELS=()
  for row in 0 1 2 3; do
    begin=$(now)
    click "Play_$row"
    until_true 5 sounds_since "$begin" || echo "        LoopTrack $row is not heard"
    begin=$("$LISTEN" sounding "$SOUND" "$begin" "$(now)" | head -n 1 | cut -d ' ' -f 1)
    wait_ms 4200
    # shellcheck disable=SC2207
    LEVELS+=($("$LISTEN" level "$SOUND" "$begin" $((begin + 4000))))
    begin=$(now)
    click "Play_$row"
    until_true 5 silent_since "$begin" || echo "        LoopTrack $row does not stop"
  done
}

# hear_the_same WORDS: the levels are those of BEFORE.
hear_the_same() {
  local i
  listen_to_rows
  for i in 0 1 2 3 4 5 6 7; do
    between "$1: level of LoopTrack $((i / 2)), side $((i % 2))" "${LEVELS[i]}" $((BEFORE[i] - 60)) $((BEFORE[i] + 60))
  done
}

# save_as NAME: through the dialogues, into the folder that they start in.
save_as() {
  click SaveOpen
  expect "Save/Open comes for $1" stage_save
  in_window "$SAVE" click save/SaveItAs
  expect "the file dialogue comes" stage_named "Save As"
  xdotool windowactivate --sync "$NAMED" type --delay 15 "$1"
  xdotool key Return
  expect "$1 is a file" is_there "$HOME_FOLDER/$(basename "$1")"
  expect "the file dialogue goes" stage_not_named "Save As"
}
# The Save/Open dialogue, whatever file it speaks of: sets SAVE.
stage_save() {
  local window
  for window in $(stage_windows); do
    if [[ $(xdotool getwindowname "$window" 2>/dev/null) == Save/Open* ]]; then
      SAVE=$window
      return 0
    fi
  done
  return 1
}
# quick_load BUTTON: opens the list with that button and picks the first session, the row below "<Close>".
quick_load() {
  local windows
  windows=$(stage_windows | wc -l)
  click QuickLoadPop "$1"
  expect "the list opens" more_windows_than "$windows"
  xdotool key Down key Return
}
more_windows_than() { [[ $(stage_windows | wc -l) -gt $1 ]]; }
title_is() { [[ $(xdotool getwindowname "$WINDOW") == "$1" ]]; }

echo "A set is built"
expect "the browser stands beside the main window" find_browser
# Row 7 of the destinations: bins 1 to 3 feed A to C. The list opens at the row that is chosen, "Drg Drp".
in_window "$BROWSER" click browse/FileDestination_0
xdotool key Down key Down key Return
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
bin_drag 1 4 SndDisp_3
park
expect "a drag by the right margin loads D" looks_unlike DropDown_3 "$empty"
import -window root "$FOLDER/built.png"
stop_all
mode_to 0 1
mode_to 3 1
drag VolKnob_1 -12 0
drag PanKnob_2 -10 0
drag PanKnob_3 12 0
drag HzKnob_0 6 0
click ChannelFlag_2
click Thumb_0
click Tab_2
# A step lasts as long as the sample, four seconds; three whole ones less (50 twips a unit).
drag TimeDigit_2 0 10
read -r _ _ graph_width _ <<<"${PLACE[PatternGraph_0]}"
for step in 0 1 2 3; do
  click PatternGraph_0 1 $((graph_width / 20 + graph_width * 19 * (2 * step + 1) / 160)) $((4 + 8 * step))
done
remember
picture "before"
# A volume that is drawn while nothing plays is sent with the next stop.
begin=$(now)
click Play_0
until_true 5 sounds_since "$begin"
stop_all
listen_to_rows
BEFORE=("${LEVELS[@]}")
echo "        levels: ${BEFORE[*]}"

echo "It is saved"
save_as "first set.mvn"
mkdir "$FOLDER/moved"
save_as "first pack.mvp"
for sample in "Bass plucked D" "Beat 120 straight" "Chords electric piano" "Congas 120"; do
  expect "the package holds $sample" is_there "$HOME_FOLDER/$sample.wav"
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
click Thumb_0
compare "left button"
picture "after left"
hear_the_same "left button"
stage_quit

echo "QuickLoad, right button"
start
park
quick_load 3
expect "Save/Open comes" stage_named "Save/Open-first set.mvn"
in_window "$NAMED" click save/Reload
expect "the title names the session" title_is "marvolin-first set.mvn"
stop_all
click Thumb_0
compare "right button"

echo "A package that was moved"
# The samples that the set was made from are gone: the package has its own.
stage_quit
rm -r "$HOME_FOLDER/Samples"
start
park
click SaveOpen
expect "Save/Open comes" stage_save
in_window "$SAVE" click save/OpenIt
expect "the file dialogue comes" stage_named "Open"
xdotool windowactivate --sync "$NAMED" type --delay 15 "$FOLDER/moved/first pack.mvp"
xdotool key Return
expect "the title names the package" title_is "marvolin-first pack.mvp"
stop_all
click Thumb_0
compare "package"
picture "after package"
hear_the_same "package"
finish

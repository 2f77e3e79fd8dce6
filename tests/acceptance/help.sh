#!/usr/bin/env bash
# Help while a loop plays: F1 over a control, the question mark dragged onto controls, enabled and disabled, a click on the
# question mark; what happens without the folder of Help. The sound must have no gap, and no control may change.
STAGE_SIZE=1920x1000
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

HELP="Marvolin Help"
QUESTION_MARK="StatusBar1 1016 12"

# close_help: closes the window of Help with Escape and gives the main window the focus again.
close_help() {
  if stage_named "$HELP"; then xdotool windowactivate --sync "$NAMED" key Escape; fi
  expect "Help closes with Escape" stage_not_named "$HELP"
  xdotool windowactivate --sync "$WINDOW"
}
more_windows() { [[ $(stage_windows | wc -l) -gt $1 ]]; }
no_more_windows() { [[ $(stage_windows | wc -l) -le $1 ]]; }

"$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone.wav" 400
drop SndDisp_0 "$FOLDER/tone.wav"
click Play_0
begin=$(now)
expect "a loop plays" sounds_since "$begin"

echo "Without the folder of Help"
windows=$(stage_windows | wc -l)
# shellcheck disable=SC2046
pointer $(at VolKnob_1)
xdotool key F1
expect "a message comes" more_windows "$windows"
picture "no folder"
xdotool key Return
expect "Return closes it" no_more_windows "$windows"

echo "F1 and the question mark"
cp -r "$(dirname "$PROGRAM_FILE")/Help" "$FOLDER/marvolin/"
remember VolKnob_1 Letr_1 SndDisp_1 LoopIt_1
begin=$(now)
# shellcheck disable=SC2046
pointer $(at VolKnob_1)
xdotool key F1
expect "F1 opens Help" stage_named "$HELP"
import -window "$NAMED" "$FOLDER/volume.png"
close_help
for control in VolKnob_1 Letr_1 SndDisp_1 LoopIt_1 Scripts "$QUESTION_MARK"; do
  carry 1 "$QUESTION_MARK" "$control"
  expect "the question mark on $control opens Help" stage_named "$HELP"
  import -window "$NAMED" "$FOLDER/$control.png"
  close_help
done
wait_ms 500
compare "after help" VolKnob_1 Letr_1 SndDisp_1 LoopIt_1
expect "the sound has no gap meanwhile" sounds_throughout "$begin" "$(now)"

echo "A page that is missing"
rm "$FOLDER/marvolin/Help/10003.html"
carry 1 "$QUESTION_MARK" Browse
expect "Help opens and tells it" stage_named "$HELP"
import -window "$NAMED" "$FOLDER/missing.png"
finish

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
# Every page gets a band in a colour of its own below the first line, so that the picture of the window tells which page
# is open.
page_colour() { printf '#%02x%02x%02x' $((60 + $1 % 6 * 32)) $((60 + $1 / 6 % 6 * 32)) $((60 + ($1 - 10000) / 36 * 4)); }
mark_pages() {
  local page colour
  for page in "$1"/10*.html; do
    colour=$(page_colour "$(basename "$page" .html)")
    sed -i "s|</h1>|</h1><table width=\"100%\" bgcolor=\"$colour\"><tr><td><br><br></td></tr></table>|" "$page"
  done
}
# shows_page TOPIC: true while Help shows the page of that number. Keeps its picture.
shows_page() {
  local colour pixels
  stage_named "$HELP" || return 1
  colour=$(page_colour "$1")
  import -window "$NAMED" "$FOLDER/page.png"
  pixels=$(convert "$FOLDER/page.png" -fill black +opaque "$colour" -fill white -opaque "$colour" \
    -format '%[fx:round(mean*w*h)]' info:)
  [[ $pixels -gt 3000 ]]
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
mark_pages "$FOLDER/marvolin/Help"
remember VolKnob_1 Letr_1 SndDisp_1 LoopIt_1
begin=$(now)
# shellcheck disable=SC2046
pointer $(at VolKnob_1)
xdotool key F1
expect "F1 opens Help" stage_named "$HELP"
expect "it is the page on the volume" shows_page 10026
cp "$FOLDER/page.png" "$FOLDER/volume.png"
close_help
declare -A PAGE=([VolKnob_1]=10026 [Letr_1]=10022 [SndDisp_1]=10022 [LoopIt_1]=10024 [Scripts]=10007
  [$QUESTION_MARK]=10000)
for control in VolKnob_1 Letr_1 SndDisp_1 LoopIt_1 Scripts "$QUESTION_MARK"; do
  carry 1 "$QUESTION_MARK" "$control"
  expect "the question mark on $control opens Help" stage_named "$HELP"
  expect "on page ${PAGE[$control]}" shows_page "${PAGE[$control]}"
  cp "$FOLDER/page.png" "$FOLDER/$control.png"
  close_help
done

echo "Other buttons and keys while the question mark is dragged"
# shellcheck disable=SC2046,SC2086
xdotool mousemove --window "$WINDOW" $(at $QUESTION_MARK) mousedown 1 sleep 0.1 \
  mousemove_relative -- -60 -80 sleep 0.1 mousemove --window "$WINDOW" $(at SndDisp_1) sleep 0.2 \
  key Page_Down key space click 3 sleep 0.1 key Escape mouseup 1
wait_ms 300
expect "Help stays closed" stage_not_named "$HELP"
wait_ms 500
compare "after help" VolKnob_1 Letr_1 SndDisp_1 LoopIt_1
expect "the sound has no gap meanwhile" sounds_throughout "$begin" "$(now)"

echo "A page that is missing"
rm "$FOLDER/marvolin/Help/10003.html"
carry 1 "$QUESTION_MARK" Browse
expect "Help opens and tells it" stage_named "$HELP"
import -window "$NAMED" "$FOLDER/missing.png"
finish

#!/usr/bin/env bash
# The window of scripts: an example is chosen and run, and is heard and seen; a knob is turned, and a script that was typed
# answers; a wrong line is marked; a loop without end, in an event, too, is stopped and told. What plays goes on throughout.
STAGE_SIZE=2000x1000
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# scripts_open: true while the window of scripts is open. Sets SCRIPTS, and NAME to what its title says behind the dash.
scripts_open() {
  local window title
  for window in $(stage_windows); do
    title=$(xdotool getwindowname "$window" 2>/dev/null)
    if [[ $title == "marvolin scripts - "* ]]; then
      SCRIPTS=$window
      NAME=${title#marvolin scripts - }
      return 0
    fi
  done
  return 1
}
scripts_closed() { ! scripts_open; }
name_is() { scripts_open && [[ $NAME == "$1" ]]; }
in_scripts() { in_window "$SCRIPTS" "$@"; }
keep_scripts() { import -window "$SCRIPTS" "$FOLDER/$1.png"; }

# list_beside WINDOWS: true when there is a window that is not among WINDOWS, an open list. Sets LIST.
list_beside() {
  local window
  for window in $(stage_windows); do
    if [[ $1 != *" $window "* ]]; then
      LIST=$window
      return 0
    fi
  done
  return 1
}
# discard: answers the question about a text that is not saved, with the button in the middle.
discard() {
  local width height
  width=$(xwininfo -id "$NAMED" | sed -n 's/^ *Width: //p')
  height=$(xwininfo -id "$NAMED" | sed -n 's/^ *Height: //p')
  xdotool mousemove --window "$NAMED" $((width * 67 / 100)) $((height - 25)) click 1
  expect "the question closes" stage_not_named "marvolin scripts"
}
# write TEXT: begins an empty script and types the text.
write() {
  in_scripts click scripts/NewScript
  # The text before may not have been saved.
  if until_true 1 stage_named "marvolin scripts"; then discard; fi
  in_scripts click scripts/ScriptText 1 300 60
  xdotool type --delay 12 "$1"
}
# red_line: the text has a line on the ground of a wrong one.
red_line() {
  local x y w h red
  read -r x y w h <<<"${PLACE[scripts/ScriptText]}"
  keep_scripts "text"
  red=$(convert "$FOLDER/text.png" -crop "${w}x$h+$x+$y" +repage -format '%c' histogram:info:- |
    sed -n 's/^ *\([0-9]*\): .*#4A2020.*/\1/p')
  [[ ${red:-0} -gt 2000 ]]
}
no_red_line() { ! red_line; }
# leans SIDE FROM: in the last 400 ms since FROM that side is louder by 10 dB.
leans() {
  local end left right
  end=$(now)
  [[ $end -ge $(($2 + 400)) ]] || return 1
  read -r left right <<<"$("$LISTEN" level "$SOUND" $((end - 400)) "$end")"
  if [[ $1 == left ]]; then [[ $left -ge $((right + 1000)) ]]; else [[ $right -ge $((left + 1000)) ]]; fi
}
# mapped: the library of the window of scripts is in the program's memory.
mapped() { grep -q qscintilla "/proc/$PROGRAM/maps"; }
not_mapped() { ! mapped; }
report_open() {
  local window
  for window in $(stage_windows); do
    if [[ $window != "$WINDOW" && $(xdotool getwindowname "$window" 2>/dev/null) == marvolin ]]; then
      REPORT=$window
      return 0
    fi
  done
  return 1
}
report_closed() { ! report_open; }

park
drop SndDisp_0 "$SAMPLES/Noise.wav"
begin=$(now)
click Play_0
expect "A is heard" sounds_since "$begin"
park
dark=$(face Scripts)
middle=$(face PanKnob_0)

echo "An example"
expect "the program has started without the library of that window" not_mapped
click Scripts
expect "Scripts opens a window" name_is "untitled.mvs"
expect "which has loaded it" mapped
# Beside the main window, of which pictures are taken.
xdotool windowmove "$SCRIPTS" 10 40
keep_scripts "empty"
windows=" $(stage_windows | paste -sd ' ') "
in_scripts click scripts/Examples
expect "the list of examples opens" list_beside "$windows"
xdotool mousemove --window "$LIST" 60 14 click 1
expect "the first one is in the window" name_is "pan_oscillator.mvs"
keep_scripts "example"
in_scripts click scripts/RunScript
park
expect "the main window shows that a script runs" looks_unlike Scripts "$dark"
expect "the pan knob of A turns" looks_unlike PanKnob_0 "$middle"
begin=$(now)
expect "A is heard on the left" leans left "$begin"
expect "A is heard on the right" leans right "$begin"
picture "a script runs"
in_scripts click scripts/StopScript
park
expect "Stop stops it" looks_like Scripts "$dark"
at_rest=$(face PanKnob_0)
wait_ms 500
expect "the pan knob rests" looks_like PanKnob_0 "$at_rest"

echo "A knob"
write "function OnVolScroll(row) marvolin.set_pan(row - 1, -500) end"
keep_scripts "typed"
xdotool key F5
park
expect "the typed script runs" looks_unlike Scripts "$dark"
begin=$(now)
drag VolKnob_0 -6 0
park
expect "turning the volume turns the pan" looks_unlike PanKnob_0 "$at_rest"
expect "A is heard on the left" leans left "$begin"

echo "A wrong line"
expect "no line is marked" no_red_line
write "local x = = 1"
xdotool key F5
expect "the wrong line is marked" red_line
park
expect "the script before goes on" looks_unlike Scripts "$dark"
keep_scripts "wrong line"

echo "A loop without end"
begin=$(now)
write "while true do end"
xdotool key F5
expect "it is told in a box" report_open
import -window "$REPORT" "$FOLDER/told.png"
expect "its line is marked" red_line
expect "no script runs" looks_like Scripts "$dark"
keep_scripts "loop"
wait_ms 300
expect "what plays goes on without a gap" sounds_throughout "$begin" "$(now)"
xdotool windowactivate --sync "$WINDOW" key Escape
expect "the box closes" report_closed

echo "A loop without end in an event"
write "function OnVolScroll() while true do end end"
xdotool key F5
park
expect "the script runs" looks_unlike Scripts "$dark"
begin=$(now)
drag VolKnob_0 -6 0
park
expect "it is told in a box" report_open
import -window "$REPORT" "$FOLDER/told in an event.png"
expect "its line is marked" red_line
expect "the script runs on" looks_unlike Scripts "$dark"
wait_ms 300
expect "what plays goes on without a gap" sounds_throughout "$begin" "$(now)"
xdotool windowactivate --sync "$WINDOW" key Escape
expect "the box closes" report_closed
drag VolKnob_0 6 0
park
wait_ms 200
expect "the event is silent from then on" report_closed

echo "Closing"
xdotool windowactivate --sync "$SCRIPTS" key alt+F4
expect "the window asks about the text" stage_named "marvolin scripts"
import -window "$NAMED" "$FOLDER/question.png"
discard
expect "it closes" scripts_closed
finish

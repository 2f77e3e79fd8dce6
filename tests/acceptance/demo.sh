#!/usr/bin/env bash
# The first start: the demo plays, B, C and D fade one after the other, and the question comes. "No" disables the demo, the
# next start is silent, and the one after that applies the preferences saved in between.
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

BUILT=$(dirname "$PROGRAM_FILE")
HOME_FOLDER=$FOLDER/marvolin
demo=$BUILT/startup.mvp
[[ -e $demo ]] || demo=$BUILT/disabledstartup.mvp
cp "$demo" "$HOME_FOLDER/startup.mvp"
cp "$BUILT"/*.wav "$HOME_FOLDER/"

wall_ms() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }
first_sound() { "$LISTEN" sounding "$SOUND" 0 3600000 | head -n 1 | cut -d ' ' -f 1; }
sounds_at_all() { [[ -n $(first_sound) ]]; }
# box_open: true while a message box of the program is open. Sets BOX.
box_open() {
  local window
  for window in $(stage_windows); do
    if [[ $window != "$WINDOW" && $(xdotool getwindowname "$window" 2>/dev/null) == marvolin ]]; then
      BOX=$window
      return 0
    fi
  done
  return 1
}
box_closed() { ! box_open; }
is_there() { [[ -e $1 ]]; }
is_gone() { [[ ! -e $1 ]]; }

echo "The demo"
launched=$(wall_ms)
stage_start "$HOME_FOLDER/$(basename "$PROGRAM_FILE")"
expect "it is heard" sounds_at_all
between "ms from the start of the process to the window shown with the demo sounding" $(($(wall_ms) - launched)) 0 5000
begin=$(first_sound)
stage_clear
park
playing=$(face Play_0)
for row in 1 2 3; do expect "LoopTrack $row looks as A does: playing" looks_like "Play_$row" "$playing"; done
mapfile -t knob < <(look VolKnob_0 VolKnob_1 VolKnob_2 VolKnob_3)

# fades ROW MS: the knob of the row starts to turn at that time of the demo.
fades() {
  if ! until_true 12 looks_unlike "VolKnob_$1" "${knob[$1]}"; then
    expect "LoopTrack $1 fades" false
    return 0
  fi
  # The change may be noticed up to two tenths of a second late.
  between "ms to the fade of LoopTrack $1" $(($(now) - begin)) $(($2 - 200)) $(($2 + 900))
}
fades 1 3000
fades 2 5000
picture "demo"
expect "the splash has closed" stage_no_splash
fades 3 9000
expect "the question comes with the last fade" stage_named "Startup Demo"
question=${NAMED:-$WINDOW}
import -window "$question" "$FOLDER/question.png"
for row in 1 2 3; do expect "LoopTrack $row has stopped after its fade" looks_unlike "Play_$row" "$playing"; done
expect "A still plays" looks_like Play_0 "$playing"
expect "A's volume is unchanged" looks_like VolKnob_0 "${knob[0]}"
expect "A is heard" sounds_since "$(now)"
for part in 0 2500 7000; do
  between "level from $part ms of the demo" "$(loud $((begin + part)) $((begin + part + 500)))" -2600 -600
done

echo "No"
xdotool windowactivate --sync "$question" key Tab key Return
expect "a box says how to enable the demo again" box_open
import -window "$BOX" "$FOLDER/disabled.png"
expect "the demo has another name" is_there "$HOME_FOLDER/disabledstartup.mvp"
expect "its old name is gone" is_gone "$HOME_FOLDER/startup.mvp"
expect "it is the same file" cmp -s "$HOME_FOLDER/disabledstartup.mvp" "$demo"
expect "the question closes" stage_not_named "Startup Demo"
# The box takes no focus: the main window has the keyboard, and Return there closes it.
xdotool windowactivate --sync "$WINDOW" key Return
expect "the box closes" box_closed
expect "A is still heard" sounds_since "$(now)"
stage_quit

echo "The next start"
begin=$(now)
start
park
expect "no LoopTrack plays" looks_unlike Play_0 "$playing"
expect "nothing is heard" silent_since "$begin"

echo "Preferences"
# A lower limit and the pattern tab in front, saved under the name that the start looks for.
limit=$(face Limiter)
tabs=$(face TabControl)
drag Limiter 0 60
click Tab_2
park
expect "the limit changes" looks_unlike Limiter "$limit"
expect "another tab opens" looks_unlike TabControl "$tabs"
limit=$(face Limiter)
tabs=$(face TabControl)
click SaveOpen
expect "Save/Open opens" stage_named "Save/Open"
dialogue=$NAMED
in_window "$dialogue" click save/SaveItAs
expect "the file dialogue opens" stage_named "Save As"
xdotool windowactivate --sync "$NAMED" type --delay 15 "preferences.mvn"
xdotool key Return
expect "the preferences are a file in the program's folder" is_there "$HOME_FOLDER/preferences.mvn"
expect "the file dialogue closes" stage_not_named "Save As"
stage_quit
start
park
expect "the limit is as it was saved" looks_like Limiter "$limit"
expect "the pattern tab is open again" looks_like TabControl "$tabs"
picture "preferences"
finish

#!/usr/bin/env bash
# The first minute of somebody who has never seen the program and reads nothing but the status line: hears the demo, brings a
# faded loop back, makes a beat, saves it, and finds it again at the next start. Each step begins with what the status line
# says of the control under the pointer, and does that.
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"
PAINT_STATUS=$5

BUILT=$(dirname "$PROGRAM_FILE")
demo=$BUILT/startup.mvp
[[ -e $demo ]] || demo=$BUILT/disabledstartup.mvp
cp "$demo" "$HOME_FOLDER/startup.mvp"
cp "$BUILT"/*.wav "$HOME_FOLDER/"

# status_is TEXT: true while the status line shows this text.
declare -A PAINTED
status_is() {
  local x y _
  if [[ -z ${PAINTED[$1]:-} ]]; then
    "$PAINT_STATUS" "$1" "$FOLDER/status.png"
    PAINTED[$1]=$(convert "$FOLDER/status.png" -depth 8 rgb:- | sha1sum)
  fi
  read -r x y _ _ <<<"${PLACE[StatusBar1]}"
  [[ $(import -window "$WINDOW" -crop "660x24+$((x + 12))+$y" +repage -depth 8 rgb:- | sha1sum) == "${PAINTED[$1]}" ]]
}
# tells_what_has_faded: D may still fall when the question is answered.
tells_what_has_faded() {
  status_is "B & C have faded out, D is fading out: Shift+B fades B in" ||
    status_is "B, C & D have faded out: Shift+B fades B in"
}
# reads NAME TEXT: puts the pointer on a control, and reads the text in the status line.
reads() {
  # shellcheck disable=SC2046
  pointer $(at "$1")
  expect "on $1 the status line says \"$2\"" status_is "$2"
}

echo "Hearing it"
begin=0
stage_start "$HOME_FOLDER/$(basename "$PROGRAM_FILE")"
expect "the demo is heard" sounds_since "$begin"
stage_clear
reads Play_1 "clk Toggle Play; rtclk Pause"
picture "demo"
park
playing=$(face Play_0)
expect "all four rows play" looks_like Play_3 "$playing"
expect "the question comes" until_true 20 stage_named "Startup Demo"
xdotool windowactivate --sync "$NAMED" key Return
expect "Return answers it with Yes" stage_not_named "Startup Demo"
xdotool windowactivate --sync "$WINDOW"
expect "the status line says how the faded loops come back" \
  tells_what_has_faded
picture "after the demo"
expect "B stands still" looks_unlike Play_1 "$playing"
key b shift
park
expect "Shift+B lets B play" looks_like Play_1 "$playing"

echo "Making a beat"
reads LoopIt_0 "drg Play Mode -/+; rtclk Jump to Beginning; Loop (sample loops continuously)"
mode_to 0 2
reads LoopIt_0 "drg Play Mode -/+; rtclk Jump to Beginning; Drum (track Vol,Pan & Freq pattern, restart sample each beat)"
reads Thumb_0 "clk Select Pattern/LoopTrack Position; dblclk Open Pattern"
double_click Thumb_0
reads PatternGraph_0 "clk, drg Draw Pattern; rtdrg Copy Pattern"
read -r _ _ graph_width graph_height <<<"${PLACE[PatternGraph_0]}"
park
plain=$(face PatternGraph_0)
drag PatternGraph_0 $((graph_width / 2)) $((graph_height / 2)) 1 $((graph_width / 3)) 8
park
expect "the steps are drawn" looks_unlike PatternGraph_0 "$plain"
reads TimeDigit_1 "drg Digits -/+; 4 Steps a Beat: 60.0 bpm"
picture "beat"
begin=$(now)
expect "it is heard" sounds_since "$begin"

echo "Keeping it"
reads SaveOpen "clk Save/Open Dialogue"
click SaveOpen
expect "Save/Open opens" stage_save
import -window "$SAVE" "$FOLDER/save.png"
xdotool windowactivate --sync "$SAVE" key Return
expect "Return on the focused button asks for a name" stage_named "Save As"
xdotool windowactivate --sync "$NAMED" type --delay 15 "first beat"
xdotool key Return
expect "the beat is a file" is_there "$HOME_FOLDER/first beat.mvn"
expect "the file dialogue closes" stage_not_named "Save As"
remember LoopIt_0 DropDown_0 DropDown_1 DropDown_2 DropDown_3 PatternGraph_0 VolKnob_0
stage_quit

echo "Finding it again"
rm "$HOME_FOLDER/startup.mvp"
start
reads QuickLoadPop "clk Open QuickLoad Dropdown"
quick_load 1
double_click Thumb_0
compare "found again" LoopIt_0 DropDown_0 DropDown_1 DropDown_2 DropDown_3 PatternGraph_0 VolKnob_0
begin=$(now)
expect "and heard again" sounds_since "$begin"
picture "found"
finish

#!/usr/bin/env bash
# The first minute of somebody who has never seen the program and reads nothing but the status line: hears the demo, brings a
# faded loop back, touches wire, pad, band and selection, makes a beat, saves it, and finds it again at the next start. Each step
# begins with what the status line says of the control under the pointer, and does that. What is to be heard is compared with
# what was heard before.
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
  status_is "B, C & D fade out: Shift+B fades B in" ||
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

# longest_gap FROM TO: prints the longest silence between the two times, ms.
longest_gap() {
  local from to last=$1 longest=0
  while read -r from to; do
    ((from - last <= longest)) || longest=$((from - last))
    last=$to
  done < <("$LISTEN" sounding "$SOUND" "$1" "$2")
  ((${2} - last <= longest)) || longest=$(($2 - last))
  echo "$longest"
}
# level_now: the level of the half second that is recorded from now on.
level_now() {
  local begin
  begin=$(now)
  wait_ms 600
  loud $((begin + 100)) $((begin + 600))
}

echo "Playing on it"
# shellcheck disable=SC2046
pointer $(at PlayStop 23 34)
expect "the lower half of the button says what it does" status_is "clk Stop All Sounds"
click PlayStop 1 23 34
park
begin=$(now)
expect "all is silent" silent_since "$begin"
reads Play_0 "clk Toggle Play; rtclk Pause"
click Play_0
begin=$(now)
expect "A alone is heard" sounds_since "$begin"
reads ChannelFlag_0 "drg Wire -/+; click Flip Colour; rtclk tggle Connect"
park
wire=$(face ChannelFlag_0)
levels=$(face ChannelLevels)
click ChannelFlag_0 1 10 16
park
expect "a click flips the colours of the wire" looks_unlike ChannelFlag_0 "$wire"
expect "the letter of A goes to the bar of another channel" looks_unlike ChannelLevels "$levels"
click ChannelFlag_0 1 10 16
park
expect "and back" looks_like ChannelFlag_0 "$wire"
reads Pad "drg Mix Channels; dblclk Centre"
loudest=$(level_now)
drag_ball Pad 90 90
park
expect "the ball changes the levels of the channels" looks_unlike ChannelLevels "$levels"
picture "pad"
quieter=$(level_now)
between "what A plays is heard at another level" $((loudest - quieter)) 300 9999
reads Bands "drg Band over LoopTracks; clk Add/Remove; dblclk Empty"
park
drag VolKnob_1 -60 0 # down: wherever its fade has come to, it is not what A will be turned to
park
one=$(face VolKnob_0)
other=$(face VolKnob_1)
lane=$(face Bands)
drag Bands 190 0 1 35 3
park
expect "a band is drawn" looks_unlike Bands "$lane"
drag VolKnob_0 -3 0
park
expect "the knob of A turns" looks_unlike VolKnob_0 "$one"
expect "and that of B, in the same band, with it" looks_unlike VolKnob_1 "$other"
drag VolKnob_0 3 0
# shellcheck disable=SC2046
xdotool mousemove --window "$WINDOW" $(at Bands 35 3) click --repeat 2 --delay 40 1  # empties the lane
reads Selected_1 "drg Select LoopTracks; rtdrg Deselect LoopTracks (drg over to select/deselect)"
park
flag=$(face Selected_1)
click Selected_1
park
expect "the flag of B is set" looks_unlike Selected_1 "$flag"
reads SelectorRadio_0 "clk Toggle Control of Selection/Band; dblclk Control Selection/Band"
picture "played on"
click Selected_1

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
begin=$(now)
wait_ms 6500
before=$(longest_gap "$begin" "$(now)")
between "each step is heard before the lane is drawn" "$before" 0 1000
drag PatternGraph_0 $((graph_width / 2 - 8)) 0 1 $((graph_width / 2)) $((graph_height - 1))
park
expect "the steps are drawn" looks_unlike PatternGraph_0 "$plain"
reads TimeDigit_1 "drg Digits -/+; 4 Steps a Beat: 60.0 bpm"
picture "beat"
begin=$(now)
wait_ms 6500
after=$(longest_gap "$begin" "$(now)")
between "the half that is drawn down to nothing is a rest of two seconds, against $before ms" "$after" 1500 2600
begin=$(now)
expect "and the other half is heard" sounds_since "$begin"

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

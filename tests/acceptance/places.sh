#!/usr/bin/env bash
# A session brings back more than its rows: the places on the sound map with 3D sound, and the clips. LoopTracks are
# dragged onto the clipboard, clips onto LoopTracks with either button and into the trash.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

BALLS=(Map MapSize)
ROWS=(DropDown_0 DropDown_1 DropDown_2 SndDisp_0 SndDisp_1 SndDisp_2 VolKnob_0 ChannelFlag_0)

# browser_tab N: opens a tab of the browser.
browser_tab() {
  local width
  read -r _ _ width _ <<<"${PLACE[browse/Sstab]}"
  in_window "$BROWSER" click browse/Sstab 1 $((width * (2 * $1 + 1) / 8)) 12
  xdotool mousemove --window "$BROWSER" 4 490
}
# browser_looks COMMAND...: face, looks_like and looks_unlike for a control of the browser, named "browse/...".
browser_looks() { in_window "$BROWSER" "$@"; }

# ball_to BALL X Y: drags a LoopTrack's ball from its place to another, in pixels from the map's centre. A press holds it by
# its centre. It is let go when it has been seen to arrive, since a hand does not outrun what it sees.
declare -A STANDS
ball_to() {
  local x y i from before moves=()
  before=$(look Map)
  read -r x y <<<"$(at Map)"
  read -ra from <<<"${STANDS[$1]:-0 0}"
  for i in 1 2 3 4 5 6 7 8; do
    moves+=(mousemove --window "$WINDOW" $((x + from[0] + ($2 - from[0]) * i / 8))
      $((y + from[1] + ($3 - from[1]) * i / 8)) sleep 0.01)
  done
  xdotool mousemove --window "$WINDOW" $((x + from[0])) $((y + from[1])) mousedown 1 "${moves[@]}"
  expect "the ball of LoopTrack $1 moves" looks_unlike Map "$before"
  before=$(face Map)
  release 1
  STANDS[$1]="$2 $3"
}
# side ROW: prints how much louder the left side is than the right one, in the first second that was heard.
side() {
  local levels
  read -ra levels <<<"${HEARD[$1]}"
  echo $((levels[0] - levels[1]))
}

echo "Places on the map"
load_three
click Tab_1
park
off=$(face Map)
click Enable3d 1 12 13
park
expect "the map opens with 3D sound" looks_unlike Map "$off"
listen_to_rows 0 1
between "A is heard in the middle" "$(side 0)" -100 100
between "B is heard in the middle" "$(side 1)" -100 100
ball_to 0 -100 -30
ball_to 1 90 20
ball_to 2 20 110
remember "${BALLS[@]}"
picture "before"
hear_before 0 1 2
between "A is heard on the left" "$(side 0)" 300 9000
between "B is heard on the right" "$(side 1)" -9000 -300

echo "Clips"
drag VolKnob_0 -8 0
read -r _ _ flag_width _ <<<"${PLACE[ChannelFlag_0]}"
click ChannelFlag_0 1 $((flag_width / 6)) 16
hear_before 0
browser_tab 3
# The list has the focus, which shows on it, in all its pictures.
focus_clips() {
  in_window "$BROWSER" click browse/ClipBoardList 1 30 300
  xdotool mousemove --window "$BROWSER" 4 490
}
focus_clips
none=$(browser_looks face browse/ClipBoardList)
carry 1 "DropDown_0 60 4" browse/ClipBoardList
xdotool mousemove --window "$BROWSER" 4 490
expect "A is a clip" browser_looks looks_unlike browse/ClipBoardList "$none"
one=$(browser_looks face browse/ClipBoardList)
carry 1 "DropDown_1 60 4" browse/ClipBoardList
xdotool mousemove --window "$BROWSER" 4 490
expect "B is another clip" browser_looks looks_unlike browse/ClipBoardList "$one"
stage_picture "$FOLDER/clips.png"
remember "${ROWS[@]}"
clips=$(browser_looks face browse/ClipBoardList)

echo "Saving"
save_as "places.mvn"
stage_quit

echo "Opening it again"
start
expect "the browser is open beside the main window" find_browser
click Tab_1
park
expect "3D sound is off at the start" looks_like Map "$off"
browser_tab 3
focus_clips
expect "there are no clips" browser_looks looks_like browse/ClipBoardList "$none"
quick_load 1
expect "the title names the session" title_is "marvolin-places.mvn"
stop_all
compare "places and rows" "${BALLS[@]}" "${ROWS[@]}"
expect "the clips are back" browser_looks looks_like browse/ClipBoardList "$clips"
picture "after"
hear_the_same "places" 0 1 2

echo "Clips onto LoopTracks"
bare=$(face SndDisp_3)
wire=$(face ChannelFlag_3)
begin=$(now)
carry 1 "browse/ClipBoardList 30 14" SndDisp_3
expect "a clip dragged with the left button plays" sounds_since "$begin"
park
expect "D has the sample" looks_unlike SndDisp_3 "$bare"
expect "D has A's wire" looks_unlike ChannelFlag_3 "$wire"
stop_all
park
expect "D is where A is" looks_unlike Map "${LOOK[Map]}"
listen_to_rows 3
between "and is heard there, on the left" "$(side 3)" 300 9000
# The right button copies only what is ticked: the wire.
for box in 0 1 2 3 4 5; do in_window "$BROWSER" click "browse/Components_$box" 1 12 12; done
remember DropDown_1 SndDisp_1 VolKnob_1 ChannelFlag_1
carry 3 "browse/ClipBoardList 30 14" SndDisp_1
park
expect "B gets the wire" looks_unlike ChannelFlag_1 "${LOOK[ChannelFlag_1]}"
compare "B keeps everything else" DropDown_1 SndDisp_1 VolKnob_1
stage_picture "$FOLDER/copied.png"
carry 1 "browse/ClipBoardList 30 14" browse/Trash
xdotool mousemove --window "$BROWSER" 4 490
expect "a clip dropped on the trash is gone" browser_looks looks_unlike browse/ClipBoardList "$clips"
expect "the other one stays" browser_looks looks_unlike browse/ClipBoardList "$none"
in_window "$BROWSER" click browse/ClearClip
expect "Clear all asks" stage_named "Clear?"
xdotool windowactivate --sync "$NAMED" key Return
expect "the question closes" stage_not_named "Clear?"
xdotool mousemove --window "$BROWSER" 4 490
expect "no clip is left" browser_looks looks_like browse/ClipBoardList "$none"
finish

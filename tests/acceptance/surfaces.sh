#!/usr/bin/env bash
# The performance surfaces while four LoopTracks sound: the ball of the mix pad cross-fades them, drags over the flags
# select them, the selection's knob moves the selected ones, the selector's buttons choose what is in control, double
# clicks centre the balls of pad and map.
# Each LoopTrack plays its own tone, so that its level can be measured in the captured sound.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

TONES=(400 700 1100 1700)

steady() {
  local begin i was=("${LEVELS[@]}")
  begin=$(now)
  wait_ms 160
  read -ra LEVELS <<<"$("$LISTEN" tones "$SOUND" "$begin" $((begin + 150)) "${TONES[@]}")"
  [[ ${#was[@]} -eq 4 ]] || return 1
  for i in 0 1 2 3; do
    [[ $((LEVELS[i] - was[i])) -le 20 && $((was[i] - LEVELS[i])) -le 20 ]] || return 1
  done
}
# hear WHERE: waits until the levels are steady and sets LEVELS, one for each LoopTrack.
hear() {
  LEVELS=()
  expect "$1: the levels are steady" steady
  echo "        $1: ${LEVELS[*]}"
}

# level WORDS ROW LOSS [TOLERANCE]: checks how much quieter the LoopTrack is than at the centre.
level() { between "$1: loss of tone $2" $((PLAIN[$2] - LEVELS[$2])) $(($3 - ${4:-60})) $(($3 + ${4:-60})); }

echo "Four tones"
for row in 0 1 2 3; do
  "$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone_$row.wav" "${TONES[row]}"
  drop "SndDisp_$row" "$FOLDER/tone_$row.wav"
done
begin=$(now)
click PlayStop 1 23 8
expect "play all is heard" sounds_since "$begin"
park
hear "centre"
PLAIN=("${LEVELS[@]}")
for row in 0 1 2 3; do between "tone $row is heard" "${PLAIN[row]}" -3500 -1000; done
picture "mix pad, centre"
CENTRED=$(face Pad)

echo "Mix pad"
# The centre of the pad, and how far the ball is pulled: past the corners, where it stops.
read -r CENTRE_X CENTRE_Y <<<"$(at Pad)"
REACH=165
# pull DX DY: moves the held ball there in steps, and waits until it rests.
BALL=(0 0)
pull() {
  way $((CENTRE_X + BALL[0])) $((CENTRE_Y + BALL[1])) $(($1 - BALL[0])) $(($2 - BALL[1])) 8
  xdotool "${WAY[@]}"
  rests Pad
  BALL=("$1" "$2")
}
# corner N: at a corner its own LoopTrack has its plain level and that of the opposite corner is silent. The other two are
# 500 * (0.7071 - 0.5) / 0.5 = 207 units of 6 hundredths of a decibel lower.
corner() {
  hear "corner $1"
  level "corner $1" "$1" 0
  level "corner $1" $((($1 + 1) % 4)) 1242
  level "corner $1" $((($1 + 3) % 4)) 1242
  between "corner $1: tone $((($1 + 2) % 4)) is silent" "${LEVELS[($1 + 2) % 4]}" -10000 -8000
  picture "mix pad, corner $1"
}
press_ball Pad
pull -$REACH -$REACH
corner 0
pull $REACH -$REACH
corner 1
pull $REACH $REACH
corner 2
pull -$REACH $REACH
corner 3
pull $REACH -$REACH
hear "back at corner 1"
fading=("${LEVELS[1]}")
coming=("${LEVELS[3]}")
for place in 71 0 -71 -$REACH; do
  pull $place $((-place))
  hear "diagonal at $place"
  fading+=("${LEVELS[1]}")
  coming+=("${LEVELS[3]}")
  [[ $place -ne 0 ]] || for row in 0 1 2 3; do level "the middle of the diagonal" "$row" 0 180; done
done
# In the first half the far one rises, in the second the near one falls.
between "tone 1 keeps its level up to the middle" $((fading[0] - fading[1])) -60 60
between "tone 3 is silent at first" "${coming[0]}" -10000 -8000
between "tone 3 rises up to the middle" $((coming[2] - coming[1])) 1200 1800
between "tone 3 has its plain level from the middle on" $((coming[3] - coming[2])) -100 100
between "tone 1 falls from the middle on" $((fading[2] - fading[3])) 1200 1800
between "and is silent at the far corner" "${fading[4]}" -10000 -8000
# A press puts the pointer 8 pixels beside the centre of the ball.
pull 8 8
release 1
park
hear "released in the centre"
for row in 0 1 2 3; do level "released in the centre" "$row" 0; done

echo "Double clicks on the ball of the pad"
# twice NAME DX DY [BUTTON]: double clicks at this distance from the centre of the control. The first press puts the pointer
# elsewhere on the ball.
twice() {
  local x y
  read -r x y <<<"$(at "$1")"
  xdotool mousemove --window "$WINDOW" $((x + $2)) $((y + $3)) click --repeat 2 --delay 40 "${4:-1}"
  park
}
# The ball is near the centre; from there it is pulled into corner 0 and centred.
for button in 1 3; do
  press_ball Pad
  pull -$REACH -$REACH
  release 1
  park
  hear "in the corner"
  between "in the corner: tone 2 is silent" "${LEVELS[2]}" -10000 -8000
  twice Pad -142 -142 $button
  expect "button $button: the ball is on the centre" looks_like Pad "$CENTRED"
  hear "double click of button $button"
  for row in 0 1 2 3; do level "double click of button $button" "$row" 0; done
done
picture "mix pad, centred"

echo "The twist"
# Under "400 Pitch" it fades volumes: at an end of its line the two LoopTracks of that end are silent.
click PadType
xdotool key Up Return
park
read -r x y <<<"$(at TwistIndicator 184 18)"
# twist_to FROM TO: drags the ball of the twist, in pixels from the centre of its line.
twist_to() {
  drag_ball TwistIndicator $(($2 - $1)) 0 $((184 + $1)) 18
  park
}
# ends WORDS SILENT...: these are silent, the others as at the centre.
ends() {
  local row words=$1
  shift
  hear "$words"
  for row in 0 1 2 3; do
    if [[ " $* " == *" $row "* ]]; then
      between "$words: tone $row is silent" "${LEVELS[row]}" -10000 -8000
    else
      level "$words" "$row" 0
    fi
  done
}
ends "another type"
twist_to 0 170
ends "twisted to the right" 0 3
picture "twisted"
twist_to 142 -170
ends "twisted to the left" 1 2
xdotool mousemove --window "$WINDOW" $((x - 142)) "$y" click --repeat 2 --delay 40 1
park
ends "a double click on its ball"
click PadType
xdotool key Down Return
park

echo "Selection"
off=()
for row in 0 1 2 3; do off+=("$(face "Selected_$row")"); done
# over FROM TO BUTTON: drags from one flag to another.
over() {
  local from to
  read -ra from <<<"$(at "Selected_$1")"
  read -ra to <<<"$(at "Selected_$2")"
  drag "Selected_$1" 0 $((to[1] - from[1])) "$3"
  park
}
# flags ROW...: checks that these rows are selected and the others are not.
flags() {
  local row
  for row in 0 1 2 3; do
    if [[ " $* " == *" $row "* ]]; then
      expect "flag $row is on" looks_unlike "Selected_$row" "${off[row]}"
    else
      expect "flag $row is off" looks_like "Selected_$row" "${off[row]}"
    fi
  done
}
over 0 3 1
flags 0 1 2 3
picture "all selected"
over 2 1 3
flags 0 3
over 3 2 1
flags 0 2 3
over 3 3 3
flags 0 2
picture "two selected"
hear "selecting"
for row in 0 1 2 3; do level "selecting" "$row" 0; done

echo "The selection's knob"
knobs=()
for row in 0 1 2 3 4; do knobs+=("$(face "VolKnob_$row")"); done
drag VolKnob_4 -12 0
park
for row in 0 2 4; do expect "knob $row turns" looks_unlike "VolKnob_$row" "${knobs[row]}"; done
for row in 1 3; do expect "knob $row stays" looks_like "VolKnob_$row" "${knobs[row]}"; done
hear "turned"
gang=$((PLAIN[0] - LEVELS[0]))
between "loss of tone 0" "$gang" 300 4000
level "turned like tone 0" 2 "$gang"
level "not selected" 1 0
level "not selected" 3 0
picture "selected rows turned down"

echo "Selector"
lit=$(face SelectorRadio_0)
dim=$(face SelectorRadio_3)
double_click SelectorRadio_3
park
expect "a double click on band 2 lights it" looks_unlike SelectorRadio_3 "$dim"
expect "and removes the selection from control" looks_unlike SelectorRadio_0 "$lit"
knobs=("$(face VolKnob_0)" "$(face VolKnob_2)")
drag VolKnob_4 6 0
park
hear "the selection is not in control"
level "out of control" 0 "$gang"
level "out of control" 2 "$gang"
expect "knob 0 stays" looks_like VolKnob_0 "${knobs[0]}"
expect "knob 2 stays" looks_like VolKnob_2 "${knobs[1]}"
double_click SelectorRadio_0
park
expect "a double click on the selection puts it in control again" looks_like SelectorRadio_0 "$lit"
expect "and removes band 2" looks_like SelectorRadio_3 "$dim"
drag VolKnob_4 -8 0
park
hear "the selection is in control"
between "tone 0 follows again" $((PLAIN[0] - LEVELS[0] - gang)) 60 4000
level "like tone 0" 2 $((PLAIN[0] - LEVELS[0]))
level "not selected" 1 0

echo "3d map"
click Tab_1
park
map=$(face Map)
picture "3d map, off"
click Enable3d 1 12 13
park
expect "switching 3D on changes the map" looks_unlike Map "$map"
picture "3d map"
begin=$(now)
expect "it sounds in 3D" sounds_since "$begin"

echo "Double clicks on the balls of the map"
# All balls are on the centre: the first LoopTrack's on top, then the listener's.
for ball in 0 4; do
  [[ $ball == 0 ]] || click PosPop
  park
  picture "3d map, ball $ball"
  centred=$(face Map)
  drag_ball Map 68 -52
  park
  expect "ball $ball is dragged" looks_unlike Map "$centred"
  picture "3d map, ball $ball dragged"
  # A press puts the pointer 8 pixels beside the centre of the ball.
  twice Map 60 -60
  expect "a double click puts ball $ball on the centre" looks_like Map "$centred"
done
click Tab_0
park
picture "mix pad"
finish

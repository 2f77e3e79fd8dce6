#!/usr/bin/env bash
# The hostile hand on the real program: on the stage, random clicks, drags, turns of the wheel, keys and drops go to its
# windows by way of the display, as a player's do. After each gesture the program must live and, within a second, answer
# from its event loop what a window manager asks of a window; at the end the card must have got its sound all the time, and
# the program must close as a player closes it. The same seed makes the same gestures; what they meet depends on the time,
# too. Prints one line; exit status 1 with a finding.
#
#   tools/hand/on_stage.sh [SECONDS] [SEED] [BUILD] [ANSWER]     default: 60 s, seed 1, build/release, 1000 ms
set -euo pipefail
HERE=$(dirname "$(readlink -f "$0")")
SECONDS_OF_PLAY=${1:-60}
SEED=${2:-1}
BUILD=$(readlink -f "${3:-$HERE/../../build/release}")
ANSWER=${4:-1000}
STAGE_TOOLS=$BUILD/tools/stage
source "$HERE/../stage/stage.sh"

KEYS=(a b c d z a b c d z space Return Escape Tab Tab shift+Tab Up Down Left Right Prior Next Home End Insert Delete BackSpace
  shift+BackSpace shift+space ctrl+space shift+a ctrl+b alt+c F1 F5 F6 F7 F8 F9 F10 F11 F12)
GESTURES=0
LONGEST=0
LAST=()

PLAY=$(mktemp -d)
stage_open "$PLAY/stage"
trap 'stage_close; rm -rf "$PLAY"' EXIT
stage_install "$BUILD/marvolin/marvolin" "$PLAY/marvolin"
stage_start "$PLAY/marvolin/marvolin"
stage_clear
mapfile -t SAMPLES < <(find "$PLAY/marvolin/Samples" -name '*.wav' | sort | head -40)

RANDOM=$SEED
# The dice answer in variables: a subshell would throw dice of its own.
below() { DICE=$(((RANDOM * 32768 + RANDOM) % $1)); }
one_of() {
  below $#
  shift "$DICE"
  DICE=$1
}

found() {
  echo "found: seed $SEED, gesture $GESTURES: $1"
  printf '  %s\n' "${LAST[@]}"
  sed 's/^/  program: /' "$PLAY/stage/program.log"
  exit 1
}

# some_place: sets PLACE_WINDOW, X and Y to a place on one of the program's windows, mostly the main one.
some_place() {
  local windows width height
  mapfile -t windows < <(stage_windows | sort -n)
  [[ ${#windows[@]} -gt 0 ]] || windows=("$WINDOW")
  below 3
  if [[ $DICE -eq 0 ]]; then
    one_of "${windows[@]}"
    PLACE_WINDOW=$DICE
  else
    PLACE_WINDOW=$WINDOW
  fi
  read -r width height < <(xdotool getwindowgeometry --shell "$PLACE_WINDOW" 2>/dev/null |
    sed -n 's/^\(WIDTH\|HEIGHT\)=//p' | paste -sd ' ') || true
  below "${width:-1000}"
  X=$DICE
  below "${height:-700}"
  Y=$DICE
}

# answers: the program answers in time. Keeps the longest time it has taken, in LONGEST.
answers() {
  local took
  took=$("$STAGE_TOOLS/ping_window" "$WINDOW" "$ANSWER" 2>/dev/null) || return 1
  [[ $took -le $LONGEST ]] || LONGEST=$took
}

some_button() { one_of 1 1 1 1 3 3 2; }

gesture() {
  local what button words x y
  one_of click click click drag drag drag double wheel wheel key key key key hover drop
  what=$DICE
  some_place
  words="$what at $X,$Y of $PLACE_WINDOW"
  case $what in
    click)
      some_button
      words+=", button $DICE"
      xdotool mousemove --window "$PLACE_WINDOW" "$X" "$Y" click "$DICE"
      ;;
    double) xdotool mousemove --window "$PLACE_WINDOW" "$X" "$Y" click --repeat 2 --delay 40 1 ;;
    drag)
      some_button
      button=$DICE
      below 400
      x=$((DICE - 200))
      below 400
      y=$((DICE - 200))
      words+=" by $x,$y, button $button"
      xdotool mousemove --window "$PLACE_WINDOW" "$X" "$Y" mousedown "$button" mousemove_relative --sync -- 4 4 \
        mousemove_relative -- "$x" "$y" mouseup "$button"
      ;;
    wheel)
      one_of 4 5
      xdotool mousemove --window "$PLACE_WINDOW" "$X" "$Y" click --repeat 3 --delay 5 "$DICE"
      ;;
    hover) xdotool mousemove --window "$PLACE_WINDOW" "$X" "$Y" ;;
    key)
      one_of "${KEYS[@]}"
      words="key $DICE"
      xdotool key "$DICE"
      ;;
    drop)
      one_of "${SAMPLES[@]}"
      words+=": $DICE"
      drop_at "$X" "$Y" "$DICE" >/dev/null 2>&1
      ;;
  esac 2>/dev/null || true # a window may have closed meanwhile
  LAST+=("$words")
  [[ ${#LAST[@]} -le 12 ]] || LAST=("${LAST[@]:1}")
}

sound_length() { stat -c %s "$SOUND"; }

BEGIN_OF_SOUND=$(sound_length)
END=$((SECONDS + SECONDS_OF_PLAY))
while [[ $SECONDS -lt $END ]]; do
  GESTURES=$((GESTURES + 1))
  gesture
  stage_runs "$PROGRAM" || found "the program has ended"
  # The main window is another one after a change of the size.
  answers || { stage_window && answers; } || found "the program does not answer within $ANSWER ms"
done

# What was left open closes by Escape, and the main window has the keyboard.
for _ in 1 2 3 4; do xdotool key Escape; done
xdotool mouseup 1 mouseup 2 mouseup 3
GREW=$((($(sound_length) - BEGIN_OF_SOUND) / 176400))
[[ $GREW -ge $((SECONDS_OF_PLAY * 9 / 10 - 1)) ]] || found "of $SECONDS_OF_PLAY s only $GREW s came to the card"
stage_quit || found "the program does not close, or not with status 0"
! grep -q "the program ends" "$PLAY/stage/program.log" || found "the program has ended itself"
echo "$GESTURES gestures on the stage, seed $SEED, $SECONDS_OF_PLAY s: $GREW s of sound, longest answer $LONGEST ms, no finding"

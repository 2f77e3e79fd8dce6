# Hands, ears and eyes for a scenario on the stage. To be sourced by a scenario that is started with
#   SCENARIO PROGRAM TOOLS PRINT_PLACES FOLDER
# It opens the stage, installs the program in FOLDER/marvolin, starts it and closes the splash. Pictures, the sound and the
# logs stay in FOLDER. A scenario may set STAGE_SIZE, and NOT_STARTED=1 to start the program (start) itself.
set -euo pipefail

PROGRAM_FILE=$1
STAGE_TOOLS=$2
PRINT_PLACES=$3
FOLDER=$4
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/stage/stage.sh"

LISTEN=$STAGE_TOOLS/listen
SAMPLES=/usr/share/sounds/alsa
FAILURES=0
declare -A PLACE

# --- hands ---

# Reads the positions of the controls; the window's layout is fixed.
read_places() {
  local name rest
  while read -r name rest; do PLACE[$name]=$rest; done < <("$PRINT_PLACES" 2>/dev/null)
  [[ -n ${PLACE[Play_0]:-} ]]
}

# at NAME [X Y]: prints the position in the window of a position in the control, by default its centre.
at() {
  local x y w h
  read -r x y w h <<<"${PLACE[$1]:?no control $1}"
  echo $((x + ${2:-w / 2})) $((y + ${3:-h / 2}))
}

pointer() { xdotool mousemove --window "$WINDOW" "$@"; }

# Moves the pointer away from all controls.
park() { pointer 300 718; }

# click NAME [BUTTON [X Y]]
click() {
  # shellcheck disable=SC2046
  xdotool mousemove --window "$WINDOW" $(at "$1" ${3:+"$3" "$4"}) click "${2:-1}"
}

# in_window WINDOW COMMAND...: runs a hand's command in another window of the program; print_places lists the names there.
in_window() {
  local WINDOW=$1
  shift
  "$@"
}

# press NAME BUTTON; release BUTTON, at the pointer's position.
press() {
  # shellcheck disable=SC2046
  xdotool mousemove --window "$WINDOW" $(at "$1") mousedown "$2"
}
release() { xdotool mouseup "$1"; }

double_click() {
  # shellcheck disable=SC2046
  xdotool mousemove --window "$WINDOW" $(at "$1") click --repeat 2 --delay 40 1
}

# way X Y DX DY [STEPS]: sets WAY to the moves of xdotool from a position in the window on, in four steps.
way() {
  local i steps=${5:-4}
  WAY=()
  for ((i = 1; i <= steps; ++i)); do
    WAY+=(mousemove --window "$WINDOW" $(($1 + $3 * i / steps)) $(($2 + $4 * i / steps)) sleep 0.01)
  done
}
# drag NAME DX DY [BUTTON [X Y]]: presses, moves by DX DY in four steps, releases.
drag() {
  local x y
  read -r x y <<<"$(at "$1" ${5:+"$5" "$6"})"
  way "$x" "$y" "$2" "$3"
  xdotool mousemove --window "$WINDOW" "$x" "$y" mousedown "${4:-1}" "${WAY[@]}" mouseup "${4:-1}"
}

# The program puts the pointer on a ball that is pressed. This hand moves to places and not by distances, so on a busy machine
# that may come after its moves and undo them: it waits for that.
pointer_place() {
  local place
  place=$(xdotool getmouselocation)
  echo "${place% window:*}"
}
was_put() { [[ $(pointer_place) != "$1" ]]; }
# press_ball NAME [BUTTON [X Y]]: presses the ball that is there, by default in the middle of its surface.
press_ball() {
  local place
  # shellcheck disable=SC2046
  pointer $(at "$1" ${3:+"$3" "$4"})
  place=$(pointer_place)
  xdotool mousedown "${2:-1}"
  until_true 2 was_put "$place" || true # it may be there already
  rests "$1"
}
# rests NAME: waits until the picture of a control rests.
rests() { face "$1" >/dev/null; }
# drag_ball NAME DX DY [X Y]: drags the ball that is there, by default that in the middle of its surface.
drag_ball() {
  local x y
  read -r x y <<<"$(at "$1" ${4:+"$4" "$5"})"
  way "$x" "$y" "$2" "$3"
  press_ball "$1" 1 ${4:+"$4" "$5"}
  xdotool "${WAY[@]}"
  rests "$1"
  release 1
}

# key LETTER [MODIFIER]: the modifier is held until the letter is released.
key() {
  if [[ $# -eq 1 ]]; then
    xdotool key "$1"
  else
    xdotool keydown "$2" key "$1" keyup "$2"
  fi
}

# drop NAME FILE...: drops files from a file manager onto a control.
drop() {
  local place
  read -ra place <<<"$(at "$1")"
  shift
  drop_at "${place[@]}" "$@"
}

# --- ears ---

now() { "$LISTEN" now "$SOUND"; }

# wait_ms MS: waits until that much more sound is recorded.
wait_ms() {
  local begin
  begin=$(now)
  "$LISTEN" until "$SOUND" $((begin + $1)) $(($1 * 5 + 5000))
}

# loud FROM TO: prints the louder side's level.
loud() {
  local left right
  read -r left right <<<"$("$LISTEN" level "$SOUND" "$1" "$2")"
  echo $((left > right ? left : right))
}

# sounds_since FROM: at least 60 ms are recorded since FROM, and the last 60 ms are heard.
sounds_since() {
  local end
  end=$(now)
  [[ $end -ge $(($1 + 60)) && $(loud $((end - 60)) "$end") -gt -5500 ]]
}

# silent_since FROM: at least 300 ms are recorded since FROM, and the last 300 ms are silent.
silent_since() {
  local end
  end=$(now)
  [[ $end -ge $(($1 + 300)) && $(loud $((end - 300)) "$end") -le -9000 ]]
}

# sounds_throughout FROM TO: sound without a gap longer than 120 ms.
sounds_throughout() { [[ $("$LISTEN" sounding "$SOUND" "$1" "$2" | wc -l) -eq 1 && $(sounding_ms "$1" "$2") -ge $(($2 - $1 - 130)) ]]; }

# sounding_ms FROM TO: prints how many ms have sound.
sounding_ms() {
  local from to sum=0
  while read -r from to; do sum=$((sum + to - from)); done < <("$LISTEN" sounding "$SOUND" "$1" "$2")
  echo "$sum"
}

# compare_with_card FILE [SIZE [BUT]]: sets FRAMES, the frames of a recording, and PLACE, where the card has got the same, -1
# nowhere; see recorded.py.
compare_with_card() {
  read -r FRAMES PLACE <<<"$(python3 "$(dirname "${BASH_SOURCE[0]}")/recorded.py" "$1" "$SOUND" "${@:2}")"
}

# --- eyes ---

# look NAME...: prints a checksum of the picture of each control as it is now, one a line.
look() {
  local name places=()
  # shellcheck disable=SC2206
  for name in "$@"; do places+=(${PLACE[$name]:?no control $name}); done
  "$STAGE_TOOLS/picture_sums" "$WINDOW" "${places[@]}"
}
# face NAME...: the same, once the pictures rest: two, a tenth of a second apart, are alike. What never rests is taken after a
# second. Move the pointer away first.
face() {
  local i before now
  now=$(look "$@")
  for i in 1 2 3 4 5 6 7 8 9 10; do
    before=$now
    sleep 0.1
    now=$(look "$@")
    [[ $now != "$before" ]] || break
  done
  echo "$now"
}
looks_like() {
  local now
  now=$(look "$1") && [[ $now == "$2" ]]
}
looks_unlike() {
  local now
  now=$(look "$1") && [[ $now != "$2" ]]
}

# --- judgement ---

# expect WORDS COMMAND...: checks that the command succeeds within five seconds.
expect() {
  local words=$1
  shift
  if until_true 5 "$@"; then
    echo "  ok    $words"
  else
    echo "  FAIL  $words: $*"
    FAILURES=$((FAILURES + 1))
    picture "failure $FAILURES"
  fi
}

# between WORDS VALUE LOW HIGH: checks that the value is in the range.
between() {
  if [[ $2 -ge $3 && $2 -le $4 ]]; then
    echo "  ok    $1: $2"
  else
    echo "  FAIL  $1: $2, not in $3..$4"
    FAILURES=$((FAILURES + 1))
  fi
}

picture() { import -window "$WINDOW" "$FOLDER/$1.png"; }

# Starts the program and closes the splash.
start() {
  stage_start "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")"
  stage_clear
}

# Closes the program's window, checks that the program ends, and keeps the recording in FOLDER.
finish() {
  if stage_quit; then
    echo "  ok    the program ends when its window is closed"
  else
    echo "  FAIL  the program ends when its window is closed"
    FAILURES=$((FAILURES + 1))
  fi
  stage_end_sound
  cp "$SOUND" "$FOLDER/sound.wav"
  cp "$STAGE/program.log" "$FOLDER/program.log"
  [[ $FAILURES -eq 0 ]] || { echo "$FAILURES expectations failed"; exit 1; }
}

rm -rf "$FOLDER"
mkdir -p "$FOLDER"
stage_open "$FOLDER/stage" "${STAGE_SIZE:-1280x800}"
read_places
stage_install "$PROGRAM_FILE" "$FOLDER/marvolin"
[[ -n ${NOT_STARTED:-} ]] || start

# Hands for scenarios that build a session from the browser's bins, save it and open it again. To be sourced instead of
# hands.sh.
STAGE_SIZE=${STAGE_SIZE:-1920x1000}
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

HOME_FOLDER=$FOLDER/marvolin
is_there() { [[ -s $1 ]]; }
title_is() { [[ $(xdotool getwindowname "$WINDOW") == "$1" ]]; }

# --- the browser ---

# find_browser: sets BROWSER.
find_browser() {
  stage_named "marvolin browser" || return 1
  BROWSER=$NAMED
}
ROW_HEIGHT=22
# bin_row ROW: prints the vertical position of a sample in its list.
bin_row() { echo $((ROW_HEIGHT * $1 + 12)); }
# bin_click BIN ROW: clicks a sample of a bin.
bin_click() { in_window "$BROWSER" click "browse/PickFile_$1" 1 40 "$(bin_row "$2")"; }

# destination BIN STEPS: opens the list of destinations and chooses the one that many rows further down.
destination() {
  local i keys=()
  for ((i = 0; i < $2; ++i)); do keys+=(Down); done
  in_window "$BROWSER" click "browse/FileDestination_$1"
  xdotool key "${keys[@]}" Return
}

# load_a: a click on the second sample of the first bin loads it into A and plays it. Row 7 of the destinations: bins 1 to 3
# feed A to C.
load_a() {
  local begin
  expect "the browser is open beside the main window" find_browser
  destination 0 2
  begin=$(now)
  bin_click 0 1
  expect "a click loads and plays" sounds_since "$begin"
}
# load_three: fills A, B and C from the bins and stops them.
load_three() {
  load_a
  bin_click 1 2
  bin_click 2 0
  stop_all
}

# on_screen NAME [X Y]: prints the screen position of a position in a control of the main window or the browser.
on_screen() {
  local corner place
  if [[ $1 == browse/* ]]; then
    read -ra corner <<<"$(in_window "$BROWSER" stage_corner)"
  else
    read -ra corner <<<"$(stage_corner)"
  fi
  read -ra place <<<"$(at "$@")"
  echo $((corner[0] + place[0])) $((corner[1] + place[1]))
}
# carry BUTTON "FROM [X Y]" "TO [X Y]": drags from one control to another, also between windows.
carry() {
  local from to i moves=()
  # shellcheck disable=SC2086
  read -ra from <<<"$(on_screen $2)"
  # shellcheck disable=SC2086
  read -ra to <<<"$(on_screen $3)"
  for i in 1 2 3 4 5 6 7 8; do
    moves+=(mousemove $((from[0] + (to[0] - from[0]) * i / 8)) $((from[1] + (to[1] - from[1]) * i / 8)) sleep 0.03)
  done
  xdotool mousemove "${from[@]}" mousedown "$1" "${moves[@]}" mouseup "$1"
}

# --- the main window ---

# mode_to ROW MODES: drags the mode picture up (negative: down) by this many modes, 100 twips each.
mode_to() { drag "LoopIt_$1" 0 $((-7 * $2)); }
stop_all() {
  local begin
  begin=$(now)
  click PlayStop 1 23 36
  expect "stop all is silent" silent_since "$begin"
}

# --- how a session looks and sounds ---

declare -A LOOK
# remember NAME...: keeps the pictures of these controls. Nothing may play, because the play position is drawn.
remember() {
  local name looks
  park
  mapfile -t looks < <(face "$@")
  for name in "$@"; do
    LOOK[$name]=${looks[0]:?no picture of $name}
    looks=("${looks[@]:1}")
  done
}
looks_the_same() {
  local name looks
  differs=
  mapfile -t looks < <(look "$@")
  for name in "$@"; do
    [[ ${looks[0]:-} == "${LOOK[$name]}" ]] || differs+=" $name"
    looks=("${looks[@]:1}")
  done
  [[ -z $differs ]]
}
# compare WORDS NAME...: checks that these controls look as remembered.
compare() {
  local words=$1
  shift
  park
  expect "$words: $# controls look as before" looks_the_same "$@"
  [[ -z $differs ]] || echo "        they differ:$differs"
}

# listen_to_rows ROW...: plays each row alone and keeps in HEARD[row] the levels of the left and the right side in the
# middle of each of the first four seconds.
declare -A HEARD BEFORE
LOWEST=-5000 # quieter levels count as silence
listen_to_rows() {
  local row begin second
  for row in "$@"; do
    begin=$(now)
    click "Play_$row"
    until_true 5 sounds_since "$begin" || echo "        LoopTrack $row is not heard"
    begin=$("$LISTEN" sounding "$SOUND" "$begin" "$(now)" | head -n 1 | cut -d ' ' -f 1)
    "$LISTEN" until "$SOUND" $((begin + 3900)) 30000
    HEARD[$row]=
    for second in 0 1 2 3; do
      HEARD[$row]+=" $("$LISTEN" level "$SOUND" $((begin + second * 1000 + 150)) $((begin + second * 1000 + 850)))"
    done
    begin=$(now)
    click PlayStop 1 23 36
    until_true 5 silent_since "$begin" || echo "        LoopTrack $row does not stop"
    echo "        LoopTrack $row:${HEARD[$row]}"
  done
}
# hear_before ROW...: listens, for a later comparison.
hear_before() {
  local row
  listen_to_rows "$@"
  for row in "$@"; do BEFORE[$row]=${HEARD[$row]}; done
}
# hear_the_same WORDS ROW...: checks that each row sounds as before.
hear_the_same() {
  local words=$1 row i now was off most
  shift
  listen_to_rows "$@"
  for row in "$@"; do
    read -ra was <<<"${BEFORE[$row]}"
    read -ra now <<<"${HEARD[$row]}"
    most=0
    for i in "${!was[@]}"; do
      off=$(((was[i] > LOWEST ? was[i] : LOWEST) - (now[i] > LOWEST ? now[i] : LOWEST)))
      off=${off#-}
      [[ $off -le $most ]] || most=$off
    done
    between "$words: LoopTrack $row sounds as before, within" "$most" 0 200
  done
}

# --- files ---

# stage_save: true while the Save/Open dialogue is open, for any file. Sets SAVE.
stage_save() {
  local window
  for window in $(stage_windows); do
    if [[ $(xdotool getwindowname "$window" 2>/dev/null) == Save/Open* ]]; then
      SAVE=$window
      return 0
    fi
  done
  return 1
}
# file_dialogue BUTTON TITLE FILE: opens Save/Open, then its file dialogue, and types the name of a file.
file_dialogue() {
  click SaveOpen
  expect "Save/Open opens for $(basename "$3")" stage_save
  in_window "$SAVE" click "save/$1"
  expect "the file dialogue opens" stage_named "$2"
  xdotool windowactivate --sync "$NAMED" type --delay 15 "$3"
  xdotool key Return
}
# save_as NAME: saves in the folder in which the dialogue starts.
save_as() {
  file_dialogue SaveItAs "Save As" "$1"
  expect "$1 is a file" is_there "$HOME_FOLDER/$1"
  expect "the file dialogue closes" stage_not_named "Save As"
}

# list_beside WINDOWS: true when there is a window that is not among WINDOWS, the open list of QuickLoad. Sets LIST.
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
# quick_load BUTTON [NAME]: opens the list with that button and clicks the row of this set; by default that of the only set
# beside the last session, which the program keeps by itself.
quick_load() {
  local windows height names row
  mapfile -t names < <(cd "$HOME_FOLDER" && printf '%s\n' *.mvn | sed 's/\.mvn$//' | sort -f)
  for row in "${!names[@]}"; do
    [[ ${2:-} == "${names[row]}" || (-z ${2:-} && ${names[row]} != "Last session") ]] && break
  done
  windows=" $(stage_windows | paste -sd ' ') "
  click QuickLoadPop "$1"
  expect "the list opens" list_beside "$windows"
  height=$(xwininfo -id "$LIST" | sed -n 's/^ *Height: //p')
  xdotool mousemove --window "$LIST" 30 $((height * (2 * row + 3) / (2 * (${#names[@]} + 1)))) click 1
}

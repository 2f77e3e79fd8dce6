#!/usr/bin/env bash
# A second start ends at once without a window, and the window of the first comes to the front with the keyboard: from
# behind another window, and when it was minimised. What plays goes on.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

is_active() { [[ $(xdotool getactivewindow 2>/dev/null) == "$1" ]]; }
is_minimised() { xprop -id "$WINDOW" _NET_WM_STATE 2>/dev/null | grep -q _NET_WM_STATE_HIDDEN; }
is_shown() { ! is_minimised; }
# start_again: starts the program a second time and prints how it ended and how many ms that took.
start_again() {
  local begin=$((${EPOCHREALTIME/[.,]/} / 1000)) status=0
  SDL_AUDIODRIVER=dummy timeout 20 "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")" >"$FOLDER/second.log" 2>&1 || status=$?
  echo "$status $((${EPOCHREALTIME/[.,]/} / 1000 - begin))"
}
# second_start: starts again and checks the end.
second_start() {
  local status ms
  read -r status ms <<<"$(start_again)"
  between "status of the second start" "$status" 0 0
  between "ms that it took" "$ms" 0 10000
  between "lines that it wrote" "$(wc -l <"$FOLDER/second.log")" 0 0
}

echo "A second start"
load_a
xdotool windowactivate --sync "$BROWSER"
expect "the browser has the keyboard" is_active "$BROWSER"
second_start
expect "the main window has the keyboard" is_active "$WINDOW"

echo "While the window is minimised"
xdotool windowminimize "$WINDOW"
expect "it is minimised" is_minimised
second_start
expect "it is shown again" is_shown
expect "it has the keyboard" is_active "$WINDOW"
expect "what played plays on" sounds_since "$(now)"
picture "back"
finish

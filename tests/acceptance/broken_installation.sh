#!/usr/bin/env bash
# With a library of a release that the program cannot use, the start names it in a box, no window opens, and the program
# ends. The folder of the broken libraries is the fifth argument.
BROKEN=$5
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# start_broken: starts the program with the broken libraries before the system's.
start_broken() {
  env SDL_AUDIODRIVER=dummy "LD_LIBRARY_PATH=$BROKEN" "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")" \
    >"$FOLDER/broken.log" 2>&1 &
  PROGRAM=$!
  STAGE_PIDS+=("$PROGRAM")
}

echo "A library of another release"
start_broken
expect "a box is shown" stage_named "Missing Files"
between "windows of the program" "$(stage_windows | wc -l)" 1 1
stage_picture "$FOLDER/missing_files.png"
xdotool key Return
expect "the program ends when the box is closed" stage_gone
status=0
wait "$PROGRAM" || status=$?
between "its status" "$status" 0 0

echo "A whole installation"
start
finish

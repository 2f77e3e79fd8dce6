#!/usr/bin/env bash
# Takes the pictures of README anew, from the real program with the loops of its demo: the main window, each tab, the browser, the
# window of scripts. The build target `readme_pictures` builds what that needs and runs it. To be started as a scenario, with the
# folder for the pictures as its last argument.
STAGE_SIZE=1920x1000
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"
PICTURES=$(readlink -f "$5")
DEMO=$(dirname "$PROGRAM_FILE")

# keep NAME WINDOW [CROP]: few colours are needed, so that a page with all pictures is not slow to load.
keep() {
  import -window "$2" "$FOLDER/$1.png"
  convert "$FOLDER/$1.png" ${3:+-crop "$3" +repage} -strip +dither -colors 255 -define png:compression-level=9 "$PICTURES/$1.png"
  echo "  $1.png"
}

# scripts_open NAME: true while the window of scripts shows this script. Sets SCRIPTS.
scripts_open() { stage_named "marvolin scripts - $1" && SCRIPTS=$NAMED; }

# keep_tab NAME: the open tab without the rows above it, which look alike on all of them.
keep_tab() {
  local x y w h top
  read -r x top w h <<<"${PLACE[Tab_0]}"
  read -r x y w h <<<"${PLACE[MixPadPage]}"
  keep "$1" "$WINDOW" "$((w + 2 * x))x$((y + h - top + 10))+0+$((top - 2))"
}

title_is() { [[ $(xdotool getwindowname "$WINDOW") == "$1" ]]; }

# Opened as a set, the demo asks nothing, and nothing of it fades.
cp "$DEMO"/*.wav "$FOLDER/"
cp "$DEMO/startup.mvp" "$FOLDER/demo.mvp" 2>/dev/null || cp "$DEMO/disabledstartup.mvp" "$FOLDER/demo.mvp"
drop Pad "$FOLDER/demo.mvp"
expect "the demo is opened" title_is "marvolin-demo.mvp"
begin=$(now)
click PlayStop 1 23 8
expect "the demo plays" sounds_since "$begin"
expect "the browser is open" stage_named "marvolin browser"
BROWSER=$NAMED
xdotool windowactivate --sync "$WINDOW"

drag Pad 52 -66
# shellcheck disable=SC2046
pointer $(at Pad 40 200)
wait_ms 1000
keep window "$WINDOW"
keep_tab mix_pad

double_click Thumb_1
park
wait_ms 1500
keep_tab ptrn
click Tab_3
park
wait_ms 500
keep_tab optn
keep browser "$BROWSER"

click Tab_1
map=$(look Map)
click Enable3d 1 12 13
expect "the balls come onto the map" looks_unlike Map "$map"
wait_ms 500
# All stand on the centre, and the uppermost is moved. Two presses there in a short time would be a double click.
for place in "8 -66" "-88 -30" "66 -52" "-40 62"; do
  map=$(look Map)
  # shellcheck disable=SC2086
  drag Map $place
  expect "a ball is moved" looks_unlike Map "$map"
  wait_ms 700
done
park
wait_ms 500
keep_tab 3d_map

click Scripts
expect "the window of scripts opens" scripts_open "untitled.mvs"
in_window "$SCRIPTS" click scripts/Examples
wait_ms 500
xdotool key Down Down Return
expect "an example is in it" scripts_open "euclidean.mvs"
in_window "$SCRIPTS" click scripts/RunScript
wait_ms 1000
keep scripts "$SCRIPTS"
finish

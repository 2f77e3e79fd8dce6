#!/usr/bin/env bash
# Every form on every screen, at 75, 100 and 200 %: at each start all windows are whole on the screen, clear of the panel, with
# their title bars. Then the modes of the main window, a size that is chosen while a loop plays, places that are found again,
# and no window manager at all. The last argument is the size of the screen.
NOT_STARTED=1
STAGE_SIZE=$5
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"
cp -r "$(dirname "$PROGRAM_FILE")/Help" "$FOLDER/marvolin/"
KEPT=$FOLDER/marvolin/marvolin.windows
ROOM=("${STAGE_SIZE%x*}" "${STAGE_SIZE#*x}")

# A panel along the lower edge, as laptops have.
if [[ $STAGE_SIZE == 1366x768 ]]; then
  mkdir -p "$XDG_CONFIG_HOME/openbox"
  sed 's#<bottom>0</bottom>#<bottom>28</bottom>#' /etc/xdg/openbox/rc.xml >"$XDG_CONFIG_HOME/openbox/rc.xml"
  openbox --reconfigure
  panel_is_there() { [[ $(xprop -root _NET_WORKAREA) == *", 740"* ]]; }
  expect "the screen has a panel" panel_is_there
  ROOM[1]=740
fi

# frame WINDOW: prints left, top, width and height of a window with its frame.
frame() {
  xwininfo -id "$1" -frame | awk '/Absolute upper-left X/ { x = $NF } /Absolute upper-left Y/ { y = $NF }
    /^ *Width:/ { w = $NF } /^ *Height:/ { h = $NF } END { print x, y, w, h }'
}
all_whole() {
  local window x y w h
  OFF=
  for window in $(stage_windows); do
    read -r x y w h < <(frame "$window" 2>/dev/null) || continue
    if ((x < 0 || y < 0 || x + w > ROOM[0] || y + h > ROOM[1])); then
      OFF="$(xdotool getwindowname "$window" 2>/dev/null) at $x,$y ${w}x$h"
      return 1
    fi
  done
}
# whole WORDS: checks it, and keeps a picture.
whole() {
  expect "$1: every window is whole on the screen" all_whole
  [[ -z $OFF ]] || echo "        $OFF"
  stage_picture "$FOLDER/$SHOWN $1.png"
}
width_of() { xwininfo -id "$1" | sed -n 's/^ *Width: //p'; }
height_of() { xwininfo -id "$1" | sed -n 's/^ *Height: //p'; }
# over NAME: moves the pointer onto a control of the main window at the size that it has.
over() {
  local x y percent
  read -r x y <<<"$(at "$1")"
  percent=$(($(width_of "$WINDOW") * 100 / 1040))
  xdotool mousemove --window "$WINDOW" $((x * percent / 100 - 2)) $((y * percent / 100)) sleep 0.05 mousemove_relative 2 1
}
# tap NAME: clicks a control of the main window at the size that it has.
tap() {
  local x y percent
  read -r x y <<<"$(at "$1")"
  percent=$(($(width_of "$WINDOW") * 100 / 1040))
  xdotool mousemove --window "$WINDOW" $((x * percent / 100)) $((y * percent / 100)) click 1
}
# in_save NAME: clicks a control of Save/Open at the size that the main window has.
in_save() {
  local x y percent
  read -r x y <<<"$(at "$1")"
  percent=$(($(width_of "$WINDOW") * 100 / 1040))
  xdotool mousemove --window "$SAVE" $((x * percent / 100)) $((y * percent / 100)) click 1
}
front() { xdotool windowactivate --sync "$WINDOW"; }
scripts_open() {
  local window
  for window in $(stage_windows); do
    [[ $(xdotool getwindowname "$window" 2>/dev/null) == "marvolin scripts - "* ]] && SCRIPTS=$window && return 0
  done
  return 1
}
save_open() {
  local window
  for window in $(stage_windows); do
    [[ $(xdotool getwindowname "$window" 2>/dev/null) == *[Ss]ave* ]] && SAVE=$window && return 0
  done
  return 1
}
beside() {
  local main browser
  read -ra main < <(frame "$WINDOW")
  read -ra browser < <(frame "$BROWSER")
  ((browser[0] + browser[2] <= main[0] || main[0] + main[2] <= browser[0]))
}
# largest: the size that fits at most.
largest() {
  local percent
  for percent in 200 175 150 125 110 100 95 90 85 80 75; do
    ((1040 * percent <= ROOM[0] * 100 && 740 * percent <= (ROOM[1] - 37) * 100)) && echo "$percent" && return
  done
}
tall_is() { [[ $(height_of "$WINDOW") -ge $(($1 - 1)) && $(height_of "$WINDOW") -le $(($1 + 1)) ]]; }
same_window() {
  local was=$NUMBER
  stage_window && [[ $WINDOW == "$was" ]]
}
# list_open: a window of the program is open that has no title bar to take hold of, as lists have. So are tool tips.
list_open() {
  local window
  for window in $(stage_windows); do
    xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q TYPE_TOOLTIP && continue
    xwininfo -id "$window" | grep -q 'Override Redirect State: yes' && return 0
  done
  return 1
}
no_list_open() { ! list_open; }
tip_open() {
  local window
  for window in $(stage_windows); do
    xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q TYPE_TOOLTIP && return 0
  done
  return 1
}
is_above() { xprop -id "$WINDOW" _NET_WM_STATE | grep -q ABOVE; }
not_above() { ! is_above; }
browser_seen() { stage_named "marvolin browser"; }
browser_gone() { stage_not_named "marvolin browser"; }

SHOWN=first
declare -A FIRST=([1024x600]=75 [1280x720]=90 [1366x768]=95 [1920x1080]=100 [3840x2160]=200)
rm "$KEPT"
start
percent=${FIRST[$STAGE_SIZE]}
between "the first start is drawn at $percent %" "$(width_of "$WINDOW")" $((1040 * percent / 100)) $((1040 * percent / 100 + 1))
whole "start"
stage_quit
expect "it remembers neither a size nor the places that it chose" eval "! grep -qs '^size\|^frm' '$KEPT'"

toured=
for size in 75 100 200; do
  SHOWN=$size
  printf 'marvolin windows 1\nsize %s\n' "$size" >"$KEPT"
  start
  fits=$(largest)
  percent=$((size < fits ? size : fits))
  between "$size % is drawn at $percent %" "$(width_of "$WINDOW")" $((1040 * percent / 100)) $((1040 * percent / 100 + 1))
  if [[ " $toured " == *" $percent "* ]]; then
    # The same as at a size before.
    stage_quit
    continue
  fi
  toured+=" $percent"
  expect "the browser is open" browser_seen
  BROWSER=$NAMED
  if ((ROOM[0] >= 1850 * percent / 100)); then expect "the browser is beside the main window" beside; fi
  whole "start"
  for tab in 0 1 2 3; do
    tap "Tab_$tab"
    stage_picture "$FOLDER/$size tab $tab.png" "$WINDOW"
  done
  tap SaveOpen
  expect "Save/Open is open" save_open
  whole "save"
  in_save save/ElementsFold
  whole "save unfolded"
  xdotool windowactivate --sync "$SAVE" key Escape
  front
  xdotool key F1
  expect "Help is open" stage_named "Marvolin Help"
  whole "help"
  xdotool windowactivate --sync "$NAMED" key Escape
  front
  tap Scripts
  expect "the window of scripts is open" scripts_open
  whole "scripts"
  front
  if [[ $toured == " $percent" ]]; then
    over Limiter
    expect "a tool tip comes up" tip_open
    expect "which is no list" no_list_open
  fi
  tap QuickLoadPop
  expect "the list of sets is open" list_open
  whole "list"
  xdotool key Escape
  tap ToTop
  expect "Mini is a strip" tall_is $((354 * percent / 100))
  whole "mini"
  front
  tap ToTop
  expect "Regular is back" tall_is $((740 * percent / 100))
  stage_quit
done

if [[ $STAGE_SIZE == 1920x1080 ]]; then
  echo "Modes"
  SHOWN=modes
  printf 'marvolin windows 1\nsize 100\n' >"$KEPT"
  start
  "$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone.wav" 400
  drop SndDisp_0 "$FOLDER/tone.wav"
  tap Play_0
  begin=$(now)
  expect "a loop plays" sounds_since "$begin"
  begin=$(now)
  NUMBER=$WINDOW
  tap ToTop
  expect "Mini is in front of other programs" is_above
  expect "its window has the same number" same_window
  tap ToTop
  expect "Regular no more" not_above
  xdotool windowminimize --sync "$WINDOW"
  expect "the browser is minimised with the main window" browser_gone
  xdotool windowmap --sync "$WINDOW" windowactivate --sync "$WINDOW"
  expect "and is back with it" browser_seen
  expect "the sound has no gap meanwhile" sounds_throughout "$begin" "$(now)"

  echo "A size that is chosen"
  tap Tab_3
  begin=$(now)
  tap ProgramSize
  xdotool key Down Down Return
  wide() { stage_window && [[ $(width_of "$WINDOW") -eq 1300 ]]; }
  expect "all is drawn at 125 %" wide
  expect "the browser, too" browser_seen
  front
  tap Tab_0
  whole "125"
  expect "the sound has no gap meanwhile" sounds_throughout "$begin" "$(now)"
  tap Play_0

  echo "The next start"
  xdotool windowmove --sync "$WINDOW" 200 90
  corner=$(frame "$WINDOW")
  stage_quit
  start
  expect "it has the size" wide
  comes_up() { [[ $(frame "$WINDOW") == "$corner" ]]; }
  expect "and the place" comes_up
  stage_quit
  printf 'marvolin windows 1\nsize 100\nfrmMain 9000 -4000 1040 740\n' >"$KEPT"
  start
  whole "a place off every screen"

  echo "Without a window manager"
  kill "${STAGE_PIDS[1]}"
  tap ToTop
  expect "Mini is a strip" tall_is 354
  tap ToTop
  expect "Regular is back" tall_is 740
  stage_picture "$FOLDER/no manager.png"
  kill "$PROGRAM"
  until_true 5 stage_gone
  printf 'marvolin windows 1\nsize 100\n' >"$KEPT"
  STAGE_UNMANAGED=1
  stage_start "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")"
  expect "the splash comes up" until_true 5 stage_splash
  stage_picture "$FOLDER/no manager, splash.png"
  xdotool mousemove --window "$SPLASH" 20 20 click 1
  expect "and goes at a click" until_true 2 stage_no_splash
  expect "the main window is there" stage_window
  tap Tab_2
  stage_picture "$FOLDER/no manager, tab 2.png"
  [[ $FAILURES -eq 0 ]] || { echo "$FAILURES expectations failed"; exit 1; }
  exit 0
fi
[[ $FAILURES -eq 0 ]] || { echo "$FAILURES expectations failed"; exit 1; }

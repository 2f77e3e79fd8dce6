# What a player does with an installed copy; run by try_installed.sh inside the system, as that player. To be started with
#   play_installed.sh PART FOLDER
# FOLDER has the tools of the stage, its script and the places of the controls; what is written down goes to HOME/stage.
set -euo pipefail
part=$1
STAGE_TOOLS=$2
player=$HOME
source "$STAGE_TOOLS/stage.sh"
LISTEN=$STAGE_TOOLS/listen
OWN=$HOME/.local/share/marvolin
INSTALLED=$(dirname "$(readlink -f "$(command -v marvolin)")")
COMMAND=$(sed -n 's/^Exec=//p' /usr/share/applications/marvolin.desktop)

stage_open "$(mktemp -d)" 1920x1000
# The stage has a home of its own for every other play; here the player's is what counts.
export HOME=$player
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_DATA_HOME

failures=0
expect() { # WHAT COMMAND...
  local what=$1
  shift
  if until_true 20 "$@"; then
    echo "  ok    $what"
  else
    echo "  FAIL  $what"
    failures=$((failures + 1))
  fi
}
now() { "$LISTEN" now "$SOUND"; }
sounds_since() { [[ -n $("$LISTEN" sounding "$SOUND" "$1" 3600000) ]]; }
silent_since() { [[ $(now) -ge $(($1 + 1500)) ]] && ! sounds_since "$1"; }
click() { # NAME
  local x y w h
  read -r _ x y w h < <(grep "^$1 " "$STAGE_TOOLS/places")
  xdotool mousemove --window "$WINDOW" $((x + w / 2)) $((y + h / 2)) click 1
}
box_open() {
  local window
  for window in $(stage_windows); do
    [[ $window != "$WINDOW" && $(xdotool getwindowname "$window" 2>/dev/null) == marvolin ]] && return 0
  done
  return 1
}
scripts_open() { xdotool search --onlyvisible --pid "$PROGRAM" --name "[Ss]cript" >/dev/null 2>&1; }
snapshot_there() { compgen -G "$OWN/*001.mvn" >/dev/null; }
# Sets RECORDING, the only one.
recording_there() {
  local files=("$OWN"/Recordings/*.wav)
  RECORDING=${files[0]}
  [[ ${#files[@]} -eq 1 && -s $RECORDING ]]
}
# recorded BYTES: the recording has grown beyond that.
recorded() { [[ $(stat -c %s "$RECORDING") -gt $1 ]]; }
# recording_ended: it does not grow for longer than its head may be late, and its head names all of its bytes.
recording_ended() {
  local size
  size=$(stat -c %s "$RECORDING")
  sleep 1.2
  [[ $size -eq $(stat -c %s "$RECORDING") && $(od -An -tu4 -j4 -N4 "$RECORDING") -eq $((size - 8)) ]]
}
made_there() { (cd "$OWN" && sha256sum --check --quiet "$player/made"); }
title_is() { [[ $(xdotool getwindowname "$WINDOW") == "$1" ]]; }
is_heard_in() { [[ -n $("$LISTEN" sounding "$1" 0 3600000) ]]; }
# list_beside WINDOWS: true when there is a window that is not among WINDOWS. Sets LIST.
list_beside() {
  for LIST in $(stage_windows); do [[ $1 == *" $LIST "* ]] || return 0; done
  return 1
}
# quick_load NAME: opens the list, whose first row closes it, and clicks the row of this set.
quick_load() {
  local windows height names row
  mapfile -t names < <(cd "$OWN" && printf '%s\n' *.mvn | sed 's/\.mvn$//' | sort -f)
  for row in "${!names[@]}"; do [[ ${names[row]} != "$1" ]] || break; done
  windows=" $(stage_windows | paste -sd ' ') "
  click QuickLoadPop
  expect "the list of QuickLoad opens" list_beside "$windows"
  height=$(xwininfo -id "$LIST" | sed -n 's/^ *Height: //p')
  xdotool mousemove --window "$LIST" 30 $((height * (2 * row + 3) / (2 * (${#names[@]} + 1)))) click 1
}
# Every file of the list is in the player's folder as it was installed, or has been renamed by the player.
all_laid() {
  local name
  while read -r _ name; do
    [[ $name == startup.mvp && -e $OWN/disabledstartup.mvp ]] || cmp -s "$INSTALLED/$name" "$OWN/$name" || return 1
  done < <(tail -n +2 "$INSTALLED/marvolin.files")
}
# Places in the window are those at 100 %.
size_100() {
  mkdir -p "$OWN"
  printf 'marvolin windows 1\nsize 100\n' >"$OWN/marvolin.windows"
}
leave() { expect "it ends with 0" stage_quit; }

case $part in
  first)
    size_100
    begin=$(now)
    stage_start "$COMMAND"
    expect "the demo is heard" sounds_since "$begin"
    expect "the player's folder is filled" all_laid
    # The demo closes the splash.
    expect "the splash closes" stage_no_splash
    stage_picture "$player/demo.png" "$WINDOW"
    expect "the question comes" stage_named "Startup Demo"
    xdotool windowactivate --sync "$NAMED" key Tab key Return
    expect "No: a box says how to enable the demo again" box_open
    expect "the demo has its other name" test -e "$OWN/disabledstartup.mvp" -a ! -e "$OWN/startup.mvp"
    # Return in the main window closes the box.
    xdotool windowactivate --sync "$WINDOW" key Return
    click SaveOpen
    expect "Save/Open opens" stage_named "Save/Open"
    xdotool windowactivate --sync "$NAMED" key Return
    expect "the file dialogue opens" stage_named "Save As"
    xdotool windowactivate --sync "$NAMED" type --delay 15 "evening.mvn"
    xdotool key Return
    expect "the set is in the player's folder" test -s "$OWN/evening.mvn"
    expect "the file dialogue closes" stage_not_named "Save As"
    xdotool windowactivate --sync "$WINDOW"
    click SnapShot
    expect "the snapshot is in the player's folder" snapshot_there
    xdotool key F8
    expect "F8: a recording is in the player's folder" recording_there
    expect "two seconds are in it" recorded $((2 * 44100 * 4))
    xdotool key F8
    expect "F8 ends it" recording_ended
    expect "the beat is heard in it" is_heard_in "$RECORDING"
    (cd "$OWN" && sha256sum evening.mvn ./*001.mvn Recordings/*) >"$player/made"
    xdotool key F1
    expect "Help opens" stage_named "Marvolin Help"
    xdotool windowactivate --sync "$NAMED" key Escape
    xdotool windowactivate --sync "$WINDOW"
    click Scripts
    expect "the window of scripts opens" scripts_open
    xdotool windowactivate --sync "$WINDOW" windowmove --sync "$WINDOW" 300 100
    leave
    expect "the places of the windows are kept there" grep -q frmMain "$OWN/marvolin.windows"
    echo "-- mine" >>"$OWN/Scripts/turns.mvs"
    ;;
  again)
    begin=$(now)
    stage_start "$COMMAND"
    stage_clear
    expect "nothing is heard: no demo" silent_since "$begin"
    expect "set, snapshot and own script are there" test -s "$OWN/evening.mvn" -a -s "$OWN/Scripts/turns.mvs"
    expect "set, snapshot and recording are as they were left" made_there
    quick_load evening
    expect "QuickLoad opens the set" title_is "marvolin-evening.mvn"
    begin=$(now)
    xdotool windowactivate --sync "$WINDOW" key a
    expect "and it is heard" sounds_since "$begin"
    expect "the demo has not come back" test ! -e "$OWN/startup.mvp"
    stage_picture "$player/again.png" "$WINDOW"
    leave
    ;;
  killed)
    # A first start, killed ever later while it fills the folder; the last time the next start goes on from there.
    fewest=1000 most=0 torn=0
    for ((ms = 0; ms < 200; ms += 5)); do
      rm -rf "$OWN"
      SDL_AUDIODRIVER=dummy "$COMMAND" 2>/dev/null &
      victim=$!
      until_true 20 test -d "$OWN"
      sleep "0.$(printf '%03d' "$ms")"
      kill -KILL "$victim"
      wait "$victim" 2>/dev/null || true
      files=$(find "$OWN" -type f | wc -l)
      fewest=$((files < fewest ? files : fewest)) most=$((files > most ? files : most))
      while read -r name; do
        [[ $name == marvolin.files ]] || cmp -s "$INSTALLED/$name" "$OWN/$name" || torn=$((torn + 1))
      done < <(cd "$OWN" && find . -type f -not -name '.marvolin-*' -not -name marvolin.windows -printf '%P\n')
      if [[ $ms -eq 40 ]]; then cp -r "$OWN" "$OWN-half"; fi
    done
    echo "  forty first starts were killed with $fewest to $most files"
    expect "every file that was there was whole" test "$torn" -eq 0
    rm -rf "$OWN"
    mv "$OWN-half" "$OWN"
    [[ -e $OWN/marvolin.windows ]] || size_100
    begin=$(now)
    stage_start "$COMMAND"
    expect "after a killed start the demo is heard" sounds_since "$begin"
    expect "and the folder is filled" all_laid
    expect "with nothing left of the killed ones" test -z "$(find "$OWN" -name '.marvolin-*')"
    ;;
esac
stage_close
exit "$failures"

# A stage for the program: a virtual display, a window manager, a sound card that writes to a file. To be sourced; needs
# STAGE_TOOLS, the folder of record_sound, drop_files, picture_sums and listen.
#
#   stage_open FOLDER [WIDTHxHEIGHT]   starts the display; all files of the run go to FOLDER
#   stage_install PROGRAM FOLDER       makes a private program folder with the program and what comes with it, without the demo
#   stage_start PROGRAM                starts the program and waits for its window: sets WINDOW. Its sound goes to the
#                                      card, or to where STAGE_CARD says (settings of SDL in the environment). With
#                                      STAGE_UNMANAGED nobody is asked to activate the window. With STAGE_LATER it does
#                                      not wait
#   stage_shown                        waits for the window of a program that was started with STAGE_LATER
#   stage_clear                        closes the splash
#   stage_quit                         closes the window as a player does, waits for the end and returns the exit status
#   stage_close                        ends everything; runs by itself when the script ends
#
# Nothing here waits blindly: until_true retries until a time limit.

STAGE_PIDS=()
STAGE_CARD=()
WINDOW=
SOUND=

# until_true SECONDS COMMAND...: returns 0 as soon as the command succeeds, 1 when the time is over.
until_true() {
  local end=$((${EPOCHREALTIME/[.,]/} + $1 * 1000000))
  shift
  until "$@"; do
    [[ ${EPOCHREALTIME/[.,]/} -lt $end ]] || return 1
    sleep 0.02
  done
}

stage_open() {
  STAGE=$1
  local size=${2:-1280x800}
  mkdir -p "$STAGE/home" "$STAGE/tmp" "$STAGE/runtime"
  chmod 700 "$STAGE/runtime"
  trap stage_close EXIT
  # The stage neither uses nor changes the player's own settings.
  export HOME="$STAGE/home" TMPDIR="$STAGE/tmp" XDG_RUNTIME_DIR="$STAGE/runtime"
  export XDG_CONFIG_HOME="$STAGE/home/.config" XDG_CACHE_HOME="$STAGE/home/.cache"
  unset WAYLAND_DISPLAY XDG_SESSION_TYPE QT_QPA_PLATFORM QT_SCALE_FACTOR

  mkfifo "$STAGE/display"
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3<>"$STAGE/display" 2>"$STAGE/xvfb.log" &
  STAGE_PIDS+=($!)
  local number
  exec 4<>"$STAGE/display"
  if ! read -r -t 20 number <&4; then
    echo "no display: $(cat "$STAGE/xvfb.log")" >&2
    return 1
  fi
  exec 4<&-
  export DISPLAY=:$number
  # A window that is shown before the window manager is ready would be lost, so wait for it.
  openbox --sm-disable --startup "touch $STAGE/managed" >"$STAGE/openbox.log" 2>&1 &
  STAGE_PIDS+=($!)
  until_true 20 test -e "$STAGE/managed" || { echo "no window manager: $(cat "$STAGE/openbox.log")" >&2; return 1; }

  SOUND=$STAGE/sound.wav
  "$STAGE_TOOLS/record_sound" "$STAGE/card" "$SOUND" &
  RECORDER=$!
  STAGE_PIDS+=("$RECORDER")
  until_true 10 test -p "$STAGE/card" -a -s "$SOUND"
}

# Keeps start-up files beside the built program out of the run, and the run away from them. Places in the window are those at
# 100 %.
stage_install() {
  mkdir -p "$2"
  ln "$1" "$2/" 2>/dev/null || cp "$1" "$2/"
  cp -r "$(dirname "$1")/"{Samples,Scripts,marvolin-editor.so} "$2/"
  printf 'marvolin windows 1\nsize 100\n' >"$2/marvolin.windows"
}

stage_start() {
  # The card sets the pace, so the program's driver need not wait.
  local card=(SDL_AUDIODRIVER=disk "SDL_DISKAUDIOFILE=$STAGE/card" SDL_DISKAUDIODELAY=0)
  [[ ${#STAGE_CARD[@]} -eq 0 ]] || card=("${STAGE_CARD[@]}")
  env "${card[@]}" "$1" >"$STAGE/program.log" 2>&1 &
  PROGRAM=$!
  STAGE_PIDS+=("$PROGRAM")
  [[ -n ${STAGE_LATER:-} ]] || stage_shown
}

stage_shown() {
  until_true 30 stage_window || { echo "the window did not come: $(cat "$STAGE/program.log")" >&2; return 1; }
  [[ -n ${STAGE_UNMANAGED:-} ]] || xdotool windowactivate --sync "$WINDOW" 2>/dev/null
}

# stage_window: true once the main window is visible, the normal window among those of the program. Sets WINDOW.
stage_window() {
  local window
  for window in $(stage_windows); do
    if xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q '= _NET_WM_WINDOW_TYPE_NORMAL$' &&
      [[ $(xdotool getwindowname "$window" 2>/dev/null) =~ ^marvolin(-|$) ]]; then
      WINDOW=$window
      return 0
    fi
  done
  return 1
}

stage_windows() { xdotool search --onlyvisible --pid "$PROGRAM" 2>/dev/null; }

# stage_splash: true while the splash is visible. Sets SPLASH.
stage_splash() {
  local window
  for window in $(stage_windows); do
    if xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q TYPE_SPLASH; then
      SPLASH=$window
      return 0
    fi
  done
  return 1
}

# stage_named NAME: true while a window of the program with this title is visible. Sets NAMED.
stage_named() {
  local window
  for window in $(stage_windows); do
    if [[ $(xdotool getwindowname "$window" 2>/dev/null) == "$1" ]]; then
      NAMED=$window
      return 0
    fi
  done
  return 1
}
stage_not_named() { ! stage_named "$1"; }
stage_no_splash() { ! stage_splash; }

# Closes the splash with a click.
stage_clear() {
  until_true 5 stage_splash || { echo "the splash did not come" >&2; return 1; }
  xdotool mousemove --window "$SPLASH" 20 20 click 1
  until_true 5 stage_no_splash || { echo "the splash does not close" >&2; return 1; }
  xdotool windowactivate --sync "$WINDOW" 2>/dev/null
}

# stage_runs PID: a process that this script started is still running. After its end the number may be reused.
stage_runs() { [[ " $(jobs -pr | paste -sd ' ') " == *" $1 "* ]]; }
stage_gone() { ! stage_runs "$PROGRAM"; }

stage_quit() {
  xdotool windowactivate --sync "$WINDOW" key alt+F4 2>/dev/null
  until_true 20 stage_gone || { echo "the program does not end" >&2; return 1; }
  wait "$PROGRAM"
}

# Ends the recording, so that the file is complete.
stage_end_sound() {
  ! stage_runs "$RECORDER" || kill "$RECORDER"
  wait "$RECORDER"
}

stage_close() {
  local i
  for ((i = ${#STAGE_PIDS[@]} - 1; i >= 0; i--)); do
    ! stage_runs "${STAGE_PIDS[i]}" || kill -KILL "${STAGE_PIDS[i]}" 2>/dev/null || true
    wait "${STAGE_PIDS[i]}" 2>/dev/null || true
  done
  STAGE_PIDS=()
}

# A picture of the whole screen, or of the window, as PNG.
stage_picture() { import -window "${2:-root}" "$1"; }

# Upper left corner of the window on the screen: "X Y".
stage_corner() {
  xwininfo -id "$WINDOW" | sed -n 's/^ *Absolute upper-left [XY]: *//p' | paste -sd ' '
}

# drop_at X Y FILE...: drops files at a position of the window.
drop_at() {
  local corner
  read -ra corner <<<"$(stage_corner)"
  local x=$((corner[0] + $1)) y=$((corner[1] + $2))
  shift 2
  "$STAGE_TOOLS/drop_files" "$x" "$y" "$@"
}

# click_at X Y [BUTTON]: clicks at a position of the window.
click_at() { xdotool mousemove --window "$WINDOW" "$1" "$2" click "${3:-1}"; }

# stage_click FILE: writes a click of one millisecond as a mono WAV file of 11043 frames. That is 18 more than the quarter
# of a second to which its steps are rounded, so that steps can be told from a loop.
stage_click() {
  {
    printf 'RIFF\x6a\x56\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x44\xac\0\0\x88\x58\1\0\2\0\x10\0data\x46\x56\0\0'
    local i
    for ((i = 0; i < 44; ++i)); do printf '\0\x40'; done
    head -c $((2 * (11043 - 44))) /dev/zero
  } >"$1"
}

# Keeps all cores busy until stage_rest.
STAGE_BURNERS=()
stage_burn() {
  local core
  for ((core = $(nproc); core > 0; --core)); do
    while :; do :; done &
    STAGE_BURNERS+=($!)
  done
  STAGE_PIDS+=("${STAGE_BURNERS[@]}")
}
stage_rest() {
  [[ ${#STAGE_BURNERS[@]} -gt 0 ]] || return 0
  kill "${STAGE_BURNERS[@]}"
  wait "${STAGE_BURNERS[@]}" 2>/dev/null || true
  STAGE_BURNERS=()
}

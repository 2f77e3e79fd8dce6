#!/usr/bin/env bash
# Measures this program beside others that players use (Debian's Hydrogen, Giada, LMMS, SooperLooper, Mixxx), all in one run
# and from outside: start, memory, idle cost, and where steps fall in the sound. Each has a home of its own, the same virtual
# display and, where it can, the same PulseAudio server with a null sink; SooperLooper speaks JACK alone and gets jackd with
# its dummy driver. Writes the table as Markdown. What is missing is installed from Debian.
#
#   bench/peers.sh OUT.md [BUILD]      default: build/release
#
# STARTS (7), IDLE (20 s) and SOUND (15 s) in the environment make a shorter run; ONLY="hydrogen giada" measures those alone.
# Steps of ours need BUILD/tests/acceptance/print_places, or PRINT_PLACES.
set -euo pipefail
HERE=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
OUT=$(readlink -m "${1:?usage: bench/peers.sh OUT.md [BUILD]}")
BUILD=$(readlink -f "${2:-$HERE/../build/release}")
STARTS=${STARTS:-7} IDLE=${IDLE:-20} SOUND_SECONDS=${SOUND:-15}
ONLY=${ONLY:-marvolin hydrogen giada lmms sooperlooper mixxx}
PRINT_PLACES=${PRINT_PLACES:-$BUILD/tests/acceptance/print_places}
[[ -x $PRINT_PLACES ]] || PRINT_PLACES=$HERE/../build/test/tests/acceptance/print_places
STAGE_TOOLS=$BUILD/tools/stage
source "$HERE/../tools/packages.sh"
source "$HERE/../tools/stage/stage.sh"
install_packages "${packages_stage[@]}" x11-apps pulseaudio pulseaudio-utils libasound2-plugins jackd2 liblo-tools \
  hydrogen giada lmms sooperlooper mixxx

play=$(mktemp -d)
stage_open "$play/stage" 1920x1000
SERVER=$play/stage/runtime/pulse.socket
pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes \
  --load="module-null-sink sink_name=null rate=44100 format=s16le channels=2" \
  --load="module-native-protocol-unix auth-anonymous=1 socket=$SERVER" >"$play/pulse.log" 2>&1 &
STAGE_PIDS+=($!)
export PULSE_SERVER=unix:$SERVER SDL_AUDIODRIVER=pulseaudio JACK_NO_START_SERVER=1
until_true 10 pactl info >/dev/null 2>&1 || { echo "no server: $(cat "$play/pulse.log")" >&2; exit 1; }
ms() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }
# The window manager reports each new window: lines of "time windows".
xprop -root -spy _NET_CLIENT_LIST | while read -r line; do echo "$(ms) $line"; done >"$play/windows" &
STAGE_PIDS+=($!)

# --- the programs: command, and the title of the main window ---

stage_install "$BUILD/marvolin/marvolin" "$play/marvolin"
declare -A COMMAND=(
  [marvolin]="$play/marvolin/marvolin"
  [hydrogen]="hydrogen -d pulseaudio"
  [giada]="giada"
  [lmms]="lmms --allowroot"
  [sooperlooper]="slgui"
  [mixxx]="mixxx"
)
declare -A TITLE=(
  [marvolin]='^marvolin'
  [hydrogen]='Hydrogen'
  [giada]='^Giada'
  [lmms]='LMMS [0-9.]+'
  [sooperlooper]='SooperLooper'
  [mixxx]='^Mixxx$|\| Mixxx|Mixxx '
)
declare -A NAME=([marvolin]=Marvolin [hydrogen]=Hydrogen [giada]=Giada [lmms]=LMMS [sooperlooper]=SooperLooper [mixxx]=Mixxx)

version() {
  case $1 in
    marvolin) sed -n 's/^project(.*VERSION \([0-9.]*\).*/\1/p' "$HERE/../CMakeLists.txt" ;;
    *) dpkg-query -W -f '${Version}' "$1" ;;
  esac
}

# home NAME: a fresh home with the settings without which the program would ask, or would open another output.
home() {
  HOME=$play/homes/$1
  mkdir -p "$HOME/Music" "$HOME/lmms"
  export HOME XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_DATA_HOME=$HOME/.local/share
  printf 'pcm.!default { type pulse }\nctl.!default { type pulse }\n' >"$HOME/.asoundrc"
  [[ $1 != lmms || -e $HOME/.lmmsrc.xml ]] || cat >"$HOME/.lmmsrc.xml" <<XML
<?xml version="1.0"?>
<!DOCTYPE lmms-config-file>
<lmms configversion="2" version="1.2.2">
  <app configured="1" nomsgaboutrestart="1" language="en"/>
  <mixer audiodev="PulseAudio" mididev="Dummy" framesperaudiobuffer="256"/>
  <paths workingdir="$HOME/lmms/"/>
</lmms>
XML
}

# --- starting and ending ---

descendants() {
  local child
  echo "$1"
  for child in $(pgrep -P "$1"); do descendants "$child"; done
}
clients() { xprop -root _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*' || true; }

# main_window TITLE: true once a window of this title is managed. Sets WINDOW.
main_window() {
  local window
  for window in $(clients); do
    if [[ $(xdotool getwindowname "$window" 2>/dev/null) =~ $1 ]] && large "$window"; then
      WINDOW=$window
      return 0
    fi
  done
  return 1
}
large() {
  local WIDTH=0 HEIGHT=0
  eval "$(xdotool getwindowgeometry --shell "$1" 2>/dev/null | grep -E '^(WIDTH|HEIGHT)=')"
  [[ $WIDTH -ge 300 && $HEIGHT -ge 150 ]] &&
    ! xprop -id "$1" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -qE 'TYPE_(SPLASH|DIALOG)'
}

# painted: the picture of the window is not of one colour, which would be packed to less than a hundredth.
painted() {
  xwd -silent -id "$WINDOW" >"$play/picture" 2>/dev/null || return 1
  [[ $(($(gzip -1 <"$play/picture" | wc -c) * 130)) -gt $(stat -c %s "$play/picture") ]]
}

# begin NAME [ARGUMENT...]: starts it and waits for its painted window. Sets PROGRAM, WINDOW, FIRST and MAIN (ms).
begin() {
  local name=$1 start
  shift
  home "$name"
  [[ $name != sooperlooper ]] || open_jack
  start=$(ms)
  # shellcheck disable=SC2086
  ${COMMAND[$name]} "$@" >"$play/$name.log" 2>&1 &
  PROGRAM=$!
  STAGE_PIDS+=("$PROGRAM")
  until_true 25 main_window "${TITLE[$name]}" && until_true 10 painted || return 1
  MAIN=$(($(ms) - start))
  FIRST=$(awk -v start="$start" '$1 >= start && /0x/ { print $1 - start; exit }' "$play/windows")
}

end() {
  local pids
  pids=$(descendants "$PROGRAM")
  # shellcheck disable=SC2086
  kill $pids 2>/dev/null || true
  until_true 3 gone $pids || kill -KILL $pids 2>/dev/null || true
  wait "$PROGRAM" 2>/dev/null || true
  [[ -z ${JACK:-} ]] || close_jack
  until_true 5 no_clients || true
}
gone() { ! kill -0 "$@" 2>/dev/null; }
no_clients() { [[ -z $(clients) ]]; }

JACK=
open_jack() {
  [[ -z $JACK ]] || return 0
  jackd --no-realtime -n peers -d dummy -r 44100 -p 256 >"$play/jack.log" 2>&1 &
  JACK=$!
  STAGE_PIDS+=("$JACK")
  export JACK_DEFAULT_SERVER=peers
  until_true 10 jack_lsp >/dev/null 2>&1
}
close_jack() {
  kill "$JACK" 2>/dev/null || true
  wait "$JACK" 2>/dev/null || true
  JACK=
}

# --- the figures ---

median() { sort -n | awk '{ v[NR] = $1 } END { if (NR) print v[int((NR + 1) / 2)]; else print "not measured" }'; }

memory() { # MiB of the whole tree
  local pid
  for pid in $(descendants "$PROGRAM"); do sed -n 's/^Pss: *\([0-9]*\).*/\1/p' "/proc/$pid/smaps_rollup"; done |
    awk '{ sum += $1 } END { printf "%.0f", sum / 1024 }'
}
cost() { # nanoseconds of a core, of the whole tree
  local pid
  for pid in $(descendants "$PROGRAM"); do cat /proc/"$pid"/task/*/schedstat; done 2>/dev/null |
    awk '{ sum += $1 } END { printf "%.0f", sum }'
}

# The dialogs of a first start are answered with Escape, and do not come again.
settle() {
  local window
  sleep 2
  for window in $(clients); do
    [[ $window == "${WINDOW:-}" ]] || timeout 2 xdotool windowactivate --sync "$window" key Escape 2>/dev/null || true
  done
}

opens_sound() { # what the program has opened: the server's streams, or the ports of JACK
  if [[ $1 == sooperlooper ]]; then
    jack_lsp 2>/dev/null | grep -qi '^sooperlooper'
  else
    [[ -n $(pactl list short sink-inputs) ]]
  fi
}

measure() { # NAME: sets the fields of its row
  local run before
  : >"$play/first" && : >"$play/main"
  first='not measured' main='not measured' pss='not measured' idle='not measured' sound=no
  begin "$1" || true
  settle
  end
  [[ ! -e $HOME/.hydrogen/hydrogen.conf ]] || sed -i 's/<showDevelWarning>true/<showDevelWarning>false/' "$HOME/.hydrogen/hydrogen.conf"
  for ((run = 1; run <= STARTS; ++run)); do
    begin "$1" || { NOTES+=("${NAME[$1]}: its main window did not come"); end; return 0; }
    echo "$FIRST" >>"$play/first"
    echo "$MAIN" >>"$play/main"
    if [[ $run -lt $STARTS ]]; then end; fi
  done
  first=$(median <"$play/first") main=$(median <"$play/main")
  # The last one stays for the rest.
  settle
  xdotool mousemove 1919 999
  sleep 8
  pss=$(memory)
  before=$(cost)
  sleep "$IDLE"
  idle=$(awk -v ns="$(($(cost) - before))" -v s="$IDLE" 'BEGIN { printf "%.2f", ns / s / 1e7 }')
  if opens_sound "$1"; then sound=yes; fi
  [[ -z ${PICTURES:-} ]] || stage_picture "$PICTURES/$1.png"
  end
}

# --- steps ---

stage_click "$play/click.wav"
record() {
  head -c 44 "$play/click.wav" >"$play/sound.wav"
  timeout "$SOUND_SECONDS" parec --device=null.monitor --rate=44100 --format=s16le --channels=2 >>"$play/sound.wav" || true
}
# spread FILE: "deviation (shortest to longest)" of the distances between clicks, in ms; fails for fewer than twenty.
spread() {
  "$STAGE_TOOLS/listen" steps "$1" 500 $((SOUND_SECONDS * 1000)) |
    awk '$1 >= 20 { printf "%.3f (%.2f to %.2f, %d steps)", $3/1000, $4/1000, $5/1000, $1; ok = 1 } END { exit !ok }'
}

# Ours plays a click every quarter of a second as a Drum LoopTrack. This script does not make the others play a pattern yet.
steps_marvolin() {
  local click loop play_button x y
  [[ -x $PRINT_PLACES ]] || return 1
  begin marvolin || return 1
  stage_clear || true
  click=$(place SndDisp_0) loop=$(place LoopIt_0) play_button=$(place Play_0)
  # shellcheck disable=SC2086
  drop_at $click "$play/click.wav"
  read -r x y <<<"$loop"
  xdotool mousemove --window "$WINDOW" "$x" "$y" mousedown 1 mousemove --window "$WINDOW" "$x" $((y - 7)) sleep 0.05 \
    mousemove --window "$WINDOW" "$x" $((y - 14)) sleep 0.05 mouseup 1
  # shellcheck disable=SC2086
  click_at $play_button
  sleep 2
  record
}
place() { QT_QPA_PLATFORM=offscreen "$PRINT_PLACES" 2>/dev/null | awk -v name="$1" '$1 == name { print int($2 + $4 / 2), int($3 + $5 / 2) }'; }

# --- the table ---

NOTES=()
ROWS=()
for name in $ONLY; do
  echo "$name" >&2
  measure "$name"
  steps="not measured"
  if declare -F "steps_$name" >/dev/null; then
    "steps_$name" >"$play/steps" && steps=$(spread "$play/sound.wav") || steps="not measured"
    [[ -z ${PICTURES:-} ]] || stage_picture "$PICTURES/$name-steps.png"
    end
    rm -f "$play/sound.wav"
  fi
  [[ $name != mixxx ]] || steps=-
  ROWS+=("| ${NAME[$name]} | $(version "$name") | $first | $main | $pss | $idle | $sound | $steps |")
  echo "${ROWS[-1]}" >&2
done

{
  echo "Machine: $(nproc) cores, $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1), $(free -g | awk '/^Mem/ { print $2 }') GiB," \
    "Linux $(uname -r), Debian $(cat /etc/debian_version); load at the end $(cut -d ' ' -f 1 /proc/loadavg). Medians of $STARTS starts after a first one;" \
    "idle over $IDLE s; steps over $SOUND_SECONDS s."
  echo
  echo "| Program | Version | First window, ms | Main window painted, ms | Memory (PSS), MiB | Idle, % of a core | Sound open | Steps: deviation, ms (shortest to longest distance) |"
  echo "|---|---|---:|---:|---:|---:|---|---|"
  printf '%s\n' "${ROWS[@]}"
  [[ ${#NOTES[@]} -eq 0 ]] || { echo; printf -- '- %s\n' "${NOTES[@]}"; }
} | tee "$OUT"
stage_close
rm -rf "$play"

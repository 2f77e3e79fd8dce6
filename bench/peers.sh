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
# No question to a server or a window may wait forever.
for tool in xdotool xwd xwininfo pactl jack_lsp import; do eval "$tool() { timeout 5 $tool \"\$@\"; }"; done
ms() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }
# The window manager reports each new window: lines of "time windows".
while read -r line; do echo "$(ms) $line"; done < <(exec xprop -root -spy _NET_CLIENT_LIST) >"$play/windows" &
STAGE_PIDS+=($!)

# --- the programs: command, and the title of the main window ---

stage_install "$BUILD/marvolin/marvolin" "$play/marvolin"
# One line a program: key, name, title of the main window (a regular expression), command.
TABLE='marvolin|Marvolin|^marvolin|$play/marvolin/marvolin
hydrogen|Hydrogen|Hydrogen|hydrogen -d pulseaudio
giada|Giada|^Giada|giada
lmms|LMMS|LMMS [0-9.]+|lmms --allowroot
sooperlooper|SooperLooper|SooperLooper|slgui
mixxx|Mixxx|Mixxx|mixxx'
declare -A COMMAND TITLE NAME
while IFS='|' read -r key name title command; do
  NAME[$key]=$name TITLE[$key]=$title COMMAND[$key]=${command/\$play/$play}
done <<<"$TABLE"

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
  if declare -F "settings_$1" >/dev/null; then "settings_$1"; fi
}
settings_hydrogen() {
  [[ ! -e $HOME/.hydrogen/hydrogen.conf ]] || return 0
  mkdir -p "$HOME/.hydrogen"
  sed 's/<showDevelWarning>true/<showDevelWarning>false/' /usr/share/hydrogen/data/hydrogen.default.conf >"$HOME/.hydrogen/hydrogen.conf"
}
settings_giada() { # output by PulseAudio, its first device
  mkdir -p "$HOME/.giada"
  printf '{"header":"GIADACFG","sound_system":2,"sound_device_out":0,"sound_device_in":-1,"samplerate":44100,"buffer_size":1024,%s}' \
    '"channels_out_count":2,"channels_out_start":0' >"$HOME/.giada/giada.conf"
}
settings_lmms() {
  cat >"$HOME/.lmmsrc.xml" <<XML
<?xml version="1.0"?>
<!DOCTYPE lmms-config-file>
<lmms configversion="2" version="1.2.2">
  <app configured="1" nomsgaboutrestart="1" language="en"/>
  <mixer audiodev="PulseAudio" mididev="Dummy" framesperaudiobuffer="256"/>
  <paths workingdir="$HOME/lmms/"/>
</lmms>
XML
}
settings_mixxx() {
  mkdir -p "$HOME/.mixxx"
  cat >"$HOME/.mixxx/soundconfig.xml" <<XML
<!DOCTYPE SoundManagerConfig>
<SoundManagerConfig force_network_clock="0" api="ALSA" latency="5" samplerate="44100" sync_buffers="2" deck_count="4">
 <SoundDevice name="pulse" alsaHwDevice="" portAudioIndex="0">
  <output channel="0" channel_count="2" index="0" type="Master"/>
 </SoundDevice>
</SoundManagerConfig>
XML
}

# --- starting and ending ---

descendants() {
  local child
  echo "$1"
  for child in $(pgrep -P "$1"); do descendants "$child"; done
}
clients() { xprop -root _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*' || true; }

# main_window TITLE: true once a large window of this title, no splash and no dialog, is managed. Sets WINDOW. Asks with few
# processes, because each of them delays the program that starts.
main_window() {
  local window about
  for window in $(clients); do
    about=$(timeout 5 xprop -id "$window" -f WM_NAME 8s WM_NAME _NET_WM_WINDOW_TYPE 2>/dev/null) || continue
    if [[ ${about,,} =~ type_(splash|dialog) ]]; then continue; fi
    if [[ $(sed -n 's/^WM_NAME[^"]*"\(.*\)"$/\1/p' <<<"$about") =~ $1 ]] && large "$window"; then
      WINDOW=$window
      return 0
    fi
  done
  return 1
}
large() {
  local WIDTH=0 HEIGHT=0
  eval "$(xdotool getwindowgeometry --shell "$1" 2>/dev/null | grep -E '^(WIDTH|HEIGHT)=')"
  [[ $WIDTH -ge 300 && $HEIGHT -ge 150 ]]
}

# packed: prints how many bytes the picture of the window takes, packed: a measure of its detail.
packed() {
  xwd -silent -id "$WINDOW" >"$play/picture" 2>/dev/null || { echo 0; return; }
  ms >"$play/pictured"
  gzip -1 <"$play/picture" | wc -c
}
# painted: the picture has at least half the detail that it has at rest (DETAIL, from the first start), and is not of one
# colour, which would be packed to less than a hundredth. Sets PAINTED_AT.
DETAIL=0
painted() {
  local size
  size=$(packed)
  [[ $size -gt 0 ]] || return 1
  PAINTED_AT=$(<"$play/pictured")
  [[ $((size * 130)) -gt $(stat -c %s "$play/picture") && $((size * 2)) -ge $DETAIL ]]
}
# rest: waits until the picture changes no more, twelve seconds at most. Sets DETAIL.
rest() {
  local before=0 try
  for ((try = 0; try < 12; ++try)); do
    DETAIL=$(packed)
    [[ $try -lt 3 || $((DETAIL - before)) -gt $((DETAIL / 50)) || $((before - DETAIL)) -gt $((DETAIL / 50)) ]] || return 0
    before=$DETAIL
    sleep 1
  done
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
  MAIN=$((PAINTED_AT - start))
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

# The dialogs of a first start are answered with Escape, and that for a folder of music with one: they do not come again.
settle() {
  local window
  sleep 2
  for window in $(clients); do
    [[ $window != "${WINDOW:-}" ]] || continue
    if [[ $(xdotool getwindowname "$window" 2>/dev/null) == "Choose music"* ]]; then
      xdotool windowactivate --sync "$window" type "$HOME/Music" 2>/dev/null || true
      xdotool key Return
    else
      xdotool windowactivate --sync "$window" key Escape 2>/dev/null || true
    fi
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
  DETAIL=0
  begin "$1" || true
  settle
  rest
  end
  for ((run = 1; run <= STARTS; ++run)); do
    begin "$1" || { NOTES+=("${NAME[$1]}: its main window did not come within 35 s."); end; return 0; }
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

hydrogen_song() { # FILE CLICK: a note of the click on each eighth at 120 beats a minute
  local position
  {
    cat <<XML
<?xml version="1.0" encoding="UTF-8"?>
<song>
 <version>1.2.0</version><bpm>120</bpm><volume>0.8</volume><name>click</name><loopEnabled>true</loopEnabled>
 <patternModeMode>true</patternModeMode><mode>song</mode>
 <humanize_time>0</humanize_time><humanize_velocity>0</humanize_velocity><swing_factor>0</swing_factor>
 <componentList><drumkitComponent><id>0</id><name>Main</name><volume>1</volume></drumkitComponent></componentList>
 <instrumentList><instrument><id>0</id><name>click</name><volume>1</volume><gain>1</gain><isMuted>false</isMuted>
  <isSoloed>false</isSoloed><pan>0</pan><applyVelocity>true</applyVelocity><filterActive>false</filterActive>
  <Attack>0</Attack><Decay>0</Decay><Sustain>1</Sustain><Release>1000</Release><muteGroup>-1</muteGroup>
  <instrumentComponent><component_id>0</component_id><gain>1</gain><layer><filename>$2</filename><min>0</min><max>1</max>
   <gain>1</gain><pitch>0</pitch></layer></instrumentComponent></instrument></instrumentList>
 <patternList><pattern><name>eighths</name><size>192</size><denominator>4</denominator><noteList>
XML
    for ((position = 0; position < 192; position += 24)); do
      echo "<note><position>$position</position><leadlag>0</leadlag><velocity>0.8</velocity><pan>0</pan><pitch>0</pitch>" \
        "<probability>1</probability><key>C0</key><length>-1</length><instrument>0</instrument><note_off>false</note_off></note>"
    done
    echo '</noteList></pattern></patternList>'
    echo '<patternSequence><group><patternID>eighths</patternID></group></patternSequence></song>'
  } >"$1"
}
lmms_song() { # FILE CLICK: a note of the click on each eighth at 120 beats a minute, for 64 bars
  local position
  {
    cat <<XML
<?xml version="1.0"?>
<!DOCTYPE lmms-project>
<lmms-project creator="LMMS" version="1.0" type="song" creatorversion="1.2.2">
 <head timesig_numerator="4" timesig_denominator="4" bpm="120" mastervol="100" masterpitch="0"/>
 <song><trackcontainer type="song" visible="1" x="5" y="5" width="600" height="300">
  <track name="click" type="0" muted="0" solo="0"><instrumenttrack vol="100" pan="0" basenote="57" fxch="0" pitch="0">
   <instrument name="audiofileprocessor"><audiofileprocessor src="$2" amp="100" sframe="0" lframe="0" eframe="1" looped="0"
    stutter="0" reversed="0" interp="0"/></instrument></instrumenttrack>
   <pattern type="1" name="click" pos="0" len="12288" steps="16" muted="0">
XML
    for ((position = 0; position < 12288; position += 24)); do
      echo "<note pos=\"$position\" len=\"12\" key=\"57\" vol=\"100\" pan=\"0\"/>"
    done
    echo '</pattern></track></trackcontainer></song></lmms-project>'
  } >"$1"
}

# click_track FILE: a mono WAV file with a click each 11025 frames, exactly a quarter of a second, longer than the recording.
click_track() {
  local count=$((4 * SOUND_SECONDS + 120)) i one
  one=$play/one_click
  { for ((i = 0; i < 44; ++i)); do printf '\0\x40'; done; head -c $((2 * (11025 - 44))) /dev/zero; } >"$one"
  {
    printf 'RIFF' && le32 $((36 + count * 22050)) && printf 'WAVEfmt \x10\0\0\0\1\0\1\0\x44\xac\0\0\x88\x58\1\0\2\0\x10\0data'
    le32 $((count * 22050))
    for ((i = 0; i < count; ++i)); do cat "$one"; done
  } >"$1"
}
le32() { printf "$(printf '\\x%02x\\x%02x\\x%02x\\x%02x' $(($1 & 255)) $(($1 >> 8 & 255)) $(($1 >> 16 & 255)) $(($1 >> 24 & 255)))"; }

# play_key KEY: puts the window in front, presses the key that plays, and records.
play_key() {
  sleep 4
  xdotool windowactivate --sync "$WINDOW" 2>/dev/null || true
  xdotool key "$1"
  sleep 2
  record
}
steps_hydrogen() {
  hydrogen_song "$play/click.h2song" "$play/click.wav"
  begin hydrogen -n -s "$play/click.h2song" && play_key space
}
steps_lmms() {
  lmms_song "$play/click.mmp" "$play/click.wav"
  begin lmms "$play/click.mmp" && play_key space
}
steps_mixxx() {
  click_track "$play/click track.wav"
  begin mixxx "$play/click track.wav" && play_key d
}

# Ours plays a click every quarter of a second as a Drum LoopTrack.
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

NOTES=(
  "Main window painted: its first picture with at least half the detail of the window at rest. The pictures are taken one after the other, some 50 ms apart; looking for the window takes about as long."
  "Steps: a click each quarter of a second, recorded from the monitor of the null sink. Marvolin plays a sample as a Drum LoopTrack, Hydrogen and LMMS a song with a note on each eighth, Mixxx a track that contains the clicks, so that its figure is that of playing a file. A longest distance of a multiple of 250 ms is a click that was not heard."
)
declare -A WHY=(
  [giada]="it plays a pattern only from a project of its own format, which this script does not write"
  [sooperlooper]="this script does not record from JACK"
)
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
  [[ $name != sooperlooper ]] || ! grep -q snd_seq "$play/sooperlooper.log" ||
    NOTES+=("SooperLooper's engine ends at once on a machine without an ALSA sequencer (/dev/snd/seq), so that only its window (slgui) is measured here, without sound.")
  [[ $steps != "not measured" ]] ||
    NOTES+=("${NAME[$name]}: steps not measured: ${WHY[$name]:-fewer than twenty-one clicks were heard in the recording}.")
  ROWS+=("| ${NAME[$name]} | $(version "$name") | $first | $main | $pss | $idle | $sound | $steps |")
  echo "${ROWS[-1]}" >&2
done

{
  echo "# Beside other programs"
  echo
  echo "\`bench/peers.sh OUT.md\` measures this program beside others that players use, from outside, each with a home of its own. It writes this page."
  echo
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

#!/usr/bin/env bash
# Measures where the steps of a Drum LoopTrack fall in the sound: the program on the stage, playing into a PulseAudio
# server with a null sink whose monitor is recorded, with the coarse clock and the fine one, with the machine quiet and
# with all cores busy. Prints a table in milliseconds. Skipped where Debian's pulseaudio and pulseaudio-utils are missing.
#
#   bench/steps.sh [BUILD] [SECONDS]     default: build/test, 40 s a row
set -euo pipefail
HERE=$(dirname "$(readlink -f "$0")")
BUILD=$(readlink -f "${1:-$HERE/../build/test}")
LENGTH=${2:-40}
for command in pulseaudio parec pactl; do
  command -v "$command" >/dev/null || { echo "skipped: there is no $command"; exit 0; }
done

play=$(mktemp -d)
NOT_STARTED=1
source "$HERE/../tests/acceptance/hands.sh" "$BUILD/marvolin/marvolin" "$BUILD/tools/stage" \
  "$BUILD/tests/acceptance/print_places" "$play/run"

# The server of this run alone: its runtime and its settings are on the stage.
pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes \
  --load="module-null-sink sink_name=null rate=44100 format=s16le channels=2" \
  --load="module-native-protocol-unix auth-anonymous=1 socket=$play/pulse" >"$play/pulse.log" 2>&1 &
STAGE_PIDS+=($!)
export PULSE_SERVER=unix:$play/pulse
until_true 10 pactl info >/dev/null 2>&1 || { echo "no server: $(cat "$play/pulse.log")" >&2; exit 1; }

STAGE_CARD=(SDL_AUDIODRIVER=pulseaudio)
start
stage_click "$play/click.wav"
drop SndDisp_0 "$play/click.wav"
drag LoopIt_0 0 -14
click Play_0
picture "playing"

# The recording begins as a WAV file of no length, as that of a card does.
record() {
  head -c 44 "$play/click.wav" >"$play/sound.wav"
  timeout "$LENGTH" parec --device=null.monitor --rate=44100 --format=s16le --channels=2 >>"$play/sound.wav" || true
}

row() { # RESOLUTION WORDS
  record
  "$LISTEN" steps "$play/sound.wav" 500 $((LENGTH * 1000)) | awk -v resolution="$1" -v words="$2" \
    '{ printf "%10s  %-16s %6d %9.3f %9.4f %9.3f %9.3f\n", resolution, words, $1, $2/1000, $3/1000, $4/1000, $5/1000 }'
}

printf '%10s  %-16s %6s %9s %9s %9s %9s\n' TimingRes machine steps mean deviation shortest longest
for resolution in 10 1; do
  if [[ $resolution -eq 1 ]]; then
    click Tab_3
    click OptionSubTab_3
    click ResSlider
    xdotool key Home
  fi
  sleep 1
  row $resolution quiet
  stage_burn
  sleep 1
  row $resolution "all cores busy"
  stage_rest
done
picture "end"
stage_quit
if [[ -n ${KEEP:-} ]]; then cp -r "$play" "$KEEP"; fi
stage_close
rm -rf "$play"

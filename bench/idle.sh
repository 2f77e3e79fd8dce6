#!/usr/bin/env bash
# Measures what the program costs while nothing is played: on the stage, its sound given to a PulseAudio server with a null
# sink, once as it is and once as a program that asks the output for 256 frames instead of 128. The two are measured in
# turns, ROUNDS times, by the time that the system says each thread has had a core. Prints per mille of a core.
# Skipped where Debian's pulseaudio and pulseaudio-utils are missing.
#
#   bench/idle.sh [BUILD] [SECONDS] [ROUNDS]     default: build/release, 8 s, 3 rounds
set -euo pipefail
HERE=$(dirname "$(readlink -f "$0")")
BUILD=$(readlink -f "${1:-$HERE/../build/release}")
SECONDS_A_TURN=${2:-8}
ROUNDS=${3:-3}
for command in pulseaudio pactl; do
  command -v "$command" >/dev/null || { echo "skipped: there is no $command"; exit 0; }
done
STAGE_TOOLS=$BUILD/tools/stage
source "$HERE/../tools/stage/stage.sh"

play=$(mktemp -d)
stage_open "$play/stage"
# The server of this run alone: its runtime and its settings are on the stage.
pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes \
  --load="module-null-sink sink_name=null rate=44100 format=s16le channels=2" \
  --load="module-native-protocol-unix auth-anonymous=1 socket=$play/pulse" >"$play/pulse.log" 2>&1 &
STAGE_PIDS+=($!)
export PULSE_SERVER=unix:$play/pulse
until_true 10 pactl info >/dev/null 2>&1 || { echo "no server: $(cat "$play/pulse.log")" >&2; exit 1; }
STAGE_CARD=(SDL_AUDIODRIVER=pulseaudio)

for frames in 128 256; do
  program=$BUILD/marvolin/marvolin
  [[ $frames -eq 128 ]] || program=$BUILD/bench/marvolin_period_$frames
  mkdir -p "$play/$frames"
  ln -s "$BUILD/marvolin/Samples" "$play/$frames/Samples"
  cp "$program" "$play/$frames/marvolin"
done

# costs FILE: writes "name nanoseconds" for each thread of the program. Threads that have ended since do not count.
costs() {
  local thread
  for thread in /proc/"$PROGRAM"/task/*; do
    echo "${thread##*/} $(tr ' ' _ <"$thread/comm") $(cut -d ' ' -f 1 "$thread/schedstat")"
  done >"$1" 2>/dev/null
}

turn() { # FRAMES
  stage_start "$play/$1/marvolin"
  stage_clear
  # The pointer rests where nothing is lit.
  xdotool mousemove --window "$WINDOW" 300 718
  sleep 2
  costs "$play/before"
  sleep "$SECONDS_A_TURN"
  costs "$play/after"
  awk -v frames="$1" -v seconds="$SECONDS_A_TURN" '
    NR == FNR { before[$1] = $3; next }
    $1 in before { cost = ($3 - before[$1]) / seconds / 1e6; all += cost; if (cost >= 0.1) threads = threads sprintf(" %s %.1f", $2, cost) }
    END { printf "%d frames: %.1f per mille of a core;%s\n", frames, all, threads }' "$play/before" "$play/after" | tee -a "$play/all"
  if [[ -n ${SHOW_SERVER:-} ]]; then pactl list sink-inputs | grep -i latency; fi
  stage_quit
}

for ((round = 1; round <= ROUNDS; ++round)); do
  for frames in 128 256; do turn "$frames"; done
done
for frames in 128 256; do
  awk -v frames="$frames" '$1 == frames { print $3 }' "$play/all" | sort -n |
    awk -v frames="$frames" '{ v[NR] = $1 } END { printf "%d frames: least %.1f, median %.1f, most %.1f per mille\n", frames, v[1], v[int((NR + 1) / 2)], v[NR] }'
done
stage_close
rm -rf "$play"

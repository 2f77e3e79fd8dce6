#!/usr/bin/env bash
# An output is pulled out and put back while a LoopTrack plays: the list shows that it is away, and it is taken again by
# itself, with what plays. The outputs are two of a sound server of the test's own; the stage's card listens to one.
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

SERVER=$FOLDER/stage/server
export PULSE_SERVER=unix:$SERVER
pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes --log-target=stderr \
  -L "module-native-protocol-unix socket=$SERVER auth-anonymous=1" \
  -L "module-null-sink sink_name=hall sink_properties=device.description=Hall" 2>"$FOLDER/server.log" &
STAGE_PIDS+=($!)
is_ready() { pactl info >/dev/null 2>&1; }
expect "a sound server runs" is_ready

# put: plugs the output Desk in. pull: pulls it out; the card is unplugged first, or it would listen to the other.
put() { DESK=$(pactl load-module module-null-sink sink_name=desk sink_properties=device.description=Desk); }
pull() {
  if [[ -n $EAR ]]; then kill "$EAR" && wait "$EAR" || true; fi 2>/dev/null
  EAR=
  pactl unload-module "$DESK"
}
# The card of the stage hears what the output named Desk gets, while it is there.
listen_to_desk() {
  parec --device=desk.monitor --format=s16le --rate=44100 --channels=2 --latency-msec=20 --raw >"$FOLDER/stage/card" \
    2>>"$FOLDER/server.log" &
  EAR=$!
  STAGE_PIDS+=("$EAR")
}
EAR=
# plays_in NAME: all sound of the program goes to this output of the server.
plays_in() {
  local output
  output=$(pactl list short sinks | awk -v name="$1" '$2 == name { print $1 }')
  [[ -n $output && $(pactl list short sink-inputs | cut -f 2 | sort -u) == "$output" ]]
}
sends_nothing() {
  local all
  all=$(pactl list short sink-inputs) && [[ -z $all ]]
}
# watch_server: records the events of the server in EVENTS from now on, each line behind the time in microseconds.
EVENTS=$FOLDER/events
watch_server() {
  : >"$EVENTS"
  LC_ALL=C pactl subscribe > >(while read -r line; do echo "${EPOCHREALTIME/[.,]/} $line"; done >"$EVENTS") 2>>"$FOLDER/server.log" &
  WATCH=$!
  STAGE_PIDS+=("$WATCH")
  # Events before the server knows of this client are lost, so a harmless change is repeated until its event arrives.
  until_true 5 watch_hears
}
watch_hears() {
  pactl set-sink-volume hall 100% && sleep 0.05 && [[ -s $EVENTS ]]
}
# reported_at WHAT: prints when the server first reported something new of this kind.
reported_at() { awk -v what="$1" '$3 == "\x27new\x27" && $5 == what { print $1; exit }' "$EVENTS"; }
has_reported() { [[ -n $(reported_at "$1") ]]; }

put
listen_to_desk
STAGE_CARD=(SDL_AUDIODRIVER=pulseaudio "PULSE_SERVER=$PULSE_SERVER")
start

echo "The second output"
"$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone.wav" 1000
drop SndDisp_0 "$FOLDER/tone.wav"
click Tab_3
park
first=$(face cboDrivers)
click cboDrivers
xdotool key End Up Return
park
expect "it is chosen" looks_unlike cboDrivers "$first"
begin=$(now)
key a
expect "A is heard there" sounds_since "$begin"
expect "it goes to that output" plays_in desk
picture "chosen"
park
chosen=$(face cboDrivers)
plays=$(face Play_0)

echo "It is pulled out"
pull
expect "the list says so" looks_unlike cboDrivers "$chosen"
expect "nothing goes to the server any more" sends_nothing
expect "A counts as playing" looks_like Play_0 "$plays"
picture "pulled out"

echo "It is put back"
# Timed by the server's own events, from the new output to the program's stream there. Polling the list of streams would add its
# own time.
expect "the server is watched" watch_server
put
expect "the server reports the output" has_reported sink
expect "the server reports A's sound there" has_reported sink-input
kill "$WATCH"
between "ms from the output to the sound" $((($(reported_at sink-input) - $(reported_at sink)) / 1000)) 0 1000
expect "it goes to that output" plays_in desk
begin=$(now)
listen_to_desk
expect "A is heard there again" sounds_since "$begin"
park
expect "the list says so" looks_like cboDrivers "$chosen"
expect "A plays" looks_like Play_0 "$plays"
begin=$(now)
wait_ms 1500
expect "and plays on" sounds_throughout "$begin" $((begin + 1500))
picture "back"

echo "It comes and goes ten times a second"
for _ in 1 2 3 4 5 6 7 8 9 10; do
  pull
  sleep 0.05
  put
  sleep 0.05
done
begin=$(now)
listen_to_desk
expect "A is heard again once it rests" sounds_since "$begin"
expect "it goes to that output" plays_in desk
park
expect "the list has it again, by its name" looks_like cboDrivers "$chosen"
picture "rests"
finish

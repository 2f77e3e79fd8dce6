#!/usr/bin/env bash
# Headphones are switched on and off with 3D sound while a tone plays: what the card gets has no gap.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# quietest FROM TO: prints the level of the quietest 5 ms.
quietest() { "$LISTEN" levels "$SOUND" "$1" "$2" 5 | sort -n | head -n 1; }

echo "A tone with 3D sound"
"$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/tone.wav" 1000
drop SndDisp_0 "$FOLDER/tone.wav"
click Tab_1
park
off=$(face Map)
click Enable3d 1 12 13
park
expect "the map opens" looks_unlike Map "$off"
begin=$(now)
key a
expect "A plays" sounds_since "$begin"
wait_ms 300
begin=$(now)
wait_ms 600
plain=$(quietest "$begin" "$(now)")
between "the quietest 5 ms of the tone" "$plain" -5000 -1000

echo "On and off"
# Without a frame of the keys at first, which comes with the first click.
before=$(face Headphones)
for turn in 1 2 3; do
  begin=$(now)
  click Headphones 1 12 12
  park
  expect "headphones are on, $turn" looks_unlike Headphones "$before"
  on=$(face Headphones)
  wait_ms 300
  between "the quietest 5 ms" "$(quietest "$begin" "$(now)")" $((plain - 1200)) 0
  [[ $turn -ne 1 ]] || picture "headphones"
  begin=$(now)
  click Headphones 1 12 12
  park
  expect "and off again" looks_unlike Headphones "$on"
  before=$(face Headphones)
  wait_ms 300
  between "the quietest 5 ms" "$(quietest "$begin" "$(now)")" $((plain - 1200)) 0
done
begin=$(now)
wait_ms 300
between "the tone is as before" "$(quietest "$begin" "$(now)")" $((plain - 60)) $((plain + 60))
finish

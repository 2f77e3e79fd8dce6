#!/usr/bin/env bash
# Headphones are switched on and off with 3D sound while a tone plays: what the card gets has no gap.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# quietest FROM TO [FILE]: prints the level of the quietest ms, which is one wave of the tone.
quietest() { "$LISTEN" levels "${3:-$SOUND}" "$1" "$2" 1 | awk 'NR == 1 || $1 < least { least = $1 } END { print least }'; }

# dip FROM TO [FILE]: prints how far the quietest ms lies below the sound of the first and of the last 50 ms, whichever is quieter,
# in hundredths of a dB.
dip() {
  "$LISTEN" levels "${3:-$SOUND}" "$1" "$2" 1 | awk '
    function level(first, i, sum) { for (i = first; i < first + 50; ++i) sum += at[i]; return sum / 50 }
    { at[NR] = $1; if (NR == 1 || $1 < least) least = $1 }
    END { a = level(1); b = level(NR - 49); printf "%d\n", least - (a < b ? a : b) }'
}

# switch WORDS FACE PICTURE: switches the headphones with a click, listens meanwhile, and sets SWITCHED to the face that the
# switch has then. PICTURE may be empty.
switch() {
  local begin
  begin=$(now)
  click Headphones 1 12 12
  park
  expect "headphones are $1" looks_unlike Headphones "$2"
  SWITCHED=$(face Headphones)
  wait_ms 300
  between "hundredths of a dB from the sound to its quietest ms" "$(dip "$begin" "$(now)")" "$DIP" 0
  [[ -z $3 ]] || picture "$3"
}

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
end=$(now)
plain=$(quietest "$begin" "$end")
between "the quietest ms of the tone" "$plain" -5000 -1000
# Where one filter fades into the other a ms is quieter, by up to 2.3 dB in the adapter's own tests.
DIP=-300

echo "The ear"
# spoilt WORDS MS [DIVISOR]: such a gap in the tone is heard as one.
spoilt() {
  cp "$SOUND" "$FOLDER/with_gap.wav"
  python3 "$(dirname "${BASH_SOURCE[0]}")/plant_gap.py" "$FOLDER/with_gap.wav" $((begin + 200)) "${@:2}"
  between "the dip of a tone $1" "$(dip "$begin" "$end" "$FOLDER/with_gap.wav")" -10000 $((DIP - 1))
}
between "the dip of the tone itself" "$(dip "$begin" "$end")" -100 0
spoilt "with a gap of 2 ms" 2
spoilt "that is half as loud for 2 ms" 2 2

echo "On and off"
# Without a frame of the keys at first, which comes with the first click.
SWITCHED=$(face Headphones)
for turn in 1 2 3; do
  shown=
  [[ $turn -ne 1 ]] || shown=headphones
  switch "on, $turn" "$SWITCHED" "$shown"
  switch "off again, $turn" "$SWITCHED" ""
done
begin=$(now)
wait_ms 300
between "the tone is as before" "$(quietest "$begin" "$(now)")" $((plain - 60)) $((plain + 60))
finish

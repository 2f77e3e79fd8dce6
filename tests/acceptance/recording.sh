#!/usr/bin/env bash
# What is heard is recorded: by the button and by the key, in any window, frame by frame as the card gets it, also when the
# program is killed or closed meanwhile. The key of silence silences everything and brings it back. A light shows when sound
# is cut off.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

RECORDINGS=$FOLDER/marvolin/Recordings

recordings() { find "$RECORDINGS" -name '*.wav' 2>/dev/null | wc -l; }
there_are() { [[ $(recordings) -eq $1 ]]; }
newest() { find "$RECORDINGS" -name '*.wav' -printf '%T@ %p\n' | sort -n | tail -1 | cut -d ' ' -f 2-; }
# on_the_card FILE [BUT]: the recording has frames, and the card has got the same, but for the last BUT frames; what it gets
# last takes a moment.
on_the_card() {
  compare_with_card "$1" 0 "${2:-0}"
  [[ $FRAMES -gt ${2:-0} && $PLACE -ge 0 ]]
}
# begins_at_the_press FILE SIZE: the recording begins within a second of what the card got behind its first SIZE bytes.
begins_at_the_press() {
  compare_with_card "$1" "$2"
  [[ $FRAMES -gt 0 && $PLACE -ge 0 && $PLACE -le 44100 ]]
}
# lasts WORDS LOW HIGH: of the recording that was compared last, in ms.
lasts() { between "$1" $((FRAMES * 10 / 441)) "$2" "$3"; }

echo "By the button"
play_a() {
  local begin
  drop SndDisp_0 "$SAMPLES/Noise.wav"
  expect "A has a sample" looks_unlike SndDisp_0 "$1"
  begin=$(now)
  key a
  expect "A plays" sounds_since "$begin"
}
park
empty=$(face SndDisp_0)
still=$(face LevelMeter)
play_a "$empty"
park
expect "the meter moves" looks_unlike LevelMeter "$still"
off=$(face Record)
pressed=$(stat -c %s "$SOUND")
click Record
expect "a file is made" there_are 1
park
expect "the button is lit" looks_unlike Record "$off"
wait_ms 2000
picture "recording"
click Record
park
expect "the button is dark again" looks_like Record "$off"
expect "every frame is what the card got" on_the_card "$(newest)"
lasts "ms recorded" 1500 4000
expect "it begins with the press" begins_at_the_press "$(newest)" "$pressed"
expect "its name begins with that of the program" eval '[[ $(basename "$(newest)") == "marvolin 20"*.wav ]]'

echo "By the key, with silence in it"
expect "the browser is open beside the main window" find_browser
xdotool windowactivate --sync "$BROWSER" key F8
expect "F8 records, also in the browser" there_are 2
wait_ms 500
xdotool key F12
begin=$(now)
expect "F12 silences everything" silent_since "$begin"
picture "silence"
xdotool key F12
begin=$(now)
expect "and brings it back" sounds_since "$begin"
xdotool windowactivate --sync "$WINDOW" key F8
park
expect "F8 ends it in the main window" looks_like Record "$off"
expect "every frame is what the card got, the silence too" on_the_card "$(newest)"

echo "Shift and the red square"
read -r _ _ _ height <<<"${PLACE[PlayStop]}"
xdotool keydown shift
click PlayStop 1 20 $((height * 4 / 5))
xdotool keyup shift
park
begin=$(now)
expect "Shift and a click silences" silent_since "$begin"
click PlayStop 1 20 $((height / 5))
park
begin=$(now)
wait_ms 300
expect "what is played meanwhile is not heard" silent_since "$begin"
xdotool key F12
begin=$(now)
expect "and F12 brings it back" sounds_since "$begin"

echo "Too loud"
read -r left top width _ <<<"${PLACE[LevelMeter]}"
PLACE[Light]="$((left + 1)) $((top + 1)) $((width - 2)) 3"
stop_all
park
wait_ms 2500
dark=$(face Light)
# Two tones of one pitch might meet so that they weaken each other.
pitches=(440 660)
for row in 1 2; do
  "$(dirname "$PRINT_PLACES")/make_tone" "$FOLDER/loud $row.wav" "${pitches[row - 1]}" 100
  drop "SndDisp_$row" "$FOLDER/loud $row.wav"
done
key b
wait_ms 300
expect "one at full scale is not too loud" looks_like Light "$dark"
key c
expect "the light of the meter comes on" looks_unlike Light "$dark"
picture "too loud"
click PlayStop 1 23 36
begin=$(now)
expect "it stays for a while" looks_unlike Light "$dark"
expect "and goes out" looks_like Light "$dark"
# Two seconds, and what a busy machine takes for a look.
between "ms that it stayed" $(($(now) - begin)) 1500 4500
key a

echo "A kill"
click Record
expect "a file is made" there_are 3
begin=$(now)
wait_ms 3000
kill -9 "$PROGRAM"
length=$(($(now) - begin))
wait "$PROGRAM" 2>/dev/null || true
expect "the file can be read, and is what the card got" on_the_card "$(newest)" 4410
lasts "ms recorded of $length" $((length - 1000)) $((length + 500))

echo "The end of the program"
start
expect "the browser is open beside the main window" find_browser
click Record
expect "a file is made" there_are 4
play_a "$empty"
finish
expect "the recording that ran is whole" on_the_card "$(newest)"
lasts "ms recorded" 100 20000
[[ $FAILURES -eq 0 ]]

#!/usr/bin/env bash
# Sequences are carried from the pattern tab by hand: one pattern, all patterns, one timing element, all of them, and both
# at once, each onto another LoopTrack, and the eraser onto a pattern. What was carried arrives, is seen and heard, and
# nothing else changes.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

PATTERNS=(PatternGraph_0 PatternGraph_1 PatternGraph_2)
DURATION=(TimeDigit_0 TimeDigit_1 TimeDigit_2)
BEAT_START=(TimeDigit_5 TimeDigit_6 TimeDigit_7)

# in_front ROW: lets the pattern tab show that LoopTrack.
in_front() { click "Thumb_$1"; }
# edge NAME PERCENT: prints a place near the top of a frame, this far from its left, beside the controls in it.
edge() {
  local width height
  read -r _ _ width height <<<"${PLACE[$1]}"
  echo $((width * $2 / 100)) $((height * 3 / 100))
}
# draw GRAPH HEIGHT...: draws each of the four steps at a height in pixels from the top.
draw() {
  local graph=$1 step=0 width
  read -r _ _ width _ <<<"${PLACE[PatternGraph_$graph]}"
  shift
  for height in "$@"; do
    click "PatternGraph_$graph" 1 $((width / 20 + width * 19 * (2 * step + 1) / 160)) "$height"
    step=$((step + 1))
  done
}
# shows WORDS DRAWN... -- PLAIN...: the first controls look as A's, the others as at the beginning.
shows() {
  local words=$1 name drawn=1
  shift
  park
  for name in "$@"; do
    if [[ $name == -- ]]; then
      drawn=
    elif [[ -n $drawn ]]; then
      expect "$words: $name is A's" looks_like "$name" "${LOOK[$name]}"
    else
      expect "$words: $name is as it was" looks_like "$name" "${PLAIN[$name]}"
    fi
  done
}
declare -A PLAIN

echo "A sequence in A"
for row in 0 1 2 3; do drop "SndDisp_$row" "$SAMPLES/Noise.wav"; done
click Tab_2
in_front 1
remember "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"
for name in "${!LOOK[@]}"; do PLAIN[$name]=${LOOK[$name]}; done
in_front 0
compare "all LoopTracks begin alike" "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"
draw 0 2 44 14 24
draw 1 30 33 36 28
draw 2 38 26 36 28
# 50 twips per unit: the steps last a good second, and the sample begins a little later.
drag TimeDigit_1 0 14
drag TimeDigit_6 0 -8
remember "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"
for name in "${PATTERNS[@]}" TimeDigit_1 TimeDigit_6; do
  expect "A: $name has changed" looks_unlike "$name" "${PLAIN[$name]}"
done
picture "A"

echo "One pattern"
carry 3 PatternGraph_0 SndDisp_1
in_front 1
shows "B" PatternGraph_0 -- PatternGraph_1 PatternGraph_2 "${DURATION[@]}" "${BEAT_START[@]}"

echo "One timing element"
in_front 0
carry 3 CloneTime_0 SndDisp_1
in_front 1
shows "B" PatternGraph_0 "${DURATION[@]}" -- PatternGraph_1 PatternGraph_2 "${BEAT_START[@]}"
picture "B"

echo "All patterns"
in_front 0
carry 3 "Patterns $(edge Patterns 3)" SndDisp_2
in_front 2
shows "C" "${PATTERNS[@]}" -- "${DURATION[@]}" "${BEAT_START[@]}"

echo "All timing"
in_front 0
carry 3 "AllTiming $(edge AllTiming 30)" SndDisp_2
in_front 2
shows "C" "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"
picture "C"

echo "Everything at once"
in_front 0
carry 3 Tab_2 SndDisp_3
in_front 3
shows "D" "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"

echo "Carried sequences are heard"
for row in 0 2 3; do mode_to "$row" 1; done
park
# A stop sends the patterns that were drawn while nothing played.
begin=$(now)
click Play_0
expect "A plays" sounds_since "$begin"
stop_all
listen_to_rows 0 2 3
# fall ROW: prints how much quieter the right side is in the second step than in the first one.
fall() {
  local levels
  read -ra levels <<<"${HEARD[$1]}"
  echo $((levels[1] - levels[3]))
}
between "A's second step is quieter than its first one" "$(fall 0)" 600 9000
for row in 2 3; do between "LoopTrack $row: the same, within" $(($(fall "$row") - $(fall 0))) -400 400; done

echo "The eraser"
in_front 3
carry 1 Eraser PatternGraph_0
shows "D" "${DURATION[@]}" "${BEAT_START[@]}" -- PatternGraph_0
in_front 0
shows "A" "${PATTERNS[@]}" "${DURATION[@]}" "${BEAT_START[@]}"
picture "the end"
finish

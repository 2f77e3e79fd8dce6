#!/usr/bin/env bash
# LoopTracks are shaped while they sound: the steps of a drawn volume pattern are heard, Drum restarts at each step, fades
# start and stop, flags change their wire. Levels and times are measured in the captured sound.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

park
drop SndDisp_0 "$SAMPLES/Noise.wav"
drop SndDisp_1 "$SAMPLES/Rear_Left.wav"
drop SndDisp_2 "$SAMPLES/Noise.wav"
click Thumb_0
click Tab_2
picture "patterns of A"

average() {
  local sum=0 value
  for value in "$@"; do sum=$((sum + value)); done
  echo $((sum / $#))
}

echo "Track: a drawn volume pattern"
# Lowers the tenths of a second by nine: 1.41 s becomes 0.51 s (50 twips per unit).
drag TimeDigit_1 0 30
step_ms=510
read -r _ _ graph_width graph_height <<<"${PLACE[PatternGraph_0]}"
# Four steps; the first twentieth of the graph is the random column. One click in each column, each at its height.
heights=(0 38 20 58)
levels=()
empty_graph=$(face PatternGraph_0)
for step in 0 1 2 3; do
  x=$((graph_width / 20 + (graph_width - graph_width / 20) * (2 * step + 1) / 8))
  click PatternGraph_0 1 "$x" "${heights[step]}"
  value=$(((graph_height - heights[step]) * 500 / graph_height))
  # 6 hundredths of a decibel for each unit below 499.
  levels+=($((value >= 500 ? 0 : (value - 499) * 6)))
done
park
expect "the drawn bars are visible" looks_unlike PatternGraph_0 "$empty_graph"
picture "drawn pattern"

begin=$(now)
key a
expect "Loop plays the sample" sounds_since "$begin"
begin=$(now)
wait_ms 1000
full=$(loud "$begin" $((begin + 1000)))
echo "        the plain level is $full, the steps should be lower by ${levels[*]}"
drag LoopIt_0 0 -7
park
expect "the step marker moves" looks_unlike StepReadOut "$(face StepReadOut)"
begin=$(now)
wait_ms 5000
"$LISTEN" levels "$SOUND" "$begin" $((begin + 5000)) 30 >"$FOLDER/steps.txt"

# Assigns each 30 ms to a step by level and prints "step length" for each run. A change counts when two in a row show it;
# levels in between belong to the previous step.
runs=$(awk -v full="$full" -v levels="${levels[*]}" '
  BEGIN { split(levels, level, " ") }
  {
    found = 0
    for (step = 1; step <= 4; step++) {
      off = $1 - full - level[step]
      if (off < 220 && off > -220) found = step
    }
    if (found && found == last && found != now) {
      if (now) print now - 1, (NR - 1 - begin) * 30
      now = found
      begin = NR - 1
    }
    last = found
  }
  END { print now - 1, (NR - begin) * 30 }' "$FOLDER/steps.txt")
order=$(cut -d ' ' -f 1 <<<"$runs" | tr -d '\n')
echo "        steps heard: $order"
between "number of steps heard" ${#order} 10 11
expect "they come in the order of the pattern" eval '[[ 012301230123012 == *'"$order"'* ]]'
# The first and the last step are cut off. A single step may be late on a busy machine, the average may not.
mapfile -t lengths < <(sed '1d;$d' <<<"$runs" | cut -d ' ' -f 2)
for length in "${lengths[@]}"; do
  between "ms of a step" "$length" $((step_ms - 100)) $((step_ms + 100))
done
between "average ms of a step" "$(average "${lengths[@]}")" $((step_ms - 15)) $((step_ms + 20))
begin=$(now)
key a
expect "the key stops the LoopTrack" silent_since "$begin"

echo "Drum: the sample restarts at each step"
click Thumb_1
park
picture "patterns of B"
drag TimeDigit_1 0 20 # Rear_Left is 1.31 s long; lowered by 6 tenths it is 0.71 s: its first word and a silence
drag LoopIt_1 0 -14
park
picture "Drum"
begin=$(now)
key b
expect "Drum sounds" sounds_since "$begin"
wait_ms 4600
mapfile -t starts < <("$LISTEN" sounding "$SOUND" "$begin" $((begin + 4500)) | cut -d ' ' -f 1)
between "starts of the sample in 4.5 s" ${#starts[@]} 6 7
distances=()
for ((i = 1; i < ${#starts[@]}; i++)); do
  distances+=($((starts[i] - starts[i - 1])))
  between "ms from start to start" "${distances[-1]}" 610 820
done
between "average ms from start to start" "$(average "${distances[@]}")" 695 735
begin=$(now)
key b
expect "the key stops Drum" silent_since "$begin"

echo "Fades"
begin=$(now)
key c
expect "the third LoopTrack plays" sounds_since "$begin"
park
knob=$(face VolKnob_2)
playing=$(face Play_2)
begin=$(now)
key c ctrl
expect "a fade down ends in silence" silent_since $((begin + 1500))
heard=$("$LISTEN" levels "$SOUND" "$begin" "$(now)" 10 | awk '$1 > -9000 { last = NR } END { print last * 10 }')
between "ms from the key to the end of the fade" "$heard" 2400 2850
falling=($(loud $((begin + 100)) $((begin + 400))) $(loud $((begin + 900)) $((begin + 1200))) $(loud $((begin + 1700)) $((begin + 2000))))
between "loss of level in the first part of the fade" $((falling[0] - falling[1])) 600 1300
between "loss of level in the second part" $((falling[1] - falling[2])) 600 1300
expect "the faded LoopTrack has stopped" looks_unlike Play_2 "$playing"
expect "its knob has turned" looks_unlike VolKnob_2 "$knob"
picture "faded down"
begin=$(now)
key c shift
expect "a fade up starts the LoopTrack" sounds_since "$begin"
expect "it looks playing" looks_like Play_2 "$playing"
expect "its knob returns to full" looks_like VolKnob_2 "$knob"
wait_ms 400
rising=($(loud $((begin + 500)) $((begin + 800))) $(loud $((begin + 1300)) $((begin + 1600))))
between "gain of level by the fade" $((rising[1] - rising[0])) 600 1300
end=$(now)
between "level at the end compared with the plain level" $(($(loud $((end - 300)) "$end") - full)) -150 150

echo "Wires"
# The ball goes to the corner of channel W; a LoopTrack wired to the opposite channel is silent there.
click Tab_0
drag_ball Pad -135 -135
park
picture "ball at W"
wire=$(face ChannelFlag_2)
read -r _ _ flag_width _ <<<"${PLACE[ChannelFlag_2]}"
begin=$(now)
expect "the LoopTrack on the wire BW is silent" silent_since "$begin"
expect "but still playing" looks_like Play_2 "$playing"
begin=$(now)
click ChannelFlag_2 1 $((flag_width / 6)) 16
expect "a click on the left part switches it to the wire W: it is heard" sounds_since "$begin"
park
expect "the flag shows it" looks_unlike ChannelFlag_2 "$wire"
wait_ms 300
end=$(now)
between "level on the wire W compared with the plain level" $(($(loud $((end - 200)) "$end") - full)) -150 150
begin=$(now)
click ChannelFlag_2 1 $((flag_width / 6)) 16
expect "another click switches it back: it is silent" silent_since "$begin"
park
expect "the flag looks as before" looks_like ChannelFlag_2 "$wire"
begin=$(now)
click ChannelFlag_2 3
expect "a right click disconnects the wire: it is heard" sounds_since "$begin"
park
picture "disconnected"
begin=$(now)
click ChannelFlag_2 1 $((flag_width / 2)) 16
click ChannelFlag_2 3
expect "a click in the middle does nothing, and a right click connects it again" silent_since "$begin"
park
expect "the flag looks as at first" looks_like ChannelFlag_2 "$wire"
begin=$(now)
click PlayStop 1 23 36
expect "stop all shows it as stopped" looks_unlike Play_2 "$playing"
finish

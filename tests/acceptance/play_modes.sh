#!/usr/bin/env bash
# Three WAV files are dropped onto the rows A, B and C, then played, paused, resumed and stopped with the mouse and the keys
# in all four modes. Each start, pause and stop is checked in the captured sound and in the window.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

NOISE_MS=1408  # length of Noise.wav

# mode_to ROW MODES: drags the mode picture up (negative: down) by this many modes, 100 twips each.
mode_to() { drag "LoopIt_$1" 0 $((-7 * $2)); }

echo "Loading"
park
empty=$(face Play_1)
drop SndDisp_0 "$SAMPLES/Front_Center.wav"
drop SndDisp_1 "$SAMPLES/Noise.wav"
drop Letr_2 "$SAMPLES/Front_Left.wav"
expect "a loaded row's play button looks different from an empty one's" looks_unlike Play_1 "$empty"
stopped=$(face Play_1)
picture "loaded"

begin=$(now)
click PlayStop 1 23 8
expect "play all is heard" sounds_since "$begin"
park
expect "play all shows row A as playing" looks_unlike Play_0 "$stopped"
playing=$(face Play_1)
expect "play all does not change the empty row D" looks_like Play_3 "$empty"
picture "all playing"
begin=$(now)
click PlayStop 1 23 36
expect "stop all is silent" silent_since "$begin"
park
expect "stop all shows row B as stopped" looks_like Play_1 "$stopped"

# with_mouse MODE: plays row B with its button. The right button pauses while it is held.
with_mouse() {
  local begin from
  begin=$(now)
  click Play_1
  expect "$1: a click starts" sounds_since "$begin"
  from=$("$LISTEN" sounding "$SOUND" "$begin" "$(now)" | head -n 1 | cut -d ' ' -f 1)
  between "$1: ms from the click to the sound" $((from - begin)) 0 400

  begin=$(now)
  press Play_1 3
  expect "$1: the right button pauses" silent_since "$begin"
  picture "$1 paused"
  begin=$(now)
  release 3
  expect "$1: releasing it resumes" sounds_since "$begin"
  park
  expect "$1: a resumed row looks playing" looks_like Play_1 "$playing"
  picture "$1 playing"

  if [[ $1 == "One shot" ]]; then
    expect "$1: the sample ends by itself" silent_since "$begin"
    between "$1: ms that sounded around the pause" "$(sounding_ms "$from" "$(now)")" $((NOISE_MS - 60)) $((NOISE_MS + 60))
    expect "$1: a row that ended looks stopped" looks_like Play_1 "$stopped"
    begin=$(now)
    click Play_1
    expect "$1: a click starts it again" sounds_since "$begin"
  else
    begin=$(now)
    wait_ms $((NOISE_MS + 700))
    expect "$1: it goes on past the end of the sample" sounds_throughout $((begin + 50)) "$(now)"
  fi
  begin=$(now)
  click Play_1
  expect "$1: a click stops" silent_since "$begin"
  park
  expect "$1: a stopped row looks stopped" looks_like Play_1 "$stopped"
}

# with_keys MODE: plays row B with its letter. There is no key to pause, but the key resumes while the button is held.
with_keys() {
  local begin
  begin=$(now)
  key b
  expect "$1: the key starts" sounds_since "$begin"
  expect "$1: a row started by key looks playing" looks_like Play_1 "$playing"
  begin=$(now)
  press Play_1 3
  expect "$1: the right button pauses what a key started" silent_since "$begin"
  begin=$(now)
  key b
  expect "$1: the key resumes" sounds_since "$begin"
  release 3
  park
  expect "$1: a row resumed by key looks playing" looks_like Play_1 "$playing"
  begin=$(now)
  key b
  expect "$1: the key stops" silent_since "$begin"
  expect "$1: a row stopped by key looks stopped" looks_like Play_1 "$stopped"
}

# with_selection MODE: plays rows A and B with the selection row, whose button pauses what it plays.
with_selection() {
  local begin
  begin=$(now)
  click Play_4
  expect "$1: the selection row starts its rows" sounds_since "$begin"
  park
  expect "$1: a selected row looks playing" looks_like Play_0 "$playing"
  expect "$1: a row outside the selection looks stopped" looks_like Play_2 "$stopped"
  begin=$(now)
  press Play_4 3
  expect "$1: the right button pauses the selected rows" silent_since "$begin"
  expect "$1: a paused row does not look playing" looks_unlike Play_1 "$playing"
  expect "$1: nor stopped" looks_unlike Play_1 "$stopped"
  expect "$1: both paused rows look the same" looks_like Play_0 "$(face Play_1)"
  picture "$1 selection paused"
  begin=$(now)
  release 3
  expect "$1: releasing it resumes them" sounds_since "$begin"
  park
  expect "$1: both look playing again" looks_like Play_1 "$playing"
  begin=$(now)
  click Play_4
  expect "$1: a click stops them" silent_since "$begin"
  park
  expect "$1: both look stopped" looks_like Play_0 "$stopped"
}

# together MODE: plays all three rows with their letters.
together() {
  local begin name row
  for row in 0 1 2; do
    begin=$(now)
    key "$(printf '%b' "\\x$((61 + row))")"
    expect "$1: row $row starts by key" sounds_since "$begin"
  done
  for row in 0 1 2; do
    expect "$1: row $row looks playing" looks_like "Play_$row" "$playing"
  done
  begin=$(now)
  key a
  key b
  key c
  expect "$1: the keys of all three stop them" silent_since "$begin"
}

click Selected_0
click Selected_1
names=("One shot" "Loop" "Track" "Drum")
mode=1
for next in 1 2 3 0; do
  echo "${names[next]}"
  for row in 0 1 2; do
    shown=$(face "LoopIt_$row")
    if [[ $next -ne $mode ]]; then
      mode_to "$row" $((next - mode))
      park
      expect "${names[next]}: the picture of the mode of row $row changes" looks_unlike "LoopIt_$row" "$shown"
    fi
  done
  mode=$next
  with_mouse "${names[next]}"
  with_keys "${names[next]}"
  with_selection "${names[next]}"
  [[ $next -eq 0 ]] || together "${names[next]}"
done
finish

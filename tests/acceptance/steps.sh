#!/usr/bin/env bash
# A Drum LoopTrack clicks every quarter of a second, with the coarse clock and the fine one, while nothing else happens and
# while the window is moved, tabs change and other processes keep all cores busy. The distances in the captured sound are
# the steps'.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

BUDGET=4000  # microseconds

# even WORDS FROM: the distances since FROM are those of the steps.
even() {
  local count mean deviation shortest longest
  read -r count mean deviation shortest longest <<<"$("$LISTEN" steps "$SOUND" "$2" "$(now)")"
  between "$1: distances" "$count" 12 1000
  between "$1: mean, microseconds" "$mean" 249950 250050
  between "$1: standard deviation" "$deviation" 0 99
  between "$1: shortest" "$shortest" $((250000 - BUDGET)) 250000
  between "$1: longest" "$longest" 250000 $((250000 + BUDGET))
}

# Moves the window about and changes tabs for as long as it takes to record MS more.
bustle() {
  local end
  end=$(($(now) + $1))
  while [[ $(now) -lt $end ]]; do
    local place
    for place in "40 30" "90 60" "60 10" "10 40"; do
      # shellcheck disable=SC2086
      xdotool windowmove "$WINDOW" $place
      sleep 0.02
    done
    local tab
    for tab in 0 1 2 3; do click "Tab_$tab"; done
  done
}

stage_click "$FOLDER/click.wav"
drop SndDisp_0 "$FOLDER/click.wav"
shown=$(face LoopIt_0)
drag LoopIt_0 0 -14
park
expect "the mode of row A changes to Drum" looks_unlike LoopIt_0 "$shown"
begin=$(now)
click Play_0
expect "it is heard" sounds_since "$begin"

for resolution in 10 1; do
  echo "Clock of $resolution ms"
  if [[ $resolution -eq 1 ]]; then
    click Tab_3
    click OptionSubTab_3
    shown=$(face ResReadout)
    click ResSlider
    xdotool key Home
    expect "the clock is set to its finest" looks_unlike ResReadout "$shown"
  fi
  picture "clock of $resolution ms"
  wait_ms 1000
  begin=$(now)
  wait_ms 5000
  even "quiet" "$begin"

  begin=$(now)
  bustle 8000
  even "the window moves, tabs change" "$begin"

  stage_burn
  wait_ms 1000
  begin=$(now)
  bustle 8000
  even "the same with all cores busy" "$begin"
  stage_rest
done
finish

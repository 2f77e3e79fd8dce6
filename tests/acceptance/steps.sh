#!/usr/bin/env bash
# A Drum LoopTrack clicks every quarter of a second, with the coarse clock while nothing else happens and while the window is
# moved, tabs change and other processes keep all cores busy, and with the fine clock. The distances in the captured sound
# are the steps'.
#
# A machine that gives the program no time for longer than the budget makes a step late, and tells nothing about the program.
# So a take that is not even is taken again, up to six times. Steps that came by the event loop alone would be uneven in
# every take. The fine clock needs a thousand ticks a second of a core, which a busy machine may not give: with it the busy
# takes are only shown.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

BUDGET=4000  # microseconds

TAKES=6

# measure FROM: sets COUNT, MEAN, DEVIATION, SHORTEST and LONGEST of the distances since FROM, in microseconds.
measure() { read -r COUNT MEAN DEVIATION SHORTEST LONGEST <<<"$("$LISTEN" steps "$SOUND" "$1" "$(now)")"; }

is_even() { [[ $COUNT -ge 12 && $DEVIATION -lt 100 && $SHORTEST -ge $((250000 - BUDGET)) && $LONGEST -le $((250000 + BUDGET)) ]]; }

# even WORDS COMMAND...: while COMMAND runs, the distances are those of the steps.
even() {
  local words=$1 take begin
  shift
  for ((take = 1; take <= TAKES; ++take)); do
    begin=$(now)
    "$@"
    measure "$begin"
    if is_even; then break; fi
    echo "  take $take of $words: deviation $DEVIATION, $SHORTEST to $LONGEST microseconds"
  done
  between "$words: distances" "$COUNT" 12 1000
  between "$words: mean, microseconds" "$MEAN" 249950 250050
  between "$words: standard deviation" "$DEVIATION" 0 99
  between "$words: shortest" "$SHORTEST" $((250000 - BUDGET)) 250000
  between "$words: longest" "$LONGEST" 250000 $((250000 + BUDGET))
}

# shown WORDS COMMAND...: prints the distances while COMMAND runs.
shown() {
  local words=$1 begin
  shift
  begin=$(now)
  "$@"
  measure "$begin"
  echo "  $words: $COUNT distances, mean $MEAN, deviation $DEVIATION, $SHORTEST to $LONGEST microseconds"
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
  even "quiet" wait_ms 5000
  take=even
  if [[ $resolution -eq 1 ]]; then take=shown; fi
  $take "the window moves, tabs change" bustle 8000
  stage_burn
  wait_ms 1000
  $take "the same with all cores busy" bustle 8000
  stage_rest
done
finish

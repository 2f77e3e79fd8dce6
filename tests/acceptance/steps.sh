#!/usr/bin/env bash
# A Drum LoopTrack clicks every quarter of a second, with the coarse clock while nothing else happens and while the window is
# moved, tabs change and other processes keep all cores busy, and with the fine clock. The distances in the captured sound
# are the steps'.
#
# A machine that gives the program no time for longer than the budget makes a step late, and tells nothing about the program.
# So each case is taken several times. While nothing else happens fewer than half of the takes may be uneven. While the
# machine is busy two takes must be even: steps that come by the event loop alone would be uneven in every one. The fine clock
# needs a thousand ticks a second of a core, which a machine whose cores are all busy may not give: that case is only shown.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

BUDGET=4000  # microseconds

TAKES=3      # of a case; more, while too many are uneven, up to
MOST_TAKES=8

# measure FROM: sets COUNT, MEAN, DEVIATION, SHORTEST and LONGEST of the distances since FROM, in microseconds.
measure() { read -r COUNT MEAN DEVIATION SHORTEST LONGEST <<<"$("$LISTEN" steps "$SOUND" "$1" "$(now)")"; }

is_even() {
  [[ $COUNT -ge 12 && $MEAN -ge 249950 && $MEAN -le 250050 && $DEVIATION -lt 100 &&
    $SHORTEST -ge $((250000 - BUDGET)) && $LONGEST -le $((250000 + BUDGET)) ]]
}

# take WORDS COMMAND...: measures the distances while COMMAND runs. Counts into TAKEN and EVEN.
take() {
  local words=$1 begin
  shift
  begin=$(now)
  "$@"
  measure "$begin"
  TAKEN=$((TAKEN + 1))
  if is_even; then
    EVEN=$((EVEN + 1))
  else
    echo "  take $TAKEN of $words: $COUNT distances, mean $MEAN, deviation $DEVIATION, $SHORTEST to $LONGEST microseconds"
  fi
}

# even WORDS COMMAND...: while COMMAND runs, the distances are those of the steps.
even() {
  TAKEN=0 EVEN=0
  while [[ $TAKEN -lt $TAKES || ($((2 * EVEN)) -le $TAKEN && $TAKEN -lt $MOST_TAKES) ]]; do take "$@"; done
  between "$1: even takes of $TAKEN" "$EVEN" $((TAKEN / 2 + 1)) "$TAKEN"
}

# even_at_times WORDS COMMAND...: so they are in two takes.
even_at_times() {
  TAKEN=0 EVEN=0
  while [[ $EVEN -lt 2 && $TAKEN -lt $MOST_TAKES ]]; do take "$@"; done
  between "$1: even takes of $TAKEN" "$EVEN" 2 2
}

# shown WORDS COMMAND...: the distances of two takes.
shown() {
  TAKEN=0 EVEN=0
  take "$@"
  take "$@"
  echo "  $1: $EVEN of $TAKEN takes even"
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
before=$(face LoopIt_0)
drag LoopIt_0 0 -14
park
expect "the mode of row A changes to Drum" looks_unlike LoopIt_0 "$before"
begin=$(now)
click Play_0
expect "it is heard" sounds_since "$begin"

for resolution in 10 1; do
  echo "Clock of $resolution ms"
  if [[ $resolution -eq 1 ]]; then
    click Tab_3
    click OptionSubTab_3
    before=$(face ResReadout)
    click ResSlider
    xdotool key Home
    expect "the clock is set to its finest" looks_unlike ResReadout "$before"
  fi
  picture "clock of $resolution ms"
  wait_ms 1000
  even "quiet" wait_ms 4000
  even_at_times "the window moves, tabs change" bustle 5000
  stage_burn
  wait_ms 1000
  busy=even_at_times
  if [[ $resolution -eq 1 ]]; then busy=shown; fi
  $busy "the same with all cores busy" bustle 5000
  stage_rest
done
finish

#!/usr/bin/env bash
# A Drum LoopTrack clicks every quarter of a second, with the coarse clock while nothing else happens and while the window is
# moved, tabs change and other processes keep all cores busy, and with the fine clock. The distances in the captured sound
# are the steps'.
#
# A machine that gives the program no time for longer than the budget makes a step late, and tells nothing about the program.
# So each case is taken several times, and fewer than half of its takes may be uneven: a fault in every second take shows,
# and so do steps that come by the event loop alone. The fine clock needs a thousand ticks a second of a core, which a busy
# machine may not give: with it the busy cases are judged where all takes of the coarse clock were even, else only shown.
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

BUDGET=4000  # microseconds

TAKES=4      # of a case; more, while too many are uneven, up to
MOST_TAKES=8

# measure FROM: sets COUNT, MEAN, DEVIATION, SHORTEST and LONGEST of the distances since FROM, in microseconds.
measure() { read -r COUNT MEAN DEVIATION SHORTEST LONGEST <<<"$("$LISTEN" steps "$SOUND" "$1" "$(now)")"; }

is_even() {
  [[ $COUNT -ge 12 && $MEAN -ge 249950 && $MEAN -le 250050 && $DEVIATION -lt 100 &&
    $SHORTEST -ge $((250000 - BUDGET)) && $LONGEST -le $((250000 + BUDGET)) ]]
}

# takes WORDS COMMAND...: measures the distances while COMMAND runs, again and again. Sets TAKEN and UNEVEN.
takes() {
  local words=$1 begin
  shift
  TAKEN=0 UNEVEN=0
  while [[ $TAKEN -lt $TAKES || ($((2 * UNEVEN)) -ge $TAKEN && $TAKEN -lt $MOST_TAKES) ]]; do
    begin=$(now)
    "$@"
    measure "$begin"
    TAKEN=$((TAKEN + 1))
    if is_even; then continue; fi
    UNEVEN=$((UNEVEN + 1))
    echo "  take $TAKEN of $words: $COUNT distances, mean $MEAN, deviation $DEVIATION, $SHORTEST to $LONGEST microseconds"
  done
  echo "  $words: $TAKEN takes, $UNEVEN uneven"
}

# even WORDS COMMAND...: while COMMAND runs, the distances are those of the steps.
declare -A ALL_EVEN
even() {
  takes "$@"
  between "$1: uneven takes" "$UNEVEN" 0 $(((TAKEN - 1) / 2))
  if [[ $UNEVEN -eq 0 ]]; then ALL_EVEN[$1]=1; fi
}

# even_if_coarse_is WORDS COMMAND...: the same where the case of these words had no uneven take before.
even_if_coarse_is() { if [[ -n ${ALL_EVEN[$1]:-} ]]; then even "$@"; else takes "$@"; fi; }

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
  even "quiet" wait_ms 4000
  take=even
  if [[ $resolution -eq 1 ]]; then take=even_if_coarse_is; fi
  $take "the window moves, tabs change" bustle 5000
  stage_burn
  wait_ms 1000
  $take "the same with all cores busy" bustle 5000
  stage_rest
done
finish

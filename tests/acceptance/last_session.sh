#!/usr/bin/env bash
# The program is killed in the middle of an evening. The next start finds the last state in QuickLoad, and it looks and sounds
# as it did; the title knows whether it has changed since.
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

CONTROLS=(LoopIt_0 LoopIt_1 DropDown_0 DropDown_1 VolKnob_0 VolKnob_1 PanKnob_0 PanKnob_1 SndDisp_0 SndDisp_1)
KEPT="$HOME_FOLDER/Last session.mvn"
kept_since() { [[ $(stat -c %Y "$KEPT" 2>/dev/null || echo 0) -ge $1 ]]; }
is_past() { [[ $(date +%s) -ge $1 ]]; }
# holds TEXT: the last state names it.
holds() { grep -aq "$1" "$KEPT"; }

echo "An evening"
expect "the browser is open beside the main window" find_browser
destination 0 2
empty=$(face DropDown_0)
begin=$(now)
bin_click 0 1
expect "a click loads and plays" sounds_since "$begin"
bin_click 1 2
stop_all
drag VolKnob_1 -12 0
drag PanKnob_0 10 0
mode_to 0 1
remember "${CONTROLS[@]}"
hear_before 0 1
# The last change comes in a second of its own, so that the time of the file tells whether it has it.
changed=$(($(date +%s) + 1))
until_true 3 is_past "$changed"
drag VolKnob_2 -12 0
until_true 45 kept_since "$changed" || true
expect "the last state is kept while the program runs" kept_since "$changed"
expect "it is a set" holds "LoopsV1"
expect "nothing is left of the write" test -z "$(find "$HOME_FOLDER" -name '.marvolin-*')"

echo "It is killed"
kill -KILL "$PROGRAM"
expect "it is gone" stage_gone
wait "$PROGRAM" 2>/dev/null || true
start
expect "the browser is open beside the main window" find_browser
park
expect "the program starts empty" looks_like DropDown_0 "$empty"
quick_load 1 "Last session"
is_filled() { ! looks_like DropDown_0 "$empty"; }
expect "it is opened" is_filled
expect "it is not the set in hand" title_is marvolin
stop_all
compare "the last state" "${CONTROLS[@]}"
hear_the_same "the last state" 0 1

echo "The mark"
save_as "evening.mvn"
expect "a saved set has no mark" title_is "marvolin-evening.mvn"
drag VolKnob_0 -12 0
expect "a changed one has" title_is "marvolin-evening.mvn*"
picture "changed"
double_click VolKnob_0
double_click VolKnob_0
expect "the saved value takes it away" title_is "marvolin-evening.mvn"
drag VolKnob_0 -12 0
expect "changed again, it has one again" title_is "marvolin-evening.mvn*"
quick_load 1 "evening"
expect "an opened one has none" title_is "marvolin-evening.mvn"
stop_all
expect "what is only played has none" title_is "marvolin-evening.mvn"

echo "The end of the program"
changed=$(($(date +%s) + 1))
until_true 3 is_past "$changed"
drag VolKnob_1 -12 0
expect "a change comes to the last state" until_true 45 kept_since "$changed"
kept=$(md5sum <"$KEPT")
knob=$(face VolKnob_0)
drag VolKnob_0 -12 0
moved() { ! looks_like VolKnob_0 "$knob"; }
expect "another change comes" moved
expect "it is not kept yet" test "$kept" == "$(md5sum <"$KEPT")"
finish
expect "the end keeps nothing" test "$kept" == "$(md5sum <"$KEPT")"
[[ $FAILURES -eq 0 ]]

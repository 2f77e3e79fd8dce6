#!/usr/bin/env bash
# The disk takes no more while a recording runs: one box reports it, what has been recorded can be read, and the play goes on.
# Here it is a limit for the length of a file, as a full disk can be made by root alone.
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

LIMIT=500 # three seconds: the second recording must not come near it
limited=$FOLDER/marvolin/limited
cat >"$limited" <<EOF
#!/usr/bin/env bash
trap '' XFSZ
ulimit -f $LIMIT
exec "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")"
EOF
chmod +x "$limited"
stage_start "$limited"
stage_clear
park
expect "the browser is open beside the main window" find_browser

echo "A recording"
drop SndDisp_0 "$SAMPLES/Noise.wav"
begin=$(now)
key a
expect "A plays" sounds_since "$begin"
park
dark=$(face Record)
from=$(now)
windows=" $(stage_windows | paste -sd ' ') "
click Record
expect "a box reports its end" list_beside "$windows"
BOX=$LIST
import -window "$BOX" "$FOLDER/box.png"
wait_ms 500
to=$(now)
expect "A has no gap meanwhile" sounds_throughout "$from" "$to"
xdotool windowactivate --sync "$BOX" key Return
no_box() { ! list_beside "$windows"; }
expect "the box closes" no_box
wait_ms 1000
expect "no other one comes" no_box
park
expect "the button is dark again" looks_like Record "$dark"

echo "What there is"
mapfile -t files < <(find "$FOLDER/marvolin/Recordings" -name '*.wav')
between "recordings" ${#files[@]} 1 1
compare_with_card "${files[0]}"
between "KB of sound that can be read" $((FRAMES * 4 / 1024)) $((LIMIT - 100)) $LIMIT
expect "every frame is what the card got" eval '[[ $PLACE -ge 0 ]]'

echo "Another one"
rm "${files[0]}"
click Record
wait_ms 1000
click Record
park
expect "the button is dark again" looks_like Record "$dark"
mapfile -t files < <(find "$FOLDER/marvolin/Recordings" -name '*.wav')
between "recordings" ${#files[@]} 1 1
compare_with_card "${files[0]}"
between "ms recorded" $((FRAMES * 10 / 441)) 500 3000
expect "every frame is what the card got" eval '[[ $PLACE -ge 0 ]]'
to=$(now)
expect "A has played all the time" sounds_throughout "$from" "$to"
finish

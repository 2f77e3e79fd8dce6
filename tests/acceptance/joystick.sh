#!/usr/bin/env bash
# A joystick is plugged in while a LoopTrack plays, moves the ball of the mix pad, is pulled out and plugged in again. The fifth
# argument is the library that gives the program such a stick.
STICK_LIBRARY=$5
NOT_STARTED=1
source "$(dirname "${BASH_SOURCE[0]}")/set_hands.sh"

orders=$FOLDER/stick
mkfifo "$orders"
# The pipe has no reader once the program has gone.
takes() { timeout 5 bash -c "echo $* >\"$orders\""; }
stick() { takes "$@" || expect "somebody takes the order $*" false; }
# moved_by AXIS VALUE: the stick goes to this place of the axis, and the ball of the mix pad is elsewhere then.
moved_by() {
  local before
  park
  before=$(face Pad)
  stick axis "$1" "$2"
  expect "the stick moves the ball: axis $1 to $2" looks_unlike Pad "$before"
}

with_stick=$FOLDER/marvolin/with_stick
cat >"$with_stick" <<EOF
#!/usr/bin/env bash
exec env LD_PRELOAD="$STICK_LIBRARY" STAGE_STICK="$orders" "$FOLDER/marvolin/$(basename "$PROGRAM_FILE")"
EOF
chmod +x "$with_stick"
stage_start "$with_stick"
stage_clear
drop SndDisp_0 "$SAMPLES/Noise.wav"
begin=$(now)
key a
expect "A plays" sounds_since "$begin"
from=$(now)

echo "No stick"
click Tab_3
park
none=$(face JoystickPage)
picture "no stick"

echo "Plugged in"
stick plug
expect "its lists open" looks_unlike JoystickPage "$none"
picture "stick"
with=$(face JoystickPage)
click Tab_0
moved_by 0 20000
moved_by 1 -20000
picture "ball"

echo "Pulled out"
click Tab_3
park
before=$(face StatusBar1)
stick pull
expect "its lists close" looks_unlike JoystickPage "$with"
expect "the status line says so" looks_unlike StatusBar1 "$before"
picture "pulled out"

echo "Plugged in again"
stick plug
expect "its lists are as before" looks_like JoystickPage "$with"
click Tab_0
moved_by 0 -20000
moved_by 1 20000
to=$(now)
expect "A has no gap meanwhile" sounds_throughout "$from" "$to"
finish

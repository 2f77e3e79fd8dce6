#!/usr/bin/env bash
# Tries the package on a clean Debian 12 in a folder of its own: apt installs it, an ordinary user plays, saves, records and comes
# back, a second one has a folder of their own, first starts are killed, an upgrade and a purge leave what the players have. Nothing
# may be written outside the players' folders. Needs root and the network.
#
#   tools/package/try_installed.sh [DEB] [BUILD] [BASE]
#
# DEB: default the one in out/. BUILD: a build with the tests, for the tools of the stage and print_places; default build/test. BASE:
# a tar of such a system with the packages below, to be quicker; made when it does not exist. Pictures and logs stay in
# out/installed/.
set -euo pipefail
HERE=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
cd "$HERE/../.."
source tools/packages.sh
install_packages "${packages_try[@]}"
DEB=$(readlink -f "${1:-$(echo out/marvolin_*.deb)}")
BUILD=$(readlink -f "${2:-build/test}")
BASE=${3:-}

if [[ $(id -u) -ne 0 ]]; then
  echo "A system in a folder needs root." >&2
  exit 1
fi
work=$(mktemp -d)
root=$work/root
mounted=()
clean() {
  local place
  for place in "${mounted[@]}"; do umount -l "$place" || true; done
  rm -rf --one-file-system "$work"
}
trap clean EXIT
[[ -n $BASE ]] || BASE=$work/base.tar
mkdir "$root"
if [[ ! -e $BASE ]]; then
  echo "Making a clean Debian 12 ..."
  mmdebstrap --quiet --variant=minbase --include="$(IFS=,; echo "${packages_stage[*]}")" bookworm "$BASE"
fi
tar -xf "$BASE" -C "$root" --numeric-owner --exclude='./dev/*'
mkdir -p "$root/dev/shm" "$root/proc"
mount --bind /dev "$root/dev" && mounted+=("$root/dev")
mount -t proc proc "$root/proc" && mounted+=("$root/proc")
cp /etc/resolv.conf "$root/etc/resolv.conf"
# Nothing of the build is seen in there but what the stage needs.
mkdir "$root/opt/try"
cp "$BUILD"/tools/stage/{record_sound,listen} tools/stage/stage.sh "$HERE/play_installed.sh" "$root/opt/try/"
QT_QPA_PLATFORM=offscreen "$BUILD/tests/acceptance/print_places" >"$root/opt/try/places" 2>/dev/null

failures=0
result() { # STATUS WHAT
  if [[ $1 -eq 0 ]]; then
    echo "  ok    $2"
  else
    echo "  FAIL  $2"
    failures=$((failures + 1))
  fi
}
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
as() { # USER COMMAND...
  local user=$1
  shift
  chroot --userspec="$user:$user" "$root" env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME="/home/$user" USER="$user" "$@"
}
play() { # USER PART
  echo "== $2, by $1"
  as "$1" bash /opt/try/play_installed.sh "$2" /opt/try || failures=$((failures + $?))
}
install_deb() { # DEB
  cp "$1" "$root/tmp/marvolin.deb"
  inside apt-get install -y -qq --no-install-recommends /tmp/marvolin.deb >"$work/apt.log" 2>&1 ||
    { cat "$work/apt.log" >&2; return 1; }
  rm "$root/tmp/marvolin.deb"
}
# sums USER: what a player has, in one word.
sums() { (cd "$root/home/$1" && find . -type f -print0 | sort -z | xargs -0 sha256sum | sha256sum); }
# The files of the system itself, to see whether a play writes there.
system_files() {
  (cd "$root" && find . -xdev \( -path ./home -o -path ./tmp -o -path ./run -o -path ./proc -o -path ./dev \) -prune -o \
    -type f -printf '%p %s %T@ %m %u\n' | sort)
}

echo "== Installing $(basename "$DEB")"
inside apt-get update -qq
install_deb "$DEB"
result $? "apt installs it"
for user in player second third; do inside useradd --create-home --shell /bin/bash "$user"; done
result "$(inside test -x /usr/bin/marvolin; echo $?)" "the command is on the path"
system_files >"$work/before"

play player first
play player again
play second first
play third killed
system_files >"$work/after"
status=0
diff "$work/before" "$work/after" || status=1
result $status "nothing is written outside the players' own folders"
echo "  a player's home has, beside the program's folder:"
(cd "$root/home/player" && find . -type f -newer "$root/usr/bin/marvolin" -not -path './.local/share/marvolin/*' | sed 's/^/    /')

echo "== An upgrade"
newer=$work/newer
dpkg-deb --raw-extract "$DEB" "$newer"
folder=$(dirname "$(readlink -f "$newer/usr/bin/marvolin")")
sed -i 's/^Version: .*/&+1/' "$newer/DEBIAN/control"
echo "-- of the next version" | tee -a "$folder/Scripts/turns.mvs" >>"$folder/Scripts/map_walk.mvs"
touch "$folder/startup.mvp"
printf 'x' >>"$folder/startup.mvp"
"$BUILD/tools/package/list_files" "$folder"
(cd "$newer" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
dpkg-deb --root-owner-group --build "$newer" "$work/newer.deb" >/dev/null
before=$(sums player)
install_deb "$work/newer.deb"
result "$([[ $(sums player) == "$before" ]]; echo $?)" "the upgrade itself touches nothing of the player's"
play player again
own=$root/home/player/.local/share/marvolin
result "$(grep -q -- "-- mine" "$own/Scripts/turns.mvs"; echo $?)" "a script that the player has changed is as they left it"
result "$(grep -q "of the next version" "$own/Scripts/map_walk.mvs"; echo $?)" "one that they have not is renewed"

echo "== A purge"
before=$(sums player)
inside apt-get purge -y -qq marvolin >"$work/apt.log" 2>&1
result "$([[ $(sums player) == "$before" ]]; echo $?)" "the player's folder is left alone"
result "$([[ -z $(find "$root/usr" -path '*marvolin*' -print -quit) ]]; echo $?)" "nothing else is left"

mkdir -p out/installed
cp "$root"/home/player/*.png out/installed/ || true
[[ $failures -eq 0 ]] && echo "All as it should be." || echo "$failures failed"
exit $((failures > 0))

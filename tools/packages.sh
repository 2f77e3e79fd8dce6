# Lists of Debian packages, and how to install them. To be sourced.

# Needed to build the program.
packages_program=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libsdl2-dev libopenal-dev
  libsndfile1-dev liblnk-dev libx11-dev liblua5.4-dev liblua5.4-0 libqscintilla2-qt6-dev
  libqscintilla2-qt6-15 fonts-inter)
# Needed in addition to run without a display.
packages_stage=(xvfb openbox xdotool imagemagick x11-utils)
# Needed in addition by the tests.
packages_tests=("${packages_stage[@]}" libgtest-dev libgmock-dev ccache mold alsa-utils locales at-spi2-core dbus
  python3-pyatspi pulseaudio pulseaudio-utils)

# Needed in addition for the sanitizers of addresses and undefined behaviour and for fuzzing, with install_clang_runtime.
packages_clang=(clang libgtest-dev libgmock-dev)
# Needed in addition by ./package, which also checks what it has made.
packages_package=(dpkg-dev lintian desktop-file-utils appstream gzip)
# Needed in addition by tools/package/try_installed.sh.
packages_try=(mmdebstrap)

package_missing() {
  ! dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

packages_updated=
# install_packages NAME...: installs the missing ones, as root or through sudo. On a system without apt it prints the names
# and exits.
install_packages() {
  if ! command -v apt-get >/dev/null; then
    echo "This system has no apt-get. Marvolin needs what these Debian packages contain:" >&2
    echo "  $*" >&2
    exit 1
  fi
  local missing=() name
  for name in "$@"; do
    if package_missing "$name"; then missing+=("$name"); fi
  done
  [[ ${#missing[@]} -eq 0 ]] && return 0
  local as_root=()
  if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and installing them needs root or sudo:" >&2
      echo "  ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  if [[ -z $packages_updated ]]; then "${as_root[@]}" apt-get update -qq; fi
  packages_updated=1
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Clang's runtime of the sanitizers is a package of its own on some systems: clang only recommends it, and its name contains the
# release. To be called when clang is installed.
install_clang_runtime() {
  local runtime
  runtime=libclang-rt-$(clang -dumpversion | cut -d . -f 1)-dev
  if package_missing "$runtime" && apt-cache show "$runtime" >/dev/null 2>&1; then install_packages "$runtime"; fi
}

# shellcheck shell=bash
# What ./run, ./test and .ci/run have in common; sourced by them with the repository's root as current directory.

# A UTF-8 locale: the texts are Hungarian.
case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
  *.UTF-8 | *.utf8) ;;
  *) export LC_ALL=C.UTF-8 ;;
esac

# needed_packages PURPOSE...: the packages of packaging/debian-packages that are needed for these purposes.
needed_packages() {
  awk -v purposes=" $* " '
    !/^#/ { for (i = 2; i <= NF; ++i) if (index(purposes, " " $i " ")) { print $1; next } }
  ' packaging/debian-packages
}

# missing_packages PURPOSE...: those of them that are not installed.
missing_packages() {
  local package
  for package in $(needed_packages "$@"); do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || echo "$package"
  done
}

# install_packages PURPOSE...: installs what is missing when this user may, else says how and ends.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian, so nothing is checked or installed. Needed are what Debian calls:" >&2
    needed_packages "$@" | paste -sd ' ' >&2
    return
  fi
  local missing as_root=()
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0

  local install=(apt-get install -y --no-install-recommends "${missing[@]}")
  if [ "$(id -u)" -ne 0 ]; then
    if ! sudo -n true 2>/dev/null; then
      {
        echo "Some Debian packages are missing. Install them with"
        echo
        echo "    sudo apt-get update && sudo ${install[*]}"
        echo
        echo "and start this again."
      } >&2
      exit 1
    fi
    as_root=(sudo -n)
  fi
  echo "Installing ${missing[*]} ..." >&2
  "${as_root[@]}" apt-get update -qq </dev/null >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" -qq </dev/null >&2
}

# build PRESET: configures and builds build/PRESET.
build() {
  local launcher=()
  if command -v ccache >/dev/null; then launcher=(-D CMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
  cmake --preset "$1" "${launcher[@]}" --log-level=NOTICE && cmake --build --preset "$1"
}

# build_quietly PRESET: the same with all output in build/PRESET.log, which is shown when the build fails.
build_quietly() {
  mkdir -p build
  if ! build "$1" >"build/$1.log" 2>&1; then
    tail -n 60 "build/$1.log" >&2
    echo "The build failed. All of its output is in build/$1.log." >&2
    exit 1
  fi
}

# with_display COMMAND...: runs it on the display there is, or on a virtual one.
with_display() {
  if [ -n "${DISPLAY:-}" ]; then
    "$@"
  else
    xvfb-run -a -s "-screen 0 1280x1024x24" "$@"
  fi
}

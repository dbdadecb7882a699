# Shared by ./run and ./test: installing what is missing and building without noise. Sourced, not run.
# Everything is said on standard error, so that a report on standard output stays clean.
# shellcheck shell=bash
set -o pipefail  # the status of a build is not that of what shows its progress

say() { printf '%s\n' "$*" >&2; }
fail() {
  say "$*"
  exit 1
}

# packages_missing FILE...: the names of those lists that are not installed, one a line.
packages_missing() {
  local wanted installed
  wanted=$(sed 's/#.*//' "$@" | tr -s '[:space:]' '\n' | grep . | sort -u)
  # dpkg-query fails when it does not know a name; what it knows it prints all the same.
  # shellcheck disable=SC2086 # the names are meant to be split
  installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
    sed -n 's/^installed //p' | sort -u || true)
  comm -23 <(printf '%s\n' "$wanted") <(printf '%s\n' "$installed")
}

# as_root COMMAND...: directly, or through sudo.
as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# show_progress: hands its input on and shows on a terminal the newest line that tells how far a work is, in one line
# that is wiped at the end. Elsewhere nothing is shown.
show_progress() {
  local line shown='' width
  if [ ! -t 2 ]; then
    cat
    return
  fi
  width=$(stty size <&2 2>/dev/null | cut -d ' ' -f 2)
  [ "${width:-0}" -gt 20 ] || width=80
  while IFS= read -r line; do
    printf '%s\n' "$line"
    [[ $line =~ ^(\[[0-9]+/[0-9]+\]|-- |Get:|Unpacking|Setting up) ]] || continue
    # What is built is told by the file; the folders before it are of no interest.
    [[ ! $line =~ ^(\[[0-9]+/[0-9]+\]\ [^/]*)\ .*/([^/]+)$ ]] || line="${BASH_REMATCH[1]} ${BASH_REMATCH[2]}"
    printf '\r\033[K%s' "${line:0:width - 1}" >&2
    shown=yes
  done
  [ -z "$shown" ] || printf '\r\033[K' >&2
}

# apt ARGUMENT...: apt-get without questions. While another one is at work it waits and says so once. What it says goes
# into build/packages.log; why it failed also stays in build/packages.err.
apt() {
  local busy='Could not get lock|Unable to lock|Unable to acquire|is another process using it|locked by another process'
  local said='' status
  mkdir -p build
  for (( ; ; )); do
    status=0
    as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -q -y -o Dpkg::Use-Pty=0 "$@" 2>build/packages.err |
      show_progress >>build/packages.log || status=$?
    cat build/packages.err >>build/packages.log
    [ "$status" != 0 ] && grep -qE "$busy" build/packages.err || return "$status"
    [ -n "$said" ] || say "Another program is installing packages; waiting until it is done. $(holder)"
    said=yes
    sleep "${TZ_APT_PAUSE:-3}"
  done
}

# Who holds the packages, in apt's own words.
holder() { grep -oE -m 1 'held by process [0-9]+ \([^)]*\)' build/packages.err || true; }

# Why apt-get failed: its errors, or all that it said.
apt_errors() { grep '^E:' build/packages.err || cat build/packages.err; }

# The tests start a server of their own; Debian's package would set up one more that keeps running. A setting beside
# the package's own ones prevents that while it is installed, and goes away again.
install_without_cluster() {
  local setting=/etc/postgresql-common/createcluster.d/tzassistant.conf
  as_root mkdir -p "${setting%/*}"
  echo 'create_main_cluster = false' | as_root tee "$setting" >/dev/null
  local status=0
  apt install --no-install-recommends "$@" || status=$?
  as_root rm -f "$setting"
  return "$status"
}

# install_packages FILE...: installs what is missing of the lists; says nothing when nothing is.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This is no Debian system: the packages of $* are taken for granted."
    return
  fi
  local missing
  mapfile -t missing < <(packages_missing "$@")
  [ "${#missing[@]}" -gt 0 ] || return 0
  say "Installing ${#missing[@]} Debian packages and what they need: ${missing[*]}"
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    fail "Installing needs root or sudo, and neither is there. Ask for: apt-get install ${missing[*]}"
  fi
  as_root true || fail "Installing needs root or sudo's password. Ask for: apt-get install ${missing[*]}"
  apt update ||
    say "The package lists could not be refreshed; going on with those that are there. $(apt_errors)"
  install_without_cluster "${missing[@]}" ||
    fail "The packages could not be installed; all that was said is in build/packages.log. $(apt_errors)"
}

# configure PRESET [NAME=VALUE...]: once, and again when one of these settings is another than it was.
configure() {
  local preset=$1 folder=build/$1 log=build/$1.log setting
  local settings=()
  shift
  for setting; do
    grep -qE "^${setting%%=*}:[A-Z]+=${setting#*=}\$" "$folder/CMakeCache.txt" 2>/dev/null || settings+=("-D$setting")
  done
  [ ! -f "$folder/build.ninja" ] || [ "${#settings[@]}" -gt 0 ] || return 0
  cmake --preset "$preset" "${settings[@]}" 2>&1 | show_progress >"$log" ||
    { cat "$log" >&2; fail "Configuring $folder failed."; }
}

# build PRESET [NAME=VALUE...] TARGET...: builds what is out of date, configured with these settings. Says how long a
# build took, nothing when everything was up to date, and the compiler's words when it failed.
build() {
  local preset=$1 folder=build/$1 log=build/$1.log start=$SECONDS
  local settings=()
  shift
  while [[ $1 == *=* ]]; do
    settings+=("$1")
    shift
  done
  mkdir -p build
  # Two builds at once in one folder would break each other: the second one waits.
  exec 9>"build/.lock-$preset"
  flock 9
  [ -f "$folder/build.ninja" ] || say "Building $folder, which takes a few minutes the first time ..."
  configure "$preset" "${settings[@]}"
  if ! ninja -C "$folder" "$@" 2>&1 | show_progress >"$log"; then
    grep -v -e '^\[[0-9]*/' -e '^-- ' "$log" >&2 || true
    fail "Building $folder failed; all its words are in $log."
  fi
  grep -q 'no work to do' "$log" || say "Built $folder in $((SECONDS - start)) s."
  exec 9>&-
}

# pack FOLDER [WHERE]: packs what was built in FOLDER as a Debian package into WHERE, without it into build, and prints
# the package's name. An older package of that name is replaced when the new one is whole.
pack() {
  local folder where=${2:-build} scratch made
  folder=$(realpath "$1")
  mkdir -p "$where"
  scratch=$(mktemp -d "$where/packing.XXXXXX")
  (cd "$scratch" && umask 022 && cpack --config "$folder/CPackConfig.cmake" -B .) >"$where/package.log" 2>&1 || {
    cat "$where/package.log" >&2
    rm -rf "$scratch"
    fail "The package could not be made."
  }
  made=("$scratch"/*.deb)
  mv "${made[0]}" "$where/"
  rm -rf "$scratch"
  echo "$where/${made[0]##*/}"
}

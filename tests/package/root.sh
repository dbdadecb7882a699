# The package in a Debian root that has nothing else: installed, used by a person without rights, removed. Sourced.
# shellcheck shell=bash

# in_root COMMAND...: in the root, as root, with an empty environment.
in_root() { chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }

# apt_in_root WORD...: apt-get without questions; what it says is kept, and shown when it fails.
apt_in_root() {
  say "In the fresh root, as root: apt-get $*"
  in_root apt-get -qq -o Dpkg::Use-Pty=0 "$@" >>"$root/tmp/apt.log" 2>&1 || fail "$(tail -n 20 "$root/tmp/apt.log")"
}

# traces: what bears the program's name, but for the person's files and what Debian's own logs say.
traces() {
  in_root find / -xdev '(' -path /home -o -path /var/log -o -path /tmp ')' -prune -o -name '*tzassistant*' -print
}

# try_package ROOT USER: the package lies in the root's /tmp.
try_package() {
  local root=$1 user=$2 home=$1/home/$2 entry
  # shellcheck source=tests/package/steps.sh
  . tests/package/steps.sh
  as_person() { chroot "$root" su - "$user" -c "$(printf '%q ' "$@")"; }
  apt_in_root update
  apt_in_root install "/tmp/$(cd "$root/tmp" && echo tzassistant_*.deb)"
  say "In the fresh root, as $user: the command line"
  use_command_line
  entry=$(sed -n 's/^Exec=\(.*\) %f$/\1/p' "$root/usr/share/applications/tzassistant.desktop")
  say "In the fresh root, as $user: $entry"
  # shellcheck disable=SC2086 # the words of the entry
  use_windows "$root/tmp" $entry
  apt_in_root purge tzassistant
  [ -z "$(traces)" ] || fail "the package leaves behind: $(traces)"
  [ -s "$home/.local/share/tzassistant/sample.db" ] || fail "the person's ledger went with the package"
}

# What a person does who has only the package, by keys and commands alone. Sourced; it needs
#   as_person COMMAND...   runs a command as that person, in their home folder, found through the PATH
#   $home                  that folder as it is seen from here
#   $root                  what the package was installed into
#   fail TEXT
# shellcheck shell=bash disable=SC2154 # home and root are the caller's

account=(--account 122101 --dept 销售部 --person 李明 --from 1 --to 12)

# expect TEXT COMMAND...: what the command prints holds the text.
expect() {
  local text=$1 said
  shift
  said=$("$@" 2>&1) || fail "$* failed: $said"
  grep -qF -- "$text" <<<"$said" || fail "$* does not say \"$text\" but: $said"
}

# refuse TEXT COMMAND...: the command fails, and says this.
refuse() {
  local text=$1 said
  shift
  ! said=$("$@" 2>&1) || fail "$* does not fail"
  grep -qF -- "$text" <<<"$said" || fail "$* does not say \"$text\" but: $said"
}

# The terminal: from nothing to a ledger in pages, a workbook, and what is said where something is not as it should be.
use_command_line() {
  local report=(tzassistant report 10190 --ledger sample.db "${account[@]}")
  as_person tzassistant ledger create sample.db --sample >/dev/null || fail "no sample company"
  expect 个人往来 as_person tzassistant reports
  expect 预借上海机床展差旅费 as_person "${report[@]}"
  as_person "${report[@]}" --as pdf -o ledger.pdf || fail "no pages"
  expect 预借上海机床展差旅费 pdftotext "$home/ledger.pdf" -
  as_person "${report[@]}" --as xlsx -o ledger.xlsx || fail "no workbook"
  [ -s "$home/ledger.xlsx" ] || fail "an empty workbook"
  refuse 没有显示器 as_person tzassistant
  refuse tzassistant as_person tzassistant repotr
  refuse 数据库服务器 as_person tzassistant report 10190 --ledger "postgresql://127.0.0.1:1/none" "${account[@]}"
}

# windows: a line for each that shows, its id and its title.
windows() {
  local id
  for id in $(xdotool search --onlyvisible --name . 2>/dev/null); do
    printf '%s %s\n' "$id" "$(xdotool getwindowname "$id" 2>/dev/null)"
  done
}

# keys TITLE KEY...: waits for the window of that title, leaves its id in $id, and types there. "text:..." is typed as
# it stands.
keys() {
  local title=$1 key
  id=''
  shift
  for _ in {1..150}; do
    id=$(windows | sed -n "s/^\([0-9]*\) $title\$/\1/p" | tail -n 1)
    [ -z "$id" ] || break
    sleep 0.2
  done
  [ -n "$id" ] || fail "no window \"$title\"; there are: $(windows)"
  timeout 10 xdotool windowfocus --sync "$id" || fail "window \"$title\" takes no focus"
  for key; do
    sleep 0.2
    case $key in
      text:*) xdotool type "${key#text:}" ;;
      *) xdotool key "$key" ;;
    esac
  done
}

# asked: a question shows, which has the navigator's title.
asked() {
  for _ in {1..150}; do
    [ "$(windows | grep -c ' 辅助核算$')" -lt 2 ] || return 0
    sleep 0.2
  done
  fail "no question; there are: $(windows)"
}

# closed ID: the window goes.
closed() {
  for _ in {1..150}; do
    windows | grep -q "^$1 " || return 0
    sleep 0.2
  done
  fail "window $1 stays; there are: $(windows)"
}

# appears FILE: within half a minute the file is there and no longer grows.
appears() {
  local size=-1
  for _ in {1..60}; do
    sleep 0.5
    [ "$(stat -c %s "$1" 2>/dev/null || echo 0)" != "$size" ] || [ "$size" -le 0 ] || return 0
    size=$(stat -c %s "$1" 2>/dev/null || echo -1)
  done
  fail "no $1; there is: $(ls -R "$home")"
}

# use_windows SCRATCH COMMAND...: the windows, from the first start to a ledger in pages, on a display of its own: the
# sample company, the ledger of a person for the whole year, its preview, print, which without a printer offers a file,
# and quit.
use_windows() {
  local scratch=$1 server person entry pages="$home/个人明细帐 李明 2025.01-12.pdf" status=0
  shift
  Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp -ac 3>"$scratch/display" 2>/dev/null &
  server=$!
  # shellcheck disable=SC2064 # this server, whatever comes later
  trap "kill $server" EXIT
  until [ -s "$scratch/display" ]; do
    kill -0 "$server" || fail "no display server"
    sleep 0.1
  done
  DISPLAY=:$(cat "$scratch/display")
  export DISPLAY LC_ALL=C.UTF-8
  as_person env "DISPLAY=$DISPLAY" CUPS_SERVER=127.0.0.1:1 "$@" &
  person=$!
  keys '辅助核算 — 打开帐套' Return
  keys 辅助核算 Down Return Right Right Return
  keys 个人往来_个人明细帐 text:xs Return text:lm Return alt+4 ctrl+Return
  closed "$id" # it has the title of the ledger's window, which takes its place
  entry=$root/usr/share/applications/tzassistant.desktop
  [ -n "$(xdotool search --onlyvisible --class "^$(sed -n 's/^StartupWMClass=//p' "$entry")\$")" ] ||
    fail "desktops do not know the window for that of $entry"
  keys 个人往来_个人明细帐 ctrl+shift+p
  keys 打印预览 ctrl+p
  asked
  keys 辅助核算 Return
  keys 输出到文件 Return
  appears "$pages"
  expect 预借上海机床展差旅费 pdftotext "$pages" -
  keys 打印预览 Escape
  keys 个人往来_个人明细帐 ctrl+w
  keys 辅助核算 F10 Up Return
  wait "$person" || status=$?
  [ "$status" = 0 ] || fail "the windows ended with status $status"
  kill "$server"
  trap - EXIT
}

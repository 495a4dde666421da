# Starts Wine for a script that reads this file and has set $root, the project's folder: start_wine FOLDER keeps Wine's
# settings there, sets $wine and $WINEPREFIX, and ends the script with an error if Wine does not start within two minutes.
# stop_wine ends its services.
wine=$root/tests/windows/wine

start_wine() {
  # Of Wine itself only why a program has no memory to start in; no programs that it offers to download, no display.
  export WINEDEBUG=-all,err+virtual WINEPREFIX=$1 WINEDLLOVERRIDES="mscoree,mshtml="
  # File names have letters of several scripts.
  export LC_ALL=C.UTF-8
  unset DISPLAY
  mkdir -p "$WINEPREFIX"
  if ! timeout -k 10 120 "$wine" wineboot -i >/dev/null 2>"$WINEPREFIX/wineboot.log"; then
    cat "$WINEPREFIX/wineboot.log" >&2
    echo "Wine does not start; to see why: WINEPREFIX=$WINEPREFIX WINEDEBUG=err+all $wine wineboot -i" >&2
    exit 1
  fi
  # Its services start with its first program and end with its last; meanwhile they hold that program's output open.
  tail -f --pid=$$ /dev/null | "$wine" cmd >/dev/null 2>&1 &
}

stop_wine() {
  local server=/usr/lib/wine/wineserver64
  "$server" -k || true
  "$server" -w || true
}

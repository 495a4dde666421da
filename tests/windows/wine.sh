# Starts Wine for a script that reads this file: start_wine FOLDER keeps its settings there, sets $wine and $WINEPREFIX, and
# ends the script with an error if Wine does not start within two minutes. stop_wine ends its services.
wine=/usr/lib/wine/wine64

start_wine() {
  # No messages of Wine itself, no programs that it offers to download, no display.
  export WINEDEBUG=-all WINEPREFIX=$1 WINEDLLOVERRIDES="mscoree,mshtml="
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

# Running Windows programs: source it, don't run it.
# shellcheck shell=bash

source "$(dirname "${BASH_SOURCE[0]}")/display.sh"

# Replaces this process by the given script and arguments, in a mount namespace where the i386
# root's /usr lies over the machine's own. All else (the project, /tmp, homes, /proc, /dev) stays
# where it is, so both sizes see the same files under the same paths, and nothing stays mounted
# when the last process of the namespace has ended. Wineserver opens files on its clients' behalf
# and serves later namespaces too, so they must not differ.
enter_i386() {
  case $project/ in
    /usr/*) die "32-bit programs cannot see a project under /usr" ;;
  esac
  local namespace=(--mount --propagation private)
  # A user namespace gives others than root the right to mount for themselves.
  ((EUID == 0)) || namespace+=(--map-current-user --keep-caps)
  CONMUTA_IN_I386=$i386_root exec unshare "${namespace[@]}" -- \
    /bin/bash -c 'mount --rbind "$CONMUTA_IN_I386/usr" /usr && exec /bin/bash "$@"' bash "$@"
}

# Replaces this process by the given Windows command.
run_in_wine() {
  local size=$1 wine wineserver lock
  shift
  case $size in
    win64) wine=/usr/lib/wine/wine64 wineserver=/usr/lib/wine/wineserver64 ;;
    win32) wine=/usr/lib/wine/wine wineserver=/usr/lib/wine/wineserver32 ;;
  esac
  [[ -x $wine ]] || die "there is no Wine for $size yet: run scripts/setup"

  export WINEPREFIX=$project/build/wine/$size WINEARCH=$size WINESERVER=$wineserver
  export WINEDEBUG=${WINEDEBUG:--all} LC_ALL=$locale
  # No offers to install .NET or a browser engine; no entries in the user's menus.
  export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
  unset LANGUAGE

  mkdir -p "$WINEPREFIX"
  exec {lock}>"$WINEPREFIX.lock"
  flock "$lock"
  # Wine's services outlive the run: they must get neither the lock nor the caller's pipes.
  prepare_prefix {lock}>&- </dev/null >"$WINEPREFIX.log" 2>&1 ||
    die "the Wine prefix is not usable, see $WINEPREFIX.log"
  exec {lock}>&-
  exec "$wine" "$@"
}

prepare_prefix() {
  local ready=$WINEPREFIX/.conmuta-ready
  if [[ ! -e $ready ]]; then
    # New, or left behind by a run that was interrupted.
    "$wineserver" -k || true
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    start_server || return
    : >"$ready"
  fi
  start_server || return
  register_dll
}

# Starts the prefix's server unless it runs, and Wine's services with nobody's pipes in their
# hands. They stay for a minute after the last program, so that one run after the other is quick.
# Any program starts the services; wineboot by name would start them a second time, and the two
# would be in each other's way.
start_server() {
  local status=0
  "$wineserver" -p60 || status=$?
  case $status in
    0) "$wine" cmd /c exit ;;
    2) ;; # runs already
    *) return "$status" ;;
  esac
}

# Registers the DLL unless this very build of it is registered already.
register_dll() {
  local dll=$project/build/$size/conmuta.dll stamp=$WINEPREFIX/.conmuta-registered build
  [[ -e $dll ]] || return 0
  build=$(stat -c '%n %.9Y %s' "$dll")
  [[ ! -e $stamp || $(<"$stamp") != "$build" ]] || return 0
  "$wine" regsvr32 /s "Z:${dll//\//\\}" || return
  printf '%s\n' "$build" >"$stamp"
}

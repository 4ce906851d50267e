# Running Windows programs: source it, don't run it.
# shellcheck shell=bash

source "$(dirname "${BASH_SOURCE[0]}")/display.sh"

# The program that starts Windows programs of a size, within a system.
wine_loader() {
  case $1 in
    win64) printf /usr/lib/wine/wine64 ;;
    win32) printf /usr/lib/wine/wine ;;
  esac
}

# Whether CONMUTA_WINE names a system with a Wine for this size.
has_newer_wine() {
  [[ -n ${CONMUTA_WINE:-} && -x $CONMUTA_WINE$(wine_loader "$1") ]]
}

# The folder of the system whose Wine runs programs of a size; empty for the machine's own.
wine_system() {
  if has_newer_wine "$1"; then
    printf '%s' "$CONMUTA_WINE"
  elif [[ $1 == win32 ]]; then
    [[ -e $i386_marker ]] || die "there is no 32-bit Wine yet: run scripts/setup wine32"
    printf '%s' "$i386_root"
  fi
}

# enter_system SIZE SCRIPT ARGUMENT...: for programs of a size. Replaces this process by the given
# script and arguments, in a mount namespace where the /usr of the system with the wanted Wine lies over
# the machine's own; in the second round, or where that is the machine's own, just returns.
enter_system() {
  local system
  system=$(wine_system "$1") || exit
  # shellcheck disable=SC2016  # for the shell inside
  enter "$system" 'mount --rbind "$CONMUTA_INSIDE/usr" /usr' "${@:2}"
}

# enter_windows SCRIPT ARGUMENT...: likewise, for a whole Windows: that of 64 bits runs 32-bit programs,
# too. The /usr of the 32-bit system lies under the machine's own, whose other programs stay.
enter_windows() {
  local system
  system=$(wine_system win32) || exit
  # shellcheck disable=SC2016  # for the shell inside
  enter "$system" 'mount -t overlay overlay -o "lowerdir=/usr:$CONMUTA_INSIDE/usr" /usr' "$@"
}

# enter SYSTEM MOUNT SCRIPT ARGUMENT...: all but /usr (the project, /tmp, homes, /proc, /dev) stays where
# it is, so every system sees the same files under the same paths, and nothing stays mounted when the
# last process of the namespace has ended. Wineserver opens files on its clients' behalf and serves
# later namespaces too, so they must not differ.
enter() {
  local system=$1 mount=$2
  shift 2
  if [[ -z $system || ${CONMUTA_INSIDE:-} == "$system" ]]; then
    unset CONMUTA_INSIDE
    return 0
  fi
  case $project/ in
    /usr/*) die "programs of another system cannot see a project under /usr" ;;
  esac
  local namespace=(--mount --propagation private)
  # A user namespace gives others than root the right to mount for themselves.
  ((EUID == 0)) || namespace+=(--map-current-user --keep-caps)
  # shellcheck disable=SC2016
  CONMUTA_INSIDE=$system exec unshare "${namespace[@]}" -- \
    /bin/bash -c "$mount"' && exec /bin/bash "$@"' bash "$@"
}

# use_wine SIZE PREFIX: says which Wine it is, in $wine and the environment. Each Wine has prefixes
# of its own: a newer one would convert them for good.
use_wine() {
  local size=$1 prefix=$2
  wine=$(wine_loader "$size")
  [[ -x $wine ]] || die "there is no Wine for $size yet: run scripts/setup"
  ! has_newer_wine "$size" || prefix+=-${CONMUTA_WINE##*/}
  export WINEPREFIX=$project/build/wine/$prefix WINEARCH=$size
  export WINESERVER=/usr/lib/wine/wineserver${size#win}
  export WINEDEBUG=${WINEDEBUG:--all} LC_ALL=$locale
  # No offers to install .NET or a browser engine; no entries in the user's menus; no debugger that
  # waits beside a program that has crashed.
  export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe,winedbg.exe=d"
  unset LANGUAGE
}

# run_in_wine SIZE SCRIPT COMMAND...: replaces this process by the given Windows command. The script
# is the one that calls this, to be started once more within another system.
run_in_wine() {
  local size=$1 wine lock
  ensure_display
  enter_system "$@"
  shift 2
  use_wine "$size" "$size"

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
    "$WINESERVER" -k || true
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
  "$WINESERVER" -p60 || status=$?
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

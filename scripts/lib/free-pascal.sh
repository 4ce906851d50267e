# Compiling Pascal programs for Windows: source it, don't run it. Debian has the compiler and the
# sources, but no units for Windows and no compiler for 32 bits: both are built once, in build/fpc.
# shellcheck shell=bash disable=SC2154  # who sources this has $project

fpc_version=3.2.2
fpc_source=/usr/share/fpcsrc/$fpc_version
fpc=$project/build/fpc

# compile_pascal win64|win32 SOURCE OUTPUT-FOLDER [OPTION...]: makes an .exe of a program.
compile_pascal() {
  local size=$1 source=$2 output=$3
  make_pascal "$size" || return
  pascal_compiler "$size"
  "${compiler[@]}" -vw -Fu"$fpc/$size" -FE"$output" -FU"$output" "${@:4}" "$source"
}

# Sets the command that compiles for a size, without the machine's own configuration file.
pascal_compiler() {
  case $1 in
    win64) compiler=(ppcx64 -n -Twin64) ;;
    win32) compiler=("$fpc/ppcross386" -n -Twin32) ;;
  esac
}

# The units for a size, unless they are there.
make_pascal() {
  local size=$1 ready=$fpc/$1/.ready
  mkdir -p "$fpc"
  local lock
  exec {lock}>"$fpc/lock"
  flock "$lock"
  if [[ ! -e $ready ]]; then
    say "== Free Pascal for $size"
    rm -rf "${fpc:?}/$size"
    mkdir -p "$fpc/$size"
    { { [[ $size != win32 ]] || make_compiler_for_386; } && make_units "$size"; } >"$fpc/$size.log" 2>&1 ||
      { tail -n 20 "$fpc/$size.log" >&2; exec {lock}>&-; return 1; }
    : >"$ready"
  fi
  exec {lock}>&-
}

make_compiler_for_386() {
  local work=$fpc/compiler
  rm -rf "$work" && mkdir -p "$work"
  # The message tables are generated, and not among Debian's sources.
  ppcx64 -FE"$work" -FU"$work" -o"$work/msg2inc" "$fpc_source/compiler/utils/msg2inc.pp" || return
  cp "/usr/lib/x86_64-linux-gnu/fpc/$fpc_version/msg/errore.msg" "$work/" || return
  (cd "$work" && ./msg2inc errore.msg msg msg) || return
  (cd "$fpc_source/compiler" &&
    ppcx64 -O1 -di386 -dNOOPT -Fi"$work" -Fii386 -Fux86 -Fix86 -Fui386 -Fusystems \
      -FE"$work" -FU"$work" -o"$fpc/ppcross386" pp.pas)
}

make_units() {
  local size=$1 out=$fpc/$1 cpu=x86_64 folder unit
  [[ $size != win32 ]] || cpu=i386
  local compiler
  pascal_compiler "$size"
  compiler+=(-O1 -Sg "-d$cpu" -dRELEASE "-FE$out" "-FU$out" "-Fu$out")

  local rtl=("${compiler[@]}")
  for folder in inc "$cpu" win win/wininc "$size" objpas objpas/sysutils objpas/classes charmaps; do
    rtl+=("-Fi$fpc_source/rtl/$folder" "-Fu$fpc_source/rtl/$folder")
  done
  (cd "$fpc_source/rtl/$size" && "${rtl[@]}" -Us system.pp && "${rtl[@]}" buildrtl.pp) || return

  local objpas=$fpc_source/packages/rtl-objpas/src
  for folder in inc win common; do
    compiler+=("-Fi$objpas/$folder" "-Fu$objpas/$folder")
  done
  for unit in win/varutils.pp inc/variants.pp inc/strutils.pp inc/dateutils.pp; do
    "${compiler[@]}" "$objpas/$unit" || return
  done

  for folder in fcl-base fcl-registry winunits-base; do
    compiler+=("-Fi$fpc_source/packages/$folder/src" "-Fu$fpc_source/packages/$folder/src")
  done
  for unit in activex.pp comobj.pp eventsink.pp typelib.pas; do
    "${compiler[@]}" "$fpc_source/packages/winunits-base/src/$unit" || return
  done
}

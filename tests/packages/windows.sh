# What tests/packages/run-windows does to its Windows and looks at: source it, don't run it.
# shellcheck shell=bash disable=SC2154,SC2030,SC2031  # who sources this has its variables

drive=$WINEPREFIX/drive_c
capture=$project/switches/panasonic-kx/capture.txt

# run COMMAND...: a Windows command, with nobody's pipes in the hands of services that outlive it.
run() {
  local code=0
  timeout 900 "$wine" "$@" >"$stage/output" 2>/dev/null </dev/null || code=$?
  tr -d '\r' <"$stage/output"
  return "$code"
}

fresh_windows() {
  say "== a fresh Windows"
  end_windows
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  start_server </dev/null >"$WINEPREFIX.log" 2>&1
  # What the first of its kind leaves for good.
  local place
  printf 'Set e = New RegExp\nWScript.Echo 1\n' >"$stage/first.vbs"
  for place in "$drive"/windows/sys{tem32,wow64}/cscript.exe; do
    [[ ! -e $place ]] || run "$place" //nologo "$(windows_path "$stage/first.vbs")" >/dev/null
  done
  run regsvr32 /s oleaut32.dll
  # What every Windows has that somebody works with.
  for place in "$drive"/users/*/AppData/Local; do mkdir -p "$place/Programs"; done
  for place in 'Classes\CLSID' 'Classes\Interface' 'Classes\TypeLib' 'Microsoft\Windows\CurrentVersion\Uninstall'; do
    run reg add "HKCU\\Software\\$place" /f >/dev/null
  done
}

end_windows() {
  "$WINESERVER" -k 2>/dev/null || true
  "$WINESERVER" -w
}

# snapshot NAME: all files, sizes of files and all of the registry but for what a start finds or makes of the
# machine, at its leisure (devices), and how consoles look, which the first one writes; temporary folders are
# nobody's.
snapshot() {
  end_windows
  {
    find "$drive" \( -ipath '*/temp/*' -o -path '*/windows/inf/*' \) -prune -o -type f -printf 'file %P %s\n' -o -printf 'folder %P\n' | sort
    sed -E 's/^(\[.*\]) [0-9]+$/\1/; /^#time=/d' "$WINEPREFIX"/{system,user}.reg |
      awk '/^\[/ { machine = /^\[(System|Hardware|Console)[\\\]]|\\(NetworkCards|RunServices)/ } !machine'
  } >"$stage/$1.snapshot"
  start_server </dev/null >/dev/null 2>&1
}

equal_to() {
  snapshot now
  diff -U 1 "$stage/$1.snapshot" "$stage/now.snapshot"
}

windows_path() { local path=Z:$1; printf '%s' "${path//\//\\}"; }

set_up() { set_up_by "$setup" "$@"; }

# set_up_by SETUP OPTION...
set_up_by() {
  [[ -e $1 ]] || cp "$setup" "$1"
  run "$1" /S "${@:2}"
}

with_overrides() { WINEDLLOVERRIDES="$WINEDLLOVERRIDES;$1" "${@:2}"; }

# Prints the path of the installer of a version before this one, which has a file that is no more.
older_setup() {
  (
    version=0.9.0
    fix_time
    cd "$project" || exit
    fill_stage setup "$stage/older"
    mkdir "$stage/older/viejo"
    echo viejo >"$stage/older/viejo/viejo.txt"
    make_setup "$stage/older" "$stage"
  ) >&2
  printf '%s' "$stage/conmuta-0.9.0-setup.exe"
}

still_removes() { grep -qs 'nsu[^/]*[.]tmp.Un[^/]*[.]exe' /proc/[0-9]*/cmdline; }

# Runs the uninstaller as the system does: it goes on, as a copy of itself in a temporary folder, when
# its first process has ended, and removes its folder after itself.
uninstall() {
  local folder=$1 scope=$2 tries
  run "$folder/desinstalar.exe" "$scope" /S
  for ((tries = 0; tries < 3000; tries++)); do
    [[ -e $folder/desinstalar.exe ]] || still_removes || return 0
    sleep 0.1
  done
  return 1
}

# Whether all that contents.txt names for this Windows is there.
has_files() {
  sed -n '/^setup$/,/^$/{ /^[0-9a-f]\{64\} /p }' "$made/contents.txt" |
    if [[ $size == win64 ]]; then cat; else sed '/  win64\//d'; fi >"$stage/sums"
  [[ -s $stage/sums ]]
  (cd "$1" && sha256sum --quiet -c "$stage/sums")
  [[ $size == win64 || ! -e $1/win64 ]]
}

# has_entry HIVE VERSION
has_entry() {
  run reg query "$1\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Conmuta" /v DisplayVersion |
    grep -F "$2"
}

# has_class HIVE FOLDER: of the size of this Windows.
has_class() {
  run reg query "$1\\Software\\Classes\\CLSID\\{12e36d55-5f4f-427f-a6ac-aef6d456d4ef}\\InprocServer32" /ve |
    grep -iF "$(basename "$2")\\$size\\conmuta.dll"
}

# readme_runs SIZE CATALOGUE
readme_runs() {
  local cscript='C:\windows\system32\cscript.exe'
  [[ $1 == "$size" ]] || cscript='C:\windows\syswow64\cscript.exe'
  # It is asked for the command cscript.
  # shellcheck disable=SC2016
  printf '#!/bin/bash\nexec %q %q "${@:2}" </dev/null 2>/dev/null\n' "$wine" "$cscript" >"$stage/cscript"
  chmod +x "$stage/cscript"
  "$project/tests/examples/run-readme" "$1" "$stage/cscript" "$2" panasonic-kx
}

# As many rows as calls, and one of titles.
command_translates() {
  local calls
  calls=$("$project/tests/support/expected-calls" "$project/switches/panasonic-kx" | grep -vc '^!')
  run "$1" traduce panasonic-kx "$(windows_path "$capture")" >"$stage/rows"
  cat "$stage/rows"
  (($(wc -l <"$stage/rows") == calls + 1))
}

# make_host KIT FOLDER: host.exe, from the kit's header and client, which depends on the assembly.
make_host() {
  cat >"$stage/host.manifest" <<'MANIFEST'
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <dependency><dependentAssembly>
    <assemblyIdentity type="win32" name="Conmuta.Com" version="VERSION.0" processorArchitecture="ARCHITECTURE"/>
  </dependentAssembly></dependency>
</assembly>
MANIFEST
  local architecture=amd64
  [[ $size == win64 ]] || architecture=x86
  sed -i "s/VERSION/$version/; s/ARCHITECTURE/$architecture/" "$stage/host.manifest"
  echo "1 24 \"$stage/host.manifest\"" | "$tools-windres" -o "$stage/manifest.o"
  "$tools-gcc-posix" -c -I"$1" "$1/conmuta_i.c" -o "$stage/identifiers.o"
  "$tools-g++-posix" -std=c++20 -static -I"$1" "$1/ejemplos/clientes/client.cpp" "$stage/manifest.o" \
    "$stage/identifiers.o" -o "$2/host.exe" -loleaut32 -lole32 -luuid
}

# host_translates HOST CATALOGUE
host_translates() {
  "$project/tests/support/without-head" "$capture" >"$stage/capture.txt"
  run "$1" "$(windows_path "$2/panasonic-kx.cfg")" "$(windows_path "$stage/capture.txt")" >"$stage/calls" || true
  "$project/tests/support/expected-calls" "$project/switches/panasonic-kx" |
    diff - <(sed 's/ *$//; /^== propiedades/,$d' "$stage/calls")
}

# A host that has an object for as long as it is wanted. (WScript.Sleep ends scripts in this Wine.)
start_host() {
  cat >"$stage/host.vbs" <<HOST
Set conmutador = CreateObject("Conmuta.clsCfgConmut")
Set files = CreateObject("Scripting.FileSystemObject")
Set mark = files.CreateTextFile("$(windows_path "$stage/ready")")
mark.Close
Do Until files.FileExists("$(windows_path "$stage/enough")")
Loop
HOST
  nice -n 19 "$wine" cscript //nologo "$(windows_path "$stage/host.vbs")" </dev/null >/dev/null 2>&1 &
  host=$!
  local tries
  for ((tries = 0; tries < 3000; tries++)); do
    sleep 0.1
    [[ ! -e $stage/ready ]] || return 0
  done
  die "no host starts"
}

# Not one that has ended before.
end_host() {
  kill -0 "$host"
  : >"$stage/enough"
  wait "$host"
}

# Ends all of Windows while the installer, which has written its files, has the first DLL registered.
interrupt_install() {
  local regsvr32=$drive/windows/system32/regsvr32.exe mark=$drive/registering tries
  [[ $size == win32 ]] || regsvr32=$drive/windows/syswow64/regsvr32.exe
  mv "$regsvr32" "$stage/regsvr32.exe"
  cat >"$stage/endless.c" <<'PROGRAM'
#include <windows.h>
int main(void) {
  CreateFileA("C:\\registering", GENERIC_WRITE, 0, 0, CREATE_NEW, 0, 0);
  Sleep(INFINITE);
}
PROGRAM
  i686-w64-mingw32-gcc-posix -mwindows "$stage/endless.c" -o "$regsvr32"
  with_overrides regsvr32.exe=n "$wine" "$setup" /S /AllUsers >/dev/null 2>&1 </dev/null &
  local installer=$!
  for ((tries = 0; tries < 3000; tries++)); do
    [[ ! -e $mark ]] || break
    sleep 0.1
  done
  end_windows
  wait "$installer" || true
  mv "$stage/regsvr32.exe" "$regsvr32"
  start_server </dev/null >/dev/null 2>&1
  rm "$mark"
  [[ -e $program_files/LEEME.txt ]]
  fails has_class HKLM "$program_files"
}

interrupted_and_undone() {
  interrupt_install
  uninstall "$program_files" /AllUsers
  equal_to before
}

signed() { osslsigncode verify -CAfile "$keys/certificate.pem" -in "$1"; }

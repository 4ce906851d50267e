# Making the packages out of staged folders: source it, don't run it.
# shellcheck shell=bash disable=SC2154  # who sources this has $project and $stage, a folder to work in

version=$(sed -n 's/^project(conmuta VERSION \([0-9.]*\).*/\1/p' "$project/CMakeLists.txt")

# All that bears a time bears that of the commit.
fix_time() {
  export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$project" log -1 --format=%ct)} TZ=UTC LC_ALL=C
}

set_times() {
  find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

# fill_stage PACKAGE FOLDER: what packages/contents says of a package.
fill_stage() {
  local wanted=$1 folder=$2 packages place sources source mode
  while read -r packages place sources; do
    [[ ,$packages, == *,"$wanted",* ]] || continue
    mode=644
    [[ $place != usr/bin ]] || mode=755
    # shellcheck disable=SC2086  # patterns
    for source in $sources; do
      [[ -f $source ]] || die "packages/contents: there is no $source"
      install -D -m "$mode" -t "$folder/$place" "$source"
    done
  done < <(sed '/^#/d; /^$/d' "$project/packages/contents")
  set_times "$folder"
}

# The files below a folder, in an order that depends on no file system and no language.
files_of() {
  (cd "$1" && find . -type f -printf '%P\n' | LC_ALL=C sort)
}

# Each of these: make_PACKAGE STAGED-FOLDER OUTPUT-FOLDER
make_portable() { make_zip "$1" "$2" "conmuta-$version-portable"; }
make_sdk() { make_zip "$1" "$2" "conmuta-$version-sdk"; }

# Everything is in one folder that bears the name of the archive.
make_zip() {
  local folder=$1 output=$2 name=$3
  say "== $name"
  ln -sfn "$folder" "$stage/$name"
  (cd "$stage" && files_of "$folder" | sed "s|^|$name/|" | zip -q -X -9 -@ "$output/$name.zip")
}

# With $signer set, the uninstaller is signed by it.
make_setup() {
  local folder=$1 output=$2 name=conmuta-$version-setup
  say "== $name"
  setup_macros "$folder" >"$stage/files.nsh"
  local options=(-V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFILES=$stage/files.nsh"
    "-DSIZE=$(kilobytes "$folder")" "-DOUT=$output/$name.exe")
  [[ -z ${signer:-} ]] || options+=("-DSIGN=$signer")
  makensis "${options[@]}" "$project/packages/setup.nsi"
}

kilobytes() {
  find "$1" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }'
}

# setup_macros FOLDER: the macros with which the installer writes and removes each file by name.
# shellcheck disable=SC2016  # variables of the installer's
setup_macros() {
  local folder=$1
  echo '!macro InstallFiles'
  files_of "$folder" | sed '/^win64\//d' | install_lines "$folder"
  echo '!macroend'
  echo '!macro InstallFilesOf64'
  files_of "$folder" | sed '/^win64\//!d' | install_lines "$folder"
  echo '!macroend'
  echo '!macro RemoveFiles'
  files_of "$folder" | sed 's|/|\\|g; s|.*|Delete "$INSTDIR\\&"|'
  # What is deepest goes first.
  (cd "$folder" && find . -mindepth 1 -type d -printf '%P\n') | LC_ALL=C sort -r |
    sed 's|/|\\|g; s|.*|RMDir "$INSTDIR\\&"|'
  echo '!macroend'
  echo '!macro EachImage DO'
  files_of "$folder" | sed -n '/\.\(dll\|exe\)$/{ s|/|\\|g; s|.*|!insertmacro ${DO} "&"|; p }'
  echo '!macroend'
}

# shellcheck disable=SC2016
install_lines() {
  local file
  while read -r file; do
    printf '%s\n' "$(dirname "$file")" | sed 's|/|\\|g; s|.*|SetOutPath "$INSTDIR\\&"|; s|\\\."$|"|'
    printf 'File "%s"\n' "$1/$file"
  done
}

make_deb() {
  local root=$1 name=conmuta_${version}_amd64
  say "== $name"
  find "$root/usr/bin" -type f -exec strip --strip-unneeded {} +
  [[ ! -d $root/usr/share/man ]] || find "$root/usr/share/man" -type f -exec gzip -9n {} +
  # The tool that finds the libraries' packages wants a source package around it.
  local source=$stage/source depends
  mkdir -p "$source/debian"
  echo 'Source: conmuta' >"$source/debian/control"
  depends=$(cd "$source" && dpkg-shlibdeps --warnings=0 -O "$root"/usr/bin/*)
  local control=$stage/control
  cp -a "$root" "$control"
  mkdir "$control/DEBIAN"
  cat >"$control/DEBIAN/control" <<CONTROL
Package: conmuta
Version: $version
Architecture: amd64
Maintainer: Conmuta <conmuta@localhost>
Section: comm
Priority: optional
Installed-Size: $(kilobytes "$root")
Depends: ${depends#shlibs:Depends=}
Description: call records of telephone switches (SMDR)
 A PBX prints a line, or a block of lines, for every telephone call, and every brand lays it out in
 its own way. The command conmuta knows the layouts of many, and makes call records of what they print.
CONTROL
  install -m 755 "$project"/packages/debian/{postinst,prerm,postrm} "$control/DEBIAN"
  # Files that a person changes are dpkg's to look after.
  files_of "$root/etc" | sed 's|^|/etc/|' >"$control/DEBIAN/conffiles"
  (cd "$root" && files_of . | grep -v '^etc/' | xargs -d '\n' md5sum) >"$control/DEBIAN/md5sums"
  set_times "$control"
  # More threads would cut the data into other blocks.
  dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$control" "$2/$name.deb" >/dev/null
}

# What packages are made with: another version of these may make other bytes.
tools() {
  local package
  for package in nsis-common zip dpkg g++ g++-mingw-w64-{x86-64,i686}-posix binutils-mingw-w64-{x86-64,i686}; do
    dpkg-query -W -f '${Package} ${Version}\n' "$package"
  done
}

# list_stage PACKAGE FOLDER
list_stage() {
  printf '\n%s\n' "$1"
  (cd "$2" && files_of . | xargs -d '\n' sha256sum)
}

checksums() {
  (cd "$1" && find . -maxdepth 1 -name 'conmuta*' -printf '%P\n' | LC_ALL=C sort | xargs sha256sum >SHA256SUMS)
}

# The private i386 system for 32-bit Wine: source it, don't run it. Adding the i386 architecture to
# the machine's own dpkg instead would make its packages depend on two archives being in step.
# shellcheck shell=bash

i386_packages=(wine32 wine locales fonts-wine fonts-liberation)
# What a whole root has; a change here has old ones checked again.
i386_contents="${i386_packages[*]} $locale"

make_i386_root() {
  [[ ! -e $i386_marker || $(<"$i386_marker") != "$i386_contents" ]] || return 0
  as_root mkdir -p "$cache"
  if ! i386_root_is_whole "$i386_root"; then
    say "== debootstrap of $i386_root, some minutes"
    # Built beside its place, so that what bears its name was once complete.
    local new=$i386_root.new
    remove_root "$new"
    as_root debootstrap --arch=i386 --variant=minbase \
      --include="$(IFS=, && printf '%s' "${i386_packages[*]}")" bookworm "$new" >&2
    as_root rm -rf "$new/var/cache/apt/archives" "$new/var/lib/apt/lists"
    i386_root_is_whole "$new" || die "debootstrap left $new incomplete"
    remove_root "$i386_root"
    as_root mv "$new" "$i386_root"
  fi
  say "== locale $locale in $i386_root"
  as_root chroot "$i386_root" localedef -i "${locale%.*}" -f UTF-8 "$locale"
  as_root tee "$i386_marker" <<<"$i386_contents" >/dev/null
}

# An interrupted debootstrap leaves its own folder, or packages that are not configured.
i386_root_is_whole() {
  [[ -x $1/usr/bin/dpkg-query && ! -e $1/debootstrap ]] || return 1
  local states
  states=$(as_root chroot "$1" dpkg-query -W -f '${db:Status-Status}\n' 2>/dev/null) || return 1
  [[ $(sort -u <<<"$states") == installed ]] || return 1
  as_root chroot "$1" dpkg-query -W "${i386_packages[@]}" >/dev/null 2>&1
}

remove_root() {
  # Deleting through a mount would delete the machine's own files.
  ! grep -q " $1/" /proc/self/mounts || die "something is mounted under $1, unmount it first"
  as_root rm -rf --one-file-system "$1"
}

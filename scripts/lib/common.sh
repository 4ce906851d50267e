# Shared by all scripts: source it, don't run it.
# shellcheck shell=bash
# shellcheck disable=SC2034  # the variables are for those who source this

# Physical path: it is also the one that Windows programs see under Z:.
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
cache=${CONMUTA_CACHE:-/var/cache/conmuta}
i386_root=$cache/i386
# Written into the i386 root when all of it is there; a root without it is not trusted.
i386_marker=$i386_root/.conmuta-complete
locale=es_MX.UTF-8

say() { printf '%s\n' "$*" >&2; }

die() {
  say "${0##*/}: $*"
  exit 1
}

# Prints the caller's own opening comment, which is its usage text.
usage() {
  sed -n '2,/^[^#]/{ s/^# \{0,1\}//p }' "$0"
}

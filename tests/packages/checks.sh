# Counting checks, and what is checked: source it, don't run it.
# shellcheck shell=bash

passed=0 failed=0

# check NAME COMMAND...: what the command prints is shown where it fails.
check() {
  local name=$1 output
  shift
  output=$(mktemp)
  # Not within "if": a check ends with its first failure.
  set +e
  (set -e; "$@") >"$output" 2>&1 </dev/null
  local code=$?
  set -e
  if ((code == 0)); then
    printf 'PASS %s\n' "$name"
    passed=$((passed + 1))
  else
    sed 's/^/  /' "$output"
    printf 'FAIL %s\n' "$name"
    failed=$((failed + 1))
  fi
  rm "$output"
}

# make_packages FOLDER PACKAGE...: what is built on the way is shown where it fails only.
make_packages() {
  local log=$1.log
  mkdir -p "$(dirname "$1")"
  # The catalogue is the same from whatever compiler.
  CONMUTA_NATIVE=${CONMUTA_NATIVE:-native-sanitized} "$project/scripts/package" -o "$1" "${@:2}" >"$log" 2>&1 ||
    { tail -n 40 "$log"; die "there are no packages"; }
}

fails() { ! "$@"; }

# ends_with CODE COMMAND...
ends_with() {
  local code=0
  "${@:2}" || code=$?
  ((code == $1)) || { echo "ends with $code"; return 1; }
}

report_checks() {
  printf '%d passed, %d failed\n' "$passed" "$failed"
  ((failed == 0 && passed > 0))
}

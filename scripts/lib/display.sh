# A screen for the Windows programs: source it, don't run it.
# shellcheck shell=bash

# Exports DISPLAY. The caller's own wins; without one, all runs share one Xvfb, which ends by
# itself some time after its last client. Starting one per run would cost a second each time and
# take the screen away from the Wine services that outlive the run.
ensure_display() {
  [[ -z ${DISPLAY:-} ]] || return 0
  mkdir -p "$project/build/wine"
  local number=$project/build/wine/display lock
  exec {lock}>"$number.lock"
  flock "$lock"
  if ! xvfb_answers "$number"; then
    rm -f "$number"
    # The pipe-free way to learn the number: Xvfb writes it when it is ready to serve.
    setsid Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -terminate 120 \
      3>"$number" {lock}>&- </dev/null >/dev/null 2>&1 &
    local xvfb=$! tries
    for ((tries = 0; tries < 200; tries++)); do
      [[ ! -s $number ]] || break
      kill -0 "$xvfb" 2>/dev/null || die "Xvfb does not start"
      sleep 0.05
    done
    [[ -s $number ]] || die "Xvfb does not answer"
    printf '%s\n' "$xvfb" >"$number.pid"
  fi
  exec {lock}>&-
  DISPLAY=:$(<"$number")
  export DISPLAY
}

xvfb_answers() {
  [[ -s $1 && -s $1.pid && -S /tmp/.X11-unix/X$(<"$1") ]] || return 1
  [[ $(ps -o comm= -p "$(<"$1.pid")") == Xvfb ]]
}

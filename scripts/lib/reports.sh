# Counting what the test suites reported: source it, don't run it.
# shellcheck shell=bash

# Sets report_passed, report_failed and report_skipped from the report of a suite, whose name comes
# without its ending. A missing, empty or unreadable report is one failure, and fails.
count_report() {
  report_passed=0 report_failed=0 report_skipped=0
  if [[ -s $1.xml ]]; then
    local totals
    totals=$(grep -m 1 '<testsuites ' "$1.xml") || true
    local tests failures errors
    tests=$(attribute tests "$totals") failures=$(attribute failures "$totals")
    errors=$(attribute errors "$totals")
    # Disabled tests are among them.
    report_skipped=$(grep -Ec 'result="(skipped|suppressed)"' "$1.xml") || true
    report_failed=$((failures + errors))
    report_passed=$((tests - report_failed - report_skipped))
  elif [[ -s $1.txt ]]; then
    local line
    line=$(tail -n 1 "$1.txt")
    if [[ $line =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
      report_passed=${BASH_REMATCH[1]} report_failed=${BASH_REMATCH[2]}
    fi
  fi
  ((report_passed + report_failed + report_skipped > 0)) || { report_failed=1 && return 1; }
}

attribute() {
  [[ $2 =~ \ $1=\"([0-9]+)\" ]] && printf '%s' "${BASH_REMATCH[1]}" || printf 0
}

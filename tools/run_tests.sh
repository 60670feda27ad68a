# Building a preset and counting its tests; sourced by the scripts beside the README.
# shellcheck shell=bash
TESTS_PASSED=0
TESTS_FAILED=0

# build_target PRESET TARGET [CMAKE ARGUMENT...]: configures the preset and builds a target of it.
build_target() {
  local preset=$1 target=$2 log
  shift 2
  echo "== $preset: building"
  log=$(mktemp)
  cmake --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log"; rm -f "$log"; return 1; }
  rm -f "$log"
  cmake --build --preset "$preset" --target "$target" -- --quiet
}

# run_tests PRESET [CMAKE ARGUMENT...]: builds the preset and runs its tests. Failures are counted, not fatal.
run_tests() {
  local preset=$1 log summary failed total skipped
  shift
  build_target "$preset" all "$@" || return 1
  log=$(mktemp)
  echo "== $preset: testing"
  XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}" QT_QPA_PLATFORM=offscreen \
    ctest --preset "$preset" --parallel "$(nproc)" >"$log" 2>&1 || grep -vE ' Passed |^ *Start ' "$log" || true
  # "98% tests passed, 2 tests failed out of 100"
  summary=$(grep -E 'tests passed, [0-9]+ tests failed out of [0-9]+' "$log" || true)
  if [ -z "$summary" ]; then
    cat "$log"
    echo "$preset ran no test"
    return 1
  fi
  failed=$(sed -E 's/.*, ([0-9]+) tests failed.*/\1/' <<<"$summary")
  total=$(sed -E 's/.*out of ([0-9]+).*/\1/' <<<"$summary")
  # A test that found nothing to try it on is not among those that passed.
  skipped=$(grep -cE '\(Skipped\)$' "$log" || true)
  [ "$skipped" -eq 0 ] || echo "== $preset: $skipped skipped"
  echo "== $preset: $((total - failed - skipped)) passed, $failed failed"
  TESTS_PASSED=$((TESTS_PASSED + total - failed - skipped))
  TESTS_FAILED=$((TESTS_FAILED + failed))
  rm -f "$log"
}

# run_usb_tests PRESET CYCLES: builds the preset's USB tests and runs them in a machine that can play USB devices;
# CYCLES is how often they plug one. Where the machine cannot be had they are skipped, and said to be.
run_usb_tests() {
  local preset=$1 cycles=$2 log total passed skipped failed status=0
  build_target "$preset" vireon_usb_tests || return 1
  echo "== $preset: testing over USB"
  log=$(mktemp)
  tools/usb_machine --limit $((900 + cycles)) env VIREON_USB_CYCLES="$cycles" \
    "build/$preset/tests/usb/vireon_usb_tests" >"$log" 2>&1 || status=$?
  if [ "$status" -eq 77 ]; then
    tail -n 1 "$log"
    echo "== $preset over USB: all skipped"
    rm -f "$log"
    return 0
  fi
  grep -E '^measured: ' "$log" || true
  [ "$status" -eq 0 ] || grep -vE '^\[ +(RUN|OK) |^\[-+\]|^measured: ' "$log" || true
  # "[==========] Running 32 tests from 9 test suites.", "[  PASSED  ] 31 tests.", "[  SKIPPED ] 1 test, ..."
  total=$(sed -nE 's/^\[=+\] Running ([0-9]+) tests? .*/\1/p' "$log")
  passed=$(sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\.$/\1/p' "$log")
  skipped=$(sed -nE 's/^\[  SKIPPED \] ([0-9]+) tests?, .*/\1/p' "$log")
  # Where the machine died there is no summary: what had not passed by then failed.
  [ -n "$passed" ] || passed=$(grep -cE '^\[       OK \] ' "$log" || true)
  failed=$((${total:-0} - passed - ${skipped:-0}))
  if [ "$failed" -le 0 ] && [ "$status" -ne 0 ]; then failed=1; fi
  if [ "$failed" -eq 0 ] && [ "$passed" -eq 0 ]; then failed=1; fi
  [ "${skipped:-0}" -eq 0 ] || echo "== $preset over USB: $skipped skipped"
  echo "== $preset over USB: $passed passed, $failed failed"
  TESTS_PASSED=$((TESTS_PASSED + passed))
  TESTS_FAILED=$((TESTS_FAILED + failed))
  rm -f "$log"
}

# Prints the count of all runs as the last line and fails if a test did.
report_tests() {
  echo "$TESTS_PASSED passed, $TESTS_FAILED failed"
  [ "$TESTS_FAILED" -eq 0 ]
}

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

# sum_of PATTERN LOG: the sum of the numbers that the extended expression's group catches.
sum_of() {
  sed -nE "s/$1/\\1/p" "$2" | awk '{ sum += $1 } END { print sum + 0 }'
}

# count_tests TITLE LOG STATUS: adds up what the test programs of a log ran; STATUS is 0 where they all ended well.
# Failures are counted, not fatal.
count_tests() {
  local title=$1 log=$2 status=$3 total passed skipped failed
  # "[==========] Running 32 tests from 9 test suites.", "[  PASSED  ] 31 tests.", "[  SKIPPED ] 1 test, ...";
  # a program that dies has no summary: what had not passed by then failed.
  total=$(sum_of '.*\[=+\] Running ([0-9]+) tests? .*' "$log")
  passed=$(grep -cE '\[       OK \] .* \([0-9]+ ms\)' "$log" || true)
  skipped=$(sum_of '.*\[  SKIPPED \] ([0-9]+) tests?, .*' "$log")
  failed=$((total - passed - skipped))
  if [ "$failed" -le 0 ] && { [ "$status" -ne 0 ] || [ "$passed" -eq 0 ]; }; then failed=1; fi
  [ "$skipped" -eq 0 ] || echo "== $title: $skipped skipped"
  echo "== $title: $passed passed, $failed failed"
  TESTS_PASSED=$((TESTS_PASSED + passed))
  TESTS_FAILED=$((TESTS_FAILED + failed))
}

# What a run of all tests of the dev preset injects at least; each port call, allocation and file operation of the
# users' stories is made to fail in turn.
FEWEST_FAULTS=20000

# count_faults PRESET FILE: says how many faults the tests injected that left their numbers in FILE. One failed test
# more where a run of everything injected too few.
count_faults() {
  local preset=$1 injected
  injected=$(awk '{sum += $1} END {print sum + 0}' "$2")
  echo "== $preset: $injected faults injected"
  if [ "$preset" = dev ] && [ "$injected" -lt "$FEWEST_FAULTS" ]; then
    echo "== $preset: that is less than $FEWEST_FAULTS"
    TESTS_FAILED=$((TESTS_FAILED + 1))
  fi
}

# run_tests PRESET [CMAKE ARGUMENT...]: builds the preset and runs its tests.
run_tests() {
  local preset=$1 log faults status=0
  # The toolkit wants one, also when a test program is asked for its tests while it is built.
  local -x XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
  shift
  build_target "$preset" all "$@" || return 1
  log=$(mktemp)
  faults=$(mktemp)
  echo "== $preset: testing"
  VIREON_FAULT_COUNT="$faults" QT_QPA_PLATFORM=offscreen \
    ctest --preset "$preset" --parallel "$(nproc)" >"$log" 2>&1 || status=$?
  [ "$status" -eq 0 ] || grep -vE ' Passed |^ *Start |\[ +(RUN|OK) ' "$log" || true
  count_tests "$preset" "build/$preset/Testing/Temporary/LastTest.log" "$status"
  count_faults "$preset" "$faults"
  rm -f "$log" "$faults"
}

# run_usb_tests PRESET CYCLES: builds the preset's USB tests and runs them in a machine that can play USB devices;
# CYCLES is how often they plug one. Where the machine cannot be had they are skipped, and said to be.
run_usb_tests() {
  local preset=$1 cycles=$2 log status=0
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
  count_tests "$preset over USB" "$log" "$status"
  rm -f "$log"
}

# Prints the count of all runs as the last line and fails if a test did.
report_tests() {
  echo "$TESTS_PASSED passed, $TESTS_FAILED failed"
  [ "$TESTS_FAILED" -eq 0 ]
}

# Building a preset and counting its tests; sourced by the scripts beside the README.
# shellcheck shell=bash
TESTS_PASSED=0
TESTS_FAILED=0

# run_tests PRESET [CMAKE ARGUMENT...]: builds the preset and runs its tests. Failures are counted, not fatal.
run_tests() {
  local preset=$1 log summary failed total
  shift
  echo "== $preset: building"
  log=$(mktemp)
  cmake --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log"; return 1; }
  cmake --build --preset "$preset" -- --quiet || return 1
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
  echo "== $preset: $((total - failed)) passed, $failed failed"
  TESTS_PASSED=$((TESTS_PASSED + total - failed))
  TESTS_FAILED=$((TESTS_FAILED + failed))
  rm -f "$log"
}

# Prints the count of all runs as the last line and fails if a test did.
report_tests() {
  echo "$TESTS_PASSED passed, $TESTS_FAILED failed"
  [ "$TESTS_FAILED" -eq 0 ]
}

"""Runs the benchmarks' programs and collects what they print, times in seconds."""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

_SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
# What Google Benchmark tells of each run beside the counters.
_TOLD = {"repetitions", "repetition_index", "family_index", "per_family_instance_index", "threads", "iterations",
         "real_time", "cpu_time", "aggregate_unit"}


def _short(name: str, numbers: bool) -> str:
    """A benchmark's name and its numbers if wanted, without how it was run."""
    parts = name.split("/")
    return "/".join([parts[0]] + [part for part in parts[1:] if numbers and part.isdigit()])


def google_benchmark(command: list[str], env: dict[str, str], repetitions: int, prefix: str,
                     numbers: bool) -> dict[str, float]:
    """NAME is its processor time, NAME.real its time, NAME.COUNTER a counter; medians of so many repetitions.
    NAME is without the benchmark's numbers unless those are wanted."""
    print("+", pathlib.Path(command[0]).name, *command[1:], flush=True)
    figures: dict[str, float] = {}
    with tempfile.TemporaryDirectory() as folder:
        out = pathlib.Path(folder) / "out.json"
        arguments = [f"--benchmark_out={out}", "--benchmark_out_format=json"]
        if repetitions > 1:
            arguments += [f"--benchmark_repetitions={repetitions}", "--benchmark_report_aggregates_only=true"]
        answer = subprocess.run(command + arguments, check=False, env=env, stdout=subprocess.DEVNULL,
                                stderr=subprocess.PIPE, text=True)
        if answer.returncode != 0:
            raise RuntimeError(f"{command[0]} ended with {answer.returncode}: {answer.stderr}")
        runs = json.loads(out.read_text())["benchmarks"]
    for run in runs:
        name = prefix + _short(run["run_name"], numbers)
        if run.get("error_occurred"):
            raise RuntimeError(f"{name}: {run['error_message']}")
        if run.get("aggregate_name", "median") != "median":
            continue
        figures[name] = run["cpu_time"] * _SECONDS[run["time_unit"]]
        figures[name + ".real"] = run["real_time"] * _SECONDS[run["time_unit"]]
        for key, value in run.items():
            if isinstance(value, (int, float)) and key not in _TOLD:
                figures[f"{name}.{key}"] = float(value)
    if not figures:
        raise RuntimeError(f"{command[0]} measured nothing")
    return figures


def measured_in(text: str, prefix: str = "") -> dict[str, float]:
    """The figures of "measured: NAME VALUE UNIT" lines; what is no letter or digit in a name becomes "_"."""
    figures = {}
    for name, value, unit in re.findall(r"^measured: (.+?),? (-?[\d.]+(?:e[-+]?\d+)?) (.*)$", text, re.M):
        figures[prefix + re.sub(r"[^a-z0-9.]+", "_", name.lower())] = float(value) * _SECONDS.get(unit, 1.0)
    return figures


def measured_lines(command: list[str], env: dict[str, str], prefix: str = "", quiet: bool = False) -> dict[str, float]:
    """What a program prints of its figures. Raises when it prints none or fails."""
    if not quiet:
        print("+", pathlib.Path(command[0]).name, *command[1:], flush=True)
    answer = subprocess.run(command, check=False, env=env, capture_output=True, text=True)
    figures = measured_in(answer.stdout, prefix)
    if answer.returncode != 0 or not figures:
        sys.stderr.write(answer.stdout + answer.stderr)
        raise RuntimeError(f"{command[0]} ended with {answer.returncode}")
    return figures


def has_modules(*names: str) -> bool:
    """Whether Debian's own interpreter has these modules."""
    test = subprocess.run(["/usr/bin/python3", "-c", "import " + ", ".join(names)], check=False, capture_output=True)
    return test.returncode == 0


def offscreen(base: dict[str, str] | None = None) -> dict[str, str]:
    """An environment without a screen."""
    env = dict(os.environ if base is None else base)
    env["QT_QPA_PLATFORM"] = "offscreen"
    return env

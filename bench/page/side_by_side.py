"""Programs with a window, measured the same way on the same screen: start, memory, processor, paints."""
import contextlib
import os
import pathlib
import re
import statistics
import subprocess
import threading
import time
from collections.abc import Callable, Iterator
from dataclasses import dataclass, field

from desktop import Desktop
from programs import measured_lines

_ATTEMPTS = 3


@dataclass
class Subject:
    """A program: how it is started, how its waveforms are made to run, and after what line of its output again."""

    name: str
    command: list[str]
    run: Callable[[Desktop, str], None] | None = None
    again_on: str = ""


@dataclass
class Times:
    """How long things are looked at, in seconds, and how many starts there are."""

    starts: int = 15
    settle: float = 10
    look: float = 20


@dataclass
class Running:
    """A started program with its window, its waveforms running."""

    process: subprocess.Popen[str]
    window: str
    rounds: int = 0
    lines: list[str] = field(default_factory=list)


def start_times(desktop: Desktop, subjects: list[Subject], starts: int, watcher: str) -> dict[str, float]:
    """Medians of so many starts, in turn; one start of each before them is not counted."""
    times: dict[str, list[float]] = {}
    for turn in range(starts + 1):
        for subject in subjects:
            told = measured_lines([watcher, *subject.command], desktop.env, quiet=True)
            if turn > 0:
                for what in ("mapped", "painted"):
                    times.setdefault(f"{subject.name}.{what}", []).append(told[what])
    figures = {name: statistics.median(values) for name, values in times.items()}
    for name, values in times.items():
        figures[f"{name}.least"] = min(values)
        figures[f"{name}.most"] = max(values)
    return figures


def _processor_seconds(process: int) -> float:
    """Of all its threads, in the program and in the kernel."""
    told = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(told[11]) + int(told[12])) / os.sysconf("SC_CLK_TCK")


def _megabytes(path: str, name: str) -> float:
    found = re.search(rf"^{name}:\s*(\d+) kB", pathlib.Path(path).read_text(), re.M)
    return int(found[1]) / 1024 if found else 0.0


@contextlib.contextmanager
def _running(desktop: Desktop, subject: Subject) -> Iterator[Running]:
    process = subprocess.Popen(subject.command, env=desktop.env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               text=True, errors="replace")
    reader: threading.Thread | None = None
    try:
        running = Running(process, desktop.window_of(process.pid))

        def read() -> None:
            for line in process.stdout or ():
                running.lines.append(line)
                if subject.run and subject.again_on and subject.again_on in line:
                    running.rounds += 1
                    subject.run(desktop, running.window)

        reader = threading.Thread(target=read, daemon=True)
        reader.start()
        if subject.run:
            subject.run(desktop, running.window)
        yield running
    finally:
        process.kill()
        process.wait()
        if reader:
            reader.join()
        if process.stdout:
            process.stdout.close()


def use(desktop: Desktop, subject: Subject, times: Times, counter: str) -> dict[str, float]:
    """Memory after it has run for a while; then, over a while more, its processor time, the X server's and its
    paints. Raises when a program that should run is not painted, three times: on a computer that stands still for a
    while, what is typed may come too early for it."""
    print("+ running on X11:", subject.name, flush=True)
    for _ in range(_ATTEMPTS):
        figures, lines = _used_once(desktop, subject, times, counter)
        if figures["paints"] >= 1 or not subject.run:
            return {f"{subject.name}.{what}": value for what, value in figures.items()}
    raise RuntimeError(f"{subject.name} shows nothing that moves:\n" + "".join(lines[-5:]))


def _used_once(desktop: Desktop, subject: Subject, times: Times, counter: str) -> tuple[dict[str, float], list[str]]:
    """The figures, and what the program printed."""
    figures: dict[str, float] = {}
    with _running(desktop, subject) as running:
        process = running.process.pid
        time.sleep(times.settle)
        figures["resident"] = _megabytes(f"/proc/{process}/status", "VmRSS")
        figures["proportional"] = _megabytes(f"/proc/{process}/smaps_rollup", "Pss")
        begin, before, servers = time.monotonic(), _processor_seconds(process), _processor_seconds(desktop.server)
        counted = measured_lines([counter, running.window, str(times.look)], desktop.env, quiet=True)
        took = time.monotonic() - begin
        figures["processor"] = 100 * (_processor_seconds(process) - before) / took
        figures["server"] = 100 * (_processor_seconds(desktop.server) - servers) / took
        figures["paints"] = counted["paints"]
        figures["rounds"] = float(running.rounds)
    return figures, running.lines

"""The demo's window beside the program that a user would start instead, and beside a window with nothing in it."""
import pathlib
import re
import shutil
import subprocess
import time

import side_by_side
from desktop import Desktop
from side_by_side import Subject, Times

_SAMPLING_TIME_FIELD = (214, 316)  # in the window


def _start_sampling(desktop: Desktop, window: str, seconds: str) -> None:
    """Connects, types the sampling time and starts."""
    x, y = _SAMPLING_TIME_FIELD
    desktop.tool("xdotool", "key", "F2")
    time.sleep(2)  # connecting sets the sampling time, and moves the focus
    desktop.tool("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")
    desktop.tool("xdotool", "key", "ctrl+a")
    desktop.tool("xdotool", "type", "--delay", "20", seconds)
    desktop.tool("xdotool", "key", "Return")


def _demo(build: pathlib.Path, name: str, seconds: str) -> Subject:
    return Subject(name, [str(build / "app/executables/vireon-demo")],
                   lambda desktop, window: _start_sampling(desktop, window, seconds))


def _press_run(desktop: Desktop, _window: str) -> None:
    time.sleep(0.1)  # a press in the same moment as the end of the former acquisition is lost
    desktop.tool("xdotool", "key", "space")


def _pulseview(name: str, device: str) -> Subject:
    """Its own settings are neither read nor kept; it looks for no other device."""
    return Subject(name, ["pulseview", "-c", "-D", "-d", device], _press_run, again_on="Acquisition took")


def _version() -> str:
    told = subprocess.run(["dpkg-query", "-W", "-f=${Version}", "pulseview"], check=False, capture_output=True,
                          text=True)
    return re.sub(r"[-+].*", "", told.stdout) or "of unknown version"


def measure(desktop: Desktop, build: pathlib.Path, quick: bool, groups: set[str]) -> dict[str, float | str]:
    """Starts and running, all in turn on one screen; adds "rival" to the groups where that program is installed."""
    bench = build / "bench"
    times = Times(2, 2, 2) if quick else Times()
    figures: dict[str, float | str] = {"starts": str(times.starts), "settle": f"{times.settle:g}",
                                       "look": f"{times.look:g}"}
    first_paint, paint_count = str(bench / "vireon_bench_first_paint"), str(bench / "vireon_bench_paint_count")
    demo = _demo(build, "demo", "0.04")
    empty = Subject("empty", [str(bench / "vireon_bench_empty_window")])
    rivals: list[Subject] = []
    if shutil.which("pulseview"):
        rivals = [_pulseview("rival", "demo"), _pulseview("rival2", "demo:analog_channels=2:logic_channels=0")]
        figures["version"] = _version()
    print("+ starts on X11", flush=True)
    figures |= side_by_side.start_times(desktop, [demo, *rivals[:1], empty], times.starts, first_paint)
    for subject in [demo, _demo(build, "demo60", "0.0167"), empty]:
        figures |= side_by_side.use(desktop, subject, times, paint_count)
    try:
        for subject in rivals:
            figures |= side_by_side.use(desktop, subject, times, paint_count)
        groups |= {"rival"} if rivals else set()
    except RuntimeError as failure:
        print("Nothing is compared:", failure)
    return figures

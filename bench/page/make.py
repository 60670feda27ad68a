"""make.py BUILD PAGE [--quick] [--usb FILE]: runs every benchmark of a build folder and writes the page of what was
measured. With --quick they run for a moment only, to prove that they do, and PAGE stays as it is. FILE holds what the
tests on the kernel's USB stack printed; without it their section stays as it stands in PAGE."""
import argparse
import datetime
import pathlib

import desktop
import machine
import programs
import rivals
import template

_HERE = pathlib.Path(__file__).parent
_USB_HEADING = "## On the kernel's USB stack"


class Bench:
    """All benchmarks of one build folder."""

    def __init__(self, build: pathlib.Path, quick: bool) -> None:
        self.build = build
        self.folder = build / "bench"
        self.quick = quick
        self.figures: dict[str, float | str] = {}
        self.groups: set[str] = set()

    def google(self, name: str, *options: str, env: dict[str, str] | None = None, prefix: str = "",
               repetitions: int = 3, numbers: bool = True) -> None:
        """Runs one that uses Google Benchmark."""
        command = [str(self.folder / f"vireon_bench_{name}"), *options]
        if self.quick:
            command.append("--benchmark_min_time=0.02")
        self.figures |= programs.google_benchmark(command, env or programs.offscreen(),
                                                  1 if self.quick else repetitions, prefix, numbers)

    def lines(self, *command: str) -> None:
        """Runs one that prints its figures."""
        quick = ["--quick"] if self.quick else []
        self.figures |= programs.measured_lines([*command, *quick], programs.offscreen())

    def run(self) -> None:
        """Runs those that need no screen."""
        self.google("core")
        self.google("workbook")
        self.google("window")
        self.lines(str(self.folder / "vireon_bench_serial"))
        self.lines(str(self.folder / "vireon_bench_paint_gap"))
        if programs.has_modules("xlwt", "xlrd"):
            self.lines("/usr/bin/python3", str(_HERE.parent / "workbook_versus.py"),
                       str(self.folder / "vireon_bench_workbook_file"))
            self.groups.add("xlwt")
        self.google("start")
        length = "/(1|10000)/" if self.quick else "/(4|1000000)/"
        self.google("live", f"--benchmark_filter={length}", repetitions=1, numbers=False)

    def run_on_screen(self) -> None:
        """Runs those that need one: the live window again, and the windows side by side."""
        if not desktop.can_start():
            print("No", " ".join(desktop.NEEDED), "here: nothing is measured on X11.")
            return
        with desktop.Desktop() as screen:
            self.google("live", f"--benchmark_filter=(60|AtOne).*/{1 if self.quick else 4}/", env=screen.env,
                        prefix="x11.", repetitions=1, numbers=False)
            self.figures |= rivals.measure(screen, self.build, self.quick, self.groups)
        self.groups.add("x11")

    def derive(self) -> None:
        """What the page tells in other words than the benchmarks do."""
        for prefix in ("", "x11."):
            clicks = self.figures.get(f"{prefix}framesAtOneMillisecond.slowest_click_ms")
            if clicks is not None:
                self.figures[f"{prefix}slowest_click"] = float(clicks) / 1000
        self.figures |= {"link_frames": 100.0, "link_exchange_percent": 0.01 / 100,
                         "frames": "10,000" if self.quick else "a million"}


def usb_section(former: str, printed: str) -> str:
    """The section anew from what the tests printed, or as it stands in the former page."""
    figures: dict[str, float | str] = dict(programs.measured_in(printed, "usb."))
    if not figures:
        at = former.find(_USB_HEADING)
        following = former.find("\n## ", at + 1)
        return former[at:following if following > 0 else None].rstrip() + "\n" if at >= 0 else ""
    figures["date"] = datetime.date.today().isoformat()
    return template.fill((_HERE / "usb.md.in").read_text(), figures, set())


def main() -> None:
    """Runs and writes."""
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("build", type=pathlib.Path)
    options.add_argument("page", type=pathlib.Path)
    options.add_argument("--quick", action="store_true")
    options.add_argument("--usb", type=pathlib.Path)
    given = options.parse_args()
    former = given.page.read_text() if given.page.exists() else ""
    # Before the long run: a figure that is missing is told of at once.
    usb = usb_section(former, given.usb.read_text() if given.usb else "")
    bench = Bench(given.build, given.quick)
    busy = machine.busy_cores()
    bench.figures |= machine.facts(given.build)
    bench.figures |= {"date": datetime.date.today().isoformat(), "busy": busy}
    if busy > 0.5:
        bench.groups.add("busy")
    bench.run()
    bench.run_on_screen()
    bench.derive()
    page = template.fill((_HERE / "performance.md.in").read_text(), bench.figures, bench.groups)
    if given.quick:
        print(page)
        return
    given.page.write_text(page + "\n" + usb)
    print("Written:", given.page)


if __name__ == "__main__":
    main()

"""How figures get into the page; run by bench/report before it measures."""
import math
import os
import pathlib
import tempfile
import unittest

import desktop
import machine
import make
import programs
import side_by_side
import template


class FilledTextTest(unittest.TestCase):
    """What template.fill makes of a text."""

    figures = {"dispatch": 0.0000061, "short": 0.01234, "slow": 0.2, "fast": 0.05, "machine": "two cores"}

    def filled(self, text: str, *groups: str) -> str:
        return template.fill(text, dict(self.figures), set(groups)).rstrip("\n")

    def test_a_figure_stands_in_its_unit_with_the_digits_that_count(self) -> None:
        self.assertEqual(self.filled("{dispatch as us}, {short as ms}, {slow as ms}"), "6.1 us, 12.3 ms, 200 ms")
        self.assertEqual(self.filled("{machine}"), "two cores")

    def test_two_figures_give_their_ratio(self) -> None:
        self.assertEqual(self.filled("{slow over fast as times}"), "4 times")

    def test_a_wish_that_is_kept_stands_alone(self) -> None:
        self.assertEqual(self.filled("{slow at most 200 ms}"), "at most 200 ms")
        self.assertEqual(self.filled("{slow over fast at least 4}"), "at least 4")

    def test_a_wish_that_is_missed_is_marked(self) -> None:
        self.assertEqual(self.filled("{slow at most 199 ms}"), "at most 199 ms: **missed**")
        self.assertEqual(self.filled("{fast at least 0.06 s}"), "at least 0.06 s: **missed**")

    def test_a_line_of_a_group_stays_only_where_that_was_measured(self) -> None:
        text = "?x11 {slow as s}\n?!x11 no screen"
        self.assertEqual(self.filled(text, "x11"), "0.20 s")
        self.assertEqual(self.filled(text), "no screen")

    def test_a_figure_that_nothing_measured_is_refused(self) -> None:
        for text in ("{other as ms}", "{slow over other as}", "{slow in parsecs}"):
            with self.assertRaises(template.UnknownName):
                self.filled(text)


class ReadFigureTest(unittest.TestCase):
    """What programs print, and what becomes of it."""

    def test_measured_lines_give_names_in_one_word_and_seconds(self) -> None:
        printed = "noise\nmeasured: the program's speed, side by side, 95.5 % of it\nmeasured: a wait 250.0 ms\n"
        self.assertEqual(programs.measured_in(printed, "usb."),
                         {"usb.the_program_s_speed_side_by_side": 95.5, "usb.a_wait": 0.25})

    def test_the_section_on_usb_stays_as_it_stands_without_a_run(self) -> None:
        former = "# Page\n\n## On the kernel's USB stack\n\nOld figures.\n\n## Last\n"
        self.assertEqual(make.usb_section(former, ""), "## On the kernel's USB stack\n\nOld figures.\n")
        self.assertEqual(make.usb_section("# Page\n", "skipped"), "")


class MachineTest(unittest.TestCase):
    """What the page says of the machine."""

    def test_what_all_processors_did_leaves_out_idling_and_waiting_for_the_disk(self) -> None:
        stat = "cpu  100 20 30 5000 700 4 5 6 90 80\ncpu0 1 2 3 4 5 6 7 8 9 10\n"
        self.assertEqual(machine.busy_ticks(stat), 165)


class FlakyDesktop(desktop.Desktop):
    """Its searches fail so many times; it has no screen."""

    def __init__(self, failures: float) -> None:
        self.failures = failures

    def tool(self, *command: str) -> str:
        if "search" not in command:
            return ""
        self.failures -= 1
        return "" if self.failures >= 0 else "17\n42\n"


class WindowTest(unittest.TestCase):
    """How a program's window is found."""

    def test_a_search_that_fails_is_made_again(self) -> None:
        self.assertEqual(FlakyDesktop(failures=3).window_of(1), "42")

    def test_a_program_that_shows_no_window_is_told_of(self) -> None:
        with self.assertRaises(RuntimeError):
            FlakyDesktop(failures=math.inf).window_of(1, patience=0.01)


class StillDesktop(desktop.Desktop):
    """A screen of which nothing but the window's number is known."""

    server = os.getpid()

    def __init__(self) -> None:
        self.env = dict(os.environ)

    def window_of(self, process: int, patience: float = 30) -> str:
        return "42"


class RunningProgramTest(unittest.TestCase):
    """How a program is measured whose waveforms should run."""

    def used(self, *paints: int) -> dict[str, float]:
        with tempfile.TemporaryDirectory() as folder:
            counter, told = pathlib.Path(folder) / "counter", pathlib.Path(folder) / "paints"
            counter.write_text(f"#!/bin/sh\necho measured: paints $(head -n 1 '{told}') paints\nsed -i 1d '{told}'\n")
            counter.chmod(0o755)
            told.write_text("".join(f"{count}\n" for count in paints))
            subject = side_by_side.Subject("demo", ["sleep", "60"], lambda desktop, window: None)
            return side_by_side.use(StillDesktop(), subject, side_by_side.Times(0, 0, 0), str(counter))

    def test_one_that_what_was_typed_reached_too_early_is_started_again(self) -> None:
        self.assertEqual(self.used(0, 0, 7)["demo.paints"], 7)

    def test_one_that_never_moves_is_told_of(self) -> None:
        with self.assertRaises(RuntimeError):
            self.used(0, 0, 0, 7)


if __name__ == "__main__":
    unittest.main()

"""A screen of its own for programs: an X server without hardware, and a window manager."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
from types import TracebackType

NEEDED = ("Xvfb", "openbox", "xdotool", "xprop")


def can_start() -> bool:
    """Whether everything that a desktop needs is installed."""
    return all(shutil.which(program) for program in NEEDED)


class Desktop:
    """Use as a context. Its programs have an empty home, no session bus and English texts."""

    def __init__(self) -> None:
        self.env: dict[str, str] = {}
        self._home = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self._processes: list[subprocess.Popen[bytes]] = []

    @property
    def server(self) -> int:
        """The X server's process id."""
        return self._processes[0].pid

    def __enter__(self) -> "Desktop":
        kept = ("PATH", "LD_LIBRARY_PATH", "LANG")
        self.env = {key: os.environ[key] for key in kept if key in os.environ}
        runtime = pathlib.Path(self._home.name) / "run"
        runtime.mkdir(mode=0o700)
        self.env |= {"HOME": self._home.name, "XDG_RUNTIME_DIR": str(runtime), "LC_ALL": "C.UTF-8",
                     "QT_QPA_PLATFORM": "xcb"}
        ours, servers = os.pipe()
        self._processes.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(servers), "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=(servers,), env=self.env, stderr=subprocess.DEVNULL))
        os.close(servers)
        with os.fdopen(ours) as told:
            number = told.readline().strip()
        if not number:
            raise RuntimeError("Xvfb does not start")
        self.env["DISPLAY"] = f":{number}"
        self._processes.append(subprocess.Popen(["openbox", "--sm-disable"], env=self.env,
                                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        patience = time.monotonic() + 20
        while "window id" not in self.tool("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"):
            if time.monotonic() > patience:
                raise RuntimeError("openbox does not start")
            time.sleep(0.05)
        return self

    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None,
                 trace: TracebackType | None) -> None:
        for process in reversed(self._processes):
            process.kill()
            process.wait()
        self._home.cleanup()

    def tool(self, *command: str) -> str:
        """What a program of the desktop prints; empty where it fails or hangs."""
        try:
            answer = subprocess.run(command, check=False, env=self.env, capture_output=True, text=True, timeout=30)
        except subprocess.TimeoutExpired:
            return ""
        return answer.stdout if answer.returncode == 0 else ""

    def window_of(self, process: int, patience: float = 30) -> str:
        """The visible window of a process, once it has one. Raises when it gets none within so many seconds."""
        end = time.monotonic() + patience
        found: list[str] = []
        while not found:
            if time.monotonic() > end:
                raise RuntimeError("a program shows no window")
            # The search fails when another window goes while it looks.
            found = self.tool("xdotool", "search", "--sync", "--onlyvisible", "--pid", str(process)).split()
        self.tool("xdotool", "windowactivate", "--sync", found[-1])
        return found[-1]

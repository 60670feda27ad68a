"""What a page of figures says of the machine: nothing that names it."""
import os
import pathlib
import re
import subprocess
import time


def _field(path: str, name: str) -> str:
    """The first value of a "name : value" line in a file of /proc; empty where there is none."""
    found = re.search(rf"^{name}\s*:\s*(.*)$", pathlib.Path(path).read_text(), re.M)
    return found[1].strip() if found else ""


def _first_line(*command: str) -> str:
    answer = subprocess.run(command, check=True, capture_output=True, text=True)
    return answer.stdout.splitlines()[0]


def _system() -> str:
    release = pathlib.Path("/etc/os-release").read_text()
    name = re.search(r'^PRETTY_NAME="?([^"\n]*)', release, re.M)
    kernel = ".".join(os.uname().release.split(".")[:2])
    return f"{name[1] if name else 'unknown'}, {os.uname().sysname} {kernel}"


def _compiler(command: str) -> str:
    """Its kind and version, without the path it is called by."""
    told = _first_line(command, "--version")
    kind = "clang" if "clang" in told else "GCC"
    return f"{kind} {re.findall(r'[0-9]+(?:[.][0-9]+)+', told)[-1]}"


def facts(build: str) -> dict[str, str]:
    """The processor, cores, memory, system and what the build folder was compiled with."""
    cache = (pathlib.Path(build) / "CMakeCache.txt").read_text()
    compiler = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.M)
    kind = re.search(r"^CMAKE_BUILD_TYPE:\w+=(.*)$", cache, re.M)
    virtual = " hypervisor " in f" {_field('/proc/cpuinfo', 'flags')} "
    kilobytes = int(_field("/proc/meminfo", "MemTotal").split()[0])
    cores = os.cpu_count() or 1
    return {
        "processor": _field("/proc/cpuinfo", "model name") or os.uname().machine,
        "cores": f"{cores} {'core' if cores == 1 else 'cores'}{', virtual' if virtual else ''}",
        "memory": f"{kilobytes / 1048576:.0f} GB",
        "system": _system(),
        "compiler": _compiler(compiler[1]) if compiler else "unknown",
        "build": kind[1] if kind else "unknown",
        "qt": "Qt " + _first_line("pkg-config", "--modversion", "Qt6Core"),
    }


def busy_ticks(stat: str) -> int:
    """The clock ticks that all processors spent on work, their host's other guests too; from /proc/stat's text."""
    user, nice, system, _idle, _wait, irq, softirq, steal = map(int, stat.splitlines()[0].split()[1:9])
    return user + nice + system + irq + softirq + steal


def busy_cores(seconds: float = 5) -> float:
    """How many cores other work keeps busy now; a load average would still count a build that has ended."""
    stat = pathlib.Path("/proc/stat")
    before = busy_ticks(stat.read_text())
    time.sleep(seconds)
    return (busy_ticks(stat.read_text()) - before) / os.sysconf("SC_CLK_TCK") / seconds

"""Keeps the table in docs/faults.md: one line a row of the runs, the other lines as they are."""

import datetime
import fcntl
import os
import platform
import re


def machine():
    """Processor, cores, memory and kernel, in words."""
    with open("/proc/cpuinfo") as file:
        model = re.search(r"^model name\s*: (.*)$", file.read(), re.M)
    with open("/proc/meminfo") as file:
        memory = int(re.search(r"^MemTotal:\s+(\d+)", file.read(), re.M).group(1)) / 1024 ** 2
    return f"{model.group(1).strip() if model else platform.machine()}, {os.cpu_count()} cores, {memory:.0f} GB, Linux {platform.release()}"


def line(row, seen):
    outcome = "held" if not seen.failures else f"{len(seen.failures)} complaints"
    day = datetime.date.today().isoformat()
    return (f"| `{row.name}` | {row.fault} | {row.bar} | {seen.runs} | {seen.worst} | {seen.leftovers} | {outcome} "
            f"| {seen.seconds:.0f} s, {day} |")


def write(page, row, seen):
    """Puts the line in the place of the row's earlier one, or at the table's end, and names the machine."""
    with open(page, "r+", encoding="utf-8") as file:
        fcntl.flock(file, fcntl.LOCK_EX)
        lines = file.read().splitlines()
        own = f"| `{row.name}` |"
        rows = [number for number, text in enumerate(lines) if text.startswith("| `")]
        at = next((number for number in rows if lines[number].startswith(own)), None)
        if at is not None:
            lines[at] = line(row, seen)
        else:
            after = rows[-1] if rows else next(number for number, text in enumerate(lines) if text.startswith("|---"))
            lines.insert(after + 1, line(row, seen))
        lines = [f"Machine: {machine()}." if text.startswith("Machine: ") else text for text in lines]
        file.seek(0)
        file.truncate()
        file.write("\n".join(lines) + "\n")

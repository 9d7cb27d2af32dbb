"""Runs a program under `measure` and keeps the best of several runs."""

import subprocess
from dataclasses import dataclass


@dataclass
class Result:
    seconds: float
    processor: float
    memory: int


def measured(measure, output, command, runs):
    """The fastest of `runs` runs, or the last lines of what the program said when it failed."""
    results = []
    for _ in range(runs):
        output.unlink(missing_ok=True)
        told = subprocess.run([measure, output, *command], capture_output=True, text=True, check=True)
        seconds, processor, memory, status = told.stdout.split()
        if status != "0" or not output.exists():
            return f"failed, status {status}: " + " ".join(told.stderr.strip().splitlines()[-2:])
        results.append(Result(float(seconds), float(processor), int(memory)))
    return min(results, key=lambda result: result.seconds)


def print_table(head, rows):
    """Rows of texts, the first two columns to the left, the others to the right."""
    widths = [max(len(row[i]) for row in [head, *rows]) for i in range(len(head))]
    for row in [head, ["-" * width for width in widths], *rows]:
        print("  ".join(cell.ljust(width) if i < 2 else cell.rjust(width)
                        for i, (cell, width) in enumerate(zip(row, widths))))

"""Runs a program under `measure`, and the form of the tables."""

import subprocess
from dataclasses import dataclass


@dataclass
class Result:
    seconds: float
    processor: float
    memory: int


def measured(measure, output, command, replaces=False):
    """One run, or the last lines of what the program said when it failed. A program that replaces its input finds it."""
    if not replaces:
        output.unlink(missing_ok=True)
    told = subprocess.run([measure, output, *command], capture_output=True, text=True, check=True)
    seconds, processor, memory, status = told.stdout.split()
    if status != "0" or not output.exists():
        return f"failed, status {status}: " + " ".join(told.stderr.strip().splitlines()[-2:])
    return Result(float(seconds), float(processor), int(memory))


def better(one, other):
    """The best of each figure of two runs; a failure of either stays."""
    if not isinstance(one, Result) or not isinstance(other, Result):
        return other if isinstance(one, Result) else one
    return Result(min(one.seconds, other.seconds), min(one.processor, other.processor), max(one.memory, other.memory))


def print_table(head, rows):
    """Rows of texts, the first two columns to the left, the others to the right."""
    widths = [max(len(row[i]) for row in [head, *rows]) for i in range(len(head))]
    for row in [head, ["-" * width for width in widths], *rows]:
        print("  ".join(cell.ljust(width) if i < 2 else cell.rjust(width)
                        for i, (cell, width) in enumerate(zip(row, widths))))

#!/usr/bin/env python3
"""The benchmark of the program: run.py BUILD [OPTIONS]

Seven tables, all figures from this one run. The first: drawings of several sizes, opened and saved, and with the height
of every attribute NAME set; beside it the same by other programs on the same file. The second: a pattern of counted copies.
The third: arrays of texts that follow the cursor. The fourth: columns of aligned texts.
The fifth: properties given to all texts of a drawing. The sixth: a property copy through all drawings of a project.
The seventh: tables of the options. Then those of the window (desktop_view.py), if it was built.
Times end when the result lies on the disk (see measure.cpp); the input is in the page cache. Files are in build/bench; a
folder in memory (--folder /dev/shm/bench) leaves a busy disk out of all of them.
"""

import argparse
import subprocess
import sys
from pathlib import Path

from align_column import column_rows
from count_up import count_up_rows
from drag_array import drag_rows
from measuring import Result, better, measured, print_table
from option_tables import option_rows
from project_copy import project_rows
from text_properties import property_rows

HERE = Path(__file__).resolve().parent
HEIGHT = "3"
HEAD = ["size", "program", "seconds", "MB/s", "to plain pass", "processor", "to plain pass", "memory/file"]


def options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path)
    parser.add_argument("--sizes", default="5,50,200", help="megabytes")
    parser.add_argument("--runs", type=int, default=3, help="the best counts; short ones get more, chance weighs more there")
    parser.add_argument("--ezdxf-up-to", type=float, default=50, help="megabytes; one run, it takes its time")
    parser.add_argument("--patterns", default="50,100,200", help="rows, and as many columns; over ten texts")
    parser.add_argument("--arrays", default="10,30,100", help="rows, and as many columns")
    parser.add_argument("--columns", default="1000,10000,100000", help="texts")
    parser.add_argument("--properties", default="1000,10000,100000", help="texts")
    parser.add_argument("--project", default="300x1", help="drawings of a project, each of so many megabytes")
    parser.add_argument("--tables", default="1000,10000,100000", help="rows")
    parser.add_argument("--folder", type=Path, default=HERE.parent / "build" / "bench")
    return parser.parse_args()


def programs(build, source, target):
    """Name, command, and whether it makes the edit."""
    kovra = [build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup"]
    edit = ["-c", "-KOVRA_ATTR_COPY", "-c", f"NAME /H {HEIGHT} /NSC"]
    return [
        ("plain pass", [build / "bin" / "plain_pass", source, target], False),
        ("cp", ["cp", source, target], False),
        ("kovra, open and save", kovra, False),
        ("kovra, edit and save", kovra + edit, True),
        ("dime, edit and save", [build / "bin" / "dime_edit", source, target, HEIGHT], True),
        ("ezdxf, edit and save", [sys.executable, HERE / "ezdxf_edit.py", source, target, HEIGHT], True),
    ]


def heights(build, drawing, *height):
    return subprocess.run([build / "bin" / "attribute_heights", drawing, *height], capture_output=True, text=True,
                          check=True).stdout


def is_right(build, source, target, edits):
    if edits:
        return heights(build, target) == heights(build, source, HEIGHT)
    return subprocess.run(["cmp", "-s", source, target]).returncode == 0


def measure_all(arguments, size, source, target):
    """Name -> result; the programs take turns, so that none has the quiet minute of the machine for itself."""
    build, results = arguments.build, {}
    for turn in range(arguments.runs * max(1, round(50 / size))):
        for name, command, edits in programs(build, source, target):
            slow = name.startswith("ezdxf")
            if slow and size > arguments.ezdxf_up_to:
                results[name] = "not run"
            if name in results and (slow or not isinstance(results[name], Result)):
                continue
            result = measured(build / "bin" / "measure", target, command)
            if turn == 0 and isinstance(result, Result) and not is_right(build, source, target, edits):
                result = "wrong result"
            results[name] = better(results.get(name, result), result)
    return results


def rows_of_size(arguments, size):
    source, target = arguments.folder / f"drawing-{size:g}.dxf", arguments.folder / "result.dxf"
    subprocess.run([sys.executable, "-B", HERE / "make_drawing.py", source, str(size)], check=True)
    megabytes = source.stat().st_size / 1e6
    results = measure_all(arguments, size, source, target)
    plain = results["plain pass"]
    for name, result in results.items():
        cells = [result, "", "", "", "", ""] if not isinstance(result, Result) else [
            f"{result.seconds:.3f}", f"{megabytes / result.seconds:.0f}", f"{result.seconds / plain.seconds:.2f}",
            f"{result.processor:.3f}", f"{result.processor / plain.processor:.2f}",
            f"{result.memory / 1e6 / megabytes:.2f}"]
        yield [f"{megabytes:.0f} MB", name, *cells]
    target.unlink(missing_ok=True)
    source.unlink()


def sizes_of(option):
    return [int(size) for size in option.split(",") if size]


def main():
    arguments = options()
    arguments.build = arguments.build.resolve()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    sizes = [float(size) for size in arguments.sizes.split(",") if size]
    print_table(HEAD, [row for size in sizes for row in rows_of_size(arguments, size)])
    print()
    print_table(*count_up_rows(arguments.build, arguments.folder, sizes_of(arguments.patterns)))
    print()
    print_table(*drag_rows(arguments.build, arguments.folder, sizes_of(arguments.arrays)))
    print()
    print_table(*column_rows(arguments.build, arguments.folder, sizes_of(arguments.columns)))
    print()
    print_table(*property_rows(arguments.build, arguments.folder, sizes_of(arguments.properties)))
    print()
    count, megabytes = arguments.project.split("x")
    print_table(*project_rows(arguments.build, arguments.folder, int(count), float(megabytes), arguments.runs))
    print()
    print_table(*option_rows(arguments.build, arguments.folder, sizes_of(arguments.tables)))
    if (arguments.build / "bin" / "desktop_view").exists():
        print(flush=True)
        subprocess.run([sys.executable, "-B", HERE / "desktop_view.py", arguments.build], check=True)


if __name__ == "__main__":
    main()

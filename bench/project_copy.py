"""The benchmark of a property copy through a project: one run of the dialog over all drawings; beside it a plain pass over
each of them, the program run for each, and ezdxf."""

import shutil
import subprocess
import sys
from pathlib import Path

from measuring import Result, better, measured

HERE = Path(__file__).resolve().parent
HEIGHT = "3"
HEAD = ["drawings", "program", "seconds", "to plain pass", "processor", "to plain pass", "memory, MB"]
DIALOG = ["KOVRA_ATTR_COPY", "@check 1973 on", "@type 1931 NAME", "@check 1968 on", f"@type 1979 {HEIGHT}",
          "@check 2014 off", "@choose 2013 #3", "@click 1"]


def make_project(folder, count, megabytes):
    """A folder of equal drawings; a copy of the first one beside it, to begin each run with."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    source = folder.parent / "project-drawing.dxf"
    subprocess.run([sys.executable, "-B", HERE / "make_drawing.py", source, str(megabytes)], check=True)
    drawings = [folder / f"sheet-{i:03}.dxf" for i in range(1, count + 1)]
    listed = "".join(f"{i}={drawing.name}\n" for i, drawing in enumerate(drawings, 1))
    (folder / "project.ini").write_text(f"[Project]\nDataVersion=12.0\n[Drawings]\n{listed}")
    (folder / "copy.kovra").write_text("\n".join(DIALOG))
    return source, drawings


def programs(build, folder, drawings):
    """Name, command, and whether it makes the edit."""
    kovra = [build / "bin" / "kovra", "--quiet", "--no-backup", "--state", folder / "state.db", "--language", "en"]
    each = 'for drawing in "$@"; do "$0" "$drawing" --save --quiet --no-backup -c -KOVRA_ATTR_COPY -c "NAME /H 3 /NSC" || exit 1; done'
    return [
        ("plain pass, flushed", [build / "bin" / "plain_pass", "--replace", *drawings], False),
        ("kovra, one dialog", [*kovra, "-p", folder, "-s", folder / "copy.kovra"], True),
        ("kovra, a loop of runs", ["sh", "-c", each, build / "bin" / "kovra", *drawings], True),
        ("ezdxf, one run", [sys.executable, HERE / "ezdxf_edit.py", "--replace", HEIGHT, *drawings], True),
    ]


def heights(build, drawing, *height):
    return subprocess.run([build / "bin" / "attribute_heights", drawing, *height], capture_output=True, text=True,
                          check=True).stdout


def run_one(build, source, drawings, command, edits):
    for drawing in drawings:
        shutil.copyfile(source, drawing)
    subprocess.run(["sync"], check=True)
    result = measured(build / "bin" / "measure", drawings[0], command, replaces=True)
    wanted = heights(build, source, *([HEIGHT] if edits else []))
    wrong = [drawing for drawing in drawings if heights(build, drawing) != wanted]
    return f"wrong result in {len(wrong)}" if isinstance(result, Result) and wrong else result


def project_rows(build, folder, count, megabytes, turns):
    """The head of the table and its rows."""
    project = folder / "project"
    source, drawings = make_project(project, count, megabytes)
    results = {}
    for turn in range(turns):
        for name, command, edits in programs(build, project, drawings):
            if turn > 0 and name.startswith("ezdxf"):
                continue
            result = run_one(build, source, drawings, command, edits)
            results[name] = better(results.get(name, result), result)
    plain = results["plain pass, flushed"]
    rows = []
    for name, result in results.items():
        cells = [result, "", "", "", ""] if not isinstance(result, Result) else [
            f"{result.seconds:.2f}", f"{result.seconds / plain.seconds:.2f}", f"{result.processor:.2f}",
            f"{result.processor / plain.processor:.2f}", f"{result.memory / 1e6:.0f}"]
        rows.append([f"{count} of {megabytes:g} MB", name, *cells])
    shutil.rmtree(project)
    source.unlink()
    return HEAD, rows

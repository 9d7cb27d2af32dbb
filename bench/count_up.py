"""The benchmark of counted copies: a pattern of rows and columns over ten texts, by the program and by ezdxf's copies."""

import sys
from pathlib import Path

from measuring import Result, measured

HERE = Path(__file__).resolve().parent
TEXTS = 10
ROW_HEIGHT, COLUMN_WIDTH = 5, 400
HEAD = ["pattern", "program", "seconds", "copies/s", "to ezdxf", "processor", "to ezdxf", "bytes a copy"]


def make_source(path):
    sys.path.insert(0, str(HERE.parent / "tools"))
    from dxf_writer import Drawing, text
    drawing = Drawing("AC1015", "ANSI_1252", 1.0, (420.0, 297.0))
    drawing.add(*(text("0", 40 * i, 0, f"X{1000 * i + 1:06d}") for i in range(TEXTS)))
    drawing.save(path)


def script(side):
    return f"""@preselect all
KOVRA_TEXT_COUNTUP
@click 1975
@click 1955
@type 1932 {side}
@type 1933 {ROW_HEIGHT}
@type 1934 {side}
@type 1935 {COLUMN_WIDTH}
@click 1
"""


def texts_of(path):
    """Value and place of every text, sorted."""
    lines = path.read_bytes().decode("latin-1").splitlines()
    found, kind, groups = [], None, {}
    for code, value in zip(map(str.strip, lines[::2]), lines[1::2]):
        if code == "0":
            if kind == "TEXT":
                found.append((groups["1"], round(float(groups["10"]), 6), round(float(groups["20"]), 6)))
            kind, groups = value.strip(), {}
        else:
            groups.setdefault(code, value)
    return sorted(found)


def expected_texts(side):
    return sorted((f"X{1000 * i + 1 + c * side + r:06d}", 40.0 * i + c * COLUMN_WIDTH, -float(r * ROW_HEIGHT) + 0.0)
                  for i in range(TEXTS) for c in range(side) for r in range(side))


def run_one(build, folder, side, name):
    source, target, state = folder / "texts.dxf", folder / "copies.dxf", folder / "state.db"
    make_source(source)
    (folder / "copies.kovra").write_text(script(side))
    state.unlink(missing_ok=True)
    if name == "kovra":
        command = [build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state,
                   "-p", HERE.parent / "examples" / "panel", "-s", folder / "copies.kovra"]
    else:
        command = [sys.executable, HERE / "ezdxf_copies.py", source, target, str(side), str(ROW_HEIGHT), str(COLUMN_WIDTH)]
    result = measured(build / "bin" / "measure", target, command)
    if isinstance(result, Result) and texts_of(target) != expected_texts(side):
        return "wrong result"
    return result


def cells_of(result, other, copies):
    """The last column falls towards what one copy takes, as the program itself weighs less and less."""
    if not isinstance(result, Result):
        return [result] + [""] * (len(HEAD) - 3)
    faster = ["", ""] if not isinstance(other, Result) else [
        f"{other.seconds / result.seconds:.1f}", f"{other.processor / result.processor:.1f}"]
    return [f"{result.seconds:.2f}", f"{copies / result.seconds:.0f}", faster[0], f"{result.processor:.2f}", faster[1],
            f"{result.memory / copies:.0f}"]


def count_up_rows(build, folder, sides):
    """The head of the table and its rows."""
    rows = []
    for side in sides:
        copies = TEXTS * (side * side - 1)
        other = run_one(build, folder, side, "ezdxf, copy")
        for name, result in (("kovra", run_one(build, folder, side, "kovra")), ("ezdxf, copy", other)):
            rows.append([f"{side} x {side} x {TEXTS}", name, *cells_of(result, other, copies)])
    return HEAD, rows

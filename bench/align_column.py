"""The benchmark of aligned texts: what the align command takes from OK to the first update of the drag, for one update, and to make a
column; beside it the same column by ezdxf."""

import sys
from pathlib import Path

from measuring import Result, measured

HERE = Path(__file__).resolve().parent
FRAME = 16  # milliseconds between two pictures of a screen
UPDATES = 50
PITCH = 4
HEAD = ["texts", "alignment", "OK to first, ms", "an update, ms", "to a frame", "column, s", "ezdxf, s", "memory, MB"]
ALIGNMENTS = {"left": (0, 0), "middle center": (1, 2)}


def make_source(path, count, mode):
    """Rows of a hundred texts of three heights."""
    sys.path.insert(0, str(HERE.parent / "tools"))
    from dxf_writer import Drawing, text
    drawing = Drawing("AC1015", "ANSI_1252", 1.0, (4000.0, 4000.0))
    drawing.add(*(text("0", i % 100 * 40, i // 100 * -8, f"X{i:05}", 2 + i % 3 * 0.5, mode=mode) for i in range(count)))
    drawing.save(path)


def script(moves, end):
    """The dialog is filled and cancelled, or the column is moved about and put down."""
    lines = ["@preselect all", "KOVRA_TEXT_ALIGN", "@click 4656", f"@type 4654 {PITCH}", "@click 4658"]
    if not moves:
        return "\n".join([*lines, "@click 2"])
    return "\n".join([*lines, "@click 1", *(f"@move {i + 1},{i % 7}" for i in range(moves)), end])


def run_one(build, folder, source, moves, end="@esc"):
    target, state = folder / "aligned.dxf", folder / "state.db"
    (folder / "align.kovra").write_text(script(moves, end))
    state.unlink(missing_ok=True)
    return measured(build / "bin" / "measure", target, [
        build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state,
        "--language", "en", "-s", folder / "align.kovra"])


def ezdxf_one(build, folder, source):
    target = folder / "aligned-ezdxf.dxf"
    return measured(build / "bin" / "measure", target, [
        sys.executable, HERE / "ezdxf_column.py", source, target, str(PITCH)])


def column_rows(build, folder, counts):
    """The head of the table and its rows; processor time, which other programs disturb less."""
    rows = []
    for count in counts:
        for name, mode in ALIGNMENTS.items():
            source = folder / "column.dxf"
            make_source(source, count, mode)
            runs = [*(run_one(build, folder, source, moves) for moves in (0, 1, 1 + UPDATES)),
                    run_one(build, folder, source, 1, "@point 0,0"), ezdxf_one(build, folder, source)]
            cells = [run for run in runs if not isinstance(run, Result)][:1]
            if not cells:
                idle, first, last = (1000 * run.processor for run in runs[:3])
                update = (last - first) / UPDATES
                cells = [f"{first - idle:.0f}", f"{update:.2f}", f"{update / FRAME:.2f}", f"{runs[3].processor:.2f}",
                         f"{runs[4].processor:.2f}", f"{runs[2].memory / 1e6:.0f}"]
            rows.append([str(count), name, *cells, *[""] * (len(HEAD) - 2 - len(cells))])
    return HEAD, rows

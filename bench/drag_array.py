"""The benchmark of dragged arrays: what the text dialog takes from OK to the first update of the drag, and for one update."""

from pathlib import Path

from count_up import make_source
from measuring import Result, measured

HERE = Path(__file__).resolve().parent
FRAME = 16  # milliseconds between two pictures of a screen
UPDATES = 200
HEAD = ["array", "justification", "OK to first, ms", "an update, ms", "to a frame", "memory, MB"]


def script(side, justification, moves):
    """Without moves the dialog is only filled."""
    lines = ["KOVRA_TEXT", "@click 1976", "@click 1962", "@type 1931 X001", f"@type 1938 {side}", "@type 1939 5",
             f"@type 1940 {side}", "@type 1941 40", f"@choose 1993 #{justification}"]
    if moves:
        lines += ["@click 1", *(f"@move {i + 1},{i % 7}" for i in range(moves)), "@esc"]
    return "\n".join(lines) + "\n"


def run_one(build, folder, side, justification, moves):
    source, target, state = folder / "texts.dxf", folder / "dragged.dxf", folder / "state.db"
    make_source(source)
    (folder / "drag.kovra").write_text(script(side, justification, moves))
    state.unlink(missing_ok=True)
    return measured(build / "bin" / "measure", target, [
        build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state,
        "-p", HERE.parent / "examples" / "panel", "-s", folder / "drag.kovra"])


def drag_rows(build, folder, sides):
    """The head of the table and its rows; processor time, which other programs disturb less."""
    rows = []
    for side in sides:
        for name, justification in (("left", 0), ("middle center", 8)):
            runs = [run_one(build, folder, side, justification, moves) for moves in (0, 1, 1 + UPDATES)]
            cells = [run for run in runs if not isinstance(run, Result)][:1]
            if not cells:
                idle, first, last = (1000 * run.processor for run in runs)
                update = (last - first) / UPDATES
                cells = [f"{first - idle:.0f}", f"{update:.2f}", f"{update / FRAME:.2f}", f"{runs[-1].memory / 1e6:.0f}"]
            rows.append([f"{side} x {side}", name, *cells, *[""] * (len(HEAD) - 2 - len(cells))])
    return HEAD, rows

"""The benchmark of text property sets: height, layer and alignment given to all texts of a drawing, and the time until the dialog
shows; beside it the same changes by ezdxf."""

import sys
from pathlib import Path

from measuring import Result, measured

HERE = Path(__file__).resolve().parent
HEIGHT, LAYER = 3, "NOTES"
MIDDLE_CENTER = 8  # row of the alignments
HEAD = ["texts", "alignment", "open and save, s", "dialog, s", "properties, s", "a text, us", "ezdxf, s", "to ezdxf", "memory, MB"]
ALIGNMENTS = {"left": (0, 0), "top right": (2, 3)}
SHOWN = ["KOVRA_TEXT_EDITPROP", "@click 2"]
CHANGED = ["KOVRA_TEXT_EDITPROP", "@check 1967 on", f"@choose 1978 {LAYER}", "@check 1968 on", f"@type 1932 {HEIGHT}",
           "@check 1971 on", f"@choose 1982 #{MIDDLE_CENTER}", "@click 1", "@select all", "@enter", "@enter"]


def make_source(path, count, mode):
    sys.path.insert(0, str(HERE.parent / "tools"))
    from dxf_writer import Drawing, text
    drawing = Drawing("AC1015", "ANSI_1252", 1.0, (4000.0, 4000.0))
    drawing.layer(LAYER, 3)
    drawing.add(*(text("0", i % 100 * 40, i // 100 * -8, f"X{i:05}", 2, mode=mode) for i in range(count)))
    drawing.save(path)


def run_one(build, folder, source, lines):
    target, state = folder / "properties.dxf", folder / "state.db"
    (folder / "properties.kovra").write_text("\n".join(lines))
    state.unlink(missing_ok=True)
    return measured(build / "bin" / "measure", target, [
        build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state,
        "--language", "en", "-s", folder / "properties.kovra"])


def ezdxf_one(build, folder, source):
    target = folder / "properties-ezdxf.dxf"
    return measured(build / "bin" / "measure", target, [
        sys.executable, HERE / "ezdxf_properties.py", source, target, LAYER, str(HEIGHT)])


def property_rows(build, folder, counts):
    """The head of the table and its rows; processor time, which other programs disturb less."""
    rows = []
    for count in counts:
        for name, mode in ALIGNMENTS.items():
            source = folder / "properties-source.dxf"
            make_source(source, count, mode)
            runs = [*(run_one(build, folder, source, lines) for lines in ([], SHOWN, CHANGED)), ezdxf_one(build, folder, source)]
            cells = [run for run in runs if not isinstance(run, Result)][:1]
            if not cells:
                idle, shown, changed, ezdxf = (run.processor for run in runs)
                cells = [f"{idle:.2f}", f"{shown - idle:.2f}", f"{changed - shown:.2f}", f"{1e6 * (changed - shown) / count:.1f}",
                         f"{ezdxf:.2f}", f"{ezdxf / changed:.1f}", f"{runs[2].memory / 1e6:.0f}"]
            rows.append([str(count), name, *cells, *[""] * (len(HEAD) - 2 - len(cells))])
    return HEAD, rows

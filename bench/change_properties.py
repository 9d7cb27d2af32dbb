"""The benchmark of the change-properties command: the first showing of its dialog, and height, layer and alignment of all texts changed;
beside it the same change by ezdxf."""

import sys

from align_column import HERE, make_source
from measuring import Result, measured

HEAD = ["texts", "alignment", "open, save, s", "dialog, s", "change, s", "for a text, us", "ezdxf, s", "ezdxf to kovra", "memory, MB"]
LAYER = "CMNT"
HEIGHT = "3.5"
CANCEL = ["@click 2"]
CHANGE = ["@check 1967 on", f"@type 1978 {LAYER}", "@check 1969 on", f"@type 1980 {HEIGHT}", "@check 1972 on",
          "@choose 1983 \"Middle center\"", "@click 1"]


def run_one(build, folder, source, lines):
    target, state, project = folder / "changed.dxf", folder / "state.db", folder / "project"
    project.mkdir(exist_ok=True)
    (project / "project.ini").write_text("[Project]\nDataVersion=12.0\n")
    (folder / "change.kovra").write_text("\n".join(lines))
    state.unlink(missing_ok=True)
    return measured(build / "bin" / "measure", target, [
        build / "bin" / "kovra", source, "-o", target, "--quiet", "--no-backup", "--state", state, "--project", project,
        "--language", "en", "-s", folder / "change.kovra"])


def ezdxf_one(build, folder, source):
    target = folder / "changed-ezdxf.dxf"
    return measured(build / "bin" / "measure", target, [
        sys.executable, HERE / "ezdxf_properties.py", source, target, LAYER, HEIGHT])


def property_rows(build, folder, counts):
    """The head of the table and its rows; processor time, which other programs disturb less."""
    start, rows = ["@preselect all", "KOVRA_TEXT_PROPERTIES"], []
    for count in counts:
        for name, mode in {"left": (0, 0), "top right": (2, 3)}.items():
            source = folder / "properties.dxf"
            make_source(source, count, mode)
            runs = [*(run_one(build, folder, source, lines) for lines in ([], start + CANCEL, start + CHANGE)),
                    ezdxf_one(build, folder, source)]
            cells = [run for run in runs if not isinstance(run, Result)][:1]
            if not cells:
                plain, shown, changed, other = (run.processor for run in runs)
                cells = [f"{plain:.2f}", f"{shown - plain:.2f}", f"{changed - shown:.2f}",
                         f"{1e6 * (changed - shown) / count:.1f}", f"{other:.2f}", f"{other / changed:.1f}",
                         f"{runs[2].memory / 1e6:.0f}"]
            rows.append([str(count), name, *cells, *[""] * (len(HEAD) - 2 - len(cells))])
    return HEAD, rows

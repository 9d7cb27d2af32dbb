#!/usr/bin/env python3
"""The include table check finds what breaks the table, and only that."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check_includes.py"

CASES = [
    # file, its include line, may it stand
    ("platform/dxf/a.cpp", '#include "platform/dxf/b.h"', True),
    ("platform/dxf/a.cpp", '#include "platform/win/b.h"', False),
    ("platform/win/a.cpp", '#include "platform/dxf/b.h"', False),
    ("platform/arx/a.cpp", '#include "platform/win/b.h"', True),
    ("platform/arx/a.cpp", '#include "platform/mfc/b.h"', False),
    ("platform/arx/a.cpp", '#include "host/b.h"', False),
    ("module/frame/a.cpp", '#include "platform/arx/b.h"', False),
    ("module/frame/seam.h", '#include "platform/arx/b.h"', True),
    ("module/propcopy/a.cpp", '#include "module/drawing/b.h"', True),
    ("module/drawing/a.cpp", '#include "module/propcopy/b.h"', False),
    ("module/countup/a.cpp", "#include <unistd.h>", False),
    ("module/countup/a.cpp", "#include <vector>", True),
    ("companions/a.cpp", '#include "module/frame/gates.h"', False),
    ("platform/win/base/a.cpp", "#include <sqlite3.h>", True),
    ("host/a.cpp", '#include "module/frame/commands.h"', False),
    ("host/a.cpp", "#include <nlohmann/json.hpp>", True),
    ("host/a.cpp", "#include <cairo.h>", False),
    ("host/picture/a.cpp", "#include <cairo.h>", True),
    ("host/picture/a.cpp", '#include "host/b.h"', False),
    ("platform/arx/a.cpp", "#include <nlohmann/json.hpp>", False),
    ("host/a.cpp", '#include "platform/arx/missing.h"', False),
    # rooms
    ("platform/arx/entities/a.cpp", '#include "platform/arx/database/b.h"', True),
    ("platform/arx/database/a.cpp", '#include "platform/arx/entities/b.h"', False),
    ("platform/arx/editor/picks/a.cpp", '#include "platform/arx/database/b.h"', True),
    ("platform/arx/database/a.cpp", '#include "platform/arx/editor/b.h"', False),
    ("platform/arx/editor/picks/a.cpp", '#include "platform/arx/editor/b.h"', True),
    ("platform/arx/editor/a.h", '#include "platform/arx/editor/picks/b.h"', False),
    ("host/main.cpp", '#include "host/lines/b.h"', True),
    ("host/lines/a.cpp", '#include "host/terminal/b.h"', False),
]


class CheckIncludes(unittest.TestCase):
    def test_table(self):
        for source, line, fine in CASES:
            with self.subTest(source=source, line=line), tempfile.TemporaryDirectory() as folder:
                root = Path(folder)
                for header in ("platform/dxf/b.h", "platform/win/b.h", "platform/mfc/b.h",
                               "platform/arx/b.h", "module/drawing/b.h", "module/propcopy/b.h",
                               "module/frame/gates.h", "module/frame/commands.h", "host/b.h",
                               "platform/arx/database/b.h", "platform/arx/entities/b.h",
                               "platform/arx/editor/b.h", "platform/arx/editor/picks/b.h",
                               "host/lines/b.h", "host/terminal/b.h"):
                    (root / header).parent.mkdir(parents=True, exist_ok=True)
                    (root / header).touch()
                (root / source).parent.mkdir(parents=True, exist_ok=True)
                (root / source).write_text(line + "\n", "utf-8")
                run = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True)
                self.assertEqual(run.returncode, 0 if fine else 1, run.stdout)
                self.assertEqual(source in run.stdout, not fine)


if __name__ == "__main__":
    unittest.main()

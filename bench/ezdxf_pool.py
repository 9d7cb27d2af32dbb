"""The benchmark's edit with ezdxf in a pool of processes: ezdxf_pool.py JOBS HEIGHT FOLDER"""

import sys
from multiprocessing import Pool
from pathlib import Path

from ezdxf_edit import edit


def replace(job):
    edit(*job)


def main():
    jobs, height, folder = int(sys.argv[1]), float(sys.argv[2]), Path(sys.argv[3])
    with Pool(jobs) as pool:
        for _ in pool.imap_unordered(replace, [(file, file, height) for file in sorted(folder.glob("*.dxf"))], 16):
            pass


if __name__ == "__main__":
    main()

"""Looks for libraries that every program would load with ours, though few need them.

usage: linked_libraries.py OBJDUMP LIBRARY NAME ...

No library that LIBRARY is linked to may have NAME in its own.
"""

import re
import subprocess
import sys

objdump, library, *unwanted = sys.argv[1:]
text = subprocess.run([objdump, "-p", library], check=True, capture_output=True, text=True).stdout
linked = re.findall(r"(?:NEEDED|DLL Name:)\s+(\S+)", text)
if not any("Qt6Core" in name for name in linked):
    sys.exit(f"what {library} is linked to is not told: {linked}")
faults = [name for name in linked for part in unwanted if part in name]
sys.exit(f"linked all the same: {' '.join(faults)}" if faults else 0)

"""Lays out the preference files of a workstation that has seen three earlier releases.

usage: make_preferences.py DIRECTORY

Below DIRECTORY: "user" with one file per release, "machine" with the file of the computer, and
"halcyra", the installation, with its product directories and the file for everybody who uses it.
"""

import pathlib
import sys
from xml.sax.saxutils import escape

COLOURS = ["black", "white", "grey", "red", "orange", "yellow", "green", "teal", "cyan", "blue",
           "purple", "magenta"]
ELEMENTS = """
H He Li Be B C N O F Ne Na Mg Al Si P S Cl Ar K Ca Sc Ti V Cr Mn Fe Co Ni Cu Zn Ga Ge As Se Br Kr
Rb Sr Y Zr Nb Mo Tc Ru Rh Pd Ag Cd In Sn Sb Te I Xe Cs Ba La Ce Pr Nd Pm Sm Eu Gd Tb Dy Ho Er Tm Yb
Lu Hf Ta W Re Os Ir Pt Au Hg Tl Pb Bi Po At Rn Fr Ra Ac Th Pa U Np Pu Am Cm Bk Cf Es Fm Md No Lr
""".split()
PANELS = ["Projects", "Structures", "Sequences", "Surfaces", "Plots", "Jobs", "Log", "Scripts"]
PROJECTS = ["Zeolith Studie 2024", "Données d'été", "Wärmeleitung in Öl", "Σύνθεση β", "蛋白质 折叠",
            "Ligands <draft> & notes", "benzene", "membrane 300 K"]
DIALOGS = ["export", "import", "minimize", "align", "measure", "colour_by", "surface", "movie",
           "job_monitor", "script_editor"]


class File:
    """Preferences by full key, as the file holds them: "a/b" or, for one platform, "a/b:os=linux"."""

    def __init__(self):
        self.records = {}

    def set(self, key, value, comment=""):
        name = {bool: "bool", int: "int", float: "double", str: "QString"}[type(value)]
        text = str(value).lower() if isinstance(value, bool) else str(value)
        self.records[key] = (name, text, comment)

    def write(self, path):
        lines = ['<?xml version="1.0" encoding="UTF-8"?>', "<ApplicationSettings>"]
        groups = []
        for key, (name, text, comment) in sorted(self.records.items()):
            plain, _, platform = key.partition(":os=")
            *wanted, last = plain.split("/")
            shared = 0
            while wanted[:shared + 1] == groups[:shared + 1] and shared < len(wanted):
                shared += 1
            lines += [f"{indent(i)}</{groups[i - 1]}>" for i in range(len(groups), shared, -1)]
            lines += [f"{indent(i + 1)}<{wanted[i]}>" for i in range(shared, len(wanted))]
            groups = wanted
            if comment:
                lines.append(f"{indent(len(wanted) + 1)}<!--{comment}-->")
            attribute = f' os="{platform}"' if platform else ""
            lines.append(f'{indent(len(wanted) + 1)}<{last} dt="{name}"{attribute}>{escape(text)}'
                         f"</{last}>")
        lines += [f"{indent(i)}</{groups[i - 1]}>" for i in range(len(groups), 0, -1)]
        lines.append("</ApplicationSettings>\n")
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(lines), encoding="utf-8")


def indent(depth):
    return "    " * depth


def display(file):
    file.set("display/colors/background", "black", "Window background")
    for i, element in enumerate(ELEMENTS):
        file.set(f"display/colors/element/{element}", COLOURS[i * 5 % len(COLOURS)])
        file.set(f"display/radius/{element}", round(0.31 + 0.017 * i, 3))
    for chain, colour in zip("ABCDEFGH", COLOURS[3:]):
        file.set(f"display/colors/chain/{chain}", colour)
    for name, size in [("label", 11), ("axis", 10), ("title", 16), ("log", 9)]:
        file.set(f"display/font/{name}/family", "Noto Sans" if name != "log" else "Noto Sans Mono")
        file.set(f"display/font/{name}/size", size)
        file.set(f"display/font/{name}/bold", name == "title")
    file.set("display/window/width", 1280, "Pixels, without the frame")
    file.set("display/window/width:os=windows", 1600)
    file.set("display/window/width:os=linux", 1366)
    file.set("display/window/height", 900)
    file.set("display/antialias", True)
    file.set("display/gamma", 2.2)


def panels_and_dialogs(file):
    for i, panel in enumerate(PANELS):
        file.set(f"panel/{panel}/visible", i % 3 != 2)
        file.set(f"panel/{panel}/width", 220 + 20 * i)
        file.set(f"panel/{panel}/area", ["left", "right", "bottom"][i % 3])
    for i, dialog in enumerate(DIALOGS):
        file.set(f"dialog/{dialog}/x", 40 + 12 * i)
        file.set(f"dialog/{dialog}/y", 60 + 9 * i)
        file.set(f"dialog/{dialog}/keep_open", i % 2 == 0)
        file.set(f"dialog/{dialog}/last_format", ["text", "table", "picture", "archive"][i % 4])


def paths_and_tolerances(file):
    for i, project in enumerate(PROJECTS):
        file.set(f"recent/file_{i + 1}", f"/home/ada/Work in progress/{project}/model.dat")
    file.set("paths/scratch", "/scratch/ada", "Cleared every night")
    file.set("paths/scratch:os=windows", "D:\\Scratch files\\Ada")
    file.set("paths/library", "/home/ada/Bibliothèque de fragments")
    file.set("paths/reports", "/home/ada/Büro/Berichte & Pläne")
    for i, quantity in enumerate(["energy", "gradient", "displacement", "density", "angle_rad"]):
        file.set(f"tolerance/{quantity}/absolute", float(f"{(i + 1) * 2.5:.1f}e-{4 + i}"))
        file.set(f"tolerance/{quantity}/relative", float(f"1e-{6 + i}"))
        file.set(f"tolerance/{quantity}/steps", 50 * (i + 1))
    for i, queue in enumerate(["local", "short", "night", "gpu", "big_memory"]):
        file.set(f"jobs/{queue}/processors", 2 ** i)
        file.set(f"jobs/{queue}/memory_gb", 1.5 * 2 ** i)
        file.set(f"jobs/{queue}/notify", queue != "local", "By mail when a job ends")


def main(directory):
    user = directory / "user" / "Halcyra"
    usable = File()
    display(usable)
    panels_and_dialogs(usable)
    paths_and_tolerances(usable)
    usable.write(user / "2024-4" / "Atelio.xml")

    # The next release was started once and never saved anything; the one after it lost its file in
    # the middle of a copy.
    (user / "2025-1").mkdir()
    (user / "2025-1" / "Atelio.xml").touch()
    whole = (user / "2024-4" / "Atelio.xml").read_bytes()
    (user / "2025-2").mkdir()
    (user / "2025-2" / "Atelio.xml").write_bytes(whole[:len(whole) // 3])

    machine = File()
    machine.set("jobs/local/processors", 8, "This computer has 8")
    machine.set("jobs/local/scratch_gb", 240)
    machine.set("display/stereo/device", "shutter glasses", "In room 2.17")
    machine.write(directory / "machine" / "suitepref.xml")

    installation = File()
    installation.set("license/server", "27008@licences.example.org", "Ask the help desk")
    installation.set("paths/templates", "/group/Modelling/Vorlagen für alle")
    installation.set("display/stereo/device", "none")
    installation.set("display/antialias", False)
    installation.set("update/check", False, "The installation is looked after centrally")
    root = directory / "halcyra"
    installation.write(root / "config" / "suitepref.xml")
    for name in ["plindra-v7.1", "atelio-v13.6", "korvel-v14.9", "docs_data-v7.1", "notes"]:
        (root / name).mkdir()

    print(f"{len(usable.records)} keys of release 2024-4 (2025-1 is empty, 2025-2 damaged), "
          f"{len(machine.records)} for the machine, {len(installation.records)} for everybody")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))

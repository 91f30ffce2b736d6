"""Compares what the shared library exports with symbols.txt, and the C headers with both.

usage: exported_symbols.py [--update] [--nm NM] LIBRARY HEADER.h ...

LIBRARY is the shared object, or the import library of the DLL: both have the same list. A function
that a header declares must be exported.
"""

import argparse
import difflib
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent

# The list is there to be read.
SHORTER = [
    (r"\[abi:cxx11\]", ""),
    (r" >", ">"),
    (r"std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char>>",
     "std::string"),
    (r"std::vector<([^<>]+), std::allocator<\1>>", r"std::vector<\1>"),
    (r"std::map<std::string, ([^<>,]+), std::less<std::string>, "
     r"std::allocator<std::pair<std::string const, \1>>>", r"std::map<std::string, \1>"),
]


# The same types by other names: what 64 bits are called differs between the systems.
SHORTER_IN_DLL = [(r"\bunsigned long long\b", "unsigned long"), (r"\blong long\b", "long")]


def output(command, text=None):
    return subprocess.run(command, input=text, check=True, capture_output=True, text=True).stdout


def symbols_of(nm, library):
    """The names that a caller may link, as they are in the source."""
    if not library.endswith(".dll.a"):
        listing = output([nm, "-DC", "--defined-only", library])
        return re.findall(r"^[0-9a-f]+ +\w (.*)$", listing, re.M)
    # An import library has an address for each of them, and a jump for each function.
    listing = output([nm, "-g", "--defined-only", library])
    imported = re.findall(r"^[0-9a-f]+ +I __imp_(.*)$", listing, re.M)
    return output(re.sub(r"nm$", "c++filt", nm), "\n".join(imported)).splitlines()


def exported(nm, library):
    is_dll = library.endswith(".dll.a")
    names = set()
    for name in symbols_of(nm, library):
        for pattern, text in SHORTER + SHORTER_IN_DLL * is_dll:
            name = re.sub(pattern, text, name)
        names.add(name)
        if is_dll and name.startswith("typeinfo for "):  # which has the address of its own name
            names.add(name.replace("typeinfo for", "typeinfo name for"))
    return sorted(names)


def declared(header):
    text = re.sub(r"/\*.*?\*/|//[^\n]*|^ *#[^\n]*", "", pathlib.Path(header).read_text(),
                  flags=re.S | re.M)
    return re.findall(r"\bQZ_API\b[^;(]*?(\w+)\s*\(", text)


def differences(found, update):
    file = HERE / "symbols.txt"
    if update:
        file.write_text("".join(f"{line}\n" for line in found))
    listed = file.read_text().splitlines()
    return list(difflib.unified_diff(listed, found, file.name, "found", lineterm="", n=0))


def main(arguments):
    parser = argparse.ArgumentParser()
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--nm", default="nm")
    parser.add_argument("library")
    parser.add_argument("headers", nargs="+")
    given = parser.parse_args(arguments)
    symbols = exported(given.nm, given.library)
    missing = {name for header in given.headers for name in declared(header)} - set(symbols)

    faults = differences(symbols, given.update)
    if faults:
        faults.append(f"If that is how it should be: python3 {sys.argv[0]} --update "
                      + " ".join(arguments))
    faults += [f"declared, but not exported: {name}" for name in sorted(missing)]
    if faults:
        print("\n".join(faults))
    return bool(faults)


sys.exit(main(sys.argv[1:]))

"""Compares what the shared library exports with symbols.txt, and the C headers with both.

usage: exported_symbols.py [--update] LIBRARY HEADER.h ...

pending.txt names the functions that a header declares and that are not made yet.
"""

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


def exported(library):
    lines = subprocess.run(["nm", "-DC", "--defined-only", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    names = set()
    for line in lines:
        name = re.sub(r"^[0-9a-f]* +\w ", "", line)
        for pattern, text in SHORTER:
            name = re.sub(pattern, text, name)
        names.add(name)
    return sorted(names)


def declared(header):
    text = re.sub(r"/\*.*?\*/|//[^\n]*", "", pathlib.Path(header).read_text(), flags=re.S)
    return re.findall(r"\bQZ_API\b[^;(]*?(\w+)\s*\(", text)


def differences(list_name, found, update):
    file = HERE / list_name
    if update:
        file.write_text("".join(f"{line}\n" for line in found))
    listed = file.read_text().splitlines()
    return list(difflib.unified_diff(listed, found, list_name, "found", lineterm="", n=0))


def main(arguments):
    update = "--update" in arguments
    library, *headers = [a for a in arguments if a != "--update"]
    symbols = exported(library)
    functions = [name for header in headers for name in declared(header)]
    pending = sorted(set(functions) - set(symbols))

    faults = differences("symbols.txt", symbols, update)
    faults += differences("pending.txt", pending, update)
    if faults:
        print("\n".join(faults))
        print(f"If that is how it should be: python3 {sys.argv[0]} --update", *arguments)
    return bool(faults)


sys.exit(main(sys.argv[1:]))

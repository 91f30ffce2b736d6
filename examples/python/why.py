"""Tells why a preference of the workbench has the value it has, and who reported what meanwhile.

usage: why.py KEY [NEW_VALUE]
"""

import sys

import qzfileshared as qz


def parsed(text: str) -> qz.Value:
    """The value that a text spells: a whole number, a real one, or the text itself."""
    for kind in (int, float):
        try:
            return kind(text)
        except ValueError:
            pass
    return text


def main(arguments: list[str]) -> int:
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    key = arguments[0]
    with qz.capture_messages() as messages:
        try:
            with qz.Preferences(qz.Product.ATELIO) as preferences:
                if len(arguments) == 2:
                    preferences[key] = parsed(arguments[1])
                value = preferences[key]
        except qz.PreferenceError as error:
            print(error, *messages, sep="\n")
            return 1
    report = qz.explain(qz.Product.ATELIO, key)
    print(f"{key} = {value!r}, from the layer {report['winner']}")
    print(report["reason"])
    return 0


sys.exit(main(sys.argv[1:]))

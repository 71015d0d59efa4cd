#!/usr/bin/env python3
"""Lists the language keys the code looks up that a .lng file lacks.

Finds every LookupText call (and every small wrapper around it) whose section
and key are literal, adds the keys built at run time listed in
scripts/lng_dynamic_keys.txt, and prints those missing from the language file as ini lines holding the
French default, grouped by section, ready to be translated and pasted:

    scripts/lng_keys.py                 # checks Langues/English.lng
    scripts/lng_keys.py Langues/X.lng   # another language
    scripts/lng_keys.py --all           # every key, present or not

Exits 1 when keys are missing; the test suite runs it on Langues/English.lng.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SCANNED = ("lib", "app", "cli")
# name -> (section argument or literal section, default argument, key argument)
BUILT_IN = {"LookupText": (0, 1, 2), "FormCaption": (0, 1, 2), "LookupTextIn": (1, 2, 3)}
DEFINITION = re.compile(r'\b(\w+)\s*\(([^(){};]*)\)\s*(?:const\s*)?\{\s*return\s+(?:QString::fromStdString\()?(\w+)\s*\(')
ESCAPES = {"n": 10, "t": 9, "r": 13, "0": 0, "\\": 92, '"': 34, "'": 39, "a": 7, "b": 8, "f": 12, "v": 11, "?": 63}


def literal_value(text):
    """The bytes of an argument made of string literals only, else None."""
    out, i, n = bytearray(), 0, len(text)
    seen = False
    while i < n:
        while i < n and text[i].isspace():
            i += 1
        if i >= n:
            break
        if text.startswith("u8", i):
            i += 2
        if i >= n or text[i] != '"':
            return None
        i += 1
        while i < n and text[i] != '"':
            c = text[i]
            if c == "\\" and i + 1 < n:
                e = text[i + 1]
                if e == "x":
                    j = i + 2
                    while j < n and text[j] in "0123456789abcdefABCDEF":
                        j += 1
                    out.append(int(text[i + 2:j], 16) & 0xFF)
                    i = j
                    continue
                out.append(ESCAPES.get(e, ord(e)))
                i += 2
                continue
            out += c.encode("utf-8")
            i += 1
        i += 1
        seen = True
    return bytes(out).decode("utf-8", "replace") if seen else None


def call_arguments(source, start):
    """The arguments of the call whose '(' is at `start`, as source texts."""
    args, depth, i, begin = [], 0, start, start + 1
    while i < len(source):
        c = source[i]
        if c in "\"'":
            quote, i = c, i + 1
            while i < len(source) and source[i] != quote:
                i += 2 if source[i] == "\\" else 1
        elif c in "([{":
            depth += 1
        elif c in ")]}":
            depth -= 1
            if depth == 0:
                args.append(source[begin:i].strip())
                return args
        elif c == "," and depth == 1:
            args.append(source[begin:i].strip())
            begin = i + 1
        i += 1
    return args


def parameter_names(params):
    return [re.findall(r"\w+", p)[-1] if re.findall(r"\w+", p) else "" for p in params.split(",")]


def source_files():
    for top in SCANNED:
        for folder, _, files in os.walk(os.path.join(ROOT, top)):
            for name in sorted(files):
                if name.endswith((".cpp", ".h")):
                    path = os.path.join(folder, name)
                    with open(path, encoding="utf-8", errors="replace") as f:
                        yield path, f.read()


def find_wrappers(files, known):
    """Functions whose body is `return Known(...)` with the texts passed on."""
    global_wrappers, local = dict(known), {path: {} for path, _ in files}
    for _ in range(4):
        for path, text in files:
            scope = global_wrappers if path.endswith(".h") else local[path]
            for m in DEFINITION.finditer(text):
                name, params, callee = m.group(1), m.group(2), m.group(3)
                target = local[path].get(callee) or global_wrappers.get(callee)
                if not target or name in BUILT_IN:
                    continue
                names = parameter_names(params)
                args = call_arguments(text, m.end() - 1)
                if len(args) <= max(i for i in target if isinstance(i, int)):
                    continue
                mapped = []
                for slot in target:
                    if isinstance(slot, str):
                        mapped.append(slot)
                        continue
                    arg = args[slot]
                    value = literal_value(arg)
                    mapped.append(value if value is not None else (names.index(arg) if arg in names else None))
                if None not in mapped and not isinstance(mapped[1], str) and not isinstance(mapped[2], str):
                    scope[name] = tuple(mapped)
    return global_wrappers, local


class Keys(dict):
    """(section, key) -> French default, without regard to case as the ini
    reader; a key seen without a default takes the one it has elsewhere."""

    def setdefault(self, pair, default):
        folded = (pair[0].lower(), pair[1].lower())
        known = self.get(folded)
        if known is None or (not known[2] and default):
            self[folded] = (pair[0], pair[1], default or "")


def scan():
    """{(section, key) folded: (section, key, French default)} of every lookup."""
    files = list(source_files())
    global_wrappers, local = find_wrappers(files, BUILT_IN)
    keys = Keys()
    for path, text in files:
        functions = dict(global_wrappers)
        functions.update(local[path])
        pattern = re.compile(r"\b(" + "|".join(map(re.escape, functions)) + r")\s*\(")
        for m in pattern.finditer(text):
            slots = functions[m.group(1)]
            args = call_arguments(text, m.end() - 1)
            if len(args) <= max(i for i in slots if isinstance(i, int)):
                continue
            section = slots[0] if isinstance(slots[0], str) else literal_value(args[slots[0]])
            key = literal_value(args[slots[2]])
            if section is None or key is None:
                continue
            default = literal_value(args[slots[1]])
            keys.setdefault((section, key), default if default is not None else "")
    with open(os.path.join(ROOT, "scripts", "lng_dynamic_keys.txt"), encoding="utf-8") as f:
        for line in f:
            if line.strip() and not line.startswith("#"):
                section, key, default = (line.rstrip("\n").split("\t") + ["", ""])[:3]
                keys.setdefault((section, key), default)
    return keys


def read_lng(path):
    present, section = set(), None
    with open(path, encoding="utf-8-sig", errors="replace") as f:
        for line in f:
            line = line.strip()
            if line.startswith("[") and line.endswith("]"):
                section = line[1:-1].strip().lower()
            elif "=" in line and section is not None and not line.startswith(";"):
                present.add((section, line.split("=", 1)[0].strip().lower()))
    return present


def main(argv):
    show_all = "--all" in argv
    paths = [a for a in argv if not a.startswith("--")]
    lng = paths[0] if paths else os.path.join(ROOT, "Langues", "English.lng")
    keys = scan()
    present = read_lng(lng) if os.path.exists(lng) else set()
    missing = {k: v for k, v in keys.items() if show_all or k not in present}
    section = None
    for _, (sec, key, default) in sorted(missing.items()):
        if sec != section:
            print(("\n" if section is not None else "") + "[" + sec + "]")
            section = sec
        print(key + "=" + default.replace("\r\n", "\\r\\n").replace("\n", "\\n"))
    if not show_all:
        print(f"\n; {len(missing)} of {len(keys)} keys missing from {os.path.relpath(lng, ROOT)}", file=sys.stderr)
    return 1 if missing and not show_all else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

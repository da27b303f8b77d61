#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""make_noting_library.py HEADER...: prints a library in C that only notes how it is called."""

import re
import sys
from pathlib import Path

ENTRY = re.compile(r"^SONIMBRA_API (.+?)\s+SONIMBRA_CALL\s+(\w+)\(([^)]*)\);", re.M)
FORMATS = {  # of the argument's type: printf's, and what it prints
    "float": ("%g", "{}"),
    "const char*": ("%s", '{0} ? {0} : "null"'),
    "const sonimbra_vec3d*": ("%g %g %g", "{0}->x, {0}->y, {0}->z"),
}
OTHERS = ("%d", "(int)(intptr_t){}")
# Name and arguments of the last call, in each thread, as finalizers call too.
HEAD = """#include <sonimbra/sonimbra_c.h>
#include <stdio.h>
static _Thread_local char note[500];
static _Thread_local intptr_t result;
SONIMBRA_API void return_from_now_on(int32_t value) { result = value; }
SONIMBRA_API const char* last_call(void) { return note; }"""


def definition(entry):
    result, name, parameters = (" ".join(part.split()) for part in entry)
    typed = [p.rsplit(" ", 1) for p in parameters.split(", ") if p not in ("", "void")]
    formats = [(FORMATS.get(kind, OTHERS), argument) for kind, argument in typed]
    text = " ".join([name.replace("sonimbra_", "")] + [form for (form, _), _ in formats])
    values = "".join(", " + value.format(argument) for (_, value), argument in formats)
    end = "" if result == "void" else f" return ({result})result;"
    # Every wrapper begins with a grab.
    call = "" if name.endswith("_grab") else f'sprintf(note, "{text}"{values});'
    return f"{result} {name}({parameters}) {{ {call}{end} }}"


headers = "".join(Path(header).read_text() for header in sys.argv[1:])
print(HEAD, *map(definition, ENTRY.findall(headers)), sep="\n")

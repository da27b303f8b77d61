# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Compares the flat interface with the C++ interfaces, with C and with what the library exports."""

import ctypes
import os
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
INTERFACES = ROOT / "engine/include/sonimbra"
BINDING = ROOT / "binding/native"
HEADERS = sorted((BINDING / "include/sonimbra").glob("*.h"))

OBJECTS = dict(ISoundEngine="engine", IOfflineSoundEngine="engine", ISound="sound")
OBJECTS |= dict(ISoundSource="source", ISoundEffectControl="effects", IAudioRecorder="recorder")
OBJECTS |= dict(ISoundDeviceList="device_list")
COUNTING = {f"{n}_{d}" for n in ("engine", "sound", "source", "recorder") for d in ("grab", "drop")}

# What applications implement is a callback in the flat interface.
CALLBACKS = set("""IAudioRecorderReceiver IFileFactory IFileReader ISoundMixedOutputReceiver
                   ISoundStopEventReceiver""".split())
# Plug-ins are C++; no operation hands out the logger; the others are what COUNTING comes from.
EXCLUDED_INTERFACES = set("""IAudioStream IAudioStreamLoader ILogger IRefCounted
                             IVirtualRefCounted""".split())
EXCLUDED = {
    "engine_register_audio_stream_loader": "takes a decoder",
    "sound_get_sound_effect_control": "effects go through the sound",
    "recorder_start_recording": "stands behind the other start operations",
}
# Creation, the ends of what is not counted, and what has no operation of its own.
OWN = set("""get_version get_interface_version engine_create engine_create_offline recorder_create
             device_list_create device_list_create_recording device_list_drop
             sound_has_sound_effect_control source_copy_sample_data event_forwarder_create
             event_forwarder_destroy file_factory_create file_factory_grab file_factory_drop
             file_reader_create file_reader_drop""".split())
# Overloads by their first parameter; the one that takes a name has none.
SUFFIXES = {"ISoundSource*": "_source", "std::int32_t": "_at"}


def snake(name):
    return re.sub(r"(?<=[a-z])(?=[A-Z])|(?<=[A-Z0-9])(?=[A-Z][a-z])", "_", name).lower()


def operations(interface):
    # The entry points for what applications call.
    text = (INTERFACES / f"{interface}.h").read_text()
    text = re.sub(r"@name (For the engine|Reserved).*?@}", "", text, flags=re.S)
    text = re.sub(r"//.*", "", text)
    found = re.findall(r"virtual\s[^;(~]*?(\w+)\(([^;]*)\) = 0;", text)
    names = [name for name, _ in found]
    for operation, parameters in found:
        name = operation
        first = parameters.split(",")[0].rsplit(" ", 1)[0]
        suffix = SUFFIXES.get(first, "") if names.count(name) > 1 else ""
        if interface == "ISoundEffectControl":
            name = re.sub(r"SoundEffect|Effects", "", name)
        yield f"{OBJECTS[interface]}_{snake(name)}{suffix}", operation


def bound():
    # The operation behind each entry point.
    return dict(pair for interface in OBJECTS for pair in operations(interface))


def entry_points():
    text = re.sub(r"///.*", "", "".join(header.read_text() for header in HEADERS))
    pattern = r"SONIMBRA_API\s+([^;(]*?)\s*SONIMBRA_CALL\s+sonimbra_(\w+)\(([^;]*)\);"
    found = re.findall(pattern, text)
    return {name: (result, takes.split(",")) for result, name, takes in found}


def nothing(parameter):
    is_pointer = "*" in parameter or "sonimbra" in parameter
    return None if is_pointer else ctypes.c_float(0) if "float" in parameter else 0


class FlatInterface(unittest.TestCase):
    def test_nothing_is_forgotten(self):
        named = set(OBJECTS) | CALLBACKS | EXCLUDED_INTERFACES
        self.assertEqual({path.stem for path in INTERFACES.glob("I*.h")}, named)
        self.assertEqual(set(entry_points()), (set(bound()) | OWN | COUNTING) - set(EXCLUDED))

    def test_arguments_reach_their_operation_in_order(self):
        code = "".join(path.read_text() for path in BINDING.glob("*.cpp"))
        pattern = r"sonimbra_(\w+)\(([^{};]*)\) \{\s*(?:return |store\((\w+), )?(?:invoke|sourceFor)\("
        pattern += r"(?:[^;]*?)&\w+::(\w+)\)?([^;]*?)\)+;\s*\}"
        found = re.findall(pattern, code)
        self.assertGreater(len(found), 110)
        for name, takes, target, operation, passes in found:
            names = [parameter.split()[-1] for parameter in takes.split(",")]
            expected = [parameter for parameter in names[1:] if parameter != target]
            if name not in ("engine_set_listener_position", *COUNTING) and name in bound():
                with self.subTest(name):
                    self.assertEqual(operation, bound()[name])
                    self.assertEqual(re.findall(r"\w+", passes.replace("readOnly", "")), expected)

    def test_the_headers_are_c(self):
        options = "-x c -std=c99 -Wall -Wextra -pedantic -Werror -fsyntax-only -Iengine/include"
        command = [os.environ["SONIMBRA_CXX"], *options.split(), f"-I{BINDING}/include", "-"]
        for header in HEADERS:
            include = f"#include <sonimbra/{header.name}>\n"
            subprocess.run(command, cwd=ROOT, check=True, text=True, input=include)

    def test_the_library_exports_what_is_declared(self):
        library = os.environ["SONIMBRA_LIBRARY"]
        kind = "-p" if library.endswith(".dll") else "-T"
        command = [os.environ["SONIMBRA_OBJDUMP"], kind, library]
        output = subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE).stdout
        exported = re.findall(r"\ssonimbra_(\w+)$", output, re.M)
        self.assertEqual(set(exported), set(entry_points()))

    def test_the_library_takes_nothing_for_every_argument(self):
        library = ctypes.CDLL(os.environ["SONIMBRA_LIBRARY"])
        for name, (result, takes) in entry_points().items():
            function = getattr(library, f"sonimbra_{name}")  # which fails unless it is exported
            if re.match(r"get_|engine_create|device_list_create", name):
                continue
            with self.subTest(name):
                whole = ctypes.c_void_p if "*" in result else ctypes.c_int32
                function.restype = {"float": ctypes.c_float, "void": None}.get(result, whole)
                self.assertFalse(function(*map(nothing, takes)))


if __name__ == "__main__":
    unittest.main()

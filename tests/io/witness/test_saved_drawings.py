"""What an independent library makes of drawings that were edited and saved.

Arguments: the program edit_layers, the folder of samples, the folder of other programs' drawings (it may be absent).
"""

import ast
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

try:
    import ezdxf
    from ezdxf import recover
    from ezdxf.lldxf.tagger import ascii_tags_loader, binary_tags_loader
except ImportError:
    print("skipped: python3-ezdxf is not installed")
    sys.exit(77)

EDIT_LAYERS, SAMPLES, OTHERS = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
del sys.argv[1:4]

SENTINEL = bytes.fromhex("4175746F4341442042696E61727920445846")


def drawings():
    return sorted(SAMPLES.glob("*.dxf")) + sorted(OTHERS.glob("*.dxf"))


def edit(mode, source, target):
    """(new name, old name) of the renamed layer, or (None, None); None when the drawing is refused."""
    run = subprocess.run([EDIT_LAYERS, mode, str(source), str(target)], capture_output=True, text=True)
    if run.returncode == 1 and not target.exists():
        return None
    assert run.returncode == 0, run.stderr
    names = run.stdout.splitlines()
    return tuple(names) if names else (None, None)


def raw_tags(path):
    """Groups as the file has them: (code, bytes)."""
    data = path.read_bytes()
    if data.startswith(SENTINEL):
        return [(tag.code, repr(tag.value).encode()) for tag in binary_tags_loader(data)]
    lines = data.split(b"\n")
    return [(int(code), value.rstrip(b"\r")) for code, value in zip(lines[0::2], lines[1::2]) if code.strip()]


def read(path):
    """The document and its number of audit errors; None where the library cannot read the file."""
    try:
        document = ezdxf.readfile(path)
        return document, len(document.audit().errors)
    except Exception:  # it gives up in many ways; what it can recover takes it twice the time
        pass
    try:
        document, auditor = recover.readfile(path)
    except Exception:
        return None, 0
    return document, len(auditor.errors)


class Drawing:
    """One drawing, edited both ways; read once by the library."""

    def __init__(self, path, folder):
        self.path = path
        self.target = {mode: Path(folder) / f"{mode}-{path.name}" for mode in ("simple", "full")}
        self.names = {mode: edit(mode, path, target) for mode, target in self.target.items()}
        self.original, self.errors = read(path)
        self.saved = {mode: read(target) for mode, target in self.target.items() if self.names[mode]}

    def is_witnessed(self):
        return self.names["simple"] is not None and self.original is not None


class SavedDrawings(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.drawings = [Drawing(path, cls.folder.name) for path in drawings()]
        cls.witnessed = [drawing for drawing in cls.drawings if drawing.is_witnessed()]

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def for_each(self, check):
        self.assertTrue(self.witnessed)
        for drawing in self.witnessed:
            with self.subTest(drawing.path.name):
                check(drawing)

    def test_are_read_without_more_errors_than_before(self):
        def check(drawing):
            for saved, errors in drawing.saved.values():
                self.assertIsNotNone(saved, "the library read the original and not what was saved")
                self.assertLessEqual(errors, drawing.errors)

        self.for_each(check)

    def test_have_every_second_layer_frozen_and_one_renamed(self):
        def check(drawing):
            new, old = drawing.names["simple"]
            saved = {layer.dxf.name.lower(): layer for layer in drawing.saved["simple"][0].layers}
            if new:
                self.assertIn(new.lower(), saved)
                self.assertNotIn(old.lower(), saved)
            for index, name in enumerate(layer_names(drawing)):
                if name is None:
                    continue
                frozen = saved[(new if name == old else name).lower()].is_frozen()
                self.assertEqual(frozen, index % 2 == 1 or drawing.original.layers.get(name).is_frozen(), name)

        self.for_each(check)

    def test_differ_in_the_intended_groups_only(self):
        def check(drawing):
            before, after = raw_tags(drawing.path), raw_tags(drawing.target["simple"])
            self.assertEqual([code for code, _ in before], [code for code, _ in after])
            record, others = b"", []
            for (code, value), (_, new_value) in zip(before, after):
                if code == 0:
                    record = value
                named = code in (2, 8, 1003) and b"RENAMED" in new_value
                flagged = code == 70 and b"LAYER" in record
                if value != new_value and not named and not flagged:
                    others.append((record, code, value, new_value))
            self.assertEqual(others, [])

        self.for_each(check)

    def test_hold_what_was_added(self):
        def check(drawing):
            document, _ = drawing.saved["full"]
            layer = document.layers.get("ADDED")
            self.assertEqual(layer.dxf.color, 3)
            self.assertEqual(layer.description, "added by a test")
            self.assertAlmostEqual(layer.transparency, 0.5, 1)
            if (drawing.original.loaded_dxfversion or "") >= "AC1015":  # older ones have no layouts
                for layout in document.layouts:
                    lines = [line for line in layout.query("LINE") if line.dxf.layer == "ADDED"]
                    self.assertEqual([tuple(line.dxf.end) for line in lines], [(3, 4, 0)], layout.name)
            if document.dxfversion < "AC1018":
                return  # the library knows the lists of later versions only
            for layout in document.layouts:
                for viewport in layout.query("VIEWPORT") if layout.is_any_paperspace else ():
                    self.assertIn("ADDED", viewport.frozen_layers)

        self.for_each(check)


def layer_names(drawing):
    """Names of the layer table in file order; None where the library decodes a name in another way."""
    binary = drawing.path.read_bytes().startswith(SENTINEL)
    names, table, record, wanted = [], False, None, False
    for code, value in raw_tags(drawing.path):
        if code not in (0, 2):
            continue
        shown = ast.literal_eval(value.decode()) if binary else value.decode(drawing.original.encoding, "replace")
        if code == 0:
            record, wanted = shown, True
            table = table and record != "ENDTAB"
        elif code == 2 and record == "TABLE":
            table = shown == "LAYER"
        elif code == 2 and table and record == "LAYER" and wanted:
            wanted = False
            known = drawing.original.layers.has_entry(shown)
            names.append(drawing.original.layers.get(shown).dxf.name if known else None)
    return names


if __name__ == "__main__":
    unittest.main()

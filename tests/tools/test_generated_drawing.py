"""The generated drawings, read by an independent library: make_drawing is the first argument."""

import subprocess
import sys
import tempfile
import unittest
from collections import Counter
from pathlib import Path

try:
    import ezdxf
except ImportError:
    print("skipped: python3-ezdxf is not installed")
    sys.exit(77)

MAKE_DRAWING = sys.argv.pop(1)
VERSIONS = ("AC1015", "AC1018", "AC1027", "AC1032")
LAYERS, ENTITIES, BLOCKS, LAYOUTS = 400, 3000, 9, 3


def generate(folder, version, seed=1, binary=False):
    path = Path(folder) / f"{version}-{seed}{'-binary' if binary else ''}.dxf"
    options = dict(layers=LAYERS, entities=ENTITIES, blocks=BLOCKS, layouts=LAYOUTS, version=version, seed=seed)
    words = [word for name, value in options.items() for word in (f"--{name}", str(value))]
    if binary:
        words.insert(4, "--binary")
    subprocess.run([MAKE_DRAWING, "--out", str(path), *words], check=True, stdout=subprocess.DEVNULL)
    return path


def tags(path):
    """(code, value) of every group, values as bytes."""
    lines = path.read_bytes().split(b"\r\n")
    return [(int(code), value) for code, value in zip(lines[0::2], lines[1::2])]


def records(path, kind):
    """The groups of every record of one type, in file order."""
    found, inside = [], False
    for code, value in tags(path):
        if code == 0:
            inside = value == kind
            if inside:
                found.append([])
        if inside:
            found[-1].append((code, value))
    return found


class GeneratedDrawing(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.paths = {version: generate(cls.folder.name, version) for version in VERSIONS}
        cls.drawings = {version: ezdxf.readfile(path) for version, path in cls.paths.items()}

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_is_sound_in_every_version(self):
        for version, drawing in self.drawings.items():
            with self.subTest(version=version):
                self.assertEqual(drawing.dxfversion, version)
                auditor = drawing.audit()
                complaints = [entry.message for entry in auditor.errors + auditor.fixes]
                self.assertEqual(complaints, [])

    def test_holds_what_was_asked_for(self):
        for version, drawing in self.drawings.items():
            with self.subTest(version=version):
                self.assertEqual(len(drawing.layers), LAYERS)
                self.assertEqual(len(drawing.modelspace()), ENTITIES)
                self.assertEqual(len([b for b in drawing.blocks if not b.is_any_layout]), BLOCKS)
                self.assertEqual(drawing.layout_names_in_taborder(), ["Model", "Sheet 1", "Sheet 2", "Sheet 3"])

    def test_most_entities_are_lines_and_their_layers_exist(self):
        for version, drawing in self.drawings.items():
            with self.subTest(version=version):
                kinds = Counter(entity.dxftype() for entity in drawing.modelspace())
                self.assertAlmostEqual(kinds["LINE"] / ENTITIES, 0.7, delta=0.05)
                self.assertEqual(set(kinds), {"LINE", "LWPOLYLINE", "CIRCLE", "ARC", "TEXT", "INSERT"})
                used = {entity.dxf.layer for entity in drawing.modelspace()}
                self.assertTrue(all(name in drawing.layers for name in used))
                self.assertGreater(len(used), LAYERS // 2)
                self.assertLess(len(used), LAYERS)

    def test_layers_carry_every_property_the_version_knows(self):
        for version, drawing in self.drawings.items():
            with self.subTest(version=version):
                layers = list(drawing.layers)
                self.assertTrue(any(layer.is_frozen() for layer in layers))
                self.assertTrue(any(layer.is_locked() for layer in layers))
                self.assertTrue(any(layer.is_off() for layer in layers))
                self.assertTrue(any(layer.dxf.plot == 0 for layer in layers))
                self.assertTrue(any(layer.description for layer in layers))
                self.assertTrue(any(layer.transparency > 0 for layer in layers))
                self.assertTrue(any(layer.dxf.linetype == "DASHED" for layer in layers))
                self.assertTrue(any("H\u00f6he" in layer.dxf.name for layer in layers))
                self.assertEqual(any(layer.rgb for layer in layers), version >= "AC1018")
                self.assertTrue(all(layer.dxf.plotstyle_handle for layer in layers))

    def test_layer_records_have_the_groups_of_their_version(self):
        # Counted in the bytes, since the library fills in what a file leaves out.
        for version in VERSIONS:
            with self.subTest(version=version):
                codes = Counter(code for record in records(self.paths[version], b"LAYER") for code, _ in record)
                self.assertEqual(codes[0], LAYERS)
                for code in (2, 5, 6, 62, 70, 330, 370, 390):
                    self.assertEqual(codes[code], LAYERS, f"group {code}")
                newer = LAYERS if version >= "AC1027" else 0
                self.assertEqual((codes[347], codes[348]), (newer, newer))
                self.assertEqual(codes[420] > 0, version >= "AC1018")

    def test_viewports_of_a_sheet_freeze_different_layers(self):
        # The list has its own group code in the oldest version; the library reads the newer one only.
        for version in VERSIONS:
            with self.subTest(version=version):
                layers = {dict(record)[5] for record in records(self.paths[version], b"LAYER")}
                list_code = 331 if version >= "AC1018" else 341
                viewports = records(self.paths[version], b"VIEWPORT")
                self.assertEqual(len(viewports), 3 * LAYOUTS)
                for sheet in (viewports[start : start + 3] for start in range(0, len(viewports), 3)):
                    frozen = [{value for code, value in record if code == list_code} for record in sheet]
                    self.assertEqual(frozen[0], set())
                    self.assertGreater(len(frozen[1]), 5)
                    self.assertNotEqual(frozen[1], frozen[2])
                    self.assertLessEqual(frozen[1] | frozen[2], layers)

    def test_handles_are_unique_and_below_the_seed(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                groups = tags(self.paths[version])
                seed = next(value for (_, name), (_, value) in zip(groups, groups[1:]) if name == b"$HANDSEED")
                # The header's own group 5 is the seed.
                handles = [int(value, 16) for code, value in groups if code in (5, 105)]
                handles.remove(int(seed, 16))
                self.assertEqual(len(handles), len(set(handles)))
                self.assertGreater(int(seed, 16), max(handles))

    def test_equal_options_give_equal_bytes_and_another_seed_does_not(self):
        first = self.paths["AC1018"].read_bytes()
        with tempfile.TemporaryDirectory() as other:
            self.assertEqual(generate(other, "AC1018", 1).read_bytes(), first)
            self.assertNotEqual(generate(other, "AC1018", 2).read_bytes(), first)

    def test_the_binary_form_holds_the_same_drawing(self):
        for version in VERSIONS:
            with self.subTest(version=version), tempfile.TemporaryDirectory() as other:
                text = self.drawings[version]
                path = generate(other, version, binary=True)
                self.assertLess(path.stat().st_size, self.paths[version].stat().st_size)
                binary = ezdxf.readfile(path)
                self.assertFalse(binary.audit().errors)
                self.assertEqual(binary.dxfversion, version)
                for table in ("layers", "linetypes", "styles", "block_records"):
                    expected = {entry.dxf.handle: entry.dxfattribs() for entry in getattr(text, table)}
                    self.assertEqual({entry.dxf.handle: entry.dxfattribs() for entry in getattr(binary, table)}, expected)
                entities = [{entity.dxf.handle: (entity.dxftype(), entity.dxfattribs()) for entity in drawing.modelspace()}
                            for drawing in (text, binary)]
                self.assertGreaterEqual(len(entities[0]), ENTITIES)
                self.assertEqual(entities[1], entities[0])

    def test_an_option_it_does_not_know_is_refused(self):
        for words in (["--colour", "red"], ["--layers", "1"], ["--layers", "12x"], ["--version", "AC9999"], ["--out"], []):
            with self.subTest(words=words):
                result = subprocess.run([MAKE_DRAWING, *words], capture_output=True, text=True)
                self.assertEqual(result.returncode, 2)
                self.assertIn("Usage: make_drawing", result.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)

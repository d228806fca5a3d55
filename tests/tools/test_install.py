"""What `cmake --install` makes is a complete program that can be moved: nothing in it points back at the build
or the sources. Arguments: the build's folder, cmake."""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CMAKE = sys.argv.pop()
BUILD = Path(sys.argv.pop())

PROGRAMS = {"kest", "layerman"}
LIBRARIES = {f"libkest_{name}.so" for name in ("base", "database", "io", "sdk", "toolkit")} | {"LayerManager.so"}
SHARED = [
    "applications/kest.desktop",
    "bash-completion/completions/kest",
    "bash-completion/completions/layerman",
    "doc/kest/commands.md",
    "doc/kest/copyright",
    "doc/kest/guide.md",
    "doc/kest/images/guide_open.png",
    "doc/kest/layerman.md",
    "fish/vendor_completions.d/kest.fish",
    "fish/vendor_completions.d/layerman.fish",
    "icons/hicolor/scalable/apps/kest.svg",
    *(f"icons/hicolor/{size}x{size}/apps/kest.png" for size in (16, 22, 24, 32, 48, 64, 128, 256)),
    "kest/help/palette.md",
    "kest/images/guide_open.png",
    "kest/linetypes/metric.lin",
    "kest/samples/office.dxf",
    "kest/translations/LayerManager_de.qm",
    "man/man1/kest.1",
    "man/man1/layerman.1",
    "metainfo/kest.metainfo.xml",
    "mime/packages/kest.xml",
]
NO_DISPLAY = "no-such-platform"


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.base = Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.base)
        first = cls.base / "first"
        result = subprocess.run([CMAKE, "--install", BUILD, "--prefix", first], capture_output=True, text=True)
        if result.returncode != 0:
            raise RuntimeError(result.stderr)
        # A tree that cannot be moved has no chance in a folder of another name.
        cls.prefix = cls.base / "moved to elsewhere"
        first.rename(cls.prefix)
        cls.library_folder = next(cls.prefix.glob("**/LayerManager.so")).parent
        cls.sample = cls.prefix / "share/kest/samples/office.dxf"

    def run_program(self, name, *arguments, platform=NO_DISPLAY, text=None, **variables):
        folder = tempfile.mkdtemp(dir=self.base)
        environment = {"PATH": "/usr/bin:/bin", "HOME": folder, "XDG_RUNTIME_DIR": folder, "LANG": "C.UTF-8"}
        environment |= {"QT_QPA_PLATFORM": platform, "ASAN_OPTIONS": "detect_leaks=0"} | variables
        command = [self.prefix / "bin" / name, *arguments]
        return subprocess.run(command, env=environment, cwd=folder, input=text, capture_output=True, text=True)

    def window(self, **variables):
        """The window with the sample and the palette, drawn into a picture."""
        picture = Path(tempfile.mkdtemp(dir=self.base)) / "window.png"
        result = self.run_program("kest", "--screenshot", picture, self.sample, platform="offscreen", **variables)
        self.assertEqual(result.returncode, 0, result.stderr)
        return picture.read_bytes()

    def without(self, path):
        """`path` is away until the test ends."""
        path.rename(self.base / path.name)
        self.addCleanup((self.base / path.name).rename, path)

    def binaries(self):
        return [*(self.prefix / "bin").iterdir(), *self.library_folder.iterdir()]

    def test_everything_has_its_place(self):
        self.assertEqual({path.name for path in (self.prefix / "bin").iterdir()}, PROGRAMS)
        self.assertEqual({path.name for path in self.library_folder.iterdir()}, LIBRARIES)
        self.assertEqual(self.library_folder.name, "kest")
        missing = [name for name in SHARED if not (self.prefix / "share" / name).is_file()]
        self.assertEqual(missing, [])
        self.assertEqual([path for path in self.prefix.rglob("*") if path.is_symlink()], [])

    def test_libraries_are_looked_for_beside_the_programs_only(self):
        for path in self.binaries():
            text = subprocess.run(["readelf", "-d", path], capture_output=True, text=True, check=True).stdout
            found = re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", text)
            from_here = os.path.relpath(self.library_folder, path.parent)
            expected = "$ORIGIN" if from_here == "." else f"$ORIGIN/{from_here}"
            self.assertEqual(found, [expected], path.name)

    def test_every_library_of_ours_is_the_installed_one(self):
        for path in self.binaries():
            text = subprocess.run(["ldd", path], capture_output=True, text=True, check=True).stdout
            self.assertNotIn("not found", text)
            for library in re.findall(r"libkest_\S+ => (\S.*) \(", text):
                self.assertEqual(Path(library).resolve().parent, self.library_folder.resolve(), path.name)

    def test_layerman_lists_the_sample(self):
        result = self.run_program("layerman", "list", self.sample, "--format", "json")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(len(json.loads(result.stdout)[0]["layers"]), 65)

    def test_a_script_runs_without_a_window(self):
        saved = self.base / "saved.dxf"
        script = f'-LAYER Freeze E-DATA\nSAVEAS "{saved}"\nLAYERS\n'
        result = self.run_program("kest", "--batch", "-", self.sample, text=script)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("65 layers.", result.stdout)
        question = ["--search", "E-DATA", "--columns", "name,freeze", "--format", "csv"]
        listed = self.run_program("layerman", "list", saved, *question)
        self.assertEqual(listed.stdout.splitlines()[1:], ["E-DATA,yes"])

    def test_the_window_opens_with_the_palette(self):
        with_palette = self.window()
        self.assertEqual(with_palette, self.window(), "two pictures of the same window differ")
        self.without(self.library_folder / "LayerManager.so")
        self.assertNotEqual(with_palette, self.window())

    def test_the_palette_speaks_german_by_the_installed_catalogue(self):
        english, german = self.window(), self.window(LANG="de_DE.UTF-8", LANGUAGE="de")
        self.assertNotEqual(english, german)
        self.without(self.prefix / "share/kest/translations/LayerManager_de.qm")
        self.assertEqual(english, self.window(LANG="de_DE.UTF-8", LANGUAGE="de"))

    def test_the_help_finds_its_pages_and_pictures(self):
        folder = self.prefix / "share/kest/help"
        pages = sorted(folder.glob("*.md"))
        self.assertIn(folder / "index.md", pages)
        targets = [(page, link) for page in pages for link in re.findall(r"\]\(([^)#:]+)\)", page.read_text())]
        self.assertGreater(len(targets), 20)
        self.assertEqual([(page.name, link) for page, link in targets if not (folder / link).is_file()], [])

    def test_what_the_desktop_starts_is_there(self):
        entry = (self.prefix / "share/applications/kest.desktop").read_text()
        program = re.search(r"^Exec=(\S+)", entry, re.M)[1]
        icon = re.search(r"^Icon=(\S+)", entry, re.M)[1]
        self.assertTrue(os.access(self.prefix / "bin" / program, os.X_OK))
        for size in (16, 22, 24, 32, 48, 64, 128, 256):
            picture = (self.prefix / f"share/icons/hicolor/{size}x{size}/apps/{icon}.png").read_bytes()
            # Width and height in the header of a PNG.
            sides = [int.from_bytes(picture[at : at + 4], "big") for at in (16, 20)]
            self.assertEqual(sides, [size, size])


if __name__ == "__main__":
    unittest.main(verbosity=2)

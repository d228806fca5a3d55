"""The Debian package: what it says of itself, what is in it, and what Debian's own checker says. Arguments: the
build's folder, cmake, the version."""

import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

VERSION = sys.argv.pop()
CMAKE = Path(sys.argv.pop())
BUILD = Path(sys.argv.pop())
MISSING = [name for name in ("dpkg-deb", "dpkg-shlibdeps", "file", "gzip") if not shutil.which(name)]


def output(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, check=True, **options).stdout


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        # A fixed day: the same sources give the same package.
        environment = os.environ | {"SOURCE_DATE_EPOCH": "1767225600", "LC_ALL": "C.UTF-8"}
        command = [CMAKE.parent / "cpack", "-G", "DEB", "-B", cls.folder / "made"]
        result = subprocess.run(command, cwd=BUILD, env=environment, capture_output=True, text=True)
        if result.returncode != 0:
            raise RuntimeError(result.stdout + result.stderr)
        (cls.package,) = (cls.folder / "made").glob("*.deb")
        cls.root = cls.folder / "root"
        output("dpkg-deb", "-x", cls.package, cls.root)

    def field(self, name):
        return output("dpkg-deb", "-f", self.package, name).strip()

    def test_it_names_itself_after_the_project(self):
        self.assertEqual(self.field("Package"), "kest")
        self.assertEqual(self.field("Version"), VERSION)
        self.assertEqual(self.field("Section"), "graphics")
        self.assertEqual(self.package.name, f"kest_{VERSION}_{self.field('Architecture')}.deb")

    def test_it_depends_on_what_its_programs_link_and_not_on_itself(self):
        depends = {entry.split()[0] for entry in self.field("Depends").split(", ")}
        self.assertLessEqual({"libc6", "libstdc++6", "libqt6core6", "libqt6gui6", "libqt6svg6", "libqt6widgets6"}, depends)
        self.assertEqual([name for name in depends if "kest" in name or "-dev" in name], [])
        self.assertRegex(self.field("Depends"), r"libqt6core6 \(>= 6\.")

    def test_its_sums_are_those_of_its_files(self):
        sums = output("dpkg-deb", "-I", self.package, "md5sums").splitlines()
        listed = dict(reversed(line.split("  ", 1)) for line in sums)
        files = [path for path in self.root.rglob("*") if path.is_file()]
        self.assertEqual(set(listed), {str(path.relative_to(self.root)) for path in files})
        for path in files:
            self.assertEqual(listed[str(path.relative_to(self.root))], hashlib.md5(path.read_bytes()).hexdigest())

    def test_its_files_belong_to_the_system(self):
        rows = output("dpkg-deb", "-c", self.package).splitlines()
        self.assertEqual({row.split()[1] for row in rows}, {"root/root"})
        writable = [row for row in rows if re.match(r".{5}w|.{8}w", row)]
        self.assertEqual(writable, [])

    def test_its_manuals_and_change_log_are_compressed(self):
        for name in ("man/man1/kest.1.gz", "man/man1/layerman.1.gz", "doc/kest/changelog.gz"):
            text = output("gzip", "-dc", self.root / "usr/share" / name)
            self.assertIn(VERSION, text)
        self.assertEqual(list((self.root / "usr/share/man").rglob("*.1")), [])
        self.assertIn("Thu, 01 Jan 2026 00:00:00 +0000", text)

    def test_nothing_in_it_tells_where_it_was_built(self):
        place = str(BUILD).encode()
        told = [path.name for path in self.root.rglob("*") if path.is_file() and place in path.read_bytes()]
        self.assertEqual(told, [])

    def test_its_programs_run_where_it_is_unpacked(self):
        sample = self.root / "usr/share/kest/samples/office.dxf"
        environment = {"PATH": "/usr/bin:/bin", "ASAN_OPTIONS": "detect_leaks=0", "LANG": "C.UTF-8"}
        text = output(self.root / "usr/bin/layerman", "list", sample, "--format", "csv", env=environment)
        self.assertEqual(len(text.splitlines()), 66)
        self.assertEqual(output(self.root / "usr/bin/kest", "--version", env=environment), f"kest {VERSION}\n")

    @unittest.skipUnless(shutil.which("lintian"), "lintian is not installed; the package was not checked by it")
    def test_debians_checker_finds_no_error_and_no_warning(self):
        # Of a development build nothing else differs but how the programs were compiled.
        command = ["lintian", "--fail-on", "error,warning", "--allow-root", "--tag-display-limit", "0", self.package]
        result = subprocess.run(command, env=os.environ | {"LC_ALL": "C.UTF-8"}, capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)


if __name__ == "__main__":
    if MISSING:
        print(f"skipped: no {', '.join(MISSING)} here")
        sys.exit(77)
    unittest.main(verbosity=2)

"""What is installed for the desktop, for readers and for shells is what their own validators take. A validator that
is not installed is said and passed over. Arguments: the project's folder, the build's, cmake."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CMAKE = sys.argv.pop()
BUILD = Path(sys.argv.pop())
PROJECT = Path(sys.argv.pop())


def needs(program):
    return unittest.skipUnless(shutil.which(program), f"{program} is not installed")


class Validators(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.prefix)
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", cls.prefix], stdout=subprocess.DEVNULL, check=True)
        cls.share = cls.prefix / "share"

    def run_quietly(self, *command, **options):
        """What a validator says, on either stream."""
        environment = os.environ | {"LANG": "C.UTF-8", "HOME": str(self.prefix), "MANWIDTH": "80"}
        result = subprocess.run(command, env=environment, capture_output=True, text=True, **options)
        self.assertEqual(result.returncode, 0, f"{command}: {result.stdout}{result.stderr}")
        return result

    @needs("desktop-file-validate")
    def test_the_desktop_entry(self):
        said = self.run_quietly("desktop-file-validate", self.share / "applications/kest.desktop")
        self.assertEqual(said.stdout + said.stderr, "")

    @needs("appstreamcli")
    def test_the_description_for_software_catalogues(self):
        # A name of a domain would have to be one's own; the project has none.
        passed_over = "--override=cid-desktopapp-is-not-rdns=info"
        self.run_quietly("appstreamcli", "validate", "--no-net", passed_over, self.share / "metainfo/kest.metainfo.xml")

    @needs("update-mime-database")
    def test_the_file_types(self):
        said = self.run_quietly("update-mime-database", "-V", self.share / "mime")
        self.assertNotIn("Error", said.stderr)
        globs = (self.share / "mime/globs").read_text().splitlines()
        for ending in ("dwt", "dws"):
            self.assertIn(f"image/vnd.dwg:*.{ending}", globs)
        self.assertIn("application/x-kest-layer-states:*.las", globs)

    @needs("xmllint")
    def test_all_files_of_marked_up_text(self):
        files = [path for path in self.share.rglob("*") if path.suffix in (".xml", ".svg")]
        self.assertGreaterEqual(len(files), 3)
        self.run_quietly("xmllint", "--noout", "--nonet", *files)

    @needs("groff")
    def test_the_manuals_in_the_typesetter(self):
        for page in self.pages():
            said = self.run_quietly("groff", "-man", "-Tutf8", "-ww", page)
            self.assertEqual(said.stderr, "", page.name)
            self.assertIn(page.stem, said.stdout)

    @needs("man")
    def test_the_manuals_in_the_pager(self):
        for page in self.pages():
            said = self.run_quietly("man", "--warnings", "-l", page)
            if "has been minimized" in said.stdout:
                self.skipTest("the program man is not the real one here")
            self.assertEqual(said.stderr, "", page.name)
            self.assertIn("EXIT STATUS", said.stdout)

    def pages(self):
        pages = sorted((self.share / "man/man1").glob("*.1"))
        self.assertEqual([page.name for page in pages], ["kest.1", "layerman.1"])
        return pages

    def scripts(self):
        completions = sorted((self.share / "bash-completion/completions").iterdir())
        self.assertEqual([path.name for path in completions], ["kest", "layerman"])
        tools = [PROJECT / name for name in ("run", "check", ".ci/run")]
        return [*completions, *tools, *sorted((PROJECT / "tools").glob("*.sh"))]

    def test_all_scripts_in_their_shell(self):
        for script in self.scripts():
            self.run_quietly("bash", "-n", script)

    @needs("shellcheck")
    def test_all_scripts_in_the_checker_of_scripts(self):
        self.run_quietly("shellcheck", "--shell=bash", *self.scripts())

    @needs("fish")
    def test_the_other_shells_completions(self):
        for script in (self.share / "fish/vendor_completions.d").iterdir():
            self.run_quietly("fish", "--no-execute", script)


if __name__ == "__main__":
    unittest.main(verbosity=2)

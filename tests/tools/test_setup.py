"""tools/setup.sh asks dpkg what is missing and installs that, and only that."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))

FAKES = {
    # The last argument is the package; those named in the file "absent" are not installed.
    "dpkg-query": 'for package; do :; done\ngrep -qx "$package" "$HOME/absent" && exit 1\nprintf "install ok installed"\n',
    "apt-get": 'echo "apt-get $* [$DEBIAN_FRONTEND]" >> "$HOME/log"\n',
    "sudo": 'echo "sudo" >> "$HOME/log"\nexec "$@"\n',
    "id": 'cat "$HOME/uid"\n',
}


class Setup(unittest.TestCase):
    def setUp(self):
        self.home = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        (self.home / "bin").mkdir()
        for name, body in FAKES.items():
            self.fake(name, body)
        self.be(user=0)
        self.lack()

    def fake(self, name, body):
        path = self.home / "bin" / name
        path.write_text("#!/bin/sh\n" + body)
        path.chmod(0o755)

    def be(self, user):
        (self.home / "uid").write_text(f"{user}\n")

    def lack(self, *packages):
        (self.home / "absent").write_text("".join(f"{package}\n" for package in packages))

    def setup(self):
        environment = {"HOME": str(self.home), "PATH": f"{self.home}/bin:/usr/bin:/bin"}
        return subprocess.run([PROJECT / "tools/setup.sh"], env=environment, capture_output=True, text=True)

    def log(self):
        path = self.home / "log"
        return path.read_text().splitlines() if path.exists() else []

    def test_nothing_runs_when_nothing_is_missing(self):
        result = self.setup()
        self.assertEqual((result.returncode, result.stdout, self.log()), (0, "", []))

    def test_what_is_missing_is_installed_after_one_update(self):
        self.lack("ninja-build", "ccache")
        self.assertEqual(self.setup().returncode, 0)
        self.assertEqual(
            self.log(),
            [
                "apt-get update -q [noninteractive]",
                "apt-get install -q -y --no-install-recommends ninja-build ccache [noninteractive]",
            ],
        )

    def test_who_is_not_root_asks_sudo(self):
        self.be(user=1000)
        self.lack("git")
        self.assertEqual(self.setup().returncode, 0)
        self.assertEqual([line.split()[0] for line in self.log()], ["sudo", "apt-get", "sudo", "apt-get"])

    def test_comments_of_the_list_are_no_packages(self):
        self.lack("Building", "#", "")
        self.assertEqual((self.setup().returncode, self.log()), (0, []))

    def test_a_failing_installation_fails(self):
        self.fake("apt-get", "exit 100\n")
        self.lack("git")
        self.assertNotEqual(self.setup().returncode, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)

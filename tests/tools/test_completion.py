"""The completions that the programs write for shells, pressed as a user presses them: a bash of its own, on a
terminal of its own, gets a line with a tab in it, and the program's place is taken by a function that prints its
arguments. Argument: the folder of the programs."""

import os
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAMS = Path(sys.argv.pop())
PROMPT = "ready: "
SECONDS = 30


def written(program, option):
    environment = os.environ | {"ASAN_OPTIONS": "detect_leaks=0", "QT_QPA_PLATFORM": "no-such-platform"}
    command = [PROGRAMS / program, *option.split()]
    return subprocess.run(command, env=environment, capture_output=True, text=True, check=True).stdout


def completion(program, shell):
    return written(program, f"--completion{'=' if program == 'layerman' else ' '}{shell}")


class Bash:
    """An interactive bash in a folder with some files, with the completions of a program."""

    def __init__(self, folder, program):
        script = folder / "completion"
        script.write_text(completion(program, "bash"))
        environment = {"PATH": os.environ["PATH"], "HOME": str(folder), "LANG": "C.UTF-8", "TERM": "dumb"}
        environment |= {"INPUTRC": "/dev/null", "HISTFILE": "/dev/null"}
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder / "drawings")
            os.execvpe("bash", ["bash", "--norc", "--noprofile", "-i"], environment)
        self.line(f"PS1='{PROMPT}'")
        self.line("bind 'set bell-style none'; bind 'set enable-bracketed-paste off'")
        self.line(f". '{script}'; {program}() {{ printf 'got:'; printf '<%s>' \"$@\"; echo; }}")

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.process, 0)

    def line(self, text):
        """What is printed until the shell is ready again."""
        os.write(self.terminal, text.encode() + b"\n")
        answer = ""
        while not answer.endswith(f"\n{PROMPT}"):
            if not select.select([self.terminal], [], [], SECONDS)[0]:
                raise TimeoutError(f"no answer to {text!r}: {answer!r}")
            answer += os.read(self.terminal, 4096).decode().replace("\r\n", "\n")
        return answer

    def arguments(self, text):
        """What the program gets from a line."""
        return re.findall(r"<([^>]*)>", re.search(r"^got:(.*)$", self.line(text), re.M)[1])


class Completion(unittest.TestCase):
    program = "layerman"

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("plan.dxf", "my house.DXF", "notes.txt", "states.las", "old/site.dxf", "house.dwg", "sheet.DWT", "rules.dws"):
            path = self.folder / "drawings" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.touch()

    def bash(self, program):
        shell = Bash(self.folder, program)
        self.addCleanup(shell.close)
        return shell

    def assertTyped(self, program, cases):
        shell = self.bash(program)
        for typed, expected in cases.items():
            with self.subTest(typed=typed):
                self.assertEqual(shell.arguments(f"{program} {typed}"), expected)

    def test_commands_options_and_values_of_layerman(self):
        self.assertTyped(
            "layerman",
            {
                "li\t": ["list"],
                "--v\t": ["--version"],
                "list --col\tname": ["list", "--columns", "name"],
                "list --columns des\t": ["list", "--columns", "description"],
                "list --columns=des\t": ["list", "--columns=description"],
                "list --columns name,on,lo\t": ["list", "--columns", "name,on,locked"],
                "list --columns=name,lo\t,pl\t": ["list", "--columns=name,locked,plot"],
                "list --format j\tplan.dxf": ["list", "--format", "json", "plan.dxf"],
                "filters --format c\t": ["filters", "--format", "c"],
                "set --keep\tplan.dxf": ["set", "--keep-current-on", "plan.dxf"],
                "set plan.dxf lock\tn\t--dry\t": ["set", "plan.dxf", "locked=no", "--dry-run"],
                "set plan.dxf color=mag\t": ["set", "plan.dxf", "color=magenta"],
                "set plan.dxf description=ye\t": ["set", "plan.dxf", "description=ye"],
                "states plan.dxf res\tx --mask fr\t": ["states", "plan.dxf", "restore", "x", "--mask", "freeze"],
                "states plan.dxf import st\t": ["states", "plan.dxf", "import", "states.las"],
                "list --search pl\t": ["list", "--search", "pl"],
            },
        )

    def test_drawings_and_folders_are_offered_and_nothing_else(self):
        self.assertTyped(
            "layerman",
            {
                "list pl\t": ["list", "plan.dxf"],
                "list my\t": ["list", "my house.DXF"],
                "list ho\t": ["list", "house.dwg"],
                "list sh\t": ["list", "sheet.DWT"],
                "list ru\t": ["list", "rules.dws"],
                "list no\t": ["list", "no"],
                "list st\t": ["list", "st"],
                "list ol\t": ["list", "old/"],
                "list old/\t": ["list", "old/site.dxf"],
                "list ~/drawings/pl\t": ["list", f"{self.folder}/drawings/plan.dxf"],
                "set plan.dxf -o pl\t": ["set", "plan.dxf", "-o", "plan.dxf"],
            },
        )

    def test_options_of_kest(self):
        self.assertTyped(
            "kest",
            {
                "pl\t": ["plan.dxf"],
                "ho\t": ["house.dwg"],
                "sh\t": ["sheet.DWT"],
                "--b\tno\tplan.dxf": ["--batch", "notes.txt", "plan.dxf"],
                "--batch=no\t": ["--batch=notes.txt"],
                "--config o\t": ["--config", "old/"],
                "--config pl\t": ["--config", "pl"],
                "--scr\t": ["--screenshot"],
            },
        )

    def test_an_equals_sign_that_breaks_no_words_does_no_harm(self):
        shell = self.bash("layerman")
        shell.line("COMP_WORDBREAKS=${COMP_WORDBREAKS//=}")
        self.assertEqual(shell.arguments("layerman list --columns=name,lo\t"), ["list", "--columns=name,locked"])
        self.assertEqual(shell.arguments("layerman set plan.dxf lock\tn\t"), ["set", "plan.dxf", "locked=no"])
        self.assertEqual(shell.arguments("layerman set --output=pl\t"), ["set", "--output=plan.dxf"])

    def test_all_that_the_help_names_is_offered(self):
        for program in ("kest", "layerman"):
            shell = self.bash(program)
            commands = re.findall(r"^Usage: layerman (\w+)|^       layerman (\w+)", written(program, "--help"), re.M)
            for command in ["", *(first or other for first, other in commands)]:
                options = re.findall(r"^  (?:-\w, )?(--[\w-]+)", written(program, f"{command} --help"), re.M)
                self.assertGreater(len(options), 1, command)
                for option in options:
                    # One letter less has one way to go on, unless a longer option starts alike.
                    offers = shell.line(f"{program} {command} {option[:-1]}\t\t")
                    self.assertIn(option, offers, f"{program} {command}")

    @unittest.skipUnless(shutil.which("fish"), "fish is not installed; its completions were not run")
    def test_fish_offers_the_same(self):
        for program in ("kest", "layerman"):
            (self.folder / f"{program}.fish").write_text(completion(program, "fish"))
        expected = {
            "layerman li": "list",
            "layerman list --col": "--columns",
            "layerman list --columns name,lo": "name,locked",
            "layerman list --format j": "json",
            "layerman list pl": "plan.dxf",
            "layerman set plan.dxf locked=n": "locked=no",
            "layerman states plan.dxf res": "restore",
            "kest --scr": "--screenshot",
            "kest pl": "plan.dxf",
        }
        for line, offer in expected.items():
            script = f"source {self.folder}/{line.split()[0]}.fish; complete -C '{line}'"
            environment = os.environ | {"HOME": str(self.folder)}
            result = subprocess.run(
                ["fish", "--no-config", "-c", script],
                env=environment,
                cwd=self.folder / "drawings",
                capture_output=True,
                text=True,
            )
            offers = [row.split("\t")[0] for row in result.stdout.splitlines()]
            # Behind an equals sign fish offers files too, of its own accord.
            own = [name for name in offers if not ("=" in line and name.endswith(".txt"))]
            self.assertEqual(own, [offer], line + result.stderr)

    def test_no_other_shell_is_promised(self):
        for program in ("kest", "layerman"):
            with self.assertRaises(subprocess.CalledProcessError) as refused:
                completion(program, "tcsh")
            self.assertEqual((refused.exception.returncode, refused.exception.stdout), (1, ""))


if __name__ == "__main__":
    try:
        for end in pty.openpty():
            os.close(end)
    except OSError as error:
        print(f"skipped: no terminal can be had here ({error})")
        sys.exit(77)
    unittest.main(verbosity=2)

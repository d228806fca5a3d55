"""Starts one program and tells how it went: launcher.py LIMIT OUTPUT ERRORS PROGRAM ARGUMENTS..., with Python's -I and -S.

A process of its own, with next to nothing in it, because Linux counts the memory of the parent at the moment of
the start as memory of the child. Prints seconds, peak of resident memory in bytes and exit status; the status of one
that was ended after LIMIT seconds is "late".
"""

import os
import signal
import sys
import time

limit, output, errors, *command = sys.argv[1:]
flags = os.O_WRONLY | os.O_CREAT | os.O_TRUNC
streams = [(os.POSIX_SPAWN_OPEN, 1, output, flags, 0o600), (os.POSIX_SPAWN_OPEN, 2, errors, flags, 0o600)]
is_late = False


def end_child(*_):
    global is_late
    is_late = True
    os.kill(child, signal.SIGKILL)


signal.signal(signal.SIGALRM, end_child)
begin = time.perf_counter()
child = os.posix_spawnp(command[0], command, os.environ, file_actions=streams)
signal.setitimer(signal.ITIMER_REAL, float(limit))
_, status, usage = os.wait4(child, 0)
seconds = time.perf_counter() - begin
signal.setitimer(signal.ITIMER_REAL, 0)
print(seconds, usage.ru_maxrss * 1024, "late" if is_late else os.waitstatus_to_exitcode(status))

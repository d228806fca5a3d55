"""Starts one program and tells how it went: launcher.py LIMIT OUTPUT ERRORS PROGRAM ARGUMENTS...

A process of its own, with next to nothing in it, because Linux counts the memory of the parent at the moment of
the start as memory of the child: to be run with Python's options -I and -S. Prints seconds, seconds of processors, peak
of resident memory in bytes and exit status. A program may use LIMIT seconds of processors, which on a busy machine is
fairer than the clock; the status of one that was ended is "late".
"""

import os
import resource
import signal
import sys
import time

HANGS_AFTER = 20  # times the limit, by the clock

limit, output, errors, *command = sys.argv[1:]
limit = round(float(limit))
flags = os.O_WRONLY | os.O_CREAT | os.O_TRUNC
streams = [(os.POSIX_SPAWN_OPEN, 1, output, flags, 0o600), (os.POSIX_SPAWN_OPEN, 2, errors, flags, 0o600)]
is_late = False


def end_child(*_):
    global is_late
    is_late = True
    os.kill(child, signal.SIGKILL)


signal.signal(signal.SIGALRM, end_child)
resource.setrlimit(resource.RLIMIT_CPU, (limit, limit + 1))  # inherited
begin = time.perf_counter()
child = os.posix_spawnp(command[0], command, os.environ, file_actions=streams)
signal.setitimer(signal.ITIMER_REAL, HANGS_AFTER * limit)
_, status, usage = os.wait4(child, 0)
seconds = time.perf_counter() - begin
signal.setitimer(signal.ITIMER_REAL, 0)
exit_code = os.waitstatus_to_exitcode(status)
cpu_seconds = usage.ru_utime + usage.ru_stime
is_late = is_late or (exit_code in (-signal.SIGXCPU, -signal.SIGKILL) and cpu_seconds >= limit - 1)
print(seconds, cpu_seconds, usage.ru_maxrss * 1024, "late" if is_late else exit_code)

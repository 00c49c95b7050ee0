#!/usr/bin/env python3
"""Runs one command and reports its wall time, peak resident memory and the largest number
of open file descriptors seen while it ran (standard library only, Linux).

Usage:
  measure_run.py [--interval SECONDS] [--log FILE] [--strace] -- COMMAND [ARG...]

The command's output goes to FILE (default: discarded). Prints one line:
  wall_s=<seconds> cpu_s=<seconds> peak_rss_mb=<MB> max_fds=<n> samples=<n> exit=<code>
cpu_s is the user and system time of the process, steadier than the wall time on a busy
machine. Peak memory is the kernel's maximum resident set size of the process (wait4's ru_maxrss);
the open descriptors are counted from /proc/<pid>/fd every --interval seconds (default
0.001), so a descriptor open for less than that may be missed. The three standard streams
are included in the count.

With --strace the command runs under strace instead, which records every descriptor made and
closed, and the line is: strace_max_fds=<n> open_at_exit=<n> exit=<code> (no times: strace
slows the command down and its memory is not the command's).
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile
import time

# The calls that make a descriptor (pipe and socketpair make two) or close one.
MAKERS = ("open", "openat", "openat2", "creat", "dup", "dup2", "dup3", "pipe", "pipe2", "socket",
          "socketpair", "accept", "accept4", "eventfd", "eventfd2", "memfd_create", "epoll_create",
          "epoll_create1", "timerfd_create", "inotify_init", "inotify_init1", "signalfd", "signalfd4")


def count_fds(pid):
    try:
        return len(os.listdir(f"/proc/{pid}/fd"))
    except (FileNotFoundError, ProcessLookupError, PermissionError):
        return 0


def traced_fds(trace):
    """The most descriptors open at once and those open at exit, from an strace -f log."""
    open_now = max_open = 3
    for line in trace:
        call = re.match(r"\d+\s+(?:<\.\.\. (\w+) resumed>|(\w+)\()", line)
        result = re.search(r"= (-?\d+)", line.rsplit(")", 1)[-1]) if "unfinished" not in line else None
        if not call or not result or int(result.group(1)) < 0:
            continue
        name = call.group(1) or call.group(2)
        if name == "close":
            open_now -= 1
        elif name in MAKERS:
            open_now += 2 if name in ("pipe", "pipe2", "socketpair") else 1
        max_open = max(max_open, open_now)
    return max_open, open_now


def run_traced(command, log):
    with tempfile.NamedTemporaryFile("r", suffix=".strace") as trace:
        calls = ",".join(MAKERS + ("close",))
        code = subprocess.call(["strace", "-f", "-qq", "-o", trace.name, "-e", f"trace={calls}", *command],
                               stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        max_open, at_exit = traced_fds(trace)
    print(f"strace_max_fds={max_open} open_at_exit={at_exit} exit={code}")
    return 0 if code == 0 else 1


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--interval", type=float, default=0.001)
    parser.add_argument("--log", default=os.devnull)
    parser.add_argument("--strace", action="store_true")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    args = parser.parse_args()
    command = args.command[1:] if args.command[:1] == ["--"] else args.command
    if not command:
        parser.error("no command given")

    if args.strace:
        with open(args.log, "wb") as log:
            return run_traced(command, log)
    with open(args.log, "wb") as log:
        begin = time.monotonic()
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        max_fds = 0
        samples = 0
        while True:
            pid, status, usage = os.wait4(process.pid, os.WNOHANG)
            if pid != 0:
                break
            max_fds = max(max_fds, count_fds(process.pid))
            samples += 1
            time.sleep(args.interval)
        wall = time.monotonic() - begin
    process.returncode = os.waitstatus_to_exitcode(status)
    cpu = usage.ru_utime + usage.ru_stime
    print(f"wall_s={wall:.2f} cpu_s={cpu:.2f} peak_rss_mb={usage.ru_maxrss / 1024:.1f} max_fds={max_fds} "
          f"samples={samples} exit={process.returncode}")
    return 0 if process.returncode == 0 else 1


if __name__ == "__main__":
    sys.exit(main())

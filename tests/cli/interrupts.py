"""When a program may be interrupted."""
import pathlib
import signal


def handles_interrupts(process):
    """Whether the program has come so far that it obeys SIGINT, or has ended."""
    try:
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
    except FileNotFoundError:
        return True
    caught = int(next(line for line in status.splitlines() if line.startswith("SigCgt")).split()[1], 16)
    return process.poll() is not None or bool(caught & 1 << (signal.SIGINT - 1))

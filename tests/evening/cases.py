#!/usr/bin/python3
"""Whole-system cases: cases.py [-l] [WORD …]

Runs the cases whose name holds one of the words, all of them without a word; -l lists them. Each case has a server and
clients of its own. When one fails, what every process said is printed.
"""
import os
import sys
import time
import traceback

import host_cases       # noqa: F401, as each of them adds to the list
import launch_cases     # noqa: F401
import lobby_cases      # noqa: F401
import position_cases   # noqa: F401
import room_cases       # noqa: F401
import update_cases     # noqa: F401
from casebook import CASES
from evening import Evening, Failure, Refused, leave_nothing_when_stopped


def name_of(function):
    return function.__name__.replace("_", " ")


def run(function):
    """True when the case passed."""
    start = time.monotonic()
    evening = Evening()
    try:
        function(evening)
        evening.finish()
    except Exception as why:    # whatever it is, the other cases are still to run
        kind = "" if type(why) in (Failure, Refused) else type(why).__name__ + ": "
        line = [at for at in traceback.extract_tb(why.__traceback__) if at.filename.endswith("_cases.py")][-1]
        place = f"{os.path.basename(line.filename)}, line {line.lineno}"
        print(f"FAILED  {name_of(function)}\n        {place}: {kind}{why}\n{evening.report()}", flush=True)
        return False
    finally:
        evening.close()
    print(f"ok      {name_of(function)} ({time.monotonic() - start:.1f} s)", flush=True)
    return True


def main(arguments):
    leave_nothing_when_stopped()
    if arguments == ["-l"]:
        print("\n".join(map(name_of, CASES)))
        return 0
    chosen = [function for function in CASES
              if not arguments or any(word in name_of(function) for word in arguments)]
    results = [run(function) for function in chosen]
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if results and all(results) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

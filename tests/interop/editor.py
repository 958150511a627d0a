"""Changing ID3v2.3 tags through the library."""
import json
import os
import subprocess

TAG_EDITOR = os.environ["CORVANE_TAG_EDITOR"]

WAYS = [{"by": "records", "useTempCopy": True}, {"by": "records", "useTempCopy": False}, {"by": "facade"}]


def job(path, values, way=None, **more):
    """What to write into a file: {property: value}; `more` may be a "picture" (a path, or None), or read=True."""
    return {"file": str(path), "values": values} | (way or WAYS[0]) | more


def answers(jobs):
    """What became of each job, in one process."""
    given = "".join(json.dumps(each) + "\n" for each in jobs).encode()
    done = subprocess.run([TAG_EDITOR], input=given, capture_output=True, check=False, timeout=120)
    lines = [json.loads(line) for line in done.stdout.splitlines()]
    if done.returncode != 0 or done.stderr or len(lines) != len(jobs):
        raise AssertionError(f"exit {done.returncode} after {len(lines)} of {len(jobs)} jobs: {done.stderr!r}")
    return lines


def save(path, values, way=None, **more):
    """Writes the values; a save that fails is a failure of the test."""
    answer = answers([job(path, values, way, **more)])[0]
    if not answer["saved"]:
        raise AssertionError(f"{path} was not saved: {answer['reason']}")
    return answer

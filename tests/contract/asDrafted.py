"""The schemas of docs/contract, read by a validator of the draft that they name.

The other tests read them with one of an older draft, for which they put references in place and
name tuples anew. Here nothing is changed: the schemas are as their draft wants them, every scenario
and every line of the journals is as they describe, and a line with one thing wrong is not.

    asDrafted.py REPOSITORY JOURNALS
"""

import json
import sys
from pathlib import Path

from jsonschema import Draft202012Validator, RefResolver

FIRST_KEYS = ["kind", "name", "args"]


def validator(folder, name):
    path = folder / f"{name}.schema.json"
    schema = json.loads(path.read_text())
    return Draft202012Validator(schema, resolver=RefResolver(path.as_uri(), schema))


def lines_of(journals):
    """Lines that differ by more than number and time, each with the first journal it stands in."""
    lines = {}
    for journal in sorted(journals.glob("*.jsonl")):
        for line in journal.read_text().splitlines():
            entry = json.loads(line)
            told = json.dumps({**entry, "seq": 1, "ms": 0}, sort_keys=True)
            lines.setdefault(told, (entry, f"{journal.name} line {entry['seq']}"))
    return lines.values()


def refusals(repository, journals):
    contract = repository / "docs" / "contract"
    for path in sorted(contract.glob("*.schema.json")):
        Draft202012Validator.check_schema(json.loads(path.read_text()))
    scenario = validator(contract, "scenario")
    for path in sorted((repository / "tests" / "scenarios").glob("*.json")):
        for error in scenario.iter_errors(json.loads(path.read_text())):
            yield f"{path.name}: {error.message}"
    line = validator(contract, "journal-line")
    entries = lines_of(journals)
    for entry, place in entries:
        for error in line.iter_errors(entry):
            yield f"{place}: {error.message}"
    yield from missed(line, [entry for entry, _ in entries])
    print(f"{len(entries)} lines")


def missed(line, entries):
    """One of each kind with a key too many and with its first keys gone, which has to be refused."""
    for entry in {entry["kind"]: entry for entry in entries}.values():
        wrong = [{**entry, "more": 1}]
        wrong += [{k: v for k, v in entry.items() if k != key} for key in FIRST_KEYS if key in entry]
        yield from (f"taken: {each}" for each in wrong if line.is_valid(each))
    if not entries:
        yield "there are no journals: ctest -R ^scenario writes them"


def main():
    found = list(refusals(*map(Path, sys.argv[1:])))
    print(*found, sep="\n")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

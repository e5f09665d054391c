#!/usr/bin/env python3
"""Writes random one-token faults as patches: mutate.py COUNT SEED FOLDER SOURCE...

A fault changes one comparison, condition, constant, result or statement of one source. The same
seed makes the same faults as long as the sources stay the same. Each patch is named
NUMBER-FILE-LINE.patch and applies with -p0. The first line of a patch says what it changes.

A number becomes one more and one less, with three exceptions, where the other change would mean the
same by construction and the number still gets a fault:
  - a returned 1, which means yes, becomes 0, not 2;
  - a -1, which means none, becomes 0, not -2;
  - the size of an array becomes one less, not one more.
"""
import difflib
import pathlib
import random
import re
import sys

# Formatted sources have blanks around a binary operator and none inside a template's brackets.
SWAPPED = {
    " == ": [" != "],
    " != ": [" == "],
    " < ": [" <= ", " >= "],
    " <= ": [" < ", " > "],
    " > ": [" >= ", " <= "],
    " >= ": [" > ", " < "],
    " && ": [" || "],
    " || ": [" && "],
    " + ": [" - "],
    " - ": [" + "],
    " * ": [" / "],
    " & ": [" | "],
    " | ": [" & "],
    " &= ": [" |= "],
    " |= ": [" &= "],
    " += ": [" -= "],
    " -= ": [" += "],
    "true": ["false"],
    "false": ["true"],
    "continue;": ["break;"],
    "break;": ["continue;"],
}
TOKEN = re.compile("|".join([
    r"(?P<swap> (?:==|!=|<=|>=|&&|\|\||[<>+\-*&|]|[&|+\-]=) |\b(?:true|false)\b|\b(?:continue|break);)",
    r"(?P<not>(?<=[( ])!(?=[\w(]))",
    r"(?P<number>(?<![\w.\"'])\d+(?=[),;\]} ]))",
    r"(?P<call>^\s+[\w.:>\-]+\([^;{}]*\);$)",
    r"(?P<result>(?<=return )[^;{}]+(?=;$))",
]))


def code_lines(text):
    """The lines that hold code which runs: no comments, directives, declarations of constants."""
    in_comment = False
    for number, line in enumerate(text.splitlines()):
        stripped = line.strip()
        if in_comment:
            in_comment = "*/" not in line
            continue
        if stripped.startswith("/*"):
            in_comment = "*/" not in line
            continue
        skipped = ("//", "#", "static_assert", "template", "using ", "namespace ", "case ", "}")
        code = line.split(" //")[0].rstrip()
        is_pure = code.endswith((") = 0;", "const = 0;"))
        if stripped and not is_pure and not stripped.startswith(skipped) and '"' not in stripped:
            yield number, code


def numbers_instead(line, start, number):
    before, behind = line[:start], line[start:]
    is_yes = before.endswith("return ") and behind.startswith("1;")
    is_none = number == 1 and re.search(r"[ (,={]-$", before)
    is_size = before.endswith("[") and re.match(r"\d+\](?:\{\})?;", behind)
    if is_yes or is_none or is_size:
        return [number - 1]
    return [number + 1] + ([number - 1] if number > 0 else [])


def faults_of(match):
    """The tokens that may replace this one."""
    kind, token = match.lastgroup, match.group()
    if kind == "swap":
        return SWAPPED[token]
    if kind == "not":
        return [""]
    if kind == "number":
        return [str(n) for n in numbers_instead(match.string, match.start(), int(token))]
    if kind == "call":
        indent = re.match(r"\s*", token).group()
        return [] if token.strip().startswith("return") else [indent + ";"]
    # A result that compares or combines is turned round.
    return [f"!({token})"] if re.search(r" (?:==|!=|<|>|&&|\|\|) ", token) else []


def all_faults(sources):
    for source in sources:
        text = pathlib.Path(source).read_text(encoding="utf-8")
        for number, line in code_lines(text):
            for match in TOKEN.finditer(line):
                for other in faults_of(match):
                    changed = line[:match.start()] + other + line[match.end():]
                    if changed != line:
                        yield source, number, line, changed


def patch_of(source, number, line, changed):
    lines = pathlib.Path(source).read_text(encoding="utf-8").splitlines(keepends=True)
    broken = lines.copy()
    broken[number] = lines[number].replace(line, changed, 1)
    diff = difflib.unified_diff(lines, broken, source, source, n=2)
    what = f"{source}:{number + 1}: {line.strip()} => {changed.strip()}\n"
    # A name with a blank ends at a tab, or it would be cut.
    return what + "".join(d.rstrip("\n") + "\t\n" if d[:4] in ("--- ", "+++ ") else d for d in diff)


def main():
    count, seed, folder = int(sys.argv[1]), int(sys.argv[2]), pathlib.Path(sys.argv[3])
    faults = list(all_faults(sorted(sys.argv[4:])))
    chosen = random.Random(seed).sample(faults, min(count, len(faults)))
    folder.mkdir(parents=True, exist_ok=True)
    for index, fault in enumerate(chosen, 1):
        name = f"{index:04}-{pathlib.Path(fault[0]).stem}-{fault[1] + 1}.patch"
        (folder / name).write_text(patch_of(*fault), encoding="utf-8")
    print(f"{len(chosen)} of {len(faults)} faults")


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the Markdown documents of the project for the tests."""

import re
import shlex
from collections import namedtuple

# argument: the text after the language; number: the number of the line that opens the block.
Block = namedtuple("Block", "document number language argument lines")
Command = namedtuple("Command", "place text output")  # output: lines, none where none are shown


def documents(root):
    """The documents' paths, relative to root."""
    folders = [root, *(path for path in root.iterdir() if path.is_dir() and path.name != "build")]
    found = (path for folder in folders
             for path in (folder.glob("*.md") if folder == root else folder.rglob("*.md")))
    return sorted(path.relative_to(root) for path in found)


def blocks(root, document):
    found, opened = [], None
    for number, line in enumerate((root / document).read_text().splitlines(), 1):
        if opened and line == "```":
            found.append(opened)
            opened = None
        elif opened:
            opened.lines.append(line)
        elif line.startswith("```"):
            language, _, argument = line[3:].partition(" ")
            opened = Block(document, number, language, argument, [])
    return found


def prose(root, document):
    """The lines outside of blocks."""
    inside, lines = False, []
    for line in (root / document).read_text().splitlines():
        if line.startswith("```"):
            inside = not inside
        elif not inside:
            lines.append(line)
    return lines


def indented_lines(root, document):
    """Lines that Markdown shows as a block although no language is given."""
    lines = ["", *prose(root, document)]
    return [line for before, line in zip(lines, lines[1:])
            if not before and re.match(" {4}", line)]


def is_whole(text):
    if text.endswith("\\"):
        return False
    try:
        shlex.split(text, comments=True)
    except ValueError:  # an open quotation
        return False
    return True


def commands(block):
    """The commands of a block of sh, or of console, which has "$ " before each command."""
    found, text = [], ""
    for offset, line in enumerate(block.lines, 1):
        place = f"{block.document}:{block.number + offset}"
        is_output = block.language == "console" and not text and not line.startswith("$ ")
        if is_output:
            found[-1].output.append(line)
            continue
        text += line.removeprefix("$ ") if not text else "\n" + line
        if is_whole(text):
            found.append(Command(place, text, [] if block.language == "console" else None))
            text = ""
    return [command for command in found if shlex.split(command.text, comments=True)]


def spans(root, document):
    return re.findall(r"`([^`\n]+)`", "\n".join(prose(root, document)))


def links(root, document):
    """The links and pictures that lead to files of the project."""
    targets = re.findall(r"\]\(([^)]+)\)", "\n".join(prose(root, document)))
    return [target for target in targets if "://" not in target]


def anchors(root, document):
    headings = [line.lstrip("# ") for line in prose(root, document) if re.match("#+ ", line)]
    kept = (re.sub(r"[^\w\- ]", "", heading.lower()) for heading in headings)
    return [heading.replace(" ", "-") for heading in kept]


def table_rows(root, document, heading=""):
    """The cells of the rows of the tables after a heading, without the heads of the tables."""
    lines = prose(root, document)
    if heading:
        lines = lines[lines.index(heading):]
        last = next((number for number, line in enumerate(lines[1:], 1) if line.startswith("#")),
                    len(lines))
        lines = lines[:last]
    rows = [[cell.strip() for cell in line.strip("|").split("|")]
            for line in lines if line.startswith("|")]
    heads = {number - 1 for number, row in enumerate(rows) if all(re.match("-+$", c) for c in row)}
    return [row for number, row in enumerate(rows)
            if number not in heads and number - 1 not in heads]

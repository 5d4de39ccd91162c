#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the sample interchange folder and the sample card PDFs beside this script.

Needs python3-pil and fonts-noto-cjk of Debian 12. What it draws is kept in the repository; run it
after changing a card, a column title or a folder name.
"""

import re
import shutil
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

sys.dont_write_bytecode = True

import card_pdfs
import landscape_cards
import portrait_cards
from card_canvas import DOTS_PER_INCH
from PIL import Image
from sample_cards import CARDS

HERE = Path(__file__).resolve().parent
TEXTS = HERE.parent / "resources/i18n/Localizable_ja.ts"
COLUMNS = HERE.parent / "datafile/records/DBCColumns.h"
JPEG_QUALITY = 85
# An Exif orientation of 6: the stored picture is to be turned a quarter clockwise.
EXIF_ORIENTATION, TURN_CLOCKWISE = 0x0112, 6
VERSION_LINE = "VELMORA\tV1.0L10\r\n"

SIDES = {
    "0001_表.jpg": landscape_cards.aoyagi_face,
    "0001_裏.jpg": landscape_cards.aoyagi_back,
    "0002_表.jpg": landscape_cards.onodera_face,
    "0002_裏.jpg": landscape_cards.onodera_back,
    "0003_表.jpg": portrait_cards.takase_face,
    "0004_表.jpg": landscape_cards.miura_face,
    "0005_front.jpg": landscape_cards.lindholm_face,
    "0005_back.jpg": landscape_cards.lindholm_back,
    "0006_表.jpg": portrait_cards.hayakawa_face,
    "0007_裏.jpg": landscape_cards.fujimura_back,
    "0008_表.jpg": landscape_cards.otsuka_face,
    "0009_表.jpg": landscape_cards.saionji_face,
    "0009_裏.jpg": landscape_cards.saionji_back,
    "0010_表.jpg": portrait_cards.tsukioka_face,
    "0010_裏.jpg": portrait_cards.tsukioka_back,
    "0011_表.jpg": landscape_cards.watarai_face,
    "0011_裏.jpg": landscape_cards.watarai_back,
    "0012_表.jpg": portrait_cards.kirishima_face,
    "0012_裏.jpg": portrait_cards.kirishima_back,
}
SCANNED_LYING = {"0006_表.jpg"}
PICTURES = {
    "椅子.png": portrait_cards.walnut_chair,
    "作品1.png": portrait_cards.kirishima_face,
    "作品2.png": portrait_cards.kirishima_back,
}
PICTURE_WIDTH = 240


def localized_texts():
    messages = ElementTree.parse(TEXTS).getroot().iter("message")
    return {message.get("id"): message.findtext("translation") for message in messages}


def columns():
    """Title key and record key of each column, in column order."""
    pattern = r'\{"(IDS_CSV_TITLE_\w+)", DBCRecordKey::(\w+)'
    return re.findall(pattern, COLUMNS.read_text(encoding="utf-8"))


def write_utf16(path, text):
    path.write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))


def write_card_image(path, image):
    options = {"quality": JPEG_QUALITY, "subsampling": 0, "dpi": (DOTS_PER_INCH, DOTS_PER_INCH)}
    if path.name in SCANNED_LYING:
        image = image.transpose(Image.Transpose.ROTATE_90)
        exif = Image.Exif()
        exif[EXIF_ORIENTATION] = TURN_CLOCKWISE
        options["exif"] = exif
    image.save(path, "JPEG", optimize=True, **options)


def write_attachment(path, text):
    if path.suffix == ".txt":
        path.write_text(text, encoding="utf-8")
    elif path.suffix == ".pdf":
        path.write_bytes(card_pdfs.text_page([text]))
    else:
        picture = PICTURES[path.name]()
        height = round(picture.height * PICTURE_WIDTH / picture.width)
        small = picture.resize((PICTURE_WIDTH, height), Image.LANCZOS)
        small.quantize(64).save(path, "PNG", optimize=True)


def write_data_file(path, texts):
    keys = columns()
    lines = [[texts[title] for title, _ in keys]]
    lines += [[getattr(card, key) for _, key in keys] for card in CARDS]
    write_utf16(path, "".join("\t".join(line) + "\r\n" for line in lines))


def emptied(folder):
    if folder.exists():
        shutil.rmtree(folder)
    folder.mkdir()
    return folder


def write_cards():
    texts = localized_texts()
    folder = emptied(HERE / "cards")
    write_utf16(folder / "Version.txt", VERSION_LINE)
    write_data_file(folder / texts["IDS_FOLDER_STRUCT_DataFileName"], texts)
    images = emptied(folder / texts["IDS_FOLDER_STRUCT_STANDARD"])
    for name, draw in SIDES.items():
        write_card_image(images / name, draw())
    attachments = emptied(folder / texts["IDS_FOLDER_STRUCT_ATTACHMENT"])
    for card in CARDS:
        if card.attachments:
            own = emptied(attachments / card.attachmentFile)
            for attachment in card.attachments:
                write_attachment(own / attachment.name, attachment.text)


def write_pdfs():
    folder = emptied(HERE / "pdfs")
    for name, data in card_pdfs.all_samples().items():
        (folder / name).write_bytes(data)


if __name__ == "__main__":
    write_cards()
    write_pdfs()

# SPDX-License-Identifier: GPL-3.0-or-later
"""The sample cards that stand on their short side. Each function returns one side at 300 dpi."""

from math import cos, pi, sin

from card_canvas import LONG_SIDE, SANS_BOLD, SERIF, SERIF_BOLD, SHORT_SIDE, CardCanvas
from sample_cards import HAYAKAWA, KIRISHIMA, TAKASE, TSUKIOKA


def portrait(paper):
    return CardCanvas(SHORT_SIDE, LONG_SIDE, paper)


def takase_face():
    """Cut timber: year rings on kraft paper."""
    ink, grain = "#3b2a1a", "#d2b687"
    canvas = portrait("#e2cba3")
    for ring in range(1, 17):
        points = []
        for degree in range(0, 361, 3):
            angle = degree * pi / 180
            wobble = 1 + 0.035 * sin(3 * angle + ring * 0.25) + 0.02 * sin(7 * angle + ring * 0.6)
            radius = ring * 1.75 * wobble
            points.append((4 + radius * 1.15 * cos(angle), 84 + radius * sin(angle)))
        canvas.curve(points, grain, 0.22 + 0.1 * (ring % 3))
    canvas.vertical(46.5, 9, TAKASE.company, 11, ink, SERIF_BOLD, 0.12)
    canvas.vertical(39.0, 9, "椅子・卓・建具", 6.5, ink, SERIF, 0.08)
    canvas.vertical(29.5, 19, TAKASE.job_Title, 7, ink, SERIF, 0.3)
    canvas.vertical(27.5, 31, TAKASE.full_Name, 19, ink, SERIF_BOLD, 0.04)
    canvas.lines(
        50,
        77.6,
        [
            f"〒{TAKASE.zip_PostalCode}　{TAKASE.one_line_address}",
            f"電話 {TAKASE.telephone_Number}",
            f"携帯 {TAKASE.mobile_Number}",
            TAKASE.e_Mail,
        ],
        6,
        3.5,
        ink=ink,
        face=SERIF,
        align="right",
    )
    return canvas.finished()


def leaf(canvas, x, y, length, angle, colour, opacity):
    outline = []
    for side in (1, -1):
        for step in range(21) if side == 1 else range(20, -1, -1):
            along = step / 20 * length
            across = side * 0.26 * length * sin(step / 20 * pi) ** 0.8
            outline.append(
                (
                    x + along * cos(angle) - across * sin(angle),
                    y + along * sin(angle) + across * cos(angle),
                )
            )
    canvas.glaze(outline, colour, opacity)


def hayakawa_face():
    """Sunlight through leaves."""
    ink, green = "#27402f", "#3f8f5b"
    canvas = portrait("#fcfdf8")
    leaves = [
        (-2, 4, 20, 0.5, "#8cc98f"),
        (12, -3, 19, 1.1, "#b9dd9b"),
        (24, -4, 17, 1.6, "#6db37a"),
        (38, -4, 18, 1.9, "#a6d48f"),
        (57, 2, 21, 2.5, "#7fc08a"),
        (56, 13, 15, 2.8, "#cbe6ad"),
        (-2, 15, 14, 0.1, "#cfe8b4"),
        (30, -3, 13, 2.2, "#d8ecbd"),
    ]
    for x, y, length, angle, colour in leaves:
        leaf(canvas, x, y, length, angle, colour, 0.6)
    middle = SHORT_SIDE / 2
    corporation, clinic = HAYAKAWA.company.split("　")
    canvas.text(middle, 30.4, corporation, 6.5, green, tracking=0.12, align="centre")
    canvas.text(middle, 36.6, clinic, 12, green, SANS_BOLD, 0.06, "centre")
    canvas.rule(middle - 6, 41.6, middle + 6, 41.6, "#b9dd9b", 0.4)
    canvas.text(middle, 49.6, HAYAKAWA.job_Title, 6.8, ink, tracking=0.1, align="centre")
    canvas.spread(13, 58.0, HAYAKAWA.full_Name.replace("　", " "), 16.5, 29, ink, SANS_BOLD)
    canvas.text(middle, 62.6, "Chihiro Hayakawa, D.D.S.", 5.8, "#6f8a77", align="centre")
    canvas.lines(
        middle,
        71.4,
        [
            f"〒{HAYAKAWA.zip_PostalCode}　{HAYAKAWA.one_line_address}",
            f"TEL {HAYAKAWA.telephone_Number}　FAX {HAYAKAWA.fax_Number}",
            HAYAKAWA.e_Mail,
            "診療 9:00～12:30 / 14:30～19:00",
        ],
        5.9,
        3.7,
        ink=ink,
        align="centre",
    )
    return canvas.finished()


def tsukioka_face():
    gold, night = "#d8b56a", "#17171c"
    canvas = portrait(night)
    canvas.circle(27.5, 22, 10.5, fill=gold)
    canvas.circle(31.3, 19.4, 9.6, fill=night)
    for offset in range(3):
        y = 35.5 + offset * 1.3
        reach = 9 - offset * 2.6
        canvas.curve(
            [(27.5 - reach + n * reach / 20, y + 0.3 * sin(n / 3)) for n in range(41)],
            gold,
            0.2,
        )
    canvas.vertical(42.5, 42, TSUKIOKA.company, 14, gold, SERIF_BOLD, 0.12)
    canvas.vertical(24.0, 48, TSUKIOKA.job_Title, 6.5, "#cfc8b8", SERIF, 0.2)
    canvas.vertical(14.5, 46, TSUKIOKA.full_Name, 13, "#f3ede0", SERIF, 0.08)
    canvas.text(27.5, 85.4, TSUKIOKA.telephone_Number, 8, gold, SERIF, 0.1, "centre")
    return canvas.finished()


def tsukioka_back():
    """The way from the station."""
    gold, night, road = "#d8b56a", "#17171c", "#5a564c"
    canvas = portrait(night)
    canvas.text(27.5, 12.5, "地　図", 8, gold, SERIF, 0.2, "centre")
    canvas.curve([(6 + n / 2, 55.4 + 0.8 * sin(n / 6)) for n in range(87)], "#3f6d86", 0.9)
    canvas.rule(6, 26, 49, 26, road, 2.2)
    canvas.rule(16, 18, 16, 58, road, 1.6)
    canvas.rule(37, 18, 37, 58, road, 1.6)
    canvas.rule(6, 47, 49, 47, road, 1.6)
    canvas.rectangle(6, 19.6, 13.4, 23.4, outline="#cfc8b8", width=0.25)
    canvas.text(9.7, 22.4, "宵町駅", 5, "#cfc8b8", SERIF, align="centre")
    canvas.text(48, 23.6, "二番筋", 5.2, "#cfc8b8", SERIF, align="right")
    canvas.circle(31.5, 42.6, 2.3, fill=gold)
    canvas.circle(32.3, 42.0, 2.0, fill=night)
    canvas.text(27.6, 43.6, "月の音", 6, gold, SERIF_BOLD, align="right")
    canvas.text(39.2, 52.6, "川", 5.2, "#cfc8b8", SERIF)
    canvas.lines(
        27.5,
        68.4,
        [
            f"〒{TSUKIOKA.zip_PostalCode}",
            TSUKIOKA.address,
            "17時～24時（23時ラストオーダー）",
            "日曜定休",
        ],
        6,
        4.0,
        ink="#e6dfcf",
        face=SERIF,
        align="centre",
    )
    canvas.text(27.5, 85.8, TSUKIOKA.web_Page_Address, 5.8, gold, align="centre")
    return canvas.finished()


def ridge(base, height, waves, phase):
    """A mountain line across the card and down to its lower edge."""
    line = []
    for step in range(0, 111):
        x = step / 2
        y = base
        for number, wave in enumerate(waves, 1):
            y -= height / number * (1 - abs(sin(x / wave + phase * number)))
        line.append((x, y))
    return line + [(SHORT_SIDE, LONG_SIDE), (0, LONG_SIDE)]


def misty_mountains(canvas, horizon, inks):
    for number, ink in enumerate(inks):
        base = horizon + number * 6.5
        shape = ridge(base, 7.5 - number * 0.6, (11.0, 5.3, 2.9), 0.8 + number * 1.7)
        canvas.glaze(shape, ink, 0.55)


def kirishima_face():
    canvas = portrait("#f6f6f6")
    canvas.gradient(0, 52, ["#9a9a9a", "#d9d9d9", "#f2f2f2"])
    canvas.circle(39, 15, 4.2, fill="#f4f4f4")
    misty_mountains(canvas, 28, ["#a8a8a8", "#808080", "#5a5a5a", "#333333"])
    canvas.rectangle(0, 52, SHORT_SIDE, LONG_SIDE, fill="#fcfcfc")
    ink = "#1a1a1a"
    canvas.text(8, 61.0, KIRISHIMA.job_Title, 6.4, "#555555", tracking=0.1)
    canvas.spread(8, 68.6, KIRISHIMA.full_Name.replace("　", " "), 15, 37, ink, SERIF_BOLD)
    canvas.text(8, 72.6, "KOTOHA KIRISHIMA", 5.4, "#777777", tracking=0.3)
    canvas.lines(
        8,
        79.6,
        [KIRISHIMA.address, KIRISHIMA.mobile_Number, KIRISHIMA.e_Mail],
        5.9,
        3.5,
        ink=ink,
    )
    return canvas.finished().convert("L")


def kirishima_back():
    canvas = portrait("#ffffff")
    canvas.gradient(0, LONG_SIDE, ["#27395e", "#8a6f93", "#e9a58a", "#f6d6a8", "#f6e6cf"])
    canvas.circle(18, 44, 5.2, fill="#fdeccb")
    misty_mountains(canvas, 56, ["#b58aa0", "#7f6a92", "#51507c", "#2c3560", "#1a2244"])
    canvas.text(27.5, 84.6, "kirishima-photo.example.com", 5.8, "#ffffff", align="centre")
    return canvas.finished()


def walnut_chair():
    """The picture in Takase's attachment folder."""
    wood, shade = "#7a5230", "#5f3e23"
    canvas = portrait("#f3ece0")
    canvas.rectangle(0, 74, SHORT_SIDE, LONG_SIDE, fill="#ddcfb8")
    canvas.glaze([(9, 79), (46, 79), (52, 83), (15, 83)], "#6b5a44", 0.35)
    for left, right, top, colour in ((15, 17.6, 18, shade), (37.4, 40, 18, shade)):
        canvas.polygon([(left, top), (right, top), (right + 0.6, 78), (left - 0.6, 78)], colour)
    for top in (20, 28, 36):
        canvas.rectangle(16, top, 39, top + 3.4, fill=wood, radius=1.2)
    canvas.polygon([(13, 50), (42, 50), (46, 57), (9, 57)], wood)
    canvas.polygon([(9, 57), (46, 57), (46, 59.4), (9, 59.4)], shade)
    for left in (10, 42.4):
        canvas.polygon([(left, 59.4), (left + 2.8, 59.4), (left + 2.2, 80), (left + 0.6, 80)], wood)
    return canvas.finished()

# SPDX-License-Identifier: GPL-3.0-or-later
"""The sample cards that lie on their long side. Each function returns one side at 300 dpi."""

from math import cos, pi, sin

from card_canvas import LONG_SIDE, SANS_BOLD, SERIF, SERIF_BOLD, SHORT_SIDE, CardCanvas
from sample_cards import AOYAGI, FUJIMURA, LINDHOLM, MIURA, ONODERA, OTSUKA, SAIONJI, WATARAI


def contours(canvas, x, y, ink, count, first=3.0, step=2.6):
    """Height lines around a hill top."""
    for level in range(count):
        radius = first + level * step
        wobble = min(0.16, 0.06 + 0.012 * level)
        points = []
        for degree in range(0, 361, 2):
            angle = degree * pi / 180
            shape = 1 + wobble * (
                sin(3 * angle + 0.22 * level) + 0.6 * sin(5 * angle - 0.15 * level)
            )
            points.append((x + 1.35 * radius * shape * cos(angle), y + radius * shape * sin(angle)))
        canvas.curve(points, ink, 0.28 if level % 4 == 0 else 0.14)


def aoyagi_face():
    teal, ink = "#0f5c6e", "#1d2b30"
    canvas = CardCanvas(paper="#fbfdfc")
    contours(canvas, 77, 12, "#b5dad8", 8)
    canvas.circle(11.6, 11.4, 2.6, fill=teal)
    canvas.curve([(9.6 + n / 10, 11.5 + 0.55 * sin(n / 3.2)) for n in range(41)], "#ffffff", 0.4)
    canvas.text(16, 12.7, AOYAGI.company, 10, teal, SANS_BOLD, 0.08)
    canvas.text(9, 25.0, AOYAGI.job_Title, 7.5, ink, tracking=0.1)
    canvas.spread(9, 32.2, AOYAGI.full_Name.replace("　", " "), 16, 39, ink, SERIF_BOLD)
    canvas.text(50.5, 32.2, "あおやぎ　しんいちろう", 5.5, "#5b7075")
    canvas.rule(9, 36.4, 82, 36.4, teal, 0.25)
    canvas.lines(
        9,
        40.6,
        [
            f"〒{AOYAGI.zip_PostalCode}　{AOYAGI.one_line_address}",
            f"TEL {AOYAGI.telephone_Number}　FAX {AOYAGI.fax_Number}　携帯 {AOYAGI.mobile_Number}",
            f"{AOYAGI.e_Mail}　　{AOYAGI.web_Page_Address}",
        ],
        6.3,
        3.7,
        ink=ink,
    )
    return canvas.finished()


def aoyagi_back():
    canvas = CardCanvas(paper="#0f5c6e")
    contours(canvas, 18, 44, "#2f7f8e", 21)
    canvas.text(82, 14, "SOUKAI SURVEY CO., LTD.", 8.5, "#ffffff", SANS_BOLD, 0.12, "right")
    canvas.rule(58, 17.4, 82, 17.4, "#9fd6d2", 0.25)
    services = ["海底地形測量", "港湾・河川の深浅測量", "ドローンによる海岸線調査", "海図データの作成"]
    canvas.lines(82, 36, services, 7, 4.5, ink="#e6f4f2", align="right")
    return canvas.finished()


def blossom(canvas, x, y, radius, petal, heart):
    for number in range(5):
        angle = (number * 72 - 90) * pi / 180
        canvas.circle(
            x + radius * 0.62 * cos(angle), y + radius * 0.62 * sin(angle), radius * 0.5, petal
        )
    canvas.circle(x, y, radius * 0.3, heart)
    for number in range(5):
        angle = (number * 72 - 90) * pi / 180
        canvas.rule(
            x, y, x + radius * 0.55 * cos(angle), y + radius * 0.55 * sin(angle), heart, 0.18
        )


def onodera_face():
    brown, rose = "#5a3d2b", "#d98a94"
    canvas = CardCanvas(paper="#fdf7ee")
    canvas.rectangle(0, 0, 4.2, SHORT_SIDE, fill=rose)
    blossom(canvas, 78.5, 13.5, 6.2, "#efb9bd", "#c96c79")
    blossom(canvas, 70.0, 20.6, 2.9, "#f6d7d5", "#d98a94")
    canvas.text(12, 14.0, ONODERA.company, 10.5, brown, SERIF_BOLD, 0.1)
    canvas.text(12, 23.6, f"{ONODERA.department}　{ONODERA.job_Title}", 7, brown, SERIF, 0.05)
    canvas.spread(12, 32.0, ONODERA.full_Name.replace("　", " "), 17, 38, brown, SERIF)
    canvas.text(53.5, 32.0, "おのでら　みづき", 5.8, "#a06a5c", SERIF)
    canvas.lines(
        12,
        40.0,
        [
            f"〒{ONODERA.zip_PostalCode}　{ONODERA.address}",
            f"電話 {ONODERA.telephone_Number}　FAX {ONODERA.fax_Number}"
            f"　携帯 {ONODERA.mobile_Number}",
            f"{ONODERA.e_Mail}　　{ONODERA.web_Page_Address}",
        ],
        6.2,
        3.7,
        ink=brown,
    )
    return canvas.finished()


def onodera_back():
    canvas = CardCanvas(paper="#f4cfcd")
    for row in range(16):
        for column in range(-1, 13):
            x, y = column * 8 + (row % 2) * 4, 4 + row * 4.0
            for radius, fill in ((4.0, "#f4cfcd"), (2.9, "#f8e0dc"), (1.8, "#f4cfcd")):
                canvas.circle(x, y, radius, fill, "#e3a3a6", 0.22)
    canvas.rectangle(21, 16.5, 70, 38.5, fill="#fdf7ee", outline="#c96c79", width=0.3, radius=1.5)
    canvas.text(45.5, 24.8, "つむぐ、ひと口の季節。", 9.5, "#5a3d2b", SERIF_BOLD, 0.06, "centre")
    canvas.text(45.5, 30.4, "ようかん・最中・季節の生菓子", 6.5, "#a06a5c", SERIF, 0.08, "centre")
    canvas.text(45.5, 35.0, "営業 9時～18時　火曜定休", 5.8, "#a06a5c", SERIF, 0.06, "centre")
    return canvas.finished()


def miura_face():
    ink, light = "#1c1c1c", "#c4c4c4"
    canvas = CardCanvas(paper="#fafafa")
    for radius in (12.5, 8.5, 3.4):
        canvas.circle(73, 18, radius, outline=light, width=0.22)
    for number in range(6):
        angle = (number * 60 + 30) * pi / 180
        canvas.circle(73 + 10.5 * cos(angle), 18 + 10.5 * sin(angle), 1.1, outline=light, width=0.2)
    for dash in range(0, 31, 4):
        canvas.rule(57.5 + dash, 18, 60.3 + dash, 18, light, 0.15)
        canvas.rule(73, 2.5 + dash, 73, 5.3 + dash, light, 0.15)
    canvas.text(88, 32.8, "φ25 ±0.005", 5, "#8c8c8c", align="right")
    canvas.rectangle(8, 7.6, 9.6, 13.4, fill=ink)
    canvas.text(12, 12.2, MIURA.company, 10, ink, SANS_BOLD, 0.06)
    canvas.text(8, 22.6, f"{MIURA.department}　{MIURA.job_Title}", 7, ink, tracking=0.06)
    canvas.spread(8, 31.0, MIURA.full_Name.replace("　", " "), 17, 32, ink, SANS_BOLD)
    canvas.text(42, 31.0, "Kenta Miura", 6.2, "#666666")
    canvas.rule(8, 36.0, 83, 36.0, ink, 0.2)
    canvas.lines(
        8,
        40.6,
        [
            f"〒{MIURA.zip_PostalCode}　{MIURA.one_line_address}",
            f"TEL {MIURA.telephone_Number}　　FAX {MIURA.fax_Number}",
            f"{MIURA.e_Mail}　　{MIURA.web_Page_Address}",
        ],
        6.3,
        3.7,
        ink=ink,
    )
    return canvas.finished().convert("L")


def aurora(canvas, base, colours, opacity):
    """Ribbons of light; base is the height around which they hang."""
    for number, colour in enumerate(colours):
        upper = []
        lower = []
        for step in range(0, 93):
            drift = 3.2 * sin(step / 13 + number * 1.3) + 1.5 * sin(step / 6.1 + number * 2.1)
            upper.append((step, base + number * 2.1 + drift - 5.5))
            lower.append((step, base + number * 2.1 + drift + 3.5 + 2 * sin(step / 9 + number)))
        canvas.glaze(upper + lower[::-1], colour, opacity)


def lindholm_face():
    ink = "#24303f"
    canvas = CardCanvas(paper="#ffffff")
    aurora(canvas, 43.5, ["#7fd8be", "#5fb3ce", "#8d8fd6", "#c79bd2"], 0.42)
    canvas.text(9, 13.0, "NORDLYS", 13, ink, SANS_BOLD, 0.32)
    canvas.text(9, 17.2, "INTERIOR JAPAN", 5.6, "#6b7686", tracking=0.42)
    canvas.text(9, 28.6, LINDHOLM.full_Name, 13, ink)
    canvas.text(9, 32.8, f"{LINDHOLM.job_Title}, {LINDHOLM.department}", 6.6, "#6b7686")
    canvas.lines(
        82,
        11.6,
        [LINDHOLM.telephone_Number, LINDHOLM.mobile_Number, LINDHOLM.e_Mail],
        6.2,
        3.6,
        ink=ink,
        align="right",
    )
    return canvas.finished()


def lindholm_back():
    canvas = CardCanvas()
    canvas.gradient(0, SHORT_SIDE, ["#0d1526", "#16263f", "#1d3a52"])
    aurora(canvas, 18, ["#4fd0a8", "#3d9bc4", "#6d6bc9", "#a778c0"], 0.3)
    canvas.text(9, 37.4, LINDHOLM.company, 8.5, "#ffffff", SANS_BOLD, 0.06)
    canvas.text(9, 42.4, "アンナ・ソフィア・リンドホルム", 7, "#e4ecf4", tracking=0.05)
    canvas.text(
        9, 46.6, f"〒{LINDHOLM.zip_PostalCode}　{LINDHOLM.address}", 6, "#c2cfdd", tracking=0.02
    )
    return canvas.finished()


def lighthouse(canvas, x, foot, ink):
    outline = [(-1.8, 0), (-1.1, -9), (1.1, -9), (1.8, 0), (-1.8, 0)]
    band = [(-1.5, -2.7), (1.5, -2.7), (1.3, -5.3), (-1.3, -5.3)]
    canvas.glaze([(x, foot - 10.1), (x - 20, foot - 16), (x - 20, foot - 11)], "#f3c846", 0.45)
    canvas.polygon([(x + dx, foot + dy) for dx, dy in outline], "#ffffff")
    canvas.polygon([(x + dx, foot + dy) for dx, dy in band], "#c9463d")
    canvas.curve([(x + dx, foot + dy) for dx, dy in outline], ink, 0.22)
    canvas.rectangle(x - 1.3, foot - 11.1, x + 1.3, foot - 9, "#f3c846", ink, 0.22)
    canvas.polygon([(x - 1.7, foot - 11.1), (x + 1.7, foot - 11.1), (x, foot - 12.9)], ink)


def fujimura_back():
    """An island with its lighthouse, and when the bookshop is open."""
    navy, sea = "#1f3a5f", "#d6e6ea"
    canvas = CardCanvas(paper="#fbf8f0")
    shore = [
        (65 + (16 + 1.6 * sin(3 * t) + 0.9 * sin(7 * t)) * cos(t), 29 + (10.5 + sin(4 * t)) * sin(t))
        for t in (n * pi / 90 for n in range(181))
    ]
    for swell in range(6):
        y = 10 + swell * 8
        canvas.curve([(44 + n / 2, y + 0.6 * sin(n / 2.2 + swell)) for n in range(95)], sea, 0.35)
    canvas.polygon(shore, "#e9efdc")
    canvas.curve(shore, navy, 0.25)
    canvas.curve([(54 + n / 4, 31 + 2 * sin(n / 9)) for n in range(72)], "#b9b39d", 0.8)
    lighthouse(canvas, 66, 25, navy)
    canvas.circle(60.5, 32.2, 0.9, fill="#c9463d")
    canvas.text(62.2, 35.6, "灯台書房", 5.5, navy, SANS_BOLD)
    canvas.text(77.6, 33.4, "港", 5.5, navy)
    canvas.text(9, 14.0, FUJIMURA.company, 11, navy, SERIF_BOLD, 0.08)
    canvas.text(9, 20.2, f"{FUJIMURA.job_Title}　{FUJIMURA.full_Name}", 8, navy, SERIF, 0.05)
    canvas.lines(
        9,
        29.6,
        ["古書・海の本・島の新聞", "金・土・日　11時～日没", "（荒天の日はお休みします）"],
        6.3,
        4.0,
        ink=navy,
        face=SERIF,
    )
    canvas.lines(
        9,
        44.0,
        [
            f"〒{FUJIMURA.zip_PostalCode}　{FUJIMURA.one_line_address}",
            f"{FUJIMURA.telephone_Number}　{FUJIMURA.e_Mail}",
        ],
        6,
        3.7,
        ink=navy,
    )
    return canvas.finished()


def crest(canvas, x, y, radius, ink):
    canvas.circle(x, y, radius, outline=ink, width=0.45)
    canvas.circle(x, y, radius - 0.9, outline=ink, width=0.15)
    canvas.polygon([(x - 3, y + 2.4), (x, y + 3.3), (x, y - 0.4), (x - 3, y - 1.3)], ink)
    canvas.polygon([(x + 3, y + 2.4), (x, y + 3.3), (x, y - 0.4), (x + 3, y - 1.3)], "#8a8a8a")
    for row in range(3):
        canvas.curve(
            [(x - 2.6 + n / 10, y - 2.2 - row * 0.9 + 0.28 * sin(n / 4.0)) for n in range(53)],
            ink,
            0.22,
        )


def otsuka_face():
    sun, brick, ink = "#f3a43b", "#c8552b", "#33271f"
    canvas = CardCanvas(paper="#fffaf2")
    canvas.circle(76, 15, 6.4, fill=sun)
    for number in range(12):
        angle = number * pi / 6
        canvas.rule(
            76 + 7.8 * cos(angle),
            15 + 7.8 * sin(angle),
            76 + 9.6 * cos(angle),
            15 + 9.6 * sin(angle),
            sun,
            0.5,
        )
    for left, top, right in ((58, 40, 66), (66.8, 36.5, 75), (75.8, 41.5, 84)):
        canvas.rectangle(left, top, right, SHORT_SIDE, fill="#f0dcc0")
        canvas.polygon([(left - 0.8, top), ((left + right) / 2, top - 4.2), (right + 0.8, top)], brick)
        canvas.rectangle(left + 2.6, top + 2.6, right - 2.6, top + 5.6, fill="#fdeec4")
    canvas.rule(9, 16.6, 9, 8.2, brick, 0.9)
    canvas.text(11.5, 13.8, OTSUKA.company, 10.5, brick, SANS_BOLD, 0.06)
    canvas.text(9, 24.0, f"{OTSUKA.department}　{OTSUKA.job_Title}", 6.6, ink, tracking=0.06)
    canvas.spread(9, 31.6, OTSUKA.full_Name.replace("　", " "), 15, 37, ink, SERIF_BOLD)
    canvas.lines(
        9,
        40.0,
        [
            f"〒{OTSUKA.zip_PostalCode}　{OTSUKA.one_line_address}",
            f"TEL {OTSUKA.telephone_Number}　FAX {OTSUKA.fax_Number}",
            f"携帯 {OTSUKA.mobile_Number}",
            OTSUKA.e_Mail,
        ],
        5.9,
        3.5,
        ink=ink,
    )
    return canvas.finished()


def saionji_face():
    ink = "#161616"
    canvas = CardCanvas(paper="#fdfdfd")
    crest(canvas, 14, 13.5, 6, ink)
    canvas.text(23, 12.6, SAIONJI.company, 8.8, ink, SERIF_BOLD, 0.06)
    canvas.text(23, 17.4, SAIONJI.department, 7, ink, SERIF, 0.06)
    canvas.text(23, 26.4, f"{SAIONJI.job_Title}　博士（工学）", 6.6, ink, SERIF, 0.06)
    canvas.spread(23, 34.0, SAIONJI.full_Name.replace("　", " "), 16, 38, ink, SERIF_BOLD)
    canvas.lines(
        23,
        41.2,
        [
            f"〒{SAIONJI.zip_PostalCode}　{SAIONJI.one_line_address}",
            f"TEL {SAIONJI.telephone_Number}　FAX {SAIONJI.fax_Number}",
            SAIONJI.e_Mail,
        ],
        6.2,
        3.6,
        ink=ink,
    )
    return canvas.finished().convert("L")


def saionji_back():
    ink = "#161616"
    canvas = CardCanvas(paper="#fdfdfd")
    crest(canvas, 14, 13.5, 6, ink)
    canvas.text(23, 12.6, "Shiokaze Institute of Technology", 9.5, ink, SERIF_BOLD)
    canvas.text(23, 17.2, "Department of Information Engineering", 6.8, ink, SERIF)
    canvas.text(23, 31.0, "Rio SAIONJI, Ph.D.", 13.5, ink, SERIF_BOLD)
    canvas.text(23, 35.4, "Associate Professor", 6.8, ink, SERIF)
    canvas.lines(
        23,
        42.6,
        ["Room 412, Informatics, 9-1 Gakuen-dai, Shiokaze, Miyagi", SAIONJI.web_Page_Address],
        6.2,
        3.8,
        ink=ink,
    )
    return canvas.finished().convert("L")


def ripples(canvas, x, y, ink, count, step):
    for number in range(1, count + 1):
        canvas.circle(x, y, number * step, outline=ink, width=0.2 + 0.06 * number)


def watarai_face():
    blue, ink = "#1457b8", "#1a2233"
    canvas = CardCanvas(paper="#ffffff")
    canvas.rectangle(0, 0, 24, SHORT_SIDE, fill=blue)
    ripples(canvas, 12, 40, "#5f93e0", 5, 3.6)
    canvas.circle(12, 40, 1.5, fill="#ffffff")
    canvas.rectangle(24, 0, LONG_SIDE, SHORT_SIDE, fill="#ffffff")
    canvas.text(12, 13.2, "MINAMO", 9, "#ffffff", SANS_BOLD, 0.06, "centre")
    canvas.text(30, 12.6, WATARAI.company, 10, blue, SANS_BOLD, 0.06)
    canvas.text(30, 20.6, f"{WATARAI.department}　{WATARAI.job_Title}", 6.8, ink)
    canvas.spread(30, 29.0, WATARAI.full_Name.replace("　", " "), 16.5, 27, ink, SANS_BOLD)
    canvas.text(59.5, 29.0, "Wataru Watarai", 6, "#66728a")
    canvas.lines(
        30,
        37.0,
        [
            f"〒{WATARAI.zip_PostalCode}　{WATARAI.one_line_address}",
            f"TEL {WATARAI.telephone_Number}　FAX {WATARAI.fax_Number}",
            f"携帯 {WATARAI.mobile_Number}　{WATARAI.web_Page_Address}",
            WATARAI.e_Mail,
        ],
        5.8,
        3.5,
        ink=ink,
    )
    return canvas.finished()


def watarai_back():
    canvas = CardCanvas(paper="#1457b8")
    ripples(canvas, 72, 43, "#3f7bd0", 8, 3.9)
    canvas.circle(72, 43, 2, fill="#ffffff")
    canvas.text(9, 15.0, "MINAMO", 15, "#ffffff", SANS_BOLD, 0.1)
    canvas.text(9, 20.0, "静かに、電気を見守る。", 7.2, "#cfe0f8", tracking=0.08)
    products = ["受配電設備の監視ｼｽﾃﾑ", "水位・流量センサー", "太陽光発電の遠隔保守", "ﾊﾞｯﾃﾘｰ診断ｻｰﾋﾞｽ"]
    for number, product in enumerate(products):
        canvas.circle(10, 32.0 + number * 4.6, 0.6, fill="#8fd0ff")
        canvas.text(12.5, 32.9 + number * 4.6, product, 6.8, "#ffffff")
    return canvas.finished()

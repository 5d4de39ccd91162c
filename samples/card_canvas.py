# SPDX-License-Identifier: GPL-3.0-or-later
"""A sheet of card stock that is drawn on in millimetres and points and comes out at 300 dpi."""

from functools import lru_cache

from PIL import Image, ImageColor, ImageDraw, ImageFont

DOTS_PER_INCH = 300
MILLIMETRES_PER_INCH = 25.4
POINTS_PER_INCH = 72
# Drawn larger and scaled down, so that curves and small type come out smooth.
OVERSAMPLING = 2

SANS, SANS_BOLD = "NotoSansCJK-Regular.ttc", "NotoSansCJK-Bold.ttc"
SERIF, SERIF_BOLD = "NotoSerifCJK-Regular.ttc", "NotoSerifCJK-Bold.ttc"
FONT_FOLDER = "/usr/share/fonts/opentype/noto/"
JAPANESE_FACE = 0

# Japanese business cards: 91 x 55 mm.
LONG_SIDE, SHORT_SIDE = 91.0, 55.0


def dots(millimetres):
    return millimetres / MILLIMETRES_PER_INCH * DOTS_PER_INCH * OVERSAMPLING


@lru_cache(maxsize=None)
def font(name, points):
    size = round(points / POINTS_PER_INCH * DOTS_PER_INCH * OVERSAMPLING)
    return ImageFont.truetype(FONT_FOLDER + name, size, index=JAPANESE_FACE)


class CardCanvas:
    """Origin at the top left, y downwards. Colours are anything Pillow takes."""

    def __init__(self, width=LONG_SIDE, height=SHORT_SIDE, paper="#ffffff"):
        self.width, self.height = width, height
        self._final_size = tuple(
            round(side / MILLIMETRES_PER_INCH * DOTS_PER_INCH) for side in (width, height)
        )
        self.image = Image.new("RGB", tuple(n * OVERSAMPLING for n in self._final_size), paper)
        self._draw = ImageDraw.Draw(self.image)

    def text_width(self, text, points, face=SANS, tracking=0.0):
        """Millimetres; tracking is extra space after each character in ems."""
        chosen = font(face, points)
        advance = sum(chosen.getlength(c) for c in text) + tracking * chosen.size * (len(text) - 1)
        return advance / dots(1)

    def text(self, x, baseline, text, points, ink="#222222", face=SANS, tracking=0.0, align="left"):
        """One line from, around or up to x."""
        chosen = font(face, points)
        if tracking:
            width = self.text_width(text, points, face, tracking)
        else:
            width = chosen.getlength(text) / dots(1)
        left = dots(x - {"left": 0, "centre": width / 2, "right": width}[align])
        if not tracking:
            self._draw.text((left, dots(baseline)), text, ink, chosen, anchor="ls")
            return
        for character in text:
            self._draw.text((left, dots(baseline)), character, ink, chosen, anchor="ls")
            left += chosen.getlength(character) + tracking * chosen.size

    def spread(self, x, baseline, text, points, width, ink="#222222", face=SANS):
        """Characters spread evenly from x over width, as names are set on Japanese cards."""
        natural = self.text_width(text, points, face)
        em = font(face, points).size / dots(1)
        self.text(x, baseline, text, points, ink, face, (width - natural) / em / (len(text) - 1))

    def vertical(self, x, top, text, points, ink="#222222", face=SERIF, tracking=0.0):
        """One column centred on x, downwards from top; its height is returned."""
        chosen = font(face, points)
        y = dots(top)
        for character in text:
            self._draw.text((dots(x), y), character, ink, chosen, anchor="mt", direction="ttb")
            y += chosen.size * (1 + tracking)
        return y / dots(1) - top

    def lines(self, x, baseline, texts, points, leading, **style):
        """Lines of text, leading millimetres apart."""
        for number, text in enumerate(texts):
            self.text(x, baseline + number * leading, text, points, **style)

    def rule(self, x1, y1, x2, y2, ink, width=0.15):
        self._draw.line([dots(n) for n in (x1, y1, x2, y2)], ink, max(1, round(dots(width))))

    def rectangle(self, left, top, right, bottom, fill=None, outline=None, width=0.2, radius=0.0):
        self._draw.rounded_rectangle(
            [dots(n) for n in (left, top, right, bottom)],
            dots(radius),
            fill,
            outline,
            round(dots(width)),
        )

    def circle(self, x, y, radius, fill=None, outline=None, width=0.2):
        box = [dots(n) for n in (x - radius, y - radius, x + radius, y + radius)]
        self._draw.ellipse(box, fill, outline, round(dots(width)))

    def arc(self, x, y, radius, start, end, ink, width=0.2):
        box = [dots(n) for n in (x - radius, y - radius, x + radius, y + radius)]
        self._draw.arc(box, start, end, ink, round(dots(width)))

    def polygon(self, points, fill):
        self._draw.polygon([(dots(x), dots(y)) for x, y in points], fill)

    def glaze(self, points, colour, opacity):
        """A translucent polygon."""
        mask = Image.new("L", self.image.size, 0)
        shape = [(dots(x), dots(y)) for x, y in points]
        ImageDraw.Draw(mask).polygon(shape, round(255 * opacity))
        self.image.paste(colour, mask=mask)

    def gradient(self, top, bottom, colours):
        """Full-width bands that fade from one colour to the next, from top to bottom."""
        stops = [ImageColor.getrgb(colour) for colour in colours]
        first, last = round(dots(top)), round(dots(bottom))
        for y in range(first, last):
            position = (y - first) / max(1, last - first - 1) * (len(stops) - 1)
            index = min(int(position), len(stops) - 2)
            share = position - index
            colour = tuple(
                round(a + (b - a) * share) for a, b in zip(stops[index], stops[index + 1])
            )
            self._draw.line([(0, y), (self.image.width, y)], colour)

    def curve(self, points, ink, width=0.2):
        self._draw.line(
            [(dots(x), dots(y)) for x, y in points], ink, max(1, round(dots(width))), "curve"
        )

    def finished(self):
        """The card at 300 dpi."""
        return self.image.resize(self._final_size, Image.LANCZOS)

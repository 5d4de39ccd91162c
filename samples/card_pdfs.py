# SPDX-License-Identifier: GPL-3.0-or-later
"""The card PDFs: one of each kind that the converter tells apart, and one of each build of a page
that it takes images from."""

import io
import zlib

import landscape_cards
import portrait_cards
from card_canvas import DOTS_PER_INCH, POINTS_PER_INCH
from PIL import Image
from pdf_bytes import PdfFile

OWN_CREATOR = "Trevant Manager #VelmoraConverter"
MAIN_APPLICATION = "Velmora 2.0"
STRANGER = "Meadow Writer 2.1"
PASSWORD = "sample"
JPEG_QUALITY = 70


def jpeg(image):
    out = io.BytesIO()
    image.save(out, "JPEG", quality=JPEG_QUALITY, dpi=(DOTS_PER_INCH, DOTS_PER_INCH))
    return out.getvalue()


def points(pixels):
    return pixels * POINTS_PER_INCH // DOTS_PER_INCH


def image_entries(image, bits, colour_space, filters):
    return (
        f"/Type /XObject /Subtype /Image /Width {image.width} /Height {image.height} "
        f"/BitsPerComponent {bits} /ColorSpace /{colour_space} /Filter {filters}"
    )


def add_jpeg(pdf, image):
    colour_space = "DeviceGray" if image.mode == "L" else "DeviceRGB"
    return pdf.add_stream(image_entries(image, 8, colour_space, "/DCTDecode"), jpeg(image))


def placed(name, width, height):
    return f"/Perceptual ri\nq\n{width} 0 0 {height} 0 0 cm\n/{name} Do\nQ\n"


def add_image_page(pdf, image, number, drawing="", resources=""):
    width, height = points(image.width), points(image.height)
    xobject = f"/XObject << /Im0 {number} 0 R >> {resources}"
    pdf.add_page(width, height, xobject, placed("Im0", width, height) + drawing)


def jpeg_pages(images, creator=OWN_CREATOR, password=None):
    pdf = PdfFile(creator, password)
    for image in images:
        add_image_page(pdf, image, add_jpeg(pdf, image))
    return pdf.to_bytes()


def mono(image):
    """Set bits are black, and the Decode array makes every viewer see them so."""
    pdf = PdfFile(OWN_CREATOR)
    bits = image.convert("L").point(lambda level: 255 if level < 205 else 0).convert("1")
    entries = image_entries(image, 1, "DeviceGray", "/FlateDecode") + " /Decode [1 0]"
    number = pdf.add_stream(entries, zlib.compress(bits.tobytes(), 9))
    add_image_page(pdf, image, number)
    return pdf.to_bytes()


def flate_around_jpeg(image):
    pdf = PdfFile(OWN_CREATOR)
    entries = image_entries(image, 8, "DeviceRGB", "[/FlateDecode /DCTDecode]")
    add_image_page(pdf, image, pdf.add_stream(entries, zlib.compress(jpeg(image), 9)))
    return pdf.to_bytes()


def image_in_form(image):
    pdf = PdfFile(OWN_CREATOR)
    width, height = points(image.width), points(image.height)
    inner = add_jpeg(pdf, image)
    form = pdf.add_stream(
        f"/Type /XObject /Subtype /Form /BBox [0 0 {width} {height}] "
        f"/Resources << /XObject << /Im0 {inner} 0 R >> >>",
        placed("Im0", width, height).encode("ascii"),
    )
    resources = f"/XObject << /Fm0 {form} 0 R >>"
    pdf.add_page(width, height, resources, placed("Fm0", 1, 1))
    return pdf.to_bytes()


def turned(image):
    """An upright card that was scanned lying on its side; the page turns it clockwise."""
    pdf = PdfFile(OWN_CREATOR)
    lying = image.transpose(Image.Transpose.ROTATE_90)
    number = add_jpeg(pdf, lying)
    width, height = points(image.width), points(image.height)
    content = f"/Perceptual ri\nq\n0 {-height} {width} 0 0 {height} cm\n/Im0 Do\nQ\n"
    pdf.add_page(width, height, f"/XObject << /Im0 {number} 0 R >>", content)
    return pdf.to_bytes()


def searchable(image, lines):
    """The recognised text lies unseen over the picture."""
    pdf = PdfFile(MAIN_APPLICATION)
    font = pdf.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
    text = "BT\n3 Tr\n/F1 6 Tf\n8 TL\n26 40 Td\n"
    text += "".join(f"({line}) Tj T*\n" for line in lines) + "ET\n"
    add_image_page(pdf, image, add_jpeg(pdf, image), text, f"/Font << /F1 {font} 0 R >>")
    return pdf.to_bytes()


def text_page(lines):
    """A plain page of text, for an attachment."""
    pdf = PdfFile(STRANGER)
    font = pdf.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
    text = "BT\n/F1 12 Tf\n18 TL\n56 780 Td\n"
    text += "".join(f"({line}) Tj T*\n" for line in lines) + "ET\n"
    pdf.add_page(595, 842, f"/Font << /F1 {font} 0 R >>", text)
    return pdf.to_bytes()


def all_samples():
    """Bytes by file name."""
    landscape = landscape_cards.miura_face()
    colour = landscape_cards.watarai_face()
    back = landscape_cards.saionji_back()
    upright = portrait_cards.hayakawa_face()
    return {
        "image-colour.pdf": jpeg_pages([colour]),
        "image-two-pages.pdf": jpeg_pages([landscape_cards.aoyagi_face(), back]),
        "image-mono-flate.pdf": mono(landscape),
        "image-flate-around-jpeg.pdf": flate_around_jpeg(colour),
        "image-in-form.pdf": image_in_form(colour),
        "image-turned-90.pdf": turned(upright),
        "searchable.pdf": searchable(
            landscape_cards.lindholm_face(),
            ["Anna Sofia Lindholm", "anna@nordlys-interior.example.com"],
        ),
        "other-producer.pdf": jpeg_pages([colour], STRANGER),
        "encrypted.pdf": jpeg_pages([landscape], OWN_CREATOR, PASSWORD),
    }

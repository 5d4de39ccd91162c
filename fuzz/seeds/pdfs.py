# SPDX-License-Identifier: GPL-3.0-or-later
"""PDF documents, and streams as the target of stream unpacking takes them."""
import itertools
import re
import struct
import zlib

import jpegs

PICTURE = jpegs.jpeg(jpegs.jfif())
UPRIGHT = b'/Perceptual ri\nq\n252 0 0 144 0 0 cm\n/Im1 Do\nQ\n'
CREATOR = b'/Creator (Trevant Manager #VelmoraConverter)'


def stream(entries, data, length=None):
    size = len(data) if length is None else length
    return b'<<%s /Length %s>>\nstream\n%s\nendstream' % (entries, str(size).encode(), data)


def document(objects, info=CREATOR, trailer=b'', table=True):
    """objects from number 1 on; 1 is the catalogue."""
    result = b'%PDF-1.4\n'
    offsets = []
    for number, body in enumerate(objects + [b'<<%s>>' % info], 1):
        offsets.append(len(result))
        result += b'%d 0 obj\n%s\nendobj\n' % (number, body)
    start = len(result)
    if table:
        result += b'xref\n0 %d\n0000000000 65535 f \n' % (len(offsets) + 1)
        result += b''.join(b'%010d 00000 n \n' % offset for offset in offsets)
    return result + b'trailer\n<</Size %d /Root 1 0 R /Info %d 0 R%s>>\nstartxref\n%d\n%%%%EOF\n' % (
        len(offsets) + 1, len(offsets), trailer, start)


def image(entries=b'', data=PICTURE, length=None, kind=b'/Filter /DCTDecode', width=8, height=8):
    return stream(b'/Type /XObject /Subtype /Image /BitsPerComponent 8 /ColorSpace /DeviceGray '
                  b'/Width %d /Height %d %s %s' % (width, height, kind, entries), data, length)


def bits(width, height, rows, kind=b'/Filter /FlateDecode'):
    return stream(b'/Type /XObject /Subtype /Image /BitsPerComponent 1 /ColorSpace /DeviceGray '
                  b'/Width %d /Height %d %s' % (width, height, kind), zlib.compress(rows, 9))


def card(picture=None, contents=UPRIGHT, page=b'', resources=b'<</XObject <</Im1 5 0 R>>>>', box=b'[0 0 252 144]',
         further=(), **arguments):
    """4 is the contents, 5 the picture, 6 and on what is further."""
    objects = [b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [3 0 R] /Count 1>>',
               b'<</Type /Page /Parent 2 0 R /MediaBox %s /Resources %s /Contents 4 0 R %s>>' % (box, resources, page),
               contents if contents.startswith(b'<<') else stream(b'', contents), picture or image(), *further]
    return document(objects, **arguments)


def form(contents, resources):
    return stream(b'/Type /XObject /Subtype /Form /BBox [0 0 9 9] /Resources ' + resources, contents)


def pages(count):
    kids = b' '.join(b'%d 0 R' % (number + 5) for number in range(count))
    page = b'<</Type /Page /Parent 2 0 R /MediaBox [0 0 252 144] /Resources <</XObject <</Im1 4 0 R>>>> /Contents 3 0 R>>'
    return document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [%s] /Count %d>>' % (kids, count),
                     stream(b'', UPRIGHT), image()] + [page] * count)


def text_page(text, further=b''):
    font = b'<</Font <</F1 <</Type /Font /Subtype /Type1 /BaseFont /Helvetica>>>> /XObject <</Im1 5 0 R>>>>'
    return card(contents=b'BT /F1 12 Tf 20 20 Td (%s) Tj ET %s' % (text, further), resources=font)


def predicted(rows, columns):
    """Rows as PNG's differences to the row above."""
    above = bytes(columns)
    result = b''
    for at in range(0, len(rows), columns):
        row = rows[at:at + columns]
        result += b'\2' + bytes((byte - up) % 256 for byte, up in zip(row, above))
        above = row
    return result


def modern(padding=0, parameters=b'/Predictor 12 /Columns 4', table_padding=0):
    """A card whose dictionaries are in an object stream and whose table is a stream, too."""
    inside = {1: b'<</Type /Catalog /Pages 2 0 R>>', 2: b'<</Type /Pages /Kids [3 0 R] /Count 1>>',
              3: b'<</Type /Page /Parent 2 0 R /MediaBox [0 0 252 144] /Resources <</XObject <</Im1 5 0 R>>>> /Contents 4 0 R>>',
              6: b'<<' + CREATOR + b'>>'}
    bodies = b''
    index = b''
    for number, body in inside.items():
        index += b'%d %d ' % (number, len(bodies))
        bodies += body + b' '
    packed = zlib.compress(index + bodies + bytes(padding), 9)
    outside = {4: stream(b'', UPRIGHT), 5: image(),
               7: stream(b'/Type /ObjStm /N %d /First %d /Filter /FlateDecode' % (len(inside), len(index)), packed)}
    result = b'%PDF-1.5\n'
    places = {number: (2, 7, at) for at, number in enumerate(inside)} | {0: (0, 0, 255)}
    for number, body in outside.items():
        places[number] = (1, len(result), 0)
        result += b'%d 0 obj\n%s\nendobj\n' % (number, body)
    places[8] = (1, len(result), 0)
    rows = b''.join(struct.pack('>BHB', *places[number]) for number in range(9))
    table = stream(b'/Type /XRef /Size 9 /W [1 2 1] /Root 1 0 R /Info 6 0 R /Filter /FlateDecode /DecodeParms <<%s>>' % parameters,
                   zlib.compress(predicted(rows, 4) + bytes(table_padding), 9))
    return result + b'8 0 obj\n%s\nendobj\nstartxref\n%d\n%%%%EOF\n' % (table, places[8][1])


def deflated_often(data, times):
    for _ in range(times):
        data = zlib.compress(data, 9)
    return data


def hostile_pages():
    loop = b'<</XObject <</Fm1 6 0 R>>>>'
    nested = [form(UPRIGHT, b'<</XObject <</Fm1 %d 0 R>>>>' % (number + 7)) for number in range(12)]
    bomb = zlib.compress(bytes(2_000_000), 9)
    twice = deflated_often(bytes(1_000_000), 2)
    return {
        'form-names-itself': card(resources=loop, further=[form(UPRIGHT, loop)]),
        'forms-name-each-other': card(resources=loop, further=[form(UPRIGHT, b'<</XObject <</Fm1 7 0 R>>>>'), form(UPRIGHT, loop)]),
        'forms-in-a-row': card(resources=loop, further=nested + [form(UPRIGHT, b'<</XObject <</Im1 5 0 R>>>>')]),
        'form-direct': card(resources=b'<</XObject <</Fm1 <</Type /XObject>>>>>>'),
        'flate-bomb-in-contents': card(contents=stream(b'/Filter /FlateDecode', bomb)),
        'flate-bomb-twice': card(contents=stream(b'/Filter [/FlateDecode /FlateDecode]', twice)),
        'flate-bomb-in-form': card(resources=loop, further=[stream(b'/Filter /FlateDecode /Type /XObject', bomb)]),
        'flate-bomb-in-bitmap': card(picture=bits(16, 16, bytes(2_000_000))),
        'flate-bomb-before-jpeg': card(picture=image(data=bomb, kind=b'/Filter [/FlateDecode /DCTDecode]')),
        'bitmap-65535-square': card(picture=bits(65535, 65535, bytes(100))),
        'bitmap-65536-wide': card(picture=bits(65536, 1, bytes(100))),
        'bitmap-0-wide': card(picture=bits(0, 8, bytes(100))), 'bitmap-minus-wide': card(picture=bits(-8, 8, bytes(100))),
        'bitmap-too-short': card(picture=bits(64, 64, bytes(9))), 'bitmap-too-long': card(picture=bits(8, 8, bytes(99))),
        'jpeg-65500-square': card(picture=image(data=jpegs.jpegs()['65500-square'])),
        'predictor-columns-huge': card(contents=stream(b'/Filter /FlateDecode /DecodeParms <</Predictor 12 /Columns 2147483647 /Colors 32 /BitsPerComponent 16>>', zlib.compress(UPRIGHT))),
        'predictor-columns-0': card(contents=stream(b'/Filter /FlateDecode /DecodeParms <</Predictor 15 /Columns 0>>', zlib.compress(UPRIGHT))),
        'predictor-columns-minus': card(contents=stream(b'/Filter /LZWDecode /DecodeParms <</Predictor 2 /Columns -1>>', b'\x80\x0b\x60\x50')),
        'length-too-long': card(picture=image(length=10**9)), 'length-0': card(picture=image(length=0)), 'length-minus': card(picture=image(length=-1)),
        'length-is-itself': card(picture=image().replace(b'/Length %d' % len(PICTURE), b'/Length 5 0 R')),
        'page-is-its-parent': document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [2 0 R] /Count 1>>']),
        'pages-in-a-circle': document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [3 0 R] /Count 1>>', b'<</Type /Pages /Kids [2 0 R] /Count 1>>']),
        'count-huge': document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [] /Count 2147483647>>']),
        'same-page-often': document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [%s] /Count 200>>' % (b'3 0 R ' * 200), b'<</Type /Page /MediaBox [0 0 9 9]>>']),
        'arrays-nested': card(page=b'/X ' + b'[' * 480 + b']' * 480), 'arrays-nested-deeper': card(page=b'/X ' + b'[' * 1500 + b']' * 1500),
        'dictionaries-nested': card(resources=b'<</XObject ' * 480 + b'null' + b'>>' * 480),
        'root-is-itself': document([b'1 0 R']), 'root-missing': document([b'null']), 'size-huge': card(trailer=b' /Prev 0 /Size 2147483647'),
        'prev-is-itself': card().replace(b'/Size 7', b'/Prev %d /Size 7' % card().index(b'xref\n0')),
        'no-table': card(table=False), 'start-missing': card().replace(b'startxref', b'startxxxx'), 'start-huge': card() + b'startxref\n99999999999999999999\n%%EOF\n',
        'encrypted': card(trailer=b' /Encrypt <</Filter /Standard /V 1 /R 2 /O (' + b'o' * 32 + b') /U (' + b'u' * 32 + b') /P -4>> /ID [(a) (a)]'),
        'encrypted-badly': card(trailer=b' /Encrypt <</Filter /Standard /V 5 /R 6 /O () /U () /P 0>> /ID []'),
        'object-streams-in-a-circle': card(further=[stream(b'/Type /ObjStm /N 1 /First 4 /Extends 6 0 R', b'7 0 null')]),
        'object-stream': modern(), 'object-stream-bomb': modern(padding=3_000_000), 'table-stream-bomb': modern(table_padding=3_000_000),
        'table-stream-columns-huge': modern(parameters=b'/Predictor 12 /Columns 2147483647 /Colors 4 /BitsPerComponent 16'),
        'table-stream-columns-65535': modern(parameters=b'/Predictor 12 /Columns 65535 /Colors 32 /BitsPerComponent 16'),
        'crypt-filter': card(contents=stream(b'/Filter /Crypt', UPRIGHT)), 'unknown-filter': card(contents=stream(b'/Filter /Nothing', UPRIGHT)),
        'filters-many': card(contents=stream(b'/Filter [%s]' % (b'/ASCIIHexDecode ' * 60), b'3>')), 'filter-is-stream': card(contents=stream(b'/Filter 5 0 R', UPRIGHT)),
        'name-16-long': card(resources=b'<</XObject <</Im1234567890123456 5 0 R>>>>'), 'name-long': card(resources=b'<</XObject <</Im%s 5 0 R>>>>' % (b'x' * 200)),
        'name-zero': card(resources=b'<</XObject <</Im#00 5 0 R>>>>'), 'names-many': card(resources=b'<</XObject <<%s>>>>' % b' '.join(b'/Fm%d 5 0 R' % n for n in range(60))),
        'contents-are-array': card(page=b'/Contents [4 0 R 4 0 R]'), 'contents-are-image': card(page=b'/Contents 5 0 R'),
        'kid-is-number': document([b'<</Type /Catalog /Pages 2 0 R>>', b'<</Type /Pages /Kids [7 null (x) <<>>] /Count 4>>']),
        'drawing-loops': card(contents=b'/Fm1 Do ' * 20, resources=loop, further=[form(b'/Fm1 Do /Fm1 Do', loop)]),
        'patterns-tiny': card(contents=b'/Pattern cs /P1 scn 0 0 252 144 re f', resources=b'<</Pattern <</P1 6 0 R>>>>', further=[
            stream(b'/Type /Pattern /PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 .01 .01] /XStep .01 /YStep .01 /Resources <<>>', b'0 0 1 1 re f')]),
        'text-huge': text_page(b'x' * 800), 'font-size-huge': text_page(b'x', b'BT /F1 1e30 Tf (x) Tj ET'), 'saves-many': card(contents=b'q ' * 900),
    }


def pdfs():
    boxes = (b'[0 0 612 792]', b'[0 0 0 0]', b'[0 0 -252 -144]', b'[252 144 0 0]', b'[10 20 262 164]', b'[0 0 1e30 1e30]', b'[0 0 1]',
             b'[0 0 .001 .001]', b'[(a) 0 1 1]', b'null', b'[0 0 99999999999999999999 1]', b'[0 0 2147483648 2147483648]', b'[0 0 14400 14400]')
    rotations = (b'90', b'-90', b'270', b'450', b'2147483647', b'-2147483648', b'45', b'(x)', b'99999999999999999999')
    matrices = {'90': b'0 -252 144 0 0 252', '180': b'-252 0 0 -144 252 144', '270': b'0 252 -144 0 144 0'}
    seeds = {'card': card(), 'two-pages': pages(2), 'three-pages': pages(3), 'no-pages': pages(0), 'nothing': b'', 'header': b'%PDF-1.4\n',
             'bitmap': card(picture=bits(16, 16, bytes(range(32)))), 'flate-before-jpeg': card(picture=image(data=zlib.compress(PICTURE), kind=b'/Filter [/FlateDecode /DCTDecode]')),
             'hex-before-jpeg': card(picture=image(data=PICTURE.hex().encode() + b'>', kind=b'/Filter [/ASCIIHexDecode /DCTDecode] /DecodeParms [null null]')),
             'other-creator': card(info=b'/Creator (Other)'), 'main-creator': card(info=b'/Creator (Velmora)'), 'creator-utf16': card(info=b'/Creator <FEFF0056>'),
             'creator-number': card(info=b'/Creator 7'), 'text': text_page(b'Yamada'), 'one-letter': text_page(b'x'), 'no-text': text_page(b''),
             'inherited-resources': card().replace(b'/Kids', b'/Resources <<>> /Kids'), 'form': card(resources=b'<</XObject <</Fm1 6 0 R>>>>',
             further=[form(UPRIGHT, b'<</XObject <</Im1 5 0 R>>>>')])}
    seeds |= {f'box-{number:02}': card(box=box) for number, box in enumerate(boxes)}
    seeds |= {f'rotate-{number}': card(page=b'/Rotate ' + rotation) for number, rotation in enumerate(rotations)}
    seeds |= {f'contents-{name}': card(contents=b'/Perceptual ri\nq\n%s cm\n' % matrix) for name, matrix in matrices.items()}
    seeds |= {f'form-{first}-{second}': card(contents=b'/Perceptual ri\nq\n%s cm\n' % matrices[first], resources=b'<</XObject <</Fm1 6 0 R>>>>',
              further=[form(b'/Perceptual ri\nq\n%s cm\n' % matrices[second], b'<</XObject <</Im1 5 0 R>>>>')])
              for first, second in itertools.product(matrices, matrices)}
    seeds |= hostile_pages()
    whole = seeds['card']
    return seeds | {f'cut-{at:04}': whole[:at] for at in range(20, len(whole), 61)}


def streams():
    """Limit, count of filters, then a filter and its parameters each, then the data."""
    encoded = {0: zlib.compress(UPRIGHT), 1: b'\x80\x0b\x60\x50\x22\x0c\x0c\x85\x01', 2: b'9jqo^BlbD-~>', 3: UPRIGHT.hex().encode() + b'>',
               4: b'\x02abc\xfez\x80', 5: PICTURE, 6: UPRIGHT, 7: zlib.compress(bytes(300_000), 9)}
    seeds = {}
    for (first, data), limit in itertools.product(encoded.items(), (0, 1, 20, 65535)):
        seeds[f'filter-{first}-limit-{limit}'] = struct.pack('<HBBB', limit, 1, first, 0) + data
        seeds[f'filter-{first}-before-jpeg-limit-{limit}'] = struct.pack('<HBBBBB', limit, 2, first, 0, 5, 0) + data
    for choice, columns in itertools.product(range(1, 25, 2), (0, 1, 5, 0x7fff, 0xffff)):
        seeds[f'predictor-{choice}-columns-{columns}'] = struct.pack('<HBBBHBB', 65535, 1, 0, choice, columns, 1, 8) + encoded[0]
    seeds |= {f'cut-{at:02}': struct.pack('<HBBB', 65535, 1, 0, 0) + encoded[0][:at] for at in range(0, len(encoded[0]), 4)}
    twice = deflated_often(bytes(900_000), 2)
    return seeds | {'bomb-twice': struct.pack('<HBBBBB', 65535, 2, 0, 0, 0, 0) + twice, 'no-filter': struct.pack('<HB', 100, 0) + UPRIGHT}


def objects():
    """The page of each document above and its streams, as the target of a page's objects takes them."""
    seeds = {}
    for name, whole in pdfs().items():
        bodies = dict(re.findall(rb'(\d+) 0 obj\n(.*?)\nendobj', whole, re.S))
        page = bodies.get(b'3', b'')
        if not page.startswith(b'<</Type /Page '):
            continue
        seed = renumbered(page) + b'\0'
        for number in range(4, 9):
            body = bodies.get(b'%d' % number, b'')
            dictionary, _, data = body.partition(b'\nstream\n')
            data = data.removesuffix(b'\nendstream')[:65535]
            seed += renumbered(dictionary) + b'\0' + struct.pack('<H', len(data)) + data
        seeds[name] = seed
    return seeds


def renumbered(body):
    return re.sub(rb'([4-9]) 0 R', lambda found: b'%d 0 R' % (int(found[1]) - 1), body)

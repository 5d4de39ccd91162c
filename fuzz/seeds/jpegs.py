# SPDX-License-Identifier: GPL-3.0-or-later
"""JPEG files made of gray blocks, and Exif data."""
import struct


def segment(marker, data):
    return bytes([0xff, marker]) + struct.pack('>H', len(data) + 2) + data


def jfif(unit=1, x=300, y=300):
    return segment(0xe0, b'JFIF\0\x01\x02' + struct.pack('>BHH', unit, x, y) + b'\0\0')


def tables():
    codes = bytes([1] + [0] * 15) + b'\0'  # one code, for nothing
    return segment(0xdb, b'\0' + bytes([16] * 64)) + segment(0xc4, b'\0' + codes) + segment(0xc4, b'\x10' + codes)


def frame(width=8, height=8, components=1, marker=0xc0, precision=8, sampling=0x11):
    parts = b''.join(bytes([number + 1, sampling if number == 0 else 0x11, 0]) for number in range(components))
    return segment(marker, struct.pack('>BHHB', precision, height, width, components) + parts)


def scan(components=1, start=0, end=63, approximation=0):
    parts = b''.join(bytes([number + 1, 0]) for number in range(components))
    return segment(0xda, bytes([components]) + parts + bytes([start, end, approximation]))


def jpeg(front=b'', components=1, data=b'\x3f' * 8, end=b'\xff\xd9', **frame_arguments):
    last = 0 if frame_arguments.get('marker') == 0xc2 else 63
    return (b'\xff\xd8' + front + tables() + frame(components=components, **frame_arguments)
            + scan(components, end=last) + data + end)


def entry(order, tag, kind, count, value):
    return struct.pack(order + 'HHI', tag, kind, count) + value


def directory(order, entries, following=0):
    return struct.pack(order + 'H', len(entries)) + b''.join(entries) + struct.pack(order + 'I', following)


def tiff(order, entries, following=0, behind=b''):
    return (b'II' if order == '<' else b'MM') + struct.pack(order + 'HI', 42, 8) + directory(order, entries, following) + behind


def short(order, value):
    return struct.pack(order + 'HH', value, 0)


def resolutions(order, x, y, unit, orientation):
    behind = 8 + 2 + 4 * 12 + 4
    return tiff(order, [entry(order, 0x112, 3, 1, short(order, orientation)),
                        entry(order, 0x11a, 5, 1, struct.pack(order + 'I', behind)),
                        entry(order, 0x11b, 5, 1, struct.pack(order + 'I', behind + 8)),
                        entry(order, 0x128, 3, 1, short(order, unit))],
                behind=struct.pack(order + 'IIII', *x, *y))


def exifs():
    seeds = {'nothing': b'', 'order-only': b'II', 'wrong-order': b'IM*\0\x08\0\0\0', 'wrong-magic': b'II\x2b\0\x08\0\0\0'}
    for name, order in (('le', '<'), ('be', '>')):
        for orientation in (0, 1, 3, 5, 6, 8, 9, 65535):
            seeds[f'{name}-orientation-{orientation}'] = tiff(order, [entry(order, 0x112, 3, 1, short(order, orientation))])
        for number, (x, y, unit) in enumerate((((300, 1), (300, 1), 2), ((118, 1), (118, 1), 3), ((72, 1), (72, 1), 1),
                                               ((1, 0), (0, 1), 2), ((2**32 - 1, 1), (1, 2**32 - 1), 3), ((1, 3), (5999, 20), 2),
                                               ((0, 0), (300, 1), 9), ((2**31, 1), (2**31 - 1, 1), 2))):
            seeds[f'{name}-resolution-{number}'] = resolutions(order, x, y, unit, number)
        for kind in range(14):
            seeds[f'{name}-orientation-of-kind-{kind}'] = tiff(order, [entry(order, 0x112, kind, 1, b'\x06\0\0\x06')])
        for count in (0, 2, 5, 2**16, 2**31, 2**32 - 1):
            seeds[f'{name}-count-{count}'] = tiff(order, [entry(order, 0x112, 3, count, struct.pack(order + 'I', 8))])
        for offset in (0, 4, 8, 26, 2**31, 2**32 - 1, 2**32 - 8):
            seeds[f'{name}-value-at-{offset}'] = tiff(order, [entry(order, 0x11a, 5, 1, struct.pack(order + 'I', offset))])
            seeds[f'{name}-next-directory-at-{offset}'] = tiff(order, [], following=offset)
            seeds[f'{name}-exif-directory-at-{offset}'] = tiff(order, [entry(order, 0x8769, 4, 1, struct.pack(order + 'I', offset))])
            seeds[f'{name}-start-at-{offset}'] = seeds[f'{name}-next-directory-at-{offset}'][:4] + struct.pack(order + 'I', offset)
        pointers = [entry(order, tag, 4, 1, struct.pack(order + 'I', 8)) for tag in (0x8769, 0x8825, 0xa005)]
        seeds[f'{name}-directories-in-a-circle'] = tiff(order, pointers, following=8)
        seeds[f'{name}-many-entries'] = tiff(order, [entry(order, 0x112, 3, 1, short(order, 6))] * 60)
        seeds[f'{name}-65535-entries'] = tiff(order, [])[:8] + b'\xff\xff'
        thumbnail = [entry(order, 0x201, 4, 1, struct.pack(order + 'I', 8)), entry(order, 0x202, 4, 1, struct.pack(order + 'I', 2**31))]
        seeds[f'{name}-huge-thumbnail'] = tiff(order, thumbnail, following=8)
        maker = entry(order, 0x927c, 7, 12, struct.pack(order + 'I', 60))
        for brand in (b'Nikon\0\x02\0\0\0', b'OLYMP\0\x01\0', b'Panasonic\0', b'FUJIFILM\x0c\0\0\0', b'QVC\0\0\0'):
            exif = directory(order, [maker])
            seeds[f'{name}-maker-{brand[:3].decode().lower()}'] = tiff(
                order, [entry(order, 0x8769, 4, 1, struct.pack(order + 'I', 26))], behind=exif + bytes(16) + brand + bytes(30))
    return seeds


def jpegs():
    exif = resolutions('<', (300, 1), (300, 1), 2, 6)
    seeds = {
        'gray': jpeg(jfif()), 'colour': jpeg(jfif(), components=3, sampling=0x22), 'inks': jpeg(components=4),
        'adobe-inks': jpeg(segment(0xee, b'Adobe\0\x64\0\0\0\0\x02'), components=4), 'two-components': jpeg(components=2),
        'five-components': jpeg(components=5), 'no-density': jpeg(), 'centimetres': jpeg(jfif(2, 118, 118)),
        'ratio': jpeg(jfif(0, 1, 1)), 'unit-9': jpeg(jfif(9)), 'density-0': jpeg(jfif(1, 0, 0)), 'density-65535': jpeg(jfif(2, 65535, 65535)),
        'exif': jpeg(segment(0xe1, b'Exif\0\0' + exif)), 'exif-and-jfif': jpeg(jfif() + segment(0xe1, b'Exif\0\0' + exif)),
        'exif-twice': jpeg(segment(0xe1, b'Exif\0\0') + segment(0xe1, b'Exif\0\0' + exif)), 'progressive': jpeg(jfif(), marker=0xc2),
        'exif-64k': jpeg(segment(0xe1, b'Exif\0\0' + exif + bytes(4000))), 'xmp': jpeg(segment(0xe1, b'http://ns.adobe.com/xap/1.0/\0<x/>')),
        'arithmetic': jpeg(marker=0xc9), 'lossless': jpeg(marker=0xc3), 'extended': jpeg(marker=0xc1), '12-bit': jpeg(precision=12),
        '65500-square': jpeg(width=65500, height=65500), '65535-square': jpeg(width=65535, height=65535), '65500-wide': jpeg(width=65500, height=1),
        '65500-high': jpeg(width=1, height=65500), '0-wide': jpeg(width=0), '0-high': jpeg(height=0), '256-square': jpeg(width=256, height=256),
        '300-square': jpeg(width=300, height=300), 'no-data': jpeg(data=b''), 'no-end': jpeg(end=b''), 'restart-markers': jpeg(data=b'\x3f\xff\xd0\x3f'),
        'wrong-restarts': jpeg(data=b'\xff\xd5\xff\xd6\xff\xd0'), 'fill-bytes': b'\xff\xd8' + b'\xff' * 20 + jpeg()[2:],
        'two-frames': jpeg(frame()), 'frame-missing': b'\xff\xd8' + tables() + scan(), 'tables-missing': b'\xff\xd8' + frame() + scan() + b'\x3f',
        'scan-first': b'\xff\xd8' + scan() + b'\x3f', 'length-0': b'\xff\xd8\xff\xe0\0\0' + jpeg()[2:], 'length-1': b'\xff\xd8\xff\xe0\0\x01' + jpeg()[2:],
        'length-65535': b'\xff\xd8\xff\xe1\xff\xff' + jpeg()[2:], 'sampling-4x4': jpeg(sampling=0x44), 'sampling-0': jpeg(sampling=0),
        'sampling-15': jpeg(sampling=0xff), 'many-scans': jpeg(marker=0xc2, end=(scan(end=0) + b'\x3f') * 200 + b'\xff\xd9'),
        'define-lines': jpeg(height=0, end=segment(0xdc, b'\0\x08') + b'\xff\xd9'), 'restart-interval': jpeg(segment(0xdd, b'\0\x01')),
        'comment': jpeg(segment(0xfe, b'comment')), 'profile': jpeg(segment(0xe2, b'ICC_PROFILE\0\x01\x01' + bytes(40))),
        'adobe-rgb': jpeg(segment(0xee, b'Adobe\0\x64\0\0\0\0\0'), components=3), 'two-pictures': jpeg() * 2, 'rubbish-behind': jpeg() + bytes(range(256)),
        'rubbish-before': b'\0' + jpeg(), 'png': b'\x89PNG\r\n\x1a\n' + bytes(20), 'start-alone': b'\xff\xd8', 'nothing': b'', 'ends-alone': b'\xff\xd8\xff\xd9',
        'huffman-overfull': b'\xff\xd8' + segment(0xc4, b'\0' + bytes([255] * 16) + bytes(200)) + jpeg()[2:],
        'huffman-empty': b'\xff\xd8' + segment(0xc4, b'\0' + bytes(16)) + frame() + scan() + b'\x3f',
        'quantisation-0': b'\xff\xd8' + segment(0xdb, bytes(65)) + jpeg()[2:], 'thumbnail': jpeg(segment(0xe0, b'JFIF\0\x01\x02\x01\0\x48\0\x48\xff\xff')),
    }
    whole = seeds['exif-and-jfif']
    seeds |= {f'cut-{at:03}': whole[:at] for at in range(1, len(whole), 6)}
    return seeds

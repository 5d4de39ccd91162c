# SPDX-License-Identifier: GPL-3.0-or-later
"""Texts of cards, data files, Version.txt files and content streams."""
import itertools
import struct

BLANKS = ['\t', ' ', '\u3000', '\u00a0', '\n', '\r', '\u0085', '\u2028', '\u2029', '\u200b', '\v']
WORDS = ['山田', '太郎', 'ﾔﾏﾀﾞ', 'ﾀﾛｳ', 'Smith', 'John', 'José', 'ｶﾞｷﾞｸﾞ', 'パピプ', '東京都', '港区芝1-2-3',
         '𠮷野家', '👪', 'e\u0301', '\u202eabc', '\ufeff', '０３', '03-1234-5678', 'a@b.example']


def utf16(text):
    return text.encode('utf-16-le', 'surrogatepass')


def texts():
    """Units of UTF-16 without a mark, as the targets of text functions take them."""
    seeds = {'empty': b'', 'odd-byte': b'\x41'}
    for number, word in enumerate(WORDS):
        seeds[f'word-{number:02}'] = utf16(word)
        seeds[f'pair-{number:02}'] = utf16(word + ' ' + WORDS[(number * 7 + 3) % len(WORDS)])
        seeds[f'address-{number:02}'] = utf16('\n'.join([word, WORDS[(number * 5 + 1) % len(WORDS)],
                                                         WORDS[(number * 3 + 2) % len(WORDS)]]))
    for number, blank in enumerate(BLANKS):
        seeds[f'blank-{number:02}'] = utf16(blank)
        seeds[f'blanks-around-{number:02}'] = utf16(f'{blank}山田{blank}{blank}太郎{blank}')
        seeds[f'blanks-between-{number:02}'] = utf16(f'a{blank}b{blank}c d{blank}')
    seeds |= {
        'three-names': utf16('John F. Smith'),
        'three-kana-names': utf16('ﾔﾏﾀﾞ ﾎﾝ ﾀﾛｳ'),
        'zero-inside': utf16('abc\0def\0ghi'),
        'lone-high-surrogate': b'\x00\xd8',
        'lone-low-surrogate': b'\x00\xdca\x00',
        'surrogates-the-wrong-way': b'\x00\xdc\x00\xd8',
        'all-half-width': utf16(''.join(chr(unit) for unit in range(0xff61, 0xffa0))),
        'marks-only': utf16('ﾞﾟﾞﾟ'),
        'kana-with-marks': utf16(''.join(kana + mark for kana in 'ｱｶｻﾀﾅﾊﾏﾔﾗﾜﾝｦｯ' for mark in 'ﾞﾟ')),
        '256-then-mark': utf16('a' * 255 + 'ｶﾞ'),
        '257-kana': utf16('ｶ' * 257),
        'newlines-only': utf16('\n\n\n'),
        'carriage-return-before-tab': utf16('a\r\t\nb'),
        'every-blank': utf16(''.join(BLANKS)),
        'escape-sequence': utf16('\x1b[31mred\x1b]0;title\x07'),
        'forged-line': utf16('x\n2026/01/01 00:00:00 VelmoraConverter [Info] nothing happened'),
        'placeholders': utf16('%1 %L2 %9 %%1 %0\0%2\0%1'),
        'c1-controls': utf16(''.join(chr(unit) for unit in range(0x80, 0xa0))),
        'c0-controls': utf16(''.join(chr(unit) for unit in range(1, 0x20)) + '\x7f'),
        '21-values': utf16('\0'.join(WORDS + ['', ' x '])),
        'values-with-separators': utf16('\t\0\n\0' + '\0'.join(f'{b}a{b}b{b}' for b in BLANKS)),
    }
    return seeds


def versions():
    product = 'OTHER\tV1.0L10\r\n'
    lines = {'usual': product, 'refused': 'TELKA\tV1.0L10\r\n', 'main': 'Velmora\tV1.0L10\r\n', 'empty-line': '\r\n',
             'no-end': 'OTHER\tV1.0', 'only-tab': '\t', 'lower-case': 'telka\tv1.0l10\r\n',
             'spaces': ' TELKA \t V1.0L10 \r\n', 'two-lines': 'A\tB\r\nTELKA\tV1.0L10\r\n',
             'other-separator': 'TELKA\u2028V1.0L10', 'next-line': 'TELKA\u0085V1', 'zero': 'TE\0LKA\tV1\r\n',
             'mark-inside': '\ufeffTELKA\tV1.0L10', 'many-tabs': 'TELKA\t\t\tV1.0L10', 'long': 'x' * 600,
             'surrogates': '𠮷\tV1', 'japanese': '名刺\t版', 'digits': '1.2.3'}
    encodings = {'le-mark': lambda t: b'\xff\xfe' + utf16(t), 'be-mark': lambda t: b'\xfe\xff' + t.encode('utf-16-be'),
                 'le': utf16, 'be': lambda t: t.encode('utf-16-be'), 'utf8': lambda t: t.encode(),
                 'odd': lambda t: b'\xff\xfe' + utf16(t)[:-1], 'utf8-mark': lambda t: b'\xef\xbb\xbf' + t.encode()}
    seeds = {f'{line}-{encoding}': encode(text)
             for (line, text), (encoding, encode) in itertools.product(lines.items(), encodings.items())}
    return seeds | {'nothing': b'', 'mark-alone': b'\xff\xfe', 'two-marks': b'\xff\xfe\xff\xfe', 'one-byte': b'\xff',
                    'lone-high': b'\xff\xfe\x00\xd8', 'lone-low': b'\xff\xfe\x00\xdc', 'zeros': bytes(16)}


def data_files(titles):
    """titles are the 21 column titles in order."""
    title_line = '\t'.join(titles)
    row = '\t'.join(f'v{number}' for number in range(21))
    card = '\t'.join(['a.jpg', 'b.jpg', 'F', '山田 太郎', 'ﾔﾏﾀﾞ ﾀﾛｳ', '会社', 'ｶｲｼｬ', '部', '長', '105-0001', '東京都',
                      '港区', '芝1', '', '03-1', '03-2', '090', 'a@b', 'http://x', 'memo', '2009/02/28'])
    tables = {
        'title-only': [title_line], 'one-row': [title_line, row], 'card': [title_line, card],
        'three-rows': [title_line, row, card, row], 'blank-lines': [title_line, '', row, '\t' * 20, ' \t ', card, ''],
        'reversed-columns': ['\t'.join(reversed(titles)), row], '20-titles': ['\t'.join(titles[:20]), row],
        '22-titles': ['\t'.join(titles + titles[:1]), row], 'title-twice': ['\t'.join(titles[:20] + titles[:1]), row],
        '20-items': [title_line, '\t'.join(['v'] * 20), row], '22-items': [title_line, '\t'.join(['v'] * 22), row],
        'lone-returns': [title_line, row.replace('v3', 'a\rb\nc')], 'all-empty-items': [title_line, '\t' * 20],
        'long-items': [title_line, '\t'.join(['x' * 130] * 21)], 'no-titles': [row, row], 'blank-first': ['', title_line, row],
        'surrogates': [title_line, row.replace('v5', '𠮷👪')], 'zeros': [title_line, row.replace('v5', 'a\0b')],
        'separators-inside': [title_line, row.replace('v5', 'a\u2028b\u0085c\u3000')], 'tabs-only': ['\t' * 20, '\t' * 20],
        'quoted': [title_line, row.replace('v5', '"a b"')], 'long-line-first': [title_line + 'x' * 300, row],
        'controls': [title_line, row.replace('v5', '\x1b[2J\x07')], 'titles-again': [title_line, title_line],
        'mark-inside': [title_line, row.replace('v5', '\ufeff')], 'spaces': [title_line, ' ' * 30],
        'ideographic-spaces': [title_line, '\u3000\t' * 20 + '\u3000'], 'short-lines': [title_line] + ['a'] * 9,
    }
    seeds = {}
    for name, lines in tables.items():
        text = '\r\n'.join(lines)
        seeds[name] = b'\xff\xfe' + utf16(text + '\r\n')
        seeds[name + '-no-end'] = b'\xff\xfe' + utf16(text)
        seeds[name + '-be'] = b'\xfe\xff' + text.encode('utf-16-be')
        seeds[name + '-lf'] = b'\xff\xfe' + utf16(text.replace('\r\n', '\n'))
        seeds[name + '-odd'] = b'\xff\xfe' + utf16(text)[:-1]
    whole = seeds['card']
    seeds |= {f'cut-{at:03}': whole[:at] for at in range(0, len(whole), 37)}
    return seeds | {'unmarked': whole[2:], 'unmarked-be': seeds['card-be'][2:], 'utf8': whole[2:].decode('utf-16-le').encode(),
                    'lone-high': whole + b'\x00\xd8', 'lone-low-in-row': whole + b'\x00\xdc' + utf16(row), 'mark-twice': b'\xff\xfe' + whole}


def contents():
    """Content streams, asked for the rotation in their first matrix."""
    seeds = {}
    matrices = {'upright': '252 0 0 144 0 0', '90': '0 -252 144 0 0 252', '180': '-252 0 0 -144 252 144',
                '270': '0 252 -144 0 144 0', 'comma': '0,5 0 0 1,5 0,0 0', 'plus': '+1 +0 -0 +1 0 0',
                'exponent': '1e400 0 0 1e-400 0 0', 'words': 'inf nan inf nan inf nan', 'tiny': '0.0000001 0 0 1 .5 -.5',
                'long': '1' * 400 + ' 0 0 1 0 0', 'five': '1 0 0 1 0', 'hexadecimal': '0x10 0 0 0x10 0 0',
                'underscored': '0_1 0 0 1 0 0', 'blanks': '  1  0  0  1  0  0', 'signs': '--1 +-1 0 0 - +'}
    starts = {'intent': '/Perceptual ri\nq\n', 'plain': '0 0 0 0 re W n q ', 'no-blank': '/Perceptual riq',
              'late-intent': 'q 1 0 0 1 0 0 cm /Perceptual ri q ', 'tabs': '/Perceptual ri\nq\t', 'short': 'q '}
    for (matrix, numbers), (start, opening) in itertools.product(matrices.items(), starts.items()):
        seeds[f'{matrix}-{start}'] = f'{opening}{numbers} cm\n/Im1 Do\nQ\n'.encode()
    whole = seeds['90-intent']
    seeds |= {f'cut-{at:02}': whole[:at] for at in range(0, len(whole), 3)}
    return seeds | {'q-last': b'/Perceptual ri    q', 'zeros': bytes(40), 'high-bytes': bytes(range(128, 256))}


def bitmaps():
    """What the bitmap target takes: angle, colour, resolution, kind, width, height, pixels."""
    seeds = {}
    for angle, kind in itertools.product(range(8), range(6)):
        for colour, resolution, width, height in ((0, 300, 5, 3), (1, 0, 63, 1), (1, 65535, 9, 9)):
            pixels = bytes((x * 37 + kind) % 256 for x in range(width * height))
            seeds[f'angle-{angle}-kind-{kind}-{width}x{height}'] = (
                struct.pack('<BBHBBB', angle, colour, resolution, kind, width, height) + pixels)
    return seeds

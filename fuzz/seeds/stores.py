# SPDX-License-Identifier: GPL-3.0-or-later
"""Property lists, card stores, and cards as the target of saved cards takes them."""
import os
import plistlib
import re
import sqlite3
import struct
import tempfile

import texts

HEAD = b'<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">'


def xml(body):
    return HEAD + body + b'</plist>'


def entry(value):
    return xml(b'<dict><key>Log Level</key>' + value + b'</dict>')


def binary(objects, root=0, offset_size=2, reference_size=1, count=None):
    """A binary list of these encoded objects."""
    result = b'bplist00'
    offsets = []
    for body in objects:
        offsets.append(len(result))
        result += body
    table = len(result)
    result += b''.join(offset.to_bytes(offset_size, 'big') for offset in offsets)
    return result + bytes(6) + struct.pack('>BBQQQ', offset_size, reference_size, len(objects) if count is None else count, root, table)


def plists():
    values = {'integer': b'<integer>1</integer>', 'negative': b'<integer>-1</integer>', 'huge': b'<integer>99999999999999999999</integer>',
              'real': b'<real>0.5</real>', 'real-comma': b'<real>0,5</real>', 'real-words': b'<real>nan</real>', 'true': b'<true/>', 'false': b'<false/>',
              'string': b'<string>x</string>', 'empty-string': b'<string/>', 'date': b'<date>2009-02-30T00:00:00Z</date>', 'date-words': b'<date>today</date>',
              'data': b'<data>AAAA</data>', 'data-bad': b'<data>*</data>', 'array': b'<array><true/></array>', 'dict': b'<dict/>', 'hex': b'<integer>0x7f</integer>',
              'not-utf8': b'<string>\xff\xfe</string>', 'entity': b'<string>&amp;&#x5C71;&#0;&unknown;</string>', 'cdata': b'<string><![CDATA[a<b]]></string>',
              'unknown': b'<thing/>', 'nothing': b'', 'two': b'<true/><false/>', 'uid': b'<dict><key>CF$UID</key><integer>1</integer></dict>',
              'comment': b'<!-- x --><true/>', 'long': b'<string>' + b'x' * 3000 + b'</string>', 'integer-words': b'<integer>one</integer>'}
    seeds = {f'entry-{name}': entry(value) for name, value in values.items()}
    seeds |= {
        'nothing': b'', 'no-head': b'<plist><dict/></plist>', 'no-plist': b'<dict/>', 'key-alone': xml(b'<dict><key>a</key></dict>'),
        'key-missing': xml(b'<dict><true/></dict>'), 'keys-twice': xml(b'<dict><key>a</key><key>b</key><true/></dict>'),
        'same-key-twice': xml(b'<dict><key>a</key><true/><key>a</key><false/></dict>'), 'root-array': xml(b'<array/>'), 'root-string': xml(b'<string>x</string>'),
        'two-roots': xml(b'<dict/><dict/>'), 'arrays-nested-1000': entry(b'<array>' * 1000 + b'</array>' * 1000),
        'arrays-nested-1000-unclosed': entry(b'<array>' * 1000), 'dicts-nested-500': xml(b'<dict><key>a</key>' * 500 + b'<true/>' + b'</dict>' * 500),
        'closed-wrong': xml(b'<dict></array>'), 'doctype': b'<?xml version="1.0"?><!DOCTYPE plist [<!ENTITY a "aaaa">]>' + entry(b'<string>&a;</string>')[len(HEAD):],
        'many-entries': xml(b'<dict>' + b''.join(b'<key>k%d</key><true/>' % number for number in range(100)) + b'</dict>'), 'zeros': bytes(100),
        'zero-inside': entry(b'<string>a\0b</string>'), 'utf16': entry(b'<true/>').decode().encode('utf-16'),
    }
    whole = entry(b'<integer>12</integer>')
    seeds |= {f'cut-xml-{at:03}': whole[:at] for at in range(10, len(whole), 5)}
    usual = plistlib.dumps({'Log Level': 1, 'Path': '山田', 'x': 0.5, 'y': True, 'z': b'abc', 'list': [1, 'a']}, fmt=plistlib.FMT_BINARY)
    seeds |= {f'cut-binary-{at:03}': usual[:at] for at in range(0, len(usual), 7)}
    seeds |= {
        'binary': usual, 'binary-array-in-itself': binary([b'\xa1\0']), 'binary-dict-in-itself': binary([b'\xd1\1\0', b'\x51a']),
        'binary-circle': binary([b'\xd1\1\2', b'\x51a', b'\xa1\3', b'\xa1\2']), 'binary-nested-200': binary([b'\xd1\xf0\1'] + [b'\xa1' + bytes([n + 2]) for n in range(200)] + [b'\x09'] * 39 + [b'\x51a']),
        'binary-doubled-24': binary([b'\xd1\x19\1'] + [b'\xa2' + bytes([n + 2] * 2) for n in range(23)] + [b'\x09', b'\x51a']),
        'binary-doubled-6': binary([b'\xd1\7\1'] + [b'\xa2' + bytes([n + 2] * 2) for n in range(5)] + [b'\x09', b'\x51a']),
        'binary-count-huge': binary([b'\x09'], count=2**63), 'binary-root-outside': binary([b'\x09'], root=9), 'binary-string-huge': binary([b'\xd1\1\2', b'\x51a', b'\x5f\x13' + b'\x7f' + b'\xff' * 7]),
        'binary-data-huge': binary([b'\xd1\1\2', b'\x51a', b'\x4f\x12\x7f\xff\xff\xff']), 'binary-array-huge': binary([b'\xaf\x13' + b'\0\0\0\0\x10\0\0\0']),
        'binary-key-is-array': binary([b'\xd1\1\1', b'\xa0']), 'binary-unicode-odd': binary([b'\xd1\1\2', b'\x51a', b'\x62\xd8\0\x41']), 'binary-int-16': binary([b'\xd1\1\2', b'\x51a', b'\x14' + b'\xff' * 16]),
        'binary-offset-size-0': usual[:-26] + b'\0' + usual[-25:], 'binary-reference-size-9': usual[:-25] + b'\x09' + usual[-24:], 'binary-table-outside': usual[:-8] + b'\xff' * 8,
        'binary-uid': binary([b'\xd1\1\2', b'\x51a', b'\x80\5']), 'binary-null': binary([b'\0']), 'binary-real-odd': binary([b'\xd1\1\2', b'\x51a', b'\x21\0\0']),
    }
    return seeds


def columns(source):
    """The columns of a card's table, from the program's own list of attributes."""
    kinds = {'Text': 'VARCHAR', 'Number': 'INTEGER', 'Date': 'TIMESTAMP'}
    found = re.findall(r'DBCRecordKey::(\w+), DBCAttributeKind::(\w+)', source)
    return {'Z' + key.upper(): kinds[kind] for key, kind in found}


def store(statements, page_size=512):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'store')
        connection = sqlite3.connect(path, isolation_level=None)
        connection.execute(f'PRAGMA page_size={page_size}')
        for statement in statements:
            connection.execute(statement)
        connection.close()
        with open(path, 'rb') as file:
            return file.read()


def stores(card_columns):
    keys = 'CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, Z_SUPER INTEGER, Z_MAX INTEGER)'

    def table(changes=None, head='CREATE TABLE ZCARD (', tail=')'):
        all_columns = {'Z_PK': 'INTEGER PRIMARY KEY', 'Z_ENT': 'INTEGER', 'Z_OPT': 'INTEGER'} | card_columns | (changes or {})
        return head + ', '.join(f'{name} {kind}' for name, kind in all_columns.items() if kind is not None) + tail

    def keys_row(entity=1, highest=0, name="'Card'"):
        return f'INSERT INTO Z_PRIMARYKEY VALUES ({entity}, {name}, 0, {highest})'

    def row(**values):
        return f'INSERT INTO ZCARD (Z_ENT, {", ".join(values)}) VALUES (1, {", ".join(values.values())})'

    nothing = ', '.join(f'NULL AS {name}' for name in ['Z_PK', 'Z_ENT', 'Z_OPT', *card_columns])
    usual = [table(), keys, keys_row()]
    one = row(ZFULL_NAME="'山田'", ZDELETEDFLAG='0', ZACCEPT_DATE='1.5')
    cases = {
        'empty': usual, 'one-card': usual + [one], 'three-cards': usual + [one] * 3, 'deleted-card': usual + [row(ZDELETEDFLAG='1')],
        'null-card': usual + ['INSERT INTO ZCARD DEFAULT VALUES'], 'date-text': usual + [row(ZACCEPT_DATE="'today'", ZDELETEDFLAG='0')],
        'date-huge': usual + [row(ZACCEPT_DATE='1e300', ZDELETEDFLAG='0')], 'date-edge': usual + [row(ZACCEPT_DATE='-999999999999', ZREGISTER_DATE='999999999999.9', ZDELETEDFLAG='0')],
        'date-infinite': usual + [row(ZACCEPT_DATE='9e999', ZUPDATE_DATE='-9e999', ZDELETEDFLAG='0')], 'number-text': usual + [row(ZSTATUS="'x'", ZDELETEDFLAG="'0'")],
        'number-huge': usual + [row(ZSTATUS='1e300', ZFLAG1='9223372036854775807', ZDELETEDFLAG='0')], 'text-blob': usual + [row(ZMEMO="x'FF00FE'", ZDELETEDFLAG='0')],
        'text-number': usual + [row(ZMEMO='12', ZFULL_NAME='0.5', ZDELETEDFLAG='0')], 'text-zero-inside': usual + [row(ZMEMO="char(65, 0, 66)", ZDELETEDFLAG='0')],
        'text-not-utf8': usual + [row(ZMEMO="CAST(x'C328FF' AS TEXT)", ZDELETEDFLAG='0')], 'text-long': usual + [row(ZMEMO="'" + 'x' * 3000 + "'", ZDELETEDFLAG='0')],
        'without-memo': [table({'ZMEMO': None}), keys, keys_row()], 'without-cards': [keys, keys_row()], 'without-keys': [table()], 'without-entity': [table(), keys],
        'entity-other': [table(), keys, keys_row(name="'Other'")], 'entity-text': [table(), keys, keys_row(name="'card'")], 'highest-text': [table(), keys, keys_row(highest="'x'")],
        'highest-limit': [table(), keys, keys_row(highest=2**63 - 1)], 'highest-negative': [table(), keys, keys_row(highest=-5)], 'highest-null': [table(), keys, keys_row(highest='NULL')],
        'key-taken': usual + [row(Z_PK='1', ZDELETEDFLAG='0')], 'entity-twice': [table(), keys, keys_row(1), keys_row(2)], 'own-defaults': [table({'ZSTATUS': 'INTEGER DEFAULT 7', 'ZMEMO': "VARCHAR DEFAULT 'm'"}), keys, keys_row()],
        'default-expression': [table({'ZMEMO': 'VARCHAR DEFAULT (hex(zeroblob(20)))'}), keys, keys_row()], 'default-time': [table({'ZUPDATE_DATE': 'TIMESTAMP DEFAULT CURRENT_TIMESTAMP'}), keys, keys_row()],
        'default-huge': [table({'ZMEMO': 'VARCHAR DEFAULT (hex(zeroblob(90000)))'}), keys, keys_row()], 'not-null': [table({'ZMEMO': 'VARCHAR NOT NULL'}), keys, keys_row()],
        'check-fails': [table({'ZSTATUS': 'INTEGER CHECK (ZSTATUS > 5)'}), keys, keys_row()], 'unique-dates': [table({'ZACCEPT_DATE': 'TIMESTAMP UNIQUE'}), keys, keys_row(), one],
        'generated-column': [table({'ZMEMO': "VARCHAR GENERATED ALWAYS AS ('x' || Z_PK)"}), keys, keys_row()], 'without-rowid': [table(tail=') WITHOUT ROWID'), keys, keys_row()],
        'strict-types': [table({'ZSTATUS': 'BLOB', 'ZMEMO': 'REAL', 'ZACCEPT_DATE': 'VARCHAR'}), keys, keys_row(), one], 'lower-case-columns': [table().lower(), keys, keys_row()],
        'index-on-dates': usual + ['CREATE INDEX byDate ON ZCARD (ZACCEPT_DATE)', one], 'index-expression': usual + ["CREATE INDEX byName ON ZCARD (upper(ZFULL_NAME))", one],
        'trigger-doubles': usual + ['CREATE TRIGGER more AFTER INSERT ON ZCARD BEGIN INSERT INTO ZCARD (Z_ENT) VALUES (2); END'], 'trigger-deletes': usual + [one, 'CREATE TRIGGER less AFTER INSERT ON ZCARD BEGIN DELETE FROM ZCARD; END'],
        'trigger-fails': usual + ["CREATE TRIGGER never BEFORE INSERT ON ZCARD BEGIN SELECT RAISE(ABORT, 'no'); END"], 'trigger-on-keys': usual + ["CREATE TRIGGER never BEFORE UPDATE ON Z_PRIMARYKEY BEGIN SELECT RAISE(ROLLBACK, 'no'); END"],
        'cards-are-a-view': [f'CREATE VIEW ZCARD AS SELECT {nothing}', keys, keys_row()], 'keys-are-a-view': [table(), "CREATE VIEW Z_PRIMARYKEY AS SELECT 1 AS Z_ENT, 'Card' AS Z_NAME, 0 AS Z_MAX"],
        'cards-without-end': [f'CREATE VIEW ZCARD AS WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n) SELECT {nothing} FROM n', keys, keys_row()],
        'write-ahead-log': ['PRAGMA journal_mode=WAL', *usual, one], 'auto-vacuum': ['PRAGMA auto_vacuum=FULL', *usual, one], 'utf16': ["PRAGMA encoding='UTF-16le'", *usual, one], 'secure-delete': usual + [one, 'DELETE FROM ZCARD'],
    }
    seeds = {name: store(statements) for name, statements in cases.items()}
    whole = seeds['one-card']
    seeds |= {f'cut-{at:05}': whole[:at] for at in range(0, len(whole), 129)}
    seeds |= {f'page-size-{size}': whole[:16] + struct.pack('>H', size) + whole[18:] for size in (0, 1, 256, 1024, 65535)}
    for at in list(range(18, 100, 6)) + [100, 101, 103, 105, 107, 108, 110]:
        seeds[f'byte-{at:03}-is-255'] = whole[:at] + b'\xff' + whole[at + 1:]
    return seeds | {'nothing': b'', 'header-alone': whole[:100], 'text': b'no store', 'zeros': bytes(1024), 'rubbish-behind': whole + bytes(300)}


def cards():
    seeds = {}
    words = [*texts.texts().values()]
    for number in range(68):
        first = bytes([number % 4, 3, number]) + b'\x2c\x01\x05\0' + words[number][:40] + b'\0\0'
        seeds[f'attribute-{number:02}'] = first + bytes([(number * 7) % 68]) + words[(number * 3) % len(words)] + b'\0\0' + bytes([67 - number, 9, 9])
    for number, word in enumerate(words[:40]):
        seeds[f'name-{number:02}'] = bytes([1, 2, 2]) + word[:60] + b'\0\0' + bytes([15]) + word[:30]
    return seeds

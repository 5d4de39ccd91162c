// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzz targets share. Including it gives the program a home folder of its own in memory,
// in which no log is kept.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>

// Ends the program, so that the input is kept, when something does not hold that must hold whatever
// the input is.
void mustHold(bool holds, const char* claim);

// A file in memory that an input or a result is put into; one path for the life of the program.
class FuzzFile {
public:
    explicit FuzzFile(const char* name);

    const QString& path() const { return _path; }
    // The file then holds these bytes and no others.
    void write(QByteArrayView bytes) const;
    QByteArray read() const;

private:
    QString _path;
};

// Takes an input apart from its beginning. What is asked for beyond its end is 0.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size)
        : _bytes(data, static_cast<qsizetype>(size))
    {
    }

    quint8 byte();
    quint16 word() { return static_cast<quint16>(byte() | byte() << 8); }
    // In 0 to count - 1.
    int below(int count) { return byte() % count; }
    // The bytes up to the next zero byte, which is taken too.
    std::string line();
    std::string bytes(qsizetype count);
    // UTF-16 in the machine's byte order, up to the next unit of 0 or all that is left; any unit
    // can be in it, lone surrogates as well.
    QString text();
    QString remainingText();
    QByteArrayView remaining() const { return _bytes; }

private:
    QByteArrayView _bytes;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

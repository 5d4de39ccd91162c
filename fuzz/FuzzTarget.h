// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers of all fuzz targets. A program that uses them runs with its own home folder, which is in
// memory unless TMPDIR is set or the system has no /dev/shm. It writes no log.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>

// Aborts the program if holds is false. claim says what must be true for every input. The fuzzer
// keeps an input that aborts the program.
void mustHold(bool holds, const char* claim);

// A file in the home folder for an input or a result. The path of a FuzzFile never changes.
class FuzzFile {
public:
    explicit FuzzFile(const char* name);

    const QString& path() const { return _path; }
    // Replaces the content of the file.
    void write(QByteArrayView bytes) const;
    QByteArray read() const;

private:
    QString _path;
};

// Takes values from the front of an input. After its end, all values are 0 or empty.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size)
        : _bytes(data, static_cast<qsizetype>(size))
    {
    }

    quint8 byte();
    quint16 word() { return static_cast<quint16>(byte() | byte() << 8); }
    // Returns a number from 0 to count - 1.
    int below(int count) { return byte() % count; }
    // Returns the bytes up to the next zero byte, and takes that zero byte from the input, too.
    std::string line();
    std::string bytes(qsizetype count);
    // Returns UTF-16 in the machine's byte order, up to the next zero unit or the end of the input.
    // The text may contain any other unit, also lone surrogates.
    QString text();
    QString remainingText();
    QByteArrayView remaining() const { return _bytes; }

private:
    QByteArrayView _bytes;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

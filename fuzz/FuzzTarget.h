// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers of all fuzz targets. Any program that includes this header runs with a home folder of its
// own, in memory, and writes no log.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>

// Aborts the program when a claim that must be true for every input is false; the fuzzer then keeps
// the input.
void mustHold(bool holds, const char* claim);

// A file in memory for an input or a result. Each object has one path, which never changes.
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
    // A number from 0 to count - 1.
    int below(int count) { return byte() % count; }
    // The bytes up to the next zero byte, which is removed from the input, too.
    std::string line();
    std::string bytes(qsizetype count);
    // UTF-16 in the machine's byte order, up to the next zero unit or the end of the input. It may
    // contain any other unit, also lone surrogates.
    QString text();
    QString remainingText();
    QByteArrayView remaining() const { return _bytes; }

private:
    QByteArrayView _bytes;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

// SPDX-License-Identifier: GPL-3.0-or-later
// replay FOLDER: runs a fuzz target once with each file of the folder. Fails if the folder has
// fewer than a hundred files, because the corpus of inputs is then missing or incomplete.
#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>
#include <QFileInfoList>

#include <cstdio>

int main(int argumentCount, char** arguments)
{
    constexpr qsizetype fewestFiles = 100;
    if (argumentCount != 2)
        return 2;
    const QFileInfoList files
        = QDir(QFile::decodeName(arguments[1])).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& info : files) {
        std::fprintf(stderr, "%s\n", qPrintable(info.fileName()));
        QFile file(info.filePath());
        mustHold(file.open(QIODevice::ReadOnly), "the file can be read");
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(
            reinterpret_cast<const uint8_t*>(bytes.constData()), static_cast<size_t>(bytes.size()));
    }
    std::fprintf(stderr, "%lld files\n", static_cast<long long>(files.size()));
    return files.size() < fewestFiles ? 1 : 0;
}

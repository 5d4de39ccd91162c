// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCCardPdfWriter.h"

#include "cardimage/DBCCardPdfDocument.h"

#include <QFile>

#include <exception>

namespace {

DBCCardPdfDocument& threadDocument()
{
    static thread_local DBCCardPdfDocument document;
    return document;
}

} // namespace

DBCCardPdfWriter::DBCCardPdfWriter(const QString& path)
    : _file(std::fopen(QFile::encodeName(path).constData(), "wbe"))
    , _document(threadDocument())
{
}

DBCCardPdfWriter::~DBCCardPdfWriter()
{
    _document.clear();
}

void DBCCardPdfWriter::addPage(
    const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize)
{
    _document.addPage(jpeg, properties, pointSize);
}

bool DBCCardPdfWriter::close()
{
    try {
        _document.write(_file.get());
    } catch (const std::exception&) {
        return false;
    }
    // The library does not ask whether its last bytes reached the disk.
    const bool isWritten = std::fflush(_file.get()) == 0 && std::ferror(_file.get()) == 0;
    return std::fclose(_file.release()) == 0 && isWritten;
}

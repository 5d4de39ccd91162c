// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCCardPdfWriter.h"

#include "cardimage/DBCCardPdfDocument.h"

#include <QFile>

#include <cerrno>
#include <exception>

#include <qpdf/QPDFSystemError.hh>

namespace {

DBCCardPdfDocument& threadDocument()
{
    static thread_local DBCCardPdfDocument document;
    return document;
}

} // namespace

DBCWriteOutcome writeFailure(int error)
{
    return error == ENOSPC || error == EDQUOT ? DBCWriteOutcome::DiskFull : DBCWriteOutcome::Failed;
}

DBCCardPdfWriter::DBCCardPdfWriter(const QString& path)
    : _file(std::fopen(QFile::encodeName(path).constData(), "wbe"))
    , _opened(_file ? DBCWriteOutcome::Written : writeFailure(errno))
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

DBCWriteOutcome DBCCardPdfWriter::close()
{
    try {
        _document.write(_file.get());
    } catch (const QPDFSystemError& error) {
        return writeFailure(error.getErrno());
    } catch (const std::exception&) {
        return DBCWriteOutcome::Failed;
    }
    // The library does not ask whether its last bytes reached the disk.
    if (std::fflush(_file.get()) != 0 || std::ferror(_file.get()) != 0)
        return writeFailure(errno);
    return std::fclose(_file.release()) == 0 ? DBCWriteOutcome::Written : writeFailure(errno);
}

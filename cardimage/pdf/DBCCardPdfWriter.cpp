// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdfWriter.h"

#include "cardimage/pdf/DBCCardPdfDocument.h"

#include <QFile>

#include <cerrno>
#include <exception>

#include <qpdf/QPDFSystemError.hh>

namespace {

// Null until the thread's first writer, and again after a document had to be thrown away.
std::unique_ptr<DBCCardPdfDocument>& threadDocument()
{
    static thread_local std::unique_ptr<DBCCardPdfDocument> document;
    return document;
}

DBCCardPdfDocument& usableDocument()
{
    if (!threadDocument())
        threadDocument() = std::make_unique<DBCCardPdfDocument>();
    return *threadDocument();
}

// The outcome of a write that failed with this errno.
DBCWriteOutcome writeFailure(int error)
{
    return error == ENOSPC || error == EDQUOT ? DBCWriteOutcome::DiskFull : DBCWriteOutcome::Failed;
}

} // namespace

DBCCardPdfWriter::DBCCardPdfWriter(const QString& path)
    : _file(std::fopen(QFile::encodeName(path).constData(), "wbe"))
    , _opened(_file ? DBCWriteOutcome::Written : writeFailure(errno))
    , _document(usableDocument())
{
}

DBCCardPdfWriter::~DBCCardPdfWriter()
{
    try {
        _document.clear();
    } catch (const std::exception&) {
        _isBroken = true;
    }
    if (_isBroken)
        threadDocument().reset();
}

void DBCCardPdfWriter::addPage(
    const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize)
{
    _isBroken = true; // remains if the next line throws
    _document.addPage(jpeg, properties, pointSize);
    _isBroken = false;
}

DBCWriteOutcome DBCCardPdfWriter::close()
{
    try {
        _document.write(_file.get());
    } catch (const QPDFSystemError& error) {
        return writeFailure(error.getErrno());
    } catch (const std::exception&) {
        _isBroken = true;
        return DBCWriteOutcome::Failed;
    }
    // The library does not check whether the last bytes in the file's buffer could be written.
    if (std::fflush(_file.get()) != 0 || std::ferror(_file.get()) != 0)
        return writeFailure(errno);
    return std::fclose(_file.release()) == 0 ? DBCWriteOutcome::Written : writeFailure(errno);
}

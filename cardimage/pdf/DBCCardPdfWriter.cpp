// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdfWriter.h"

#include "cardimage/pdf/DBCCardPdfDocument.h"

#include <QFile>

#include <cerrno>
#include <exception>

#include <qpdf/QPDFSystemError.hh>

namespace {

// Null until it is needed, and after one that broke.
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

// What an errno says about a write.
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
    _isBroken = true; // until it is known better
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
    // The library does not ask whether its last bytes reached the disk.
    if (std::fflush(_file.get()) != 0 || std::ferror(_file.get()) != 0)
        return writeFailure(errno);
    return std::fclose(_file.release()) == 0 ? DBCWriteOutcome::Written : writeFailure(errno);
}

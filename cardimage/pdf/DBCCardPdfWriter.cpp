// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdfWriter.h"

#include "cardimage/pdf/DBCCardPdfDocument.h"
#include "system/DBCDescriptor.h"

#include <QFile>

#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <qpdf/QPDFSystemError.hh>

namespace {

constexpr mode_t readableByAll = 0666; // without the bits of the umask

// Holds the document of the calling thread. It is null until the thread makes its first writer, and
// again after a document that threw was discarded.
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

// Returns the outcome of a write that failed with this errno.
DBCWriteOutcome writeFailure(int error)
{
    return error == ENOSPC || error == EDQUOT ? DBCWriteOutcome::DiskFull : DBCWriteOutcome::Failed;
}

// A signal can interrupt calls on network file systems. The C library gives up after one
// interrupted call; the following functions repeat the call instead.

int openForWriting(const QByteArray& path)
{
    int descriptor = -1;
    do {
        descriptor
            = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, readableByAll);
    } while (descriptor == -1 && errno == EINTR);
    return descriptor;
}

ssize_t writeToDescriptor(void* cookie, const char* bytes, size_t size)
{
    const int descriptor = static_cast<DBCDescriptor*>(cookie)->get();
    size_t done = 0;
    while (done < size) {
        const ssize_t count = write(descriptor, bytes + done, size - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            break;
        done += static_cast<size_t>(count);
    }
    return static_cast<ssize_t>(done);
}

int closeDescriptor(void* cookie)
{
    const std::unique_ptr<DBCDescriptor> descriptor(static_cast<DBCDescriptor*>(cookie));
    // A close that was interrupted has closed the descriptor nevertheless, so it counts as a
    // success.
    return descriptor->close() || errno == EINTR ? 0 : EOF;
}

// Returns null and sets errno when the file cannot be opened.
std::FILE* openFile(const QString& path)
{
    auto descriptor = std::make_unique<DBCDescriptor>(openForWriting(QFile::encodeName(path)));
    if (!*descriptor)
        return nullptr;
    std::FILE* file = fopencookie(descriptor.get(), "wb",
        {.read = nullptr, .write = writeToDescriptor, .seek = nullptr, .close = closeDescriptor});
    if (file)
        (void)descriptor.release(); // closeDescriptor() will delete it
    return file;
}

} // namespace

DBCCardPdfWriter::DBCCardPdfWriter(const QString& path)
    : _file(openFile(path))
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
    _isBroken = true; // stays true if the next line throws
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
    // This checks that the last bytes in the buffer of the file are written, which the library does
    // not check.
    if (std::fflush(_file.get()) != 0 || std::ferror(_file.get()) != 0)
        return writeFailure(errno);
    return std::fclose(_file.release()) == 0 ? DBCWriteOutcome::Written : writeFailure(errno);
}

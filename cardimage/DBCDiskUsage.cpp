// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCDiskUsage.h"

#include "operation/base/DBCError.h"
#include "operation/log/DBCLog.h"
#include "system/DBCHost.h"
#include "system/DBCProgramOutput.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 bytesPerUnit = 1024; // du counts in these units because of "-k"

struct Measurement {
    quint64 size = 0; // bytes
    DBCError error;
};

Measurement failed(DBCResultCode code, const QString& path, const QString& reason)
{
    DBCLog::debug(reason);
    return {0, DBCError(code).withPathName(path).withDescription(reason)};
}

// Returns std::nullopt when the bytes are not valid UTF-8.
std::optional<QString> decoded(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

// Accepts only the digits 0 to 9: no sign, blank or line end.
std::optional<quint64> numberIn(const QString& text)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    bool fits = false;
    const quint64 number = text.toULongLong(&fits);
    return fits && std::all_of(text.begin(), text.end(), isDigit) ? std::optional(number)
                                                                  : std::nullopt;
}

Measurement sizeFromOutput(const QByteArray& output, const QString& path)
{
    const std::optional<QString> text = decoded(output);
    if (!text) {
        return failed(DBCResultCode::SizeMeasureFailure, path,
            u"Get nothing from Du command. Path:[%1]"_s.arg(path));
    }
    const std::optional<quint64> units = numberIn(text->section(u'\t', 0, 0));
    if (!units) {
        return failed(DBCResultCode::SizeMeasureFailure, path,
            u"The value got from Du command is not number. Path:[%1]"_s.arg(path));
    }
    return {*units * bytesPerUnit, {}};
}

// Puts "./" before a path that begins with a dash, which du would otherwise take for an option.
QString asArgument(const QString& path)
{
    return path.startsWith(u'-') ? u"./"_s + path : path;
}

Measurement measure(const QString& path)
{
    using End = DBCProgramRun::End;
    const QString program = DBCHost::current().diskUsageProgram;
    const DBCProgramRun du = runProgram(program, {u"-k"_s, u"-s"_s, asArgument(path)});
    if (du.end == End::Stopped)
        return {0, DBCError(DBCResultCode::CancelledByUser)};
    if (du.end == End::NotStarted) {
        return failed(DBCResultCode::InternalException, path,
            u"Exception happended when get file size by using du command. "
            "Exception:[%1]"_s.arg(program + u": "_s + qt_error_string(du.number)));
    }
    const bool succeeded = du.end == End::Exited && du.number == 0;
    if (!succeeded || du.output.isEmpty()) {
        return failed(
            DBCResultCode::SizeMeasureFailure, path, u"Du failed, result %1"_s.arg(du.number));
    }
    return sizeFromOutput(du.output, path);
}

} // namespace

quint64 getSizeWithPath(const QString& path, DBCError* outError)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return 0;
    const Measurement measurement = measure(path);
    if (measurement.error && outError != nullptr)
        *outError = measurement.error;
    return measurement.size;
}

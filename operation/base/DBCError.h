// SPDX-License-Identifier: GPL-3.0-or-later
// An error of this program: a result code, and the path or the line of the data file that it is
// about.
//
// A default-constructed DBCError means "no error" and converts to false. Whether there is an error
// does not depend on the code, because CancelledByUser is an error although its code is positive. A
// private step of a sequence returns a DBCError. An operation that returns something else takes
// `DBCError* error` as its last parameter; the caller owns that object, and the operation writes to
// it only if it fails. A DBCError is a plain value: copies are independent of each other.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class [[nodiscard]] DBCError {
public:
    // All errors of the program have this domain.
    static constexpr const char* domain = "com.velmora.VelmoraConverter.ErrorDomain";
    // The names of the two details in toString().
    static constexpr const char* pathNameKey = "DBC_USERINFO_KEY_PATH_NAME";
    static constexpr const char* lineNoKey = "DBC_USERINFO_KEY_LINE_NO";

    DBCError() = default;
    explicit DBCError(DBCResultCode code)
        : _code(code)
    {
    }

    // An error with that code if the code is negative, otherwise no error.
    static DBCError ifFailure(DBCResultCode code)
    {
        return isFailure(code) ? DBCError(code) : DBCError();
    }

    // True if there is an error.
    explicit operator bool() const { return _code.has_value(); }

    // Success if there is no error.
    DBCResultCode code() const { return _code.value_or(DBCResultCode::Success); }

    // The path that the error is about, which for a failed backup or restore is the backup's; none
    // if it was not set. An empty path is not none.
    const std::optional<QString>& pathName() const { return _pathName; }
    // The line of the data file that the error is about: 1 is the title line. None if not set.
    const std::optional<qint64>& lineNo() const { return _lineNo; }
    // A cause in technical words, for the log and never for the user. Empty if not set.
    const QString& localizedDescription() const { return _description; }

    // Each sets one detail and returns this object, so that an error can be built in one
    // expression.
    DBCError& withPathName(const QString& path);
    DBCError& withLineNo(qint64 line);
    DBCError& withDescription(const QString& description);

    // One line for the log: the domain, the code, and each detail that is set.
    QString toString() const;

private:
    std::optional<DBCResultCode> _code;
    std::optional<QString> _pathName;
    std::optional<qint64> _lineNo;
    QString _description;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// An error of this program: a result code and, if known, the path or the line of the data file that
// the error is about.
//
// A default-constructed DBCError means "no error" and converts to false. Whether there is an error
// does not depend on the code, because CancelledByUser is an error although its code is positive. A
// function that has no other result returns a DBCError. A function that returns something else
// takes `DBCError* error` as its last parameter; the caller owns that object, and the function
// writes to it only if the function fails. A DBCError is a plain value: copies are independent of
// each other.
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

    // Returns an error with that code if the code is negative, and no error otherwise.
    static DBCError ifFailure(DBCResultCode code)
    {
        return isFailure(code) ? DBCError(code) : DBCError();
    }

    // True if there is an error.
    explicit operator bool() const { return _code.has_value(); }

    // Returns Success if there is no error.
    DBCResultCode code() const { return _code.value_or(DBCResultCode::Success); }

    // The path that the error is about. For a failed backup or restore this is the backup's path.
    // The value is std::nullopt if no path was set, which is not the same as an empty path.
    const std::optional<QString>& pathName() const { return _pathName; }
    // The line of the data file that the error is about, where 1 is the title line. The value is
    // std::nullopt if no line was set.
    const std::optional<qint64>& lineNo() const { return _lineNo; }
    // The cause in technical words, for the log and never for the user. The text is empty if no
    // cause was set.
    const QString& localizedDescription() const { return _description; }

    // Each function sets one detail and returns this object, so that an error can be built in one
    // expression.
    DBCError& withPathName(const QString& path);
    DBCError& withLineNo(qint64 line);
    DBCError& withDescription(const QString& description);

    // Returns one line for the log: the domain, the code, and each detail that is set.
    QString toString() const;

private:
    std::optional<DBCResultCode> _code;
    std::optional<QString> _pathName;
    std::optional<qint64> _lineNo;
    QString _description;
};

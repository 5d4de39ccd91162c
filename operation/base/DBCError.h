// SPDX-License-Identifier: GPL-3.0-or-later
// An error of this program: a result code with the path or data-file line it happened at.
//
// An empty DBCError means "no error" and tests false. Presence is kept apart from the code because
// CancelledByUser is an error with a positive code. A private step of a sequence returns one; an
// operation that already has a result takes `DBCError* error` last.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class [[nodiscard]] DBCError {
public:
    // The domain that all errors of the program share.
    static constexpr const char* domain = "com.velmora.VelmoraConverter.ErrorDomain";
    // Names under which the details appear in the log and in JSON.
    static constexpr const char* pathNameKey = "DBC_USERINFO_KEY_PATH_NAME";
    static constexpr const char* lineNoKey = "DBC_USERINFO_KEY_LINE_NO";

    DBCError() = default;
    explicit DBCError(DBCResultCode code)
        : _code(code)
    {
    }

    // An error for a negative code, otherwise none.
    static DBCError ifFailure(DBCResultCode code)
    {
        return isFailure(code) ? DBCError(code) : DBCError();
    }

    explicit operator bool() const { return _code.has_value(); }

    // Success when there is no error.
    DBCResultCode code() const { return _code.value_or(DBCResultCode::Success); }

    // Path the error is about, for a failed backup or restore that of the backup; none when unset.
    const std::optional<QString>& pathName() const { return _pathName; }
    // Line of the data file, 1-based, the title line being 1; none when unset.
    const std::optional<qint64>& lineNo() const { return _lineNo; }
    // For the log only; empty when unset.
    const QString& localizedDescription() const { return _description; }

    DBCError& withPathName(const QString& path);
    DBCError& withLineNo(qint64 line);
    DBCError& withDescription(const QString& description);

    // One line for the log: domain, code and every detail that is set.
    QString toString() const;

private:
    std::optional<DBCResultCode> _code;
    std::optional<QString> _pathName;
    std::optional<qint64> _lineNo;
    QString _description;
};

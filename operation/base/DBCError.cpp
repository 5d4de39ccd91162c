// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/base/DBCError.h"

#include <QStringList>

DBCError& DBCError::withPathName(const QString& path)
{
    _pathName = path;
    return *this;
}

DBCError& DBCError::withLineNo(qint64 line)
{
    _lineNo = line;
    return *this;
}

DBCError& DBCError::withDescription(const QString& description)
{
    _description = description;
    return *this;
}

QString DBCError::toString() const
{
    QStringList details {QString::fromLatin1(domain), QString::number(toNumber(code()))};
    if (_pathName)
        details << QString::fromLatin1(pathNameKey) + u'=' + *_pathName;
    if (_lineNo)
        details << QString::fromLatin1(lineNoKey) + u'=' + QString::number(*_lineNo);
    if (!_description.isEmpty())
        details << _description;
    return details.join(u' ');
}

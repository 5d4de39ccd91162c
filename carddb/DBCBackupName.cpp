// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCBackupName.h"

#include "system/DBCPathChecks.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int lastNumber = 9999;

struct Frame {
    explicit Frame(const QString& package)
    {
        const QFileInfo info(QDir::cleanPath(package));
        folder = info.path();
        start = info.completeBaseName() + u"_bak"_s;
        end = u'.' + info.suffix();
    }

    QString folder;
    QString start; // the part of the name before the number
    QString end;
};

} // namespace

namespace DBCBackupName {

std::optional<QString> firstFree(const QString& package)
{
    const Frame frame(package);
    for (int number = 0; number <= lastNumber; ++number) {
        const QString digits = number == 0 ? QString() : QString::number(number);
        QString candidate = QDir::cleanPath(frame.folder + u'/' + frame.start + digits + frame.end);
        if (!isTaken(candidate))
            return candidate;
    }
    return std::nullopt;
}

bool isOf(const QString& package, const QString& name)
{
    const Frame frame(package);
    if (!name.startsWith(frame.start) || !name.endsWith(frame.end)
        || name.size() < frame.start.size() + frame.end.size())
        return false;
    const QString digits
        = name.sliced(frame.start.size(), name.size() - frame.start.size() - frame.end.size());
    if (digits.isEmpty())
        return true;
    const int number = digits.toInt();
    return number >= 1 && number <= lastNumber && digits == QString::number(number);
}

} // namespace DBCBackupName

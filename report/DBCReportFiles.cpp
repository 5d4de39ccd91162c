// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/DBCReportFiles.h"

#include "report/DBCReportData.h"
#include "report/DBCReportPage.h"
#include "report/DBCRunReport.h"
#include "system/DBCDiskFlush.h"
#include "system/DBCPathChecks.h"

#include <QDir>
#include <QLockFile>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <algorithm>

#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

using Failure = DBCReportFiles::Failure;

constexpr int millisecondsToWait = 5000;

QString pageSuffix()
{
    return u".html"_s;
}

QString dataSuffix()
{
    return u".json"_s;
}

QString stemOf(const QDateTime& started)
{
    return u"VelmoraConverter report "_s + QLocale::c().toString(started, u"yyyy-MM-dd HH.mm.ss"_s);
}

bool isStemTaken(const QString& stem)
{
    return isTaken(stem + pageSuffix()) || isTaken(stem + dataSuffix());
}

// Two conversions may begin in the same second. The number has two digits, so that sorting by name
// keeps the order in which the reports were written.
QString freeStem(const QString& stem)
{
    QString candidate = stem;
    for (int number = 2; isStemTaken(candidate); ++number)
        candidate = stem + u" (%1)"_s.arg(number, 2, 10, QChar(u'0'));
    return candidate;
}

// Reports hold names of people. Nobody but its owner may ever read a QTemporaryFile, while a
// QSaveFile has the rights that the umask leaves.
std::optional<Failure> save(const QString& path, const QByteArray& bytes)
{
    QTemporaryFile file(path + u".XXXXXX"_s);
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return Failure {path, file.errorString()};
    // The result is ignored: even if the disk does not confirm that it keeps the report, a report
    // is better than none.
    (void)DBCDiskFlush::file(file.handle());
    if (std::rename(
            QFile::encodeName(file.fileName()).constData(), QFile::encodeName(path).constData())
        != 0)
        return Failure {path, qt_error_string(errno)};
    file.setAutoRemove(false);
    return std::nullopt;
}

// The names of all reports in a folder, without their endings, the newest first.
QStringList stemsIn(const QDir& folder)
{
    static const QRegularExpression report(QRegularExpression::anchoredPattern(
        u"(VelmoraConverter report \\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d(?: \\(\\d+\\))?)"
        "\\.(?:html|json)"_s));
    QStringList stems;
    for (const QString& name : folder.entryList(QDir::Files | QDir::System)) {
        if (const auto match = report.match(name); match.hasMatch())
            stems << match.captured(1);
    }
    stems.removeDuplicates();
    std::sort(stems.begin(), stems.end(), std::greater<>());
    return stems;
}

// This never removes the report named newest, which has just been written. If the clock was put
// back, other reports have names that look newer.
void removeOldReports(const QDir& folder, const QString& newest)
{
    QStringList others = stemsIn(folder);
    others.removeAll(newest);
    for (const QString& stem : others.mid(DBCMostReports - 1)) {
        for (const QString& suffix : {pageSuffix(), dataSuffix()})
            QFile::remove(folder.filePath(stem + suffix));
    }
}

} // namespace

namespace DBCReportFiles {

std::variant<QString, Failure> write(const DBCRunReport& report, const QString& folder)
{
    const QDir place(folder);
    // Another conversion may end at the same time and must not take the same name. If the other
    // conversion still holds the lock after the wait, this report is written all the same; at worst
    // it replaces the other report.
    QLockFile lock(place.filePath(u".VelmoraConverter report.lock"_s));
    (void)lock.tryLock(millisecondsToWait);

    const QString stem = freeStem(place.filePath(stemOf(report.started)));
    const QString page = stem + pageSuffix();
    const QString data = stem + dataSuffix();
    // The page is written last, so that there is never a page without its data.
    if (const auto failure = save(data, reportData(report)))
        return *failure;
    if (const auto failure = save(page, reportPage(report, QFileInfo(data).fileName()))) {
        QFile::remove(data);
        return *failure;
    }
    removeOldReports(place, QFileInfo(page).completeBaseName());
    return page;
}

} // namespace DBCReportFiles

// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using Common = DBCCommonFunction;

namespace {

QByteArray utf16(const QString& text)
{
    QByteArray bytes("\xFF\xFE", 2);
    for (const QChar unit : text) {
        bytes.append(static_cast<char>(unit.cell()));
        bytes.append(static_cast<char>(unit.row()));
    }
    return bytes;
}

// "-" when there is no version information.
QString versionLine(const QString& path)
{
    const auto info = Common::getVersionInfo(path);
    if (!info)
        return QStringLiteral("-");
    return info->value(QStringLiteral("Product name and version in the Version.txt"));
}

} // namespace

class tst_versionInfo : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void versionWithoutLineBreakIsTheWholeText();
    void versionEndsBeforeEachNewLineCharacter_data();
    void versionEndsBeforeEachNewLineCharacter();
    void versionOfABigEndianFile();
    void versionOfAnEmptyFileIsEmpty();
    void versionOfNoRegularFileIsNone();
    void versionOfAnOddSizedFileIsNone();
    void versionOfAPipeDoesNotWait();
    void versionOfAnUnreadableFileIsNone();
    void versionOfAFileThatFailsToBeReadIsNone();
    void versionOfAHugeFileReadsItsStart();
    void versionOfAHugeFileMayBeCutInsideACharacter();

private:
    std::optional<TestHome> _home;
};

void tst_versionInfo::versionWithoutLineBreakIsTheWholeText()
{
    const QString path
        = _home->writeFile(QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10")));
    const auto info = Common::getVersionInfo(path);
    QVERIFY(info);
    QCOMPARE(info->size(), 1);
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1.0L10"));
}

void tst_versionInfo::versionEndsBeforeEachNewLineCharacter_data()
{
    QTest::addColumn<QString>("lineBreak");
    QTest::newRow("CR LF") << QStringLiteral("\r\n");
    QTest::newRow("CR") << QStringLiteral("\r");
    QTest::newRow("LF") << QStringLiteral("\n");
    QTest::newRow("U+0085") << QStringLiteral("\u0085");
    QTest::newRow("U+2028") << QStringLiteral("\u2028");
    QTest::newRow("U+2029") << QStringLiteral("\u2029");
}

void tst_versionInfo::versionEndsBeforeEachNewLineCharacter()
{
    QFETCH(QString, lineBreak);
    const QString path = _home->writeFile(QStringLiteral("Version.txt"),
        utf16(QStringLiteral("ACME\tV1") + lineBreak + QStringLiteral("second\nthird")));
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1"));
}

void tst_versionInfo::versionOfABigEndianFile()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), QByteArray("\xFE\xFF\0A\0\t\0B\0\r\0\n", 12));
    QCOMPARE(versionLine(path), QStringLiteral("A\tB"));
}

void tst_versionInfo::versionOfAnEmptyFileIsEmpty()
{
    QCOMPARE(
        versionLine(_home->writeFile(QStringLiteral("Version.txt"), utf16(QString()))), QString());
}

void tst_versionInfo::versionOfNoRegularFileIsNone()
{
    QVERIFY(!Common::getVersionInfo(QString()));
    QVERIFY(!Common::getVersionInfo(_home->path(QStringLiteral("missing"))));
    QVERIFY(!Common::getVersionInfo(_home->path()));
    QVERIFY(!Common::getVersionInfo(QStringLiteral("/dev/zero")));
}

void tst_versionInfo::versionOfAnOddSizedFileIsNone()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10\r\n")).append('x'));
    QVERIFY(!Common::getVersionInfo(path));
}

void tst_versionInfo::versionOfAPipeDoesNotWait()
{
    const QString path = _home->path(QStringLiteral("Version.txt"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!Common::getVersionInfo(path));
}

void tst_versionInfo::versionOfAnUnreadableFileIsNone()
{
    _home.reset();
    const AsOrdinaryUser user;
    _home.emplace();
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10\r\n")));
    QVERIFY(QFile::setPermissions(path, {}));
    QVERIFY(!Common::getVersionInfo(path));
}

// A process's memory is a regular file whose first page cannot be read.
void tst_versionInfo::versionOfAFileThatFailsToBeReadIsNone()
{
    QVERIFY(!Common::getVersionInfo(QStringLiteral("/proc/self/mem")));
}

void tst_versionInfo::versionOfAHugeFileReadsItsStart()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10\r\n")));
    // A hole of 64 GB; reading it whole would need all of the memory.
    QCOMPARE(truncate(QFile::encodeName(path).constData(), off_t {1} << 36), 0);
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1.0L10"));
}

void tst_versionInfo::versionOfAHugeFileMayBeCutInsideACharacter()
{
    for (const QString& start : {QStringLiteral("A\n"), QStringLiteral("AB\n")}) {
        const QString path = _home->writeFile(
            QStringLiteral("Version.txt"), utf16(start + QStringLiteral("𠮷").repeated(40000)));
        QCOMPARE(versionLine(path), start.chopped(1));
    }
}

QTEST_GUILESS_MAIN(tst_versionInfo)
#include "tst_versionInfo.moc"

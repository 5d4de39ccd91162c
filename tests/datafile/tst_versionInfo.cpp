// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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

// Returns "-" when there is no version information.
QString versionLine(const QString& path)
{
    const auto info = Common::getVersionInfo(path);
    if (!info)
        return u"-"_s;
    return info->value(u"Product name and version in the Version.txt"_s);
}

} // namespace

class tst_versionInfo : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void versionWithoutLineBreakIsTheWholeText()
    {
        const QString path = _home->writeFile(u"Version.txt"_s, utf16(u"ACME\tV1.0L10"_s));
        const auto info = Common::getVersionInfo(path);
        QVERIFY(info);
        QCOMPARE(info->size(), 1);
        QCOMPARE(versionLine(path), u"ACME\tV1.0L10"_s);
    }

    void versionEndsBeforeEachNewLineCharacter_data()
    {
        QTest::addColumn<QString>("lineBreak");
        QTest::newRow("CR LF") << u"\r\n"_s;
        QTest::newRow("CR") << u"\r"_s;
        QTest::newRow("LF") << u"\n"_s;
        QTest::newRow("U+0085") << u"\u0085"_s;
        QTest::newRow("U+2028") << u"\u2028"_s;
        QTest::newRow("U+2029") << u"\u2029"_s;
    }
    void versionEndsBeforeEachNewLineCharacter()
    {
        QFETCH(QString, lineBreak);
        const QString path = _home->writeFile(
            u"Version.txt"_s, utf16(u"ACME\tV1"_s + lineBreak + u"second\nthird"_s));
        QCOMPARE(versionLine(path), u"ACME\tV1"_s);
    }

    void versionOfABigEndianFile()
    {
        const QString path
            = _home->writeFile(u"Version.txt"_s, QByteArray("\xFE\xFF\0A\0\t\0B\0\r\0\n", 12));
        QCOMPARE(versionLine(path), u"A\tB"_s);
    }

    void versionOfAnEmptyFileIsEmpty()
    {
        QCOMPARE(versionLine(_home->writeFile(u"Version.txt"_s, utf16(QString()))), QString());
    }

    void versionOfNoRegularFileIsNone()
    {
        QVERIFY(!Common::getVersionInfo(QString()));
        QVERIFY(!Common::getVersionInfo(_home->path(u"missing"_s)));
        QVERIFY(!Common::getVersionInfo(_home->path()));
        QVERIFY(!Common::getVersionInfo(u"/dev/zero"_s));
    }

    void versionOfAnOddSizedFileIsNone()
    {
        const QString path
            = _home->writeFile(u"Version.txt"_s, utf16(u"ACME\tV1.0L10\r\n"_s).append('x'));
        QVERIFY(!Common::getVersionInfo(path));
    }

    void versionOfAPipeDoesNotWait()
    {
        const QString path = _home->path(u"Version.txt"_s);
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QVERIFY(!Common::getVersionInfo(path));
    }

    void versionOfAnUnreadableFileIsNone()
    {
        _home.reset();
        const AsOrdinaryUser user;
        _home.emplace();
        const QString path = _home->writeFile(u"Version.txt"_s, utf16(u"ACME\tV1.0L10\r\n"_s));
        QVERIFY(QFile::setPermissions(path, {}));
        QVERIFY(!Common::getVersionInfo(path));
    }

    // /proc/self/mem is a regular file whose first page cannot be read.
    void versionOfAFileThatFailsToBeReadIsNone()
    {
        QVERIFY(!Common::getVersionInfo(u"/proc/self/mem"_s));
    }

    void versionOfAHugeFileReadsItsStart()
    {
        const QString path = _home->writeFile(u"Version.txt"_s, utf16(u"ACME\tV1.0L10\r\n"_s));
        // The file is sparse and has a size of 64 GiB; reading all of it would fill the memory.
        QCOMPARE(truncate(QFile::encodeName(path).constData(), off_t {1} << 36), 0);
        QCOMPARE(versionLine(path), u"ACME\tV1.0L10"_s);
    }

    void versionOfAHugeFileMayBeCutInsideACharacter()
    {
        for (const QString& start : {u"A\n"_s, u"AB\n"_s}) {
            const QString path
                = _home->writeFile(u"Version.txt"_s, utf16(start + u"𠮷"_s.repeated(40000)));
            QCOMPARE(versionLine(path), start.chopped(1));
        }
    }

private:
    std::optional<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_versionInfo)
#include "tst_versionInfo.moc"

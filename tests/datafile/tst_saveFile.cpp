// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using Common = DBCCommonFunction;
using Code = DBCResultCode;

class tst_saveFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void saveWithoutDataFails();
    void saveWithoutPathFails();
    void saveMakesANewFile();
    void saveOfNothingMakesAnEmptyFile();
    void saveReplacesAnExistingFile();
    void saveReplacesALinkAndNotWhatItNames();
    void saveReplacesALinkThatLeadsNowhere();
    void saveReplacesAPipeWithoutWaiting();
    void saveOverAFolderFails();
    void saveIntoAMissingFolderFails();
    void saveBelowAFileFails();
    void saveIntoAReadOnlyFolderFails();
    void saveWantsTheMarginFreeBesideTheData_data();
    void saveWantsTheMarginFreeBesideTheData();
    void saveWithoutSpaceKeepsTheOldFile();
    void saveOnAFullDiskFailsAndLeavesNothing();
    void saveIntoAFolderThatBecomesReadOnlyKeepsTheOldFile();

private:
    std::optional<TestHome> _home;
};

void tst_saveFile::saveWithoutDataFails()
{
    const QString path = _home->path(QStringLiteral("new"));
    QCOMPARE(Common::saveFile({}, path), Code::GeneralFailure);
    QVERIFY(!QFileInfo::exists(path));
}

void tst_saveFile::saveWithoutPathFails()
{
    QCOMPARE(Common::saveFile(QByteArray("x"), QString()), Code::GeneralFailure);
}

void tst_saveFile::saveMakesANewFile()
{
    const QByteArray data("a\0b", 3);
    QCOMPARE(Common::saveFile(data, _home->path(QStringLiteral("new"))), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("new")), data);
}

void tst_saveFile::saveOfNothingMakesAnEmptyFile()
{
    QCOMPARE(Common::saveFile(QByteArray(), _home->path(QStringLiteral("new"))), Code::Success);
    QVERIFY(QFileInfo::exists(_home->path(QStringLiteral("new"))));
}

void tst_saveFile::saveReplacesAnExistingFile()
{
    const QString path = _home->writeFile(QStringLiteral("file"), "a much longer old content");
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("new"));
}

void tst_saveFile::saveReplacesALinkAndNotWhatItNames()
{
    const QString target = _home->writeFile(QStringLiteral("target"), "kept");
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(target, link));
    QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("target")), QByteArray("kept"));
    QCOMPARE(_home->readFile(QStringLiteral("link")), QByteArray("new"));
}

void tst_saveFile::saveReplacesALinkThatLeadsNowhere()
{
    const QString target = _home->path(QStringLiteral("missing"));
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(target, link));
    QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
    QVERIFY(!QFileInfo::exists(target));
    QCOMPARE(_home->readFile(QStringLiteral("link")), QByteArray("new"));
}

void tst_saveFile::saveReplacesAPipeWithoutWaiting()
{
    const QString path = _home->path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("pipe")), QByteArray("new"));
}

void tst_saveFile::saveOverAFolderFails()
{
    const QString folder = _home->makeFolder(QStringLiteral("folder"));
    QCOMPARE(Common::saveFile(QByteArray("new"), folder), Code::FileSaveFailure);
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_saveFile::saveIntoAMissingFolderFails()
{
    const QString path = _home->path(QStringLiteral("missing/file"));
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::FileSaveFailure);
    QVERIFY(!QFileInfo::exists(_home->path(QStringLiteral("missing"))));
}

void tst_saveFile::saveBelowAFileFails()
{
    const QString file = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(
        Common::saveFile(QByteArray("new"), file + QStringLiteral("/x")), Code::FileSaveFailure);
}

void tst_saveFile::saveIntoAReadOnlyFolderFails()
{
    ScopedHost host;
    host.makeReadOnly({_home->path()});
    const QString old = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(Common::saveFile(QByteArray("new"), old), Code::FileSaveFailure);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("kept"));
}

void tst_saveFile::saveWantsTheMarginFreeBesideTheData_data()
{
    QTest::addColumn<quint64>("free");
    QTest::addColumn<Code>("expected");
    QTest::newRow("exactly enough") << quint64 {524288 + 3} << Code::Success;
    QTest::newRow("one byte less") << quint64 {524288 + 2} << Code::NoSpaceForExport;
}

void tst_saveFile::saveWantsTheMarginFreeBesideTheData()
{
    QFETCH(quint64, free);
    QFETCH(Code, expected);
    ScopedHost host;
    QString asked;
    host->freeBytes = [&](const QString& path) {
        asked = path;
        return std::optional(free);
    };
    QCOMPARE(Common::saveFile(QByteArray("new"), _home->path(QStringLiteral("file"))), expected);
    QCOMPARE(asked, _home->path());
}

void tst_saveFile::saveWithoutSpaceKeepsTheOldFile()
{
    ScopedHost host;
    host.setFreeBytes(1);
    const QString path = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::NoSpaceForExport);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("kept"));
}

void tst_saveFile::saveOnAFullDiskFailsAndLeavesNothing()
{
    const QString path = _home->path(QStringLiteral("file"));
    Code code = Code::Success;
    {
        const FileSizeLimit limit(1000);
        code = Common::saveFile(QByteArray(5000, 'x'), path);
    }
    QCOMPARE(code, Code::FileSaveFailure);
    QVERIFY(!QFileInfo::exists(path));
}

void tst_saveFile::saveIntoAFolderThatBecomesReadOnlyKeepsTheOldFile()
{
    _home.reset();
    const AsOrdinaryUser user;
    _home.emplace();
    const QString folder = _home->makeFolder(QStringLiteral("folder"));
    const QString old = _home->writeFile(QStringLiteral("folder/file"), "kept");
    ScopedHost host;
    host->isWritable = [](const QString& path) {
        return QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    };
    const Code code = Common::saveFile(QByteArray("new"), old);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(code, Code::FileSaveFailure);
    QCOMPARE(_home->readFile(QStringLiteral("folder/file")), QByteArray("kept"));
}

QTEST_GUILESS_MAIN(tst_saveFile)
#include "tst_saveFile.moc"

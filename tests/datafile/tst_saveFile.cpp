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

using namespace Qt::StringLiterals;

using Common = DBCCommonFunction;
using Code = DBCResultCode;

class tst_saveFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void saveWithoutDataFails()
    {
        const QString path = _home->path(u"new"_s);
        QCOMPARE(Common::saveFile({}, path), Code::GeneralFailure);
        QVERIFY(!QFileInfo::exists(path));
    }

    void saveWithoutPathFails()
    {
        QCOMPARE(Common::saveFile(QByteArray("x"), QString()), Code::GeneralFailure);
    }

    void saveMakesANewFile()
    {
        const QByteArray data("a\0b", 3);
        QCOMPARE(Common::saveFile(data, _home->path(u"new"_s)), Code::Success);
        QCOMPARE(_home->readFile(u"new"_s), data);
    }

    void saveOfNothingMakesAnEmptyFile()
    {
        QCOMPARE(Common::saveFile(QByteArray(), _home->path(u"new"_s)), Code::Success);
        QVERIFY(QFileInfo::exists(_home->path(u"new"_s)));
    }

    void saveReplacesAnExistingFile()
    {
        const QString path = _home->writeFile(u"file"_s, "a much longer old content");
        QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
        QCOMPARE(_home->readFile(u"file"_s), QByteArray("new"));
    }

    void saveReplacesALinkAndNotWhatItNames()
    {
        const QString target = _home->writeFile(u"target"_s, "kept");
        const QString link = _home->path(u"link"_s);
        QVERIFY(QFile::link(target, link));
        QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
        QCOMPARE(_home->readFile(u"target"_s), QByteArray("kept"));
        QCOMPARE(_home->readFile(u"link"_s), QByteArray("new"));
    }

    void saveReplacesALinkThatLeadsNowhere()
    {
        const QString target = _home->path(u"missing"_s);
        const QString link = _home->path(u"link"_s);
        QVERIFY(QFile::link(target, link));
        QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
        QVERIFY(!QFileInfo::exists(target));
        QCOMPARE(_home->readFile(u"link"_s), QByteArray("new"));
    }

    void saveReplacesAPipeWithoutWaiting()
    {
        const QString path = _home->path(u"pipe"_s);
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
        QCOMPARE(_home->readFile(u"pipe"_s), QByteArray("new"));
    }

    void saveOverAFolderFails()
    {
        const QString folder = _home->makeFolder(u"folder"_s);
        QCOMPARE(Common::saveFile(QByteArray("new"), folder), Code::FileSaveFailure);
        QVERIFY(QFileInfo(folder).isDir());
    }

    void saveIntoAMissingFolderFails()
    {
        const QString path = _home->path(u"missing/file"_s);
        QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::FileSaveFailure);
        QVERIFY(!QFileInfo::exists(_home->path(u"missing"_s)));
    }

    void saveBelowAFileFails()
    {
        const QString file = _home->writeFile(u"file"_s, "kept");
        QCOMPARE(Common::saveFile(QByteArray("new"), file + u"/x"_s), Code::FileSaveFailure);
    }

    void saveIntoAReadOnlyFolderFails()
    {
        ScopedHost host;
        host.makeReadOnly({_home->path()});
        const QString old = _home->writeFile(u"file"_s, "kept");
        QCOMPARE(Common::saveFile(QByteArray("new"), old), Code::FileSaveFailure);
        QCOMPARE(_home->readFile(u"file"_s), QByteArray("kept"));
    }

    void saveWantsTheMarginFreeBesideTheData_data()
    {
        QTest::addColumn<quint64>("free");
        QTest::addColumn<Code>("expected");
        QTest::newRow("exactly enough") << quint64 {524288 + 3} << Code::Success;
        QTest::newRow("one byte less") << quint64 {524288 + 2} << Code::NoSpaceForExport;
    }
    void saveWantsTheMarginFreeBesideTheData()
    {
        QFETCH(quint64, free);
        QFETCH(Code, expected);
        ScopedHost host;
        QString asked;
        host->freeBytes = [&](const QString& path) {
            asked = path;
            return std::optional(free);
        };
        QCOMPARE(Common::saveFile(QByteArray("new"), _home->path(u"file"_s)), expected);
        QCOMPARE(asked, _home->path());
    }

    void saveWithoutSpaceKeepsTheOldFile()
    {
        ScopedHost host;
        host.setFreeBytes(1);
        const QString path = _home->writeFile(u"file"_s, "kept");
        QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::NoSpaceForExport);
        QCOMPARE(_home->readFile(u"file"_s), QByteArray("kept"));
    }

    void saveOnAFullDiskFailsAndLeavesNothing()
    {
        const QString path = _home->path(u"file"_s);
        Code code = Code::Success;
        {
            const FileSizeLimit limit(1000);
            code = Common::saveFile(QByteArray(5000, 'x'), path);
        }
        QCOMPARE(code, Code::FileSaveFailure);
        QVERIFY(!QFileInfo::exists(path));
    }

    void saveIntoAFolderThatBecomesReadOnlyKeepsTheOldFile()
    {
        _home.reset();
        const AsOrdinaryUser user;
        _home.emplace();
        const QString folder = _home->makeFolder(u"folder"_s);
        const QString old = _home->writeFile(u"folder/file"_s, "kept");
        ScopedHost host;
        host->isWritable = [](const QString& path) {
            return QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        };
        const Code code = Common::saveFile(QByteArray("new"), old);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(code, Code::FileSaveFailure);
        QCOMPARE(_home->readFile(u"folder/file"_s), QByteArray("kept"));
    }

private:
    std::optional<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_saveFile)
#include "tst_saveFile.moc"

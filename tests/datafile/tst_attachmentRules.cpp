// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCAttachmentRules.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using Kind = DBCEntryKind;
using Verdict = DBCAttachmentVerdict;

Q_DECLARE_METATYPE(DBCEntryKind)
Q_DECLARE_METATYPE(DBCAttachmentVerdict)

namespace {

Kind kindOf(const QString& path)
{
    return kindOfEntry(AT_FDCWD, QFile::encodeName(path));
}

} // namespace

class tst_attachmentRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entriesAreToldApart()
    {
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        const QString link = home.path(u"link"_s);
        const QString pipe = home.path(u"pipe"_s);
        QVERIFY(QFile::link(file, link));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);

        QCOMPARE(kindOf(file), Kind::RegularFile);
        QCOMPARE(kindOf(home.makeFolder(u"folder"_s)), Kind::Folder);
        QCOMPARE(kindOf(link), Kind::Other);
        QCOMPARE(kindOf(pipe), Kind::Other);
        QCOMPARE(kindOf(home.path(u"none"_s)), Kind::Gone);
    }

    void entryOfAClosedFolderIsUnknown()
    {
        const AsOrdinaryUser user;
        const TestHome home;
        const QString file = home.writeFile(u"folder/file"_s, "x");
        const ScopedMode mode(home.path(u"folder"_s), 0600);
        QCOMPARE(kindOf(file), Kind::Unknown);
    }

    void verdicts_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<Verdict>("onImport");
        QTest::addColumn<Verdict>("onExport");
        const auto row = [](const char* title, const QByteArray& name, Kind kind, Verdict onImport,
                             Verdict onExport) {
            QTest::newRow(title) << name << kind << onImport << onExport;
        };
        row("file", "a.txt", Kind::RegularFile, Verdict::Copy, Verdict::Copy);
        row("no text", "\xff.txt", Kind::RegularFile, Verdict::Copy, Verdict::Copy);
        row("unknown", "a.txt", Kind::Unknown, Verdict::Copy, Verdict::Copy);
        row("folder", "a", Kind::Folder, Verdict::Ignore, Verdict::Ignore);
        row("hidden folder", ".a", Kind::Folder, Verdict::Ignore, Verdict::BadName);
        row("folder settings", ".DS_Store", Kind::RegularFile, Verdict::Ignore, Verdict::BadName);
        row("hidden file", ".a", Kind::RegularFile, Verdict::BadName, Verdict::BadName);
        row("hidden link", ".a", Kind::Other, Verdict::BadName, Verdict::BadName);
        row("colon", "a:b", Kind::RegularFile, Verdict::BadName, Verdict::BadName);
        row("question mark", "a?", Kind::RegularFile, Verdict::Copy, Verdict::BadName);
        row("link", "a", Kind::Other, Verdict::NotRegular, Verdict::NotRegular);
        row("gone", "a", Kind::Gone, Verdict::Vanished, Verdict::Ignore);
    }
    void verdicts()
    {
        QFETCH(QByteArray, name);
        QFETCH(Kind, kind);
        QTEST(judgeAttachmentForImport(name, kind), "onImport");
        QTEST(judgeAttachmentForExport(name, kind), "onExport");
    }
};

QTEST_GUILESS_MAIN(tst_attachmentRules)
#include "tst_attachmentRules.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the check of a folder by a user who may not read all files in it.
#include "operation/DBCFolderInspector.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/ScopedMode.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

constexpr mode_t unreadable = 0;
constexpr mode_t notToBeListed = S_IWUSR | S_IXUSR;

struct Inspection {
    Inspection()
    {
        folder.image(u"1.jpg"_s, JpegBuilder(30, 20).bytes())
            .attachment(u"plans"_s, u"a.txt"_s, "a")
            .dataFile(DataFileBuilder()
                          .titleLine()
                          .row({{Key::full_Name, u"Hoshino"_s}, {Key::face_Image_File, u"1.jpg"_s},
                              {Key::attachmentFile, u"plans"_s}})
                          .build());
    }
    // Returns the paths of the problems, relative to the folder.
    QStringList problems() const
    {
        QStringList paths;
        for (const DBCProblem& problem :
            DBCFolderInspector::inspect(folder.path()).findings.problems)
            paths << problem.path.mid(folder.path().size() + 1);
        return paths;
    }
    QString below(const QString& path) const { return path.mid(folder.path().size() + 1); }

    AsOrdinaryUser user;
    TestHome home;
    InterchangeFolder folder {home};
};

} // namespace

class tst_folderInspector_rights : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void folderThatMayBeReadHasNoProblems() { QCOMPARE(Inspection().problems(), QStringList()); }

    void folderThatCannotBeListedCannotBeLookedAt()
    {
        const Inspection inspection;
        const ScopedMode mode(inspection.folder.path(), notToBeListed);
        const auto findings = DBCFolderInspector::inspect(inspection.folder.path()).findings;
        QVERIFY(findings.couldNotLook);
        QCOMPARE(findings.couldNotLook->path, inspection.folder.path());
    }

    void unreadableDataFileIsReportedWithItsCode()
    {
        const Inspection inspection;
        const QString path = inspection.folder.dataFilePath();
        const ScopedMode mode(path, unreadable);
        const auto problems
            = DBCFolderInspector::inspect(inspection.folder.path()).findings.problems;
        QCOMPARE(problems.size(), std::size_t(1));
        QCOMPARE(problems.front().path, path);
        QCOMPARE(problems.front().text,
            getLocalString(u"IDS_CHECK_DATA_FILE_UNREADABLE"_s, {path, qint64 {-101}}));
    }

    void unreadableImageIsReported()
    {
        const Inspection inspection;
        const QString path = inspection.folder.imagePath(u"1.jpg"_s);
        const ScopedMode mode(path, unreadable);
        QCOMPARE(inspection.problems(), QStringList {inspection.below(path)});
    }

    void unreadableAttachmentIsReported()
    {
        const Inspection inspection;
        const QString path = inspection.folder.attachmentPath(u"plans"_s, u"a.txt"_s);
        const ScopedMode mode(path, unreadable);
        QCOMPARE(inspection.problems(), QStringList {inspection.below(path)});
    }

    // The program can then neither list the attachment folder nor measure the whole interchange
    // folder, so it reports two problems.
    void attachmentFolderThatCannotBeListedIsReported()
    {
        const Inspection inspection;
        const QString path = inspection.folder.attachmentPath(u"plans"_s);
        const ScopedMode mode(path, notToBeListed);
        QCOMPARE(inspection.problems(), QStringList({QString(), inspection.below(path)}));
    }

    void unreadableVersionFileCountsAsMissing()
    {
        const Inspection inspection;
        const QString path = inspection.folder.path() + u"/Version.txt"_s;
        const ScopedMode mode(path, unreadable);
        QCOMPARE(inspection.problems(), QStringList {u"Version.txt"_s});
    }
};

QTEST_GUILESS_MAIN(tst_folderInspector_rights)
#include "tst_folderInspector_rights.moc"

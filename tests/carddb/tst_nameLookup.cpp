// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCNameLookup.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <memory>

using Kind = DBCNameLookup::Kind;
using Outcome = DBCNameLookup::Outcome;

namespace {

// "が" as one character and as "か" with the combining sound mark.
const QString composedGa = QString(QChar(0x304C));
const QString decomposedGa = QString(QChar(0x304B)) + QChar(0x3099);

// Tells how often a folder has been listed.
class ListingCounter {
public:
    explicit ListingCounter(const QString& folder)
        : _descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (inotify_add_watch(_descriptor, QFile::encodeName(folder).constData(), IN_ACCESS) < 0)
            qFatal("cannot watch a folder");
    }
    ~ListingCounter() { close(_descriptor); }
    ListingCounter(const ListingCounter&) = delete;
    ListingCounter& operator=(const ListingCounter&) = delete;

    bool wasListed() const
    {
        std::array<char, 4096> events {};
        return read(_descriptor, events.data(), events.size()) > 0;
    }

private:
    int _descriptor;
};

} // namespace

class tst_nameLookup : public QObject {
    Q_OBJECT

private:
    QString found(const QString& name, Kind kind = Kind::RegularFile)
    {
        const DBCNameLookup::Result result = _lookup->find(_folder, name, kind);
        if (result.outcome != Outcome::Found)
            return QStringLiteral("-");
        return result.path.startsWith(_folder + u'/') ? result.path.mid(_folder.size() + 1)
                                                      : result.path;
    }
    Outcome outcome(const QString& name, Kind kind = Kind::RegularFile)
    {
        return _lookup->find(_folder, name, kind).outcome;
    }
    void file(const QString& name) { _home->writeFile(QStringLiteral("in/") + name, "x"); }
    void link(const QString& target, const QString& name)
    {
        QVERIFY(QFile::link(target, _folder + u'/' + name));
    }

    std::unique_ptr<TestHome> _home;
    std::unique_ptr<DBCNameLookup> _lookup;
    QString _folder;

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _lookup = std::make_unique<DBCNameLookup>();
        _home->makeFolder(QStringLiteral("in"));
        _home->makeFolder(QStringLiteral("outside"));
        _home->writeFile(QStringLiteral("outside/secret.jpg"), "x");
        _folder = QFileInfo(_home->path(QStringLiteral("in"))).canonicalFilePath();
    }

    void exactNameIsFound()
    {
        file(QStringLiteral("a.jpg"));
        QCOMPARE(found(QStringLiteral("a.jpg")), QStringLiteral("a.jpg"));
    }

    void exactNameGoesBeforeOtherForms()
    {
        file(QStringLiteral("a.jpg"));
        file(QStringLiteral("A.JPG"));
        file(QStringLiteral("A.jpg"));
        QCOMPARE(found(QStringLiteral("A.jpg")), QStringLiteral("A.jpg"));
        QCOMPARE(found(QStringLiteral("a.jpg")), QStringLiteral("a.jpg"));
    }

    void decomposedFileIsFoundByComposedName()
    {
        file(decomposedGa + QStringLiteral(".jpg"));
        QCOMPARE(found(composedGa + QStringLiteral(".jpg")), decomposedGa + QStringLiteral(".jpg"));
    }

    void composedFileIsFoundByDecomposedName()
    {
        file(composedGa + QStringLiteral(".jpg"));
        QCOMPARE(found(decomposedGa + QStringLiteral(".jpg")), composedGa + QStringLiteral(".jpg"));
    }

    void normalFormGoesBeforeLetterCase()
    {
        // Sorted, the name that differs in case stands first.
        file(composedGa + QStringLiteral("A.jpg"));
        file(decomposedGa + QStringLiteral("a.jpg"));
        file(decomposedGa + QStringLiteral("A.JPG"));
        QCOMPARE(
            found(composedGa + QStringLiteral("a.jpg")), decomposedGa + QStringLiteral("a.jpg"));
    }

    void letterCaseIsIgnoredLast()
    {
        file(QStringLiteral("Card001.JPG"));
        QCOMPARE(found(QStringLiteral("card001.jpg")), QStringLiteral("Card001.JPG"));
    }

    void letterCaseAndNormalFormMayDifferTogether()
    {
        file(decomposedGa + QStringLiteral(".JPG"));
        QCOMPARE(found(composedGa + QStringLiteral(".jpg")), decomposedGa + QStringLiteral(".JPG"));
    }

    void firstInSortedOrderOfTwoEqualCandidates()
    {
        file(QStringLiteral("b.JPG"));
        file(QStringLiteral("B.jpg"));
        file(QStringLiteral("B.JPG"));
        QCOMPARE(found(QStringLiteral("b.jpg")), QStringLiteral("B.JPG"));
    }

    void missingNameIsMissing()
    {
        file(QStringLiteral("a.jpg"));
        QCOMPARE(outcome(QStringLiteral("b.jpg")), Outcome::Missing);
    }

    void folderIsFoundByEveryForm()
    {
        _home->makeFolder(QStringLiteral("in/Plans"));
        QCOMPARE(found(QStringLiteral("Plans"), Kind::Folder), QStringLiteral("Plans"));
        QCOMPARE(found(QStringLiteral("PLANS"), Kind::Folder), QStringLiteral("Plans"));
    }

    void entryOfTheWrongKindIsMissing()
    {
        file(QStringLiteral("a.jpg"));
        _home->makeFolder(QStringLiteral("in/folder"));
        QCOMPARE(outcome(QStringLiteral("folder")), Outcome::Missing);
        QCOMPARE(outcome(QStringLiteral("a.jpg"), Kind::Folder), Outcome::Missing);
    }

    void entryOfTheWrongKindDoesNotHideAnotherSpelling()
    {
        _home->makeFolder(QStringLiteral("in/a.jpg"));
        file(QStringLiteral("A.JPG"));
        QCOMPARE(found(QStringLiteral("a.jpg")), QStringLiteral("A.JPG"));
    }

    void pipeIsMissing()
    {
        QCOMPARE(
            mkfifo(QFile::encodeName(_folder + QStringLiteral("/pipe.jpg")).constData(), 0600), 0);
        QCOMPARE(outcome(QStringLiteral("pipe.jpg")), Outcome::Missing);
    }

    void linkToADeviceLeadsOut()
    {
        link(QStringLiteral("/dev/zero"), QStringLiteral("zero.jpg"));
        QCOMPARE(outcome(QStringLiteral("zero.jpg")), Outcome::LeadsOut);
    }

    void nameWithSubfoldersIsFound()
    {
        file(QStringLiteral("a/b/c.jpg"));
        QCOMPARE(found(QStringLiteral("a/b/c.jpg")), QStringLiteral("a/b/c.jpg"));
    }

    void nameBelowAMissingSubfolderIsMissing()
    {
        file(QStringLiteral("a/c.jpg"));
        file(QStringLiteral("B"));
        QCOMPARE(outcome(QStringLiteral("none/c.jpg")), Outcome::Missing);
        QCOMPARE(outcome(QStringLiteral("a/none/c.jpg")), Outcome::Missing);
        QCOMPARE(outcome(QStringLiteral("b/c.jpg")), Outcome::Missing); // "B" is a file
    }

    void subfoldersAreFoundByOtherForms()
    {
        file(QStringLiteral("Sub/") + decomposedGa + QStringLiteral("/C.jpg"));
        QCOMPARE(found(QStringLiteral("sub/") + composedGa + QStringLiteral("/c.jpg")),
            QStringLiteral("Sub/") + decomposedGa + QStringLiteral("/C.jpg"));
    }

    void backslashIsAPlainCharacter()
    {
        file(QStringLiteral("a\\b.jpg"));
        file(QStringLiteral("c/d.jpg"));
        QCOMPARE(found(QStringLiteral("a\\b.jpg")), QStringLiteral("a\\b.jpg"));
        QCOMPARE(outcome(QStringLiteral("c\\d.jpg")), Outcome::Missing);
    }

    void absoluteNameLeadsOut()
    {
        file(QStringLiteral("a.jpg"));
        QCOMPARE(outcome(_folder + QStringLiteral("/a.jpg")), Outcome::LeadsOut);
    }

    void parentFolderLeadsOut_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("existing file") << QStringLiteral("../outside/secret.jpg");
        QTest::newRow("missing file") << QStringLiteral("../outside/none.jpg");
        QTest::newRow("through a subfolder") << QStringLiteral("sub/../../outside/secret.jpg");
        QTest::newRow("dots alone") << QStringLiteral("..");
    }
    void parentFolderLeadsOut()
    {
        QFETCH(QString, name);
        _home->makeFolder(QStringLiteral("in/sub"));
        QCOMPARE(outcome(name), Outcome::LeadsOut);
        QCOMPARE(outcome(name, Kind::Folder), Outcome::LeadsOut);
    }

    void nameThatReturnsIntoTheFolderIsFound()
    {
        file(QStringLiteral("a.jpg"));
        _home->makeFolder(QStringLiteral("in/sub"));
        QCOMPARE(found(QStringLiteral("sub/../a.jpg")), QStringLiteral("a.jpg"));
        QCOMPARE(found(QStringLiteral("../in/a.jpg")), QStringLiteral("a.jpg"));
        QCOMPARE(found(QStringLiteral("./a.jpg")), QStringLiteral("a.jpg"));
    }

    void folderThatBeginsWithTheSameNameIsOutside()
    {
        _home->writeFile(QStringLiteral("in-side/a.jpg"), "x");
        QCOMPARE(outcome(QStringLiteral("../in-side/a.jpg")), Outcome::LeadsOut);
    }

    void folderItselfIsNotFound_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("dot") << QStringLiteral(".");
        QTest::newRow("down and up") << QStringLiteral("sub/..");
        QTest::newRow("up and down") << QStringLiteral("../in");
    }
    void folderItselfIsNotFound()
    {
        QFETCH(QString, name);
        _home->makeFolder(QStringLiteral("in/sub"));
        QVERIFY(outcome(name, Kind::Folder) != Outcome::Found);
    }

    void linkInsideTheFolderIsFollowed()
    {
        file(QStringLiteral("sub/a.jpg"));
        link(QStringLiteral("sub/a.jpg"), QStringLiteral("link.jpg"));
        link(QStringLiteral("sub"), QStringLiteral("folderLink"));
        QCOMPARE(found(QStringLiteral("link.jpg")), QStringLiteral("sub/a.jpg"));
        QCOMPARE(found(QStringLiteral("folderLink"), Kind::Folder), QStringLiteral("sub"));
        QCOMPARE(found(QStringLiteral("folderLink/a.jpg")), QStringLiteral("sub/a.jpg"));
    }

    void linkOutOfTheFolderLeadsOut()
    {
        link(QStringLiteral("../outside/secret.jpg"), QStringLiteral("link.jpg"));
        link(QStringLiteral("../outside"), QStringLiteral("folderLink"));
        QCOMPARE(outcome(QStringLiteral("link.jpg")), Outcome::LeadsOut);
        QCOMPARE(outcome(QStringLiteral("LINK.jpg")), Outcome::LeadsOut);
        QCOMPARE(outcome(QStringLiteral("folderLink"), Kind::Folder), Outcome::LeadsOut);
        QCOMPARE(outcome(QStringLiteral("folderLink/secret.jpg")), Outcome::LeadsOut);
    }

    void danglingAndCircularLinksAreMissing()
    {
        link(QStringLiteral("none.jpg"), QStringLiteral("dangling.jpg"));
        link(QStringLiteral("circle.jpg"), QStringLiteral("circle.jpg"));
        QCOMPARE(outcome(QStringLiteral("dangling.jpg")), Outcome::Missing);
        QCOMPARE(outcome(QStringLiteral("circle.jpg")), Outcome::Missing);
    }

    void folderReachedThroughALinkIsAFolderLikeAnother()
    {
        file(QStringLiteral("a.jpg"));
        const QString link = _home->path(QStringLiteral("linked"));
        QVERIFY(QFile::link(_folder, link));
        const auto result
            = _lookup->find(link, QStringLiteral("../linked/a.jpg"), Kind::RegularFile);
        QCOMPARE(result.outcome, Outcome::Found);
        QCOMPARE(result.path, _folder + QStringLiteral("/a.jpg"));
    }

    void nameWithAZeroCharacterIsMissing()
    {
        file(QStringLiteral("a.jpg"));
        QCOMPARE(
            outcome(QStringLiteral("a.jpg") + QChar::Null + QStringLiteral("b")), Outcome::Missing);
    }

    void nameTooLongForTheSystemIsMissing()
    {
        QCOMPARE(outcome(QString(5000, u'a')), Outcome::Missing);
    }

    void entryWhoseNameIsNoUtf8IsPassedOver()
    {
        const QByteArray path = QFile::encodeName(_folder) + "/\xff\xfe.jpg";
        const int descriptor = open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        QVERIFY(descriptor >= 0);
        close(descriptor);
        file(QStringLiteral("Good.jpg"));
        QCOMPARE(found(QStringLiteral("good.jpg")), QStringLiteral("Good.jpg"));
        // The temporary folder cannot remove what Qt cannot name.
        QCOMPARE(unlink(path.constData()), 0);
    }

    void missingFolderHoldsNothing()
    {
        QCOMPARE(_lookup
                     ->find(_folder + QStringLiteral("/none"), QStringLiteral("a.jpg"),
                         Kind::RegularFile)
                     .outcome,
            Outcome::Missing);
    }

    void exactNameNeedsNoListing()
    {
        file(QStringLiteral("a.jpg"));
        const ListingCounter counter(_folder);
        QCOMPARE(found(QStringLiteral("a.jpg")), QStringLiteral("a.jpg"));
        QVERIFY(!counter.wasListed());
    }

    void folderIsListedOnceForManyMisses()
    {
        file(QStringLiteral("Other.jpg"));
        const ListingCounter counter(_folder);
        QCOMPARE(outcome(QStringLiteral("missing.jpg")), Outcome::Missing);
        QVERIFY(counter.wasListed());
        for (int i = 0; i < 100; ++i)
            QCOMPARE(outcome(QStringLiteral("missing%1.jpg").arg(i)), Outcome::Missing);
        QCOMPARE(found(QStringLiteral("other.jpg")), QStringLiteral("Other.jpg"));
        QVERIFY(!counter.wasListed());
    }

    void changedFolderIsListedAgain()
    {
        QCOMPARE(outcome(QStringLiteral("late.jpg")), Outcome::Missing);
        file(QStringLiteral("Late.jpg"));
        // The clock behind a folder's time stamp is coarse.
        const timespec later[2] = {{0, UTIME_OMIT}, {4000000000, 0}};
        QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(_folder).constData(), later, 0), 0);
        QCOMPARE(found(QStringLiteral("late.jpg")), QStringLiteral("Late.jpg"));
    }
};

QTEST_GUILESS_MAIN(tst_nameLookup)
#include "tst_nameLookup.moc"

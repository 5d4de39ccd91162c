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

using namespace Qt::StringLiterals;

using Kind = DBCNameLookup::Kind;
using Outcome = DBCNameLookup::Outcome;

namespace {

// The text "が", first as one character, then as "か" with the combining sound mark.
const QString composedGa = QString(QChar(0x304C));
const QString decomposedGa = QString(QChar(0x304B)) + QChar(0x3099);

// Tells whether a folder has been listed since the last call of wasListed().
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
            return u"-"_s;
        return result.path.startsWith(_folder + u'/') ? result.path.mid(_folder.size() + 1)
                                                      : result.path;
    }
    Outcome outcome(const QString& name, Kind kind = Kind::RegularFile)
    {
        return _lookup->find(_folder, name, kind).outcome;
    }
    void file(const QString& name) { _home->writeFile(u"in/"_s + name, "x"); }
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
        _home->makeFolder(u"in"_s);
        _home->makeFolder(u"outside"_s);
        _home->writeFile(u"outside/secret.jpg"_s, "x");
        _folder = QFileInfo(_home->path(u"in"_s)).canonicalFilePath();
    }

    void exactNameIsFound()
    {
        file(u"a.jpg"_s);
        QCOMPARE(found(u"a.jpg"_s), u"a.jpg"_s);
    }

    void exactNameGoesBeforeOtherForms()
    {
        file(u"a.jpg"_s);
        file(u"A.JPG"_s);
        file(u"A.jpg"_s);
        QCOMPARE(found(u"A.jpg"_s), u"A.jpg"_s);
        QCOMPARE(found(u"a.jpg"_s), u"a.jpg"_s);
    }

    void decomposedFileIsFoundByComposedName()
    {
        file(decomposedGa + u".jpg"_s);
        QCOMPARE(found(composedGa + u".jpg"_s), decomposedGa + u".jpg"_s);
    }

    void composedFileIsFoundByDecomposedName()
    {
        file(composedGa + u".jpg"_s);
        QCOMPARE(found(decomposedGa + u".jpg"_s), composedGa + u".jpg"_s);
    }

    void normalFormGoesBeforeLetterCase()
    {
        // In byte order, the name that differs only in letter case comes first, and it must not be
        // the one found.
        file(composedGa + u"A.jpg"_s);
        file(decomposedGa + u"a.jpg"_s);
        file(decomposedGa + u"A.JPG"_s);
        QCOMPARE(found(composedGa + u"a.jpg"_s), decomposedGa + u"a.jpg"_s);
    }

    void letterCaseIsIgnoredLast()
    {
        file(u"Card001.JPG"_s);
        QCOMPARE(found(u"card001.jpg"_s), u"Card001.JPG"_s);
    }

    void letterCaseAndNormalFormMayDifferTogether()
    {
        file(decomposedGa + u".JPG"_s);
        QCOMPARE(found(composedGa + u".jpg"_s), decomposedGa + u".JPG"_s);
    }

    void firstInSortedOrderOfTwoEqualCandidates()
    {
        file(u"b.JPG"_s);
        file(u"B.jpg"_s);
        file(u"B.JPG"_s);
        QCOMPARE(found(u"b.jpg"_s), u"B.JPG"_s);
    }

    void missingNameIsMissing()
    {
        file(u"a.jpg"_s);
        QCOMPARE(outcome(u"b.jpg"_s), Outcome::Missing);
    }

    void folderIsFoundByEveryForm()
    {
        _home->makeFolder(u"in/Plans"_s);
        QCOMPARE(found(u"Plans"_s, Kind::Folder), u"Plans"_s);
        QCOMPARE(found(u"PLANS"_s, Kind::Folder), u"Plans"_s);
    }

    void entryOfTheWrongKindIsMissing()
    {
        file(u"a.jpg"_s);
        _home->makeFolder(u"in/folder"_s);
        QCOMPARE(outcome(u"folder"_s), Outcome::Missing);
        QCOMPARE(outcome(u"a.jpg"_s, Kind::Folder), Outcome::Missing);
    }

    void entryOfTheWrongKindDoesNotHideAnotherSpelling()
    {
        _home->makeFolder(u"in/a.jpg"_s);
        file(u"A.JPG"_s);
        QCOMPARE(found(u"a.jpg"_s), u"A.JPG"_s);
    }

    void pipeIsMissing()
    {
        QCOMPARE(mkfifo(QFile::encodeName(_folder + u"/pipe.jpg"_s).constData(), 0600), 0);
        QCOMPARE(outcome(u"pipe.jpg"_s), Outcome::Missing);
    }

    void linkToADeviceLeadsOut()
    {
        link(u"/dev/zero"_s, u"zero.jpg"_s);
        QCOMPARE(outcome(u"zero.jpg"_s), Outcome::LeadsOut);
    }

    void nameWithSubfoldersIsFound()
    {
        file(u"a/b/c.jpg"_s);
        QCOMPARE(found(u"a/b/c.jpg"_s), u"a/b/c.jpg"_s);
    }

    void nameBelowAMissingSubfolderIsMissing()
    {
        file(u"a/c.jpg"_s);
        file(u"B"_s);
        QCOMPARE(outcome(u"none/c.jpg"_s), Outcome::Missing);
        QCOMPARE(outcome(u"a/none/c.jpg"_s), Outcome::Missing);
        QCOMPARE(outcome(u"b/c.jpg"_s), Outcome::Missing); // "B" is a file
    }

    void subfoldersAreFoundByOtherForms()
    {
        file(u"Sub/"_s + decomposedGa + u"/C.jpg"_s);
        QCOMPARE(
            found(u"sub/"_s + composedGa + u"/c.jpg"_s), u"Sub/"_s + decomposedGa + u"/C.jpg"_s);
    }

    void backslashIsAPlainCharacter()
    {
        file(u"a\\b.jpg"_s);
        file(u"c/d.jpg"_s);
        QCOMPARE(found(u"a\\b.jpg"_s), u"a\\b.jpg"_s);
        QCOMPARE(outcome(u"c\\d.jpg"_s), Outcome::Missing);
    }

    void absoluteNameLeadsOut()
    {
        file(u"a.jpg"_s);
        QCOMPARE(outcome(_folder + u"/a.jpg"_s), Outcome::LeadsOut);
    }

    void parentFolderLeadsOut_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("existing file") << u"../outside/secret.jpg"_s;
        QTest::newRow("missing file") << u"../outside/none.jpg"_s;
        QTest::newRow("through a subfolder") << u"sub/../../outside/secret.jpg"_s;
        QTest::newRow("dots alone") << u".."_s;
    }
    void parentFolderLeadsOut()
    {
        QFETCH(QString, name);
        _home->makeFolder(u"in/sub"_s);
        QCOMPARE(outcome(name), Outcome::LeadsOut);
        QCOMPARE(outcome(name, Kind::Folder), Outcome::LeadsOut);
    }

    void nameThatReturnsIntoTheFolderIsFound()
    {
        file(u"a.jpg"_s);
        _home->makeFolder(u"in/sub"_s);
        QCOMPARE(found(u"sub/../a.jpg"_s), u"a.jpg"_s);
        QCOMPARE(found(u"../in/a.jpg"_s), u"a.jpg"_s);
        QCOMPARE(found(u"./a.jpg"_s), u"a.jpg"_s);
    }

    void folderThatBeginsWithTheSameNameIsOutside()
    {
        _home->writeFile(u"in-side/a.jpg"_s, "x");
        QCOMPARE(outcome(u"../in-side/a.jpg"_s), Outcome::LeadsOut);
    }

    void folderItselfIsNotFound_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("dot") << u"."_s;
        QTest::newRow("down and up") << u"sub/.."_s;
        QTest::newRow("up and down") << u"../in"_s;
    }
    void folderItselfIsNotFound()
    {
        QFETCH(QString, name);
        _home->makeFolder(u"in/sub"_s);
        QVERIFY(outcome(name, Kind::Folder) != Outcome::Found);
    }

    void linkInsideTheFolderIsFollowed()
    {
        file(u"sub/a.jpg"_s);
        link(u"sub/a.jpg"_s, u"link.jpg"_s);
        link(u"sub"_s, u"folderLink"_s);
        QCOMPARE(found(u"link.jpg"_s), u"sub/a.jpg"_s);
        QCOMPARE(found(u"folderLink"_s, Kind::Folder), u"sub"_s);
        QCOMPARE(found(u"folderLink/a.jpg"_s), u"sub/a.jpg"_s);
    }

    void linkOutOfTheFolderLeadsOut()
    {
        link(u"../outside/secret.jpg"_s, u"link.jpg"_s);
        link(u"../outside"_s, u"folderLink"_s);
        QCOMPARE(outcome(u"link.jpg"_s), Outcome::LeadsOut);
        QCOMPARE(outcome(u"LINK.jpg"_s), Outcome::LeadsOut);
        QCOMPARE(outcome(u"folderLink"_s, Kind::Folder), Outcome::LeadsOut);
        QCOMPARE(outcome(u"folderLink/secret.jpg"_s), Outcome::LeadsOut);
    }

    void danglingAndCircularLinksAreMissing()
    {
        link(u"none.jpg"_s, u"dangling.jpg"_s);
        link(u"circle.jpg"_s, u"circle.jpg"_s);
        QCOMPARE(outcome(u"dangling.jpg"_s), Outcome::Missing);
        QCOMPARE(outcome(u"circle.jpg"_s), Outcome::Missing);
    }

    void folderReachedThroughALinkIsAFolderLikeAnother()
    {
        file(u"a.jpg"_s);
        const QString link = _home->path(u"linked"_s);
        QVERIFY(QFile::link(_folder, link));
        const auto result = _lookup->find(link, u"../linked/a.jpg"_s, Kind::RegularFile);
        QCOMPARE(result.outcome, Outcome::Found);
        QCOMPARE(result.path, _folder + u"/a.jpg"_s);
    }

    void nameWithAZeroCharacterIsMissing()
    {
        file(u"a.jpg"_s);
        QCOMPARE(outcome(u"a.jpg"_s + QChar::Null + u"b"_s), Outcome::Missing);
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
        file(u"Good.jpg"_s);
        QCOMPARE(found(u"good.jpg"_s), u"Good.jpg"_s);
        // Remove these files here, because the temporary folder's destructor cannot remove entries
        // whose names Qt cannot represent.
        QCOMPARE(unlink(path.constData()), 0);
    }

    void missingFolderHoldsNothing()
    {
        QCOMPARE(_lookup->find(_folder + u"/none"_s, u"a.jpg"_s, Kind::RegularFile).outcome,
            Outcome::Missing);
    }

    void exactNameNeedsNoListing()
    {
        file(u"a.jpg"_s);
        const ListingCounter counter(_folder);
        QCOMPARE(found(u"a.jpg"_s), u"a.jpg"_s);
        QVERIFY(!counter.wasListed());
    }

    void folderIsListedOnceForManyMisses()
    {
        file(u"Other.jpg"_s);
        const ListingCounter counter(_folder);
        QCOMPARE(outcome(u"missing.jpg"_s), Outcome::Missing);
        QVERIFY(counter.wasListed());
        for (int i = 0; i < 100; ++i)
            QCOMPARE(outcome(u"missing%1.jpg"_s.arg(i)), Outcome::Missing);
        QCOMPARE(found(u"other.jpg"_s), u"Other.jpg"_s);
        QVERIFY(!counter.wasListed());
    }

    void changedFolderIsListedAgain()
    {
        QCOMPARE(outcome(u"late.jpg"_s), Outcome::Missing);
        file(u"Late.jpg"_s);
        // Set a later time stamp, because the folder's own one changes only every few milliseconds
        // and may still be the old one.
        const timespec later[2] = {{0, UTIME_OMIT}, {4000000000, 0}};
        QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(_folder).constData(), later, 0), 0);
        QCOMPARE(found(u"late.jpg"_s), u"Late.jpg"_s);
    }
};

QTEST_GUILESS_MAIN(tst_nameLookup)
#include "tst_nameLookup.moc"

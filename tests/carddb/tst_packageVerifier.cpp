// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageCreator.h"
#include "carddb/DBCPackageVerifier.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/StandardInputKeeper.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_packageVerifier : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _package = std::make_unique<PackageFixture>(*_home);
    }

    void cleanup()
    {
        _package.reset();
        _home.reset();
    }

    void soundPackageIsClean()
    {
        _package->card().withPdf(cardPdf()).withAttachment(u"a.txt"_s, "text");
        _package->card();
        QCOMPARE(problemPaths(), QStringList());
    }

    void newEmptyPackageIsClean()
    {
        const QString path = _home->path(u"New.vmdb"_s);
        QCOMPARE(DBCPackageCreator::create(path).outcome, DBCPackageCreator::Outcome::Created);
        const DBCFindings findings = DBCPackageVerifier::verify(path, {});
        QVERIFY(!findings.couldNotLook);
        QVERIFY(findings.problems.empty());
    }

    void packageWithoutImagesAndFilesIsClean()
    {
        _package->card();
        _package->remove(u"Images"_s);
        _package->remove(u"Files"_s);
        QCOMPARE(problemPaths(), QStringList());
    }

    void nothingInThePackageIsChanged_data()
    {
        QTest::addColumn<bool>("writeAheadLog");
        QTest::newRow("rollback journal") << false;
        QTest::newRow("write-ahead log") << true;
    }
    void nothingInThePackageIsChanged()
    {
        QFETCH(bool, writeAheadLog);
        PackageFixture package(*_home, {.writeAheadLog = writeAheadLog}, u"Other.vmdb"_s);
        package.card().withPdf(cardPdf());
        if (writeAheadLog)
            package.executeIntoLog(u"UPDATE ZCARD SET ZMEMO = 'from the log'"_s);
        const auto before = package.contents();
        QVERIFY(DBCPackageVerifier::verify(package.path(), {}).problems.empty());
        QCOMPARE(package.contents(), before);
        QVERIFY(!QFile::exists(package.path(u".VMLock.vmlk"_s)));
    }

    // SQLite evaluates the CHECK conditions of a table when it checks the store's integrity.
    void conditionThatTakesMuchMemoryIsAProblem()
    {
        _package->card();
        _package->execute(u"CREATE TABLE other (x CHECK (length(zeroblob(30000000)) > x))"_s);
        _package->execute(u"INSERT INTO other VALUES (1)"_s);
        QCOMPARE(problemPaths(), QStringList({u"Velmora.sqldb"_s}));
    }

    void cardsLeftInTheLogAreSeen()
    {
        PackageFixture package(*_home, {.writeAheadLog = true}, u"Other.vmdb"_s);
        package.card();
        package.executeIntoLog(u"UPDATE ZCARD SET ZFACE_IMAGE_FILE = 'gone.pdf'"_s);
        const DBCFindings findings = DBCPackageVerifier::verify(package.path(), {});
        QCOMPARE(findings.problems.size(), std::size_t {1});
        QCOMPARE(findings.problems.front().path, package.path(u"Images/gone.pdf"_s));
    }

    void progressCountsTheCards()
    {
        _package->card();
        _package->card().deleted();
        QList<QPair<qint64, qint64>> seen;
        DBCPackageVerifier::verify(_package->path(), [&](qint64 finished, qint64 max) {
            seen.append({finished, max});
        });
        QCOMPARE(seen, (QList<QPair<qint64, qint64>>({{1, 2}, {2, 2}})));
    }

    void missingPackageCannotBeLookedAt()
    {
        const QString path = _home->path(u"Nowhere.vmdb"_s);
        const DBCFindings findings = DBCPackageVerifier::verify(path, {});
        QVERIFY(findings.couldNotLook);
        QVERIFY(findings.couldNotLook->text.contains(path));
        QVERIFY(findings.problems.empty());
    }

    void packageInUseCannotBeLookedAt()
    {
        auto user = DBCDataBaseController::initDBwithPath(_package->path());
        QVERIFY(user);
        QVERIFY(verify().couldNotLook);
        // The first check must not have released the controller's lock.
        QVERIFY(verify().couldNotLook);
        user.reset();
        QVERIFY(!verify().couldNotLook);
    }

    void storeThatCannotBeCopiedCannotBeLookedAt()
    {
        const QByteArray old = qgetenv("TMPDIR");
        const bool wasSet = qEnvironmentVariableIsSet("TMPDIR");
        const QString noFolder = _home->writeFile(u"plain file"_s, "x");
        qputenv("TMPDIR", QFile::encodeName(noFolder + u"/tmp"_s));
        const DBCFindings findings = verify();
        if (wasSet)
            qputenv("TMPDIR", old);
        else
            qunsetenv("TMPDIR");
        QVERIFY(findings.couldNotLook);
        QCOMPARE(findings.couldNotLook->path, _package->storePath());
    }

    void missingStoreIsReported()
    {
        _package->remove(u"Velmora.sqldb"_s);
        _package->writeFile(u"Images/x.pdf"_s, "x");
        // Without the store nobody knows which files belong to cards, so the verifier reports no
        // file as unnamed.
        QCOMPARE(problemPaths(), QStringList({u"Velmora.sqldb"_s}));
        QVERIFY(!QFile::exists(_package->storePath()));
    }

    void textFileAsStoreIsReported()
    {
        _package->writeFile(u"Velmora.sqldb"_s, QByteArray("no store\n").repeated(100));
        const DBCFindings findings = verify();
        QCOMPARE(findings.problems.size(), std::size_t {1});
        QVERIFY(findings.problems.front().text.contains(u"is not a card store"_s));
    }

    void damagedStoreIsReported()
    {
        for (int i = 0; i < 200; ++i)
            _package->card({{"ZMEMO", QString(500, u'x')}});
        QByteArray bytes = _package->readFile(u"Velmora.sqldb"_s);
        QVERIFY(bytes.size() > 60'000);
        bytes.replace(40'000, 8'000, QByteArray(8'000, '\x5A'));
        _package->writeFile(u"Velmora.sqldb"_s, bytes);
        const DBCFindings findings = verify();
        QVERIFY(!findings.couldNotLook);
        QVERIFY(!findings.problems.empty());
        QVERIFY(findings.problems.front().text.contains(u"is damaged"_s));
        QVERIFY(findings.problems.size() < 20);
    }

    void storeOfAnotherModelIsReportedWithWhatItLacks()
    {
        _package->execute(u"ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE"_s);
        _package->execute(u"DELETE FROM Z_PRIMARYKEY"_s);
        const DBCFindings findings = verify();
        QCOMPARE(findings.problems.size(), std::size_t {1});
        QVERIFY(findings.problems.front().text.contains(u"ZCARD.ZMEMO, Card"_s));
    }

    void keysThatWouldBeGivenOutTwiceAreReported()
    {
        _package->card();
        _package->card();
        _package->execute(u"UPDATE Z_PRIMARYKEY SET Z_MAX = 1"_s);
        QCOMPARE(problemPaths(), QStringList({u"Velmora.sqldb"_s}));
    }

    void missingPdfIsReported()
    {
        _package->card().withPdf(cardPdf());
        _package->remove(u"Images/CARD-1_N1.pdf"_s);
        QCOMPARE(problemPaths(), QStringList({u"Images/CARD-1_N1.pdf"_s}));
    }

    void cardThatNamesNoImageNeedsNone()
    {
        _package->card({{"ZFACE_IMAGE_FILE", u""_s}});
        _package->card({{"ZFACE_IMAGE_FILE", QVariant()}, {"ZCARDID", QVariant()}});
        QCOMPARE(problemPaths(), QStringList());
        // A file whose name follows from the card's ID belongs to the card even if the card names
        // no image.
        _package->writeFile(u"Images/CARD-1_N1.pdf"_s, "damaged");
        QCOMPARE(problemPaths(), QStringList({u"Images/CARD-1_N1.pdf"_s}));
    }

    void unusablePdfIsReported_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no PDF");
        QTest::newRow("truncated") << cardPdf().left(cardPdf().size() / 3);
        QTest::newRow("of another program")
            << PdfBuilder().creator("Writer").page(PdfPage::ofText("letter")).bytes();
        QTest::newRow("behind a password") << PdfBuilder::encrypted(cardPdf(), "secret");
    }
    void unusablePdfIsReported()
    {
        QFETCH(QByteArray, bytes);
        _package->card().withPdf(bytes);
        QCOMPARE(problemPaths(), QStringList({u"Images/CARD-1_N1.pdf"_s}));
    }

    void searchablePdfIsFine()
    {
        _package->card().withPdf(PdfBuilder::searchableCardPdf("Taro"));
        QCOMPARE(problemPaths(), QStringList());
    }

    void imageNameThatLeadsOutIsReported()
    {
        _home->writeFile(u"outside.pdf"_s, cardPdf());
        _package->card({{"ZFACE_IMAGE_FILE", u"../../outside.pdf"_s}});
        QCOMPARE(problemPaths(), QStringList({u"Images/../../outside.pdf"_s}));
    }

    void deletedCardsFilesAreNotMissed()
    {
        _package->card({{"ZFACE_IMAGE_FILE", u"gone.pdf"_s}}).deleted();
        QCOMPARE(problemPaths(), QStringList());
    }

    void attachmentFolderThatIsAFileIsReported()
    {
        _package->card();
        _package->writeFile(u"Files/CARD-1"_s, "no folder");
        QCOMPARE(problemPaths(), QStringList({u"Files/CARD-1"_s}));
    }

    void unreadableAttachmentIsReported()
    {
        _package->card().withAttachment(u"a.txt"_s, "text").withAttachment(u"b.txt"_s, "text");
        ScopedHost host;
        host.makeUnreadable({_package->path(u"Files/CARD-1/b.txt"_s)});
        QCOMPARE(problemPaths(), QStringList({u"Files/CARD-1/b.txt"_s}));
    }

    void cardIDThatLeadsOutIsReported()
    {
        _package->card({{"ZCARDID", u".."_s}, {"ZFACE_IMAGE_FILE", u"x.pdf"_s}});
        _package->writeFile(u"Images/x.pdf"_s, cardPdf());
        QCOMPARE(problemPaths(), QStringList({u"Files/.."_s}));
    }

    void filesThatNoCardNamesAreReported()
    {
        _package->card().withPdf(cardPdf()).withAttachment(u"a.txt"_s, "text");
        _package->card(
            {{"ZBACK_IMAGE_FILE", u"back.pdf"_s}, {"ZOTHER_IMAGE_FILE", u"other.pdf"_s}});
        for (const char* name : {"Images/back.pdf", "Images/other.pdf", "Images/stray.pdf",
                 "Images/.DS_Store", "Files/.DS_Store", "Files/CARD-9/a.txt", "Files/stray.txt"})
            _package->writeFile(QString::fromLatin1(name), "x");
        QCOMPARE(problemPaths(),
            QStringList({u"Images/stray.pdf"_s, u"Files/CARD-9"_s, u"Files/stray.txt"_s}));
    }

    void filesOfDeletedCardsAreNamed()
    {
        _package->card().withPdf(cardPdf()).withAttachment(u"a.txt"_s, "text").deleted();
        QCOMPARE(problemPaths(), QStringList());
    }

    void everyProblemIsFoundInOneRun()
    {
        _package->card({{"ZFACE_IMAGE_FILE", u"gone.pdf"_s}});
        _package->card().withPdf("damaged");
        _package->writeFile(u"Images/stray.pdf"_s, "x");
        _package->execute(u"UPDATE Z_PRIMARYKEY SET Z_MAX = 1"_s);
        QCOMPARE(problemPaths(),
            QStringList({u"Velmora.sqldb"_s, u"Images/gone.pdf"_s, u"Images/CARD-2_N1.pdf"_s,
                u"Images/stray.pdf"_s}));
    }

    void textsNameTheCardTheFileAndTheRemedyInBothLanguages()
    {
        _package->card({{"ZFULL_NAME", u"山田 %3"_s}, {"ZFACE_IMAGE_FILE", u"gone.pdf"_s}});
        const QString path = _package->path(u"Images/gone.pdf"_s);
        const QString english = verify().problems.front().text;
        QVERIFY(english.startsWith(u"Card \"山田 %3\" (CARD-1): "_s));
        QVERIFY(english.contains(u"image file [%1] is missing"_s.arg(path)));
        QVERIFY(english.contains(u"backup"_s));
        DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
        const QString japanese = verify().problems.front().text;
        QVERIFY(japanese.contains(u"画像ファイル [%1] がない"_s.arg(path)));
        QVERIFY(japanese.contains(u"「山田 %3」(CARD-1)"_s));
    }

private:
    DBCFindings verify() const { return DBCPackageVerifier::verify(_package->path(), {}); }
    // Returns the paths of the problems, relative to the package.
    QStringList problemPaths() const
    {
        const DBCFindings findings = verify();
        if (findings.couldNotLook)
            qFatal("%s", qPrintable(findings.couldNotLook->text));
        QStringList paths;
        for (const DBCProblem& problem : findings.problems)
            paths << problem.path.mid(_package->path().size() + 1);
        return paths;
    }

    static QByteArray cardPdf()
    {
        return PdfBuilder::cardPdf({JpegBuilder(30, 20).dotsPerInch(300, 300).bytes()});
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

QTEST_GUILESS_MAIN(tst_packageVerifier)
#include "tst_packageVerifier.moc"

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

class tst_packageVerifier : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void soundPackageIsClean();
    void newEmptyPackageIsClean();
    void packageWithoutImagesAndFilesIsClean();
    void nothingInThePackageIsChanged_data();
    void nothingInThePackageIsChanged();
    void cardsLeftInTheLogAreSeen();
    void progressCountsTheCards();

    void missingPackageCannotBeLookedAt();
    void packageInUseCannotBeLookedAt();
    void storeThatCannotBeCopiedCannotBeLookedAt();

    void missingStoreIsReported();
    void textFileAsStoreIsReported();
    void damagedStoreIsReported();
    void storeOfAnotherModelIsReportedWithWhatItLacks();
    void keysThatWouldBeGivenOutTwiceAreReported();

    void missingPdfIsReported();
    void cardThatNamesNoImageNeedsNone();
    void unusablePdfIsReported_data();
    void unusablePdfIsReported();
    void searchablePdfIsFine();
    void imageNameThatLeadsOutIsReported();
    void deletedCardsFilesAreNotMissed();

    void attachmentFolderThatIsAFileIsReported();
    void unreadableAttachmentIsReported();
    void cardIDThatLeadsOutIsReported();

    void filesThatNoCardNamesAreReported();
    void filesOfDeletedCardsAreNamed();
    void everyProblemIsFoundInOneRun();
    void textsNameTheCardTheFileAndTheRemedyInBothLanguages();

private:
    DBCFindings verify() const { return DBCPackageVerifier::verify(_package->path(), {}); }
    // The problems' paths inside the package.
    QStringList problemPaths() const;
    static QByteArray cardPdf()
    {
        return PdfBuilder::cardPdf({JpegBuilder(30, 20).dotsPerInch(300, 300).bytes()});
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

void tst_packageVerifier::init()
{
    _home = std::make_unique<TestHome>();
    _package = std::make_unique<PackageFixture>(*_home);
}

void tst_packageVerifier::cleanup()
{
    _package.reset();
    _home.reset();
}

QStringList tst_packageVerifier::problemPaths() const
{
    const DBCFindings findings = verify();
    if (findings.couldNotLook)
        qFatal("%s", qPrintable(findings.couldNotLook->text));
    QStringList paths;
    for (const DBCProblem& problem : findings.problems)
        paths << problem.path.mid(_package->path().size() + 1);
    return paths;
}

void tst_packageVerifier::soundPackageIsClean()
{
    _package->card().withPdf(cardPdf()).withAttachment(QStringLiteral("a.txt"), "text");
    _package->card();
    QCOMPARE(problemPaths(), QStringList());
}

void tst_packageVerifier::newEmptyPackageIsClean()
{
    const QString path = _home->path(QStringLiteral("New.vmdb"));
    QCOMPARE(DBCPackageCreator::create(path).outcome, DBCPackageCreator::Outcome::Created);
    const DBCFindings findings = DBCPackageVerifier::verify(path, {});
    QVERIFY(!findings.couldNotLook);
    QVERIFY(findings.problems.empty());
}

void tst_packageVerifier::packageWithoutImagesAndFilesIsClean()
{
    _package->card();
    _package->remove(QStringLiteral("Images"));
    _package->remove(QStringLiteral("Files"));
    QCOMPARE(problemPaths(), QStringList());
}

void tst_packageVerifier::nothingInThePackageIsChanged_data()
{
    QTest::addColumn<bool>("writeAheadLog");
    QTest::newRow("rollback journal") << false;
    QTest::newRow("write-ahead log") << true;
}

void tst_packageVerifier::nothingInThePackageIsChanged()
{
    QFETCH(bool, writeAheadLog);
    PackageFixture package(*_home, {.writeAheadLog = writeAheadLog}, QStringLiteral("Other.vmdb"));
    package.card().withPdf(cardPdf());
    if (writeAheadLog)
        package.executeIntoLog(QStringLiteral("UPDATE ZCARD SET ZMEMO = 'from the log'"));
    const auto before = package.contents();
    QVERIFY(DBCPackageVerifier::verify(package.path(), {}).problems.empty());
    QCOMPARE(package.contents(), before);
    QVERIFY(!QFile::exists(package.path(QStringLiteral(".VMLock.vmlk"))));
}

void tst_packageVerifier::cardsLeftInTheLogAreSeen()
{
    PackageFixture package(*_home, {.writeAheadLog = true}, QStringLiteral("Other.vmdb"));
    package.card();
    package.executeIntoLog(QStringLiteral("UPDATE ZCARD SET ZFACE_IMAGE_FILE = 'gone.pdf'"));
    const DBCFindings findings = DBCPackageVerifier::verify(package.path(), {});
    QCOMPARE(findings.problems.size(), std::size_t {1});
    QCOMPARE(findings.problems.front().path, package.path(QStringLiteral("Images/gone.pdf")));
}

void tst_packageVerifier::progressCountsTheCards()
{
    _package->card();
    _package->card().deleted();
    QList<QPair<qint64, qint64>> seen;
    DBCPackageVerifier::verify(_package->path(), [&](qint64 finished, qint64 max) {
        seen.append({finished, max});
    });
    QCOMPARE(seen, (QList<QPair<qint64, qint64>>({{1, 2}, {2, 2}})));
}

void tst_packageVerifier::missingPackageCannotBeLookedAt()
{
    const QString path = _home->path(QStringLiteral("Nowhere.vmdb"));
    const DBCFindings findings = DBCPackageVerifier::verify(path, {});
    QVERIFY(findings.couldNotLook);
    QVERIFY(findings.couldNotLook->text.contains(path));
    QVERIFY(findings.problems.empty());
}

void tst_packageVerifier::packageInUseCannotBeLookedAt()
{
    auto user = DBCDataBaseController::initDBwithPath(_package->path());
    QVERIFY(user);
    QVERIFY(verify().couldNotLook);
    // The other's lock is still there.
    QVERIFY(verify().couldNotLook);
    user.reset();
    QVERIFY(!verify().couldNotLook);
}

void tst_packageVerifier::storeThatCannotBeCopiedCannotBeLookedAt()
{
    const QByteArray old = qgetenv("TMPDIR");
    const bool wasSet = qEnvironmentVariableIsSet("TMPDIR");
    const QString noFolder = _home->writeFile(QStringLiteral("plain file"), "x");
    qputenv("TMPDIR", QFile::encodeName(noFolder + QStringLiteral("/tmp")));
    const DBCFindings findings = verify();
    if (wasSet)
        qputenv("TMPDIR", old);
    else
        qunsetenv("TMPDIR");
    QVERIFY(findings.couldNotLook);
    QCOMPARE(findings.couldNotLook->path, _package->storePath());
}

void tst_packageVerifier::missingStoreIsReported()
{
    _package->remove(QStringLiteral("Velmora.sqldb"));
    _package->writeFile(QStringLiteral("Images/x.pdf"), "x");
    // What the cards name is not known, so no file can be said to be named by none.
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Velmora.sqldb")}));
    QVERIFY(!QFile::exists(_package->storePath()));
}

void tst_packageVerifier::textFileAsStoreIsReported()
{
    _package->writeFile(QStringLiteral("Velmora.sqldb"), QByteArray("no store\n").repeated(100));
    const DBCFindings findings = verify();
    QCOMPARE(findings.problems.size(), std::size_t {1});
    QVERIFY(findings.problems.front().text.contains(QStringLiteral("is not a card store")));
}

void tst_packageVerifier::damagedStoreIsReported()
{
    for (int i = 0; i < 200; ++i)
        _package->card({{"ZMEMO", QString(500, u'x')}});
    QByteArray bytes = _package->readFile(QStringLiteral("Velmora.sqldb"));
    QVERIFY(bytes.size() > 60'000);
    bytes.replace(40'000, 8'000, QByteArray(8'000, '\x5A'));
    _package->writeFile(QStringLiteral("Velmora.sqldb"), bytes);
    const DBCFindings findings = verify();
    QVERIFY(!findings.couldNotLook);
    QVERIFY(!findings.problems.empty());
    QVERIFY(findings.problems.front().text.contains(QStringLiteral("is damaged")));
    QVERIFY(findings.problems.size() < 20);
}

void tst_packageVerifier::storeOfAnotherModelIsReportedWithWhatItLacks()
{
    _package->execute(QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE"));
    _package->execute(QStringLiteral("DELETE FROM Z_PRIMARYKEY"));
    const DBCFindings findings = verify();
    QCOMPARE(findings.problems.size(), std::size_t {1});
    QVERIFY(findings.problems.front().text.contains(QStringLiteral("ZCARD.ZMEMO, Card")));
}

void tst_packageVerifier::keysThatWouldBeGivenOutTwiceAreReported()
{
    _package->card();
    _package->card();
    _package->execute(QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = 1"));
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Velmora.sqldb")}));
}

void tst_packageVerifier::missingPdfIsReported()
{
    _package->card().withPdf(cardPdf());
    _package->remove(QStringLiteral("Images/CARD-1_N1.pdf"));
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Images/CARD-1_N1.pdf")}));
}

void tst_packageVerifier::cardThatNamesNoImageNeedsNone()
{
    _package->card({{"ZFACE_IMAGE_FILE", QStringLiteral("")}});
    _package->card({{"ZFACE_IMAGE_FILE", QVariant()}, {"ZCARDID", QVariant()}});
    QCOMPARE(problemPaths(), QStringList());
    // One that bears its ID is its own all the same.
    _package->writeFile(QStringLiteral("Images/CARD-1_N1.pdf"), "damaged");
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Images/CARD-1_N1.pdf")}));
}

void tst_packageVerifier::unusablePdfIsReported_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no PDF");
    QTest::newRow("truncated") << cardPdf().left(cardPdf().size() / 3);
    QTest::newRow("of another program")
        << PdfBuilder().creator("Writer").page(PdfPage::ofText("letter")).bytes();
    QTest::newRow("behind a password") << PdfBuilder::encrypted(cardPdf(), "secret");
}

void tst_packageVerifier::unusablePdfIsReported()
{
    QFETCH(QByteArray, bytes);
    _package->card().withPdf(bytes);
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Images/CARD-1_N1.pdf")}));
}

void tst_packageVerifier::searchablePdfIsFine()
{
    _package->card().withPdf(PdfBuilder::searchableCardPdf("Taro"));
    QCOMPARE(problemPaths(), QStringList());
}

void tst_packageVerifier::imageNameThatLeadsOutIsReported()
{
    _home->writeFile(QStringLiteral("outside.pdf"), cardPdf());
    _package->card({{"ZFACE_IMAGE_FILE", QStringLiteral("../../outside.pdf")}});
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Images/../../outside.pdf")}));
}

void tst_packageVerifier::deletedCardsFilesAreNotMissed()
{
    _package->card({{"ZFACE_IMAGE_FILE", QStringLiteral("gone.pdf")}}).deleted();
    QCOMPARE(problemPaths(), QStringList());
}

void tst_packageVerifier::attachmentFolderThatIsAFileIsReported()
{
    _package->card();
    _package->writeFile(QStringLiteral("Files/CARD-1"), "no folder");
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Files/CARD-1")}));
}

void tst_packageVerifier::unreadableAttachmentIsReported()
{
    _package->card()
        .withAttachment(QStringLiteral("a.txt"), "text")
        .withAttachment(QStringLiteral("b.txt"), "text");
    ScopedHost host;
    host.makeUnreadable({_package->path(QStringLiteral("Files/CARD-1/b.txt"))});
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Files/CARD-1/b.txt")}));
}

void tst_packageVerifier::cardIDThatLeadsOutIsReported()
{
    _package->card(
        {{"ZCARDID", QStringLiteral("..")}, {"ZFACE_IMAGE_FILE", QStringLiteral("x.pdf")}});
    _package->writeFile(QStringLiteral("Images/x.pdf"), cardPdf());
    QCOMPARE(problemPaths(), QStringList({QStringLiteral("Files/..")}));
}

void tst_packageVerifier::filesThatNoCardNamesAreReported()
{
    _package->card().withPdf(cardPdf()).withAttachment(QStringLiteral("a.txt"), "text");
    _package->card({{"ZBACK_IMAGE_FILE", QStringLiteral("back.pdf")},
        {"ZOTHER_IMAGE_FILE", QStringLiteral("other.pdf")}});
    for (const char* name : {"Images/back.pdf", "Images/other.pdf", "Images/stray.pdf",
             "Images/.DS_Store", "Files/.DS_Store", "Files/CARD-9/a.txt", "Files/stray.txt"})
        _package->writeFile(QString::fromLatin1(name), "x");
    QCOMPARE(problemPaths(),
        QStringList({QStringLiteral("Images/stray.pdf"), QStringLiteral("Files/CARD-9"),
            QStringLiteral("Files/stray.txt")}));
}

void tst_packageVerifier::filesOfDeletedCardsAreNamed()
{
    _package->card().withPdf(cardPdf()).withAttachment(QStringLiteral("a.txt"), "text").deleted();
    QCOMPARE(problemPaths(), QStringList());
}

void tst_packageVerifier::everyProblemIsFoundInOneRun()
{
    _package->card({{"ZFACE_IMAGE_FILE", QStringLiteral("gone.pdf")}});
    _package->card().withPdf("damaged");
    _package->writeFile(QStringLiteral("Images/stray.pdf"), "x");
    _package->execute(QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = 1"));
    QCOMPARE(problemPaths(),
        QStringList({QStringLiteral("Velmora.sqldb"), QStringLiteral("Images/gone.pdf"),
            QStringLiteral("Images/CARD-2_N1.pdf"), QStringLiteral("Images/stray.pdf")}));
}

void tst_packageVerifier::textsNameTheCardTheFileAndTheRemedyInBothLanguages()
{
    _package->card({{"ZFULL_NAME", QStringLiteral("山田 %3")},
        {"ZFACE_IMAGE_FILE", QStringLiteral("gone.pdf")}});
    const QString path = _package->path(QStringLiteral("Images/gone.pdf"));
    const QString english = verify().problems.front().text;
    QVERIFY(english.startsWith(QStringLiteral("Card \"山田 %3\" (CARD-1): ")));
    QVERIFY(english.contains(QStringLiteral("image file [%1] is missing").arg(path)));
    QVERIFY(english.contains(QStringLiteral("backup")));
    DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
    const QString japanese = verify().problems.front().text;
    QVERIFY(japanese.contains(QStringLiteral("画像ファイル [%1] がない").arg(path)));
    QVERIFY(japanese.contains(QStringLiteral("「山田 %3」(CARD-1)")));
}

QTEST_GUILESS_MAIN(tst_packageVerifier)
#include "tst_packageVerifier.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/messages/DBCMessage.h"
#include "tests/operation/PreconditionSituation.h"

#include <QDir>
#include <QScopeGuard>

#include <functional>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::function<void(Situation&)>)

class tst_preconditions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingInOrderPassesAfterTheOneQuestion_data() { bothOperations(); }
    void everythingInOrderPassesAfterTheOneQuestion()
    {
        QFETCH(OperationType, type);
        Situation situation(type);
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::None);
        QCOMPARE(situation.presenter.numbers, nothingShown);
        QCOMPARE(situation.questionKeys(),
            QStringList(DBCMessage::keyOf(DBCQuestionId::BeginOperation)));
    }

    void questionOffersYesAndNoAndNoThirdButton()
    {
        Situation situation(OperationType::Import);
        situation.check();
        const DBCQuestion question = situation.presenter.questions.value(0);
        QCOMPARE(question.defaultButton, DBCMessage::btnLableString(DBCButton::Yes));
        QCOMPARE(question.alternateButton, DBCMessage::btnLableString(DBCButton::No));
        QVERIFY(question.otherButton.isEmpty());
    }

    void anyAnswerButYesStopsWithoutAMessage_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("no") << int(DBCAnswer::Alternate);
        QTest::newRow("other") << int(DBCAnswer::Other);
    }
    void anyAnswerButYesStopsWithoutAMessage()
    {
        QFETCH(int, answer);
        Situation situation(OperationType::Export);
        situation.presenter.answer = DBCAnswer(answer);
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByUser);
        QCOMPARE(situation.presenter.numbers, nothingShown);
        QVERIFY(!QFileInfo::exists(situation.exportFolder()));
    }

    void questionThatCannotBeAskedRefuses()
    {
        Situation situation(OperationType::Export);
        const DBCLocalizable::Substitute texts(
            {{DBCMessage::keyOf(DBCQuestionId::BeginOperation), std::nullopt}});
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByCheck);
        QCOMPARE(situation.presenter.numbers, QList<quint32> {102});
        QVERIFY(!QFileInfo::exists(situation.exportFolder()));
    }

    void refusalNamesThePlaceItIsAbout_data()
    {
        using Change = std::function<void(Situation&)>;
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<Change>("change");
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("place"); // relative to the situation's home folder
        const auto row = [](quint32 number, OperationType type, const char* place, Change change) {
            QTest::addRow("%u", number)
                << type << std::move(change) << number << QString::fromUtf8(place);
        };
        const auto import = OperationType::Import;
        const auto exporting = OperationType::Export;
        row(104, import, "Applications/Velmora/Velmora.app",
            [](Situation& s) { s.installMainApplication("1.0"); });
        row(105, import, "cards.vmdb", [](Situation& s) { s.mountOnNetwork(s.package); });
        row(201, exporting, "gone.vmdb",
            [](Situation& s) { s.package = s.home.path(u"gone.vmdb"_s); });
        row(202, exporting, "gone", [](Situation& s) { s.desktop = s.home.path(u"gone"_s); });
        row(204, exporting, "desktop/",
            [](Situation& s) { QFile::link(s.interchange, s.exportFolder()); });
        row(302, import, "gone.vmdb",
            [](Situation& s) { s.package = s.home.path(u"gone.vmdb"_s); });
        row(308, import, "gone", [](Situation& s) { s.interchange = s.home.path(u"gone"_s); });
        row(309, import, "interchange/",
            [](Situation& s) { QFile::remove(DBCInterchangeNames::dataFile(s.interchange)); });
    }
    void refusalNamesThePlaceItIsAbout()
    {
        QFETCH(OperationType, type);
        QFETCH(std::function<void(Situation&)>, change);
        QFETCH(quint32, number);
        QFETCH(QString, place);
        Situation situation(type);
        change(situation);
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {number});
        const QString text = situation.presenter.texts.value(0);
        QVERIFY2(text.contains(situation.home.path(place)), qPrintable(text));
        QVERIFY2(!text.contains(u'%'), qPrintable(text));
    }

    // Tests of the check for the main application's version.

    void versionOfTheMainApplicationIsComparedAsText_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<bool>("passes");
        QTest::newRow("the minimum itself") << QByteArray("1.1.20") << true;
        QTest::newRow("1.1.3, smaller as a number") << QByteArray("1.1.3") << true;
        QTest::newRow("1.1.10, smaller both ways") << QByteArray("1.1.10") << false;
        QTest::newRow("1.1.200") << QByteArray("1.1.200") << true;
        QTest::newRow("1.1.2, a beginning of it") << QByteArray("1.1.2") << false;
        QTest::newRow("1.10.0, greater as a number") << QByteArray("1.10.0") << true;
        QTest::newRow("10.0.0") << QByteArray("10.0.0") << true;
        QTest::newRow("1.0.99") << QByteArray("1.0.99") << false;
        QTest::newRow("2.0") << QByteArray("2.0") << true;
        QTest::newRow("empty") << QByteArray("") << false;
    }
    void versionOfTheMainApplicationIsComparedAsText()
    {
        QFETCH(QByteArray, version);
        QFETCH(bool, passes);
        Situation situation(OperationType::Import);
        situation.installMainApplication(version);
        QCOMPARE(situation.check(), passes);
        QCOMPARE(situation.presenter.numbers, passes ? nothingShown : QList<quint32> {104});
        QCOMPARE(situation.presenter.questions.size(), passes ? 1 : 0);
    }

    void versionThatCannotBeToldIsNotTested_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::newRow("without the key") << QByteArray("<plist><dict></dict></plist>");
        QTest::newRow("no property list") << QByteArray("1.0");
    }
    void versionThatCannotBeToldIsNotTested()
    {
        QFETCH(QByteArray, list);
        Situation situation(OperationType::Import);
        situation.installVersionList(list);
        QVERIFY(situation.check());
    }

    void folderInPlaceOfTheVersionListIsNotTested()
    {
        Situation situation(OperationType::Import);
        situation.home.makeFolder(u"Applications/Velmora/Velmora.app/Contents/version.plist"_s);
        QVERIFY(situation.check());
    }

    // Tests of the order of the checks.

    void sourceOfTheOperationIsCheckedFirst_data() { bothOperations(); }
    void sourceOfTheOperationIsCheckedFirst()
    {
        QFETCH(OperationType, type);
        Situation situation(type);
        const QString missing = situation.home.path(u"missing"_s);
        DBCPreconditions(missing, missing, type)._checkPrecondition();
        const quint32 expected = type == OperationType::Import ? 308 : 201;
        QCOMPARE(situation.presenter.numbers, QList<quint32> {expected});
    }

    void refusalByACheckIsToldFromTheUsersNo()
    {
        Situation situation(OperationType::Import);
        situation.package = situation.home.path(u"missing.vmdb"_s);
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByCheck);
    }

    // Tests of the checks of the folder that an import reads.

    void importFolderPathOf520BytesIsTheLongest()
    {
        Situation situation(OperationType::Import);
        const QString base = situation.home.path(u"\u540D"_s);
        for (const qsizetype bytes : {520, 521}) {
            DBCPreconditions(pathOfBytes(base, bytes), situation.package, situation.type)
                ._dataPathCheck();
        }
        QCOMPARE(situation.presenter.numbers, (QList<quint32> {308, 110}));
    }

    void emptyImportFolderPathIsRefused()
    {
        Situation situation(OperationType::Import);
        situation.interchange.clear();
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {110});
    }

    void lengthOfAPathUnderHomeIsThatOfTheExpandedOne()
    {
        Situation situation(OperationType::Import);
        situation.interchange = u"~/"_s + QString(515, u'x');
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {110});
    }

    void importFolderMustExistAndBeAFolder()
    {
        Situation situation(OperationType::Import);
        situation.interchange = situation.home.writeFile(u"file"_s, "x");
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {308});
    }

    void importFolderOnTheNetworkIsRefusedBeforeItsDataFileIsSought()
    {
        Situation situation(OperationType::Import);
        situation.mountOnNetwork(situation.interchange);
        QFile::remove(DBCInterchangeNames::dataFile(situation.interchange));
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {105});
    }

    void importFolderWithoutDataFileIsRefused()
    {
        Situation situation(OperationType::Import);
        QFile::remove(DBCInterchangeNames::dataFile(situation.interchange));
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {309});
    }

    void folderUnderTheDataFilesNameIsRefused()
    {
        Situation situation(OperationType::Import);
        const QString dataFile = DBCInterchangeNames::dataFile(situation.interchange);
        QFile::remove(dataFile);
        QVERIFY(QDir().mkpath(dataFile));
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {309});
    }

    // Tests of the checks of the folder that an export writes into.

    void newExportFolderAndItsTwoFoldersAreMade()
    {
        Situation situation(OperationType::Export);
        QVERIFY(situation.preconditions()._dataPathCheck());
        QDir folder(situation.exportFolder());
        QStringList expected {
            DBCInterchangeNames::imageFolderName(), DBCInterchangeNames::attachmentFolderName()};
        expected.sort();
        QStringList made = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        made.sort();
        QCOMPARE(made, expected);
    }

    void exportFolderPathOf520BytesIsTheLongest()
    {
        Situation situation(OperationType::Export);
        const qsizetype rootBytes = DBCInterchangeNames::rootFolderName().toUtf8().size() + 1;
        for (const qsizetype bytes : {520, 521}) {
            const QString parent = pathOfBytes(situation.home.path(), bytes - rootBytes);
            DBCPreconditions(parent, situation.package, situation.type)._dataPathCheck();
        }
        QCOMPARE(situation.presenter.numbers, (QList<quint32> {202, 110}));
    }

    void folderToExportIntoMustExistAndBeAFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << u"missing"_s;
        QTest::newRow("file") << u"file"_s;
    }
    void folderToExportIntoMustExistAndBeAFolder()
    {
        QFETCH(QString, name);
        Situation situation(OperationType::Export);
        situation.home.writeFile(u"file"_s, "x");
        situation.desktop = situation.home.path(name);
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {202});
    }

    void emptyPathToExportIntoIsRefused()
    {
        Situation situation(OperationType::Export);
        situation.desktop.clear();
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {202});
    }

    void folderToExportIntoOnTheNetworkIsRefusedBeforeAnythingIsAsked()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        situation.mountOnNetwork(situation.desktop);
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {105});
        QVERIFY(situation.presenter.questions.isEmpty());
        QVERIFY(situation.oldExportStands());
    }

    void olderExportIsReplacedAfterYes()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        QVERIFY(situation.check());
        QCOMPARE(situation.questionKeys(),
            QStringList({DBCMessage::keyOf(DBCQuestionId::BeginOperation),
                DBCMessage::keyOf(DBCQuestionId::ReplaceExport)}));
        QVERIFY(!situation.oldExportStands());
        QVERIFY(QFileInfo(situation.exportFolder()).isDir());
    }

    void olderExportIsLeftUntouchedAfterAnyOtherAnswer()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        situation.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByUser);
        QCOMPARE(situation.presenter.numbers, nothingShown);
        QVERIFY(situation.oldExportStands());
    }

    void olderExportThatCannotBeRemovedIsAnError()
    {
        Situation situation(OperationType::Export);
        QVERIFY(QFile::link(
            situation.interchange, situation.exportFolder())); // the link's target must stay
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {204});
        QVERIFY(QFileInfo::exists(DBCInterchangeNames::dataFile(situation.interchange)));
    }

    void olderExportThatHoldsThePackageIsNotRemoved()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        const QString inside = situation.exportFolder() + u"/cards.vmdb"_s;
        QVERIFY(QDir().rename(situation.package, inside));
        situation.package = inside;
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {204});
        QVERIFY(situation.oldExportStands());
        QVERIFY(QFileInfo::exists(inside + u"/Velmora.sqldb"_s));
    }

    void exportNeedsHalfAMegabyte()
    {
        Situation situation(OperationType::Export);
        situation.host.setFreeBytes(margin - 1);
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {103});
        QVERIFY(!QFileInfo::exists(situation.exportFolder()));
    }

    void fileWhereTheExportFolderShouldBeIsAnError()
    {
        Situation situation(OperationType::Export);
        situation.home.writeFile(u"desktop/"_s + DBCInterchangeNames::rootFolderName(), "kept");
        QVERIFY(!situation.preconditions()._dataPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {204});
        QVERIFY(situation.presenter.questions.isEmpty());
        QVERIFY(QFileInfo(situation.exportFolder()).isFile());
    }

    void exportFolderThatStandsAlreadyIsNotMadeTwice()
    {
        Situation situation(OperationType::Export);
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(preconditions.createExportFolder());
        QVERIFY(!preconditions.createExportFolder());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {204});
    }

    // Tests of the check for network volumes.

    void localAndNetworkVolumesAreTold_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QByteArray>("device");
        QTest::addColumn<int>("expected");
        QTest::newRow("disk") << QByteArray("ext4") << QByteArray("/dev/sdb1") << 0;
        QTest::newRow("tmpfs") << QByteArray("tmpfs") << QByteArray("tmpfs") << 0;
        QTest::newRow("overlay") << QByteArray("overlay") << QByteArray("overlay") << 0;
        QTest::newRow("nfs") << QByteArray("nfs4") << QByteArray("server:/x") << -1;
        QTest::newRow("cifs") << QByteArray("cifs") << QByteArray("//server/x") << -1;
        QTest::newRow("autofs") << QByteArray("autofs") << QByteArray("/dev/auto") << -1;
    }
    void localAndNetworkVolumesAreTold()
    {
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, device);
        Situation situation(OperationType::Import);
        const QString folder = situation.home.makeFolder(u"mounted/deep"_s);
        situation.mount(
            QFile::encodeName(QFileInfo(situation.home.path()).canonicalFilePath()) + "/mounted",
            type, device);
        QTEST(int(toNumber(DBCPreconditions::_networkPathCheck(folder))), "expected");
    }

    void pathBelowAChangedRootIsJudgedByItsFileSystem()
    {
        Situation situation(OperationType::Import);
        situation.host->mountTable
            = situation.home.writeFile(u"changedRoot"_s, "1 2 0:1 / /proc rw - proc proc rw\n");
        QCOMPARE(DBCPreconditions::_networkPathCheck(situation.package), DBCResultCode::Success);
    }

    void linkIsJudgedByWhatItPointsAt()
    {
        Situation situation(OperationType::Import);
        const QString share = situation.home.makeFolder(u"share/inner"_s);
        const QString link = situation.home.path(u"link"_s);
        QVERIFY(QFile::link(share, link));
        situation.mountOnNetwork(situation.home.path(u"share"_s));
        QCOMPARE(DBCPreconditions::_networkPathCheck(link), DBCResultCode::GeneralFailure);
    }

    void emptyAndMissingPathsAreOnNoVolume()
    {
        const Situation situation(OperationType::Import);
        QCOMPARE(DBCPreconditions::_networkPathCheck(QString()), DBCResultCode::GeneralFailure);
        QCOMPARE(DBCPreconditions::_networkPathCheck(situation.home.path(u"missing"_s)),
            DBCResultCode::GeneralFailure);
    }

    void failingQueryIsNoLocalVolume()
    {
        Situation situation(OperationType::Import);
        situation.host->mountTable = situation.home.path(u"missing"_s);
        QCOMPARE(
            DBCPreconditions::_networkPathCheck(situation.package), DBCResultCode::GeneralFailure);
    }

    // Tests of expandedPath() and the default paths.

    void homeSignInFrontIsExpanded()
    {
        const TestHome home;
        const QString folder = home.path(u"home"_s);
        QCOMPARE(DBCPreconditions::expandedPath(u"~"_s), folder);
        QCOMPARE(DBCPreconditions::expandedPath(u"~/a~"_s), folder + u"/a~"_s);
        QCOMPARE(DBCPreconditions::expandedPath(u"~other/a"_s), u"~other/a"_s);
        QCOMPARE(DBCPreconditions::expandedPath(u"/a/~"_s), u"/a/~"_s);
        QCOMPARE(DBCPreconditions::expandedPath(QString()), QString());
    }

    void packagesAreKeptInTheApplicationSupportFolderWhenThereIsOne()
    {
        const TestHome home;
        const QString support = home.makeFolder(u"home/Library/Application Support"_s);
        QCOMPARE(DBCPreconditions::_getDefaultDBPath(), support + u"/Velmora"_s);
    }

    void packagesAreKeptInTheDataFolderOtherwise()
    {
        const TestHome home;
        const QByteArray before = qgetenv("XDG_DATA_HOME");
        const bool wasSet = qEnvironmentVariableIsSet("XDG_DATA_HOME");
        const auto restored = qScopeGuard(
            [&] { wasSet ? qputenv("XDG_DATA_HOME", before) : qunsetenv("XDG_DATA_HOME"); });
        qunsetenv("XDG_DATA_HOME");
        QCOMPARE(DBCPreconditions::_getDefaultDBPath(), home.path(u"home/.local/share/Velmora"_s));
        qputenv("XDG_DATA_HOME", "/srv/data");
        QCOMPARE(DBCPreconditions::_getDefaultDBPath(), u"/srv/data/Velmora"_s);
    }

    void dataFolderIsTheDesktop()
    {
        const TestHome home;
        QCOMPARE(DBCPreconditions::_getDefaultDataFilePath(),
            std::optional(home.path(u"home/Desktop"_s)));
    }
};

QTEST_GUILESS_MAIN(tst_preconditions)
#include "tst_preconditions.moc"

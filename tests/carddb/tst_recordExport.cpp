// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/store/DBCCard.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/base/DBCCancelDelegate.h"
#include "operation/base/DBCStopQuestion.h"
#include "tests/support/DebugLog.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/StandardInputKeeper.h"

#include <QFileInfo>
#include <QTimeZone>
#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

std::optional<DBCResultCode> codeOf(const DBCError& error)
{
    return error ? std::optional(error.code()) : std::nullopt;
}

// A cancel delegate that lets the operation go on for a number of questions, and then tells it to
// stop.
struct CancellingDelegate : DBCCancelDelegate {
    explicit CancellingDelegate(int questionsAnsweredNo)
        : remaining(questionsAnsweredNo)
    {
    }
    bool checkIsNeedToConfirmCancelOperation() override
    {
        ++asked;
        return remaining-- <= 0;
    }
    bool fileManager(const DBCFileManager*, const QString&, const QString&) override
    {
        return true;
    }

    int remaining;
    int asked = 0;
};

// A controller whose two steps that write a card's files only return what the test has set.
class SubstituteSteps : public DBCDataBaseController {
public:
    std::optional<QStringList> _exportImageFile(
        const DBCRecord&, const QString& toPath, DBCError* errors) override
    {
        imageFolder = toPath;
        if (imageError)
            *errors = imageError;
        return images;
    }
    std::optional<QString> _exportAttachFile(
        const DBCRecord&, const QString& toPath, DBCError* errors) override
    {
        attachmentFolder = toPath;
        if (attachmentError)
            *errors = attachmentError;
        return attachment;
    }

    std::optional<QStringList> images = QStringList();
    DBCError imageError;
    QString imageFolder; // stays empty if the step is not called
    std::optional<QString> attachment = u""_s;
    DBCError attachmentError;
    QString attachmentFolder; // stays empty if the step is not called
};

DBCRecord cardRecord()
{
    DBCRecord record;
    record.setValue(Key::recordNo, u"1"_s);
    record.setValue(Key::cardID, u"CARD-1"_s);
    record.setValue(Key::full_Name, u"Hanako"_s);
    record.setValue(Key::face_Image_File, u"CARD-1_N1.pdf"_s);
    record.setValue(Key::back_Image_File, u"old"_s);
    return record;
}

} // namespace

class tst_recordExport : public QObject {
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

    void cardsAreNumberedInTheOrderOfTheirAcceptDates()
    {
        _package->card().acceptedAt(300.5);
        _package->card().acceptedAt(100);
        _package->card({{"ZACCEPT_DATE", QVariant()}});
        QCOMPARE(fetchTexts(Key::cardID), QStringList({u"CARD-3"_s, u"CARD-2"_s, u"CARD-1"_s}));
        QCOMPARE(fetchTexts(Key::recordNo), QStringList({u"1"_s, u"2"_s, u"3"_s}));
    }

    void cardsWithEqualAcceptDatesAreNumberedAsTheyCome()
    {
        QStringList numbers;
        for (int i = 1; i <= 20; ++i) {
            _package->card().acceptedAt(100);
            numbers << QString::number(i);
        }
        QCOMPARE(fetchTexts(Key::recordNo), numbers);
    }

    void deletedCardsAreLeftOut()
    {
        _package->card().deleted();
        _package->card();
        QCOMPARE(fetchTexts(Key::cardID), QStringList({u"CARD-2"_s}));
        QCOMPARE(fetchTexts(Key::recordNo), QStringList({u"1"_s}));
    }

    void storeWithDeletedCardsOnlyHasNoCards()
    {
        _package->card().deleted();
        _package->card().deleted();
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        QVERIFY(cards);
        QVERIFY(cards->empty());
        QCOMPARE(codeOf(error), DBCResultCode::NoCards);
        QVERIFY(!error.pathName());
    }

    void storeWithoutCardsHasNoCards()
    {
        DBCError error;
        QVERIFY(openPackage()->fetchCardDatas(&error)->empty());
        QCOMPARE(codeOf(error), DBCResultCode::NoCards);
    }

    void storeThatBreaksWhileOpenFailsTheFetch()
    {
        DebugLog log(*_home);
        _package->card();
        const auto database = openPackage();
        _package->execute(u"DROP TABLE ZCARD"_s);
        DBCError error;
        const auto cards = database->fetchCardDatas(&error);
        QVERIFY(cards);
        QVERIFY(cards->empty());
        QCOMPARE(codeOf(error), DBCResultCode::FetchFailure);
        QVERIFY(log.text().contains(u"no such table: ZCARD"_s));
    }

    void withoutAContextOrAnErrorSlotThereIsNoList()
    {
        _package->card();
        QVERIFY(!openPackage()->fetchCardDatas(nullptr));
        DBCDataBaseController unopened;
        DBCError error;
        QVERIFY(!unopened.fetchCardDatas(&error));
        QVERIFY(!error);
    }

    void fetchWithoutDelegateIsStoppedByTheThreadsQuestion()
    {
        constexpr int cards = 3000;
        _package->execute(u"WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c "
                          "WHERE n < %1) INSERT INTO ZCARD (Z_ENT, Z_OPT, ZDELETEDFLAG) "
                          "SELECT 1, 1, 0 FROM c"_s.arg(cards));
        const auto database = openPackage();
        const DBCStopQuestion question([] { return true; });
        DBCLongWait wait;
        QTRY_VERIFY(wait.isToStop());

        DBCError error;
        const auto records = database->fetchCardDatas(&error);

        QCOMPARE(codeOf(error), DBCResultCode::CancelledByUser);
        QVERIFY(records);
        QVERIFY(records->size() < cards);
    }

    void delegateIsAskedBeforeEachCard()
    {
        for (int i = 0; i < 4; ++i)
            _package->card();
        CancellingDelegate delegate(100);
        const auto database = openPackage();
        database->setDelegate(&delegate);
        DBCError error;
        QCOMPARE(database->fetchCardDatas(&error)->size(), std::size_t {4});
        QVERIFY(!error);
        QCOMPARE(delegate.asked, 4);
    }

    void cancelAfterThreeCardsReturnsThreeCards()
    {
        for (int i = 0; i < 6; ++i)
            _package->card();
        CancellingDelegate delegate(3);
        const auto database = openPackage();
        database->setDelegate(&delegate);
        DBCError error;
        const auto cards = database->fetchCardDatas(&error);
        QCOMPARE(codeOf(error), DBCResultCode::CancelledByUser);
        QStringList numbers;
        for (const DBCRecord& card : cards.value())
            numbers << card.textOrEmpty(Key::recordNo);
        QCOMPARE(numbers, QStringList({u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(delegate.asked, 4);
    }

    void cancelBeforeTheFirstCardReturnsNone()
    {
        _package->card();
        CancellingDelegate delegate(0);
        const auto database = openPackage();
        database->setDelegate(&delegate);
        DBCError error;
        QVERIFY(database->fetchCardDatas(&error)->empty());
        QCOMPARE(codeOf(error), DBCResultCode::CancelledByUser);
    }

    void recordOfACardHasExactlyTheGivenKeys()
    {
        const DBCRecord record = DBCDataBaseController::newDataDicWith(Card());
        for (const DBCRecordKey key : allRecordKeys()) {
            const bool isTransferKey = key == DBCRecordKey::attachmentFile
                || key == DBCRecordKey::recordNo || key == DBCRecordKey::lineNo;
            QVERIFY2(record.contains(key) != isTransferKey, qPrintable(recordKeyName(key)));
        }
        QCOMPARE(record.count(), std::size_t {68});
    }

    void attributesWithoutValueAreEmpty()
    {
        const DBCRecord record = DBCDataBaseController::newDataDicWith(Card());
        for (const Key key : {Key::cardID, Key::status, Key::deletedFlag, Key::full_Name, Key::memo,
                 Key::register_Date, Key::update_Date, Key::flag2})
            QCOMPARE(record.text(key), u""_s);
    }

    void numbersStayNumbersAndDatesStayDates()
    {
        _package->card({{"ZSTATUS", 7}, {"ZREGISTER_DATE", 252'460'800}, {"ZACCEPT_DATE", 1.5}});
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        const DBCRecord& record = cards->front();
        QVERIFY(*record.value(Key::status) == DBCValue(qint64 {7}));
        QCOMPARE(std::get<QDateTime>(*record.value(Key::register_Date)).toUTC(),
            QDateTime({2009, 1, 1}, QTime(0, 0), QTimeZone::utc()));
        QCOMPARE(std::get<QDateTime>(*record.value(Key::accept_Date)).toUTC(),
            QDateTime({2001, 1, 1}, QTime(0, 0, 1, 500), QTimeZone::utc()));
    }

    void missingAcceptDateIsTheTimeOfTheExport()
    {
        _package->card({{"ZACCEPT_DATE", QVariant()}});
        const QDateTime before = QDateTime::currentDateTime();
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        const auto date = std::get<QDateTime>(*cards->front().value(Key::accept_Date));
        QVERIFY(before <= date && date <= QDateTime::currentDateTime());
    }

    void faceImageThatIsNullIsEmpty()
    {
        _package->card({{"ZFACE_IMAGE_FILE", QVariant()}});
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        QCOMPARE(cards->front().text(Key::face_Image_File), u""_s);
    }

    void namesAndAddressesAreTakenAsStored()
    {
        _package->card({{"ZFULL_NAME", u"A B"_s}, {"ZFAMILY_NAME", u"ﾔﾏﾀﾞ"_s},
            {"ZADDRESS", u"x\ny"_s}, {"ZSTREET", u"z"_s}});
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        const DBCRecord& record = cards->front();
        QCOMPARE(record.textOrEmpty(Key::full_Name), u"A B"_s);
        QCOMPARE(record.textOrEmpty(Key::family_Name), u"ﾔﾏﾀﾞ"_s);
        QCOMPARE(record.textOrEmpty(Key::address), u"x\ny"_s);
        QCOMPARE(record.textOrEmpty(Key::street), u"z"_s);
    }

    void exportWritesImagesAndAttachmentsBesideTheRecord()
    {
        const QByteArray jpeg = JpegBuilder(300, 200).dotsPerInch(300, 300).bytes();
        _package->card()
            .withPdf(PdfBuilder::cardPdf({jpeg, jpeg}))
            .withAttachment(u"a.txt"_s, "text");
        const auto database = openPackage();
        DBCError error;
        const auto cards = database->fetchCardDatas(&error);
        const QString folder = _home->path(u"out"_s);
        const auto row = database->exportData(cards->front(), folder, &error);
        QVERIFY(row);
        QVERIFY(!error);
        QCOMPARE(row->textOrEmpty(Key::face_Image_File), u"1_N1.jpg"_s);
        QCOMPARE(row->textOrEmpty(Key::back_Image_File), u"1_N2.jpg"_s);
        QCOMPARE(row->textOrEmpty(Key::attachmentFile), u"1"_s);
        const QString images = DBCInterchangeNames::imageFolder(folder);
        QVERIFY(QFileInfo(images + u"/1_N1.jpg"_s).isFile());
        QVERIFY(QFileInfo(images + u"/1_N2.jpg"_s).isFile());
        QVERIFY(QFileInfo(DBCInterchangeNames::attachmentFolder(folder) + u"/1/a.txt"_s).isFile());
    }

    void cardWithoutFilesNamesNone()
    {
        _package->card();
        const auto database = openPackage();
        DBCError error;
        const auto cards = database->fetchCardDatas(&error);
        const auto row = database->exportData(cards->front(), _home->path(u"out"_s), &error);
        QVERIFY(row);
        for (const Key key : {Key::face_Image_File, Key::back_Image_File, Key::attachmentFile})
            QCOMPARE(row->text(key), u""_s);
    }

    void imageStepThatReturnsThreeNamesExportsTwo()
    {
        SubstituteSteps database;
        database.images = QStringList({u"a"_s, u"b"_s, u"c"_s});
        DBCError error;
        const auto row = database.exportData(cardRecord(), _home->path(), &error);
        QVERIFY(row);
        QCOMPARE(row->textOrEmpty(Key::face_Image_File), u"a"_s);
        QCOMPARE(row->textOrEmpty(Key::back_Image_File), u"b"_s);
    }

    void imageStepsOutcome_data()
    {
        using Code = DBCResultCode;
        QTest::addColumn<std::optional<QStringList>>("images");
        QTest::addColumn<DBCError>("stepError");
        QTest::addColumn<std::optional<DBCResultCode>>("expected");
        const std::optional<QStringList> none;
        const std::optional<QStringList> list = QStringList({u"a"_s});
        QTest::newRow("a list") << list << DBCError() << std::optional<Code>();
        QTest::newRow("nothing and an error")
            << none << DBCError(Code::FileSaveFailure) << std::optional(Code::FileSaveFailure);
        QTest::newRow("nothing and no error")
            << none << DBCError() << std::optional(Code::GeneralFailure);
        QTest::newRow("a list and an error")
            << list << DBCError(Code::NoSpaceForExport) << std::optional(Code::NoSpaceForExport);
    }
    void imageStepsOutcome()
    {
        QFETCH(std::optional<QStringList>, images);
        QFETCH(DBCError, stepError);
        QFETCH(std::optional<DBCResultCode>, expected);
        SubstituteSteps database;
        database.images = images;
        database.imageError = stepError;
        DBCError error;
        const auto row = database.exportData(cardRecord(), _home->path(), &error);
        QCOMPARE(row.has_value(), !expected);
        QCOMPARE(codeOf(error), expected);
        QCOMPARE(database.imageFolder, DBCInterchangeNames::imageFolder(_home->path()));
        QCOMPARE(database.attachmentFolder.isEmpty(), expected.has_value());
    }

    void attachmentStepsOutcome_data()
    {
        using Code = DBCResultCode;
        QTest::addColumn<std::optional<QString>>("attachment");
        QTest::addColumn<DBCError>("stepError");
        QTest::addColumn<std::optional<DBCResultCode>>("expected");
        const std::optional<QString> none;
        const std::optional<QString> number = u"1"_s;
        QTest::newRow("attached") << number << DBCError() << std::optional<Code>();
        QTest::newRow("nothing and an error") << none << DBCError(Code::AttachmentExportFailure)
                                              << std::optional(Code::AttachmentExportFailure);
        QTest::newRow("a result and an error")
            << number << DBCError(Code::NoSpaceForExport) << std::optional(Code::NoSpaceForExport);
        QTest::newRow("nothing and no error")
            << none << DBCError() << std::optional(Code::GeneralFailure);
    }
    void attachmentStepsOutcome()
    {
        QFETCH(std::optional<QString>, attachment);
        QFETCH(DBCError, stepError);
        QFETCH(std::optional<DBCResultCode>, expected);
        SubstituteSteps database;
        database.attachment = attachment;
        database.attachmentError = stepError;
        DBCError error;
        const auto row = database.exportData(cardRecord(), _home->path(), &error);
        QCOMPARE(row.has_value(), !expected);
        QCOMPARE(codeOf(error), expected);
        QCOMPARE(database.attachmentFolder, DBCInterchangeNames::attachmentFolder(_home->path()));
        if (row)
            QCOMPARE(row->textOrEmpty(Key::attachmentFile), *attachment);
    }

    void folderIsMadeWhenItIsMissing()
    {
        SubstituteSteps database;
        const QString folder = _home->path(u"new"_s);
        DBCError error;
        QVERIFY(database.exportData(cardRecord(), folder, &error));
        QVERIFY(QFileInfo(folder).isDir());
    }

    void folderThatCannotBeMadeIsNamedInTheError()
    {
        SubstituteSteps database;
        const QString folder = _home->path(u"missing/new"_s);
        DBCError error;
        QVERIFY(!database.exportData(cardRecord(), folder, &error));
        QCOMPARE(codeOf(error), DBCResultCode::FolderCreateFailure);
        QCOMPARE(error.pathName(), folder);
        QVERIFY(database.imageFolder.isEmpty());
    }

    void missingArgumentsGiveNoRecordAndNoError()
    {
        SubstituteSteps database;
        DBCError error;
        QVERIFY(!database.exportData(cardRecord(), QString(), &error));
        QVERIFY(!error);
        QVERIFY(!database.exportData(cardRecord(), _home->path(), nullptr));
        QVERIFY(database.imageFolder.isEmpty());
    }

    void errorLeftInTheSlotByTheCallerGivesNoRecord()
    {
        SubstituteSteps database;
        DBCError error(DBCResultCode::NoSpace);
        QVERIFY(!database.exportData(cardRecord(), _home->path(), &error));
        QCOMPARE(codeOf(error), DBCResultCode::NoSpace);
        QVERIFY(!database.attachmentFolder.isEmpty());
    }

    void otherValuesOfTheRecordAreKept()
    {
        SubstituteSteps database;
        DBCError error;
        const auto row = database.exportData(cardRecord(), _home->path(), &error);
        QCOMPARE(row->textOrEmpty(Key::full_Name), u"Hanako"_s);
        QCOMPARE(row->textOrEmpty(Key::cardID), u"CARD-1"_s);
        QCOMPARE(row->text(Key::face_Image_File), u""_s);
        QCOMPARE(row->text(Key::back_Image_File), u""_s);
    }

private:
    std::unique_ptr<DBCDataBaseController> openPackage() const
    {
        return DBCDataBaseController::initDBwithPath(_package->path());
    }
    // Returns the text of one key for each card that is not deleted.
    QStringList fetchTexts(Key key) const
    {
        QStringList texts;
        DBCError error;
        const auto cards = openPackage()->fetchCardDatas(&error);
        for (const DBCRecord& card : cards.value())
            texts << card.textOrEmpty(key);
        return texts;
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

QTEST_GUILESS_MAIN(tst_recordExport)
#include "tst_recordExport.moc"

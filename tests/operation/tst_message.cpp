// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCMessage.h"

#include "tests/support/CapturedStandardError.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString cancelImport = DBCMessage::keyOf(DBCQuestionId::CancelImport);

QString internalErrorText()
{
    return getLocalString(u"IDS_MSG_ERR_0102"_s);
}

DBCAnswer askWhetherToCancel(const QString& otherButton = {})
{
    return DBCMessage::ShowInfoMessage(cancelImport, DBCButton::Yes, DBCButton::No, otherButton);
}

} // namespace

class tst_message : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { DBCLocalizable::setLanguage(DBCLocalizable::Language::English); }

    void errorShowsTheTextOfItsNumber()
    {
        RecordingPresenter presenter;
        const QString text = DBCMessage::ShowErrorMessage(209);
        QVERIFY(text.startsWith(u"The card database holds no cards"_s));
        QCOMPARE(presenter.numbers, QList<quint32> {209});
        QCOMPARE(presenter.texts, QStringList {text});
        QCOMPARE(presenter.titles, QStringList {u"VelmoraConverter"_s});
    }

    void errorFillsItsArguments()
    {
        RecordingPresenter presenter;
        const QString text = DBCMessage::ShowErrorMessage(307, {qint64 {12345}});
        QVERIFY2(text.contains(u"Line 12345 "_s), qPrintable(text));
        QCOMPARE(presenter.texts, QStringList {text});
    }

    void errorFollowsTheLanguage()
    {
        RecordingPresenter presenter;
        DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
        const QString text = DBCMessage::ShowErrorMessage(307, {qint64 {12}});
        QVERIFY2(text.contains(u"データファイルの12行目"_s), qPrintable(text));
    }

    void numberWithoutKey_data()
    {
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none") << 0U << u"Undefined Err:   0"_s;
        QTest::newRow("two digits") << 99U << u"Undefined Err:  99"_s;
        QTest::newRow("three digits") << 401U << u"Undefined Err: 401"_s;
        QTest::newRow("five digits") << 12345U << u"Undefined Err:12345"_s;
        QTest::newRow("largest") << 4294967295U << u"Undefined Err:4294967295"_s;
    }
    void numberWithoutKey()
    {
        QFETCH(quint32, number);
        QFETCH(QString, expected);
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::ShowErrorMessage(number), expected);
        QCOMPARE(presenter.texts, QStringList {expected});
        QCOMPARE(presenter.numbers, QList<quint32> {number});
    }

    void numberWithoutEntry_data()
    {
        QTest::addColumn<quint32>("number");
        QTest::newRow("taken away") << 102U;
        QTest::newRow("never there") << 150U;
    }
    void numberWithoutEntry()
    {
        QFETCH(quint32, number);
        const DBCLocalizable::Substitute substitute({{u"IDS_MSG_ERR_0102"_s, std::nullopt}});
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::ShowErrorMessage(number), u"No Resource"_s);
        QCOMPARE(presenter.texts, QStringList {u"No Resource"_s});
    }

    void numberWithEmptyTextIsUndefined()
    {
        const DBCLocalizable::Substitute substitute({{u"IDS_MSG_ERR_0102"_s, QString()}});
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::ShowErrorMessage(102), u"Undefined Err: 102"_s);
    }

    void firstAndLastNumberHaveKeys_data()
    {
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("key");
        QTest::newRow("first") << 100U << u"IDS_MSG_ERR_0100"_s;
        QTest::newRow("last") << 400U << u"IDS_MSG_ERR_0400"_s;
    }
    void firstAndLastNumberHaveKeys()
    {
        QFETCH(quint32, number);
        QFETCH(QString, key);
        const DBCLocalizable::Substitute substitute({{key, u"found %1"_s}});
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::ShowErrorMessage(number, {u"%1"_s}), u"found %1"_s);
    }

    void errorSheetTellsItsEnd()
    {
        RecordingPresenter presenter;
        int ended = 0;
        const QString text
            = DBCMessage::ShowErrorMessageAlertSheet(nullptr, [&] { ++ended; }, 307, {qint64 {5}});
        QVERIFY(text.contains(u"Line 5 "_s));
        QCOMPARE(presenter.texts, QStringList {text});
        QCOMPARE(ended, 1);
    }

    void errorSheetWithoutCallback()
    {
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::ShowErrorMessageAlertSheet(nullptr, {}, 99), u"Undefined Err:  99"_s);
    }

    void questionShowsTextTitleAndButtons()
    {
        RecordingPresenter presenter;
        askWhetherToCancel();
        QCOMPARE(presenter.questions.size(), 1);
        const DBCQuestion& question = presenter.questions.first();
        QCOMPARE(question.key, cancelImport);
        QCOMPARE(question.title, u"VelmoraConverter"_s);
        QVERIFY(question.text.startsWith(u"Do you want to cancel the import?"_s));
        QCOMPARE(question.defaultButton, u"Yes"_s);
        QCOMPARE(question.alternateButton, u"No"_s);
        QVERIFY(question.otherButton.isEmpty());
        QVERIFY(presenter.texts.isEmpty());
    }

    void questionsHaveTheirKeys_data()
    {
        QTest::addColumn<DBCQuestionId>("question");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("asksToCancel");
        using Id = DBCQuestionId;
        const auto row = [](Id question, const char* key, bool asksToCancel = false) {
            QTest::newRow(key) << question << QString::fromLatin1(key) << asksToCancel;
        };
        row(Id::BeginOperation, "IDS_MSG_ERR_0106");
        row(Id::ReplaceExport, "IDS_MSG_ERR_0205");
        row(Id::CancelExport, "IDS_MSG_ERR_0210", true);
        row(Id::QuitAfterExport, "IDS_MSG_ERR_0211");
        row(Id::CancelImport, "IDS_MSG_ERR_0315", true);
        row(Id::QuitAfterImport, "IDS_MSG_ERR_0317");
        row(Id::SettleUnfinishedImport, "IDS_MSG_UNFINISHED_IMPORT");
        row(Id::SettleChangedPackage, "IDS_MSG_UNFINISHED_CHANGED");
        row(Id::RestoreBackup, "IDS_MSG_BACKUP_RESTORE");
        row(Id::DeleteBackup, "IDS_MSG_BACKUP_DELETE");
    }
    void questionsHaveTheirKeys()
    {
        QFETCH(DBCQuestionId, question);
        QFETCH(QString, key);
        RecordingPresenter presenter;
        QCOMPARE(DBCMessage::keyOf(question), key);
        DBCMessage::ShowInfoMessage(DBCMessage::keyOf(question), DBCButton::Yes, DBCButton::No);
        QCOMPARE(presenter.questions.size(), 1);
        QTEST(presenter.questions.constFirst().asksToCancel(), "asksToCancel");
    }

    void questionWithAThirdButton()
    {
        RecordingPresenter presenter;
        askWhetherToCancel(u"Later"_s);
        QCOMPARE(presenter.questions.first().otherButton, u"Later"_s);
    }

    void questionFillsItsArguments()
    {
        RecordingPresenter presenter;
        DBCMessage::ShowInfoMessage(DBCMessage::keyOf(DBCQuestionId::QuitAfterImport),
            DBCButton::Yes, DBCButton::No, {}, {qint64 {1200}});
        QVERIFY(presenter.questions.first().text.startsWith(u"Cards imported: 1,200."_s));
    }

    void answersOfTheQuestion_data()
    {
        QTest::addColumn<DBCAnswer>("answer");
        QTest::addColumn<int>("number");
        QTest::newRow("default button") << DBCAnswer::Default << 1;
        QTest::newRow("alternate button") << DBCAnswer::Alternate << 0;
        QTest::newRow("third button") << DBCAnswer::Other << -1;
    }
    void answersOfTheQuestion()
    {
        QFETCH(DBCAnswer, answer);
        QFETCH(int, number);
        RecordingPresenter presenter;
        presenter.answer = answer;
        QCOMPARE(static_cast<int>(askWhetherToCancel()), number);
    }

    void questionThatCannotBeAsked_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("no key") << QString();
        QTest::newRow("no entry") << u"IDS_NO_SUCH_KEY"_s;
        QTest::newRow("empty text") << u"IDS_EMPTY"_s;
    }
    void questionThatCannotBeAsked()
    {
        QFETCH(QString, key);
        const DBCLocalizable::Substitute substitute({{u"IDS_EMPTY"_s, QString()}});
        RecordingPresenter presenter;
        const DBCAnswer answer = DBCMessage::ShowInfoMessage(key, DBCButton::Yes, DBCButton::No);
        QCOMPARE(static_cast<int>(answer), -50);
        QVERIFY(presenter.questions.isEmpty());
        QCOMPARE(presenter.numbers, QList<quint32> {102});
        QCOMPARE(presenter.texts, QStringList {internalErrorText()});
    }

    void questionSheetAnswersLater()
    {
        RecordingPresenter presenter;
        presenter.answer = DBCAnswer::Default;
        QList<DBCAnswer> answers;
        int dismissed = 0;
        const DBCAnswer immediate = DBCMessage::ShowInfoMessageAlertSheet(
            nullptr, [&](DBCAnswer answer) { answers << answer; }, [&] { ++dismissed; },
            DBCMessage::keyOf(DBCQuestionId::QuitAfterExport), DBCButton::Yes, DBCButton::No, {},
            {qint64 {3}});
        QCOMPARE(static_cast<int>(immediate), 0);
        QCOMPARE(answers, QList<DBCAnswer> {DBCAnswer::Default});
        QCOMPARE(dismissed, 1);
        QVERIFY(presenter.questions.first().text.startsWith(u"Cards exported: 3."_s));
    }

    void questionSheetShowsNoThirdButton()
    {
        RecordingPresenter presenter;
        DBCMessage::ShowInfoMessageAlertSheet(
            nullptr, {}, {}, cancelImport, DBCButton::Yes, DBCButton::No, u"Later"_s);
        QVERIFY(presenter.questions.first().otherButton.isEmpty());
    }

    void questionSheetThatCannotBeAsked()
    {
        RecordingPresenter presenter;
        int answers = 0;
        const DBCAnswer answer = DBCMessage::ShowInfoMessageAlertSheet(
            nullptr, [&](DBCAnswer) { ++answers; }, {}, QString(), DBCButton::Yes, DBCButton::No);
        QCOMPARE(static_cast<int>(answer), -50);
        QCOMPARE(answers, 0);
        QCOMPARE(presenter.numbers, QList<quint32> {102});
    }

    void buttonLabels_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("key");
        QTest::newRow("0") << 0 << u"IDS_BUTTON_MSG_OK"_s;
        QTest::newRow("1") << 1 << u"IDS_BUTTON_MSG_CANCEL"_s;
        QTest::newRow("2") << 2 << u"IDS_BUTTON_MSG_YES"_s;
        QTest::newRow("3") << 3 << u"IDS_BUTTON_MSG_NO"_s;
        QTest::newRow("4") << 4 << u"IDS_BUTTON_MSG_CANCEL"_s;
        QTest::newRow("-1") << -1 << u"IDS_BUTTON_MSG_CANCEL"_s;
    }
    void buttonLabels()
    {
        QFETCH(int, number);
        QFETCH(QString, key);
        const DBCLocalizable::Substitute substitute({{key, u"the label"_s}});
        QCOMPARE(DBCMessage::btnLableString(static_cast<DBCButton>(number)), u"the label"_s);
    }

    void withoutPresenterTextsGoToStandardError()
    {
        CapturedStandardError console;
        const QString text = DBCMessage::ShowErrorMessage(102);
        QCOMPARE(console.text(), u"VelmoraConverter: "_s + text + u'\n');
    }

    void withoutPresenterQuestionsAreDeclined()
    {
        CapturedStandardError console;
        const DBCAnswer answer = askWhetherToCancel();
        QVERIFY(console.text().contains(u"Do you want to cancel the import?"_s));
        QCOMPARE(answer, DBCAnswer::Alternate);
    }
};

QTEST_GUILESS_MAIN(tst_message)
#include "tst_message.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCMessage.h"

#include "tests/support/CapturedStandardError.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

namespace {

const QString cancelImport = QStringLiteral("IDS_MSG_ERR_0315");

QString internalErrorText()
{
    return getLocalString(QStringLiteral("IDS_MSG_ERR_0102"));
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

    void errorShowsTheTextOfItsNumber();
    void errorFillsItsArguments();
    void errorFollowsTheLanguage();
    void numberWithoutKey_data();
    void numberWithoutKey();
    void numberWithoutEntry_data();
    void numberWithoutEntry();
    void numberWithEmptyTextIsUndefined();
    void firstAndLastNumberHaveKeys_data();
    void firstAndLastNumberHaveKeys();
    void errorSheetTellsItsEnd();
    void errorSheetWithoutCallback();

    void questionShowsTextTitleAndButtons();
    void questionWithAThirdButton();
    void questionFillsItsArguments();
    void answersOfTheQuestion_data();
    void answersOfTheQuestion();
    void questionThatCannotBeAsked_data();
    void questionThatCannotBeAsked();
    void questionSheetAnswersLater();
    void questionSheetShowsNoThirdButton();
    void questionSheetThatCannotBeAsked();

    void buttonLabels_data();
    void buttonLabels();

    void withoutPresenterTextsGoToStandardError();
    void withoutPresenterQuestionsAreDeclined();
};

void tst_message::errorShowsTheTextOfItsNumber()
{
    RecordingPresenter presenter;
    const QString text = DBCMessage::ShowErrorMessage(209);
    QVERIFY(text.startsWith(QStringLiteral("The card database holds no cards")));
    QCOMPARE(presenter.numbers, QList<quint32> {209});
    QCOMPARE(presenter.texts, QStringList {text});
    QCOMPARE(presenter.titles, QStringList {QStringLiteral("VelmoraConverter")});
}

void tst_message::errorFillsItsArguments()
{
    RecordingPresenter presenter;
    const QString text = DBCMessage::ShowErrorMessage(307, {qint64 {12345}});
    QVERIFY2(text.contains(QStringLiteral("Line 12345 ")), qPrintable(text));
    QCOMPARE(presenter.texts, QStringList {text});
}

void tst_message::errorFollowsTheLanguage()
{
    RecordingPresenter presenter;
    DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
    const QString text = DBCMessage::ShowErrorMessage(307, {qint64 {12}});
    QVERIFY2(text.contains(QStringLiteral("データファイルの12行目")), qPrintable(text));
}

void tst_message::numberWithoutKey_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << 0U << QStringLiteral("Undefined Err:   0");
    QTest::newRow("two digits") << 99U << QStringLiteral("Undefined Err:  99");
    QTest::newRow("three digits") << 401U << QStringLiteral("Undefined Err: 401");
    QTest::newRow("five digits") << 12345U << QStringLiteral("Undefined Err:12345");
    QTest::newRow("largest") << 4294967295U << QStringLiteral("Undefined Err:4294967295");
}

void tst_message::numberWithoutKey()
{
    QFETCH(quint32, number);
    QFETCH(QString, expected);
    RecordingPresenter presenter;
    QCOMPARE(DBCMessage::ShowErrorMessage(number), expected);
    QCOMPARE(presenter.texts, QStringList {expected});
    QCOMPARE(presenter.numbers, QList<quint32> {number});
}

void tst_message::numberWithoutEntry_data()
{
    QTest::addColumn<quint32>("number");
    QTest::newRow("taken away") << 102U;
    QTest::newRow("never there") << 150U;
}

void tst_message::numberWithoutEntry()
{
    QFETCH(quint32, number);
    const DBCLocalizable::Substitute substitute(
        {{QStringLiteral("IDS_MSG_ERR_0102"), std::nullopt}});
    RecordingPresenter presenter;
    QCOMPARE(DBCMessage::ShowErrorMessage(number), QStringLiteral("No Resource"));
    QCOMPARE(presenter.texts, QStringList {QStringLiteral("No Resource")});
}

void tst_message::numberWithEmptyTextIsUndefined()
{
    const DBCLocalizable::Substitute substitute({{QStringLiteral("IDS_MSG_ERR_0102"), QString()}});
    RecordingPresenter presenter;
    QCOMPARE(DBCMessage::ShowErrorMessage(102), QStringLiteral("Undefined Err: 102"));
}

void tst_message::firstAndLastNumberHaveKeys_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("key");
    QTest::newRow("first") << 100U << QStringLiteral("IDS_MSG_ERR_0100");
    QTest::newRow("last") << 400U << QStringLiteral("IDS_MSG_ERR_0400");
}

void tst_message::firstAndLastNumberHaveKeys()
{
    QFETCH(quint32, number);
    QFETCH(QString, key);
    const DBCLocalizable::Substitute substitute({{key, QStringLiteral("found %1")}});
    RecordingPresenter presenter;
    QCOMPARE(
        DBCMessage::ShowErrorMessage(number, {QStringLiteral("%1")}), QStringLiteral("found %1"));
}

void tst_message::errorSheetTellsItsEnd()
{
    RecordingPresenter presenter;
    int ended = 0;
    const QString text
        = DBCMessage::ShowErrorMessageAlertSheet(nullptr, [&] { ++ended; }, 307, {qint64 {5}});
    QVERIFY(text.contains(QStringLiteral("Line 5 ")));
    QCOMPARE(presenter.texts, QStringList {text});
    QCOMPARE(ended, 1);
}

void tst_message::errorSheetWithoutCallback()
{
    RecordingPresenter presenter;
    QCOMPARE(DBCMessage::ShowErrorMessageAlertSheet(nullptr, {}, 99),
        QStringLiteral("Undefined Err:  99"));
}

void tst_message::questionShowsTextTitleAndButtons()
{
    RecordingPresenter presenter;
    askWhetherToCancel();
    QCOMPARE(presenter.questions.size(), 1);
    const DBCQuestion& question = presenter.questions.first();
    QCOMPARE(question.key, cancelImport);
    QCOMPARE(question.title, QStringLiteral("VelmoraConverter"));
    QVERIFY(question.text.startsWith(QStringLiteral("Do you want to cancel the import?")));
    QCOMPARE(question.defaultButton, QStringLiteral("Yes"));
    QCOMPARE(question.alternateButton, QStringLiteral("No"));
    QVERIFY(question.otherButton.isEmpty());
    QVERIFY(presenter.texts.isEmpty());
}

void tst_message::questionWithAThirdButton()
{
    RecordingPresenter presenter;
    askWhetherToCancel(QStringLiteral("Later"));
    QCOMPARE(presenter.questions.first().otherButton, QStringLiteral("Later"));
}

void tst_message::questionFillsItsArguments()
{
    RecordingPresenter presenter;
    DBCMessage::ShowInfoMessage(
        QStringLiteral("IDS_MSG_ERR_0317"), DBCButton::Yes, DBCButton::No, {}, {qint64 {1200}});
    QVERIFY(presenter.questions.first().text.startsWith(QStringLiteral("Cards imported: 1,200.")));
}

void tst_message::answersOfTheQuestion_data()
{
    QTest::addColumn<DBCAnswer>("answer");
    QTest::addColumn<int>("number");
    QTest::newRow("default button") << DBCAnswer::Default << 1;
    QTest::newRow("alternate button") << DBCAnswer::Alternate << 0;
    QTest::newRow("third button") << DBCAnswer::Other << -1;
}

void tst_message::answersOfTheQuestion()
{
    QFETCH(DBCAnswer, answer);
    QFETCH(int, number);
    RecordingPresenter presenter;
    presenter.answer = answer;
    QCOMPARE(static_cast<int>(askWhetherToCancel()), number);
}

void tst_message::questionThatCannotBeAsked_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("no key") << QString();
    QTest::newRow("no entry") << QStringLiteral("IDS_NO_SUCH_KEY");
    QTest::newRow("empty text") << QStringLiteral("IDS_EMPTY");
}

void tst_message::questionThatCannotBeAsked()
{
    QFETCH(QString, key);
    const DBCLocalizable::Substitute substitute({{QStringLiteral("IDS_EMPTY"), QString()}});
    RecordingPresenter presenter;
    const DBCAnswer answer = DBCMessage::ShowInfoMessage(key, DBCButton::Yes, DBCButton::No);
    QCOMPARE(static_cast<int>(answer), -50);
    QVERIFY(presenter.questions.isEmpty());
    QCOMPARE(presenter.numbers, QList<quint32> {102});
    QCOMPARE(presenter.texts, QStringList {internalErrorText()});
}

void tst_message::questionSheetAnswersLater()
{
    RecordingPresenter presenter;
    presenter.answer = DBCAnswer::Default;
    QList<DBCAnswer> answers;
    int dismissed = 0;
    const DBCAnswer immediate = DBCMessage::ShowInfoMessageAlertSheet(
        nullptr, [&](DBCAnswer answer) { answers << answer; }, [&] { ++dismissed; },
        QStringLiteral("IDS_MSG_ERR_0211"), DBCButton::Yes, DBCButton::No, {}, {qint64 {3}});
    QCOMPARE(static_cast<int>(immediate), 0);
    QCOMPARE(answers, QList<DBCAnswer> {DBCAnswer::Default});
    QCOMPARE(dismissed, 1);
    QVERIFY(presenter.questions.first().text.startsWith(QStringLiteral("Cards exported: 3.")));
}

void tst_message::questionSheetShowsNoThirdButton()
{
    RecordingPresenter presenter;
    DBCMessage::ShowInfoMessageAlertSheet(
        nullptr, {}, {}, cancelImport, DBCButton::Yes, DBCButton::No, QStringLiteral("Later"));
    QVERIFY(presenter.questions.first().otherButton.isEmpty());
}

void tst_message::questionSheetThatCannotBeAsked()
{
    RecordingPresenter presenter;
    int answers = 0;
    const DBCAnswer answer = DBCMessage::ShowInfoMessageAlertSheet(
        nullptr, [&](DBCAnswer) { ++answers; }, {}, QString(), DBCButton::Yes, DBCButton::No);
    QCOMPARE(static_cast<int>(answer), -50);
    QCOMPARE(answers, 0);
    QCOMPARE(presenter.numbers, QList<quint32> {102});
}

void tst_message::buttonLabels_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("key");
    QTest::newRow("0") << 0 << QStringLiteral("IDS_BUTTON_MSG_OK");
    QTest::newRow("1") << 1 << QStringLiteral("IDS_BUTTON_MSG_CANCEL");
    QTest::newRow("2") << 2 << QStringLiteral("IDS_BUTTON_MSG_YES");
    QTest::newRow("3") << 3 << QStringLiteral("IDS_BUTTON_MSG_NO");
    QTest::newRow("4") << 4 << QStringLiteral("IDS_BUTTON_MSG_CANCEL");
    QTest::newRow("-1") << -1 << QStringLiteral("IDS_BUTTON_MSG_CANCEL");
}

void tst_message::buttonLabels()
{
    QFETCH(int, number);
    QFETCH(QString, key);
    const DBCLocalizable::Substitute substitute({{key, QStringLiteral("the label")}});
    QCOMPARE(
        DBCMessage::btnLableString(static_cast<DBCButton>(number)), QStringLiteral("the label"));
}

void tst_message::withoutPresenterTextsGoToStandardError()
{
    CapturedStandardError console;
    const QString text = DBCMessage::ShowErrorMessage(102);
    QCOMPARE(console.text(), QStringLiteral("VelmoraConverter: ") + text + u'\n');
}

void tst_message::withoutPresenterQuestionsAreDeclined()
{
    CapturedStandardError console;
    const DBCAnswer answer = askWhetherToCancel();
    QVERIFY(console.text().contains(QStringLiteral("Do you want to cancel the import?")));
    QCOMPARE(answer, DBCAnswer::Alternate);
}

QTEST_GUILESS_MAIN(tst_message)
#include "tst_message.moc"

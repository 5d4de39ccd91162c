// SPDX-License-Identifier: GPL-3.0-or-later
// The choice screen, the ways out of the program, and what holds for both screens in both
// languages.
#include "app/dialogs/DBCLocalizedWidgets.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMenuBar>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

namespace {

using Language = DBCLocalizable::Language;

void bothLanguages()
{
    QTest::addColumn<bool>("isJapanese");
    QTest::newRow("English") << false;
    QTest::newRow("Japanese") << true;
}

// The letter behind '&'; null: none.
QChar mnemonicOf(const QString& text)
{
    const qsizetype sign = text.indexOf(u'&');
    return sign < 0 || sign + 1 >= text.size() ? QChar() : text[sign + 1].toUpper();
}

} // namespace

class tst_mainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { bothLanguages(); }
    void init()
    {
        QFETCH_GLOBAL(bool, isJapanese);
        _home = std::make_unique<TestHome>();
        DBCLocalizable::setLanguage(isJapanese ? Language::Japanese : Language::English);
        _window = std::make_unique<DBCMainWindowController>();
        _presenter = std::make_unique<RecordingPresenter>();
        _window->show();
        // Keys reach the shortcuts of the active window alone.
        _window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_window.get()));
    }
    void cleanup()
    {
        _presenter.reset();
        _window.reset();
        _home.reset();
    }

    void windowHasTheProgramsTitle();
    void firstRowOpensTheExportScreen();
    void secondRowOpensTheImportScreen();
    void returnKeepsTheSelection();
    void enterOnAChoiceContinues();
    void quitButtonClosesTheWindowAndEndsTheProgram();
    void closeBoxEndsTheProgramAsQuitDoes();
    void quitMenuItemEndsTheProgram();
    void disabledCloseBoxKeepsTheWindow();
    void eachScreenHasEveryTextInItsLanguage();
    void mnemonicsAreUniqueOnEachScreen();
    void everyControlHasAnAccessibleName();
    void chooseButtonsHaveDifferentNames();
    void nothingIsCutOffAtTheSmallestSize();

private:
    void choose(const char* row)
    {
        _window->findChild<QRadioButton*>(QLatin1StringView(row))->setChecked(true);
        _window->findChild<QPushButton*>(QStringLiteral("continueBtn"))->click();
    }
    // Runs check on the choice screen, the import and the export screen.
    void onEachScreen(const std::function<void(const QString& screen)>& check)
    {
        check(QStringLiteral("choice"));
        choose("importChoice");
        check(QStringLiteral("import"));
        _window->findChild<QPushButton*>(QStringLiteral("_return2MainWindowBtn"))->click();
        choose("exportChoice");
        check(QStringLiteral("export"));
    }
    template <typename Kind> QList<Kind*> visible() const
    {
        QList<Kind*> found = _window->findChildren<Kind*>();
        found.removeIf([](const Kind* widget) {
            return !widget->isVisible() || widget->objectName().startsWith(QStringLiteral("qt_"));
        });
        return found;
    }
    QString buttonOfOperation() const
    {
        return _window->findChild<QPushButton*>(QStringLiteral("_convertBtn"))->text();
    }

    std::unique_ptr<TestHome> _home;
    std::unique_ptr<DBCMainWindowController> _window;
    std::unique_ptr<RecordingPresenter> _presenter;
};

void tst_mainWindow::windowHasTheProgramsTitle()
{
    QCOMPARE(_window->windowTitle(), QStringLiteral("VelmoraConverter"));
}

void tst_mainWindow::firstRowOpensTheExportScreen()
{
    choose("exportChoice");
    QCOMPARE(buttonOfOperation(), getLocalString(QStringLiteral("IDS_BUTTON_EXPORT")));
}

void tst_mainWindow::secondRowOpensTheImportScreen()
{
    choose("importChoice");
    QCOMPARE(buttonOfOperation(), getLocalString(QStringLiteral("IDS_BUTTON_IMPORT")));
}

void tst_mainWindow::returnKeepsTheSelection()
{
    auto* const importChoice = _window->findChild<QRadioButton*>(QStringLiteral("importChoice"));
    choose("importChoice");
    QVERIFY(!importChoice->isVisible());
    _window->findChild<QPushButton*>(QStringLiteral("_return2MainWindowBtn"))->click();
    QVERIFY(importChoice->isVisible());
    QVERIFY(importChoice->isChecked());
}

void tst_mainWindow::enterOnAChoiceContinues()
{
    auto* const choice = _window->findChild<QRadioButton*>(QStringLiteral("exportChoice"));
    _window->activateWindow();
    choice->setFocus();
    QTest::keyClick(choice, Qt::Key_Return);
    QVERIFY(!choice->isVisible());
}

void tst_mainWindow::quitButtonClosesTheWindowAndEndsTheProgram()
{
    const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
    _window->findChild<QPushButton*>(QStringLiteral("quitBtn"))->click();
    QVERIFY(!_window->isVisible());
    QCOMPARE(end.size(), 1);
}

void tst_mainWindow::closeBoxEndsTheProgramAsQuitDoes()
{
    const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
    QVERIFY(_window->close());
    QCOMPARE(end.size(), 1);
}

void tst_mainWindow::quitMenuItemEndsTheProgram()
{
    const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
    QTest::keyClick(_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(end.size(), 1);
}

void tst_mainWindow::disabledCloseBoxKeepsTheWindow()
{
    const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
    choose("importChoice");
    _window->setCloseBoxEnabled(false);
    QVERIFY(!_window->close());
    QVERIFY(_window->isVisible());
    QCOMPARE(end.size(), 0);
}

void tst_mainWindow::eachScreenHasEveryTextInItsLanguage()
{
    QFETCH_GLOBAL(bool, isJapanese);
    onEachScreen([&](const QString& screen) {
        for (const QWidget* const widget : visible<QWidget>()) {
            for (const char* const name :
                {"text", "title", "toolTip", "accessibleName", "accessibleDescription"}) {
                const QString text = widget->property(name).toString();
                QVERIFY2(!text.contains(QStringLiteral("IDS_")),
                    qPrintable(screen + u' ' + widget->objectName() + u' ' + text));
            }
        }
        for (const QAbstractButton* const button : visible<QAbstractButton>()) {
            const bool isInJapanese = std::any_of(button->text().cbegin(), button->text().cend(),
                [](QChar unit) { return unit.unicode() >= 0x3040; });
            QVERIFY2(isInJapanese == isJapanese, qPrintable(screen + u' ' + button->text()));
        }
    });
}

void tst_mainWindow::mnemonicsAreUniqueOnEachScreen()
{
    onEachScreen([&](const QString& screen) {
        QStringList texts;
        for (const QAction* const menu : _window->menuBar()->actions())
            texts << menu->text();
        for (const QAbstractButton* const button : visible<QAbstractButton>())
            texts << button->text();
        for (const QLabel* const label : visible<QLabel>()) {
            if (label->buddy())
                texts << label->text();
        }
        if (screen != QStringLiteral("choice"))
            texts << getLocalString(QStringLiteral("IDS_BUTTON_CANCEL"));
        QSet<QChar> letters;
        for (const QString& text : texts) {
            const QChar letter = mnemonicOf(text);
            QVERIFY2(!letter.isNull(), qPrintable(screen + u' ' + text));
            QVERIFY2(!letters.contains(letter), qPrintable(screen + u' ' + text));
            letters.insert(letter);
        }
        QVERIFY(texts.size() >= 5);
    });
}

void tst_mainWindow::everyControlHasAnAccessibleName()
{
    onEachScreen([&](const QString& screen) {
        for (QWidget* const widget : visible<QWidget>()) {
            if (widget->focusPolicy() == Qt::NoFocus && !qobject_cast<QProgressBar*>(widget))
                continue;
            QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(accessible && !accessible->text(QAccessible::Name).isEmpty(),
                qPrintable(screen + u' ' + widget->objectName()));
        }
    });
}

void tst_mainWindow::chooseButtonsHaveDifferentNames()
{
    choose("importChoice");
    const auto nameOf = [&](const char* button) {
        QWidget* const widget = _window->findChild<QPushButton*>(QLatin1StringView(button));
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QVERIFY(nameOf("_dataPathSelectionBtn") != nameOf("_vmdbPathSelectionBtn"));
}

void tst_mainWindow::nothingIsCutOffAtTheSmallestSize()
{
    onEachScreen([&](const QString& screen) {
        _window->resize(_window->minimumSizeHint());
        QTest::qWait(0);
        for (const QWidget* const widget : visible<QWidget>()) {
            const bool isTextWidget = qobject_cast<const QAbstractButton*>(widget)
                || qobject_cast<const QLabel*>(widget);
            if (!isTextWidget || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
                continue;
            const int neededHeight = widget->hasHeightForWidth()
                ? widget->heightForWidth(widget->width())
                : widget->sizeHint().height();
            QVERIFY2(widget->height() >= neededHeight,
                qPrintable(QStringLiteral("%1 %2 %3 %4")
                               .arg(screen, widget->objectName())
                               .arg(widget->height())
                               .arg(neededHeight)));
            const auto* const label = qobject_cast<const QLabel*>(widget);
            if (!label || !label->wordWrap())
                QVERIFY2(widget->width() >= widget->minimumSizeHint().width(),
                    qPrintable(screen + u' ' + widget->objectName()));
        }
    });
}

QTEST_MAIN(tst_mainWindow)
#include "tst_mainWindow.moc"

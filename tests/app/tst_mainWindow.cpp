// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the choice screen, the ways to end the program, and rules that hold for both screens in
// both languages.
#include "app/dialogs/DBCLocalizedWidgets.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMenuBar>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Language = DBCLocalizable::Language;

void bothLanguages()
{
    QTest::addColumn<bool>("isJapanese");
    QTest::newRow("English") << false;
    QTest::newRow("Japanese") << true;
}

// Returns the letter after '&', or a null character if there is no '&'.
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
        // Only the shortcuts of the active window receive keys.
        _window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(_window.get()));
    }
    void cleanup()
    {
        _presenter.reset();
        _window.reset();
        _home.reset();
    }

    void windowHasTheProgramsTitle() { QCOMPARE(_window->windowTitle(), u"VelmoraConverter"_s); }

    void firstRowOpensTheExportScreen()
    {
        choose("exportChoice");
        QCOMPARE(buttonOfOperation(), getLocalString(u"IDS_BUTTON_EXPORT"_s));
    }

    void secondRowOpensTheImportScreen()
    {
        choose("importChoice");
        QCOMPARE(buttonOfOperation(), getLocalString(u"IDS_BUTTON_IMPORT"_s));
    }

    void returnKeepsTheSelection()
    {
        auto* const importChoice = _window->findChild<QRadioButton*>(u"importChoice"_s);
        choose("importChoice");
        QVERIFY(!importChoice->isVisible());
        _window->findChild<QPushButton*>(u"_return2MainWindowBtn"_s)->click();
        QVERIFY(importChoice->isVisible());
        QVERIFY(importChoice->isChecked());
    }

    void enterOnAChoiceContinues()
    {
        auto* const choice = _window->findChild<QRadioButton*>(u"exportChoice"_s);
        _window->activateWindow();
        choice->setFocus();
        QTest::keyClick(choice, Qt::Key_Return);
        QVERIFY(!choice->isVisible());
    }

    void quitButtonClosesTheWindowAndEndsTheProgram()
    {
        const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
        _window->findChild<QPushButton*>(u"quitBtn"_s)->click();
        QVERIFY(!_window->isVisible());
        QCOMPARE(end.size(), 1);
    }

    void closeBoxEndsTheProgramAsQuitDoes()
    {
        const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
        QVERIFY(_window->close());
        QCOMPARE(end.size(), 1);
    }

    void quitMenuItemEndsTheProgram()
    {
        const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
        QTest::keyClick(_window.get(), Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(end.size(), 1);
    }

    void disabledCloseBoxKeepsTheWindow()
    {
        const QSignalSpy end(_window.get(), &DBCMainWindowController::terminateRequested);
        choose("importChoice");
        _window->setCloseBoxEnabled(false);
        QVERIFY(!_window->close());
        QVERIFY(_window->isVisible());
        QCOMPARE(end.size(), 0);
    }

    void eachScreenHasEveryTextInItsLanguage()
    {
        QFETCH_GLOBAL(bool, isJapanese);
        onEachScreen([&](const QString& screen) {
            for (const QWidget* const widget : visible<QWidget>()) {
                for (const char* const name :
                    {"text", "title", "toolTip", "accessibleName", "accessibleDescription"}) {
                    const QString text = widget->property(name).toString();
                    QVERIFY2(!text.contains(u"IDS_"_s),
                        qPrintable(screen + u' ' + widget->objectName() + u' ' + text));
                }
            }
            for (const QAbstractButton* const button : visible<QAbstractButton>()) {
                const bool isInJapanese = std::any_of(button->text().cbegin(),
                    button->text().cend(), [](QChar unit) { return unit.unicode() >= 0x3040; });
                QVERIFY2(isInJapanese == isJapanese, qPrintable(screen + u' ' + button->text()));
            }
        });
    }

    void mnemonicsAreUniqueOnEachScreen()
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
            if (screen != u"choice"_s)
                texts << getLocalString(u"IDS_BUTTON_CANCEL"_s);
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

    void everyControlHasAnAccessibleName()
    {
        onEachScreen([&](const QString& screen) {
            for (QWidget* const widget : visible<QWidget>()) {
                if (widget->focusPolicy() == Qt::NoFocus && !qobject_cast<QProgressBar*>(widget))
                    continue;
                QAccessibleInterface* const accessible
                    = QAccessible::queryAccessibleInterface(widget);
                QVERIFY2(accessible && !accessible->text(QAccessible::Name).isEmpty(),
                    qPrintable(screen + u' ' + widget->objectName()));
            }
        });
    }

    void chooseButtonsHaveDifferentNames()
    {
        choose("importChoice");
        const auto nameOf = [&](const char* button) {
            QWidget* const widget = _window->findChild<QPushButton*>(QLatin1StringView(button));
            return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        };
        QVERIFY(nameOf("_dataPathSelectionBtn") != nameOf("_vmdbPathSelectionBtn"));
    }

    void nothingIsCutOffAtTheSmallestSize()
    {
        onEachScreen([&](const QString& screen) {
            _window->resize(_window->minimumSizeHint());
            QTest::qWait(0);
            for (const QWidget* const widget : visible<QWidget>()) {
                const bool isTextWidget = qobject_cast<const QAbstractButton*>(widget)
                    || qobject_cast<const QLabel*>(widget);
                if (!isTextWidget
                    || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
                    continue;
                const int neededHeight = widget->hasHeightForWidth()
                    ? widget->heightForWidth(widget->width())
                    : widget->sizeHint().height();
                QVERIFY2(widget->height() >= neededHeight,
                    qPrintable(u"%1 %2 %3 %4"_s.arg(screen, widget->objectName())
                                   .arg(widget->height())
                                   .arg(neededHeight)));
                const auto* const label = qobject_cast<const QLabel*>(widget);
                if (!label || !label->wordWrap())
                    QVERIFY2(widget->width() >= widget->minimumSizeHint().width(),
                        qPrintable(screen + u' ' + widget->objectName()));
            }
        });
    }

private:
    void choose(const char* row)
    {
        _window->findChild<QRadioButton*>(QLatin1StringView(row))->setChecked(true);
        _window->findChild<QPushButton*>(u"continueBtn"_s)->click();
    }
    // Calls check on the choice screen, the import screen and the export screen.
    void onEachScreen(const std::function<void(const QString& screen)>& check)
    {
        check(u"choice"_s);
        choose("importChoice");
        check(u"import"_s);
        _window->findChild<QPushButton*>(u"_return2MainWindowBtn"_s)->click();
        choose("exportChoice");
        check(u"export"_s);
    }
    template <typename Kind> QList<Kind*> visible() const
    {
        QList<Kind*> found = _window->findChildren<Kind*>();
        found.removeIf([](const Kind* widget) {
            return !widget->isVisible() || widget->objectName().startsWith(u"qt_"_s);
        });
        return found;
    }
    QString buttonOfOperation() const
    {
        return _window->findChild<QPushButton*>(u"_convertBtn"_s)->text();
    }

    std::unique_ptr<TestHome> _home;
    std::unique_ptr<DBCMainWindowController> _window;
    std::unique_ptr<RecordingPresenter> _presenter;
};

QTEST_MAIN(tst_mainWindow)
#include "tst_mainWindow.moc"

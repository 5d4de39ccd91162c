// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the window's screens and states into a folder, in both languages, light and dark:
// draw_screens FOLDER. tools/draw-screens runs it.
#include "operation/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QStyle>
#include <QStyleFactory>

namespace {

using Language = DBCLocalizable::Language;
using Draw = void (*)(WindowFixture&);

constexpr qint64 cards = 1284;

// The usual dark desktop.
QPalette darkPalette()
{
    const QColor window(0x2b, 0x2b, 0x2e);
    const QColor text(0xf2, 0xf2, 0xf2);
    QPalette palette(QColor(0x3a, 0x3a, 0x3e), window);
    palette.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x21));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Active, role, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Inactive, role, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x8c, 0x8c, 0x90));
    palette.setColor(QPalette::Highlight, QColor(0x4a, 0x9e, 0xe0));
    return palette;
}

void openImport(WindowFixture& fixture)
{
    fixture.choose(OperationType::Import);
    fixture.dataPath().setText(QStringLiteral("/home/hanako/名刺データ"));
    fixture.databasePath().setText(
        QStringLiteral("/home/hanako/Library/Application Support/Velmora/Velmora DB.vmdb"));
}

void send(WindowFixture& fixture, DBCEventName name, qint64 finishedCount)
{
    DBCEvent event {.name = name, .maxCount = cards, .finishedCount = finishedCount};
    if (finishedCount < cards)
        event.currentCard = QStringLiteral("星野 太郎");
    fixture.send(event);
}

void drawRunning(WindowFixture& fixture)
{
    openImport(fixture);
    for (const QString& name : fixture.enabledControls())
        fixture.control<QWidget>(qPrintable(name)).setEnabled(false);
    fixture.send({.name = DBCEventName::DatabaseBackupWillBegin});
    fixture.send({.name = DBCEventName::ImportWillBegin});
    send(fixture, DBCEventName::ImportDataLoadDidFinished, 0);
    send(fixture, DBCEventName::ImportIsRunning, 815);
}

void end(WindowFixture& fixture, bool isOk, qint64 concernedCardCount)
{
    fixture.send({.name = DBCEventName::OperationDidFinished,
        .operationIsOk = isOk,
        .reportPath = QStringLiteral("/home/hanako/Library/Logs/report.html"),
        .concernedCardCount = concernedCardCount});
}

void finish(WindowFixture& fixture, qint64 concernedCardCount)
{
    openImport(fixture);
    send(fixture, DBCEventName::ImportDidFinished, cards);
    end(fixture, true, concernedCardCount);
}

void drawFinished(WindowFixture& fixture)
{
    finish(fixture, 0);
}

void drawWarnings(WindowFixture& fixture)
{
    DBCLog::warning(QStringLiteral("a card without an image"));
    finish(fixture, 12);
}

void drawRestored(WindowFixture& fixture)
{
    openImport(fixture);
    fixture.send({.name = DBCEventName::DatabaseRestoreWillBegin});
    fixture.send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
    end(fixture, false, 1);
}

struct Screen {
    const char* name;
    Draw draw;
};

constexpr Screen screens[] {
    {"choice", [](WindowFixture&) {}},
    {"idle", openImport},
    {"running", drawRunning},
    {"finished", drawFinished},
    {"warnings", drawWarnings},
    {"restored", drawRestored},
};

// Until the paths, which are nobody's, are looked at.
void showEverything()
{
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(120))
        QApplication::processEvents();
}

bool drawScreen(const Screen& screen, Language language, const QString& path)
{
    if (DBCLog* const log = DBCLog::logInstance())
        log->resetLogCount();
    WindowFixture fixture(language);
    fixture.window.activateWindow();
    screen.draw(fixture);
    showEverything();
    return fixture.window.grab().save(path);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QDir folder(QApplication::arguments().value(1));
    for (const bool isDark : {false, true}) {
        QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
        for (const Language language : {Language::English, Language::Japanese}) {
            for (const Screen& screen : screens) {
                const QString name
                    = QStringLiteral("%1-%2-%3.png")
                          .arg(QString::fromLatin1(screen.name),
                              language == Language::Japanese ? QStringLiteral("ja")
                                                             : QStringLiteral("en"),
                              isDark ? QStringLiteral("dark") : QStringLiteral("light"));
                if (!drawScreen(screen, language, folder.filePath(name)))
                    return EXIT_FAILURE;
            }
        }
    }
    return EXIT_SUCCESS;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the window's screens in their states, in both languages, light and dark, and saves the
// pictures in a folder: draw_screens FOLDER. tools/draw runs this program.
#include "app/dialogs/DBCBackupsDialog.h"
#include "app/dialogs/DBCCheckDialog.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QStyle>
#include <QStyleFactory>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

using Language = DBCLocalizable::Language;
using Draw = void (*)(WindowFixture&);

constexpr qint64 cards = 1284;

// The palette of a usual dark desktop.
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

const QString folder = u"/home/hanako/名刺データ"_s;
const QString package = u"/home/hanako/Library/Application Support/Velmora/Velmora DB.vmdb"_s;

void openImport(WindowFixture& fixture)
{
    fixture.choose(OperationType::Import);
    fixture.dataPath().setText(folder);
    fixture.databasePath().setText(package);
}

void send(WindowFixture& fixture, DBCEventName name, qint64 finishedCount)
{
    DBCEvent event {.name = name, .maxCount = cards, .finishedCount = finishedCount};
    if (finishedCount < cards)
        event.currentCard = u"星野 太郎"_s;
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
        .reportPath = u"/home/hanako/Library/Logs/report.html"_s,
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
    DBCLog::warning(u"a card without an image"_s);
    finish(fixture, 12);
}

void drawRestored(WindowFixture& fixture)
{
    openImport(fixture);
    fixture.send({.name = DBCEventName::DatabaseRestoreWillBegin});
    fixture.send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
    end(fixture, false, 1);
}

DBCProblem problem(
    qint64 line, const char* key, const QString& path, const DBCMessageArguments& arguments)
{
    return {getLocalString(key, arguments), folder + u'/' + path, line};
}

void drawReport(WindowFixture& fixture, std::vector<DBCProblem> problems)
{
    openImport(fixture);
    auto* const dialog = new DBCCheckDialog(&fixture.window);
    DBCFolderReport report;
    report.findings.problems = std::move(problems);
    report.cardCount = cards;
    report.bytesNeeded = 412'876'800;
    dialog->showReport(folder, report);
    dialog->show();
}

void drawClean(WindowFixture& fixture)
{
    drawReport(fixture, {});
}

void drawProblems(WindowFixture& fixture)
{
    const QString line12 = u"12"_s;
    const QString line9 = u"9"_s;
    const QString line1021 = u"1021"_s;
    const QString image = u"名刺画像/0010_表.jpg"_s;
    const QString scan = u"名刺画像/scan 3.png"_s;
    const QString papers = u"添付ファイル/渡辺"_s;
    drawReport(fixture,
        {{getLocalString("IDS_CHECK_VERSION_MISSING", {folder + u"/Version.txt"_s, u"V1.0L10"_s}),
             folder + u"/Version.txt"_s},
            problem(9, "IDS_CHECK_IMAGE_MISSING", image,
                {line9, u"星野 太郎"_s, folder + u'/' + image}),
            problem(12, "IDS_LOG_WRN_ITEM_MAX_LEN", u"名刺データ.txt"_s,
                {u"メモ"_s, line12, u"田中 花子"_s}),
            problem(12, "IDS_CHECK_IMAGE_NO_JPEG", scan,
                {line12, u"田中 花子"_s, folder + u'/' + scan}),
            problem(1021, "IDS_CHECK_ATTACHMENT_FOLDER_MISSING", papers,
                {line1021, u"渡辺 三郎"_s, folder + u'/' + papers})});
}

DBCBackup backup(const QString& name, const QDateTime& madeAt, std::optional<qint64> cardCount)
{
    const quint64 bytes = 8'388'608 + 262'144 * quint64(cardCount.value_or(0));
    const QString path = QFileInfo(package).path() + u'/' + name;
    return {path, madeAt, bytes, cardCount,
        cardCount ? QString()
                  : getLocalString("IDS_VERIFY_STORE_MISSING", {path + u"/Velmora.sqldb"_s})};
}

void drawBackups(WindowFixture& fixture)
{
    openImport(fixture);
    const QDateTime newest(QDate(2026, 11, 20), QTime(17, 42));
    auto* const dialog = new DBCBackupsDialog(&fixture.window);
    dialog->showList(package,
        {{backup(u"Velmora DB_bak2.vmdb"_s, newest, 2310),
            backup(u"Velmora DB_bak1.vmdb"_s, newest.addDays(-3), std::nullopt),
            backup(u"Velmora DB_bak.vmdb"_s, newest.addDays(-40), 1026)}});
    dialog->show();
    dialog->findChild<QTableView*>()->selectRow(1);
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
    {"problems", drawProblems},
    {"clean", drawClean},
    {"backups", drawBackups},
};

// Runs the event loop for a short time, so that waiting events take effect before the picture is
// taken.
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
    auto* const dialog = fixture.window.findChild<QDialog*>();
    return (dialog ? dialog->grab() : fixture.window.grab()).save(path);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    const QDir folder(QApplication::arguments().value(1));
    for (const bool isDark : {false, true}) {
        QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
        for (const Language language : {Language::English, Language::Japanese}) {
            for (const Screen& screen : screens) {
                const QString name = u"%1-%2-%3.png"_s.arg(QString::fromLatin1(screen.name),
                    language == Language::Japanese ? u"ja"_s : u"en"_s,
                    isDark ? u"dark"_s : u"light"_s);
                if (!drawScreen(screen, language, folder.filePath(name)))
                    return EXIT_FAILURE;
            }
        }
    }
    return EXIT_SUCCESS;
}

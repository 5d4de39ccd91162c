// SPDX-License-Identifier: GPL-3.0-or-later
// The check of an interchange folder: what it lists, and what can be done with the list and
// meanwhile.
#include "app/DBCCheckDialog.h"

#include "tests/app/DialogTexts.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/ScopedHost.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QTableView>
#include <QTest>

#include <sys/stat.h>

namespace {

using Key = DBCRecordKey;
using Language = DBCLocalizable::Language;

// A dialog over a folder in a home of its own.
struct Desk {
    explicit Desk(Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        dialog = std::make_unique<DBCCheckDialog>(nullptr);
    }
    ~Desk() { open(); }

    // Cards that name images which are not there.
    void hasCards(int count)
    {
        DataFileBuilder file;
        file.titleLine();
        for (int number = 1; number <= count; ++number)
            file.row({{Key::full_Name, QStringLiteral("星野 太郎")},
                {Key::face_Image_File, QStringLiteral("%1.jpg").arg(number)}});
        folder.dataFile(file.build());
    }
    void hasOneGoodCard()
    {
        folder.dataFile(
            DataFileBuilder().titleLine().row({{Key::full_Name, QStringLiteral("星野")}}).build());
    }
    // The check waits at the image of that name, which exists, until open() is called.
    void closeGateAt(const QString& image)
    {
        folder.image(image, "no picture");
        host->isReadable = [this, image](const QString& path) {
            if (path.endsWith(u'/' + image)) {
                reached.release();
                gate.acquire();
            }
            return true;
        };
    }
    void open() { gate.release(1000); }

    void check() { dialog->check(folder.path()); }
    void checkToTheEnd()
    {
        check();
        QTRY_VERIFY(!dialog->isChecking());
    }
    template <typename Control> Control& control(const char* name) const
    {
        return *dialog->findChild<Control*>(QLatin1StringView(name));
    }
    QPushButton& button(const char* name) const { return control<QPushButton>(name); }
    QTableView& table() const { return control<QTableView>("table"); }
    QString summary() const { return control<QLabel>("summary").accessibleName(); }
    QString notice() const { return control<QLabel>("notice").accessibleName(); }
    QStringList lines() const
    {
        QStringList cells;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            cells << table().model()->index(row, 0).data().toString();
        return cells;
    }
    QFileDialog* savePanel() const { return dialog->findChild<QFileDialog*>(); }
    void save(const QString& path) const
    {
        button("saveBtn").click();
        Q_EMIT savePanel()->fileSelected(path);
    }

    TestHome home;
    ScopedHost host;
    InterchangeFolder folder {home};
    QSemaphore reached;
    QSemaphore gate;
    std::unique_ptr<DBCCheckDialog> dialog;
};

QString clipboard()
{
    return QGuiApplication::clipboard()->text();
}

} // namespace

class tst_checkDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }

    void everyProblemIsListed();
    void folderIsNotTouched();
    void cleanFolderIsCalledClean();
    void folderThatCannotBeLookedAtIsTold();
    void progressIsShown();
    void stoppedCheckShowsWhatItFound();
    void dialogCanBeClosedMeanwhile();
    void newCheckReplacesTheOldOne();
    void checkAgainSeesWhatWasMended();
    void wholeProblemIsShownBelow();
    void listIsSortedByAClick();
    void selectionIsCopied();
    void everythingIsCopied();
    void listIsSaved();
    void nameIsProposed();
    void listThatCannotBeSavedIsTold();
    void fullDiskLeavesTheOldFile();
    void nothingIsToBeCopiedOrSavedOfACleanFolder();
    void escapeCloses();
    void textsAreInTheLanguage_data();
    void textsAreInTheLanguage();
    void manyProblemsComeInTime();
};

void tst_checkDialog::everyProblemIsListed()
{
    Desk desk;
    desk.hasCards(11);
    desk.folder.withoutVersion();
    desk.checkToTheEnd();
    QStringList expected {QStringLiteral("–")};
    for (int line = 2; line <= 12; ++line)
        expected << QString::number(line);
    QCOMPARE(desk.lines(), expected);
    QVERIFY(desk.table().isVisible());
    QCOMPARE(desk.summary().section(u'\n', 0, 0),
        QStringLiteral("Problems found in [%1]: 12.").arg(desk.folder.path()));
    QVERIFY(desk.summary().contains(QStringLiteral("Cards in the data file: 11.")));
}

void tst_checkDialog::folderIsNotTouched()
{
    Desk desk;
    desk.hasCards(3);
    const QStringList before = snapshotOf(desk.folder.path());
    desk.checkToTheEnd();
    QCOMPARE(snapshotOf(desk.folder.path()), before);
    QCOMPARE(desk.home.logText(), QString());
}

void tst_checkDialog::cleanFolderIsCalledClean()
{
    Desk desk;
    desk.hasOneGoodCard();
    desk.checkToTheEnd();
    QVERIFY(desk.control<QLabel>("noProblems").isVisible());
    QCOMPARE(desk.control<QLabel>("noProblems").text(), QStringLiteral("No problems were found."));
    QVERIFY(!desk.table().isVisible());
    QVERIFY(desk.summary().startsWith(QStringLiteral("No problems were found in [")));
}

void tst_checkDialog::folderThatCannotBeLookedAtIsTold()
{
    const Desk desk;
    desk.dialog->check(desk.home.path(QStringLiteral("nowhere")));
    QTRY_VERIFY(!desk.dialog->isChecking());
    QVERIFY2(desk.summary().contains(QStringLiteral("nowhere")), qPrintable(desk.summary()));
    QVERIFY(!desk.table().isVisible());
    QVERIFY(!desk.control<QLabel>("noProblems").isVisible());
}

void tst_checkDialog::progressIsShown()
{
    Desk desk;
    desk.hasCards(200);
    desk.closeGateAt(QStringLiteral("100.jpg"));
    desk.check();
    desk.reached.acquire();
    QVERIFY(desk.control<QProgressBar>("bar").isVisible());
    QTRY_COMPARE(desk.control<QProgressBar>("bar").maximum(), 202);
    QVERIFY(desk.control<QProgressBar>("bar").value() > 0);
    QVERIFY(desk.control<QLabel>("lines").text().endsWith(QStringLiteral(" of 202")));
    desk.open();
    QTRY_VERIFY(!desk.dialog->isChecking());
}

void tst_checkDialog::stoppedCheckShowsWhatItFound()
{
    Desk desk;
    desk.hasCards(20);
    desk.closeGateAt(QStringLiteral("5.jpg"));
    desk.check();
    desk.reached.acquire();
    QCOMPARE(desk.button("againBtn").text(), QStringLiteral("S&top"));
    desk.button("againBtn").click();
    QVERIFY(!desk.button("againBtn").isEnabled());
    desk.open();
    QTRY_VERIFY(!desk.dialog->isChecking());
    QCOMPARE(desk.lines().size(), 5);
    QVERIFY(desk.summary().startsWith(QStringLiteral("The check was stopped")));
    QVERIFY(desk.button("againBtn").isEnabled());
    QCOMPARE(desk.button("againBtn").text(), QStringLiteral("Check A&gain"));
}

void tst_checkDialog::dialogCanBeClosedMeanwhile()
{
    Desk desk;
    desk.hasCards(20);
    desk.closeGateAt(QStringLiteral("5.jpg"));
    desk.check();
    desk.reached.acquire();
    desk.dialog->reject();
    QVERIFY(!desk.dialog->isVisible());
    QVERIFY(!desk.dialog->isChecking());
    desk.open();
    desk.dialog.reset(); // waits for the check, which has been given up
    QCOMPARE(desk.reached.available(), 0);
}

void tst_checkDialog::newCheckReplacesTheOldOne()
{
    Desk desk;
    desk.hasCards(20);
    desk.closeGateAt(QStringLiteral("5.jpg"));
    desk.check();
    desk.reached.acquire();
    const QString other = desk.home.path(QStringLiteral("nowhere"));
    desk.dialog->check(other);
    desk.open();
    QTRY_VERIFY(!desk.dialog->isChecking());
    QTest::qWait(50); // for what the first check still has to say
    QCOMPARE(desk.lines(), QStringList());
    QVERIFY(desk.summary().contains(other));
}

void tst_checkDialog::checkAgainSeesWhatWasMended()
{
    Desk desk;
    desk.hasCards(2);
    desk.checkToTheEnd();
    QCOMPARE(desk.lines().size(), 2);
    desk.hasOneGoodCard();
    desk.button("againBtn").click();
    QTRY_VERIFY(!desk.dialog->isChecking());
    QCOMPARE(desk.lines().size(), 0);
    QVERIFY(desk.control<QLabel>("noProblems").isVisible());
}

void tst_checkDialog::wholeProblemIsShownBelow()
{
    Desk desk;
    desk.hasCards(2);
    desk.checkToTheEnd();
    const auto& below = desk.control<QPlainTextEdit>("selectedProblem");
    QVERIFY(below.toPlainText().contains(desk.folder.imagePath(QStringLiteral("1.jpg"))));
    QTest::keyClick(&desk.table(), Qt::Key_Down);
    QVERIFY(below.toPlainText().contains(desk.folder.imagePath(QStringLiteral("2.jpg"))));
}

void tst_checkDialog::listIsSortedByAClick()
{
    Desk desk;
    desk.hasCards(10);
    desk.checkToTheEnd();
    QHeaderView& header = *desk.table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
        QPoint(header.sectionPosition(0) + header.sectionSize(0) / 2, header.height() / 2));
    QCOMPARE(desk.lines().constFirst(), QStringLiteral("11"));
    QCOMPARE(desk.lines().constLast(), QStringLiteral("2"));
}

void tst_checkDialog::selectionIsCopied()
{
    Desk desk;
    desk.hasCards(12);
    desk.checkToTheEnd();
    desk.table().setSelectionMode(QAbstractItemView::ExtendedSelection);
    desk.table().selectRow(9);
    QTest::keyClick(&desk.table(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&desk.table(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = clipboard().split(u'\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(0).startsWith(QStringLiteral("10\t")), qPrintable(clipboard()));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("11\t")), qPrintable(clipboard()));
    QCOMPARE(lines.at(0).count(u'\t'), 2);
    QVERIFY(lines.at(0).contains(desk.folder.imagePath(QStringLiteral("9.jpg"))));
    QCOMPARE(desk.notice(), QStringLiteral("Problems copied: 2"));
}

void tst_checkDialog::everythingIsCopied()
{
    Desk desk;
    desk.hasCards(12);
    desk.checkToTheEnd();
    desk.table().sortByColumn(0, Qt::DescendingOrder);
    desk.button("copyAllBtn").click();
    const QStringList lines = clipboard().split(u'\n');
    QCOMPARE(lines.size(), 14);
    QCOMPARE(lines.at(0), QStringLiteral("Line\tFile\tProblem"));
    QVERIFY(lines.at(1).startsWith(QStringLiteral("13\t")));
    QCOMPARE(desk.notice(), QStringLiteral("Problems copied: 12"));
}

void tst_checkDialog::listIsSaved()
{
    Desk desk;
    desk.hasCards(2);
    desk.checkToTheEnd();
    desk.save(desk.home.path(QStringLiteral("list.tsv")));
    const QByteArray bytes = desk.home.readFile(QStringLiteral("list.tsv"));
    QVERIFY(bytes.startsWith("\xEF\xBB\xBF"
                             "Line\tFile\tProblem\n2\t"));
    desk.button("copyAllBtn").click();
    QCOMPARE(QString::fromUtf8(bytes).remove(QChar(0xFEFF)), clipboard());
    QVERIFY(bytes.contains(QStringLiteral("星野 太郎").toUtf8()));
}

void tst_checkDialog::nameIsProposed()
{
    Desk desk;
    desk.hasCards(1);
    desk.checkToTheEnd();
    QTest::keyClick(&desk.table(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(desk.savePanel());
    QCOMPARE(desk.savePanel()->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(desk.savePanel()->selectedFiles(),
        QStringList({desk.home.path(QStringLiteral("home/Problems of Interchange.tsv"))}));
    desk.savePanel()->reject();
    QTRY_VERIFY(!desk.savePanel());
}

void tst_checkDialog::listThatCannotBeSavedIsTold()
{
    Desk desk;
    desk.hasCards(1);
    desk.checkToTheEnd();
    const QString path = desk.home.path(QStringLiteral("gone/list.tsv"));
    desk.save(path);
    QVERIFY2(
        desk.notice().startsWith(QStringLiteral("The list could not be saved as [%1]").arg(path)),
        qPrintable(desk.notice()));
}

void tst_checkDialog::fullDiskLeavesTheOldFile()
{
    Desk desk;
    desk.hasCards(3);
    desk.checkToTheEnd();
    const QString path = desk.home.writeFile(QStringLiteral("list.tsv"), "old");
    {
        const FileSizeLimit fullDisk(10);
        desk.save(path);
    }
    QVERIFY(desk.notice().startsWith(QStringLiteral("The list could not be saved")));
    QCOMPARE(desk.home.readFile(QStringLiteral("list.tsv")), QByteArray("old"));
}

void tst_checkDialog::nothingIsToBeCopiedOrSavedOfACleanFolder()
{
    Desk desk;
    desk.hasOneGoodCard();
    desk.checkToTheEnd();
    QVERIFY(!desk.button("copyAllBtn").isEnabled());
    QVERIFY(!desk.button("saveBtn").isEnabled());
}

void tst_checkDialog::escapeCloses()
{
    Desk desk;
    desk.hasCards(1);
    desk.checkToTheEnd();
    QTest::keyClick(&desk.table(), Qt::Key_Escape);
    QVERIFY(!desk.dialog->isVisible());
}

void tst_checkDialog::textsAreInTheLanguage_data()
{
    QTest::addColumn<bool>("isJapanese");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << false << QStringLiteral("Check of the Interchange Folder");
    QTest::newRow("Japanese") << true << QStringLiteral("データフォルダのチェック");
}

void tst_checkDialog::textsAreInTheLanguage()
{
    QFETCH(bool, isJapanese);
    Desk desk(isJapanese ? Language::Japanese : Language::English);
    desk.hasCards(20);
    desk.closeGateAt(QStringLiteral("5.jpg"));
    desk.check();
    desk.reached.acquire();
    QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
    desk.open();
    QTRY_VERIFY(!desk.dialog->isChecking());
    QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
    QTEST(desk.dialog->windowTitle(), "title");
    desk.hasOneGoodCard();
    desk.checkToTheEnd();
    QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
}

void tst_checkDialog::manyProblemsComeInTime()
{
    const Desk desk;
    DBCFolderReport report;
    for (qint64 line = 2; line <= 50'000; ++line)
        report.findings.problems.push_back({QStringLiteral("Line %1: wrong").arg(line),
            desk.folder.path() + QStringLiteral("/1.jpg"), line});
    QElapsedTimer time;
    time.start();
    desk.dialog->show();
    desk.dialog->showReport(desk.folder.path(), report);
    QTest::qWait(0);
    desk.table().sortByColumn(1, Qt::DescendingOrder);
    desk.table().sortByColumn(0, Qt::DescendingOrder);
    QCOMPARE(desk.table().model()->index(0, 0).data().toString(), QStringLiteral("50,000"));
    QVERIFY2(time.elapsed() < 10000, qPrintable(QString::number(time.elapsed())));
}

QTEST_MAIN(tst_checkDialog)
#include "tst_checkDialog.moc"

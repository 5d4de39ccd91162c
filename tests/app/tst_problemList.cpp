// SPDX-License-Identifier: GPL-3.0-or-later
// What can be done with the problems that a check has found.
#include "tests/app/CheckDesk.h"
#include "tests/support/FileSizeLimit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>

namespace {

QString clipboard()
{
    return QGuiApplication::clipboard()->text();
}

} // namespace

class tst_problemList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }

    void wholeProblemIsShownBelow();
    void listIsSortedByAClick();
    void selectionIsCopied();
    void everythingIsCopied();
    void listIsSaved();
    void nameIsProposed();
    void listThatCannotBeSavedIsTold();
    void fullDiskLeavesTheOldFile();
    void nothingIsToBeCopiedOrSavedOfACleanFolder();
};

void tst_problemList::wholeProblemIsShownBelow()
{
    CheckDesk desk;
    desk.hasCards(2);
    desk.checkToTheEnd();
    const auto& below = desk.control<QPlainTextEdit>("selectedProblem");
    QVERIFY(below.toPlainText().contains(desk.folder.imagePath(QStringLiteral("1.jpg"))));
    QTest::keyClick(&desk.table(), Qt::Key_Down);
    QVERIFY(below.toPlainText().contains(desk.folder.imagePath(QStringLiteral("2.jpg"))));
}

void tst_problemList::listIsSortedByAClick()
{
    CheckDesk desk;
    desk.hasCards(10);
    desk.checkToTheEnd();
    QHeaderView& header = *desk.table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
        QPoint(header.sectionPosition(0) + header.sectionSize(0) / 2, header.height() / 2));
    QCOMPARE(desk.lines().constFirst(), QStringLiteral("11"));
    QCOMPARE(desk.lines().constLast(), QStringLiteral("2"));
}

void tst_problemList::selectionIsCopied()
{
    CheckDesk desk;
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

void tst_problemList::everythingIsCopied()
{
    CheckDesk desk;
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

void tst_problemList::listIsSaved()
{
    CheckDesk desk;
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

void tst_problemList::nameIsProposed()
{
    CheckDesk desk;
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

void tst_problemList::listThatCannotBeSavedIsTold()
{
    CheckDesk desk;
    desk.hasCards(1);
    desk.checkToTheEnd();
    const QString path = desk.home.path(QStringLiteral("gone/list.tsv"));
    desk.save(path);
    QVERIFY2(
        desk.notice().startsWith(QStringLiteral("The list could not be saved as [%1]").arg(path)),
        qPrintable(desk.notice()));
}

void tst_problemList::fullDiskLeavesTheOldFile()
{
    CheckDesk desk;
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

void tst_problemList::nothingIsToBeCopiedOrSavedOfACleanFolder()
{
    CheckDesk desk;
    desk.hasOneGoodCard();
    desk.checkToTheEnd();
    QVERIFY(!desk.button("copyAllBtn").isEnabled());
    QVERIFY(!desk.button("saveBtn").isEnabled());
}

QTEST_MAIN(tst_problemList)
#include "tst_problemList.moc"

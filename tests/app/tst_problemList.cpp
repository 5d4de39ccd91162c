// SPDX-License-Identifier: GPL-3.0-or-later
// Tests what the user can do with the problems that a check has found.
#include "tests/app/CheckDesk.h"
#include "tests/support/FileSizeLimit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

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

    void wholeProblemIsShownBelow()
    {
        CheckDesk desk;
        desk.hasCards(2);
        desk.checkToTheEnd();
        const auto& below = desk.control<QPlainTextEdit>("selectedProblem");
        QVERIFY(below.toPlainText().contains(desk.folder.imagePath(u"1.jpg"_s)));
        QTest::keyClick(&desk.table(), Qt::Key_Down);
        QVERIFY(below.toPlainText().contains(desk.folder.imagePath(u"2.jpg"_s)));
    }

    void listIsSortedByAClick()
    {
        CheckDesk desk;
        desk.hasCards(10);
        desk.checkToTheEnd();
        QHeaderView& header = *desk.table().horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
            QPoint(header.sectionPosition(0) + header.sectionSize(0) / 2, header.height() / 2));
        QCOMPARE(desk.lines().constFirst(), u"11"_s);
        QCOMPARE(desk.lines().constLast(), u"2"_s);
    }

    void selectionIsCopied()
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
        QVERIFY2(lines.at(0).startsWith(u"10\t"_s), qPrintable(clipboard()));
        QVERIFY2(lines.at(1).startsWith(u"11\t"_s), qPrintable(clipboard()));
        QCOMPARE(lines.at(0).count(u'\t'), 2);
        QVERIFY(lines.at(0).contains(desk.folder.imagePath(u"9.jpg"_s)));
        QCOMPARE(desk.notice(), u"Problems copied: 2"_s);
    }

    void everythingIsCopied()
    {
        CheckDesk desk;
        desk.hasCards(12);
        desk.checkToTheEnd();
        desk.table().sortByColumn(0, Qt::DescendingOrder);
        desk.button("copyAllBtn").click();
        const QStringList lines = clipboard().split(u'\n');
        QCOMPARE(lines.size(), 14);
        QCOMPARE(lines.at(0), u"Line\tFile\tProblem"_s);
        QVERIFY(lines.at(1).startsWith(u"13\t"_s));
        QCOMPARE(desk.notice(), u"Problems copied: 12"_s);
    }

    void listIsSaved()
    {
        CheckDesk desk;
        desk.hasCards(2);
        desk.checkToTheEnd();
        desk.save(desk.home.path(u"list.tsv"_s));
        const QByteArray bytes = desk.home.readFile(u"list.tsv"_s);
        QVERIFY(bytes.startsWith("\xEF\xBB\xBF"
                                 "Line\tFile\tProblem\n2\t"));
        desk.button("copyAllBtn").click();
        QCOMPARE(QString::fromUtf8(bytes).remove(QChar(0xFEFF)), clipboard());
        QVERIFY(bytes.contains(u"星野 太郎"_s.toUtf8()));
    }

    void nameIsProposed()
    {
        CheckDesk desk;
        desk.hasCards(1);
        desk.checkToTheEnd();
        QTest::keyClick(&desk.table(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(desk.savePanel());
        QCOMPARE(desk.savePanel()->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(desk.savePanel()->selectedFiles(),
            QStringList({desk.home.path(u"home/Problems of Interchange.tsv"_s)}));
        desk.savePanel()->reject();
        QTRY_VERIFY(!desk.savePanel());
    }

    void listThatCannotBeSavedIsTold()
    {
        CheckDesk desk;
        desk.hasCards(1);
        desk.checkToTheEnd();
        const QString path = desk.home.path(u"gone/list.tsv"_s);
        desk.save(path);
        QVERIFY2(desk.notice().startsWith(u"The list could not be saved as [%1]"_s.arg(path)),
            qPrintable(desk.notice()));
    }

    void fullDiskLeavesTheOldFile()
    {
        CheckDesk desk;
        desk.hasCards(3);
        desk.checkToTheEnd();
        const QString path = desk.home.writeFile(u"list.tsv"_s, "old");
        {
            const FileSizeLimit fullDisk(10);
            desk.save(path);
        }
        QVERIFY(desk.notice().startsWith(u"The list could not be saved"_s));
        QCOMPARE(desk.home.readFile(u"list.tsv"_s), QByteArray("old"));
    }

    void nothingIsToBeCopiedOrSavedOfACleanFolder()
    {
        CheckDesk desk;
        desk.hasOneGoodCard();
        desk.checkToTheEnd();
        QVERIFY(!desk.button("copyAllBtn").isEnabled());
        QVERIFY(!desk.button("saveBtn").isEnabled());
    }
};

QTEST_MAIN(tst_problemList)
#include "tst_problemList.moc"

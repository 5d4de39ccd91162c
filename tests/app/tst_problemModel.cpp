// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCProblemModel.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QTest>

namespace {

using Language = DBCLocalizable::Language;

const QString folder = QStringLiteral("/cards/名刺データ");

DBCProblem problem(const QString& text, const QString& name, std::optional<qint64> lineNo = {})
{
    return {text, folder + u'/' + name, lineNo};
}

// The problems of a folder as a table shows them.
struct Table {
    explicit Table(std::vector<DBCProblem> problems, Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        model.setProblems(folder, std::move(problems));
        sorted.setSourceModel(&model);
        sorted.setSortRole(DBCProblemModel::sortRole);
    }
    QString cell(int row, DBCProblemModel::Column column) const
    {
        return sorted.index(row, column).data().toString();
    }
    QStringList column(DBCProblemModel::Column column) const
    {
        QStringList cells;
        for (int row = 0; row < sorted.rowCount(); ++row)
            cells << cell(row, column);
        return cells;
    }

    DBCProblemModel model;
    QSortFilterProxyModel sorted;
};

} // namespace

class tst_problemModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void modelKeepsToTheRules()
    {
        DBCProblemModel model;
        const QAbstractItemModelTester tester(&model);
        model.setProblems(folder, {problem(QStringLiteral("wrong"), QStringLiteral("a.jpg"), 2)});
        model.setProblems(folder, {});
        QCOMPARE(model.rowCount(), 0);
    }

    void linesAreSortedAsNumbers()
    {
        Table table({problem(QStringLiteral("a"), {}, 10), problem(QStringLiteral("b"), {}, 9),
            problem(QStringLiteral("c"), {}), problem(QStringLiteral("d"), {}, 1021)});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(table.column(DBCProblemModel::Line),
            QStringList({QStringLiteral("–"), QStringLiteral("9"), QStringLiteral("10"),
                QStringLiteral("1,021")}));
        table.sorted.sort(DBCProblemModel::Line, Qt::DescendingOrder);
        QCOMPARE(table.cell(0, DBCProblemModel::Line), QStringLiteral("1,021"));
    }

    void problemsOfALineStayInTheirOrder()
    {
        Table table({problem(QStringLiteral("second"), {}, 3), problem(QStringLiteral("b"), {}, 2),
            problem(QStringLiteral("a"), {}, 2)});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(table.column(DBCProblemModel::Problem),
            QStringList({QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("second")}));
    }

    void filesAreNamedWithinTheFolder()
    {
        const Table table({problem(QStringLiteral("a"), QStringLiteral("標準/1.jpg")),
            {QStringLiteral("b"), folder}, {QStringLiteral("c"), QStringLiteral("/other/1.jpg")}});
        QCOMPARE(table.column(DBCProblemModel::File),
            QStringList({QStringLiteral("標準/1.jpg"), QStringLiteral("名刺データ"),
                QStringLiteral("../../other/1.jpg")}));
    }

    void shownTextIsShortOfTheFolder()
    {
        const QString whole = QStringLiteral("[/cards/名刺データ/標準/1.jpg] is missing");
        const Table table({problem(whole, QStringLiteral("標準/1.jpg"))});
        const QModelIndex index = table.sorted.index(0, DBCProblemModel::Problem);
        QCOMPARE(index.data().toString(), QStringLiteral("[標準/1.jpg] is missing"));
        QCOMPARE(index.data(DBCProblemModel::wholeRole).toString(), whole);
    }

    void controlCharactersAreShownAsText()
    {
        const Table table(
            {problem(QStringLiteral("two\nlines\u202E"), QStringLiteral("a\nb\tc.jpg"))});
        QVERIFY(!table.cell(0, DBCProblemModel::Problem).contains(u'\n'));
        QVERIFY(!table.cell(0, DBCProblemModel::Problem).contains(QChar(0x202E)));
        QCOMPARE(table.cell(0, DBCProblemModel::File), QStringLiteral("a\\u000Ab\\u0009c.jpg"));
    }

    void headingsAreInTheLanguage_data()
    {
        QTest::addColumn<bool>("isJapanese");
        QTest::addColumn<QString>("headings");
        QTest::newRow("English") << false << QStringLiteral("Line\tFile\tProblem\n");
        QTest::newRow("Japanese") << true << QStringLiteral("行\tファイル\t問題\n");
    }
    void headingsAreInTheLanguage()
    {
        QFETCH(bool, isJapanese);
        const Table table({}, isJapanese ? Language::Japanese : Language::English);
        QTEST(DBCProblemModel::tabSeparated(table.sorted), "headings");
    }

    void rowsAreTabSeparatedInTheOrderOfTheTable()
    {
        Table table({problem(QStringLiteral("x\ty"), QStringLiteral("a.jpg"), 1021),
            problem(QStringLiteral("z"), QStringLiteral("b.jpg"))});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(
            DBCProblemModel::tabSeparated(table.sorted, {1}), QStringLiteral("1021\ta.jpg\tx y\n"));
        QCOMPARE(DBCProblemModel::tabSeparated(table.sorted),
            QStringLiteral("Line\tFile\tProblem\n\tb.jpg\tz\n1021\ta.jpg\tx y\n"));
    }
};

QTEST_MAIN(tst_problemModel)
#include "tst_problemModel.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCProblemModel.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Language = DBCLocalizable::Language;

const QString folder = u"/cards/名刺データ"_s;

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
        model.setProblems(folder, {problem(u"wrong"_s, u"a.jpg"_s, 2)});
        model.setProblems(folder, {});
        QCOMPARE(model.rowCount(), 0);
    }

    void linesAreSortedAsNumbers()
    {
        Table table({problem(u"a"_s, {}, 10), problem(u"b"_s, {}, 9), problem(u"c"_s, {}),
            problem(u"d"_s, {}, 1021)});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(table.column(DBCProblemModel::Line),
            QStringList({u"–"_s, u"9"_s, u"10"_s, u"1,021"_s}));
        table.sorted.sort(DBCProblemModel::Line, Qt::DescendingOrder);
        QCOMPARE(table.cell(0, DBCProblemModel::Line), u"1,021"_s);
    }

    void problemsOfALineStayInTheirOrder()
    {
        Table table({problem(u"second"_s, {}, 3), problem(u"b"_s, {}, 2), problem(u"a"_s, {}, 2)});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(
            table.column(DBCProblemModel::Problem), QStringList({u"b"_s, u"a"_s, u"second"_s}));
    }

    void filesAreNamedWithinTheFolder()
    {
        const Table table(
            {problem(u"a"_s, u"標準/1.jpg"_s), {u"b"_s, folder}, {u"c"_s, u"/other/1.jpg"_s}});
        QCOMPARE(table.column(DBCProblemModel::File),
            QStringList({u"標準/1.jpg"_s, u"名刺データ"_s, u"../../other/1.jpg"_s}));
    }

    void shownTextIsShortOfTheFolder()
    {
        const QString whole = u"[/cards/名刺データ/標準/1.jpg] is missing"_s;
        const Table table({problem(whole, u"標準/1.jpg"_s)});
        const QModelIndex index = table.sorted.index(0, DBCProblemModel::Problem);
        QCOMPARE(index.data().toString(), u"[標準/1.jpg] is missing"_s);
        QCOMPARE(index.data(DBCProblemModel::wholeRole).toString(), whole);
    }

    void controlCharactersAreShownAsText()
    {
        const Table table({problem(u"two\nlines\u202E"_s, u"a\nb\tc.jpg"_s)});
        QVERIFY(!table.cell(0, DBCProblemModel::Problem).contains(u'\n'));
        QVERIFY(!table.cell(0, DBCProblemModel::Problem).contains(QChar(0x202E)));
        QCOMPARE(table.cell(0, DBCProblemModel::File), u"a\\u000Ab\\u0009c.jpg"_s);
    }

    void headingsAreInTheLanguage_data()
    {
        QTest::addColumn<bool>("isJapanese");
        QTest::addColumn<QString>("headings");
        QTest::newRow("English") << false << u"Line\tFile\tProblem\n"_s;
        QTest::newRow("Japanese") << true << u"行\tファイル\t問題\n"_s;
    }
    void headingsAreInTheLanguage()
    {
        QFETCH(bool, isJapanese);
        const Table table({}, isJapanese ? Language::Japanese : Language::English);
        QTEST(DBCProblemModel::tabSeparated(table.sorted), "headings");
    }

    void rowsAreTabSeparatedInTheOrderOfTheTable()
    {
        Table table({problem(u"x\ty"_s, u"a.jpg"_s, 1021), problem(u"z"_s, u"b.jpg"_s)});
        table.sorted.sort(DBCProblemModel::Line);
        QCOMPARE(DBCProblemModel::tabSeparated(table.sorted, {1}), u"1021\ta.jpg\tx y\n"_s);
        QCOMPARE(DBCProblemModel::tabSeparated(table.sorted),
            u"Line\tFile\tProblem\n\tb.jpg\tz\n1021\ta.jpg\tx y\n"_s);
    }
};

QTEST_MAIN(tst_problemModel)
#include "tst_problemModel.moc"

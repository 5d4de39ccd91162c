// SPDX-License-Identifier: GPL-3.0-or-later
// What stands below a path field while it is typed, and how a typed path is understood.
#include "app/DBCPathHint.h"
#include "app/desktop/DBCPaths.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QTest>

using Subject = DBCPathHint::Subject;

class tst_pathHint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }

    void goodPathsHaveNoProblem();
    void emptyFieldHasNoProblem();
    void missingPathIsTold();
    void fileInPlaceOfAFolderIsTold();
    void folderWithoutDataFileIsToldByItsName();
    void folderThatIsNoDatabaseIsTold();
    void hintFollowsTheTyping();
    void hintIsDescribedToAScreenReader();
    void attentionCanBeReadOnLightAndDark_data();
    void attentionCanBeReadOnLightAndDark();
    void blanksStayWhenTheyBelongToTheName();

private:
    static QString problem(Subject subject, const QString& path)
    {
        return DBCPathHint::problem(subject, path).value_or(QString());
    }

    std::unique_ptr<TestHome> _home;
};

void tst_pathHint::goodPathsHaveNoProblem()
{
    _home->writeFile(QStringLiteral("in/") + DBCInterchangeNames::dataFileName(), "d");
    _home->writeFile(QStringLiteral("cards.vmdb/Velmora.sqldb"), "s");
    QCOMPARE(problem(Subject::InterchangeFolder, _home->path(QStringLiteral("in"))), QString());
    QCOMPARE(problem(Subject::ExportParent, _home->path()), QString());
    QCOMPARE(problem(Subject::CardDatabase, _home->path(QStringLiteral("cards.vmdb"))), QString());
    QCOMPARE(problem(Subject::ExportParent, QStringLiteral("~")), QString());
}

void tst_pathHint::emptyFieldHasNoProblem()
{
    QCOMPARE(problem(Subject::InterchangeFolder, QString()), QString());
}

void tst_pathHint::missingPathIsTold()
{
    QVERIFY(problem(Subject::ExportParent, QStringLiteral("/nowhere"))
                .startsWith(QStringLiteral("There is nothing at this path.")));
}

void tst_pathHint::fileInPlaceOfAFolderIsTold()
{
    QVERIFY(problem(Subject::CardDatabase, _home->writeFile(QStringLiteral("f"), "x"))
                .startsWith(QStringLiteral("This is a file.")));
}

void tst_pathHint::folderWithoutDataFileIsToldByItsName()
{
    QVERIFY(problem(Subject::InterchangeFolder, _home->path())
                .contains(QStringLiteral("[名刺データ.txt]")));
}

void tst_pathHint::folderThatIsNoDatabaseIsTold()
{
    QVERIFY(problem(Subject::CardDatabase, _home->path())
                .startsWith(QStringLiteral("This folder is no card database.")));
}

void tst_pathHint::hintFollowsTheTyping()
{
    QLineEdit field;
    DBCMessageArea label;
    DBCPathHint hint(field, label);
    hint.setSubject(Subject::ExportParent);
    field.setText(QStringLiteral("/nowhere"));
    QTRY_VERIFY(!label.text().isEmpty());
    field.setText(_home->path());
    QTRY_VERIFY(label.text().isEmpty());
}

void tst_pathHint::hintIsDescribedToAScreenReader()
{
    QLineEdit field;
    DBCMessageArea label;
    DBCPathHint hint(field, label);
    field.setText(QStringLiteral("/nowhere"));
    QTRY_VERIFY(field.accessibleDescription().startsWith(QStringLiteral("There is nothing")));
    QCOMPARE(label.accessibleName(), field.accessibleDescription());
}

// Contrast as the Web Content Accessibility Guidelines 2.1 define it.
double luminance(const QColor& color)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

void tst_pathHint::attentionCanBeReadOnLightAndDark_data()
{
    QTest::addColumn<QColor>("window");
    QTest::newRow("white") << QColor(Qt::white);
    QTest::newRow("light gray") << QColor(0xef, 0xef, 0xef);
    QTest::newRow("dark gray") << QColor(0x2b, 0x2b, 0x2e);
    QTest::newRow("black") << QColor(Qt::black);
}

void tst_pathHint::attentionCanBeReadOnLightAndDark()
{
    QFETCH(QColor, window);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    const double attention = luminance(DBCMessageArea::attentionColor(palette));
    const double background = luminance(window);
    const double contrast
        = (std::max(attention, background) + 0.05) / (std::min(attention, background) + 0.05);
    QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
}

void tst_pathHint::blanksStayWhenTheyBelongToTheName()
{
    const QString spaced = _home->makeFolder(QStringLiteral("a "));
    QCOMPARE(DBCPaths::usable(spaced), spaced);
    _home->makeFolder(QStringLiteral("a"));
    QCOMPARE(DBCPaths::usable(spaced), spaced);
    QCOMPARE(DBCPaths::usable(spaced + u' '), _home->path(QStringLiteral("a")));
}

QTEST_MAIN(tst_pathHint)
#include "tst_pathHint.moc"

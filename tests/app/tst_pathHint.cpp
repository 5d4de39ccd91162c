// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the hint below a path field while the user types, and the path that the program uses for a
// typed text.
#include "app/DBCPathHint.h"
#include "app/desktop/DBCPaths.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

using Subject = DBCPathHint::Subject;

// Contrast as the Web Content Accessibility Guidelines 2.1 define it.
double luminance(const QColor& color)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

class tst_pathHint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }

    void goodPathsHaveNoProblem()
    {
        _home->writeFile(u"in/"_s + DBCInterchangeNames::dataFileName(), "d");
        _home->writeFile(u"cards.vmdb/Velmora.sqldb"_s, "s");
        QCOMPARE(problem(Subject::InterchangeFolder, _home->path(u"in"_s)), QString());
        QCOMPARE(problem(Subject::ExportParent, _home->path()), QString());
        QCOMPARE(problem(Subject::CardDatabase, _home->path(u"cards.vmdb"_s)), QString());
        QCOMPARE(problem(Subject::ExportParent, u"~"_s), QString());
    }

    void emptyFieldHasNoProblem()
    {
        QCOMPARE(problem(Subject::InterchangeFolder, QString()), QString());
    }

    void missingPathIsTold()
    {
        QVERIFY(problem(Subject::ExportParent, u"/nowhere"_s)
                    .startsWith(u"There is nothing at this path."_s));
    }

    void fileInPlaceOfAFolderIsTold()
    {
        QVERIFY(problem(Subject::CardDatabase, _home->writeFile(u"f"_s, "x"))
                    .startsWith(u"This is a file."_s));
    }

    void folderWithoutDataFileIsToldByItsName()
    {
        QVERIFY(problem(Subject::InterchangeFolder, _home->path()).contains(u"[名刺データ.txt]"_s));
    }

    void folderThatIsNoDatabaseIsTold()
    {
        QVERIFY(problem(Subject::CardDatabase, _home->path())
                    .startsWith(u"This folder is not a card database."_s));
    }

    void hintFollowsTheTyping()
    {
        QLineEdit field;
        DBCMessageArea label;
        DBCPathHint hint(field, label);
        hint.setSubject(Subject::ExportParent);
        field.setText(u"/nowhere"_s);
        QTRY_VERIFY(!label.text().isEmpty());
        field.setText(_home->path());
        QTRY_VERIFY(label.text().isEmpty());
    }

    void hintIsDescribedToAScreenReader()
    {
        QLineEdit field;
        DBCMessageArea label;
        DBCPathHint hint(field, label);
        field.setText(u"/nowhere"_s);
        QTRY_VERIFY(field.accessibleDescription().startsWith(u"There is nothing"_s));
        QCOMPARE(label.accessibleName(), field.accessibleDescription());
    }

    void attentionCanBeReadOnLightAndDark_data()
    {
        QTest::addColumn<QColor>("window");
        QTest::newRow("white") << QColor(Qt::white);
        QTest::newRow("light gray") << QColor(0xef, 0xef, 0xef);
        QTest::newRow("dark gray") << QColor(0x2b, 0x2b, 0x2e);
        QTest::newRow("black") << QColor(Qt::black);
    }
    void attentionCanBeReadOnLightAndDark()
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

    void blanksStayWhenTheyBelongToTheName()
    {
        const QString spaced = _home->makeFolder(u"a "_s);
        QCOMPARE(DBCPaths::usable(spaced), spaced);
        _home->makeFolder(u"a"_s);
        QCOMPARE(DBCPaths::usable(spaced), spaced);
        QCOMPARE(DBCPaths::usable(spaced + u' '), _home->path(u"a"_s));
    }

private:
    static QString problem(Subject subject, const QString& path)
    {
        return DBCPathHint::problem(subject, path).value_or(QString());
    }

    std::unique_ptr<TestHome> _home;
};

QTEST_MAIN(tst_pathHint)
#include "tst_pathHint.moc"

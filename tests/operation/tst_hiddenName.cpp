// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCHiddenName.h"

#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <climits>

using namespace Qt::StringLiterals;

class tst_hiddenName : public QObject {
    Q_OBJECT

private:
    static QStringList namesFor(const QString& path)
    {
        return {DBCHiddenName::unfinishedCopyOf(path), DBCHiddenName::discarded(path),
            DBCHiddenName::journalOf(path)};
    }

private Q_SLOTS:
    void namesAreHiddenBesideTheFolder()
    {
        QCOMPARE(namesFor(u"/cards/My cards.vmdb"_s),
            QStringList({u"/cards/.My cards.vmdb.velmora-copy"_s,
                u"/cards/.My cards.vmdb.velmora-discarded"_s,
                u"/cards/.My cards.vmdb.velmora-import"_s}));
    }

    void slashAtTheEndChangesNothing()
    {
        const QString path = u"/cards/a.vmdb"_s;
        QCOMPARE(namesFor(path + u'/'), namesFor(path));
        QCOMPARE(namesFor(u"/cards/./a.vmdb//"_s), namesFor(path));
    }

    void folderWithoutAPathIsHere()
    {
        QCOMPARE(DBCHiddenName::discarded(u"a.vmdb"_s), u".a.vmdb.velmora-discarded"_s);
    }

    // A file name may have 255 bytes, and each kanji takes three. Longer names must be shortened.
    void longNameFitsIntoAFolder_data()
    {
        QTest::addColumn<QString>("name");
        for (const int length : {70, 76, 77, 78, 79, 83})
            QTest::addRow("%d kanji", length) << QString(length, QChar(0x540D));
        QTest::newRow("as long as names can be") << QString(255, u'a');
    }
    void longNameFitsIntoAFolder()
    {
        QFETCH(QString, name);
        const QString path = u"/cards/"_s + name;
        const QStringList names = namesFor(path);
        for (const QString& hidden : names) {
            const QFileInfo info(hidden);
            QVERIFY(QFile::encodeName(info.fileName()).size() <= NAME_MAX);
            QVERIFY(info.fileName().startsWith(u'.'));
            QCOMPARE(info.path(), u"/cards"_s);
        }
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 3);
        QCOMPARE(namesFor(path), names);
        QVERIFY(namesFor(path.chopped(1)) != names);
    }
};

QTEST_APPLESS_MAIN(tst_hiddenName)
#include "tst_hiddenName.moc"

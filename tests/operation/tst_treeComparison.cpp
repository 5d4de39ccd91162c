// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCTreeComparison.h"

#include "operation/copy/DBCTreeCopy.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// A folder and its copy.
struct Pair {
    Pair()
    {
        home.writeFile(u"one/store"_s, QByteArray(600'000, 's'));
        home.writeFile(u"one/Files/1/a.txt"_s, "text");
        home.writeFile(u"one/Files/1/.hidden"_s, "h");
        home.makeFolder(u"one/Images"_s);
        QVERIFY(QFile::link(u"store"_s, home.path(u"one/link"_s)));
        QVERIFY(DBCTreeCopy().copy(one, two));
    }

    QByteArray at(const QByteArray& name) const { return two + '/' + name; }
    void write(const char* name, const QByteArray& bytes) const
    {
        home.writeFile(u"two/"_s + QString::fromLatin1(name), bytes);
    }
    // Returns "=" if the folders are equal, or else the path of the first difference.
    QByteArray compared(DBCTreeComparison::Questions questions = {}) const
    {
        DBCTreeComparison comparison(std::move(questions));
        return comparison.areEqual(one, two) ? QByteArray("=") : comparison.difference();
    }

    TestHome home;
    QByteArray one = QFile::encodeName(home.makeFolder(u"one"_s));
    QByteArray two = QFile::encodeName(home.path(u"two"_s));
};

using Change = std::function<void(const Pair&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_treeComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copyIsTheSame() { QCOMPARE(Pair().compared(), QByteArray("=")); }

    void timesAreNoDifference()
    {
        const Pair pair;
        const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
        QCOMPARE(utimensat(AT_FDCWD, pair.at("store").constData(), old, 0), 0);
        QCOMPARE(pair.compared(), QByteArray("="));
    }

    void nameThatIsNoTextIsCompared()
    {
        const Pair pair;
        const QByteArray name("Files/\xFF\xFE");
        for (const QByteArray& folder : {pair.one, pair.two})
            close(open((folder + '/' + name).constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        QCOMPARE(pair.compared(), QByteArray("="));
        QCOMPARE(chmod(pair.at(name).constData(), 0600), 0);
        QCOMPARE(pair.compared(), name);
        for (const QByteArray& folder : {pair.one, pair.two})
            unlink((folder + '/' + name).constData()); // Qt cannot handle this name
    }

    void differenceIsFoundAndNamed_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QByteArray>("difference");
        const auto row = [](const char* name, const char* difference, Change change) {
            QTest::newRow(name) << std::move(change) << QByteArray(difference);
        };
        row("last byte", "store",
            [](const Pair& p) { p.write("store", QByteArray(599'999, 's') + 'x'); });
        row("first byte", "Files/1/a.txt", [](const Pair& p) { p.write("Files/1/a.txt", "Text"); });
        row("size", "Files/1/a.txt", [](const Pair& p) { p.write("Files/1/a.txt", "text "); });
        row("hidden file", "Files/1/.hidden",
            [](const Pair& p) { p.write("Files/1/.hidden", "x"); });
        row("missing file", "Files/1",
            [](const Pair& p) { unlink(p.at("Files/1/a.txt").constData()); });
        row("further file", "Files/1", [](const Pair& p) { p.write("Files/1/b.txt", ""); });
        row("missing folder", "", [](const Pair& p) { rmdir(p.at("Images").constData()); });
        row("other letter case", "", [](const Pair& p) {
            std::rename(p.at("Images").constData(), p.at("images").constData());
        });
        row("permissions of a file", "store",
            [](const Pair& p) { chmod(p.at("store").constData(), 0600); });
        row("permissions of a folder", "Images",
            [](const Pair& p) { chmod(p.at("Images").constData(), 0700); });
        row("permissions of the folder itself", "",
            [](const Pair& p) { chmod(p.two.constData(), 0700); });
        row("link to something else", "link", [](const Pair& p) {
            unlink(p.at("link").constData());
            QVERIFY(symlink("Store", p.at("link").constData()) == 0);
        });
        row("file in place of a link", "link", [](const Pair& p) {
            unlink(p.at("link").constData());
            p.write("link", "store");
        });
        row("folder in place of a file", "Files/1/a.txt", [](const Pair& p) {
            unlink(p.at("Files/1/a.txt").constData());
            mkdir(p.at("Files/1/a.txt").constData(), 0755);
        });
        row("pipes on both sides", "pipe", [](const Pair& p) {
            mkfifo((p.one + "/pipe").constData(), 0644);
            mkfifo(p.at("pipe").constData(), 0644);
        });
    }
    void differenceIsFoundAndNamed()
    {
        QFETCH(Change, change);
        const Pair pair;
        change(pair);
        QTEST(pair.compared(), "difference");
    }

    void folderThatIsMissingOrNoneIsNotTheSame()
    {
        Pair pair;
        pair.two = QFile::encodeName(pair.home.path(u"none"_s));
        QCOMPARE(pair.compared(), QByteArray());
        pair.two = QFile::encodeName(pair.home.writeFile(u"file"_s, "x"));
        QCOMPARE(pair.compared(), QByteArray());
    }

    void whatCannotBeReadIsNotTheSame_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("file") << u"Files/1/a.txt"_s;
        QTest::newRow("folder") << u"Files/1"_s;
    }
    void whatCannotBeReadIsNotTheSame()
    {
        QFETCH(QString, name);
        const AsOrdinaryUser user;
        const Pair pair;
        const ScopedMode mode(pair.home.path(u"one/"_s) + name, 0);
        const ScopedMode modeOfTheCopy(pair.home.path(u"two/"_s) + name, 0);
        QCOMPARE(pair.compared(), QFile::encodeName(name));
    }

    // Only root can give a copy the owner of the original. A copy with another owner has no
    // set-user-ID bit, because that bit would give programs the rights of the wrong user.
    void rightsLostWithTheOwnerAreNoDifference()
    {
        if (geteuid() != 0)
            QSKIP("only root gives files away");
        constexpr uid_t nobody = 65534;
        const Pair pair;
        const QByteArray original = pair.one + "/store";
        QCOMPARE(chown(original.constData(), nobody, nobody), 0);
        QCOMPARE(chmod(original.constData(), 04755), 0);
        QCOMPARE(chmod(pair.at("store").constData(), 0755), 0);
        QCOMPARE(pair.compared(), QByteArray("="));
        QCOMPARE(chown(pair.at("store").constData(), nobody, nobody), 0);
        QCOMPARE(pair.compared(), QByteArray("store"));
    }

    void entriesThatMayDifferNeedOnlyBeThere()
    {
        const Pair pair;
        const DBCTreeComparison::Questions questions {
            .mayGoOn = {},
            .mayDiffer = [](const QByteArray& path) { return path == "Files/1/a.txt"; },
        };
        pair.write("Files/1/a.txt", "something else");
        QCOMPARE(pair.compared(questions), QByteArray("="));
        pair.write("store", "something else");
        QCOMPARE(pair.compared(questions), QByteArray("store"));
    }

    void comparisonEndsWhenItMayNotGoOn()
    {
        const Pair pair;
        int asked = 0;
        QVERIFY(
            pair.compared({.mayGoOn = [&asked] { return ++asked < 3; }, .mayDiffer = {}}) != "=");
        QCOMPARE(asked, 3);
    }
};

QTEST_GUILESS_MAIN(tst_treeComparison)
#include "tst_treeComparison.moc"

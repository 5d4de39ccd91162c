// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCOpenInside.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <cerrno>
#include <fcntl.h>

namespace {

// A folder "in" with files, and a file beside it.
struct Place {
    Place()
    {
        home.writeFile(QStringLiteral("in/a.txt"), "a");
        home.writeFile(QStringLiteral("in/sub/b.txt"), "b");
        home.writeFile(QStringLiteral("secret.txt"), "secret");
    }

    void link(const QString& target, const QString& name) const
    {
        QVERIFY(QFile::link(target, at(name)));
    }
    QString at(const QString& name) const { return folder + u'/' + name; }
    // What can be read at the path; the error's number where nothing can be opened.
    QByteArray opened(const QString& path) const
    {
        const DBCDescriptor file = openInside(folder, path, O_RDONLY);
        if (!file)
            return QByteArray::number(errno);
        char bytes[16];
        const ssize_t length = read(file.get(), bytes, sizeof bytes);
        return length < 0 ? QByteArray("unreadable") : QByteArray(bytes, length);
    }

    TestHome home;
    QString folder = home.makeFolder(QStringLiteral("in"));
};

const QByteArray leadsOut = QByteArray::number(EXDEV);
const QByteArray missing = QByteArray::number(ENOENT);

} // namespace

class tst_openInside : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesInsideAreOpened()
    {
        const Place place;
        QCOMPARE(place.opened(place.at(QStringLiteral("a.txt"))), QByteArray("a"));
        QCOMPARE(place.opened(place.at(QStringLiteral("sub/b.txt"))), QByteArray("b"));
        QCOMPARE(place.opened(place.at(QStringLiteral("sub/../a.txt"))), QByteArray("a"));
        QCOMPARE(place.opened(place.at(QStringLiteral("none"))), missing);
    }

    void linksInsideAreFollowed()
    {
        const Place place;
        place.link(QStringLiteral("a.txt"), QStringLiteral("link"));
        place.link(QStringLiteral("sub"), QStringLiteral("folder"));
        place.link(QStringLiteral("../a.txt"), QStringLiteral("sub/up"));
        QCOMPARE(place.opened(place.at(QStringLiteral("link"))), QByteArray("a"));
        QCOMPARE(place.opened(place.at(QStringLiteral("folder/b.txt"))), QByteArray("b"));
        QCOMPARE(place.opened(place.at(QStringLiteral("sub/up"))), QByteArray("a"));
    }

    void linksThatLeadOutOpenNothing_data()
    {
        QTest::addColumn<QString>("target"); // %1: the folder in which the folder lies
        QTest::addColumn<QString>("name");
        const QString link = QStringLiteral("link");
        QTest::newRow("file beside") << QStringLiteral("../secret.txt") << link;
        QTest::newRow("whole path") << QStringLiteral("%1/secret.txt") << link;
        QTest::newRow("whole path to the inside") << QStringLiteral("%1/in/a.txt") << link;
        QTest::newRow("folder beside") << QStringLiteral("..") << QStringLiteral("link/secret.txt");
        QTest::newRow("out and in again") << QStringLiteral("../in/a.txt") << link;
    }
    void linksThatLeadOutOpenNothing()
    {
        QFETCH(QString, target);
        QFETCH(QString, name);
        const Place place;
        place.link(target.replace(QStringLiteral("%1"), place.home.path()), QStringLiteral("link"));
        QCOMPARE(place.opened(place.at(name)), leadsOut);
    }

    void linkThatLeadsToItselfOpensNothing()
    {
        const Place place;
        place.link(QStringLiteral("loop"), QStringLiteral("loop"));
        QCOMPARE(place.opened(place.at(QStringLiteral("loop"))), QByteArray::number(ELOOP));
    }

    void pathOutsideTheFolderOpensNothing()
    {
        const Place place;
        QCOMPARE(place.opened(place.home.path(QStringLiteral("secret.txt"))), leadsOut);
        QCOMPARE(place.opened(place.folder + QStringLiteral("side/a.txt")), leadsOut);
        QCOMPARE(place.opened(place.at(QStringLiteral("../secret.txt"))), leadsOut);
        QCOMPARE(place.opened(place.folder), leadsOut);
        QCOMPARE(place.opened({}), leadsOut);
    }

    void slashBehindTheFolderChangesNothing()
    {
        Place place;
        const QString path = place.at(QStringLiteral("a.txt"));
        place.folder += u'/';
        QCOMPARE(place.opened(path), QByteArray("a"));
    }

    // A lookup that resolved links gives the folder's real path.
    void folderMayBeALinkItself()
    {
        Place place;
        const QString real = QFileInfo(place.folder).canonicalFilePath();
        QVERIFY(QFile::link(place.folder, place.home.path(QStringLiteral("linked"))));
        place.folder = place.home.path(QStringLiteral("linked"));
        QCOMPARE(place.opened(place.at(QStringLiteral("a.txt"))), QByteArray("a"));
        QCOMPARE(place.opened(real + QStringLiteral("/a.txt")), QByteArray("a"));
        QCOMPARE(place.opened(place.home.path(QStringLiteral("secret.txt"))), leadsOut);
    }

    void missingFolderOpensNothing()
    {
        Place place;
        place.folder = place.home.path(QStringLiteral("none"));
        QCOMPARE(place.opened(place.at(QStringLiteral("a.txt"))), missing);
    }

    void fileThatMayNotBeReadIsNotOpened()
    {
        const AsOrdinaryUser user;
        const Place place;
        const ScopedMode mode(place.at(QStringLiteral("a.txt")), 0);
        QCOMPARE(place.opened(place.at(QStringLiteral("a.txt"))), QByteArray::number(EACCES));
    }

    void otherProgramsDoNotInheritTheFile()
    {
        const Place place;
        const DBCDescriptor file
            = openInside(place.folder, place.at(QStringLiteral("a.txt")), O_RDONLY);
        QCOMPARE(fcntl(file.get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
    }
};

QTEST_GUILESS_MAIN(tst_openInside)
#include "tst_openInside.moc"

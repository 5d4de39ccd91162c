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

using namespace Qt::StringLiterals;

namespace {

// A folder "in" with files in it, and a file beside that folder.
struct Place {
    Place()
    {
        home.writeFile(u"in/a.txt"_s, "a");
        home.writeFile(u"in/sub/b.txt"_s, "b");
        home.writeFile(u"secret.txt"_s, "secret");
    }

    void link(const QString& target, const QString& name) const
    {
        QVERIFY(QFile::link(target, at(name)));
    }
    QString at(const QString& name) const { return folder + u'/' + name; }
    // Returns the bytes of the file at the path, or errno if openInside() cannot open the file.
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
    QString folder = home.makeFolder(u"in"_s);
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
        QCOMPARE(place.opened(place.at(u"a.txt"_s)), QByteArray("a"));
        QCOMPARE(place.opened(place.at(u"sub/b.txt"_s)), QByteArray("b"));
        QCOMPARE(place.opened(place.at(u"sub/../a.txt"_s)), QByteArray("a"));
        QCOMPARE(place.opened(place.at(u"none"_s)), missing);
    }

    void linksInsideAreFollowed()
    {
        const Place place;
        place.link(u"a.txt"_s, u"link"_s);
        place.link(u"sub"_s, u"folder"_s);
        place.link(u"../a.txt"_s, u"sub/up"_s);
        QCOMPARE(place.opened(place.at(u"link"_s)), QByteArray("a"));
        QCOMPARE(place.opened(place.at(u"folder/b.txt"_s)), QByteArray("b"));
        QCOMPARE(place.opened(place.at(u"sub/up"_s)), QByteArray("a"));
    }

    void linksThatLeadOutOpenNothing_data()
    {
        QTest::addColumn<QString>("target"); // %1 is replaced by the parent of the folder "in"
        QTest::addColumn<QString>("name");
        const QString link = u"link"_s;
        QTest::newRow("file beside") << u"../secret.txt"_s << link;
        QTest::newRow("whole path") << u"%1/secret.txt"_s << link;
        QTest::newRow("whole path to the inside") << u"%1/in/a.txt"_s << link;
        QTest::newRow("folder beside") << u".."_s << u"link/secret.txt"_s;
        QTest::newRow("out and in again") << u"../in/a.txt"_s << link;
    }
    void linksThatLeadOutOpenNothing()
    {
        QFETCH(QString, target);
        QFETCH(QString, name);
        const Place place;
        place.link(target.replace(u"%1"_s, place.home.path()), u"link"_s);
        QCOMPARE(place.opened(place.at(name)), leadsOut);
    }

    void linkThatLeadsToItselfOpensNothing()
    {
        const Place place;
        place.link(u"loop"_s, u"loop"_s);
        QCOMPARE(place.opened(place.at(u"loop"_s)), QByteArray::number(ELOOP));
    }

    void pathOutsideTheFolderOpensNothing()
    {
        const Place place;
        QCOMPARE(place.opened(place.home.path(u"secret.txt"_s)), leadsOut);
        QCOMPARE(place.opened(place.folder + u"side/a.txt"_s), leadsOut);
        QCOMPARE(place.opened(place.at(u"../secret.txt"_s)), leadsOut);
        QCOMPARE(place.opened(place.folder), leadsOut);
        QCOMPARE(place.opened({}), leadsOut);
    }

    void slashBehindTheFolderChangesNothing()
    {
        Place place;
        const QString path = place.at(u"a.txt"_s);
        place.folder += u'/';
        QCOMPARE(place.opened(path), QByteArray("a"));
    }

    // DBCNameLookup resolves links, so it returns paths that begin with the folder's real path.
    // openInside() must accept these paths as well as those that begin with the link.
    void folderMayBeALinkItself()
    {
        Place place;
        const QString real = QFileInfo(place.folder).canonicalFilePath();
        QVERIFY(QFile::link(place.folder, place.home.path(u"linked"_s)));
        place.folder = place.home.path(u"linked"_s);
        QCOMPARE(place.opened(place.at(u"a.txt"_s)), QByteArray("a"));
        QCOMPARE(place.opened(real + u"/a.txt"_s), QByteArray("a"));
        QCOMPARE(place.opened(place.home.path(u"secret.txt"_s)), leadsOut);
    }

    void missingFolderOpensNothing()
    {
        Place place;
        place.folder = place.home.path(u"none"_s);
        QCOMPARE(place.opened(place.at(u"a.txt"_s)), missing);
    }

    void fileThatMayNotBeReadIsNotOpened()
    {
        const AsOrdinaryUser user;
        const Place place;
        const ScopedMode mode(place.at(u"a.txt"_s), 0);
        QCOMPARE(place.opened(place.at(u"a.txt"_s)), QByteArray::number(EACCES));
    }

    void otherProgramsDoNotInheritTheFile()
    {
        const Place place;
        const DBCDescriptor file = openInside(place.folder, place.at(u"a.txt"_s), O_RDONLY);
        QCOMPARE(fcntl(file.get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
    }
};

QTEST_GUILESS_MAIN(tst_openInside)
#include "tst_openInside.moc"

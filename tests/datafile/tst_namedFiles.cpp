// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCNamedFiles.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using Outcome = DBCNamedFile::Outcome;

namespace {

struct Situation {
    DBCNamedFile image(const QString& name) { return openNamedImage(lookup, folder.path(), name); }
    DBCNamedFile attachments(const QString& name)
    {
        return openNamedAttachments(lookup, folder.path(), name);
    }

    TestHome home;
    InterchangeFolder folder {home};
    DBCNameLookup lookup;
};

QByteArray contentsOf(const DBCNamedFile& named)
{
    char bytes[16];
    const ssize_t length = read(named.file.get(), bytes, sizeof bytes);
    return length < 0 ? QByteArray("unreadable") : QByteArray(bytes, length);
}

} // namespace

class tst_namedFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void blankItemNamesNothing()
    {
        Situation situation;
        QCOMPARE(situation.image({}).outcome, Outcome::NotNamed);
        QCOMPARE(situation.image(u" \u3000"_s).outcome, Outcome::NotNamed);
        QCOMPARE(situation.attachments({}).outcome, Outcome::NotNamed);
    }

    void foundImageIsOpen()
    {
        Situation situation;
        situation.folder.image(u"Card.JPG"_s, "bytes");
        const DBCNamedFile image = situation.image(u"card.jpg"_s);
        QCOMPARE(image.outcome, Outcome::Found);
        QCOMPARE(image.path, situation.folder.imagePath(u"Card.JPG"_s));
        QVERIFY(image.path.startsWith(image.folder + u'/'));
        QCOMPARE(contentsOf(image), QByteArray("bytes"));
    }

    // The program must read the file that it opened, even if another file takes the place of that
    // file afterwards.
    void openImageStaysTheOneThatWasFound()
    {
        Situation situation;
        situation.folder.image(u"1.jpg"_s, "inside");
        const QString secret = situation.home.writeFile(u"secret"_s, "outside");
        const DBCNamedFile image = situation.image(u"1.jpg"_s);
        QVERIFY(QFile::remove(image.path));
        QVERIFY(QFile::link(secret, image.path));
        QCOMPARE(contentsOf(image), QByteArray("inside"));
    }

    void missingImageHasThePathThatWasGiven()
    {
        Situation situation;
        const DBCNamedFile image = situation.image(u"no.jpg"_s);
        QCOMPARE(image.outcome, Outcome::Missing);
        QCOMPARE(image.path, situation.folder.imagePath(u"no.jpg"_s));
        QVERIFY(!image.file);
    }

    void imageThatLeadsOutIsNotOpened()
    {
        Situation situation;
        const QString secret = situation.home.writeFile(u"secret.jpg"_s, "x");
        situation.folder.image(u"1.jpg"_s, "x");
        const QString link = situation.folder.imagePath(u"link.jpg"_s);
        QVERIFY(QFile::link(secret, link));
        for (const QString& name : {u"link.jpg"_s, u"../../secret.jpg"_s, secret}) {
            const DBCNamedFile image = situation.image(name);
            QCOMPARE(image.outcome, Outcome::LeadsOut);
            QVERIFY(!image.file);
        }
    }

    void imageThatMayNotBeReadIsFoundButNotOpen()
    {
        const AsOrdinaryUser user;
        Situation situation;
        situation.folder.image(u"1.jpg"_s, "x");
        const ScopedMode mode(situation.folder.imagePath(u"1.jpg"_s), 0);
        const DBCNamedFile image = situation.image(u"1.jpg"_s);
        QCOMPARE(image.outcome, Outcome::Found);
        QVERIFY(!image.file);
    }

    void attachmentsAreAFolder()
    {
        Situation situation;
        situation.folder.attachment(u"plans"_s, u"a.txt"_s, "x");
        situation.folder.attachment(u"."_s, u"file"_s, "x");
        const DBCNamedFile found = situation.attachments(u"plans"_s);
        QCOMPARE(found.outcome, Outcome::Found);
        QCOMPARE(found.path, situation.folder.attachmentPath(u"plans"_s));
        QCOMPARE(faccessat(found.file.get(), "a.txt", R_OK, 0), 0);
        QCOMPARE(situation.attachments(u"file"_s).outcome, Outcome::Missing);
    }
};

QTEST_GUILESS_MAIN(tst_namedFiles)
#include "tst_namedFiles.moc"

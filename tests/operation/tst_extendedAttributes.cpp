// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCExtendedAttributes.h"

#include "system/DBCDescriptor.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QtTest>

#include <fcntl.h>
#include <sys/xattr.h>

using namespace Qt::StringLiterals;

namespace {

DBCDescriptor opened(const QString& path, int flags = O_RDONLY)
{
    return DBCDescriptor(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC));
}

struct Files {
    bool set(const char* name, const QByteArray& value) const
    {
        return setxattr(QFile::encodeName(from).constData(), name, value.constData(),
                   std::size_t(value.size()), 0)
            == 0;
    }
    // Returns the value of an attribute of the copy, or "-" if the copy lacks the attribute.
    QByteArray copied(const char* name) const
    {
        QByteArray value(70000, '\0');
        const ssize_t size = getxattr(
            QFile::encodeName(to).constData(), name, value.data(), std::size_t(value.size()));
        return size < 0 ? QByteArray("-") : value.first(size);
    }
    bool copy() const
    {
        const DBCDescriptor source = opened(from);
        const DBCDescriptor target = opened(to);
        return copyExtendedAttributes(source.get(), target.get());
    }

    TestHome home;
    QString from = home.writeFile(u"from"_s, "x");
    QString to = home.writeFile(u"to"_s, "x");
};

} // namespace

class tst_extendedAttributes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!Files().set("user.probe", "x"))
            QSKIP("this file system keeps no attributes");
    }

    void attributesOfTheUserAreCopied()
    {
        const Files files;
        const QByteArray bytes("\0\xFF name", 7);
        QVERIFY(files.set("user.comment", "a card") && files.set("user.bytes", bytes)
            && files.set("user.empty", ""));
        QVERIFY(files.copy());
        QCOMPARE(files.copied("user.comment"), QByteArray("a card"));
        QCOMPARE(files.copied("user.bytes"), bytes);
        QCOMPARE(files.copied("user.empty"), QByteArray());
    }

    void fileWithoutAttributesGivesNone()
    {
        const Files files;
        QVERIFY(files.copy());
        QCOMPARE(files.copied("user.comment"), QByteArray("-"));
    }

    void attributesOfTheSystemStayBehind()
    {
        const Files files;
        if (!files.set("trusted.mark", "x"))
            QSKIP("only root hangs such an attribute on a file");
        QVERIFY(files.copy());
        QCOMPARE(files.copied("trusted.mark"), QByteArray("-"));
    }

    // A file below /proc cannot have user attributes.
    void fileSystemWithoutAttributesIsNoFailure()
    {
        const Files files;
        QVERIFY(files.set("user.comment", "a card"));
        const DBCDescriptor kernel = opened(u"/proc/self/comm"_s);
        const DBCDescriptor file = opened(files.from);
        QVERIFY(copyExtendedAttributes(kernel.get(), file.get()));
        QVERIFY(copyExtendedAttributes(file.get(), kernel.get()));
    }

    void attributeThatMayNotBeReadIsAFailure()
    {
        const AsOrdinaryUser user;
        const Files files;
        QVERIFY(files.set("user.comment", "a card"));
        const DBCDescriptor source = opened(files.from);
        const DBCDescriptor target = opened(files.to);
        const ScopedMode mode(files.from, 0);
        QVERIFY(!copyExtendedAttributes(source.get(), target.get()));
    }

    void attributeThatMayNotBeWrittenIsAFailure()
    {
        const AsOrdinaryUser user;
        const Files files;
        QVERIFY(files.set("user.comment", "a card"));
        const ScopedMode mode(files.to, S_IRUSR);
        QVERIFY(!files.copy());
        QCOMPARE(files.copied("user.comment"), QByteArray("-"));
    }

    void closedFileIsAFailure()
    {
        const Files files;
        const DBCDescriptor target = opened(files.to);
        QVERIFY(!copyExtendedAttributes(-1, target.get()));
    }
};

QTEST_GUILESS_MAIN(tst_extendedAttributes)
#include "tst_extendedAttributes.moc"

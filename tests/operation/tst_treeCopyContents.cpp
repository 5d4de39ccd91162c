// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the three ways in which the program copies the contents of a file, and when it changes from
// one way to the next.
#include "operation/copy/DBCContentsCopy.h"

#include "system/DBCDescriptor.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QTest>

#include <cerrno>
#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace {

int refusal = 0;
int callsBeforeFailure = 0;

ssize_t refuse(int, int, std::size_t)
{
    errno = refusal;
    return -1;
}

ssize_t endAtOnce(int, int, std::size_t)
{
    return 0;
}

// A way of copying that copies up to 1000 bytes in each of the first callsBeforeFailure calls, and
// then fails with the error refusal.
ssize_t failLater(int from, int to, std::size_t)
{
    if (callsBeforeFailure-- == 0)
        return refuse(from, to, 0);
    return DBCContentsCopy::byReading(from, to, 1000);
}

ssize_t interruptedOnce(int from, int to, std::size_t length)
{
    if (callsBeforeFailure-- == 0)
        return refuse(from, to, 0);
    return DBCContentsCopy::byReading(from, to, length);
}

QByteArray numbered(int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = char((i * 31 + i / 251) & 0xFF);
    return bytes;
}

// A source file with the given bytes and an empty target. Copies the one to the other and tells
// whether the copy is complete.
struct Copying {
    TestHome home;
    QByteArray bytes;
    DBCDescriptor from;
    DBCDescriptor to;

    explicit Copying(const QByteArray& contents)
        : bytes(contents)
        , from(open(home.writeFile(u"from"_s, contents), O_RDONLY))
        , to(open(home.writeFile(u"to"_s, ""), O_WRONLY))
    {
    }

    static int open(const QString& path, int flags)
    {
        return ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    }

    bool run(std::span<const DBCContentsCopy::Way> ways) const
    {
        DBCContentsCopy copy(from.get(), to.get(), ways);
        std::optional<std::size_t> size;
        do {
            size = copy.next();
        } while (size && *size > 0);
        return size.has_value();
    }
    bool isComplete() const { return home.readFile(u"to"_s) == bytes; }
};

} // namespace

class tst_treeCopyContents : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyWayCopiesEverything_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("size");
        const std::array names {"range", "sending", "reading"};
        for (int way = 0; way < 3; ++way) {
            for (const int size : {0, 1, 4096, 131072, 131073, 1000003})
                QTest::addRow("%s %d", names[std::size_t(way)], size) << way << size;
        }
    }
    void everyWayCopiesEverything()
    {
        QFETCH(int, way);
        QFETCH(int, size);
        const Copying copying(numbered(size));
        QVERIFY(copying.run(std::span(DBCContentsCopy::allWays).subspan(std::size_t(way), 1)));
        QVERIFY(copying.isComplete());
    }

    void contentsLongerThanOnePieceArriveInPieces()
    {
        const Copying copying(numbered(int(DBCContentsCopy::pieceSize) + 5));
        DBCContentsCopy copy(copying.from.get(), copying.to.get());
        quint64 sum = 0;
        int pieces = 0;
        while (const std::optional<std::size_t> size = copy.next()) {
            if (*size == 0)
                break;
            QVERIFY(*size <= DBCContentsCopy::pieceSize);
            sum += *size;
            ++pieces;
        }
        QCOMPARE(sum, quint64(copying.bytes.size()));
        QVERIFY(pieces >= 2);
        QVERIFY(copying.isComplete());
    }

    void unsupportedWayGivesWayToTheNext_data()
    {
        QTest::addColumn<int>("error");
        QTest::newRow("other file system") << EXDEV;
        QTest::newRow("not for these files") << EINVAL;
        QTest::newRow("unknown to the kernel") << ENOSYS;
        QTest::newRow("not offered") << EOPNOTSUPP;
        QTest::newRow("forbidden by a sandbox") << EPERM;
    }
    void unsupportedWayGivesWayToTheNext()
    {
        QFETCH(int, error);
        refusal = error;
        const Copying copying(numbered(5000));
        const std::array<DBCContentsCopy::Way, 3> ways {refuse, refuse, DBCContentsCopy::byReading};
        QVERIFY(copying.run(ways));
        QVERIFY(copying.isComplete());
    }

    void wayThatStopsBeingSupportedIsContinuedByTheNext()
    {
        refusal = EINVAL;
        callsBeforeFailure = 3;
        const Copying copying(numbered(9000));
        const std::array<DBCContentsCopy::Way, 2> ways {failLater, DBCContentsCopy::byReading};
        QVERIFY(copying.run(ways));
        QVERIFY(copying.isComplete());
    }

    void endBeforeAnythingMovedIsNotBelieved()
    {
        const Copying copying(numbered(5000));
        const std::array<DBCContentsCopy::Way, 2> ways {endAtOnce, DBCContentsCopy::byReading};
        QVERIFY(copying.run(ways));
        QVERIFY(copying.isComplete());
    }

    void realErrorFailsTheCopy_data()
    {
        QTest::addColumn<int>("error");
        QTest::newRow("disk full") << ENOSPC;
        QTest::newRow("quota") << EDQUOT;
        QTest::newRow("medium") << EIO;
    }
    void realErrorFailsTheCopy()
    {
        QFETCH(int, error);
        refusal = error;
        callsBeforeFailure = 2;
        const Copying copying(numbered(9000));
        const std::array<DBCContentsCopy::Way, 2> ways {failLater, DBCContentsCopy::byReading};
        QVERIFY(!copying.run(ways));
    }

    void lastWayUnsupportedFailsTheCopy()
    {
        refusal = EINVAL;
        const Copying copying(numbered(10));
        const std::array<DBCContentsCopy::Way, 1> ways {refuse};
        QVERIFY(!copying.run(ways));
    }

    void interruptedCallIsRepeated()
    {
        refusal = EINTR;
        callsBeforeFailure = 0;
        const Copying copying(numbered(10));
        const std::array<DBCContentsCopy::Way, 1> ways {interruptedOnce};
        QVERIFY(copying.run(ways));
        QVERIFY(copying.isComplete());
    }

    void fullDeviceIsNoticedByEveryRealWay()
    {
        const Copying copying(numbered(5000));
        const DBCDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
        if (!full)
            QSKIP("no /dev/full here");
        DBCContentsCopy copy(copying.from.get(), full.get());
        QVERIFY(!copy.next().has_value());
    }
};

QTEST_GUILESS_MAIN(tst_treeCopyContents)
#include "tst_treeCopyContents.moc"

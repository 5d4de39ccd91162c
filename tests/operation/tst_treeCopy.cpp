// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCTreeCopy.h"

#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTest>

#include <filesystem>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;

// A folder "tree", and the path "copy" to which tests copy it. Names are relative to the tree. They
// are bytes, because a file name need not be valid UTF-8.
struct Tree {
    TestHome home;
    QByteArray source = QFile::encodeName(home.makeFolder(u"tree"_s));
    QByteArray target = QFile::encodeName(home.path(u"copy"_s));

    QByteArray at(const QByteArray& name) const { return source + '/' + name; }
    QByteArray copyOf(const QByteArray& name) const { return target + '/' + name; }

    Tree& file(const QByteArray& name, const QByteArray& bytes = "x")
    {
        const int descriptor = open(at(name).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
        if (write(descriptor, bytes.constData(), size_t(bytes.size())) != bytes.size())
            qFatal("cannot write %s", name.constData());
        close(descriptor);
        return *this;
    }
    Tree& folder(const QByteArray& name)
    {
        if (mkdir(at(name).constData(), 0755) != 0)
            qFatal("cannot make %s", name.constData());
        return *this;
    }
    Tree& link(const QByteArray& name, const QByteArray& pointsAt)
    {
        if (symlink(pointsAt.constData(), at(name).constData()) != 0)
            qFatal("cannot link %s", name.constData());
        return *this;
    }
    Tree& mode(const QByteArray& name, mode_t bits)
    {
        if (chmod(at(name).constData(), bits) != 0)
            qFatal("cannot change %s", name.constData());
        return *this;
    }
    Tree& times(const QByteArray& name, const timespec& accessed, const timespec& modified)
    {
        const timespec both[] {accessed, modified};
        if (utimensat(AT_FDCWD, at(name).constData(), both, AT_SYMLINK_NOFOLLOW) != 0)
            qFatal("cannot date %s", name.constData());
        return *this;
    }

    bool copy() const { return DBCTreeCopy().copy(source, target); }
};

struct stat statusOf(const QByteArray& path)
{
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0)
        status.st_mode = 0;
    return status;
}

bool exists(const QByteArray& path)
{
    return statusOf(path).st_mode != 0;
}

QByteArray contentsOf(const QByteArray& path)
{
    const int descriptor = open(path.constData(), O_RDONLY | O_CLOEXEC);
    QFile file;
    return file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)
        ? file.readAll()
        : QByteArray("(cannot be read)");
}

QByteArray linkTargetOf(const QByteArray& path)
{
    char buffer[4096];
    const ssize_t size = readlink(path.constData(), buffer, sizeof buffer);
    return size < 0 ? QByteArray("(no link)") : QByteArray(buffer, size);
}

} // namespace

class tst_treeCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nestedFilesArriveWithTheirContents()
    {
        Tree tree;
        tree.file("Velmora.sqldb", QByteArray(300000, 's')).folder("Images").folder("Files");
        tree.folder("Files/1").file("Files/1/memo.txt", "memo").file("Images/1_N1.pdf", "pdf");
        QVERIFY(tree.copy());
        QCOMPARE(contentsOf(tree.copyOf("Velmora.sqldb")), QByteArray(300000, 's'));
        QCOMPARE(contentsOf(tree.copyOf("Files/1/memo.txt")), QByteArray("memo"));
        QCOMPARE(contentsOf(tree.copyOf("Images/1_N1.pdf")), QByteArray("pdf"));
    }

    void singleFileIsCopied()
    {
        Tree tree;
        tree.file("one", "bytes");
        QVERIFY(DBCTreeCopy().copy(tree.at("one"), tree.target));
        QCOMPARE(contentsOf(tree.target), QByteArray("bytes"));
    }

    void emptyAndHiddenItemsAreCopied()
    {
        Tree tree;
        tree.file(".VMLock.vmlk", "").folder("empty").folder(".hidden").file(".hidden/.file", "h");
        QVERIFY(tree.copy());
        QCOMPARE(contentsOf(tree.copyOf(".VMLock.vmlk")), QByteArray());
        QVERIFY(S_ISDIR(statusOf(tree.copyOf("empty")).st_mode));
        QCOMPARE(contentsOf(tree.copyOf(".hidden/.file")), QByteArray("h"));
    }

    void namesThatAreNoUtf8AreCopiedAsTheyAre()
    {
        Tree tree;
        tree.folder("\xFF\xFE").file("\xFF\xFE/caf\xE9", "bytes");
        QVERIFY(tree.copy());
        QCOMPARE(contentsOf(tree.copyOf("\xFF\xFE/caf\xE9")), QByteArray("bytes"));
        // QTemporaryDir cannot remove files with such names.
        for (const QByteArray& folder : {tree.source, tree.target})
            std::filesystem::remove_all(folder.toStdString());
    }

    void permissionsAreKept_data()
    {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0400u, 0444u, 0600u, 0644u, 0755u, 0777u})
            QTest::addRow("%o", mode) << mode;
    }
    void permissionsAreKept()
    {
        QFETCH(uint, mode);
        const mode_t mask = umask(027);
        const auto restored = qScopeGuard([mask] { umask(mask); });
        Tree tree;
        tree.file("file").mode("file", mode);
        QVERIFY(tree.copy());
        QCOMPARE(statusOf(tree.copyOf("file")).st_mode & 07777, mode);
    }

    void readOnlyFolderIsFilledAndStaysReadOnly()
    {
        Tree tree;
        tree.folder("locked").file("locked/file", "inside").mode("locked", 0555);
        const bool copied = tree.copy();
        const mode_t mode = statusOf(tree.copyOf("locked")).st_mode & 07777;
        chmod(
            tree.copyOf("locked").constData(), 0755); // so that the test can remove its home folder
        tree.mode("locked", 0755);
        QVERIFY(copied);
        QCOMPARE(mode, mode_t(0555));
        QCOMPARE(contentsOf(tree.copyOf("locked/file")), QByteArray("inside"));
    }

    void timesAreKeptToTheNanosecond_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("file") << QByteArray("folder/file");
        QTest::newRow("folder with contents") << QByteArray("folder");
        QTest::newRow("link") << QByteArray("link");
    }
    void timesAreKeptToTheNanosecond()
    {
        QFETCH(QByteArray, name);
        Tree tree;
        tree.folder("folder").file("folder/file").link("link", "folder");
        const timespec modified {1234567890, 123456789};
        tree.times(name, {1300000000, 987654321}, modified);
        QVERIFY(tree.copy());
        const struct stat status = statusOf(tree.copyOf(name));
        QCOMPARE(status.st_mtim.tv_sec, modified.tv_sec);
        QCOMPARE(status.st_mtim.tv_nsec, modified.tv_nsec);
        QCOMPARE(status.st_atim.tv_sec, 1300000000);
        QCOMPARE(status.st_atim.tv_nsec, 987654321);
    }

    void ownerIsKeptWhereTheUserMayGiveIt()
    {
        if (geteuid() != 0)
            QSKIP("only root gives files away");
        Tree tree;
        tree.file("file");
        QCOMPARE(chown(tree.at("file").constData(), nobody, nobody), 0);
        QVERIFY(tree.copy());
        QCOMPARE(statusOf(tree.copyOf("file")).st_uid, nobody);
        QCOMPARE(statusOf(tree.copyOf("file")).st_gid, nobody);
    }

    void ordinaryUserTakesOverAForeignFileWithoutItsSetuidBit()
    {
        if (geteuid() != 0)
            QSKIP("only root can make a foreign file");
        Tree tree;
        tree.file("file").mode("file", 04755);
        for (const QByteArray& folder : {QFile::encodeName(tree.home.path()), tree.source})
            QCOMPARE(chmod(folder.constData(), 0777), 0);
        QCOMPARE(seteuid(nobody), 0);
        const bool copied = tree.copy();
        QCOMPARE(seteuid(0), 0);
        QVERIFY(copied);
        QCOMPARE(statusOf(tree.copyOf("file")).st_uid, nobody);
        QCOMPARE(statusOf(tree.copyOf("file")).st_mode & 07777, mode_t(0755));
    }

    void linksStayLinksWhateverTheyPointAt()
    {
        Tree tree;
        tree.file("file", "x").link("inside", "file").link("broken", "nowhere");
        tree.link("outside", "/etc").link("loop", "loop").link("up", "..");
        QVERIFY(tree.copy());
        QCOMPARE(linkTargetOf(tree.copyOf("inside")), QByteArray("file"));
        QCOMPARE(linkTargetOf(tree.copyOf("broken")), QByteArray("nowhere"));
        QCOMPARE(linkTargetOf(tree.copyOf("outside")), QByteArray("/etc"));
        QCOMPARE(linkTargetOf(tree.copyOf("loop")), QByteArray("loop"));
        QCOMPARE(linkTargetOf(tree.copyOf("up")), QByteArray(".."));
    }

    void linkGivenAsTheSourceIsFollowed()
    {
        // If a backup were only a link to its package, a change of the package would change the
        // backup, too.
        Tree tree;
        tree.file("file", "bytes");
        const QByteArray link = QFile::encodeName(tree.home.path(u"link"_s));
        QCOMPARE(symlink("tree", link.constData()), 0);
        QVERIFY(DBCTreeCopy().copy(link, tree.target));
        QVERIFY(S_ISDIR(statusOf(tree.target).st_mode));
        QCOMPARE(contentsOf(tree.copyOf("file")), QByteArray("bytes"));
    }

    void specialFileFailsTheCopyWithoutWaiting_data()
    {
        QTest::addColumn<bool>("socket");
        QTest::newRow("pipe") << false;
        QTest::newRow("socket") << true;
    }
    void specialFileFailsTheCopyWithoutWaiting()
    {
        QFETCH(bool, socket);
        Tree tree;
        int descriptor = -1;
        if (socket) {
            descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
            sockaddr_un address = {};
            address.sun_family = AF_UNIX;
            const QByteArray path = tree.at("special");
            QVERIFY(size_t(path.size()) < sizeof address.sun_path);
            qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
            const auto* const plain = reinterpret_cast<const sockaddr*>(&address);
            QCOMPARE(bind(descriptor, plain, sizeof address), 0);
        } else {
            QCOMPARE(mkfifo(tree.at("special").constData(), 0600), 0);
        }
        QVERIFY(!tree.copy());
        close(descriptor);
    }

    void missingSourceFails()
    {
        const Tree tree;
        QVERIFY(!DBCTreeCopy().copy(tree.at("missing"), tree.target));
        QVERIFY(!exists(tree.target));
    }

    void nothingThatStandsAtTheTargetIsReplaced()
    {
        Tree tree;
        tree.file("file", "new");
        tree.home.writeFile(u"copy"_s, "old");
        QVERIFY(!DBCTreeCopy().copy(tree.at("file"), tree.target));
        QVERIFY(!tree.copy());
        QCOMPARE(contentsOf(tree.target), QByteArray("old"));
    }

    void linkAtTheTargetIsNotWrittenThrough()
    {
        Tree tree;
        tree.file("file", "new");
        const QString victim = tree.home.writeFile(u"victim"_s, "old");
        QCOMPARE(symlink("victim", tree.target.constData()), 0);
        QVERIFY(!DBCTreeCopy().copy(tree.at("file"), tree.target));
        QCOMPARE(contentsOf(QFile::encodeName(victim)), QByteArray("old"));
    }

    void unreadableItemFailsTheCopy_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("file") << QByteArray("folder/file");
        QTest::newRow("folder") << QByteArray("folder");
    }
    void unreadableItemFailsTheCopy()
    {
        QFETCH(QByteArray, name);
        Tree tree;
        tree.folder("folder").file("folder/file").mode(name, 0000);
        const bool wasRoot = geteuid() == 0;
        QCOMPARE(chmod(QFile::encodeName(tree.home.path()).constData(), 0777), 0);
        if (wasRoot)
            QCOMPARE(seteuid(nobody), 0);
        const bool copied = tree.copy();
        if (wasRoot)
            QCOMPARE(seteuid(0), 0);
        tree.mode(name, 0755);
        QVERIFY(!copied);
    }

    void everyItemIsAskedAboutBeforeItIsCopied()
    {
        Tree tree;
        tree.folder("folder").file("folder/file").file("other");
        QStringList asked;
        DBCTreeCopy::Questions questions;
        questions.beforeItem = [&](const QString& path, const QString& toPath) {
            asked << path + u" > "_s + toPath;
            return !exists(QFile::encodeName(toPath));
        };
        QVERIFY(DBCTreeCopy(questions).copy(tree.source, tree.target));
        asked.sort();
        const QString from = QFile::decodeName(tree.source);
        const QString to = QFile::decodeName(tree.target);
        QStringList expected;
        for (const char* name : {"", "/folder", "/folder/file", "/other"}) {
            const QString item = QString::fromLatin1(name);
            expected << from + item + u" > "_s + to + item;
        }
        expected.sort();
        QCOMPARE(asked, expected);
    }

    void refusedItemStopsTheCopyAndLeavesWhatWasCopied()
    {
        Tree tree;
        tree.file("a").file("b").file("c");
        int asked = 0;
        DBCTreeCopy::Questions questions;
        questions.beforeItem = [&](const QString&, const QString&) { return ++asked < 3; };
        QVERIFY(!DBCTreeCopy(questions).copy(tree.source, tree.target));
        QCOMPARE(asked, 3); // the folder, one file, and the refused file
        QCOMPARE(QDir(QFile::decodeName(tree.target)).entryList(QDir::Files).size(), 1);
    }

    void largeFileIsAskedAboutInsideAndCanBeStopped()
    {
        Tree tree;
        tree.file("large");
        const qint64 size = 64 << 20;
        QCOMPARE(
            truncate(tree.at("large").constData(), size), 0); // a sparse file, which takes no space
        std::vector<quint64> seen;
        DBCTreeCopy::Questions questions;
        questions.interval = std::chrono::seconds(0);
        questions.atInterval = [&](const DBCFileOperationStatus& status) {
            seen.push_back(status.bytesComplete);
            return status.bytesComplete < quint64(size) / 2;
        };
        QVERIFY(!DBCTreeCopy(questions).copy(tree.source, tree.target));
        QVERIFY(seen.size() >= 3);
        QVERIFY(std::is_sorted(seen.begin(), seen.end()));
        QVERIFY(seen.back() >= quint64(size) / 2 && seen.back() < quint64(size));
        QVERIFY(statusOf(tree.copyOf("large")).st_size < size);
    }

    void intervalQuestionIsAskedOnceAtTheStartAndThenRarely()
    {
        Tree tree;
        for (int i = 0; i < 50; ++i)
            tree.file(QByteArray::number(i));
        int asked = 0;
        DBCTreeCopy::Questions questions;
        questions.interval = std::chrono::hours(1);
        questions.atInterval = [&](const DBCFileOperationStatus&) { return ++asked > 0; };
        QVERIFY(DBCTreeCopy(questions).copy(tree.source, tree.target));
        QCOMPARE(asked, 1);
    }

    void statusCountsTheBytesOfAllFiles()
    {
        Tree tree;
        tree.file("a", QByteArray(1000, 'a')).folder("f").file("f/b", QByteArray(234, 'b'));
        tree.link("link", "a");
        DBCTreeCopy copy;
        QVERIFY(copy.copy(tree.source, tree.target));
        QCOMPARE(copy.status().stage, DBCFileOperationStatus::stageComplete);
        QCOMPARE(copy.status().bytesComplete, quint64(1234));
        QCOMPARE(copy.status().totalBytes, quint64(1234));
    }

    void failedCopyIsNotComplete()
    {
        const Tree tree;
        DBCTreeCopy copy;
        QVERIFY(!copy.copy(tree.at("missing"), tree.target));
        QVERIFY(copy.status().stage != DBCFileOperationStatus::stageComplete);
    }

    void noDescriptorIsLeftOpen()
    {
        Tree tree;
        tree.folder("a").folder("a/b").file("a/b/c").link("l", "a");
        const auto openNow = [] { return QDir(u"/proc/self/fd"_s).count(); };
        const auto before = openNow();
        QVERIFY(tree.copy());
        QVERIFY(!tree.copy()); // the target exists already
        QCOMPARE(openNow(), before);
    }
};

QTEST_GUILESS_MAIN(tst_treeCopy)
#include "tst_treeCopy.moc"

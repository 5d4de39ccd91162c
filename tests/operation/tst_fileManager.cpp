// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCFileManager.h"

#include "operation/base/DBCCancelDelegate.h"
#include "operation/base/DBCError.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;

// A cancel delegate, the object that a copy asks whether to go on. It records the questions and
// gives the answers that the test chooses: whether a cancel is confirmed, and how many items to
// copy.
struct Answers : DBCCancelDelegate {
    bool cancelConfirmed = false;
    int itemsToCopy = std::numeric_limits<int>::max();

    int cancelQuestions = 0;
    QStringList items;
    const DBCFileManager* asker = nullptr;

    bool checkIsNeedToConfirmCancelOperation() override
    {
        ++cancelQuestions;
        return cancelConfirmed;
    }
    bool fileManager(const DBCFileManager* manager, const QString& shouldCopyItemAtPath,
        const QString& /*toPath*/) override
    {
        asker = manager;
        items << shouldCopyItemAtPath;
        return items.size() <= itemsToCopy;
    }
};

// A folder "source" with two files, and an empty folder "destination".
struct Folders {
    TestHome home;
    DBCFileManager manager;
    QString source = home.makeFolder(u"source"_s);
    QString destination = home.makeFolder(u"destination"_s);

    Folders()
    {
        home.writeFile(u"source/one"_s, "1");
        home.writeFile(u"source/inner/two"_s, "22");
    }
    bool copy(const QString& from, const QString& to, const QString& name = {},
        IsAsync isAsync = IsAsync::No)
    {
        return manager.copyItemAtPath(from, to, name, 0, isAsync, nullptr);
    }
    QByteArray read(const QString& relative) const { return home.readFile(relative); }
    QStringList inDestination() const
    {
        return QDir(destination).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

} // namespace

Q_DECLARE_METATYPE(IsAsync)

class tst_fileManager : public QObject {
    Q_OBJECT

    static void bothWays()
    {
        QTest::addColumn<IsAsync>("isAsync");
        QTest::newRow("synchronous") << IsAsync::No;
        QTest::newRow("asynchronous") << IsAsync::Yes;
    }

private Q_SLOTS:
    void sharedInstanceIsAlwaysTheSame()
    {
        DBCFileManager* const manager = DBCFileManager::defaultManager();
        QVERIFY(manager != nullptr);
        QCOMPARE(DBCFileManager::defaultManager(), manager);
        QVERIFY(manager->delegate() == nullptr);
    }

    void delegateIsLentAndGivenBack()
    {
        DBCFileManager manager;
        Answers answers;
        manager.setDelegate(&answers);
        QCOMPARE(manager.delegate(), &answers);
        manager.setDelegate(nullptr);
        QVERIFY(manager.delegate() == nullptr);
    }

    void folderLandsInTheDestinationUnderItsOwnName_data() { bothWays(); }
    void folderLandsInTheDestinationUnderItsOwnName()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        QVERIFY(folders.copy(folders.source, folders.destination, {}, isAsync));
        QCOMPARE(folders.read(u"destination/source/one"_s), QByteArray("1"));
        QCOMPARE(folders.read(u"destination/source/inner/two"_s), QByteArray("22"));
        QCOMPARE(folders.read(u"source/one"_s), QByteArray("1"));
    }

    void copyLandsUnderTheNewNameWhenOneIsGiven_data() { bothWays(); }
    void copyLandsUnderTheNewNameWhenOneIsGiven()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        const QString name = u"\u63A7\u3048 %1"_s;
        QVERIFY(folders.copy(folders.source, folders.destination, name, isAsync));
        QCOMPARE(folders.inDestination(), QStringList(name));
        QCOMPARE(folders.read(u"destination/"_s + name + u"/one"_s), QByteArray("1"));
    }

    void singleFileIsCopied_data() { bothWays(); }
    void singleFileIsCopied()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        QVERIFY(folders.copy(folders.source + u"/one"_s, folders.destination, {}, isAsync));
        QCOMPARE(folders.read(u"destination/one"_s), QByteArray("1"));
    }

    void slashesAtTheEndOfBothPathsDoNotMatter()
    {
        Folders folders;
        QVERIFY(folders.copy(folders.source + u"//"_s, folders.destination + u'/'));
        QCOMPARE(folders.read(u"destination/source/one"_s), QByteArray("1"));
    }

    void destinationThatIsAFileIsRefused_data() { bothWays(); }
    void destinationThatIsAFileIsRefused()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        const QString file = folders.home.writeFile(u"file"_s, "kept");
        QVERIFY(!folders.copy(folders.source, file, {}, isAsync));
        QCOMPARE(folders.read(u"file"_s), QByteArray("kept"));
    }

    void missingPathsAreRefused_data() { bothWays(); }
    void missingPathsAreRefused()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        const QString missing = folders.home.path(u"missing"_s);
        QVERIFY(!folders.copy({}, folders.destination, {}, isAsync));
        QVERIFY(!folders.copy(folders.source, {}, {}, isAsync));
        QVERIFY(!folders.copy(missing, folders.destination, {}, isAsync));
        QVERIFY(!folders.copy(folders.source, missing, {}, isAsync));
        QVERIFY(folders.inDestination().isEmpty());
        QVERIFY(!QFileInfo::exists(missing));
    }

    void nameThatLeadsElsewhereIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"..", ".", "../out", "a/b", "/abs"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void nameThatLeadsElsewhereIsRefused()
    {
        QFETCH(QString, name);
        Folders folders;
        QVERIFY(!folders.copy(folders.source, folders.destination, name));
        QVERIFY(folders.inDestination().isEmpty());
        QVERIFY(!QFileInfo::exists(folders.home.path(u"out"_s)));
    }

    void whatStandsAtTheTargetIsKept_data() { bothWays(); }
    void whatStandsAtTheTargetIsKept()
    {
        QFETCH(IsAsync, isAsync);
        Folders folders;
        folders.home.writeFile(u"destination/source/old"_s, "old");
        QVERIFY(!folders.copy(folders.source, folders.destination, {}, isAsync));
        QCOMPARE(folders.read(u"destination/source/old"_s), QByteArray("old"));
        QVERIFY(!QFileInfo::exists(folders.destination + u"/source/one"_s));
    }

    void folderIsNotCopiedIntoItself()
    {
        Folders folders;
        const QString inner = folders.source + u"/inner"_s;
        const QString link = folders.home.path(u"link"_s);
        QVERIFY(QFile::link(inner, link));
        QVERIFY(!folders.copy(folders.source, folders.source));
        QVERIFY(!folders.copy(folders.source, inner));
        QVERIFY(!folders.copy(folders.source, link));
        QCOMPARE(
            QDir(inner).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"two"_s));
    }

    void folderIsCopiedBesideOneWhoseNameItBegins()
    {
        Folders folders;
        const QString longer = folders.home.makeFolder(u"source2"_s);
        QVERIFY(folders.copy(folders.source, longer));
        QCOMPARE(folders.read(u"source2/source/one"_s), QByteArray("1"));
    }

    void optionsThatAreNotKnownAreRefused()
    {
        Folders folders;
        QVERIFY(!folders.manager.copyItemAtPath(
            folders.source, folders.destination, {}, 1, IsAsync::No, nullptr));
        QVERIFY(folders.inDestination().isEmpty());
    }

    void failureFillsNoError()
    {
        Folders folders;
        DBCError error;
        QVERIFY(!folders.manager.copyItemAtPath(folders.source, {}, {}, 0, IsAsync::Yes, &error));
        QVERIFY(!error);
    }

    void synchronousCopyAsksNobody()
    {
        Folders folders;
        Answers answers;
        answers.cancelConfirmed = true;
        folders.manager.setDelegate(&answers);
        QVERIFY(folders.copy(folders.source, folders.destination));
        QCOMPARE(answers.cancelQuestions, 0);
        QVERIFY(answers.items.isEmpty());
    }

    void asynchronousCopyAsksTheDelegateOnceAtTheStartAndBeforeEachItem()
    {
        Folders folders;
        Answers answers;
        folders.manager.setDelegate(&answers);
        QVERIFY(folders.copy(folders.source, folders.destination, {}, IsAsync::Yes));
        QVERIFY(answers.cancelQuestions >= 1);
        QCOMPARE(answers.asker, &folders.manager);
        answers.items.sort();
        const QString source = folders.source;
        QCOMPARE(answers.items,
            QStringList(
                {source, source + u"/inner"_s, source + u"/inner/two"_s, source + u"/one"_s}));
    }

    void asynchronousCopyWithoutADelegateGoesThrough()
    {
        Folders folders;
        QVERIFY(folders.copy(folders.source, folders.destination, {}, IsAsync::Yes));
    }

    void cancelConfirmedDuringTheCopyFailsIt()
    {
        Folders folders;
        Answers answers;
        answers.cancelConfirmed = true;
        folders.manager.setDelegate(&answers);
        QVERIFY(!folders.copy(folders.source, folders.destination, {}, IsAsync::Yes));
        QCOMPARE(answers.cancelQuestions, 1);
        QVERIFY(folders.inDestination().isEmpty());
    }

    void itemRefusedByTheDelegateFailsTheCopyAndLeavesAPartialOne()
    {
        Folders folders;
        Answers answers;
        answers.itemsToCopy = 1;
        folders.manager.setDelegate(&answers);
        QVERIFY(!folders.copy(folders.source, folders.destination, {}, IsAsync::Yes));
        QCOMPARE(folders.inDestination(), QStringList(u"source"_s));
        QVERIFY(folders.manager.cleanFolder(folders.destination + u"/source"_s));
        QVERIFY(folders.inDestination().isEmpty());
    }

    // --- cleanFolder ---

    void folderIsRemovedWithEverythingInIt()
    {
        Folders folders;
        folders.home.makeFolder(u"source/empty"_s);
        folders.home.writeFile(u"source/.hidden/.file"_s, "h");
        const QByteArray pipe = QFile::encodeName(folders.source + u"/pipe"_s);
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        QVERIFY(folders.manager.cleanFolder(folders.source));
        QVERIFY(!QFileInfo::exists(folders.source));
    }

    void folderWithNamesThatAreNoUtf8IsRemoved()
    {
        Folders folders;
        const QByteArray inner = QFile::encodeName(folders.source) + "/caf\xE9";
        QCOMPARE(mkdir(inner.constData(), 0755), 0);
        QCOMPARE(mkdir((inner + "/\xFF").constData(), 0755), 0);
        QVERIFY(folders.manager.cleanFolder(folders.source));
        QVERIFY(!QFileInfo::exists(folders.source));
    }

    void plainFileIsNotRemoved()
    {
        Folders folders;
        QVERIFY(!folders.manager.cleanFolder(folders.source + u"/one"_s));
        QCOMPARE(folders.read(u"source/one"_s), QByteArray("1"));
    }

    void missingPathRemovesNothing()
    {
        Folders folders;
        QVERIFY(!folders.manager.cleanFolder(folders.home.path(u"missing"_s)));
        QVERIFY(QFileInfo::exists(folders.source));
    }

    void emptyPathRemovesNothing()
    {
        const Folders folders;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folders.source));
        const bool removed = DBCFileManager::defaultManager()->cleanFolder(QString());
        QDir::setCurrent(before);
        QVERIFY(!removed);
        QCOMPARE(folders.read(u"source/one"_s), QByteArray("1"));
    }

    void linkToAFolderIsRefused_data()
    {
        QTest::addColumn<QString>("ending");
        QTest::newRow("plain") << QString();
        QTest::newRow("with a slash") << u"/"_s;
    }
    void linkToAFolderIsRefused()
    {
        QFETCH(QString, ending);
        Folders folders;
        const QString link = folders.home.path(u"link"_s);
        QVERIFY(QFile::link(folders.source, link));
        QVERIFY(!folders.manager.cleanFolder(link + ending));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(folders.read(u"source/one"_s), QByteArray("1"));
    }

    void linksInsideAreRemovedButNotFollowed()
    {
        Folders folders;
        folders.home.writeFile(u"destination/kept"_s, "kept");
        QVERIFY(QFile::link(folders.destination, folders.source + u"/link"_s));
        QVERIFY(folders.manager.cleanFolder(folders.source));
        QCOMPARE(folders.read(u"destination/kept"_s), QByteArray("kept"));
    }

    void removalThatFailsIsReported()
    {
        Folders folders;
        const QByteArray inner = QFile::encodeName(folders.source + u"/inner"_s);
        QCOMPARE(chmod(inner.constData(), 0555), 0);
        QCOMPARE(chmod(QFile::encodeName(folders.home.path()).constData(), 0755), 0);
        const bool wasRoot = geteuid() == 0;
        if (wasRoot)
            QCOMPARE(seteuid(nobody), 0);
        const bool removed = folders.manager.cleanFolder(folders.source);
        if (wasRoot)
            QCOMPARE(seteuid(0), 0);
        chmod(inner.constData(), 0755);
        QVERIFY(!removed);
        QCOMPARE(folders.read(u"source/inner/two"_s), QByteArray("22"));
    }

    // --- callbackFileOperationStatus ---

    void onlyTheStageOfACompletedOperationIsKept_data()
    {
        QTest::addColumn<uint>("stage");
        QTest::addColumn<uint>("kept");
        for (const uint stage : {0u, 1u, 2u, 4u})
            QTest::addRow("stage %u", stage) << stage << 0u;
        QTest::newRow("stage 3") << 3u << 3u;
    }
    void onlyTheStageOfACompletedOperationIsKept()
    {
        QFETCH(uint, stage);
        DBCFileOperationStatus context;
        callbackFileOperationStatus({stage, 10, 20}, &context);
        QTEST(context.stage, "kept");
        callbackFileOperationStatus({stage, 10, 20}, nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_fileManager)
#include "tst_fileManager.moc"

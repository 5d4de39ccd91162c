// SPDX-License-Identifier: GPL-3.0-or-later
// Presses the button in situations where one check before the operation fails. Tests for each check
// that one message is shown, no operation starts, and the screen is ready for the next try.
#include "datafile/helpers/DBCInterchangeNames.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 margin = 0x80000; // bytes
constexpr qsizetype longestDataPath = 520; // bytes

const QString mainApplicationMustNotRun = DBCMessage::keyOf(DBCQuestionId::BeginOperation);
const QString oldExportGoes = DBCMessage::keyOf(DBCQuestionId::ReplaceExport);

// A screen with two good paths, on a machine where every check passes, and a user who answers Yes.
struct Situation : WindowFixture {
    explicit Situation(OperationType type)
    {
        home.writeFile(u"cards.vmdb/Velmora.sqldb"_s, "store");
        home.writeFile(u"in/"_s + DBCInterchangeNames::dataFileName(), "d");
        presenter.answer = DBCAnswer::Default;
        host.setFreeBytes(margin);
        mount("/", "ext4", "/dev/sda1");
        choose(type);
        dataPath().setText(type == OperationType::Import ? folder : parent);
        databasePath().setText(package);
    }
    ~Situation()
    {
        if (_lock >= 0)
            close(_lock);
    }
    Situation(const Situation&) = delete;
    Situation& operator=(const Situation&) = delete;

    void mount(const QByteArray& point, const QByteArray& type, const QByteArray& device)
    {
        _mounts += "1 1 8:1 / " + point + " rw - " + type + ' ' + device + " rw\n";
        host->mountTable = home.writeFile(u"mountinfo"_s, _mounts);
    }
    void mountOnNetwork(const QString& path)
    {
        mount(QFile::encodeName(QFileInfo(path).canonicalFilePath()), "nfs4", "server:/export");
    }
    void installMainApplication(const QByteArray& version)
    {
        home.writeFile(u"Applications/Velmora/Velmora.app/Contents/version.plist"_s,
            "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" + version
                + "</string></dict></plist>");
    }
    void makeOldExport()
    {
        home.writeFile(u"out/%1/old.txt"_s.arg(DBCInterchangeNames::rootFolderName()), "old");
    }
    bool hasOldExport() const
    {
        return QFile::exists(
            home.path(u"out/%1/old.txt"_s.arg(DBCInterchangeNames::rootFolderName())));
    }
    // Locks the package as another process would.
    void lockPackage()
    {
        const QString file = home.writeFile(u"cards.vmdb/.VMLock.vmlk"_s, "");
        _lock = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        if (flock(_lock, LOCK_EX | LOCK_NB) != 0)
            qFatal("cannot lock the package");
    }
    // Returns a path that is length bytes long and lies below an existing folder.
    QString pathOfLength(qsizetype length) const
    {
        QString path = home.path(u"deep/"_s);
        return path + QString(length - path.size(), u'x');
    }

    QString package = home.makeFolder(u"cards.vmdb"_s);
    QString folder = home.makeFolder(u"in"_s);
    QString parent = home.makeFolder(u"out"_s);

private:
    QByteArray _mounts;
    int _lock = -1;
};

using Prepare = std::function<void(Situation&)>;

} // namespace

Q_DECLARE_METATYPE(Prepare)

class tst_converterChecks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failedCheckShowsItsOneMessageAndLeavesTheScreenReady_data()
    {
        QTest::addColumn<bool>("isImport");
        QTest::addColumn<Prepare>("prepare");
        QTest::addColumn<quint32>("number");

        const auto both
            = [](const char* name, quint32 import, quint32 export_, const Prepare& prepare) {
                  QTest::addRow("import: %s", name) << true << prepare << import;
                  QTest::addRow("export: %s", name) << false << prepare << export_;
              };
        both("main application too old", 104, 104,
            [](Situation& situation) { situation.installMainApplication("1.1.10"); });
        both("data path too long", 110, 110, [](Situation& situation) {
            situation.dataPath().setText(situation.pathOfLength(longestDataPath + 1));
        });
        both("data path does not exist", 308, 202, [](Situation& situation) {
            situation.dataPath().setText(situation.home.path(u"gone"_s));
        });
        both("data path is a file", 308, 202, [](Situation& situation) {
            situation.dataPath().setText(situation.home.writeFile(u"file"_s, "f"));
        });
        both("data path on the network", 105, 105,
            [](Situation& situation) { situation.mountOnNetwork(situation.dataPath().text()); });
        both("package path too long", 109, 109, [](Situation& situation) {
            situation.databasePath().setText(situation.pathOfLength(longestDataPath));
        });
        both("package does not exist", 302, 201, [](Situation& situation) {
            situation.databasePath().setText(situation.home.path(u"gone.vmdb"_s));
        });
        both("file in place of the package", 302, 201, [](Situation& situation) {
            situation.databasePath().setText(situation.home.writeFile(u"p.vmdb"_s, "f"));
        });
        // The package fails two checks, lock and network. The message shows that the network is
        // checked first.
        both("locked package on the network", 105, 105, [](Situation& situation) {
            situation.lockPackage();
            situation.mountOnNetwork(situation.package);
        });
        both("package cannot be written", 301, 301,
            [](Situation& situation) { situation.host.makeReadOnly({situation.package}); });
        both("package is immutable", 301, 301, [](Situation& situation) {
            situation.host->isImmutable = [](const QString&) { return true; };
        });
        both("package without a store", 301, 301, [](Situation& situation) {
            QFile::remove(situation.home.path(u"cards.vmdb/Velmora.sqldb"_s));
        });
        both("package is locked", 304, 203, [](Situation& situation) { situation.lockPackage(); });
        both("too little space", 301, 103,
            [](Situation& situation) { situation.host.setFreeBytes(margin - 1); });

        QTest::addRow("import: no data file") << true << Prepare([](Situation& situation) {
            QFile::remove(DBCInterchangeNames::dataFile(situation.folder));
        }) << quint32 {309};
        QTest::addRow("import: folder under the data file's name")
            << true << Prepare([](Situation& situation) {
                   const QString file = DBCInterchangeNames::dataFile(situation.folder);
                   QFile::remove(file);
                   QDir().mkpath(file);
               })
            << quint32 {309};
        QTest::addRow("export: file where the folder is made")
            << false << Prepare([](Situation& situation) {
                   situation.home.writeFile(u"out/"_s + DBCInterchangeNames::rootFolderName(), "f");
               })
            << quint32 {204};
    }
    void failedCheckShowsItsOneMessageAndLeavesTheScreenReady()
    {
        QFETCH(bool, isImport);
        QFETCH(Prepare, prepare);
        Situation situation(isImport ? OperationType::Import : OperationType::Export);
        prepare(situation);
        const QStringList enabled = situation.enabledControls();
        QCOMPARE(enabled.size(), 12);

        for (int attempt = 0; attempt < 2; ++attempt) {
            situation.presenter.numbers.clear();
            situation.convert().click();
            QFETCH(quint32, number);
            QCOMPARE(situation.presenter.numbers, QList<quint32>({number}));
            QVERIFY(!situation.window.converter().isRunning());
            QCOMPARE(situation.enabledControls(), enabled);
            QVERIFY(situation.quitMenuItem().isEnabled());
            QCOMPARE(situation.hint(), QString());
            QCOMPARE(situation.message(), QString());
        }
        QVERIFY(situation.window.close());
    }

    void questionIsAskedEveryTimeAndNoStopsWithoutAMessage()
    {
        Situation situation(OperationType::Import);
        situation.presenter.answer = DBCAnswer::Alternate;
        for (int attempt = 1; attempt <= 2; ++attempt) {
            situation.convert().click();
            QCOMPARE(situation.presenter.questions.size(), attempt);
            QCOMPARE(situation.presenter.questions.last().key, mainApplicationMustNotRun);
        }
        QVERIFY(situation.presenter.numbers.isEmpty());
        QVERIFY(!situation.window.converter().isRunning());
    }

    void shortVersion113PassesAndFails1110()
    {
        Situation situation(OperationType::Import);
        situation.presenter.answer = DBCAnswer::Alternate;
        situation.installMainApplication("1.1.3");
        situation.convert().click();
        QCOMPARE(situation.presenter.numbers, QList<quint32>());
        QCOMPARE(situation.presenter.questions.size(), 1);
        situation.installMainApplication("1.1.10");
        situation.convert().click();
        QCOMPARE(situation.presenter.numbers, QList<quint32>({104}));
        QCOMPARE(situation.presenter.questions.size(), 1);
    }

    void olderExportStaysWhenTheAnswerIsNo()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        situation.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        situation.convert().click();
        QCOMPARE(situation.presenter.questions.size(), 2);
        QCOMPARE(situation.presenter.questions.last().key, oldExportGoes);
        QVERIFY(situation.presenter.numbers.isEmpty());
        QVERIFY(situation.hasOldExport());
        QVERIFY(!situation.window.converter().isRunning());
    }

    void olderExportGoesWhenTheAnswerIsYes()
    {
        Situation situation(OperationType::Export);
        situation.makeOldExport();
        situation.convert().click();
        QVERIFY(!situation.hasOldExport());
        QTRY_VERIFY(!situation.window.converter().isRunning());
    }

    void pathsMayHaveBlanksAHomeSignAndASlash_data()
    {
        QTest::addColumn<QString>("pattern"); // what the user types, with the path as %1
        QTest::newRow("blanks around") << u"  %1 "_s;
        QTest::newRow("ideographic blank behind") << u"%1\u3000"_s;
        QTest::newRow("slash behind") << u"%1/"_s;
        QTest::newRow("home sign") << u"~/../%1"_s;
    }
    void pathsMayHaveBlanksAHomeSignAndASlash()
    {
        QFETCH(QString, pattern);
        Situation situation(OperationType::Import);
        const bool isBelowHome = pattern.startsWith(u'~');
        const auto typed = [&](const QString& path) {
            return pattern.arg(isBelowHome ? QFileInfo(path).fileName() : path);
        };
        situation.dataPath().setText(typed(situation.folder));
        situation.databasePath().setText(typed(situation.package));
        situation.convert().click();
        // Both paths pass the checks, and the operation then fails because the folder is not an
        // interchange folder.
        QTRY_VERIFY(!situation.window.converter().isRunning());
        QCOMPARE(situation.presenter.numbers, QList<quint32>({316}));
    }
};

QTEST_MAIN(tst_converterChecks)
#include "tst_converterChecks.moc"

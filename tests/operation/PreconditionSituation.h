// SPDX-License-Identifier: GPL-3.0-or-later
// A test fixture with everything that the checks before an operation examine. Every check succeeds
// until a test changes something.
#pragma once

#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/DBCPreconditions.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The free bytes that every operation requires.
constexpr quint64 margin = 0x80000;

// A usable package, an interchange folder with a data file, an empty folder to export into, local
// disks with exactly the free bytes that are required, and a user who answers every question with
// Yes.
struct Situation {
    TestHome home;
    ScopedHost host;
    RecordingPresenter presenter;
    QString package = home.makeFolder(u"cards.vmdb"_s);
    QString interchange = home.makeFolder(u"interchange"_s);
    QString desktop = home.makeFolder(u"desktop"_s);
    OperationType type;

    explicit Situation(OperationType operationType)
        : type(operationType)
    {
        home.writeFile(u"cards.vmdb/Velmora.sqldb"_s, "store");
        home.writeFile(u"interchange/"_s + DBCInterchangeNames::dataFileName(), "d");
        presenter.answer = DBCAnswer::Default;
        host->applicationsFolder = home.path(u"Applications"_s);
        host.setFreeBytes(margin);
        mount("/", "ext4", "/dev/sda1");
    }

    void mount(const QByteArray& point, const QByteArray& type_, const QByteArray& device)
    {
        _mounts += "1 1 8:1 / " + point + " rw - " + type_ + ' ' + device + " rw\n";
        host->mountTable = home.writeFile(u"mountinfo"_s, _mounts);
    }
    void mountOnNetwork(const QString& path)
    {
        mount(QFile::encodeName(QFileInfo(path).canonicalFilePath()), "nfs4", "server:/export");
    }
    void installMainApplication(const QByteArray& version)
    {
        installVersionList("<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key>"
                           "<string>"
            + version + "</string></dict></plist>");
    }
    void installVersionList(const QByteArray& list)
    {
        home.writeFile(u"Applications/Velmora/Velmora.app/Contents/version.plist"_s, list);
    }
    // Locks the package until the test closes the returned descriptor.
    int lockPackage() const
    {
        const QString file = home.writeFile(u"cards.vmdb/.VMLock.vmlk"_s, "");
        const int holder = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        if (flock(holder, LOCK_EX | LOCK_NB) != 0)
            qFatal("cannot lock the package");
        return holder;
    }

    DBCPreconditions preconditions() const
    {
        return {type == OperationType::Import ? interchange : desktop, package, type};
    }
    bool check() const { return preconditions()._checkPrecondition(); }

    QString exportFolder() const { return desktop + u'/' + DBCInterchangeNames::rootFolderName(); }
    void makeOldExport() const
    {
        home.writeFile(u"desktop/"_s + DBCInterchangeNames::rootFolderName() + u"/old"_s, "old");
    }
    bool oldExportStands() const { return QFileInfo::exists(exportFolder() + u"/old"_s); }

    QStringList questionKeys() const
    {
        QStringList keys;
        for (const DBCQuestion& question : presenter.questions)
            keys << question.key;
        return keys;
    }

private:
    QByteArray _mounts;
};

// Returns a path below parent that has exactly the given number of bytes.
inline QString pathOfBytes(const QString& parent, qsizetype bytes)
{
    QString path = parent;
    while (bytes - path.toUtf8().size() > 256) // file systems allow no longer names
        path += u'/' + QString(200, u'x');
    return path + u'/' + QString(bytes - path.toUtf8().size() - 1, u'y');
}

inline const QList<quint32> nothingShown;

Q_DECLARE_METATYPE(OperationType)

inline void bothOperations()
{
    QTest::addColumn<OperationType>("type");
    QTest::newRow("import") << OperationType::Import;
    QTest::newRow("export") << OperationType::Export;
}

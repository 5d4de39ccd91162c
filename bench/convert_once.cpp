// SPDX-License-Identifier: GPL-3.0-or-later
// convert_once import FOLDER PACKAGE | export PACKAGE PARENT | backup PACKAGE
// Runs one conversion, or only the backup of a package, in this process. Prints the seconds that
// the backup took (0 for an export), so that a caller can subtract them from the process's time.
#include "carddb/DBCDataBaseController.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/DBCConverterController.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr double nanosecondsPerSecond = 1e9;

class BackupClock : public DBCEventReceiver {
public:
    void refreshProgress(const DBCEvent& event) override
    {
        if (event.name == DBCEventName::DatabaseBackupWillBegin)
            _clock.start();
        else if (event.name == DBCEventName::DatabaseBackupDidFinished)
            _nanoseconds = _clock.nsecsElapsed();
    }
    double seconds() const { return static_cast<double>(_nanoseconds) / nanosecondsPerSecond; }

private:
    QElapsedTimer _clock;
    qint64 _nanoseconds = 0;
};

int report(bool isOk, double backupSeconds)
{
    std::printf("%.6f\n", backupSeconds);
    return isOk ? 0 : 1;
}

int convert(const QString& folder, const QString& package, OperationType type)
{
    if (type == OperationType::Export)
        QDir(folder).mkpath(DBCInterchangeNames::rootFolderName());
    BackupClock clock;
    const auto controller = DBCConverterController::initWith(folder, package, type);
    controller->setWindowController(&clock);
    return report(controller->run(), clock.seconds());
}

int backUp(const QString& package)
{
    const auto database = DBCDataBaseController::initDBwithPath(package);
    if (!database)
        return 1;
    QElapsedTimer clock;
    clock.start();
    const DBCResultCode result = database->backup();
    return report(
        !isFailure(result), static_cast<double>(clock.nsecsElapsed()) / nanosecondsPerSecond);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString command = arguments.value(0);
    if (command == u"import"_s && arguments.size() == 3)
        return convert(arguments.at(1), arguments.at(2), OperationType::Import);
    if (command == u"export"_s && arguments.size() == 3)
        return convert(arguments.at(2), arguments.at(1), OperationType::Export);
    if (command == u"backup"_s && arguments.size() == 2)
        return backUp(arguments.at(1));
    std::fputs(
        "convert_once import FOLDER PACKAGE | export PACKAGE PARENT | backup PACKAGE\n", stderr);
    return 2;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// What has to hold before an operation may start. Window and terminal ask here, so that both refuse
// the same things for the same reasons. Each failed check shows its one message.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConverterController.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class DBCPreconditions {
public:
    // Import: dataPath is the interchange folder. Export: the folder in which one is made. A caller
    // that lets its user write "~" hands over expandedPath() of both, here and to the driver.
    DBCPreconditions(
        const QString& dataPath, const QString& databasePath, OperationType operationType);

    // All checks in their order; true when the operation may start. An export then has its new,
    // empty interchange folder, and an older one is gone.
    bool _checkPrecondition();
    bool _dataPathCheck();
    bool _vmdbPathCheck();
    // Makes the interchange folder with its two folders.
    bool createExportFolder();

    // Success for a path on a local volume; GeneralFailure for another, an empty path, and one
    // whose volume cannot be told.
    static DBCResultCode _networkPathCheck(const QString& path);

    // Why the last check said no.
    enum class Refusal : quint8 { None, ByCheck, ByUser };
    Refusal refusal() const { return _refusal; }

    // path with "~" or "~/" in front replaced by the home folder.
    static QString expandedPath(const QString& path);
    // Where the main application keeps its packages unless told otherwise.
    static QString _getDefaultDBPath();
    // The desktop folder; none when there is none.
    static std::optional<QString> _getDefaultDataFilePath();

    static constexpr quint32 dataPathLimit = 520; // bytes
    static constexpr quint32 databasePathLimit = 504; // bytes

private:
    bool settleLastImport();
    bool checkMainApplicationVersion();
    bool checkImportFolder();
    bool checkExportFolder();
    bool removeOldExportFolder();
    bool checkPackage();

    bool refuse(quint32 number, const DBCMessageArguments& arguments = {});
    bool ask(DBCQuestionId question, const DBCMessageArguments& arguments = {});
    bool isImport() const { return _operationType == OperationType::Import; }

    QString _dataPath;
    QString _databasePath;
    OperationType _operationType;
    QString _exportFolder; // the interchange folder that an export makes
    Refusal _refusal = Refusal::None;
};

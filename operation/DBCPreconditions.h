// SPDX-License-Identifier: GPL-3.0-or-later
// Checks that run before an operation may start. The window and the command line use this class, so
// both refuse the same paths for the same reasons. Each failed check shows one message.
//
// The names with a leading underscore are fixed and public here, although an underscore marks
// private operations everywhere else; the private operations of this class have none.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConverterController.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class DBCPreconditions {
public:
    // dataPath is the interchange folder of an import, or the folder in which an export makes its
    // interchange folder. If the user may write "~", the caller passes both paths through
    // expandedPath() before it gives them to this class and to the driver.
    DBCPreconditions(
        const QString& dataPath, const QString& databasePath, OperationType operationType);

    // Runs all checks in order and returns true if the operation may start. Before an export this
    // removes an older interchange folder, after asking the user, and makes a new, empty one.
    bool _checkPrecondition();
    bool _dataPathCheck();
    bool _vmdbPathCheck();
    // Makes the interchange folder of an export with its image folder and attachment folder.
    bool createExportFolder();

    // Returns Success for a path on a local volume. Returns GeneralFailure for a path on a network
    // volume, for an empty path, and when the volume cannot be determined.
    static DBCResultCode _networkPathCheck(const QString& path);

    // Why the last call of _checkPrecondition() returned false: a check failed, or the user
    // answered No to a question.
    enum class Refusal : quint8 { None, ByCheck, ByUser };
    Refusal refusal() const { return _refusal; }

    // Returns the path with a leading "~" or "~/" replaced by the home folder.
    static QString expandedPath(const QString& path);
    // The folder in which the main application keeps its packages by default.
    static QString _getDefaultDBPath();
    // Returns the desktop folder, or std::nullopt if the user has none.
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

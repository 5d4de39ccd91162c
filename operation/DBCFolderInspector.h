// SPDX-License-Identifier: GPL-3.0-or-later
// Reads an interchange folder as an import would and lists everything that the import would refuse,
// leave out or warn about, each with its line of the data file. It changes nothing in the folder.
// It uses the same rules as the import (DBCNamedFiles.h, DBCAttachmentRules.h, DBCItemLengths.h,
// readJpegForImport()). The inspection may run on any thread.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCLoopControl.h"
#include "operation/base/DBCProblem.h"
#include "system/DBCNameLookup.h"

#include <QString>

#include <functional>

class DBCError;
class DBCFileReader;

struct DBCFolderReport {
    // First the problems of the folder itself, then those of the lines in their order.
    DBCFindings findings;
    qint64 cardCount = 0; // lines from which an import makes a card
    quint64 bytesNeeded = 0; // free bytes that an import requires; 0 if they cannot be measured
    bool wasStopped = false; // the progress callback ended the inspection early
};

class DBCFolderInspector {
public:
    // inspect() calls this on the thread of its caller, before it reads the data file and after
    // each record or wrong line. finished is the number of lines read so far, max the number of
    // lines in the file. Both are 0 before the file has been read.
    using Progress = std::function<DBCLoopControl(qint64 finished, qint64 max)>;

    // If folder is no folder or may not be read, the report contains only this problem
    // (couldNotLook). If the callback stops the inspection, the report holds the problems found
    // until then.
    static DBCFolderReport inspect(const QString& folder, const Progress& progress = {});

private:
    DBCFolderInspector(const QString& folder, const Progress& progress);

    std::optional<DBCProblem> reasonNotToLook() const;
    void checkVersion();
    void measure();
    void checkDataFile();
    void readDataFile(const QString& path);
    DBCLoopControl askToContinue(qint64 finished, qint64 max);
    void checkReaderError(const DBCError& error, const DBCFileReader& reader, const QString& path);
    void checkRecord(const DBCRecord& record);
    void checkLengths(const DBCRecord& record);
    void checkImage(const DBCRecord& record, DBCRecordKey key);
    void checkAttachments(const DBCRecord& record);
    void checkAttachment(const DBCRecord& record, const QByteArray& folder, const QByteArray& name);

    void report(const QString& path, const char* key, const DBCMessageArguments& arguments = {});
    // Reports a problem of the record's line. The text is filled with the line number and the
    // card's full name, then with furtherArguments.
    void reportLine(const DBCRecord& record, const QString& path, const char* key,
        const QStringList& furtherArguments = {});

    QString _folder;
    const Progress& _progress;
    DBCNameLookup _names;
    DBCFolderReport _report;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// Reads an interchange folder as an import would and lists everything that the import would refuse,
// leave out or warn of, with the line it stands in. Changes nothing.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCProblem.h"
#include "system/DBCNameLookup.h"

#include <QString>

#include <functional>

class DBCError;
class DBCFileReader;

struct DBCFolderReport {
    DBCFindings findings; // problems in the order of the data file's lines, the folder's own first
    qint64 cardCount = 0; // lines that make a card
    quint64 bytesNeeded = 0; // free space that an import asks for; 0 when it cannot be measured
    bool wasStopped = false; // by whoever was told the progress
};

class DBCFolderInspector {
public:
    enum class Looking : bool { Stop, GoOn };
    // Asked before the data file is read, and after each line of it: lines done so far, and lines
    // of the file. Both are 0 as long as they are not known.
    using Progress = std::function<Looking(qint64 finished, qint64 max)>;

    // Nobody can look at what is no folder or may not be read. Whoever stops the look gets what it
    // found until then.
    static DBCFolderReport inspect(const QString& folder, const Progress& progress = {});

private:
    DBCFolderInspector(const QString& folder, const Progress& progress);

    std::optional<DBCProblem> reasonNotToLook() const;
    void checkVersion();
    void measure();
    void checkDataFile();
    void readDataFile(const QString& path);
    Looking look(qint64 finished, qint64 max);
    void checkReaderError(const DBCError& error, const DBCFileReader& reader, const QString& path);
    void checkRecord(const DBCRecord& record);
    void checkLengths(const DBCRecord& record);
    void checkImage(const DBCRecord& record, DBCRecordKey key);
    void checkAttachments(const DBCRecord& record);
    void checkAttachment(const DBCRecord& record, const QByteArray& folder, const QByteArray& name);

    void report(const QString& path, const char* key, const DBCMessageArguments& arguments = {});
    // The same about a line; the line's number and the card's name come first of the arguments.
    void reportLine(const DBCRecord& record, const QString& path, const char* key,
        const QStringList& furtherArguments = {});

    QString _folder;
    const Progress& _progress;
    DBCNameLookup _names;
    DBCFolderReport _report;
};

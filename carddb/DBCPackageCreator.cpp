// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageCreator.h"

#include "carddb/DBCPackageLayout.h"
#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCManagedObjectModel.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCProblemAt.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "system/DBCPathChecks.h"
#include "system/DBCPathNames.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* cardEntityNumber = "1";

// The property list in which the main application records facts about its model. It starts empty,
// because this program does not know these facts; the main application adds them itself.
constexpr const char* emptyPropertyList
    = R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict/></plist>)";

// Each of these steps returns the reason of its failure, or an empty text when it succeeded.

QString makeFolder(const QString& path)
{
    std::error_code error;
    if (std::filesystem::create_directory(nativePath(path), error))
        return {};
    // create_directory() reports no error for a folder that exists already, but then the folder is
    // not ours.
    if (!error)
        error = std::make_error_code(std::errc::file_exists);
    return QString::fromLocal8Bit(error.message().c_str());
}

QString writeVersionFile(const QString& path)
{
    const QString line
        = u"Velmora\t%1\r\n"_s.arg(QString::fromUtf16(DBCInterchangeNames::productVersion));
    const DBCResultCode code
        = DBCCommonFunction::saveFile(encodeText(line, DBCTextEncoding::Utf16), path);
    if (code == DBCResultCode::Success)
        return {};
    return u"%1 (%2)"_s.arg(path).arg(toNumber(code));
}

const char* columnType(DBCAttributeKind kind)
{
    switch (kind) {
    case DBCAttributeKind::Number:
        return " INTEGER";
    case DBCAttributeKind::Date:
        return " TIMESTAMP";
    case DBCAttributeKind::Text:
        break;
    }
    return " VARCHAR";
}

std::string createCardTable()
{
    std::string statement
        = "CREATE TABLE ZCARD (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER";
    for (const DBCCardAttribute& attribute : DBCCardAttributes)
        statement += ", " + cardColumnName(attribute.key) + columnType(attribute.kind);
    return statement + ")";
}

void fillStore(SQLite::Database& store)
{
    SQLite::Transaction transaction(store);
    store.exec(createCardTable());
    store.exec("CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, "
               "Z_SUPER INTEGER, Z_MAX INTEGER)");
    store.exec(std::string("INSERT INTO Z_PRIMARYKEY VALUES (") + cardEntityNumber + ", '"
        + DBCManagedObjectModel::entityName + "', 0, 0)");
    store.exec("CREATE TABLE Z_METADATA (Z_VERSION INTEGER PRIMARY KEY, Z_UUID VARCHAR(255), "
               "Z_PLIST BLOB)");
    SQLite::Statement metadata(store, "INSERT INTO Z_METADATA VALUES (1, ?, CAST(? AS BLOB))");
    metadata.bind(1, QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString());
    metadata.bind(2, emptyPropertyList);
    metadata.exec();
    transaction.commit();
}

QString makeStore(const QString& path)
{
    try {
        SQLite::Database store(
            nativePath(path).string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        fillStore(store);
        return {};
    } catch (const SQLite::Exception& exception) {
        return QString::fromLocal8Bit(exception.what());
    }
}

QString fillPackage(const QString& package)
{
    QString reason = makeFolder(DBCPackageLayout::imagesFolder(package));
    if (reason.isEmpty())
        reason = makeFolder(DBCPackageLayout::filesFolder(package));
    if (reason.isEmpty())
        reason = writeVersionFile(DBCPackageLayout::versionFile(package));
    if (reason.isEmpty())
        reason = makeStore(DBCPackageLayout::storeFile(package));
    return reason;
}

std::optional<DBCProblem> refusal(const QString& package)
{
    const QFileInfo info(package);
    if (info.suffix().toLower() != QString::fromUtf16(DBCPackageLayout::extension))
        return problemAt(package, "IDS_CREATE_WRONG_NAME");
    if (isTaken(package))
        return problemAt(package, "IDS_CREATE_EXISTS");
    if (!QFileInfo(info.path()).isDir())
        return problemAt(info.path(), "IDS_CREATE_NO_PARENT");
    return std::nullopt;
}

} // namespace

DBCPackageCreator::Result DBCPackageCreator::create(const QString& path)
{
    const QString package = QDir::cleanPath(path);
    if (const auto problem = refusal(package))
        return {Outcome::Refused, *problem};

    QString reason = makeFolder(package);
    if (reason.isEmpty()) {
        reason = fillPackage(package);
        if (reason.isEmpty())
            return {Outcome::Created, {}};
        std::error_code ignored;
        std::filesystem::remove_all(nativePath(package), ignored);
    }
    return {Outcome::Failed, problemAt(package, "IDS_CREATE_FAILED", {reason})};
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PackageFixture.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {

// These are written by hand and not taken from the program's own table, so that a mistake in that
// table shows.
constexpr std::array cardColumns {
    "Z_PK INTEGER PRIMARY KEY",
    "Z_ENT INTEGER",
    "Z_OPT INTEGER",
    "ZBACK_IMAGE_PAGE INTEGER",
    "ZCHECK INTEGER",
    "ZCONNECTED INTEGER",
    "ZCOUNTRYID INTEGER",
    "ZDELETEDFLAG INTEGER",
    "ZFACE_IMAGE_PAGE INTEGER",
    "ZFLAG1 INTEGER",
    "ZFLAG2 INTEGER",
    "ZGROUPID INTEGER",
    "ZOTHER_IMAGE_PAGE INTEGER",
    "ZSCANNOW INTEGER",
    "ZSELECT INTEGER",
    "ZSTATUS INTEGER",
    "ZOWNER INTEGER",
    "ZACCEPT_DATE TIMESTAMP",
    "ZREGISTER_DATE TIMESTAMP",
    "ZUPDATE_DATE TIMESTAMP",
    "ZADDRESS VARCHAR",
    "ZADDRESS_XY VARCHAR",
    "ZBACK_IMAGE_FILE VARCHAR",
    "ZCARDID VARCHAR",
    "ZCITY VARCHAR",
    "ZCOMPANY VARCHAR",
    "ZCOMPANY_KANA VARCHAR",
    "ZCOMPANY_XY VARCHAR",
    "ZCOUNTRY VARCHAR",
    "ZDEPARTMENT VARCHAR",
    "ZDEPARTMENT_XY VARCHAR",
    "ZE_MAIL VARCHAR",
    "ZE_MAIL_XY VARCHAR",
    "ZFACE_IMAGE_FILE VARCHAR",
    "ZFAMILY_NAME VARCHAR",
    "ZFAMILY_NAME_KANA VARCHAR",
    "ZFAX_NUMBER VARCHAR",
    "ZFAX_NUMBER_XY VARCHAR",
    "ZFIRST_NAME VARCHAR",
    "ZFIRST_NAME_KANA VARCHAR",
    "ZFULL_NAME VARCHAR",
    "ZFULL_NAME_KANA VARCHAR",
    "ZFULL_NAME_XY VARCHAR",
    "ZJOB_TITLE VARCHAR",
    "ZJOB_TITLE_XY VARCHAR",
    "ZMEMO VARCHAR",
    "ZMEMO_XY VARCHAR",
    "ZMIDDLE_NAME VARCHAR",
    "ZMIDDLE_NAME_KANA VARCHAR",
    "ZMOBILE_NUMBER VARCHAR",
    "ZMOBILE_NUMBER_XY VARCHAR",
    "ZOTHER_IMAGE_FILE VARCHAR",
    "ZPREFIX_NAME VARCHAR",
    "ZPREFIX_NAME_KANA VARCHAR",
    "ZSHORT_CUT VARCHAR",
    "ZSTATE VARCHAR",
    "ZSTREET VARCHAR",
    "ZSUFFIX_NAME VARCHAR",
    "ZSUFFIX_NAME_KANA VARCHAR",
    "ZSYNCID VARCHAR",
    "ZSYNC_EMAIL VARCHAR",
    "ZSYNC_PHONE_FAX VARCHAR",
    "ZSYNC_PHONE_MOBILE VARCHAR",
    "ZSYNC_PHONE_WORK VARCHAR",
    "ZSYNC_STREET VARCHAR",
    "ZSYNC_URL VARCHAR",
    "ZTELEPHONE_NUMBER VARCHAR",
    "ZTELEPHONE_NUMBER_XY VARCHAR",
    "ZWEB_PAGE_ADDRESS VARCHAR",
    "ZWEB_PAGE_ADDRESS_XY VARCHAR",
    "ZZIP_POSTALCODE VARCHAR",
    "ZZIP_POSTALCODE_XY VARCHAR",
    "ZTHUMBNAIL BLOB",
};

QString cardTableSql(const PackageLayout& layout)
{
    QStringList columns;
    for (const char* definition : cardColumns) {
        const QString column = QString::fromLatin1(definition);
        const QString name = column.section(u' ', 0, 0);
        if (layout.withoutColumns.contains(name))
            continue;
        const QString ownDefault = layout.columnDefaults.value(name);
        columns << (ownDefault.isEmpty() ? column : column + u" DEFAULT "_s + ownDefault);
    }
    return u"CREATE TABLE ZCARD (%1)"_s.arg(columns.join(u", "_s));
}

QString storeSql(const PackageLayout& layout)
{
    return u"BEGIN;"
           "%1;"
           "CREATE INDEX ZCARD_ZOWNER_INDEX ON ZCARD (ZOWNER);"
           "CREATE TABLE ZFOLDER (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, "
           "Z_OPT INTEGER, ZTITLE VARCHAR);"
           "INSERT INTO ZFOLDER VALUES (1, 90, 3, 'Clients');"
           "CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, "
           "Z_SUPER INTEGER, Z_MAX INTEGER);"
           "INSERT INTO Z_PRIMARYKEY VALUES (%2, '%3', 0, 0), (90, 'Folder', 0, 1);"
           "CREATE TABLE Z_METADATA (Z_VERSION INTEGER PRIMARY KEY, "
           "Z_UUID VARCHAR(255), Z_PLIST BLOB);"
           "INSERT INTO Z_METADATA VALUES (1, "
           "'5F1B6B0C-2E43-4B7C-9A57-1D0F3F1C2A77', x'62706C6973743030');"
           "COMMIT"_s.arg(
               cardTableSql(layout), QString::number(layout.entityNumber), layout.entityName);
}

void bind(SQLite::Statement& statement, int index, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        statement.bind(index);
        break;
    case QMetaType::Double:
        statement.bind(index, value.toDouble());
        break;
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        statement.bind(index, bytes.constData(), static_cast<int>(bytes.size()));
        break;
    }
    case QMetaType::QString:
        statement.bind(index, value.toString().toStdString());
        break;
    default:
        statement.bind(index, static_cast<int64_t>(value.toLongLong()));
    }
}

QVariant columnValue(const SQLite::Column& column)
{
    if (column.isNull())
        return {};
    if (column.isInteger())
        return QVariant::fromValue<qlonglong>(column.getInt64());
    if (column.isFloat())
        return column.getDouble();
    const std::string bytes = column.getString();
    if (column.isBlob())
        return QByteArray::fromStdString(bytes);
    return QString::fromStdString(bytes);
}

SQLite::Database openStore(const QString& path, int flags)
{
    constexpr int busyTimeoutMs = 2000;
    SQLite::Database store(QFile::encodeName(path).toStdString(), flags, busyTimeoutMs);
    store.exec("PRAGMA synchronous = OFF"); // tests need no safety from power cuts
    return store;
}

} // namespace

PackageFixture::PackageFixture(
    const TestHome& home, const PackageLayout& layout, const QString& name)
    : _path(home.makeFolder(name))
    , _entityNumber(layout.entityNumber)
{
    if (layout.imagesAndFilesFolders) {
        home.makeFolder(name + u"/Images"_s);
        home.makeFolder(name + u"/Files"_s);
    }
    writeFile(u"Version.txt"_s, QByteArrayLiteral("Velmora\t1.1.20\r\n"));
    SQLite::Database store = openStore(storePath(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    if (layout.writeAheadLog)
        store.exec("PRAGMA journal_mode = WAL");
    store.exec(storeSql(layout).toStdString());
}

QString PackageFixture::path(const QString& relative) const
{
    return relative.isEmpty() ? _path : _path + u'/' + relative;
}

PackageFixture::Card PackageFixture::card(Values values)
{
    ++_cards;
    QMap<QString, QVariant> row {
        {u"ZCARDID"_s, u"CARD-%1"_s.arg(_cards)},
        {u"ZFULL_NAME"_s, u"Name %1"_s.arg(_cards)},
        {u"ZACCEPT_DATE"_s, 250'000'000.25 + _cards},
        {u"ZDELETEDFLAG"_s, 0},
    };
    for (const auto& [column, value] : values)
        row[QString::fromLatin1(column)] = value;
    row.insert({{u"Z_PK"_s, _cards}, {u"Z_ENT"_s, _entityNumber}, {u"Z_OPT"_s, 1}});

    const QStringList places(row.size(), u"?"_s);
    execute(u"INSERT INTO ZCARD (%1) VALUES (%2)"_s.arg(row.keys().join(u','), places.join(u',')),
        row.values());
    execute(u"UPDATE Z_PRIMARYKEY SET Z_MAX = ? WHERE Z_ENT = ?"_s, {_cards, _entityNumber});
    return Card(*this, row.value(u"ZCARDID"_s).toString());
}

PackageFixture::Card& PackageFixture::Card::set(const char* column, const QVariant& value)
{
    _package.execute(
        u"UPDATE ZCARD SET %1 = ? WHERE ZCARDID = ?"_s.arg(QString::fromLatin1(column)),
        {value, _cardID});
    return *this;
}

PackageFixture::Card& PackageFixture::Card::deleted()
{
    return set("ZDELETEDFLAG", 1);
}

PackageFixture::Card& PackageFixture::Card::acceptedAt(double seconds)
{
    return set("ZACCEPT_DATE", seconds);
}

PackageFixture::Card& PackageFixture::Card::withPdf(const QByteArray& bytes)
{
    const QString name = _cardID + u"_N1.pdf"_s;
    _package.writeFile(u"Images/"_s + name, bytes);
    return set("ZFACE_IMAGE_FILE", name);
}

PackageFixture::Card& PackageFixture::Card::withAttachment(
    const QString& name, const QByteArray& bytes)
{
    _package.writeFile(u"Files/%1/%2"_s.arg(_cardID, name), bytes);
    return *this;
}

void PackageFixture::writeFile(const QString& relative, const QByteArray& bytes) const
{
    QFile file(path(relative));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

void PackageFixture::remove(const QString& relative) const
{
    const QFileInfo info(path(relative));
    const bool removed = info.isDir() && !info.isSymLink()
        ? QDir(info.filePath()).removeRecursively()
        : QFile::remove(info.filePath());
    if (!removed)
        qFatal("cannot remove %s", qPrintable(info.filePath()));
}

QByteArray PackageFixture::readFile(const QString& relative) const
{
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void PackageFixture::execute(const QString& sql, const QList<QVariant>& bindings) const
try {
    SQLite::Database store = openStore(storePath(), SQLite::OPEN_READWRITE);
    SQLite::Statement statement(store, sql.toStdString());
    for (qsizetype i = 0; i < bindings.size(); ++i)
        bind(statement, static_cast<int>(i) + 1, bindings[i]);
    statement.exec();
} catch (const SQLite::Exception& exception) {
    qFatal("%s: %s", qPrintable(sql), exception.what());
}

void PackageFixture::executeIntoLog(const QString& sql) const
try {
    SQLite::Database store = openStore(storePath(), SQLite::OPEN_READWRITE);
    sqlite3_db_config(store.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    store.exec(sql.toStdString());
} catch (const SQLite::Exception& exception) {
    qFatal("%s: %s", qPrintable(sql), exception.what());
}

QList<QVariantList> PackageFixture::rows(const QString& sql) const
try {
    SQLite::Database store = openStore(storePath(), SQLite::OPEN_READWRITE);
    SQLite::Statement statement(store, sql.toStdString());
    QList<QVariantList> result;
    while (statement.executeStep()) {
        QVariantList row;
        for (int i = 0; i < statement.getColumnCount(); ++i)
            row << columnValue(statement.getColumn(i));
        result << row;
    }
    return result;
} catch (const SQLite::Exception& exception) {
    qFatal("%s: %s", qPrintable(sql), exception.what());
}

QVariant PackageFixture::value(const QString& sql) const
{
    const QList<QVariantList> result = rows(sql);
    if (result.size() != 1 || result.first().isEmpty())
        qFatal("%s: %lld rows", qPrintable(sql), static_cast<long long>(result.size()));
    return result.first().first();
}

QMap<QString, QByteArray> PackageFixture::contents() const
{
    QMap<QString, QByteArray> result;
    QDirIterator entries(_path,
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString relative = entries.next().mid(_path.size() + 1);
        if (relative != u".VMLock.vmlk"_s)
            result[relative] = entries.fileInfo().isDir() ? QByteArray() : readFile(relative);
    }
    return result;
}

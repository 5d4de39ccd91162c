// SPDX-License-Identifier: GPL-3.0-or-later
// Compares the two catalogues of the strings table, English and Japanese, with each other, with the
// texts that are compiled into the program, and with the keys that the sources use.

#include "datafile/helpers/DBCLocalizable.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

using Language = DBCLocalizable::Language;

struct Entry {
    QString source;
    QString translation;
};
using Catalogue = QMap<QString, Entry>;

// The numbers of all messages. keyOfMessage() makes the key of a message from its number.
const QList<int> messageNumbers {101, 102, 103, 104, 105, 106, 108, 109, 110, 111, 201, 202, 203,
    204, 205, 206, 207, 208, 209, 210, 211, 301, 302, 304, 306, 307, 308, 309, 310, 311, 313, 314,
    315, 316, 317};

// The keys of texts that have the same words in both languages.
const QSet<QString> untranslatedKeys {
    u"IDS_TITLE_WINDOW"_s,
    u"IDS_BUTTON_MSG_OK"_s,
    u"IDS_CLI_PROMPT"_s,
};

bool isNameOnDisk(const QString& key)
{
    return key.startsWith(u"IDS_CSV_TITLE_"_s) || key.startsWith(u"IDS_FOLDER_STRUCT_"_s);
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QString keyOfMessage(int number)
{
    return u"IDS_MSG_ERR_%1"_s.arg(number, 4, 10, QChar(u'0'));
}

// Returns the entries in the order of the file. A key that the file has twice is returned twice, so
// that a test can find it.
QList<std::pair<QString, Entry>> readEntries(const QString& language)
{
    QXmlStreamReader reader(contentsOf(
        QStringLiteral(VELMORA_SOURCE_DIR) + u"/resources/i18n/Localizable_%1.ts"_s.arg(language)));
    QList<std::pair<QString, Entry>> entries;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == u"message"_s)
            entries.append({reader.attributes().value(u"id"_s).toString(), {}});
        else if (reader.name() == u"source"_s)
            entries.last().second.source = reader.readElementText();
        else if (reader.name() == u"translation"_s)
            entries.last().second.translation = reader.readElementText();
    }
    if (reader.hasError())
        qFatal("%s: %s", qPrintable(language), qPrintable(reader.errorString()));
    return entries;
}

Catalogue catalogueOf(const QString& language)
{
    Catalogue catalogue;
    for (const auto& [key, entry] : readEntries(language))
        catalogue.insert(key, entry);
    return catalogue;
}

QSet<QString> placeholdersOf(const QString& text)
{
    static const QRegularExpression placeholder(u"%L?[1-9]"_s);
    QSet<QString> found;
    for (auto match = placeholder.globalMatch(text); match.hasNext();)
        found.insert(match.next().captured());
    return found;
}

QSet<QString> keysOfSources()
{
    static const QRegularExpression key(u"\\bIDS_[A-Za-z0-9_]*[A-Za-z0-9]\\b"_s);
    QSet<QString> keys;
    for (const char* folder : {"text", "system", "datafile", "cardimage", "carddb", "report",
             "operation", "cli", "app", "resources"}) {
        QDirIterator files(u"" VELMORA_SOURCE_DIR "/"_s + QString::fromLatin1(folder),
            {u"*.h"_s, u"*.cpp"_s, u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString text = QString::fromUtf8(contentsOf(files.next()));
            for (auto match = key.globalMatch(text); match.hasNext();)
                keys.insert(match.next().captured());
        }
    }
    return keys;
}

QString sorted(const QSet<QString>& keys)
{
    QStringList list(keys.cbegin(), keys.cend());
    list.sort();
    return list.join(u' ');
}

template <typename Map> QSet<QString> keySet(const Map& map)
{
    const QStringList keys = map.keys();
    return {keys.cbegin(), keys.cend()};
}

} // namespace

class tst_stringsTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        _english = catalogueOf(u"en"_s);
        _japanese = catalogueOf(u"ja"_s);
        QVERIFY(_english.size() >= 100);
    }

    void keysStandOnceAndInOrder_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << u"en"_s;
        QTest::newRow("Japanese") << u"ja"_s;
    }
    void keysStandOnceAndInOrder()
    {
        QFETCH(QString, language);
        QString before;
        for (const auto& [key, entry] : readEntries(language)) {
            QVERIFY2(before < key, qPrintable(key));
            before = key;
        }
    }

    void bothCataloguesHaveTheSameKeys()
    {
        QCOMPARE(sorted(keySet(_english) - keySet(_japanese)), QString());
        QCOMPARE(sorted(keySet(_japanese) - keySet(_english)), QString());
    }

    void noTextIsEmpty()
    {
        for (const Catalogue& catalogue : {_english, _japanese}) {
            for (const auto& [key, entry] : catalogue.asKeyValueRange())
                QVERIFY2(!entry.translation.trimmed().isEmpty(), qPrintable(key));
        }
    }

    void bothTextsTakeTheSameArguments()
    {
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            QVERIFY2(
                placeholdersOf(entry.translation) == placeholdersOf(_japanese[key].translation),
                qPrintable(key));
        }
    }

    void textsTakeTheArgumentsTheyAreGiven_data()
    {
        QTest::addColumn<int>("given");
        const auto row = [](const char* key, int given) { QTest::newRow(key) << given; };
        row("IDS_LOG_INF_START", 2);
        row("IDS_LOG_INF_END", 1);
        row("IDS_LOG_INF_END_WITH_INFO_IMPORT", 4);
        row("IDS_LOG_INF_END_WITH_INFO_EXPORT", 4);
        row("IDS_LOG_INF_EXISTS_WRN_OR_ERR", 0);
        row("IDS_LOG_INF_CANCEL_OPERATION", 0);
        row("IDS_LOG_INF_VMDB_BACKUP_FILE_NAME", 1);
        row("IDS_LOG_WRN_FILE_NO_EXISTS", 1);
        row("IDS_LOG_WRN_ITEM_MAX_LEN", 3);
        row("IDS_LOG_WRN_CONVERT_FAIL", 3);
        row("IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS", 3);
        row("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT", 2);
        row("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT", 2);
        row("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE", 0);
        row("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE", 0);
        row("IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE", 0);
        row("IDS_MSG_DATA_COUNT", 1);
        row("IDS_MSG_IMPORT_COUNT", 1);
        row("IDS_MSG_EXPORT_COUNT", 1);
        row("IDS_MSG_IMPORT_PROGRESS", 1);
        row("IDS_MSG_EXPORT_PROGRESS", 1);
        row("IDS_MSG_PROCESS_IS_RUNNING", 1);
        row("IDS_MSG_PROCESS_IS_FINISHED", 1);
        row("IDS_MSG_REFERENCE_LOG_FILE", 0);
        row("IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING", 1);
        row("IDS_MSG_DB_OPERATION_SUCCESS", 1);
        row("IDS_MSG_DB_RESTORE_FINISH", 1);
        const QMap<int, int> messagesWithArguments {{104, 2}, {105, 1}, {109, 1}, {110, 1},
            {111, 1}, {201, 1}, {202, 1}, {203, 1}, {204, 1}, {205, 1}, {211, 1}, {302, 1},
            {304, 1}, {307, 1}, {308, 1}, {309, 1}, {311, 2}, {317, 1}};
        for (const int number : messageNumbers)
            row(qPrintable(keyOfMessage(number)), messagesWithArguments.value(number, 0));
    }
    void textsTakeTheArgumentsTheyAreGiven()
    {
        QFETCH(int, given);
        const QString key = QString::fromLatin1(QTest::currentDataTag());
        QSet<int> taken;
        for (const QString& placeholder : placeholdersOf(_english[key].translation))
            taken.insert(placeholder.last(1).toInt());
        QSet<int> expected;
        for (int number = 1; number <= given; ++number)
            expected.insert(number);
        QCOMPARE(taken, expected);
    }

    void everyTextIsTranslated()
    {
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            const bool isSame = entry.translation == _japanese[key].translation;
            QVERIFY2(
                isSame == (isNameOnDisk(key) || untranslatedKeys.contains(key)), qPrintable(key));
        }
    }

    void japaneseCatalogueShowsTheEnglishText()
    {
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            QCOMPARE(entry.source, entry.translation);
            QCOMPARE(_japanese[key].source, entry.translation);
        }
    }

    void compiledTextsAreThoseOfTheCatalogues()
    {
        DBCLocalizable::setLanguage(Language::Japanese);
        for (const auto& [key, entry] : _japanese.asKeyValueRange())
            QCOMPARE(DBCLocalizable::text(key), entry.translation);
        DBCLocalizable::setLanguage(Language::English);
        for (const auto& [key, entry] : _english.asKeyValueRange())
            QCOMPARE(DBCLocalizable::text(key), entry.translation);
    }

    // The program also writes messages into the log, where each message is one line.
    void messagesAreOneLine()
    {
        for (const Catalogue& catalogue : {_english, _japanese}) {
            for (const auto& [key, entry] : catalogue.asKeyValueRange()) {
                const bool isLogged
                    = key.startsWith(u"IDS_MSG_ERR_"_s) || key.startsWith(u"IDS_LOG_"_s);
                QVERIFY2(!isLogged || !entry.translation.contains(u'\n'), qPrintable(key));
            }
        }
    }

    void namesOnDiskAreTheSameInBothLanguages()
    {
        int names = 0;
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            if (!isNameOnDisk(key))
                continue;
            QCOMPARE(entry.translation, _japanese[key].translation);
            ++names;
        }
        QCOMPARE(names, 21 + 4);
    }

    void namesOnDiskFitEveryFileSystem()
    {
        static const QRegularExpression refused(u"[\\x00-\\x1f/\\\\:*?\"<>|]|^[. ]|[. ]$"_s);
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            if (!isNameOnDisk(key))
                continue;
            const QString& name = entry.translation;
            QVERIFY2(!name.contains(refused), qPrintable(key));
            QCOMPARE(name.normalized(QString::NormalizationForm_C), name);
        }
    }

    void columnTitlesDiffer()
    {
        QSet<QString> titles;
        for (const auto& [key, entry] : _english.asKeyValueRange()) {
            if (!key.startsWith(u"IDS_CSV_TITLE_"_s))
                continue;
            QVERIFY2(!titles.contains(entry.translation), qPrintable(key));
            titles.insert(entry.translation);
        }
        QCOMPARE(titles.size(), 21);
    }

    void everyKeyOfTheSourcesHasAText()
    {
        QCOMPARE(sorted(keysOfSources() - keySet(_english)), QString());
    }

    void everyMessageNumberHasAText()
    {
        for (const int number : messageNumbers)
            QVERIFY2(_english.contains(keyOfMessage(number)), qPrintable(keyOfMessage(number)));
    }

    void noTextIsUnused()
    {
        QSet<QString> used = keysOfSources();
        for (const int number : messageNumbers)
            used.insert(keyOfMessage(number));
        QCOMPARE(sorted(keySet(_english) - used), QString());
    }

private:
    Catalogue _english;
    Catalogue _japanese;
};

QTEST_GUILESS_MAIN(tst_stringsTable)
#include "tst_stringsTable.moc"

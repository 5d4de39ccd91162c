// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that the program has the same name and the same version in its window and in every file
// that is installed for the desktop, so that the desktop recognizes the window as this program.
#include "operation/log/DBCPropertyList.h"
#include "operation/log/DBCSettings.h"
#include "tests/app/VirtualDisplay.h"
#include "tests/support/TestHome.h"

#include <QImage>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 20'000;

QString identifier()
{
    return QString::fromLatin1(DBCSettings::bundleIdentifier);
}

QString desktopFile()
{
    return u"" VELMORA_SOURCE_DIR "/packaging/%1.desktop"_s.arg(identifier());
}

QString metainfoFile()
{
    return u"" VELMORA_PACKAGING "/%1.metainfo.xml"_s.arg(identifier());
}

QString textOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString entry(const char* key)
{
    const QString text = textOf(desktopFile());
    const QString start = u"\n%1="_s.arg(QLatin1String(key));
    const qsizetype at = text.indexOf(start);
    return at < 0 ? QString() : text.mid(at + start.size()).section(u'\n', 0, 0);
}

// Returns the texts of all elements with that name.
QStringList metainfo(const char* element)
{
    QFile file(metainfoFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList texts;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement
            && reader.name() == QLatin1String(element))
            texts << reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return texts;
}

// Returns the attributes of the newest release, which the file lists first.
QXmlStreamAttributes newestRelease()
{
    QFile file(metainfoFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"release"_s)
            return reader.attributes();
    }
    return {};
}

QString run(const QString& program, const QStringList& arguments, int* exitCode = nullptr)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(patienceMs);
    if (exitCode)
        *exitCode = process.exitCode();
    return QString::fromUtf8(process.readAll());
}

} // namespace

class tst_desktopIdentity : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFileBearsTheApplicationIdentifier()
    {
        const auto dictionary
            = DBCPropertyList::read(u"" VELMORA_SOURCE_DIR "/resources/Info.plist"_s);
        QVERIFY(dictionary);
        QCOMPARE(dictionary->value(u"CFBundleIdentifier"_s).toString(), identifier());
        QCOMPARE(entry("Icon"), identifier());
        QCOMPARE(entry("Exec"), u"VelmoraConverter"_s);
        QCOMPARE(metainfo("id"), QStringList(identifier()));
        QCOMPARE(metainfo("launchable"), QStringList(identifier() + u".desktop"_s));
        QVERIFY(
            QFile::exists(u"" VELMORA_SOURCE_DIR "/resources/icons/%1.svg"_s.arg(identifier())));
    }

    void versionIsTheSameEverywhere()
    {
        const QString version = QStringLiteral(VELMORA_VERSION);
        QCOMPARE(newestRelease().value(u"version"_s).toString(), version);
        const QString changelog = textOf(u"" VELMORA_SOURCE_DIR "/packaging/debian/changelog"_s);
        QVERIFY2(
            changelog.startsWith(u"velmora-converter (%1-"_s.arg(version)), qPrintable(changelog));
        QCOMPARE(run(QStringLiteral(VELMORA_CONVERT), {u"--version"_s}),
            u"velmora-convert %1\n"_s.arg(version));
    }

    void releaseHasOneDate()
    {
        static const QRegularExpression trailer(u"\n -- .*>  (.*)\n"_s);
        const auto match
            = trailer.match(textOf(u"" VELMORA_SOURCE_DIR "/packaging/debian/changelog"_s));
        QVERIFY(match.hasMatch());
        const QDateTime time = QDateTime::fromString(match.captured(1), Qt::RFC2822Date);
        QCOMPARE(newestRelease().value(u"date"_s).toString(), time.date().toString(Qt::ISODate));
    }

    void picturesOfTheMetainfoAreThoseOfTheDocumentation()
    {
        const QStringList pictures = metainfo("image");
        QVERIFY(pictures.size() >= 2);
        for (const QString& picture : pictures) {
            const QString name = picture.section(u'/', -2);
            QVERIFY2(QFile::exists(u"" VELMORA_SOURCE_DIR "/docs/"_s + name), qPrintable(picture));
        }
    }

    void japaneseReadersAreServed()
    {
        for (const char* key : {"Name[ja]", "GenericName[ja]", "Comment[ja]", "Keywords[ja]"})
            QVERIFY2(!entry(key).isEmpty(), key);
        const QString text = textOf(metainfoFile());
        const auto count
            = [&](const QString& what) { return text.count(QRegularExpression(what)); };
        for (const char* element : {"summary", "p", "li", "caption"}) {
            const QString name = QString::fromLatin1(element);
            const qsizetype japanese = count(u"<%1 xml:lang=\"ja\">"_s.arg(name));
            QVERIFY2(japanese > 0, element);
            QCOMPARE(japanese, count(u"<%1>"_s.arg(name)));
        }
    }

    void iconIsThereInEverySize_data()
    {
        QTest::addColumn<int>("size");
        for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
            QTest::addRow("%d", size) << size;
    }
    void iconIsThereInEverySize()
    {
        QFETCH(int, size);
        const QImage icon(u"" VELMORA_ICONS "/%1.png"_s.arg(size));
        QCOMPARE(icon.size(), QSize(size, size));
        QVERIFY(icon.hasAlphaChannel());
        QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
        // The icon shows bright paper and something blue. If either is missing, the program that
        // drew the icon has drawn nothing, or only an area of one colour.
        int bright = 0;
        int blue = 0;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const QColor color = icon.pixelColor(x, y);
                bright += color.alpha() == 255 && color.lightness() > 220 ? 1 : 0;
                blue += color.alpha() == 255 && color.blue() > color.red() + 60 ? 1 : 0;
            }
        }
        QVERIFY(bright > size * size / 10);
        QVERIFY(blue > size * size / 20);
    }

    void windowBearsTheIconAndTheNameOfTheDesktopEntry()
    {
        const TestHome home;
        VirtualDisplay display;
        QProcess program;
        program.setProcessEnvironment(display.environment());
        program.start(QStringLiteral(VELMORA_CONVERTER), {});
        const QString title = u"VelmoraConverter"_s;
        QTRY_COMPARE_WITH_TIMEOUT(display.windows().activeTitle(), title, patienceMs);

        const QString properties
            = run(u"xprop"_s, {u"-display"_s, display.name(), u"-name"_s, title});
        program.terminate();
        QVERIFY(program.waitForFinished(patienceMs));

        QVERIFY2(properties.contains(u"WM_CLASS(STRING) = \"VelmoraConverter\", \"%1\""_s.arg(
                     entry("StartupWMClass"))),
            qPrintable(properties));
        for (const int size : {16, 24, 32, 48, 64, 128})
            QVERIFY(properties.contains(u"Icon (%1 x %1)"_s.arg(size)));
    }

    void desktopEntryIsValid()
    {
        const QString validator = u"desktop-file-validate"_s;
        if (QStandardPaths::findExecutable(validator).isEmpty())
            QSKIP("desktop-file-validate is not installed");
        int exitCode = -1;
        QCOMPARE(run(validator, {desktopFile()}, &exitCode), QString());
        QCOMPARE(exitCode, 0);
    }

    void metainfoIsValid()
    {
        const QString validator = u"appstreamcli"_s;
        if (QStandardPaths::findExecutable(validator).isEmpty())
            QSKIP("appstreamcli is not installed");
        int exitCode = -1;
        const QString answer
            = run(validator, {u"validate"_s, u"--no-net"_s, metainfoFile()}, &exitCode);
        QVERIFY2(exitCode == 0, qPrintable(answer));
        // The file names the developers in an old and in a new way. Each version of the validator
        // remarks on one of them.
        QStringList remarks = answer.split(u'\n').filter(u"I: "_s);
        remarks.removeIf([](const QString& remark) {
            return remark.contains(u": unknown-tag developer"_s)
                || remark.contains(u": developer-name-tag-deprecated"_s);
        });
        QCOMPARE(remarks, QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_desktopIdentity)
#include "tst_desktopIdentity.moc"

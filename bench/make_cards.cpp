// SPDX-License-Identifier: GPL-3.0-or-later
// make_cards [--links | --lines] FOLDER COUNT
// Makes an interchange folder of COUNT cards: two JPEGs each, every fourth card with two
// attachments. --links: equal images are hard links to one file. --lines: the data file alone.
#include "bench/card_textures.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "datafile/records/DBCRecord.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <cstdio>
#include <filesystem>
#include <random>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr unsigned distinctImages = 8;
constexpr int attachmentBytes = 50'000;
constexpr int cardsPerAttachment = 4;

enum class ImageFiles : quint8 { Copied, Linked, None };

fs::path native(const QString& path)
{
    return fs::path(path.toStdU16String());
}

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

bool hasAttachments(int card)
{
    return card % cardsPerAttachment == 0;
}

QString value(DBCRecordKey key, int card)
{
    const QString number = QString::number(card);
    switch (key) {
    case DBCRecordKey::face_Image_File:
        return DBCInterchangeNames::faceImageName(number);
    case DBCRecordKey::back_Image_File:
        return DBCInterchangeNames::backImageName(number);
    case DBCRecordKey::attachmentFile:
        return hasAttachments(card) ? number : QString();
    case DBCRecordKey::full_Name:
        return QStringLiteral("山田　太郎") + number;
    case DBCRecordKey::full_Name_Kana:
        return QStringLiteral("ﾔﾏﾀﾞ ﾀﾛｳ") + number;
    case DBCRecordKey::company:
        return QStringLiteral("株式会社見本商事") + number;
    case DBCRecordKey::company_Kana:
        return QStringLiteral("ｶﾌﾞｼｷｶﾞｲｼｬ ﾐﾎﾝｼｮｳｼﾞ");
    case DBCRecordKey::department:
        return QStringLiteral("営業本部 第一営業部 ﾃﾞｼﾞﾀﾙ推進課");
    case DBCRecordKey::job_Title:
        return QStringLiteral("課長");
    case DBCRecordKey::zip_PostalCode:
        return QStringLiteral("000-0000");
    case DBCRecordKey::state:
        return QStringLiteral("東京都");
    case DBCRecordKey::city:
        return QStringLiteral("見本区");
    case DBCRecordKey::street:
        return QStringLiteral("中央1-2-3 見本ビル4F");
    case DBCRecordKey::telephone_Number:
    case DBCRecordKey::fax_Number:
        return QStringLiteral("03-0000-0000");
    case DBCRecordKey::mobile_Number:
        return QStringLiteral("090-0000-0000");
    case DBCRecordKey::e_Mail:
        return number + QStringLiteral("@mihon.example.jp");
    case DBCRecordKey::web_Page_Address:
        return QStringLiteral("https://mihon.example.jp/");
    case DBCRecordKey::memo:
        return QStringLiteral("展示会で名刺交換。資料を送付のこと。");
    case DBCRecordKey::register_Date:
        return QStringLiteral("2024/04/01");
    default:
        return {};
    }
}

bool writeDataFile(const QString& folder, int count)
{
    constexpr QChar tab = u'\t';
    const QString lineEnd = QStringLiteral("\r\n");
    QString text = DBCCommonFunction::createTitleNamesForDataFile().join(tab) + lineEnd;
    const auto keys = DBCCommonFunction::createRecordKeyNamesForDataFile();
    for (int card = 1; card <= count; ++card) {
        QStringList items;
        for (const DBCRecordKey key : keys)
            items << value(key, card);
        text += items.join(tab) + lineEnd;
    }
    return write(DBCInterchangeNames::dataFile(folder), encodeText(text, DBCTextEncoding::Utf16));
}

QByteArray attachmentContent()
{
    std::minstd_rand random(1);
    QByteArray bytes(attachmentBytes, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

bool writeAttachments(const QString& folder, int count)
{
    const QByteArray content = attachmentContent();
    for (int card = cardsPerAttachment; card <= count; card += cardsPerAttachment) {
        const QDir own(
            DBCInterchangeNames::attachmentFolder(folder) + u'/' + QString::number(card));
        if (!own.mkpath(QStringLiteral("."))
            || !write(own.filePath(QStringLiteral("a.bin")), content)
            || !write(own.filePath(QStringLiteral("b.bin")), content))
            return false;
    }
    return true;
}

// The distinct images beside the folder, so that they never belong to it.
std::vector<fs::path> writeModels(const QString& folder)
{
    std::vector<fs::path> models;
    for (unsigned number = 0; number < distinctImages; ++number) {
        const QString path = folder + QStringLiteral(".model%1.jpg").arg(number);
        const auto bytes = cardJpeg(number);
        if (write(path,
                QByteArray(reinterpret_cast<const char*>(bytes.data()), // NOLINT
                    static_cast<qsizetype>(bytes.size()))))
            models.push_back(native(path));
    }
    return models;
}

void placeImages(const QString& folder, int count, ImageFiles files)
{
    const QDir images(DBCInterchangeNames::imageFolder(folder));
    images.mkpath(QStringLiteral("."));
    const auto models = writeModels(folder);
    std::size_t next = 0;
    const auto place = [&](const QString& name) {
        const fs::path& model = models.at(next++ % models.size());
        const fs::path target = native(images.filePath(name));
        if (files == ImageFiles::Linked)
            fs::create_hard_link(model, target);
        else
            fs::copy_file(model, target);
    };
    for (int card = 1; card <= count; ++card) {
        place(DBCInterchangeNames::faceImageName(QString::number(card)));
        place(DBCInterchangeNames::backImageName(QString::number(card)));
    }
    for (const fs::path& model : models)
        fs::remove(model);
}

bool makeCards(const QString& folder, int count, ImageFiles files)
{
    const QByteArray version = encodeText(u"VELMORA\tV1.0L10\r\n", DBCTextEncoding::Utf16);
    if (!QDir().mkpath(folder) || !write(DBCInterchangeNames::versionFile(folder), version)
        || !writeDataFile(folder, count))
        return false;
    if (files == ImageFiles::None)
        return true;
    placeImages(folder, count, files);
    return writeAttachments(folder, count);
}

} // namespace

int main(int argc, char** argv)
try {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    ImageFiles files = ImageFiles::Copied;
    if (arguments.removeOne(QStringLiteral("--links")))
        files = ImageFiles::Linked;
    if (arguments.removeOne(QStringLiteral("--lines")))
        files = ImageFiles::None;
    if (arguments.size() != 2) {
        std::fputs("make_cards [--links | --lines] FOLDER COUNT\n", stderr);
        return 2;
    }
    return makeCards(arguments.at(0), arguments.at(1).toInt(), files) ? 0 : 1;
} catch (const std::exception& exception) {
    std::fprintf(stderr, "make_cards: %s\n", exception.what());
    return 1;
}

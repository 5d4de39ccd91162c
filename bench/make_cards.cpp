// SPDX-License-Identifier: GPL-3.0-or-later
// make_cards [--links | --lines] FOLDER COUNT
// Makes an interchange folder of COUNT cards. Each card has two JPEGs, and every fourth card has
// two attachments. With --links, equal images are hard links to one file. With --lines, the folder
// has neither images nor attachments.
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

using namespace Qt::StringLiterals;

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
        return u"山田　太郎"_s + number;
    case DBCRecordKey::full_Name_Kana:
        return u"ﾔﾏﾀﾞ ﾀﾛｳ"_s + number;
    case DBCRecordKey::company:
        return u"株式会社見本商事"_s + number;
    case DBCRecordKey::company_Kana:
        return u"ｶﾌﾞｼｷｶﾞｲｼｬ ﾐﾎﾝｼｮｳｼﾞ"_s;
    case DBCRecordKey::department:
        return u"営業本部 第一営業部 ﾃﾞｼﾞﾀﾙ推進課"_s;
    case DBCRecordKey::job_Title:
        return u"課長"_s;
    case DBCRecordKey::zip_PostalCode:
        return u"000-0000"_s;
    case DBCRecordKey::state:
        return u"東京都"_s;
    case DBCRecordKey::city:
        return u"見本区"_s;
    case DBCRecordKey::street:
        return u"中央1-2-3 見本ビル4F"_s;
    case DBCRecordKey::telephone_Number:
    case DBCRecordKey::fax_Number:
        return u"03-0000-0000"_s;
    case DBCRecordKey::mobile_Number:
        return u"090-0000-0000"_s;
    case DBCRecordKey::e_Mail:
        return number + u"@mihon.example.jp"_s;
    case DBCRecordKey::web_Page_Address:
        return u"https://mihon.example.jp/"_s;
    case DBCRecordKey::memo:
        return u"展示会で名刺交換。資料を送付のこと。"_s;
    case DBCRecordKey::register_Date:
        return u"2024/04/01"_s;
    default:
        return {};
    }
}

bool writeDataFile(const QString& folder, int count)
{
    constexpr QChar tab = u'\t';
    const QString lineEnd = u"\r\n"_s;
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
        if (!own.mkpath(u"."_s) || !write(own.filePath(u"a.bin"_s), content)
            || !write(own.filePath(u"b.bin"_s), content))
            return false;
    }
    return true;
}

// Writes each distinct image once, beside the folder, and returns the paths. placeImages() copies
// or links these files into the folder and then removes them.
std::vector<fs::path> writeModels(const QString& folder)
{
    std::vector<fs::path> models;
    for (unsigned number = 0; number < distinctImages; ++number) {
        const QString path = folder + u".model%1.jpg"_s.arg(number);
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
    images.mkpath(u"."_s);
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
    if (arguments.removeOne(u"--links"_s))
        files = ImageFiles::Linked;
    if (arguments.removeOne(u"--lines"_s))
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

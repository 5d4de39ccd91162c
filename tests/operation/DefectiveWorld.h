// SPDX-License-Identifier: GPL-3.0-or-later
// A test fixture with a folder whose data file holds one card for each kind of defect. After a
// conversion, the fixture reads the report about that folder.
#pragma once

#include "tests/operation/ConversionWorld.h"
#include "tests/operation/ReportReading.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// The lines of the data file, which has the titles in line 1. Each name says what is wrong with the
// card in that line.
enum DefectiveLine : int {
    Sound = 2,
    MissingImage,
    NoJpeg,
    TruncatedJpeg,
    NameThatLeadsOut,
    OverlongItem,
    BadAttachmentName,
    PipeAmongAttachments,
    LinkAmongAttachments,
    MissingDate,
    MarkupInName,
    LineBreakInName,
    ControlsInName,
    NoNameAtAll,
};

inline const QString markup = u"<b>\"Tom\" & 'Co'</b> &amp; %1"_s;

struct DefectiveWorld : ConversionWorld {
    using Language = DBCLocalizable::Language;

    explicit DefectiveWorld(Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        home.writeFile(u"secret.jpg"_s, front);
        folder.image(u"text.jpg"_s, "no picture at all")
            .image(u"half.jpg"_s, front.first(front.size() / 3))
            .attachment(u"bad"_s, u"a:b.txt"_s, "x")
            .attachment(u"pipe"_s, u"good.txt"_s, "x")
            .attachment(u"link"_s, u"good.txt"_s, "x");
        const QByteArray pipe
            = QFile::encodeName(folder.attachmentPath(u"pipe"_s, text(u"管.fifo")));
        if (mkfifo(pipe.constData(), 0600) != 0
            || !QFile::link(folder.path(), folder.attachmentPath(u"link"_s, u"way out"_s)))
            qFatal("the folder cannot be spoilt");
        folder.dataFile(rows().build());
    }

    DataFileBuilder rows() const
    {
        const std::pair<Key, QString> date {Key::register_Date, text(u"2009/03/05")};
        const std::pair<Key, QString> missing {Key::face_Image_File, text(u"gone.jpg")};
        return DataFileBuilder()
            .titleLine()
            .row({{Key::full_Name, text(u"星野 太郎")}, {Key::face_Image_File, text(u"1.jpg")},
                date})
            .row({{Key::full_Name, text(u"田中 花子")}, missing, date})
            .row({{Key::full_Name, text(u"渡辺 三郎")}, {Key::face_Image_File, text(u"text.jpg")},
                date})
            .row({{Key::full_Name, text(u"古田 一")}, {Key::face_Image_File, text(u"half.jpg")},
                date})
            .row({{Key::full_Name, text(u"森 四郎")},
                {Key::face_Image_File, text(u"../../secret.jpg")}, date})
            .row({{Key::full_Name, text(u"林 五郎")}, {Key::company, QString(300, u'社')}, date})
            .row({{Key::full_Name, text(u"岡 六郎")}, {Key::attachmentFile, text(u"bad")}, date})
            .row({{Key::full_Name, text(u"関 七郎")}, {Key::attachmentFile, text(u"pipe")}, date})
            .row({{Key::full_Name, text(u"谷 八郎")}, {Key::attachmentFile, text(u"link")}, date})
            .row({{Key::full_Name, text(u"辻 九郎")}})
            .row({{Key::full_Name, markup}, missing, date})
            .row({{Key::full_Name, text(u"二行\nの名前")}, missing, date})
            .row({{Key::full_Name, text(u"\u001b[31mred\u202e")}, missing, date})
            .row({missing, date});
    }

    QString reportPath() const { return controller->outcome().reportPath; }
    ReadPage page() const { return ReadPage::of(bytesOf(reportPath())); }
    QJsonObject data() const { return readData(reportPath()); }
    QString logs() const { return home.path(u"home/Library/Logs"_s); }
};

inline QJsonObject cardOf(const QJsonObject& data, int number)
{
    for (const QJsonValue& card : data.value(u"cards"_s).toArray()) {
        if (card[u"number"_s].toInt() == number)
            return card.toObject();
    }
    return {};
}

inline QString consequenceOf(const QJsonObject& data, int number)
{
    return cardOf(data, number)
        .value(u"problems"_s)
        .toArray()
        .first()
        .toObject()
        .value(u"consequence"_s)
        .toString();
}

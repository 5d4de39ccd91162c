// SPDX-License-Identifier: GPL-3.0-or-later
// A test fixture for whole conversions between a real package and a real interchange folder.
#pragma once

#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/DBCConverterController.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/RecordingReceiver.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/StandardInputKeeper.h"
#include "tests/support/TestHome.h"

using namespace Qt::StringLiterals;

inline QString text(const char16_t* value)
{
    return QString::fromUtf16(value);
}

// The package contains one older card. The folder contains three cards with images and attachments.
struct ConversionWorld {
    using Key = DBCRecordKey;

    ConversionWorld()
    {
        package.card({{"ZFULL_NAME", text(u"古田 一")}})
            .withPdf("%PDF-1.4 of an older card")
            .withAttachment(u"old.txt"_s, "old");
        folder.image(u"1.jpg"_s, front)
            .image(u"2.jpg"_s, back)
            .image(u"3.jpg"_s, portrait)
            .attachment(u"plans"_s, u"a.txt"_s, "first")
            .attachment(u"plans"_s, text(u"図面.txt"), "second");
        writeCards({});
    }

    // Writes the data file with three cards. last contains the items of the third card except its
    // name.
    void writeCards(const DataFileBuilder::Items& last)
    {
        DataFileBuilder::Items third {{Key::full_Name, text(u"渡辺 三郎")}};
        third.insert(third.end(), last.begin(), last.end());
        folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .row({{Key::full_Name, text(u"星野 太郎")},
                    {Key::full_Name_Kana, text(u"ホシノ タロウ")}, {Key::company, text(u"ﾎｼﾉ商会")},
                    {Key::register_Date, text(u"2009/03/05")},
                    {Key::face_Image_File, text(u"1.jpg")}, {Key::back_Image_File, text(u"2.jpg")},
                    {Key::attachmentFile, text(u"plans")}})
                .row({{Key::full_Name, text(u"田中 花子")},
                    {Key::telephone_Number, text(u"03-0000-0001")},
                    {Key::face_Image_File, text(u"3.jpg")}})
                .row(third)
                .build());
    }

    bool importCards() { return run(OperationType::Import, folder.path()); }
    bool exportCards()
    {
        const QString parent = home.makeFolder(u"exported"_s);
        home.makeFolder(u"exported/"_s + DBCInterchangeNames::rootFolderName());
        return run(OperationType::Export, parent);
    }
    bool run(OperationType type, const QString& path)
    {
        controller = DBCConverterController::initWith(path, package.path(), type);
        controller->setWindowController(&receiver);
        return controller->run();
    }
    // Makes the user request a cancel when the event with that name arrives for the given time,
    // counted from 1, and confirm the cancel when the program asks.
    void cancelAt(DBCEventName name, int occurrence)
    {
        presenter.answer = DBCAnswer::Default;
        receiver.onEvent = [this, name, occurrence, seen = 0](const DBCEvent& event) mutable {
            if (event.name == name && ++seen == occurrence)
                controller->setConfirmCancelOperation(true);
        };
    }

    QString exported() const
    {
        return home.path(u"exported/"_s) + DBCInterchangeNames::rootFolderName();
    }
    QByteArray exportedFile(const QString& relative) const
    {
        return home.readFile(
            u"exported/"_s + DBCInterchangeNames::rootFolderName() + u'/' + relative);
    }
    QStringList exportedRows() const
    {
        const QByteArray bytes = exportedFile(DBCInterchangeNames::dataFileName());
        const QString all = QString::fromUtf16(
            reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
        return all.split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    static QString item(const QString& row, Key key)
    {
        const int column = static_cast<int>(key);
        return row.section(u'\t', column, column);
    }
    QString backup() const { return home.path(u"Velmora DB_bak.vmdb"_s); }

    TestHome home;
    ScopedHost host;
    StandardInputKeeper standardInput;
    RecordingPresenter presenter;
    RecordingReceiver receiver;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    QByteArray front = JpegBuilder(100, 50).dotsPerInch(300, 300).bytes();
    QByteArray back = JpegBuilder(100, 50).gray().dotsPerInch(300, 300).bytes();
    QByteArray portrait = JpegBuilder(50, 100).dotsPerInch(300, 300).bytes();
    std::unique_ptr<DBCConverterController> controller;
};

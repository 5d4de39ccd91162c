// SPDX-License-Identifier: GPL-3.0-or-later
// What a test of the check dialog needs, called its desk: the dialog that checks an interchange
// folder, and such a folder.
#pragma once

#include "app/dialogs/DBCCheckDialog.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/ScopedHost.h"

#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

// A dialog for a folder in a temporary home.
struct CheckDesk {
    using Key = DBCRecordKey;
    using Language = DBCLocalizable::Language;

    explicit CheckDesk(Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        dialog = std::make_unique<DBCCheckDialog>(nullptr);
    }
    ~CheckDesk() { open(); }

    // Writes cards that name images which do not exist.
    void hasCards(int count)
    {
        DataFileBuilder file;
        file.titleLine();
        for (int number = 1; number <= count; ++number)
            file.row({{Key::full_Name, u"星野 太郎"_s},
                {Key::face_Image_File, u"%1.jpg"_s.arg(number)}});
        folder.dataFile(file.build());
    }
    void hasOneGoodCard()
    {
        folder.dataFile(DataFileBuilder().titleLine().row({{Key::full_Name, u"星野"_s}}).build());
    }
    // Creates the image of this name, and makes the check wait at this image until the test calls
    // open().
    void closeGateAt(const QString& image)
    {
        folder.image(image, "no picture");
        host->isReadable = [this, image](const QString& path) {
            if (path.endsWith(u'/' + image)) {
                reached.release();
                gate.acquire();
            }
            return true;
        };
    }
    void open() { gate.release(1000); }

    void check() { dialog->check(folder.path()); }
    void checkToTheEnd()
    {
        check();
        QTRY_VERIFY(!dialog->isChecking());
    }
    template <typename Control> Control& control(const char* name) const
    {
        return *dialog->findChild<Control*>(QLatin1StringView(name));
    }
    QPushButton& button(const char* name) const { return control<QPushButton>(name); }
    QTableView& table() const { return control<QTableView>("table"); }
    QString summary() const { return control<QLabel>("summary").accessibleName(); }
    QString notice() const { return control<QLabel>("notice").accessibleName(); }
    QStringList lines() const
    {
        QStringList cells;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            cells << table().model()->index(row, 0).data().toString();
        return cells;
    }
    QFileDialog* savePanel() const { return dialog->findChild<QFileDialog*>(); }
    void save(const QString& path) const
    {
        button("saveBtn").click();
        Q_EMIT savePanel()->fileSelected(path);
    }

    TestHome home;
    ScopedHost host;
    InterchangeFolder folder {home};
    QSemaphore reached;
    QSemaphore gate;
    std::unique_ptr<DBCCheckDialog> dialog;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// What a test of the backups dialog needs, called its desk: the dialog with the list of backups,
// and the package to which the backups belong.
#pragma once

#include "app/dialogs/DBCBackupsDialog.h"
#include "tests/carddb/BackupFixture.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScopedHost.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

// A package with three live cards, and a backup that was made when the package had two live cards.
struct BackupsDesk : BackupFixture {
    using Language = DBCLocalizable::Language;
    explicit BackupsDesk(Language language = Language::English)
    {
        backup = backUp(first);
        chosen = snapshotOf(backup);
        package.card();
        now = snapshotOf(package.path());
        DBCLocalizable::setLanguage(language);
        dialog = std::make_unique<DBCBackupsDialog>(nullptr);
    }
    ~BackupsDesk() { gate.release(1000); }

    void list()
    {
        dialog->showBackupsOf(package.path());
        QTRY_VERIFY(isIdle());
    }
    bool isIdle() const { return !control<QProgressBar>("bar").isVisible(); }
    void press(const char* name)
    {
        button(name).click();
        QTRY_VERIFY(isIdle());
    }
    // Makes a restore wait when it asks the host for the free space, until the test releases gate.
    void closeGate()
    {
        host->freeBytes = [this](const QString&) {
            reached.release();
            gate.acquire();
            return std::optional<quint64>(quint64(1) << 40);
        };
    }

    template <typename Control> Control& control(const char* name) const
    {
        return *dialog->findChild<Control*>(QLatin1StringView(name));
    }
    QPushButton& button(const char* name) const { return control<QPushButton>(name); }
    QTableView& table() const { return control<QTableView>("table"); }
    QStringList column(int column) const
    {
        QStringList cells;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            cells << table().model()->index(row, column).data().toString();
        return cells;
    }
    QStringList cards() const { return column(1); }
    QStringList names() const { return column(3); }
    QString summary() const { return control<QLabel>("summary").accessibleName(); }
    QString status() const { return control<QLabel>("status").accessibleName(); }

    const QString first = u"Velmora DB_bak.vmdb"_s;
    const QString second = u"Velmora DB_bak1.vmdb"_s;
    ScopedHost host;
    RecordingPresenter presenter;
    QString backup;
    QStringList chosen;
    QStringList now;
    QSemaphore reached;
    QSemaphore gate;
    std::unique_ptr<DBCBackupsDialog> dialog;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// The program's window with a temporary home folder. The test sets presenter.answer in advance to
// answer the window's questions:
//
//     WindowFixture fixture;
//     fixture.choose(OperationType::Import);
//     fixture.send({.name = DBCEventName::ImportWillBegin});
//     QCOMPARE(fixture.hint(), u"Importing: 0%"_qs);
#pragma once

#include "app/DBCConverterWindowController.h"
#include "app/DBCMainWindowController.h"
#include "app/dialogs/DBCMessageArea.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

struct WindowFixture {
    using Language = DBCLocalizable::Language;
    explicit WindowFixture(Language language = Language::English)
        : text(language)
    {
        host->applicationsFolder = home.path(u"Applications"_s);
        window.show();
    }

    template <typename Control> Control& control(const char* name)
    {
        auto* const found = window.findChild<Control*>(QLatin1StringView(name));
        if (!found)
            qFatal("the window has no control %s", name);
        return *found;
    }
    QPushButton& button(const char* name) { return control<QPushButton>(name); }
    QLineEdit& dataPath() { return control<QLineEdit>("_dataPathTextField"); }
    QLineEdit& databasePath() { return control<QLineEdit>("_vmdbPathTextField"); }
    QPushButton& convert() { return button("_convertBtn"); }
    QProgressBar& bar() { return control<QProgressBar>("_progressBar"); }
    QString hint() { return control<QLabel>("_progressHint").text(); }
    DBCMessageArea& messageArea() { return control<DBCMessageArea>("_messageArea"); }
    // Returns the lines of the message area as a screen reader gets them.
    QString message() { return messageArea().accessibleName(); }
    bool isMessageRed()
    {
        return messageArea().text().contains(
            DBCMessageArea::attentionColor(messageArea().palette()).name());
    }
    // Returns the state of the bar as "2 of 102", or as "busy" while the bar moves to and fro.
    QString barText()
    {
        if (bar().minimum() == 0 && bar().maximum() == 0)
            return u"busy"_s;
        return u"%1 of %2"_s.arg(bar().value()).arg(bar().maximum());
    }

    void choose(OperationType type)
    {
        control<QRadioButton>(type == OperationType::Export ? "exportChoice" : "importChoice")
            .setChecked(true);
        button("continueBtn").click();
    }
    void send(const DBCEvent& event) { window.converter().refreshProgress(event); }
    QAction& quitMenuItem() { return *window.findChild<QAction*>(u"_menuItemTerminate"_s); }

    // Returns the sorted names of the enabled controls.
    QStringList enabledControls()
    {
        static const QStringList names {u"_closeBtn"_s, u"_convertBtn"_s,
            u"_dataPathSelectionBtn"_s, u"_dataPathTextField"_s, u"_dataPathTitleTextField"_s,
            u"_openLogBtn"_s, u"_return2MainWindowBtn"_s, u"_vmdbPathSelectionBtn"_s,
            u"_vmdbPathTextField"_s, u"_vmdbPathTitleTextField"_s, u"backupsBtn"_s, u"checkBtn"_s};
        QStringList enabled;
        for (const QString& name : names) {
            if (control<QWidget>(qPrintable(name)).isEnabled())
                enabled << name;
        }
        return enabled;
    }

    // A member of this type sets the language before the member window reads its texts.
    struct Text {
        explicit Text(Language language) { DBCLocalizable::setLanguage(language); }
    };

    TestHome home;
    Text text;
    ScopedHost host;
    DBCMainWindowController window;
    RecordingPresenter presenter; // replaces the window's presenter
};

// SPDX-License-Identifier: GPL-3.0-or-later
// Turns message numbers and keys into localized texts and has them shown. How a text is shown or a
// question is asked is the presenter's business: the window, the terminal and the tests each set
// one.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <array>
#include <functional>

class DBCError;
class QWindow;

// Labels of the standard buttons; any other number is labelled Cancel.
enum class DBCButton : qint32 { OK = 0, Yes = 2, No = 3, Cancel = 4 };

// Answers of a question.
enum class DBCAnswer : qint32 { Default = 1, Alternate = 0, Other = -1, NotShown = -50 };

struct DBCQuestion {
    QString key; // the message's key in the strings table
    QString title;
    QString text;
    QString defaultButton;
    QString alternateButton;
    QString otherButton; // empty: no third button
};

// Shows a text or asks a question. Called from whatever thread raises the message, the operation
// thread included, and returns when the user has answered.
class DBCMessagePresenter {
public:
    virtual ~DBCMessagePresenter() = default;
    // number: the message number, 100 to 400 for the texts of the table.
    virtual void showError(quint32 number, const QString& title, const QString& text) = 0;
    virtual DBCAnswer askQuestion(const DBCQuestion& question) = 0;
    // The same over a window, without waiting; ended is called once with the answer.
    virtual void showErrorSheet(QWindow* window, quint32 number, const QString& title,
        const QString& text, const std::function<void()>& ended);
    virtual void askQuestionSheet(QWindow* window, const DBCQuestion& question,
        const std::function<void(DBCAnswer)>& ended, const std::function<void()>& dismissed);
};

class DBCMessage {
public:
    // Not owned; null restores the presenter of last resort, which writes to standard error and
    // answers every question with the alternate button.
    static void setPresenter(DBCMessagePresenter* presenter);

    // Shows message `number` (key "IDS_MSG_ERR_%04d") and returns its text.
    static QString ShowErrorMessage(quint32 number, const DBCMessageArguments& arguments = {});
    static QString ShowErrorMessageAlertSheet(QWindow* window,
        const std::function<void()>& didEndSelector, quint32 errorId,
        const DBCMessageArguments& arguments = {});

    // Asks question `messageKey`. NotShown when the key is empty or has no text; message 102 has
    // been shown instead.
    static DBCAnswer ShowInfoMessage(const QString& messageKey, DBCButton defaultButton,
        DBCButton alternateBtn, const QString& otherBtn = {},
        const DBCMessageArguments& arguments = {});
    // Returns Alternate (0) at once; the answer reaches didEndSelector. Shows no third button
    // whatever otherBtn says.
    static DBCAnswer ShowInfoMessageAlertSheet(QWindow* window,
        const std::function<void(DBCAnswer)>& didEndSelector,
        const std::function<void()>& didDismissSelector, const QString& messageId,
        DBCButton defaultButton, DBCButton alternateBtn, const QString& otherBtn = {},
        const DBCMessageArguments& arguments = {});

    static QString btnLableString(DBCButton button);
    static QString keyOf(quint32 number); // "IDS_MSG_ERR_0102"

    // The message that an import or export error is shown as, with its arguments filled in.
    struct Mapped {
        quint32 number;
        DBCMessageArguments arguments;
    };
    static Mapped messageForImportError(const DBCError& error);
    static Mapped messageForExportError(const DBCError& error);
};

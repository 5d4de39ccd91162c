// SPDX-License-Identifier: GPL-3.0-or-later
// Looks up the localized text of a message or a question and hands it to the presenter, which shows
// it. The window, the terminal and the tests each set a presenter of their own.
//
// All functions may be called from any thread. They keep no state but the presenter, and they
// return when the presenter has returned, which for a question means when the user has answered.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCResultCode.h"
#include "operation/messages/DBCQuestionId.h"

#include <QString>

#include <array>
#include <functional>

class DBCError;
class QWindow;

// The standard buttons. Any other number is labelled Cancel.
enum class DBCButton : qint32 { OK = 0, Yes = 2, No = 3, Cancel = 4 };

// The button that the user chose. NotShown means that the question could not be asked.
enum class DBCAnswer : qint32 { Default = 1, Alternate = 0, Other = -1, NotShown = -50 };

struct DBCQuestion {
    QString key; // the question's key in the strings table
    QString title; // the program's name
    QString text; // localized, with its arguments filled in
    QString defaultButton; // label of the button that means yes
    QString alternateButton; // label of the button that means no
    QString otherButton; // label of a third button; empty if there is none

    // True if the question asks the user to confirm a cancel. The program asks such a question only
    // after the user has requested the cancel, so a presenter that cannot reach the user answers
    // yes.
    bool asksToCancel() const;

    // True if an answer given in advance must not count: the question is about data that nobody
    // foresaw when the answer was given.
    bool needsDecision() const;
};

// The interface through which the program's core speaks to its user. A presenter is called on the
// thread that shows the message, which may be the operation thread, and returns when the user has
// read the text or answered the question. All texts are localized and plain: they hold no markup.
class DBCMessagePresenter {
public:
    virtual ~DBCMessagePresenter() = default;
    // Shows an error. number is the message's number; those of the strings table are 100 to 400.
    virtual void showError(quint32 number, const QString& title, const QString& text) = 0;
    // Returns the user's answer. NotShown means that the presenter could not ask, and that the
    // caller must not do anything that needs a yes.
    virtual DBCAnswer askQuestion(const DBCQuestion& question) = 0;
    // Both do the same with a sheet on a window, and are called on the thread of the windows. The
    // presenter does not own the window. If window is null, the sheet belongs to no window in
    // particular. Both may return before the user has answered. When the user has answered, they
    // call ended once, and then dismissed. An empty function is not called. Unless a presenter
    // overrides them, they show the text or ask the question at once and return when that is done.
    virtual void showErrorSheet(QWindow* window, quint32 number, const QString& title,
        const QString& text, const std::function<void()>& ended);
    virtual void askQuestionSheet(QWindow* window, const DBCQuestion& question,
        const std::function<void(DBCAnswer)>& ended, const std::function<void()>& dismissed);
};

class DBCMessage {
public:
    // The presenter is not owned and must stay alive until another one is set. Null sets the
    // presenter of last resort, which writes to standard error and answers every question with the
    // alternate button.
    static void setPresenter(DBCMessagePresenter* presenter);

    // Shows the message with that number and returns its text, so that the caller can log it. The
    // key of the text is "IDS_MSG_ERR_" and the number in four digits. A number outside 100 to 400,
    // or one whose text is empty, shows "Undefined Err:" and the number; a number without an entry
    // in the strings table shows "No Resource".
    static QString ShowErrorMessage(quint32 number, const DBCMessageArguments& arguments = {});
    // Does the same with a sheet on a window, and calls didEndSelector when the user has closed the
    // sheet. The program does not call this function. It is kept because its name is part of the
    // interface.
    static QString ShowErrorMessageAlertSheet(QWindow* window,
        const std::function<void()>& didEndSelector, quint32 errorId,
        const DBCMessageArguments& arguments = {});

    // Asks the question with that key and returns the answer. otherBtn is the label of a third
    // button; if it is empty, there is no third button. If the key is empty or has no text, message
    // 102 is shown instead, and the answer is NotShown.
    static DBCAnswer ShowInfoMessage(const QString& messageKey, DBCButton defaultButton,
        DBCButton alternateBtn, const QString& otherBtn = {},
        const DBCMessageArguments& arguments = {});
    // Does the same with a sheet on a window. Returns Alternate (0) at once; the answer goes to
    // didEndSelector, and didDismissSelector is called after that. There is no third button,
    // whatever otherBtn holds. The program does not call this function either. It is kept because
    // its name is part of the interface.
    static DBCAnswer ShowInfoMessageAlertSheet(QWindow* window,
        const std::function<void(DBCAnswer)>& didEndSelector,
        const std::function<void()>& didDismissSelector, const QString& messageId,
        DBCButton defaultButton, DBCButton alternateBtn, const QString& otherBtn = {},
        const DBCMessageArguments& arguments = {});

    // The localized label of a button.
    static QString btnLableString(DBCButton button);
    // Keys in the strings table: "IDS_MSG_ERR_0102" for 102, "IDS_MSG_ERR_0315" for CancelImport.
    static QString keyOf(quint32 number);
    static QString keyOf(DBCQuestionId question);

    // The message for an error that ended an import or an export.
    struct Mapped {
        quint32 number;
        DBCMessageArguments arguments; // of the message's text
    };
    static Mapped messageForImportError(const DBCError& error);
    static Mapped messageForExportError(const DBCError& error);
};

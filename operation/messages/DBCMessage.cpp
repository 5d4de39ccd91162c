// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCMessage.h"

#include "operation/base/DBCError.h"

#include <array>
#include <atomic>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

using Code = DBCResultCode;

constexpr quint32 internalErrorMessage = 102;
constexpr quint32 firstMessage = 100;
constexpr quint32 lastMessage = 400;

enum class ArgumentKind : quint8 {
    None,
    BackupPath, // the word for a backup, and the backup's path
    RestorePath, // the word for a restore, and the backup's path
    LineNumber,
};

struct MessageRow {
    Code code;
    quint32 number;
    ArgumentKind arguments = ArgumentKind::None;
};

constexpr std::array importMessages {
    MessageRow {Code::VersionFileRefusedProduct, 314},
    MessageRow {Code::NoSpaceForImport, 301},
    MessageRow {Code::NoSpace, 103},
    MessageRow {Code::NoSpaceForBackup, 311, ArgumentKind::BackupPath},
    MessageRow {Code::BackupFailure, 311, ArgumentKind::BackupPath},
    MessageRow {Code::RestoreFailure, 311, ArgumentKind::RestorePath},
    MessageRow {Code::VersionFileMismatch, 316},
    MessageRow {Code::DataLineFormatError, 307, ArgumentKind::LineNumber},
    MessageRow {Code::TitleLineFormatError, 307, ArgumentKind::LineNumber},
    MessageRow {Code::DataFileEmpty, 306},
    MessageRow {Code::DataFileDecodeFailure, 310},
    MessageRow {Code::DataFileOpenFailure, 310},
    MessageRow {Code::InternalException, internalErrorMessage},
    MessageRow {Code::GeneralFailure, internalErrorMessage},
};
constexpr quint32 anyOtherImportMessage = 313;

constexpr std::array exportMessages {
    MessageRow {Code::NoSpace, 103},
    MessageRow {Code::NoSpaceForExport, 206},
    MessageRow {Code::AttachmentImportFailure, 207},
    MessageRow {Code::AttachmentExportFailure, 207},
    MessageRow {Code::NoCards, 209},
    MessageRow {Code::InternalException, internalErrorMessage},
    MessageRow {Code::GeneralFailure, internalErrorMessage},
};
constexpr quint32 anyOtherExportMessage = 208;

// The keys are in the order of DBCQuestionId.
constexpr std::array questionKeys {
    "IDS_MSG_ERR_0106",
    "IDS_MSG_ERR_0205",
    "IDS_MSG_ERR_0210",
    "IDS_MSG_ERR_0315",
    "IDS_MSG_ERR_0211",
    "IDS_MSG_ERR_0317",
    "IDS_MSG_UNFINISHED_IMPORT",
    "IDS_MSG_UNFINISHED_CHANGED",
    "IDS_MSG_BACKUP_RESTORE",
    "IDS_MSG_BACKUP_DELETE",
};

QString backupPathText(const DBCError& error)
{
    const auto& path = error.pathName();
    return path ? u"\nBackup DB:[%1]"_s.arg(*path) : QString();
}

DBCMessageArguments argumentsOf(const DBCError& error, ArgumentKind kind)
{
    switch (kind) {
    case ArgumentKind::BackupPath:
        return {getLocalString(u"IDS_LBL_BACKUP"_s), backupPathText(error)};
    case ArgumentKind::RestorePath:
        return {getLocalString(u"IDS_LBL_RESTORE"_s), backupPathText(error)};
    case ArgumentKind::LineNumber:
        return {error.lineNo().value_or(0)};
    case ArgumentKind::None:
        break;
    }
    return {};
}

template <typename Rows>
DBCMessage::Mapped mapError(const Rows& rows, quint32 anyOther, const DBCError& error)
{
    for (const MessageRow& row : rows) {
        if (row.code == error.code())
            return {row.number, argumentsOf(error, row.arguments)};
    }
    return {anyOther, {}};
}

class PresenterOfLastResort : public DBCMessagePresenter {
public:
    void showError(quint32, const QString& title, const QString& text) override
    {
        print(title, text);
    }
    DBCAnswer askQuestion(const DBCQuestion& question) override
    {
        print(question.title, question.text);
        return DBCAnswer::Alternate;
    }

private:
    static void print(const QString& title, const QString& text)
    {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(text));
    }
};

std::atomic<DBCMessagePresenter*> chosenPresenter = nullptr;

DBCMessagePresenter& presenter()
{
    static PresenterOfLastResort lastResort;
    DBCMessagePresenter* chosen = chosenPresenter;
    return chosen ? *chosen : lastResort;
}

QString windowTitle()
{
    return getLocalString(u"IDS_TITLE_WINDOW"_s);
}

// Returns an empty text if the number is outside the table's range, and std::nullopt if the table
// has no entry for the number.
std::optional<QString> messageFormat(quint32 number)
{
    if (number < firstMessage || number > lastMessage)
        return QString();
    return DBCLocalizable::text(DBCMessage::keyOf(number));
}

QString errorText(quint32 number, const DBCMessageArguments& arguments)
{
    const auto format = messageFormat(number);
    if (!format)
        return u"No Resource"_s;
    if (format->isEmpty())
        return u"Undefined Err:%1"_s.arg(number, 4);
    return DBCLocalizable::fill(*format, arguments);
}

std::optional<DBCQuestion> makeQuestion(const QString& key, DBCButton defaultButton,
    DBCButton alternateButton, const QString& otherButton, const DBCMessageArguments& arguments)
{
    const auto format = key.isEmpty() ? std::nullopt : DBCLocalizable::text(key);
    if (!format || format->isEmpty())
        return {};
    return DBCQuestion {key, windowTitle(), DBCLocalizable::fill(*format, arguments),
        DBCMessage::btnLableString(defaultButton), DBCMessage::btnLableString(alternateButton),
        otherButton};
}

} // namespace

bool DBCQuestion::needsDecision() const
{
    return key == DBCMessage::keyOf(DBCQuestionId::SettleChangedPackage);
}

bool DBCQuestion::asksToCancel() const
{
    return key == DBCMessage::keyOf(DBCQuestionId::CancelImport)
        || key == DBCMessage::keyOf(DBCQuestionId::CancelExport);
}

void DBCMessagePresenter::showErrorSheet(QWindow*, quint32 number, const QString& title,
    const QString& text, const std::function<void()>& ended)
{
    showError(number, title, text);
    if (ended)
        ended();
}

void DBCMessagePresenter::askQuestionSheet(QWindow*, const DBCQuestion& question,
    const std::function<void(DBCAnswer)>& ended, const std::function<void()>& dismissed)
{
    const DBCAnswer answer = askQuestion(question);
    if (ended)
        ended(answer);
    if (dismissed)
        dismissed();
}

void DBCMessage::setPresenter(DBCMessagePresenter* presenter)
{
    chosenPresenter = presenter;
}

QString DBCMessage::keyOf(quint32 number)
{
    return u"IDS_MSG_ERR_%1"_s.arg(number, 4, 10, QChar(u'0'));
}

QString DBCMessage::keyOf(DBCQuestionId question)
{
    return QString::fromLatin1(questionKeys.at(static_cast<std::size_t>(question)));
}

QString DBCMessage::ShowErrorMessage(quint32 number, const DBCMessageArguments& arguments)
{
    QString text = errorText(number, arguments);
    presenter().showError(number, windowTitle(), text);
    return text;
}

QString DBCMessage::ShowErrorMessageAlertSheet(QWindow* window,
    const std::function<void()>& didEndSelector, quint32 errorId,
    const DBCMessageArguments& arguments)
{
    QString text = errorText(errorId, arguments);
    presenter().showErrorSheet(window, errorId, windowTitle(), text, didEndSelector);
    return text;
}

DBCAnswer DBCMessage::ShowInfoMessage(const QString& messageKey, DBCButton defaultButton,
    DBCButton alternateBtn, const QString& otherBtn, const DBCMessageArguments& arguments)
{
    const auto question
        = makeQuestion(messageKey, defaultButton, alternateBtn, otherBtn, arguments);
    if (!question) {
        ShowErrorMessage(internalErrorMessage);
        return DBCAnswer::NotShown;
    }
    return presenter().askQuestion(*question);
}

DBCAnswer DBCMessage::ShowInfoMessageAlertSheet(QWindow* window,
    const std::function<void(DBCAnswer)>& didEndSelector,
    const std::function<void()>& didDismissSelector, const QString& messageId,
    DBCButton defaultButton, DBCButton alternateBtn, const QString& /*otherBtn*/,
    const DBCMessageArguments& arguments)
{
    const auto question = makeQuestion(messageId, defaultButton, alternateBtn, {}, arguments);
    if (!question) {
        ShowErrorMessage(internalErrorMessage);
        return DBCAnswer::NotShown;
    }
    presenter().askQuestionSheet(window, *question, didEndSelector, didDismissSelector);
    return DBCAnswer::Alternate;
}

QString DBCMessage::btnLableString(DBCButton button)
{
    switch (button) {
    case DBCButton::OK:
        return getLocalString(u"IDS_BUTTON_MSG_OK"_s);
    case DBCButton::Yes:
        return getLocalString(u"IDS_BUTTON_MSG_YES"_s);
    case DBCButton::No:
        return getLocalString(u"IDS_BUTTON_MSG_NO"_s);
    case DBCButton::Cancel:
        break;
    }
    return getLocalString(u"IDS_BUTTON_MSG_CANCEL"_s);
}

DBCMessage::Mapped DBCMessage::messageForImportError(const DBCError& error)
{
    return mapError(importMessages, anyOtherImportMessage, error);
}

DBCMessage::Mapped DBCMessage::messageForExportError(const DBCError& error)
{
    return mapError(exportMessages, anyOtherExportMessage, error);
}

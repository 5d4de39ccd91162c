// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCLogViewer.h"

#include "app/desktop/DBCDesktopOpener.h"
#include "datafile/helpers/DBCLocalizable.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>

namespace {

constexpr int millisecondsBetweenReads = 500;
constexpr QSize usualSize {820, 520}; // device-independent pixels

void showInViewer(const QString& path, QWidget* parent, const std::function<void()>& onFailure)
{
    auto* viewer = parent->findChild<DBCLogViewer*>();
    if (!viewer) {
        viewer = new DBCLogViewer(path, parent);
        viewer->setAttribute(Qt::WA_DeleteOnClose);
    }
    if (!viewer->isReadable()) {
        delete viewer;
        onFailure();
        return;
    }
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
}

} // namespace

void showLogFile(const QString& path, QWidget* parent, const std::function<void()>& onFailure)
{
    openOnDesktop(path, parent, [=] { showInViewer(path, parent, onFailure); });
}

DBCLogViewer::DBCLogViewer(const QString& path, QWidget* parent)
    : QDialog(parent)
    , _path(path)
    , _notice(new QLabel(getLocalString("IDS_LABEL_LOG_TAIL", {path}), this))
    , _text(new QPlainTextEdit(this))
    , _wanted(new QLineEdit(this))
    , _findResult(new QLabel(this))
{
    setWindowTitle(QFileInfo(path).fileName());
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(usualSize);
    makeControls();
    makeKeys();
    _isReadable = readOn();
    connect(&_readTimer, &QTimer::timeout, this, &DBCLogViewer::readOn);
    _readTimer.start(millisecondsBetweenReads);
}

void DBCLogViewer::makeControls()
{
    _notice->setTextFormat(Qt::PlainText);
    _notice->setWordWrap(true);
    _text->setReadOnly(true);
    _text->setUndoRedoEnabled(false);
    _text->setTabChangesFocus(true);
    _text->setLineWrapMode(QPlainTextEdit::NoWrap);
    _text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    _text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    _text->setAccessibleName(windowTitle());
    _findResult->setTextFormat(Qt::PlainText);

    auto* const label = new QLabel(getLocalString("IDS_LABEL_FIND"), this);
    label->setBuddy(_wanted);
    auto* const find = new QPushButton(getLocalString("IDS_BUTTON_FIND_NEXT"), this);
    find->setDefault(true);
    connect(find, &QPushButton::clicked, this, &DBCLogViewer::findNext);
    connect(_wanted, &QLineEdit::textEdited, _findResult, &QLabel::clear);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const below = new QHBoxLayout;
    below->addWidget(label);
    below->addWidget(_wanted, 1);
    below->addWidget(find);
    below->addWidget(buttons);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_notice);
    layout->addWidget(_text, 1);
    layout->addLayout(below);
    layout->addWidget(_findResult);
}

void DBCLogViewer::makeKeys()
{
    const auto onKey = [this](QKeySequence::StandardKey key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    onKey(QKeySequence::FindNext, &DBCLogViewer::findNext);
    onKey(QKeySequence::Find, [this] {
        _wanted->setFocus();
        _wanted->selectAll();
    });
}

// Scrolls to the end of the text. The constructor cannot do this, because the height of the lines
// is not known before the dialog is shown.
void DBCLogViewer::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    _text->moveCursor(QTextCursor::End);
    _text->setFocus();
}

bool DBCLogViewer::readOn()
{
    // Each call opens the file anew, because another file may have replaced it. Only a regular file
    // is opened, because the program would hang if it opened a pipe.
    QFile file(_path);
    if (!QFileInfo(_path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const qint64 size = file.size();
    const bool isOther = size < _position || _position < 0;
    if (isOther)
        startAt(std::max<qint64>(0, size - tailLength));
    if (!file.seek(_position))
        return false;
    if (isOther && _position > 0)
        _position
            += file.readLine().size(); // skips the rest of a line whose beginning is not shown
    const QByteArray bytes = file.readAll();
    _position += bytes.size();
    append(bytes);
    return file.error() == QFileDevice::NoError;
}

void DBCLogViewer::startAt(qint64 position)
{
    _position = position;
    _decoder = QStringDecoder(QStringDecoder::Utf8);
    _text->clear();
    _notice->setVisible(position > 0);
}

void DBCLogViewer::append(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    QScrollBar& bar = *_text->verticalScrollBar();
    const bool isAtEnd = bar.value() == bar.maximum();
    // The selection is set again afterwards, because a selection that reaches the end of the text
    // would grow with the appended text.
    QTextCursor selection = _text->textCursor();
    const int anchor = selection.anchor();
    const int position = selection.position();
    QTextCursor end(_text->document());
    end.movePosition(QTextCursor::End);
    end.insertText(_decoder(bytes));
    if (anchor != position) {
        selection.setPosition(anchor);
        selection.setPosition(position, QTextCursor::KeepAnchor);
        _text->setTextCursor(selection);
    }
    if (isAtEnd)
        bar.setValue(bar.maximum());
}

// Selects the next match. After the last match the search begins again at the top.
void DBCLogViewer::findNext()
{
    const QString wanted = _wanted->text();
    const QTextCursor before = _text->textCursor();
    _findResult->clear();
    if (wanted.isEmpty() || _text->find(wanted))
        return;
    _text->moveCursor(QTextCursor::Start);
    if (_text->find(wanted))
        return;
    _text->setTextCursor(before);
    _findResult->setText(getLocalString("IDS_LABEL_NOT_FOUND", {wanted}));
}

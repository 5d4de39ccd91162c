// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCLogViewer.h"

#include "datafile/DBCLocalizable.h"
#include "operation/DBCHost.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>

namespace {

constexpr int millisecondsBetweenReads = 1000;
constexpr QSize usualSize {820, 520}; // device-independent pixels

QString text(const char* key, const DBCMessageArguments& arguments = {})
{
    return getLocalString(QString::fromLatin1(key), arguments);
}

void showInViewer(const QString& path, QWidget* parent, const std::function<void()>& onFailure)
{
    auto* const viewer = new DBCLogViewer(path, parent);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    if (viewer->isReadable()) {
        viewer->show();
        return;
    }
    delete viewer;
    onFailure();
}

} // namespace

void showLogFile(const QString& path, QWidget* parent, const std::function<void()>& onFailure)
{
    // The opener tells by its exit code that no program takes such files, which a mere start of it
    // would not show.
    auto* const opener = new QProcess(parent);
    const auto fallBack = [=] { showInViewer(path, parent, onFailure); };
    QObject::connect(opener, &QProcess::errorOccurred, parent, [=](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            opener->deleteLater();
            fallBack();
        }
    });
    QObject::connect(opener, &QProcess::finished, parent, [=](int exitCode) {
        opener->deleteLater();
        if (exitCode != 0)
            fallBack();
    });
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    opener->start(DBCHost::current().fileOpener, {path});
}

DBCLogViewer::DBCLogViewer(const QString& path, QWidget* parent)
    : QDialog(parent)
    , _file(path)
    , _text(new QPlainTextEdit(this))
    , _wanted(new QLineEdit(this))
{
    setWindowTitle(QFileInfo(path).fileName());
    resize(usualSize);
    makeControls();
    if (!_file.open(QIODevice::ReadOnly))
        return;
    if (_file.size() > tailLength) {
        _file.seek(_file.size() - tailLength);
        _file.readLine(); // the rest of a line that is cut
        _text->appendPlainText(text("IDS_LABEL_LOG_TAIL", {path}));
    }
    readOn();
    connect(&_readTimer, &QTimer::timeout, this, &DBCLogViewer::readOn);
    _readTimer.start(millisecondsBetweenReads);
}

void DBCLogViewer::makeControls()
{
    _text->setReadOnly(true);
    _text->setLineWrapMode(QPlainTextEdit::NoWrap);
    _text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    _text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    _text->setAccessibleName(windowTitle());

    auto* const label = new QLabel(text("IDS_LABEL_FIND"), this);
    label->setBuddy(_wanted);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* const find = new QPushButton(text("IDS_BUTTON_FIND_NEXT"), this);
    connect(find, &QPushButton::clicked, this, &DBCLogViewer::findNext);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    find->setDefault(true);

    auto* const below = new QHBoxLayout;
    below->addWidget(label);
    below->addWidget(_wanted, 1);
    below->addWidget(find);
    below->addWidget(buttons);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_text, 1);
    layout->addLayout(below);
}

void DBCLogViewer::readOn()
{
    const QByteArray bytes = _file.readAll();
    if (bytes.isEmpty())
        return;
    const bool isAtEnd
        = _text->verticalScrollBar()->value() == _text->verticalScrollBar()->maximum();
    QString lines = QString::fromUtf8(bytes);
    if (lines.endsWith(u'\n'))
        lines.chop(1);
    _text->appendPlainText(lines);
    if (isAtEnd)
        _text->verticalScrollBar()->setValue(_text->verticalScrollBar()->maximum());
}

// Goes on at the top behind the last place.
void DBCLogViewer::findNext()
{
    if (_text->find(_wanted->text()))
        return;
    _text->moveCursor(QTextCursor::Start);
    _text->find(_wanted->text());
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCPathHint.h"

#include "app/desktop/DBCPaths.h"
#include "carddb/DBCPackageLayout.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"

#include <QFileInfo>

namespace {

// The pause after the last letter before a path is looked up. It is long enough that a path is not
// looked up after every letter.
constexpr int millisecondsAfterTyping = 200;

bool isFile(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

} // namespace

DBCPathHint::DBCPathHint(QLineEdit& field, DBCMessageArea& label)
    : _field(field)
    , _label(label)
{
    _pool.setMaxThreadCount(1);
    _pause.setSingleShot(true);
    _pause.setInterval(millisecondsAfterTyping);
    connect(&_pause, &QTimer::timeout, this, &DBCPathHint::look);
    connect(&_field, &QLineEdit::textChanged, this, [this] {
        ++_question;
        _pause.start();
    });
}

void DBCPathHint::setSubject(Subject subject)
{
    _subject = subject;
    ++_question;
    show(QString());
}

std::optional<QString> DBCPathHint::problem(Subject subject, const QString& typedPath)
{
    if (typedPath.isEmpty())
        return std::nullopt;
    const QString path = DBCPaths::usable(typedPath);
    const QFileInfo info(path);
    if (!info.exists())
        return getLocalString("IDS_LABEL_PATH_NOT_FOUND");
    if (!info.isDir())
        return getLocalString("IDS_LABEL_PATH_IS_FILE");
    if (subject == Subject::InterchangeFolder && !isFile(DBCInterchangeNames::dataFile(path)))
        return getLocalString("IDS_LABEL_PATH_NO_DATA_FILE", {DBCInterchangeNames::dataFileName()});
    if (subject == Subject::CardDatabase && !isFile(DBCPackageLayout::storeFile(path)))
        return getLocalString("IDS_LABEL_PATH_NO_DATABASE");
    return std::nullopt;
}

void DBCPathHint::look()
{
    _pool.start([this, question = _question, subject = _subject, path = _field.text()] {
        const QString found = problem(subject, path).value_or(QString());
        QMetaObject::invokeMethod(this, [this, question, found] {
            if (question == _question)
                show(found);
        });
    });
}

void DBCPathHint::show(const QString& text)
{
    _label.showAttention(text);
    _field.setAccessibleDescription(text);
}

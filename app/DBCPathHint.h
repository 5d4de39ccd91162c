// SPDX-License-Identifier: GPL-3.0-or-later
// Says below a path field, while it is typed, why the path cannot be used. Looking at a path may
// take long (a sleeping disk, a lost server), so it happens on a thread of its own.
#pragma once

#include "app/dialogs/DBCMessageArea.h"

#include <QLineEdit>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <optional>

class DBCPathHint : public QObject {
public:
    enum class Subject : quint8 { InterchangeFolder, ExportParent, CardDatabase };

    // field and label are not owned and outlive this object.
    DBCPathHint(QLineEdit& field, DBCMessageArea& label);

    void setSubject(Subject subject);

    // What is wrong with a path as typed, in the user's words; none when nothing is, or it is
    // empty.
    static std::optional<QString> problem(Subject subject, const QString& typedPath);

private:
    void look();
    void show(const QString& text);

    QLineEdit& _field;
    DBCMessageArea& _label;
    Subject _subject = Subject::InterchangeFolder;
    QTimer _pause;
    quint64 _question = 0; // number of the newest text; answers to older ones are stale
    QThreadPool _pool; // last, so that its end waits for what still looks
};

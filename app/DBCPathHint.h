// SPDX-License-Identifier: GPL-3.0-or-later
// While the user types into a path field, shows below the field why the path cannot be used. A
// separate thread looks the path up on the disk, because the look-up may take long (a sleeping
// disk, a lost server).
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

    // field and label are not owned and must outlive this object.
    DBCPathHint(QLineEdit& field, DBCMessageArea& label);

    void setSubject(Subject subject);

    // Returns, in the user's language, why a typed path cannot be used. Returns std::nullopt if the
    // path can be used or is empty. May be called on any thread.
    static std::optional<QString> problem(Subject subject, const QString& typedPath);

private:
    void look();
    void show(const QString& text);

    QLineEdit& _field;
    DBCMessageArea& _label;
    Subject _subject = Subject::InterchangeFolder;
    QTimer _pause;
    quint64 _question = 0; // number of the newest text; results for older texts are dropped
    QThreadPool _pool; // the last member: its destructor waits for a running look-up
};

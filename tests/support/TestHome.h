// SPDX-License-Identifier: GPL-3.0-or-later
// A home folder for one test: $HOME points into a temporary folder, and the program's texts are
// English. The destructor restores $HOME and removes the folder.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class TestHome {
public:
    TestHome();
    ~TestHome();
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    // The temporary folder; $HOME is its subfolder "home".
    QString path(const QString& relative = {}) const;
    // Makes a folder below path() and returns its full path.
    QString makeFolder(const QString& relative) const;
    QString writeFile(const QString& relative, const QByteArray& bytes) const;
    QByteArray readFile(const QString& relative) const;
    // Returns what the default log contains now, or an empty text if there is no log yet.
    QString logText() const;

private:
    QTemporaryDir _folder;
    QByteArray _oldHome;
};

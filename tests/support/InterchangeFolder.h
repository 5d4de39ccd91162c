// SPDX-License-Identifier: GPL-3.0-or-later
// Builds an interchange folder as the scanner's software leaves it:
//
//     InterchangeFolder folder(home);
//     folder.image(u"1.jpg"_s, jpeg).attachment(u"plans"_s, u"a.txt"_s, "text");
//     folder.dataFile(bytes);
//
// A new folder has a "Version.txt" that an import accepts, and empty image and attachment folders.
#pragma once

#include "tests/support/TestHome.h"

#include <QByteArray>
#include <QString>

using namespace Qt::StringLiterals;

class InterchangeFolder {
public:
    explicit InterchangeFolder(const TestHome& home, const QString& name = u"Interchange"_s);

    QString path() const { return _home.path(_name); }
    QString imageFolder() const;
    QString attachmentFolder() const;
    QString imagePath(const QString& name) const;
    QString attachmentPath(const QString& folder, const QString& name = {}) const;
    QString dataFilePath() const;

    // Writes "Version.txt" in UTF-16 with a byte-order mark: product TAB version CR LF.
    InterchangeFolder& version(const QString& product, const QString& version = u"V1.0L10"_s);
    InterchangeFolder& versionBytes(const QByteArray& bytes);
    InterchangeFolder& withoutVersion();

    InterchangeFolder& dataFile(const QByteArray& bytes);
    InterchangeFolder& image(const QString& name, const QByteArray& bytes);
    // Writes the file, and creates its attachment folder if there is none.
    InterchangeFolder& attachment(
        const QString& folder, const QString& name, const QByteArray& bytes);
    InterchangeFolder& emptyAttachmentFolder(const QString& folder);

private:
    QString relative(const QString& fullPath) const;

    const TestHome& _home;
    QString _name;
};

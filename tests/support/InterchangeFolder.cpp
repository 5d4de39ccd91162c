// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/InterchangeFolder.h"

#include "datafile/helpers/DBCInterchangeNames.h"

#include <QFile>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

InterchangeFolder::InterchangeFolder(const TestHome& home, const QString& name)
    : _home(home)
    , _name(name)
{
    _home.makeFolder(relative(imageFolder()));
    _home.makeFolder(relative(attachmentFolder()));
    version(u"Card Scanner"_s);
}

QString InterchangeFolder::relative(const QString& fullPath) const
{
    return fullPath.mid(_home.path().size() + 1);
}

QString InterchangeFolder::imageFolder() const
{
    return DBCInterchangeNames::imageFolder(path());
}

QString InterchangeFolder::attachmentFolder() const
{
    return DBCInterchangeNames::attachmentFolder(path());
}

QString InterchangeFolder::imagePath(const QString& name) const
{
    return imageFolder() + u'/' + name;
}

QString InterchangeFolder::attachmentPath(const QString& folder, const QString& name) const
{
    const QString path = attachmentFolder() + u'/' + folder;
    return name.isEmpty() ? path : path + u'/' + name;
}

QString InterchangeFolder::dataFilePath() const
{
    return DBCInterchangeNames::dataFile(path());
}

InterchangeFolder& InterchangeFolder::version(const QString& product, const QString& version)
{
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    return versionBytes(utf16(product + u'\t' + version + u"\r\n"_s));
}

InterchangeFolder& InterchangeFolder::versionBytes(const QByteArray& bytes)
{
    _home.writeFile(_name + u"/Version.txt"_s, bytes);
    return *this;
}

InterchangeFolder& InterchangeFolder::withoutVersion()
{
    QFile::remove(path() + u"/Version.txt"_s);
    return *this;
}

InterchangeFolder& InterchangeFolder::dataFile(const QByteArray& bytes)
{
    _home.writeFile(relative(dataFilePath()), bytes);
    return *this;
}

InterchangeFolder& InterchangeFolder::image(const QString& name, const QByteArray& bytes)
{
    _home.writeFile(relative(imagePath(name)), bytes);
    return *this;
}

InterchangeFolder& InterchangeFolder::attachment(
    const QString& folder, const QString& name, const QByteArray& bytes)
{
    _home.writeFile(relative(attachmentPath(folder, name)), bytes);
    return *this;
}

InterchangeFolder& InterchangeFolder::emptyAttachmentFolder(const QString& folder)
{
    _home.makeFolder(relative(attachmentPath(folder)));
    return *this;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestHome.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

TestHome::TestHome()
    : _oldHome(qgetenv("HOME"))
{
    if (!_folder.isValid())
        qFatal("no temporary folder: %s", qPrintable(_folder.errorString()));
    qputenv("HOME", QFile::encodeName(makeFolder(u"home"_s)));
    DBCLocalizable::setLanguage(DBCLocalizable::Language::English);
}

TestHome::~TestHome()
{
    qputenv("HOME", _oldHome);
}

QString TestHome::path(const QString& relative) const
{
    return relative.isEmpty() ? _folder.path() : _folder.path() + u'/' + relative;
}

QString TestHome::makeFolder(const QString& relative) const
{
    const QString folder = path(relative);
    if (!QDir().mkpath(folder))
        qFatal("cannot make %s", qPrintable(folder));
    return folder;
}

QString TestHome::writeFile(const QString& relative, const QByteArray& bytes) const
{
    QFile file(path(relative));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray TestHome::readFile(const QString& relative) const
{
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString TestHome::logText() const
{
    return QString::fromUtf8(readFile(u"home/Library/Logs/VelmoraConverter.log"_s));
}

// SPDX-License-Identifier: GPL-3.0-or-later
// The names in given_names.txt are an interface. This test fails if someone has renamed or removed
// one of them in the sources: an operation, a field, a key or an event.

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList sourceFolders {u"app"_s, u"carddb"_s, u"cardimage"_s, u"cli"_s, u"datafile"_s,
    u"operation"_s, u"report"_s, u"system"_s, u"text"_s};

QString sourceRoot()
{
    return QStringLiteral(VELMORA_SOURCE_DIR);
}

QSet<QString> wordsOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    static const QRegularExpression word(u"[A-Za-z_][A-Za-z0-9_]*"_s);
    QSet<QString> words;
    for (auto match = word.globalMatch(QString::fromUtf8(file.readAll())); match.hasNext();)
        words.insert(match.next().captured());
    return words;
}

QSet<QString> wordsOfSources()
{
    QSet<QString> words;
    for (const QString& folder : sourceFolders) {
        QDirIterator files(sourceRoot() + u'/' + folder, {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
            QDirIterator::Subdirectories);
        while (files.hasNext())
            words.unite(wordsOfFile(files.next()));
    }
    return words;
}

QStringList givenNames()
{
    QFile file(sourceRoot() + u"/tests/project/given_names.txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    QStringList names = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    names.removeIf([](const QString& line) { return line.startsWith(u'#'); });
    return names;
}

} // namespace

class TestGivenNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyGivenNameIsInTheSources()
    {
        const QStringList names = givenNames();
        QVERIFY(names.size() > 300);
        const QSet<QString> words = wordsOfSources();
        QStringList missing;
        for (const QString& name : names) {
            if (!words.contains(name))
                missing << name;
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u' ')));
    }
};

QTEST_APPLESS_MAIN(TestGivenNames)
#include "tst_givenNames.moc"

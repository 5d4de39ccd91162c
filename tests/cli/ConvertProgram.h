// SPDX-License-Identifier: GPL-3.0-or-later
// Runs velmora-convert as its users do, in its own process, but with a temporary home folder.
#pragma once

#include "tests/support/TestHome.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QStringList>

#include <functional>

using namespace Qt::StringLiterals;

struct ProgramRun {
    int exitCode = -1; // -1 if a signal ended the program
    QString output;
    QString errors;

    QStringList outputLines() const { return output.split(u'\n', Qt::SkipEmptyParts); }
    // Returns one object per line of the output. A line that is not an object gives an empty
    // object.
    QList<QJsonObject> objects() const
    {
        QList<QJsonObject> all;
        for (const QString& line : outputLines())
            all << QJsonDocument::fromJson(line.toUtf8()).object();
        return all;
    }
    // Returns the members of the last object with this name, or an empty object if there is none.
    QJsonObject object(const QString& name) const
    {
        QJsonObject found;
        for (const QJsonObject& object : objects()) {
            if (object.contains(name))
                found = object.value(name).toObject();
        }
        return found;
    }
    QStringList names() const
    {
        QStringList all;
        for (const QJsonObject& object : objects())
            all << object.keys().join(u',');
        return all;
    }
};

class ConvertProgram {
public:
    explicit ConvertProgram(const TestHome& home)
        : _home(home)
    {
    }

    QString language = u"C"_s;
    QString workingFolder;
    QByteArray input; // everything that the program can read from standard input

    static QString path() { return QStringLiteral(VELMORA_CONVERT); }

    ProgramRun run(const QStringList& arguments) const { return finish(start(path(), arguments)); }
    // Runs the program in a shell with redirections after the arguments, for example "<&-".
    ProgramRun runInShell(const QStringList& arguments, const QString& redirections) const
    {
        QStringList words {u"-c"_s, u"exec \"$0\" \"$@\" "_s + redirections, path()};
        return finish(start(u"/bin/sh"_s, words + arguments));
    }

    std::unique_ptr<QProcess> start(const QString& program, const QStringList& arguments,
        const std::function<void()>& beforeExec = {}) const
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, _home.path(u"home"_s));
        environment.insert(u"LC_ALL"_s, language);
        environment.remove(u"LANGUAGE"_s);
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(workingFolder.isEmpty() ? _home.path() : workingFolder);
        if (beforeExec)
            process->setChildProcessModifier(beforeExec);
        process->start(program, arguments);
        if (!process->waitForStarted())
            qFatal("cannot start %s", qPrintable(program));
        process->write(input);
        process->closeWriteChannel();
        return process;
    }

    static ProgramRun finish(const std::unique_ptr<QProcess>& process)
    {
        constexpr int patienceMs = 120'000;
        if (!process->waitForFinished(patienceMs))
            qFatal("%s does not end", qPrintable(process->program()));
        ProgramRun result;
        result.exitCode = process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
        result.output = QString::fromUtf8(process->readAllStandardOutput());
        result.errors = QString::fromUtf8(process->readAllStandardError());
        return result;
    }

private:
    const TestHome& _home;
};

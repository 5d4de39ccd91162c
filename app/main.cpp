// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConverterWindowController.h"
#include "app/DBCMainWindowController.h"
#include "app/desktop/DBCSingleInstance.h"
#include "app/desktop/DBCWindowActivation.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCSettings.h"
#include "system/DBCSignalWatcher.h"
#include "system/DBCStandardDescriptors.h"
#include "system/DBCUtf8Locale.h"

#include <QApplication>
#include <QIcon>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

DBCConverterWindowController* screen = nullptr;
QtMessageHandler formerHandler = nullptr;

// When the connection to the display breaks, the toolkit writes a message and then calls exit().
// The message is the last chance to let a running operation put its files in order.
void windDownWhenTheDisplayIsLost(
    QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    formerHandler(type, context, text);
    const bool isWindowThread = QThread::currentThread() == qApp->thread();
    if (screen && isWindowThread && text.contains(u"connection broke"_s))
        screen->windDown();
}

void explain(const char* key)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(getLocalString(key)));
}

// Some desktops show only the picture that the window brings along; others take the icon of the
// desktop file.
QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(u":/velmora/icons/%1.png"_s.arg(size), QSize(size, size));
    return icon;
}

int runWindow(DBCSingleInstance& instance)
{
    QGuiApplication::setWindowIcon(programIcon());
    DBCMainWindowController window;
    screen = &window.converter();
    formerHandler = qInstallMessageHandler(windDownWhenTheDisplayIsLost);
    const DBCSignalWatcher signalWatcher([] { screen->endSoon(); });
    QObject::connect(&instance, &DBCSingleInstance::raiseRequested, &window,
        [&](const QByteArray& token) { bringToFront(window, token); });
    QObject::connect(&window, &DBCMainWindowController::terminateRequested, qApp,
        &QCoreApplication::quit, Qt::QueuedConnection);
    window.show();
    const int result = QApplication::exec();
    screen = nullptr;
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    keepStandardDescriptorsOpen();
    // This comes before the toolkit starts threads, because a signal delivered to one of them would
    // end the program.
    DBCSignalWatcher::blockSignals();
    // Neither a terminal that goes away nor a limit on the size of files must end an operation
    // halfway: the write fails with its reason instead.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const QByteArray activationToken = activationTokenOfStart();
    const auto application = applicationInUtf8<QApplication>(argc, argv);
    QApplication::setApplicationName(u"VelmoraConverter"_s);
    QGuiApplication::setDesktopFileName(QString::fromLatin1(DBCSettings::bundleIdentifier));

    DBCSingleInstance instance;
    switch (instance.claim(activationToken)) {
    case DBCSingleInstance::Role::First:
        return runWindow(instance);
    case DBCSingleInstance::Role::Second:
        return EXIT_SUCCESS;
    case DBCSingleInstance::Role::Undetermined:
        explain("IDS_LABEL_NO_SINGLE_COPY");
        return EXIT_SUCCESS;
    }
    Q_UNREACHABLE();
}

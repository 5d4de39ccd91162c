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
// This message handler is the last function that runs before exit(), so it winds a running
// operation down: the operation puts its files in order before the program exits.
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

// The window needs an icon of its own, because some desktops show only the window's icon and not
// the icon of the desktop file.
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
    // The signals must be blocked before the toolkit starts threads, which inherit the block. A
    // signal delivered to a thread that does not block it would end the program.
    DBCSignalWatcher::blockSignals();
    // These signals would end the program halfway through an operation: SIGPIPE when the terminal
    // has gone away, SIGXFSZ when a file grows beyond the user's limit. When the program ignores
    // them, the write fails instead and gives the reason.
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

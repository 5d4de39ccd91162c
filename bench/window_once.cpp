// SPDX-License-Identifier: GPL-3.0-or-later
// window_once FOLDER PACKAGE
// Runs one import in the program's window and answers every question with Yes, until the window
// closes by itself. Prints the smallest number of times that the progress bar was painted in any
// second of the import, and the milliseconds from the program's start to the window's first paint.
#include "app/DBCConverterWindowController.h"
#include "app/DBCMainWindowController.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 millisecondsPerSecond = 1000;

class YesMan : public DBCMessagePresenter {
public:
    void showError(quint32 number, const QString& /*title*/, const QString& text) override
    {
        std::fprintf(stderr, "message %u: %s\n", number, qUtf8Printable(text));
    }
    DBCAnswer askQuestion(const DBCQuestion& /*question*/) override { return DBCAnswer::Default; }
};

// Counts how often a widget is painted in each second.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(const QElapsedTimer& clock)
        : _clock(clock)
    {
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            _first = std::min(_first, _clock.elapsed());
            ++_paints[_clock.elapsed() / millisecondsPerSecond];
        }
        return false;
    }
    qint64 first() const { return _first; }
    // Returns the smallest count of a second. The first and the last second with a paint are left
    // out, because the import does not run during all of them.
    int fewestInASecond() const
    {
        int fewest = std::numeric_limits<int>::max();
        for (auto second = _paints.begin(); second != _paints.end(); ++second) {
            if (second != _paints.begin() && std::next(second) != _paints.end())
                fewest = std::min(fewest, second->second);
        }
        return fewest;
    }

private:
    const QElapsedTimer& _clock;
    qint64 _first = std::numeric_limits<qint64>::max();
    std::map<qint64, int> _paints;
};

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer clock;
    clock.start();
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    DBCMainWindowController window;
    YesMan presenter;
    DBCMessage::setPresenter(&presenter);
    PaintCounter windowPaints(clock);
    window.installEventFilter(&windowPaints);
    QObject::connect(&window, &DBCMainWindowController::terminateRequested, qApp,
        &QCoreApplication::quit, Qt::QueuedConnection);
    window.show();
    QCoreApplication::processEvents();

    const auto press = [&](const char* name) {
        window.findChild<QPushButton*>(QString::fromLatin1(name))->click();
    };
    window.findChild<QRadioButton*>(u"importChoice"_s)->setChecked(true);
    press("continueBtn");
    window.findChild<QLineEdit*>(u"_dataPathTextField"_s)->setText(arguments.value(1));
    window.findChild<QLineEdit*>(u"_vmdbPathTextField"_s)->setText(arguments.value(2));
    auto* const bar = window.findChild<QProgressBar*>(u"_progressBar"_s);
    PaintCounter barPaints(clock);
    bar->installEventFilter(&barPaints);
    press("_convertBtn");
    QApplication::exec();
    const bool isDone = bar->value() == bar->maximum();
    std::printf("%d %lld\n", barPaints.fewestInASecond(), windowPaints.first());
    return isDone ? 0 : 1;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCCheckDialog.h"

#include "app/dialogs/DBCLocalizedWidgets.h"
#include "app/dialogs/DBCProblemModel.h"
#include "app/dialogs/DBCTableColumns.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "ui_DBCCheckView.h"

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QSaveFile>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetweenSteps = 50;
constexpr QSize usualSize {780, 480}; // device-independent pixels
constexpr int linesOfSummary = 2;
constexpr int linesOfSelectedProblem = 3;
constexpr int widestFileColumn = 220; // device-independent pixels

int heightOfLines(const QWidget& widget, int lines)
{
    return widget.fontMetrics().lineSpacing() * lines;
}

// Returns the user's documents folder, or the home folder if there is no documents folder.
QString placeToSave()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

// Returns the text in UTF-8 with the byte order mark by which spreadsheet programs recognise UTF-8.
QByteArray markedUtf8(const QString& text)
{
    return QByteArrayLiteral("\xEF\xBB\xBF") + text.toUtf8();
}

} // namespace

DBCCheckDialog::DBCCheckDialog(QWidget* parent)
    : QDialog(parent)
    , _ui(std::make_unique<Ui::DBCCheckView>())
    , _problems(new DBCProblemModel(this))
    , _sorted(new QSortFilterProxyModel(this))
{
    _ui->setupUi(this);
    localizeWidgets(*this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(usualSize);
    _ui->summary->setMinimumHeight(heightOfLines(*this, linesOfSummary));
    _ui->notice->setMinimumHeight(heightOfLines(*this, 1));
    _pool.setMaxThreadCount(1);
    makeTable();
    connectControls();
    setButtons();
}

DBCCheckDialog::~DBCCheckDialog()
{
    giveUp();
}

void DBCCheckDialog::makeTable()
{
    _sorted->setSourceModel(_problems);
    _sorted->setSortRole(DBCProblemModel::sortRole);
    _sorted->setSortLocaleAware(true);
    QTableView& table = *_ui->table;
    table.setModel(_sorted);
    table.setSortingEnabled(true);
    table.setWordWrap(false);
    table.addAction(_ui->copyAction);
    _ui->copyAction->setShortcut(QKeySequence::Copy);
    _ui->copyAction->setShortcutContext(Qt::WidgetShortcut);

    QPlainTextEdit& selected = *_ui->selectedProblem;
    const int margins
        = 2 * selected.frameWidth() + qRound(2 * selected.document()->documentMargin());
    selected.setFixedHeight(heightOfLines(selected, linesOfSelectedProblem) + margins);
}

void DBCCheckDialog::connectControls()
{
    const auto onClick = [this](QPushButton* button, void (DBCCheckDialog::*action)()) {
        connect(button, &QPushButton::clicked, this, action);
    };
    onClick(_ui->againBtn, &DBCCheckDialog::stopOrCheckAgain);
    onClick(_ui->copyAllBtn, &DBCCheckDialog::copyAll);
    onClick(_ui->saveBtn, &DBCCheckDialog::askWhereToSave);
    connect(_ui->closeBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(_ui->copyAction, &QAction::triggered, this, &DBCCheckDialog::copySelection);
    connect(_ui->table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &DBCCheckDialog::showSelectedProblem);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, _ui->saveBtn,
        &QPushButton::click);
}

void DBCCheckDialog::check(const QString& folder)
{
    _folder = folder;
    start();
    show();
    raise();
    activateWindow();
}

void DBCCheckDialog::start()
{
    giveUp();
    _problems->setProblems(_folder, {});
    _ui->summary->showTexts(getLocalString("IDS_CHECK_RUNNING", {_folder}));
    _ui->notice->clearTexts();
    showProgress(0, 0);
    _ui->pages->setCurrentWidget(_ui->progressPage);
    _isStopWanted = std::make_shared<std::atomic<bool>>(false);
    setButtons();
    _ui->againBtn->setFocus();
    _pool.start([this, folder = _folder, isStopWanted = _isStopWanted,
                    progress = progressFor(_isStopWanted)] {
        const DBCFolderReport report = DBCFolderInspector::inspect(folder, progress);
        QMetaObject::invokeMethod(this, [this, folder, isStopWanted, report] {
            if (isStopWanted == _isStopWanted)
                showReport(folder, report);
        });
    });
}

void DBCCheckDialog::giveUp()
{
    if (_isStopWanted)
        *_isStopWanted = true;
    _isStopWanted.reset();
}

// Returns the function to which the check reports its progress. The function updates the screen at
// most once per millisecondsBetweenSteps, because the check reads lines faster than the screen can
// be repainted.
DBCFolderInspector::Progress DBCCheckDialog::progressFor(const StopFlag& isStopWanted)
{
    return [this, isStopWanted, shown = QElapsedTimer()](qint64 finished, qint64 max) mutable {
        if (!shown.isValid() || shown.hasExpired(millisecondsBetweenSteps)) {
            if (max != 0)
                shown.start();
            QMetaObject::invokeMethod(this, [this, isStopWanted, finished, max] {
                if (isStopWanted == _isStopWanted)
                    showProgress(finished, max);
            });
        }
        return *isStopWanted ? DBCLoopControl::Stop : DBCLoopControl::Continue;
    };
}

void DBCCheckDialog::showProgress(qint64 finished, qint64 max)
{
    _ui->bar->setRange(0, static_cast<int>(max));
    _ui->bar->setValue(static_cast<int>(finished));
    _ui->lines->setText(max == 0 ? QString() : getLocalString("IDS_CHECK_LINES", {finished, max}));
}

void DBCCheckDialog::showReport(const QString& folder, const DBCFolderReport& report)
{
    giveUp();
    _folder = folder;
    _problems->setProblems(folder, report.findings.problems);
    showSummary(report);
    showPage(report);
    setButtons();
}

void DBCCheckDialog::showSummary(const DBCFolderReport& report)
{
    if (report.findings.couldNotLook) {
        _ui->summary->showAttention(report.findings.couldNotLook->text);
        return;
    }
    const auto count = static_cast<qint64>(report.findings.problems.size());
    if (report.wasStopped) {
        _ui->summary->showAttention(getLocalString("IDS_CHECK_STOPPED"),
            getLocalString("IDS_CHECK_PROBLEMS", {_folder, count}));
        return;
    }
    const QString size
        = DBCLocalizable::locale().formattedDataSize(static_cast<qint64>(report.bytesNeeded));
    _ui->summary->showTexts((count == 0 ? getLocalString("IDS_CHECK_NO_PROBLEMS", {_folder})
                                        : getLocalString("IDS_CHECK_PROBLEMS", {_folder, count}))
        + u'\n' + getLocalString("IDS_CHECK_CARDS_AND_SPACE", {report.cardCount, size}));
}

void DBCCheckDialog::showPage(const DBCFolderReport& report)
{
    if (_problems->rowCount() != 0) {
        _ui->table->sortByColumn(DBCProblemModel::Line, Qt::AscendingOrder);
        fitColumns(*_ui->table);
        if (_ui->table->columnWidth(DBCProblemModel::File) > widestFileColumn)
            _ui->table->setColumnWidth(DBCProblemModel::File, widestFileColumn);
        _ui->table->selectRow(0);
        _ui->pages->setCurrentWidget(_ui->problemsPage);
        _ui->table->setFocus();
        return;
    }
    const bool isClean = !report.findings.couldNotLook && !report.wasStopped;
    _ui->pages->setCurrentWidget(isClean ? _ui->cleanPage : _ui->emptyPage);
    _ui->summary->setFocus();
}

void DBCCheckDialog::setButtons()
{
    const bool hasProblems = _problems->rowCount() != 0;
    _ui->copyAllBtn->setEnabled(hasProblems);
    _ui->saveBtn->setEnabled(hasProblems);
    _ui->againBtn->setText(
        getLocalString(isChecking() ? "IDS_BUTTON_STOP_CHECK" : "IDS_BUTTON_CHECK_AGAIN"));
    _ui->againBtn->setEnabled(true);
}

void DBCCheckDialog::stopOrCheckAgain()
{
    if (!isChecking()) {
        start();
        return;
    }
    // The check notices the flag at its next step and then shows the problems found so far.
    *_isStopWanted = true;
    _ui->againBtn->setEnabled(false);
}

void DBCCheckDialog::showSelectedProblem()
{
    const QModelIndex index
        = _sorted->index(_ui->table->currentIndex().row(), DBCProblemModel::Problem);
    _ui->selectedProblem->setPlainText(index.data(DBCProblemModel::wholeRole).toString());
}

void DBCCheckDialog::copySelection()
{
    QList<int> rows;
    for (const QModelIndex& index : _ui->table->selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(DBCProblemModel::tabSeparated(*_sorted, rows));
    _ui->notice->showTexts(getLocalString("IDS_LIST_COPIED", {rows.size()}));
}

void DBCCheckDialog::copyAll()
{
    QGuiApplication::clipboard()->setText(DBCProblemModel::tabSeparated(*_sorted));
    _ui->notice->showTexts(getLocalString("IDS_LIST_COPIED", {qint64 {_sorted->rowCount()}}));
}

void DBCCheckDialog::askWhereToSave()
{
    auto* const panel = new QFileDialog(
        this, getLocalString("IDS_LIST_TITLE"), placeToSave(), getLocalString("IDS_LIST_TYPE"));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setDefaultSuffix(u"tsv"_s);
    panel->selectFile(getLocalString("IDS_LIST_NAME", {QDir(_folder).dirName()}));
    connect(panel, &QFileDialog::fileSelected, this, &DBCCheckDialog::save);
    panel->open();
}

void DBCCheckDialog::save(const QString& path)
{
    const QByteArray bytes = markedUtf8(DBCProblemModel::tabSeparated(*_sorted));
    QSaveFile file(path);
    // write() only fills a buffer, so an error such as a full disk appears only at flush().
    const bool isSaved = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
        && file.flush() && file.commit();
    if (isSaved)
        _ui->notice->showTexts(getLocalString("IDS_LIST_SAVED", {path}));
    else
        _ui->notice->showAttention(
            getLocalString("IDS_LIST_NOT_SAVED", {path, file.errorString()}));
    _ui->notice->setFocus();
}

void DBCCheckDialog::done(int result)
{
    giveUp();
    QDialog::done(result);
}

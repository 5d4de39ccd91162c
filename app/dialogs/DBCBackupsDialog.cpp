// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCBackupsDialog.h"

#include "app/dialogs/DBCBackupModel.h"
#include "app/dialogs/DBCLocalizedWidgets.h"
#include "app/dialogs/DBCTableColumns.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConfirmedBackupChange.h"
#include "ui_DBCBackupsView.h"

#include <QScopedValueRollback>
#include <QShortcut>
#include <QSortFilterProxyModel>

namespace {

using Outcome = DBCBackupChange::Outcome;
using Result = DBCBackupChange::Result;

constexpr QSize usualSize {640, 420}; // device-independent pixels
constexpr int linesOfStatus = 4;

QString running(const char* labelKey)
{
    return getLocalString("IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING", {getLocalString(labelKey)});
}

} // namespace

DBCBackupsDialog::DBCBackupsDialog(QWidget* parent)
    : QDialog(parent)
    , _ui(std::make_unique<Ui::DBCBackupsView>())
    , _backups(new DBCBackupModel(this))
    , _sorted(new QSortFilterProxyModel(this))
{
    _ui->setupUi(this);
    localizeWidgets(*this);
    setWindowModality(Qt::WindowModal);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(usualSize);
    _ui->status->setMinimumHeight(fontMetrics().lineSpacing() * linesOfStatus);
    QSizePolicy policy = _ui->bar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    _ui->bar->setSizePolicy(policy);
    _pool.setMaxThreadCount(1);
    makeTable();
    connect(_ui->restoreBtn, &QPushButton::clicked, this, [this] { start(Change::Restore); });
    connect(_ui->deleteBtn, &QPushButton::clicked, this, [this] { start(Change::Delete); });
    connect(_ui->closeBtn, &QPushButton::clicked, this, &QDialog::reject);
    setControls();
}

DBCBackupsDialog::~DBCBackupsDialog() = default;

void DBCBackupsDialog::makeTable()
{
    _sorted->setSourceModel(_backups);
    _sorted->setSortRole(DBCBackupModel::sortRole);
    _ui->table->setModel(_sorted);
    _ui->table->setSortingEnabled(true);
    connect(_ui->table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &DBCBackupsDialog::showSelected);
    connect(new QShortcut(QKeySequence::Delete, _ui->table, nullptr, nullptr, Qt::WidgetShortcut),
        &QShortcut::activated, _ui->deleteBtn, &QPushButton::click);
}

void DBCBackupsDialog::showBackupsOf(const QString& package)
{
    _package = package;
    _isOutcomeShown = false;
    _backups->setBackups({});
    _ui->summary->clearTexts();
    _ui->pages->setCurrentWidget(_ui->emptyPage);
    _ui->table->sortByColumn(DBCBackupModel::Made, Qt::DescendingOrder);
    startListing();
    _ui->status->showTexts(getLocalString("IDS_BACKUP_LISTING"));
    open();
}

void DBCBackupsDialog::startListing()
{
    _isListing = true;
    setControls();
    _pool.start([this, package = _package, look = ++_look] {
        const DBCBackupList list = DBCPackageBackups::list(package);
        QMetaObject::invokeMethod(this, [this, package, look, list] {
            if (look == _look)
                showList(package, list);
        });
    });
}

void DBCBackupsDialog::showList(const QString& package, const DBCBackupList& list)
{
    const DBCBackup* const before = selected();
    const QString name = before ? before->name() : QString();
    _package = package;
    {
        const QScopedValueRollback listing(_isListing, true);
        _backups->setBackups(list.backups);
        select(name);
    }
    _isListing = false;
    fitColumns(*_ui->table);
    if (list.couldNotLook)
        _ui->summary->showAttention(list.couldNotLook->text);
    else
        _ui->summary->showTexts(getLocalString(
            "IDS_BACKUP_COUNT", {package, static_cast<qint64>(list.backups.size())}));
    QWidget* const page = list.backups.empty() ? static_cast<QWidget*>(_ui->none) : _ui->table;
    _ui->pages->setCurrentWidget(list.couldNotLook ? _ui->emptyPage : page);
    setControls();
    if (_isOutcomeShown)
        return;
    showSelected();
    (list.backups.empty() ? static_cast<QWidget*>(_ui->summary) : _ui->table)->setFocus();
}

// Selects the backup of this name, or the first backup if none has this name.
void DBCBackupsDialog::select(const QString& name)
{
    const QModelIndex first = _sorted->index(0, DBCBackupModel::Name);
    const QModelIndexList found = _sorted->match(first, Qt::DisplayRole, name, 1, Qt::MatchExactly);
    _ui->table->selectRow(found.isEmpty() ? 0 : found.constFirst().row());
}

const DBCBackup* DBCBackupsDialog::selected() const
{
    const QModelIndex index = _sorted->mapToSource(_ui->table->currentIndex());
    return index.isValid() ? &_backups->backup(index.row()) : nullptr;
}

void DBCBackupsDialog::start(Change change)
{
    const DBCBackup* const backup = selected();
    if (!backup || _isChanging)
        return;
    _isChanging = true;
    setControls();
    const QString name = backup->name();
    _ui->status->showTexts(getLocalString("IDS_BACKUP_READING", {name}));
    Q_EMIT changeWillBegin();
    _pool.start([this, change, package = _package, name] {
        const Result result = carryOut(change, package, name);
        QMetaObject::invokeMethod(
            this, [this, change, name, result] { end(change, name, result); });
    });
}

// Carries the change out. Called on the thread of the pool.
Result DBCBackupsDialog::carryOut(Change change, const QString& package, const QString& name)
{
    if (change == Change::Delete)
        return deleteBackupIfConfirmed(package, name);
    return restoreBackupIfConfirmed(package, name, [this](const DBCEvent& event) {
        QMetaObject::invokeMethod(this, [this, stage = event.name] { showStage(stage); });
    });
}

void DBCBackupsDialog::showStage(DBCEventName stage)
{
    if (stage == DBCEventName::DatabaseBackupWillBegin)
        _ui->status->showTexts(running("IDS_LBL_BACKUP"));
    else if (stage == DBCEventName::DatabaseRestoreWillBegin)
        _ui->status->showTexts(running("IDS_LBL_RESTORE"));
}

void DBCBackupsDialog::end(Change change, const QString& name, const Result& result)
{
    _isChanging = false;
    _isOutcomeShown = result.outcome != Outcome::NotConfirmed;
    showOutcome(change, name, result);
    startListing();
    _ui->status->setFocus();
    Q_EMIT changeDidEnd(change == Change::Restore && result.outcome == Outcome::Done);
}

void DBCBackupsDialog::showOutcome(Change change, const QString& name, const Result& result)
{
    const QString kept = result.keptPackage.isEmpty()
        ? QString()
        : getLocalString("IDS_BACKUP_KEPT", {result.keptPackage});
    switch (result.outcome) {
    case Outcome::Done:
        _ui->status->showTexts(change == Change::Delete
                ? getLocalString("IDS_BACKUP_DELETED", {name})
                : getLocalString("IDS_BACKUP_RESTORED", {_package, name}) + u'\n' + kept);
        return;
    case Outcome::NotConfirmed:
        _ui->status->clearTexts();
        return;
    case Outcome::Refused:
    case Outcome::Failed:
        _ui->status->showAttention(result.problem.text, kept);
        return;
    }
}

// If the selected backup is damaged, shows why it cannot be restored.
void DBCBackupsDialog::showSelected()
{
    if (_isListing)
        return;
    _isOutcomeShown = false;
    const DBCBackup* const backup = selected();
    _ui->status->showAttention(backup && backup->isDamaged()
            ? getLocalString("IDS_BACKUP_DAMAGE", {backup->damage})
            : QString());
    setControls();
}

void DBCBackupsDialog::setControls()
{
    const DBCBackup* const backup = selected();
    const bool isIdle = !_isChanging && !_isListing;
    _ui->restoreBtn->setEnabled(isIdle && backup && !backup->isDamaged());
    _ui->deleteBtn->setEnabled(isIdle && backup);
    _ui->closeBtn->setEnabled(!_isChanging);
    _ui->table->setEnabled(!_isChanging);
    _ui->bar->setVisible(!isIdle);
}

void DBCBackupsDialog::waitUntilChanged()
{
    _pool.waitForDone();
}

void DBCBackupsDialog::done(int result)
{
    if (_isChanging)
        return;
    ++_look;
    QDialog::done(result);
}

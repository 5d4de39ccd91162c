// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConverterWindowController.h"

#include "app/DBCConverterWindowTexts.h"
#include "app/DBCWindowFrame.h"
#include "app/desktop/DBCPaths.h"
#include "app/desktop/DBCWindowActivation.h"
#include "app/dialogs/DBCFilePanels.h"
#include "app/dialogs/DBCLocalizedWidgets.h"
#include "app/dialogs/DBCLogViewer.h"
#include "carddb/DBCPackageLayout.h"
#include "operation/log/DBCLog.h"
#include "operation/log/DBCSettings.h"
#include "operation/messages/DBCMessage.h"
#include "ui_DBCConverterView.h"

#include <QAction>
#include <QFileInfo>
#include <QShortcut>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

// Positions in the path area: the source is on top, then comes an arrow, then the target.
constexpr int upperPlace = 0;
constexpr int lowerPlace = 2;

constexpr int linesOfMessageArea = 3;

bool isFolder(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

// Gives the label the height of so many lines from the start, so that no other control moves when
// the text of the label appears or disappears.
void reserveLines(QLabel& label, int lines)
{
    // The height is measured with a sample text, because a line is higher if some letters come from
    // another font. The sample contains kanji, because cards have Japanese names in every language
    // of the program.
    const bool isRich = label.textFormat() == Qt::RichText;
    const QStringList sample(lines, u"No. 1 \u540D\u523A"_s);
    label.setText(sample.join(isRich ? u"<br>"_s : u"\n"_s));
    label.setMinimumHeight(label.sizeHint().height());
    label.clear();
}

QString standardPackage()
{
    return DBCConverterWindowController::_getDefaultDBPath() + u'/'
        + QStringView(DBCPackageLayout::defaultName).toString();
}

} // namespace

DBCConverterWindowController::DBCConverterWindowController(
    DBCWindowFrame& mainWndCtrl, QAction& menuItemTerminate)
    : _mainWndCtrl(mainWndCtrl)
    , _menuItemTerminate(menuItemTerminate)
    , _converterView(new QWidget(&mainWndCtrl))
    , _ui(std::make_unique<Ui::DBCConverterView>())
    , _convertKey(new QShortcut(_converterView))
    , _presenter(mainWndCtrl)
    , _notification([&mainWndCtrl](const QByteArray& token) { bringToFront(mainWndCtrl, token); })
{
    _ui->setupUi(_converterView);
    _converterView->hide();
    localizeWidgets(*_converterView);
    _dataPathHint = std::make_unique<DBCPathHint>(*_ui->_dataPathTextField, *_ui->dataPathReason);
    _vmdbPathHint = std::make_unique<DBCPathHint>(*_ui->_vmdbPathTextField, *_ui->vmdbPathReason);
    // The buttons get one width, so that all fields begin and end at the same places.
    const int width = std::max({_ui->_dataPathSelectionBtn->sizeHint().width(),
        _ui->_vmdbPathSelectionBtn->sizeHint().width(), _ui->backupsBtn->sizeHint().width()});
    _ui->_dataPathSelectionBtn->setMinimumWidth(width);
    _ui->_vmdbPathSelectionBtn->setMinimumWidth(width);
    _connectControls();
    _registerObsever();
}

DBCConverterWindowController::~DBCConverterWindowController()
{
    windDown();
}

void DBCConverterWindowController::_connectControls()
{
    using Self = DBCConverterWindowController;
    const auto onClick = [this](QPushButton* button, void (Self::*action)()) {
        connect(button, &QPushButton::clicked, this, action);
    };
    onClick(_ui->_dataPathSelectionBtn, &Self::selectDataFilePathAction);
    onClick(_ui->_vmdbPathSelectionBtn, &Self::selectDBFilePathAction);
    onClick(_ui->backupsBtn, &Self::backupsAction);
    onClick(_ui->checkBtn, &Self::checkAction);
    onClick(_ui->_openLogBtn, &Self::readLogAction);
    onClick(_ui->_return2MainWindowBtn, &Self::return2MainWndAction);
    onClick(_ui->_closeBtn, &Self::quitBtnAction);
    connect(_ui->_convertBtn, &QPushButton::clicked, this,
        [this] { isRunning() ? cancelConverting() : convertAction(); });
    connect(_convertKey, &QShortcut::activated, _ui->_convertBtn, &QPushButton::click);
    for (QLineEdit* const field : {_ui->_dataPathTextField, _ui->_vmdbPathTextField}) {
        connect(field, &QLineEdit::textChanged, this, &Self::controlTextDidChange);
        connect(field, &QLineEdit::returnPressed, _ui->_convertBtn, &QPushButton::click);
    }
    connect(
        new QShortcut(Qt::Key_Down, _ui->_dataPathTextField, nullptr, nullptr, Qt::WidgetShortcut),
        &QShortcut::activated, this, &Self::_takeLastDataPath);
    _runningTimer.setSingleShot(true);
    connect(&_runningTimer, &QTimer::timeout, this, &Self::_showRunning);
}

void DBCConverterWindowController::setOperationType(OperationType type)
{
    _operationType = type;
    _initConverterWindow();
}

void DBCConverterWindowController::_initConverterWindow()
{
    const DBCLog* const log = DBCLog::logInstance();
    setLogFilePath(log ? log->logFilePath() : QString());
    _setOpenLogBtnStatus();
    _ui->_dataPathTextField->clear();
    _ui->_vmdbPathTextField->clear();
    reserveLines(*_ui->dataPathReason, 1);
    reserveLines(*_ui->vmdbPathReason, 2);
    reserveLines(*_ui->currentCard, 1);
    reserveLines(*_ui->_messageArea, linesOfMessageArea);
    _initMsgAndProgressBar();
    _showOperationTexts();
    _orderPathBoxes();
    _mainWndCtrl.showView(_converterView);
    _fillDefaultPaths();
    _setBtnStatus();
    (_isImport() ? _ui->_dataPathTextField : _ui->_vmdbPathTextField)->setFocus();
}

void DBCConverterWindowController::_showOperationTexts()
{
    const DBCConverterWindowTexts& texts = _texts();
    _ui->_dataPathTitleTextField->setText(texts.dataPathLabel.text());
    _ui->_vmdbPathTitleTextField->setText(texts.databasePathLabel.text());
    _restoreToConvertBtn();
    _ui->checkBtn->setVisible(_isImport());
    _dataPathHint->setSubject(
        _isImport() ? DBCPathHint::Subject::InterchangeFolder : DBCPathHint::Subject::ExportParent);
    _vmdbPathHint->setSubject(DBCPathHint::Subject::CardDatabase);
    _lastDataPath = DBCPaths::lastDataPath(_operationType);
    _ui->_dataPathTextField->setPlaceholderText(_lastDataPath.isEmpty()
            ? QString()
            : getLocalString(u"IDS_LABEL_LAST_PATH"_s, {_lastDataPath}));
}

void DBCConverterWindowController::_orderPathBoxes()
{
    QWidget* const upper = _isImport() ? _ui->_dataPathBox : _ui->_vmdbPathBox;
    QWidget* const lower = _isImport() ? _ui->_vmdbPathBox : _ui->_dataPathBox;
    QVBoxLayout* const area = _ui->pathArea;
    area->removeWidget(upper);
    area->removeWidget(lower);
    area->insertWidget(upperPlace, upper);
    area->insertWidget(lowerPlace, lower);

    const QList<QWidget*> data {_ui->_dataPathTextField, _ui->_dataPathSelectionBtn};
    const QList<QWidget*> database {
        _ui->_vmdbPathTextField, _ui->_vmdbPathSelectionBtn, _ui->backupsBtn};
    const QList<QWidget*> others {_ui->_messageArea, _ui->_openLogBtn, _ui->openReportBtn,
        _ui->_return2MainWindowBtn, _ui->_closeBtn, _ui->checkBtn, _ui->_convertBtn};
    const QList<QWidget*> order = (_isImport() ? data + database : database + data) + others;
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order.at(i - 1), order.at(i));
}

void DBCConverterWindowController::_fillDefaultPaths()
{
    const QString preferred = DBCSettings::mainApplicationDatabasePath().value_or(QString());
    for (const QString& package : {preferred, standardPackage()}) {
        if (isFolder(package)) {
            _ui->_vmdbPathTextField->setText(package);
            break;
        }
    }
    const QString folder = _getDefaultDataFilePath().value_or(QString());
    if (!_isImport() && isFolder(folder))
        _ui->_dataPathTextField->setText(folder);
}

QString DBCConverterWindowController::_getDefaultDBPath()
{
    return DBCPreconditions::_getDefaultDBPath();
}

std::optional<QString> DBCConverterWindowController::_getDefaultDataFilePath()
{
    return DBCPreconditions::_getDefaultDataFilePath();
}

// Called for the Down key: an empty field takes over the path that its placeholder shows.
void DBCConverterWindowController::_takeLastDataPath()
{
    if (_ui->_dataPathTextField->text().isEmpty())
        _ui->_dataPathTextField->setText(_lastDataPath);
}

void DBCConverterWindowController::selectDataFilePathAction()
{
    const QString typed = _dataPath();
    DBCFolderPanel panel(&_mainWndCtrl, getLocalString(u"IDS_OPEN_DATA_FILE_PANEL_TITLE"_s),
        isFolder(typed) ? typed : _getDefaultDataFilePath().value_or(QString()),
        _isImport() ? DBCFolderPanel::NewFolders::Forbidden : DBCFolderPanel::NewFolders::Allowed);
    if (panel.exec() == QDialog::Accepted) {
        _ui->_dataPathTextField->setText(panel.selectedFiles().value(0));
        _setBtnStatus();
    }
}

void DBCConverterWindowController::selectDBFilePathAction()
{
    const QString typed = _databasePath();
    DBCPackagePanel panel(&_mainWndCtrl, getLocalString(u"IDS_OPEN_VMDB_FILE_PANEL_TITLE"_s),
        isFolder(typed) ? typed : standardPackage());
    if (panel.exec() == QDialog::Accepted) {
        _ui->_vmdbPathTextField->setText(panel.selectedFiles().value(0));
        _setBtnStatus();
    }
}

bool DBCConverterWindowController::canTakeDrop(const QString& path) const
{
    return _converterView->isVisible() && _ui->_dataPathTextField->isEnabled() && isFolder(path);
}

void DBCConverterWindowController::takeDrop(const QString& path)
{
    QLineEdit* const field
        = DBCPaths::isPackage(path) ? _ui->_vmdbPathTextField : _ui->_dataPathTextField;
    field->setText(path);
    field->setFocus();
}

QString DBCConverterWindowController::_dataPath() const
{
    return DBCPaths::usable(_ui->_dataPathTextField->text());
}

QString DBCConverterWindowController::_databasePath() const
{
    return DBCPaths::usable(_ui->_vmdbPathTextField->text());
}

void DBCConverterWindowController::readLogAction()
{
    const QFileInfo log(_logPathString);
    if (_logPathString.isEmpty() || !log.exists() || log.isDir())
        DBCMessage::ShowErrorMessage(101);
    else
        showLogFile(_logPathString, &_mainWndCtrl, [] { DBCMessage::ShowErrorMessage(108); });
}

void DBCConverterWindowController::return2MainWndAction()
{
    _mainWndCtrl.initMainWindow();
}

void DBCConverterWindowController::quitBtnAction()
{
    _mainWndCtrl.close();
}

void DBCConverterWindowController::controlTextDidChange()
{
    _setBtnStatus();
}

void DBCConverterWindowController::explainWhyItStaysOpen() const
{
    const QWidget& button = *_ui->_convertBtn;
    QToolTip::showText(button.mapToGlobal(QPoint(0, 0)), getLocalString(u"IDS_LABEL_CLOSE_LATER"_s),
        _ui->_convertBtn);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCMainWindowController.h"

#include "app/DBCConverterWindowController.h"
#include "app/dialogs/DBCLocalizedWidgets.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "ui_DBCOperationView.h"

#include <QAction>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSessionManager>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr int exportRow = 0;
constexpr int importRow = 1;

// Returns the path if exactly one local file or folder was dropped, and an empty text otherwise.
QString droppedPath(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

DBCMainWindowController::DBCMainWindowController()
    : _ui(std::make_unique<Ui::DBCOperationView>())
    , _operationView(new QWidget(this))
    , _convertTypeBtn(new QButtonGroup(this))
    , _menuItemTerminate(new QAction(this))
{
    _ui->setupUi(_operationView);
    localizeWidgets(*_operationView);
    _ui->exportPicture->setSubject(DBCConversionPicture::Subject::Export);
    _ui->importPicture->setSubject(DBCConversionPicture::Subject::Import);
    _convertTypeBtn->addButton(_ui->exportChoice, exportRow);
    _convertTypeBtn->addButton(_ui->importChoice, importRow);
    connect(
        _ui->continueBtn, &QPushButton::clicked, this, &DBCMainWindowController::continueBtnAction);
    connect(_ui->quitBtn, &QPushButton::clicked, this, &DBCMainWindowController::quitBtnAction);
    for (QAbstractButton* const choice : _convertTypeBtn->buttons()) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
            connect(new QShortcut(key, choice, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, _ui->continueBtn, &QPushButton::click);
    }
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this,
        &DBCMainWindowController::refuseLogoutWhileBusy, Qt::DirectConnection);
    makeMenu();
    setAcceptDrops(true);
    _converterWndCtrl = std::make_unique<DBCConverterWindowController>(*this, *_menuItemTerminate);
    awakeFromNib();
}

DBCMainWindowController::~DBCMainWindowController() = default;

void DBCMainWindowController::awakeFromNib()
{
    initMainWindow();
    QRect frame = frameGeometry();
    frame.moveCenter(screen()->availableGeometry().center());
    move(frame.topLeft());
}

void DBCMainWindowController::makeMenu()
{
    QMenu* const menu = menuBar()->addMenu(getLocalString(u"IDS_LABEL_MENU"_s));
    _menuItemTerminate->setObjectName(u"_menuItemTerminate"_s);
    _menuItemTerminate->setText(getLocalString(u"IDS_BUTTON_QUIT"_s));
    _menuItemTerminate->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    _menuItemTerminate->setMenuRole(QAction::QuitRole);
    menu->addAction(_menuItemTerminate);
    connect(_menuItemTerminate, &QAction::triggered, this, &DBCMainWindowController::quitBtnAction);
}

void DBCMainWindowController::initMainWindow()
{
    setWindowTitle(getLocalString(u"IDS_TITLE_WINDOW"_s));
    showView(_operationView);
    _convertTypeBtn->checkedButton()->setFocus();
}

void DBCMainWindowController::showView(QWidget* view)
{
    if (QWidget* const former = takeCentralWidget()) {
        former->setParent(this);
        former->hide();
    }
    // Wrapped texts need more lines in a narrower window. The layout does not consider this when it
    // computes the minimum size from its widgets, so the minimum height is set here.
    const QLayout& layout = *view->layout();
    if (layout.hasHeightForWidth())
        view->setMinimumHeight(layout.totalHeightForWidth(layout.totalMinimumSize().width()));
    setCentralWidget(view);
    view->show();
    if (!isMaximized() && !isFullScreen())
        resize(sizeHint());
}

void DBCMainWindowController::continueBtnAction()
{
    _converterWndCtrl->setOperationType(
        _convertTypeBtn->checkedId() == exportRow ? OperationType::Export : OperationType::Import);
}

void DBCMainWindowController::quitBtnAction()
{
    close();
}

void DBCMainWindowController::setCloseBoxEnabled(bool isEnabled)
{
    _isCloseBoxEnabled = isEnabled;
}

void DBCMainWindowController::closeEvent(QCloseEvent* event)
{
    event->setAccepted(_isCloseBoxEnabled);
    if (_isCloseBoxEnabled)
        windowWillClose();
    else
        _converterWndCtrl->explainWhyItStaysOpen();
}

void DBCMainWindowController::windowWillClose()
{
    Q_EMIT terminateRequested();
}

// Refuses a logout while the program is busy, because the end of the session would kill a running
// operation.
void DBCMainWindowController::refuseLogoutWhileBusy(QSessionManager& manager)
{
    if (_converterWndCtrl->isBusy())
        manager.cancel();
}

void DBCMainWindowController::dragEnterEvent(QDragEnterEvent* event)
{
    if (_converterWndCtrl->canTakeDrop(droppedPath(event->mimeData())))
        event->acceptProposedAction();
}

void DBCMainWindowController::dropEvent(QDropEvent* event)
{
    const QString path = droppedPath(event->mimeData());
    if (!_converterWndCtrl->canTakeDrop(path))
        return;
    event->acceptProposedAction();
    _converterWndCtrl->takeDrop(path);
}

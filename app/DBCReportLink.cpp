// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCReportLink.h"

#include "app/desktop/DBCDesktopOpener.h"
#include "app/dialogs/DBCMessageArea.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCEvent.h"
#include "operation/messages/DBCMessage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 reportNotOpenedMessage = 111;

// After a complete conversion the last line of the message area already gives a number of cards, so
// the number of cards with warnings or errors is appended to this line.
void showCount(qint64 concernedCardCount, DBCMessageArea& messageArea)
{
    const char* const key = messageArea.hasText() ? "IDS_MSG_WARNED_COUNT" : "IDS_MSG_WARNED_CARDS";
    messageArea.appendText(getLocalString(key, {concernedCardCount}));
}

} // namespace

DBCReportLink::DBCReportLink(QWidget* parent)
    : QPushButton(parent)
{
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
    connect(this, &QPushButton::clicked, this, &DBCReportLink::openReport);
}

void DBCReportLink::offer(const DBCEvent& finished, DBCMessageArea& messageArea)
{
    if (finished.concernedCardCount != 0)
        showCount(finished.concernedCardCount, messageArea);
    _path = finished.reportPath;
    const QString description
        = getLocalString(u"IDS_LABEL_OPEN_REPORT"_s, {finished.concernedCardCount});
    setAccessibleName(description);
    setToolTip(description);
    setVisible(!_path.isEmpty());
}

void DBCReportLink::takeBack()
{
    _path.clear();
    hide();
}

void DBCReportLink::openReport()
{
    openOnDesktop(_path, this,
        [path = _path] { DBCMessage::ShowErrorMessage(reportNotOpenedMessage, {path}); });
}

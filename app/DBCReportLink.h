// SPDX-License-Identifier: GPL-3.0-or-later
// Offers the report about the run that has ended. Out of sight as long as there is none, with its
// place kept, so that nothing moves when it comes.
#pragma once

#include <QPushButton>

class DBCMessageArea;
struct DBCEvent;

class DBCReportLink : public QPushButton {
    Q_OBJECT
public:
    explicit DBCReportLink(QWidget* parent = nullptr);

    // finished: the last event of a run. The number of cards with warnings or errors, if there are
    // any, goes into messageArea.
    void offer(const DBCEvent& finished, DBCMessageArea& messageArea);
    void takeBack();

private:
    void openReport();

    QString _path;
};
